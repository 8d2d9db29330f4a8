// Searches along a line of constant temperature.
#pragma once

#include "searches/acceptance.hpp"
#include "searches/branches.hpp"

#include <algorithm>

namespace ktl {

namespace isotherms {

/// How far sub-region 2 goes on past the 2/3 boundary to cover a gap, as a factor of pressure.
inline constexpr double reach = 1.01;
/// How far, as a factor of volume, searches in sub-region 3 begin outside it.
inline constexpr double outside = 1.02;
/// A volume of sub-region 3 greater than any at pmax.
inline constexpr double loose_at_pmax = 0.0035;

/// One search: the temperature, the property and its value. Trials are made in a variable z of the sub-region: the
/// pressure in sub-region 1, the volume in sub-region 3.
template <class T>
struct Isotherm {
    Quantity y;
    double t;
    double value;
    SaturationModel model;
    region3::Terms<T> terms3{}; // of temperature, once prepared

    [[nodiscard]] double residual(int region, double z) const { return property_in<T>(y, region, z, t) - value; }
    [[nodiscard]] double tolerance(int region) const { return search_tolerance(y, region, value, model); }

    [[nodiscard]] double residual3(double v) const {
        auto s = terms3;
        region3::volume_terms(s, T(v));
        return plain(helmholtz_property(y, s, T(v), T(t))) - value;
    }
    [[nodiscard]] double pressure3(double v) const {
        auto s = terms3;
        region3::volume_terms(s, T(v));
        return plain(region3::pressure(s));
    }

