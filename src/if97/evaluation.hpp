// The equations of IF97 in the number type of the engine, whose logarithm has the same bits with every compiler.
#pragma once

#include "engine/lanes/scalar.hpp"
#include "if97/phases.hpp"
#include "regions/quantity.hpp"

namespace ktl::if97 {

using engine::Scalar;
using Phase = PhaseProperties<Scalar>;

/// Limits of the range, those of the 1967 formulation: bar, degC. IF97 holds in all of it.
inline constexpr double p_min = 0.006112444;
inline constexpr double p_max = 1000.0;
inline constexpr double t_min = 0.01;
inline constexpr double t_max = 800.0;
inline constexpr double t_13 = 350.0; ///< border of regions 1 and 3
inline constexpr double t_23 = 590.0; ///< end of the 2/3 boundary

inline Phase water_at(double p, double t) { return water(Scalar(p), Scalar(t)); }
inline Phase steam_at(double p, double t) { return steam(Scalar(p), Scalar(t)); }
inline Phase near_critical_at(double v, double t) { return from_helmholtz(near_critical(Scalar(v), Scalar(t))); }

/// h or s of a phase.
inline double value_of(Quantity y, const Phase& phase) { return (y == Quantity::entropy ? phase.s : phase.h).value; }

} // namespace ktl::if97
