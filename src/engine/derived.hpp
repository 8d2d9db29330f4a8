// The properties of a phase or a mixture that follow from its fundamental ones, each formula once.
#pragma once

#include "regions/phase_properties.hpp"
#include "regions/transport.hpp"

#include <ktl/steam.hpp>

namespace ktl::engine {

template <class T>
T energy(const PhaseProperties<T>& y) {
    return internal_energy(y.h, y.p, y.v);
}

/// (dt/dp) at constant h, K/bar. On a level isotherm it is (dt/dp) at constant v, which the speed of sound holds.
template <class T>
T joule_thomson(const PhaseProperties<T>& y) {
    const T kelvin = y.t + ktl_lc.tza;
    return select(y.cp < infinity, kj_per_bar_m3 * (kelvin * y.dvdt - y.v) / y.cp,
                  y.v * sqrt(1.0e7 * kelvin / (y.speed_of_sound_squared * y.cv)));
}

template <class T>
T derived(Property property, const PhaseProperties<T>& y) {
    const auto kelvin = [&] { return y.t + ktl_lc.tza; };
    switch (property) {
    case Property::p: return y.p;
    case Property::t: return y.t;
    case Property::v: return y.v;
    case Property::rho: return 1.0 / y.v;
    case Property::h: return y.h;
    case Property::s: return y.s;
    case Property::u: return energy(y);
    case Property::gibbs: return y.h - kelvin() * y.s;
    case Property::helmholtz: return energy(y) - kelvin() * y.s;
    case Property::cp: return y.cp;
    case Property::cv: return y.cv;
    case Property::speed_of_sound: return sqrt(y.speed_of_sound_squared);
    case Property::isentropic_exponent: return y.speed_of_sound_squared / (pascals_per_bar * y.p * y.v);
    case Property::compressibility: return -y.dvdp / y.v;
    case Property::expansion: return y.dvdt / y.v;
    case Property::joule_thomson: return joule_thomson(y);
    case Property::viscosity: return transport::viscosity(y.v, y.t);
    case Property::kinematic_viscosity: return transport::viscosity(y.v, y.t) * y.v;
    case Property::conductivity: return transport::conductivity(y.v, y.t);
    case Property::prandtl: return 1000.0 * y.cp * transport::viscosity(y.v, y.t) / transport::conductivity(y.v, y.t);
    case Property::x:
    case Property::region: break;
    }
    return T(quiet_nan);
}

/// What a property is made of: the parts of PhaseProperties that an evaluation for it must fill.
enum class PropertyLevel { variables, volume, energies, heat_capacity, everything };

constexpr PropertyLevel level_of(Property property) {
    switch (property) {
    case Property::p:
    case Property::t:
    case Property::x:
    case Property::region: return PropertyLevel::variables;
    case Property::h:
    case Property::s:
    case Property::u:
    case Property::gibbs:
    case Property::helmholtz: return PropertyLevel::energies;
    case Property::cp:
    case Property::prandtl: return PropertyLevel::heat_capacity;
    case Property::cv:
    case Property::speed_of_sound:
    case Property::isentropic_exponent:
    case Property::compressibility:
    case Property::expansion:
    case Property::joule_thomson: return PropertyLevel::everything;
    default: return PropertyLevel::volume;
    }
}

/// True for the properties that a mixture has.
constexpr bool of_mixtures(Property property) {
    switch (property) {
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning) case Property::property:
#define KTL_DEFINE_PHASE_PROPERTY(property, PROPERTY, unit, code, meaning)
#include <ktl/properties.def>
        return true;
    default: return false;
    }
}

/// A property of a state in a region: derived from its bulk properties, or its quality x, or the number of the region.
template <class T>
double value(Property property, const PhaseProperties<T>& bulk, double x, Region region) {
    if (property == Property::x) return x;
    if (property == Property::region) return static_cast<double>(region);
    const bool mixture = region == Region::wet || region == Region::wet_near_critical;
    return mixture && !of_mixtures(property) ? quiet_nan : derived(property, bulk).value;
}

} // namespace ktl::engine
