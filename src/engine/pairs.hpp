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

/// The quantities of a pair.
constexpr Quantities quantities(Pair pair) {
    constexpr std::array<Quantities, pair_count> all{{
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) {quantity_of(Property::a), quantity_of(Property::b)},
#include <ktl/pairs.def>
    }};
    return all[static_cast<std::size_t>(pair)];
}
constexpr bool has_quality(Pair pair) { return quantities(pair).b == Quantity::quality; }
/// Pressure or temperature beside another property than these two.
constexpr bool has_pressure(Pair pair) { return quantities(pair).a == Quantity::pressure && pair != Pair::pt; }
constexpr bool has_temperature(Pair pair) { return quantities(pair).a == Quantity::temperature; }

/// How far from its border sub-region 3 may have states beside others across it, which go before them. From 350 degC up, K:
/// in one phase, and in mixtures, where it falls to the least with (1 - x)^2; measured: up to 1.39 and 0.25 by u, s, 0.61 by
/// h, s, 0.08 and 0.02 by other pairs. From the 2/3 boundary, relative to its pressure: 0.0006.
struct Margin {
    double one_phase, mixture, least_mixture, pressure;
};
inline constexpr Margin no_margin{0.0, 0.0, 0.0, 0.0};

/// Margin of the first search of a pair. p, t and p or t with x leave no doubt.
constexpr Margin margin_of(Pair pair) {
    if (pair == Pair::pt || pair == Pair::px || pair == Pair::tx) return no_margin;
    if (pair == Pair::hs) return {0.65, 0.65, 0.015, 0.001};
    if (pair == Pair::us) return {1.45, 0.27, 0.015, 0.001};
    return {0.1, 0.03, 0.015, 0.001};
}

} // namespace ktl::engine
