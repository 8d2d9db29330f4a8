// Where a line of constant v, h, s or u crosses the saturation line.
#pragma once

#include <ktl/steam.hpp>
#include <vector>

namespace ktl::diagram {

struct Crossing {
    Saturation at;
    double quality; ///< 0 or 1: the side of the dome

    [[nodiscard]] const Phase& phase() const { return quality > 0.5 ? at.vapour : at.liquid; }
};

/// All points of the saturation line whose water or whose steam has the value.
std::vector<Crossing> dome_crossings(Property property, double value);

} // namespace ktl::diagram
