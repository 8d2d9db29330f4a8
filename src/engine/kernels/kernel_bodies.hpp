// The kernels, for a number type T of one or several lanes. A file that includes this is compiled with the flags of its
// lanes, so what is no template on T must be inlined: no copy of it may be left that another file is linked to.
#pragma once

#include "engine/kernels/acceptance.hpp"
#include "engine/kernels/kernels.hpp"
#include "engine/kernels/two_phase.hpp"
#include "engine/pairs.hpp"

// Everything that a kernel calls is brought into it, so that its values stay in registers and what it does not need is
// left away. Under sanitizers that would be more than compilers can bear.
#ifdef KTL_SMALL_KERNELS
#define KTL_FLATTEN
#else
#define KTL_FLATTEN [[gnu::flatten]]
#endif

namespace ktl::engine {

/// p, t this close to the saturation line, relative in p, leave the quality open.
inline constexpr double line_width = 1.0e-8;
/// A pressure above all of the saturation line up to 350 degC, bar.
inline constexpr double above_the_line = 166.0;
/// Larger values are no states of anything, and would only overflow.
inline constexpr double largest_value = 1.0e9;
/// Temperature below which water is left to the exact search in pairs that may name two states there, degC.
inline constexpr double expanding_water = 10.0;
/// Quality below which a mixture is left to it: water may go before one with hardly any steam.
inline constexpr double hardly_steam = 2.0e-6;

// ---- Homogeneous states ----------------------------------------------------------------------------------------------

/// 1 where the state is the one that the pair's rule takes of several. At constant t the enthalpy of water and of dense
/// sub-region 3 first falls, then rises with pressure: the falling side goes first. Cold water is left to the search.
template <SubRegion sub_region, class T>
T is_preferred_root(Pair pair, const T& primary, const T& t) {
    if (sub_region == SubRegion::water && (pair == Pair::pv || pair == Pair::ts || pair == Pair::tu))
        return zero_unless(t > expanding_water, T(1.0));
    if (sub_region == SubRegion::steam || pair != Pair::th) return T(1.0);
    const T slope = slopes(Quantity::enthalpy, properties_at<sub_region>(primary, t)).d_primary;
    return zero_unless((sub_region == SubRegion::water ? slope : -slope) < 0.0, T(1.0));
}

template <SubRegion sub_region, class T>
T inside(Pair pair, const NewtonResult<T>& found, const T& guess, const Margin& margin) {
    if constexpr (sub_region == SubRegion::water)
        return inside_water(found.primary, found.t);
    else if constexpr (sub_region == SubRegion::steam)
        return inside_steam(found.primary, found.t);
    else
        return inside_near_critical(pair, found, guess, margin);
}

template <SubRegion sub_region, class T>
void solve_sub_region(Pair pair, const double* a, const double* b, std::size_t n, const SolutionColumns& c,
                      const Margin& margin) {
    const Quantities given = quantities(pair);
    for (std::size_t i = 0; i < n; i += T::count) {
        const T guess = T::load(c.primary + i);
        const NewtonResult<T> found =
            newton<sub_region>(given, T::load(a + i), T::load(b + i), guess, T::load(c.t + i));
        found.primary.store(c.primary + i);
        found.t.store(c.t + i);
        const T taken = inside<sub_region>(pair, found, guess, margin) *
                        is_preferred_root<sub_region>(pair, found.primary, found.t);
        (found.converged * taken).store(c.accepted + i);
    }
}

/// For one pair, and for any.
template <Pair pair, SubRegion sub_region, class T>
KTL_FLATTEN void solve_pair(Pair /*pair*/, const double* a, const double* b, std::size_t n, const SolutionColumns& c,
                            const Margin& margin) {
    solve_sub_region<sub_region, T>(pair, a, b, n, c, margin);
}
template <SubRegion sub_region, class T>
KTL_FLATTEN void solve_any(Pair pair, const double* a, const double* b, std::size_t n, const SolutionColumns& c,
                           const Margin& margin) {
    solve_sub_region<sub_region, T>(pair, a, b, n, c, margin);
}

// ---- Two phases ------------------------------------------------------------------------------------------------------

/// 1 where a saturated volume is the outermost of those that the isotherm has under the saturation pressure: up to
/// top_of_dome the guess of it is off by less than 3e-4, and the next volume lies several per cent from it.
template <class T>
T is_outermost(const T& v, const T& guessed) {
    return zero_unless(abs(v - guessed) < 1.0e-3 * guessed, T(1.0));
}

/// 1 where the mixture is stable beyond doubt and the one that the pair's rule takes.
template <bool high, class T>
T inside(Pair pair, const TwoPhaseIterate<T>& m, const Margin& margin) {
    const bool may_be_water = pair == Pair::pv || pair == Pair::th || pair == Pair::ts || pair == Pair::tu;
    T in = inside_wet<high>(m.x, m.t) * zero_unless(m.x >= (may_be_water ? hardly_steam : 0.0), m.converged);
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
/// 1 where the part of the saturation line up to 350 degC, or from there on, has the pressure. The temperature does not
/// tell: that of a pressure beyond the line may be anything.
template <bool high, class T>
T line_has(const T& p) {
    if constexpr (high) return zero_unless(p >= ktl_lc.p1, zero_unless(p <= ktl_lc.pca, T(1.0)));
    return zero_unless(p <= ktl_lc.p1, T(1.0));
}
/// Where neither quality nor wanted properties take the phases, they are not evaluated.
template <bool high, PropertyLevel level, class T>
MixtureAtGivenLine<T> mixture_at_p_or_t(Pair pair, const T& a, const T& b) {
    MixtureAtGivenLine<T> y;
    TwoPhaseIterate<T>& m = y.m;
    const T t = has_pressure(pair) ? saturation::temperature(a) : a;
    T p = a;
    if constexpr (high) {
        const LinePoint<T> line = line_at(t);
        m = saturated_volumes(line, t, guesses::liquid_volume(t), guesses::vapour_volume(t));
        p = line.p;
    } else {
        if (has_temperature(pair)) p = saturation::terms(t).p;
        m = {T(0.0), t, p, p, T(1.0)};
    }
    if (has_pressure(pair)) m.converged = m.converged * line_has<high>(a);
    if (has_quality(pair) && level == PropertyLevel::variables) {
        const T none(not_a_number);
        m.x = b;
        y.bulk = {p, t, none, none, none, none, none, none, none, none};
    } else {
        const SaturatedProperties<T> phases = phases_at<high>(m.t, m.liquid, m.vapour);
        m.x = has_quality(pair) ? b : quality(quantities(pair).b, phases, b);
        y.bulk = mixture_of(phases, m.x, p);
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
    newton_two_phase<high>(m, pair, quantities(pair), a, b);
    if (pair == Pair::sx) m.converged = m.converged * guesses::is_lowest<high>(a, b, m.t);
    return m;
}

template <bool high, class T>
void store(Pair pair, const TwoPhaseIterate<T>& m, const SolutionColumns& c, std::size_t i, const Margin& margin) {
    m.x.store(c.primary + i);
    m.t.store(c.t + i);
    m.liquid.store(c.liquid + i);
    m.vapour.store(c.vapour + i);
    inside<high>(pair, m, margin).store(c.accepted + i);
}

template <bool high, class T>
KTL_FLATTEN void solve_mixture_at_p_or_t(Pair pair, const double* a, const double* b, std::size_t n,
                                         const SolutionColumns& c, const Margin& margin) {
    for (std::size_t i = 0; i < n; i += T::count)
        store<high>(pair, mixture_at_p_or_t<high, PropertyLevel::variables>(pair, T::load(a + i), T::load(b + i)).m, c,
                    i, margin);
}

template <bool high, class T>
KTL_FLATTEN void solve_mixture_search(Pair pair, const double* a, const double* b, std::size_t n,
                                      const SolutionColumns& c, const Margin& margin) {
    for (std::size_t i = 0; i < n; i += T::count)
        store<high>(pair, mixture_search<high>(pair, T::load(a + i), T::load(b + i), T::load(c.t + i)), c, i, margin);
}

// ---- Evaluation ------------------------------------------------------------------------------------------------------

template <PhaseKind kind, class T>
PhaseProperties<T> thermo_at(const SolutionColumns& c, std::size_t i) {
    const T primary = T::load(c.primary + i);
    const T t = T::load(c.t + i);
    if constexpr (kind == PhaseKind::water)
        return phase_at<SubRegion::water>(primary, t);
    else if constexpr (kind == PhaseKind::steam)
        return phase_at<SubRegion::steam>(primary, t);
    else if constexpr (kind == PhaseKind::near_critical)
        return phase_at<SubRegion::near_critical>(primary, t);
    else {
        constexpr bool high = kind == PhaseKind::wet_near_critical;
        const T liquid = T::load(c.liquid + i);
        const T p = high ? saturation::terms(t).p : liquid;
        return mixture_of(phases_at<high>(t, liquid, T::load(c.vapour + i)), primary, p);
    }
}

/// Leaves away what no property of that level needs, so that it is not computed.
template <PropertyLevel level, class T>
PhaseProperties<T> cut(const PhaseProperties<T>& y) {
    const T none(not_a_number);
    PhaseProperties<T> out{y.p, y.t, none, none, none, none, none, none, none, none};
    if constexpr (level >= PropertyLevel::volume) out.v = y.v;
    if constexpr (level >= PropertyLevel::energies) out.h = y.h, out.s = y.s;
    if constexpr (level >= PropertyLevel::heat_capacity) out.cp = y.cp;
    return level == PropertyLevel::everything ? y : out;
}

/// The wanted properties of the states from row i on; x is not-a-number in one phase.
template <class T>
void deliver(const PhaseProperties<T>& y, const T& x, std::size_t i, const Property* wanted, std::size_t count,
             double* const* outputs) {
    for (std::size_t k = 0; k < count; ++k) {
        const T value = wanted[k] == Property::x ? x : derived(wanted[k], y);
        value.store(outputs[k] + i);
    }
}

template <PhaseKind kind, PropertyLevel level, class T>
KTL_FLATTEN void evaluate(const SolutionColumns& states, std::size_t n, const Property* wanted, std::size_t count,
                          double* const* outputs) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const T x = kind >= PhaseKind::wet ? T::load(states.primary + i) : T(not_a_number);
        deliver(cut<level>(thermo_at<kind, T>(states, i)), x, i, wanted, count, outputs);
    }
}

/// Search and evaluation of mixtures in one, where both need the saturated phases at the same place.
template <bool high, PropertyLevel level, class T>
KTL_FLATTEN void mix_and_evaluate(Pair pair, const double* a, const double* b, std::size_t n,
                                  const SolutionColumns& out, const Property* wanted, std::size_t count,
                                  double* const* outputs) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const MixtureAtGivenLine<T> y = mixture_at_p_or_t<high, level>(pair, T::load(a + i), T::load(b + i));
        store<high>(pair, y.m, out, i, margin_of(pair));
        deliver(cut<level>(y.bulk), y.m.x, i, wanted, count, outputs);
    }
}

} // namespace ktl::engine
