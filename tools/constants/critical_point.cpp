// What the code assumes next to the critical point.
#include "rows.hpp"

#include "engine/guesses/guesses.hpp"
#include "engine/kernels/inversion.hpp"
#include "engine/lanes/scalar.hpp"
#include "first_guesses/states.hpp"
#include "regions/saturation_guess_data.hpp"
#include "searches/state.hpp"

#include <algorithm>

namespace constants {

namespace {

using first_guesses::phase;
using first_guesses::saturated_volumes;
using first_guesses::saturation_pressure;
using ktl::ktl_lc;
using ktl::Region;
namespace guesses = ktl::engine::guesses;

double pressure3(double v, double t) { return phase(Region::near_critical_steam, v, t).p; }

/// True if the isotherm of sub-region 3 reaches the saturation pressure on both sides of its loop.
bool has_both_volumes(double t) {
    const double p = saturation_pressure(t);
    const auto crosses = [&](double to) {
        constexpr int steps = 4000;
        for (int i = 1; i <= steps; ++i) {
            const double v = ktl_lc.vca + (to - ktl_lc.vca) * i / steps;
            if ((to < ktl_lc.vca) == (pressure3(v, t) < p)) return true;
        }
        return false;
    };
    return crosses(ktl_lc.vca * 0.97) && crosses(ktl_lc.vca * 1.03);
}

/// Deviation of the pressure from that of saturation at the outermost volumes, relative.
double pressure_miss(double t) {
    const auto y = ktl::saturated_at<double>(t, ktl::SaturationModel::outermost_roots);
    return std::max(std::fabs(pressure3(y.liquid, t) / y.p - 1.0), std::fabs(pressure3(y.vapour, t) / y.p - 1.0));
}

/// Error of the fitted volumes of saturation, relative.
double volume_miss(double t) {
    const auto v = saturated_volumes(t);
    return std::max(std::fabs(guesses::liquid_volume(t) / v.liquid - 1.0),
                    std::fabs(guesses::vapour_volume(t) / v.vapour - 1.0));
}

/// Error of the fitted densities of saturation, in critical densities.
double density_miss(double t) {
    const auto v = saturated_volumes(t);
    const double r = std::sqrt(ktl_lc.tc - t);
    return std::max(std::fabs(ktl::saturation_guesses::liquid_density(r) - ktl_lc.vca / v.liquid),
                    std::fabs(ktl::saturation_guesses::vapour_density(r) - ktl_lc.vca / v.vapour));
}

/// Distance of the saturated volumes from the critical one, relative.
double dome_width(double t) {
    const auto v = saturated_volumes(t);
    return std::max(1.0 - v.liquid / ktl_lc.vca, v.vapour / ktl_lc.vca - 1.0);
}

/// Distance from a saturated volume to the next volume at which the isotherm has the saturation pressure, relative.
double next_volume(double t) {
    const auto v = saturated_volumes(t);
    const double p = saturation_pressure(t);
    const auto first_after = [&](double from, double step) {
        const double side = pressure3(from * (1.0 + step), t) - p;
        double at = from * (1.0 + step);
        while ((pressure3(at, t) - p) * side > 0.0) at *= 1.0 + step;
        return std::fabs(at / from - 1.0);
    };
    constexpr double step = 1.0e-3;
    return std::min(first_after(v.liquid, step), first_after(v.vapour, -step));
}

/// Just below the critical point: how far the isobar of the saturation pressure passes the saturated phases by, relative in
/// volume. Its enthalpy at their volume differs, as their pressure does.
double past_phases(double t) {
    const auto phases = ktl::saturated_at<double>(t, ktl::SaturationModel::outermost_roots);
    const auto at = [&](double v) {
        const auto y = ktl::helmholtz_properties(v, t);
        const auto h = ktl::slopes(ktl::Quantity::enthalpy, y);
        const double off = h.d_t * (phases.p - y.p) / y.dpdt;
        return std::fabs(off / (h.d_primary - h.d_t * y.dpdv / y.dpdt) / v);
    };
    return std::max(at(phases.liquid), at(phases.vapour));
}

/// The last difference that is_outermost() allows, relative.
double allowed_difference() {
    using ktl::engine::Scalar;
    const auto taken = [](double x) { return all_set(ktl::engine::is_outermost(Scalar(1.0 + x), Scalar(1.0))); };
    return last_point(taken, 0.0, 1.0);
}

} // namespace

void critical_point(Table& table) {
    using ktl::engine::top_of_dome, ktl::engine::top_width;
    const double just_above = std::nextafter(ktl_lc.t1, ktl_lc.tc);
    const int n = table.points();
    table.shown("last loop that holds ps, degC", last_point(has_both_volumes, 374.1, ktl_lc.tc));
    table.shown("outermost volumes: p off ps to 374.149 degC", largest(pressure_miss, just_above, 374.149, n));
    table.shown("outermost volumes: p off ps above", largest(pressure_miss, 374.149, ktl_lc.tc, n));
    table.covers("past_saturation: isobar past the phases",
                 ktl::past_saturation(ktl::SaturationModel::outermost_roots) - 1.0,
                 largest(past_phases, 374.149, ktl_lc.tc - 1.0e-6, n));
    const auto root = ktl::saturated_at<double>(374.149, ktl::SaturationModel::outermost_roots);
    const auto drawn =
        ktl::saturated_at<double>(std::nextafter(374.149, ktl_lc.tc), ktl::SaturationModel::outermost_roots);
    table.equal("v_outermost_liquid, m3/kg", drawn.liquid, root.liquid, 5.0e-10 * ktl_lc.vca);
    table.equal("v_outermost_steam, m3/kg", drawn.vapour, root.vapour, 5.0e-10 * ktl_lc.vca);
    table.shown("fitted saturated densities: error", largest(density_miss, just_above, first_guesses::last_loop, n));
    table.covers("is_outermost: error of the fitted volumes", allowed_difference(),
                 largest(volume_miss, just_above, top_of_dome, n));
    table.stays_below("is_outermost: distance of the next volume", allowed_difference(), next_volume(top_of_dome));
    table.covers("top_width: half width of the dome at the top", top_width, dome_width(top_of_dome));
    table.equal("middle_entropy: entropy, kJ/(kg K)", guesses::middle_entropy,
                phase(Region::near_critical_steam, ktl_lc.vca, ktl_lc.tc).s, 5.0e-4);
}

} // namespace constants
