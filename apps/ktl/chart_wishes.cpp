#include "chart_wishes.hpp"

#include "chart_page.hpp"
#include "compare.hpp"
#include "number.hpp"
#include "process_file.hpp"
#include "unit_system.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace program {

namespace {

namespace diagram = ktl::diagram;

struct PresetRow {
    std::string_view name;
    diagram::Preset preset;
    const char* title;
};
constexpr std::array<PresetRow, 5> presets{{
    {"hs", diagram::Preset::hs, "Mollier chart of water and steam: enthalpy over entropy"},
    {"ts", diagram::Preset::ts, "Water and steam: temperature over entropy"},
    {"ph", diagram::Preset::ph, "Water and steam: pressure over enthalpy"},
    {"pv", diagram::Preset::pv, "Water and steam: pressure over volume"},
    {"pt", diagram::Preset::pt, "Water and steam: pressure over temperature"},
}};

const PresetRow& preset_of(const std::string& text) {
    const std::string name = lower_case(text);
    for (const PresetRow& row : presets)
        if (row.name == name) return row;
    throw UsageError("no chart " + in_quotes(text) + "; the charts are " + preset_names);
}

/// The property of a letter, and what follows the equals sign.
struct Assignment {
    ktl::Property property;
    std::string_view value;
};
Assignment assignment(const char* option, std::string_view text, std::string_view letters) {
    const std::size_t equals = text.find('=');
    const std::string name = lower_case(trimmed(text.substr(0, equals)));
    if (equals == std::string_view::npos || name.size() != 1 || letters.find(name) == std::string_view::npos) {
        std::string known;
        for (const char letter : letters) known.append(known.empty() ? "" : " ").append(1, letter);
        throw UsageError(std::string(option) + ": " + in_quotes(text) + " should be one of " + known +
                         ", an equals sign and values");
    }
    constexpr std::array<ktl::Property, 7> properties{ktl::Property::p, ktl::Property::t, ktl::Property::v,
                                                      ktl::Property::h, ktl::Property::s, ktl::Property::u,
                                                      ktl::Property::x};
    return {properties[std::string_view("ptvhsux").find(name)], trimmed(text.substr(equals + 1))};
}

double to_ktl(double value, ktl::Property property, diagram::System system) {
    return ktl::units::Reading{diagram::unit(system, property), false, ktl::units::Fault::none}.to_ktl(value, 0.0);
}

/// "s=5:9.5,h=1800:4200", or one of them.
void read_window(const std::string& text, const std::string& axes, diagram::System system, diagram::Window& window) {
    const std::string letters(axes.rbegin(), axes.rend()); // x, y
    std::string seen;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        const Assignment part = assignment("--window", std::string_view(text).substr(begin, end - begin), letters);
        const char letter = lower_case(trimmed(std::string_view(text).substr(begin))).front();
        begin = end + 1;
        const std::size_t colon = part.value.find(':');
        const auto low = parse_number(part.value.substr(0, colon));
        const auto high = colon == std::string_view::npos ? std::nullopt : parse_number(part.value.substr(colon + 1));
        if (!low || !high) throw UsageError("--window: " + in_quotes(part.value) + " should be two numbers, as in 5:9");
        if (seen.find(letter) != std::string::npos)
            throw UsageError(std::string("--window: ") + letter + " is given twice");
        seen += letter;
        const bool is_x = letter == letters.front();
        (is_x ? window.left : window.bottom) = to_ktl(*low, part.property, system);
        (is_x ? window.right : window.top) = to_ktl(*high, part.property, system);
    }
}

/// Families of the values that were given take the place of the chart's own.
void read_lines_option(const std::vector<std::string>& texts, diagram::System system, diagram::Chart& chart) {
    std::vector<ktl::Property> seen;
    for (const std::string& text : texts) {
        const Assignment part = assignment("--lines", text, "ptvhsux");
        if (std::find(seen.begin(), seen.end(), part.property) != seen.end())
            throw UsageError("--lines: " + in_quotes(text) + " is the second one of its property");
        seen.push_back(part.property);
        auto at = std::find_if(chart.families.begin(), chart.families.end(),
                               [&](const diagram::Family& family) { return family.held == part.property; });
        if (at == chart.families.end()) {
            chart.families.push_back({part.property, {}, false, 0.5});
            at = chart.families.end() - 1;
        }
        at->values = part.value.empty() ? std::vector<double>{} : number_list("--lines", part.value);
        for (double& value : at->values) value = to_ktl(value, part.property, system);
    }
}

