// Random states, each in the domain of its sub-region.
#pragma once

#include "regions/constants.hpp"
#include "regions/region2.hpp"
#include "regions/region3.hpp"
#include "regions/saturation.hpp"

#include "support/random.hpp"

#include <algorithm>
#include <cmath>

namespace ktl::test {

/// p and t in sub-regions 1 and 2, v and t in sub-region 3.
struct State {
    double first;
    double t;
};

inline double saturation_pressure(double t) { return saturation::terms(t).p; }

/// Pressure at which sub-region 2 ends at t: saturation, boundary line, upper limit.
inline double steam_limit(double t) {
    if (t <= ktl_lc.t1) return saturation_pressure(t);
    return std::min(ktl_lc.pmax, ktl_lc.pca * region2::boundary((t + ktl_lc.tza) / ktl_lc.tca));
}

inline State random_liquid(Random& random) {
    const double t = random.between(ktl_lc.tmin, ktl_lc.t1max);
    return {random.between(saturation_pressure(t), ktl_lc.pmax), t};
}

/// Half of the pressures are spread over the logarithm, so that low ones occur.
inline State random_steam(Random& random) {
    const double t = random.between(ktl_lc.t2min, ktl_lc.tmax);
    const double highest = std::max(steam_limit(t), ktl_lc.pmin);
    const double u = random.between(0.0, 1.0);
    if (random.below(2) == 0) return {ktl_lc.pmin + u * (highest - ktl_lc.pmin), t};
    return {ktl_lc.pmin * std::pow(highest / ktl_lc.pmin, u), t};
}

/// True where (v, t) is a stable single phase of sub-region 3.
inline bool is_near_critical(double v, double t) {
    const auto s = region3::terms(v, t);
    const double p = region3::pressure(s);
    if (!(region3::free_energy_volume_curvature(s) > 0.0)) return false;
    if (p > ktl_lc.pmax || p < steam_limit(t)) return false;
    if (t > ktl_lc.tc) return true;
    return v < ktl_lc.vca ? p >= saturation_pressure(t) : p <= saturation_pressure(t);
}

/// A third of the temperatures lie below the critical one.
inline State random_near_critical(Random& random) {
    for (;;) {
        const double t = random.between(ktl_lc.t3min, random.below(3) == 0 ? ktl_lc.tc : ktl_lc.t3max);
        const double v = random.between(ktl_lc.v3min, ktl_lc.v3max);
        if (is_near_critical(v, t)) return {v, t};
    }
}

} // namespace ktl::test
