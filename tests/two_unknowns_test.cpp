// The solver in two unknowns, by toy pairs of equations.
#include "support/compare.hpp"
#include "support/reports.hpp"

#include <cmath>
#include <functional>
#include <ktl/ktlftn.h>
#include <limits>
#include <vector>

namespace {

using namespace ktl::test;
using Lines = std::vector<std::string>;
constexpr double eps = 1e-8;

struct Point {
    double z, w;
};
struct Box {
    double a1, b1, a2, b2;
};

/// Equations of the pair, and each evaluation of the outer one.
struct Pair {
    std::function<double(double, double)> f1, f2;
    std::vector<Point> outer;
    int inner = 0;
};
Pair pair;

double outer(const double& z, const double& w) {
    pair.outer.push_back({z, w});
    return pair.f1(z, w);
}
double inner(const double& z, const double& w) {
    ++pair.inner;
    return pair.f2(z, w);
}

/// Runs the solver; on every way out both intervals are collapsed.
Point solve_pair(std::function<double(double, double)> f1, double x, std::function<double(double, double)> f2, double y,
                 Box box) {
    pair = {std::move(f1), std::move(f2), {}, 0};
    ktl_id(outer, x, inner, y, box.a1, box.b1, box.a2, box.b2, eps);
    EXPECT_TRUE(same(box.a1, box.b1));
    EXPECT_TRUE(same(box.a2, box.b2));
    EXPECT_LE(pair.outer.size(), 82U);
    EXPECT_LE(pair.inner, 82 * 82);
    return {box.a1, box.a2};
}

const auto sum = [](double z, double w) { return z + w; };
const auto difference = [](double z, double w) { return z - w; };
const auto cubic = [](double z, double w) { return z * z * z + w; };

/// z exp(w) = 2 exp(w0), z^3 + w = 8 + w0. The targets have sizes of their own: z alone of a million, w^3 of 0.001.
TEST(TwoUnknowns, FindsThePair) {
    const auto product = [](double a, double b) { return a * std::exp(b); };
    const double w0 = 1.0 + std::log(3.0);
    const auto found = solve_pair(product, 6.0 * std::exp(1.0), cubic, 8.0 + w0, {0.5, 4.0, 0.0, 5.0});
    EXPECT_TRUE(close("z", found.z, 2.0, eps));
    EXPECT_TRUE(close("w", found.w, w0, eps));
    const auto million = [](double z, double) { return 1e6 * z; };
    const auto cube = [](double, double w) { return w * w * w; };
    EXPECT_TRUE(close("w", solve_pair(cube, 1e-3, million, 1e6, {0.0, 3.0, 0.0, 0.7}).w, 0.1, eps));
}

/// The inner equation is solved to eps^1.25, a hundred times closer than the outer.
TEST(TwoUnknowns, InnerTolerance) {
    const auto [z, w] = solve_pair(sum, 3.0, cubic, 9.0, {0.5, 4.0, 0.0, 3.5});
    EXPECT_TRUE(close("outer residual", z + w, 3.0, eps));
    for (const auto& [trial_z, trial_w] : pair.outer)
        EXPECT_TRUE(close("inner residual", cubic(trial_z, trial_w), 9.0, 1e-10));

    // An end of the interval is taken from 1e-10 on, not before.
    const auto itself = [](double trial, double) { return trial; };
    const double inside = 1.0 + 0.9e-10;
    EXPECT_EQ(solve_pair(sum, 3.0, itself, 1.0, {inside, 0.5, 0.0, 3.5}).z, inside);
    EXPECT_EQ(solve_pair(sum, 3.0, itself, 1.0, {1.0 + 1.1e-10, 0.5, 0.0, 3.5}).z, 1.0);
}

/// z + w = 5, z - w = 1: the outer equations evaluated, and the last of them. A root at a2 is taken without a pass; one
/// at b2 is not tested for, and found as a false-position point. The residual of a false-position point is tested a
/// pass later, after the bisection; the product there is zero, no change of sign: the middle of c2 and b2. Its pair
/// comes back, not that of the bisection.
TEST(TwoUnknowns, Evaluations) {
    struct Row {
        double a2, b2;
        std::size_t count;
        double last;
    };
    for (const auto& [a2, b2, count, last] : {Row{2.0, 7.0, 2, 7.0}, Row{0.0, 2.0, 4, 2.0}, Row{0.0, 4.0, 4, 3.0}}) {
        const auto [z, w] = solve_pair(sum, 5.0, difference, 1.0, {0.0, 10.0, a2, b2});
        EXPECT_EQ(w, 2.0);
        EXPECT_EQ(z, 3.0);
        EXPECT_EQ(pair.outer.size(), count);
        EXPECT_EQ(pair.outer.back().w, last);
    }
    // The first midpoint of the outer search is a root; it is not taken.
    const auto bend = [](double, double b) { return b < 3.0 ? 0.0 : b - 2.0; };
    solve_pair(bend, 1.0, difference, 1.0, {0.0, 10.0, 0.0, 4.0});
    EXPECT_EQ(pair.outer[3].w, 3.0) << "c2 = 2, then the root at 3";
    EXPECT_EQ(pair.outer.size(), 6U);
    // With the target zero no residual is small enough, not even zero.
    const auto left = [](double z, double w) { return z + w - 5.0; };
    solve_pair(left, 0.0, difference, 1.0, {0.0, 10.0, 0.0, 4.0});
    EXPECT_GT(pair.outer.size(), 4U);
}

/// Target zero: the width test ends the search and the last false-position pair comes back, not the middle; where the
/// width cannot become small enough, the passes end it.
TEST(TwoUnknowns, WidthAndPasses) {
    Reports reports;
    const int counted = ktlerr.ientry;
    for (const double at : {3.3, 0.0}) {
        const auto jump = [at](double, double w) { return w <= at ? -1.0 : 1.0; };
        const auto [z, w] = solve_pair(jump, 0.0, difference, 1.0, {0.0, 10.0, at == 0.0 ? 0.0 : 1.0, 5.0});
        const auto last_false_position = pair.outer[pair.outer.size() - 2];
        EXPECT_EQ(w, last_false_position.w);
        EXPECT_EQ(z, last_false_position.z);
        EXPECT_TRUE(within("w", w, at, 4.0 * at * eps + 1e-20));
        EXPECT_EQ(pair.outer.size() == 82, at == 0.0);
        EXPECT_EQ(reports.lines(),
                  at == 0.0 ? Lines{" *** KTLFTN-WARNING: Maximum number of iterations exceeded (code: KTL_ID) ***"}
                            : Lines{});
    }
    EXPECT_EQ(ktlerr.ientry, counted);
}

TEST(TwoUnknowns, BoundedWithoutNumbers) {
    Reports reports;
    const double quiet_nan = std::numeric_limits<double>::quiet_NaN();
    const auto nothing = [quiet_nan](double, double) { return quiet_nan; };
    const auto pole = [](double z, double w) { return 1.0 / (z - w); };
    solve_pair(nothing, 1.0, difference, 1.0, {0.0, 10.0, 0.0, 10.0});
    solve_pair(sum, 1.0, nothing, 1.0, {0.0, 10.0, 0.0, 10.0});
    solve_pair(pole, 1.0, pole, 1.0, {0.0, 10.0, 0.0, 10.0});
    solve_pair(sum, quiet_nan, difference, 1.0, {quiet_nan, 10.0, 0.0, quiet_nan});
}

} // namespace
