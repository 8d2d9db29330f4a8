// What the values of a pair are.
#pragma once

#include "regions/quantity.hpp"

#include <array>
#include <ktl/steam.hpp>

namespace ktl::engine {

constexpr Quantity quantity_of(Property property) {
    switch (property) {
    case Property::t: return Quantity::temperature;
    case Property::v: return Quantity::volume;
    case Property::h: return Quantity::enthalpy;
    case Property::s: return Quantity::entropy;
    case Property::u: return Quantity::energy;
    case Property::x: return Quantity::quality;
    default: return Quantity::pressure;
    }
}

inline constexpr std::array<Quantities, pair_count> given_quantities{{
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) {quantity_of(Property::a), quantity_of(Property::b)},
#include <ktl/pairs.def>
}};
/// The quantities of a pair.
constexpr Quantities quantities(Pair pair) { return given_quantities[static_cast<std::size_t>(pair)]; }
constexpr bool has_quality(Pair pair) { return quantities(pair).b == Quantity::quality; }
/// Pressure or temperature beside another property than these two.
constexpr bool has_pressure(Pair pair) { return quantities(pair).a == Quantity::pressure && pair != Pair::pt; }
constexpr bool has_temperature(Pair pair) { return quantities(pair).a == Quantity::temperature; }

} // namespace ktl::engine
