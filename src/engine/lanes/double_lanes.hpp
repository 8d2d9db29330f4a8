// Two vectors of lanes as one number type: while one waits for a division or a root, the other is computed.
#pragma once

#include "engine/lanes/lanes.hpp"

namespace ktl::engine::HWY_NAMESPACE {

struct DoubleLanes {
    struct Mask {
        Lanes::Mask low, high;
    };
    static constexpr std::size_t count = 2 * Lanes::count;

    Lanes low, high;

    DoubleLanes() = default;
    DoubleLanes(Lanes first, Lanes second) : low(first), high(second) {}
    DoubleLanes(double x) : low(x), high(x) {} // implicit: coefficients are plain numbers

    static DoubleLanes load(const double* from) { return {Lanes::load(from), Lanes::load(from + Lanes::count)}; }
    void store(double* to) const {
        low.store(to);
        high.store(to + Lanes::count);
    }

    friend DoubleLanes operator-(DoubleLanes a) { return {-a.low, -a.high}; }
    friend DoubleLanes operator+(DoubleLanes a, DoubleLanes b) { return {a.low + b.low, a.high + b.high}; }
    friend DoubleLanes operator-(DoubleLanes a, DoubleLanes b) { return {a.low - b.low, a.high - b.high}; }
    friend DoubleLanes operator*(DoubleLanes a, DoubleLanes b) { return {a.low * b.low, a.high * b.high}; }
    friend DoubleLanes operator/(DoubleLanes a, DoubleLanes b) { return {a.low / b.low, a.high / b.high}; }
    friend Mask operator<(DoubleLanes a, DoubleLanes b) { return {a.low < b.low, a.high < b.high}; }
    friend Mask operator>(DoubleLanes a, DoubleLanes b) { return {a.low > b.low, a.high > b.high}; }
    friend Mask operator<=(DoubleLanes a, DoubleLanes b) { return {a.low <= b.low, a.high <= b.high}; }
    friend Mask operator>=(DoubleLanes a, DoubleLanes b) { return {a.low >= b.low, a.high >= b.high}; }
    friend DoubleLanes select(Mask m, DoubleLanes a, DoubleLanes b) {
        return {select(m.low, a.low, b.low), select(m.high, a.high, b.high)};
    }

    /// Whether every lane is above one half: for flags that are 1 or 0.
    friend bool all_set(DoubleLanes a) { return all_set(a.low) && all_set(a.high); }

    friend DoubleLanes sqrt(DoubleLanes a) { return {sqrt(a.low), sqrt(a.high)}; }
    friend DoubleLanes abs(DoubleLanes a) { return {abs(a.low), abs(a.high)}; }
    friend DoubleLanes exp(DoubleLanes a) { return exponential(a); }
    friend DoubleLanes log(DoubleLanes a) { return logarithm(a); }
    friend DoubleLanes pow(DoubleLanes a, double y) { return power(a, y); }

    friend DoubleLanes ldexp_bits(DoubleLanes y, DoubleLanes k) {
        return {ldexp_bits(y.low, k.low), ldexp_bits(y.high, k.high)};
    }
    friend DoubleLanes split(DoubleLanes x, DoubleLanes& e) { return {split(x.low, e.low), split(x.high, e.high)}; }
};

} // namespace ktl::engine::HWY_NAMESPACE
