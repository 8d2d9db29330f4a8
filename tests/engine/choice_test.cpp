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
            EXPECT_EQ(ktl::engine::solve_row_again(pair.given, pair.a, pair.b, {}).region, low.region());
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
