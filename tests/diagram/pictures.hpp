// Pictures that several tests look at.
#pragma once

#include <cmath>
#include <ktl/diagram.hpp>
#include <ostream>

namespace ktl::diagram {

struct Picture {
    const char* name;
    Axes axes;
    Window window;
};

inline void PrintTo(const Picture& picture, std::ostream* out) { *out << picture.name; }

inline const Picture pictures[] = {
    {"h-s", {{Property::s, false, 380.0}, {Property::h, false, 240.0}}, {5.0, 9.5, 1800.0, 4200.0}},
    {"h-s, all", {{Property::s, false, 380.0}, {Property::h, false, 240.0}}, {-0.1, 12.0, -50.0, 4300.0}},
    {"t-s", {{Property::s, false, 380.0}, {Property::t, false, 240.0}}, {0.0, 10.0, 0.0, 800.0}},
    {"p-h", {{Property::h, false, 380.0}, {Property::p, true, 240.0}}, {-50.0, 4300.0, 0.005, 1200.0}},
    {"p-v", {{Property::v, true, 380.0}, {Property::p, true, 240.0}}, {0.0005, 900.0, 0.005, 1200.0}},
    {"t-v", {{Property::v, true, 200.0}, {Property::t, false, 140.0}}, {0.0009, 10.0, 100.0, 500.0}},
    {"u-p", {{Property::p, false, 200.0}, {Property::u, false, 140.0}}, {100.0, 400.0, 1500.0, 3000.0}},
    {"critical", {{Property::s, false, 380.0}, {Property::h, false, 240.0}}, {4.2, 4.7, 1950.0, 2250.0}},
};

inline double distance_to_segment(const Point& point, const Point& a, const Point& b) {
    const double dx = b.x - a.x, dy = b.y - a.y, length = dx * dx + dy * dy;
    const double along = length > 0.0 ? ((point.x - a.x) * dx + (point.y - a.y) * dy) / length : 0.0;
    const double part = along < 0.0 ? 0.0 : along > 1.0 ? 1.0 : along;
    return std::hypot(point.x - a.x - part * dx, point.y - a.y - part * dy);
}

inline double distance_to_line(const Point& point, const Line& line) {
    double least = 1.0e300;
    for (const Piece& piece : line.pieces)
        for (std::size_t i = 1; i < piece.points.size(); ++i)
            least = std::fmin(least, distance_to_segment(point, piece.points[i - 1], piece.points[i]));
    return least;
}

/// The place of a value on an axis, by the C library's logarithm.
inline double place(const Axis& axis, double low, double high, double value) {
    const auto mapped = [&](double y) { return axis.logarithmic ? std::log(y) : y; };
    return axis.length * (mapped(value) - mapped(low)) / (mapped(high) - mapped(low));
}

} // namespace ktl::diagram
