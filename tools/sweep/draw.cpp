#include "draw.hpp"

#include "regions/constants.hpp"
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace sweep {

namespace {

using ktl::ktl_lc;
using ktl::SaturationModel;

constexpr double entry_eps = 1.0e-8;

Values single(double p, double v, double h, double s, double t) { return {p, t, v, h, s, h - 100.0 * p * v, -1.0}; }
Values water(double p, double t) { return single(p, ktl_c1(p, t), ktl_d1(p, t), ktl_e1(p, t), t); }
Values steam(double p, double t) { return single(p, ktl_c2(p, t), ktl_d2(p, t), ktl_e2(p, t), t); }
Values near_critical(double v, double t) { return single(ktl_a3(v, t), v, ktl_d3(v, t), ktl_e3(v, t), t); }

Values mixed(const Values& a, const Values& b, double p, double x) {
    const auto at = [x](double water_value, double steam_value) {
        return water_value + x * (steam_value - water_value);
    };
    return {p, a.t, at(a.v, b.v), at(a.h, b.h), at(a.s, b.s), at(a.u, b.u), x};
}

/// Saturated volumes of the entry.
double entry_water_volume(double t, double ps) {
    double a = std::min(6e-05 * t - 0.01899, 0.00317);
    double b = 0.00174;
    return ktl_i2(ktl_a3, t, ps, a, b, entry_eps);
}
double entry_steam_volume(double t, double ps) {
    double a = std::max(0.08611 - 0.000222 * t, 0.00317);
    double b = 0.008799105448;
    return ktl_i2(ktl_a3, t, ps, a, b, entry_eps);
}

Values wet(int region, double x, double t, SaturationModel model) {
    const double ps = ktl_pt(t);
    if (region == KTL_WET) return mixed(water(ps, t), steam(ps, t), ps, x);
    if (model == SaturationModel::entry_compatible)
        return mixed(near_critical(entry_water_volume(t, ps), t), near_critical(entry_steam_volume(t, ps), t), ps, x);
    const auto phases = ktl::saturated_at<double>(t, model);
    Values values = mixed(near_critical(phases.liquid, t), near_critical(phases.vapour, t), ps, x);
    values.u = values.h - 100.0 * ps * values.v;
    return values;
}

Values wet(double x, double t, SaturationModel model) {
    return wet(t > ktl_lc.t3min ? KTL_WET_NEAR_CRITICAL : KTL_WET, x, t, model);
}

/// Volume between a (above p) and b (below p) by bisection alone.
double bisected(double p, double t, double a, double b) {
    for (int pass = 0; pass < 60; ++pass) {
        const double middle = 0.5 * (a + b);
        (ktl_a3(middle, t) > p ? a : b) = middle;
    }
    return 0.5 * (a + b);
}

/// Greatest volume at which the isotherm has the pressure p.
double outermost(double p, double t) {
    double b = 0.0095;
    double a = b;
    while (a > ktl_lc.vca && ktl_a3(a, t) <= p) {
        b = a;
        a *= 0.9995;
    }
    return bisected(p, t, a, b);
}

/// Sub-region 3 at p and t; on the steam side below the saturation pressure.
Values near_critical_at(double p, double t) {
    if (t > ktl_lc.tc) return near_critical(bisected(p, t, 0.0013, 0.0095), t);
    const double ps = ktl_pt(t);
    if (p < ps) return near_critical(outermost(p, t), t);
    return near_critical(bisected(p, t, 0.0013, entry_water_volume(t, ps)), t);
}

double upper_steam_pressure(double t) {
    return std::min(t > ktl_lc.t3min ? ktl::boundary_pressure(t) : ktl_pt(t), ktl_lc.pmax);
}

/// t at or beside a limit, or anywhere.
double border_temperature(Random& random) {
    constexpr std::array<double, 8> limits{0.01, 4.0, 350.0, 350.0001, 373.3, 374.15, 590.0, 800.0};
    const unsigned choice = random.below(limits.size() + 4);
    if (choice >= limits.size()) return random.between(ktl_lc.tmin, ktl_lc.tmax);
    const double offset = random.below(2) == 0 ? 0.0 : random.around_zero(1e-12, 1e-2);
    return std::clamp(limits.at(choice) + offset, ktl_lc.tmin, ktl_lc.tmax);
}

/// p at or beside a limit at t.
double border_pressure(Random& random, double t) {
    const double beside = 1.0 + (random.below(2) == 0 ? 0.0 : random.around_zero(1e-12, 1e-3));
    double p = ktl_lc.pmin;
    switch (random.below(5)) {
    case 0: break;
    case 1: p = ktl_lc.pmax; break;
    case 2: p = t <= ktl_lc.tc ? ktl_pt(t) : ktl_lc.pca; break;
    case 3: p = t > ktl_lc.t3min ? ktl::boundary_pressure(t) : ktl_lc.p1; break;
    default: p = random.logarithmic(ktl_lc.pmin, ktl_lc.pmax); break;
    }
    return std::clamp(p * beside, ktl_lc.pmin, ktl_lc.pmax);
}

double border_quality(Random& random) {
    switch (random.below(5)) {
    case 0: return 0.0;
    case 1: return 1.0;
    case 2: return random.logarithmic(1e-12, 1e-2);
    case 3: return 1.0 - random.logarithmic(1e-12, 1e-2);
    default: return random.between(0.35, 0.65);
    }
}

/// A stable state of sub-region 3 around the critical point.
Values around_critical(Random& random) {
    for (int trial = 0; trial < 100; ++trial) {
        const double t = random.between(373.0, 376.0);
        const double v = random.between(0.0025, 0.0045);
        const double p = ktl_a3(v, t);
        if (ktl_a3(v * 1.0001, t) >= p) continue;
        if (t <= ktl_lc.tc && (v < ktl_lc.vca ? p < ktl_pt(t) : p > ktl_pt(t))) continue;
        return near_critical(v, t);
    }
    return near_critical(0.0032, 375.0);
}

/// Sub-region 3 at p and t next to a state of another sub-region with the volume v.
Values opposite(double p, double t, double v) { return near_critical(bisected(p, t, 0.99 * v, 1.01 * v), t); }

} // namespace

void silence_reports() {
    constexpr int silent_unit = 99;
    ktl_connect_unit(silent_unit, std::fopen("/dev/null", "w"));
    ktlerr.iunit = silent_unit;
    ktlerr.nprer = 0;
    ktlerr.maxer = 2147483647;
}

Values evaluate(int region, double first, double t) {
    switch (region) {
    case KTL_WATER: return water(first, t);
    case KTL_STEAM: return steam(first, t);
    case KTL_NEAR_CRITICAL_STEAM:
    case KTL_NEAR_CRITICAL_WATER: return near_critical(first, t);
    default: return wet(region, first, t, SaturationModel::entry_compatible);
    }
}

bool suits(int region, const Values& got) {
    constexpr double hair = 1.0e-9;
    switch (region) {
    case KTL_WATER: return got.t <= 350.5 && (got.t > 350.0 || got.p >= ktl_pt(got.t) * (1.0 - 1.0e-6));
    case KTL_STEAM: return got.t > 349.5 || got.p <= ktl_pt(got.t) * (1.0 + 1.0e-7);
    case KTL_NEAR_CRITICAL_STEAM: return got.t > ktl_lc.tc - hair || got.v >= 0.00317 * (1.0 - hair);
    case KTL_NEAR_CRITICAL_WATER:
        return got.t <= ktl_lc.tc + hair &&
               (got.v <= ktl_lc.vca * (1.0 + hair) || got.p >= ktl_pt(std::min(got.t, ktl_lc.tc)));
    case KTL_WET_NEAR_CRITICAL: return got.t >= 350.0 && got.x >= 0.0 && got.x <= 1.0;
    case KTL_WET: return got.t <= 350.5 && got.x >= 0.0 && got.x <= 1.0;
    default: return false;
    }
}

Values at_pressure_temperature(double p, double t) {
    if (!(t > ktl_lc.t3min)) return p >= ktl_pt(t) ? water(p, t) : steam(p, t);
    return p <= ktl::boundary_pressure(t) ? steam(p, t) : near_critical_at(p, t);
}

Values draw(Random& random, int kind, SaturationModel model) {
    const double t_water = random.between(ktl_lc.tmin, ktl_lc.t1max);
    const double t_steam = random.between(ktl_lc.tmin, ktl_lc.tmax);
    const double t_dense = random.between(ktl_lc.t3min + 1e-9, ktl_lc.t3max);
    const double share = random.between(0.0, 1.0);
    switch (kind % kinds) {
    case 0: return water(random.between(ktl_pt(t_water), ktl_lc.pmax), t_water);
    case 1: return water(random.logarithmic(ktl_pt(t_water), ktl_lc.pmax), t_water);
    case 2: return water(random.between(10.0, ktl_lc.pmax), ktl_lc.tmin + 12.0 * share);
    case 3: return steam(random.logarithmic(ktl_lc.pmin, upper_steam_pressure(t_steam)), t_steam);
    case 4: return steam(random.between(ktl_lc.pmin, upper_steam_pressure(t_steam)), t_steam);
    case 5: return near_critical_at(random.between(ktl::boundary_pressure(t_dense), ktl_lc.pmax), t_dense);
    case 6: {
        const double t = random.between(ktl_lc.t3min + 1e-9, 380.0);
        return near_critical_at(random.between(ktl::boundary_pressure(t), 250.0), t);
    }
    case 7: return around_critical(random);
    case 8: return wet(share, random.between(ktl_lc.tmin, ktl_lc.tc), model);
    case 9: return wet(share, random.between(348.0, ktl_lc.tc), model);
    case 10: {
        const double t = std::min(border_temperature(random), ktl_lc.tc);
        return wet(border_quality(random), t, model);
    }
    default: {
        const double t = border_temperature(random);
        return at_pressure_temperature(border_pressure(random, t), t);
    }
    }
}

Values draw_at_border(Random& random, int kind, SaturationModel model) {
    const double past = std::nextafter(ktl_lc.t3min, ktl_lc.tc);
    Values a{};
    Values b{};
    if (kind % 3 == 0) {
        // At the end of the range the state beyond the gap may lie above pmax.
        a = water(random.between(ktl_lc.p1 + 0.01, ktl_lc.pmax - 10.0), ktl_lc.t3min);
        b = opposite(a.p, past, a.v);
    } else if (kind % 3 == 1) {
        const double t = random.between(past, ktl_lc.t3max - 0.1);
        a = steam(ktl::boundary_pressure(t), t);
        b = opposite(a.p, t, a.v);
    } else {
        const double x = random.between(0.0, 1.0);
        a = wet(KTL_WET, x, ktl_lc.t3min, model);
        b = wet(KTL_WET_NEAR_CRITICAL, x, past, model);
    }
    const double share = random.between(0.0, 1.0);
    const auto between = [&](double Values::*member) { return a.*member + share * (b.*member - a.*member); };
    return {between(&Values::p),
            between(&Values::t),
            between(&Values::v),
            between(&Values::h),
            between(&Values::s),
            between(&Values::u),
            a.x};
}

} // namespace sweep
