// Working records: computed once for a state, one to a thread, and without influence on any result.
#include "regions/constants.hpp"

#include "regions/region1.hpp"

#include "support/compare.hpp"
#include "support/free_energy.hpp"
#include "support/reports.hpp"
#include "support/states.hpp"

#include <array>
#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <ktl/ktlftn.h>
#include <map>
#include <numeric>
#include <sstream>
#include <thread>

namespace {

using namespace ktl::test;
using ktl::ktl_lc;

/// A sub-region: its preparation, its routines, and a state in it and one out of it.
struct SubRegion {
    void (*prepare)(const double&, const double&);
    std::array<ktl_property, 5> routines;
    State inside, outside;
    std::size_t reports; // of the state outside
    double ktl_cu_record::*first;
};

const std::array sub_regions{
    SubRegion{comt1, {ktl_c1, ktl_d1, ktl_e1, ktl_f1, ktl_h1}, {100.0, 200.0}, {1001.0, 351.0}, 2, &ktl_cu_record::p},
    SubRegion{comt2, {ktl_c2, ktl_d2, ktl_e2, ktl_f2, ktl_h2}, {10.0, 400.0}, {0.006, 801.0}, 2, &ktl_cu_record::p},
    SubRegion{comt3, {ktl_a3, ktl_d3, ktl_e3, ktl_f3, ktl_h3}, {0.003, 380.0}, {0.009, 591.0}, 1, &ktl_cu_record::v}};

TEST(Records, TermsAreKeptForTheState) {
    constexpr double mark = -123.0;
    Reports reports;
    for (const auto& r : sub_regions) {
        auto& first = ktl_cu.*r.first;
        r.prepare(r.inside.first, r.inside.t);
        EXPECT_EQ(first, r.inside.first);
        EXPECT_EQ(ktl_cu.t, r.inside.t);
        first = ktl_cu.t = mark;
        for (const auto routine : r.routines) routine(r.inside.first, r.inside.t);
        EXPECT_EQ(first, mark) << "a state already prepared leaves the record alone";
        EXPECT_EQ(ktl_cu.t, mark);
        const double near = std::nextafter(r.inside.t, 1000.0);
        r.prepare(r.inside.first, near);
        EXPECT_EQ(ktl_cu.t, near) << "the last bit counts";
        const double beside = std::nextafter(r.inside.first, 1000.0);
        r.prepare(beside, near);
        EXPECT_EQ(first, beside);
        r.prepare(std::nan(""), near);
        first = mark;
        r.prepare(std::nan(""), near);
        EXPECT_TRUE(std::isnan(first)) << "not-a-number is no state to keep";
    }
    EXPECT_EQ(reports.count(), 0U);
}

/// A limit may be passed by one part in 1e5, the product itself included: states on it, and the next beyond.
TEST(Records, LimitsOfTheRange) {
    struct Row {
        void (*prepare)(const double&, const double&);
        State inside;
        double first, t; // directions in which the state outside lies
    };
    const double low_p = ktl_lc.pmin * 0.99999;
    const double high_p = 1000.0 * 1.00001;
    const double low_t = 0.01 * 0.99999;
    const double t1 = 350.0 * 1.00001;
    const double t2 = 800.0 * 1.00001;
    const double t3_low = 350.0 * 0.99999;
    const double t3 = 590.0 * 1.00001;
    const double v_low = ktl_lc.v3min * 0.99999;
    const double v_high = ktl_lc.v3max * 1.00001;
    const Row rows[] = {{comt1, {low_p, 50.0}, -1, 0},  {comt1, {high_p, 50.0}, 1, 0},   {comt1, {50.0, low_t}, 0, -1},
                        {comt1, {50.0, t1}, 0, 1},      {comt2, {low_p, 50.0}, -1, 0},   {comt2, {high_p, 600.0}, 1, 0},
                        {comt2, {0.01, low_t}, 0, -1},  {comt2, {50.0, t2}, 0, 1},       {comt3, {v_low, 400.0}, -1, 0},
                        {comt3, {v_high, 400.0}, 1, 0}, {comt3, {0.003, t3_low}, 0, -1}, {comt3, {0.003, t3}, 0, 1}};
    Reports reports;
    for (const auto& [prepare, inside, first, t] : rows) {
        prepare(inside.first, inside.t);
        EXPECT_EQ(reports.count(), 0U) << inside.first << ", " << inside.t;
        prepare(std::nextafter(inside.first, inside.first + first), std::nextafter(inside.t, inside.t + t));
        EXPECT_EQ(reports.count(), 1U) << inside.first << ", " << inside.t;
    }
    // Once for the state, whatever routines evaluate it, and again after another.
    for (const auto& r : sub_regions) {
        for (const auto routine : r.routines) EXPECT_FALSE(std::isnan(routine(r.outside.first, r.outside.t)));
        EXPECT_EQ(reports.count(), r.reports);
        r.prepare(r.inside.first, r.inside.t);
        r.prepare(r.outside.first, r.outside.t);
        EXPECT_EQ(reports.count(), r.reports);
    }
    comt3(0.003, 591.0);
    comt2(0.006, 400.0);
    const std::vector<std::string> lines{" *** KTLFTN-ERROR: Out of range, V=  3.00000000E-03, T=  5.91000000E+02 ***",
                                         " *** KTLFTN-ERROR: Out of range, P=  6.00000000E-03, T=  4.00000000E+02 ***"};
    EXPECT_EQ(reports.lines(), lines);
}

/// Every value of the record, those that no equation reads included.
TEST(Records, ConstantsAsGiven) {
    std::istringstream given(
        "1.041659047737673e-08 -1.592682542006834e-06 221.2 0.00317 647.3 273.15 70.1204 0.1083275143 "
        "4.260321148 350 374.15 165.3512406 0.006112444 1000 3208.3 165.12406 0.001314782578 "
        "0.008799105448 0.01 800 705.5 350 0.01 350 590 -1 1860 1205 906.1 -0.1 3 0.804 1.065");
    double wanted = 0.0;
    for (const double value : std::bit_cast<std::array<double, 33>>(*ktl_constants())) {
        given >> wanted;
        EXPECT_EQ(value, wanted);
    }
}

/// The working terms that no equation reads; equations_test.cpp holds the others to the free energies.
TEST(Records, TermsThatNothingReads) {
    const auto a = ktl::region1::terms(250.0, 180.0);
    const auto b = ktl::region2::terms(90.0, 420.0);
    const auto c = ktl::region3::terms(0.003, 380.0);
    const double terms[] = {a.th7, a.th21, a.ub2,   a.ud4,   b.thm1,  b.th3,
                            b.th4, b.x12,  b.beta5, b.beta6, b.beta7, c.omth1};
    const double bases[] = {
        a.theta, a.theta, 1.15e-6 + power(a.theta, 19), 7.002753165 + a.beta, b.theta, b.theta, b.theta, b.x1, b.beta,
        b.beta,  b.beta,  1.0 - 623.15 / 647.3};
    const int powers[] = {7, 21, 2, 4, -1, 3, 4, 12, 5, 6, 7, 1};
    for (int i = 0; i < 12; ++i) EXPECT_TRUE(close(named("term ", i), terms[i], power(bases[i], powers[i]), 1e-14));
}

/// One call: a routine, or, where that is null, all properties through the entry by a finder.
struct Call {
    ktl_property routine;
    ktl_finder finder;
    double first, second;
};
using Bits = std::array<std::uint64_t, 6>;

Bits bits_of(const Call& call) {
    std::array<double, 6> out{};
    if (call.routine != nullptr)
        out[0] = call.routine(call.first, call.second);
    else
        ktlftn(call.finder, call.first, call.second, "P,T,V,H,S,X.", out.data());
    return std::bit_cast<Bits>(out);
}

std::vector<Call> mixed_calls() {
    Random random(41);
    std::vector<Call> calls;
    for (int i = 0; i < 100; ++i) {
        const unsigned n = random.below(3);
        const State x = n == 0 ? random_liquid(random) : n == 1 ? random_steam(random) : random_near_critical(random);
        // Pairs that share a value find terms kept from the call before them, where the order lets them.
        for (const auto routine : sub_regions[n].routines) calls.push_back({routine, nullptr, x.first, x.t});
        calls.push_back({sub_regions[n].routines[0], nullptr, x.first * 1.0001, x.t});
        const double p = n == 2 ? ktl_a3(x.first, x.t) : x.first;
        calls.push_back({nullptr, ktlrpt, p, x.t});
        calls.push_back({nullptr, ktlrph, p, random.between(500.0, 3500.0)});
        calls.push_back({nullptr, ktlrtx, x.t, random.between(0.0, 1.0)});
    }
    return calls;
}

/// Bits of every call, the order drawn from a seed; 0 keeps it.
std::vector<Bits> all_bits(const std::vector<Call>& calls, std::uint64_t seed) {
    std::vector<std::size_t> order(calls.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    Random random(seed);
    for (std::size_t i = order.size(); seed != 0 && i > 1; --i)
        std::swap(order[i - 1], order[random.below(static_cast<unsigned>(i))]);
    std::vector<Bits> bits(calls.size());
    for (const std::size_t i : order) bits[i] = bits_of(calls[i]);
    return bits;
}

/// Neither the order of calls nor other threads change a bit.
TEST(Threads, SameBitsAsOneThread) {
    Reports unit6;
    Reports unit13(13);
    const auto calls = mixed_calls();
    const auto wanted = all_bits(calls, 0);
    EXPECT_TRUE(all_bits(calls, 9) == wanted);
    std::array<std::vector<Bits>, 8> found;
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < found.size(); ++i)
            threads.emplace_back([&, i] { found[i] = all_bits(calls, i + 1); });
    }
    for (const auto& bits : found) EXPECT_TRUE(bits == wanted);
}

