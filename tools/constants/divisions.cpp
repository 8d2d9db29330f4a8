// Where the engine divides the range into patches and sub-regions, and the shapes through which first guesses see it.
#include "rows.hpp"

#include "engine/guesses/guesses.hpp"
#include "engine/kernels/inversion.hpp"
#include "first_guesses/states.hpp"
#include "searches/lines.hpp"
#include "searches/state.hpp"

#include <algorithm>

namespace constants {

namespace {

using first_guesses::mixture;
using first_guesses::phase;
using first_guesses::saturation_pressure;
using ktl::ktl_lc;
using ktl::Region;
namespace engine = ktl::engine;
namespace guesses = ktl::engine::guesses;

/// Largest and smallest volume of sub-region 3 within the range.
struct Volumes {
    double least = INFINITY, greatest = 0.0;
};
Volumes volumes_of_sub_region_3(int n) {
    Volumes out;
    for (int i = 1; i <= n; ++i) {
        const double t = ktl_lc.t3min + (ktl_lc.t3max - ktl_lc.t3min) * i / n;
        const double low = ktl::boundary_pressure(t);
        out.greatest = std::max(out.greatest, first_guesses::volume3(low, t));
        out.least = std::min(out.least, first_guesses::volume3(ktl_lc.pmax, t));
    }
    return out;
}

/// Temperature at which water under p has its least volume.
double densest(double p) {
    return last_point([p](double t) { return phase(Region::water, p, t).dvdt < 0.0; }, -5.0, 20.0);
}

/// Warmest water, degC, whose entropy rises with pressure somewhere, and whose energy does.
struct Warmest {
    double entropy = 0.0, energy = 0.0;
};
Warmest warmest_rise(int n) {
    Warmest out;
    for (int i = 0; i <= n; ++i)
        for (int j = 0; j <= 20; ++j) {
            const double t = ktl_lc.tmin + 30.0 * i / n;
            const double low = saturation_pressure(t);
            const auto y = phase(Region::water, low + (ktl_lc.pmax - low) * j / 20.0, t);
            if (slopes(ktl::Quantity::entropy, y).d_primary > 0.0) out.entropy = t;
            if (slopes(ktl::Quantity::energy, y).d_primary > 0.0) out.energy = t;
        }
    return out;
}

/// Smallest step of energy - 600 s along the 2/3 boundary.
double smallest_rise(char energy, int n) {
    double least = INFINITY, before = -INFINITY;
    for (int i = 0; i <= n; ++i) {
        const double t = ktl_lc.t1 + (ktl_lc.t3max - ktl_lc.t1) * i / n;
        const auto at = first_guesses::single(Region::steam, ktl::boundary_pressure(t), t);
        const double now = guesses::boundary_coordinate(at(energy), at.s);
        if (i > 0) least = std::min(least, now - before);
        before = now;
    }
    return least;
}

/// The parabola that takes the place of the line of saturated water above wet_limit: it begins at that line, with the
/// slope of the lines of constant temperature there, T, and all mixtures lie below it.
void line_above_mixtures(Table& table) {
    const double s = guesses::wet_limit, step = 1.0e-3;
    const auto water = mixture(ktl_lc.t1, 0.0);
    const double rise = guesses::beyond_liquid(s + step) - guesses::beyond_liquid(s - step);
    table.equal("beyond_liquid(3.78): h'(350 degC), kJ/kg", guesses::beyond_liquid(s), water.h, 0.5);
    table.equal("beyond_liquid: slope T at 350 degC, K", rise / (2.0 * step), ktl_lc.t1 + ktl_lc.tza, 1.0);
    double least = INFINITY;
    for (int i = 0; i <= table.points(); ++i)
        for (int j = 0; j <= 20; ++j) {
            const auto wet = mixture(ktl_lc.tmin + (ktl_lc.t1 - ktl_lc.tmin) * i / table.points(), j / 20.0);
            if (wet.s > s) least = std::min(least, guesses::beyond_liquid(wet.s) - wet.h);
        }
    table.stays_below("beyond_liquid: least depth of a mixture, kJ/kg", guesses::least_depth, least);
}

/// Coefficients of p = p(rho_c) + linear (t - tc) y + cubic y^3, y the reduced density less one, by least squares over
/// 20 K above the critical temperature and densities within 20 % of the critical one.
void model_of_isotherms(Table& table) {
    double aa = 0.0, ab = 0.0, bb = 0.0, ay = 0.0, by = 0.0;
    constexpr int steps = 20;
    for (int i = 0; i <= steps; ++i)
        for (int j = -steps; j <= steps; ++j) {
            const double t = ktl_lc.tc + 20.0 * i / steps, y = 0.2 * j / steps;
            const double excess = phase(Region::near_critical_steam, ktl_lc.vca / (1.0 + y), t).p -
                                  phase(Region::near_critical_steam, ktl_lc.vca, t).p;
            const double a = (t - ktl_lc.tc) * y, b = y * y * y;
            aa += a * a, ab += a * b, bb += b * b, ay += a * excess, by += b * excess;
        }
    const double determinant = aa * bb - ab * ab;
    const double linear = (ay * bb - by * ab) / determinant, cubic = (by * aa - ay * ab) / determinant;
    // The code's density at a state of its own model gives the coefficients back.
    const double at = ktl_lc.tc + 10.0;
    const auto code_misses = [&](double y) {
        return std::fabs(guesses::model_density(linear * (at - ktl_lc.tc) * y + cubic * y * y * y, at) - y);
    };
    table.covers("model_density: miss of the fitted isotherm", 0.001, largest(code_misses, -0.2, 0.2, steps));
    table.shown("model_density: linear, bar/K", linear);
    table.shown("model_density: cubic, bar", cubic);
}

} // namespace

void divisions_of_the_range(Table& table) {
    const int n = table.points();
    const Volumes v = volumes_of_sub_region_3(n);
    table.stays_below("near_critical_volume: 0.99 v3min, m3/kg", 0.99 * ktl_lc.v3min, v.least);
    table.covers("near_critical_volume: 1.01 v3max, m3/kg", 1.01 * ktl_lc.v3max, v.greatest);
    table.covers("above_the_line: ps(350 degC), bar", ktl::searches::above_the_line, saturation_pressure(ktl_lc.t1));
    table.covers("largest_value: v at 800 degC and pmin", engine::largest_value,
                 phase(Region::steam, ktl_lc.pmin, ktl_lc.tmax).v);
    const Warmest rise = warmest_rise(n);
    table.covers("expanding_water: densest water, degC", engine::expanding_water,
                 largest(densest, ktl_lc.pmin, ktl_lc.pmax, n));
    table.covers("expanding_water: (ds/dp) > 0 up to, degC", engine::expanding_water, rise.entropy);
    table.covers("expanding_water: (du/dp) > 0 up to, degC", engine::expanding_water, rise.energy);
    table.covers("hardly_steam: least_quality", engine::hardly_steam, ktl::least_quality);
    table.stays_below("thin_temperature: ts(40 bar), degC", guesses::thin_temperature,
                      ktl::saturation::temperature(guesses::thin_limit));
    table.stays_below("least_volume: v'(4 degC), m3/kg", guesses::least_volume, mixture(4.0, 0.0).v);
    table.equal("wet_limit: s'(350 degC), kJ/(kg K)", guesses::wet_limit, mixture(ktl_lc.t1, 0.0).s, 1.0e-3);
    table.covers("wet_volume_limit: v''(350 degC), m3/kg", guesses::wet_volume_limit, mixture(ktl_lc.t1, 1.0).v);
    table.stays_below("across: rise of h - 600 s along the boundary", 0.0, smallest_rise('h', n));
    table.stays_below("across: rise of u - 600 s along the boundary", 0.0, smallest_rise('u', n));
    line_above_mixtures(table);
    model_of_isotherms(table);
    // s, x: the quality whose entropy is the critical one, which the code takes as the same for all temperatures.
    const auto of_code = [](double x) {
        return guesses::guess_coordinates(ktl::Pair::sx, guesses::GuessPatch::wet,
                                          guesses::ReferenceCurves<ktl::Pair::sx>{}, guesses::middle_entropy + 1.0, x)
                   .a > 0.0;
    };
    const auto quality = [](double t) {
        const auto water = mixture(t, 0.0), steam = mixture(t, 1.0);
        return (guesses::middle_entropy - water.s) / (steam.s - water.s);
    };
    table.equal("seen(sx): quality of critical entropy, 1/2.16", last_point(of_code, 0.0, 1.0), quality(366.0), 2.0e-3);
}

} // namespace constants
