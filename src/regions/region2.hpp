// Sub-region 2, steam from 0.01 to 800 degC: derivatives of the reduced Gibbs function
//
//   zeta2 = I1 theta ln beta + B00 theta (1 - ln theta) + sum(n=1..5) B0n theta^(n-1)
//         - sum(mu=1..5) beta^mu (sum of B_mu,n X^z)
//         - sum(mu=6..8) (sum of B_mu,n X^z) / (beta^(2-mu) + sum of b_mu,n X^x)
//         + beta (beta/betaL)^10 sum(n=0..6) B9n X^n
//   X = exp(b (1 - theta)),  betaL = al0 + al1 theta + al2 theta^2 (the 2/3 boundary)
//
// IFC-67, section 9.2. v = vca zeta_beta, h = pvo10 (zeta - theta zeta_theta), s = -pvot zeta_theta,
// cp = -pvot theta zeta_theta_theta. Each theta-derivative of X^n brings a factor -n b.
#pragma once

#include "regions/constants.hpp"
#include "regions/number.hpp"
#include "regions/region2_data.hpp"

namespace ktl::region2 {

/// Working terms, 44 values in the order of record ktl_s2; thN is theta^N, xN is X^N.
template <class T>
struct Terms {
    T thm1, theta, th2, th3, th4;
    T x1, x2, x3, x4, x6, x8, x10, x11, x12, x13, x14, x17, x18, x19, x24, x25, x27, x28, x32;
    T beta, beta2, beta3, beta4, beta5, beta6, beta7;
    T d4, t4, d3, t3, d2, t2; // denominators of groups 8, 7, 6 and X-derivatives of their logarithms
    T betal, bobl, boblp, fb; // betaL, beta/betaL, its tenth power, 10 betaL'/betaL
    T bb61f, bb71f, bb81f;    // B61 X, B71 X^6, B81 X^10
};
static_assert(sizeof(Terms<double>) == 44 * sizeof(double));

/// Reduced pressure of the 2/3 boundary.
template <class T>
T boundary(const T& theta) {
    return (ktl_cl.al2 * theta + ktl_cl.al1) * theta + ktl_cl.al0;
}

/// Terms at p (bar), t (degC). One exponential; all powers are products.
template <class T>
Terms<T> terms(const T& p, const T& t) {
    constexpr auto& c = ktl_t2;
    count_evaluation();
    Terms<T> s;
    s.beta = p / ktl_lc.pca;
    s.theta = (t + ktl_lc.tza) / ktl_lc.tca;
    s.thm1 = 1.0 / s.theta;
    s.th2 = s.theta * s.theta;
    s.th3 = s.th2 * s.theta;
    s.th4 = s.th2 * s.th2;

    s.x1 = exp(c.b00 * (1.0 - s.theta));
    s.x2 = s.x1 * s.x1;
    s.x3 = s.x1 * s.x2;
    s.x4 = s.x2 * s.x2;
    s.x6 = s.x3 * s.x3;
    s.x8 = s.x4 * s.x4;
    s.x10 = s.x4 * s.x6;
    s.x11 = s.x1 * s.x10;
    s.x12 = s.x6 * s.x6;
    s.x13 = s.x2 * s.x11;
    s.x14 = s.x6 * s.x8;
    s.x17 = s.x6 * s.x11;
    s.x18 = s.x8 * s.x10;
    s.x19 = s.x8 * s.x11;
    s.x24 = s.x11 * s.x13;
    s.x25 = s.x11 * s.x14;
    s.x27 = s.x13 * s.x14;
    s.x28 = s.x14 * s.x14;
    s.x32 = s.x4 * s.x28;
    s.bb61f = c.bb61 * s.x1;
    s.bb71f = c.bb71 * s.x6;
    s.bb81f = c.bb81 * s.x10;

    s.beta2 = s.beta * s.beta;
    s.beta3 = s.beta * s.beta2;
    s.beta4 = s.beta2 * s.beta2;
    s.beta5 = s.beta2 * s.beta3;
    s.beta6 = s.beta3 * s.beta3;
    s.beta7 = s.beta3 * s.beta4;

    const T rb = 1.0 / s.beta;
    const T rb2 = rb * rb;
    const T rb4 = rb2 * rb2;
    s.d2 = rb4 + c.b61 * s.x14;
    s.t2 = 14.0 * c.b61 * s.x14 * (1.0 / s.d2);
    s.d3 = rb4 * rb + c.b71 * s.x19;
    s.t3 = 19.0 * c.b71 * s.x19 * (1.0 / s.d3);
    s.d4 = rb4 * rb2 + (c.b81 * s.x27 + c.b82) * s.x27;
    s.t4 = 27.0 * s.x27 * (2.0 * c.b81 * s.x27 + c.b82) * (1.0 / s.d4);

    s.betal = boundary(s.theta);
    const T rbl = 1.0 / s.betal;
    s.fb = 10.0 * (ktl_cl.al1 + ktl_cl.al2t2 * s.theta) * rbl;
    s.bobl = s.beta * rbl;
    const T bobl2 = s.bobl * s.bobl;
    const T bobl4 = bobl2 * bobl2;
    s.boblp = bobl4 * bobl4 * bobl2;
    return s;
}

/// beta c1 + beta^2 c2 + ... + beta^5 c5, the shape of the series groups in enthalpy, entropy and cp.
template <class T>
T series_in_beta(const Terms<T>& s, const T& c1, const T& c2, const T& c3, const T& c4, const T& c5) {
    return s.beta * (c1 + s.beta * (c2 + s.beta * (c3 + s.beta * (c4 + s.beta * c5))));
}

/// sum(n=0..6) B9n X^n, the boundary group.
template <class T>
T boundary_group(const Terms<T>& s) {
    constexpr auto& c = ktl_t2;
    return horner(s.x1, c.bb90, c.bb91, c.bb92, c.bb93, c.bb94, c.bb95, c.bb96);
}

/// sum(n=1..6) B9n (n b) X^n, with the products n b that the equation stores: b, 2 b, ..., 6 b.
template <class T>
T boundary_group_slope(const Terms<T>& s, double nb2, double nb3, double nb4, double nb5, double nb6) {
    constexpr auto& c = ktl_t2;
    return s.x1 * horner(s.x1, c.bb91 * c.b00, c.bb92 * nb2, c.bb93 * nb3, c.bb94 * nb4, c.bb95 * nb5, c.bb96 * nb6);
}

/// The groups of the fractions in the volume, m beta^-(m+1) sum(B X^n)/D^2 for m = 4, 5, 6, and what their
/// derivatives take besides: (m beta^-(m+1) sum(B n X^n)/D^2, 1/D, 1/beta).
template <class T>
struct Fractions {
    T v6, v7, v8; // the groups
    T n6, n7, n8; // the same with n B
    T rd2, rd3, rd4, rb;
};
template <class T>
Fractions<T> fractions(const Terms<T>& s) {
    constexpr auto& c = ktl_t2;
    Fractions<T> f;
    f.rb = 1.0 / s.beta;
    const T rb2 = f.rb * f.rb;
    const T rb5 = rb2 * rb2 * f.rb;
    f.rd2 = 1.0 / s.d2;
    f.rd3 = 1.0 / s.d3;
    f.rd4 = 1.0 / s.d4;
    const T w6 = 4.0 * s.x11 * rb5 * (f.rd2 * f.rd2);
    const T w7 = 5.0 * s.x18 * (rb5 * f.rb) * (f.rd3 * f.rd3);
    const T w8 = 6.0 * s.x14 * (rb5 * rb2) * (f.rd4 * f.rd4);
    f.v6 = w6 * (s.bb61f + c.bb62);
    f.v7 = w7 * (s.bb71f + c.bb72);
    f.v8 = w8 * (s.bb81f + c.bb82);
    f.n6 = w6 * (12.0 * s.bb61f + 11.0 * c.bb62);
    f.n7 = w7 * (24.0 * s.bb71f + 18.0 * c.bb72);
    f.n8 = w8 * (24.0 * s.bb81f + 14.0 * c.bb82);
    return f;
}

/// The series groups sum(B X^n) of mu = 1..5, and the same with n B, as the volume takes them.
template <class T>
struct Series {
    T g1, g2, g3, g4, g5;
};
template <class T>
Series<T> series(const Terms<T>& s) {
    constexpr auto& c = ktl_t2;
    return {s.x3 * (c.bb11 * s.x10 + c.bb12), s.x1 * (c.bb21 * s.x17 + c.bb22 * s.x1 + c.bb23),
            s.x10 * (c.bb31 * s.x8 + c.bb32), s.x14 * (c.bb41 * s.x11 + c.bb42),
            s.x24 * (c.bb51 * s.x8 + c.bb52 * s.x4 + c.bb53)};
}
template <class T>
Series<T> series_slope(const Terms<T>& s) {
    using namespace entropy_products;
    return {s.x3 * (bb1113 * s.x10 + bb12t3), s.x1 * (bb2118 * s.x17 + bb22t2 * s.x1 + ktl_t2.bb23),
            s.x10 * (bb3118 * s.x8 + bb3210), s.x14 * (bb4125 * s.x11 + bb4214),
            s.x24 * (bb5132 * s.x8 + bb5228 * s.x4 + bb5324)};
}
/// sum(mu=1..5) mu beta^(mu-1) g_mu, the beta-derivative of the series.
template <class T>
T series_by_beta(const Terms<T>& s, const Series<T>& q) {
    return q.g1 + s.beta * (2.0 * q.g2 + s.beta * (3.0 * q.g3 + s.beta * (4.0 * q.g4 + 5.0 * s.beta * q.g5)));
}

/// Specific volume, m3/kg.
template <class T>
T volume(const Terms<T>& s) {
    const Fractions<T> f = fractions(s);
    return ktl_lc.vca * (ktl_lc.ai1 * s.theta * f.rb - series_by_beta(s, series(s)) - f.v6 - f.v7 - f.v8 +
                         11.0 * s.boblp * boundary_group(s));
}

/// dv/dt at constant pressure, m3/(kg K): vca zeta_beta_theta / tca.
template <class T>
T volume_by_temperature(const Terms<T>& s) {
    using namespace entropy_products;
    constexpr auto& c = ktl_t2;
    const Fractions<T> f = fractions(s);
    const T fractions_slope = f.n6 - 2.0 * s.t2 * f.v6 + (f.n7 - 2.0 * s.t3 * f.v7) + (f.n8 - 2.0 * s.t4 * f.v8);
    const T group = s.fb * boundary_group(s) + boundary_group_slope(s, b00t2, b00t3, b00t4, b00t5, b00t6);
    return ktl_lc.vca / ktl_lc.tca *
           (ktl_lc.ai1 * f.rb + c.b00 * (series_by_beta(s, series_slope(s)) + fractions_slope) -
            11.0 * s.boblp * group);
}

/// dv/dp at constant temperature, m3/(kg bar): vca zeta_beta_beta / pca.
template <class T>
T volume_by_pressure(const Terms<T>& s) {
    const Fractions<T> f = fractions(s);
    const Series<T> q = series(s);
    const T rb2 = f.rb * f.rb;
    const T rb4 = rb2 * rb2;
    const T series_curvature = 2.0 * q.g2 + s.beta * (6.0 * q.g3 + s.beta * (12.0 * q.g4 + 20.0 * s.beta * q.g5));
    const T f6 = f.v6 * f.rb * (5.0 - 8.0 * rb4 * f.rd2);
    const T f7 = f.v7 * f.rb * (6.0 - 10.0 * (rb4 * f.rb) * f.rd3);
    const T f8 = f.v8 * f.rb * (7.0 - 12.0 * (rb4 * rb2) * f.rd4);
    return ktl_lc.vca / ktl_lc.pca *
           (-ktl_lc.ai1 * s.theta * rb2 - series_curvature + f6 + f7 + f8 + 110.0 * s.boblp * f.rb * boundary_group(s));
}

/// Series groups of the enthalpy: each B X^n of the Gibbs function comes with 1 + n bt.
template <class T>
T enthalpy_series(const Terms<T>& s, const T& bt) {
    constexpr auto& c = ktl_t2;
    const T b1 = c.bb11 * s.x13 * (1.0 + 13.0 * bt) + c.bb12 * s.x3 * (1.0 + 3.0 * bt);
    const T b2 = c.bb21 * s.x18 * (1.0 + 18.0 * bt) + c.bb22 * s.x2 * (1.0 + 2.0 * bt) + c.bb23 * s.x1 * (1.0 + bt);
    const T b3 = c.bb31 * s.x18 * (1.0 + 18.0 * bt) + c.bb32 * s.x10 * (1.0 + 10.0 * bt);
    const T b4 = c.bb41 * s.x25 * (1.0 + 25.0 * bt) + c.bb42 * s.x14 * (1.0 + 14.0 * bt);
    const T b5 =
        c.bb51 * s.x32 * (1.0 + 32.0 * bt) + c.bb52 * s.x28 * (1.0 + 28.0 * bt) + c.bb53 * s.x24 * (1.0 + 24.0 * bt);
    return series_in_beta(s, b1, b2, b3, b4, b5);
}

/// Specific enthalpy, kJ/kg.
template <class T>
T enthalpy(const Terms<T>& s) {
    using namespace enthalpy_products;
    constexpr auto& c = ktl_t2;
    const T bt = c.b00 * s.theta;
    const T e0 = c.bb00 * s.theta + c.bb01 - s.th2 * (c.bb03 + bb04t2 * s.theta + bb05t3 * s.th2);
    const T f6 =
        s.x11 * (s.bb61f * (1.0 + 12.0 * bt - s.t2 * bt) + c.bb62 * (1.0 + 11.0 * bt - s.t2 * bt)) * (1.0 / s.d2);
    const T f7 =
        s.x18 * (s.bb71f * (1.0 + 24.0 * bt - s.t3 * bt) + c.bb72 * (1.0 + 18.0 * bt - s.t3 * bt)) * (1.0 / s.d3);
    const T f8 =
        s.x14 * (s.bb81f * (1.0 + 24.0 * bt - s.t4 * bt) + c.bb82 * (1.0 + 14.0 * bt - s.t4 * bt)) * (1.0 / s.d4);
    const T g = (1.0 + s.theta * s.fb) * boundary_group(s) +
                s.theta * boundary_group_slope(s, b00t2, b00t3, b00t4, b00t5, b00t6);
    return ktl_lc.pvo10 * (s.beta * s.boblp * g + ktl_lc.alpha0 + e0 - enthalpy_series(s, bt) - f6 - f7 - f8);
}

/// Specific entropy, kJ/(kg K).
template <class T>
T entropy(const Terms<T>& s) {
    using namespace entropy_products;
    constexpr auto& c = ktl_t2;
    const T e0 = c.bb00 * log(s.theta) - c.bb02 - s.theta * (bb03t2 + bb04t3 * s.theta + bb05t4 * s.th2);
    const Series<T> q = series_slope(s);
    const T groups = series_in_beta(s, q.g1, q.g2, q.g3, q.g4, q.g5);
    const T e6 = s.x11 * (s.bb61f * (12.0 - s.t2) + c.bb62 * (11.0 - s.t2)) * (1.0 / s.d2);
    const T e7 = s.x18 * (s.bb71f * (24.0 - s.t3) + c.bb72 * (18.0 - s.t3)) * (1.0 / s.d3);
    const T e8 = s.x14 * (s.bb81f * (24.0 - s.t4) + c.bb82 * (14.0 - s.t4)) * (1.0 / s.d4);
    const T h = s.fb * boundary_group(s) + boundary_group_slope(s, b00t2, b00t3, b00t4, b00t5, b00t6);
    return ktl_lc.pvot *
           (e0 - c.b00 * (groups + e6 + e7 + e8) + s.beta * s.boblp * h - ktl_lc.alpha1 - ktl_lc.ai1 * log(s.beta));
}

/// Series groups of the heat capacity: each B X^n comes with n^2.
template <class T>
T heat_capacity_series(const Terms<T>& s) {
    constexpr auto& c = ktl_t2;
    const T c1 = s.x3 * (169.0 * c.bb11 * s.x10 + 9.0 * c.bb12);
    const T c2 = s.x1 * (324.0 * c.bb21 * s.x17 + 4.0 * c.bb22 * s.x1 + c.bb23);
    const T c3 = s.x10 * (324.0 * c.bb31 * s.x8 + 100.0 * c.bb32);
    const T c4 = s.x14 * (625.0 * c.bb41 * s.x11 + 196.0 * c.bb42);
    const T c5 = s.x24 * (1024.0 * c.bb51 * s.x8 + 784.0 * c.bb52 * s.x4 + 576.0 * c.bb53);
    return series_in_beta(s, c1, c2, c3, c4, c5);
}

/// Specific isobaric heat capacity, kJ/(kg K): theta times the theta-derivative of the entropy bracket.
/// With E = d/d ln X, a group N/D of the fractions gives E E (N/D) = sum B X^n ((n - t)^2 - E t) / D, where
/// t = E D / D and E t = E E D / D - t^2; the boundary group gives (n b + fb)^2 - dfb/dtheta.
template <class T>
T heat_capacity(const Terms<T>& s) {
    using namespace entropy_products;
    constexpr auto& c = ktl_t2;
    const T ideal = c.bb00 - s.theta * (bb03t2 + 2.0 * bb04t3 * s.theta + 3.0 * bb05t4 * s.th2);

    const T et2 = s.t2 * (14.0 - s.t2);
    const T et3 = s.t3 * (19.0 - s.t3);
    const T et4 = 729.0 * s.x27 * (4.0 * c.b81 * s.x27 + c.b82) / s.d4 - s.t4 * s.t4;
    const auto square = [](const T& a) { return a * a; };
    const T e6 = s.x11 * (s.bb61f * (square(12.0 - s.t2) - et2) + c.bb62 * (square(11.0 - s.t2) - et2)) * (1.0 / s.d2);
    const T e7 = s.x18 * (s.bb71f * (square(24.0 - s.t3) - et3) + c.bb72 * (square(18.0 - s.t3) - et3)) * (1.0 / s.d3);
    const T e8 = s.x14 * (s.bb81f * (square(24.0 - s.t4) - et4) + c.bb82 * (square(14.0 - s.t4) - et4)) * (1.0 / s.d4);

    const T dfb = 10.0 * ktl_cl.al2t2 * (1.0 / s.betal) - 0.1 * (s.fb * s.fb);
    const T curvature = s.x1 * horner(s.x1, c.bb91 * c.b00 * c.b00, c.bb92 * b00t2 * b00t2, c.bb93 * b00t3 * b00t3,
                                      c.bb94 * b00t4 * b00t4, c.bb95 * b00t5 * b00t5, c.bb96 * b00t6 * b00t6);
    const T g = (s.fb * s.fb - dfb) * boundary_group(s) +
                2.0 * s.fb * boundary_group_slope(s, b00t2, b00t3, b00t4, b00t5, b00t6) + curvature;
    return ktl_lc.pvot *
           (ideal + s.theta * (c.b00 * c.b00 * (heat_capacity_series(s) + e6 + e7 + e8) - s.beta * s.boblp * g));
}

} // namespace ktl::region2

namespace ktl {

/// Pressure of the 2/3 boundary at t (degC), bar. The boundary itself belongs to sub-region 2.
template <class T>
T boundary_pressure(const T& t) {
    return ktl_lc.pca * region2::boundary(T((t + ktl_lc.tza) / ktl_lc.tca));
}

/// Its inverse: temperature, degC, at p from about 165 bar (350 degC) to 1000 bar (590 degC). The roots of a parabola.
inline double boundary_temperature(double p) {
    using region2::ktl_cl;
    const double root = std::sqrt(ktl_cl.al1 * ktl_cl.al1 - 4.0 * ktl_cl.al2 * (ktl_cl.al0 - p / ktl_lc.pca));
    return ktl_lc.tca * (root - ktl_cl.al1) / (2.0 * ktl_cl.al2) - ktl_lc.tza;
}

} // namespace ktl
