// Region 2 of IF97, steam from 0 to 800 degC, up to the saturation pressure, the 2/3 boundary or 1000 bar:
//
//   gamma = ln pi + sum(i=1..9) n0 tau^J0 + sum(i=1..43) n pi^I (tau - 0.5)^J,   pi = p/10 bar, tau = 540 K/T
//
// IAPWS R7-97(2012), equations 15 to 17; the boundary: equations 5 and 6.
#pragma once

#include "if97/gibbs.hpp"
#include "if97/region2_data.hpp"

namespace ktl::if97::region2 {

/// Terms at p (bar), t (degC); t below 806.85 degC, at which tau is 0.5.
template <class T>
Gibbs<T> terms(const T& p, const T& t) {
    constexpr double p_star = 10.0;
    constexpr double t_star = 540.0;
    const T kelvin = t + kelvin_of_zero;
    const T tau = t_star / kelvin;
    const T pi = p / p_star;
    const T rpi = 1.0 / pi;
    const auto ideal = sum<ideal_table>(T(1.0), tau);
    const auto r = sum<residual_table>(pi, T(tau - 0.5));
    return {p_star,    t_star,        kelvin,           tau,  log(pi) + ideal.f + r.f,
            rpi + r.x, ideal.y + r.y, r.xx - rpi * rpi, r.xy, ideal.yy + r.yy};
}

} // namespace ktl::if97::region2

namespace ktl::if97 {

/// n1..n5 of the 2/3 boundary, p in MPa and T in K, as printed.
inline constexpr std::array<double, 5> boundary_n{0.34805185628969E+03, -0.11671859879975E+01, 0.10192970039326E-02,
                                                  0.57254459862746E+03, 0.13918839778870E+02};

/// Pressure of the 2/3 boundary at t (degC), bar. The boundary itself belongs to region 2.
template <class T>
T boundary_pressure(const T& t) {
    const T kelvin = t + kelvin_of_zero;
    return 10.0 * (boundary_n[0] + kelvin * (boundary_n[1] + boundary_n[2] * kelvin));
}
/// Temperature of the boundary at p (bar), degC: inverse of the above to 1.6e-10 K, the rounding of n4 and n5.
template <class T>
T boundary_temperature(const T& p) {
    return boundary_n[3] + sqrt((p / 10.0 - boundary_n[4]) / boundary_n[2]) - kelvin_of_zero;
}

} // namespace ktl::if97
