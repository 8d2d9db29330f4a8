// Sub-region 3, the neighbourhood of the critical point from 350 to 590 degC: derivatives of the reduced
// Helmholtz function of chi = v/vca and theta, with L = theta - 1 and y = (1 - theta)/(1 - theta1)
//
//   psi = c00 + S0 + L S1 + L^2 S2 + L^3 S3 + (c40 + c41 chi^-5) L theta^-23 + c50 theta ln theta
//       + chi^6 sum(n=0..4) c6n theta^(-2-n) + sum(n=0..8) c7n L^(n+1)
//       + [theta < 1 and chi < 1:]  y^3 sum d3n chi^-n + y^4 sum d4n chi^-n + y^32 sum d5n chi^n
//   Si(chi) = ci1 chi + sum(k>=2) cik chi^(1-k) + ci,last ln chi
//
// IFC-67, section 9.3. p = -pca psi_chi, s = -pvot psi_theta, h = pvo10 (psi - theta psi_theta - chi psi_chi),
// cp = pvot (-theta psi_theta_theta + theta psi_chi_theta^2 / psi_chi_chi).
#pragma once

#include "regions/constants.hpp"
#include "regions/number.hpp"
#include "regions/region3_data.hpp"

namespace ktl::region3 {

/// Working terms, 26 values in the order of record ktl_s3.
template <class T>
struct Terms {
    T theta, thl1, thlog;                // theta, L = theta - 1, ln theta
    T thm1, thm22, thm23;                // theta^-1, ^-22, ^-23
    T ex, exm1, exm2, exm5, exm6, exlog; // chi, chi^-1, ^-2, ^-5, ^-6, ln chi
    T x50th2, x60th2;                    // chi^5 theta^-2, chi^6 theta^-2
    T omth1, y, y2, y3, y30, y31;        // 1 - theta1, y and its powers
    T d3sv, vd3sv;                       // sum d3n chi^-n, sum n d3n chi^(-n-1)
    T d4sv, vd4sv;                       // sum d4n chi^-n, sum n d4n chi^(-n-1)
    T d5sv, vd5sv;                       // sum d5n chi^n,  sum n d5n chi^(n-1)
};
static_assert(sizeof(Terms<double>) == 26 * sizeof(double));

/// 1 - theta1, where theta1 is the reduced temperature of 350 degC.
inline constexpr double one_minus_theta1 = 1.0 - (ktl_lc.t1 + ktl_lc.tza) / ktl_lc.tca;

/// The terms of temperature alone, at t (degC).
template <class T>
void temperature_terms(Terms<T>& s, const T& t) {
    s.theta = (t + ktl_lc.tza) / ktl_lc.tca;
    s.thl1 = s.theta - 1.0;
    s.thlog = log(s.theta);
    s.thm1 = 1.0 / s.theta;
    const T thm2 = s.thm1 * s.thm1;
    const T thm4 = thm2 * thm2;
    const T thm8 = thm4 * thm4;
    s.thm22 = thm8 * thm8 * thm4 * thm2;
    s.thm23 = s.thm1 * s.thm22;

    s.omth1 = T(one_minus_theta1);
    s.y = (1.0 - s.theta) * (1.0 / one_minus_theta1);
    s.y2 = s.y * s.y;
    s.y3 = s.y2 * s.y;
    // Below 0.01 the thirtieth power is set to zero before it would underflow.
    const T y4 = s.y2 * s.y2;
    const T y8 = y4 * y4;
    s.y30 = select(s.y < 0.01, T(0.0), y8 * y8 * y8 * y4 * s.y2);
    s.y31 = s.y30 * s.y;
}

/// The terms of volume v (m3/kg), and of both; the terms of temperature must be filled in already.
template <class T>
void volume_terms(Terms<T>& s, const T& v) {
    constexpr auto& c = ktl_t3;
    count_evaluation();
    s.ex = v / ktl_lc.vca;
    s.exm1 = ktl_lc.vca / v;
    s.exm2 = s.exm1 * s.exm1;
    s.exm5 = s.exm2 * s.exm2 * s.exm1;
    s.exm6 = s.exm5 * s.exm1;
    s.exlog = log(s.ex);
    const T ex2 = s.ex * s.ex;
    s.x50th2 = ex2 * ex2 * s.ex * (s.thm1 * s.thm1);
    s.x60th2 = s.x50th2 * s.ex;
    s.d3sv = horner(s.exm1, c.d30, c.d31, c.d32, c.d33, c.d34);
    s.vd3sv = s.exm2 * horner(s.exm1, c.d31, d32t2, d33t3, d34t4);
    s.d4sv = horner(s.exm1, c.d40, c.d41, c.d42, c.d43, c.d44);
    s.vd4sv = s.exm2 * horner(s.exm1, c.d41, d42t2, d43t3, d44t4);
    s.d5sv = horner(s.ex, c.d50, c.d51, c.d52);
    s.vd5sv = c.d51 + d52t2 * s.ex;
}

/// Terms at v (m3/kg), t (degC).
template <class T>
Terms<T> terms(const T& v, const T& t) {
    Terms<T> s;
    temperature_terms(s, t);
    volume_terms(s, v);
    return s;
}

/// Keeps a term of the d groups on the liquid side, theta < 1 and chi < 1, and drops it elsewhere.
template <class T>
T liquid_side(const Terms<T>& s, const T& term) {
    return select(s.theta < 1.0, select(s.ex < 1.0, term, T(0.0)), T(0.0));
}

/// The groups in chi that go with L^0..L^3: S0..S3, or one of their derivatives.
template <class T>
struct VolumeGroups {
    T s0, s1, s2, s3;
};

/// Si.
template <class T>
VolumeGroups<T> volume_groups(const Terms<T>& s) {
    constexpr auto& c = ktl_t3;
    const T& x = s.exm1;
    const T series0 = horner(x, c.c02, c.c03, c.c04, c.c05, c.c06, c.c07, c.c08, c.c09, c.c010, c.c011);
    return {
        .s0 = c.c01 * s.ex + x * series0 + c.c012 * s.exlog,
        .s1 = c.c11 * s.ex + x * horner(x, c.c12, c.c13, c.c14, c.c15, c.c16) + c.c17 * s.exlog,
        .s2 = c.c21 * s.ex + x * horner(x, c.c22, c.c23, c.c24, c.c25, c.c26, c.c27) + c.c28 * s.exlog,
        .s3 = c.c31 * s.ex + x * horner(x, c.c32, c.c33, c.c34, c.c35, c.c36, c.c37, c.c38, c.c39) + c.c310 * s.exlog,
    };
}

/// dSi/dchi.
template <class T>
VolumeGroups<T> volume_group_slopes(const Terms<T>& s) {
    constexpr auto& c = ktl_t3;
    const T& x = s.exm1;
    const T series0 = horner(x, c.c02, c03t2, c04t3, c05t4, c06t5, c07t6, c08t7, c09t8, c010t9, c01110);
    const T series3 = horner(x, c.c32, c33t2, c34t3, c35t4, c36t5, c37t6, c38t7, c39t8);
    return {
        .s0 = c.c01 - s.exm2 * series0 + c.c012 * x,
        .s1 = c.c11 - s.exm2 * horner(x, c.c12, c13t2, c14t3, c15t4, c16t5) + c.c17 * x,
        .s2 = c.c21 - s.exm2 * horner(x, c.c22, c23t2, c24t3, c25t4, c26t5, c27t6) + c.c28 * x,
        .s3 = c.c31 - s.exm2 * series3 + c.c310 * x,
    };
}

/// d2Si/dchi2.
template <class T>
VolumeGroups<T> volume_group_curvatures(const Terms<T>& s) {
    constexpr auto& c = ktl_t3;
    const T& x = s.exm1;
    const T series0 = horner(x, 2.0 * c.c02, 3.0 * c03t2, 4.0 * c04t3, 5.0 * c05t4, 6.0 * c06t5, 7.0 * c07t6,
                             8.0 * c08t7, 9.0 * c09t8, 10.0 * c010t9, 11.0 * c01110);
    const T series1 = horner(x, 2.0 * c.c12, 3.0 * c13t2, 4.0 * c14t3, 5.0 * c15t4, 6.0 * c16t5);
    const T series2 = horner(x, 2.0 * c.c22, 3.0 * c23t2, 4.0 * c24t3, 5.0 * c25t4, 6.0 * c26t5, 7.0 * c27t6);
    const T series3 = horner(x, 2.0 * c.c32, 3.0 * c33t2, 4.0 * c34t3, 5.0 * c35t4, 6.0 * c36t5, 7.0 * c37t6,
                             8.0 * c38t7, 9.0 * c39t8);
    return {
        .s0 = s.exm2 * (x * series0 - c.c012),
        .s1 = s.exm2 * (x * series1 - c.c17),
        .s2 = s.exm2 * (x * series2 - c.c28),
        .s3 = s.exm2 * (x * series3 - c.c310),
    };
}

/// sum(n=0..4) c6n theta^-n, and theta^3 times the negative slope of theta^-2 times it, and so on.
template <class T>
T c6_polynomial(const Terms<T>& s) {
    constexpr auto& c = ktl_t3;
    return horner(s.thm1, c.c60, c.c61, c.c62, c.c63, c.c64);
}
template <class T>
T c6_slope(const Terms<T>& s) {
    constexpr auto& c = ktl_t3;
    return horner(s.thm1, 2.0 * c.c60, 3.0 * c.c61, 4.0 * c.c62, 5.0 * c.c63, 6.0 * c.c64);
}
template <class T>
T c6_curvature(const Terms<T>& s) {
    constexpr auto& c = ktl_t3;
    return horner(s.thm1, 6.0 * c.c60, 12.0 * c.c61, 20.0 * c.c62, 30.0 * c.c63, 42.0 * c.c64);
}

/// sum(n=0..8) c7n L^n, and the first and second theta-derivative of L times it.
template <class T>
T c7_polynomial(const Terms<T>& s) {
    constexpr auto& c = ktl_t3;
    return horner(s.thl1, c.c70, c.c71, c.c72, c.c73, c.c74, c.c75, c.c76, c.c77, c.c78);
}
template <class T>
T c7_slope(const Terms<T>& s) {
    constexpr auto& c = ktl_t3;
    return horner(s.thl1, c.c70, 2.0 * c.c71, 3.0 * c.c72, 4.0 * c.c73, 5.0 * c.c74, 6.0 * c.c75, 7.0 * c.c76,
                  8.0 * c.c77, 9.0 * c.c78);
}
template <class T>
T c7_curvature(const Terms<T>& s) {
    constexpr auto& c = ktl_t3;
    return horner(s.thl1, 2.0 * c.c71, 6.0 * c.c72, 12.0 * c.c73, 20.0 * c.c74, 30.0 * c.c75, 42.0 * c.c76,
                  56.0 * c.c77, 72.0 * c.c78);
}

/// c40 + c41 chi^-5, the factor of L theta^-23; and d(L theta^-23)/dtheta.
template <class T>
T c4_factor(const Terms<T>& s) {
    return ktl_t3.c40 + ktl_t3.c41 * s.exm5;
}
template <class T>
T c4_slope(const Terms<T>& s) {
    return (23.0 * s.thm23 - 22.0 * s.thm22) * s.thm1;
}

/// -psi_chi, the reduced pressure.
template <class T>
T reduced_pressure(const Terms<T>& s) {
    const VolumeGroups<T> g = volume_group_slopes(s);
    const T k = liquid_side(s, (s.vd3sv + s.y * s.vd4sv) * s.y3 - s.y * s.y31 * s.vd5sv);
    return s.thl1 * (-g.s1 - s.thl1 * (g.s2 + s.thl1 * g.s3) + c41t5 * s.exm6 * s.thm23) - g.s0 -
           6.0 * s.x50th2 * c6_polynomial(s) + k;
}

/// psi.
template <class T>
T free_energy(const Terms<T>& s, const VolumeGroups<T>& g) {
    const T d = liquid_side(s, s.y3 * (s.d3sv + s.y * s.d4sv) + s.y2 * s.y30 * s.d5sv);
    return ktl_t3.c00 + g.s0 + s.thl1 * (g.s1 + s.thl1 * (g.s2 + s.thl1 * g.s3)) + c4_factor(s) * s.thl1 * s.thm23 +
           ktl_t3.c50 * s.theta * s.thlog + s.x60th2 * c6_polynomial(s) + s.thl1 * c7_polynomial(s) + d;
}

/// psi_theta.
template <class T>
T free_energy_slope(const Terms<T>& s, const VolumeGroups<T>& g) {
    const T d = liquid_side(s, s.y2 * (3.0 * s.d3sv + 4.0 * s.y * s.d4sv) + 32.0 * s.y31 * s.d5sv);
    return g.s1 + s.thl1 * (2.0 * g.s2 + 3.0 * s.thl1 * g.s3) + c4_factor(s) * c4_slope(s) +
           ktl_t3.c50 * (s.thlog + 1.0) - s.x60th2 * s.thm1 * c6_slope(s) + c7_slope(s) - d * (1.0 / one_minus_theta1);
}

/// psi_theta_theta.
template <class T>
T free_energy_curvature(const Terms<T>& s) {
    const VolumeGroups<T> g = volume_groups(s);
    const T d = liquid_side(s, s.y * (6.0 * s.d3sv + 12.0 * s.y * s.d4sv) + 992.0 * s.y30 * s.d5sv);
    const T thm2 = s.thm1 * s.thm1;
    return 2.0 * g.s2 + 6.0 * s.thl1 * g.s3 + c4_factor(s) * (506.0 * s.thm22 - 552.0 * s.thm23) * thm2 +
           ktl_t3.c50 * s.thm1 + s.x60th2 * thm2 * c6_curvature(s) + c7_curvature(s) +
           d * (1.0 / (one_minus_theta1 * one_minus_theta1));
}

/// psi_chi_theta.
template <class T>
T free_energy_mixed(const Terms<T>& s) {
    const VolumeGroups<T> g = volume_group_slopes(s);
    const T d = liquid_side(s, s.y2 * (3.0 * s.vd3sv + 4.0 * s.y * s.vd4sv) - 32.0 * s.y31 * s.vd5sv);
    return g.s1 + s.thl1 * (2.0 * g.s2 + 3.0 * s.thl1 * g.s3) - c41t5 * s.exm6 * c4_slope(s) -
           6.0 * s.x50th2 * s.thm1 * c6_slope(s) + d * (1.0 / one_minus_theta1);
}

/// psi_chi_chi.
template <class T>
T free_energy_volume_curvature(const Terms<T>& s) {
    constexpr auto& c = ktl_t3;
    const VolumeGroups<T> g = volume_group_curvatures(s);
    const T& x = s.exm1;
    const T d3 = horner(x, 2.0 * c.d31, 3.0 * d32t2, 4.0 * d33t3, 5.0 * d34t4);
    const T d4 = horner(x, 2.0 * c.d41, 3.0 * d42t2, 4.0 * d43t3, 5.0 * d44t4);
    const T d = liquid_side(s, s.exm2 * x * s.y3 * (d3 + s.y * d4) + d52t2 * s.y2 * s.y30);
    return g.s0 + s.thl1 * (g.s1 + s.thl1 * (g.s2 + s.thl1 * g.s3) + 6.0 * c41t5 * s.exm6 * x * s.thm23) +
           30.0 * s.x50th2 * x * c6_polynomial(s) + d;
}

/// Pressure, bar.
template <class T>
T pressure(const Terms<T>& s) {
    return ktl_lc.pca * reduced_pressure(s);
}

/// Specific enthalpy, kJ/kg.
template <class T>
T enthalpy(const Terms<T>& s) {
    const VolumeGroups<T> g = volume_groups(s);
    return ktl_lc.pvo10 *
           (free_energy(s, g) - s.theta * free_energy_slope(s, g) + s.ex * reduced_pressure(s) + ktl_lc.alpha0);
}

/// Specific entropy, kJ/(kg K).
template <class T>
T entropy(const Terms<T>& s) {
    return ktl_lc.pvot * (-free_energy_slope(s, volume_groups(s)) - ktl_lc.alpha1);
}

/// Specific isobaric heat capacity, kJ/(kg K). At the critical point, where psi_chi_chi would be zero but for the printed
/// digits of its coefficients, 6.7e9; next to it negative in places.
template <class T>
T heat_capacity(const Terms<T>& s) {
    const T mixed = free_energy_mixed(s);
    return ktl_lc.pvot * s.theta * (mixed * mixed / free_energy_volume_curvature(s) - free_energy_curvature(s));
}

} // namespace ktl::region3
