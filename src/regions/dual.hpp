// A number that carries its derivatives by two variables, for the equations of the sub-regions.
#pragma once

#include <cmath>

namespace ktl {

/// Value and first derivatives. Every operation of the equations follows the chain rule.
struct Dual {
    double value = 0.0;
    double first = 0.0;
    double second = 0.0;

    Dual() = default;
    Dual(double constant) : value(constant) {} // implicit: coefficients are plain numbers
    Dual(double x, double by_first, double by_second) : value(x), first(by_first), second(by_second) {}
};

/// f(a), where fx is the derivative of f at a.value.
inline Dual chain(const Dual& a, double f, double fx) { return {f, fx * a.first, fx * a.second}; }

inline Dual operator-(const Dual& a) { return {-a.value, -a.first, -a.second}; }
inline Dual operator+(const Dual& a, const Dual& b) {
    return {a.value + b.value, a.first + b.first, a.second + b.second};
}
inline Dual operator-(const Dual& a, const Dual& b) {
    return {a.value - b.value, a.first - b.first, a.second - b.second};
}
inline Dual operator*(const Dual& a, const Dual& b) {
    return {a.value * b.value, a.value * b.first + a.first * b.value, a.value * b.second + a.second * b.value};
}
inline Dual operator/(const Dual& a, const Dual& b) {
    const double q = a.value / b.value;
    return {q, (a.first - q * b.first) / b.value, (a.second - q * b.second) / b.value};
}
inline bool operator<(const Dual& a, double b) { return a.value < b; }

inline Dual exp(const Dual& a) {
    const double e = std::exp(a.value);
    return chain(a, e, e);
}
inline Dual log(const Dual& a) { return chain(a, std::log(a.value), 1.0 / a.value); }
inline Dual sqrt(const Dual& a) {
    const double root = std::sqrt(a.value);
    return chain(a, root, 0.5 / root);
}
inline Dual pow(const Dual& a, double exponent) {
    const double power = std::pow(a.value, exponent);
    return chain(a, power, exponent * power / a.value);
}

} // namespace ktl
