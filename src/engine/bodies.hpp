// Homogeneous phases and mixtures in the variables of their regions, evaluated as a whole, with the slopes of each
// property by those variables.
#pragma once

#include "engine/derived.hpp"
#include "regions/saturation.hpp"
#include "regions/state.hpp"

namespace ktl::engine {

/// The homogeneous sub-regions.
enum class Body { water, steam, near_critical };

/// A phase in the variables of its sub-region: Thermo of p, t, or Isochoric of v, t.
template <Body body, class T>
auto body_at(const T& first, const T& t) {
    if constexpr (body == Body::water)
        return from_gibbs(region1::terms(first, t), first, t);
    else if constexpr (body == Body::steam)
        return from_gibbs(region2::terms(first, t), first, t);
    else
        return isochoric(first, t);
}

template <Body body, class T>
Thermo<T> phase_at(const T& first, const T& t) {
    if constexpr (body == Body::near_critical)
        return from_isochoric(isochoric(first, t));
    else
        return body_at<body>(first, t);
}

/// A property and its slopes: by p (sub-region 3: by v), and by t, the other variable constant.
template <class T>
struct Slopes {
    T y, by_first, by_t;
};

template <class T>
Slopes<T> slopes(Quantity quantity, const Thermo<T>& y) {
    const T kelvin = y.t + ktl_lc.tza;
    switch (quantity) {
    case Quantity::pressure: return {y.p, T(1.0), T(0.0)};
    case Quantity::temperature: return {y.t, T(0.0), T(1.0)};
    case Quantity::volume: return {y.v, y.dvdp, y.dvdt};
    case Quantity::enthalpy: return {y.h, kilojoules * (y.v - kelvin * y.dvdt), y.cp};
    case Quantity::entropy: return {y.s, -kilojoules * y.dvdt, y.cp / kelvin};
    case Quantity::energy: break;
    }
    return {internal_energy(y.h, y.p, y.v), -kilojoules * (kelvin * y.dvdt + y.p * y.dvdp),
            y.cp - kilojoules * y.p * y.dvdt};
}

template <class T>
Slopes<T> slopes(Quantity quantity, const Isochoric<T>& y) {
    const T kelvin = y.t + ktl_lc.tza;
    switch (quantity) {
    case Quantity::pressure: return {y.p, y.dpdv, y.dpdt};
    case Quantity::temperature: return {y.t, T(0.0), T(1.0)};
    case Quantity::volume: return {y.v, T(1.0), T(0.0)};
    case Quantity::enthalpy:
        return {y.h, kilojoules * (kelvin * y.dpdt + y.v * y.dpdv), y.cv + kilojoules * y.v * y.dpdt};
    case Quantity::entropy: return {y.s, kilojoules * y.dpdt, y.cv / kelvin};
    case Quantity::energy: break;
    }
    return {internal_energy(y.h, y.p, y.v), kilojoules * (kelvin * y.dpdt - y.p), y.cv};
}

/// Both phases on the saturation line: sub-regions 1 and 2 up to 350 degC, above (high) sub-region 3 twice.
template <class T>
struct SaturatedPhases {
    Thermo<T> water, steam;

    [[nodiscard]] T mixed(T Thermo<T>::*y, const T& x) const { return water.*y + x * (steam.*y - water.*y); }
};
template <bool high, class T>
SaturatedPhases<T> phases_at(const T& t, const T& liquid, const T& vapour) {
    if constexpr (high)
        return {phase_at<Body::near_critical>(liquid, t), phase_at<Body::near_critical>(vapour, t)};
    else
        return {phase_at<Body::water>(liquid, t), phase_at<Body::steam>(vapour, t)};
}

/// The mixture of quality x.
template <class T>
Thermo<T> mixture_of(const SaturatedPhases<T>& phases, const T& x, const T& p) {
    const T none(not_a_number);
    const T v = phases.mixed(&Thermo<T>::v, x);
    const T h = phases.mixed(&Thermo<T>::h, x);
    const T s = phases.mixed(&Thermo<T>::s, x);
    return {p, phases.water.t, v, h, s, none, none, none, none, none};
}

} // namespace ktl::engine
