// What the values of a pair are.
#pragma once

#include "regions/state.hpp"

#include <array>
#include <ktl/steam.hpp>

namespace ktl::engine {

/// The two given quantities of a pair.
struct Quantities {
    Quantity a, b;
};

/// The quantities of a pair; what stands for a quality has no meaning.
constexpr Quantities quantities(Pair pair) {
    using Q = Quantity;
    constexpr std::array<Quantities, pair_count> all{{
        {Q::pressure, Q::temperature},
        {Q::pressure, Q::enthalpy},
        {Q::pressure, Q::entropy},
        {Q::pressure, Q::energy},
        {Q::pressure, Q::volume},
        {Q::pressure, Q::pressure},
        {Q::temperature, Q::volume},
        {Q::temperature, Q::enthalpy},
        {Q::temperature, Q::entropy},
        {Q::temperature, Q::energy},
        {Q::temperature, Q::pressure},
        {Q::entropy, Q::entropy},
        {Q::enthalpy, Q::entropy},
        {Q::energy, Q::entropy},
        {Q::volume, Q::enthalpy},
        {Q::volume, Q::entropy},
        {Q::volume, Q::energy},
    }};
    return all[static_cast<std::size_t>(pair)];
}
constexpr bool has_pressure(Pair pair) { return pair >= Pair::ph && pair <= Pair::px; }
constexpr bool has_temperature(Pair pair) { return pair >= Pair::tv && pair <= Pair::tx; }
constexpr bool has_quality(Pair pair) { return pair == Pair::px || pair == Pair::tx || pair == Pair::sx; }

/// Margin of the first search, K: how far above 350 degC states of sub-region 3 and its mixtures lie that have another
/// beside them, up to 1.4 by u, s, 0.61 by h, s and 0.08 by other pairs. p, t and p or t with x leave no doubt.
constexpr double margin_of(Pair pair) {
    if (pair == Pair::pt || pair == Pair::px || pair == Pair::tx) return 0.0;
    return pair == Pair::hs || pair == Pair::us ? 2.0 : 0.15;
}

} // namespace ktl::engine
