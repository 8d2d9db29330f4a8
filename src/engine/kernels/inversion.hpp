// The inversions of all pairs for one number or for vector lanes: the patch of a row, Newton's method from its first guess, and the
// test of what that found. Both the kernels over columns and the search of one row are made of these.
//
// A file that includes this for lanes is compiled with their flags, so what is no template on T must be inlined: no copy of it may
// be left that another file is linked to.
#pragma once

#include "engine/derived.hpp"
#include "engine/guesses/guesses.hpp"
#include "engine/kernels/acceptance.hpp"
#include "engine/pairs.hpp"
#include "searches/two_phase.hpp"

// Everything that a kernel calls is inlined into it, so that its values stay in registers and what it does not need is dropped.
// Under sanitizers that would be more than compilers can bear.
#ifdef KTL_SMALL_KERNELS
#define KTL_FLATTEN
#else
#define KTL_FLATTEN [[gnu::flatten]]
#endif

namespace ktl::engine {

using searches::line_at;
using searches::LinePoint;
using searches::TwoPhaseIterate;

/// Larger values belong to no state (the largest is that of h, 4160 kJ/kg) and would only overflow.
inline constexpr double largest_value = 1.0e9;
/// Temperature, degC, below which water is handled by the exact search in pairs that may name two states there. Measured by
/// ktl_constants: v has its minimum over t, and s and u rise with p, up to 4.7 degC.
inline constexpr double expanding_water = 10.0;
/// Quality below which a mixture is handled by it: water may take precedence. Twice least_quality.
inline constexpr double hardly_steam = 2.0e-6;

// ---- Patches ---------------------------------------------------------------------------------------------------------

/// The patch of p, t, exact but for rounding: states on the saturation line are handled by the search. The 2/3 boundary
/// belongs to steam.
template <class T>
T classify_pt(const T& p, const T& t) {
    using guesses::GuessPatch;
    const auto is = [](GuessPatch c) { return guesses::number<T>(c); };
    const auto beside_line = [&](const auto& above, const auto& below) {
        const T ps = saturation::terms(t).p;
        return select_lazy(
            abs(p - ps) > searches::on_saturation_line * p, [&] { return select_lazy(p > ps, above, below); },
            [&] { return is(GuessPatch::search); });
    };
    const auto water = [&] { return is(GuessPatch::water); };
    const auto steam = [&] { return is(GuessPatch::steam); };
    const auto low = [&] {
        return select_lazy(p > searches::above_the_line, water, [&] { return beside_line(water, steam); });
    };
    const auto dense = [&](GuessPatch c) {
        return [&p, &t, is, c] { return select(p <= boundary_pressure(t), is(GuessPatch::steam), is(c)); };
    };
    const auto middle = [&] {
        return select_lazy(t > ktl_lc.tc, dense(GuessPatch::supercritical),
                           [&] { return beside_line(dense(GuessPatch::liquid_like), dense(GuessPatch::vapour_like)); });
    };
    const auto high = [&] { return select_lazy(t < ktl_lc.t3max, middle, steam); };
    return select_lazy(t > ktl_lc.t1max, high, low);
}

/// The patch of a mixture by its pressure or temperature and quality.
template <Pair pair, class T>
T classify_mixture(const T& line, const T& x) {
    using guesses::GuessPatch;
    constexpr bool by_p = pair == Pair::px;
    const auto is = [](GuessPatch c) { return guesses::number<T>(c); };
    const T c =
        select(line > (by_p ? ktl_lc.p1 : ktl_lc.t3min), is(GuessPatch::wet_near_critical), is(GuessPatch::wet));
    const T mixed =
        zero_unless(x >= 0.0, zero_unless(x <= 1.0, zero_unless(line <= (by_p ? ktl_lc.pca : ktl_lc.tc), T(1.0))));
    return select(mixed > 0.5, c, is(GuessPatch::search));
}

/// 1 if a given pressure and temperature lie in the range and other values are numbers that a state may have; what is
/// not goes to the search, which tells why.
template <Pair pair, class T>
T in_range(const T& a, const T& b) {
    const auto number = [](const T& y) { return zero_unless(abs(y) < largest_value, T(1.0)); };
    const auto pressure = [](const T& p) {
        return zero_unless(p >= ktl_lc.pmin, zero_unless(p <= ktl_lc.pmax, T(1.0)));
    };
    const auto temperature = [](const T& t) {
        return zero_unless(t >= ktl_lc.tmin, zero_unless(t <= ktl_lc.tmax, T(1.0)));
    };
    if constexpr (pair == Pair::pt)
        return pressure(a) * temperature(b);
    else if constexpr (has_pressure(pair))
        return pressure(a) * number(b);
    else if constexpr (has_temperature(pair))
        return temperature(a) * number(b);
    else
        return number(a) * number(b);
}

/// The patch of any row, as a whole number; GuessPatch::search if the values are not in the range.
template <Pair pair, class T>
T patch_of(const T& a, const T& b) {
    T patch;
    if constexpr (pair == Pair::pt)
        patch = classify_pt(a, b);
    else if constexpr (pair == Pair::px || pair == Pair::tx)
        patch = classify_mixture<pair>(a, b);
    else
        patch = guesses::classify<pair>(a, b);
    return select(in_range<pair>(a, b) > 0.5, patch, guesses::number<T>(guesses::GuessPatch::search));
}

// ---- One phase ----------------------------------------------------------------------------------------------

/// 1 if this is the preferred root of a pair that has several (docs/engine.md, Several states). For t, h in water and dense
/// sub-region 3, h(p) has a minimum; the root with dh/dp < 0 is preferred. Pairs with roots on both sides of the density maximum
/// are handled by the exact search below 10 degC.
template <SubRegion sub_region, class T>
T is_preferred_root(Pair pair, const T& primary, const T& t) {
    if (sub_region == SubRegion::water && (pair == Pair::pv || pair == Pair::ts || pair == Pair::tu))
        return zero_unless(t > expanding_water, T(1.0));
    if (sub_region == SubRegion::steam || pair != Pair::th) return T(1.0);
    const T slope = slopes(Quantity::enthalpy, properties_at<sub_region>(primary, t)).d_primary;
    return zero_unless((sub_region == SubRegion::water ? slope : -slope) < 0.0, T(1.0));
}

template <SubRegion sub_region, class T>
T accept(Pair pair, const NewtonResult<T>& found, const T& guess, const Margin& margin) {
    if constexpr (sub_region == SubRegion::water)
        return searches::in_water(found.primary, found.t, searches::strict);
    else if constexpr (sub_region == SubRegion::steam)
        return searches::in_steam(found.primary, found.t, searches::strict);
    else
        return accept_near_critical(pair, found, guess, margin);
}

/// Newton from a guess; converged becomes 1 only if the state is also accepted.
template <SubRegion sub_region, class T>
NewtonResult<T> solve_in(Pair pair, const T& a, const T& b, const T& guess, const T& t_guess, const Margin& margin) {
    NewtonResult<T> found = searches::newton<sub_region>(quantities(pair), a, b, guess, t_guess);
    found.converged = found.converged * (accept<sub_region>(pair, found, guess, margin) *
                                         is_preferred_root<sub_region>(pair, found.primary, found.t));
    return found;
}

// ---- Two phases ------------------------------------------------------------------------------------------------------

/// 1 if a saturated volume is the outermost of those that the isotherm has under the saturation pressure: up to
/// top_of_dome its guess is off by less than 2.1e-4, and the next volume lies 3.5 % from it (ktl_constants).
template <class T>
T is_outermost(const T& v, const T& guessed) {
    return zero_unless(abs(v - guessed) < 1.0e-3 * guessed, T(1.0));
}

/// 1 if the mixture is certainly stable and the preferred state of its pair.
template <bool high, class T>
T accept(Pair pair, const TwoPhaseIterate<T>& m, const Margin& margin) {
    const bool may_be_water = pair == Pair::pv || pair == Pair::th || pair == Pair::ts || pair == Pair::tu;
    T least(may_be_water ? hardly_steam : 0.0);
    if (!high && pair == Pair::hs && margin.doubtful_quality) least = searches::doubtful_quality(m.t);
    T in = searches::in_two_phases<high>(m.x, m.t, searches::strict) * zero_unless(m.x >= least, m.converged);
    if constexpr (high) {
        // At a given temperature the search begins next to the outermost volumes.
        if (!has_pressure(pair) && !has_temperature(pair))
            in = in * is_outermost(m.liquid, guesses::liquid_volume(m.t)) *
                 is_outermost(m.vapour, guesses::vapour_volume(m.t));
        in = in * zero_unless(m.t < top_of_dome, T(1.0));
        const T off = ktl_lc.t3min + margin.least_mixture + margin.mixture * (1.0 - m.x) * (1.0 - m.x);
        in = in * zero_unless(m.t > off, T(1.0));
    }
    return in;
}

/// Quality at which the mixture has the value.
template <class T>
T quality(Quantity quantity, const SaturatedProperties<T>& phases, const T& value) {
    const T water = slopes(quantity, phases.liquid).y;
    return (value - water) / (slopes(quantity, phases.vapour).y - water);
}

/// A mixture of a pair that gives the temperature by itself or by the pressure.
template <class T>
struct MixtureAtGivenLine {
    TwoPhaseIterate<T> m;
    PhaseProperties<T> bulk;
};
/// 1 if the part of the saturation line up to 350 degC, or from there on, has the pressure. The temperature does not
/// tell: that of a pressure beyond the line may be anything.
template <bool high, class T>
T line_has(const T& p) {
    if constexpr (high) return zero_unless(p >= ktl_lc.p1, zero_unless(p <= ktl_lc.pca, T(1.0)));
    return zero_unless(p <= ktl_lc.p1, T(1.0));
}
/// The phases are evaluated only if the quality or the wanted properties need them; a caller that keeps them passes a place.
template <bool high, PropertyLevel level, class T>
MixtureAtGivenLine<T> mixture_at_p_or_t(Pair pair, const T& a, const T& b, SaturatedProperties<T>* kept = nullptr) {
    MixtureAtGivenLine<T> y;
    TwoPhaseIterate<T>& m = y.m;
    const T t = has_pressure(pair) ? saturation::temperature(a) : a;
    T p = a;
    if constexpr (high) {
        const LinePoint<T> line = line_at(t);
        m = searches::saturated_volumes(line, t, guesses::liquid_volume(t), guesses::vapour_volume(t));
        p = line.p;
    } else {
        if (has_temperature(pair)) p = saturation::terms(t).p;
        m = {T(0.0), t, p, p, T(1.0)};
    }
    if (has_pressure(pair)) m.converged = m.converged * line_has<high>(a);
    if (has_quality(pair) && level == PropertyLevel::variables) {
        const T none(quiet_nan);
        m.x = b;
        y.bulk = {p, t, none, none, none, none, none, none, none, none};
    } else {
        const SaturatedProperties<T> phases = phases_at<high>(m.t, m.liquid, m.vapour);
        m.x = has_quality(pair) ? b : quality(quantities(pair).b, phases, b);
        y.bulk = mixture_of(phases, m.x, p);
        if (kept != nullptr) *kept = phases;
    }
    return y;
}

/// A mixture of any other pair, from the guess of its temperature.
template <bool high, class T>
TwoPhaseIterate<T> mixture_search(Pair pair, const T& a, const T& b, const T& t) {
    TwoPhaseIterate<T> m{T(0.0), t, T(0.0), T(0.0), T(0.0)};
    if constexpr (high) {
        m.liquid = guesses::liquid_volume(t);
        m.vapour = guesses::vapour_volume(t);
    }
    searches::newton_two_phase<high>(m, quantities(pair), a, b);
    if (pair == Pair::sx) m.converged = m.converged * guesses::is_lowest<high>(a, b, m.t);
    return m;
}

} // namespace ktl::engine
