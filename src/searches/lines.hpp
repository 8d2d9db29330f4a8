// States on a line of constant pressure or constant temperature by a second property.
//
// A line passes through several sub-regions, which do not meet exactly at 350 degC and on the 2/3 boundary: a
// value there may be found on both sides (the sub-regions overlap) or on neither (a gap). One rule serves both:
// sub-regions 1 and 2 come before sub-region 3, and across a gap they go on for as long as it lasts (at most
// 0.1 K): the state then lies a little outside its sub-region and has exactly the given values.
#pragma once

#include "searches/state.hpp"

namespace ktl {

/// The state at p (pmin to 1000 bar) whose property y has the given value. Enthalpy, entropy and internal energy
/// rise along the line. Volume does not in water below 4 degC: of two temperatures the higher is taken, and
/// water takes precedence over a mixture of nearly no steam (quality up to 1e-6).
///
/// lowest: temperature where the search begins, tmin or a little below. A value beyond the ends of the line gives
/// the state at the end.
template <class T>
FoundState<T> on_isobar(Quantity y, double p, double value, SaturationModel model, double lowest = ktl_lc.tmin);

/// The state at t (0.01 to 800 degC) whose property y has the given value. Volume falls along the line with
/// rising pressure; the others may turn in water. Of several pressures the lowest is taken, except that water
/// takes precedence over a mixture of nearly no steam (quality up to 1e-6). A value beyond the ends of the line gives
/// the state at the end.
template <class T>
FoundState<T> on_isotherm(Quantity y, double t, double value, SaturationModel model);

/// The single phase at p and t; up to the critical point not on the saturation line.
template <class T>
FoundState<T> single_phase_at(double p, double t, SaturationModel model);
/// Sub-region 3 at t above 350 degC and p above the 2/3 boundary, on its side of the saturation pressure.
template <class T>
FoundState<T> near_critical_at(double p, double t, SaturationModel model);

/// States of water of sub-region 1 on both sides of the point where the property turns: the one that the searches above
/// prefer, and the other; no state on a side that does not reach the value. An end of the line, and the turning point if
/// neither side reaches the value, count if they have it as closely as a state must. wet: a mixture has the value, so that
/// saturated water and the turning point count on their own only if they have it but for rounding.
template <class T>
struct BothSides {
    FoundState<T> preferred, other;
};
/// By volume on an isobar: the warmer first.
template <class T>
BothSides<T> water_on_isobar(double p, double v, SaturationModel model, bool wet);
/// On an isotherm up to 350 degC: the one of lower pressure first.
template <class T>
BothSides<T> water_on_isotherm(Quantity y, double t, double value, SaturationModel model, bool wet = false);

/// Quality at and below which the entry ktlftn takes a mixture as saturated water.
inline constexpr double least_quality = 1.0e-6;

} // namespace ktl
