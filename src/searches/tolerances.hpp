// Every tolerance of the searches, in one table. Relative unless a unit is given.
#pragma once

namespace ktl::searches {

// ---- Given values ----------------------------------------------------------------------------------------------------

/// The ktl:: calls take a given value past a limit by up to this for the limit: half of the 1e-10 to which states have
/// their values. The named finders take a ten times larger one, as they always have.
inline constexpr double limit_rounding = 0.5e-10;
inline constexpr double limit_rounding_of_finders = 1.0e-9;
/// A given pressure this close to the saturation pressure of the given temperature leaves the quality open.
inline constexpr double on_saturation_line = 1.0e-8;

// ---- Found states ----------------------------------------------------------------------------------------------------

/// A variable past a limit of the range by up to this is brought to the limit (t: K): searches in water end there if the
/// properties hardly depend on it. The given values are compared afterwards.
inline constexpr double limit_slack = 1.0e-6;

/// How far outside a sub-region a state may lie and still count as one of its own.
struct BorderSlack {
    double line;          ///< past the saturation pressure
    double line_absolute; ///< the same, bar: two energies of water fix its pressure to a few digits only
    double range;         ///< past the other borders
    double t_beyond_350;  ///< K past 350 degC: what the gap between sub-regions 1 and 3 needs
    double p_beyond;      ///< past the 2/3 boundary, and past 1000 bar beyond 350 degC: what the gaps there need
};
/// Kernels: rounding of the saturation pressure alone.
inline constexpr BorderSlack strict{1.0e-11, 0.0, 0.0, 0.0, 0.0};
/// Exact search: inside, or beside if a gap between two sub-regions is to be covered.
inline constexpr BorderSlack inside{2.0e-9, 1.0e-8, 1.0e-9, 0.0, 0.01};
inline constexpr BorderSlack beside{2.0e-9, 1.0e-8, 1.0e-9, 0.5, 0.01};

} // namespace ktl::searches
