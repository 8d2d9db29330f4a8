// The one loop behind all root finders: a false-position step, then a bisection of the side it leaves.
//
//   rule                product of signs zero   no sign change     residual tested    pass limit returns
//   WarnAndZero         no change of sign       loop as it is      at once            0.0 (the caller warns)
//   SecantOutside       a change of sign        secant steps       at once            midpoint
//   LastPoint           a change of sign        loop as it is      at once            last false-position point
//   PairOfUnknowns      no change of sign       loop as it is      after bisection    last false-position point
//
// ktl_i1 is WarnAndZero; ktl_i2 and the inner search of ktl_id are SecantOutside; ktl_i3 and ktl_it are
// LastPoint; the outer search of ktl_id is PairOfUnknowns.
#pragma once

#include <cmath>

namespace ktl::solvers {

inline constexpr int most_passes = 40;

/// Every way out of a search.
enum class Exit {
    end_a,         // the residual at a was small
    end_b,         // the residual at b was small
    residual,      // the residual of a false-position point was small
    width,         // the interval was narrower than |a| eps
    passes,        // the passes ran out
    secant,        // the residual of a secant point was small
    secant_passes, // the passes of the secant steps ran out
};

/// What a search found: z, and how it ended.
struct RootResult {
    double z;
    Exit exit;
};

/// Interval under search and the residuals at its ends.
struct Interval {
    double a, b, fa, fb;

    void new_a(double z, double fz) { a = z, fa = fz; }
    void new_b(double z, double fz) { b = z, fb = fz; }
    [[nodiscard]] bool narrow(double eps) const { return std::fabs(a) * eps > std::fabs(a - b); }
    [[nodiscard]] double middle() const { return (a + b) / 2.0; }
    [[nodiscard]] double false_position() const { return a - fa * (a - b) / (fa - fb); }
};

enum class OnNoSignChange { loop, secant };
enum class OnLimit { zero, middle, last_point };

struct WarnAndZero {
    static constexpr bool zero_is_change = false;
    static constexpr bool test_late = false;
    static constexpr auto no_sign_change = OnNoSignChange::loop;
    static constexpr auto limit = OnLimit::zero;
};
struct SecantOutside {
    static constexpr bool zero_is_change = true;
    static constexpr bool test_late = false;
    static constexpr auto no_sign_change = OnNoSignChange::secant;
    static constexpr auto limit = OnLimit::middle;
};
struct LastPoint {
    static constexpr bool zero_is_change = true;
    static constexpr bool test_late = false;
    static constexpr auto no_sign_change = OnNoSignChange::loop;
    static constexpr auto limit = OnLimit::last_point;
};
struct PairOfUnknowns {
    static constexpr bool zero_is_change = false;
    static constexpr bool test_late = true;
    static constexpr auto no_sign_change = OnNoSignChange::loop;
    static constexpr auto limit = OnLimit::last_point;
};

/// True if f and g differ in sign. The rules disagree only if the product is exactly zero (a value
/// that is not a number falls on the same side as zero).
template <class Rule>
bool sign_change(double f, double g) {
    return Rule::zero_is_change ? !(f * g > 0.0) : f * g < 0.0;
}

/// Keeps the smaller bracket after the false-position point c: one more evaluation, at the middle of the
/// side that holds the change of sign.
template <class Rule, class Residual>
void bisect(Interval& s, double c, double fc, Residual&& residual) {
    if (sign_change<Rule>(s.fa, fc)) {
        const double d = (c + s.a) / 2.0;
        const double fd = residual(d);
        if (sign_change<Rule>(s.fa, fd)) {
            s.new_b(d, fd);
        } else {
            s.new_a(d, fd);
            s.new_b(c, fc);
        }
    } else {
        const double d = (c + s.b) / 2.0;
        const double fd = residual(d);
        if (sign_change<Rule>(s.fb, fd)) {
            s.new_a(d, fd);
        } else {
            s.new_a(c, fc);
            s.new_b(d, fd);
        }
    }
}

/// Bracketed loop from a point c with residual fc. on_point(c) is told of each false-position point right
/// after its evaluation.
template <class Rule, class Residual, class OnPoint>
RootResult bracketed(Interval& s, double c, double fc, double eps, double epr, Residual&& residual,
                     OnPoint&& on_point) {
    for (int pass = 1; pass <= most_passes; ++pass) {
        if (Rule::test_late && std::fabs(fc) < epr) return {c, Exit::residual};
        if (s.narrow(eps)) return {Rule::test_late ? c : s.middle(), Exit::width};
        c = s.false_position();
        fc = residual(c);
        on_point(c);
        if (!Rule::test_late && std::fabs(fc) < epr) return {c, Exit::residual};
        bisect<Rule>(s, c, fc, residual);
    }
    switch (Rule::limit) {
    case OnLimit::zero: return {0.0, Exit::passes};
    case OnLimit::middle: return {s.middle(), Exit::passes};
    case OnLimit::last_point: break;
    }
    return {c, Exit::passes};
}

/// Secant steps from b and a; they may leave the interval. The residual at a is evaluated in every pass.
template <class Residual>
RootResult secant(Interval& s, double epr, Residual&& residual) {
    double fprev = s.fb;
    double c = s.a;
    for (int pass = 1; pass <= most_passes; ++pass) {
        s.fa = residual(s.a);
        c = s.a + (s.b - s.a) * s.fa / (s.fa - fprev);
        if (std::fabs(residual(c)) < epr) return {c, Exit::secant};
        s.b = s.a;
        s.a = c;
        fprev = s.fa;
    }
    return {c, Exit::secant_passes};
}

/// z between a and b with f(z) = x, to |f - x| < |x eps|; a and b are left at the last interval.
template <class Rule, class F>
RootResult solve(F&& f, double x, double& a, double& b, double eps) {
    const auto residual = [&f, x](double z) { return f(z) - x; };
    const double epr = std::fabs(x * eps);
    const double fa = residual(a);
    if (std::fabs(fa) < epr) return {a, Exit::end_a};
    const double fb = residual(b);
    if (std::fabs(fb) < epr) return {b, Exit::end_b};

    Interval s{a, b, fa, fb};
    const bool outside = Rule::no_sign_change == OnNoSignChange::secant && fa * fb > 0.0;
    const RootResult found =
        outside ? secant(s, epr, residual) : bracketed<Rule>(s, a, fa, eps, epr, residual, [](double) {});
    a = s.a;
    b = s.b;
    return found;
}

} // namespace ktl::solvers
