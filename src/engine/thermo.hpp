// Everything that the first and second derivatives of a sub-region's function give at one state: one evaluation in
// closed form from which every property of a homogeneous phase follows, and every slope that an inversion needs.
#pragma once

#include "regions/region1.hpp"
#include "regions/region2.hpp"
#include "regions/region3.hpp"

namespace ktl::engine {

/// 1 bar m3 is 100 kJ.
inline constexpr double kilojoules = 100.0;

/// A homogeneous phase at p (bar), t (degC). dvdt, dvdp: (dv/dt) at constant p, (dv/dp) at constant t.
template <class T>
struct Thermo {
    T p, t, v, h, s, cp, cv;
    T w2; // square of the speed of sound, m2/s2
    T dvdt, dvdp;
};

/// From the Gibbs function of sub-region 1 or 2; Terms are those of the sub-region at p, t.
template <class T, class Terms>
Thermo<T> from_gibbs(const Terms& terms, const T& p, const T& t) {
    Thermo<T> y;
    y.p = p;
    y.t = t;
    y.v = volume(terms);
    y.h = enthalpy(terms);
    y.s = entropy(terms);
    y.cp = heat_capacity(terms);
    y.dvdt = volume_by_temperature(terms);
    y.dvdp = volume_by_pressure(terms);
    const T work = (t + ktl_lc.tza) * y.dvdt * y.dvdt;
    y.cv = y.cp + kilojoules * work / y.dvdp;
    y.w2 = -1.0e5 * y.v * y.v * y.cp / (y.cp * y.dvdp + kilojoules * work);
    return y;
}

/// From the Helmholtz function of sub-region 3 at v (m3/kg), t. At the critical point, where dp/dv is zero, cp, dvdt
/// and dvdp are infinite.
template <class T>
Thermo<T> from_helmholtz(const region3::Terms<T>& terms, const T& v, const T& t) {
    const auto groups = region3::volume_groups(terms);
    const T slope = region3::free_energy_slope(terms, groups);
    const T mixed = region3::free_energy_mixed(terms);
    const T curvature = region3::free_energy_volume_curvature(terms);
    Thermo<T> y;
    const T reduced = region3::reduced_pressure(terms);
    y.p = ktl_lc.pca * reduced;
    y.t = t;
    y.v = v;
    y.h =
        ktl_lc.pvo10 * (region3::free_energy(terms, groups) - terms.theta * slope + terms.ex * reduced + ktl_lc.alpha0);
    y.s = ktl_lc.pvot * (-slope - ktl_lc.alpha1);
    y.cv = ktl_lc.pvot * (-terms.theta * region3::free_energy_curvature(terms));
    const T work = ktl_lc.pvot * terms.theta * mixed * mixed;
    const T softness = 1.0 / curvature;
    y.cp = y.cv + work * softness;
    y.w2 = 1.0e5 * ktl_lc.pca * ktl_lc.vca * terms.ex * terms.ex * (curvature + work / y.cv);
    y.dvdt = -ktl_lc.vca / ktl_lc.tca * mixed * softness;
    y.dvdp = -ktl_lc.vca / ktl_lc.pca * softness;
    return y;
}

} // namespace ktl::engine
