#include "engine/state.hpp"

#include "regions/saturation.hpp"
#include "regions/transport.hpp"

#include <array>
#include <cmath>

namespace ktl {

using engine::not_a_number;

Phase Access::phase(const engine::Thermo<double>& y, Region region) noexcept {
    Phase out;
    out.p_ = y.p, out.t_ = y.t, out.v_ = y.v, out.h_ = y.h, out.s_ = y.s;
    out.cp_ = y.cp, out.cv_ = y.cv, out.w_ = std::sqrt(y.w2);
    out.dvdt_ = y.dvdt, out.dvdp_ = y.dvdp;
    out.region_ = region;
    return out;
}

Phase Access::no_phase(Region region) noexcept {
    constexpr double n = not_a_number;
    return phase({n, n, n, n, n, n, n, n, n, n}, region);
}

State Access::failed(Status status) noexcept {
    State out;
    out.bulk_ = out.liquid_ = out.vapour_ = no_phase(Region::none);
    out.x_ = not_a_number;
    out.status_ = status;
    return out;
}

State Access::state(const engine::Solution& found) noexcept {
    State out = failed(found.status);
    if (found.status != Status::solved && found.status != Status::undetermined) return out;
    if (!found.two_phase()) {
        out.bulk_ = engine::phase_of(found.region, found.first, found.t);
        return out;
    }
    const bool low = found.region == Region::wet;
    out.liquid_ = engine::phase_of(low ? Region::water : Region::near_critical_water, found.liquid, found.t);
    out.vapour_ = engine::phase_of(low ? Region::steam : Region::near_critical_steam, found.vapour, found.t);
    Phase& bulk = out.bulk_;
    bulk.region_ = found.region;
    bulk.t_ = found.t;
    bulk.p_ = low ? found.liquid : saturation::terms(found.t).p;
    if (found.status == Status::undetermined) return out;
    const double x = out.x_ = found.first;
    const auto mixed = [&](double Phase::*y) { return out.liquid_.*y + x * (out.vapour_.*y - out.liquid_.*y); };
    bulk.v_ = mixed(&Phase::v_);
    bulk.h_ = mixed(&Phase::h_);
    bulk.s_ = mixed(&Phase::s_);
    return out;
}

Phase engine::phase_of(Region region, double first, double t) noexcept {
    switch (region) {
    case Region::water: return Access::phase(from_gibbs(region1::terms(first, t), first, t), region);
    case Region::steam: return Access::phase(from_gibbs(region2::terms(first, t), first, t), region);
    default: return Access::phase(from_helmholtz(first, t), region);
    }
}

double Phase::viscosity() const noexcept { return transport::viscosity(v_, t_); }
double Phase::conductivity() const noexcept { return transport::conductivity(v_, t_); }

double State::get(Property property) const noexcept {
    switch (property) {
    case Property::p: return p();
    case Property::t: return t();
    case Property::v: return v();
    case Property::rho: return rho();
    case Property::h: return h();
    case Property::s: return s();
    case Property::u: return u();
    case Property::x: return x();
    case Property::gibbs: return gibbs();
    case Property::helmholtz: return helmholtz();
    case Property::region: return static_cast<double>(region());
    case Property::cp: return cp();
    case Property::cv: return cv();
    case Property::speed_of_sound: return speed_of_sound();
    case Property::isentropic_exponent: return isentropic_exponent();
    case Property::compressibility: return compressibility();
    case Property::expansion: return expansion();
    case Property::joule_thomson: return joule_thomson();
    case Property::viscosity: return viscosity();
    case Property::kinematic_viscosity: return kinematic_viscosity();
    case Property::conductivity: return conductivity();
    case Property::prandtl: return prandtl();
    }
    return not_a_number;
}

State state(Pair pair, double a, double b, int number) noexcept {
    return Access::state(engine::search(pair, a, b, number));
}

State state(Pair pair, double a, double b) noexcept { return state(pair, a, b, 0); }

int states(Pair pair, double a, double b) noexcept { return engine::count_states(pair, a, b); }

} // namespace ktl
