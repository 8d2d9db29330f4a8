// Properties of regions 1 and 2 of IF97 from the reduced Gibbs function gamma(pi, tau) = g/(R T), pi = p/p*, tau = T*/T.
//
// IAPWS R7-97(2012), tables 3 and 12. Units of the library: bar, degC, m3/kg, kJ/kg; derivatives by p in bar, by t in K.
#pragma once

#include "if97/polynomial.hpp"
#include "regions/number.hpp"

namespace ktl::if97 {

/// Specific gas constant, kJ/(kg K), and the zero of degC, K.
inline constexpr double gas_constant = 0.461526;
inline constexpr double kelvin_of_zero = 273.15;

/// Working terms of region 1 or 2: gamma and its derivatives by pi and tau.
template <class T>
struct Gibbs {
    double p_star, t_star; ///< bar, K
    T kelvin, tau;
    T g, g_pi, g_tau, g_pi_pi, g_pi_tau, g_tau_tau;

    /// R/p*, m3/(kg K).
    [[nodiscard]] double scale() const { return gas_constant / (kj_per_bar_m3 * p_star); }
};

/// Specific volume, m3/kg.
template <class T>
T volume(const Gibbs<T>& s) {
    return s.scale() * s.kelvin * s.g_pi;
}
/// Specific enthalpy, kJ/kg.
template <class T>
T enthalpy(const Gibbs<T>& s) {
    return gas_constant * s.t_star * s.g_tau;
}
/// Specific entropy, kJ/(kg K).
template <class T>
T entropy(const Gibbs<T>& s) {
    return gas_constant * (s.tau * s.g_tau - s.g);
}
/// Isobaric heat capacity, kJ/(kg K).
template <class T>
T heat_capacity(const Gibbs<T>& s) {
    return -gas_constant * (s.tau * s.tau) * s.g_tau_tau;
}
/// dv/dt at constant pressure, m3/(kg K).
template <class T>
T volume_by_temperature(const Gibbs<T>& s) {
    return s.scale() * (s.g_pi - s.tau * s.g_pi_tau);
}
/// dv/dp at constant temperature, m3/(kg bar).
template <class T>
T volume_by_pressure(const Gibbs<T>& s) {
    return s.scale() / s.p_star * s.kelvin * s.g_pi_pi;
}

} // namespace ktl::if97
