// Gauss-Legendre collocation on the interval from -1 to 1: the polynomial of a slope through its values at the nodes, and its
// integral. The numbers are computed by the compiler.
#pragma once

#include <array>
#include <cstddef>

namespace ktl::process {

inline constexpr std::size_t node_count = 14;
using Nodes = std::array<double, node_count>;
/// The nodes and both ends: a whole number of vectors of every instruction set.
inline constexpr std::size_t point_count = node_count + 2;
using Points = std::array<double, point_count>;

namespace collocation {

/// Values of the Legendre polynomials up to the degree node_count + 1.
using Legendre = std::array<double, node_count + 2>;
constexpr Legendre legendre(double x) {
    Legendre p{1.0, x};
    for (std::size_t k = 1; k + 1 < p.size(); ++k) {
        const auto n = static_cast<double>(k);
        p[k + 1] = ((2.0 * n + 1.0) * x * p[k] - n * p[k - 1]) / (n + 1.0);
    }
    return p;
}

/// Integrals of the Legendre polynomials from -1 to x.
constexpr Nodes integrals(double x) {
    const Legendre p = legendre(x);
    Nodes y{x + 1.0};
    for (std::size_t k = 1; k < y.size(); ++k) y[k] = (p[k + 1] - p[k - 1]) / (2.0 * static_cast<double>(k) + 1.0);
    return y;
}

struct Tables {
    Nodes x{};                              ///< roots of the Legendre polynomial of degree node_count, ascending
    std::array<Nodes, node_count> series{}; ///< [j]: coefficients of the polynomial that is 1 at x[j], 0 at other nodes
    std::array<Nodes, node_count> integrals{}; ///< [j]: its integrals from -1 to each node

    constexpr Tables() {
        constexpr int intervals = 200; // fine enough to part the roots
        std::size_t found = 0;
        for (int i = 0; i < intervals; ++i) {
            const double low = -1.0 + 2.0 * i / intervals, high = -1.0 + 2.0 * (i + 1) / intervals;
            if (is_above(low) != is_above(high)) x[found++] = root(low, high);
        }
        for (std::size_t j = 0; j < node_count; ++j) {
            const Legendre p = legendre(x[j]);
            const double n = node_count;
            const double derivative = n * (x[j] * p[node_count] - p[node_count - 1]) / (x[j] * x[j] - 1.0);
            const double weight = 2.0 / ((1.0 - x[j] * x[j]) * derivative * derivative);
            for (std::size_t k = 0; k < node_count; ++k) series[j][k] = (static_cast<double>(k) + 0.5) * weight * p[k];
            for (std::size_t i = 0; i < node_count; ++i) {
                const Nodes y = collocation::integrals(x[i]);
                for (std::size_t k = 0; k < node_count; ++k) integrals[j][i] += series[j][k] * y[k];
            }
        }
    }

private:
    static constexpr bool is_above(double at) { return legendre(at)[node_count] > 0.0; }
    static constexpr double root(double low, double high) {
        for (int i = 0; i < 60; ++i) {
            const double middle = 0.5 * (low + high);
            (is_above(low) != is_above(middle) ? high : low) = middle;
        }
        return 0.5 * (low + high);
    }
};
inline constexpr Tables tables{};
inline constexpr Points points = [] {
    Points x{};
    x.front() = -1.0;
    x.back() = 1.0;
    for (std::size_t i = 0; i < node_count; ++i) x[i + 1] = tables.x[i];
    return x;
}();

/// Coefficients of the Legendre polynomials, up to the degree node_count - 1, of the polynomial with these values at the nodes.
inline Nodes series(const Nodes& values) {
    Nodes c{};
    for (std::size_t j = 0; j < node_count; ++j)
        for (std::size_t k = 0; k < node_count; ++k) c[k] += tables.series[j][k] * values[j];
    return c;
}

/// The integral of the polynomial from -1 to each node.
inline Nodes integrals_to_nodes(const Nodes& values) {
    Nodes y{};
    for (std::size_t j = 0; j < node_count; ++j)
        for (std::size_t i = 0; i < node_count; ++i) y[i] += tables.integrals[j][i] * values[j];
    return y;
}

/// Factors of the recurrence P(k+1) = rise[k] x P(k) - fall[k] P(k-1) and of the integral of P(k), (P(k+1) - P(k-1)) part[k].
struct Recurrence {
    Nodes rise{}, fall{}, part{};

    constexpr Recurrence() {
        for (std::size_t k = 0; k < node_count; ++k) {
            const auto n = static_cast<double>(k);
            rise[k] = (2.0 * n + 1.0) / (n + 1.0);
            fall[k] = n / (n + 1.0);
            part[k] = 1.0 / (2.0 * n + 1.0);
        }
    }
};
inline constexpr Recurrence recurrence{};

/// The integrals from -1 to each x of the polynomial with these coefficients.
template <std::size_t N>
std::array<double, N> integrals_to(const std::array<double, N>& x, const Nodes& series) {
    std::array<double, N> before, here, sum;
    for (std::size_t i = 0; i < N; ++i) {
        before[i] = 1.0;
        here[i] = x[i];
        sum[i] = series[0] * (x[i] + 1.0);
    }
    for (std::size_t k = 1; k < node_count; ++k) {
        const double rise = recurrence.rise[k], fall = recurrence.fall[k], part = series[k] * recurrence.part[k];
        for (std::size_t i = 0; i < N; ++i) {
            const double next = rise * x[i] * here[i] - fall * before[i];
            sum[i] += part * (next - before[i]);
            before[i] = here[i];
            here[i] = next;
        }
    }
    return sum;
}

} // namespace collocation
} // namespace ktl::process
