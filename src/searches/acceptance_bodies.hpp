// What a state must have to be taken, and Newton steps to it.
#pragma once

#include "searches/acceptance.hpp"
#include "searches/sub_region_test.hpp"
#include "searches/two_phase.hpp"

#include <algorithm>
#include <cmath>

namespace ktl::searches {

namespace accepted {

template <class T>
bool has(const FoundState<T>& state, Quantity y, double value, SaturationModel model, double share) {
    return std::fabs(state.value(y) - value) <= share * allowance(y, value, state.region, model);
}

/// A variable of a found state, brought back to the limit that it passes by no more than the slack: searches in
/// water end there if the properties depend on it very little. The properties are compared afterwards.
inline double clamp_with_slack(double z, double low, double high, double slack) {
    return z >= low - slack && z <= high + slack ? std::clamp(z, low, high) : z;
}

inline const BorderSlack& slack_of(SaturationModel model) {
    return model == SaturationModel::outermost_roots ? searched : searched_entry;
}

/// Greatest pressure of sub-region 3.
inline double greatest_near_critical_pressure(SaturationModel model) {
    const bool outermost = model == SaturationModel::outermost_roots;
    return ktl_lc.pmax * (1.0 + (outermost ? rounding_of_pressure : limit_rounding_of_finders));
}

/// Outside the two-phase dome of sub-region 3, at the pressure that the state has.
template <class T>
bool is_outside_dome(const FoundState<T>& state, double pressure, SaturationModel model) {
    if (state.t > ktl_lc.tc) return true;
    const auto phases = saturated_at<T>(std::max(state.t, std::nextafter(ktl_lc.t3min, ktl_lc.tc)), model);
    if (model == SaturationModel::outermost_roots)
        return state.primary <= phases.liquid * (1.0 + limit_rounding_of_finders) ||
               state.primary >= phases.vapour * (1.0 - limit_rounding_of_finders);
    // The saturated volume of water is only as good as the tolerance of the entry.
    const bool compressed = state.primary < ktl_lc.vca && pressure >= phases.p * (1.0 - 1.0e-8);
    const bool belongs = state.region == KTL_NEAR_CRITICAL_STEAM ? state.primary >= phases.vapour
                                                                 : compressed || state.primary <= phases.liquid;
    // Just below the critical point the whole isotherm between the saturated volumes has the saturation pressure to rounding.
    const bool flat = std::fabs(pressure - phases.p) <= 1.0e-7 * phases.p;
    return belongs || flat;
}

/// Whether a state lies in the region that it names.
template <class T>
bool is_in_region(const FoundState<T>& state, const BorderSlack& slack, SaturationModel model) {
    switch (state.region) {
    case KTL_WATER: return all_set(in_water(T(state.primary), T(state.t), slack));
    case KTL_STEAM: return all_set(in_steam(T(state.primary), T(state.t), slack));
    case KTL_NEAR_CRITICAL_STEAM:
    case KTL_NEAR_CRITICAL_WATER: {
        const double pressure = state.value(Quantity::pressure);
        return all_set(in_near_critical(T(pressure), T(state.primary), T(state.t), slack, 0.0, 0.0)) &&
               is_outside_dome(state, pressure, model);
    }
    case KTL_WET: return all_set(in_two_phases<false>(T(state.primary), T(state.t), slack));
    default: return false;
    }
}

} // namespace accepted

template <class T>
FoundState<T> confirmed(FoundState<T> state, const Given& given, double share) {
    using namespace accepted;
    if (!state.found() || !finite(state.primary, state.t)) return {};
    const double t = clamp_with_slack(state.t, ktl_lc.tmin, state.wet() ? ktl_lc.tc : ktl_lc.tmax, limit_slack);
    if (state.wet() && t != state.t) state.phases = saturated_at<T>(t, given.model);
    state.t = t;
    bool in_range = state.t >= ktl_lc.tmin && state.t <= ktl_lc.tmax;
    if (state.wet()) {
        state.primary = clamp_with_slack(state.primary, 0.0, 1.0, limit_slack);
        in_range = in_range && state.primary >= 0.0 && state.primary <= 1.0;
    } else if (state.region == KTL_WATER || state.region == KTL_STEAM) {
        state.primary = clamp_with_slack(state.primary, ktl_lc.pmin, ktl_lc.pmax, limit_slack * state.primary);
        const BorderSlack& slack = slack_of(given.model);
        const bool water = state.region == KTL_WATER;
        const bool open_pressure = given.a != Quantity::pressure && given.b != Quantity::pressure;
        if (water && given.model == SaturationModel::outermost_roots && open_pressure && state.t <= ktl_lc.t1max) {
            const double ps = saturation_pressure_in<T>(state.t);
            state.primary =
                clamp_with_slack(state.primary, ps, ktl_lc.pmax, slack.water_line * ps + slack.water_absolute);
        }
        // At the end of the range, 1000 bar and 350 degC, sub-region 1 covers its gap to sub-region 3 past both limits.
        const double beyond = water && state.t > ktl_lc.t1max ? slack.p_beyond_1000 : 0.0;
        in_range = in_range && state.primary >= ktl_lc.pmin && state.primary <= ktl_lc.pmax * (1.0 + beyond);
    } else {
        const double p = state.value(Quantity::pressure);
        in_range = in_range && all_set(is_near_critical_volume(T(state.primary))) && p >= ktl_lc.pmin &&
                   p <= greatest_near_critical_pressure(given.model);
    }
    in_range = in_range && has(state, given.a, given.a_value, given.model, share) &&
               has(state, given.b, given.b_value, given.model, share);
    return in_range ? state : FoundState<T>{};
}

template <class T>
FoundState<T> corrected(const FoundState<T>& start, const Given& given) {
    const Quantities wanted{given.a, given.b};
    const auto in = [&]<SubRegion sub_region>() {
        return newton<sub_region, StepLimit::third>(wanted, T(given.a_value), T(given.b_value), T(start.primary),
                                                    T(start.t));
    };
    switch (start.region) {
    case KTL_WATER: {
        const auto end = in.template operator()<SubRegion::water>();
        return {start.region, plain(end.primary), plain(end.t), {}};
    }
    case KTL_STEAM: {
        const auto end = in.template operator()<SubRegion::steam>();
        return {start.region, plain(end.primary), plain(end.t), {}};
    }
    case KTL_NEAR_CRITICAL_STEAM:
    case KTL_NEAR_CRITICAL_WATER: {
        const auto end = in.template operator()<SubRegion::near_critical>();
        const bool water = end.t <= ktl_lc.tc && end.primary < ktl_lc.vca;
        return {water ? KTL_NEAR_CRITICAL_WATER : KTL_NEAR_CRITICAL_STEAM, plain(end.primary), plain(end.t), {}};
    }
    case KTL_WET: {
        TwoPhaseIterate<T> m{T(start.primary), T(start.t), T(0.0), T(0.0), T(0.0)};
        newton_two_phase<false, StepLimit::third>(m, wanted, T(given.a_value), T(given.b_value));
        const double p = plain(m.liquid);
        return mixture(Saturated<T>{plain(m.t), p, KTL_WET, p, p, given.model}, plain(m.x));
    }
    default: return {};
    }
}

template <class T>
Place place_of(const FoundState<T>& state, SaturationModel model) {
    using namespace accepted;
    BorderSlack slack = slack_of(model);
    if (is_in_region(state, slack, model)) return Place::inside;
    slack.t_beyond_350 = t_across_gap;
    slack.p_beyond_boundary = p_across_gap;
    return is_in_region(state, slack, model) ? Place::beside : Place::outside;
}

} // namespace ktl::searches
