// Which state the finders choose where a pair has several, or lies between two sub-regions.
#include "found.hpp"

#include "searches/state.hpp"
#include "support/compare.hpp"
#include "support/reports.hpp"

#include <cmath>
#include <string>

namespace {

using namespace ktl::test;

TEST(Choice, ColdWaterByVolumeIsTheWarmerOne) {
    // Water at 10 bar is densest near 4.5 degC; it has the same volume at 1 and at about 8 degC.
    const double v = ktl_c1(10.0, 1.0);
    const Found f = find(ktlrpv, 10.0, v);
    EXPECT_EQ(f.region, KTL_WATER);
    EXPECT_GT(f.second, 6.0);
    EXPECT_LT(f.second, 9.0);
    EXPECT_TRUE(close("volume", ktl_c1(f.first, f.second), v, 1e-12));
}

TEST(Choice, ColdWaterGoesBeforeAMixtureOfNoSteam) {
    // Saturated at 2 degC: water at 1 degC has a volume that a mixture of quality 3e-10 has too.
    const double p = ktl_pt(2.0);
    const double v = ktl_c1(p, 1.0);
    const Found f = find(ktlrpv, p, v);
    EXPECT_EQ(f.region, KTL_WATER);
    EXPECT_TRUE(within("temperature", f.second, 1.0, 1e-6));
}

TEST(Choice, MixturesOfNearlyNoWaterAreNotSteam) {
    // Steam has the values within the tolerance of the finders too, at a pressure 1e-7 past the saturation line.
    const double p = 86.305388914375698;
    const double x = 0.99999990770580915;
    const double v = 0.021537205161958162;
    const double h = 2750.4427516518217;
    const double s = 5.7056689006467582;
    const double u = 2564.5650648886713;
    const struct {
        const char* what;
        ktl_finder finder;
        double first, second;
    } rows[] = {
        {"hs", ktlrhs, h, s}, {"us", ktlrus, u, s}, {"vh", ktlrvh, v, h}, {"vs", ktlrvs, v, s}, {"vu", ktlrvu, v, u}};
    for (const auto& row : rows) {
        const Found f = find(row.finder, row.first, row.second);
        EXPECT_EQ(f.region, KTL_WET) << row.what;
        EXPECT_TRUE(within(row.what, f.first, x, 1e-9)) << row.what;
        EXPECT_TRUE(within(row.what, ktl_pt(f.second), p, 1e-6)) << row.what;
    }
}

TEST(Choice, IsothermsGiveTheLowestPressure) {
    struct Row {
        const char* what;
        ktl_finder finder;
        double t, value;
        int region;
        double lowest, highest; // pressure, or quality of a mixture
    };
    // At 320 degC the enthalpy of water falls from saturation (112.9 bar) to about 820 bar, then rises.
    const double h320 = ktl_d1(200.0, 320.0);
    const double h400 = ktl_d3(0.00160, 400.0); // supercritical: dense water has it at two pressures
    const Row rows[] = {
        {"hot water", ktlrth, 320.0, h320, KTL_WATER, 199.999, 200.001},
        {"its other pressure", ktlrth, 320.0, ktl_d1(900.0, 320.0), KTL_WATER, 113.0, 820.0},
        {"mixture before compressed water", ktlrth, 100.0, ktl_d1(145.0, 100.0), KTL_WET, 0.001, 0.02},
        {"water before a mixture of no steam", ktlrth, 100.0, ktl_d1(1.02, 100.0), KTL_WATER, 1.0199, 1.0201},
        {"entropy of water below 4 degC", ktlrts, 1.0, ktl_e1(10.0, 1.0), KTL_WET, 1e-06, 1e-4},
        {"near the critical temperature", ktlrth, 400.0, h400, KTL_NEAR_CRITICAL_STEAM, 0.0, 1000.0},
    };
    for (const Row& row : rows) {
        const Found f = find(row.finder, row.t, row.value);
        EXPECT_EQ(f.region, row.region) << row.what;
        const double first = f.region == KTL_NEAR_CRITICAL_STEAM ? ktl_a3(f.first, f.second) : f.first;
        EXPECT_GE(first, row.lowest) << row.what;
        EXPECT_LE(first, row.highest) << row.what;
    }
}

TEST(Choice, QualityLinesGiveTheLowestTemperature) {
    // Entropy at quality 0.45 rises, falls and rises: three temperatures for values between its turning points.
    const auto entropy = [](double t, double x) {
        const double p = ktl_pt(t);
        return ktl_e1(p, t) + x * (ktl_e2(p, t) - ktl_e1(p, t));
    };
    int turns = 0;
    double s_several = 0.0;
    for (double t = 2.0; t < 348.0; t += 1.0) {
        if ((entropy(t, 0.45) - entropy(t - 1.0, 0.45)) * (entropy(t + 1.0, 0.45) - entropy(t, 0.45)) >= 0.0) continue;
        ++turns;
        if (turns == 1)
            s_several = 0.5 * (entropy(t, 0.45) + std::fmin(entropy(t + 20.0, 0.45), entropy(t - 20.0, 0.45)));
    }
    ASSERT_GE(turns, 1);
    const Found f = find(ktlrsx, s_several, 0.45);
    ASSERT_EQ(f.region, KTL_WET);
    EXPECT_EQ(f.first, 0.45);
    EXPECT_TRUE(close("entropy", entropy(f.second, 0.45), s_several, 1e-12));
    const double sign = entropy(0.01, 0.45) - s_several;
    for (double t = 0.01; t < f.second - 0.1; t += 0.1)
        EXPECT_GT((entropy(t, 0.45) - s_several) * sign, 0.0) << "a lower temperature has it: " << t;
}

TEST(Choice, QualityLinesIncludeTheirLimits) {
    // One last digit above the entropy at 0.01 degC, from where it falls; and the entropy at 350 degC, to which it falls
    // from a maximum that it reaches rising.
    const auto entropy = [](double t, double x) {
        const double p = ktl_pt(t);
        return ktl_e1(p, t) + x * (ktl_e2(p, t) - ktl_e1(p, t));
    };
    const double x = 0.38333359913406817;
    EXPECT_EQ(find(ktlrsx, std::nextafter(entropy(0.01, x), 10.0), x).second, 0.01);
    EXPECT_EQ(find(ktlrsx, entropy(350.0, 0.48), 0.48).second, 350.0);
    const double s = entropy(350.0, 0.4875);
    const double rising = find(ktlrsx, s, 0.4875).second;
    EXPECT_LT(rising, 340.0);
    EXPECT_TRUE(close("entropy", entropy(rising, 0.4875), s, 1e-12));
}

/// The saturated volumes of the entry are other roots of the pressure from 373.117 degC on, and from 374.14966 degC on the
/// critical volume: the search ends its parts there.
TEST(Choice, EntryPhasesChangeRoot) {
    const auto at = [](double t) { return ktl::saturated_at<double>(t, ktl::SaturationModel::entry_compatible); };
    const double steam = 373.1170218536476;
    EXPECT_GT(at(steam).vapour - at(std::nextafter(steam, 400.0)).vapour, 7e-4);
    const double both = 374.14965914868071;
    EXPECT_LT(at(both).liquid, 0.0031525);
    EXPECT_EQ(at(std::nextafter(both, 400.0)).liquid, ktl::ktl_lc.vca);
    EXPECT_EQ(at(std::nextafter(both, 400.0)).vapour, ktl::ktl_lc.vca);
}

/// Entropy jumps up by 1e-4 at 350 degC and volume at 200 bar by 2e-7: between both sides sub-region 1 goes on.
/// On the 2/3 boundary at 420 degC (287.45 bar) sub-region 3 begins above sub-region 2 in enthalpy, at 351 degC
/// below it.
TEST(Gaps, SubRegionsOneAndTwoCarryOn) {
    const double p420 = ktl::boundary_pressure(420.0);
    const double p351 = ktl::boundary_pressure(351.0);
    struct Row {
        const char* what;
        ktl_finder finder;
        double first, second;
        int region;
    };
    const Row rows[] = {
        {"entropy at 300 bar", ktlrps, 300.0, ktl_e1(300.0, 350.0) + 5e-5, KTL_WATER},
        {"volume at 200 bar", ktlrpv, 200.0, ktl_c1(200.0, 350.0) * (1.0 + 6e-5), KTL_WATER},
        {"entropy at the boundary, 351 degC", ktlrps, p351, ktl_e2(p351, 351.0) - 1.5e-4, KTL_STEAM},
        {"enthalpy on the isotherm 351 degC", ktlrth, 351.0, ktl_d2(p351, 351.0) - 0.02, KTL_STEAM},
        {"overlap at the boundary, 420 degC", ktlrps, p420, ktl_e2(p420, 420.0) + 1e-4, KTL_STEAM},
    };
    for (const Row& row : rows) {
        Reports reports;
        const Found f = find(row.finder, row.first, row.second);
        EXPECT_EQ(reports.count(), 0U) << row.what;
        EXPECT_EQ(f.region, row.region) << row.what;
    }
}

TEST(Gaps, BothSidesOfTheBorderHaveTheirOwnStates) {
    for (const double p : {170.0, 300.0, 500.0, 1000.0}) {
        const Found below = find(ktlrps, p, ktl_e1(p, 349.9));
        EXPECT_EQ(below.region, KTL_WATER) << p;
        const Found state = find(ktlrpt, p, 350.2);
        const Found above = find(ktlrps, p, ktl_e3(state.first, 350.2));
        EXPECT_EQ(above.region, KTL_NEAR_CRITICAL_WATER) << p;
        EXPECT_TRUE(within("temperature", above.second, 350.2, 1e-6)) << p;
    }
}

/// Half a millikelvin below the critical point the isotherm between the saturated volumes is level to 1e-7: states on it
/// are states of sub-region 3.
TEST(Choice, LevelIsothermBelowTheCriticalPoint) {
    for (const auto& [v, t] :
         {std::pair{0.00317004956, 374.14956}, {0.00316999332, 374.149064}, {0.00317847237, 374.149715}}) {
        const double s = ktl_e3(v, t);
        const double u = ktl_f3(v, t);
        const Found f = find(ktlrus, u, s);
        ASSERT_TRUE(f.region == KTL_NEAR_CRITICAL_STEAM || f.region == KTL_NEAR_CRITICAL_WATER) << t;
        EXPECT_TRUE(close("u", ktl_f3(f.first, f.second), u, 1e-8));
        EXPECT_TRUE(close("s", ktl_e3(f.first, f.second), s, 1e-8));
    }
}

TEST(TwoVariables, AreThePropertiesOfTheFoundState) {
    struct Row {
        const char* what;
        double p, t;
    };
    const Row rows[] = {{"water", 300.0, 200.0}, {"steam", 20.0, 500.0}};
    for (const Row& row : rows) {
        const bool water = row.t < 350.0;
        const double v = (water ? ktl_c1 : ktl_c2)(row.p, row.t);
        const double s = (water ? ktl_e1 : ktl_e2)(row.p, row.t);
        const double h = (water ? ktl_d1 : ktl_d2)(row.p, row.t);
        const double u = (water ? ktl_f1 : ktl_f2)(row.p, row.t);
        EXPECT_TRUE(close(named(row.what, " ktl_sp"), ktl_sp(row.p, v, eps), s, 1e-11));
        EXPECT_TRUE(close(named(row.what, " ktl_hp"), ktl_hp(row.p, v, eps), h, 1e-11));
        EXPECT_TRUE(close(named(row.what, " ktl_up"), ktl_up(row.p, v, eps), u, 1e-11));
        EXPECT_TRUE(close(named(row.what, " ktl_ht"), ktl_ht(row.t, s, eps), h, 1e-11));
        EXPECT_TRUE(close(named(row.what, " ktl_ut"), ktl_ut(row.t, s, eps), u, 1e-11));
    }
    // Half of each phase at 200 degC, and sub-region 3.
    const double ps = ktl_pt(200.0);
    const double v = 0.5 * (ktl_c1(ps, 200.0) + ktl_c2(ps, 200.0));
    const double s = 0.5 * (ktl_e1(ps, 200.0) + ktl_e2(ps, 200.0));
    const double h = 0.5 * (ktl_d1(ps, 200.0) + ktl_d2(ps, 200.0));
    EXPECT_TRUE(close("mixture ktl_hp", ktl_hp(ps, v, eps), h, 1e-9));
    EXPECT_TRUE(close("mixture ktl_ht", ktl_ht(200.0, s, eps), h, 1e-9));
    EXPECT_TRUE(close("sub-region 3 ktl_sp", ktl_sp(ktl_a3(0.0025, 400.0), 0.0025, eps), ktl_e3(0.0025, 400.0), 1e-11));
    EXPECT_TRUE(close("sub-region 3 ktl_ut", ktl_ut(400.0, ktl_e3(0.0025, 400.0), eps), ktl_f3(0.0025, 400.0), 1e-11));
}

} // namespace
