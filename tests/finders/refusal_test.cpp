// Pairs that name no state, numbers that are none, and the lines written about them.
#include "found.hpp"

#include "support/compare.hpp"
#include "support/pairs.hpp"
#include "support/reports.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace ktl::test;
constexpr double infinity = std::numeric_limits<double>::infinity();
const double quiet_nan = std::nan("");

/// Every finder except those with given steps.
std::vector<PairRow> searching_finders() {
    std::vector<PairRow> out;
    std::copy_if(pairs.begin(), pairs.end(), std::back_inserter(out),
                 [](const PairRow& r) { return !r.given_steps(); });
    return out;
}

bool same(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }

TEST(Refusal, NumbersOutsideEveryRangeLeaveBothArguments) {
    const std::vector<double> odd{quiet_nan, infinity, -infinity, std::numeric_limits<double>::max(),
                                  -1e300,    1e-300,   -1e-300,   std::numeric_limits<double>::denorm_min()};
    // Every finder takes the two ordinary values in some order; none of the odd ones is within any range, except
    // that next to nothing is a good entropy or energy.
    const std::vector<double> ordinary{0.5, 1.0, 5.0, 100.0, 2800.0};
    Reports reports;
    for (const PairRow& finder : searching_finders())
        for (const double a : odd)
            for (const double b : ordinary)
                for (const bool first : {true, false}) {
                    if (std::fabs(a) < 1e-200) continue;
                    const double x = first ? a : b;
                    const double y = first ? b : a;
                    const Found f = find(finder.find, x, y);
                    EXPECT_EQ(f.region, KTL_NO_STATE) << finder.finder << ' ' << x << ' ' << y;
                    EXPECT_TRUE(same(f.first, x) && same(f.second, y)) << finder.finder << ' ' << x << ' ' << y;
                }
}

TEST(Refusal, TinyNumbersGiveAFiniteStateOrNone) {
    Reports reports;
    for (const PairRow& finder : searching_finders())
        for (const double a : {0.0, -0.0, 1e-300, -1e-300, 5e-324})
            for (const double b : {0.0, 1e-300, 0.5, 5.0, 100.0, 2800.0})
                for (const bool first : {true, false}) {
                    const Found f = find(finder.find, first ? a : b, first ? b : a);
                    EXPECT_TRUE(f.region >= KTL_WATER && f.region <= KTL_NO_STATE) << finder.finder;
                    EXPECT_TRUE(std::isfinite(f.first) && std::isfinite(f.second)) << finder.finder;
                }
}

/// A value past the end of its line by half of 1e-8 has the state at the end, past it by three times that has none.
TEST(Refusal, ValuesPastTheEndOfALine) {
    struct Row {
        ktl_finder finder;
        double line, end, beyond; // the value at the end of the line, and the direction
    };
    const Row rows[] = {{ktlrtv, 775.0, ktl_c2(1000.0, 775.0), -1e-8},
                        {ktlrps, 10.0, ktl_e2(10.0, 800.0), 1e-8},
                        {ktlrpu, 10.0, ktl_f2(10.0, 800.0), 1e-8}};
    for (const auto& [finder, line, end, beyond] : rows) {
        EXPECT_EQ(find(finder, line, end * (1.0 + 0.5 * beyond)).region, KTL_STEAM) << line;
        EXPECT_EQ(find(finder, line, end * (1.0 + 3.0 * beyond)).region, KTL_NO_STATE) << line;
    }
}

TEST(Refusal, MixturesEndAtTheCriticalTemperature) {
    // Above the greatest entropy of the quality line by 1e-9; the equations would have it at 374.17 degC.
    EXPECT_EQ(find(ktlrsx, 4.4476077357939134, 0.60653061889253723).region, KTL_NO_STATE);
}

