// The form of the first guesses: polynomials of one or two given values, each seen through a scale that makes the
// function smooth. The program tools/first_guesses fits them; guesses_data.hpp holds them.
#pragma once

#include "regions/constants.hpp"
#include "regions/number.hpp"

#include <cstddef>
#include <cstdint>
#include <ktl/steam.hpp>
#include <utility>

namespace ktl::engine::guesses {

/// Letters of a pair, in the order of the two values.
template <Pair pair>
inline constexpr auto letters = [] {
    constexpr const char* names[pair_count]{
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) #pair,
#include <ktl/pairs.def>
    };
    struct Letters {
        char a, b;
    };
    constexpr const char* word = names[static_cast<std::size_t>(pair)];
    return Letters{word[0], word[1]};
}();

/// A row's patch: which equations hold for it, and which polynomials start their inversion.
enum class GuessPatch : std::uint8_t {
    water,         ///< sub-region 1
    steam_thin,    ///< sub-region 2 up to thin_limit
    steam,         ///< sub-region 2 between the two others
    steam_dense,   ///< sub-region 2 below the entropy dense_limit
    liquid_like,   ///< sub-region 3 below middle_entropy; p, t: below the critical temperature, above ps(t)
    vapour_like,   ///< sub-region 3 above middle_entropy; p, t: below the critical temperature, below ps(t)
    supercritical, ///< p, t alone: sub-region 3 from the critical temperature up
    wet_low_s,   ///< two phases up to 350 degC, pairs without p and t: below wet_limit, wet_volume_limit, turning_from
    wet,         ///< two phases up to 350 degC
    wet_turning, ///< s, x alone: two phases up to 350 degC from turning_from to turning_to
    wet_near_critical,         ///< two phases above 350 degC
    wet_near_critical_turning, ///< s, x alone: two phases above 350 degC from turning_from to turning_to
    search,                    ///< handled by the exact search
};
inline constexpr std::size_t patch_count = 13;

/// Where steam and the states near the critical point are split into patches: p in bar, s in kJ/(kg K). middle_entropy is
/// that of the critical point, 4.442865; wet_limit that of saturated water at 350 degC; wet_volume_limit lies above the
/// volume of saturated steam there, 0.0088. 40 bar and 5.85 are chosen: either side has polynomials of its own, and
/// docs/guesses.md shows their errors.
inline constexpr double thin_limit = 40.0;
inline constexpr double dense_limit = 5.85;
inline constexpr double middle_entropy = 4.443;
inline constexpr double wet_limit = 3.78;
inline constexpr double wet_volume_limit = 0.01; ///< in place of wet_limit for pairs with v, m3/kg
/// Between these qualities s may turn along the saturation line, 0.3657 to 0.6184: engine/guesses/quality_line_extrema.hpp.
inline constexpr double turning_from = 0.36, turning_to = 0.63;
/// Temperature at which the quality of the turn is greatest (up to 350 degC), and up to which it is fitted, degC.
inline constexpr double widest_turning = 244.0, last_turning = 374.0;
/// Slightly below the lowest temperature of steam at thin_limit, 250.333 degC.
inline constexpr double thin_temperature = 250.3;

/// ReferenceCurves between patches: a curve of the pair's second value over its first, for h, s; u, s and volume pairs see
/// guesses.hpp.
enum class Border : std::uint8_t {
    liquid,        ///< saturated water up to 350 degC
    vapour,        ///< saturated steam up to 350 degC
    near_liquid,   ///< saturated water above 350 degC
    near_vapour,   ///< saturated steam above 350 degC
    isotherm,      ///< water at 350 degC
    boundary,      ///< the 2/3 boundary
    s_critical,    ///< sub-region 3 at middle_entropy
    p_40_bar,      ///< steam at thin_limit
    s_5_85,        ///< steam at dense_limit
    tie_line_350C, ///< mixtures at 350 degC
};

/// In h, s and u, s the 2/3 boundary is a curve of s over this combination, which rises along it from 350 to 590 degC
/// (measured by ktl_constants; the 600 was chosen for that).
template <class T>
constexpr T boundary_coordinate(const T& energy, const T& s) {
    return energy - 600.0 * s;
}

/// The second variable of a region is always t; the first is p up to 350 degC and in steam, v in sub-region 3.
enum class Unknown : std::uint8_t { primary, t };

/// How a polynomial sees a value.
enum class Scale : std::uint8_t {
    linear,
    log,
    root,
    fourth_root,
    reciprocal,
    below_critical_p,   ///< sqrt(1 - p/pca), zero above
    below_critical_t,   ///< sqrt(1 - theta), zero above
    above_least_volume, ///< sqrt(v - least_volume), zero below
};

