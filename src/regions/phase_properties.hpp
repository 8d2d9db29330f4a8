// The properties of a homogeneous phase, and those of two saturated phases and their mixture. One evaluation in closed
// form gives the first and second derivatives of a sub-region's function; every property of the phase and every slope
// that an inversion needs follow from these. The compiler drops what a caller does not use.
#pragma once

#include "regions/region1.hpp"
#include "regions/region2.hpp"
#include "regions/region3.hpp"

namespace ktl {

/// The homogeneous sub-regions. Primary variable beside t: p in water and steam, v in the near-critical sub-region 3.
enum class SubRegion { water, steam, near_critical };

/// A homogeneous phase at p (bar), t (degC). dvdt, dvdp: (dv/dt) at constant p, (dv/dp) at constant t.
template <class T>
struct PhaseProperties {
    T p, t, v, h, s, cp, cv;
    T speed_of_sound_squared; // m2/s2
    T dvdt, dvdp;
};

/// From the Gibbs function of sub-region 1 or 2; Terms are those of the sub-region at p, t. With the Maxwell relation
/// (ds/dp)_t = -(dv/dt)_p: cv = cp + T (dv/dt)_p^2 / (dv/dp)_t, and w^2 = -v^2 (dp/dv)_s, where
/// (dv/dp)_s = (dv/dp)_t + T (dv/dt)_p^2 / cp.
template <class T, class Terms>
PhaseProperties<T> from_gibbs(const Terms& terms, const T& p, const T& t) {
    PhaseProperties<T> y;
    y.p = p;
    y.t = t;
    y.v = volume(terms);
    y.h = enthalpy(terms);
    y.s = entropy(terms);
    y.cp = heat_capacity(terms);
    y.dvdt = volume_by_temperature(terms);
    y.dvdp = volume_by_pressure(terms);
    const T t_dvdt2 = (t + ktl_lc.tza) * y.dvdt * y.dvdt;
    y.cv = y.cp + kj_per_bar_m3 * t_dvdt2 / y.dvdp;
    y.speed_of_sound_squared = -pascals_per_bar * y.v * y.v * y.cp / (y.cp * y.dvdp + kj_per_bar_m3 * t_dvdt2);
    return y;
}

/// Sub-region 3 in its own variables v (m3/kg), t. dpdv, dpdt: (dp/dv) at constant t, (dp/dt) at constant v.
template <class T>
struct HelmholtzProperties {
    T v, t, p, h, s, cv, dpdv, dpdt;
};

/// From the Helmholtz function.
template <class T>
HelmholtzProperties<T> helmholtz_properties(const T& v, const T& t) {
    const auto terms = region3::terms(v, t);
    const auto groups = region3::volume_groups(terms);
    const T slope = region3::free_energy_slope(terms, groups);
    const T reduced = region3::reduced_pressure(terms);
    HelmholtzProperties<T> y;
    y.v = v;
    y.t = t;
    y.p = ktl_lc.pca * reduced;
    y.h =
        ktl_lc.pvo10 * (region3::free_energy(terms, groups) - terms.theta * slope + terms.ex * reduced + ktl_lc.alpha0);
    y.s = ktl_lc.pvot * (-slope - ktl_lc.alpha1);
    y.cv = ktl_lc.pvot * (-terms.theta * region3::free_energy_curvature(terms));
    y.dpdv = -ktl_lc.pca / ktl_lc.vca * region3::free_energy_volume_curvature(terms);
    y.dpdt = -ktl_lc.pca / ktl_lc.tca * region3::free_energy_mixed(terms);
    return y;
}

/// Reduced slope -dp/dv at and below which an isotherm counts as level. The formulation makes it zero at the critical point;
/// the printed digits of its coefficients leave 1.0e-9 there, and down to -2.2e-8 in homogeneous states at volumes up to
/// 0.065 % above the critical one, from 8.5e-6 K below to 9.3e-7 K above its temperature. Rounding adds 2e-13 near it.
/// Tested by NearCritical in tests/engine/physics_test.cpp.
inline constexpr double level_slope = 2.0e-9;

/// cp = cv - T (dp/dt)_v^2 / (dp/dv)_t and w^2 = v^2 (T (dp/dt)_v^2 / cv - (dp/dv)_t). On a level isotherm cp, dvdt and dvdp
/// are infinite.
template <class T>
PhaseProperties<T> from_helmholtz(const HelmholtzProperties<T>& s) {
    constexpr double level = -level_slope * ktl_lc.pca / ktl_lc.vca;
    const T dvdp = select(s.dpdv < level, 1.0 / s.dpdv, T(-infinity));
    const T t_dpdt2 = kj_per_bar_m3 * (s.t + ktl_lc.tza) * s.dpdt * s.dpdt;
    PhaseProperties<T> y;
    y.p = s.p;
    y.t = s.t;
    y.v = s.v;
    y.h = s.h;
    y.s = s.s;
    y.cp = s.cv - t_dpdt2 * dvdp;
    y.cv = s.cv;
    y.speed_of_sound_squared = pascals_per_bar * s.v * s.v * (t_dpdt2 / s.cv - s.dpdv);
    y.dvdt = -s.dpdt * dvdp;
    y.dvdp = dvdp;
    return y;
}

/// A phase in the variables of its sub-region: PhaseProperties of p, t or HelmholtzProperties of v, t.
template <SubRegion sub_region, class T>
auto properties_at(const T& primary, const T& t) {
    if constexpr (sub_region == SubRegion::water)
        return from_gibbs(region1::terms(primary, t), primary, t);
    else if constexpr (sub_region == SubRegion::steam)
        return from_gibbs(region2::terms(primary, t), primary, t);
    else
        return helmholtz_properties(primary, t);
}

template <SubRegion sub_region, class T>
PhaseProperties<T> phase_at(const T& primary, const T& t) {
    if constexpr (sub_region == SubRegion::near_critical)
        return from_helmholtz(helmholtz_properties(primary, t));
    else
        return properties_at<sub_region>(primary, t);
}

/// Both phases on the saturation line: sub-regions 1 and 2 up to 350 degC, above (high) sub-region 3 twice.
template <class T>
struct SaturatedProperties {
    PhaseProperties<T> liquid, vapour;

    /// A property of the mixture of quality x.
    [[nodiscard]] T mixed(T PhaseProperties<T>::*y, const T& x) const {
        return liquid.*y + x * (vapour.*y - liquid.*y);
    }
};
/// liquid, vapour: the primary variables of the phases.
template <bool high, class T>
SaturatedProperties<T> phases_at(const T& t, const T& liquid, const T& vapour) {
    if constexpr (high)
        return {phase_at<SubRegion::near_critical>(liquid, t), phase_at<SubRegion::near_critical>(vapour, t)};
    else
        return {phase_at<SubRegion::water>(liquid, t), phase_at<SubRegion::steam>(vapour, t)};
}

/// The mixture of quality x under the saturation pressure p. It has no heat capacities, speed of sound and slopes.
template <class T>
PhaseProperties<T> mixture_of(const SaturatedProperties<T>& phases, const T& x, const T& p) {
    const T none(quiet_nan);
    const T v = phases.mixed(&PhaseProperties<T>::v, x);
    const T h = phases.mixed(&PhaseProperties<T>::h, x);
    const T s = phases.mixed(&PhaseProperties<T>::s, x);
    return {p, phases.liquid.t, v, h, s, none, none, none, none, none};
}

} // namespace ktl
