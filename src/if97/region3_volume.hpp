// Volumes of region 3 of IF97, whose own variable is the density.
#pragma once

namespace ktl::if97 {

/// Water and steam of region 3 below the critical temperature; above it there is one volume at each pressure.
enum class Side { water, steam };

/// Below the critical temperature by less than this, K, the saturation pressure passes the extrema of the isotherm, and the
/// saturated densities are taken as those at this distance, drawn to 322 kg/m3 by the square root.
inline constexpr double beside_critical = 1.0e-4;

/// Volume, m3/kg, at p (bar) and t (degC, from 350) that a search from a volume close to it finds, or a not-a-number; on the
/// given side if t lies below the critical temperature.
double region3_volume_from(double p, double t, Side side, double guess) noexcept;
/// The same without a guess. Not-a-number only if there is no such volume to the rounding of the pressure.
double region3_volume(double p, double t, Side side) noexcept;

/// Volumes of saturated water and steam above 350 degC under the saturation pressure p at t.
struct SaturatedVolumes {
    double water, steam;
};
SaturatedVolumes saturated_volumes(double p, double t) noexcept;

} // namespace ktl::if97
