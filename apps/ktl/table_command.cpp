#include "table_command.hpp"

#include "files.hpp"
#include "measure.hpp"
#include "number.hpp"
#include "table_writers.hpp"

#include <algorithm>
#include <cmath>
#include <ktl/table.hpp>
#include <vector>

namespace program {

namespace {

using Id = ktl::Property;

constexpr const char* table_help =
    "Steam tables as they are printed: five digits, the last ones that the formulation supports, and a rule across "
    "each\n"
    "isobar at the saturation line. Files for programs (csv, json) have 10 digits and a row for each state.\n\n"
    "A range leads from one value to another by a step; both ends are rows. If no whole number of steps fits, the "
    "rows\n"
    "between the ends are multiples of the step: 0.01, 1, 2 .. 374, 374.15. Temperatures from 0 to 0.01 degC count as\n"
    "0.01 degC, where the range begins. Values without a unit have that of the table; a value may carry its own.\n"
    "Units: bar (bar, degC, kJ), si (Pa, K, J), mpa (MPa, K, kJ), us (psia, degF, Btu, lb, ft3).\n\n"
    "Examples:\n"
    "  ktl table saturation --by t --from 0.01 --to 374.15 --step 1\n"
    "  ktl table saturation --by p --units us -o saturation.html\n"
    "  ktl table single --p 1,5,10 --t 0:800:20\n";

/// A temperature or a pressure of the arguments, which an option is the name of.
struct Argument {
    std::string option;
    Id id;
    double least, most;   ///< in ktl's unit
    const char* range_is; ///< "the range", "the saturation line"
};

/// Reads arguments in a system of units.
class Reader {
public:
    Reader(const UnitSystem& units, const Atmosphere& atmosphere) : units_(units), atmosphere_(atmosphere) {}

    /// The value in the unit of the table.
    [[nodiscard]] double value(const Argument& argument, std::string_view text) const {
        try {
            const ReadNumber read = read_number(text);
            const bool plain = read.is_number && read.rest.empty() && !read.too_large;
            const double value =
                plain ? read.value
                      : tidy(unit(argument).from_ktl(argument_value(quantity(argument.id), text, atmosphere_), 0.0));
            return within(argument, value);
        } catch (const UsageError& fault) {
            if (std::string_view(fault.what()).starts_with("--")) throw;
            throw UsageError(argument.option + ": " + fault.what());
        }
    }

    /// A limit in the unit of the table.
    [[nodiscard]] double limit(const Argument& argument, double ktl_value) const {
        return tidy(unit(argument).from_ktl(ktl_value, 0.0));
    }

    /// The rows between two values, the last one not below the first. subject: what messages about the step begin with.
    [[nodiscard]] std::vector<double> steps(const Argument& argument, double from, double to, std::string_view step,
                                            const std::string& subject) const {
        const auto width = parse_number(step);
        const std::string about = subject + in_quotes(trimmed(step));
        if (!width || !(*width > 0.0) || !std::isfinite(*width))
            throw UsageError(about + " should be a number above 0, in " + heading(unit(argument)));
        const ktl::table::Steps rows(from, to, *width);
        if (rows.size() == 0) throw UsageError(about + " makes " + too_many());
        return copied(rows);
    }

    /// The values of a list such as "1,5,10" or "0:800:20".
    [[nodiscard]] std::vector<double> list(const Argument& argument, std::string_view text) const {
        std::vector<double> values;
        for (std::size_t begin = 0; begin <= text.size();) {
            const std::size_t end = std::min(text.find(',', begin), text.size());
            const std::string_view part = trimmed(text.substr(begin, end - begin));
            begin = end + 1;
            if (part.empty())
                throw UsageError(argument.option + ": " + in_quotes(text) +
                                 (trimmed(text).empty() ? " has no value" : " has an empty place"));
            const std::size_t colon = part.find(':');
            if (colon == std::string_view::npos) {
                values.push_back(value(argument, part));
            } else {
                const std::size_t second = part.find(':', colon + 1);
                const std::string range = argument.option + ": " + in_quotes(part);
                if (second == std::string_view::npos) throw UsageError(range + " should be from:to:step");
                const double from = value(argument, part.substr(0, colon));
                const double to = value(argument, part.substr(colon + 1, second - colon - 1));
                if (to < from)
                    throw UsageError(range + " leads from " + shown(argument, from) + " down to " +
                                     shown(argument, to));
                const auto between = steps(argument, from, to, part.substr(second + 1), range + ": the step ");
                values.insert(values.end(), between.begin(), between.end());
            }
            if (values.size() > ktl::table::most_rows)
                throw UsageError(argument.option + ": the list has " + too_many());
        }
        return values;
    }

