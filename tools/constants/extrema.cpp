// Extrema along the saturation line: of entropy at constant quality, the constants of engine/guesses/quality_line_extrema.hpp;
// of the saturated phases, those of process/saturation_extrema.hpp.
#include "rows.hpp"

#include "engine/guesses/quality_line_extrema.hpp"
#include "first_guesses/states.hpp"
#include "process/saturation_extrema.hpp"

#include <algorithm>
#include <ktl/derivative.hpp>

namespace constants {

namespace {

using first_guesses::mixture;
using ktl::ktl_lc;
namespace guesses = ktl::engine::guesses;

/// Quality at which entropy has an extremum along the line at t.
double turning_quality(double t) {
    constexpr double step = 1.0e-3;
    const auto rise = [t](double x) { return mixture(t + step, x).s - mixture(t - step, x).s; };
    return rise(0.0) / (rise(0.0) - rise(1.0));
}

/// The fit of it in the code.
template <bool high>
double fitted_quality(double t) {
    return guesses::turning_quality<high>(guesses::line_position<high>(t));
}

/// Distance from the fit beyond which is_lowest() takes a mixture on the rise, probed on the code itself.
template <bool high>
double width_in_code(double t) {
    constexpr double large_entropy = 100.0;
    const double fit = fitted_quality<high>(t);
    const auto refused = [&](double off) { return guesses::is_lowest<high>(large_entropy, fit - off, t) < 0.5; };
    return last_point(refused, 0.0, 0.05);
}

/// Largest distance of the fit from the extremum between two temperatures.
template <bool high>
double error_of_fit(double from, double to, int n) {
    return largest([](double t) { return std::fabs(fitted_quality<high>(t) - turning_quality(t)); }, from, to, n);
}

/// Error of the fitted entropy of the minimum.
double dip_error(double t) {
    const double x = turning_quality(t);
    return std::fabs(guesses::minimum_entropy(x) - mixture(t, x).s);
}

} // namespace

void extrema_at_constant_quality(Table& table) {
    constexpr double step = 0.01; // from the ends of a part of the line, for slopes
    const int n = table.points();
    const double from = ktl_lc.tmin + step, to = ktl_lc.t1 - step;
    const auto minus = [](double t) { return -turning_quality(t); };
    table.equal("coldest_entropy: s''(0.01 degC), kJ/(kg K)", guesses::coldest_entropy, mixture(ktl_lc.tmin, 1.0).s,
                1.0e-9);
    table.stays_below("turning_from: least quality of a turn", guesses::turning_from,
                      -largest(minus, from, ktl_lc.tc - 0.1, n));
    table.covers(
        "turning_to: greatest quality of a turn", guesses::turning_to,
        std::fmax(largest(turning_quality, from, to, n), largest(turning_quality, ktl_lc.t1 + step, 374.149, 10 * n)));
    table.covers("last_minimum: greatest quality of a turn to 350 degC", guesses::last_minimum,
                 largest(turning_quality, from, to, n));
    const auto rises = [](double t) { return turning_quality(t + 0.5) > turning_quality(t - 0.5); };
    const double widest = last_point(rises, 200.0, 300.0);
    table.equal("widest_turning: where that is, degC", guesses::widest_turning, widest, 1.0);
    table.stays_below("turning_at_350: quality of the turn there", guesses::turning_at_350, turning_quality(to));
    table.covers("is_lowest: width to 350 degC", width_in_code<false>(300.0), error_of_fit<false>(from, to, n));
    table.covers("is_lowest: width above", width_in_code<true>(360.0), error_of_fit<true>(355.0, 374.0, n));
    table.covers("dip_entropy: error of its fit, kJ/(kg K)", 1.0e-4,
                 largest(dip_error, from, guesses::widest_turning, n));
    const double x = 0.47;
    table.shown("tie line: jump of s at 350 degC, x = 0.47",
                mixture(ktl_lc.t1 + 1.0e-9, x).s - mixture(ktl_lc.t1, x).s);
    table.shown("valley: least quality of a turn above 350 degC", -largest(minus, 355.0, 374.0, n));
}

void extrema_of_saturated_phases(Table& table) {
    constexpr double allowed = 1.0e-8; // K
    const auto slope = [](bool vapour, ktl::Property property, double t) {
        const ktl::Saturation y = ktl::saturation_at_temperature(t);
        return ktl::saturation_derivative(vapour ? y.vapour : y.liquid, property, ktl::Property::t);
    };
    using ktl::Property;
    table.equal("least_water_volume: minimum of v', degC", ktl::process::least_water_volume,
                last_point([&](double t) { return slope(false, Property::v, t) < 0.0; }, 1.0, 100.0), allowed);
    table.equal("greatest_steam_enthalpy: maximum of h'', degC", ktl::process::greatest_steam_enthalpy,
                last_point([&](double t) { return slope(true, Property::h, t) > 0.0; }, 100.0, 300.0), allowed);
    table.equal("greatest_steam_energy: maximum of u'', degC", ktl::process::greatest_steam_energy,
                last_point([&](double t) { return slope(true, Property::u, t) > 0.0; }, 100.0, 300.0), allowed);
}

} // namespace constants
