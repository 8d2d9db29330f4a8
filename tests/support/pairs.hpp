// The pairs of the ktl:: calls and the finders of the named routines that take them, by the number of the pair.
#pragma once

#include <array>
#include <ktl/ktlftn.h>
#include <ktl/steam.hpp>

namespace ktl::test {

struct PairRow {
    const char* name; ///< the letters of both values
    Property a, b;    ///< the properties that they are
    ktl_finder find;
    const char* finder; ///< its name

    /// True for the finders whose steps were given: they solve to eps, and in places miss states.
    [[nodiscard]] constexpr bool given_steps() const {
        if (b == Property::x) return a != Property::s;
        return a == Property::p && (b == Property::t || b == Property::h);
    }
};

inline constexpr std::array<PairRow, pair_count> pairs{{
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) {#pair, Property::a, Property::b, ktlr##pair, "ktlr" #pair},
#include <ktl/pairs.def>
}};

constexpr const PairRow& row_of(Pair pair) { return pairs[static_cast<std::size_t>(pair)]; }

} // namespace ktl::test
