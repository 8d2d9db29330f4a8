// Whether a state that Newton found lies in the sub-region that it was searched in, as 1 or 0. What does not goes to
// the exact search, so these tests are strict: they take nothing that another sub-region may claim.
#pragma once

#include "engine/pairs.hpp"
#include "regions/saturation.hpp"
#include "searches/newton.hpp"

namespace ktl::engine {

using searches::NewtonResult;

/// A state of saturated water or steam may be off the line by rounding.
inline constexpr double line_rounding = 1.0e-11;
/// Up to the critical point the top of the two-phase dome is left to the exact search: from this temperature, degC, and
/// this near to the critical volume, relative.
inline constexpr double top_of_dome = 374.1;
inline constexpr double top_width = 0.25;

template <class T>
T boundary_at(const T& t) {
    return ktl_lc.pca * region2::boundary(T((t + ktl_lc.tza) * (1.0 / ktl_lc.tca)));
}

template <class T>
T inside_water(const T& p, const T& t) {
    const T on_line = zero_unless(p >= saturation::terms(t).p * (1.0 - line_rounding), T(1.0));
    const T within =
        zero_unless(p <= ktl_lc.pmax, zero_unless(t >= ktl_lc.tmin, zero_unless(t <= ktl_lc.t1max, T(1.0))));
    return on_line * within;
}

template <class T>
T inside_steam(const T& p, const T& t) {
    const T beyond = select(t < ktl_lc.t3max, boundary_at(t), T(ktl_lc.pmax));
    const T limit = select(t > ktl_lc.t1max, beyond, saturation::terms(t).p * (1.0 + line_rounding));
    const T within =
        zero_unless(p >= ktl_lc.pmin, zero_unless(t >= ktl_lc.tmin, zero_unless(t <= ktl_lc.tmax, T(1.0))));
    return zero_unless(p <= limit, zero_unless(p <= ktl_lc.pmax, within));
}

/// The equations of sub-region 3 have states of other volumes, negative ones even, that are none of its own.
template <class T>
T near_critical_volume(const T& v) {
    return zero_unless(v > 0.99 * ktl_lc.v3min, zero_unless(v < 1.01 * ktl_lc.v3max, T(1.0)));
}

/// Below the critical temperature: either denser than the critical point and above the saturation pressure or thinner and
/// below it. Rows of p, t have their guess from there already.
template <class T>
T on_its_side(Pair pair, const NewtonResult<T>& found, const T& guess) {
    if (pair == Pair::pt) return zero_unless((found.primary - ktl_lc.vca) * (guess - ktl_lc.vca) > 0.0, T(1.0));
    const T above = found.p - saturation::terms(found.t).p;
    return select(found.primary < ktl_lc.vca, zero_unless(above >= 0.0, T(1.0)), zero_unless(above <= 0.0, T(1.0)));
}

/// Sub-region 3, stable; the margin keeps off its border.
template <class T>
T inside_near_critical(Pair pair, const NewtonResult<T>& found, const T& guess, const Margin& margin) {
    const T& v = found.primary;
    const T& t = found.t;
    const T& p = found.p;
    const T stable = zero_unless(found.dpdv < 0.0, T(1.0));
    const T side = on_its_side(pair, found, guess);
    const T far = zero_unless(abs(v - ktl_lc.vca) > top_width * ktl_lc.vca, side);
    const T off_dome = select(t < ktl_lc.tc, select(t < top_of_dome, side, far), T(1.0));
    const T within = zero_unless(t > ktl_lc.t3min + margin.one_phase,
                                 zero_unless(t <= ktl_lc.t3max, zero_unless(p <= ktl_lc.pmax, T(1.0))));
    return zero_unless(p >= boundary_at(t) * (1.0 + margin.pressure), within) * stable * off_dome *
           near_critical_volume(v);
}

/// Two phases up to 350 degC, or above.
template <bool high, class T>
T inside_wet(const T& x, const T& t) {
    const T mixed = zero_unless(x >= 0.0, zero_unless(x <= 1.0, T(1.0)));
    if constexpr (high) return mixed * zero_unless(t > ktl_lc.t3min, zero_unless(t < ktl_lc.tc, T(1.0)));
    return mixed * zero_unless(t >= ktl_lc.tmin, zero_unless(t <= ktl_lc.t3min, T(1.0)));
}

} // namespace ktl::engine
