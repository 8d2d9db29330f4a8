#include "regions/state.hpp"

#include "solvers/bracketing.hpp"

#include <algorithm>

namespace ktl {

namespace {

/// Tolerance with which the entry ktlftn finds saturated volumes.
constexpr double entry_tolerance = 1.0e-8;

/// Volume between a and b at the pressure p of isotherm t, by the steps of ktl_i2.
double saturated_volume(const region3::Terms<double>& isotherm, double p, double a, double b) {
    auto s = isotherm;
    const auto pressure_at = [&s](double v) {
        region3::volume_terms(s, v);
        return region3::pressure(s);
    };
    return solvers::solve<solvers::SecantOutside>(pressure_at, p, a, b, entry_tolerance).z;
}

} // namespace

Saturated saturated_at(double t) {
    const double p = saturation::terms(t).p;
    if (!(t > ktl_lc.t3min)) return {t, p, KTL_WET, p, p};
    region3::Terms<double> s;
    region3::temperature_terms(s, t);
    const double vpp = saturated_volume(s, p, std::max(0.08611 - 0.000222 * t, 0.00317), 0.008799105448);
    const double vp = saturated_volume(s, p, std::min(6e-05 * t - 0.01899, 0.00317), 0.00174);
    return {t, p, KTL_WET_NEAR_CRITICAL, vp, vpp};
}

Saturated saturated_under(double p) {
    if (!(p > saturation::terms(ktl_lc.tmin).p)) return saturated_at(ktl_lc.tmin);
    if (!(p < ktl_lc.pca)) return saturated_at(ktl_lc.tc);
    const double t = ktl_it(p);
    if (p > ktl_lc.p1) return saturated_at(std::max(t, std::nextafter(ktl_lc.t3min, ktl_lc.tc)));
    return {t, p, KTL_WET, p, p};
}

double boundary_temperature(double p) {
    using region2::ktl_cl;
    const double root = std::sqrt(ktl_cl.al1 * ktl_cl.al1 - 4.0 * ktl_cl.al2 * (ktl_cl.al0 - p / ktl_lc.pca));
    return ktl_lc.tca * (root - ktl_cl.al1) / (2.0 * ktl_cl.al2) - ktl_lc.tza;
}

} // namespace ktl
