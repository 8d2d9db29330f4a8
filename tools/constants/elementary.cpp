// Errors of exp and log, against the same functions in the 64 bits of long double.
#include "rows.hpp"

#include "engine/lanes/scalar.hpp"

#include <limits>

namespace constants {

namespace {

static_assert(std::numeric_limits<long double>::digits >= 64, "the reference needs more digits than double has");

/// Largest error of f from low to high, in units of the last place of the true value.
template <class Function, class Exact>
double worst_ulp(Function&& f, Exact&& exact, double low, double high, int n) {
    return largest(
        [&](double x) {
            const long double truth = exact(static_cast<long double>(x));
            const long double unit = std::ldexp(1.0L, std::ilogb(truth) - 52);
            return static_cast<double>(std::fabs(static_cast<long double>(f(x)) - truth) / unit);
        },
        low, high, n);
}

/// long double as a number type of the logarithm: what is left of its error is that of the polynomial.
struct Wide {
    long double value;
    Wide() = default;
    Wide(long double x) : value(x) {} // implicit: coefficients are plain numbers
    friend Wide operator+(Wide a, Wide b) { return a.value + b.value; }
    friend Wide operator-(Wide a, Wide b) { return a.value - b.value; }
    friend Wide operator*(Wide a, Wide b) { return a.value * b.value; }
    friend Wide operator/(Wide a, Wide b) { return a.value / b.value; }
    /// For arguments from 1/sqrt(2) to sqrt(2), whose power of two is 0.
    friend Wide split(Wide x, Wide& e) {
        e = 0.0L;
        return x;
    }
};

/// Error of the polynomial R of the logarithm, ln(1 + f) = f - s (f - R), s = f/(2 + f).
double polynomial_error(double x) {
    const long double f = static_cast<long double>(x) - 1.0L;
    if (f == 0.0L) return 0.0;
    const long double error = ktl::engine::logarithm(Wide(x)).value - std::log(static_cast<long double>(x));
    return static_cast<double>(std::fabs(error * (2.0L + f) / f));
}

} // namespace

void elementary_functions(Table& table) {
    using ktl::engine::Scalar;
    const auto e = [](double x) { return ktl::engine::exponential(Scalar(x)).value; };
    const auto l = [](double x) { return ktl::engine::logarithm(Scalar(x)).value; };
    const auto exact_e = [](long double x) { return std::exp(x); };
    const auto exact_l = [](long double x) { return std::log(x); };
    const int n = 1000 * table.points();
    const double error_e = std::fmax(worst_ulp(e, exact_e, -708.0, 709.0, n), worst_ulp(e, exact_e, -1.0, 1.0, n));
    const double error_l = std::fmax(worst_ulp(l, exact_l, 0.5, 2.0, n), worst_ulp(l, exact_l, 1.0e-6, 1.0e6, n));
    table.covers("exp: remainder of the series", 5.0e-18, std::pow(0.5 * std::log(2.0), 14) / std::tgamma(15.0));
    table.covers("log: error of the polynomial, 2^-58", 0x1p-58, largest(polynomial_error, 0.70710679, 1.41421356, n));
    table.covers("exp: error, units of the last place", 1.0, error_e);
    table.covers("log: error, units of the last place", 1.0, error_l);
}

} // namespace constants