TEST(Threads, RecordsStartEmpty) {
    comt1(100.0, 200.0);
    psl1(100.0);
    std::jthread([] {
        for (const double value : {ktl_cu.p, ktl_cu.t, ktl_cu.v, ktl_nt.dpdt}) EXPECT_EQ(value, 0.0);
        comt1(100.0, 200.0);
        EXPECT_EQ(ktl_cu.p, 100.0) << "the first call computes, whatever other threads hold";
    }).join();
}

/// The first call of a thread computes and reports, whatever it is asked; -999 is a common mark of missing values.
TEST(Threads, FirstCallComputes) {
    Reports reports;
    for (const auto& r : sub_regions)
        for (const auto routine : r.routines)
            for (const State& x : {State{r.inside.first, -999.0}, State{-999.0, r.inside.t}, State{-999.0, -999.0}})
                std::jthread([&] {
                    const double first = routine(x.first, x.t);
                    const auto lines = reports.lines();
                    EXPECT_GT(lines.size(), 0U);
                    r.prepare(r.inside.first, r.inside.t);
                    EXPECT_TRUE(same(first, routine(x.first, x.t))) << x.first << ", " << x.t;
                    EXPECT_EQ(lines, reports.lines());
                }).join();
}

TEST(Threads, ReportsAreCountedAndWhole) {
    constexpr int each = 500;
    Reports reports;
    ktlerr.ientry = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 8; ++i)
            threads.emplace_back([i] {
                for (int n = 0; n < each; ++n) ktler("TEST  ", 12, i, n);
            });
    }
    EXPECT_EQ(ktlerr.ientry, 8 * each);
    std::map<std::string, int> seen;
    for (const auto& line : reports.lines()) ++seen[line.substr(0, 40) + line.substr(71)];
    EXPECT_EQ(seen.size(), 8U);
    for (const auto& [ends, count] : seen) EXPECT_EQ(count, each) << ends;
}

} // namespace
