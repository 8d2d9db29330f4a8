// Whether the engine takes what Newton's method found, as 1 or 0. Rejected rows go to the exact search, so the tests are
// strict: a state that another sub-region could also claim is rejected.
#pragma once

#include "engine/pairs.hpp"
#include "searches/newton.hpp"
#include "searches/saturated_water.hpp"
#include "searches/sub_region_test.hpp"

namespace ktl::engine {

using searches::NewtonResult;

/// Width of the overlap along the border of sub-region 3. Within it the same two values may also name a state of sub-region
/// 1 or 2 or a mixture of theirs, which takes precedence, so a Newton result there is rejected. one_phase, mixture: K above
/// 350 degC; that of mixtures shrinks with (1 - x)^2 to least_mixture. pressure: share of the 2/3 boundary pressure.
/// Measured by ktl_constants: 1.392 K and 0.246 K by u, s; 0.607 K by h, s; 0.072 K and 0.02 K by other pairs; 0.0006.
struct Margin {
    double one_phase, mixture, least_mixture, pressure;
    bool doubtful_quality =
        false; ///< mixtures of up to searches::doubtful_quality() are rejected: water may take precedence
};
inline constexpr Margin no_margin{0.0, 0.0, 0.0, 0.0};

/// Margin of the first search of a pair. p, t and p or t with x name one state.
constexpr Margin margin_of(Pair pair) {
    if (pair == Pair::pt || pair == Pair::px || pair == Pair::tx) return no_margin;
    if (pair == Pair::hs) return {0.65, 0.65, 0.015, 0.001, true};
    if (pair == Pair::us) return {1.45, 0.27, 0.015, 0.001};
    return {0.1, 0.03, 0.015, 0.001};
}

/// Below the critical point the top of the two-phase dome is handled by the exact search: from this temperature, degC, and this
/// near to the critical volume, relative. Measured by ktl_constants: at 374.1 degC the dome reaches 0.063 of the critical volume
/// to either side, and the fits of both saturated volumes, which end there, hold to 2.1e-4.
inline constexpr double top_of_dome = 374.1;
inline constexpr double top_width = 0.25;

/// Below the critical temperature: either denser than the critical point and above the saturation pressure, or less dense and
/// below it. Rows of p, t have their guess from there already.
template <class T>
T is_outside_dome(Pair pair, const NewtonResult<T>& found, const T& guess) {
    if (pair == Pair::pt) return zero_unless((found.primary - ktl_lc.vca) * (guess - ktl_lc.vca) > 0.0, T(1.0));
    const T above = found.p - saturation::terms(found.t).p;
    return select(found.primary < ktl_lc.vca, zero_unless(above >= 0.0, T(1.0)), zero_unless(above <= 0.0, T(1.0)));
}

/// Sub-region 3: stable, outside the dome, and the margin away from borders.
template <class T>
T accept_near_critical(Pair pair, const NewtonResult<T>& found, const T& guess, const Margin& margin) {
    const T& v = found.primary;
    const T& t = found.t;
    const T stable = zero_unless(found.dpdv < 0.0, T(1.0));
    const T side = is_outside_dome(pair, found, guess);
    const T far = zero_unless(abs(v - ktl_lc.vca) > top_width * ktl_lc.vca, side);
    const T off_dome = select(t < ktl_lc.tc, select(t < top_of_dome, side, far), T(1.0));
    return searches::in_near_critical(found.p, v, t, searches::strict, margin.one_phase, margin.pressure) * stable *
           off_dome;
}

} // namespace ktl::engine
