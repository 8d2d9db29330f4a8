#include "searches/acceptance.hpp"

#include "searches/two_phase.hpp"

#include <algorithm>
#include <cmath>

namespace ktl::searches {

namespace {

/// How closely a state must have the given value. With the phases of the entry a tenth of what the finders promise:
/// its saturated volumes, found to 1e-8 of the pressure, move by more than that near the critical point.
double allowance(Quantity y, double value, int region, SaturationModel model) {
    const bool outermost = model == SaturationModel::outermost_roots;
    const double relative = outermost ? 1.0e-10 : (region == KTL_WET_NEAR_CRITICAL ? 8.0e-8 : 1.0e-8);
    const bool energy = y == Quantity::enthalpy || y == Quantity::energy;
    const double least = energy ? 10.0 : (y == Quantity::entropy ? 1.0 : 0.0);
    return std::fmax(relative * std::fabs(value), least * (outermost ? 1.0e-10 : 1.0e-8));
}

bool has(const FoundState& state, Quantity y, double value, SaturationModel model, double share) {
    return std::fabs(state.value(y) - value) <= share * allowance(y, value, state.region, model);
}

/// A variable of a found state, brought back to the limit that it passes by no more than the slack: searches in
/// water end there when the properties hardly depend on it. The properties are compared afterwards.
double clamp_with_slack(double z, double low, double high, double slack) {
    return z >= low - slack && z <= high + slack ? std::clamp(z, low, high) : z;
}

bool in_closed(double value, double low, double high) {
    return value >= low - rounding * std::fabs(low) && value <= high + rounding * std::fabs(high);
}

/// Greatest pressure of water. At the end of the range, 1000 bar and 350 degC, sub-region 1 covers its gap to
/// sub-region 3 by going on past both limits, past that of pressure by less than 1 %.
double greatest_pressure(const FoundState& water, SaturationModel model) {
    return model == SaturationModel::outermost_roots && water.t > ktl_lc.t1max ? 1.01 * ktl_lc.pmax : ktl_lc.pmax;
}

/// Water of low pressure has its pressure from two energies to a few digits only, so the test against the
/// saturation pressure is a loose one there.
Place place_of_water(const FoundState& state, SaturationModel model) {
    const double past = state.t;
    if (!(past <= ktl_lc.t1max + 0.5)) return Place::outside;
    const double ps = saturation::terms(past).p;
    const double slack = model == SaturationModel::entry_compatible ? 1.0e-6 * ps : 1.0e-9 * ps + 1.0e-8;
    const bool compressed = in_closed(state.primary, ps - slack, greatest_pressure(state, model));
    if (!compressed) return Place::outside;
    return past <= ktl_lc.t1max ? Place::inside : Place::beside;
}

Place place_of_steam(const FoundState& state) {
    if (!(state.t > ktl_lc.t3min))
        return in_closed(state.primary, 0.0, saturation::terms(state.t).p) ? Place::inside : Place::outside;
    const double pl = boundary_pressure(state.t);
    if (in_closed(state.primary, 0.0, pl)) return Place::inside;
    return state.primary <= 1.01 * pl ? Place::beside : Place::outside;
}

Place place_near_critical(const FoundState& state, SaturationModel model) {
    const double pressure = state.value(Quantity::pressure);
    const bool inside = state.t >= ktl_lc.t3min - rounding && state.t <= ktl_lc.t3max + rounding &&
                        in_closed(pressure, boundary_pressure(state.t), ktl_lc.pmax);
    if (!inside) return Place::outside;
    if (state.t > ktl_lc.tc) return Place::inside;
    const Saturated phases = saturated_at(std::max(state.t, std::nextafter(ktl_lc.t3min, ktl_lc.tc)), model);
    if (model == SaturationModel::outermost_roots) {
        const bool within =
            state.primary > phases.liquid * (1.0 + rounding) && state.primary < phases.vapour * (1.0 - rounding);
        return within ? Place::outside : Place::inside;
    }
    // The saturated volume of water is only as good as the tolerance of the entry.
    const bool compressed = state.primary < ktl_lc.vca && pressure >= phases.p * (1.0 - 1.0e-8);
    const bool belongs = state.region == KTL_NEAR_CRITICAL_STEAM ? state.primary >= phases.vapour
                                                                 : compressed || state.primary <= phases.liquid;
    // Just below the critical point the whole isotherm between the saturated volumes has the saturation pressure,
    // but for rounding.
    const bool flat = std::fabs(pressure - phases.p) <= 1.0e-7 * phases.p;
    return belongs || flat ? Place::inside : Place::outside;
}

Place place_of_mixture(const FoundState& state) {
    if (!in_closed(state.primary, 0.0, 1.0) || !(state.t <= ktl_lc.t1max + 0.5)) return Place::outside;
    return state.t <= ktl_lc.t1max ? Place::inside : Place::beside;
}

} // namespace

bool finite(double a, double b) { return std::isfinite(a) && std::isfinite(b); }

bool bring_within(double& value, double low, double high) {
    if (!in_closed(value, low, high)) return false;
    value = std::clamp(value, low, high);
    return true;
}

FoundState confirmed(FoundState state, const Given& given, double share) {
    if (!state.found() || !finite(state.primary, state.t)) return {};
    const double t = clamp_with_slack(state.t, ktl_lc.tmin, state.wet() ? ktl_lc.tc : ktl_lc.tmax, 1.0e-6);
    if (state.wet() && t != state.t) state.phases = saturated_at(t, given.model);
    state.t = t;
    bool in_range = state.t >= ktl_lc.tmin && state.t <= ktl_lc.tmax;
    if (state.wet()) {
        state.primary = clamp_with_slack(state.primary, 0.0, 1.0, 1.0e-6);
        in_range = in_range && state.primary >= 0.0 && state.primary <= 1.0;
    } else if (state.region == KTL_LIQUID || state.region == KTL_STEAM) {
        state.primary = clamp_with_slack(state.primary, ktl_lc.pmin, ktl_lc.pmax, 1.0e-6 * state.primary);
        const double highest = state.region == KTL_LIQUID ? greatest_pressure(state, given.model) : ktl_lc.pmax;
        in_range = in_range && state.primary >= ktl_lc.pmin && state.primary <= highest;
    } else {
        // Well below its least volume the equations of sub-region 3 turn back to lower pressures.
        in_range = in_range && state.primary >= ktl_lc.v3min * 0.999 &&
                   in_closed(state.value(Quantity::pressure), ktl_lc.pmin, ktl_lc.pmax);
    }
    in_range = in_range && has(state, given.a, given.a_value, given.model, share) &&
               has(state, given.b, given.b_value, given.model, share);
    return in_range ? state : FoundState{};
}

FoundState corrected(const FoundState& start, const Given& given) {
    const Quantities wanted{given.a, given.b};
    const auto in = [&]<SubRegion sub_region>() {
        return newton<sub_region, StepLimit::third>(wanted, given.a_value, given.b_value, start.primary, start.t);
    };
    switch (start.region) {
    case KTL_LIQUID: {
        const auto end = in.operator()<SubRegion::water>();
        return {start.region, end.primary, end.t, {}};
    }
    case KTL_STEAM: {
        const auto end = in.operator()<SubRegion::steam>();
        return {start.region, end.primary, end.t, {}};
    }
    case KTL_NEAR_CRITICAL_STEAM:
    case KTL_NEAR_CRITICAL_LIQUID: {
        const auto end = in.operator()<SubRegion::near_critical>();
        const bool water = end.t <= ktl_lc.tc && end.primary < ktl_lc.vca;
        return {water ? KTL_NEAR_CRITICAL_LIQUID : KTL_NEAR_CRITICAL_STEAM, end.primary, end.t, {}};
    }
    case KTL_WET: {
        TwoPhaseIterate<double> m{start.primary, start.t, 0.0, 0.0, 0.0};
        newton_two_phase<false, StepLimit::third>(m, wanted, given.a_value, given.b_value);
        return mixture({m.t, m.liquid, KTL_WET, m.liquid, m.liquid, given.model}, m.x);
    }
    default: return {};
    }
}

Place place_of(const FoundState& state, SaturationModel model) {
    switch (state.region) {
    case KTL_LIQUID: return place_of_water(state, model);
    case KTL_STEAM: return place_of_steam(state);
    case KTL_NEAR_CRITICAL_STEAM:
    case KTL_NEAR_CRITICAL_LIQUID: return place_near_critical(state, model);
    case KTL_WET: return place_of_mixture(state);
    default: return Place::outside;
    }
}

} // namespace ktl::searches
