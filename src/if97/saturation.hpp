// The saturation line of IF97: one equation in beta = (p/MPa)^(1/4) and theta = T + n9/(T - n10), quadratic in either,
//
//   beta^2 theta^2 + n1 beta^2 theta + n2 beta^2 + n3 beta theta^2 + n4 beta theta + n5 beta + n6 theta^2 + n7 theta + n8 = 0
//
// IAPWS R7-97(2012), equations 29 to 31. From 0 degC to the critical point, 373.946 degC and 220.64 bar.
#pragma once

#include "if97/gibbs.hpp"

namespace ktl::if97::saturation {

/// n1..n10.
inline constexpr std::array<double, 10> n{
    0.11670521452767E+04, -0.72421316703206E+06, -0.17073846940092E+02, 0.12020824702470E+05,  -0.32325550322333E+07,
    0.14915108613530E+02, -0.48232657361591E+04, 0.40511340542057E+06,  -0.23855557567849E+00, 0.65017534844798E+03};

inline constexpr double critical_temperature = 373.946; // degC
inline constexpr double critical_pressure = 220.64;     // bar

/// beta and theta of a point of the line, the coefficients of beta^2 and beta there, and dtheta/dT.
template <class T>
struct Terms {
    T beta, theta, a, b, dtheta;
};

template <class T>
Terms<T> terms(const T& t) {
    const T kelvin = t + kelvin_of_zero;
    const T r = 1.0 / (kelvin - n[9]);
    const T theta = kelvin + n[8] * r;
    const T a = (theta + n[0]) * theta + n[1];
    const T b = (n[2] * theta + n[3]) * theta + n[4];
    const T c = (n[5] * theta + n[6]) * theta + n[7];
    return {2.0 * c / (sqrt(b * b - 4.0 * a * c) - b), theta, a, b, 1.0 - n[8] * (r * r)};
}

/// Saturation pressure at t (degC), bar.
template <class T>
T pressure(const Terms<T>& s) {
    const T beta2 = s.beta * s.beta;
    return 10.0 * (beta2 * beta2);
}
template <class T>
T pressure(const T& t) {
    return pressure(terms(t));
}

/// Slope dp/dt of the line, bar/K: -F_theta/F_beta of the equation F = 0.
template <class T>
T slope(const Terms<T>& s) {
    const T& beta = s.beta;
    const T by_theta =
        beta * (beta * (2.0 * s.theta + n[0]) + (2.0 * n[2] * s.theta + n[3])) + 2.0 * n[5] * s.theta + n[6];
    const T by_beta = 2.0 * s.a * beta + s.b;
    return -40.0 * (beta * beta * beta) * by_theta / by_beta * s.dtheta;
}

/// Saturation temperature at p (bar), degC.
template <class T>
T temperature(const T& p) {
    const T beta = sqrt(sqrt(T(p / 10.0)));
    const T e = (beta + n[2]) * beta + n[5];
    const T f = (n[0] * beta + n[3]) * beta + n[6];
    const T g = (n[1] * beta + n[4]) * beta + n[7];
    const T d = 2.0 * g / -(f + sqrt(f * f - 4.0 * e * g));
    const T difference = n[9] - d;
    return 0.5 * ((n[9] + d) - sqrt(difference * difference - 4.0 * n[8])) - kelvin_of_zero;
}

} // namespace ktl::if97::saturation
