// Homogeneous phases and mixtures in the variables of their regions, evaluated as a whole.
#pragma once

#include "engine/derived.hpp"
#include "regions/saturation.hpp"

namespace ktl::engine {

/// The homogeneous sub-regions.
enum class Body { water, steam, near_critical };

template <Body body, class T>
auto terms_of(const T& first, const T& t) {
    if constexpr (body == Body::water)
        return region1::terms(first, t);
    else if constexpr (body == Body::steam)
        return region2::terms(first, t);
    else
        return region3::terms(first, t);
}

/// The phase at the variables of its region.
template <Body body, class T>
Thermo<T> phase_at(const T& first, const T& t) {
    if constexpr (body == Body::near_critical)
        return from_helmholtz(first, t);
    else
        return from_gibbs(terms_of<body>(first, t), first, t);
}

/// The mixture of two phases on the saturation line.
template <bool high, class T>
Thermo<T> mixture_at(const T& x, const T& t, const T& liquid, const T& vapour) {
    constexpr Body water_body = high ? Body::near_critical : Body::water;
    constexpr Body steam_body = high ? Body::near_critical : Body::steam;
    const Thermo<T> water = phase_at<water_body>(liquid, t);
    const Thermo<T> steam = phase_at<steam_body>(vapour, t);
    const T none(not_a_number);
    const T p = high ? saturation::terms(t).p : liquid;
    const auto mixed = [&](T Thermo<T>::*y) { return water.*y + x * (steam.*y - water.*y); };
    return {p, t, mixed(&Thermo<T>::v), mixed(&Thermo<T>::h), mixed(&Thermo<T>::s), none, none, none, none, none};
}

} // namespace ktl::engine
