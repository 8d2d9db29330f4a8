// The ways along which a line is walked: its states by one parameter, and the stretches of it that lie in the range, between the
// saturation line and the limits.
#pragma once

#include "diagram/frame.hpp"

namespace ktl::diagram {

/// What the parameter of a way is: the other value of the pair; its logarithm; the square root of the distance from the critical
/// temperature, with which saturated phases change evenly.
enum class Parameter : std::uint8_t { value, logarithm, root_below_critical };

/// The states with a held value, by a parameter.
struct Way {
    Pair pair = Pair::pt;
    bool held_first = true;
    Parameter parameter = Parameter::value;
    double held = 0.0;
    double drift = 0.0, origin = 0.0; ///< the held value grows by drift for each unit of the parameter beyond origin

    [[nodiscard]] State at(double at) const;
};

/// A part of a line in which no saturation line is crossed. Its ends are known: those on the dome are saturated phases.
struct Stretch {
    Way way;
    double from = 0.0, to = 0.0;
    Point first, last;
    End begin = End::range, end = End::range;
    double side = detail::nan; ///< the quality to be taken if p and t leave it open: of steam 1, of water 0
    std::vector<double> turns; ///< parameters between the ends, in their order, beside which the line bends sharply
};

/// The stretches of a line, in the order in which they follow one another; empty if no state of the range has the value.
std::vector<Stretch> stretches(Property held, double value, const Frame& frame);
/// The point of a stretch; false if there is none.
bool find_point(const Stretch& stretch, double parameter, const Frame& frame, Point& point);

} // namespace ktl::diagram
