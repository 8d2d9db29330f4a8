// The engine's number of one lane: a double whose functions have the bits of the vector lanes.
#pragma once

#include "engine/lanes/elementary.hpp"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace ktl::engine {

/// The bits of a value as another type. The standard libraries of some compilers have no std::bit_cast yet.
template <class To, class From>
To bits_as(const From& from) {
    static_assert(sizeof(To) == sizeof(From));
    To to;
    std::memcpy(&to, &from, sizeof(To));
    return to;
}

struct Scalar {
    static constexpr std::size_t count = 1;
    double value;

    Scalar() = default;
    constexpr Scalar(double x) : value(x) {} // implicit: coefficients are plain numbers

    static Scalar load(const double* from) { return *from; }
    void store(double* to) const { *to = value; }

    friend Scalar operator-(Scalar a) { return -a.value; }
    friend Scalar operator+(Scalar a, Scalar b) { return a.value + b.value; }
    friend Scalar operator-(Scalar a, Scalar b) { return a.value - b.value; }
    friend Scalar operator*(Scalar a, Scalar b) { return a.value * b.value; }
    friend Scalar operator/(Scalar a, Scalar b) { return a.value / b.value; }
    friend bool operator<(Scalar a, Scalar b) { return a.value < b.value; }
    friend bool operator>(Scalar a, Scalar b) { return a.value > b.value; }
    friend bool operator<=(Scalar a, Scalar b) { return a.value <= b.value; }
    friend bool operator>=(Scalar a, Scalar b) { return a.value >= b.value; }

    /// Whether it is above one half: for flags that are 1 or 0.
    friend bool all_set(Scalar a) { return a.value > 0.5; }

    friend Scalar sqrt(Scalar a) { return std::sqrt(a.value); }
    friend Scalar abs(Scalar a) { return std::fabs(a.value); }
    friend Scalar exp(Scalar a) { return exponential(a); }
    friend Scalar log(Scalar a) { return logarithm(a); }
    friend Scalar pow(Scalar a, double y) { return power(a, y); }

    friend Scalar ldexp_bits(Scalar y, Scalar k) {
        return bits_as<double>(bits_as<std::uint64_t>(y.value) + (bits_as<std::uint64_t>(k.value) << 52));
    }
    friend Scalar split(Scalar x, Scalar& e) {
        constexpr std::uint64_t one = 0x3ff0000000000000;
        constexpr std::uint64_t root_half = 0x3fe6a09e667f3bcd;
        constexpr std::uint64_t two_52 = 0x4330000000000000; // 2^52, whose lowest bits count in units
        const std::uint64_t shifted = bits_as<std::uint64_t>(x.value) + (one - root_half);
        e = bits_as<double>((shifted >> 52) | two_52) - (4503599627370496.0 + 1023.0);
        return bits_as<double>((shifted & 0x000fffffffffffff) + root_half);
    }
};

} // namespace ktl::engine
