// First guesses of the inversions: the patch of a row, and the variables of its region, close enough that two Newton
// steps reach rounding for nearly all states.
//
// Templates on the number type (double, vector lanes). Nothing branches on a value; a row out of range, or not a
// number, gets some patch and some guess, which the checks of the inversion refuse.
//
//     const double c = classify<Pair::ph>(p, h);               // patch of every row, a whole number
//     guess<Pair::ph>(GuessPatch::water, p, h, first, t);           // rows of one patch
//
// first, t: p, t in water and steam, v, t in sub-region 3. A given value is passed through. In two phases t alone is
// guessed; first is not touched. docs/guesses.md holds the errors reached.
#pragma once

#include "engine/guesses/quality_line_extrema.hpp"
#include "regions/saturation.hpp"

#include <type_traits>

namespace ktl::engine::guesses {

/// True of a polynomial that was fitted.
template <const auto& y>
inline constexpr bool fitted = !std::is_same_v<decltype(y), const None&>;

template <Pair pair, Border line, class T>
constexpr T at(const T& x) {
    return clamped_value<border<pair, line>>(x);
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

/// Pairs of p or t, the line; the borders are curves of the second value over it.
template <Pair pair, class T>
T classify_on_line(const T& line, const T& b) {
    constexpr bool by_p = letters<pair>.a == 'p';
    const auto is = [](GuessPatch c) { return [c] { return number<T>(c); }; };
    const auto dense = [&] {
        return select_lazy(b < at<pair, Border::s_5_85>(line), is(GuessPatch::steam_dense), is(GuessPatch::steam));
    };
    const auto steam = [&] {
        if constexpr (by_p) {
            return select_lazy(line < thin_limit, is(GuessPatch::steam_thin), dense);
        } else {
            const auto warm = [&] {
                return select_lazy(b > at<pair, Border::p_40_bar>(line), is(GuessPatch::steam_thin), dense);
            };
            return select_lazy(line < thin_temperature, is(GuessPatch::steam_thin), warm);
        }
    };
    const auto above = [&] { return select_lazy(b > at<pair, Border::vapour>(line), steam, is(GuessPatch::wet)); };
    const auto low = [&] { return select_lazy(b < at<pair, Border::liquid>(line), is(GuessPatch::water), above); };
    const auto vapour = [&] {
        return select_lazy(b > at<pair, Border::near_vapour>(line), is(GuessPatch::vapour_like),
                           is(GuessPatch::wet_near_critical));
    };
    const auto under = [&] {
        return select_lazy(b < at<pair, Border::near_liquid>(line), is(GuessPatch::liquid_like), vapour);
    };
    const auto over = [&] {
        return select_lazy(b < at<pair, Border::s_critical>(line), is(GuessPatch::liquid_like),
                           is(GuessPatch::vapour_like));
    };
    const auto near = [&] { return select_lazy(line < (by_p ? ktl_lc.pca : ktl_lc.tc), under, over); };
    const auto hot = [&] { return select_lazy(b < at<pair, Border::boundary>(line), near, steam); };
    const auto high = [&] {
        if constexpr (by_p)
            return select_lazy(b < at<pair, Border::isotherm>(line), is(GuessPatch::water), hot);
        else
            return select_lazy(line < ktl_lc.t3max, hot, steam);
    };
    if constexpr (by_p)
        return select_lazy(line < ktl_lc.p1, low, high);
    else
        return select_lazy(line > ktl_lc.t1, high, low);
}

/// h, s; u, s and the pairs of v: curves of the energy (v, s: of s) over q = s or v. At given q single phases lie above
/// the saturation line, and water below its isotherm of 350 degC.
template <Pair pair, class T>
T classify_by_two(const T& a, const T& b) {
    constexpr bool by_s = letters<pair>.a != 'v';
    const T& q = by_s ? b : a;
    const T& y = by_s ? a : b;
    const auto is = [](GuessPatch c) { return number<T>(c); };
    constexpr double liquid_end = border<pair, Border::tie_line_350C>.span.low(); // q of the phases at 350 degC
    constexpr double vapour_end = border<pair, Border::tie_line_350C>.span.high();
    constexpr double critical = by_s ? middle_entropy : ktl_lc.vca;

    const auto near_line = select(q < critical, at<pair, Border::near_liquid>(q), at<pair, Border::near_vapour>(q));
    const auto line = select(q < liquid_end, at<pair, Border::liquid>(q),
                             select(q < vapour_end, near_line, at<pair, Border::vapour>(q)));

    const auto wet = select(q < (by_s ? wet_limit : wet_volume_limit), is(GuessPatch::wet_low_s), is(GuessPatch::wet));
    const auto between = select(y < at<pair, Border::tie_line_350C>(q), wet, is(GuessPatch::wet_near_critical));
    const auto two_phase = select(q < liquid_end, wet, select(q < vapour_end, between, wet));

    // Steam, liquid-like and vapour-like states part at other curves by s and by v.
    const T along = to_unit_interval<border<pair, Border::p_40_bar>>(q);
    const auto thin = [&](const T& limit) {
        return select(y < limit, is(GuessPatch::steam_thin), is(GuessPatch::steam));
    };
    const auto less_dense =
        select(along < -1.0, is(GuessPatch::steam),
               select(along > 1.0, is(GuessPatch::steam_thin), thin(at<pair, Border::p_40_bar>(q))));
    const auto parted = [&](const auto& steam, const auto& near) {
        if constexpr (by_s)
            return select(q < at<pair, Border::boundary>(boundary_coordinate(y, q)), near, steam);
        else
            return select(q < vapour_end, select(y < at<pair, Border::boundary>(q), near, steam), steam);
    };
    const auto single = [&] {
        if constexpr (by_s) {
            return parted(select(q < dense_limit, is(GuessPatch::steam_dense), less_dense),
                          select(q < middle_entropy, is(GuessPatch::liquid_like), is(GuessPatch::vapour_like)));
        } else {
            const auto side =
                select(y < at<pair, Border::s_critical>(q), is(GuessPatch::liquid_like), is(GuessPatch::vapour_like));
            const auto dense = select(y < at<pair, Border::s_5_85>(q), is(GuessPatch::steam_dense), less_dense);
            return parted(select(to_unit_interval<border<pair, Border::s_5_85>>(q) < 1.0, dense, less_dense),
                          select(q < critical, side, is(GuessPatch::vapour_like)));
        }
    }();
    const auto one_phase =
        select(q < liquid_end, select(y < at<pair, Border::isotherm>(q), is(GuessPatch::water), single), single);
    return select(y < line, two_phase, one_phase);
}

template <Pair pair>
struct ReferenceCurves {
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

constexpr bool two_phase(GuessPatch c) {
    return c >= GuessPatch::wet_low_s && c <= GuessPatch::wet_near_critical_turning;
}
constexpr bool turning(GuessPatch c) {
    return c == GuessPatch::wet_turning || c == GuessPatch::wet_near_critical_turning;
}
constexpr bool near_critical(GuessPatch c) { return c >= GuessPatch::liquid_like && c <= GuessPatch::supercritical; }

/// How an unknown of a patch is known: it is given, a polynomial is fitted, or there is no guess.
enum class Source : std::uint8_t { given, fitted, none };
template <Pair pair, GuessPatch c, Unknown unknown>
constexpr Source source() {
    constexpr char letter = unknown == Unknown::t ? 't' : near_critical(c) ? 'v' : 'p';
    if (letters<pair>.a == letter || letters<pair>.b == letter) return Source::given;
    return fitted<surface<pair, c, unknown>> ? Source::fitted : Source::none;
}

/// True if guess() has something to give for rows of the patch.
template <Pair pair, GuessPatch c>
constexpr bool guessed() {
    if (turning(c)) return pair == Pair::sx;
    if (c == GuessPatch::supercritical && pair != Pair::pt) return false;
    return source<pair, c, Unknown::t>() != Source::none &&
           (two_phase(c) || source<pair, c, Unknown::primary>() != Source::none);
}

template <Pair pair, GuessPatch c, Unknown unknown, class T>
void guess_one(const T& a, const T& b, T& out) {
    constexpr char letter = unknown == Unknown::t ? 't' : near_critical(c) ? 'v' : 'p';
    constexpr Source from = source<pair, c, unknown>();
    if constexpr (from == Source::fitted) {
        const GuessCoordinates<T> by = guess_coordinates(pair, c, ReferenceCurves<pair>{}, a, b);
        out = value<surface<pair, c, unknown>>(by.a, by.b);
    } else if constexpr (from == Source::given) {
        out = letters<pair>.a == letter ? a : b;
    }
}

template <Pair pair, GuessPatch c, class T>
void guess(const T& a, const T& b, T& primary, T& t) {
    if constexpr (turning(c))
        t = turning_temperature<c == GuessPatch::wet_near_critical_turning>(a, b);
    else
        guess_one<pair, c, Unknown::t>(a, b, t);
    if constexpr (pair == Pair::th && c == GuessPatch::water)
        primary =
            saturation::terms(t).p; // enthalpy falls from there, ever less: Newton takes the primary pressure that fits
    else if constexpr (!two_phase(c))
        guess_one<pair, c, Unknown::primary>(a, b, primary);
}

/// The patch of the row, as a whole number; search for p, t, which its own rule divides, and for px and tx.
template <Pair pair, class T>
T classify(const T& a, const T& b) {
    constexpr auto given = letters<pair>;
    if constexpr (pair == Pair::sx)
        return classify_by_quality(a, b);
    else if constexpr (!fitted<border<pair, Border::liquid>>)
        return number<T>(GuessPatch::search);
    else if constexpr (given.a == 'p' || given.a == 't')
        return classify_on_line<pair>(a, b);
    else
        return classify_by_two<pair>(a, b);
}

/// First guess of a row of patch c (not search).
template <Pair pair, class T>
void guess(GuessPatch c, const T& a, const T& b, T& primary, T& t) {
    switch (c) {
    case GuessPatch::water: return guess<pair, GuessPatch::water>(a, b, primary, t);
    case GuessPatch::steam_thin: return guess<pair, GuessPatch::steam_thin>(a, b, primary, t);
    case GuessPatch::steam: return guess<pair, GuessPatch::steam>(a, b, primary, t);
    case GuessPatch::steam_dense: return guess<pair, GuessPatch::steam_dense>(a, b, primary, t);
    case GuessPatch::liquid_like: return guess<pair, GuessPatch::liquid_like>(a, b, primary, t);
    case GuessPatch::vapour_like: return guess<pair, GuessPatch::vapour_like>(a, b, primary, t);
    case GuessPatch::supercritical: return guess<pair, GuessPatch::supercritical>(a, b, primary, t);
    case GuessPatch::wet_low_s: return guess<pair, GuessPatch::wet_low_s>(a, b, primary, t);
    case GuessPatch::wet: return guess<pair, GuessPatch::wet>(a, b, primary, t);
    case GuessPatch::wet_near_critical: return guess<pair, GuessPatch::wet_near_critical>(a, b, primary, t);
    default: break;
    }
    if constexpr (pair == Pair::sx) {
        if (c == GuessPatch::wet_turning) return guess<pair, GuessPatch::wet_turning>(a, b, primary, t);
        if (c == GuessPatch::wet_near_critical_turning)
            return guess<pair, GuessPatch::wet_near_critical_turning>(a, b, primary, t);
    }
}

} // namespace ktl::engine::guesses
