// States on a line of constant entropy or constant volume by an energy.
#pragma once

#include "searches/state.hpp"

namespace ktl::searches {

/// The state of entropy s whose enthalpy or internal energy y has the given value: both rise with pressure along the
/// line, but for the enthalpy in the fold of cold water (saturated_water.hpp), of which water is taken. No state if the
/// line does not reach the value.
template <class T>
FoundState<T> on_isentrope(Quantity y, double value, double s, SaturationModel model);

/// The state of volume v whose enthalpy, entropy or internal energy y has the given value: all rise with
/// temperature along the line. No state where the line does not reach the value.
template <class T>
FoundState<T> on_isochore(Quantity y, double value, double v, SaturationModel model);

} // namespace ktl::searches
