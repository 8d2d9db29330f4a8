// The saturation line: its end, its inverses, and the odd ways of ktl_tp.
#include "regions/constants.hpp"

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

std::string line_of(const char* value) { return std::string(" *** KTLFTN-ERROR: Out of range, ") + value + " ***"; }

TEST(Saturation, EndsAtTheCriticalPoint) {
    Reports reports;
    EXPECT_EQ(ktl_pt(374.15), 221.2);
    EXPECT_EQ(psl1(374.15), 221.2);
    EXPECT_EQ(ktl_tp(221.2), 374.15);
    EXPECT_EQ(reports.count(), 0U);

    ktl_nt.dpdt = 1.5;
    ktl_pt(300.0);
    EXPECT_EQ(ktl_pt(374.16), 0.0);
    EXPECT_EQ(psl1(374.16), 0.0);
    EXPECT_EQ(ktl_nt.dpdt, 1.5) << "ktl_pt, and psl1 above the end, keep the slope";
    EXPECT_EQ(reports.lines(), Lines(2, line_of("T=  3.74160000E+02")));
    // At absolute zero, and where the products of the equation overflow, too.
    EXPECT_EQ(ktl_pt(-273.15), 0.0);
    EXPECT_EQ(psl1(-273.15), 0.0);
    EXPECT_EQ(ktl_pt(-1e63), infinity);
    EXPECT_TRUE(std::isnan(ktl_pt(std::nan(""))));
    EXPECT_EQ(reports.count(), 0U) << "a not-a-number is not reported";
}

TEST(Saturation, InverseByBracketing) {
    Reports reports;
    Random random(21);
    for (int i = 0; i < 2000; ++i) {
        const double t = random.between(ktl_lc.tmin, ktl_lc.tc);
        // p is found to 1e-12 of itself; d ln p / dt lies above 0.01/K.
        EXPECT_TRUE(within("ktl_it", ktl_it(ktl_pt(t)), t, 2e-10));
    }
    EXPECT_EQ(ktl_it(221.2), 374.15);
    EXPECT_EQ(reports.count(), 0U);
}

/// Out of its range the search runs all the same, on 0.01 to 374.15 degC. Without a change of sign its steps leave
/// the interval: above 221.2 bar the line has ended there, each trial is reported, and the search ends at no number.
TEST(Saturation, InverseOutOfRange) {
    struct Row {
        double p;
        std::string line;
        bool finite;
    };
    const Row rows[] = {{300.0, line_of("P=  3.00000000E+02"), false},
                        {std::nextafter(221.2, 300.0), line_of("P=  2.21200000E+02"), true},
                        {0.006, line_of("P=  6.00000000E-03"), true},
                        {-1.0, line_of("P= -1.00000000E+00"), false},
                        {infinity, line_of("P=        Infinity"), false},
                        {ktl_lc.pmin, "", true},
                        {std::nan(""), "", false}};
    Reports reports;
    for (const auto& [p, line, finite] : rows) {
        const double t = ktl_it(p);
        const auto lines = reports.lines();
        EXPECT_EQ(lines.empty() ? "" : lines.front(), line) << p;
        EXPECT_LE(lines.size(), 82U) << "one for P and one for each trial";
        EXPECT_EQ(std::isfinite(t), finite) << p << " gave " << t;
    }
}

/// The start lies at absolute zero, where the pressure and its slope vanish: the first correction is infinite.
TEST(Saturation, InverseByCorrection) {
    Reports reports;
    EXPECT_EQ(ktl_tp(221.3), 0.0);
    EXPECT_EQ(reports.lines(), Lines{line_of("P=  2.21300000E+02")});
    Lines wanted(30, line_of("T=        Infinity"));
    wanted.back() = " *** KTLFTN-ERROR: Non converg., P=  1.00000000E+00 ***";
    for (const double p : {0.01, 100.0, 200.0, 221.0, 1.0}) {
        const int counted = ktlerr.ientry;
        EXPECT_EQ(ktl_tp(p), infinity);
        EXPECT_EQ(ktlerr.ientry, counted + 30);
        EXPECT_EQ(ktl_nt.dpdt, 0.0);
        const auto lines = reports.lines();
        EXPECT_EQ(lines.front(), wanted.front());
        EXPECT_TRUE(p != 1.0 || lines == wanted);
    }
}

} // namespace