    template <class Values>
    static std::vector<double> copied(const Values& values) {
        std::vector<double> out;
        for (std::size_t k = 0; k < values.size(); ++k) out.push_back(values[k]);
        return out;
    }
    static std::string too_many() { return "more than " + std::to_string(ktl::table::most_rows) + " rows"; }

    [[nodiscard]] std::string shown(const Argument& argument, double value) const {
        NumberText number;
        return std::string(number(value, result_digits)) + " " + heading(unit(argument));
    }

private:
    [[nodiscard]] const ktl::units::Reading& unit(const Argument& argument) const {
        return units_.unit_of(argument.id);
    }
    /// Without the rounding of a conversion: 811 K is 537.85 degC.
    static double tidy(double value) {
        constexpr int certain_digits = 13;
        NumberText number;
        return read_number(number(value, certain_digits)).value;
    }

    [[nodiscard]] double within(const Argument& argument, double value) const {
        const double given = given_value(units_, argument.id, value);
        if (given >= argument.least && given <= argument.most) return value;
        constexpr double rounding = 1.0e-10; // of a conversion, K
        if (argument.id == Id::t && given >= -rounding && given < argument.least)
            return limit(argument, argument.least);
        throw UsageError(argument.option + ": " + shown(argument, value) + " is outside " + argument.range_is + ", " +
                         shown(argument, limit(argument, argument.least)) + " to " +
                         shown(argument, limit(argument, argument.most)));
    }

