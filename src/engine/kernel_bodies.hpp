// The kernels, for a number type T of one or several lanes. A file that includes this is compiled with the flags of its
// lanes, so every name here that is not a template on T has internal linkage.
#pragma once

#include "engine/inside.hpp"
#include "engine/kernels.hpp"
#include "engine/wet.hpp"

// Everything that a kernel calls is brought into it, so that its values stay in registers and what it does not need is
// left away. Under sanitizers that would be more than compilers can bear.
#ifdef KTL_SMALL_KERNELS
#define KTL_FLATTEN
#else
#define KTL_FLATTEN [[gnu::flatten]]
#endif

namespace ktl::engine {

/// The quantities of a pair; what stands for a quality has no meaning.
constexpr Quantities quantities(Pair pair) {
    using Q = Quantity;
    constexpr std::array<Quantities, pair_count> all{{
        {Q::pressure, Q::temperature},
        {Q::pressure, Q::enthalpy},
        {Q::pressure, Q::entropy},
        {Q::pressure, Q::energy},
        {Q::pressure, Q::volume},
        {Q::pressure, Q::pressure},
        {Q::temperature, Q::volume},
        {Q::temperature, Q::enthalpy},
        {Q::temperature, Q::entropy},
        {Q::temperature, Q::energy},
        {Q::temperature, Q::pressure},
        {Q::entropy, Q::entropy},
        {Q::enthalpy, Q::entropy},
        {Q::energy, Q::entropy},
        {Q::volume, Q::enthalpy},
        {Q::volume, Q::entropy},
        {Q::volume, Q::energy},
    }};
    return all[static_cast<std::size_t>(pair)];
}
constexpr bool has_pressure(Pair pair) { return pair >= Pair::ph && pair <= Pair::px; }
constexpr bool has_temperature(Pair pair) { return pair >= Pair::tv && pair <= Pair::tx; }
constexpr bool has_quality(Pair pair) { return pair == Pair::px || pair == Pair::tx || pair == Pair::sx; }

/// p, t this close to the saturation line, relative in p, leave the quality open.
inline constexpr double line_width = 1.0e-8;
/// Larger values are no states of anything, and would only overflow.
inline constexpr double largest_value = 1.0e9;
/// Temperature below which water is left to the exact search in pairs that may name two states there, degC.
inline constexpr double expanding_water = 10.0;
/// Quality below which a mixture is left to it: water may go before one with hardly any steam.
inline constexpr double hardly_steam = 2.0e-6;

// ---- Homogeneous states ----------------------------------------------------------------------------------------------

/// 1 where the state is the one that the pair's rule takes of several. At constant t the enthalpy of water and of dense
/// sub-region 3 first falls, then rises with pressure: the falling side goes first. Cold water is left to the search.
template <Body body, class T>
T first_of_several(Pair pair, const T& first, const T& t) {
    if (body == Body::water && (pair == Pair::pv || pair == Pair::ts || pair == Pair::tu))
        return both(t > expanding_water, T(1.0));
    if (body == Body::steam || pair != Pair::th) return T(1.0);
    const T slope = slopes(Quantity::enthalpy, body_at<body>(first, t)).by_first;
    return both((body == Body::water ? slope : -slope) < 0.0, T(1.0));
}

template <Body body, class T>
T inside(const T& first, const T& t, double margin) {
    if constexpr (body == Body::water)
        return inside_water(first, t);
    else if constexpr (body == Body::steam)
        return inside_steam(first, t);
    else
        return inside_near_critical(first, t, margin);
}

template <Body body, class T>
void solve_body(Pair pair, const double* a, const double* b, std::size_t n, const Columns& c, double margin) {
    const Quantities given = quantities(pair);
    for (std::size_t i = 0; i < n; i += T::count) {
        const Found<T> found =
            newton<body>(given, T::load(a + i), T::load(b + i), T::load(c.first + i), T::load(c.t + i));
        found.first.store(c.first + i);
        found.t.store(c.t + i);
        const T taken = inside<body>(found.first, found.t, margin) * first_of_several<body>(pair, found.first, found.t);
        (found.converged * taken).store(c.settled + i);
    }
}

/// For one pair, and for any.
template <Pair pair, Body body, class T>
KTL_FLATTEN void solve_pair(Pair /*pair*/, const double* a, const double* b, std::size_t n, const Columns& c,
                            double margin) {
    solve_body<body, T>(pair, a, b, n, c, margin);
}
template <Body body, class T>
KTL_FLATTEN void solve_any(Pair pair, const double* a, const double* b, std::size_t n, const Columns& c,
                           double margin) {
    solve_body<body, T>(pair, a, b, n, c, margin);
}

// ---- Two phases ------------------------------------------------------------------------------------------------------

/// 1 where the mixture is stable beyond doubt and the one that the pair's rule takes.
template <bool high, class T>
T inside(Pair pair, const Mixed<T>& m, double margin) {
    const bool may_be_water = pair == Pair::pv || pair == Pair::th || pair == Pair::ts || pair == Pair::tu;
    T in = inside_wet<high>(m.x, m.t) * both(m.x >= (may_be_water ? hardly_steam : 0.0), m.converged);
    if constexpr (high) {
        const T sides = both(m.liquid < ktl_lc.vca, both(m.vapour > ktl_lc.vca, T(1.0)));
        in = in * sides * near_critical_volume(m.liquid) * near_critical_volume(m.vapour);
        in = in * both(m.t < top_of_dome, T(1.0));
        if (!has_pressure(pair) && !has_temperature(pair))
            in = in * both(m.t > ktl_lc.t3min + margin * overlap_t, T(1.0));
    }
    return in;
}

/// Quality at which the mixture has the value.
template <class T>
T quality(Quantity quantity, const SaturatedPhases<T>& phases, const T& value) {
    const T water = slopes(quantity, phases.water).y;
    return (value - water) / (slopes(quantity, phases.steam).y - water);
}

/// A mixture of a pair that gives the temperature by itself or by the pressure.
template <class T>
struct OnLine {
    Mixed<T> m;
    Thermo<T> bulk;
};
/// Where neither quality nor wanted properties take the phases, they are not evaluated.
template <bool high, Depth depth, class T>
OnLine<T> on_line(Pair pair, const T& a, const T& b) {
    OnLine<T> y;
    Mixed<T>& m = y.m;
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
    if (has_quality(pair) && depth == Depth::variables) {
        const T none(not_a_number);
        m.x = b;
        y.bulk = {p, t, none, none, none, none, none, none, none, none};
    } else {
        const SaturatedPhases<T> phases = phases_at<high>(m.t, m.liquid, m.vapour);
        m.x = has_quality(pair) ? b : quality(quantities(pair).b, phases, b);
        y.bulk = mixture_of(phases, m.x, p);
    }
    return y;
}

/// A mixture of any other pair, from the guess of its temperature.
template <bool high, class T>
Mixed<T> off_line(Pair pair, const T& a, const T& b, const T& t) {
    Mixed<T> m{T(0.0), t, T(0.0), T(0.0), T(0.0)};
    if constexpr (high) {
        m.liquid = guesses::liquid_volume(t);
        m.vapour = guesses::vapour_volume(t);
    }
    mix<high>(m, pair, quantities(pair), a, b);
    return m;
}

template <bool high, class T>
void store(Pair pair, const Mixed<T>& m, const Columns& c, std::size_t i, double margin) {
    m.x.store(c.first + i);
    m.t.store(c.t + i);
    m.liquid.store(c.liquid + i);
    m.vapour.store(c.vapour + i);
    inside<high>(pair, m, margin).store(c.settled + i);
}

template <bool high, class T>
KTL_FLATTEN void solve_on_line(Pair pair, const double* a, const double* b, std::size_t n, const Columns& c,
                               double margin) {
    for (std::size_t i = 0; i < n; i += T::count)
        store<high>(pair, on_line<high, Depth::variables>(pair, T::load(a + i), T::load(b + i)).m, c, i, margin);
}

template <bool high, class T>
KTL_FLATTEN void solve_off_line(Pair pair, const double* a, const double* b, std::size_t n, const Columns& c,
                                double margin) {
    for (std::size_t i = 0; i < n; i += T::count)
        store<high>(pair, off_line<high>(pair, T::load(a + i), T::load(b + i), T::load(c.t + i)), c, i, margin);
}

// ---- Evaluation ------------------------------------------------------------------------------------------------------

template <Kind kind, class T>
Thermo<T> thermo_at(const Columns& c, std::size_t i) {
    const T first = T::load(c.first + i);
    const T t = T::load(c.t + i);
    if constexpr (kind == Kind::water)
        return phase_at<Body::water>(first, t);
    else if constexpr (kind == Kind::steam)
        return phase_at<Body::steam>(first, t);
    else if constexpr (kind == Kind::near_critical)
        return phase_at<Body::near_critical>(first, t);
    else {
        constexpr bool high = kind == Kind::wet_near_critical;
        const T liquid = T::load(c.liquid + i);
        const T p = high ? saturation::terms(t).p : liquid;
        return mixture_of(phases_at<high>(t, liquid, T::load(c.vapour + i)), first, p);
    }
}

/// Leaves away what no property of that depth needs, so that it is not computed.
template <Depth depth, class T>
Thermo<T> cut(const Thermo<T>& y) {
    const T none(not_a_number);
    Thermo<T> out{y.p, y.t, none, none, none, none, none, none, none, none};
    if constexpr (depth >= Depth::volume) out.v = y.v;
    if constexpr (depth >= Depth::energies) out.h = y.h, out.s = y.s;
    if constexpr (depth >= Depth::heat_capacity) out.cp = y.cp;
    return depth == Depth::everything ? y : out;
}

/// The wanted properties of the states from row i on; x is not-a-number in one phase.
template <class T>
void deliver(const Thermo<T>& y, const T& x, std::size_t i, const Property* wanted, std::size_t count,
             double* const* outputs) {
    for (std::size_t k = 0; k < count; ++k) {
        const T value = wanted[k] == Property::x ? x : derived(wanted[k], y);
        value.store(outputs[k] + i);
    }
}

template <Kind kind, Depth depth, class T>
KTL_FLATTEN void evaluate(const Columns& states, std::size_t n, const Property* wanted, std::size_t count,
                          double* const* outputs) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const T x = kind >= Kind::wet ? T::load(states.first + i) : T(not_a_number);
        deliver(cut<depth>(thermo_at<kind, T>(states, i)), x, i, wanted, count, outputs);
    }
}

