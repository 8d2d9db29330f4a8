// Root of a function of one unknown inside an interval, for searches that the library makes on its own account:
// it never leaves the interval, writes nothing, and stops at a given residual or at neighbouring numbers.
#pragma once

#include <algorithm>
#include <cmath>

namespace ktl::solvers {

/// What an enclosing search found: the best point, and the other end of the last interval. Where the function
/// jumps over zero the two lie side by side, one on each side of the jump.
struct Enclosed {
    double x;
    double other;
};

/// Chandrupatla's rule: inverse quadratic interpolation where three points allow it, else bisection; the first
/// point is that of the straight line. Each pass is one evaluation; 12 are typical, and from any two numbers
/// bisection alone reaches neighbours in fewer than the limit.
///
/// fa, fb: residuals at a and b. Without a change of sign the end with the smaller residual comes back.
template <class Residual>
Enclosed enclose(Residual&& residual, double a, double fa, double b, double fb, double tolerance) {
    constexpr int most_passes = 100;
    constexpr double neighbours = 2.3e-16;
    const auto ordered = [&] { return std::fabs(fa) <= std::fabs(fb) ? Enclosed{a, b} : Enclosed{b, a}; };
    const bool brackets = (fa <= 0.0 && fb >= 0.0) || (fa >= 0.0 && fb <= 0.0);
    if (!brackets || std::min(std::fabs(fa), std::fabs(fb)) <= tolerance) return ordered();

    double step = std::clamp(fa / (fa - fb), 0.02, 0.98);
    for (int pass = 0; pass < most_passes; ++pass) {
        const double x = a + step * (b - a);
        const double fx = residual(x);
        double c = a; // the point that leaves the bracket
        double fc = fa;
        if (std::signbit(fx) != std::signbit(fa)) {
            c = b, fc = fb;
            b = a, fb = fa;
        }
        a = x, fa = fx;
        const double least = neighbours * std::fabs(a) / std::fabs(b - a);
        if (!(std::min(std::fabs(fa), std::fabs(fb)) > tolerance) || !(least < 0.5)) return ordered();
        const double xi = (a - b) / (c - b);
        const double phi = (fa - fb) / (fc - fb);
        step = 0.5;
        if (phi * phi < xi && (1.0 - phi) * (1.0 - phi) < 1.0 - xi)
            step = fa / (fb - fa) * fc / (fb - fc) + (c - a) / (b - a) * fa / (fc - fa) * fb / (fc - fb);
        step = std::clamp(step, least, 1.0 - least);
    }
    return ordered();
}

/// The same from the ends alone.
template <class Residual>
Enclosed enclose(Residual&& residual, double a, double b, double tolerance) {
    const double fa = residual(a);
    return enclose(residual, a, fa, b, residual(b), tolerance);
}

} // namespace ktl::solvers
