// The functions of the 1967 formulation from which all properties follow by differentiation, written as
// published: sums over tables of terms, nothing shared with the closed forms of the library but the coefficients.
#pragma once

#include "regions/constants.hpp"
#include "regions/region1_data.hpp"
#include "regions/region2_data.hpp"
#include "regions/region3_data.hpp"
#include "regions/saturation.hpp"

#include "support/dual.hpp"

#include <initializer_list>

namespace ktl::test {

/// x^n by repeated multiplication; n may be negative.
template <class T>
T power(const T& x, int n) {
    T product(1.0);
    for (int i = 0; i < (n < 0 ? -n : n); ++i) product = product * x;
    return n < 0 ? T(1.0) / product : product;
}

/// One term a x^n.
struct Monomial {
    double a;
    int n;
};

template <class T>
T sum_of(std::initializer_list<Monomial> terms, const T& x) {
    T sum(0.0);
    for (const auto& term : terms) sum = sum + T(term.a) * power(x, term.n);
    return sum;
}

/// a x^n + b x^(n + step) + ...
template <class T, class... Coefficients>
T series(const T& x, int n, int step, Coefficients... a) {
    T sum(0.0);
    ((sum = sum + T(a) * power(x, n), n += step), ...);
    return sum;
}

/// Reduced Gibbs function of sub-region 1.
template <class T>
T zeta1(const T& theta, const T& beta) {
    using std::log, std::sqrt, std::pow;
    constexpr auto& c = region1::ktl_t1;
    const T y = 1.0 - c.a1 * power(theta, 2) - c.a2 * power(theta, -6);
    const T z = y + sqrt(c.a3 * y * y - 2.0 * c.a4 * theta + 2.0 * c.a5 * beta);
    const T linear = series(theta, 0, 1, c.aa12, c.aa13, c.aa14) + c.aa15 * power(c.a6 - theta, 10) +
                     c.aa16 / (c.a7 + power(theta, 19));
    return c.aa0 * theta * (1.0 - log(theta)) +
           series(theta, 0, 1, c.aa1, c.aa2, c.aa3, c.aa4, c.aa5, c.aa6, c.aa7, c.aa8, c.aa9, c.aa10) +
           c.aa11 * 17.0 * (z / 29.0 - y / 12.0) * pow(z, 12.0 / 17.0) + linear * beta -
           series(beta, 1, 1, c.aa17, c.aa18, c.aa19) / (c.a8 + power(theta, 11)) -
           c.aa20 * power(theta, 18) * (c.a9 + power(theta, 2)) * (power(c.a10 + beta, -3) + c.a11 * beta) +
           c.aa21 * (c.a12 - theta) * power(beta, 3) + c.aa22 * power(theta, -20) * power(beta, 4);
}

/// X of sub-region 2.
template <class T>
T x_of(const T& theta) {
    using std::exp;
    return exp(region2::ktl_t2.b00 * (1.0 - theta));
}

/// Boundary between sub-regions 2 and 3, a reduced pressure.
template <class T>
T beta_l(const T& theta) {
    return series(theta, 0, 1, region2::ktl_cl.al0, region2::ktl_cl.al1, region2::ktl_cl.al2);
}

/// Reduced Gibbs function of sub-region 2.
template <class T>
T zeta2(const T& theta, const T& beta) {
    using std::log;
    constexpr auto& c = region2::ktl_t2;
    const T x = x_of(theta);
    const T ideal = ktl_lc.ai1 * theta * log(beta) + c.bb00 * theta * (1.0 - log(theta)) +
                    series(theta, 0, 1, c.bb01, c.bb02, c.bb03, c.bb04, c.bb05);
    const T sums = beta * sum_of({{c.bb11, 13}, {c.bb12, 3}}, x) +
                   power(beta, 2) * sum_of({{c.bb21, 18}, {c.bb22, 2}, {c.bb23, 1}}, x) +
                   power(beta, 3) * sum_of({{c.bb31, 18}, {c.bb32, 10}}, x) +
                   power(beta, 4) * sum_of({{c.bb41, 25}, {c.bb42, 14}}, x) +
                   power(beta, 5) * sum_of({{c.bb51, 32}, {c.bb52, 28}, {c.bb53, 24}}, x);
    const T fractions =
        sum_of({{c.bb61, 12}, {c.bb62, 11}}, x) / (power(beta, -4) + sum_of({{c.b61, 14}}, x)) +
        sum_of({{c.bb71, 24}, {c.bb72, 18}}, x) / (power(beta, -5) + sum_of({{c.b71, 19}}, x)) +
        sum_of({{c.bb81, 24}, {c.bb82, 14}}, x) / (power(beta, -6) + sum_of({{c.b81, 54}, {c.b82, 27}}, x));
    return ideal - sums - fractions +
           beta * power(beta / beta_l(theta), 10) *
               series(x, 0, 1, c.bb90, c.bb91, c.bb92, c.bb93, c.bb94, c.bb95, c.bb96);
}

/// Reduced Helmholtz function of sub-region 3; chi is the reduced volume.
template <class T>
T psi(const T& theta, const T& chi) {
    using std::log;
    constexpr auto& c = region3::ktl_t3;
    const T l = theta - 1.0;
    const T s0 = c.c01 * chi + c.c012 * log(chi) +
                 series(chi, -1, -1, c.c02, c.c03, c.c04, c.c05, c.c06, c.c07, c.c08, c.c09, c.c010, c.c011);
    const T s1 = c.c11 * chi + c.c17 * log(chi) + series(chi, -1, -1, c.c12, c.c13, c.c14, c.c15, c.c16);
    const T s2 = c.c21 * chi + c.c28 * log(chi) + series(chi, -1, -1, c.c22, c.c23, c.c24, c.c25, c.c26, c.c27);
    const T s3 =
        c.c31 * chi + c.c310 * log(chi) + series(chi, -1, -1, c.c32, c.c33, c.c34, c.c35, c.c36, c.c37, c.c38, c.c39);
    const T sum = c.c00 + s0 + l * s1 + power(l, 2) * s2 + power(l, 3) * s3 +
                  (c.c40 + c.c41 * power(chi, -5)) * l * power(theta, -23) + c.c50 * theta * log(theta) +
                  power(chi, 6) * series(theta, -2, -1, c.c60, c.c61, c.c62, c.c63, c.c64) +
                  series(l, 1, 1, c.c70, c.c71, c.c72, c.c73, c.c74, c.c75, c.c76, c.c77, c.c78);
    if (!(theta < 1.0 && chi < 1.0)) return sum;
    const T y = (1.0 - theta) / (1.0 - (350.0 + 273.15) / 647.3);
    return sum + power(y, 3) * series(chi, 0, -1, c.d30, c.d31, c.d32, c.d33, c.d34) +
           power(y, 4) * series(chi, 0, -1, c.d40, c.d41, c.d42, c.d43, c.d44) +
           power(y, 32) * series(chi, 0, 1, c.d50, c.d51, c.d52);
}

/// Logarithm of the reduced saturation pressure.
template <class T>
T saturation_log(const T& theta) {
    constexpr auto& k = saturation::ak;
    const T x = 1.0 - theta;
    return series(x, 1, 1, k[0], k[1], k[2], k[3], k[4]) / theta / series(x, 0, 1, 1.0, k[5], k[6]) -
           x / series(x, 0, 2, k[8], k[7]);
}

} // namespace ktl::test
