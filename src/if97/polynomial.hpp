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

/// The sum over a table and its derivatives. Rows of equal i follow one another in the printed tables: each such group is a
/// polynomial in y, multiplied by x^i once. i x^i / x is the derivative of x^i, and so on, so x and y must not be zero.
template <const auto& table, class T>
Derivatives<T> sum(const T& x, const T& y) {
    constexpr std::size_t rows = std::size(table);
    const Powers<extreme(table, &Term::i, -1), extreme(table, &Term::i, 1), T> xs(x);
    const Powers<extreme(table, &Term::j, -1), extreme(table, &Term::j, 1), T> ys(y);
    Derivatives<T> sums{T(0.0), T(0.0), T(0.0), T(0.0), T(0.0), T(0.0)};
    T group(0.0), by_y(0.0), by_yy(0.0);
    const auto add = [&]<std::size_t k>() {
        constexpr Term row = table[k];
        constexpr double i = row.i;
        constexpr double j = row.j;
        constexpr bool first = k == 0 || table[k - (k > 0 ? 1 : 0)].i != row.i;
        constexpr bool last = k + 1 == rows || table[k + 1 < rows ? k + 1 : k].i != row.i;
        const T& power = ys.template get<row.j>();
        const T term_y = (j * row.n) * power;
        const T term_yy = (j * (j - 1.0) * row.n) * power;
        group = first ? row.n * power : group + row.n * power;
        by_y = first ? term_y : by_y + term_y;
        by_yy = first ? term_yy : by_yy + term_yy;
        if constexpr (last) {
            const T& xi = xs.template get<row.i>();
            const T term = xi * group;
            const T slope = xi * by_y;
            sums.f = sums.f + term;
            sums.y = sums.y + slope;
            sums.yy = sums.yy + xi * by_yy;
            if constexpr (row.i != 0) sums.x = sums.x + i * term;
            if constexpr (row.i != 0) sums.xy = sums.xy + i * slope;
            if constexpr (row.i * (row.i - 1) != 0) sums.xx = sums.xx + i * (i - 1.0) * term;
        }
    };
    [&]<std::size_t... k>(std::index_sequence<k...>) { (add.template operator()<k>(), ...); }
    (std::make_index_sequence<rows>());
    const T rx = 1.0 / x;
    const T ry = 1.0 / y;
    return {sums.f, sums.x * rx, sums.y * ry, sums.xx * (rx * rx), sums.xy * (rx * ry), sums.yy * (ry * ry)};
}

} // namespace ktl::if97
