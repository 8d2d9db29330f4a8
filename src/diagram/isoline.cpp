#include "diagram/isoline.hpp"

#include "diagram/trace.hpp"
#include "engine/calls/float_environment.hpp"

#include <algorithm>
#include <cmath>

namespace ktl::diagram {

namespace {

bool is_held(Property property) { return property == Property::x || is_axis(property); }

/// Pieces without extent are left out: mixtures that share one place in the picture, or the rounding of a state on the
/// saturation line.
void drop_points(std::vector<Piece>& pieces) {
    constexpr double extent = 1.0e-6; // mm
    const auto is_point = [](const Piece& piece) {
        const Point& first = piece.points.front();
        return std::all_of(piece.points.begin(), piece.points.end(), [&](const Point& point) {
            return std::fabs(point.x - first.x) <= extent && std::fabs(point.y - first.y) <= extent;
        });
    };
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (!is_point(pieces[i])) continue;
        if (i > 0 && pieces[i].end == End::dome) pieces[i - 1].end = End::dome;
        if (i + 1 < pieces.size() && pieces[i].begin == End::dome) pieces[i + 1].begin = End::dome;
        pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(i--));
    }
}

} // namespace

Line traced_line(Property held, double value, const Frame& frame, double tolerance) {
    Line line;
    line.held = held;
    line.value = value;
    if (!is_held(held)) {
        line.fault = Fault::held_property;
    } else if (!std::isfinite(value)) {
        line.fault = Fault::held_value;
    } else {
        const std::vector<Stretch> parts = stretches(held, value, frame);
        for (const Stretch& part : parts) trace(part, frame, tolerance, line.pieces);
        drop_points(line.pieces);
        if (parts.empty())
            line.fault = Fault::no_line;
        else if (line.pieces.empty())
            line.fault = Fault::outside_window;
    }
    return line;
}

Dome traced_dome(const Frame& frame, double tolerance) {
    return {traced_line(Property::x, 0.0, frame, tolerance), traced_line(Property::x, 1.0, frame, tolerance)};
}

Line isoline(Property held, double value, const Axes& axes, const Window& window, double tolerance) {
    const FloatEnvironment environment;
    Line line;
    line.held = held;
    line.value = value;
    line.fault = fault_of(axes, window, tolerance);
    return line.fault == Fault::none ? traced_line(held, value, Frame(axes, window), tolerance) : line;
}

std::vector<std::vector<Point>> strokes(const Line& line) {
    constexpr double joined = 0.3; // mm
    std::vector<std::vector<Point>> all;
    for (const Piece& piece : line.pieces) {
        const Point& first = piece.points.front();
        const bool goes_on = !all.empty() && std::fabs(all.back().back().x - first.x) < joined &&
                             std::fabs(all.back().back().y - first.y) < joined;
        if (!goes_on) all.emplace_back();
        all.back().insert(all.back().end(), piece.points.begin(), piece.points.end());
    }
    return all;
}

Dome dome(const Axes& axes, const Window& window, double tolerance) {
    const FloatEnvironment environment;
    if (const Fault fault = fault_of(axes, window, tolerance); fault != Fault::none) {
        Dome none;
        none.water.fault = none.steam.fault = fault;
        return none;
    }
    return traced_dome(Frame(axes, window), tolerance);
}

} // namespace ktl::diagram
