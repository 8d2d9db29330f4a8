// A number that carries its slope by one variable through the equations, which are templates on the number type: each operation
// applies its rule of differentiation, so the slope is that of the closed form, to rounding.
#pragma once

#include "engine/lanes/scalar.hpp"

namespace ktl::engine {

struct CarriedSlope {
    Scalar value;
    Scalar slope;

    CarriedSlope() = default;
    constexpr CarriedSlope(double constant) : value(constant), slope(0.0) {} // implicit: coefficients are plain numbers
    constexpr CarriedSlope(Scalar y, Scalar dy) : value(y), slope(dy) {}

    using C = CarriedSlope;
    friend C operator-(const C& a) { return {-a.value, -a.slope}; }
    friend C operator+(const C& a, const C& b) { return {a.value + b.value, a.slope + b.slope}; }
    friend C operator-(const C& a, const C& b) { return {a.value - b.value, a.slope - b.slope}; }
    friend C operator*(const C& a, const C& b) { return {a.value * b.value, a.slope * b.value + a.value * b.slope}; }
    friend C operator/(const C& a, const C& b) {
        const Scalar quotient = a.value / b.value;
        return {quotient, (a.slope - quotient * b.slope) / b.value};
    }
    friend bool operator<(const C& a, const C& b) { return a.value < b.value; }
    friend bool operator>(const C& a, const C& b) { return a.value > b.value; }

    friend C sqrt(const C& a) {
        const Scalar root = sqrt(a.value);
        return {root, 0.5 * a.slope / root};
    }
    friend C exp(const C& a) {
        const Scalar y = exp(a.value);
        return {y, y * a.slope};
    }
    friend C log(const C& a) { return {log(a.value), a.slope / a.value}; }
    friend C pow(const C& a, double y) {
        const Scalar power = pow(a.value, y);
        return {power, y * power * a.slope / a.value};
    }
};

} // namespace ktl::engine
