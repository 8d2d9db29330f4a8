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
constexpr double quiet_nan = std::numeric_limits<double>::quiet_NaN();
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
    return quiet_nan;
}

const auto linear = [](double z) { return 2.0 * z; };
const auto square = [](double z) { return z * z; };
const auto step_at_zero = [](double z) { return z <= 0.0 ? -1.0 : 1.0; };

/// Target, interval and tolerance of a search, and what it does alike by all solvers: root and points evaluated. Ends
/// are tried first. A residual is small only when it is less than |x eps|: with x = 1 and eps = 1/4, 1/4 is not.
TEST(OneUnknown, EndsAndSmallResiduals) {
    struct Row {
        std::function<double(double)> f;
        double x, a, b, tolerance, root;
        Points points;
    };
    const auto itself = [](double z) { return z; };
    const Row rows[] = {{linear, 6.0, 3.0, 9.0, eps, 3.0, {3.0}},
                        {linear, 18.0, 3.0, 9.0, eps, 9.0, {3.0, 9.0}},
                        {itself, 1.0, 0.75, 2.0, 0.25, 1.0, {0.75, 2.0, 1.0}},
                        {itself, 1.0, 0.5, 1.25, 0.25, 1.0, {0.5, 1.25, 1.0}}};
    for (const auto& row : rows)
        for (const Solver solver : all_solvers) {
            double a = row.a;
            double b = row.b;
            toy.set(row.f);
            EXPECT_EQ(solve_toy(solver, row.x, a, b, row.tolerance), row.root);
            EXPECT_EQ(toy.points, row.points);
            EXPECT_EQ(a, row.a);
            EXPECT_EQ(b, row.b);
        }
}

/// First passes of z^2 = 2 on 0..2, by hand: c = 1, d = 3/2 on its right, then c = 7/5 between 1 and 3/2.
TEST(OneUnknown, FirstPasses) {
    for (const Solver solver : all_solvers) {
        double a = 0.0;
        double b = 2.0;
        toy.set(square);
        EXPECT_TRUE(close("root", solve_toy(solver, 2.0, a, b), std::sqrt(2.0), eps));
        EXPECT_EQ(Points(toy.points.begin(), toy.points.begin() + 4), (Points{0.0, 2.0, 1.0, 1.5}));
        EXPECT_TRUE(close("second false-position point", toy.points[4], 1.4, 1e-15));
        EXPECT_LE(toy.points.size(), 12U);
        EXPECT_TRUE(a <= std::sqrt(2.0) && b >= std::sqrt(2.0) && b - a < 0.2) << "a and b hold the last interval";
    }
}

template <class Rule>
void expect_bracket(double fa, double fb, double fc, double fd, double a, double b) {
    const auto at = named("fa ", fa, ", fb ", fb, ", fc ", fc, ", fd ", fd);
    Interval s{0.0, 4.0, fa, fb};
    bisect<Rule>(s, 2.0, fc, [fd](double d) { return d == 1.0 || d == 3.0 ? fd : infinity; });
    EXPECT_EQ(s.a, a) << at;
    EXPECT_EQ(s.b, b) << at;
    // The residuals move with their ends.
    const auto f = [&](double z) { return z == 0 ? fa : z == 4 ? fb : z == 2 ? fc : fd; };
    EXPECT_TRUE(same(s.fa, f(s.a)) && same(s.fb, f(s.b))) << at;
}

