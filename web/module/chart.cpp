// The lines and labels of a chart.
#include "module.hpp"

#include <cmath>
#include <ktl/diagram.hpp>
#include <vector>

namespace web {

namespace {

namespace diagram = ktl::diagram;

/// Numbers of an answer, for the lines.
std::vector<double> numbers;

void add_line(const diagram::Line& line, double family) {
    for (const diagram::Piece& piece : line.pieces) {
        numbers.insert(numbers.end(),
                       {family, static_cast<double>(line.held), line.value, static_cast<double>(piece.points.size())});
        for (const diagram::Point& point : piece.points) numbers.insert(numbers.end(), {point.x, point.y});
    }
}

void add_label(std::string& out, const diagram::Label& label, double held) {
    out += out.back() == '[' ? "{\"text\": " : ", {\"text\": ";
    add_json(out, label.text);
    const std::pair<const char*, double> members[] = {
        {"x", label.x}, {"y", label.y}, {"dx", label.dx}, {"dy", label.dy}, {"held", held}};
    for (const auto& [name, value] : members) {
        out.append(", \"").append(name) += "\": ";
        add_json(out, value);
    }
    out += '}';
}

void add_chart(std::string& out, const diagram::Chart& chart) {
    const diagram::Drawing drawing = diagram::compute(chart);
    if (drawing.fault != diagram::Fault::none) throw program::UsageError(diagram::sentence(drawing.fault));
    numbers.clear();
    for (std::size_t i = 0; i < drawing.lines.size(); ++i)
        add_line(drawing.lines[i], static_cast<double>(drawing.families[i]));
    add_line(drawing.dome.water, -1.0);
    add_line(drawing.dome.steam, -1.0);
    const auto property = [](ktl::Property p) { return std::to_string(static_cast<unsigned>(p)); };
    out = "{\"x\": " + property(chart.axes.x.property) + ", \"y\": " + property(chart.axes.y.property);
    out += chart.axes.x.logarithmic ? ", \"x_log\": true" : ", \"x_log\": false";
    out += chart.axes.y.logarithmic ? ", \"y_log\": true, \"window\": [" : ", \"y_log\": false, \"window\": [";
    const double window[] = {chart.window.left, chart.window.right, chart.window.bottom, chart.window.top};
    for (const double limit : window) {
        if (out.back() != '[') out += ", ";
        add_json(out, limit);
    }
    out += "], \"labels\": [";
    for (const diagram::Label& label : drawing.labels)
        add_label(out, label, static_cast<double>(drawing.lines[label.line].held));
    out += "]}";
}

} // namespace

} // namespace web

extern "C" {

/// The chart of a preset, width by height mm, for a window; if left is not a number for its own window. The answer has axes, window
/// and labels; for each piece of a line the numbers have its family (-1 is the dome), property, value, count of points, and x, y of
/// each in mm.
KTL_WEB_EXPORT(ktl_chart)
int ktl_chart(unsigned preset, double width, double height, double left, double right, double bottom, double top) {
    return web::answered([=] {
        const auto kind = static_cast<ktl::diagram::Preset>(preset);
        const auto system = ktl::diagram::System::bar;
        ktl::diagram::Chart chart = std::isnan(left)
                                        ? ktl::diagram::preset(kind, system, width, height)
                                        : ktl::diagram::preset(kind, {left, right, bottom, top}, system, width, height);
        web::add_chart(web::answer, chart);
    });
}

KTL_WEB_EXPORT(ktl_numbers) const double* ktl_numbers() { return web::numbers.data(); }
KTL_WEB_EXPORT(ktl_numbers_size) std::size_t ktl_numbers_size() { return web::numbers.size(); }
}