    const UnitSystem& units_;
    Atmosphere atmosphere_;
};

Argument on_line(const char* option, bool by_pressure) {
    constexpr const char* line = "the saturation line";
    if (by_pressure) return {option, Id::p, 0.006112444, 221.2, line};
    return {option, Id::t, 0.01, 374.15, line};
}

SaturationTable saturation_of(const TableArguments& arguments, const UnitSystem& units, const Reader& read) {
    const bool by_pressure = lower_case(arguments.by) == "p";
    const Argument first = on_line("--from", by_pressure), last = on_line("--to", by_pressure);
    const double from = arguments.from.empty() ? read.limit(first, first.least) : read.value(first, arguments.from);
    const double to = arguments.to.empty() ? read.limit(last, last.most) : read.value(last, arguments.to);
    if (to < from) throw UsageError("--to: " + read.shown(last, to) + " is below --from, " + read.shown(first, from));
    if (by_pressure && arguments.step.empty())
        return saturation_table(units, by_pressure, Reader::copied(ktl::table::Pressures(from, to)));
    const char* usual = units.name == "us" ? "10" : "5"; // degF, K
    const std::string step = arguments.step.empty() ? usual : arguments.step;
    return saturation_table(units, by_pressure, read.steps(first, from, to, step, "--step: "));
}

SingleTable single_of(const TableArguments& arguments, const UnitSystem& units, const Reader& read) {
    const Argument p{"--p", Id::p, 0.006112444, 1000.0, "the range"}, t{"--t", Id::t, 0.01, 800.0, "the range"};
    const std::vector<double> pressures = read.list(p, arguments.p), temperatures = read.list(t, arguments.t);
    for (std::size_t k = 1; k < temperatures.size(); ++k)
        if (!(temperatures[k - 1] < temperatures[k]))
            throw UsageError("--t: " + read.shown(t, temperatures[k]) + " comes after " +
                             read.shown(t, temperatures[k - 1]) + "; temperatures should rise");
    if (pressures.size() * temperatures.size() > ktl::table::most_rows)
        throw UsageError("--p, --t: " + std::to_string(pressures.size()) + " pressures at " +
                         std::to_string(temperatures.size()) + " temperatures make " + Reader::too_many());
    return single_table(units, pressures, temperatures);
}

/// That of --format, or of the ending of the file's name.
std::string format_of(const TableArguments& arguments) {
    if (!arguments.format.empty()) return lower_case(arguments.format);
    const std::string name = lower_case(arguments.output);
    for (const char* known : {"csv", "json", "html", "pdf"})
        if (name.ends_with(std::string(1, '.') + known)) return known;
    return "text";
}

PrintedTable pages(const SaturationTable& table, std::string_view /*format*/) { return printed(table); }

/// As many isobars beside one another as a terminal, or a sheet of paper, has room for.
PrintedTable pages(const SingleTable& table, std::string_view format) {
    constexpr std::size_t terminal = 80, on_paper = 3;
    if (format != "text") return printed(table, on_paper);
    for (std::size_t isobars = on_paper; isobars > 1; --isobars)
        if (PrintedTable candidate = printed(table, isobars); text_width(candidate) <= terminal) return candidate;
    return printed(table, 1);
}

template <class Table>
std::string written(const Table& table, const TableArguments& arguments) {
    const std::string format = format_of(arguments);
    if (format == "csv" || format == "json") return written(report(table), format);
    const PrintedTable page = pages(table, format);
    if (format == "html") return html_page(page);
    if (format == "pdf") return pdf_pages(page);
    return text_pages(page, static_cast<std::size_t>(arguments.page_rows));
}

void add_common(CLI::App& command, TableArguments& arguments) {
    command.add_option("--units", arguments.units, "bar, si, mpa or us")->capture_default_str();
    command
        .add_option("--format", arguments.format,
                    "text, csv, json, html, pdf; if not given, by the ending of FILE, or text")
        ->check(CLI::IsMember({"text", "csv", "json", "html", "pdf"}));
    command.add_option("-o,--output", arguments.output, "File to write to in place of standard output")
        ->type_name("FILE");
    command.add_option("--page-rows", arguments.page_rows, "Rows of a page of text")
        ->capture_default_str()
        ->check(CLI::Range(1, static_cast<int>(ktl::table::most_rows)))
        ->type_name("NUMBER");
    command.add_option("--atmosphere", arguments.atmosphere, "Pressure that gauge pressures are above, as in 1.013bar")
        ->type_name("PRESSURE");
}

} // namespace

void add_table(CLI::App& app, TableArguments& arguments) {
    CLI::App* table = app.add_subcommand("table", "Printed steam tables of the saturation line or of isobars");
    table->footer("\n" + std::string(table_help));
    CLI::App* saturation = table->add_subcommand("saturation", "Saturated water and steam by temperature or pressure");
    saturation->add_option("--by", arguments.by, "t or p")->capture_default_str()->check(CLI::IsMember({"t", "p"}));
    saturation->add_option("--from", arguments.from, "First temperature or pressure; if not given, the triple point");
    saturation->add_option("--to", arguments.to, "Last one; if not given, the critical point");
    saturation->add_option("--step", arguments.step,
                           "Between rows; if not given, 5 K or 10 degF, and pressures that grow by about a tenth");
    add_common(*saturation, arguments);
    CLI::App* single = table->add_subcommand("single", "Water and steam at lists of pressures and temperatures");
    single->add_option("--p", arguments.p, "Pressures: 1,5,10 or 10:100:10 (from:to:step)")->required();
    single->add_option("--t", arguments.t, "Rising temperatures, likewise")->required();
    add_common(*single, arguments);
    table->require_subcommand(0, 1); // run_table names those that there are
}

void run_table(const CLI::App& app, const TableArguments& arguments) {
    const CLI::App& table = *app.get_subcommand("table");
    if (table.get_subcommands().empty()) throw UsageError("table: saturation or single is required");
    const UnitSystem& units = unit_system(arguments.units);
    const Reader read(units, atmosphere_of(arguments.atmosphere, measure_in(ktl::Property::p, units)));
    if (arguments.output.empty() && format_of(arguments) == "pdf" && is_terminal(1))
        throw UsageError("--format: pdf is not for a terminal; give -o FILE");
    const std::string text = table.got_subcommand("saturation")
                                 ? written(saturation_of(arguments, units, read), arguments)
                                 : written(single_of(arguments, units, read), arguments);
    write_whole(arguments.output, text);
}

} // namespace program
