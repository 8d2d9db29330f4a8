#include <ktl/derivative.hpp>

#include "engine/calls/float_environment.hpp"
#include "engine/calls/state.hpp"

#include <cmath>

namespace ktl {

namespace {

/// Slopes of a property by the two variables that a state is moved by: the first one, and t.
struct Slope {
    double first, t;
};
Slope operator+(const Slope& a, const Slope& b) { return {a.first + b.first, a.t + b.t}; }
Slope operator*(double a, const Slope& b) { return {a * b.first, a * b.t}; }

/// Slopes of the four properties that all others follow from, with their values. Temperature in K.
struct PhaseSlopes {
    double pressure, kelvin, volume, entropy;
    Slope p, t, v, s;
};

/// By the fundamental relations; 1 bar m3 is 100 kJ.
Slope slope_of(Property y, const PhaseSlopes& z) {
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

/// True if the variables of the phase are v and t: sub-region 3. Elsewhere they are p and t.
bool near_critical(const Phase& phase) {
    return phase.region() == Region::near_critical_steam || phase.region() == Region::near_critical_water;
}

/// Slopes of a phase by the primary variable of its sub-region and t, the other one held.
PhaseSlopes slopes_of(const Phase& phase) {
    const PhaseProperties<engine::Scalar> y = StateBuilder::properties(phase);
    const double v = y.v.value;
    const double kelvin = y.t.value + ktl_lc.tza;
    const double dvdp = y.dvdp.value;
    const double dvdt = y.dvdt.value;
    if (!near_critical(phase))
        return {y.p.value,
                kelvin,
                v,
                y.s.value,
                {1.0, 0.0},
                {0.0, 1.0},
                {dvdp, dvdt},
                {-kj_per_bar_m3 * dvdt, y.cp.value / kelvin}};
    // On a level isotherm dv/dp is infinite, dp/dv zero, and w^2 = v^2 T (dp/dt)_v^2 / cv.
    const double dpdv = 1.0 / dvdp;
    const double level_dpdt =
        std::sqrt(y.speed_of_sound_squared.value * y.cv.value / (pascals_per_bar * kj_per_bar_m3 * kelvin)) / v;
    const double dpdt = std::isinf(dvdp) ? level_dpdt : -dvdt * dpdv;
    return {y.p.value,    kelvin,     v,          y.s.value,
            {dpdv, dpdt}, {0.0, 1.0}, {1.0, 0.0}, {kj_per_bar_m3 * dpdt, y.cv.value / kelvin}};
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

double ratio(const Slope& of, const Slope& by, const Slope& held) {
    return (of.first * held.t - of.t * held.first) / (by.first * held.t - by.t * held.first);
}

/// True if p is the saturation pressure at t. States on the line have it to 4e-9, next to the critical point.
bool on_line(double p, double t) {
    constexpr double rounding = 1.0e-7;
    return std::fabs(p - saturation_pressure(t)) <= rounding * p;
}

/// True if two properties vary independently: v and rho never do, p and t not in a mixture.
bool independent(Property a, Property b, bool mixture) {
    const auto both = [&](Property y, Property z) { return (a == y || a == z) && (b == y || b == z); };
    return a != b && !both(Property::v, Property::rho) && !(mixture && both(Property::p, Property::t));
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
