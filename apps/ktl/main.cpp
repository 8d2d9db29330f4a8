// The command-line program ktl: properties of one state, or of every line of a CSV file.
#include "batch.hpp"
#include "compare_command.hpp"
#include "completion.hpp"
#include "diagram_command.hpp"
#include "files.hpp"
#include "help.hpp"
#include "number.hpp"
#include "single.hpp"
#include "suggestion.hpp"
#include "table_command.hpp"
#include "unit_system.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <ktl/steam.hpp>

namespace {

using namespace program;

enum ExitStatus { all_found = 0, state_missing = 1, wrong_use = 2 };

constexpr const char* every_state_codes = "P,T,V,H,S,X";
constexpr const char* shells = "bash zsh fish";

struct Arguments {
    std::string pair, first, second, shell;
    std::string codes = every_state_codes;
    std::string format = "csv";
    std::string units = "bar";
    std::string output, atmosphere, separator;
    int digits = 0; // none given
    bool json = false;
    BatchWishes batch;
    CompareArguments compare;
    DiagramArguments diagram;
    TableArguments table;
};

std::string version() {
    const ktl::BuildInfo info = ktl::build_info();
    return std::string("ktl ") + info.version + "\nkernels: " + info.kernels_in_use + " in use of " + info.kernels +
           "\ncompiler: " + info.compiler;
}

std::string quantity_help(ktl::Property id) {
    const Quantity& q = quantity(id);
    return std::string(q.name) + ", " + std::string(q.unit);
}

ExitStatus single(const Pair& pair, const Arguments& arguments) {
    const UnitSystem& units = unit_system(arguments.units);
    const auto wanted = in_units(parse_codes(arguments.codes), units);
    SingleWishes wishes;
    wishes.units = &units;
    wishes.first = arguments.first;
    wishes.second = arguments.second;
    wishes.atmosphere = atmosphere_of(arguments.atmosphere, measure_in(ktl::Property::p, units));
    wishes.digits = arguments.digits != 0 ? arguments.digits : result_digits;
    wishes.json = arguments.json;
    wishes.all_states = arguments.batch.all_states;
    OutputFile file(arguments.output);
    const std::string error = run_single(pair, wanted, wishes, file);
    if (error.empty()) return all_found;
    std::cerr << "ktl: " << error << "\n";
    return state_missing;
}

/// '\0' if none was given.
char separator_of(const std::string& text) {
    if (text == "tab" || text == "\\t") return '\t';
    if (text.empty() || text == "," || text == ";" || text == "\t") return text.empty() ? '\0' : text.front();
    throw UsageError("--separator: " + in_quotes(text) + " should be ',' or ';' or tab");
}

ExitStatus batch(const Arguments& arguments) {
    const Pair* pair = find_pair(arguments.pair);
    if (pair == nullptr && lower_case(arguments.pair) != "auto") {
        throw UsageError("no pair " + in_quotes(arguments.pair) + did_you_mean(arguments.pair, pair_names()) +
                         "; the pairs are " + pair_names() + " and auto");
    }
    const UnitSystem& units = unit_system(arguments.units);
    const auto wanted = in_units(parse_codes(arguments.codes), units);
    BatchWishes wishes = arguments.batch;
    wishes.units = &units;
    if (pair != nullptr) {
        wishes.columns.first = measure_in(pair->first, units);
        wishes.columns.second = measure_in(pair->second, units);
    }
    wishes.columns.is_title = is_title_of_results;
    wishes.columns.atmosphere = atmosphere_of(arguments.atmosphere, measure_in(ktl::Property::p, units));
    wishes.separator = separator_of(arguments.separator);
    const std::string format = arguments.json ? "json" : arguments.format;
    const int usual_digits = format == "table" ? table_digits : result_digits;
    std::unique_ptr<OutputFile> file;
    const auto make_output = [&](const InputFile& input, char separator) {
        file = std::make_unique<OutputFile>(arguments.output, &input);
        const Format look{arguments.digits != 0 ? arguments.digits : usual_digits, separator, wishes.decimal_comma};
        return format == "table"  ? table_output(*file, look)
               : format == "json" ? json_output(*file, look)
                                  : csv_output(*file, look);
    };
    const Summary summary = run_batch(pair, wishes, wanted, make_output);
    const std::string failures = summary.reasons.text(summary.rows);
    if (failures.empty()) return all_found;
    std::cerr << "ktl: " << failures;
    return state_missing;
}

void add_output_option(CLI::App& command, Arguments& arguments) {
    command.add_option("-o,--output", arguments.output, "File to write to in place of standard output")
        ->type_name("FILE");
}

/// What single states and files have in common.
void add_common_options(CLI::App& command, Arguments& arguments) {
    command.add_option("properties", arguments.codes, "Wanted properties")->capture_default_str();
    command
        .add_option("--units", arguments.units,
                    "Units of results, and of given values without a unit: bar, si, mpa or us")
        ->capture_default_str()
        ->type_name("SYSTEM");
    command.add_option("--digits", arguments.digits, "Significant digits of results, 1 to 17")
        ->check(CLI::Range(1, all_digits))
        ->type_name("NUMBER");
    add_output_option(command, arguments);
    command.add_option("--atmosphere", arguments.atmosphere, "Pressure that gauge pressures are above, as in 1.013bar")
        ->type_name("PRESSURE");
    command.add_flag("--all-states", arguments.batch.all_states,
                     "All states that have the two values; both saturated phases if p and t leave the quality open");
}

void add_single_commands(CLI::App& app, Arguments& arguments) {
    for (const Pair& pair : pairs()) {
        const std::string about = "State from " + quantity_help(pair.first) + ", and " + quantity_help(pair.second);
        CLI::App* command = app.add_subcommand(std::string(pair.name), about);
        command->add_option("first", arguments.first, quantity_help(pair.first))->required()->type_name("NUMBER");
        command->add_option("second", arguments.second, quantity_help(pair.second))->required()->type_name("NUMBER");
        add_common_options(*command, arguments);
        command->add_flag("--json", arguments.json, "Write a JSON object");
        command->footer(single_help());
    }
}

void add_batch_command(CLI::App& app, Arguments& arguments) {
    CLI::App* command = app.add_subcommand("batch", "States from a CSV file, one on each line");
    command->add_option("pair", arguments.pair, "The pair of every line (" + pair_names() + "), or auto")->required();
    command->add_option("file", arguments.batch.path, "CSV file, - for standard input")->required();
    add_common_options(*command, arguments);
    command->add_option("--format", arguments.format, "csv, table for reading, or json, an object for each line")
        ->capture_default_str()
        ->check(CLI::IsMember({"csv", "table", "json"}));
    command->add_flag("--json", arguments.json, "The same as --format json");
    command->add_option("--columns", arguments.batch.columns.chosen, "Which column is which: p=P_in,t_K=T_in")
        ->type_name("LIST");
    command->add_option("--separator", arguments.separator, "Between columns: ',' or ';' or tab")
        ->type_name("CHARACTER");
    command->add_flag("--decimal-comma", arguments.batch.decimal_comma, "Read and write 0,5 for 0.5");
    command->add_flag("--stats", arguments.batch.stats, "Tell the number of rows and the rate at the end");
    command->footer(batch_help());
}

void add_completion_command(CLI::App& app, Arguments& arguments) {
    CLI::App* command = app.add_subcommand("completion", "Script that completes the arguments of ktl in a shell");
    command->add_option("shell", arguments.shell, "bash, zsh or fish")
        ->required()
        ->check(CLI::IsMember({"bash", "zsh", "fish"}));
    add_output_option(*command, arguments);
}

ExitStatus completion(const CLI::App& app, const Arguments& arguments) {
    std::string codes;
    for (const Property& p : properties()) codes += (codes.empty() ? "" : " ") + std::string(p.code);
    const Words words{{"pair", pair_names() + " auto"},
                      {"file", "FILE"},
                      {"properties", codes},
                      {"format", "csv table json"},
                      {"lines format", "csv json"},
                      {"table format", table_formats},
                      {"by", "t p"},
                      {"preset", preset_names},
                      {"size", page_sizes},
                      {"process", "FILE"},
                      {"units", unit_system_names()},
                      {"output", "FILE"},
                      {"shell", shells},
                      {"separator", "tab"},
                      {"columns", std::string()}};
    OutputFile out(arguments.output);
    out.write(completion_script(app, words, arguments.shell));
    out.finish();
    return all_found;
}

std::string command_names(const CLI::App& app) {
    std::string out;
    for (const CLI::App* command : app.get_subcommands(nullptr)) out += (out.empty() ? "" : " ") + command->get_name();
    return out;
}

/// Names an unknown command or option, which CLI11 would not always do.
void check_words(const CLI::App& app, const std::vector<std::string>& words) {
    const CLI::App* reader = &app;
    if (!words.empty() && !words.front().starts_with('-')) {
        const std::string given = lower_case(words.front());
        const auto named = app.get_subcommands([&](const CLI::App* command) { return command->get_name() == given; });
        if (named.empty()) {
            throw UsageError("no command " + in_quotes(words.front()) +
                             did_you_mean(words.front(), command_names(app)) + "; the commands are " +
                             command_names(app));
        }
        reader = named.front();
        const auto own = reader->get_subcommands(
            [&](const CLI::App* command) { return words.size() > 1 && command->get_name() == words[1]; });
        if (!own.empty()) reader = own.front();
    }
    std::string known;
    for (const CLI::Option* option : reader->get_options())
        for (const std::string& name : option->get_lnames()) known += (known.empty() ? "--" : " --") + name;
    for (const std::string& word : words) {
        if (word == "--") break;
        if (word.size() < 2 || word.front() != '-' || read_number(word).is_number) continue;
        const std::string name = word[1] == '-' ? word.substr(0, word.find('=')) : word.substr(0, 2);
        if (reader->get_option_no_throw(name) != nullptr) continue;
        throw UsageError("no option " + in_quotes(name) + did_you_mean(name, known) + "; the options are " + known);
    }
}

/// -inf and -nan are numbers: a blank before them keeps them from being read as options.
void protect_numbers(std::vector<std::string>& words) {
    for (std::string& word : words)
        if (word.starts_with('-') && word.size() > 1 && read_number(word).is_number) word.insert(0, 1, ' ');
}

ExitStatus run(std::vector<std::string> words) {
    CLI::App app("Properties of water and steam after the 1967 IFC Formulation for Industrial Use.", "ktl");
    app.set_version_flag("--version", version());
    app.require_subcommand(1);
    app.ignore_case();
    app.footer(main_help());
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return "ktl: " + std::string(error.what()) + "\nSee ktl --help.\n";
    });
    Arguments arguments;
    add_single_commands(app, arguments);
    add_batch_command(app, arguments);
    add_compare(app, arguments.compare);
    add_diagram(app, arguments.diagram);
    add_table(app, arguments.table);
    add_completion_command(app, arguments);
    check_words(app, words);
    protect_numbers(words);
    std::reverse(words.begin(), words.end()); // as CLI11 takes them
    try {
        app.parse(words);
    } catch (const CLI::ParseError& outcome) { // help and version come this way too
        return app.exit(outcome) == 0 ? all_found : wrong_use;
    }
    const std::string command = app.get_subcommands().front()->get_name();
    if (command == "batch") return batch(arguments);
    if (command == "compare") return run_compare(app, arguments.compare) ? all_found : state_missing;
    if (command == "diagram" || command == "lines") {
        command == "lines" ? run_lines(arguments.diagram) : run_diagram(arguments.diagram);
        return all_found;
    }
    if (command == "table") {
        run_table(app, arguments.table);
        return all_found;
    }
    if (command == "completion") return completion(app, arguments);
    return single(*find_pair(command), arguments);
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(program::arguments(argc, argv));
    } catch (const std::exception& fault) {
        std::cerr << "ktl: " << fault.what() << "\n";
        return wrong_use;
    }
}
