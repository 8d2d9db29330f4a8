// The kernels, for a number type T of one or several lanes. A file that includes this is compiled with the flags of its
// lanes, so every name here that is not a template on T has internal linkage.
#pragma once

#include "engine/inside.hpp"
#include "engine/kernels.hpp"
#include "engine/wet.hpp"

namespace ktl::engine {

/// The two quantities of a pair; quality stands as none of the six.
template <Pair pair>
struct Quantities;

#define KTL_QUANTITIES(pair, first, second)                                                                            \
    template <>                                                                                                        \
    struct Quantities<Pair::pair> {                                                                                    \
        static constexpr Quantity a = Quantity::first, b = Quantity::second;                                           \
    };
KTL_QUANTITIES(pt, pressure, temperature)
KTL_QUANTITIES(ph, pressure, enthalpy)
KTL_QUANTITIES(ps, pressure, entropy)
KTL_QUANTITIES(pu, pressure, energy)
KTL_QUANTITIES(pv, pressure, volume)
KTL_QUANTITIES(tv, temperature, volume)
KTL_QUANTITIES(th, temperature, enthalpy)
KTL_QUANTITIES(ts, temperature, entropy)
KTL_QUANTITIES(tu, temperature, energy)
KTL_QUANTITIES(hs, enthalpy, entropy)
KTL_QUANTITIES(us, energy, entropy)
KTL_QUANTITIES(vh, volume, enthalpy)
KTL_QUANTITIES(vs, volume, entropy)
KTL_QUANTITIES(vu, volume, energy)
#undef KTL_QUANTITIES

constexpr bool ready(Pair pair) { return pair == Pair::ph || pair == Pair::ps || pair == Pair::hs; }
/// p, t this close to the saturation line, relative in p, leave the quality open.
inline constexpr double line_width = 1.0e-8;
/// Temperature from which saturated volumes are left to the exact search, degC.
inline constexpr double latest_mixture = 374.1;
/// Larger values are no states of anything, and would only overflow.
inline constexpr double largest_value = 1.0e9;
/// Temperature below which water is left to the exact search in pairs that may name two states there, degC.
inline constexpr double expanding_water = 10.0;

// ---- Homogeneous states ----------------------------------------------------------------------------------------------

/// 1 where the state is the one that the pair's rule takes of several. At constant t the enthalpy of water and of dense
/// sub-region 3 first falls, then rises with pressure: the falling side goes first. Cold water is left to the search.
template <Pair pair, Body body, class T>
T first_of_several(const T& first, const T& t) {
    if constexpr (body == Body::steam)
        return T(1.0);
    else if constexpr (pair == Pair::th) {
        const Slopes<T> h = slopes<body, Quantity::enthalpy>(terms_of<body>(first, t), first, t);
        if constexpr (body == Body::water)
            return both(h.by_first < 0.0, T(1.0));
        else
            return both(h.by_first > 0.0, T(1.0));
    } else if constexpr (body == Body::water && (pair == Pair::pv || pair == Pair::ts || pair == Pair::tu)) {
        return both(t > expanding_water, T(1.0));
    } else {
        return T(1.0);
    }
}

template <Pair pair, Body body, class T>
T inside(const T& first, const T& t) {
    constexpr bool exact = pair == Pair::pt;
    if constexpr (body == Body::water)
        return inside_water(first, t);
    else if constexpr (body == Body::steam)
        return inside_steam(first, t);
    else
        return inside_near_critical(first, t, exact ? 0.0 : overlap_t, exact ? 1.0 : overlap_p);
}

template <Pair pair, Body body, class T>
[[gnu::flatten]] void solve_body(const double* a, const double* b, std::size_t n, const Columns& c) {
    using Q = Quantities<pair>;
    for (std::size_t i = 0; i < n; i += T::count) {
        const T x = T::load(a + i);
        const T y = T::load(b + i);
        const Found<T> found = newton<body, Q::a, Q::b>(x, y, T::load(c.first + i), T::load(c.t + i));
        found.first.store(c.first + i);
        found.t.store(c.t + i);
        const T taken = inside<pair, body>(found.first, found.t) * first_of_several<pair, body>(found.first, found.t);
        (found.converged * taken).store(c.settled + i);
    }
}

// ---- Two phases ------------------------------------------------------------------------------------------------------

constexpr bool has_pressure(Pair pair) { return pair >= Pair::ph && pair <= Pair::px; }
constexpr bool has_temperature(Pair pair) { return pair >= Pair::tv && pair <= Pair::tx; }
constexpr bool has_quality(Pair pair) { return pair == Pair::px || pair == Pair::tx || pair == Pair::sx; }

/// Least quality of a mixture: where water may go before one with hardly any steam, the search decides.
template <Pair pair>
inline constexpr double least_quality_of =
    pair == Pair::pv || pair == Pair::th || pair == Pair::ts || pair == Pair::tu ? 2.0e-6 : 0.0;

/// 1 where the mixture is stable beyond doubt and the pair's own.
template <Pair pair, bool high, class T>
T inside(const Mixed<T>& m) {
    T in = inside_wet<high>(m.x, m.t) * both(m.x >= least_quality_of<pair>, T(1.0));
    if constexpr (high) {
        constexpr bool by_line = has_pressure(pair) || has_temperature(pair);
        const T sides = both(m.liquid < ktl_lc.vca, both(m.vapour > ktl_lc.vca, T(1.0)));
        in = in * sides * both(m.t < latest_mixture, T(1.0));
        if constexpr (!by_line) in = in * both(m.t > ktl_lc.t3min + overlap_t, T(1.0));
    }
    return in * m.converged;
}

template <Quantity y, class T>
constexpr T Thermo<T>::*part() {
    if constexpr (y == Quantity::volume)
        return &Thermo<T>::v;
    else if constexpr (y == Quantity::enthalpy)
        return &Thermo<T>::h;
    else
        return &Thermo<T>::s;
}

/// Quality at which the mixture has the value.
template <Quantity y, class T>
T quality(const SaturatedPhases<T>& phases, const T& value) {
    if constexpr (y == Quantity::energy) {
        const T u = energy(phases.water);
        return (value - u) / (energy(phases.steam) - u);
    } else {
        return phases.quality(part<y, T>(), value);
    }
}

/// A mixture with its phases, of a pair that gives the temperature by itself or by the pressure.
template <class T>
struct OnLine {
    Mixed<T> m;
    SaturatedPhases<T> phases;
    T p;
};
template <Pair pair, bool high, Depth depth, class T>
OnLine<T> on_line(const T& a, const T& b) {
    OnLine<T> y;
    Mixed<T>& m = y.m;
    const T t = has_pressure(pair) ? saturation::temperature(a) : a;
    if constexpr (high) {
        const LinePoint<T> line = line_at(t);
        m = saturated_volumes(line, t, guesses::liquid_volume(t), guesses::vapour_volume(t));
        y.p = line.p;
    } else {
        y.p = has_pressure(pair) ? a : saturation::terms(t).p;
        m = {T(0.0), t, y.p, y.p, T(1.0)};
    }
    if constexpr (!has_quality(pair) || depth != Depth::variables)
        y.phases = engine::saturated_at<high>(m.t, m.liquid, m.vapour);
    if constexpr (has_quality(pair))
        m.x = b;
    else
        m.x = quality<Quantities<pair>::b>(y.phases, b);
    return y;
}

/// A mixture of any other pair, from the guess of its temperature.
template <Pair pair, bool high, class T>
Mixed<T> off_line(const T& a, const T& b, const T& t) {
    Mixed<T> m{T(0.0), t, T(0.0), T(0.0), T(0.0)};
    if constexpr (high) {
        m.liquid = guesses::liquid_volume(t);
        m.vapour = guesses::vapour_volume(t);
    }
    if constexpr (pair == Pair::sx)
        mix_of_quality<high, Quantity::entropy>(m, a, b);
    else
        mix<high, Quantities<pair>::a, Quantities<pair>::b>(m, a, b);
    return m;
}

template <Pair pair, bool high, class T>
void store(const Mixed<T>& m, const Columns& c, std::size_t i) {
    m.x.store(c.first + i);
    m.t.store(c.t + i);
    m.liquid.store(c.liquid + i);
    m.vapour.store(c.vapour + i);
    inside<pair, high>(m).store(c.settled + i);
}

template <Pair pair, bool high, class T>
[[gnu::flatten]] void solve_wet(const double* a, const double* b, std::size_t n, const Columns& c) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const T x = T::load(a + i);
        const T y = T::load(b + i);
        if constexpr (has_pressure(pair) || has_temperature(pair))
            store<pair, high>(on_line<pair, high, Depth::variables>(x, y).m, c, i);
        else
            store<pair, high>(off_line<pair, high>(x, y, T::load(c.t + i)), c, i);
    }
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
        return mixture_of(engine::saturated_at<high>(t, liquid, T::load(c.vapour + i)), first, p);
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
[[gnu::flatten]] void evaluate(const Columns& states, std::size_t n, const Property* wanted, std::size_t count,
                               double* const* outputs) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const T x = kind >= Kind::wet ? T::load(states.first + i) : T(not_a_number);
        deliver(cut<depth>(thermo_at<kind, T>(states, i)), x, i, wanted, count, outputs);
    }
}

