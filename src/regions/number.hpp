// What the equations ask of the number type they are written for: double, a dual number, vector lanes.
#pragma once

#include <cfloat>
#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>

// The equations need the arithmetic of IEEE 754: comparisons with not-a-number, infinities, every rounding where it is written.
#if defined(__FAST_MATH__) || (defined(__FINITE_MATH_ONLY__) && __FINITE_MATH_ONLY__ != 0) || defined(_M_FP_FAST)
#error "ktl cannot be compiled with -ffast-math, -Ofast, -ffinite-math-only or /fp:fast"
#endif
static_assert(FLT_EVAL_METHOD == 0 || FLT_EVAL_METHOD == 1,
              "doubles must not be computed with excess precision; on 32-bit x86 compile with -msse2 -mfpmath=sse");

// One to each thread, and constinit. Without threads there is one.
#if defined(KTL_NO_THREADS)
#define KTL_THREAD_LOCAL
#elif defined(__GNUC__)
#define KTL_THREAD_LOCAL __thread
#else
#define KTL_THREAD_LOCAL thread_local
#endif

namespace ktl {

using std::abs;
using std::exp;
using std::log;
using std::pow;
using std::sqrt;

inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double quiet_nan = std::numeric_limits<double>::quiet_NaN();

// One evaluation of a sub-region's equations at a new state. Only the program that measures the work of the
// finders compiles the library with a counter here.
#ifdef KTL_COUNT_EVALUATIONS
inline constinit KTL_THREAD_LOCAL long evaluations = 0;
inline void count_evaluation() { ++evaluations; }
#else
constexpr void count_evaluation() {}
#endif

/// a where the condition holds, else b: no branch, so that a type of many lanes can provide its own.
template <class T>
constexpr T select(bool condition, const T& a, const T& b) {
    return condition ? a : b;
}

/// rest if the condition holds, else zero: joins flags that are 1 or 0.
template <class Condition, class T>
T zero_unless(const Condition& condition, const T& rest) {
    return select(condition, rest, T(0.0));
}

/// What a() or b() gives, as the condition tells. One number asks for one of them only, many lanes for both.
template <class Condition, class A, class B>
constexpr auto select_lazy(const Condition& condition, A&& a, B&& b) {
    if constexpr (std::is_same_v<Condition, bool>)
        return condition ? a() : b();
    else
        return select(condition, a(), b());
}

/// True if a flag, which is 1 or 0, is set: in every lane of a type of many lanes.
inline bool all_set(double flag) { return flag > 0.5; }

/// A fitted polynomial of u = (x - middle) slope, which is -1 to 1 over the range of the fit.
template <std::size_t n>
struct Fit {
    double middle, slope;
    double c[n];

    /// Even and odd powers apart, so that two chains of operations run side by side.
    template <class T>
    constexpr T operator()(const T& x) const {
        const T u = (x - middle) * slope;
        const T u2 = u * u;
        T even(c[n - 1 - (n + 1) % 2]);
        T odd(c[n - 1 - n % 2]);
        for (std::size_t i = n - 1 - (n + 1) % 2; i >= 2; i -= 2) even = c[i - 2] + u2 * even;
        for (std::size_t i = n - 1 - n % 2; i >= 3; i -= 2) odd = c[i - 2] + u2 * odd;
        return even + u * odd;
    }
};

/// Polynomial c0 + c1 x + c2 x^2 + ... by Horner's rule, from the highest coefficient down.
template <class T>
constexpr T horner(const T& /*x*/, double c0) {
    return T(c0);
}
template <class T, class... Rest>
constexpr T horner(const T& x, double c0, Rest... higher) {
    return c0 + x * horner(x, higher...);
}

/// 1 bar m3 is 100 kJ; 1 bar is 1e5 Pa.
inline constexpr double kj_per_bar_m3 = 100.0;
inline constexpr double pascals_per_bar = 1.0e5;

/// Internal energy, kJ/kg, from enthalpy, pressure in bar and volume.
template <class T>
constexpr T internal_energy(const T& h, const T& p, const T& v) {
    return h - kj_per_bar_m3 * p * v;
}

} // namespace ktl
