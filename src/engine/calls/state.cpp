#include "engine/calls/state.hpp"

namespace ktl {

using engine::Scalar;

Phase StateBuilder::phase(const PhaseProperties<Scalar>& y, Region region) noexcept {
    Phase out;
    out.p_ = y.p.value, out.t_ = y.t.value, out.v_ = y.v.value, out.h_ = y.h.value, out.s_ = y.s.value;
    out.cp_ = y.cp.value, out.cv_ = y.cv.value, out.speed_of_sound_squared_ = y.speed_of_sound_squared.value;
    out.dvdt_ = y.dvdt.value, out.dvdp_ = y.dvdp.value;
    out.region_ = region;
    return out;
}

PhaseProperties<Scalar> StateBuilder::properties(const Phase& y) noexcept {
    return {y.p_, y.t_, y.v_, y.h_, y.s_, y.cp_, y.cv_, y.speed_of_sound_squared_, y.dvdt_, y.dvdp_};
}

State StateBuilder::state(const engine::RowState& row) noexcept {
    State out;
    out.status_ = row.status;
    out.x_ = row.x;
    out.bulk_ = phase(row.bulk, row.region);
    const bool low = row.region == Region::wet;
    const bool high = row.region == Region::wet_near_critical;
    out.liquid_ = phase(row.liquid, low ? Region::water : high ? Region::near_critical_water : Region::none);
    out.vapour_ = phase(row.vapour, low ? Region::steam : high ? Region::near_critical_steam : Region::none);
    return out;
}

double Phase::computed(Property property) const noexcept {
    return engine::value(property, StateBuilder::properties(*this), quiet_nan, region_);
}

State state(Pair pair, double a, double b) noexcept { return StateBuilder::state(engine::solve_row(pair, a, b)); }

State state(Pair pair, double a, double b, int number) noexcept {
    if (number == 0) return state(pair, a, b);
    return StateBuilder::state(engine::evaluated(engine::search(pair, a, b, number)));
}

int state_count(Pair pair, double a, double b) noexcept { return engine::count_states(pair, a, b); }

} // namespace ktl
