// Saturated water by two properties, and the states that share enthalpy and entropy with it.
//
// Along the line of saturated water dh/ds is T + v dp/ds'. On the isotherm of a mixture it is (h" - h')/(s" - s'). In
// exact thermodynamics that is T; the formulation's saturation line and Gibbs functions make it T + 0.0128 K at 0.01
// degC, T + 0.0070 K at 13 degC. Below 13.48 degC this is more than v dp/ds': mixtures of little steam lie above the
// line of saturated water in h, s, by up to 7e-7 kJ/kg. In this fold three states have the same h and s: water up to
// 7e-6 bar above saturation, and two mixtures up to 0.02 K colder with up to 3.4e-5 of steam. On the line itself the
// mixture of less steam is saturated water. No other pair of h, s, u, v has such a fold.
#pragma once

#include "searches/acceptance.hpp"

namespace ktl::searches {

/// Below this temperature, degC, water may take precedence over mixtures of qualities up to folded_quality; the fold ends
/// at 13.48 degC.
inline constexpr double folded_below = 14.0;
inline constexpr double folded_quality = 1.0e-4;
/// Quality up to which water may take precedence over a mixture of that temperature, degC: with more steam, saturated water of the same
/// enthalpy misses the entropy. From folded_below on it falls: measured 8.9e-7 at 14 degC, below 4.5e-7 K / (t - 13.5 degC) from there
/// to 350 (test ColdWater.MixturesAboveTheDoubtfulQualityAreNoWater).
template <class T>
T doubtful_quality(const T& t) {
    return select(t < folded_below, T(folded_quality), 6.0e-7 / (t - 13.5));
}

/// Share of what is allowed, above the rounding of the equations of sub-region 1.
inline constexpr double rounding_share = 0.1;

/// Saturated water up to 350 degC that has both values, to the given share of what is allowed; no state if it misses
/// one. The second value must be an enthalpy, entropy or internal energy.
template <class T>
FoundState<T> saturated_water(const Given& given, double share = 1.0);

/// Water that takes precedence over the mixture found, for given h and s; no state if it has other values, or the
/// quality is above folded_quality. Below folded_below water must have both values to 1e-10, elsewhere to a tenth of
/// that: there it differs from the mixture by rounding alone.
template <class T>
FoundState<T> water_before(const FoundState<T>& found, const Given& given);

/// The mixtures that have the enthalpy and entropy of the water found below folded_below; the one of more steam first.
/// Where saturated water has both values to 1e-10, the one of less steam is that water and is left out.
template <class T>
struct FoldedMixtures {
    FoundState<T> more_steam, less_steam;
};
template <class T>
FoldedMixtures<T> folded_mixtures(const FoundState<T>& water, const Given& given);

} // namespace ktl::searches
