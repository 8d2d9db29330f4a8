// Repeatable random numbers by integer arithmetic alone: the same sequence on every machine.
#pragma once

#include <cstdint>

namespace ktl::test {

class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15U + 1U) {}

    std::uint64_t bits() {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 7;
        state_ ^= state_ << 17;
        return state_;
    }
    /// 0 to n - 1.
    unsigned below(unsigned n) { return static_cast<unsigned>((bits() >> 32) % n); }
    /// Between low and high.
    double between(double low, double high) {
        return low + (high - low) * (static_cast<double>(bits() >> 11) * 0x1p-53);
    }

private:
    std::uint64_t state_;
};

} // namespace ktl::test
