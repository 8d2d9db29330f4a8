// Region 3 of IF97, near-critical water and steam from 350 degC to the 2/3 boundary, up to 1000 bar:
//
//   phi = f/(R T) = n1 ln delta + sum(i=2..40) n delta^I tau^J,   delta = rho/(322 kg/m3), tau = 647.096 K/T
//
// IAPWS R7-97(2012), equation 28 and table 31. Derivatives by v and t as in the library: bar, m3/kg, K.
#pragma once

#include "if97/gibbs.hpp"
#include "if97/region3_data.hpp"

namespace ktl::if97::region3 {

inline constexpr double critical_kelvin = 647.096;
inline constexpr double critical_density = 322.0; // kg/m3

/// Working terms at v, t.
template <class T>
struct Terms {
    T density, delta, tau, kelvin;
    Derivatives<T> phi; ///< x: by delta, y: by tau

    /// delta phi_delta, the compressibility factor p v/(R T).
    [[nodiscard]] T factor() const { return delta * phi.x; }
    /// R rho in bar/K.
    [[nodiscard]] T bar_per_kelvin() const { return gas_constant / kj_per_bar_m3 * density; }
};

/// Terms at v (m3/kg), t (degC).
template <class T>
Terms<T> terms(const T& v, const T& t) {
    const T rdelta = critical_density * v;
    const T delta = 1.0 / rdelta;
    const T density = critical_density * delta;
    const T kelvin = t + kelvin_of_zero;
    const T tau = critical_kelvin / kelvin;
    auto phi = sum<table>(delta, tau);
    phi.f = phi.f + n1 * log(delta);
    phi.x = phi.x + n1 * rdelta;
    phi.xx = phi.xx - n1 * (rdelta * rdelta);
    return {density, delta, tau, kelvin, phi};
}

/// Pressure, bar.
template <class T>
T pressure(const Terms<T>& s) {
    return s.bar_per_kelvin() * s.kelvin * s.factor();
}
/// Specific enthalpy, kJ/kg.
template <class T>
T enthalpy(const Terms<T>& s) {
    return gas_constant * s.kelvin * (s.tau * s.phi.y + s.factor());
}
/// Specific entropy, kJ/(kg K).
template <class T>
T entropy(const Terms<T>& s) {
    return gas_constant * (s.tau * s.phi.y - s.phi.f);
}
/// Isochoric heat capacity, kJ/(kg K).
template <class T>
T isochoric_heat_capacity(const Terms<T>& s) {
    return -gas_constant * (s.tau * s.tau) * s.phi.yy;
}
/// dp/dv at constant temperature, bar kg/m3.
template <class T>
T pressure_by_volume(const Terms<T>& s) {
    return -(s.bar_per_kelvin() * s.density) * s.kelvin * (2.0 * s.factor() + s.delta * s.delta * s.phi.xx);
}
/// dp/dt at constant volume, bar/K.
template <class T>
T pressure_by_temperature(const Terms<T>& s) {
    return s.bar_per_kelvin() * (s.factor() - s.delta * s.tau * s.phi.xy);
}

} // namespace ktl::if97::region3