TEST(Refusal, ToleranceIsNeverAnObstacle) {
    for (const double odd : {quiet_nan, infinity, 0.0, -1.0}) {
        double h = 3000.0;
        double s = 6.5;
        EXPECT_EQ(ktlrhs(h, s, odd), KTL_STEAM) << odd;
    }
}

TEST(Refusal, LinesOfTheFindersThatWriteThem) {
    struct Row {
        ktl_finder finder;
        double first, second;
        std::vector<std::string> lines;
    };
    const Row rows[] = {
        {ktlrth,
         100.0,
         9000.0,
         {" SUB-REGION CAN NOT BE CALCULATED IN THIS STATE  T= 1.000000000E+02 H= 9.000000000E+03"}},
        {ktlrtu, -5.0, 100.0, {" SUB-REGION CANNOT BE CALCULATED IN THIS STATE T=-5.000000000E+00 U= 1.000000000E+02"}},
        {ktlrus, 5000.0, 3.0, {" SUB-REGION CANNOT BE CALCULATED IN THIS STATE U= 0.500000000E+04 S= 0.300000000E+01"}},
        {ktlrus,
         quiet_nan,
         3.0,
         {" SUB-REGION CANNOT BE CALCULATED IN THIS STATE U=             NaN S= 0.300000000E+01"}},
        {ktlrsx, 6.0, 1.5, {" POINT IS NOT IN WET-REGION  S= 0.600000000E+01 X= 0.150000000E+01"}},
        {ktlrsx,
         -2.0,
         0.5,
         {" POINT IS NOT IN WET-REGION  S=-0.200000000E+01 X= 0.500000000E+00",
          " POINT IS BELOW CRITICAL POINT  S=-0.200000000E+01"}},
        {ktlrhs, 9000.0, 3.0, {}},
        {ktlrvs, 1e-5, 3.0, {}},
        {ktlrps, 10.0, 99.0, {}},
    };
    for (const Row& row : rows) {
        Reports reports;
        const int errors = ktlerr.ientry;
        const Found f = find(row.finder, row.first, row.second);
        EXPECT_EQ(f.region, KTL_NO_STATE);
        EXPECT_EQ(reports.lines(), row.lines);
        EXPECT_EQ(ktlerr.ientry, errors) << "the lines are not counted";
    }
}

TEST(Refusal, PropertiesOfTwoVariablesReportAndReturnZero) {
    Reports reports;
    EXPECT_EQ(ktl_hp(10.0, 100.0, eps), 0.0);
    EXPECT_EQ(ktl_ut(100.0, 99.0, eps), 0.0);
    EXPECT_EQ(reports.lines(), (std::vector<std::string>{
                                   " *** KTLFTN-ERROR: Out of range, P=  1.00000000E+01, V=  1.00000000E+02 ***",
                                   " *** KTLFTN-ERROR: Out of range, T=  1.00000000E+02, S=  9.90000000E+01 ***"}));
    EXPECT_TRUE(std::isnan(ktl_sp(quiet_nan, 0.1, eps)));
    EXPECT_TRUE(std::isnan(ktl_ht(100.0, quiet_nan, eps)));
    EXPECT_EQ(reports.count(), 0U);
}

TEST(Refusal, SearchesLeaveTheRecordsAlone) {
    comt1(10.0, 20.0);
    const ktl_cu_record before = ktl_cu;
    const int errors = ktlerr.ientry;
    Reports reports;
    for (const PairRow& finder : searching_finders()) {
        if (finder.find == ktlrsx) continue;
        for (const double a : {0.0015, 3.0, 200.0, 2800.0})
            for (const double b : {0.01, 4.0, 1500.0}) find(finder.find, a, b);
    }
    EXPECT_EQ(ktl_cu.p, before.p);
    EXPECT_EQ(ktl_cu.t, before.t);
    EXPECT_EQ(ktl_cu.v, before.v);
    EXPECT_EQ(ktlerr.ientry, errors) << "no search reports out of range";
}

} // namespace
