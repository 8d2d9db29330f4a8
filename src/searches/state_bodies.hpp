// Saturated states: with the volumes of the entry, and with the outermost ones.
#pragma once

#include "searches/state.hpp"
#include "solvers/bracketing.hpp"

#include <algorithm>
#include <type_traits>

namespace ktl {

namespace saturated_states {

/// Tolerance with which the entry ktlftn finds saturated volumes. Given, as are the brackets below.
inline constexpr double entry_tolerance = 1.0e-8;

/// Volume between a and b at the pressure p of isotherm t, by the steps of ktl_i2.
inline double saturated_volume(const region3::Terms<double>& isotherm, double p, double a, double b) {
    auto s = isotherm;
    const auto pressure_at = [&s](double v) {
        region3::volume_terms(s, v);
        return region3::pressure(s);
    };
    return solvers::solve<solvers::SecantOutside>(pressure_at, p, a, b, entry_tolerance).z;
}

inline Saturated<double> entry_at(double t) {
    const double p = saturation::terms(t).p;
    if (!(t > ktl_lc.t3min)) return {t, p, KTL_WET, p, p};
    region3::Terms<double> s;
    region3::temperature_terms(s, t);
    const double vpp = saturated_volume(s, p, std::max(0.08611 - 0.000222 * t, 0.00317), 0.008799105448);
    const double vp = saturated_volume(s, p, std::min(6e-05 * t - 0.01899, 0.00317), 0.00174);
    return {t, p, KTL_WET_NEAR_CRITICAL, vp, vpp};
}

inline Saturated<double> entry_under(double p) {
    const double t = ktl_it(p);
    if (p > ktl_lc.p1) return entry_at(std::max(t, std::nextafter(ktl_lc.t3min, ktl_lc.tc)));
    return {t, p, KTL_WET, p, p};
}

/// The volumes at last_outermost. By ktl_constants the loop of the isotherms has the saturation pressure up to 374.14941 degC.
inline constexpr double v_outermost_liquid = 0.00313970965627;
inline constexpr double v_outermost_steam = 0.00319230881332;

/// Newton steps in density from rho towards the volume at which the isotherm has the pressure p. Pressure over
/// density is convex on the liquid side of the loop and concave on the side of steam: from beyond the outermost root
/// every step ends between start and root, so it is the outermost one that is found.
template <class T>
double outermost_volume(region3::Terms<T>& isotherm, double p, double rho) {
    constexpr int most_steps = 60;
    double before = 0.0;
    for (int step = 0; step < most_steps; ++step) {
        region3::volume_terms(isotherm, T(1.0 / rho));
        const T slope =
            ktl_lc.pca * ktl_lc.vca * isotherm.ex * isotherm.ex * region3::free_energy_volume_curvature(isotherm);
        const double change = plain((p - region3::pressure(isotherm)) / slope);
        // Rounding decides the step at the root: it turns, or is next to nothing.
        if (change * before < 0.0 || !(std::fabs(change) > 1.0e-16 * rho)) break;
        rho += change;
        before = change;
    }
    return 1.0 / rho;
}

/// The fitted densities of saturated water and steam, relative to the critical one, are off by 0.0023 at most.
inline constexpr double beyond = 0.005;

template <class T>
Saturated<T> outermost_at(double t) {
    const double p = saturation_pressure_in<T>(t);
    if (!(t > ktl_lc.t3min)) return {t, p, KTL_WET, p, p, SaturationModel::outermost_roots};
    if (t > last_outermost) {
        const double share = std::sqrt(std::fmax(ktl_lc.tc - t, 0.0) / (ktl_lc.tc - last_outermost));
        const auto between = [share](double v) { return ktl_lc.vca + share * (v - ktl_lc.vca); };
        return {t,
                p,
                KTL_WET_NEAR_CRITICAL,
                between(v_outermost_liquid),
                between(v_outermost_steam),
                SaturationModel::outermost_roots};
    }
    region3::Terms<T> s;
    region3::temperature_terms(s, T(t));
    const double r = std::sqrt(ktl_lc.tc - t);
    const double liquid = outermost_volume(s, p, (saturation_guesses::liquid_density(r) + beyond) / ktl_lc.vca);
    const double steam = outermost_volume(s, p, (saturation_guesses::vapour_density(r) - beyond) / ktl_lc.vca);
    return {t, p, KTL_WET_NEAR_CRITICAL, liquid, steam, SaturationModel::outermost_roots};
}

template <class T>
Saturated<T> outermost_under(double p) {
    const double t = plain(saturation::temperature(T(p)));
    if (p > last_low_pressure<T>(SaturationModel::outermost_roots))
        return outermost_at<T>(std::clamp(t, std::nextafter(ktl_lc.t3min, ktl_lc.tc), ktl_lc.tc));
    return {std::clamp(t, ktl_lc.tmin, ktl_lc.t1max), p, KTL_WET, p, p, SaturationModel::outermost_roots};
}

} // namespace saturated_states

template <class T>
Saturated<T> saturated_at(double t, SaturationModel model) {
    if constexpr (std::is_same_v<T, double>)
        if (model == SaturationModel::entry_compatible) return saturated_states::entry_at(t);
    return saturated_states::outermost_at<T>(t);
}

template <class T>
Saturated<T> saturated_under(double p, SaturationModel model) {
    const bool entry = std::is_same_v<T, double> && model == SaturationModel::entry_compatible;
    // pmin lies below the saturation pressure at tmin by its last digit: a mixture under it has tmin and exactly p.
    if (!(p > saturation_pressure_in<T>(ktl_lc.tmin)) && (entry || !(p >= ktl_lc.pmin)))
        return saturated_at<T>(ktl_lc.tmin, model);
    if (!(p < ktl_lc.pca)) return saturated_at<T>(ktl_lc.tc, model);
    if constexpr (std::is_same_v<T, double>)
        if (entry) return saturated_states::entry_under(p);
    return saturated_states::outermost_under<T>(p);
}

template <class T>
double last_low_pressure(SaturationModel model) {
    return model == SaturationModel::entry_compatible ? ktl_lc.p1 : saturation_pressure_in<T>(ktl_lc.t1max);
}

} // namespace ktl
