// Slopes of the properties of one phase, which every partial derivative is made of.
#pragma once

#include "regions/phase_properties.hpp"

#include <cmath>
#include <ktl/steam.hpp>

namespace ktl::partial {

/// Slopes of a property by the two variables that a state is moved by: the first one, and t.
struct Slope {
    double first, t;
};
inline Slope operator+(const Slope& a, const Slope& b) { return {a.first + b.first, a.t + b.t}; }
inline Slope operator*(double a, const Slope& b) { return {a * b.first, a * b.t}; }

/// Slopes of the four properties that all others follow from, with their values. Temperature in K.
struct PhaseSlopes {
    double pressure, kelvin, volume, entropy;
    Slope p, t, v, s;
};

/// By the fundamental relations; 1 bar m3 is 100 kJ.
inline Slope slope_of(Property y, const PhaseSlopes& z) {
    const Slope v_dp = kj_per_bar_m3 * z.volume * z.p;
    const Slope p_dv = kj_per_bar_m3 * z.pressure * z.v;
    switch (y) {
    case Property::p: return z.p;
    case Property::t: return z.t;
    case Property::v: return z.v;
    case Property::rho: return (-1.0 / (z.volume * z.volume)) * z.v;
    case Property::h: return z.kelvin * z.s + v_dp;
    case Property::s: return z.s;
    case Property::u: return z.kelvin * z.s + -1.0 * p_dv;
    case Property::gibbs: return v_dp + -z.entropy * z.t;
    case Property::helmholtz: return -1.0 * p_dv + -z.entropy * z.t;
    default: return {quiet_nan, quiet_nan};
    }
}

/// What the slopes of a phase are made of. Columns have them too, and so the same bits.
struct PhaseInput {
    double p, t, v, s, cp, cv, compressibility, expansion, speed_of_sound;
    Region region;
};

/// Slopes of a phase by the primary variable of its sub-region and t, the other one held: by v in sub-region 3, else by p.
inline PhaseSlopes slopes_of(const PhaseInput& y) {
    const double kelvin = y.t + ktl_lc.tza;
    const double dvdp = -y.compressibility * y.v;
    const double dvdt = y.expansion * y.v;
    if (y.region != Region::near_critical_steam && y.region != Region::near_critical_water)
        return {y.p, kelvin, y.v, y.s, {1.0, 0.0}, {0.0, 1.0}, {dvdp, dvdt}, {-kj_per_bar_m3 * dvdt, y.cp / kelvin}};
    // On a level isotherm dv/dp is infinite, dp/dv zero, and w^2 = v^2 T (dp/dt)_v^2 / cv.
    const double dpdv = 1.0 / dvdp;
    const double level_dpdt = y.speed_of_sound * std::sqrt(y.cv / (pascals_per_bar * kj_per_bar_m3 * kelvin)) / y.v;
    const double dpdt = std::isinf(dvdp) ? level_dpdt : -dvdt * dpdv;
    return {y.p, kelvin, y.v, y.s, {dpdv, dpdt}, {0.0, 1.0}, {1.0, 0.0}, {kj_per_bar_m3 * dpdt, y.cv / kelvin}};
}

inline double ratio(const Slope& of, const Slope& by, const Slope& held) {
    return (of.first * held.t - of.t * held.first) / (by.first * held.t - by.t * held.first);
}

/// True if two properties vary independently: v and rho never do, p and t not in a mixture.
inline bool independent(Property a, Property b, bool mixture) {
    const auto both = [&](Property y, Property z) { return (a == y || a == z) && (b == y || b == z); };
    return a != b && !both(Property::v, Property::rho) && !(mixture && both(Property::p, Property::t));
}

} // namespace ktl::partial
