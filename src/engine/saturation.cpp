#include "regions/saturation.hpp"

#include "engine/state.hpp"

namespace ktl {

using engine::not_a_number;

namespace {

Saturation at(Pair pair, double given) noexcept {
    const State water = state(pair, given, 0.0);
    return {water.status(), water.p(), water.t(), saturation_slope(water.t()), water.liquid(), water.vapour()};
}

bool on_line(double t) { return t >= ktl_lc.tmin && t <= ktl_lc.tc; }

} // namespace

double saturation_pressure(double t) noexcept { return on_line(t) ? saturation::terms(t).p : not_a_number; }

double saturation_temperature(double p) noexcept { return engine::search(Pair::px, p, 0.0, 0).t; }

double saturation_slope(double t) noexcept {
    if (!on_line(t)) return not_a_number;
    const auto terms = saturation::terms(t);
    return terms.p / ktl_lc.tca * saturation::log_slope(terms);
}

Saturation saturation_at_temperature(double t) noexcept { return at(Pair::tx, t); }
Saturation saturation_at_pressure(double p) noexcept { return at(Pair::px, p); }

} // namespace ktl