/// Slightly below the volume of saturated water at 4 degC, 0.00100003 m3/kg.
inline constexpr double least_volume = 0.00099999;

template <Scale scale, class T>
constexpr T transform(const T& x) {
    if constexpr (scale == Scale::linear) return x;
    if constexpr (scale == Scale::log) return log(x);
    if constexpr (scale == Scale::root) return sqrt(x);
    if constexpr (scale == Scale::fourth_root) return sqrt(sqrt(x));
    if constexpr (scale == Scale::reciprocal) return 1.0 / x;
    if constexpr (scale == Scale::below_critical_p) {
        const T below = 1.0 - x * (1.0 / ktl_lc.pca);
        return sqrt(select(below < 0.0, T(0.0), below));
    }
    if constexpr (scale == Scale::below_critical_t) {
        const T below = 1.0 - (x + ktl_lc.tza) * (1.0 / ktl_lc.tca);
        return sqrt(select(below < 0.0, T(0.0), below));
    }
    if constexpr (scale == Scale::above_least_volume) {
        const T above = x - least_volume;
        return sqrt(select(above < 0.0, T(0.0), above));
    }
}

/// The value whose transform form is x; the scales of results are linear, log, root, reciprocal and below_critical_t.
template <Scale scale, class T>
constexpr T inverse_transform(const T& x) {
    if constexpr (scale == Scale::linear) return x;
    if constexpr (scale == Scale::log) return exp(x);
    if constexpr (scale == Scale::root) return x * x;
    if constexpr (scale == Scale::reciprocal) return 1.0 / x;
    if constexpr (scale == Scale::below_critical_t) return ktl_lc.tca * (1.0 - x * x) - ktl_lc.tza;
}

/// Carries an interval to -1..1.
struct Interval {
    double center = 0.0, inverse_half_width = 1.0;
    template <class T>
    constexpr T operator()(const T& x) const {
        return (x - center) * inverse_half_width;
    }
    [[nodiscard]] constexpr double low() const { return center - 1.0 / inverse_half_width; }
    [[nodiscard]] constexpr double high() const { return center + 1.0 / inverse_half_width; }
};

/// y(x), a polynomial of n coefficients.
template <std::size_t n>
struct Curve {
    Scale x, y;
    Interval span;
    double c[n];
};

template <const auto& curve, class T>
constexpr T polynomial(const T& u) {
    constexpr std::size_t n = std::size(curve.c);
    T sum(curve.c[n - 1]);
    for (std::size_t i = n - 1; i-- > 0;) sum = curve.c[i] + u * sum;
    return inverse_transform<curve.y>(sum);
}

/// x as a position in the interval of the fit, -1 to 1.
template <const auto& curve, class T>
constexpr T to_unit_interval(const T& x) {
    return curve.span(transform<curve.x>(x));
}

template <const auto& curve, class T>
constexpr T value(const T& x) {
    return polynomial<curve>(to_unit_interval<curve>(x));
}

/// The value at a position.
template <const auto& curve, class T>
constexpr T from_unit_interval(const T& u) {
    return inverse_transform<curve.x>(curve.span.center + u * (1.0 / curve.span.inverse_half_width));
}

/// y(x), over linear and logarithmic scales held at its end values outside the interval of the fit.
template <const auto& curve, class T>
constexpr T clamped_value(const T& x) {
    const T u = to_unit_interval<curve>(x);
    if constexpr (curve.x >= Scale::below_critical_p)
        return polynomial<curve>(u);
    else
        return polynomial<curve>(select(u < -1.0, T(-1.0), select(u < 1.0, u, T(1.0))));
}

/// z(a, b), the sum of c[i][j] a^i b^j, i < na, j < nb, i + j <= total.
template <std::size_t na, std::size_t nb, std::size_t total>
struct Surface {
    Scale a, b, z;
    Interval a_span, b_span;
    double c[na][nb];

    [[nodiscard]] static constexpr std::size_t rows() { return na; }
    [[nodiscard]] static constexpr std::size_t columns(std::size_t i) {
        return nb + i <= total + 1 ? nb : total + 1 - i;
    }
};

template <const auto& surface, std::size_t i, class T>
constexpr T row(const T& b) {
    constexpr std::size_t n = surface.columns(i);
    T sum(surface.c[i][n - 1]);
    for (std::size_t j = n - 1; j-- > 0;) sum = surface.c[i][j] + b * sum;
    return sum;
}

