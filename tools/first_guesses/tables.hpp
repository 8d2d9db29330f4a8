// What is fitted: the lines between patches and the surfaces of first guesses.
#pragma once

#include "fit.hpp"
#include "states.hpp"

namespace first_guesses {

using ktl::engine::guesses::Border;
using ktl::engine::guesses::Unknown;

struct BorderItem {
    Border border;
    std::string_view pairs; ///< words: the pairs that take this row
    Scale x, y;
    std::size_t n;
};
extern const std::vector<BorderItem> border_items;

struct SurfaceItem {
    Pair pair;
    GuessPatch where;
    Unknown unknown;
    Shape shape; ///< over the two given values; wet_low_s of h, s and u, s: over the depth below the liquid line
};
extern const std::vector<SurfaceItem> surface_items;

/// States along the line, from one end to the other. Over p or t the lines of the two phases end short of the critical
/// point.
std::vector<State> line(Pair pair, Border border, std::size_t n);

/// Where a state stands in the plane in which the pair's border is a curve y(x).
struct Values {
    double x, y;
};
Values plane(Pair pair, Border border, const State& state);

} // namespace first_guesses
