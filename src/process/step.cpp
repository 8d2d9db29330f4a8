// Single steps, mixing, exergy, and properties beside saturation.
#include "engine/calls/float_environment.hpp"
#include "process/mixing.hpp"
#include "process/rules.hpp"

namespace ktl {

namespace {

using namespace process;

Start start_of(const State& from) {
    return {from.status(), from.p(), from.h(), from.s(), water_fraction(from.region(), from.x())};
}

/// The other value of the end beside its pressure, or why there is none.
struct EndValue {
    Status status;
    double value;
};

EndValue isentropic_end(Process process, const Start& start, double p, double efficiency, double wetness_factor) {
    const State ideal = state(Pair::ps, p, start.s);
    if (!ideal) return {ideal.status(), quiet_nan};
    if (expands(process) && wetness_factor != 0.0) {
        const SaturatedEnthalpies at_end{state(Pair::px, p, 0.0).h(), state(Pair::px, p, 1.0).h()};
        efficiency = efficiency_of_wet(efficiency, wetness_factor, start, start.h - ideal.h(), at_end);
        if (!is_efficiency(efficiency)) return {Status::efficiency_outside, quiet_nan};
    }
    return {Status::solved, end_enthalpy(process, start.h, ideal.h(), efficiency)};
}

EndValue end_value(Process process, const Start& start, double to, double efficiency, double wetness_factor) {
    if (is_heating(process)) return {Status::solved, to};
    if (process == Process::throttling) return {Status::solved, start.h};
    if (!is_polytropic(process)) return isentropic_end(process, start, to, efficiency, wetness_factor);
    const PolytropicEnd end = polytropic_end(process, start, to, efficiency, wetness_factor);
    return {end.status, end.s};
}

} // namespace

Step step(Process process, const State& from, double to, double efficiency, const StepOptions& options) noexcept {
    return in_float_environment([&]() -> Step {
        const Start start = start_of(from);
        if (const Status refused = refusal(process, start, to, efficiency, options); refused != Status::solved)
            return {.status = refused, .end = {}};
        const EndValue value = end_value(process, start, to, efficiency, options.wetness_factor);
        if (value.status != Status::solved) return {.status = value.status, .end = {}};
        Step y;
        y.end = state(end_pair(process), is_heating(process) ? start.p : to, value.value);
        y.status = y.end.status();
        if (!y) return y;
        const Results r = results(process, start, y.end.h(), y.end.s(), options.surroundings_t);
        y.work = r.work;
        y.heat = r.heat;
        y.entropy_generated = r.entropy_generated;
        y.lost_work = r.lost_work;
        return y;
    });
}

Mixture mix(std::span<const Stream> streams, double surroundings_t) noexcept {
    return in_float_environment([&] {
        return mix_streams(
            streams.size(), [&](std::size_t i) { return streams[i].flow; },
            [&](std::size_t i) -> const State& { return streams[i].state; }, surroundings_t);
    });
}

Exergy exergy(const State& of, const Surroundings& surroundings) noexcept {
    return in_float_environment([&]() -> Exergy {
        if (!of) return {of.status()};
        const State dead = state(Pair::pt, surroundings.p, surroundings.t);
        if (!dead) return {Status::surroundings_outside};
        return exergy_of({of.v(), of.h(), of.s(), of.u()}, dead);
    });
}

namespace {

/// Steam below the critical pressure, and water.
bool is_steam(Region region) { return region == Region::steam || region == Region::near_critical_steam; }
bool is_water(Region region) { return region == Region::water || region == Region::near_critical_water; }

/// K above saturation; 0 of a mixture, NaN above the critical pressure.
double above_saturation(const State& of) {
    if (!of) return quiet_nan;
    return of.two_phase() ? 0.0 : of.t() - saturation_temperature(of.p());
}

} // namespace

double superheat(const State& of) noexcept {
    return in_float_environment([&] { return is_water(of.region()) ? quiet_nan : above_saturation(of); });
}
double subcooling(const State& of) noexcept {
    return in_float_environment([&] { return is_steam(of.region()) ? quiet_nan : 0.0 - above_saturation(of); });
}
double wetness(const State& of) noexcept {
    return in_float_environment([&] { return of ? 1.0 - of.x() : quiet_nan; });
}
double latent_heat(const State& of) noexcept {
    return in_float_environment([&] {
        if (!of) return quiet_nan;
        if (of.two_phase()) return of.vapour().h() - of.liquid().h();
        const State line = state(Pair::px, of.p(), 0.0);
        return line.vapour().h() - line.liquid().h();
    });
}

} // namespace ktl
