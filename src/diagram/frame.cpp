#include "diagram/frame.hpp"

#include <cmath>

namespace ktl::diagram {

namespace {

constexpr double least_tolerance = 1.0e-7; // of the longer axis

bool is_length(double length) { return length >= 1.0 && length <= 1.0e5; }

Fault fault_of_limits(const Axis& axis, double low, double high) {
    if (!std::isfinite(low) || !std::isfinite(high) || !(low < high)) return Fault::empty_window;
    if (axis.logarithmic && !(low > 0.0)) return Fault::window_not_above_zero;
    // Properties have ten digits or more: beyond them a picture shows rounding.
    constexpr double narrowest = 1.0e-6;
    const bool wide = high - low >= narrowest * std::fmax(std::fabs(low), std::fabs(high));
    return wide && std::isfinite(1.0 / (high - low)) ? Fault::none : Fault::empty_window;
}

/// Values that no state of the range goes beyond.
bool out_of_range(Property property, double low, double high) {
    switch (property) {
    case Property::p: return high < least_pressure || low > highest_pressure;
    case Property::t: return high < least_temperature || low > highest_temperature;
    case Property::v:
        return high < 0.00095 || low > 810.27; // water at 1000 bar; steam at 800 degC and the least pressure
    case Property::h: return high < -0.01 || low > 4158.76;
    case Property::s: return high < -0.0066 || low > 11.919;
    default: return high < -0.01 || low > 3663.48; // u
    }
}

} // namespace

bool is_axis(Property property) {
    switch (property) {
    case Property::p:
    case Property::t:
    case Property::v:
    case Property::h:
    case Property::s:
    case Property::u: return true;
    default: return false;
    }
}

double Point::get(Property property) const noexcept {
    switch (property) {
    case Property::p: return p;
    case Property::t: return t;
    case Property::v: return v;
    case Property::h: return h;
    case Property::s: return s;
    case Property::u: return u;
    case Property::x: return quality;
    default: return detail::nan;
    }
}

Point Frame::point(const State& state) const {
    Point point{0.0, 0.0, state.p(), state.t(), state.v(), state.h(), state.s(), state.u(), state.x(), state.region()};
    set_place(point);
    return point;
}

Point Frame::point(const Phase& phase, double quality) const {
    Point point{0.0, 0.0, phase.p(), phase.t(), phase.v(), phase.h(), phase.s(), phase.u(), quality, phase.region()};
    set_place(point);
    return point;
}

Fault fault_of(const Axes& axes, const Window& window) {
    if (!is_axis(axes.x.property) || !is_axis(axes.y.property) || axes.x.property == axes.y.property)
        return Fault::axis_property;
    if (!is_length(axes.x.length) || !is_length(axes.y.length)) return Fault::axis_length;
    const Fault x = fault_of_limits(axes.x, window.left, window.right);
    if (x != Fault::none) return x;
    const Fault y = fault_of_limits(axes.y, window.bottom, window.top);
    if (y != Fault::none) return y;
    if (out_of_range(axes.x.property, window.left, window.right) ||
        out_of_range(axes.y.property, window.bottom, window.top))
        return Fault::window_out_of_range;
    return Fault::none;
}

Fault fault_of(const Axes& axes, const Window& window, double tolerance) {
    const Fault fault = fault_of(axes, window);
    if (fault != Fault::none) return fault;
    const double least = least_tolerance * std::fmax(axes.x.length, axes.y.length);
    return tolerance >= least && tolerance <= 1000.0 ? Fault::none : Fault::tolerance;
}

const char* sentence(Fault fault) noexcept {
    switch (fault) {
    case Fault::none: return "no fault";
    case Fault::axis_property: return "the axes have to be two different ones of p, t, v, h, s and u";
    case Fault::axis_length: return "the length of an axis has to be between 1 and 100000 mm";
    case Fault::empty_window:
        return "the window is empty: its limits have to be finite numbers, the first below the second by a millionth "
               "of them";
    case Fault::window_not_above_zero: return "the limits of a logarithmic axis have to be above zero";
    case Fault::window_out_of_range:
        return "the window lies outside the range, 0.01 to 800 degC and 0.006112444 to 1000 bar";
    case Fault::held_property: return "lines are those of constant p, t, v, h, s, u or x";
    case Fault::held_value: return "the value of a line is not a finite number";
    case Fault::no_line: return "no state of the range has this value";
    case Fault::outside_window: return "the line does not cross the window";
    case Fault::tolerance:
        return "the deviation has to be at least a ten-millionth of the longer axis and at most 1000 mm";
    case Fault::too_many_lines: return "a chart has at most 10000 lines";
    case Fault::letter_height: return "the height of letters has to be above 0 and at most 100 mm";
    case Fault::process_range: return "the step leaves the range of water and steam";
    }
    return "unknown fault";
}

} // namespace ktl::diagram
