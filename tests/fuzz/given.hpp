// Requests out of the bytes that the fuzzer makes up: any bit pattern, values spread over the range, and values on and
// beside its borders.
#pragma once

#include "support/pairs.hpp"
#include "support/same_bits.hpp"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ktl/steam.hpp>

namespace ktl::fuzz {

using test::same_bits;

class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
    [[nodiscard]] bool empty() const { return size_ == 0; }
    std::uint8_t byte() {
        if (size_ == 0) return 0;
        --size_;
        return *data_++;
    }
    std::uint64_t word() {
        std::uint64_t out = 0;
        for (int i = 0; i < 8; ++i) out = out << 8 | byte();
        return out;
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
};

struct Range {
    double low, high;
    bool logarithmic;
};

inline Range range(Property property) {
    switch (property) {
    case Property::p: return {0.005, 1050.0, true};
    case Property::t: return {-1.0, 810.0, false};
    case Property::v: return {0.0009, 210.0, true};
    case Property::s: return {-0.1, 9.5, false};
    case Property::x: return {-0.01, 1.01, false};
    default: return {-5.0, 4200.0, false};
    }
}

/// A limit of the range or of a sub-region, or a number that is special to the arithmetic.
inline double border(std::uint8_t number) {
    constexpr std::array borders{0.006112444, 165.3512406, 221.2, 1000.0, 0.01,    350.0, 374.15,  590.0,
                                 800.0,       0.0,         1.0,   0.5,    0.00317, 4.0,   373.117, 205.999,
                                 0.6,         2084.26,     4.406, 1e-6,   1e-300,  1e300, -0.0};
    return borders[number % borders.size()];
}

inline double given(Bytes& bytes, Property property) {
    const std::uint8_t mode = bytes.byte();
    if (mode < 16) return std::bit_cast<double>(bytes.word());
    if (mode < 80) {
        const double exact = border(bytes.byte());
        const int steps = static_cast<std::int8_t>(bytes.byte());
        return exact + steps * std::ldexp(std::fabs(exact), -52 + bytes.byte() % 48);
    }
    const Range r = range(property);
    const double part = static_cast<double>(bytes.word() >> 11) * 0x1p-53;
    return r.logarithmic ? r.low * std::pow(r.high / r.low, part) : r.low + (r.high - r.low) * part;
}

/// Ends the program where a promise does not hold.
inline void promise(bool held, const char* what, Pair pair, double a, double b) {
    if (held) return;
    const auto index = static_cast<std::size_t>(pair);
    std::fprintf(stderr, "%s: %s %.17g %.17g\n", what, index < pair_count ? test::pairs[index].name : "?", a, b);
    std::abort();
}

} // namespace ktl::fuzz
