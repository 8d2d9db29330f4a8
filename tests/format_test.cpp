// Fixed-width fields, as formatted Fortran output writes them.
#include "front/format.hpp"

#include <climits>
#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

using ktl::front::Line;
using Limits = std::numeric_limits<double>;

enum class Form { p1_16_8, p1_16_9, e_16_9 };

std::string field(double value, Form form) {
    Line line;
    switch (form) {
    case Form::p1_16_8: line.real_1pe(value, 16, 8); break;
    case Form::p1_16_9: line.real_1pe(value, 16, 9); break;
    case Form::e_16_9: line.real_e(value, 16, 9); break;
    }
    return std::string(line.view());
}

TEST(Format, Reals) {
    struct Row {
        double value;
        Form form;
        const char* text;
    };
    const Row rows[] = {{380.0, Form::p1_16_8, "  3.80000000E+02"},
                        {0.0, Form::p1_16_8, "  0.00000000E+00"},
                        {-0.0, Form::p1_16_8, " -0.00000000E+00"},
                        {-1.5, Form::p1_16_8, " -1.50000000E+00"},
                        {1.0e-3, Form::p1_16_8, "  1.00000000E-03"},
                        {9.999999995, Form::p1_16_8, "  9.99999999E+00"},      // the binary value lies below the tie
                        {9.9999999951, Form::p1_16_8, "  1.00000000E+01"},     // rounds up into the next decade
                        {1.000000005, Form::p1_16_8, "  1.00000000E+00"},      // below the tie
                        {1.0 + 0x1p-9, Form::p1_16_8, "  1.00195312E+00"},     // a tie, 1.001953125, to even
                        {1.0 + 3 * 0x1p-9, Form::p1_16_8, "  1.00585938E+00"}, // a tie, 1.005859375, to even
                        {9.99e99, Form::p1_16_8, "  9.99000000E+99"},
                        {1.0e100, Form::p1_16_8, "  1.00000000+100"},
                        {-1.0e-150, Form::p1_16_8, " -1.00000000-150"},
                        {9.9999999999e99, Form::p1_16_8, "  1.00000000+100"},
                        {Limits::max(), Form::p1_16_8, "  1.79769313+308"},
                        {Limits::min(), Form::p1_16_8, "  2.22507386-308"},
                        {Limits::denorm_min(), Form::p1_16_8, "  4.94065646-324"},
                        {Limits::infinity(), Form::p1_16_8, "        Infinity"},
                        {-Limits::infinity(), Form::p1_16_8, "       -Infinity"},
                        {Limits::quiet_NaN(), Form::p1_16_8, "             NaN"},
                        {-Limits::quiet_NaN(), Form::p1_16_8, "             NaN"},
                        {380.0, Form::p1_16_9, " 3.800000000E+02"},
                        {-380.0, Form::p1_16_9, "-3.800000000E+02"},
                        {-1.0e100, Form::p1_16_9, "-1.000000000+100"},
                        {380.0, Form::e_16_9, " 0.380000000E+03"},
                        {-380.0, Form::e_16_9, "-0.380000000E+03"},
                        {0.0, Form::e_16_9, " 0.000000000E+00"},
                        {-0.0, Form::e_16_9, "-0.000000000E+00"},
                        {0.1, Form::e_16_9, " 0.100000000E+00"},
                        {0.01, Form::e_16_9, " 0.100000000E-01"},
                        {0.99999999999, Form::e_16_9, " 0.100000000E+01"},
                        {9.99e98, Form::e_16_9, " 0.999000000E+99"},
                        {9.99e99, Form::e_16_9, " 0.999000000+100"},
                        {1.0e-100, Form::e_16_9, " 0.100000000E-99"},
                        {1.0e-101, Form::e_16_9, " 0.100000000-100"},
                        {Limits::denorm_min(), Form::e_16_9, " 0.494065646-323"},
                        {Limits::infinity(), Form::e_16_9, "        Infinity"}};
    for (const auto& [value, form, text] : rows) EXPECT_EQ(field(value, form), text) << value;
}

TEST(Format, FieldsTooNarrow) {
    const auto narrow = [](double value, int w, int d) { return std::string(Line{}.real_1pe(value, w, d).view()); };
    EXPECT_EQ(narrow(1.0, 14, 8), "1.00000000E+00");
    EXPECT_EQ(narrow(-1.0, 14, 8), "**************");
    EXPECT_EQ(narrow(-1.0, 15, 8), "-1.00000000E+00");
    EXPECT_EQ(narrow(Limits::quiet_NaN(), 3, 0), "NaN");
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
}

/// A line holds 256 characters and drops the rest.
TEST(Format, RoomOfALine) {
    Line line;
    for (int i = 0; i < 20; ++i) line.text("0123456789ABCDEF");
    EXPECT_EQ(line.view().size(), 256U);
}

/// A locale with a decimal comma (built beside the tests where the system has its sources) changes nothing.
TEST(Format, DecimalPointInEveryLocale) {
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) GTEST_SKIP() << "no locale with a decimal comma here";
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(field(380.5, Form::p1_16_8), "  3.80500000E+02");
    std::setlocale(LC_ALL, "C");
}

} // namespace
