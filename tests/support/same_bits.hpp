// Equality of results to the last bit.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace ktl::test {

/// Equal bits, or both not a number: sign and payload of a not-a-number are the compiler's choice.
inline bool same_bits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (std::isnan(a) && std::isnan(b));
}

} // namespace ktl::test
