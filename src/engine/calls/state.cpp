#include "engine/calls/state.hpp"

#include "engine/kernels/bodies.hpp"
#include "engine/rows/row.hpp"

namespace ktl {

using engine::not_a_number;

using engine::PhaseProperties;
using engine::Scalar;

Phase StateBuilder::phase(const PhaseProperties<Scalar>& y, Region region) noexcept {
    Phase out;
    out.p_ = y.p.value, out.t_ = y.t.value, out.v_ = y.v.value, out.h_ = y.h.value, out.s_ = y.s.value;
    out.cp_ = y.cp.value, out.cv_ = y.cv.value, out.speed_of_sound_squared_ = y.speed_of_sound_squared.value;
    out.dvdt_ = y.dvdt.value, out.dvdp_ = y.dvdp.value;
    out.region_ = region;
    return out;
}

PhaseProperties<Scalar> StateBuilder::thermo(const Phase& y) noexcept {
    return {y.p_, y.t_, y.v_, y.h_, y.s_, y.cp_, y.cv_, y.speed_of_sound_squared_, y.dvdt_, y.dvdp_};
}

Phase StateBuilder::no_phase(Region region) noexcept {
    constexpr double n = not_a_number;
    return phase({n, n, n, n, n, n, n, n, n, n}, region);
}

State StateBuilder::failed(Status status) noexcept {
    State out;
    out.bulk_ = out.liquid_ = out.vapour_ = no_phase(Region::none);
    out.x_ = not_a_number;
    out.status_ = status;
    return out;
}

State StateBuilder::state(const engine::Solution& found) noexcept {
    State out = failed(found.status);
    if (found.status != Status::solved && found.status != Status::undetermined) return out;
    if (!found.two_phase()) {
        out.bulk_ = engine::phase_of(found.region, found.primary, found.t);
        return out;
    }
    const bool low = found.region == Region::wet;
    out.liquid_ = engine::phase_of(low ? Region::water : Region::near_critical_water, found.liquid, found.t);
    out.vapour_ = engine::phase_of(low ? Region::steam : Region::near_critical_steam, found.vapour, found.t);
    out.x_ = found.primary; // not-a-number where it is undetermined, and with it all but p and t
    const Scalar p = low ? Scalar(found.liquid) : saturation::terms(Scalar(found.t)).p;
    const engine::SaturatedProperties<Scalar> phases{thermo(out.liquid_), thermo(out.vapour_)};
    out.bulk_ = phase(engine::mixture_of(phases, Scalar(found.primary), p), found.region);
    return out;
}

[[gnu::flatten]] Phase engine::phase_of(Region region, double primary, double t) noexcept {
    switch (region) {
    case Region::water: return StateBuilder::phase(phase_at<SubRegion::water, Scalar>(primary, t), region);
    case Region::steam: return StateBuilder::phase(phase_at<SubRegion::steam, Scalar>(primary, t), region);
    default: return StateBuilder::phase(phase_at<SubRegion::near_critical, Scalar>(primary, t), region);
    }
}

namespace {

double derived(Property property, const Phase& phase) {
    const bool mixture = phase.region() == Region::wet || phase.region() == Region::wet_near_critical;
    if (mixture && !engine::of_mixtures(property)) return not_a_number;
    return engine::derived(property, StateBuilder::thermo(phase)).value;
}

template <Property property>
double derived(const Phase& phase) {
    return derived(property, phase);
}

} // namespace

double Phase::rho() const noexcept { return derived<Property::rho>(*this); }
double Phase::u() const noexcept { return derived<Property::u>(*this); }
double Phase::gibbs() const noexcept { return derived<Property::gibbs>(*this); }
double Phase::helmholtz() const noexcept { return derived<Property::helmholtz>(*this); }
double Phase::speed_of_sound() const noexcept { return derived<Property::speed_of_sound>(*this); }
double Phase::isentropic_exponent() const noexcept { return derived<Property::isentropic_exponent>(*this); }
double Phase::compressibility() const noexcept { return derived<Property::compressibility>(*this); }
double Phase::expansion() const noexcept { return derived<Property::expansion>(*this); }
double Phase::joule_thomson() const noexcept { return derived<Property::joule_thomson>(*this); }
double Phase::viscosity() const noexcept { return derived<Property::viscosity>(*this); }
double Phase::kinematic_viscosity() const noexcept { return derived<Property::kinematic_viscosity>(*this); }
double Phase::conductivity() const noexcept { return derived<Property::conductivity>(*this); }
double Phase::prandtl() const noexcept { return derived<Property::prandtl>(*this); }

double Phase::get(Property property) const noexcept {
    if (property == Property::region) return static_cast<double>(region_);
    return derived(property, *this);
}

double State::get(Property property) const noexcept { return property == Property::x ? x_ : bulk_.get(property); }

State state(Pair pair, double a, double b) noexcept { return StateBuilder::state(engine::solve_row(pair, a, b)); }

State state(Pair pair, double a, double b, int number) noexcept {
    return number == 0 ? state(pair, a, b) : StateBuilder::state(engine::search(pair, a, b, number));
}

int states(Pair pair, double a, double b) noexcept { return engine::count_states(pair, a, b); }

} // namespace ktl
