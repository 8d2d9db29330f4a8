// Homogeneous phases and mixtures in the variables of their regions, evaluated as a whole, with the slopes of each
// property by those variables.
#pragma once

#include "engine/kernels/derived.hpp"
#include "regions/saturation.hpp"
#include "searches/state.hpp"

namespace ktl::engine {

/// The homogeneous sub-regions.
enum class SubRegion { water, steam, near_critical };

/// A phase in the variables of its sub-region: PhaseProperties of p, t, or HelmholtzProperties of v, t.
template <SubRegion sub_region, class T>
auto properties_at(const T& primary, const T& t) {
    if constexpr (sub_region == SubRegion::water)
        return from_gibbs(region1::terms(primary, t), primary, t);
    else if constexpr (sub_region == SubRegion::steam)
        return from_gibbs(region2::terms(primary, t), primary, t);
    else
        return helmholtz_properties(primary, t);
}

template <SubRegion sub_region, class T>
PhaseProperties<T> phase_at(const T& primary, const T& t) {
    if constexpr (sub_region == SubRegion::near_critical)
        return from_helmholtz(helmholtz_properties(primary, t));
    else
        return properties_at<sub_region>(primary, t);
}

/// A property and its slopes: by p (sub-region 3: by v), and by t, the other variable constant.
template <class T>
struct Slopes {
    T y, d_primary, d_t;
};

template <class T>
Slopes<T> slopes(Quantity quantity, const PhaseProperties<T>& y) {
    const T kelvin = y.t + ktl_lc.tza;
    switch (quantity) {
    case Quantity::pressure: return {y.p, T(1.0), T(0.0)};
    case Quantity::temperature: return {y.t, T(0.0), T(1.0)};
    case Quantity::volume: return {y.v, y.dvdp, y.dvdt};
    case Quantity::enthalpy: return {y.h, kj_per_bar_m3 * (y.v - kelvin * y.dvdt), y.cp};
    case Quantity::entropy: return {y.s, -kj_per_bar_m3 * y.dvdt, y.cp / kelvin};
    case Quantity::energy: break;
    }
    return {internal_energy(y.h, y.p, y.v), -kj_per_bar_m3 * (kelvin * y.dvdt + y.p * y.dvdp),
            y.cp - kj_per_bar_m3 * y.p * y.dvdt};
}

template <class T>
Slopes<T> slopes(Quantity quantity, const HelmholtzProperties<T>& y) {
    const T kelvin = y.t + ktl_lc.tza;
    switch (quantity) {
    case Quantity::pressure: return {y.p, y.dpdv, y.dpdt};
    case Quantity::temperature: return {y.t, T(0.0), T(1.0)};
    case Quantity::volume: return {y.v, T(1.0), T(0.0)};
    case Quantity::enthalpy:
        return {y.h, kj_per_bar_m3 * (kelvin * y.dpdt + y.v * y.dpdv), y.cv + kj_per_bar_m3 * y.v * y.dpdt};
    case Quantity::entropy: return {y.s, kj_per_bar_m3 * y.dpdt, y.cv / kelvin};
    case Quantity::energy: break;
    }
    return {internal_energy(y.h, y.p, y.v), kj_per_bar_m3 * (kelvin * y.dpdt - y.p), y.cv};
}

/// Both phases on the saturation line: sub-regions 1 and 2 up to 350 degC, above (high) sub-region 3 twice.
template <class T>
struct SaturatedProperties {
    PhaseProperties<T> liquid, vapour;

    [[nodiscard]] T mixed(T PhaseProperties<T>::*y, const T& x) const {
        return liquid.*y + x * (vapour.*y - liquid.*y);
    }
};
template <bool high, class T>
SaturatedProperties<T> phases_at(const T& t, const T& liquid, const T& vapour) {
    if constexpr (high)
        return {phase_at<SubRegion::near_critical>(liquid, t), phase_at<SubRegion::near_critical>(vapour, t)};
    else
        return {phase_at<SubRegion::water>(liquid, t), phase_at<SubRegion::steam>(vapour, t)};
}

/// The mixture of quality x.
template <class T>
PhaseProperties<T> mixture_of(const SaturatedProperties<T>& phases, const T& x, const T& p) {
    const T none(not_a_number);
    const T v = phases.mixed(&PhaseProperties<T>::v, x);
    const T h = phases.mixed(&PhaseProperties<T>::h, x);
    const T s = phases.mixed(&PhaseProperties<T>::s, x);
    return {p, phases.liquid.t, v, h, s, none, none, none, none, none};
}

} // namespace ktl::engine