/// Search and evaluation of mixtures in one, where both need the saturated phases at the same place.
template <bool high, Depth depth, class T>
KTL_FLATTEN void mix_and_evaluate(Pair pair, const double* a, const double* b, std::size_t n, const Columns& out,
                                  const Property* wanted, std::size_t count, double* const* outputs) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const OnLine<T> y = on_line<high, depth>(pair, T::load(a + i), T::load(b + i));
        store<high>(pair, y.m, out, i, 0.0);
        deliver(cut<depth>(y.bulk), y.m.x, i, wanted, count, outputs);
    }
}

// ---- Classes, guesses, saturation line -------------------------------------------------------------------------------

/// The class of p, t, exact but for rounding: states on the saturation line and out of range are left to the search.
template <class T>
T classify_pt(const T& p, const T& t) {
    using guesses::Class;
    const auto is = [](Class c) { return guesses::number<T>(c); };
    const T ps = saturation::terms(t).p;
    const T side = choose(p > ps, is(Class::liquid_like), is(Class::vapour_like));
    const T near = choose(t < ktl_lc.tc, side, is(Class::supercritical));
    const T high = choose(t < ktl_lc.t3max, choose(p < boundary_at(t), is(Class::steam), near), is(Class::steam));
    const T low = choose(p > ps, is(Class::water), is(Class::steam));
    const T c = choose(t > ktl_lc.t1max, high, low);
    const T off_line = choose(t > ktl_lc.tc, T(1.0), both(abs(p - ps) > line_width * p, T(1.0)));
    const T within =
        both(p >= ktl_lc.pmin, both(p <= ktl_lc.pmax, both(t >= ktl_lc.tmin, both(t <= ktl_lc.tmax, off_line))));
    return choose(within > 0.5, c, is(Class::search));
}

/// The class of a mixture by its pressure or temperature and quality.
template <Pair pair, class T>
T classify_mixture(const T& line, const T& x) {
    using guesses::Class;
    constexpr bool by_p = pair == Pair::px;
    const auto is = [](Class c) { return guesses::number<T>(c); };
    const T c = choose(line > (by_p ? ktl_lc.p1 : ktl_lc.t3min), is(Class::wet_near_critical), is(Class::wet));
    const T mixed = both(x >= 0.0, both(x <= 1.0, T(1.0)));
    const T on_line =
        both(line >= (by_p ? ktl_lc.pmin : ktl_lc.tmin), both(line <= (by_p ? ktl_lc.pca : ktl_lc.tc), mixed));
    return choose(on_line > 0.5, c, is(Class::search));
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
        const T numbers = both(abs(x) < largest_value, both(abs(y) < largest_value, T(1.0)));
        choose(numbers > 0.5, c, guesses::number<T>(guesses::Class::search)).store(classes + i);
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
