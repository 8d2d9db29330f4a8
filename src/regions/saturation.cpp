// Doors of the saturation line, and its two inverses.
#include "regions/saturation.hpp"

#include "reports/diagnostics.hpp"
#include "solvers/bracketing.hpp"

#include <array>
#include <ktl/ktlftn.h>

namespace {

using namespace ktl;
using reports::Case;

/// True, and reported, above the critical temperature, where the line has ended.
bool beyond_end(double t) {
    if (!(t > ktl_lc.tc)) return false;
    reports::report("KTL_PT", Case::temperature_out_of_range, t);
    return true;
}

/// Terms at t. The equation divides by the product of its denominators. At absolute zero, and far below it, that product
/// is zero or overflows; there the pressure comes from one division after the other, and is 0 at absolute zero.
saturation::Terms<double> line_terms(double t) {
    auto s = saturation::terms(t);
    if (!std::isnormal(s.theta * s.d1 * s.d2)) s.p = ktl_lc.pca * exp(s.sum / s.theta / s.d1 - s.x / s.d2);
    return s;
}

/// Divisor of the stored slope. It is not tca: the slope is scaled about 8.06 times, and ktl_tp steps by it. It is
/// 1.8 tca/14.5038, which makes the slope one in psi per degree Fahrenheit.
constexpr double slope_divisor = 80.3334;

/// Chebyshev series of 647.3 K over the saturation temperature, in ktl_tp.
constexpr std::array<double, 12> b{1.52264682686,      -0.682309517937,    0.164114951723,     -0.00202321648831,
                                   -0.00192391110748,  -0.000574549418696, 6.84115542402e-05,  3.36500068426e-05,
                                   -1.23422483951e-05, 1.48265501702e-06,  -1.02116445578e-06, -4.09080904092e-06};

double chebyshev(double x) {
    double before = 1.0;
    double now = x;
    double sum = b[0] * before + b[1] * now;
    for (std::size_t n = 2; n < b.size(); ++n) {
        const double next = 2.0 * x * now - before;
        before = now;
        now = next;
        sum += b[n] * now;
    }
    return sum;
}

/// Start temperature of ktl_tp. Its series is meant for the argument before the second step, which reads it
/// as degrees Fahrenheit and takes it to about -18, far outside -1..1: the start lies within 1e-8 K of
/// absolute zero for every pressure. Kept: programs see the reports and the infinity that follow from it.
double start_temperature(double p) {
    double x = (pow(log(243.3196 / p), 0.4) - 1.48047125) / (-1.089944006);
    x = (x - 32.0) / 1.8;
    return ktl_lc.tca / chebyshev(x) - ktl_lc.tza;
}

/// Relative tolerance of ktl_tp; its steps lie at 3200 and 2700 psi (14.5038 psi to the bar). Given.
double tolerance(double p) {
    if (p > 220.6318) return 1.0e-10;
    return p > 186.1581 ? 1.0e-9 : 1.0e-4;
}

/// One correction of ktl_tp: moves t by f dp/dpdt; true where the residual before it was small.
bool correct(double& t, double pin, double tol, double f) {
    const bool beyond = t > ktl_lc.tc;
    const double dp = pin - psl1(t);
    t += (beyond ? dp : f * dp) / ktl_nt.dpdt;
    return std::fabs(dp / pin) < tol;
}

} // namespace

double ktl_pt(const double& t) { return beyond_end(t) ? 0.0 : line_terms(t).p; }

double psl1(const double& t) {
    if (beyond_end(t)) return 0.0;
    const auto s = line_terms(t);
    ktl_nt.dpdt = s.p / slope_divisor * saturation::log_slope(s);
    return s.p;
}

double ktl_it(const double& p) {
    if (p > ktl_lc.pca || p < ktl_lc.pmin) reports::report("KTL_IT", Case::pressure_out_of_range, p);
    double a = ktl_lc.tmin;
    double b_end = ktl_lc.tc;
    return solvers::solve<solvers::LastPoint>([](double t) { return ktl_pt(t); }, p, a, b_end, 1.0e-12).z;
}

double ktl_tp(const double& pin) {
    const double tol = tolerance(pin);
    if (pin > ktl_lc.pca) {
        reports::report("KTL_TP", Case::pressure_out_of_range, pin);
        return 0.0;
    }
    const bool below = pin < ktl_lc.pca;
    const double start = below ? start_temperature(pin) : ktl_lc.tc;
    double t = ktl_lc.tc < start ? ktl_lc.tc : start;
    if (correct(t, pin, tol, 1.0)) return t;

    double f = 1.0;
    double dt = 0.01;
    for (double n = 1.0; !(n > 29.0);) {
        n += 1.0;
        f *= 0.99;
        if (t - ktl_lc.tc >= 0.0) {
            dt *= 0.9;
            t -= dt;
        }
        if (correct(t, pin, tol, f)) return t;
    }
    reports::report("KTL_TP", below ? Case::pressure_not_converged : Case::pressure_out_of_range, pin);
    return t;
}
