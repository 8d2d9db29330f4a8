// First guesses of the inversions: the class of a row, and the variables of its region, close enough that two Newton
// steps reach rounding for nearly all states.
//
// Templates on the number type (double, vector lanes). Nothing branches on a value; a row out of range, or not a
// number, gets some class and some guess, which the checks of the inversion refuse.
//
//     const double c = classify<Pair::ph>(p, h);               // class of every row, a whole number
//     guess<Pair::ph>(Class::water, p, h, first, t);           // rows of one class
//
// first, t: p, t in water and steam, v, t in sub-region 3. A given value is passed through. In two phases t alone is
// guessed; first is not touched. docs/guesses.md holds the errors reached.
#pragma once

#include "engine/turning.hpp"
#include "regions/saturation.hpp"

#include <type_traits>

namespace ktl::engine::guesses {

/// True of a polynomial that was fitted.
template <const auto& y>
inline constexpr bool fitted = !std::is_same_v<decltype(y), const None&>;

template <Pair pair, Border line, class T>
constexpr T at(const T& x) {
    return held<border<pair, line>>(x);
}

/// Saturated volumes of sub-region 3, m3/kg, at t (degC) from 350 up.
template <class T>
constexpr T liquid_volume(const T& t) {
    return value<liquid_volume_curve>(t);
}
template <class T>
constexpr T vapour_volume(const T& t) {
    return value<vapour_volume_curve>(t);
}

/// Pairs of p.
template <Pair pair, class T>
T classify_by_pressure(const T& p, const T& b) {
    const auto is = [](Class c) { return [c] { return number<T>(c); }; };
    const auto dense = [&] { return decide(b < at<pair, Border::dense>(p), is(Class::steam_dense), is(Class::steam)); };
    const auto steam = [&] { return decide(p < thin_limit, is(Class::steam_thin), dense); };
    const auto above = [&] { return decide(b > at<pair, Border::vapour>(p), steam, is(Class::wet)); };
    const auto low = [&] { return decide(b < at<pair, Border::liquid>(p), is(Class::water), above); };
    const auto vapour = [&] {
        return decide(b > at<pair, Border::near_vapour>(p), is(Class::vapour_like), is(Class::wet_near_critical));
    };
    const auto under = [&] { return decide(b < at<pair, Border::near_liquid>(p), is(Class::liquid_like), vapour); };
    const auto over = [&] {
        return decide(b < at<pair, Border::middle>(p), is(Class::liquid_like), is(Class::vapour_like));
    };
    const auto near = [&] { return decide(p < ktl_lc.pca, under, over); };
    const auto hot = [&] { return decide(b < at<pair, Border::boundary>(p), near, steam); };
    const auto high = [&] { return decide(b < at<pair, Border::isotherm>(p), is(Class::water), hot); };
    return decide(p < ktl_lc.p1, low, high);
}

/// Pairs of t.
template <Pair pair, class T>
T classify_by_temperature(const T& t, const T& b) {
    const auto is = [](Class c) { return [c] { return number<T>(c); }; };
    const auto dense = [&] { return decide(b < at<pair, Border::dense>(t), is(Class::steam_dense), is(Class::steam)); };
    const auto warm = [&] { return decide(b > at<pair, Border::thin>(t), is(Class::steam_thin), dense); };
    const auto steam = [&] { return decide(t < thin_temperature, is(Class::steam_thin), warm); };
    const auto above = [&] { return decide(b > at<pair, Border::vapour>(t), steam, is(Class::wet)); };
    const auto low = [&] { return decide(b < at<pair, Border::liquid>(t), is(Class::water), above); };
    const auto vapour = [&] {
        return decide(b > at<pair, Border::near_vapour>(t), is(Class::vapour_like), is(Class::wet_near_critical));
    };
    const auto under = [&] { return decide(b < at<pair, Border::near_liquid>(t), is(Class::liquid_like), vapour); };
    const auto over = [&] {
        return decide(b < at<pair, Border::middle>(t), is(Class::liquid_like), is(Class::vapour_like));
    };
    const auto near = [&] { return decide(t < ktl_lc.tc, under, over); };
    const auto hot = [&] { return decide(b < at<pair, Border::boundary>(t), near, steam); };
    const auto high = [&] { return decide(t < ktl_lc.t3max, hot, steam); };
    return decide(t > ktl_lc.t1, high, low);
}

/// h, s; u, s and the pairs of v: curves of the energy (v, s: of s) over q = s or v. At given q single phases lie above
/// the saturation line, and water below its isotherm of 350 degC.
template <Pair pair, class T>
T classify_by_two(const T& a, const T& b) {
    constexpr bool by_s = letters<pair>.a != 'v';
    const T& q = by_s ? b : a;
    const T& y = by_s ? a : b;
    const auto is = [](Class c) { return number<T>(c); };
    constexpr double liquid_end = border<pair, Border::tie>.span.low(); // q of the phases at 350 degC
    constexpr double vapour_end = border<pair, Border::tie>.span.high();
    constexpr double critical = by_s ? middle_entropy : ktl_lc.vca;

    const auto near_line = choose(q < critical, at<pair, Border::near_liquid>(q), at<pair, Border::near_vapour>(q));
    const auto line = choose(q < liquid_end, at<pair, Border::liquid>(q),
                             choose(q < vapour_end, near_line, at<pair, Border::vapour>(q)));

    const auto wet = choose(q < (by_s ? wet_limit : wet_volume_limit), is(Class::wet_liquid), is(Class::wet));
    const auto between = choose(y < at<pair, Border::tie>(q), wet, is(Class::wet_near_critical));
    const auto two_phase = choose(q < liquid_end, wet, choose(q < vapour_end, between, wet));

    // Steam, liquid-like and vapour-like states part at other curves by s and by v.
    const T along = position<border<pair, Border::thin>>(q);
    const auto thin = [&](const T& limit) { return choose(y < limit, is(Class::steam_thin), is(Class::steam)); };
    const auto less_dense = choose(along < -1.0, is(Class::steam),
                                   choose(along > 1.0, is(Class::steam_thin), thin(at<pair, Border::thin>(q))));
    const auto parted = [&](const auto& steam, const auto& near) {
        if constexpr (by_s)
            return choose(q < at<pair, Border::boundary>(across(y, q)), near, steam);
        else
            return choose(q < vapour_end, choose(y < at<pair, Border::boundary>(q), near, steam), steam);
    };
    const auto single = [&] {
        if constexpr (by_s) {
            return parted(choose(q < dense_limit, is(Class::steam_dense), less_dense),
                          choose(q < middle_entropy, is(Class::liquid_like), is(Class::vapour_like)));
        } else {
            const auto side = choose(y < at<pair, Border::middle>(q), is(Class::liquid_like), is(Class::vapour_like));
            const auto dense = choose(y < at<pair, Border::dense>(q), is(Class::steam_dense), less_dense);
            return parted(choose(position<border<pair, Border::dense>>(q) < 1.0, dense, less_dense),
                          choose(q < critical, side, is(Class::vapour_like)));
        }
    }();
    const auto one_phase =
        choose(q < liquid_end, choose(y < at<pair, Border::isotherm>(q), is(Class::water), single), single);
    return choose(y < line, two_phase, one_phase);
}

template <Pair pair>
struct Lines {
    template <class T>
    constexpr T liquid(const T& s) const {
        if constexpr (fitted<border<pair, Border::liquid>>)
            return at<pair, Border::liquid>(s);
        else
            return s;
    }
    template <class T>
    constexpr T saturation(const T& t) const {
        return value<near_saturation_curve>(t);
    }
    template <class T>
    constexpr T isochore(const T& t) const {
        return value<isochore_curve>(t);
    }
    template <class T>
    constexpr T least_volume(const T& p) const {
        return value<least_volume_curve>(p);
    }
    template <class T>
    constexpr T least_energy(const T& s) const {
        return value<least_energy_curve>(s);
    }
};

constexpr bool two_phase(Class c) { return c >= Class::wet_liquid && c <= Class::wet_near_critical_turning; }
constexpr bool turning(Class c) { return c == Class::wet_turning || c == Class::wet_near_critical_turning; }
constexpr bool near_critical(Class c) { return c >= Class::liquid_like && c <= Class::supercritical; }

/// Where an unknown of a class comes from: it is given, a polynomial stands, or there is no guess.
enum class Source : std::uint8_t { given, fitted, none };
template <Pair pair, Class c, Unknown unknown>
constexpr Source source() {
    constexpr char letter = unknown == Unknown::t ? 't' : near_critical(c) ? 'v' : 'p';
    if (letters<pair>.a == letter || letters<pair>.b == letter) return Source::given;
    return fitted<surface<pair, c, unknown>> ? Source::fitted : Source::none;
}

/// True where guess() has something to give for rows of the class.
template <Pair pair, Class c>
constexpr bool guessed() {
    if (turning(c)) return pair == Pair::sx;
    if (c == Class::supercritical && pair != Pair::pt) return false;
    return source<pair, c, Unknown::t>() != Source::none &&
           (two_phase(c) || source<pair, c, Unknown::first>() != Source::none);
}

template <Pair pair, Class c, Unknown unknown, class T>
void guess_one(const T& a, const T& b, T& out) {
    constexpr char letter = unknown == Unknown::t ? 't' : near_critical(c) ? 'v' : 'p';
    constexpr Source from = source<pair, c, unknown>();
    if constexpr (from == Source::fitted) {
        const Seen<T> by = seen(pair, c, Lines<pair>{}, a, b);
        out = value<surface<pair, c, unknown>>(by.a, by.b);
    } else if constexpr (from == Source::given) {
        out = letters<pair>.a == letter ? a : b;
    }
}

template <Pair pair, Class c, class T>
void guess(const T& a, const T& b, T& first, T& t) {
    if constexpr (turning(c))
        t = turning_temperature<c == Class::wet_near_critical_turning>(a, b);
    else
        guess_one<pair, c, Unknown::t>(a, b, t);
    if constexpr (pair == Pair::th && c == Class::water)
        first =
            saturation::terms(t).p; // enthalpy falls from there, ever less: Newton takes the first pressure that fits
    else if constexpr (!two_phase(c))
        guess_one<pair, c, Unknown::first>(a, b, first);
}

/// The class of the row, as a whole number; search for p, t, which its own rule divides, and for px and tx.
template <Pair pair, class T>
T classify(const T& a, const T& b) {
    constexpr auto given = letters<pair>;
    if constexpr (pair == Pair::sx)
        return classify_by_quality(a, b);
    else if constexpr (!fitted<border<pair, Border::liquid>>)
        return number<T>(Class::search);
    else if constexpr (given.a == 'p')
        return classify_by_pressure<pair>(a, b);
    else if constexpr (given.a == 't')
        return classify_by_temperature<pair>(a, b);
    else
        return classify_by_two<pair>(a, b);
}

/// First guess of a row of class c (not search).
template <Pair pair, class T>
void guess(Class c, const T& a, const T& b, T& first, T& t) {
    switch (c) {
    case Class::water: return guess<pair, Class::water>(a, b, first, t);
    case Class::steam_thin: return guess<pair, Class::steam_thin>(a, b, first, t);
    case Class::steam: return guess<pair, Class::steam>(a, b, first, t);
    case Class::steam_dense: return guess<pair, Class::steam_dense>(a, b, first, t);
    case Class::liquid_like: return guess<pair, Class::liquid_like>(a, b, first, t);
    case Class::vapour_like: return guess<pair, Class::vapour_like>(a, b, first, t);
    case Class::supercritical: return guess<pair, Class::supercritical>(a, b, first, t);
    case Class::wet_liquid: return guess<pair, Class::wet_liquid>(a, b, first, t);
    case Class::wet: return guess<pair, Class::wet>(a, b, first, t);
    case Class::wet_near_critical: return guess<pair, Class::wet_near_critical>(a, b, first, t);
    default: break;
    }
    if constexpr (pair == Pair::sx) {
        if (c == Class::wet_turning) return guess<pair, Class::wet_turning>(a, b, first, t);
        if (c == Class::wet_near_critical_turning) return guess<pair, Class::wet_near_critical_turning>(a, b, first, t);
    }
}

} // namespace ktl::engine::guesses