template <const auto& surface, class T>
constexpr T value(const T& a, const T& b) {
    const T x = surface.a_span(transform<surface.a>(a));
    const T y = surface.b_span(transform<surface.b>(b));
    constexpr std::size_t n = surface.rows();
    T sum = row<surface, n - 1>(y);
    const auto horner_rows = [&]<std::size_t... k>(std::index_sequence<k...>) {
        ((sum = row<surface, n - 2 - k>(y) + x * sum), ...);
    };
    horner_rows(std::make_index_sequence<n - 1>());
    return inverse_transform<surface.z>(sum);
}

// ---- What the polynomials of a patch see of the two given values ----------------------------------------------------

/// Least depth below the line of saturated water at which the guess of a mixture begins, kJ/kg.
inline constexpr double least_depth = 1.0e-6;

/// Goes on beyond the end of the line of saturated water at 350 degC, kJ/kg: from its enthalpy there, 1671.9, with the slope
/// of lines of constant t there, 623.15 K, rounded up; the curvature was found by trial. All mixtures lie below it.
template <class T>
constexpr T beyond_liquid(const T& s) {
    const T z = s - 3.78;
    return 1672.0 + z * (624.0 + 68.0 * z);
}

template <class T>
constexpr T above(const T& x, double least) {
    return select(x > least, x, T(least));
}

/// For x > 0; slightly above zero elsewhere.
template <class T>
constexpr T cube_root(const T& x) {
    const T positive = select(x > 1.0e-30, x, T(1.0e-30));
    return exp(log(positive) * (1.0 / 3.0));
}

/// Reduced density less one of a fluid whose isotherms t above the critical temperature tc are third-degree parabolas,
/// excess = 2.6 (t - tc) y + 40 y^3 (bar), at the excess over the pressure at the critical density. Least squares over 20 K
/// from tc up and 20 % of the density to either side give 2.604 and 39.9 (ktl_constants).
template <class T>
constexpr T model_density(const T& excess, const T& t) {
    constexpr double cubic = 40.0, linear = 2.6;
    const T m = (t - ktl_lc.tc) * (linear / cubic / 3.0);
    const T q = select(excess < 0.0, -excess, excess) * (0.5 / cubic);
    const T root = cube_root(q + sqrt(q * q + m * m * m));
    const T y = root - m / root;
    return select(excess < 0.0, -y, y);
}

template <class T>
struct GuessCoordinates {
    T a, b;
};

/// lines: liquid(s), saturated water of the pair; saturation(t), the pressure of the line from 350 degC up;
/// isochore(t), the pressure at the critical volume; least_volume(p) and least_energy(s) of water.
///
/// - h, s and u, s: in a mixture the lines of constant t are nearly tangents of the line of saturated water, so that t
///   is smooth in the root of the depth below it.
/// - u, s in water: at constant s, u rises with the square of p. p, v in water: under p, v rises with the square of the
///   distance from the temperature of greatest density. So p and t are smooth in roots.
/// - u, s in dense states near the critical point: they fill a narrow strip along u = 600 s.
/// - s, x: the distance of s from its critical value goes with the root of that of t, and changes sign with x, at
///   x = 1/2.16 from 350 to 366 degC to within 0.005.
/// - p, t near the critical point: v is smooth in the cube root of the distance from the saturation pressure, and in
///   the density of the model.
template <class ReferenceCurves, class T>
constexpr GuessCoordinates<T> guess_coordinates(Pair pair, GuessPatch c, const ReferenceCurves& lines, const T& a,
                                                const T& b) {
    if ((pair == Pair::hs || pair == Pair::us) && (c == GuessPatch::wet || c == GuessPatch::wet_low_s)) {
        return {above((c == GuessPatch::wet ? beyond_liquid(b) : lines.liquid(b)) - a, least_depth), b};
    }
    if (pair == Pair::us && c == GuessPatch::water) return {above(a - lines.least_energy(b), least_depth), b};
    if (pair == Pair::pv && c == GuessPatch::water) return {a, above(b - lines.least_volume(a), 1.0e-9)};
    if (pair == Pair::sx) return {(a - middle_entropy) / (1.0 - 2.16 * b), b};
    if (pair == Pair::us && c == GuessPatch::liquid_like) return {boundary_coordinate(a, b), b};
    if (pair == Pair::pt && c == GuessPatch::liquid_like) return {cube_root(a - lines.saturation(b)), b};
    if (pair == Pair::pt && c == GuessPatch::vapour_like) return {cube_root(lines.saturation(b) - a), b};
    if (pair == Pair::pt && c == GuessPatch::supercritical) return {model_density(a - lines.isochore(b), b), b};
    return {a, b};
}

} // namespace ktl::engine::guesses
