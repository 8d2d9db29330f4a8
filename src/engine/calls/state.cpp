#include "engine/calls/state.hpp"

#include "engine/calls/float_environment.hpp"

namespace ktl {

using engine::Scalar;

Phase StateBuilder::phase(const PhaseProperties<Scalar>& y, Region region) noexcept {
    return {y.p.value,    y.t.value,    y.v.value,  y.h.value,
            y.s.value,    y.cp.value,   y.cv.value, y.speed_of_sound_squared.value,
            y.dvdt.value, y.dvdp.value, region};
}

PhaseProperties<Scalar> StateBuilder::properties(const Phase& y) noexcept {
    return {y.p_, y.t_, y.v_, y.h_, y.s_, y.cp_, y.cv_, y.speed_of_sound_squared_, y.dvdt_, y.dvdp_};
}

State StateBuilder::state(const engine::RowState& row) noexcept {
    const bool low = row.region == Region::wet;
    if (!low && row.region != Region::wet_near_critical)
        return {row.status, phase(row.bulk, row.region), row.x, {}, {}};
    return {row.status, phase(row.bulk, row.region), row.x,
            phase(row.liquid, low ? Region::water : Region::near_critical_water),
            phase(row.vapour, low ? Region::steam : Region::near_critical_steam)};
}

double Phase::computed(Property property) const noexcept {
    return in_float_environment(
        [&] { return engine::value(property, StateBuilder::properties(*this), quiet_nan, region_); });
}

State state(Pair pair, double a, double b) noexcept {
    return in_float_environment([&] { return StateBuilder::state(engine::solve_row(pair, a, b)); });
}

State state(Pair pair, double a, double b, int number) noexcept {
    if (number == 0) return state(pair, a, b);
    return in_float_environment(
        [&] { return StateBuilder::state(engine::evaluated(engine::search(pair, a, b, number))); });
}

double value(Pair pair, double a, double b, Property property) noexcept {
    return in_float_environment([&] { return engine::value_of_row(pair, a, b, property); });
}

int state_count(Pair pair, double a, double b) noexcept {
    return in_float_environment([&] { return engine::count_states(pair, a, b); });
}

} // namespace ktl
