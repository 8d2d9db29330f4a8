// A kernel of the size of one equation of a sub-region: one power, one root, ten divisions and 120 additions and
// multiplications. Every time of these benchmarks is also given as a multiple of it, so that tables from different
// machines compare.
#pragma once

#include <cmath>
#include <cstddef>

namespace ktl_bench {

using std::pow;
using std::sqrt;

/// y = kernel(x), a generic formula without meaning; T as in the engine's equations.
template <class T>
T yardstick(const T& x) {
    T quotients = 1.0 / (x + 1.0);
    for (int k = 2; k <= 10; ++k) quotients = quotients + 1.0 / (x + static_cast<double>(k));
    T a = x, b = x, c = x, d = x;
    for (int k = 0; k < 13; ++k) {
        a = 0.3 + a * x;
        b = 0.5 - b * x;
        c = 0.7 + c * x;
        d = 0.9 - d * x;
    }
    return pow(x, 0.29) + sqrt(x) + quotients + (a + b + c + d);
}

/// The kernel over a column, one number at a time with the functions of the standard library.
void yardstick_scalar(const double* x, std::size_t n, double* y);
/// The same in the widest vector lanes of this machine; n a multiple of 8.
void yardstick_lanes(const double* x, std::size_t n, double* y);

/// Seconds of one kernel, one number at a time, measured when the program starts.
extern const double yardstick_time;

} // namespace ktl_bench
