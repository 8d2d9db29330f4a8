// Where properties of saturated phases have an extremum along the saturation line. These numbers follow from the equations;
// ktl_constants measures them.
#pragma once

namespace ktl::process {

inline constexpr double least_water_volume = 4.688758842;        // degC: minimum of v'
inline constexpr double greatest_steam_enthalpy = 236.262815906; // degC: maximum of h"
inline constexpr double greatest_steam_energy = 237.887701885;   // degC: maximum of u"

} // namespace ktl::process
