// Rows of given values: most of them plausible, some beyond the range, some any bit pattern.
#pragma once

#include "support/pairs.hpp"
#include "support/random.hpp"
#include "support/same_bits.hpp"

#include <array>
#include <bit>
#include <cmath>
#include <ktl/steam.hpp>
#include <vector>

namespace ktl::test {

inline double plausible(Random& random, Property property) {
    switch (property) {
    case Property::p: return std::exp(random.between(std::log(0.005), std::log(1050.0)));
    case Property::t: return random.between(-5.0, 820.0);
    case Property::v: return std::exp(random.between(std::log(0.0009), std::log(210.0)));
    case Property::s: return random.between(-0.1, 9.5);
    case Property::x: return random.between(-0.1, 1.1);
    default: return random.between(-10.0, 4200.0);
    }
}

struct Rows {
    std::vector<double> a, b;

    Rows(Random& random, Pair pair, std::size_t count) {
        const PairRow& row = row_of(pair);
        const auto value = [&](Property property) {
            return random.below(8) == 0 ? std::bit_cast<double>(random.bits()) : plausible(random, property);
        };
        for (std::size_t i = 0; i < count; ++i) {
            a.push_back(value(row.a));
            b.push_back(value(row.b));
        }
    }
};

} // namespace ktl::test
