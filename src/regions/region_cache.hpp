// Working terms that a thread keeps for the state it evaluated last, in the sub-regions of p and t.
#pragma once

#include "regions/constants.hpp"
#include "reports/diagnostics.hpp"

#include <ktl/ktlftn.h>
#include <limits>

namespace ktl {

/// Range of temperature that a sub-region's comt routine reports on, and its name.
struct Limits {
    const char* routine;
    double tmin, tmax;
};

/// What nothing equals, not even itself: before its first evaluation a thread keeps no state.
inline constexpr double no_state_yet = std::numeric_limits<double>::quiet_NaN();

/// Terms and the state they belong to.
template <class Terms>
struct RegionCache {
    Terms terms;
    double pprev = no_state_yet;
    double tprev = no_state_yet;

    /// The terms at p, t: those kept if both are the same, else new ones from fill(p, t), after a report
    /// for each limit passed.
    template <class Fill>
    const Terms& at(double p, double t, const Limits& limits, Fill&& fill) {
        if (p == pprev && t == tprev) return terms;
        ktl_cu.p = pprev = p;
        ktl_cu.t = tprev = t;
        constexpr auto what = reports::Case::pressure_temperature_out_of_range;
        if (out_of_range(p, ktl_lc.pmin, ktl_lc.pmax)) reports::report(limits.routine, what, p, t);
        if (out_of_range(t, limits.tmin, limits.tmax)) reports::report(limits.routine, what, p, t);
        terms = fill(p, t);
        return terms;
    }
};

} // namespace ktl
