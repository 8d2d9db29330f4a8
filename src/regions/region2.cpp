// Doors of sub-region 2: working terms and range reports in front of the equations.
#include "regions/region2.hpp"

#include "regions/region_cache.hpp"

#include <ktl/ktlftn.h>

namespace {

using namespace ktl;

/// Record ktl_s2. Written by comt2 alone, one to a thread.
constinit KTL_THREAD_LOCAL RegionCache<region2::Terms<double>> ktl_s2{};

const region2::Terms<double>& prepared(double p, double t) {
    constexpr Limits limits{"COMT2 ", ktl_lc.t2min, ktl_lc.tmax};
    return ktl_s2.at(p, t, limits, region2::terms<double>);
}

} // namespace

void comt2(const double& p, const double& t) { prepared(p, t); }
double ktl_c2(const double& p, const double& t) { return region2::volume(prepared(p, t)); }
double ktl_d2(const double& p, const double& t) { return region2::enthalpy(prepared(p, t)); }
double ktl_e2(const double& p, const double& t) { return region2::entropy(prepared(p, t)); }
double ktl_f2(const double& p, const double& t) {
    const double h = ktl_d2(p, t);
    return internal_energy(h, p, ktl_c2(p, t));
}
double ktl_h2(const double& p, const double& t) { return region2::heat_capacity(prepared(p, t)); }
