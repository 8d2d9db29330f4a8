// Fixed-width fields, as formatted Fortran output writes them.
#include "reports/format.hpp"

#include <climits>
#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

using ktl::reports::Line;
using Limits = std::numeric_limits<double>;

std::string real_1pe(double value, int w, int d) { return std::string(Line{}.real_1pe(value, w, d).view()); }

/// 1PE16.8, the form of the diagnostics; ties and carries as the exact binary value demands: 9.999999995 lies
/// below its tie, 1.001953125 and 1.005859375 are ties, to even.
TEST(Format, Reals) {
    struct Row {
        double value;
        const char* text;
    };
    constexpr double least = Limits::denorm_min();
    const Row rows[] = {{380.0, "  3.80000000E+02"},
                        {0.0, "  0.00000000E+00"},
                        {-0.0, " -0.00000000E+00"},
                        {1.0e-3, "  1.00000000E-03"},
                        {9.999999995, "  9.99999999E+00"},
                        {9.9999999951, "  1.00000000E+01"},
                        {1.0 + 0x1p-9, "  1.00195312E+00"},
                        {1.0 + 3 * 0x1p-9, "  1.00585938E+00"},
                        {9.99e99, "  9.99000000E+99"},
                        {-1.0e-150, " -1.00000000-150"},
                        {9.9999999999e99, "  1.00000000+100"},
                        {Limits::max(), "  1.79769313+308"},
                        {least, "  4.94065646-324"},
                        {-Limits::infinity(), "       -Infinity"},
                        {-Limits::quiet_NaN(), "             NaN"}};
    for (const auto& [value, text] : rows) EXPECT_EQ(real_1pe(value, 16, 8), text) << value;
    const Row zero_point[] = {{380.0, " 0.380000000E+03"},    {-0.0, "-0.000000000E+00"},
                              {0.01, " 0.100000000E-01"},     {0.99999999999, " 0.100000000E+01"},
                              {9.99e98, " 0.999000000E+99"},  {9.99e99, " 0.999000000+100"},
                              {1.0e-100, " 0.100000000E-99"}, {1.0e-101, " 0.100000000-100"},
                              {least, " 0.494065646-323"},    {Limits::infinity(), "        Infinity"}};
    for (const auto& [value, text] : zero_point) EXPECT_EQ(Line{}.real_e(value, 16, 9).view(), text) << value;
}

TEST(Format, NarrowFields) {
    EXPECT_EQ(real_1pe(-380.0, 16, 9), "-3.800000000E+02");
    EXPECT_EQ(real_1pe(1.0, 14, 8), "1.00000000E+00");
    EXPECT_EQ(real_1pe(-1.0, 14, 8), "**************");
    EXPECT_EQ(real_1pe(-1.0, 15, 8), "-1.00000000E+00");
    EXPECT_EQ(real_1pe(Limits::quiet_NaN(), 3, 0), "NaN");
}

TEST(Format, Integers) {
    struct Row {
        int value, width;
        const char* text;
    };
    for (const auto& [value, width, text] :
         {Row{0, 5, "    0"}, Row{99999, 5, "99999"}, Row{100000, 5, "*****"}, Row{-9999, 5, "-9999"},
          Row{-10000, 5, "*****"}, Row{INT_MIN, 11, "-2147483648"}, Row{INT_MIN, 10, "**********"}})
        EXPECT_EQ(Line{}.integer(value, width).view(), text) << value;
    EXPECT_EQ(Line{}.list_integer(7).view(), "           7");
    EXPECT_EQ(Line{}.text(std::string(200, '0')).text(std::string(200, '0')).view().size(), 256U)
        << "a line holds 256 characters and drops the rest";
}

/// A locale with a decimal comma (built beside the tests where the system has its sources) changes nothing.
TEST(Format, DecimalPointInEveryLocale) {
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) GTEST_SKIP() << "no locale with a decimal comma here";
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(real_1pe(380.5, 16, 8), "  3.80500000E+02");
    std::setlocale(LC_ALL, "C");
}

} // namespace
