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

/// Width of the overlap along the border of sub-region 3. Within it the same two values may also name a state of sub-region
/// 1 or 2 or a mixture of theirs, which takes precedence, so a Newton result there is rejected. one_phase, mixture: K above
/// 350 degC; that of mixtures shrinks with (1 - x)^2 to least_mixture. pressure: share of the 2/3 boundary pressure.
/// Measured by ktl_constants: 1.392 K and 0.246 K by u, s; 0.607 K by h, s; 0.072 K and 0.02 K by other pairs; 0.0006.
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
