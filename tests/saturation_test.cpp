// The saturation line: its end, its inverses, and the odd ways of ktl_tp.
#include "front/constants.hpp"

#include "support/compare.hpp"
#include "support/random.hpp"
#include "support/reports.hpp"

#include <cmath>
#include <ktl/ktlftn.h>
#include <limits>

namespace {

using namespace ktl::test;
using ktl::ktl_lc;
using Lines = std::vector<std::string>;
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Saturation, EndsAtTheCriticalPoint) {
    Reports reports;
    EXPECT_EQ(ktl_pt(374.15), 221.2);
    EXPECT_EQ(psl1(374.15), 221.2);
    EXPECT_EQ(reports.count(), 0U);

    ktl_nt.dpdt = 1.5;
    EXPECT_EQ(ktl_pt(300.0), psl1(300.0));
    const double slope = ktl_nt.dpdt;
    EXPECT_NE(slope, 1.5);
    EXPECT_EQ(ktl_pt(374.16), 0.0);
    EXPECT_EQ(psl1(374.16), 0.0);
    EXPECT_EQ(ktl_nt.dpdt, slope) << "above the end psl1 keeps the slope";
    const std::string line = " *** KTLFTN-ERROR: Out of range, T=  3.74160000E+02 ***";
    EXPECT_EQ(reports.lines(), (Lines{line, line}));
    EXPECT_EQ(ktl_pt(infinity), 0.0);
    EXPECT_TRUE(std::isnan(ktl_pt(std::nan(""))));
    EXPECT_EQ(reports.count(), 1U) << "a not-a-number is not reported";
}

/// The slope kept is 647.3/80.3334 times the slope in bar/K.
TEST(Saturation, SlopeScale) {
    for (const double t : {0.01, 100.0, 250.0, 374.0}) {
        psl1(t);
        const double h = 1e-3;
        const double slope = (ktl_pt(t + h) - ktl_pt(t - h)) / (2.0 * h);
        EXPECT_TRUE(close(named("dpdt at ", t), ktl_nt.dpdt, slope * 647.3 / 80.3334, 1e-7));
    }
}

TEST(Saturation, InverseByBracketing) {
    Reports reports;
    Random random(21);
    for (int i = 0; i < 2000; ++i) {
        const double t = random.between(ktl_lc.tmin, ktl_lc.tc);
        // p is found to 1e-12 of itself; d ln p / dt lies above 0.01/K.
        EXPECT_TRUE(within("ktl_it", ktl_it(ktl_pt(t)), t, 2e-10));
        const double p = ktl_lc.pmin * std::pow(ktl_lc.pca / ktl_lc.pmin, random.between(0.0, 1.0));
        EXPECT_TRUE(close("ktl_pt of ktl_it", ktl_pt(ktl_it(p)), p, 2e-12));
    }
    EXPECT_EQ(ktl_it(221.2), 374.15);
    EXPECT_TRUE(within("ktl_it(1.01325)", ktl_it(1.01325), 100.0, 0.01));
    EXPECT_EQ(reports.count(), 0U);
}

/// Out of its range the search runs all the same, on 0.01 to 374.15 degC. Without a change of sign its steps leave
/// the interval: above 221.2 bar the line has ended there, each trial is reported, and the search ends at no number.
TEST(Saturation, InverseOutOfRange) {
    struct Row {
        double p;
        const char* line; // nullptr: not reported
        bool finite;
    };
    const double just_above = std::nextafter(221.2, 300.0);
    Reports reports;
    for (const auto& [p, line, finite] :
         {Row{300.0, " *** KTLFTN-ERROR: Out of range, P=  3.00000000E+02 ***", false},
          Row{just_above, " *** KTLFTN-ERROR: Out of range, P=  2.21200000E+02 ***", true},
          Row{0.006, " *** KTLFTN-ERROR: Out of range, P=  6.00000000E-03 ***", true},
          Row{0.0, " *** KTLFTN-ERROR: Out of range, P=  0.00000000E+00 ***", true},
          Row{-1.0, " *** KTLFTN-ERROR: Out of range, P= -1.00000000E+00 ***", false},
          Row{infinity, " *** KTLFTN-ERROR: Out of range, P=        Infinity ***", false},
          Row{ktl_lc.pmin, nullptr, true}, Row{std::nan(""), nullptr, false}}) {
        ktl_nt.dpdt = 2.5;
        const double t = ktl_it(p);
        const auto lines = reports.lines();
        EXPECT_EQ(lines.empty() ? "" : lines.front(), line != nullptr ? line : "") << p;
        EXPECT_LE(lines.size(), 82U) << "one for P and one for each trial";
        EXPECT_EQ(ktl_nt.dpdt, 2.5);
        EXPECT_EQ(std::isfinite(t), finite) << p << " gave " << t;
    }
}

TEST(Saturation, InverseByCorrection) {
    Reports reports;
    const int before = ktlerr.ientry;
    EXPECT_EQ(ktl_tp(221.2), 374.15);
    EXPECT_EQ(reports.count(), 0U);

    EXPECT_EQ(ktl_tp(221.3), 0.0);
    EXPECT_EQ(reports.lines(), Lines{" *** KTLFTN-ERROR: Out of range, P=  2.21300000E+02 ***"});
    EXPECT_EQ(ktlerr.ientry, before + 1);

    // The start lies at absolute zero, where the pressure and its slope vanish: the first correction is infinite.
    for (const double p : {0.01, 1.0, 100.0, 200.0, 221.0}) {
        const int counted = ktlerr.ientry;
        EXPECT_EQ(ktl_tp(p), infinity);
        const auto lines = reports.lines();
        ASSERT_EQ(lines.size(), 30U);
        for (std::size_t i = 0; i < 29; ++i)
            EXPECT_EQ(lines[i], " *** KTLFTN-ERROR: Out of range, T=        Infinity ***");
        EXPECT_EQ(lines[29].substr(0, 35), " *** KTLFTN-ERROR: Non converg., P=");
        EXPECT_EQ(ktlerr.ientry, counted + 30);
        EXPECT_EQ(ktl_nt.dpdt, 0.0);
    }
    EXPECT_EQ(ktl_tp(1.0), infinity);
    EXPECT_EQ(reports.lines().back(), " *** KTLFTN-ERROR: Non converg., P=  1.00000000E+00 ***");
}

} // namespace
