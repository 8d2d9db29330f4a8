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
        return from_helmholtz(terms_of<body>(first, t), first, t);
    else
        return from_gibbs(terms_of<body>(first, t), first, t);
}

/// Both phases on the saturation line: sub-regions 1 and 2 up to 350 degC, above (high) sub-region 3 twice.
template <class T>
struct SaturatedPhases {
    Thermo<T> water, steam;

    [[nodiscard]] T mixed(T Thermo<T>::*y, const T& x) const { return water.*y + x * (steam.*y - water.*y); }
    [[nodiscard]] T quality(T Thermo<T>::*y, const T& value) const {
        return (value - water.*y) / (steam.*y - water.*y);
    }
};
template <bool high, class T>
SaturatedPhases<T> saturated_at(const T& t, const T& liquid, const T& vapour) {
    if constexpr (high)
        return {phase_at<Body::near_critical>(liquid, t), phase_at<Body::near_critical>(vapour, t)};
    else
        return {phase_at<Body::water>(liquid, t), phase_at<Body::steam>(vapour, t)};
}

/// Their mixture of quality x.
template <class T>
Thermo<T> mixture_of(const SaturatedPhases<T>& phases, const T& x, const T& p) {
    const T none(not_a_number);
    return {p,
            phases.water.t,
            phases.mixed(&Thermo<T>::v, x),
            phases.mixed(&Thermo<T>::h, x),
            phases.mixed(&Thermo<T>::s, x),
            none,
            none,
            none,
            none,
            none};
}

} // namespace ktl::engine
