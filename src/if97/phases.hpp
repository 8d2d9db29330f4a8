// The properties of a homogeneous phase of IF97, in the structs of the library: every property follows from the first and
// second derivatives by the same thermodynamic relations (regions/phase_properties.hpp).
#pragma once

#include "if97/region1.hpp"
#include "if97/region2.hpp"
#include "if97/region3.hpp"
#include "if97/saturation.hpp"
#include "regions/phase_properties.hpp"

namespace ktl::if97 {

template <class T>
PhaseProperties<T> water(const T& p, const T& t) {
    return from_gibbs(region1::terms(p, t), p, t);
}
template <class T>
PhaseProperties<T> steam(const T& p, const T& t) {
    return from_gibbs(region2::terms(p, t), p, t);
}
/// Region 3 in its own variables.
template <class T>
HelmholtzProperties<T> near_critical(const T& v, const T& t) {
    const auto s = region3::terms(v, t);
    return {v,
            t,
            region3::pressure(s),
            region3::enthalpy(s),
            region3::entropy(s),
            region3::isochoric_heat_capacity(s),
            region3::pressure_by_volume(s),
            region3::pressure_by_temperature(s)};
}

} // namespace ktl::if97