std::string units_text(diagram::System system) {
    std::string out;
    for (const ktl::Property property :
         {ktl::Property::p, ktl::Property::t, ktl::Property::v, ktl::Property::h, ktl::Property::s})
        out.append(out.empty() ? "" : ", ").append(diagram::unit_name(system, property));
    return out;
}

[[noreturn]] void refuse(const std::string& subject, diagram::Fault fault) {
    throw UsageError(subject + ": " + diagram::sentence(fault));
}

/// Every given value has a line, and one line of each option crosses the window.
void check_given_lines(const DiagramArguments& arguments, const diagram::Chart& chart,
                       const diagram::Drawing& drawing) {
    for (const std::string& text : arguments.lines) {
        const ktl::Property held = assignment("--lines", text, "ptvhsux").property;
        std::size_t count = 0, visible = 0;
        for (const diagram::Line& line : drawing.lines) {
            if (line.held != held) continue;
            ++count;
            if (!line.pieces.empty()) ++visible;
            if (line.fault != diagram::Fault::none && line.fault != diagram::Fault::outside_window)
                refuse(std::string("--lines: ") + text.substr(0, 1) + " = " +
                           diagram::text(line.value, held, chart.system) + " " +
                           std::string(diagram::unit_name(chart.system, held)),
                       line.fault);
        }
        if (count != 0 && visible == 0) refuse("--lines: " + in_quotes(text), diagram::Fault::outside_window);
    }
}

} // namespace

Page page_of(const DiagramArguments& arguments) {
    Page page;
    const std::string size = lower_case(arguments.size);
    const auto fail = [&] {
        throw UsageError("--size: " + in_quotes(arguments.size) + " should be one of " + page_sizes +
                         ", or width x height in mm between 100 and 2000, as in 200x140");
    };
    const std::size_t cross = size.find('x');
    if (size.size() == 2 && size[0] == 'a' && size[1] >= '0' && size[1] <= '6') {
        constexpr std::array<double, 8> sides{1189.0, 841.0, 594.0, 420.0, 297.0, 210.0, 148.0, 105.0};
        const auto number = static_cast<std::size_t>(size[1] - '0');
        page.width = sides[number];
        page.height = sides[number + 1];
    } else if (cross != std::string::npos) {
        const auto width = parse_number(std::string_view(size).substr(0, cross));
        const auto height = parse_number(std::string_view(size).substr(cross + 1));
        const auto allowed = [](const std::optional<double>& length) {
            return length && *length >= 100.0 && *length <= 2000.0;
        };
        if (!allowed(width) || !allowed(height)) fail();
        page.width = *width;
        page.height = *height;
    } else {
        fail();
    }
    page.title = arguments.title.empty() ? preset_of(arguments.preset).title : arguments.title;
    page.description = std::string("ktl ")
                           .append(ktl::build_info().version)
                           .append(", after the 1967 IFC Formulation for Industrial Use (IFC-67); units: ")
                           .append(units_text(unit_system(arguments.units).id));
    return page;
}

diagram::Chart chart_of(const DiagramArguments& arguments, const Page& page) {
    const PresetRow& row = preset_of(arguments.preset);
    const diagram::System system = unit_system(arguments.units).id;
    const Room room = room_of(page);
    diagram::Chart chart = diagram::preset(row.preset, system, room.width, room.height);
    if (!arguments.window.empty()) {
        diagram::Window window = chart.window;
        read_window(arguments.window, std::string(row.name), system, window);
        chart = diagram::preset(row.preset, window, system, room.width, room.height);
    }
    const auto deviation = parse_number(arguments.deviation);
    if (!deviation) throw UsageError("--deviation: " + in_quotes(arguments.deviation) + " is not a number");
    chart.tolerance = *deviation;
    read_lines_option(arguments.lines, system, chart);
    if (arguments.process.empty() && !(arguments.from.empty() && arguments.to.empty()))
        throw UsageError("--from and --to name states of a process; give its file by --process");
    if (!arguments.process.empty()) chart.process = read_process(arguments.process, arguments.from, arguments.to);
    return chart;
}

diagram::Drawing drawing_of(const DiagramArguments& arguments, const diagram::Chart& chart) {
    diagram::Drawing drawing = diagram::compute(chart);
    switch (drawing.fault) {
    case diagram::Fault::none: break;
    case diagram::Fault::tolerance: refuse("--deviation: " + in_quotes(arguments.deviation), drawing.fault);
    default: refuse(arguments.window.empty() ? "chart" : "--window: " + in_quotes(arguments.window), drawing.fault);
    }
    check_given_lines(arguments, chart, drawing);
    return drawing;
}

} // namespace program
