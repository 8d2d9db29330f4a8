// The solvers in one unknown, by toy functions: every way out, the bracket kept, the points evaluated.
#include "solvers/bracketing.hpp"

#include "support/compare.hpp"
#include "support/reports.hpp"
#include "support/toy.hpp"

#include <cmath>
#include <limits>

namespace {

using namespace ktl::solvers;
using namespace ktl::test;
using Points = std::vector<double>;
using Lines = std::vector<std::string>;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();
constexpr double eps = 1e-8;
const char* const warning = " *** KTLFTN-WARNING: Maximum number of iterations exceeded (code: KTL_I1) ***";

enum Solver { i1, i2, i3 };
constexpr Solver all_solvers[] = {i1, i2, i3};

double solve_toy(Solver solver, double x, double& a, double& b, double tolerance = eps) {
    switch (solver) {
    case i1: return ktl_i1(fixed_first, fixed, x, a, b, tolerance);
    case i2: return ktl_i2(fixed_second, fixed, x, a, b, tolerance);
    case i3: return ktl_i3(fixed_second_eps, fixed, x, a, b, tolerance);
    }
    return not_a_number;
}

const auto linear = [](double z) { return 2.0 * z; };
const auto square = [](double z) { return z * z; };
const auto step_at_zero = [](double z) { return z <= 0.0 ? -1.0 : 1.0; };

TEST(OneUnknown, EndsAreTriedFirst) {
    for (const Solver solver : all_solvers) {
        double a = 3.0;
        double b = 9.0;
        toy.set(linear);
        EXPECT_EQ(solve_toy(solver, 6.0, a, b), 3.0);
        EXPECT_EQ(toy.points, (Points{3.0})) << "b is not evaluated";
        toy.set(linear);
        EXPECT_EQ(solve_toy(solver, 18.0, a, b), 9.0);
        EXPECT_EQ(toy.points, (Points{3.0, 9.0}));
        EXPECT_EQ(a, 3.0);
        EXPECT_EQ(b, 9.0);
    }
}

/// A residual is small only when it is less than |x eps|: with x = 1 and eps = 1/4, 1/4 is not.
TEST(OneUnknown, SmallIsStrict) {
    for (const Solver solver : all_solvers) {
        double a = 0.75;
        double b = 2.0;
        toy.set([](double z) { return z; });
        EXPECT_EQ(solve_toy(solver, 1.0, a, b, 0.25), 1.0) << "the false-position point is exact";
        EXPECT_EQ(toy.points, (Points{0.75, 2.0, 1.0}));
        EXPECT_EQ(a, 0.75);
        EXPECT_EQ(b, 2.0);
    }
}

/// First passes of z^2 = 2 on 0..2, by hand: c = 1, d = 3/2 on its right, then c = 7/5 between 1 and 3/2.
TEST(OneUnknown, FirstPasses) {
    for (const Solver solver : all_solvers) {
        double a = 0.0;
        double b = 2.0;
        toy.set(square);
        EXPECT_TRUE(close("root", solve_toy(solver, 2.0, a, b), std::sqrt(2.0), eps));
        ASSERT_GE(toy.points.size(), 5U);
        EXPECT_EQ(Points(toy.points.begin(), toy.points.begin() + 4), (Points{0.0, 2.0, 1.0, 1.5}));
        EXPECT_TRUE(close("second false-position point", toy.points[4], 1.4, 1e-15));
        EXPECT_LE(toy.points.size(), 12U);
        EXPECT_LE(a, std::sqrt(2.0));
        EXPECT_GE(b, std::sqrt(2.0));
        EXPECT_LT(b - a, 0.2) << "a and b hold the last interval";
    }
}

/// One bisection from a = 0, b = 4 with the false-position point c = 2; d is 1 or 3, the middle of a side.
/// Each row: signs of the residuals, and the bracket kept where a zero product is no change of sign (ktl_i1,
/// ktl_id) and where it is one (ktl_i2, ktl_i3).
TEST(OneUnknown, BracketKept) {
    struct Row {
        double fa, fb, fc, fd;
        double a, b;   // zero product: no change
        double a2, b2; // zero product: a change
    };
    const Row rows[] = {
        {-1, 1, 1, 1, 0, 1, 0, 1},   {-1, 1, 1, -1, 1, 2, 1, 2}, // root left of c
        {-1, 1, -1, -1, 3, 4, 3, 4}, {-1, 1, -1, 1, 2, 3, 2, 3}, // root right of c
        {1, -1, -1, 1, 1, 2, 1, 2},  {1, -1, 1, 1, 3, 4, 3, 4},  // falling function
        {-1, 1, 0, 1, 2, 3, 0, 1},   {-1, 1, 0, -1, 3, 4, 1, 2}, // fa fc is zero
        {-1, 1, 1, 0, 1, 2, 0, 1},   {-1, 1, -1, 0, 2, 3, 3, 4}, // fa fd, fb fd are zero
        {0, 1, 1, 1, 2, 3, 0, 1},                                // fa is zero
        {1, 1, 1, 1, 2, 3, 2, 3},    {-1, -1, 1, 1, 0, 1, 0, 1}, // no change over the interval
    };
    for (const auto& row : rows) {
        const auto residual = [&row](double d) {
            EXPECT_TRUE(d == 1.0 || d == 3.0);
            return row.fd;
        };
        const auto at = named("fa ", row.fa, ", fb ", row.fb, ", fc ", row.fc, ", fd ", row.fd);
        Interval no_change{0.0, 4.0, row.fa, row.fb};
        bisect<WarnAndZero>(no_change, 2.0, row.fc, residual);
        EXPECT_EQ(no_change.a, row.a) << at;
        EXPECT_EQ(no_change.b, row.b) << at;
        Interval change{0.0, 4.0, row.fa, row.fb};
        bisect<SecantOutside>(change, 2.0, row.fc, residual);
        EXPECT_EQ(change.a, row.a2) << at;
        EXPECT_EQ(change.b, row.b2) << at;
        // The residuals move with their ends.
        const auto f = [&row](double z) { return z == 0 ? row.fa : z == 4 ? row.fb : z == 2 ? row.fc : row.fd; };
        for (const Interval& s : {no_change, change}) {
            EXPECT_EQ(s.fa, f(s.a)) << at;
            EXPECT_EQ(s.fb, f(s.b)) << at;
        }
    }
}

/// (z - 2)/2 = 0: the tolerance is zero, the first false-position point is the root, and its product is zero.
/// ktl_i1 goes to its right, ktl_i2 and ktl_i3 to its left; the width test alone ends the search.
TEST(OneUnknown, ZeroProductWithZeroTarget) {
    for (const Solver solver : all_solvers) {
        double a = 0.0;
        double b = 4.0;
        toy.set([](double z) { return (z - 2.0) / 2.0; });
        const double z = solve_toy(solver, 0.0, a, b);
        EXPECT_EQ(Points(toy.points.begin(), toy.points.begin() + 4),
                  (Points{0.0, 4.0, 2.0, solver == i1 ? 3.0 : 1.0}));
        EXPECT_EQ(solver == i1 ? a : b, 2.0);
        EXPECT_EQ(z, (a + b) / 2.0) << "the width exit returns the middle";
        EXPECT_LT(std::fabs(a - b), std::fabs(a) * eps);
        EXPECT_LT(toy.points.size(), 82U);
    }
}

/// A step at zero: the width test cannot succeed with a = 0, each pass divides the interval by four.
TEST(OneUnknown, PassLimit) {
    Reports reports;
    const int counted = ktlerr.ientry;
    const double expected[] = {0.0, 0x1p-81, 0x1p-79}; // 0.0; middle of 0..2^-80; last c
    for (const Solver solver : all_solvers) {
        double a = 0.0;
        double b = 1.0;
        toy.set(step_at_zero);
        EXPECT_EQ(solve_toy(solver, 0.0, a, b), expected[solver]);
        EXPECT_EQ(toy.points.size(), 82U);
        EXPECT_EQ(a, 0.0);
        EXPECT_EQ(b, 0x1p-80);
        EXPECT_EQ(reports.lines(), solver == i1 ? Lines{warning} : Lines{});
    }
    ktlerr.nprer = 0;
    double a = 0.0;
    double b = 1.0;
    solve_toy(i1, 0.0, a, b);
    EXPECT_EQ(reports.lines(), Lines{warning}) << "nprer does not silence a warning";
    EXPECT_EQ(ktlerr.ientry, counted) << "a warning is not counted";
}

/// Without a change of sign ktl_i2 alone leaves the interval, by secant steps from b and a.
TEST(OneUnknown, SecantSteps) {
    double a = 1.0;
    double b = 2.0;
    toy.set(linear);
    EXPECT_EQ(solve_toy(i2, 10.0, a, b), 5.0);
    EXPECT_EQ(toy.points, (Points{1.0, 2.0, 1.0, 5.0})) << "a is evaluated again in every pass";
    EXPECT_EQ(a, 1.0);
    EXPECT_EQ(b, 2.0);

    // z^2 = 16 from 1 and 2: c = 1 + (2 - 1)(-15)/(-15 + 12) = 6; then b = 1, a = 6, from the residuals there.
    toy.set(square);
    EXPECT_TRUE(close("root", solve_toy(i2, 16.0, a, b), 4.0, eps));
    EXPECT_EQ(Points(toy.points.begin(), toy.points.begin() + 5), (Points{1.0, 2.0, 1.0, 6.0, 6.0}));
    EXPECT_TRUE(close("second secant point", toy.points[5], 6.0 - 5.0 * 20.0 / 35.0, 1e-15));
    EXPECT_NE(a, 1.0);
}

/// Every exit by name, for each rule.
TEST(OneUnknown, ExitsByName) {
    const auto exit_of = [](auto rule, const std::function<double(double)>& f, double x, double a, double b) {
        return solve<decltype(rule)>(f, x, a, b, eps).exit;
    };
    const auto common = [&exit_of](auto rule) {
        EXPECT_EQ(exit_of(rule, linear, 2.0, 1.0, 5.0), Exit::end_a);
        EXPECT_EQ(exit_of(rule, linear, 10.0, 1.0, 5.0), Exit::end_b);
        EXPECT_EQ(exit_of(rule, linear, 6.0, 1.0, 5.0), Exit::residual);
        EXPECT_EQ(exit_of(
                      rule, [](double z) { return z < 3.3 ? -1.0 : 1.0; }, 0.0, 1.0, 5.0),
                  Exit::width);
        EXPECT_EQ(exit_of(rule, step_at_zero, 0.0, 0.0, 1.0), Exit::passes);
    };
    common(WarnAndZero{});
    common(SecantOutside{});
    common(LastPoint{});
    EXPECT_EQ(exit_of(SecantOutside{}, linear, 10.0, 1.0, 2.0), Exit::secant);
    EXPECT_EQ(exit_of(
                  SecantOutside{}, [](double z) { return z * z + 1.0; }, 0.0, 1.0, 2.0),
              Exit::secant_passes);
    EXPECT_EQ(exit_of(
                  WarnAndZero{}, [](double z) { return z * z + 1.0; }, 0.0, 1.0, 2.0),
              Exit::passes);
}

/// Functions that yield no number, infinities or a constant: bounded work, no fault.
TEST(OneUnknown, BoundedWithoutNumbers) {
    Reports reports;
    const std::function<double(double)> functions[] = {
        [](double) { return not_a_number; }, [](double) { return infinity; },
        [](double z) { return z > 1.0 ? infinity : -infinity; }, [](double) { return 1.0; }};
    for (const auto& f : functions)
        for (const Solver solver : all_solvers)
            for (const double x : {0.0, 5.0, infinity, not_a_number}) {
                double a = 0.5;
                double b = 2.0;
                toy.set(f);
                solve_toy(solver, x, a, b);
                EXPECT_LE(toy.points.size(), 82U);
            }
    double a = not_a_number;
    double b = 2.0;
    toy.set(linear);
    EXPECT_EQ(solve_toy(i1, 3.0, a, b), 0.0);
    EXPECT_EQ(toy.points.size(), 82U);
}

} // namespace
