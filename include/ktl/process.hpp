// Steps of a turbine cycle: expansion, compression, throttling, heating, mixing, and what they lose.
//
//     const ktl::State live = ktl::state(ktl::Pair::pt, 166.7, 538.0);
//     const ktl::Step hp = ktl::expand(live, 40.0, 0.88); // to 40 bar with an isentropic efficiency of 0.88
//     if (hp) std::printf("%g kJ/kg, end at %g degC\n", hp.work, hp.end.t());
//     else std::puts(ktl::sentence(hp.status));
//
// States are those of ktl::state(); a step from a state of another formulation would mix two of them. Pressure in bar,
// temperature in degC, energies in kJ/kg, entropies in kJ/(kg K), efficiencies as fractions. Efficiencies and Baumann's
// factor are empirical: they say what a machine was measured to do, and the equations of steam say nothing of them.
// No call prints, throws or allocates, except that the calls for columns start the threads they are asked for. Any bit
// pattern may be given; a status says why there is no result, and all its numbers then are NaN.
// Equations and sources: docs/process.md.
#pragma once

#include <array>
#include <ktl/steam.hpp>

namespace ktl {

/// What is done to a stream of steam or water.
enum class Process : std::uint8_t {
    expansion,              ///< to a lower pressure, by isentropic efficiency: h1 - h2 = efficiency (h1 - h2s)
    compression,            ///< to a higher pressure, by isentropic efficiency: h2 - h1 = (h2s - h1) / efficiency
    polytropic_expansion,   ///< dh = efficiency v dp at each pressure
    polytropic_compression, ///< dh = v dp / efficiency at each pressure
    throttling,             ///< to a lower pressure, h constant
    heating_to_t,           ///< heating or cooling at constant pressure, to a temperature
    heating_to_h,           ///< to an enthalpy
    heating_to_x,           ///< to a quality
};
inline constexpr std::size_t process_count = 8;

/// The surroundings: what no work can be made of.
struct Surroundings {
    double p = 1.01325; ///< bar
    double t = 15.0;    ///< degC
};

struct StepOptions {
    /// Baumann's factor, for both expansions: each part of wetness takes this part of the efficiency away, about 0.4 to
    /// 2 in published tests, often 1. Empirical. Of an expansion the mean wetness of its two ends counts, of a polytropic
    /// one that at each pressure. 0 switches it off.
    double wetness_factor = 0.0;
    double surroundings_t = Surroundings{}.t; ///< degC, for the lost work: finite and above -273.15
};

/// A step: its end and what it gave and lost.
struct Step {
    /// solved, or that of the first reason why there is no result: of the initial state, of the arguments, of the end.
    Status status = Status::no_state;
    State end;
    double work = detail::nan; ///< h1 - h2 of expansions and compressions: negative if it is taken up; else 0
    double heat = detail::nan; ///< h2 - h1 of heating: negative if it is given off; else 0
    /// s2 - s1 of steps without heat. Heating itself generates none in the stream: what the source of the heat loses, and the
    /// difference of temperatures to it, are not known here.
    double entropy_generated = detail::nan;
    double lost_work = detail::nan; ///< entropy_generated times the absolute temperature of the surroundings

    /// True if the status is solved.
    explicit operator bool() const noexcept { return status == Status::solved; }
};

/// The process from the state `from` to `to`: a pressure in bar, or the value that the name of the process has.
///
/// efficiency counts for the first four processes and must be above 0 and at most 1, or the status is efficiency_outside;
/// so must be what the wetness leaves of it. A pressure on the wrong side of the initial one gives wrong_direction, the same
/// pressure a step that changes nothing. The end of a polytropic step has its entropy rise to 2e-9 of it,
/// if it passes above 165 bar to 2e-6.
[[nodiscard]] KTL_API Step step(Process process, const State& from, double to, double efficiency = 1.0,
                                const StepOptions& options = {}) noexcept;

/// The same by name.
[[nodiscard]] inline Step expand(const State& from, double p, double efficiency = 1.0,
                                 const StepOptions& options = {}) noexcept {
    return step(Process::expansion, from, p, efficiency, options);
}
[[nodiscard]] inline Step compress(const State& from, double p, double efficiency = 1.0,
                                   const StepOptions& options = {}) noexcept {
    return step(Process::compression, from, p, efficiency, options);
}
[[nodiscard]] inline Step expand_polytropic(const State& from, double p, double efficiency,
                                            const StepOptions& options = {}) noexcept {
    return step(Process::polytropic_expansion, from, p, efficiency, options);
}
[[nodiscard]] inline Step compress_polytropic(const State& from, double p, double efficiency,
                                              const StepOptions& options = {}) noexcept {
    return step(Process::polytropic_compression, from, p, efficiency, options);
}
[[nodiscard]] inline Step throttle(const State& from, double p, const StepOptions& options = {}) noexcept {
    return step(Process::throttling, from, p, 1.0, options);
}
[[nodiscard]] inline Step heat_to_t(const State& from, double t) noexcept {
    return step(Process::heating_to_t, from, t);
}
[[nodiscard]] inline Step heat_to_h(const State& from, double h) noexcept {
    return step(Process::heating_to_h, from, h);
}
[[nodiscard]] inline Step heat_to_x(const State& from, double x) noexcept {
    return step(Process::heating_to_x, from, x);
}

// ---- Mixing ---------------------------------------------------------------------------------------------------------

/// A stream that is mixed with others: its state and its mass flow, in any unit that all streams share.
struct Stream {
    State state;
    double flow = 0.0;
};

struct Mixture {
    Status status = Status::no_state;
    State end;
    double flow = detail::nan;              ///< the sum of the flows
    double entropy_generated = detail::nan; ///< kJ/(kg K), for each kg of the mixture
    double lost_work = detail::nan;         ///< kJ/kg, the same times the absolute temperature of the surroundings

