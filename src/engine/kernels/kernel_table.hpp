// The kernels of the saturation line, and the table of all kernels of a number type T.
#pragma once

#include "engine/kernels/kernel_bodies.hpp"

#include <type_traits>
#include <utility>

namespace ktl::engine {

// ---- Saturation line -------------------------------------------------------------------------------------------------

/// y(x) over a column; not-a-number outside the limits.
template <class T, class Function>
KTL_FLATTEN void line(const double* x, std::size_t n, double* y, double low, double high, Function function) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const T given = T::load(x + i);
        const T none(quiet_nan);
        select(given >= low, select(given <= high, function(given), none), none).store(y + i);
    }
}
template <class T>
void line_pressure(const double* t, std::size_t n, double* p) {
    line<T>(t, n, p, ktl_lc.tmin, ktl_lc.tc, [](const T& x) { return saturation::terms(x).p; });
}
template <class T>
void line_slope(const double* t, std::size_t n, double* slope) {
    line<T>(t, n, slope, ktl_lc.tmin, ktl_lc.tc, [](const T& x) { return line_at(x).slope; });
}
template <class T>
void line_temperature(const double* p, std::size_t n, double* t) {
    line<T>(p, n, t, ktl_lc.pmin, ktl_lc.pca, [](const T& x) {
        const T found = saturation::temperature(x); // rounding may put it past an end of the line
        return select(found < ktl_lc.tmin, T(ktl_lc.tmin), select(found > ktl_lc.tc, T(ktl_lc.tc), found));
    });
}

// ---- The table -------------------------------------------------------------------------------------------------------

// T is the number type of one vector, Wide that of two, which hides latency: one is computed while the other waits for a division, a
// root or a step of a polynomial. That costs registers, so Wide is used for what has few values at a time, by measurement.

/// In lanes every pair has searches of its own, which leave out what it does not need; one number at a time those pairs that
/// programs ask most.
template <Pair pair, class T>
constexpr bool has_own_search = T::count > 1 || pair == Pair::pt || pair == Pair::ph || pair == Pair::ps;

template <Pair pair, SubRegion sub_region, class T, class Wide>
constexpr Kernels::Solve solve_kernel() {
    if constexpr (pair == Pair::pt && sub_region != SubRegion::near_critical)
        return nullptr;
    else if constexpr (has_own_search<pair, T>)
        return solve_pair<pair, sub_region, std::conditional_t<sub_region == SubRegion::near_critical, T, Wide>>;
    else
        return solve_any<sub_region, T>;
}

template <Pair pair, bool high, class T>
constexpr Kernels::Solve mixture_kernel() {
    if constexpr (has_own_search<pair, T>)
        return solve_mixture_of_pair<pair, high, T>;
    else
        return solve_mixture_of_any<high, T>;
}

template <Pair pair, class T, class Wide>
constexpr std::array<Kernels::Solve, kind_count> solve_kernels() {
    if constexpr (has_quality(pair) && pair != Pair::sx)
        return {nullptr, nullptr, nullptr, solve_mixture_at_p_or_t<false, Wide>, solve_mixture_at_p_or_t<true, Wide>};
    else if constexpr (has_pressure(pair) || has_temperature(pair))
        return {solve_kernel<pair, SubRegion::water, T, Wide>(), solve_kernel<pair, SubRegion::steam, T, Wide>(),
                solve_kernel<pair, SubRegion::near_critical, T, Wide>(), solve_mixture_at_p_or_t<false, Wide>,
                solve_mixture_at_p_or_t<true, Wide>};
    else
        return {solve_kernel<pair, SubRegion::water, T, Wide>(), solve_kernel<pair, SubRegion::steam, T, Wide>(),
                solve_kernel<pair, SubRegion::near_critical, T, Wide>(), mixture_kernel<pair, false, T>(),
                mixture_kernel<pair, true, T>()};
}

template <PhaseKind kind, class T, class Wide>
constexpr std::array<Kernels::Evaluate, level_count> evaluate_kernels() {
    return {evaluate<kind, PropertyLevel::variables, Wide>, evaluate<kind, PropertyLevel::volume, Wide>,
            evaluate<kind, PropertyLevel::energies, Wide>, evaluate<kind, PropertyLevel::heat_capacity, T>,
            evaluate<kind, PropertyLevel::everything, T>};
}

template <bool high, class T>
constexpr std::array<Kernels::Mix, 3> mix_kernels() {
    return {mix_and_evaluate<high, PropertyLevel::variables, T>, mix_and_evaluate<high, PropertyLevel::volume, T>,
            mix_and_evaluate<high, PropertyLevel::energies, T>};
}

template <class T, class Wide, std::size_t... pair>
constexpr Kernels table_of(const char* name, std::index_sequence<pair...>) {
    return {name,
            Wide::count,
            {classify<static_cast<Pair>(pair), Wide>...},
            {guess<static_cast<Pair>(pair), T>...},
            {solve_kernels<static_cast<Pair>(pair), T, Wide>()...},
            {evaluate_kernels<PhaseKind::water, Wide, Wide>(), evaluate_kernels<PhaseKind::steam, T, Wide>(),
             evaluate_kernels<PhaseKind::near_critical, T, T>(), evaluate_kernels<PhaseKind::wet, T, Wide>(),
             evaluate_kernels<PhaseKind::wet_near_critical, T, Wide>()},
            {mix_kernels<false, Wide>(), mix_kernels<true, T>()},
            line_pressure<Wide>,
            line_slope<T>,
            line_temperature<Wide>};
}

template <class T, class Wide>
constexpr Kernels table(const char* name) {
    return table_of<T, Wide>(name, std::make_index_sequence<pair_count>());
}

} // namespace ktl::engine

#undef KTL_FLATTEN
