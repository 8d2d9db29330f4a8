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

/// Equations of the pair, and each evaluation of the outer one.
struct Pair {
    std::function<double(double, double)> f1, f2;
    struct Point {
        double z, w;
    };
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

struct Box {
    double a1, b1, a2, b2;
};

/// Runs the solver; on every way out both intervals are collapsed.
Pair::Point solve_pair(std::function<double(double, double)> f1, double x, std::function<double(double, double)> f2,
                       double y, Box box) {
    pair = {std::move(f1), std::move(f2), {}, 0};
    ktl_id(outer, x, inner, y, box.a1, box.b1, box.a2, box.b2, eps);
    const auto same = [](double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); };
    EXPECT_TRUE(same(box.a1, box.b1));
    EXPECT_TRUE(same(box.a2, box.b2));
    EXPECT_LE(pair.outer.size(), 82U);
    EXPECT_LE(pair.inner, 82 * 82);
    return {box.a1, box.a2};
}

const auto sum = [](double z, double w) { return z + w; };
const auto difference = [](double z, double w) { return z - w; };

TEST(TwoUnknowns, FindsThePair) {
    Reports reports;
    const auto [z, w] = solve_pair(sum, 5.0, difference, 1.0, {0.0, 10.0, 0.0, 10.0});
    EXPECT_TRUE(close("z", z, 3.0, eps));
    EXPECT_TRUE(close("w", w, 2.0, eps));

    // z exp(w) = 6 e, z^3 + w = 9: z = 2, w = 1 is not a root; ln 3 + 1 turns the pair into z = 2.
    const auto product = [](double a, double b) { return a * std::exp(b); };
    const auto cubic = [](double a, double b) { return a * a * a + b; };
    const double w0 = 1.0 + std::log(3.0);
    const auto found = solve_pair(product, 6.0 * std::exp(1.0), cubic, 8.0 + w0, {0.5, 4.0, 0.0, 5.0});
    EXPECT_TRUE(close("z", found.z, 2.0, eps));
    EXPECT_TRUE(close("w", found.w, w0, eps));
    EXPECT_EQ(reports.count(), 0U);
}

/// The inner equation is solved to eps^1.25, a hundred times closer than the outer.
TEST(TwoUnknowns, InnerTolerance) {
    const auto cubic = [](double z, double w) { return z * z * z + w; };
    const auto [z, w] = solve_pair(sum, 3.0, cubic, 9.0, {0.5, 4.0, 0.0, 3.5});
    EXPECT_TRUE(close("inner residual", cubic(z, w), 9.0, 1e-10));
    EXPECT_TRUE(close("outer residual", z + w, 3.0, eps));
    for (const auto& [trial_z, trial_w] : pair.outer)
        EXPECT_TRUE(close("inner residual", cubic(trial_z, trial_w), 9.0, 1e-10));

    // An end of the interval is taken from 1e-10 on, not before.
    const auto itself = [](double trial, double) { return trial; };
    const double inside = 1.0 + 0.9e-10;
    EXPECT_EQ(solve_pair(sum, 3.0, itself, 1.0, {inside, 0.5, 0.0, 3.5}).z, inside);
    EXPECT_EQ(solve_pair(sum, 3.0, itself, 1.0, {1.0 + 1.1e-10, 0.5, 0.0, 3.5}).z, 1.0);
}

/// A root at a2 is taken without a pass; one at b2 is not tested for, and found as a false-position point.
TEST(TwoUnknowns, RootAtAnEnd) {
    const auto [z, w] = solve_pair(sum, 5.0, difference, 1.0, {0.0, 10.0, 2.0, 7.0});
    EXPECT_EQ(w, 2.0);
    EXPECT_EQ(z, 3.0);
    EXPECT_EQ(pair.outer.size(), 2U);

    EXPECT_EQ(solve_pair(sum, 5.0, difference, 1.0, {0.0, 10.0, 0.0, 2.0}).w, 2.0);
    EXPECT_EQ(pair.outer.size(), 4U);
}

/// The residual of a false-position point is tested a pass later, after the bisection; the midpoint's never is.
TEST(TwoUnknowns, ResidualTestedAfterBisection) {
    const auto [z, w] = solve_pair(sum, 5.0, difference, 1.0, {0.0, 10.0, 0.0, 4.0});
    ASSERT_EQ(pair.outer.size(), 4U);
    EXPECT_EQ(pair.outer[2].w, 2.0);
    EXPECT_EQ(pair.outer[3].w, 3.0) << "the product is zero, no change of sign: the middle of c2 and b2";
    EXPECT_EQ(w, 2.0);
    EXPECT_EQ(z, 3.0) << "z of the false-position point, not of the bisection after it";

    // The first midpoint of the outer search is a root; it is not taken.
    const auto bend = [](double, double b) { return b < 3.0 ? 0.0 : b - 2.0; };
    solve_pair(bend, 1.0, difference, 1.0, {0.0, 10.0, 0.0, 4.0});
    EXPECT_EQ(pair.outer[3].w, 3.0) << "c2 = 2, then the root at 3";
    EXPECT_EQ(pair.outer.size(), 6U);
}

/// Target zero: the width test ends the search and the last false-position pair comes back, not the middle.
TEST(TwoUnknowns, WidthExit) {
    Reports reports;
    const auto jump = [](double, double w) { return w < 3.3 ? -1.0 : 1.0; };
    const auto [z, w] = solve_pair(jump, 0.0, difference, 1.0, {0.0, 10.0, 1.0, 5.0});
    ASSERT_GE(pair.outer.size(), 4U);
    EXPECT_LT(pair.outer.size(), 82U);
    const auto last_false_position = pair.outer[pair.outer.size() - 2];
    EXPECT_EQ(w, last_false_position.w);
    EXPECT_EQ(z, last_false_position.z);
    EXPECT_TRUE(close("w", w, 3.3, 4.0 * eps));
    EXPECT_EQ(reports.count(), 0U);
}

TEST(TwoUnknowns, PassLimit) {
    Reports reports;
    const int counted = ktlerr.ientry;
    const auto jump = [](double, double w) { return w <= 0.0 ? -1.0 : 1.0; };
    const auto [z, w] = solve_pair(jump, 0.0, sum, 1.0, {0.0, 10.0, 0.0, 1.0});
    EXPECT_EQ(pair.outer.size(), 82U);
    EXPECT_EQ(w, 0x1p-79) << "the last false-position point";
    EXPECT_EQ(z, pair.outer[80].z);
    EXPECT_EQ(reports.lines(), Lines{" *** KTLFTN-WARNING: Maximum number of iterations exceeded (code: KTL_ID) ***"});
    EXPECT_EQ(ktlerr.ientry, counted);
}

TEST(TwoUnknowns, BoundedWithoutNumbers) {
    Reports reports;
    const double not_a_number = std::numeric_limits<double>::quiet_NaN();
    const auto nothing = [not_a_number](double, double) { return not_a_number; };
    const auto pole = [](double z, double w) { return 1.0 / (z - w); };
    solve_pair(nothing, 1.0, difference, 1.0, {0.0, 10.0, 0.0, 10.0});
    solve_pair(sum, 1.0, nothing, 1.0, {0.0, 10.0, 0.0, 10.0});
    solve_pair(pole, 1.0, pole, 1.0, {0.0, 10.0, 0.0, 10.0});
    solve_pair(sum, not_a_number, difference, 1.0, {not_a_number, 10.0, 0.0, not_a_number});
    for (const auto& line : reports.lines()) EXPECT_NE(line.find("KTL_ID"), std::string::npos);
}

} // namespace
