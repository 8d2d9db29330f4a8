// Searches along a line of constant pressure.
#pragma once

#include "searches/acceptance.hpp"
#include "searches/branches.hpp"

#include <algorithm>

namespace ktl {

namespace isobars {

/// How far, K, sub-regions 1 and 2 go on past their limit to cover a gap.
inline constexpr double reach = 0.5;
/// How far, as a factor of volume, searches in sub-region 3 begin outside it: more than the sub-regions differ.
inline constexpr double outside = 1.001;
/// Temperature, K, by which saturated steam may seem to lie past the 2/3 boundary where both meet, at 350 degC: its
/// volume has the tolerance of the entry, 1e-8 of the pressure.
inline constexpr double volume_slack = 1.0e-5;
/// Above this temperature water expands with temperature at every pressure.
inline constexpr double expanding = 10.0;

/// One search: the pressure, the property and its value.
template <class T>
struct Isobar {
    Quantity y;
    double p;
    double value;
    SaturationModel model;

    [[nodiscard]] double residual(int region, double primary, double t) const {
        return property_in<T>(y, region, primary, t) - value;
    }
    [[nodiscard]] double tolerance(int region) const { return search_tolerance(y, region, value, model); }

    /// Temperature in sub-region 1 or 2 between a and b, whose residual is fb.
    [[nodiscard]] FoundState<T> between(int region, double a, double b, double fb) const {
        const auto f = [&](double t) { return residual(region, p, t); };
        return {region, p, solvers::enclose(f, a, f(a), b, fb, tolerance(region)).x, {}};
    }

