// Repeatable random numbers for tests, sweeps and benchmarks: by integer arithmetic alone, but for the spread over a
// logarithm, so that the sequence is the same on every machine.
#pragma once

#include <cmath>
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
    /// Between low and high, both positive, evenly spread over the logarithm.
    double logarithmic(double low, double high) { return std::exp(between(std::log(low), std::log(high))); }
    /// Of either sign, its size between least and greatest and evenly spread over the logarithm.
    double around_zero(double least, double greatest) {
        const double size = logarithmic(least, greatest);
        return below(2) == 0 ? size : -size;
    }

private:
    std::uint64_t state_;
};

} // namespace ktl::test
