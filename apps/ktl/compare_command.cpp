#include "compare_command.hpp"

#include "compare.hpp"
#include "files.hpp"
#include "number.hpp"

#include <ktl/if97.hpp>

namespace program {

namespace {

constexpr const char* default_temperatures = "0.01,25:350:25,360,370";

constexpr const char* test_help =
    "The 1967 IFC Formulation (IFC-67) and the industrial formulation of 1997 (IAPWS-IF97) side by side.\n\n"
    "FILE has one point of the test on each line: the columns point, pair, first and second (pairs pt ph ps px tx hs), "
    "or\n"
    "point, P_bar and T_degC. Optional columns: flow_kg/s; turbine, \"in\" or \"out\", if the flow enters or leaves "
    "the\n"
    "turbine; boiler, likewise (feedwater and cold reheat go in, steam comes out). Then, if wanted, a second table "
    "with the\n"
    "columns section, inlet, outlet and efficiency, the first three names. The outlet of a section may be a point of "
    "the\n"
    "pair \"p\", a pressure alone (wet exhaust steam): its efficiency, 0 to 1, is given then. Otherwise it is "
    "computed.\n\n"
    "Shown are the properties of each point and, if there are sections and flows, the efficiencies, output, heat rate, "
    "and\n"
    "the share of each point in the differences. Differences are IF97 less 1967.\n\n"
    "Examples:\n"
    "  ktl compare examples/turbine_test.csv\n"
    "  ktl compare map h --p 1,10,50:300:50 --t 100:600:50\n"
    "  ktl compare saturation --format html > saturation.html\n";

Scale scale_of(const std::string& text) {
    if (text == "48") return Scale::ipts48;
    return text == "68" ? Scale::ipts68 : Scale::its90;
}

void add_common(CLI::App& command, CompareArguments& arguments) {
    command.add_option("--format", arguments.format, "table, csv, json or html")
        ->capture_default_str()
        ->check(CLI::IsMember({"table", "csv", "json", "html"}));
    command
        .add_option(
            "--scale", arguments.scale,
            "Give the 1967 formulation its temperatures on the scale of 1948 or 1968; 90: the same numbers as IF97")
        ->capture_default_str()
        ->check(CLI::IsMember({"48", "68", "90"}));
}

} // namespace

void add_compare(CLI::App& app, CompareArguments& arguments) {
    CLI::App* compare =
        app.add_subcommand("compare", "A plant test, a map or the saturation line after two formulations");
    compare->add_option("file", arguments.file, "CSV file, - for standard input")->type_name("FILE");
    compare->add_option("properties", arguments.codes, "Properties of the points")->capture_default_str();
    add_common(*compare, arguments);
    compare->footer("\n" + std::string(test_help));
    CLI::App* map = compare->add_subcommand("map", "Differences of v, h, s or cp over pressure and temperature");
    map->add_option("property", arguments.property, "v, h, s or cp")->required();
    map->add_option("--p", arguments.p, "Pressures, bar: 1,10,50:300:50 (from:to:step)")->required();
    map->add_option("--t", arguments.t, "Temperatures, degC, likewise")->required();
    add_common(*map, arguments);
    CLI::App* saturation = compare->add_subcommand("saturation", "Differences along the saturation line");
    saturation->add_option("--t", arguments.t,
                           std::string("Temperatures, degC; if not given, ") + default_temperatures);
    add_common(*saturation, arguments);
    compare->require_subcommand(0, 1);
}

bool run_compare(const CLI::App& app, const CompareArguments& arguments) {
    const CLI::App& compare = *app.get_subcommand("compare");
    const Scale scale = scale_of(arguments.scale);
    Comparison comparison;
    if (compare.got_subcommand("map")) {
        comparison =
            compare_map(arguments.property, number_list("--p", arguments.p), number_list("--t", arguments.t), scale);
    } else if (compare.got_subcommand("saturation")) {
        const std::string t = arguments.t.empty() ? default_temperatures : arguments.t;
        comparison = compare_saturation(number_list("--t", t), scale);
    } else {
        if (arguments.file.empty()) throw UsageError("compare: a file, map or saturation is required");
        comparison = compare_test(arguments.file, parse_codes(arguments.codes), scale);
    }
    if (scale != Scale::its90) {
        comparison.report.notes.push_back(
            "Temperatures given to the 1967 formulation are converted from the ITS-90 to the scale of 19" +
            arguments.scale + ".");
    }
    OutputFile out(std::string{});
    out.write(written(comparison.report, arguments.format));
    out.finish();
    return comparison.complete;
}

} // namespace program
