#include <ktl/derivative.hpp>

#include "engine/calls/float_environment.hpp"
#include "engine/calls/slopes.hpp"
#include "engine/calls/state.hpp"

#include <cmath>

namespace ktl {

namespace {

using namespace partial;

/// True if the variables of the phase are v and t: sub-region 3. Elsewhere they are p and t.
bool near_critical(const Phase& phase) {
    return phase.region() == Region::near_critical_steam || phase.region() == Region::near_critical_water;
}

PhaseSlopes slopes_of(const Phase& y) {
    return partial::slopes_of({y.p(), y.t(), y.v(), y.s(), y.cp(), y.cv(), y.compressibility(), y.expansion(),
                               y.speed_of_sound(), y.region()});
}

/// Slope of a property of a saturated phase along the line, by t.
double along_line(const Phase& phase, Property y, double line_slope) {
    const PhaseSlopes z = slopes_of(phase);
    const double by_t = near_critical(phase) ? (line_slope - z.p.t) / z.p.first : line_slope;
    const Slope slope = slope_of(y, z);
    return slope.t + slope.first * by_t;
}

/// Slopes of a mixture by its quality and t.
Slope slope_of_mixture(Property y, const State& state, double line_slope) {
    // All but density are made of those of the phases by their masses.
    const auto by_mass = [&](Property z) -> Slope {
        const double liquid = along_line(state.liquid(), z, line_slope);
        const double vapour = along_line(state.vapour(), z, line_slope);
        return {state.vapour().get(z) - state.liquid().get(z), liquid + state.x() * (vapour - liquid)};
    };
    switch (y) {
    case Property::p: return {0.0, line_slope};
    case Property::t: return {0.0, 1.0};
    case Property::rho: return (-state.rho() * state.rho()) * by_mass(Property::v);
    default: return by_mass(y);
    }
}

/// True if p is the saturation pressure at t. States on the line have it to 4e-9, next to the critical point.
bool on_line(double p, double t) {
    constexpr double rounding = 1.0e-7;
    return std::fabs(p - saturation_pressure(t)) <= rounding * p;
}

} // namespace

double derivative(const Phase& phase, Property of, Property by, Property at_constant) noexcept {
    return in_float_environment([&]() -> double {
        if (phase.region() == Region::none || !independent(by, at_constant, false)) return quiet_nan;
        const PhaseSlopes z = slopes_of(phase);
        return ratio(slope_of(of, z), slope_of(by, z), slope_of(at_constant, z));
    });
}

double derivative(const State& state, Property of, Property by, Property at_constant) noexcept {
    return in_float_environment([&]() -> double {
        if (!state.two_phase()) return derivative(StateBuilder::bulk(state), of, by, at_constant);
        if (!state || !on_line(state.p(), state.t()) || !independent(by, at_constant, true)) return quiet_nan;
        const double line_slope = saturation_slope(state.t());
        const auto slope = [&](Property y) { return slope_of_mixture(y, state, line_slope); };
        return ratio(slope(of), slope(by), slope(at_constant));
    });
}

double saturation_derivative(const Phase& phase, Property of, Property by) noexcept {
    return in_float_environment([&]() -> double {
        if (!on_line(phase.p(), phase.t())) return quiet_nan;
        const double line_slope = saturation_slope(phase.t());
        return along_line(phase, of, line_slope) / along_line(phase, by, line_slope);
    });
}

} // namespace ktl
