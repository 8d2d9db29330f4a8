// The kernels: the inversions and the evaluation of properties over columns, for a number type T of one or several lanes.
#pragma once

#include "engine/kernels/inversion.hpp"
#include "engine/kernels/kernels.hpp"

namespace ktl::engine {

// ---- Inversion -------------------------------------------------------------------------------------------------------

template <Pair pair, class T>
KTL_FLATTEN void classify(const double* a, const double* b, std::size_t n, double* patches) {
    for (std::size_t i = 0; i < n; i += T::count) patch_of<pair>(T::load(a + i), T::load(b + i)).store(patches + i);
}

template <Pair pair, class T>
KTL_FLATTEN void guess(guesses::GuessPatch c, const double* a, const double* b, std::size_t n,
                       const SolutionColumns& out) {
    for (std::size_t i = 0; i < n; i += T::count) {
        T primary(1.0);
        T t(1.0);
        guesses::guess<pair>(c, T::load(a + i), T::load(b + i), primary, t);
        primary.store(out.primary + i);
        t.store(out.t + i);
    }
}

template <SubRegion sub_region, class T>
void solve_sub_region(Pair pair, const double* a, const double* b, std::size_t n, const SolutionColumns& c,
                      const Margin& margin) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const NewtonResult<T> found = solve_in<sub_region>(pair, T::load(a + i), T::load(b + i), T::load(c.primary + i),
                                                           T::load(c.t + i), margin);
        found.primary.store(c.primary + i);
        found.t.store(c.t + i);
        found.converged.store(c.accepted + i);
    }
}

/// For one pair that the compiler knows, and for any.
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

template <bool high, class T>
void store(Pair pair, const TwoPhaseIterate<T>& m, const SolutionColumns& c, std::size_t i, const Margin& margin) {
    m.x.store(c.primary + i);
    m.t.store(c.t + i);
    m.liquid.store(c.liquid + i);
    m.vapour.store(c.vapour + i);
    accept<high>(pair, m, margin).store(c.accepted + i);
}

template <bool high, class T>
KTL_FLATTEN void solve_mixture_at_p_or_t(Pair pair, const double* a, const double* b, std::size_t n,
                                         const SolutionColumns& c, const Margin& margin) {
    for (std::size_t i = 0; i < n; i += T::count)
        store<high>(pair, mixture_at_p_or_t<high, PropertyLevel::variables>(pair, T::load(a + i), T::load(b + i)).m, c,
                    i, margin);
}

template <bool high, class T>
void solve_mixture_search(Pair pair, const double* a, const double* b, std::size_t n, const SolutionColumns& c,
                          const Margin& margin) {
    for (std::size_t i = 0; i < n; i += T::count)
        store<high>(pair, mixture_search<high>(pair, T::load(a + i), T::load(b + i), T::load(c.t + i)), c, i, margin);
}
template <Pair pair, bool high, class T>
KTL_FLATTEN void solve_mixture_of_pair(Pair /*pair*/, const double* a, const double* b, std::size_t n,
                                       const SolutionColumns& c, const Margin& margin) {
    solve_mixture_search<high, T>(pair, a, b, n, c, margin);
}
template <bool high, class T>
KTL_FLATTEN void solve_mixture_of_any(Pair pair, const double* a, const double* b, std::size_t n,
                                      const SolutionColumns& c, const Margin& margin) {
    solve_mixture_search<high, T>(pair, a, b, n, c, margin);
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
    const T none(quiet_nan);
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
    const PhaseProperties<T>* from = &y;
    for (std::size_t k = 0; k < count; ++k) {
#if defined(__clang__)
        // Otherwise it computes every property before the loop, wanted or not.
        __asm__ volatile("" : "+r"(from) : : "memory");
#endif
        const T value = wanted[k] == Property::x ? x : derived(wanted[k], *from);
        value.store(outputs[k] + i);
    }
}

template <PhaseKind kind, PropertyLevel level, class T>
KTL_FLATTEN void evaluate(const SolutionColumns& states, std::size_t n, const Property* wanted, std::size_t count,
                          double* const* outputs) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const T x = kind >= PhaseKind::wet ? T::load(states.primary + i) : T(quiet_nan);
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