    /// Steam of sub-region 2 from the temperature a on, where the residual is fa.
    [[nodiscard]] FoundState<T> steam_from(double a, double fa) const {
        const auto f = [&](double t) { return residual(KTL_STEAM, p, t); };
        const double fb = f(ktl_lc.tmax);
        return {KTL_STEAM, p, solvers::enclose(f, a, fa, ktl_lc.tmax, fb, search_tolerance(value)).x, {}};
    }
};

/// Temperature of sub-region 3 at p and v. Isochores are almost straight, at the critical point too; but a little
/// below 350 degC the terms of the thirty-second power take over, so the search stops there.
template <class T>
double isochore_temperature(double p, double v) {
    const auto f = [&](double t) { return plain(region3::pressure(region3::terms(T(v), T(t)))) - p; };
    return solvers::enclose(f, ktl_lc.t3min - reach, ktl_lc.t3max + 5.0, search_tolerance(p)).x;
}

/// Temperature at which water has its least volume under p; tmin where it expands from there on.
template <class T>
double densest_temperature(double p) {
    const auto expansion = [&](double t) { return plain(volume_by_temperature(region1::terms(T(p), T(t)))); };
    const double at_start = expansion(ktl_lc.tmin);
    if (at_start >= 0.0) return ktl_lc.tmin;
    return solvers::enclose(expansion, ktl_lc.tmin, at_start, expanding, expansion(expanding), 0.0).x;
}

/// Water up to the temperature b, where the residual is fb, by its volume: the warmer state if there are two.
template <class T>
FoundState<T> water_by_volume(const Isobar<T>& line, double b, double fb, double lowest) {
    const bool may_turn = b < expanding || line.residual(KTL_WATER, line.p, expanding) > 0.0;
    if (!may_turn) return line.between(KTL_WATER, expanding, b, fb);
    const double turn = std::min(densest_temperature<T>(line.p), b);
    if (fb >= 0.0 && turn < b) return line.between(KTL_WATER, std::max(turn, lowest), b, fb);
    return line.between(KTL_WATER, lowest, turn, line.residual(KTL_WATER, line.p, turn));
}

template <class T>
FoundState<T> water(const Isobar<T>& line, double b, double fb, double lowest) {
    if (line.y == Quantity::volume) return water_by_volume(line, b, fb, lowest);
    return line.between(KTL_WATER, lowest, b, fb);
}

/// A mixture, or the cold water that has the volume of one with practically no steam.
template <class T>
FoundState<T> wet_state(const Isobar<T>& line, const Saturated<T>& phases, double f_liquid, double f_vapour) {
    const FoundState<T> wet = mixture(phases, f_liquid / (f_liquid - f_vapour));
    if (line.y != Quantity::volume || wet.primary > least_quality || phases.t > expanding) return wet;
    const bool saturated = line.model == SaturationModel::outermost_roots && -f_liquid <= line.tolerance(KTL_WATER);
    if (saturated) return {KTL_WATER, line.p, phases.t, {}};
    const FoundState<T> cold = water_by_volume(line, phases.t, f_liquid, ktl_lc.tmin);
    return std::fabs(line.residual(KTL_WATER, cold.primary, cold.t)) <= line.tolerance(KTL_WATER) ? cold : wet;
}

/// Up to p1: water of sub-region 1, mixture, steam of sub-region 2.
template <class T>
FoundState<T> low(const Isobar<T>& line, double lowest) {
    const auto phases = saturated_under<T>(line.p, line.model);
    const double f_liquid = line.residual(KTL_WATER, line.p, phases.t);
    if (f_liquid >= 0.0) return water(line, phases.t, f_liquid, lowest);
    const double f_vapour = line.residual(KTL_STEAM, line.p, phases.t);
    if (f_vapour > 0.0) return wet_state(line, phases, f_liquid, f_vapour);
    return line.steam_from(phases.t, f_vapour);
}

/// Sub-region 3 between two volumes. The volume is searched and each trial has its temperature from the
/// pressure: that stays well conditioned where the isotherms are flat.
template <class T>
FoundState<T> near_critical(const Isobar<T>& line, double a, double b, int region) {
    double v = line.value;
    if (line.y != Quantity::volume) {
        const auto f = [&](double trial) {
            return line.residual(region, trial, isochore_temperature<T>(line.p, trial));
        };
        v = solvers::enclose(f, a, b, search_tolerance(line.value)).x;
    }
    const double t = isochore_temperature<T>(line.p, v);
    if (line.p > ktl_lc.pca) region = t <= ktl_lc.tc ? KTL_NEAR_CRITICAL_WATER : KTL_NEAR_CRITICAL_STEAM;
    return {region, v, t, {}};
}

/// Sub-region 3 between the volumes of the limits to sub-regions 1 and 2.
template <class T>
FoundState<T> middle(const Isobar<T>& line, double least, double greatest) {
    if (line.p > ktl_lc.pca) return near_critical(line, least, greatest, KTL_NEAR_CRITICAL_STEAM);
    const auto phases = saturated_under<T>(line.p, line.model);
    const double f_liquid = phases.of_liquid(line.y) - line.value;
    if (f_liquid >= 0.0)
        return near_critical(line, least, phases.liquid * past_saturation(line.model), KTL_NEAR_CRITICAL_WATER);
    const double f_vapour = phases.of_vapour(line.y) - line.value;
    if (f_vapour > 0.0) return mixture(phases, f_liquid / (f_liquid - f_vapour));
    return near_critical(line, phases.vapour / past_saturation(line.model), greatest, KTL_NEAR_CRITICAL_STEAM);
}

/// Above p1: sub-regions 1, 3 and 2.
template <class T>
FoundState<T> high(const Isobar<T>& line, double lowest) {
    const double f1 = line.residual(KTL_WATER, line.p, ktl_lc.t1max);
    if (f1 >= 0.0) return water(line, ktl_lc.t1max, f1, lowest);
    const double tl = std::min(boundary_temperature(line.p), ktl_lc.t3max);
    const double f2 = line.residual(KTL_STEAM, line.p, tl);
    if (f2 <= 0.0) return line.steam_from(tl, f2);
    const double v1 = plain(volume(region1::terms(T(line.p), T(ktl_lc.t1max))));
    const double v2 = plain(volume(region2::terms(T(line.p), T(tl))));
    FoundState<T> found = middle(line, v1 / outside, v2 * outside);
    if (found.wet()) return found;
    // Only rounding puts saturated steam at 350 degC below it. The ktl:: calls take all of sub-region 3 by that rounding.
    const bool rounded =
        line.model == SaturationModel::outermost_roots && found.t >= ktl_lc.t3min - searches::searched.range;
    if (found.region == KTL_NEAR_CRITICAL_STEAM || rounded) found.t = std::max(found.t, ktl_lc.t3min);
    if (found.t < ktl_lc.t3min) {
        const double past = ktl_lc.t1max + reach;
        return line.between(KTL_WATER, ktl_lc.t1max, past, line.residual(KTL_WATER, line.p, past));
    }
    if (found.t > tl + volume_slack) return line.between(KTL_STEAM, tl - reach, tl, f2);
    return found;
}

} // namespace isobars

template <class T>
BothSides<T> water_on_isobar(double p, double v, SaturationModel model, bool wet) {
    using namespace isobars;
    const Isobar<T> line{Quantity::volume, p, v, model};
    const double b = p > last_low_pressure<T>(model) ? ktl_lc.t1max : saturated_under<T>(p, model).t;
    const Branches branches{b, std::min(densest_temperature<T>(p), b), ktl_lc.tmin};
    return both_sides<T>(
        branches, [&](double t) { return line.residual(KTL_WATER, p, t); },
        [&](double t) {
            return FoundState<T>{KTL_WATER, p, t, {}};
        },
        line.tolerance(KTL_WATER), searches::allowance(Quantity::volume, v, KTL_WATER, model), wet);
}

template <class T>
FoundState<T> on_isobar(Quantity y, double p, double value, SaturationModel model, double lowest) {
    using namespace isobars;
    const Isobar<T> line{y, p, value, model};
    return p > last_low_pressure<T>(model) ? high(line, lowest) : low(line, lowest);
}

} // namespace ktl