    explicit operator bool() const noexcept { return status == Status::solved; }
};

/// The streams mixed without heat and work, at the lowest of their pressures. A stream without flow has no part in it,
/// whatever its state. flow_outside if a flow is negative or not finite, or all are zero; surroundings_t in degC.
[[nodiscard]] KTL_API Mixture mix(std::span<const Stream> streams, double surroundings_t = Surroundings{}.t) noexcept;

// ---- Exergy ---------------------------------------------------------------------------------------------------------

/// The most work that a state can give while it comes to the pressure and temperature of the surroundings, kJ/kg.
struct Exergy {
    Status status = Status::no_state;
    double flow = detail::nan;   ///< of a stream: h - h0 - T0 (s - s0)
    double closed = detail::nan; ///< of a closed mass: u - u0 + p0 (v - v0) - T0 (s - s0)

    explicit operator bool() const noexcept { return status == Status::solved; }
};
/// surroundings_outside if water has no state at p0, t0, or is on the saturation line there.
[[nodiscard]] KTL_API Exergy exergy(const State& of, const Surroundings& surroundings = {}) noexcept;

// ---- Properties beside saturation -----------------------------------------------------------------------------------

/// Steam: temperature above that of saturation at its pressure, K; 0 of a mixture. NaN of water, above 221.2 bar, without a
/// state.
[[nodiscard]] KTL_API double superheat(const State& of) noexcept;
/// Water: temperature below that of saturation at its pressure, K; 0 of a mixture. NaN of steam, above 221.2 bar, without a
/// state.
[[nodiscard]] KTL_API double subcooling(const State& of) noexcept;
/// Mass fraction of water in a mixture, 1 - x. NaN of a single phase, whose quality is NaN too.
[[nodiscard]] KTL_API double wetness(const State& of) noexcept;
/// h" - h' at the pressure of the state, kJ/kg. NaN above 221.2 bar and without a state.
[[nodiscard]] KTL_API double latent_heat(const State& of) noexcept;

/// One of the two phases on the saturation line.
enum class SaturatedPhase : std::uint8_t { liquid, vapour };

/// Temperatures at which a saturated phase has a value.
struct SaturationPoints {
    Status status = Status::no_state;
    std::size_t count = 0;
    std::array<double, 3> t{detail::nan, detail::nan, detail::nan}; ///< degC, ascending; NaN from count on

    explicit operator bool() const noexcept { return status == Status::solved; }
};
/// All temperatures from 0.01 to 374.15 degC at which v, h, s or u of that phase has the value: up to three, since v' has
/// a minimum at 4.7, h" a maximum at 236.3 and u" at 237.9 degC, and since the equations change at 350 degC, by 1.4e-4 of v',
/// 9.6e-5 of h' and u', 2.5e-5 of s', 2.2e-5 of h" and u", 8e-6 of v" and 9e-7 of s". Values that such a change passes twice
/// have a temperature on both sides; no temperature has those that it leaves out, of s' and v". A value is met to 1e-10,
/// relative; near the minimum and the maxima the temperature is less certain than that. no_state if there is none, or if
/// the property is none of the four; not_a_number if the value is not finite.
[[nodiscard]] KTL_API SaturationPoints saturation_by(SaturatedPhase phase, Property property, double value) noexcept;

// ---- Columns --------------------------------------------------------------------------------------------------------

/// Columns of results beside properties of the end; each as long as the rows, or empty if it is not wanted.
struct StepColumns {
    std::span<double> work{}, heat{}, entropy_generated{}, lost_work{};
};

/// A step of each row: from the state with the values a[i], b[i] of the pair to to[i], by efficiency[i]. outputs[k][i] receives
/// the property properties[k] of the end, status[i] the status. `to` and `efficiency` have one value for each row, or one
/// value for all rows.
///
/// A row has the bits of step(process, state(pair, a[i], b[i]), to[i], efficiency[i], options), whatever its place and the
/// number of threads. Results of a row that is not solved are NaN; the region is 7. Faults, threads and outputs as in
/// batch(); a process outside its enumeration is the fault unknown_process.
KTL_API BatchResult step_batch(Process process, Pair pair, std::span<const double> a, std::span<const double> b,
                               std::span<const double> to, std::span<const double> efficiency,
                               const StepOptions& step_options, std::span<const Property> properties,
                               std::span<double* const> outputs, const StepColumns& results, std::span<Status> status,
                               const BatchOptions& options = {}) noexcept;

/// One of the streams of each row: the states with the values a[i], b[i] of the pair, and their mass flows.
struct StreamColumns {
    Pair pair;
    std::span<const double> a, b, flow;
};
/// Columns of results beside properties of the mixture; each as long as the rows, or empty if it is not wanted.
struct MixtureColumns {
    std::span<double> flow{}, entropy_generated{}, lost_work{};
};

/// A mixture of each row: row i mixes row i of all streams. All columns have as many rows as status; the bits of mix(). Without a
/// stream the fault is lengths_differ. Else faults, threads and outputs as in step_batch().
KTL_API BatchResult mix_batch(std::span<const StreamColumns> streams, double surroundings_t,
                              std::span<const Property> properties, std::span<double* const> outputs,
                              const MixtureColumns& results, std::span<Status> status,
                              const BatchOptions& options = {}) noexcept;

/// The exergy of the state of each row; flow and closed have as many rows, or none if they are not wanted. The bits of exergy().
KTL_API BatchResult exergy_batch(Pair pair, std::span<const double> a, std::span<const double> b,
                                 const Surroundings& surroundings, std::span<double> flow, std::span<double> closed,
                                 std::span<Status> status, const BatchOptions& options = {}) noexcept;

} // namespace ktl
