// Saturated phases of the ktl:: calls, and the saturation temperature they are found with.
#include "regions/region3.hpp"
#include "regions/saturation.hpp"
#include "support/random.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <ktl/ktlftn.h>
#include <ktl/steam.hpp>

namespace {

using ktl::Pair;
using ktl::State;

double pressure3(double v, double t) { return ktl::region3::pressure(ktl::region3::terms(v, t)); }

TEST(SaturationTemperature, IsTheInverseToRounding) {
    ktl::test::Random random(3);
    for (int n = 0; n < 20000; ++n) {
        const double t = n % 2 == 0 ? random.between(0.01, 374.15) : 374.15 - std::exp(random.between(-25.0, 0.0));
        EXPECT_NEAR(ktl::saturation::temperature(ktl::saturation::terms(t).p), t, 5e-13);
    }
}

TEST(SaturatedProperties, AreTheOutermostRoots) {
    for (const double t : {350.001, 355.0, 362.0, 370.0, 373.0, 373.2, 374.0, 374.1, 374.14, 374.149}) {
        SCOPED_TRACE(t);
        const State state = ktl::state(Pair::tx, t, 0.5);
        const double ps = state.p();
        const double water = state.liquid().v();
        const double steam = state.vapour().v();
        EXPECT_NEAR(pressure3(water, t), ps, 2e-13 * ps);
        EXPECT_NEAR(pressure3(steam, t), ps, 2e-13 * ps);
        for (double v = 0.00131; v < water * (1.0 - 1e-6); v *= 1.0005) EXPECT_GT(pressure3(v, t), ps) << v;
        for (double v = 0.0095; v > steam * (1.0 + 1e-6); v *= 0.9995) EXPECT_LT(pressure3(v, t), ps) << v;
    }
}

TEST(SaturatedProperties, MeetAtTheCriticalPoint) {
    double water = 0.0;
    double steam = 1.0;
    for (int n = 0; n <= 4000; ++n) {
        const double t = std::fmin(374.146 + 1e-6 * n, 374.15);
        const State state = ktl::state(Pair::tx, t, 0.5);
        const double ps = state.p();
        EXPECT_GT(state.liquid().v(), water) << t;
        EXPECT_LT(state.vapour().v(), steam) << t;
        water = state.liquid().v();
        steam = state.vapour().v();
        EXPECT_NEAR(pressure3(water, t), ps, 4e-9 * ps) << t;
        EXPECT_NEAR(pressure3(steam, t), ps, 4e-9 * ps) << t;
    }
    EXPECT_EQ(water, 0.00317);
    EXPECT_EQ(steam, 0.00317);
}

/// Isotherms have other volumes under the saturation pressure too, four per cent from the outermost one here.
TEST(SaturatedProperties, OfASearchedTemperatureAreTheOutermostRoots) {
    const State found = ktl::state(Pair::sx, 4.3994114379882809, 0.25926825828997457);
    const State same = ktl::state(Pair::tx, found.t(), found.x());
    EXPECT_NEAR(found.vapour().v(), same.vapour().v(), 1e-9);
    EXPECT_NEAR(found.s(), same.s(), 1e-9);
}

/// Mixtures of the last millikelvins by every pair that may give one.
TEST(SaturatedProperties, MixturesAreFoundUpToTheCriticalPoint) {
    ktl::test::Random random(4);
    for (int n = 0; n < 300; ++n) {
        const double t = 374.15 - std::exp(random.between(-20.0, -4.0));
        const State m = ktl::state(Pair::tx, t, random.between(0.0, 1.0));
        struct Row {
            Pair pair;
            double a, b;
        };
        const Row rows[] = {
            {Pair::px, m.p(), m.x()}, {Pair::ph, m.p(), m.h()}, {Pair::ps, m.p(), m.s()}, {Pair::pu, m.p(), m.u()},
            {Pair::pv, m.p(), m.v()}, {Pair::tv, m.t(), m.v()}, {Pair::th, m.t(), m.h()}, {Pair::ts, m.t(), m.s()},
            {Pair::tu, m.t(), m.u()}, {Pair::sx, m.s(), m.x()}, {Pair::hs, m.h(), m.s()}, {Pair::us, m.u(), m.s()},
            {Pair::vh, m.v(), m.h()}, {Pair::vs, m.v(), m.s()}, {Pair::vu, m.v(), m.u()},
        };
        for (const Row& row : rows) {
            const State found = ktl::state(row.pair, row.a, row.b);
            ASSERT_TRUE(found) << static_cast<int>(row.pair) << ": " << t << ", " << m.x();
            // A line of constant quality may have its entropy at a lower temperature too.
            const double allowed = row.pair == Pair::sx ? 300.0 : 1e-5;
            EXPECT_NEAR(found.p(), m.p(), allowed) << static_cast<int>(row.pair) << ": " << t << ", " << m.x();
        }
    }
}

} // namespace
