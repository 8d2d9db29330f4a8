// Entropy and quality: every state, in order, none else.
#include "searches/state.hpp"
#include "support/random.hpp"
#include "sweep/quality_scan.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <ktl/steam.hpp>
#include <vector>

namespace {

using ktl::ktl_lc;
using ktl::Pair;
using ktl::State;

const sweep::QualityScan& scan() {
    static const sweep::QualityScan all;
    return all;
}

constexpr double past_350 = 350.00000000000006;
constexpr double bend = 374.149; // of the saturated volumes
double entropy(double t, double x) { return ktl::state(Pair::tx, t, x).s(); }
double next_up(double s) { return std::nextafter(s, INFINITY); }
double next_down(double s) { return std::nextafter(s, -INFINITY); }

TEST(QualityLine, HasUpToSixStates) {
    struct Row {
        double s, x;
        std::vector<double> t;
    };
    const Row rows[] = {
        {4.4420, 0.50862324122915414, {55.1979, 230.5284, 373.5226, 374.1409, 374.1481, 374.1492}},
        {4.4806109673564958, 0.48731138583986744, {338.8784, 349.9756, 350.2244, 351.2712, 352.9426}},
        {4.476830219121787, 0.48461357423689067, {342.8975, 348.9620, 351.2973, 354.0900}},
        // Above the jump at 350 degC: not on the continued line. And below it: two states only.
        {4.4029246502808226, 0.4331080704296642, {350.1528}},
        {4.4805320256741759, 0.48728030202587264, {338.7695, 353.2454}},
        // Next to 350 degC sub-regions 1 and 2 take precedence, however far the state above is.
        {4.5775103094393383, 0.55471722079620767, {350.0, 350.0215}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.s);
        ASSERT_EQ(ktl::state_count(Pair::sx, row.s, row.x), static_cast<int>(row.t.size()));
        for (std::size_t n = 0; n < row.t.size(); ++n)
            EXPECT_NEAR(ktl::state(Pair::sx, row.s, row.x, static_cast<int>(n)).t(), row.t[n], 6e-5);
        EXPECT_EQ(scan().fault(row.s, row.x), "");
    }
}

/// A value that rounding alone puts past the entropy of a state has that state, and of several the one of lowest
/// temperature.
TEST(QualityLine, LimitsAndExtremaHaveTheirEntropyToRounding) {
    struct Row {
        const char* what;
        double t, x;
        bool from_above; // the entropies beside it are less
        bool lowest;     // no other state is colder
    };
    const Row rows[] = {
        {"0.01 degC, falling", 0.01, 0.38333359913406817, true, true},
        {"0.01 degC, rising", 0.01, 0.36, false, true},
        {"0.01 degC, liquid", 0.01, 0.01, false, true},
        {"350 degC, rising", 350.0, 0.40, true, true},
        {"350 degC, falling", 350.0, 0.58, false, true},
        {"350 degC, falling, with a state on the rise", 350.0, 0.485, false, false},
        {"just above, rising", past_350, 0.40, false, true},
        {"just above, falling", past_350, 0.485, true, false},
        {"the bend, a minimum", bend, 0.49, false, false},
        {"critical point, rising", ktl_lc.tc, 0.30, true, true},
        {"critical point, falling", ktl_lc.tc, 0.70, false, true},
    };
    for (const Row& row : rows) {
        const double s = entropy(row.t, row.x);
        const double sign = row.from_above ? 1.0 : -1.0;
        for (const double past :
             {s, row.from_above ? next_up(s) : next_down(s), s + sign * 0.9e-10 * std::fmax(s, 1.0)}) {
            SCOPED_TRACE(row.what);
            EXPECT_EQ(scan().fault(past, row.x), "");
            const int count = ktl::state_count(Pair::sx, past, row.x);
            bool has = false;
            for (int n = 0; n < count; ++n)
                has = has || std::fabs(ktl::state(Pair::sx, past, row.x, n).t() - row.t) <= 1e-7;
            EXPECT_TRUE(has) << past - s;
            if (row.lowest) {
                EXPECT_NEAR(ktl::state(Pair::sx, past, row.x).t(), row.t, 1e-7) << past - s;
            }
        }
        // Farther out it has not.
        const double outside = s + sign * 3.0e-10 * std::fmax(s, 1.0);
        for (int n = 0; n < ktl::state_count(Pair::sx, outside, row.x); ++n)
            EXPECT_NE(ktl::state(Pair::sx, outside, row.x, n).t(), row.t) << row.what;
    }
}

TEST(QualityLine, ExtremaAreTouchedFromBothSides) {
    for (double x = 0.3675; x < 0.62; x += 0.0101) {
        for (const sweep::LinePoint& point : scan().extrema(x)) {
            for (const double off : {-1e-8, -3e-10, -0.9e-10, 0.0, 0.9e-10, 3e-10, 1e-8}) {
                const double s = point.s * (1.0 + off);
                EXPECT_EQ(scan().fault(s, x), "") << point.t << ", " << off;
            }
            for (const double s : {next_down(point.s), point.s, next_up(point.s)}) {
                EXPECT_EQ(scan().fault(s, x), "") << point.t;
                EXPECT_GE(ktl::state_count(Pair::sx, s, x), 1) << point.t;
            }
        }
    }
}

/// Where a minimum and a maximum of entropy run into one another: three states next to one another.
TEST(QualityLine, ExtremaNextToOneAnotherAreBothSeen) {
    struct Row {
        double t;    // extremum of the quality whose entropy has an extremum at t
        double side; // of that quality on which entropy still has extrema
    };
    for (const Row& row : {Row{244.177, -1.0}, Row{351.2876, -1.0}, Row{369.2345, 1.0}, Row{374.10879, -1.0}}) {
        const double width = 1e-3 * (ktl_lc.tc - row.t);
        const auto rise = [&](double x) { return entropy(row.t + width, x) - entropy(row.t - width, x); };
        for (const double off : {1e-6, 3e-6, 1e-5, 1e-4, 1e-3}) {
            if (row.t > 374.0 && off < 1e-5) continue; // entropies as close as the volumes round
            const double x = rise(0.0) / (rise(0.0) - rise(1.0)) + row.side * off;
            EXPECT_GE(ktl::state_count(Pair::sx, entropy(row.t, x), x), 3) << row.t << ", " << off;
            EXPECT_EQ(scan().fault(entropy(row.t, x), x), "");
        }
    }
}

/// Values all over the line, in columns too.
TEST(QualityLine, AgreesWithAScan) {
    ktl::test::Random random(3);
    std::vector<double> s, x;
    for (const double quality : {0.0, 0.2, 0.37, 0.4, 0.45, 0.5, 0.55, 0.6, 0.62, 0.8, 1.0})
        for (double value = -0.05; value < 9.3; value += 0.0517) s.push_back(value), x.push_back(quality);
    for (int n = 0; n < 1500; ++n) {
        x.push_back(random.between(0.42, 0.62));
        const double t = n % 3 == 0   ? random.between(0.01, 374.15)
                         : n % 3 == 1 ? random.between(349.0, 354.0)
                                      : 374.15 - std::pow(random.between(0.0, 0.5), 4.0);
        s.push_back(entropy(t, x.back()));
    }
    std::vector<double> t(s.size());
    std::vector<ktl::Status> status(s.size());
    ktl::batch(Pair::sx, s, x, std::array{ktl::Property::t}, std::array{t.data()}, status);
    int most = 0;
    for (std::size_t n = 0; n < s.size(); ++n) {
        EXPECT_EQ(scan().fault(s[n], x[n]), "");
        const State one = ktl::state(Pair::sx, s[n], x[n]);
        EXPECT_EQ(status[n], one.status());
        EXPECT_TRUE(!one || t[n] == one.t());
        most = std::max(most, ktl::state_count(Pair::sx, s[n], x[n]));
    }
    EXPECT_EQ(most, 6);
}

/// The jump at 350 degC: what neither side has the line of sub-regions 1 and 2 has, continued to higher temperatures.
TEST(QualityLine, TheJumpAt350IsCoveredOnce) {
    int covered = 0;
    for (double x = 0.0; x <= 1.0; x += 0.0043) {
        const double below = entropy(350.0, x);
        const double above = entropy(past_350, x);
        ASSERT_LT(below, above);
        for (const double share : {-1e-3, 1e-3, 0.3, 0.7, 0.999, 1.001}) {
            const double s = below + share * (above - below);
            EXPECT_EQ(scan().fault(s, x), "") << share;
            const int count = ktl::state_count(Pair::sx, s, x);
            for (int n = 0; n < count; ++n) {
                const State state = ktl::state(Pair::sx, s, x, n);
                const bool continued = state.region() == ktl::Region::wet && state.t() > 350.0;
                EXPECT_FALSE(continued && (share < 0.0 || share > 1.0)) << s << ", " << x;
                if (continued) ++covered;
            }
        }
    }
    // Up to x = 0.478, where entropy rises on both sides.
    EXPECT_GT(covered, 400);
}

} // namespace
