// Doors of sub-region 3: cache, range report and records in front of the equations.
#include "regions/region3.hpp"

#include "regions/region_cache.hpp"

#include <ktl/ktlftn.h>

namespace {

using namespace ktl;

/// Record ktl_s3 and the state it belongs to. Written by comt3 alone, one to a thread.
struct Working {
    region3::Terms<double> terms;
    double vprev = no_state_yet;
    double tprev = no_state_yet;
};
constinit KTL_THREAD_LOCAL Working ktl_s3{};

/// One report for the pair, whichever of the two is out of range.
void check_range(double v, double t) {
    if (out_of_range(v, ktl_lc.v3min, ktl_lc.v3max) || out_of_range(t, ktl_lc.t3min, ktl_lc.t3max))
        reports::report("COMT3 ", reports::Case::volume_temperature_out_of_range, v, t);
}

/// A search at fixed temperature changes v alone; the terms of temperature are kept then.
const region3::Terms<double>& prepared(double v, double t) {
    Working& w = ktl_s3;
    const bool same_t = t == w.tprev;
    if (v == w.vprev && same_t) return w.terms;
    ktl_cu.v = w.vprev = v;
    ktl_cu.t = w.tprev = t;
    check_range(v, t);
    if (!same_t) region3::temperature_terms(w.terms, t);
    region3::volume_terms(w.terms, v);
    return w.terms;
}

} // namespace

void comt3(const double& v, const double& t) { prepared(v, t); }
double ktl_a3(const double& v, const double& t) { return region3::pressure(prepared(v, t)); }
double ktl_d3(const double& v, const double& t) { return region3::enthalpy(prepared(v, t)); }
double ktl_e3(const double& v, const double& t) { return region3::entropy(prepared(v, t)); }
double ktl_f3(const double& v, const double& t) {
    const double h = ktl_d3(v, t);
    return internal_energy(h, ktl_a3(v, t), v);
}
double ktl_h3(const double& v, const double& t) { return region3::heat_capacity(prepared(v, t)); }
double cp3e(const double& v, const double& t) { return ktl_h3(v, t); }
