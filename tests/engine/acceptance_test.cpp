// Which results of Newton steps are taken, limit by limit, and that interior states are found without the exact search.
#include "engine/kernels/acceptance.hpp"
#include "engine/lanes/scalar.hpp"
#include "engine/rows/row.hpp"
#include "engine/solution.hpp"
#include "rows.hpp"
#include "searches/branches.hpp"
#include "searches/state.hpp"

#include "support/compare.hpp"
#include "support/states.hpp"

#include <gtest/gtest.h>
#include <ktl/ktlftn.h>

namespace {

using namespace ktl;
using namespace ktl::engine;
using test::named;
using test::Random;

/// A limit from both sides: what is accepted on it, and what lies one step beyond it, refused.
struct Edge {
    double p, t;   // accepted
    double dp, dt; // step out of the sub-region
};

TEST(Acceptance, WaterAndSteamEndAtTheirLimits) {
    const double p100 = ktl_pt(100.0), p351 = boundary_pressure(351.0), p580 = boundary_pressure(580.0);
    const Edge water[] = {{1000.0, 100.0, 1e-9, 0.0},
                          {500.0, 0.01, 0.0, -1e-12},
                          {500.0, 350.0, 0.0, 1e-10},
                          {p100, 100.0, -1.1e-11 * p100, 0.0}};
    const Edge steam[] = {{0.006112444, 100.0, -1e-12, 0.0}, {0.006112444, 0.01, 0.0, -1e-12},
                          {10.0, 800.0, 0.0, 1e-9},          {1000.0, 600.0, 1e-9, 0.0},
                          {1000.0, 590.0, 1e-9, 0.0},        {p100, 100.0, 1.1e-11 * p100, 0.0},
                          {p351 - 1e-9, 351.0, 2e-9, 0.0},   {p580 - 1e-9, 580.0, 2e-9, 0.0}};
    const auto expect = [](auto inside, const Edge& x) {
        EXPECT_EQ(inside(Scalar(x.p), Scalar(x.t)).value, 1.0) << named(x.p, ", ", x.t);
        EXPECT_EQ(inside(Scalar(x.p + x.dp), Scalar(x.t + x.dt)).value, 0.0) << named(x.p, ", ", x.t);
    };
    const auto in_water = [](Scalar p, Scalar t) { return searches::in_water(p, t, searches::strict); };
    const auto in_steam = [](Scalar p, Scalar t) { return searches::in_steam(p, t, searches::strict); };
    for (const Edge& x : water) expect(in_water, x);
    for (const Edge& x : steam) expect(in_steam, x);
}

/// Sub-region 3: one state in it, and the same with one thing changed that takes it out.
TEST(Acceptance, NearCriticalStatesAreStableAndOnTheirSide) {
    struct Row {
        const char* what;
        Pair pair;
        double v, t, p, dpdv, guess;
        bool accepted;
    };
    const double p360 = ktl_pt(360.0), p351 = boundary_pressure(351.0), p374 = ktl_pt(374.12);
    const double stable = -1e5, below = 1.0 - 1e-9, above = 1.0 + 1e-9;
    const Row rows[] = {
        {"dense", Pair::ph, 0.0018, 360.0, p360 * above, stable, 0.0, true},
        {"dense, below saturation", Pair::ph, 0.0018, 360.0, p360 * below, stable, 0.0, false},
        {"thin", Pair::ph, 0.006, 360.0, p360 * below, stable, 0.0, true},
        {"thin, above saturation", Pair::ph, 0.006, 360.0, p360 * above, stable, 0.0, false},
        {"p, t: the side of the guess, dense", Pair::pt, 0.0018, 360.0, p360 * below, stable, 0.0019, true},
        {"p, t: the side of the guess, thin", Pair::pt, 0.006, 360.0, p360 * above, stable, 0.005, true},
        {"p, t: the other side", Pair::pt, 0.0018, 360.0, p360 * above, stable, 0.005, false},
        {"unstable", Pair::ph, 0.0018, 360.0, p360 * above, 1.0, 0.0, false},
        {"level", Pair::ph, 0.0018, 360.0, p360 * above, 0.0, 0.0, false},
        {"top of the dome, far", Pair::ph, 0.0023, 374.12, p374 * above, stable, 0.0, true},
        {"top of the dome, near", Pair::ph, 0.0024, 374.12, p374 * above, stable, 0.0, false},
        {"top of the dome, far, thin", Pair::ph, 0.0040, 374.12, p374 * below, stable, 0.0, true},
        {"top of the dome, near, thin", Pair::ph, 0.0039, 374.12, p374 * below, stable, 0.0, false},
        {"above the dome", Pair::ph, 0.00317, 374.2, 222.0, stable, 0.0, true},
        {"too cold", Pair::ph, 0.0018, 350.0, 200.0, stable, 0.0, false},
        {"hottest", Pair::ph, 0.0020, 590.0, 999.0, stable, 0.0, false}, // the boundary lies at 1000.01 bar there
        {"hot", Pair::ph, 0.0020, 589.0, 999.0, stable, 0.0, true},
        {"highest pressure", Pair::ph, 0.0014, 400.0, 1000.0, stable, 0.0, true},
        {"pressure too high", Pair::ph, 0.0014, 400.0, 1000.0 * above, stable, 0.0, false},
        {"steam of the boundary", Pair::ph, 0.0085, 351.0, p351 * above, stable, 0.0, true},
        {"beyond the boundary", Pair::ph, 0.0085, 351.0, p351 * below, stable, 0.0, false},
        {"least volume", Pair::ph, 0.0013017, 351.0, 999.0, stable, 0.0, true},
        {"volume too small", Pair::ph, 0.0013016, 351.0, 999.0, stable, 0.0, false},
        {"greatest volume", Pair::ph, 0.0088870, 400.0, 300.0, stable, 0.0, true},
        {"volume too great", Pair::ph, 0.0088871, 400.0, 300.0, stable, 0.0, false},
    };
    for (const Row& x : rows) {
        const NewtonResult<Scalar> found{x.v, x.t, 1.0, x.p, x.dpdv};
        EXPECT_EQ(accept_near_critical<Scalar>(x.pair, found, x.guess, no_margin).value > 0.5, x.accepted) << x.what;
    }
    // The margins keep off 350 degC and the boundary.
    const Margin margin{0.5, 0.0, 0.0, 0.001};
    const auto accepted = [&](double t, double p) {
        return accept_near_critical<Scalar>(Pair::hs, {0.0018, t, 1.0, p, stable}, 0.0, margin).value > 0.5;
    };
    EXPECT_TRUE(accepted(350.51, 300.0) && !accepted(350.49, 300.0));
    const double p400 = boundary_pressure(400.0);
    EXPECT_TRUE(accepted(400.0, 1.00101 * p400) && !accepted(400.0, 1.00099 * p400));
}

TEST(Acceptance, MixturesEndAtTheirLimits) {
    const auto low = [](double x, double t) {
        return searches::in_two_phases<false>(Scalar(x), Scalar(t), searches::strict).value;
    };
    const auto high = [](double x, double t) {
        return searches::in_two_phases<true>(Scalar(x), Scalar(t), searches::strict).value;
    };
    for (const double x : {0.0, 0.5, 1.0}) {
        EXPECT_TRUE(low(x, 0.01) == 1.0 && low(x, 350.0) == 1.0 && high(x, 350.001) == 1.0 && high(x, 374.149) == 1.0);
        EXPECT_TRUE(low(x, 0.009) == 0.0 && low(x, 350.001) == 0.0 && high(x, 350.0) == 0.0 && high(x, 374.15) == 0.0);
    }
    EXPECT_TRUE(low(-1e-9, 100.0) == 0.0 && low(1.0 + 1e-9, 100.0) == 0.0 && low(std::nan(""), 100.0) == 0.0);
}

/// The state by classes, guesses and Newton steps alone, as rows are solved before the exact search; none for others.
Solution by_kernels(Pair pair, double a, double b) {
    const Kernels& one = scalar_kernels();
    const auto index = static_cast<std::size_t>(pair);
    double c = 0.0, accepted = 1.0;
    one.classify[index](&a, &b, 1, &c);
    const auto patch = static_cast<guesses::GuessPatch>(c);
    if (patch == guesses::GuessPatch::search) return {};
    const PhaseKind kind = kind_of[static_cast<std::size_t>(patch)];
    Solution found{Status::solved, Region::none, a, b, quiet_nan, quiet_nan};
    const SolutionColumns columns{&found.primary, &found.t, &found.liquid, &found.vapour, &accepted};
    one.guess[index](patch, &a, &b, 1, columns);
    if (const auto newton = one.solve[index][static_cast<std::size_t>(kind)])
        newton(pair, &a, &b, 1, columns, margin_of(pair));
    found.region = region_of(kind, found.primary, found.t);
    return accepted > 0.5 ? found : Solution{};
}

State drawn(Random& random, PhaseKind kind) {
    const double x = random.between(0.05, 0.95);
    switch (kind) {
    case PhaseKind::water: {
        const double t = random.between(15.0, 345.0), p = ktl_pt(t);
        return state(Pair::pt, 1.2 * p + 5.0 + x * (900.0 - 1.2 * p), t);
    }
    case PhaseKind::steam: {
        const double t = random.between(20.0, 780.0);
        return state(Pair::pt, 0.95 * x * std::min(test::steam_limit(t), 950.0), t);
    }
    case PhaseKind::near_critical: {
        for (;;) {
            const test::State y = test::random_near_critical(random);
            const double p = ktl_a3(y.first, y.t);
            if (y.t > 376.0 && y.t < 580.0 && p > 1.01 * boundary_pressure(y.t) && p < 990.0)
                return state(Pair::tv, y.t, y.first);
        }
    }
    case PhaseKind::wet: return state(Pair::tx, random.between(15.0, 345.0), x);
    case PhaseKind::wet_near_critical: break;
    }
    return state(Pair::tx, random.between(352.0, 373.5), x);
}

/// Nearly all interior states of every pair are found by the kernels, and are the ones that the exact search finds.
/// A root between saturation and the turning point takes precedence over both, even if they have the value to what is allowed.
TEST(Acceptance, ARootTakesPrecedenceOverTheEndsOfItsBranch) {
    constexpr double allowed = 1e-3;
    const auto sides = [](double root) {
        return both_sides<double>(
            Branches{0.0, 1.0, 2.0}, [=](double z) { return 1e-4 * (z - root); },
            [](double z) {
                return FoundState<double>{KTL_WATER, z, 0.0, {}};
            },
            1e-12, allowed, false);
    };
    EXPECT_NEAR(sides(0.7).preferred.primary, 0.7, 1e-6);
    EXPECT_NEAR(sides(1.4).other.primary, 1.4, 1e-6);
    EXPECT_FALSE(sides(1.4).preferred.found());
    EXPECT_EQ(sides(-3.0).preferred.primary, 0.0);
}

TEST(Kernels, FindInteriorStatesWithoutTheExactSearch) {
    Random random(31);
    for (std::size_t k = 0; k < pair_count; ++k) {
        const auto pair = static_cast<Pair>(k);
        for (std::size_t n = 0; n < kind_count; ++n) {
            const auto kind = static_cast<PhaseKind>(n);
            const bool wet = kind >= PhaseKind::wet;
            if (wet ? pair == Pair::pt : has_quality(pair)) continue;
            int found = 0;
            for (int i = 0; i < 100; ++i) {
                const State s = drawn(random, kind);
                const double a = s.get(test::pairs[k].a), b = s.get(test::pairs[k].b);
                const Solution got = by_kernels(pair, a, b);
                if (got.status != Status::solved) continue;
                ++found;
                const Solution exact = search(pair, a, b, 0);
                EXPECT_EQ(got.region, exact.region) << test::pairs[k].name << ' ' << a << ' ' << b;
            }
            EXPECT_GE(found, 95) << test::pairs[k].name << n;
        }
    }
}

} // namespace
