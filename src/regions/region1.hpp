// Sub-region 1, water from 0.01 to 350 degC: derivatives of the reduced Gibbs function
//
//   zeta1 = A0 theta (1 - ln theta) + sum(n=1..10) An theta^(n-1) + A11 17 (Z/29 - Y/12) Z^(12/17)
//         + [A12 + A13 theta + A14 theta^2 + A15 (a6 - theta)^10 + A16/(a7 + theta^19)] beta
//         - (A17 beta + A18 beta^2 + A19 beta^3)/(a8 + theta^11)
//         - A20 theta^18 (a9 + theta^2) [(a10 + beta)^-3 + a11 beta]
//         + A21 (a12 - theta) beta^3 + A22 theta^-20 beta^4
//   Y = 1 - a1 theta^2 - a2 theta^-6,   Z = Y + sqrt(a3 Y^2 - 2 a4 theta + 2 a5 beta)
//
// IFC-67, section 9.1. v = vca zeta_beta, h = pvo10 (zeta - theta zeta_theta), s = -pvot zeta_theta.
#pragma once

#include "regions/constants.hpp"
#include "regions/number.hpp"
#include "regions/region1_data.hpp"

namespace ktl::region1 {

/// Working terms, 29 values in the order of record ktl_s1; thN is theta^N.
template <class T>
struct Terms {
    T theta, th2, th4, th6, th7, th10, th11, th16, th17, th18, th19, th20, th21;
    T beta, beta2, beta3, beta4;
    T y, yp;     // Y and dY/dtheta
    T z, zp;     // Z and Z^(-5/17)
    T ua9, ua10; // (a6 - theta)^9, ^10
    T ub, ub2;   // a7 + theta^19 and its square
    T uc;        // a8 + theta^11
    T u3t;       // (A17 beta + A18 beta^2 + A19 beta^3)/uc^2
    T ud4;       // (a10 + beta)^4
    T up;        // a11 beta + (a10 + beta)^-3
};
static_assert(sizeof(Terms<double>) == 29 * sizeof(double));

/// Reciprocals that the equations share; where they are inlined together each division is made once.
template <class T>
struct Reciprocals {
    T thm1, thm2, thm6, thm20; // theta^-1, ^-2, ^-6, ^-20
    T ub, uc, ud;              // 1/(a7 + theta^19), 1/(a8 + theta^11), 1/(a10 + beta)
};
template <class T>
Reciprocals<T> reciprocals(const Terms<T>& s) {
    Reciprocals<T> r;
    r.thm1 = 1.0 / s.theta;
    r.thm2 = r.thm1 * r.thm1;
    const T thm4 = r.thm2 * r.thm2;
    const T thm8 = thm4 * thm4;
    r.thm6 = thm4 * r.thm2;
    r.thm20 = thm8 * thm8 * thm4;
    r.ub = 1.0 / s.ub;
    r.uc = 1.0 / s.uc;
    r.ud = 1.0 / (ktl_t1.a10 + s.beta);
    return r;
}

/// Terms at p (bar), t (degC). Integer powers are products; the one power function is Z^(-5/17).
template <class T>
Terms<T> terms(const T& p, const T& t) {
    constexpr auto& c = ktl_t1;
    count_evaluation();
    Terms<T> s;
    s.beta = p / ktl_lc.pca;
    s.theta = (t + ktl_lc.tza) / ktl_lc.tca;
    s.th2 = s.theta * s.theta;
    s.th4 = s.th2 * s.th2;
    s.th6 = s.th2 * s.th4;
    s.th7 = s.th6 * s.theta;
    s.th10 = s.th4 * s.th6;
    s.th11 = s.th10 * s.theta;
    s.th16 = s.th10 * s.th6;
    s.th17 = s.th16 * s.theta;
    s.th18 = s.th16 * s.th2;
    s.th19 = s.th18 * s.theta;
    s.th20 = s.th16 * s.th4;
    s.th21 = s.th20 * s.theta;
    s.beta2 = s.beta * s.beta;
    s.beta3 = s.beta2 * s.beta;
    s.beta4 = s.beta2 * s.beta2;

    const T ua = c.a6 - s.theta;
    const T ua2 = ua * ua;
    const T ua4 = ua2 * ua2;
    s.ua9 = ua4 * ua4 * ua;
    s.ua10 = s.ua9 * ua;
    s.ub = c.a7 + s.th19;
    s.ub2 = s.ub * s.ub;
    s.uc = c.a8 + s.th11;
    const Reciprocals<T> r = reciprocals(s);
    s.u3t = ((c.aa19 * s.beta + c.aa18) * s.beta + c.aa17) * s.beta * (r.uc * r.uc);
    const T ud = c.a10 + s.beta;
    const T ud2 = ud * ud;
    s.ud4 = ud2 * ud2;
    s.up = c.a11 * s.beta + r.ud * (r.ud * r.ud);

    s.y = 1.0 - c.a1 * s.th2 - c.a2 * r.thm6;
    s.yp = 6.0 * c.a2 * (r.thm6 * r.thm1) - 2.0 * c.a1 * s.theta;
    s.z = s.y + sqrt(c.a3 * s.y * s.y + 2.0 * (c.a5 * s.beta - c.a4 * s.theta));
    s.zp = pow(s.z, -0.29411764705882354);
    return s;
}

/// Specific volume, m3/kg.
template <class T>
T volume(const Terms<T>& s) {
    using namespace volume_products;
    constexpr auto& c = ktl_t1;
    const Reciprocals<T> r = reciprocals(s);
    const T udm2 = r.ud * r.ud;
    return ktl_lc.vca * (c.aa11 * c.a5 * s.zp + c.aa12 + c.aa13 * s.theta + c.aa14 * s.th2 + c.aa15 * s.ua10 +
                         c.aa16 * r.ub - (c.aa17 + aa18t2 * s.beta + aa19t3 * s.beta2) * r.uc -
                         c.aa20 * s.th18 * (c.a9 + s.th2) * (c.a11 - 3.0 * (udm2 * udm2)) +
                         s.beta2 * (aa21t3 * (c.a12 - s.theta) + aa22t4 * s.beta * r.thm20));
}

/// Specific enthalpy, kJ/kg.
template <class T>
T enthalpy(const Terms<T>& s) {
    using namespace enthalpy_products;
    constexpr auto& c = ktl_t1;
    const Reciprocals<T> r = reciprocals(s);
    const T series = horner(s.theta, c.aa3, aa4t2, aa5t3, aa6t4, aa7t5, aa8t6, aa9t7, aa10t8);
    const T root = s.z * ((17.0 / 29.0) * s.z - (17.0 / 12.0) * s.y + (5.0 / 12.0) * s.theta * s.yp) +
                   s.theta * (c.a4 - a3m1 * s.y * s.yp);
    return ktl_lc.pvo10 * (c.aa0 * s.theta + c.aa1 - s.th2 * series + c.aa11 * s.zp * root +
                           s.beta * (c.aa12 - c.aa14 * s.th2 + c.aa15 * s.ua9 * (c.a6 + 9.0 * s.theta) +
                                     c.aa16 * (c.a7 + 20.0 * s.th19) * (r.ub * r.ub)) -
                           (c.a8 + 12.0 * s.th11) * s.u3t + c.aa20 * s.th18 * (a9t17 + 19.0 * s.th2) * s.up +
                           s.beta3 * (c.aa21 * c.a12 + aa2221 * s.beta * r.thm20) + ktl_lc.alpha0);
}

/// Specific entropy, kJ/(kg K).
template <class T>
T entropy(const Terms<T>& s) {
    using namespace entropy_products;
    constexpr auto& c = ktl_t1;
    const Reciprocals<T> r = reciprocals(s);
    const T series = horner(s.theta, aa3t2, aa4t3, aa5t4, aa6t5, aa7t6, aa8t7, aa9t8, aa10t9);
    return ktl_lc.pvot * (c.aa0 * log(s.theta) - c.aa2 - s.theta * series - ktl_lc.alpha1 +
                          s.beta3 * (c.aa21 + aa2220 * s.beta * (r.thm20 * r.thm1)) +
                          c.aa20 * s.th17 * (a9t18 + 20.0 * s.th2) * s.up - 11.0 * s.th10 * s.u3t +
                          s.beta * (-c.aa13 - aa14t2 * s.theta + aa1510 * s.ua9 + aa1619 * s.th18 * (r.ub * r.ub)) +
                          c.aa11 * s.zp * (s.yp * ((5.0 / 12.0) * s.z - a3m1 * s.y) + c.a4));
}

/// 1/w, where w is the square root in Z, and the first theta-derivatives of Y, w and Z.
template <class T>
struct Root {
    T rw, dydth, dwdth, dzdth;
};
template <class T>
Root<T> root(const Terms<T>& s, const Reciprocals<T>& r) {
    using namespace heat_capacity_products;
    constexpr auto& c = ktl_t1;
    Root<T> q;
    q.rw = 1.0 / (s.z - s.y);
    q.dydth = a2t6 * (r.thm6 * r.thm1) - a1t2 * s.theta;
    q.dwdth = (c.a3 * s.y * q.dydth - c.a4) * q.rw;
    q.dzdth = q.dydth + q.dwdth;
    return q;
}

/// Second theta-derivative of A11 17 (Z/29 - Y/12) Z^(12/17); Z^(-22/17) and Z^(12/17) come from Z^(-5/17).
template <class T>
T root_curvature(const Terms<T>& s, const Reciprocals<T>& r) {
    using namespace heat_capacity_products;
    constexpr auto& c = ktl_t1;
    const Root<T> q = root(s, r);
    const T dydth2 = -a1t2 - a2t42 * (r.thm6 * r.thm2);
    const T dzdth2 = dydth2 + (c.a3 * (q.dydth * q.dydth + s.y * dydth2) - q.dwdth * q.dwdth) * q.rw;
    const T z22 = s.zp / s.z;
    const T z12 = s.zp * s.z;
    return c.aa11 * ((12.0 / 29.0 * s.z - s.y) * (s.zp * dzdth2 - (5.0 / 17.0) * z22 * q.dzdth * q.dzdth) +
                     (24.0 / 29.0 * q.dzdth - 2.0 * q.dydth) * s.zp * q.dzdth +
                     (17.0 / 29.0 * dzdth2 - 17.0 / 12.0 * dydth2) * z12);
}

/// Specific isobaric heat capacity, kJ/(kg K).
template <class T>
T heat_capacity(const Terms<T>& s) {
    using namespace heat_capacity_products;
    constexpr auto& c = ktl_t1;
    const Reciprocals<T> r = reciprocals(s);
    const T ua = c.a6 - s.theta;
    const T ua2 = ua * ua;
    const T ua4 = ua2 * ua2;
    const T ua8 = ua4 * ua4;
    const T cp1 = horner(s.theta, aa3t2, aa4t6, aa5t12, aa6t20, aa7t30, aa8t42, aa9t56, aa1072);
    const T cp2 = root_curvature(s, r);
    const T cp3 =
        2.0 * c.aa14 + c.aa16 * s.th17 * (722.0 * s.th19 * r.ub - 342.0) * (r.ub * r.ub) + 90.0 * c.aa15 * ua8;
    const T cp4 = s.th10 * (242.0 * s.th11 * r.uc - 110.0) * s.u3t;
    const T cp5 = c.aa20 * s.th17 * (380.0 * s.th2 + a9t306) * s.up;
    const T cp6 = 420.0 * c.aa22 * s.beta4 * (r.thm20 * r.thm1);
    return ktl_lc.pvot * (-s.theta * (cp1 + s.beta * cp3 + cp2) + (c.aa0 + cp4 + cp5 - cp6));
}

/// dv/dt at constant pressure, m3/(kg K): vca zeta_beta_theta / tca.
template <class T>
T volume_by_temperature(const Terms<T>& s) {
    using namespace volume_products;
    constexpr auto& c = ktl_t1;
    const Reciprocals<T> r = reciprocals(s);
    const Root<T> q = root(s, r);
    const T udm2 = r.ud * r.ud;
    const T z22 = s.zp / s.z;
    return ktl_lc.vca / ktl_lc.tca *
           (-5.0 / 17.0 * c.aa11 * c.a5 * z22 * q.dzdth + c.aa13 + 2.0 * c.aa14 * s.theta - 10.0 * c.aa15 * s.ua9 -
            19.0 * c.aa16 * s.th18 * (r.ub * r.ub) +
            11.0 * s.th10 * (c.aa17 + aa18t2 * s.beta + aa19t3 * s.beta2) * (r.uc * r.uc) -
            c.aa20 * s.th17 * (18.0 * c.a9 + 20.0 * s.th2) * (c.a11 - 3.0 * (udm2 * udm2)) -
            s.beta2 * (aa21t3 + 20.0 * aa22t4 * s.beta * (r.thm20 * r.thm1)));
}

/// dv/dp at constant temperature, m3/(kg bar): vca zeta_beta_beta / pca.
template <class T>
T volume_by_pressure(const Terms<T>& s) {
    using namespace volume_products;
    constexpr auto& c = ktl_t1;
    const Reciprocals<T> r = reciprocals(s);
    const Root<T> q = root(s, r);
    const T udm2 = r.ud * r.ud;
    const T z22 = s.zp / s.z;
    return ktl_lc.vca / ktl_lc.pca *
           (-5.0 / 17.0 * c.aa11 * c.a5 * c.a5 * z22 * q.rw - (aa18t2 + 2.0 * aa19t3 * s.beta) * r.uc -
            12.0 * c.aa20 * s.th18 * (c.a9 + s.th2) * (udm2 * udm2 * r.ud) +
            s.beta * (2.0 * aa21t3 * (c.a12 - s.theta) + 3.0 * aa22t4 * s.beta * r.thm20));
}

} // namespace ktl::region1