    /// Derivative of the property by z.
    [[nodiscard]] double slope(int region, double z) const {
        const T primary(z);
        return plain(region == KTL_WATER ? slopes(y, properties_at<SubRegion::water>(primary, T(t))).d_primary
                                         : slopes(y, properties_at<SubRegion::near_critical>(primary, T(t))).d_primary);
    }
};

/// Steam of sub-region 2 between two pressures. Volume is searched by density and entropy over the logarithm of
/// the pressure: so they are almost straight from the lowest pressure to the highest.
template <class T>
FoundState<T> steam(const Isotherm<T>& line, double a, double b) {
    const double tolerance = search_tolerance(line.value);
    double p = 0.0;
    if (line.y == Quantity::volume) {
        const double density = 1.0 / line.value;
        const auto f = [&](double z) { return plain(1.0 / volume(region2::terms(T(z), T(line.t)))) - density; };
        p = solvers::enclose(f, a, b, search_tolerance(density)).x;
    } else if (line.y == Quantity::entropy) {
        const auto f = [&](double z) { return line.residual(KTL_STEAM, plain(exp(T(z)))); };
        p = plain(exp(T(solvers::enclose(f, plain(log(T(a))), plain(log(T(b))), tolerance).x)));
    } else {
        const auto f = [&](double z) { return line.residual(KTL_STEAM, z); };
        p = solvers::enclose(f, a, b, tolerance).x;
    }
    return {KTL_STEAM, p, line.t, {}};
}

/// Where the property turns between a and b; b where it does not.
template <class T>
double turning_point(const Isotherm<T>& line, int region, double a, double b) {
    const auto slope = [&](double z) { return line.slope(region, z); };
    const double slope_a = slope(a);
    const double slope_b = slope(b);
    return slope_a * slope_b < 0.0 ? solvers::enclose(slope, a, slope_a, b, slope_b, 0.0).x : b;
}

/// First z from a, the end of lower pressure, towards b at which the residual vanishes. The property turns at most
/// once between them: if both ends lie on one side of zero, the search ends at the turning point. If that lies on the
/// same side too, a, the turning point or b may still have the value but for rounding.
template <class T, class Residual>
FoundState<T> first_from(const Isotherm<T>& line, int region, double a, double fa, double b, Residual&& f) {
    const double fb = f(b);
    const auto search_up_to = [&](double end, double f_end) {
        return FoundState<T>{region, solvers::enclose(f, a, fa, end, f_end, line.tolerance(region)).x, line.t, {}};
    };
    // At the far end the value may be that of a state before the turning point, too.
    const bool met_there = line.model == SaturationModel::outermost_roots && std::fabs(fb) <= line.tolerance(region);
    if (!(fa * fb > 0.0 || met_there)) return search_up_to(b, fb);
    const double turn = turning_point(line, region, a, b);
    const FoundState<T> nearest = search_up_to(turn, turn == b ? fb : f(turn));
    const double miss = std::fabs(f(nearest.primary));
    const bool far_end = miss > searches::allowance(line.y, line.value, region, line.model) && std::fabs(fb) < miss;
    return far_end ? FoundState<T>{region, b, line.t, {}} : nearest;
}

template <class T>
FoundState<T> water(const Isotherm<T>& line, double ps, double f_liquid) {
    return first_from(line, KTL_WATER, ps, f_liquid, ktl_lc.pmax,
                      [&](double p) { return line.residual(KTL_WATER, p); });
}

/// Up to 350 degC: steam, mixture, water.
template <class T>
FoundState<T> low(const Isotherm<T>& line) {
    const auto phases = saturated_at<T>(line.t, line.model);
    const double ps = phases.p;
    const double f_vapour = line.residual(KTL_STEAM, ps);
    if (f_vapour <= 0.0) return steam(line, std::min(ktl_lc.pmin, ps), ps);
    const double f_liquid = line.residual(KTL_WATER, ps);
    if (f_liquid >= 0.0) return water(line, ps, f_liquid);
    const FoundState<T> wet = mixture(phases, f_liquid / (f_liquid - f_vapour));
    if (wet.primary > least_quality || line.y == Quantity::volume) return wet;
    const FoundState<T> compressed = water(line, ps, f_liquid);
    return std::fabs(line.residual(KTL_WATER, compressed.primary)) <= line.tolerance(KTL_WATER) ? compressed : wet;
}

/// Volume at pmax, the densest state of the isotherm.
template <class T>
double least_volume(const Isotherm<T>& line) {
    const auto f = [&](double v) { return line.pressure3(v) - ktl_lc.pmax; };
    return solvers::enclose(f, ktl_lc.v3min / outside, loose_at_pmax, search_tolerance(ktl_lc.pmax)).x;
}

/// Sub-region 3 from volume a to the smaller volume b.
template <class T>
FoundState<T> near_critical(const Isotherm<T>& line, double a, double b, int region) {
    if (line.y == Quantity::volume) return {region, std::max(line.value, b), line.t, {}};
    const auto f = [&](double v) { return line.residual3(v); };
    return first_from(line, region, a, f(a), b, f);
}

/// Sub-region 3 and its mixtures, from the volume at the 2/3 boundary on.
template <class T>
FoundState<T> middle(const Isotherm<T>& line, double greatest) {
    if (line.t > ktl_lc.tc) return near_critical(line, greatest, least_volume(line), KTL_NEAR_CRITICAL_STEAM);
    const auto phases = saturated_at<T>(line.t, line.model);
    const double f_vapour = phases.of_vapour(line.y) - line.value;
    if (f_vapour <= 0.0)
        return near_critical(line, greatest, phases.vapour / past_saturation(line.model), KTL_NEAR_CRITICAL_STEAM);
    const double f_liquid = phases.of_liquid(line.y) - line.value;
    if (f_liquid >= 0.0)
        return near_critical(line, phases.liquid * past_saturation(line.model), least_volume(line),
                             KTL_NEAR_CRITICAL_WATER);
    const FoundState<T> wet = mixture(phases, f_liquid / (f_liquid - f_vapour));
    if (wet.primary > least_quality || line.y == Quantity::volume) return wet;
    const FoundState<T> compressed = near_critical(line, phases.liquid, least_volume(line), KTL_NEAR_CRITICAL_WATER);
    return std::fabs(line.residual3(compressed.primary)) <= search_tolerance(line.value) ? compressed : wet;
}

/// A volume of sub-region 3 greater than any at pressures above the 2/3 boundary.
template <class T>
double greatest_volume(double pl, double t) {
    return outside * plain(volume(region2::terms(T(pl), T(t))));
}

/// Where the 2/3 boundary comes near pmax, sub-region 3 or the steam that covers a gap may end at pmax before either has
/// the values of the boundary. A value that rounding puts past the boundary is that of the boundary, on one side or the other.
template <class T>
FoundState<T> before_end_of_boundary(const Isotherm<T>& line, double pl, const FoundState<T>& found) {
    const auto miss = [&](const FoundState<T>& state) { return std::fabs(state.value(line.y) - line.value); };
    if (miss(found) <= searches::allowance(line.y, line.value, found.region, line.model)) return found;
    return std::min({found, {KTL_STEAM, pl, line.t, {}}, near_critical_at<T>(pl, line.t, line.model)},
                    [&](const FoundState<T>& a, const FoundState<T>& b) { return miss(a) < miss(b); });
}

/// Above 350 degC: sub-region 2 up to the 2/3 boundary, sub-region 3 beyond it.
template <class T>
FoundState<T> high(Isotherm<T>& line) {
    const double pl = boundary_pressure(line.t);
    if (!(pl < ktl_lc.pmax)) return steam(line, ktl_lc.pmin, ktl_lc.pmax);
    const double f_vapour = line.residual(KTL_STEAM, pl);
    if (f_vapour <= 0.0) return steam(line, ktl_lc.pmin, pl);
    region3::temperature_terms(line.terms3, T(line.t));
    const FoundState<T> found = middle(line, greatest_volume<T>(pl, line.t));
    if (found.region != KTL_NEAR_CRITICAL_STEAM) return found;
    const bool gap = line.pressure3(found.primary) < pl;
    if (pl * reach < ktl_lc.pmax) return gap ? steam(line, pl, pl * reach) : found;
    return before_end_of_boundary(line, pl, gap ? steam(line, pl, ktl_lc.pmax) : found);
}

} // namespace isotherms

template <class T>
BothSides<T> water_on_isotherm(Quantity y, double t, double value, SaturationModel model, bool wet) {
    using namespace isotherms;
    const Isotherm<T> line{y, t, value, model, {}};
    const double ps = saturation_pressure_in<T>(t);
    const Branches branches{ps, turning_point(line, KTL_WATER, ps, ktl_lc.pmax), ktl_lc.pmax};
    return both_sides<T>(
        branches, [&](double p) { return line.residual(KTL_WATER, p); },
        [&](double p) {
            return FoundState<T>{KTL_WATER, p, t, {}};
        },
        line.tolerance(KTL_WATER), searches::allowance(y, value, KTL_WATER, model), wet);
}

template <class T>
FoundState<T> single_phase_at(double p, double t, SaturationModel model) {
    if (!(t > ktl_lc.t3min)) return {p > saturation_pressure_in<T>(t) ? KTL_WATER : KTL_STEAM, p, t, {}};
    if (!(p > boundary_pressure(t))) return {KTL_STEAM, p, t, {}};
    return near_critical_at<T>(p, t, model);
}

template <class T>
FoundState<T> near_critical_at(double p, double t, SaturationModel model) {
    using namespace isotherms;
    Isotherm<T> line{Quantity::pressure, t, p, model, {}};
    region3::temperature_terms(line.terms3, T(t));
    double a = greatest_volume<T>(boundary_pressure(t), t);
    double b = ktl_lc.v3min / outside;
    if (t > ktl_lc.tc) return near_critical(line, a, b, KTL_NEAR_CRITICAL_STEAM);
    const auto phases = saturated_at<T>(t, model);
    const bool water = p > phases.p;
    (water ? a : b) = water ? phases.liquid * past_saturation(model) : phases.vapour / past_saturation(model);
    return near_critical(line, a, b, water ? KTL_NEAR_CRITICAL_WATER : KTL_NEAR_CRITICAL_STEAM);
}

template <class T>
FoundState<T> on_isotherm(Quantity y, double t, double value, SaturationModel model) {
    using namespace isotherms;
    Isotherm<T> line{y, t, value, model};
    return t > ktl_lc.t3min ? high(line) : low(line);
}

} // namespace ktl
