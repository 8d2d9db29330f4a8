// The kernels that choose, guess and follow the saturation line, and the table of all kernels of a number type T.
#pragma once

#include "engine/kernel_bodies.hpp"

#include <utility>

namespace ktl::engine {

// ---- Classes, guesses, saturation line -------------------------------------------------------------------------------

/// The class of p, t, exact but for rounding: states on the saturation line are left to the search.
template <class T>
T classify_pt(const T& p, const T& t) {
    using guesses::Class;
    const auto is = [](Class c) { return guesses::number<T>(c); };
    const auto beside_line = [&](Class above, Class below) {
        const T ps = saturation::terms(t).p;
        return choose(abs(p - ps) > line_width * p, choose(p > ps, is(above), is(below)), is(Class::search));
    };
    const auto water = [&] { return is(Class::water); };
    const auto steam = [&] { return is(Class::steam); };
    const auto low = [&] {
        return decide(p > above_the_line, water, [&] { return beside_line(Class::water, Class::steam); });
    };
    const auto near = [&] {
        return decide(
            t > ktl_lc.tc, [&] { return is(Class::supercritical); },
            [&] { return beside_line(Class::liquid_like, Class::vapour_like); });
    };
    // Beside 350 degC the 2/3 boundary leaves the saturation line.
    const auto middle = [&] { return decide(p < boundary_at(t) * (1.0 - 2.0 * line_width), steam, near); };
    const auto high = [&] { return decide(t < ktl_lc.t3max, middle, steam); };
    return decide(t > ktl_lc.t1max, high, low);
}

/// The class of a mixture by its pressure or temperature and quality.
template <Pair pair, class T>
T classify_mixture(const T& line, const T& x) {
    using guesses::Class;
    constexpr bool by_p = pair == Pair::px;
    const auto is = [](Class c) { return guesses::number<T>(c); };
    const T c = choose(line > (by_p ? ktl_lc.p1 : ktl_lc.t3min), is(Class::wet_near_critical), is(Class::wet));
    const T mixed = both(x >= 0.0, both(x <= 1.0, both(line <= (by_p ? ktl_lc.pca : ktl_lc.tc), T(1.0))));
    return choose(mixed > 0.5, c, is(Class::search));
}

/// 1 where a given pressure and temperature lie in the range and other values are numbers that a state may have; what is
/// not goes to the search, which tells why.
template <Pair pair, class T>
T in_range(const T& a, const T& b) {
    const auto number = [](const T& y) { return both(abs(y) < largest_value, T(1.0)); };
    const auto pressure = [](const T& p) { return both(p >= ktl_lc.pmin, both(p <= ktl_lc.pmax, T(1.0))); };
    const auto temperature = [](const T& t) { return both(t >= ktl_lc.tmin, both(t <= ktl_lc.tmax, T(1.0))); };
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
KTL_FLATTEN void classify(const double* a, const double* b, std::size_t n, double* classes) {
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
        choose(in_range<pair>(x, y) > 0.5, c, guesses::number<T>(guesses::Class::search)).store(classes + i);
    }
}

template <Pair pair, class T>
KTL_FLATTEN void guess(guesses::Class c, const double* a, const double* b, std::size_t n, const Columns& out) {
    for (std::size_t i = 0; i < n; i += T::count) {
        T first(1.0);
        T t(1.0);
        guesses::guess<pair>(c, T::load(a + i), T::load(b + i), first, t);
        first.store(out.first + i);
        t.store(out.t + i);
    }
}

/// y(x) over a column; not-a-number outside the limits.
template <class T, class Function>
KTL_FLATTEN void line(const double* x, std::size_t n, double* y, double low, double high, Function function) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const T given = T::load(x + i);
        const T none(not_a_number);
        choose(given >= low, choose(given <= high, function(given), none), none).store(y + i);
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
        return choose(found < ktl_lc.tmin, T(ktl_lc.tmin), choose(found > ktl_lc.tc, T(ktl_lc.tc), found));
    });
}

// ---- The table -------------------------------------------------------------------------------------------------------

/// The pairs that programs ask most have searches of their own.
template <Pair pair, Body body, class T>
constexpr Kernels::Solve solve_kernel() {
    constexpr bool often = pair == Pair::pt || pair == Pair::ph || pair == Pair::ps;
    if constexpr (pair == Pair::pt && body != Body::near_critical)
        return nullptr;
    else if constexpr (often)
        return solve_pair<pair, body, T>;
    else
        return solve_any<body, T>;
}

template <Pair pair, class T>
constexpr std::array<Kernels::Solve, kind_count> solve_kernels() {
    if constexpr (has_quality(pair) && pair != Pair::sx)
        return {nullptr, nullptr, nullptr, solve_on_line<false, T>, solve_on_line<true, T>};
    else if constexpr (has_pressure(pair) || has_temperature(pair))
        return {solve_kernel<pair, Body::water, T>(), solve_kernel<pair, Body::steam, T>(),
                solve_kernel<pair, Body::near_critical, T>(), solve_on_line<false, T>, solve_on_line<true, T>};
    else
        return {solve_kernel<pair, Body::water, T>(), solve_kernel<pair, Body::steam, T>(),
                solve_kernel<pair, Body::near_critical, T>(), solve_off_line<false, T>, solve_off_line<true, T>};
}

template <Kind kind, class T>
constexpr std::array<Kernels::Evaluate, depth_count> evaluate_kernels() {
    return {evaluate<kind, Depth::variables, T>, evaluate<kind, Depth::volume, T>, evaluate<kind, Depth::energies, T>,
            evaluate<kind, Depth::heat_capacity, T>, evaluate<kind, Depth::everything, T>};
}

template <bool high, class T>
constexpr std::array<Kernels::Mix, 3> mix_kernels() {
    return {mix_and_evaluate<high, Depth::variables, T>, mix_and_evaluate<high, Depth::volume, T>,
            mix_and_evaluate<high, Depth::energies, T>};
}

template <class T, std::size_t... pair>
constexpr Kernels table_of(const char* name, std::index_sequence<pair...>) {
    return {name,
            T::count,
            {classify<static_cast<Pair>(pair), T>...},
            {guess<static_cast<Pair>(pair), T>...},
            {solve_kernels<static_cast<Pair>(pair), T>()...},
            {evaluate_kernels<Kind::water, T>(), evaluate_kernels<Kind::steam, T>(),
             evaluate_kernels<Kind::near_critical, T>(), evaluate_kernels<Kind::wet, T>(),
             evaluate_kernels<Kind::wet_near_critical, T>()},
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
