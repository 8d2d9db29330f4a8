// A solved state in the variables of its region, as searches and kernels hand it to the evaluation of properties.
#pragma once

#include "regions/number.hpp"

#include <ktl/steam.hpp>

namespace ktl::engine {

/// What a search came to. In two phases `first` is the quality and `liquid`, `vapour` are the variables of the
/// saturated phases: their pressure up to 350 degC, their volumes above.
struct Solution {
    Status status = Status::no_state;
    Region region = Region::none;
    double primary = quiet_nan; ///< p in sub-regions 1 and 2, v in sub-region 3, x in two phases
    double t = quiet_nan;
    double liquid = quiet_nan, vapour = quiet_nan;

    [[nodiscard]] bool two_phase() const { return region == Region::wet || region == Region::wet_near_critical; }
};

/// The state that has both values, by searches that find every state of the range; number as in ktl::state().
Solution search(Pair pair, double a, double b, int number) noexcept;
/// The same by the first guess of the row's own patch alone; Status::no_state if that does not lead to a state that no other
/// sub-region could claim. primary and t then tell where it ended.
Solution find_by_patch(Pair pair, double a, double b) noexcept;
/// Why no state has both values, if they lie clearly beyond the line of states that one of them names: by more than the
/// sub-regions differ at their borders. Status::solved if there may be a state.
Status status_beyond(Pair pair, double a, double b) noexcept;
/// How many there are.
int count_states(Pair pair, double a, double b) noexcept;
/// The water that takes precedence over a state found, a mixture or one of sub-region 3; Status::no_state if there is none.
/// For pairs without p, t and x.
Solution water_before(Pair pair, double a, double b, const Solution& found) noexcept;

} // namespace ktl::engine
