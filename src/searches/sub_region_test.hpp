// Whether a state lies in its sub-region, as 1 or 0: one test for the results of Newton's method, in lanes too, and for those of the
// exact search. Which slack is allowed is for the caller to say.
#pragma once

#include "regions/quantity.hpp"
#include "regions/saturation.hpp"
#include "searches/tolerances.hpp"

namespace ktl::searches {

/// 1 if z lies between the limits, both included.
template <class T, class Low, class High>
T is_between(const T& z, const Low& low, const High& high) {
    return zero_unless(z >= low, zero_unless(z <= high, T(1.0)));
}

/// A pressure above all of the saturation line up to 350 degC, where it is 165.351 bar.
inline constexpr double above_the_line = 166.0;

/// Sub-region 1: water from the saturation pressure to 1000 bar, up to 350 degC.
template <class T>
T in_water(const T& p, const T& t, const BorderSlack& slack) {
    const T least = select_lazy(
        p > above_the_line, [&] { return p; },
        [&] { return saturation::terms(t).p * (1.0 - slack.water_line) - slack.water_absolute; });
    T greatest(ktl_lc.pmax * (1.0 + slack.range));
    if (slack.p_beyond_1000 > 0.0)
        greatest = select(t > ktl_lc.t1max, T(ktl_lc.pmax * (1.0 + slack.p_beyond_1000)), greatest);
    return is_between(p, least, greatest) * is_between(t, ktl_lc.tmin - slack.range, ktl_lc.t1max + slack.t_beyond_350);
}

/// Sub-region 2: steam up to the saturation pressure, above 350 degC up to the 2/3 boundary and above 590 degC to 1000 bar.
template <class T>
T in_steam(const T& p, const T& t, const BorderSlack& slack) {
    const auto hot = [&] {
        return select(t < ktl_lc.t3max, boundary_pressure(t) * (1.0 + (slack.range + slack.p_beyond_boundary)),
                      T(ktl_lc.pmax * (1.0 + slack.range)));
    };
    const T greatest =
        select_lazy(t > ktl_lc.t1max, hot, [&] { return saturation::terms(t).p * (1.0 + slack.steam_line); });
    const T in_range = is_between(p, ktl_lc.pmin * (1.0 - slack.range), ktl_lc.pmax * (1.0 + slack.range)) *
                       is_between(t, ktl_lc.tmin - slack.range, ktl_lc.tmax + slack.range);
    return zero_unless(p <= greatest, in_range);
}

/// A volume of sub-region 3.
template <class T>
T is_near_critical_volume(const T& v) {
    return is_between(v, (1.0 - volume_slack) * ktl_lc.v3min, (1.0 + volume_slack) * ktl_lc.v3max);
}

/// Sub-region 3 at p, v, t, but for its two-phase dome: above 350 degC and the 2/3 boundary, and further from both by the
/// margins (K, relative) within which another sub-region takes precedence.
template <class T>
T in_near_critical(const T& p, const T& v, const T& t, const BorderSlack& slack, double t_margin, double p_margin) {
    const T above_350 =
        zero_unless(t > (ktl_lc.t3min + t_margin) - slack.range, zero_unless(t <= ktl_lc.t3max + slack.range, T(1.0)));
    const T in_range =
        is_between(p, boundary_pressure(t) * (1.0 + (p_margin - slack.range)), ktl_lc.pmax * (1.0 + slack.range));
    return in_range * above_350 * is_near_critical_volume(v);
}

/// A mixture of quality x up to 350 degC or, if high, above.
template <bool high, class T>
T in_two_phases(const T& x, const T& t, const BorderSlack& slack) {
    const T mixed = is_between(x, -slack.range, 1.0 + slack.range);
    if constexpr (high) return mixed * zero_unless(t > ktl_lc.t3min, zero_unless(t < ktl_lc.tc, T(1.0)));
    return mixed * is_between(t, ktl_lc.tmin, ktl_lc.t1max + slack.t_beyond_350);
}

} // namespace ktl::searches
