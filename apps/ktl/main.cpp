// The command-line program ktl: properties of one state, or of every line of a CSV file.
#include "batch.hpp"
#include "number.hpp"
#include "states.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>
#include <ktl/version.h>

namespace {

using namespace program;

enum ExitStatus { all_found = 0, state_missing = 1, wrong_use = 2 };

constexpr const char* every_state_codes = "P,T,V,H,S,X";

struct Arguments {
    std::string pair, first, second, file;
    std::string codes = every_state_codes;
    std::string format = "csv";
    bool stats = false;
};

std::string version() {
    return "ktl " + std::to_string(KTL_VERSION_MAJOR) + "." + std::to_string(KTL_VERSION_MINOR) + "." +
           std::to_string(KTL_VERSION_PATCH);
}

std::string property_help() {
    std::string text = "Properties, upper or lower case, separated by commas:\n";
    bool one_phase = false;
    for (const Property& p : properties()) {
        if (p.one_phase && !one_phase) text += "and, where there is one phase:\n";
        one_phase = p.one_phase;
        std::string line = "  " + std::string(p.code);
        line.append(10 - line.size(), ' ');
        line += p.unit;
        line.append(22 - line.size(), ' ');
        text += line + std::string(p.meaning) + "\n";
    }
    return text + "X is 0 in water and 1 in steam.\n";
}

constexpr const char* range_help = "Range: 0.01 to 800 degC, 0.006112444 to 1000 bar.\n";
constexpr const char* exit_help =
    "Exit status: 0 all results found, 1 a state has no result, 2 wrong use or unreadable file.\n";

constexpr const char* batch_help =
    "The file starts with a line of column names. The two columns of the pair are found by name: the letter or\n"
    "the name of the quantity, alone or with its unit (p, P_bar, pressure [bar]). With the pair \"auto\" the file\n"
    "has the columns pair, first and second, and each line names its own pair.\n\n"
    "Each line of the file yields one line, in order: its columns, one column for each property, and a column\n"
    "\"error\". A line without a state keeps the property columns empty and says why in the last one; no line\n"
    "ends the run. Extra columns of a line that has too many are dropped. CSV carries 10 digits and streams;\n"
    "a table carries 7 digits and is printed once all lines are read. All cores compute. A terminal shows how far\n"
    "it has come.\n\n"
    "Examples:\n"
    "  ktl batch ph states.csv T,V,S\n"
    "  ktl batch auto examples/heat_balance.csv P,T,V,H,S,X --format table\n";

std::string quantity_help(ktl::Property id) {
    const Quantity& q = quantity(id);
    return std::string(q.name) + ", " + std::string(q.unit);
}

double number_argument(ktl::Property id, const std::string& text) {
    const auto value = parse_number(text);
    if (!value) throw UsageError(std::string(quantity(id).name) + ": " + in_quotes(text) + " is not a number");
    return *value;
}

ExitStatus single(const Pair& pair, const Arguments& arguments) {
    const auto wanted = parse_codes(arguments.codes);
    const double first = number_argument(pair.first, arguments.first);
    const double second = number_argument(pair.second, arguments.second);
    States states(pair, wanted);
    const std::size_t row = states.add(first, second);
    states.solve();
    NumberText number;
    std::vector<std::string> shown;
    std::size_t widest = 0, longest_code = 2;
    bool any = false;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const double value = states.value(row, i);
        any = any || std::isfinite(value);
        shown.emplace_back(std::isfinite(value) ? number(value, result_digits) : "-");
        widest = std::max(widest, shown.back().size());
        longest_code = std::max(longest_code, wanted[i]->code.size());
    }
    for (std::size_t i = 0; any && i < wanted.size(); ++i) {
        std::cout << std::left << std::setw(static_cast<int>(longest_code) + 2) << wanted[i]->code
                  << std::setw(static_cast<int>(widest)) << shown[i] << " " << wanted[i]->unit << "\n";
    }
    if (!std::cout.flush()) throw UsageError("cannot write the results");
    const std::string error = states.error(row);
    if (error.empty()) return all_found;
    std::cerr << "ktl: " << error << "\n";
    return state_missing;
}

ExitStatus batch(const Arguments& arguments) {
    const Pair* pair = find_pair(arguments.pair);
    if (pair == nullptr && lower_case(arguments.pair) != "auto")
        throw UsageError("no pair " + in_quotes(arguments.pair) + "; the pairs are " + pair_names() + " and auto");
    const auto wanted = parse_codes(arguments.codes);
    const auto output = arguments.format == "table" ? table_output() : csv_output();
    const std::size_t failures = run_batch(pair, arguments.file, wanted, arguments.stats, *output);
    if (failures == 0) return all_found;
    std::cerr << "ktl: " << failures << (failures == 1 ? " line has" : " lines have") << " no full result\n";
    return state_missing;
}

void add_commands(CLI::App& app, Arguments& arguments) {
    for (const Pair& pair : pairs()) {
        const std::string about = "State from " + quantity_help(pair.first) + ", and " + quantity_help(pair.second);
        CLI::App* command = app.add_subcommand(std::string(pair.name), about);
        command->add_option("first", arguments.first, quantity_help(pair.first))->required()->type_name("NUMBER");
        command->add_option("second", arguments.second, quantity_help(pair.second))->required()->type_name("NUMBER");
        command->add_option("properties", arguments.codes, "Wanted properties")->capture_default_str();
        command->footer("\n" + property_help() + range_help + exit_help);
    }
    CLI::App* command = app.add_subcommand("batch", "States from a CSV file, one on each line");
    command->add_option("pair", arguments.pair, "The pair of every line (" + pair_names() + "), or auto")->required();
    command->add_option("file", arguments.file, "CSV file, - for standard input")->required();
    command->add_option("properties", arguments.codes, "Wanted properties")->capture_default_str();
    command->add_option("--format", arguments.format, "csv, or table for reading")
        ->capture_default_str()
        ->check(CLI::IsMember({"csv", "table"}));
    command->add_flag("--stats", arguments.stats, "Tell the number of rows and the rate at the end");
    command->footer("\n" + std::string(batch_help) + "\n" + property_help() + range_help + exit_help);
}

ExitStatus run(int argc, char** argv) {
    CLI::App app("Properties of water and steam after the 1967 IFC Formulation for Industrial Use.", "ktl");
    app.set_version_flag("--version", version());
    app.require_subcommand(1);
    app.ignore_case();
    app.footer("\n" + property_help() + range_help + exit_help + "\nExample: ktl pt 10 100 V,H,S\n");
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return "ktl: " + std::string(error.what()) + "\nSee ktl --help.\n";
    });
    Arguments arguments;
    add_commands(app, arguments);
    // CLI11 would call for a command here without naming what it did not know.
    if (argc > 1 && argv[1][0] != '-' && find_pair(argv[1]) == nullptr && lower_case(argv[1]) != "batch")
        throw UsageError("no command " + in_quotes(argv[1]) + "; the commands are " + pair_names() + " and batch");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& outcome) { // help and version come this way too
        return app.exit(outcome) == 0 ? all_found : wrong_use;
    }
    const std::string command = app.get_subcommands().front()->get_name();
    return command == "batch" ? batch(arguments) : single(*find_pair(command), arguments);
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& fault) {
        std::cerr << "ktl: " << fault.what() << "\n";
        return wrong_use;
    }
}
