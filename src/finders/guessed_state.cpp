#include "finders/guessed_state.hpp"

#include "engine/calls/float_environment.hpp"
#include "engine/pairs.hpp"
#include "engine/solution.hpp"
#include "regions/region2.hpp"

#include <cmath>

namespace ktl::finders {

namespace {

/// Relative distance from a border below which the enclosing searches decide between its sides. The finders have their values to
/// 1e-8, which moves a state by less than this.
constexpr double beside_border = 1.0e-5;
/// The same for water above the saturation line, bar: energies and entropy fix its pressure badly, and u, s hardly at all.
constexpr double above_line = 0.1;
constexpr double above_line_by_energy_and_entropy = 2.0;
/// Sub-regions 1 and 3, and mixtures on both sides, share values next to 350 degC: K, by u, s, by h, s and by other pairs.
constexpr double shared_by_us = 2.5;
constexpr double shared_by_hs = 1.0;
constexpr double shared = 0.2;
/// Beside the 2/3 boundary: share of its pressure.
constexpr double shared_at_boundary = 1.0e-3;
/// Next to the critical point: K, and share of its volume.
constexpr double near_critical_t = 0.05;
constexpr double near_critical_volume = 0.25;

double shared_below_350(Pair pair) {
    return pair == Pair::us ? shared_by_us : pair == Pair::hs ? shared_by_hs : shared;
}

/// True if no state on the other side of a border could have both values, to the tolerance of the finders.
bool is_clear(Pair pair, const engine::Solution& state) {
    const double t = state.t;
    const bool below_350 = t < ktl_lc.t3min - shared_below_350(pair);
    switch (state.region) {
    case Region::wet: return below_350 && state.primary > beside_border && state.primary < 1.0 - beside_border;
    case Region::water: {
        const double ps = saturation::terms(t).p;
        const double bar = pair == Pair::us ? above_line_by_energy_and_entropy : above_line;
        return below_350 && state.primary > ps + std::fmax(bar, beside_border * ps);
    }
    case Region::steam:
        if (t < ktl_lc.t3min) return below_350 && state.primary < saturation::terms(t).p * (1.0 - beside_border);
        return t > ktl_lc.t3max || state.primary < boundary_pressure(t) * (1.0 - shared_at_boundary);
    case Region::near_critical_steam:
    case Region::near_critical_water: {
        const double off = std::fabs(state.primary - ktl_lc.vca);
        if (std::fabs(t - ktl_lc.tc) < near_critical_t && off < near_critical_volume * ktl_lc.vca) return false;
        if (t > ktl_lc.tc) return true;
        const double ps = saturation::terms(t).p;
        return std::fabs(property(Quantity::pressure, static_cast<int>(state.region), state.primary, t) - ps) >
               beside_border * ps;
    }
    default: return false;
    }
}

} // namespace

FoundState<double> guessed_state(Pair pair, const searches::Given& given) {
    const engine::Solution found =
        in_float_environment([&] { return engine::find_by_patch(pair, given.a_value, given.b_value); });
    if (found.status != Status::solved || !is_clear(pair, found)) return {};
    if (found.region == Region::wet)
        return searches::confirmed(mixture(saturated_at<double>(found.t, given.model), found.primary), given);
    return searches::confirmed(FoundState<double>{static_cast<int>(found.region), found.primary, found.t, {}}, given);
}

} // namespace ktl::finders
