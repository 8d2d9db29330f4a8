// The kernels that choose, guess and follow the saturation line, and the table of all kernels of a number type T.
#pragma once

#include "engine/kernels/kernel_bodies.hpp"

#include <utility>

namespace ktl::engine {

// ---- Classes, guesses, saturation line -------------------------------------------------------------------------------

/// The patch of p, t, exact but for rounding: states on the saturation line are left to the search.
template <class T>
T classify_pt(const T& p, const T& t) {
    using guesses::GuessPatch;
    const auto is = [](GuessPatch c) { return guesses::number<T>(c); };
    const auto beside_line = [&](GuessPatch above, GuessPatch below) {
        const T ps = saturation::terms(t).p;
        return select(abs(p - ps) > line_width * p, select(p > ps, is(above), is(below)), is(GuessPatch::search));
    };
    const auto water = [&] { return is(GuessPatch::water); };
    const auto steam = [&] { return is(GuessPatch::steam); };
    const auto low = [&] {
        return select_lazy(p > above_the_line, water,
                           [&] { return beside_line(GuessPatch::water, GuessPatch::steam); });
    };
    const auto near = [&] {
        return select_lazy(
            t > ktl_lc.tc, [&] { return is(GuessPatch::supercritical); },
            [&] { return beside_line(GuessPatch::liquid_like, GuessPatch::vapour_like); });
    };
    // Beside 350 degC the 2/3 boundary leaves the saturation line.
    const auto middle = [&] { return select_lazy(p < boundary_at(t) * (1.0 - 2.0 * line_width), steam, near); };
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

/// 1 where a given pressure and temperature lie in the range and other values are numbers that a state may have; what is
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

template <Pair pair, class T>
KTL_FLATTEN void classify(const double* a, const double* b, std::size_t n, double* patches) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const T x = T::load(a + i);
        const T y = T::load(b + i);
        T c;
        if constexpr (pair == Pair::pt)
            c = classify_pt(x, y);
        else if constexpr (pair == Pair::px || pair == Pair::tx)
            c = classify_mixture<pair>(x, y);
        else
            c = guesses::classify<pair>(x, y);
        select(in_range<pair>(x, y) > 0.5, c, guesses::number<T>(guesses::GuessPatch::search)).store(patches + i);
    }
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

/// y(x) over a column; not-a-number outside the limits.
template <class T, class Function>
KTL_FLATTEN void line(const double* x, std::size_t n, double* y, double low, double high, Function function) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const T given = T::load(x + i);
        const T none(not_a_number);
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

/// The pairs that programs ask most have searches of their own.
template <Pair pair, SubRegion sub_region, class T>
constexpr Kernels::Solve solve_kernel() {
    constexpr bool often = pair == Pair::pt || pair == Pair::ph || pair == Pair::ps;
    if constexpr (pair == Pair::pt && sub_region != SubRegion::near_critical)
        return nullptr;
    else if constexpr (often)
        return solve_pair<pair, sub_region, T>;
    else
        return solve_any<sub_region, T>;
}

template <Pair pair, class T>
constexpr std::array<Kernels::Solve, kind_count> solve_kernels() {
    if constexpr (has_quality(pair) && pair != Pair::sx)
        return {nullptr, nullptr, nullptr, solve_mixture_at_p_or_t<false, T>, solve_mixture_at_p_or_t<true, T>};
    else if constexpr (has_pressure(pair) || has_temperature(pair))
        return {solve_kernel<pair, SubRegion::water, T>(), solve_kernel<pair, SubRegion::steam, T>(),
                solve_kernel<pair, SubRegion::near_critical, T>(), solve_mixture_at_p_or_t<false, T>,
                solve_mixture_at_p_or_t<true, T>};
    else
        return {solve_kernel<pair, SubRegion::water, T>(), solve_kernel<pair, SubRegion::steam, T>(),
                solve_kernel<pair, SubRegion::near_critical, T>(), solve_mixture_search<false, T>,
                solve_mixture_search<true, T>};
}

template <PhaseKind kind, class T>
constexpr std::array<Kernels::Evaluate, level_count> evaluate_kernels() {
    return {evaluate<kind, PropertyLevel::variables, T>, evaluate<kind, PropertyLevel::volume, T>,
            evaluate<kind, PropertyLevel::energies, T>, evaluate<kind, PropertyLevel::heat_capacity, T>,
            evaluate<kind, PropertyLevel::everything, T>};
}

template <bool high, class T>
constexpr std::array<Kernels::Mix, 3> mix_kernels() {
    return {mix_and_evaluate<high, PropertyLevel::variables, T>, mix_and_evaluate<high, PropertyLevel::volume, T>,
            mix_and_evaluate<high, PropertyLevel::energies, T>};
}

template <class T, std::size_t... pair>
constexpr Kernels table_of(const char* name, std::index_sequence<pair...>) {
    return {name,
            T::count,
            {classify<static_cast<Pair>(pair), T>...},
            {guess<static_cast<Pair>(pair), T>...},
            {solve_kernels<static_cast<Pair>(pair), T>()...},
            {evaluate_kernels<PhaseKind::water, T>(), evaluate_kernels<PhaseKind::steam, T>(),
             evaluate_kernels<PhaseKind::near_critical, T>(), evaluate_kernels<PhaseKind::wet, T>(),
             evaluate_kernels<PhaseKind::wet_near_critical, T>()},
            {mix_kernels<false, T>(), mix_kernels<true, T>()},
            line_pressure<T>,
            line_slope<T>,
            line_temperature<T>};
}

template <class T>
constexpr Kernels table(const char* name) {
    return table_of<T>(name, std::make_index_sequence<pair_count>());
}

} // namespace ktl::engine

#undef KTL_FLATTEN
