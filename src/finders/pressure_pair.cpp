// States from pressure and a second property: region by saturated values at the pressure, then inversion.
#include "regions/constants.hpp"

#include <algorithm>
#include <cmath>
#include <ktl/ktlftn.h>

namespace {

using ktl::ktl_lc;

/// Width of the strip, kJ/kg, by which sub-regions 1 and 2 reach into sub-region 3: given; the jump of h at 350 degC.
constexpr double margin = 0.2;

/// Temperature of the 2/3 boundary at p, degC. Three coefficients depart in their last digits from the exact
/// inverse of the boundary line, which puts it about 0.003 K lower (349.99623 degC at p1): 34.1706978 for 34.17061978,
/// 77.25562828 for 4 al2 = 77.25522828, 38.62781414 for 2 al2 = 38.62761414. Given.
double boundary_temperature(double p) {
    const double root = std::sqrt(1167.6365881389247 - 77.25562828 * (15.74373327 - p / ktl_lc.pca));
    return 647.3 * (34.1706978 + root) / 38.62781414 - 273.15;
}

/// Temperature between a and b at which f(p, t) = h, put in place of h.
int single_phase(ktl_property f, double p, double& h, double a, double b, double eps, int region) {
    h = ktl_i1(f, p, h, a, b, eps);
    return region;
}

int liquid(double p, double& h, double a, double b, double eps) {
    return single_phase(ktl_d1, p, h, a, b, eps, KTL_WATER);
}

int steam(double p, double& h, double from, double eps) {
    return single_phase(ktl_d2, p, h, from, ktl_lc.tmax, eps, KTL_STEAM);
}

/// Volume and temperature of sub-region 3 within the given limits, in place of p and h.
int near_critical(double& p, double& h, double a1, double b1, double a2, double b2, double eps, int region) {
    ktl_id(ktl_d3, h, ktl_a3, p, a1, b1, a2, b2, eps);
    p = a1;
    h = a2;
    return region;
}

/// Beyond saturated steam, or beyond the critical isotherm: sub-region 3 up to volume v and temperature t,
/// steam past the boundary.
int steam_side(double& p, double& h, double v, double t, double eps) {
    double tl = boundary_temperature(p);
    if (h - ktl_d2(p, tl) <= -margin) return near_critical(p, h, ktl_c2(p, tl), v, tl, t, eps, KTL_NEAR_CRITICAL_STEAM);
    return steam(p, h, tl, eps);
}

int mixture(double& p, double& h, double hp, double hpp, double ts, int region) {
    p = (h - hp) / (hpp - hp);
    h = ts;
    return region;
}

/// Up to p1: saturated phases from sub-regions 1 and 2.
int below_p1(double& p, double& h, double eps) {
    const double ts = ktl_it(p);
    const double hp = ktl_d1(p, ts);
    const double hpp = ktl_d2(p, ts);
    if (h <= hp) return liquid(p, h, ktl_lc.tmin, ts, eps);
    if (h >= hpp) return steam(p, h, ts, eps);
    return mixture(p, h, hp, hpp, ts, KTL_WET);
}

/// Between p1 and the critical pressure: saturated phases from sub-region 3.
int below_critical(double& p, double& h, double eps) {
    const double ts = ktl_it(p);
    double a = std::min(6.0e-05 * ts - 0.01899, ktl_lc.vca);
    double b = ktl_lc.v3min;
    const double vp = ktl_i2(ktl_a3, ts, p, a, b, eps);
    const double hp = ktl_d3(vp, ts);
    if (hp > h) return near_critical(p, h, ktl_c1(p, ktl_lc.t1max), vp, ktl_lc.t1max, ts, eps, KTL_NEAR_CRITICAL_WATER);
    a = std::max(0.08611 - 0.000222 * ts, ktl_lc.vca);
    b = ktl_lc.v3max;
    const double vpp = ktl_i2(ktl_a3, ts, p, a, b, eps);
    const double hpp = ktl_d3(vpp, ts);
    if (hpp > h) return mixture(p, h, hp, hpp, ts, KTL_WET_NEAR_CRITICAL);
    return steam_side(p, h, vpp, ts, eps);
}

/// Above the critical pressure: the critical isotherm divides region 4 from region 3.
int supercritical(double& p, double& h, double eps) {
    double a = ktl_lc.vca;
    double b = ktl_lc.v3min;
    const double vc = ktl_i2(ktl_a3, ktl_lc.tc, p, a, b, eps);
    if (h <= ktl_d3(vc, ktl_lc.tc))
        return near_critical(p, h, ktl_c1(p, ktl_lc.t1max), vc, ktl_lc.t1max, ktl_lc.tc, eps, KTL_NEAR_CRITICAL_WATER);
    return steam_side(p, h, vc, ktl_lc.tc, eps);
}

} // namespace

int ktlrph(double& p, double& h, const double& eps) {
    if (!(p > ktl_lc.p1)) return below_p1(p, h, eps);
    if (h - ktl_d1(p, ktl_lc.t1max) < margin) return liquid(p, h, ktl_lc.t1max, ktl_lc.tmin, eps);
    return p > ktl_lc.pca ? supercritical(p, h, eps) : below_critical(p, h, eps);
}
