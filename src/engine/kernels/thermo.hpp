// Everything that the first and second derivatives of a sub-region's function give at one state: one evaluation in
// closed form from which every property of a homogeneous phase follows, and every slope that an inversion needs. Where
// a caller uses a part only, the compiler leaves the rest away.
#pragma once

#include "regions/region1.hpp"
#include "regions/region2.hpp"
#include "regions/region3.hpp"

namespace ktl::engine {

/// 1 bar m3 is 100 kJ.
inline constexpr double kj_per_bar_m3 = 100.0;

/// A homogeneous phase at p (bar), t (degC). dvdt, dvdp: (dv/dt) at constant p, (dv/dp) at constant t.
template <class T>
struct PhaseProperties {
    T p, t, v, h, s, cp, cv;
    T speed_of_sound_squared; // square of the speed of sound, m2/s2
    T dvdt, dvdp;
};

/// From the Gibbs function of sub-region 1 or 2; Terms are those of the sub-region at p, t.
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
    const T work = (t + ktl_lc.tza) * y.dvdt * y.dvdt;
    y.cv = y.cp + kj_per_bar_m3 * work / y.dvdp;
    y.speed_of_sound_squared = -1.0e5 * y.v * y.v * y.cp / (y.cp * y.dvdp + kj_per_bar_m3 * work);
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

/// At the critical point, where dp/dv is zero, cp, dvdt and dvdp are infinite.
template <class T>
PhaseProperties<T> from_helmholtz(const HelmholtzProperties<T>& s) {
    const T dvdp = 1.0 / s.dpdv;
    const T work = kj_per_bar_m3 * (s.t + ktl_lc.tza) * s.dpdt * s.dpdt;
    PhaseProperties<T> y;
    y.p = s.p;
    y.t = s.t;
    y.v = s.v;
    y.h = s.h;
    y.s = s.s;
    y.cp = s.cv - work * dvdp;
    y.cv = s.cv;
    y.speed_of_sound_squared = 1.0e5 * s.v * s.v * (work / s.cv - s.dpdv);
    y.dvdt = -s.dpdt * dvdp;
    y.dvdp = dvdp;
    return y;
}

} // namespace ktl::engine
