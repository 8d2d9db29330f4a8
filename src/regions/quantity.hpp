// The quantities that a state may be given by: their values in each sub-region, alone or with their slopes by the
// variables of the sub-region.
#pragma once

#include "regions/phase_properties.hpp"

#include <ktl/ktlftn.h>

namespace ktl {

/// Quality is a quantity of mixtures only; a homogeneous phase has not-a-number for it.
enum class Quantity { pressure, temperature, volume, enthalpy, entropy, energy, quality };

/// The two given quantities of a request.
struct Quantities {
    Quantity a, b;
};

/// Quantity of sub-region 1 or 2 from its working terms at p, t.
template <class Terms, class T>
T gibbs_property(Quantity y, const Terms& s, const T& p, const T& t) {
    switch (y) {
    case Quantity::pressure: return p;
    case Quantity::temperature: return t;
    case Quantity::volume: return volume(s);
    case Quantity::enthalpy: return enthalpy(s);
    case Quantity::entropy: return entropy(s);
    case Quantity::energy: return internal_energy(enthalpy(s), p, volume(s));
    case Quantity::quality: break;
    }
    return T(quiet_nan);
}

/// Quantity of sub-region 3 from its working terms at v, t.
template <class T>
T helmholtz_property(Quantity y, const region3::Terms<T>& s, const T& v, const T& t) {
    switch (y) {
    case Quantity::pressure: return pressure(s);
    case Quantity::temperature: return t;
    case Quantity::volume: return v;
    case Quantity::enthalpy: return enthalpy(s);
    case Quantity::entropy: return entropy(s);
    case Quantity::energy: return internal_energy(enthalpy(s), pressure(s), v);
    case Quantity::quality: break;
    }
    return T(quiet_nan);
}

/// Quantity of a single-phase region 1 to 4 in its own variables: p, t or v, t.
template <class T>
T property(Quantity y, int region, const T& primary, const T& t) {
    if (region == KTL_WATER) return gibbs_property(y, region1::terms(primary, t), primary, t);
    if (region == KTL_STEAM) return gibbs_property(y, region2::terms(primary, t), primary, t);
    return helmholtz_property(y, region3::terms(primary, t), primary, t);
}

/// A quantity and its slopes: by p (sub-region 3: by v), and by t, the other variable constant.
template <class T>
struct Slopes {
    T y, d_primary, d_t;
};

/// By p and t, from dh = cp dt + (v - T (dv/dt)_p) dp and ds = cp/T dt - (dv/dt)_p dp.
template <class T>
Slopes<T> slopes(Quantity quantity, const PhaseProperties<T>& y) {
    const T kelvin = y.t + ktl_lc.tza;
    switch (quantity) {
    case Quantity::pressure: return {y.p, T(1.0), T(0.0)};
    case Quantity::temperature: return {y.t, T(0.0), T(1.0)};
    case Quantity::volume: return {y.v, y.dvdp, y.dvdt};
    case Quantity::enthalpy: return {y.h, kj_per_bar_m3 * (y.v - kelvin * y.dvdt), y.cp};
    case Quantity::entropy: return {y.s, -kj_per_bar_m3 * y.dvdt, y.cp / kelvin};
    case Quantity::energy:
        return {internal_energy(y.h, y.p, y.v), -kj_per_bar_m3 * (kelvin * y.dvdt + y.p * y.dvdp),
                y.cp - kj_per_bar_m3 * y.p * y.dvdt};
    case Quantity::quality: break;
    }
    return {T(quiet_nan), T(quiet_nan), T(quiet_nan)};
}

/// By v and t, from du = cv dt + (T (dp/dt)_v - p) dv and ds = cv/T dt + (dp/dt)_v dv.
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
    case Quantity::energy: return {internal_energy(y.h, y.p, y.v), kj_per_bar_m3 * (kelvin * y.dpdt - y.p), y.cv};
    case Quantity::quality: break;
    }
    return {T(quiet_nan), T(quiet_nan), T(quiet_nan)};
}

} // namespace ktl