/// Search and evaluation of mixtures in one, where both need the saturated phases at the same place.
template <Pair pair, bool high, Depth depth, class T>
[[gnu::flatten]] void mix_and_evaluate(const double* a, const double* b, std::size_t n, const Columns& out,
                                       const Property* wanted, std::size_t count, double* const* outputs) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const OnLine<T> y = on_line<pair, high, depth>(T::load(a + i), T::load(b + i));
        store<pair, high>(y.m, out, i);
        deliver(cut<depth>(mixture_of(y.phases, y.m.x, y.p)), y.m.x, i, wanted, count, outputs);
    }
}

// ---- Classes, guesses, saturation line -------------------------------------------------------------------------------

/// The class of p, t, exact but for rounding: states on the saturation line and out of range are left to the search.
template <class T>
T classify_pt(const T& p, const T& t) {
    using guesses::Class;
    const auto is = [](Class c) { return guesses::number<T>(c); };
    const T ps = saturation::terms(t).p;
    const T near = choose(p > ps, is(Class::liquid_like), is(Class::vapour_like));
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
[[gnu::flatten]] void classify(const double* a, const double* b, std::size_t n, double* classes) {
    for (std::size_t i = 0; i < n; i += T::count) {
        const T x = T::load(a + i);
        const T y = T::load(b + i);
        T c;
        if constexpr (pair == Pair::pt)
            c = classify_pt(x, y);
        else if constexpr (pair == Pair::px || pair == Pair::tx)
            c = classify_mixture<pair>(x, y);
        else if constexpr (!ready(pair))
            c = guesses::number<T>(guesses::Class::search);
        else
            c = guesses::classify<pair>(x, y);
        const T numbers = both(abs(x) < largest_value, both(abs(y) < largest_value, T(1.0)));
        choose(numbers > 0.5, c, guesses::number<T>(guesses::Class::search)).store(classes + i);
    }
}

template <Pair pair, class T>
[[gnu::flatten]] void guess(guesses::Class c, const double* a, const double* b, std::size_t n, const Columns& out) {
    for (std::size_t i = 0; i < n; i += T::count) {
        T first(1.0);
        T t(1.0);
        if constexpr (pair == Pair::pt)
            first = T::load(a + i), t = T::load(b + i);
        else if constexpr (ready(pair))
            guesses::guess<pair>(c, T::load(a + i), T::load(b + i), first, t);
        first.store(out.first + i);
        t.store(out.t + i);
    }
}

/// y(x) over a column; not-a-number outside the limits.
template <class T, class Function>
[[gnu::flatten]] void line(const double* x, std::size_t n, double* y, double low, double high, Function function) {
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

template <Pair pair, class T>
constexpr std::array<Kernels::Solve, kind_count> solve_kernels() {
    constexpr bool of_line = pair == Pair::px || pair == Pair::tx;
    if constexpr (!ready(pair) && !of_line && pair != Pair::pt)
        return {};
    else if constexpr (pair == Pair::pt)
        return {nullptr, nullptr, solve_body<pair, Body::near_critical, T>, nullptr, nullptr};
    else if constexpr (has_quality(pair))
        return {nullptr, nullptr, nullptr, solve_wet<pair, false, T>, solve_wet<pair, true, T>};
    else
        return {solve_body<pair, Body::water, T>, solve_body<pair, Body::steam, T>,
                solve_body<pair, Body::near_critical, T>, solve_wet<pair, false, T>, solve_wet<pair, true, T>};
}

template <Kind kind, class T>
constexpr std::array<Kernels::Evaluate, depth_count> evaluate_kernels() {
    return {evaluate<kind, Depth::variables, T>, evaluate<kind, Depth::volume, T>, evaluate<kind, Depth::energies, T>,
            evaluate<kind, Depth::heat_capacity, T>, evaluate<kind, Depth::everything, T>};
}

template <Pair pair, bool high, class T>
constexpr std::array<Kernels::Mix, 3> mix_kernels() {
    if constexpr (has_pressure(pair) || has_temperature(pair))
        return {mix_and_evaluate<pair, high, Depth::variables, T>, mix_and_evaluate<pair, high, Depth::volume, T>,
                mix_and_evaluate<pair, high, Depth::energies, T>};
    else
        return {};
}

template <class T, std::size_t... pair>
constexpr Kernels table_of(const char* name, std::index_sequence<pair...>) {
    using Mixes = std::array<std::array<Kernels::Mix, 3>, 2>;
    return {
        name,
        T::count,
        {classify<static_cast<Pair>(pair), T>...},
        {guess<static_cast<Pair>(pair), T>...},
        {solve_kernels<static_cast<Pair>(pair), T>()...},
        {evaluate_kernels<Kind::water, T>(), evaluate_kernels<Kind::steam, T>(),
         evaluate_kernels<Kind::near_critical, T>(), evaluate_kernels<Kind::wet, T>(),
         evaluate_kernels<Kind::wet_near_critical, T>()},
        {Mixes{mix_kernels<static_cast<Pair>(pair), false, T>(), mix_kernels<static_cast<Pair>(pair), true, T>()}...},
        line_pressure<T>,
        line_slope<T>,
        line_temperature<T>};
}

template <class T>
constexpr Kernels table(const char* name) {
    return table_of<T>(name, std::make_index_sequence<pair_count>());
}

} // namespace ktl::engine
