// The functions of the 1967 formulation from which all properties follow by differentiation, written as
// published: sums over tables of terms, nothing shared with the closed forms of the library but the coefficients.
#pragma once

#include "front/constants.hpp"
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

/// Reduced Gibbs function of sub-region 1.
template <class T>
T zeta1(const T& theta, const T& beta) {
    using std::log, std::sqrt, std::pow;
    constexpr auto& c = region1::ktl_t1;
    const T y = 1.0 - c.a1 * power(theta, 2) - c.a2 * power(theta, -6);
    const T z = y + sqrt(c.a3 * y * y - 2.0 * c.a4 * theta + 2.0 * c.a5 * beta);
    const T series = sum_of({{c.aa1, 0},
                             {c.aa2, 1},
                             {c.aa3, 2},
                             {c.aa4, 3},
                             {c.aa5, 4},
                             {c.aa6, 5},
                             {c.aa7, 6},
                             {c.aa8, 7},
                             {c.aa9, 8},
                             {c.aa10, 9}},
                            theta);
    const T linear = sum_of({{c.aa12, 0}, {c.aa13, 1}, {c.aa14, 2}}, theta) + c.aa15 * power(c.a6 - theta, 10) +
                     c.aa16 / (c.a7 + power(theta, 19));
    return c.aa0 * theta * (1.0 - log(theta)) + series + c.aa11 * 17.0 * (z / 29.0 - y / 12.0) * pow(z, 12.0 / 17.0) +
           linear * beta - sum_of({{c.aa17, 1}, {c.aa18, 2}, {c.aa19, 3}}, beta) / (c.a8 + power(theta, 11)) -
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
    using region2::ktl_cl;
    return sum_of({{ktl_cl.al0, 0}, {ktl_cl.al1, 1}, {ktl_cl.al2, 2}}, theta);
}

/// Reduced Gibbs function of sub-region 2.
template <class T>
T zeta2(const T& theta, const T& beta) {
    using std::log;
    constexpr auto& c = region2::ktl_t2;
    const T x = x_of(theta);
    const T ideal = ktl_lc.ai1 * theta * log(beta) + c.bb00 * theta * (1.0 - log(theta)) +
                    sum_of({{c.bb01, 0}, {c.bb02, 1}, {c.bb03, 2}, {c.bb04, 3}, {c.bb05, 4}}, theta);
    const T series = beta * sum_of({{c.bb11, 13}, {c.bb12, 3}}, x) +
                     power(beta, 2) * sum_of({{c.bb21, 18}, {c.bb22, 2}, {c.bb23, 1}}, x) +
                     power(beta, 3) * sum_of({{c.bb31, 18}, {c.bb32, 10}}, x) +
                     power(beta, 4) * sum_of({{c.bb41, 25}, {c.bb42, 14}}, x) +
                     power(beta, 5) * sum_of({{c.bb51, 32}, {c.bb52, 28}, {c.bb53, 24}}, x);
    const T fractions =
        sum_of({{c.bb61, 12}, {c.bb62, 11}}, x) / (power(beta, -4) + sum_of({{c.b61, 14}}, x)) +
        sum_of({{c.bb71, 24}, {c.bb72, 18}}, x) / (power(beta, -5) + sum_of({{c.b71, 19}}, x)) +
        sum_of({{c.bb81, 24}, {c.bb82, 14}}, x) / (power(beta, -6) + sum_of({{c.b81, 54}, {c.b82, 27}}, x));
    return ideal - series - fractions +
           beta * power(beta / beta_l(theta), 10) *
               sum_of({{c.bb90, 0}, {c.bb91, 1}, {c.bb92, 2}, {c.bb93, 3}, {c.bb94, 4}, {c.bb95, 5}, {c.bb96, 6}}, x);
}

/// Reduced Helmholtz function of sub-region 3; chi is the reduced volume.
template <class T>
T psi(const T& theta, const T& chi) {
    using std::log;
    constexpr auto& c = region3::ktl_t3;
    const T l = theta - 1.0;
    const T s0 = sum_of({{c.c01, 1},
                         {c.c02, -1},
                         {c.c03, -2},
                         {c.c04, -3},
                         {c.c05, -4},
                         {c.c06, -5},
                         {c.c07, -6},
                         {c.c08, -7},
                         {c.c09, -8},
                         {c.c010, -9},
                         {c.c011, -10}},
                        chi) +
                 c.c012 * log(chi);
    const T s1 =
        sum_of({{c.c11, 1}, {c.c12, -1}, {c.c13, -2}, {c.c14, -3}, {c.c15, -4}, {c.c16, -5}}, chi) + c.c17 * log(chi);
    const T s2 =
        sum_of({{c.c21, 1}, {c.c22, -1}, {c.c23, -2}, {c.c24, -3}, {c.c25, -4}, {c.c26, -5}, {c.c27, -6}}, chi) +
        c.c28 * log(chi);
    const T s3 = sum_of({{c.c31, 1},
                         {c.c32, -1},
                         {c.c33, -2},
                         {c.c34, -3},
                         {c.c35, -4},
                         {c.c36, -5},
                         {c.c37, -6},
                         {c.c38, -7},
                         {c.c39, -8}},
                        chi) +
                 c.c310 * log(chi);
    const T c6 = sum_of({{c.c60, -2}, {c.c61, -3}, {c.c62, -4}, {c.c63, -5}, {c.c64, -6}}, theta);
    const T c7 = sum_of(
        {{c.c70, 1}, {c.c71, 2}, {c.c72, 3}, {c.c73, 4}, {c.c74, 5}, {c.c75, 6}, {c.c76, 7}, {c.c77, 8}, {c.c78, 9}},
        l);
    const T sum = c.c00 + s0 + l * s1 + power(l, 2) * s2 + power(l, 3) * s3 +
                  (c.c40 + c.c41 * power(chi, -5)) * l * power(theta, -23) + c.c50 * theta * log(theta) +
                  power(chi, 6) * c6 + c7;
    if (!(theta < 1.0 && chi < 1.0)) return sum;
    const T y = (1.0 - theta) / (1.0 - (350.0 + 273.15) / 647.3);
    const T d3 = sum_of({{c.d30, 0}, {c.d31, -1}, {c.d32, -2}, {c.d33, -3}, {c.d34, -4}}, chi);
    const T d4 = sum_of({{c.d40, 0}, {c.d41, -1}, {c.d42, -2}, {c.d43, -3}, {c.d44, -4}}, chi);
    const T d5 = sum_of({{c.d50, 0}, {c.d51, 1}, {c.d52, 2}}, chi);
    return sum + power(y, 3) * d3 + power(y, 4) * d4 + power(y, 32) * d5;
}

/// Logarithm of the reduced saturation pressure.
template <class T>
T saturation_log(const T& theta) {
    constexpr auto& k = saturation::ak;
    const T x = 1.0 - theta;
    return sum_of({{k[0], 1}, {k[1], 2}, {k[2], 3}, {k[3], 4}, {k[4], 5}}, x) / theta /
               sum_of({{1.0, 0}, {k[5], 1}, {k[6], 2}}, x) -
           x / sum_of({{k[7], 2}, {k[8], 0}}, x);
}

} // namespace ktl::test
