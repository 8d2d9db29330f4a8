// Second derivatives of volume by p and t: slopes of the closed forms of its first ones.
#include "engine/calls/carried_slope.hpp"
#include "engine/calls/float_environment.hpp"
#include "engine/calls/state.hpp"

#include <cmath>
#include <ktl/derivative.hpp>

namespace ktl {

namespace {

using engine::CarriedSlope;

/// (d2v/dp2), (d2v/dpdt), (d2v/dt2).
struct Curvatures {
    double pp, pt, tt;
};

CarriedSlope variable(double x) { return {x, 1.0}; }

/// Terms: those of sub-region 1 or 2.
template <class TermsAt>
Curvatures gibbs_curvatures(TermsAt&& terms_at, double p, double t) {
    const auto along_p = terms_at(variable(p), CarriedSlope(t));
    const auto along_t = terms_at(CarriedSlope(p), variable(t));
    return {volume_by_pressure(along_p).slope.value, volume_by_temperature(along_p).slope.value,
            volume_by_temperature(along_t).slope.value};
}

/// From p(v, t): v_p = 1/p_v and v_t = -p_t/p_v, differentiated once more. On a level isotherm p_v is zero, and the limits on both
/// sides of it differ: not-a-number.
Curvatures helmholtz_curvatures(const Phase& phase, double dvdp) {
    if (std::isinf(dvdp)) return {quiet_nan, quiet_nan, quiet_nan};
    const auto along_v = helmholtz_properties(variable(phase.v()), CarriedSlope(phase.t()));
    const auto along_t = helmholtz_properties(CarriedSlope(phase.v()), variable(phase.t()));
    const double p_v = along_v.dpdv.value.value;
    const double p_vv = along_v.dpdv.slope.value;
    const double p_vt = along_v.dpdt.slope.value;
    const double p_tt = along_t.dpdt.slope.value;
    const double v_t = -along_v.dpdt.value.value / p_v;
    return {-p_vv / (p_v * p_v * p_v), -(p_vt + p_vv * v_t) / (p_v * p_v),
            -(p_tt + (2.0 * p_vt + p_vv * v_t) * v_t) / p_v};
}

/// True if the phase is one of this formulation: its equations give its volume or pressure again.
bool is_of_these_equations(const Phase& phase) {
    constexpr double rounding = 1.0e-9;
    const engine::Scalar p(phase.p()), v(phase.v()), t(phase.t());
    switch (phase.region()) {
    case Region::water: return std::fabs(volume(region1::terms(p, t)).value - v.value) <= rounding * v.value;
    case Region::steam: return std::fabs(volume(region2::terms(p, t)).value - v.value) <= rounding * v.value;
    case Region::near_critical_steam:
    case Region::near_critical_water:
        return std::fabs(pressure(region3::terms(v, t)).value - p.value) <= rounding * p.value;
    default: return false;
    }
}

Curvatures curvatures(const Phase& phase) {
    switch (phase.region()) {
    case Region::water:
        return gibbs_curvatures([](const auto& p, const auto& t) { return region1::terms(p, t); }, phase.p(),
                                phase.t());
    case Region::steam:
        return gibbs_curvatures([](const auto& p, const auto& t) { return region2::terms(p, t); }, phase.p(),
                                phase.t());
    default: return helmholtz_curvatures(phase, StateBuilder::properties(phase).dvdp.value);
    }
}

} // namespace

double volume_second_derivative(const Phase& phase, Property by, Property also_by) noexcept {
    return in_float_environment([&]() -> double {
        const auto known = [](Property y) { return y == Property::p || y == Property::t; };
        if (!known(by) || !known(also_by) || !is_of_these_equations(phase)) return quiet_nan;
        const Curvatures y = curvatures(phase);
        if (by != also_by) return y.pt;
        return by == Property::p ? y.pp : y.tt;
    });
}

double volume_second_derivative(const State& state, Property by, Property also_by) noexcept {
    return volume_second_derivative(StateBuilder::bulk(state), by, also_by);
}

} // namespace ktl
