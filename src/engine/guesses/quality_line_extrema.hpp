// Mixtures of given entropy and quality between turning_from and turning_to, where entropy has extrema along the
// saturation line.
//
// At constant quality x, up to last_turning, s(t) falls to a minimum below widest_turning, rises to a maximum and falls
// again; a second minimum may follow above 369 degC. The quality whose entropy has an extremum at t is 0.366 at 0.01 degC,
// 0.567 at 244, 0.481 at 350, 0.430 at 369 degC, and rises from there: above 0.568 s falls throughout, below 0.366 it rises.
// The extrema from 350 to 352 degC and above last_turning are handled by the exact search (searches/quality_line_bodies.hpp).
//
// These numbers follow from the equations; ktl_constants measures them and compares the constants below.
#pragma once

#include "engine/guesses/guesses_data.hpp"

namespace ktl::engine::guesses {

template <class T>
constexpr T number(GuessPatch c) {
    return T(static_cast<double>(c));
}

/// Entropy of dry steam at 0.01 degC, where that of water is zero, kJ/(kg K).
inline constexpr double coldest_entropy = 9.157460783;
/// Above this quality there is no minimum: the quality of an extremum is 0.5674 at most up to 350 degC.
inline constexpr double last_minimum = 0.568;

/// Slightly below the quality with an extremum at 350 degC, 0.4806: above, the maximum lies below 350 degC.
inline constexpr double turning_at_350 = 0.48;

/// Entropy at the minimum, kJ/(kg K); above last_minimum more than any entropy.
template <class T>
T minimum_entropy(const T& x) {
    return select(x > last_minimum, T(coldest_entropy), clamped_value<dip_entropy_curve>(x));
}

/// s, x by the entropy at 350 degC and, between turning_from and turning_to, by those at 0.01 degC and at the minimum: the
/// state of lowest temperature is on the rising branch if s exceeds that at 0.01 degC, on the first falling branch if s
/// lies between both, on the second falling branch if s is below the minimum.
template <class T>
T classify_by_quality(const T& s, const T& x) {
    const auto is = [](GuessPatch c) { return number<T>(c); };
    const T high = is(GuessPatch::wet_near_critical);
    const T line = value<tie_curve>(x);
    const T rising = select(s > select(x < turning_at_350, line, T(coldest_entropy)),
                            is(GuessPatch::wet_near_critical_turning), is(GuessPatch::wet_turning));
    const T falling = select(s < line, is(GuessPatch::wet_near_critical_turning), is(GuessPatch::wet_turning));
    const T middle =
        select(s > coldest_entropy * x, rising, select(s < minimum_entropy(x), falling, is(GuessPatch::wet_turning)));
    return select(x < turning_from, select(s > line, high, is(GuessPatch::wet_low_s)),
                  select(x > turning_to, select(s < line, high, is(GuessPatch::wet)), middle));
}

/// Position in the fits of one part of the saturation line; high: above 350 degC.
template <bool high, class T>
T line_position(const T& t) {
    if constexpr (high) return to_unit_interval<near_turning_quality_curve>(t);
    return to_unit_interval<wet_turning_quality_curve>(t);
}
template <bool high, class T>
T line_temperature(const T& u) {
    if constexpr (high) return from_unit_interval<near_turning_quality_curve>(u);
    return from_unit_interval<wet_turning_quality_curve>(u);
}
template <bool high, class T>
T turning_quality(const T& u) {
    if constexpr (high) return polynomial<near_turning_quality_curve>(u);
    return polynomial<wet_turning_quality_curve>(u);
}
template <bool high, class T>
T line_entropy(const T& u, const T& x) {
    const auto mixed = [&](const T& water, const T& steam) { return water + x * (steam - water); };
    if constexpr (high) return mixed(polynomial<near_water_entropy_curve>(u), polynomial<near_steam_entropy_curve>(u));
    return mixed(polynomial<wet_water_entropy_curve>(u), polynomial<wet_steam_entropy_curve>(u));
}

/// First guess of the temperature of a row within the turning, by halving the part of the line where it may be.
template <bool high, class T>
T turning_temperature(const T& s, const T& x) {
    constexpr int halvings = 16;
    const T rising = zero_unless(s > coldest_entropy * x, T(1.0));
    const T first_fall = high ? T(0.0) : select(s < minimum_entropy(x), T(0.0), T(1.0) - rising);
    const T widest = line_position<high>(T(widest_turning));
    // 1 if the state is warmer than the mixture at u.
    const auto is_warmer = [&](const T& u) {
        const T entropy = line_entropy<high>(u, x);
        const T off = x - turning_quality<high>(u);
        const T climbs = zero_unless(off < 0.0, T(1.0));
        const T below = zero_unless(entropy < s, high ? climbs : select(u < widest, T(1.0), climbs));
        const T above = zero_unless(entropy > s, select(first_fall > 0.5, zero_unless(off > 0.0, T(1.0)), T(1.0)));
        return select(rising > 0.5, below, above);
    };
    T cold(high ? 1.0 : -1.0);
    T warm = select(first_fall > 0.5, widest, T(high ? -1.0 : 1.0));
    for (int pass = 0; pass < halvings; ++pass) {
        const T middle = 0.5 * (cold + warm);
        const auto warmer = is_warmer(middle) > 0.5;
        cold = select(warmer, middle, cold);
        warm = select(warmer, warm, middle);
    }
    return line_temperature<high>(T(0.5 * (cold + warm)));
}

/// 1 if t is certainly the lowest temperature with this entropy and quality. On the first falling branch it always is. On
/// the rising branch it is if s exceeds that at 0.01 degC, on the second falling branch if s is below the minimum. Above
/// 350 degC, where s jumps up by at most 9.4e-5, s must also be beyond the entropy of sub-regions 1 and 2 at 350 degC, on
/// the falling branch by more than the accuracy to which a state at 350 degC itself may have s. There a rising branch is
/// the continuation of that below 350 degC only up to turning_at_350, and from 369 degC on only below the least quality
/// with an extremum.
template <bool high, class T>
T is_lowest(const T& s, const T& x, const T& t) {
    constexpr double width = high ? 4.5e-4 : 1.0e-3; // from the extremum, in x; its fit is off by 3.8e-4 and 4.1e-4
    constexpr double entropy_width = 1.0e-4;         // the fit of the minimum is off by 2.9e-5, the jump is 5.2e-5
    constexpr double entropy_rounding = 1.0e-8;
    constexpr double t_least = 369.0, x_least = 0.4285; // degC; the quality of the extremum there is 0.4296
    const T off = x - turning_quality<high>(line_position<high>(t));
    const T below_minimum = zero_unless(s < minimum_entropy(x) - entropy_width, T(1.0));
    const T at_350 = high ? value<tie_curve>(x) : T(0.0);
    const T second = high ? zero_unless(s < at_350 - entropy_rounding, below_minimum)
                          : select(t < widest_turning, T(1.0), below_minimum);
    const T falling = zero_unless(off > width, second);
    const T climbs = high ? zero_unless(x < select(t < t_least, T(turning_at_350), T(x_least)),
                                        zero_unless(s > at_350 + entropy_width, T(1.0)))
                          : T(1.0);
    const T rising = zero_unless(off < -width, zero_unless(s > coldest_entropy * x + 1.0e-6, climbs));
    const T lowest = select(t < last_turning, select(off > 0.0, falling, rising), T(0.0));
    return select(x < turning_from, T(1.0), select(x > turning_to, T(1.0), lowest));
}

} // namespace ktl::engine::guesses
