// Written by tools/first_guesses/fit_guesses.cpp; run it again rather than edit. Where searches on the saturation line
// begin: theta by ln(p/pca); densities of saturated water and steam, relative to the critical one, by the root of tc - t,
// K, from 350 degC up. The notes give the greatest and the root-mean-square error.
// clang-format off
#pragma once

#include "regions/number.hpp"

namespace ktl::saturation_guesses {

inline constexpr Fit<14> saturation_theta{-5.2482479276, 0.19053977895, {0.58249853673, 0.23257607963, 0.10635708092, 0.050104203264, 0.020352336698, 0.0057005468039, 0.012207365975, 0.011891894779, -0.027623067224, -0.028205023502, 0.033744202389, 0.03205133451, -0.016536000578, -0.01511884667}}; // error 1.2e-06, rms 8.7e-07
inline constexpr Fit<7> liquid_density{2.4729438634, 0.40961428852, {1.4954362755, 0.34747330316, -0.037487006618, 0.04222504768, -0.040695678762, 0.017010737898, -0.0029711157547}}; // error 0.0021, rms 0.0003
inline constexpr Fit<7> vapour_density{2.4729438634, 0.40961428852, {0.58691638168, -0.26845807821, 0.049388273201, -0.066971130608, 0.091335415312, 0.019764388093, -0.052518472592}}; // error 0.0022, rms 0.00096

} // namespace ktl::saturation_guesses
