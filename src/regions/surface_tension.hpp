// Surface tension of water against its own vapour.
//
//   sigma = B tau^mu (1 + b tau),  tau = 1 - T/Tc
//
// IAPWS R1-76(2014), Revised Release on Surface Tension of Ordinary Water Substance. A function of the temperature (ITS-90) alone:
// it belongs to neither the 1967 formulation nor IF97.
#pragma once

#include "regions/number.hpp"

namespace ktl::surface_tension_of_water {

inline constexpr double b_capital = 235.8e-3; // N/m
inline constexpr double b = -0.625;
inline constexpr double mu = 1.256;
inline constexpr double critical_temperature = 373.946; // degC, at which it is zero
inline constexpr double critical_kelvin = 647.096;

/// sigma, N/m, at t (degC) below the critical temperature.
template <class T>
T sigma(const T& t) {
    const T tau = (critical_temperature - t) / critical_kelvin;
    return b_capital * pow(tau, mu) * (1.0 + b * tau);
}

} // namespace ktl::surface_tension_of_water
