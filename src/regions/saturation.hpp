// The saturation line: K-function of the formulation, IFC-67 section 5.
//
//   ln(p/pca) = (1/theta) S/(1 + k6 x + k7 x^2) - x/(k8 x^2 + k9),   x = 1 - theta,  S = sum(n=1..5) kn x^n
#pragma once

#include "regions/constants.hpp"
#include "regions/number.hpp"
#include "regions/saturation_guess_data.hpp"

#include <array>

namespace ktl::saturation {

/// k1..k9.
inline constexpr std::array<double, 9> ak{-7.691234564, -26.08023696, -168.1706546, 64.23285504, -118.9646225,
                                          4.16711732,   20.9750676,   1.0e9,        6.0};
// Products for the slope, with the digits they are stored with.
inline constexpr double ak2t2 = -52.1604739; // 2 k2 is -52.16047392
inline constexpr double ak3t3 = -504.511964; // 3 k3 is -504.5119638
inline constexpr double ak4t4 = 256.93142;   // 4 k4 is 256.93142016
inline constexpr double ak5t5 = -594.823113; // 5 k5 is -594.8231125
inline constexpr double ak7t2 = 41.9501352;
inline constexpr double ak8t2 = 2.0e9;

/// 2 k2 to 5 k5.
struct SlopeProducts {
    double k2t2, k3t3, k4t4, k5t5;
};
inline constexpr SlopeProducts stored_products{ak2t2, ak3t3, ak4t4, ak5t5};
/// With all digits, for searches: the others would leave 2e-15 of the temperature.
inline constexpr SlopeProducts exact_products{2.0 * ak[1], 3.0 * ak[2], 4.0 * ak[3], 5.0 * ak[4]};

/// Reduced pressure on the line and what its slope is made of.
template <class T>
struct Terms {
    T theta, x;
    T sum;    // S
    T d1, d2; // 1 + k6 x + k7 x^2, k8 x^2 + k9
    T p;      // saturation pressure, bar
};

/// All terms but the pressure, at theta.
template <class T>
Terms<T> terms_of_theta(const T& theta) {
    Terms<T> s;
    s.theta = theta;
    s.x = 1.0 - s.theta;
    s.sum = s.x * horner(s.x, ak[0], ak[1], ak[2], ak[3], ak[4]);
    s.d1 = horner(s.x, 1.0, ak[5], ak[6]);
    s.d2 = ak[7] * s.x * s.x + ak[8];
    return s;
}

/// Reciprocals of both denominators, theta (1 + k6 x + k7 x^2) and k8 x^2 + k9, from one division.
template <class T>
struct Reciprocals {
    T b, d2;
};
template <class T>
Reciprocals<T> reciprocals(const Terms<T>& s) {
    const T b = s.theta * s.d1;
    const T all = 1.0 / (b * s.d2);
    return {all * s.d2, all * b};
}

/// ln(p/pca).
template <class T>
T log_pressure(const Terms<T>& s) {
    const Reciprocals<T> r = reciprocals(s);
    return s.sum * r.b - s.x * r.d2;
}

/// Terms at t (degC).
template <class T>
Terms<T> terms(const T& t) {
    Terms<T> s = terms_of_theta<T>((t + ktl_lc.tza) / ktl_lc.tca);
    s.p = ktl_lc.pca * exp(log_pressure(s));
    return s;
}

/// d ln p / d theta.
template <class T>
T log_slope(const Terms<T>& s, const SlopeProducts& k = stored_products) {
    const Reciprocals<T> r = reciprocals(s);
    const T dsum = -horner(s.x, ak[0], k.k2t2, k.k3t3, k.k4t4, k.k5t5);
    const T db = s.d1 - s.theta * (ak[5] + ak7t2 * s.x);
    const T dc = (1.0 - ak8t2 * s.x * s.x * r.d2) * r.d2;
    return dc + (dsum - s.sum * db * r.b) * r.b;
}

/// d2 ln p / d theta2. With g = S/b: g'' = (S'' - 2 g' b' - g b'')/b.
template <class T>
T log_curvature(const Terms<T>& s) {
    constexpr auto& k = exact_products;
    const Reciprocals<T> r = reciprocals(s);
    const T dsum = -horner(s.x, ak[0], k.k2t2, k.k3t3, k.k4t4, k.k5t5);
    const T dsum2 = horner(s.x, k.k2t2, 2.0 * k.k3t3, 3.0 * k.k4t4, 4.0 * k.k5t5);
    const T db = s.d1 - s.theta * (ak[5] + ak7t2 * s.x);
    const T db2 = ak7t2 * s.theta - 2.0 * (ak[5] + ak7t2 * s.x);
    const T g = s.sum * r.b;
    const T dg = (dsum - g * db) * r.b;
    const T k8x2 = ak[7] * s.x * s.x;
    const T dc2 = ak8t2 * s.x * (3.0 * ak[8] - k8x2) * (r.d2 * r.d2 * r.d2);
    return (dsum2 - 2.0 * dg * db - g * db2) * r.b + dc2;
}

/// One of Halley's steps in ln p, from theta towards w = ln(p/pca): an error e becomes some e^3.
template <class T>
T halley_step(const T& theta, const T& w) {
    const Terms<T> s = terms_of_theta(theta);
    const T off = w - log_pressure(s);
    const T slope = log_slope(s, exact_products);
    return theta + off * slope / (slope * slope + 0.5 * off * log_curvature(s));
}

/// Saturation temperature, degC, under p (bar) from pmin to the critical pressure: exact but for rounding, which may
/// put it past an end of the line. The polynomial that it begins at errs by 1.2e-6 of theta at most, of which one step leaves less than
/// 2e-17; but next to the critical point the last term bends the line within 1e-4 of theta, and it takes two.
template <class T>
T temperature(const T& p) {
    const T w = log(p * (1.0 / ktl_lc.pca));
    T theta = halley_step(T(saturation_guesses::saturation_theta(w)), w);
    constexpr double bent = 0.997;
    const auto near = theta > bent;
    if (!all_set(select(near, T(0.0), T(1.0)))) theta = select(near, halley_step(theta, w), theta);
    return theta * ktl_lc.tca - ktl_lc.tza;
}

} // namespace ktl::saturation
