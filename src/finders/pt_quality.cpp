// States from pressure and temperature, and from pressure or temperature and quality.
#include "regions/constants.hpp"

#include <cmath>
#include <ktl/ktlftn.h>

namespace {

using ktl::ktl_lc;

/// Boundary between sub-regions 2 and 3 as ktlrpt draws it, a reduced pressure. Two of the coefficients
/// depart from the formulation's (ktl_cl: 19.31380707 and 15.74373327), which lifts the boundary by about
/// 0.7 bar near 350 degC; states between the two lines belong to steam here.
double shifted_boundary(double teta) { return (19.313380707 * teta - 34.17061978) * teta + 15.7473327; }

/// Sub-region 3 at p, t from the bracket va, vb: the volume replaces the pressure. The brackets are given: straight lines in
/// t outside the volumes of most states. Results depend on them to the last bit, so they stay.
int near_critical(double& p, double t, double va, double vb, double eps, int region) {
    p = ktl_i2(ktl_a3, t, p, va, vb, eps);
    return region;
}

/// Up to 350 degC: saturated, steam or water.
int below_350(double p, double t, double eps) {
    const double ps = ktl_pt(t);
    if (std::fabs(p - ps) < eps * p) return KTL_WET;
    if (ps > p) {
        comt2(p, t);
        return KTL_STEAM;
    }
    comt1(p, t);
    return KTL_WATER;
}

} // namespace

int ktlrpt(double& p, double& t, const double& eps) {
    if (!(t > 350.0)) return below_350(p, t, eps);

    if (!(t > 374.15)) {
        const double ps = ktl_pt(t);
        if (std::fabs(p - ps) < eps * p) return KTL_WET_NEAR_CRITICAL;
        if (p > ps) return near_critical(p, t, 6.0e-05 * t - 0.01899, ktl_lc.v3min, eps, KTL_NEAR_CRITICAL_WATER);
    }
    const double teta = (t + 273.15) / 647.3;
    const double beta = p / ktl_lc.pca;
    if (shifted_boundary(teta) > beta) return KTL_STEAM;
    return near_critical(p, t, 5.6e-06 * t - 0.00073, 0.01545 - 2.18e-05 * t, eps, KTL_NEAR_CRITICAL_STEAM);
}

int ktlrpx(double& p, double& x, const double& /*eps*/) {
    const double p2 = p;
    if (!(p2 <= ktl_lc.pca)) return KTL_NO_STATE;
    const double t = ktl_it(p2);
    p = x;
    x = t;
    return p2 > ktl_lc.p1 ? KTL_WET_NEAR_CRITICAL : KTL_WET;
}

int ktlrtx(double& t, double& x, const double& /*eps*/) {
    const double tin = t;
    if (tin > ktl_lc.tc) return KTL_NO_STATE;
    t = x;
    x = tin;
    return tin > ktl_lc.t3min ? KTL_WET_NEAR_CRITICAL : KTL_WET;
}
