// The root finder of the library's own searches: every way out, by what it returns and how often it asks.
#include "searches/enclosure.hpp"

#include "support/compare.hpp"

#include <algorithm>
#include <functional>
#include <limits>

namespace {

using F = std::function<double(double)>;

constexpr double infinity = std::numeric_limits<double>::infinity();

F line(double root, double slope = 1.0) {
    return [=](double x) { return slope * (x - root); };
}
/// Jumps over zero: no point has a small residual, the search ends at both sides of the jump.
F jump(double at) {
    return [=](double x) { return x < at ? -1.0 : 2.0; };
}

TEST(Enclosure, EveryWayOut) {
    const F parabola = [](double x) { return x * x + 1.0; };
    const F square_root = [](double x) { return std::sqrt(x); };
    const F exponential = [](double x) { return std::exp(x) - 10.0; };
    const F cosine = [](double x) { return std::cos(x); };
    const F flat = [](double x) { return std::pow(x - 1.0, 9); };
    const F level = [](double x) { return x < 1.0 ? x - 1.0 : std::fmax(0.0, x - 2.0); };
    const F steep = [](double x) { return std::cbrt(x - 0.3); };
    const F pole = [](double x) { return 1.0 / (x - 0.1); };
    const F hole = [](double x) { return x == 0.0 ? -1.0 : x == 4.0 ? 1.0 : std::nan(""); };
    struct Row {
        const char* what;
        const F& f;
        double a, b, tolerance;
        double root, allowed;
        int calls; // at most, both ends included
        bool neighbours = false;
    };
    const Row rows[] = {
        {"no change of sign: the lesser residual", parabola, 3.0, 1.0, 0.0, 1.0, 0.0, 2},
        {"no change of sign: the first end", line(0.0, -1.0), 1.0, 3.0, 0.0, 1.0, 0.0, 2},
        {"not a number at an end", square_root, -1.0, 4.0, 0.0, 1.5, 2.5, 2},
        {"tolerance at the first end", line(1.0), 1.0 - 1e-9, 2.0, 1.1e-9, 1.0, 1.1e-9, 2},
        {"tolerance at the second end", line(1.0), 0.0, 1.0 + 1e-9, 1.1e-9, 1.0, 1.1e-9, 2},
        {"zero at an end", line(0.0), 0.0, 5.0, 0.0, 0.0, 0.0, 2},
        {"a straight line", line(2.0, 3.0), 0.0, 7.0, 1e-14, 2.0, 1e-14, 3},
        {"a root beside an end", line(1e-3), 0.0, 1.0, 1e-12, 1e-3, 1e-12, 4},
        {"interpolation", exponential, 0.0, 5.0, 1e-13, std::log(10.0), 1e-13, 11},
        {"a falling function", cosine, 0.0, 3.0, 1e-15, std::acos(0.0), 1e-15, 8},
        {"flat at the root", flat, 0.0, 5.0, 1e-20, 1.0, 6e-3, 11},
        {"level at zero", level, -5.0, 4.0, 0.0, 1.5, 0.5, 3},
        {"infinite slope: mostly bisection", steep, 0.0, 1.0, 1e-5, 0.3, 1e-15, 44},
        {"jump", jump(0.7), 0.0, 1.0, 0.5, 0.7, 4e-16, 55, true},
        {"jump, from above", jump(700.0), 1e5, -1.0, 0.0, 700.0, 3e-13, 60, true},
        {"jump among small numbers", jump(1e-300), 1e-301, 1e-299, 0.0, 1e-300, 3e-316, 57, true},
        {"pole", pole, -1.0, 1.0, 0.0, 0.1, 3e-17, 58, true},
        {"not a number at the first point", hole, 0.0, 4.0, 0.0, 2.0, 2.0, 3},
        {"infinite ends", line(0.0), -infinity, infinity, 0.0, 0.0, infinity, 3},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const auto [low, high] = std::minmax(row.a, row.b);
        int calls = 0;
        bool left = false;
        const auto f = [&, low = low, high = high](double x) {
            ++calls;
            left = left || x < low || x > high;
            return row.f(x);
        };
        const auto found = ktl::solvers::enclose(f, row.a, row.b, row.tolerance);
        EXPECT_FALSE(std::fabs(found.x - row.root) > row.allowed) << found.x;
        EXPECT_LE(calls, row.calls);
        EXPECT_FALSE(left);
        if (!row.neighbours) continue;
        EXPECT_LE(std::fabs(found.other - found.x), 4.6e-16 * std::fabs(found.x));
        EXPECT_LT(row.f(found.x) * row.f(found.other), 0.0);
        EXPECT_LE(std::fabs(row.f(found.x)), std::fabs(row.f(found.other)));
    }
}

} // namespace
