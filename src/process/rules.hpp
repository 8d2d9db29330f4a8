// The rules of a step, shared by single steps and columns.
#pragma once

#include "regions/number.hpp"

#include <algorithm>
#include <cmath>
#include <ktl/process.hpp>

namespace ktl::process {

inline constexpr double absolute_zero = -273.15; // degC

constexpr bool expands(Process process) {
    return process == Process::expansion || process == Process::polytropic_expansion;
}
constexpr bool compresses(Process process) {
    return process == Process::compression || process == Process::polytropic_compression;
}
constexpr bool is_polytropic(Process process) {
    return process == Process::polytropic_expansion || process == Process::polytropic_compression;
}
constexpr bool has_efficiency(Process process) { return expands(process) || compresses(process); }
constexpr bool is_heating(Process process) { return process >= Process::heating_to_t; }
constexpr bool exists(Process process) { return static_cast<std::size_t>(process) < process_count; }

/// What a step takes of its initial state.
struct Start {
    Status status;
    double p, h, s;
    double wetness; ///< mass fraction of water: that of a mixture, 1 of water, 0 of steam
};

/// Mass fraction of water in a state of that region and quality.
inline double water_fraction(Region region, double x) {
    if (region == Region::wet || region == Region::wet_near_critical) return 1.0 - x;
    return region == Region::water || region == Region::near_critical_water ? 1.0 : 0.0;
}

/// The temperature of surroundings that lost work is counted at.
inline bool has_temperature(double surroundings_t) {
    return surroundings_t > absolute_zero && std::isfinite(surroundings_t);
}
inline double lost_work(double entropy, double surroundings_t) { return (surroundings_t - absolute_zero) * entropy; }

inline bool is_efficiency(double efficiency) { return efficiency > 0.0 && efficiency <= 1.0; }

/// solved, or the first reason why there is no step.
inline Status refusal(Process process, const Start& start, double to, double efficiency, const StepOptions& options) {
    if (!exists(process)) return Status::no_state;
    if (start.status != Status::solved) return start.status;
    if (!std::isfinite(to)) return Status::not_a_number;
    if (has_efficiency(process) && !is_efficiency(efficiency)) return Status::efficiency_outside;
    if (expands(process) && !(options.wetness_factor >= 0.0 && std::isfinite(options.wetness_factor)))
        return Status::efficiency_outside;
    if (!has_temperature(options.surroundings_t)) return Status::surroundings_outside;
    if (compresses(process) ? to < start.p : !is_heating(process) && to > start.p) return Status::wrong_direction;
    return Status::solved;
}

/// Enthalpies of both phases at the end pressure; NaN above the critical pressure.
struct SaturatedEnthalpies {
    double liquid = quiet_nan, vapour = quiet_nan;
};

/// Baumann's rule: the efficiency that is left by the mean wetness of both ends. The enthalpy of a wet end is linear in its
/// wetness, and its wetness in the efficiency: one linear equation.
inline double efficiency_of_wet(double efficiency, double factor, const Start& start, double isentropic_drop,
                                const SaturatedEnthalpies& end) {
    if (factor == 0.0) return efficiency;
    double wetness = 0.0;
    const double at_dry_end = efficiency * (1.0 - 0.5 * factor * start.wetness);
    const double below_steam = end.vapour - start.h + at_dry_end * isentropic_drop;
    if (below_steam > 0.0) {
        const double slope = end.vapour - end.liquid + 0.5 * factor * efficiency * isentropic_drop;
        wetness = std::min(below_steam / slope, 1.0);
    }
    return efficiency * (1.0 - 0.5 * factor * (start.wetness + wetness));
}

/// The two values that fix the end of a step.
struct EndRequest {
    Pair pair;
    double b; ///< beside the pressure
};
constexpr Pair end_pair(Process process) {
    switch (process) {
    case Process::polytropic_expansion:
    case Process::polytropic_compression: return Pair::ps;
    case Process::heating_to_t: return Pair::pt;
    case Process::heating_to_x: return Pair::px;
    default: return Pair::ph;
    }
}

/// Enthalpy at the end of a step of isentropic efficiency; h_ideal: of the isentropic one.
inline double end_enthalpy(Process process, double h, double h_ideal, double efficiency) {
    return process == Process::compression ? h + (h_ideal - h) / efficiency : h - efficiency * (h - h_ideal);
}

/// What a solved step gave and lost.
struct Results {
    double work, heat, entropy_generated, lost_work;
};
inline Results results(Process process, const Start& start, double h, double s, double surroundings_t) {
    const double entropy = is_heating(process) ? 0.0 : s - start.s;
    return {has_efficiency(process) ? start.h - h : 0.0, is_heating(process) ? h - start.h : 0.0, entropy,
            lost_work(entropy, surroundings_t)};
}

/// What exergy is made of, beside the state of the surroundings.
struct ExergyInput {
    double v, h, s, u;
};
inline Exergy exergy_of(const ExergyInput& of, const State& dead) {
    const double unavailable = (dead.t() - absolute_zero) * (of.s - dead.s());
    return {Status::solved, of.h - dead.h() - unavailable,
            of.u - dead.u() + kj_per_bar_m3 * dead.p() * (of.v - dead.v()) - unavailable};
}

/// Entropy at the end of a polytropic step from a start that refusal() has let pass; NaN with the reason if the step leaves the
/// valid range.
struct PolytropicEnd {
    Status status;
    double s;
};
PolytropicEnd polytropic_end(Process process, const Start& start, double to, double efficiency,
                             double wetness_factor) noexcept;

} // namespace ktl::process
