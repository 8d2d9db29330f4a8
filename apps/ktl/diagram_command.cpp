#include "diagram_command.hpp"

#include "chart_page.hpp"
#include "chart_wishes.hpp"
#include "files.hpp"
#include "line_output.hpp"
#include "number.hpp"
#include "tables.hpp"

namespace program {

namespace {

constexpr const char* chart_help =
    "The charts: hs (Mollier), ts, ph (logarithmic p), pv (both logarithmic), pt (logarithmic p).\n\n"
    "--window shows a part, as in s=5:9,h=2000:4000; the families of lines then have values that suit it. --lines "
    "gives\n"
    "the values of one family, as in p=0.05,0.1,1 or t=100:500:50 (from:to:step) or v= (none), and may be given for\n"
    "several. Both are in the units of the chart: bar (bar, degC, kJ), si (Pa, K, J), mpa (MPa, K, kJ), us (psia, "
    "degF,\n"
    "Btu, lb, ft3).\n\n"
    "A process is a CSV file with a state on each line: the columns pair, first and second as for ktl batch auto, or\n"
    "P_bar and T_degC; a column point with names; and, if wanted, a column step that says how each state is reached:\n"
    "straight, isobaric, isenthalpic, isentropic. \"isentropic 0.88\" with the pair p, a pressure alone, computes the\n"
    "end of an expansion or a compression of that efficiency. Without a step it is taken from what is the same in\n"
    "both states: h, s, or a pressure that falls by a fifth at most; otherwise it is straight.\n\n";

constexpr const char* diagram_examples =
    "Examples:\n"
    "  ktl diagram hs -o mollier.svg\n"
    "  ktl diagram hs --process examples/heat_balance.csv --to \"LP exhaust\" -o expansion.svg\n"
    "  ktl diagram ph --window p=1:100,h=2500:3500 --units mpa --size A4 -o part.pdf\n";

constexpr const char* lines_examples = "Examples:\n"
                                       "  ktl lines hs -o mollier.csv\n"
                                       "  ktl lines ts --lines p=1,10,100 --lines h= --format json\n";

void add_common(CLI::App& command, DiagramArguments& arguments) {
    command.add_option("preset", arguments.preset, "The chart: hs, ts, ph, pv or pt")->required();
    command.add_option("--window", arguments.window, "What it shows, as in s=5:9,h=2000:4000")->type_name("LIMITS");
    command.add_option("--lines", arguments.lines, "Values of a family, as in p=0.1,1,10")
        ->type_name("VALUES")
        ->take_all()
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command.add_option("--process", arguments.process, "CSV file of states to join, - for standard input")
        ->type_name("FILE");
    command.add_option("--from", arguments.from, "Name of the first state of the process")->type_name("NAME");
    command.add_option("--to", arguments.to, "Name of its last state")->type_name("NAME");
    command.add_option("--size", arguments.size, "Paper, A0 to A6 or as in 200x140 (mm)")
        ->capture_default_str()
        ->type_name("SIZE");
    command.add_option("--units", arguments.units, "bar, si, mpa or us")->capture_default_str();
    command.add_option("--deviation", arguments.deviation, "Largest deviation of a line from the true one, mm")
        ->capture_default_str()
        ->type_name("MM");
    command.add_option("-o,--output", arguments.output, "File to write to in place of standard output")
        ->type_name("FILE");
}

/// The ending of a name in lower case, "svg" of standard output.
std::string ending_of(const std::string& path) {
    if (path.empty()) return "svg";
    const std::size_t dot = path.find_last_of("./\\");
    return dot == std::string::npos || path[dot] != '.' ? std::string() : lower_case(path.substr(dot + 1));
}

} // namespace

void add_diagram(CLI::App& app, DiagramArguments& arguments) {
    CLI::App* draw = app.add_subcommand("diagram", "Chart of water and steam as a picture: svg, pdf or png");
    add_common(*draw, arguments);
    draw->add_option("--title", arguments.title, "Title of the page")->type_name("TEXT");
    draw->add_option("--dpi", arguments.dots, "Dots of an inch, of a png; 150 if not given")
        ->check(CLI::Range(20, 1200))
        ->type_name("NUMBER");
    draw->footer(std::string("\n") + chart_help + diagram_examples);
    CLI::App* lines = app.add_subcommand("lines", "The lines of a chart as points, for any plotter");
    add_common(*lines, arguments);
    lines->add_option("--format", arguments.format, "csv or json")
        ->capture_default_str()
        ->check(CLI::IsMember({"csv", "json"}));
    lines->footer(std::string("\n") + chart_help + lines_examples);
}

void run_diagram(const DiagramArguments& arguments) {
    const std::string ending = ending_of(arguments.output);
    if (ending != "svg" && ending != "pdf" && ending != "png")
        throw UsageError("the picture " + in_quotes(arguments.output) + " should end in .svg, .pdf or .png");
    if (arguments.dots != 0 && ending != "png") throw UsageError("--dpi is for a png, the picture is " + ending);
    const Page page = page_of(arguments);
    const auto chart = chart_of(arguments, page);
    const auto drawing = drawing_of(arguments, chart);
    constexpr int usual_dots = 150;
    const auto canvas = ending == "svg"   ? svg_canvas(page)
                        : ending == "pdf" ? pdf_canvas(page)
                                          : png_canvas(page, arguments.dots != 0 ? arguments.dots : usual_dots);
    draw_chart(chart, drawing, page, *canvas);
    write_whole(arguments.output, canvas->finish());
}

void run_lines(const DiagramArguments& arguments) {
    const Page page = page_of(arguments);
    const auto chart = chart_of(arguments, page);
    const auto drawing = drawing_of(arguments, chart);
    write_whole(arguments.output,
                arguments.format == "json" ? lines_as_json(chart, drawing, page) : lines_as_csv(chart, drawing));
}

} // namespace program
