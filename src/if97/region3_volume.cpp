#include "if97/region3_volume.hpp"

#include "if97/evaluation.hpp"
#include "searches/enclosure.hpp"
#include "searches/newton.hpp"

namespace ktl::if97 {

namespace {

using region3::critical_density;
using saturation::critical_temperature;

/// Densities that no state of region 3 reaches: 762.4 at 350 degC and 1000 bar, 113.6 kg/m3 of saturated steam at 350 degC. Below
/// the critical temperature the pressure is convex in the density on the water side and concave on the steam side, so Newton's
/// method from these never passes the root.
constexpr double densest = 850.0;
constexpr double thinnest = 60.0;

/// Rounding of the pressure of region 3, relative: a search stops at the first, and what it found must meet the second.
constexpr double pressure_met = 2.0e-14;
constexpr double pressure_accepted = 1.0e-11;

/// Newton's method for the density at p, t; not-a-number if it does not get there.
[[gnu::flatten]] double newton(double p, double t, double density, int most_passes) noexcept {
    searches::ConvergenceTest<double> convergence{.negligible = 1.0e-15};
    for (int pass = 0; pass < most_passes; ++pass) {
        const auto y = near_critical(Scalar(1.0 / density), Scalar(t));
        const double missing = p - y.p.value;
        const double slope = -y.dpdv.value / (density * density); // dp/drho
        const double step = missing / slope;
        const bool met = std::fabs(missing) <= pressure_met * p;
        if (!(slope > 0.0) || !std::isfinite(step))
            return std::fabs(missing) <= pressure_accepted * p ? density : quiet_nan;
        if (met) return density;
        density += step;
        if (!(density > 0.5 * thinnest && density < 2.0 * densest)) return quiet_nan;
        if (convergence.reached(std::fabs(step) / density) > 0.5) return density;
    }
    const double found = near_critical(Scalar(1.0 / density), Scalar(t)).p.value;
    return std::fabs(found - p) <= pressure_accepted * p ? density : quiet_nan;
}

bool on_side(double density, double t, Side side) {
    return t >= critical_temperature || (density > critical_density) == (side == Side::water);
}

} // namespace

double region3_volume_from(double p, double t, Side side, double guess) noexcept {
    constexpr int most_passes = 12;
    if (!(guess > 1.0 / densest && guess < 1.0 / thinnest)) return quiet_nan;
    const double density = newton(p, t, 1.0 / guess, most_passes);
    return on_side(density, t, side) ? 1.0 / density : quiet_nan;
}

double region3_volume(double p, double t, Side side) noexcept {
    constexpr int most_passes = 100;
    if (t < critical_temperature) return 1.0 / newton(p, t, side == Side::water ? densest : thinnest, most_passes);
    const auto missing = [&](double density) { return near_critical(Scalar(1.0 / density), Scalar(t)).p.value - p; };
    const double density = solvers::enclose(missing, thinnest, densest, pressure_met * p).x;
    return std::fabs(missing(density)) <= pressure_accepted * p ? 1.0 / density : quiet_nan;
}

namespace {

/// The volumes at which region 3 has the pressure of the saturation line.
SaturatedVolumes volumes_on_line(double p, double t) {
    // (density - 322)/sqrt(tc - t), fitted from 350 degC up: starts of Newton's method, less than 0.04 kg/m3 off below 373 degC and
    // 0.13 kg/m3 above.
    constexpr Fit<10> water{2.45,
                            1.0 / 2.45,
                            {61.179884, -15.2619319, 9.51998469, -5.80823672, 2.76801184, -3.31377146, 5.24351376,
                             -0.532448719, -4.98826133, 2.81420942}};
    constexpr Fit<10> steam{2.45,
                            1.0 / 2.45,
                            {-55.9752818, 20.4379544, -11.9923507, 7.31825108, -3.0039436, 6.55728958, -11.9982404,
                             -0.76568623, 14.7032516, -7.8495637}};
    const double root = std::sqrt(critical_temperature - t);
    const auto volume = [&](const Fit<10>& fit, Side side) {
        const double found = region3_volume_from(p, t, side, 1.0 / (critical_density + root * fit(root)));
        return std::isfinite(found) ? found : region3_volume(p, t, side);
    };
    return {volume(water, Side::water), volume(steam, Side::steam)};
}

} // namespace

SaturatedVolumes saturated_volumes(double p, double t) noexcept {
    const double below = critical_temperature - t;
    if (below >= beside_critical) return volumes_on_line(p, t);
    constexpr double last = critical_temperature - beside_critical;
    const SaturatedVolumes at_last = volumes_on_line(saturation::pressure(Scalar(last)).value, last);
    const double share = std::sqrt(std::fmax(below, 0.0) / beside_critical);
    const auto drawn = [&](double volume) {
        return 1.0 / (critical_density + share * (1.0 / volume - critical_density));
    };
    return {drawn(at_last.water), drawn(at_last.steam)};
}

} // namespace ktl::if97
