// Rows of given values: most of them plausible, some beyond the range, some any bit pattern.
#pragma once

#include "support/random.hpp"

#include <array>
#include <bit>
#include <cmath>
#include <ktl/steam.hpp>
#include <string_view>
#include <vector>

namespace ktl::test {

/// The letters of each pair, in the order of its values.
inline constexpr std::array<std::string_view, pair_count> letters{"pt", "ph", "ps", "pu", "pv", "px", "tv", "th", "ts",
                                                                  "tu", "tx", "sx", "hs", "us", "vh", "vs", "vu"};

/// Equal bits, or both not a number.
inline bool same_bits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (std::isnan(a) && std::isnan(b));
}

inline double plausible(Random& random, char letter) {
    switch (letter) {
    case 'p': return std::exp(random.between(std::log(0.005), std::log(1050.0)));
    case 't': return random.between(-5.0, 820.0);
    case 'v': return std::exp(random.between(std::log(0.0009), std::log(210.0)));
    case 's': return random.between(-0.1, 9.5);
    case 'x': return random.between(-0.1, 1.1);
    default: return random.between(-10.0, 4200.0);
    }
}

struct Rows {
    std::vector<double> a, b;

    Rows(Random& random, Pair pair, std::size_t count) {
        const std::string_view names = letters[static_cast<std::size_t>(pair)];
        const auto value = [&](char letter) {
            return random.below(8) == 0 ? std::bit_cast<double>(random.bits()) : plausible(random, letter);
        };
        for (std::size_t i = 0; i < count; ++i) {
            a.push_back(value(names[0]));
            b.push_back(value(names[1]));
        }
    }
};

} // namespace ktl::test
