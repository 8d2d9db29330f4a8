// The tolerances of the searches, in one table. Relative unless a unit is given.
#pragma once

namespace ktl::searches {

// ---- Given values ----------------------------------------------------------------------------------------------------

/// The ktl:: calls take a given value past a limit by up to this for the limit: slightly less than the 1e-10 to which states
/// have their values. The named finders allow more, as they always have.
inline constexpr double limit_rounding = 0.999e-10;
inline constexpr double limit_rounding_of_finders = 1.0e-9;
/// A given pressure this close to the saturation pressure at the given temperature leaves the quality open: the tolerance of the
/// entry ktlftn.
inline constexpr double on_saturation_line = 1.0e-8;

// ---- Given values reproduced by a state ------------------------------------------------------------------------------

/// How closely a state must have a value. near_zero: the size below which the deviation is absolute, in units of 10 kJ/kg and
/// 1 kJ/(kg K).
inline constexpr double reproduced = 1.0e-10;
/// With the saturated phases of the entry ktlftn a tenth of what the finders promise: its volumes, found to 1e-8 of the pressure,
/// move by more than that near the critical point.
inline constexpr double reproduced_entry = 1.0e-8;
inline constexpr double reproduced_entry_near_critical = 8.0e-8;
inline constexpr double near_zero_energy = 10.0; // kJ/kg
inline constexpr double near_zero_entropy = 1.0; // kJ/(kg K)

// ---- Where a state may lie -------------------------------------------------------------------------------------------

/// A variable past a limit of the range by up to this (t: K) is brought to the limit: searches in water end there if the
/// properties depend on it very little. The given values are compared afterwards.
inline constexpr double limit_slack = 1.0e-6;

/// How far outside a sub-region a state may lie and still be accepted as one of its own.
struct BorderSlack {
    double steam_line;        ///< past the saturation pressure, steam
    double water_line;        ///< the same, water
    double water_absolute;    ///< the same, bar: two energies fix the pressure of water to a few digits only
    double range;             ///< past the other borders; of temperatures K
    double t_beyond_350;      ///< K past 350 degC, in a gap between sub-regions 1 and 3
    double p_beyond_boundary; ///< past the 2/3 boundary, in a gap between sub-regions 2 and 3
    double p_beyond_1000;     ///< past 1000 bar, in the gap of water beyond 350 degC
};
/// Rounding of the saturation pressure alone: for Newton results, of which another sub-region must not claim any.
inline constexpr BorderSlack strict{1.0e-11, 1.0e-11, 0.0, 0.0, 0.0, 0.0, 0.0};
/// Exact search with the outermost saturated volumes, and with those of the entry, which are known to 1e-8.
inline constexpr BorderSlack searched{1.0e-9, 2.0e-9, 1.0e-8, 1.0e-9, 0.0, 0.0, 0.01};
inline constexpr BorderSlack searched_entry{1.0e-9, 1.001e-6, 0.0, 1.0e-9, 0.0, 0.0, 0.0};
/// Sub-region 3 has its pressure from the volume, to its own rounding.
inline constexpr double rounding_of_pressure = 1.0e-12;
/// The same for a state that covers a gap.
inline constexpr double t_across_gap = 0.5;  // K
inline constexpr double p_across_gap = 0.01; // of the pressure

/// The volumes of sub-region 3 lie between 0.0013153 and 0.0087996 m3/kg (ktl_constants): v3min and v3max but for the jumps at its
/// borders. Its equations have other roots well beyond them, some at negative volumes.
inline constexpr double volume_slack = 0.01;

} // namespace ktl::searches
