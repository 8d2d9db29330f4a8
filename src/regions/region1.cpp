// Doors of sub-region 1: working terms and range reports in front of the equations.
#include "regions/region1.hpp"

#include "regions/region_cache.hpp"

#include <ktl/ktlftn.h>

namespace {

using namespace ktl;

/// Record ktl_s1. Written by comt1 alone, one to a thread.
constinit KTL_THREAD_LOCAL RegionCache<region1::Terms<double>> ktl_s1{};

const region1::Terms<double>& prepared(double p, double t) {
    constexpr Limits limits{"COMT1 ", ktl_lc.tmin, ktl_lc.t1max};
    return ktl_s1.at(p, t, limits, region1::terms<double>);
}

} // namespace

void comt1(const double& p, const double& t) { prepared(p, t); }
double ktl_c1(const double& p, const double& t) { return region1::volume(prepared(p, t)); }
double ktl_d1(const double& p, const double& t) { return region1::enthalpy(prepared(p, t)); }
double ktl_e1(const double& p, const double& t) { return region1::entropy(prepared(p, t)); }
double ktl_f1(const double& p, const double& t) {
    const double h = ktl_d1(p, t);
    return internal_energy(h, p, ktl_c1(p, t));
}
double ktl_h1(const double& p, const double& t) { return region1::heat_capacity(prepared(p, t)); }
