// Sums of terms n x^i y^j, the shape of every table of IF97, with their first and second derivatives.
#pragma once

#include <array>
#include <cstddef>
#include <utility>

namespace ktl::if97 {

/// One row of a printed table: the term n x^i y^j.
struct Term {
    int i, j;
    double n;
};

/// The powers of x from x^low to x^high that are read; what is not read is dropped by the compiler. Each is the product of two of
/// half its exponent, so that x^58 takes six roundings in a row, not 57. Negative powers are those of 1/x.
template <int low, int high, class T>
class Powers {
public:
    explicit Powers(const T& x) {
        fill(positive_, x, std::make_index_sequence<high - 1>());
        if constexpr (low < 0) fill(negative_, T(1.0 / x), std::make_index_sequence<-low - 1>());
    }

    template <int n>
    [[nodiscard]] const T& get() const {
        if constexpr (n < 0)
            return negative_[static_cast<std::size_t>(-n)];
        else
            return positive_[static_cast<std::size_t>(n)];
    }

private:
    template <class Array, std::size_t... k>
    static void fill(Array& powers, const T& x, std::index_sequence<k...>) {
        powers[0] = T(1.0);
        powers[1] = x;
        ((powers[k + 2] = powers[(k + 2) / 2] * powers[(k + 3) / 2]), ...);
    }

    std::array<T, high + 1> positive_;
    std::array<T, (low < 0 ? -low : 1) + 1> negative_;
};

/// A function of x and y with its derivatives.
template <class T>
struct Derivatives {
    T f, x, y, xx, xy, yy;
};

/// The smallest (sign -1) or largest (sign 1) exponent of a table, but at most -1, at least 2.
template <std::size_t rows>
constexpr int extreme(const Term (&table)[rows], int Term::*exponent, int sign) {
    int most = sign > 0 ? 2 : 0;
    for (const Term& term : table)
        if (sign * (term.*exponent) > sign * most) most = term.*exponent;
    return most;
}

/// The sum over a table. Each term is built once; i term / x is its derivative by x, and so on, so x and y must not be zero.
template <const auto& table, class T>
Derivatives<T> sum(const T& x, const T& y) {
    const Powers<extreme(table, &Term::i, -1), extreme(table, &Term::i, 1), T> xs(x);
    const Powers<extreme(table, &Term::j, -1), extreme(table, &Term::j, 1), T> ys(y);
    Derivatives<T> sums{T(0.0), T(0.0), T(0.0), T(0.0), T(0.0), T(0.0)};
    const auto add = [&]<std::size_t k>() {
        constexpr Term row = table[k];
        constexpr double i = row.i;
        constexpr double j = row.j;
        const T term = row.n * xs.template get<row.i>() * ys.template get<row.j>();
        sums.f = sums.f + term;
        if constexpr (row.i != 0) sums.x = sums.x + i * term;
        if constexpr (row.j != 0) sums.y = sums.y + j * term;
        if constexpr (row.i * (row.i - 1) != 0) sums.xx = sums.xx + i * (i - 1.0) * term;
        if constexpr (row.i * row.j != 0) sums.xy = sums.xy + i * j * term;
        if constexpr (row.j * (row.j - 1) != 0) sums.yy = sums.yy + j * (j - 1.0) * term;
    };
    [&]<std::size_t... k>(std::index_sequence<k...>) { (add.template operator()<k>(), ...); }
    (std::make_index_sequence<std::size(table)>());
    const T rx = 1.0 / x;
    const T ry = 1.0 / y;
    return {sums.f, sums.x * rx, sums.y * ry, sums.xx * (rx * rx), sums.xy * (rx * ry), sums.yy * (ry * ry)};
}

} // namespace ktl::if97
