// Numbers that carry a derivative along (forward mode), for the equations written as templates.
#pragma once

#include <cmath>

namespace ktl::test {

/// A value and its derivative. Nested, Dual<Dual<T>> carries a second derivative.
template <class T>
struct Dual {
    T v{};
    T d{};

    constexpr Dual() = default;
    constexpr Dual(double value) : v(value) {} // NOLINT: constants of the equations turn into duals silently
    constexpr Dual(T value, T derivative) : v(value), d(derivative) {}

    friend Dual operator-(const Dual& a) { return {-a.v, -a.d}; }
    friend Dual operator+(const Dual& a, const Dual& b) { return {a.v + b.v, a.d + b.d}; }
    friend Dual operator-(const Dual& a, const Dual& b) { return {a.v - b.v, a.d - b.d}; }
    friend Dual operator*(const Dual& a, const Dual& b) { return {a.v * b.v, a.d * b.v + a.v * b.d}; }
    friend Dual operator/(const Dual& a, const Dual& b) {
        const T q = a.v / b.v;
        return {q, (a.d - q * b.d) / b.v};
    }
    friend bool operator<(const Dual& a, double b) { return a.v < b; }
    friend bool operator>(const Dual& a, double b) { return a.v > b; }
};

template <class T>
Dual<T> exp(const Dual<T>& x) {
    using std::exp;
    const T e = exp(x.v);
    return {e, e * x.d};
}
template <class T>
Dual<T> log(const Dual<T>& x) {
    using std::log;
    return {log(x.v), x.d / x.v};
}
template <class T>
Dual<T> sqrt(const Dual<T>& x) {
    using std::sqrt;
    const T root = sqrt(x.v);
    return {root, x.d / (2.0 * root)};
}
template <class T>
Dual<T> pow(const Dual<T>& x, double n) {
    using std::pow;
    return {pow(x.v, n), n * pow(x.v, n - 1.0) * x.d};
}

/// Value and partial derivatives of f(x, y).
template <class T>
struct Derivatives {
    T f, x, y, xx, xy, yy;
};

/// All derivatives of f up to the second, from three evaluations with nested duals.
template <class T, class F>
Derivatives<T> derivatives(F&& f, T x, T y) {
    using D = Dual<T>;
    using D2 = Dual<D>;
    const D2 along_x = f(D2(D(x, 1), D(1, 0)), D2(D(y, 0), D(0, 0)));
    const D2 mixed = f(D2(D(x, 1), D(0, 0)), D2(D(y, 0), D(1, 0)));
    const D2 along_y = f(D2(D(x, 0), D(0, 0)), D2(D(y, 1), D(1, 0)));
    return {along_x.v.v, along_x.v.d, along_y.v.d, along_x.d.d, mixed.d.d, along_y.d.d};
}

} // namespace ktl::test