/// One bisection from a = 0, b = 4 with the false-position point c = 2; d is 1 or 3, the middle of a side.
/// Each row: signs of the residuals, and the bracket kept where a zero product (or no number) is no change of sign
/// (ktl_i1, ktl_id) and where it is one (ktl_i2, ktl_i3).
TEST(OneUnknown, BracketKept) {
    struct Row {
        double fa, fb, fc, fd;
        double a, b;   // zero product: no change
        double a2, b2; // zero product: a change
    };
    const Row rows[] = {
        {-1, 1, 1, 1, 0, 1, 0, 1},   {-1, 1, 1, -1, 1, 2, 1, 2},        // root left of c
        {-1, 1, -1, -1, 3, 4, 3, 4}, {-1, 1, -1, 1, 2, 3, 2, 3},        // root right of c
        {1, -1, -1, 1, 1, 2, 1, 2},  {1, -1, 1, 1, 3, 4, 3, 4},         // falling function
        {-1, 1, 0, 1, 2, 3, 0, 1},   {-1, 1, 0, -1, 3, 4, 1, 2},        // fa fc is zero
        {-1, 1, 1, 0, 1, 2, 0, 1},   {-1, 1, -1, 0, 2, 3, 3, 4},        // fa fd, fb fd are zero
        {0, 1, 1, 1, 2, 3, 0, 1},    {-1, 1, 1, quiet_nan, 1, 2, 0, 1}, // fa is zero, fd no number
        {1, 1, 1, 1, 2, 3, 2, 3},    {-1, -1, 1, 1, 0, 1, 0, 1},        // no change over the interval
    };
    for (const auto& [fa, fb, fc, fd, a, b, a2, b2] : rows) {
        expect_bracket<WarnAndZero>(fa, fb, fc, fd, a, b);
        expect_bracket<PairOfUnknowns>(fa, fb, fc, fd, a, b);
        expect_bracket<SecantOutside>(fa, fb, fc, fd, a2, b2);
        expect_bracket<LastPoint>(fa, fb, fc, fd, a2, b2);
    }
}

/// (z - 2)/2 = 0: the tolerance is zero, the first false-position point is the root, and its product is zero.
/// ktl_i1 goes to its right, ktl_i2 and ktl_i3 to its left; the width test alone, against a, ends the search.
TEST(OneUnknown, ZeroProductWithZeroTarget) {
    for (const Solver solver : all_solvers) {
        double a = 0.0;
        double b = 4.0;
        toy.set([](double z) { return (z - 2.0) / 2.0; });
        const double z = solve_toy(solver, 0.0, a, b);
        EXPECT_EQ(z, (a + b) / 2.0) << "the width exit returns the middle";
        EXPECT_EQ(Points(toy.points.begin(), toy.points.begin() + 4),
                  (Points{0.0, 4.0, 2.0, solver == i1 ? 3.0 : 1.0}));
        EXPECT_EQ(solver == i1 ? a : b, 2.0);
        EXPECT_LT(std::fabs(a - b), std::fabs(a) * eps);
        EXPECT_LT(toy.points.size(), 82U);
    }
    EXPECT_FALSE((Interval{1.0, 1.9, 0.0, 0.0}.narrow(0.5)));
    EXPECT_TRUE((Interval{1.9, 1.0, 0.0, 0.0}.narrow(0.5)));
}

/// A step at zero: the width test cannot succeed with a = 0, each pass divides the interval by four.
TEST(OneUnknown, PassLimit) {
    Reports reports;
    const int counted = ktlerr.ientry;
    ktlerr.nprer = 0;                                  // does not silence a warning
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

    toy.set([](double z) { return z * z + 1.0; });
    const double last = solve_toy(i2, 0.0, a = 1.0, b = 2.0);
    EXPECT_EQ(last, toy.points.back()) << "the last point where the passes run out";
    EXPECT_EQ(toy.points.size(), 82U);

    // With the target zero no residual is small enough; a residual of zero at an end is no secant.
    EXPECT_EQ(solve<SecantOutside>(linear, 0.0, a = 1.0, b = 2.0, eps).exit, Exit::secant_passes);
    EXPECT_EQ(solve<SecantOutside>(linear, 0.0, a = 0.0, b = 1.0, eps).exit, Exit::passes);
}

/// Functions that yield no number, infinities or a constant: bounded work, no fault.
TEST(OneUnknown, BoundedWithoutNumbers) {
    Reports reports;
    const std::function<double(double)> functions[] = {[](double) { return quiet_nan; },
                                                       [](double z) { return z > 1.0 ? infinity : -infinity; },
                                                       [](double) { return 1.0; }, linear};
    for (const auto& f : functions)
        for (const Solver solver : all_solvers)
            for (const double x : {0.0, 5.0, infinity, quiet_nan})
                for (double a : {0.5, quiet_nan}) {
                    double b = 2.0;
                    toy.set(f);
                    solve_toy(solver, x, a, b);
                    EXPECT_LE(toy.points.size(), 82U);
                }
}

} // namespace
