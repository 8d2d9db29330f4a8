// The engine's number of several lanes, on the vector registers that the file's compiler flags name. A file that
// includes it has its own name space for that (HWY_NAMESPACE), so that nothing compiled for one machine is taken by
// another.
#pragma once

#include "engine/lanes/elementary.hpp"

#include <cstdint>
#include <hwy/highway.h>

namespace ktl::engine::HWY_NAMESPACE {

namespace hn = hwy::HWY_NAMESPACE;

struct Lanes {
    using Tag = hn::ScalableTag<double>;
    using Bits = hn::RebindToUnsigned<Tag>;
    using Vec = hn::Vec<Tag>;
    using Mask = hn::Mask<Tag>;
    static constexpr std::size_t count = hn::MaxLanes(Tag());

    Vec value;

    Lanes() = default;
    Lanes(Vec v) : value(v) {}
    Lanes(double x) : value(hn::Set(Tag(), x)) {} // implicit: coefficients are plain numbers

    static Lanes load(const double* from) { return hn::LoadU(Tag(), from); }
    void store(double* to) const { hn::StoreU(value, Tag(), to); }

    friend Lanes operator-(Lanes a) { return hn::Neg(a.value); }
    friend Lanes operator+(Lanes a, Lanes b) { return hn::Add(a.value, b.value); }
    friend Lanes operator-(Lanes a, Lanes b) { return hn::Sub(a.value, b.value); }
    friend Lanes operator*(Lanes a, Lanes b) { return hn::Mul(a.value, b.value); }
    friend Lanes operator/(Lanes a, Lanes b) { return hn::Div(a.value, b.value); }
    friend Mask operator<(Lanes a, Lanes b) { return hn::Lt(a.value, b.value); }
    friend Mask operator>(Lanes a, Lanes b) { return hn::Gt(a.value, b.value); }
    friend Mask operator<=(Lanes a, Lanes b) { return hn::Le(a.value, b.value); }
    friend Mask operator>=(Lanes a, Lanes b) { return hn::Ge(a.value, b.value); }
    friend Lanes select(Mask m, Lanes a, Lanes b) { return hn::IfThenElse(m, a.value, b.value); }

    /// Whether every lane is above one half: for flags that are 1 or 0.
    friend bool all_set(Lanes a) { return hn::AllTrue(Tag(), hn::Gt(a.value, hn::Set(Tag(), 0.5))); }

    friend Lanes sqrt(Lanes a) { return hn::Sqrt(a.value); }
    friend Lanes abs(Lanes a) { return hn::Abs(a.value); }
    friend Lanes exp(Lanes a) { return exponential(a); }
    friend Lanes log(Lanes a) { return logarithm(a); }
    friend Lanes pow(Lanes a, double y) { return power(a, y); }

    friend Lanes ldexp_bits(Lanes y, Lanes k) {
        const auto n = hn::ShiftLeft<52>(hn::BitCast(Bits(), k.value));
        return hn::BitCast(Tag(), hn::Add(hn::BitCast(Bits(), y.value), n));
    }
    friend Lanes split(Lanes x, Lanes& e) {
        constexpr std::uint64_t one = 0x3ff0000000000000;
        constexpr std::uint64_t root_half = 0x3fe6a09e667f3bcd;
        const Bits bits;
        const auto shifted = hn::Add(hn::BitCast(bits, x.value), hn::Set(bits, one - root_half));
        const auto exponent = hn::Or(hn::ShiftRight<52>(shifted), hn::Set(bits, 0x4330000000000000));
        e = Lanes(hn::BitCast(Tag(), exponent)) - (4503599627370496.0 + 1023.0);
        const auto mantissa = hn::And(shifted, hn::Set(bits, 0x000fffffffffffff));
        return hn::BitCast(Tag(), hn::Add(mantissa, hn::Set(bits, root_half)));
    }
};

} // namespace ktl::engine::HWY_NAMESPACE
