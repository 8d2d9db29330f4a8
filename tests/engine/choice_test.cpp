// Pairs that name several states, and pairs between two sub-regions.
#include "engine/rows/row.hpp"
#include "searches/state.hpp"
#include "support/pairs.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <ktl/steam.hpp>
#include <vector>

namespace {

using ktl::Pair;
using ktl::Region;
using ktl::State;
using Getter = double (State::*)() const;

double has(const State& state, Pair pair, double a, double b) {
    const auto& row = ktl::test::row_of(pair);
    return std::fmax(std::fabs(state.get(row.a) - a), std::fabs(state.get(row.b) - b) / (1.0 + std::fabs(b)));
}

/// Entropy of a mixture up to 350 degC.
double wet_entropy(double t, double x) {
    const double p = ktl_pt(t);
    return ktl_e1(p, t) + x * (ktl_e2(p, t) - ktl_e1(p, t));
}

TEST(Choice, EveryStateOfAPairIsOffered) {
    struct Row {
        const char* what;
        Pair pair;
        double a, b;
        Getter by;                     // what tells the states apart
        std::vector<double> low, high; // its bounds for each state
    };
    const double p2 = ktl_pt(2.0);
    const double p1 = ktl_pt(1.0);
    const Row rows[] = {
        {"cold water", Pair::pv, 10.0, ktl_c1(10.0, 1.0), &State::t, {6.0, 0.999}, {9.0, 1.001}},
        {"cold water and a mixture of no steam",
         Pair::pv,
         p2,
         ktl_c1(p2, 1.0),
         &State::t,
         {0.999, 1.999},
         {1.001, 2.001}},
        {"water at 4 degC", Pair::pv, 1.0, ktl_c1(1.0, 30.0), &State::t, {29.99}, {30.01}},
        {"hot water", Pair::th, 320.0, ktl_d1(700.0, 320.0), &State::p, {699.9, 830.0}, {700.1, 1000.0}},
        {"mixture and compressed water", Pair::th, 100.0, ktl_d1(145.0, 100.0), &State::p, {1.0, 144.9}, {1.1, 145.1}},
        {"water and a mixture of no steam",
         Pair::th,
         100.0,
         ktl_d1(1.02, 100.0),
         &State::p,
         {1.0199, 1.0},
         {1.0201, 1.0145}},
        {"cold entropy",
         Pair::ts,
         1.0,
         ktl_e1(100.0, 1.0),
         &State::p,
         {p1 * 0.99, 99.0, 101.0},
         {p1 * 1.01, 101.0, 1000.0}},
        {"water, coldest entropy",
         Pair::ts,
         1.0,
         ktl_e1(0.05, 1.0),
         &State::p,
         {0.0499, p1 * 0.99, 101.0},
         {0.0501, p1 * 1.01, 1000.0}},
        {"steam", Pair::tu, 400.0, ktl_f2(10.0, 400.0), &State::p, {9.999}, {10.001}},
        {"quality 0.45", Pair::sx, wet_entropy(60.0, 0.45), 0.45, &State::t, {59.999, 61.0}, {60.001, 374.15}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const int count = ktl::state_count(row.pair, row.a, row.b);
        EXPECT_EQ(count, static_cast<int>(row.low.size()));
        EXPECT_EQ(ktl::state(row.pair, row.a, row.b, count).status(), ktl::Status::no_state);
        for (int n = 0; n < count; ++n) {
            const State state = ktl::state(row.pair, row.a, row.b, n);
            ASSERT_TRUE(state);
            EXPECT_LE(has(state, row.pair, row.a, row.b), 1e-10);
            if (static_cast<std::size_t>(n) >= row.low.size()) continue;
            EXPECT_GE((state.*row.by)(), row.low[static_cast<std::size_t>(n)]) << n;
            EXPECT_LE((state.*row.by)(), row.high[static_cast<std::size_t>(n)]) << n;
        }
        EXPECT_EQ(ktl::state(row.pair, row.a, row.b, 0).t(), ktl::state(row.pair, row.a, row.b).t());
    }
}

/// What a walk along a line of constant quality meets.
struct Crossings {
    int count = 0;
    double first = 0.0; // the coldest lies within 0.05 K below, degC
};
Crossings crossings(double s, double x) {
    Crossings found;
    double before = wet_entropy(0.01, x) - s;
    for (int n = 1; n <= 7500; ++n) {
        const double t = std::min(0.05 * n, 374.15);
        const ktl::Saturated phases = ktl::saturated_at(t, ktl::SaturationModel::outermost_roots);
        const double now = phases.mixture(ktl::Quantity::entropy, x) - s;
        if (before * now < 0.0 && found.count++ == 0) found.first = t;
        before = now;
    }
    return found;
}

void expect_coldest(double s, double x, const Crossings& expected) {
    const State state = ktl::state(Pair::sx, s, x);
    EXPECT_EQ(static_cast<bool>(state), expected.count > 0) << s << ", " << x;
    if (expected.count == 0) return;
    EXPECT_NEAR(state.t(), expected.first - 0.025, 0.025 + 1e-7) << s << ", " << x;
}

TEST(Choice, QualityLinesAreCounted) {
    int most = 0;
    for (const double x : {0.2, 0.37, 0.4, 0.45, 0.5, 0.55, 0.6, 0.62, 0.8}) {
        for (double s = 3.0; s < 6.0; s += 0.0517) {
            const Crossings expected = crossings(s, x);
            EXPECT_EQ(ktl::state_count(Pair::sx, s, x), expected.count) << s << ", " << x;
            expect_coldest(s, x, expected);
            most = std::max(most, expected.count);
        }
    }
    EXPECT_EQ(most, 3);
}

/// Beside the dip and the crest of entropy, and where both run into one another.
TEST(Choice, ColdestOfAQualityLineBesideItsTurns) {
    struct Row {
        double s, x;
    };
    const Row rows[] = {
        {3.4765, 0.38},  {3.4763, 0.38},  {3.4815, 0.38},   {4.4130, 0.429},  {4.4134, 0.43},
        {4.4190, 0.44},  {4.4226, 0.44},  {4.4229, 0.44},   {4.4412, 0.48},   {4.4703, 0.479},
        {4.4745, 0.483}, {4.5371, 0.54},  {4.5370, 0.54},   {4.5804, 0.54},   {4.5640, 0.5465},
        {4.6440, 0.565}, {4.6518, 0.567}, {4.6533, 0.5675}, {4.6560, 0.5685}, {4.5995, 0.57},
    };
    for (const Row& row : rows) expect_coldest(row.s, row.x, crossings(row.s, row.x));
}

TEST(Overlaps, SubRegionsOneAndTwoGoBeforeThree) {
    struct Row {
        Pair given;
        double a, b;
    };
    const Row rows[] = {
        {Pair::pt, 165.3514437, 349.98542}, {Pair::pt, 472.72, 349.1557},   {Pair::pt, 630.574, 349.98326},
        {Pair::pt, 1000.0, 349.97553},      {Pair::tx, 349.9356, 0.0033},   {Pair::tx, 349.8003, 0.00532},
        {Pair::tx, 349.97755, 0.27579},     {Pair::pt, 165.35140, 350.003}, {Pair::pt, 584.2175, 508.35059},
        {Pair::pt, 775.2086, 549.1937},
    };
    for (const Row& row : rows) {
        const State low = ktl::state(row.given, row.a, row.b);
        const Row pairs[] = {
            {Pair::ph, low.p(), low.h()}, {Pair::ps, low.p(), low.s()}, {Pair::pu, low.p(), low.u()},
            {Pair::pv, low.p(), low.v()}, {Pair::hs, low.h(), low.s()}, {Pair::us, low.u(), low.s()},
            {Pair::vh, low.v(), low.h()}, {Pair::vs, low.v(), low.s()}, {Pair::vu, low.v(), low.u()},
        };
        for (const Row& pair : pairs) {
            const State found = ktl::state(pair.given, pair.a, pair.b);
            EXPECT_EQ(found.region(), low.region()) << static_cast<int>(pair.given) << ": " << row.a << ", " << row.b;
            EXPECT_NEAR(found.t(), low.t(), 1e-5);
            // And without the patch that the border curves give.
            EXPECT_EQ(ktl::engine::solve_row_again(pair.given, pair.a, pair.b).region, low.region());
        }
    }
}

TEST(Gaps, SubRegionsOneAndTwoGoOnToTheGivenValues) {
    const double pl = ktl::boundary_pressure(351.0);
    struct Row {
        const char* what;
        Pair pair;
        double a, b;
        Region region;
    };
    const double corner_v = ktl_c1(1000.0, 350.0) * (1.0 - 1e-5);
    const Row rows[] = {
        {"entropy at 300 bar", Pair::ps, 300.0, ktl_e1(300.0, 350.0) + 5e-5, Region::water},
        {"entropy at the 2/3 boundary", Pair::ps, pl, ktl_e2(pl, 351.0) - 1.5e-4, Region::steam},
        {"enthalpy at 351 degC", Pair::th, 351.0, ktl_d2(pl, 351.0) - 0.02, Region::steam},
        {"1000 bar and 350 degC", Pair::vs, corner_v, ktl_e1(1000.0, 350.0) + 2e-5, Region::water},
    };
    for (const Row& row : rows) {
        const State state = ktl::state(row.pair, row.a, row.b);
        EXPECT_EQ(state.region(), row.region) << row.what;
        EXPECT_LE(state.t(), 351.5) << row.what;
        EXPECT_LE(state.p(), 1010.0) << row.what;
    }
}

} // namespace
