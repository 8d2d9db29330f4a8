// A property of a sub-region with its slopes by the sub-region's own variables, in closed form: what a Newton step
// needs. Where a caller uses one slope only, the compiler leaves the other away.
#pragma once

#include "engine/thermo.hpp"
#include "regions/state.hpp"

namespace ktl::engine {

/// by_first: by p in sub-regions 1 and 2, by v in sub-region 3; the other variable constant.
template <class T>
struct Slopes {
    T y, by_first, by_t;
};

/// Volume, enthalpy, entropy or energy of sub-region 1 or 2; terms at p, t.
template <Quantity Y, class T, class Terms>
Slopes<T> gibbs_slopes(const Terms& terms, const T& p, const T& t) {
    const T kelvin = t + ktl_lc.tza;
    const T dvdt = volume_by_temperature(terms);
    if constexpr (Y == Quantity::volume) return {volume(terms), volume_by_pressure(terms), dvdt};
    const T cp = heat_capacity(terms);
    if constexpr (Y == Quantity::entropy) return {entropy(terms), -kilojoules * dvdt, cp / kelvin};
    const T v = volume(terms);
    const T h = enthalpy(terms);
    if constexpr (Y == Quantity::enthalpy) return {h, kilojoules * (v - kelvin * dvdt), cp};
    return {internal_energy(h, p, v), -kilojoules * (kelvin * dvdt + p * volume_by_pressure(terms)),
            cp - kilojoules * p * dvdt};
}

/// Pressure, enthalpy, entropy or energy of sub-region 3; terms at v, t.
template <Quantity Y, class T>
Slopes<T> helmholtz_slopes(const region3::Terms<T>& terms, const T& v, const T& t) {
    const T dpdt = -ktl_lc.pca / ktl_lc.tca * region3::free_energy_mixed(terms);
    const T dpdv = -ktl_lc.pca / ktl_lc.vca * region3::free_energy_volume_curvature(terms);
    const T p = region3::pressure(terms);
    if constexpr (Y == Quantity::pressure) return {p, dpdv, dpdt};
    const T kelvin = t + ktl_lc.tza;
    const T cv = -ktl_lc.pvot * terms.theta * region3::free_energy_curvature(terms);
    if constexpr (Y == Quantity::entropy) return {region3::entropy(terms), kilojoules * dpdt, cv / kelvin};
    const T h = region3::enthalpy(terms);
    if constexpr (Y == Quantity::enthalpy)
        return {h, kilojoules * (kelvin * dpdt + v * dpdv), cv + kilojoules * v * dpdt};
    return {internal_energy(h, p, v), kilojoules * (kelvin * dpdt - p), cv};
}

} // namespace ktl::engine
