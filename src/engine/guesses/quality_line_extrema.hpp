// Mixtures of given entropy and quality where entropy turns along the saturation line, from turning_from to turning_to.
//
// At constant quality entropy falls with t to a dip below widest_turning, rises to a crest and falls on. The quality of
// the turn at t is 0.366 at 0.01 degC, 0.567 at 244, 0.430 at 369 degC, from where it grows to the critical point: above
// 0.568 entropy falls all the way, below 0.429 it rises on to the critical point.
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
/// Above this quality there is no dip: the quality of the turn is 0.5674 at most up to 350 degC.
inline constexpr double last_dip = 0.568;

/// Quality of the turn at 350 degC, 0.4806, less a trifle: above, the crest lies below 350 degC.
inline constexpr double turning_at_350 = 0.48;

/// Entropy at the dip, kJ/(kg K); more than any above last_dip.
template <class T>
T dip_entropy(const T& x) {
    return select(x > last_dip, T(coldest_entropy), clamped_value<dip_entropy_curve>(x));
}

/// s, x by the tie line of 350 degC and, within the turning, by the entropies where it begins: above that at 0.01 degC
/// the coldest state is on the rise to the crest, down to the dip on the fall to it, below on the fall from the crest.
template <class T>
T classify_by_quality(const T& s, const T& x) {
    const auto is = [](GuessPatch c) { return number<T>(c); };
    const T high = is(GuessPatch::wet_near_critical);
    const T line = value<tie_curve>(x);
    const T rising = select(s > select(x < turning_at_350, line, T(coldest_entropy)),
                            is(GuessPatch::wet_near_critical_turning), is(GuessPatch::wet_turning));
    const T falling = select(s < line, is(GuessPatch::wet_near_critical_turning), is(GuessPatch::wet_turning));
    const T middle =
        select(s > coldest_entropy * x, rising, select(s < dip_entropy(x), falling, is(GuessPatch::wet_turning)));
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
    const T before_dip = high ? T(0.0) : select(s < dip_entropy(x), T(0.0), T(1.0) - rising);
    const T widest = line_position<high>(T(widest_turning));
    // 1 where the state is warmer than the mixture at u.
    const auto is_warmer = [&](const T& u) {
        const T entropy = line_entropy<high>(u, x);
        const T off = x - turning_quality<high>(u);
        const T climbs = zero_unless(off < 0.0, T(1.0));
        const T below = zero_unless(entropy < s, high ? climbs : select(u < widest, T(1.0), climbs));
        const T above = zero_unless(entropy > s, select(before_dip > 0.5, zero_unless(off > 0.0, T(1.0)), T(1.0)));
        return select(rising > 0.5, below, above);
    };
    T cold(high ? 1.0 : -1.0);
    T warm = select(before_dip > 0.5, widest, T(high ? -1.0 : 1.0));
    for (int pass = 0; pass < halvings; ++pass) {
        const T middle = 0.5 * (cold + warm);
        const auto warmer = is_warmer(middle) > 0.5;
        cold = select(warmer, middle, cold);
        warm = select(warmer, warm, middle);
    }
    return line_temperature<high>(T(0.5 * (cold + warm)));
}

/// 1 where the mixture of that entropy and quality at t is the coldest one beyond doubt. On the fall to the dip it is.
/// On the rise all on that fall must have less entropy, and on the fall from the crest all before it more. Above 350 degC
/// a rise goes back to the dip up to turning_at_350, and from the valley of the turning quality on up to its least value;
/// entropy jumps up by 6e-5 at 350 degC.
template <bool high, class T>
T is_lowest(const T& s, const T& x, const T& t) {
    constexpr double width = high ? 4.5e-4 : 1.0e-3; // from the turn, in x; its fit is off by 3.8e-4 and 4.1e-4
    constexpr double entropy_width = 1.0e-4;         // the fit of the dip is off by 2.9e-5, the jump is 5.2e-5
    constexpr double valley = 369.0, least = 0.4285; // degC; the quality of the turn there is 0.4296
    const T off = x - turning_quality<high>(line_position<high>(t));
    const T late = zero_unless(s < dip_entropy(x) - entropy_width, T(1.0));
    const T falling = zero_unless(off > width, high ? late : select(t < widest_turning, T(1.0), late));
    const T climbs = high ? zero_unless(x < select(t < valley, T(turning_at_350), T(least)),
                                        zero_unless(s > value<tie_curve>(x) + entropy_width, T(1.0)))
                          : T(1.0);
    const T rising = zero_unless(off < -width, zero_unless(s > coldest_entropy * x + 1.0e-6, climbs));
    const T lowest = select(t < last_turning, select(off > 0.0, falling, rising), T(0.0));
    return select(x < turning_from, T(1.0), select(x > turning_to, T(1.0), lowest));
}

} // namespace ktl::engine::guesses
