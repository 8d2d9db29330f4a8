// Both sides of the turning point of a line through water.
#pragma once

#include "searches/enclosure.hpp"
#include "searches/lines.hpp"

namespace ktl {

/// A line of water from saturation (or from the limit to sub-region 3) to the end of the range; both are the turning point
/// if the property does not turn on that side of it.
struct Branches {
    double saturated, turn, end;
};

/// The states on both sides; f(z) is the residual at z, at(z) the state. Residuals up to the tolerance are rounding, those
/// up to the allowed one what a state may have.
template <class T, class Residual, class At>
BothSides<T> both_sides(const Branches& line, Residual&& f, At&& at, double tolerance, double allowed, bool wet) {
    const double f_saturated = f(line.saturated);
    const double f_turn = f(line.turn);
    const double f_end = f(line.end);
    const auto is_zero = [&](double y) { return std::fabs(y) <= tolerance; };
    const auto between = [&](double a, double fa, double b, double fb) {
        return at(solvers::enclose(f, a, fa, b, fb, tolerance).x);
    };
    BothSides<T> found;
    if (is_zero(f_saturated) || is_zero(f_turn) || f_saturated * f_turn < 0.0)
        found.preferred = between(line.saturated, f_saturated, line.turn, f_turn);
    if (line.turn != line.end && !is_zero(f_turn)) {
        if (f_turn * f_end < 0.0)
            found.other = between(line.turn, f_turn, line.end, f_end);
        else if (std::fabs(f_end) <= allowed)
            found.other = at(line.end);
    }
    if (found.preferred.found() || found.other.found() || wet) return found;
    const bool turned = std::fabs(f_turn) < std::fabs(f_saturated);
    if (std::fabs(turned ? f_turn : f_saturated) <= allowed) found.preferred = at(turned ? line.turn : line.saturated);
    return found;
}

} // namespace ktl
