// Reports, their counting, the stop at the error limit, and the output units.
#include "support/reports.hpp"

#include <array>
#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace ktl::test;
using Lines = std::vector<std::string>;

TEST(Diagnostics, LineOfEachCode) {
    struct Row {
        int code;
        double a, b;
        const char* line;
    };
    constexpr double huge = 1.0e100;
    const Row rows[] = {
        {2, 380.0, 0.0, " *** KTLFTN-ERROR: Out of range, T=  3.80000000E+02 ***"},
        {12, 1000.5, -3.0, " *** KTLFTN-ERROR: Out of range, P=  1.00050000E+03, T= -3.00000000E+00 ***"},
        {-13, 10.0, 2500.0, " *** KTLFTN-ERROR: Non converg., P=  1.00000000E+01, H=  2.50000000E+03 ***"},
        {42, 0.01, 600.0, " *** KTLFTN-ERROR: Out of range, V=  1.00000000E-02, T=  6.00000000E+02 ***"},
        {-1, huge, 0.0, " *** KTLFTN-ERROR: Non converg., P=  1.00000000+100 ***"},
        {5, -0.0, 1.0, " *** KTLFTN-ERROR: Out of range, S= -0.00000000E+00 ***"},
        {55, std::nan(""), HUGE_VAL, " *** KTLFTN-ERROR: Out of range, S=             NaN, S=        Infinity ***"},
        // No label for 0 and for digits above 5: nobody passes them, and nothing is read out of bounds.
        {0, 1.0, 2.0, " *** KTLFTN-ERROR: Out of range, ?=  1.00000000E+00 ***"},
        {10, 1.0, 2.0, " *** KTLFTN-ERROR: Out of range, P=  1.00000000E+00, ?=  2.00000000E+00 ***"},
        {6, 1.0, 2.0, " *** KTLFTN-ERROR: Out of range, ?=  1.00000000E+00 ***"},
        {INT_MIN, 1.0, 2.0, " *** KTLFTN-ERROR: Non converg., ?=  1.00000000E+00, ?=  2.00000000E+00 ***"}};
    Reports reports;
    int counted = ktlerr.ientry;
    for (const auto& [code, a, b, line] : rows) {
        ktler("TEST  ", code, a, b);
        EXPECT_EQ(reports.lines(), Lines{line}) << code;
        EXPECT_EQ(ktlerr.ientry, ++counted);
    }
    ktler(nullptr, 2, 1.0, 0.0); // the name is not read
    EXPECT_EQ(reports.count(), 1U);
    ktlerr.ientry = 0;
    ktlerr.nprer = 3;
    for (int i = 0; i < 5; ++i) ktler("TEST  ", 1, 1.0, 0.0);
    EXPECT_EQ(reports.count(), 3U) << "the third error is still printed";
    EXPECT_EQ(ktlerr.ientry, 5);
}

TEST(Diagnostics, UnitOfTheRecord) {
    EXPECT_EQ(ktlerr.iunit, 6);
    EXPECT_EQ(ktlerr.nprer, 1000000);
    EXPECT_EQ(ktlerr.maxer, 1000000);
    Reports six;
    Reports twenty(20);
    ktlerr.iunit = 20;
    ktler("TEST  ", 1, 1.0, 0.0);
    double a = 0.0;
    double b = 1.0;
    ktl_i1([](const double&, const double& z) { return z <= 0.0 ? -1.0 : 1.0; }, 0.0, 0.0, a, b, 1e-8);
    EXPECT_EQ(twenty.count(), 2U) << "warnings go to the same unit";
    EXPECT_EQ(six.count(), 0U);
}

/// Reports as often as needed with the record given, its unit being standard error.
void report_until_stop(ktlerr_record record, int times) {
    ktl_connect_unit(6, stderr);
    ktlerr = record;
    for (int i = 0; i < times; ++i) ktler("TEST  ", 1, 2.0, 0.0);
    std::_Exit(77); // not reached where the program stops
}

TEST(DiagnosticsDeathTest, StopsPastTheLimit) {
    const std::string line = " \\*\\*\\* KTLFTN-ERROR: Out of range, P=  2.00000000E\\+00 \\*\\*\\*\n";
    const std::string stop = "\n Execution inhibited due to KTLFTN-ERROR count!\n Number of diagnosed errors: ";
    struct Row {
        ktlerr_record record;
        int times;
        std::string text;
    };
    const Row rows[] = {{{6, 0, 2, 0}, 3, "^" + stop + "    3\n\n$"},
                        {{6, 1000000, 2, 0}, 3, "^" + line + line + line + stop + "    3\n\n$"},
                        {{6, 1, 2, 0}, 3, "^" + line + stop + "    3\n\n$"},
                        {{6, 1000000, 0, 0}, 1, "^" + line + stop + "    1\n\n$"},
                        {{6, 0, 99998, 99998}, 1, "^" + stop + "99999\n\n$"},
                        {{6, 0, 99999, 99999}, 1, "^" + stop + "\\*\\*\\*\\*\\*\n\n$"},
                        // The error after the millionth, with the limits as they are at the start.
                        {{6, 1000000, 1000000, 1000000}, 1, "^" + stop + "\\*\\*\\*\\*\\*\n\n$"},
                        {{6, 1000000, 1000000, 999999}, 2, "^" + line + stop + "\\*\\*\\*\\*\\*\n\n$"}};
    for (const auto& [record, times, text] : rows)
        EXPECT_EXIT(report_until_stop(record, times), ::testing::ExitedWithCode(0), text);
    // The last error tolerated does not stop.
    EXPECT_EXIT(report_until_stop({6, 0, 2, 0}, 2), ::testing::ExitedWithCode(77), "^$");
}

/// A report from a handler that runs at the end does not stop the program twice.
TEST(DiagnosticsDeathTest, ReportWhileStopping) {
    const auto run = [] {
        std::atexit([] { ktler("TEST  ", 1, 3.0, 0.0); });
        report_until_stop({6, 0, 0, 0}, 1);
    };
    EXPECT_EXIT(run(), ::testing::ExitedWithCode(0), "errors:     1\n\n\n.*\n.*errors:     2\n\n$");
}

TEST(Units, UnconnectedUnits) {
    ::testing::internal::CaptureStderr();
    ::testing::internal::CaptureStdout();
    const auto before = ktlerr;
    for (const int unit : {6, 0, 13, -5, INT_MIN}) {
        ktlerr.iunit = unit;
        ktler("TEST  ", 1, unit, 0.0);
    }
    ktlerr = before;
    std::fflush(stdout);
    const std::string out = ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(out, " *** KTLFTN-ERROR: Out of range, P=  6.00000000E+00 ***\n");
    const std::string err = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(err.size(), 4 * out.size());
}

TEST(Units, ConnectReplaceDisconnect) {
    Reports first(40);
    {
        Reports second(40); // replaces the stream, then disconnects it
        ktlerr.iunit = 40;
        ktler("TEST  ", 1, 1.0, 0.0);
        EXPECT_EQ(second.count(), 1U);
        EXPECT_EQ(first.count(), 0U);
    }
    EXPECT_EQ(ktl_connect_unit(40, nullptr), 1) << "an unconnected unit may be disconnected";
}

TEST(Units, ThirtyTwoAtMost) {
    Reports kept(100);
    for (int unit = 101; unit <= 131; ++unit) EXPECT_EQ(ktl_connect_unit(unit, stderr), 1);
    EXPECT_EQ(ktl_connect_unit(200, stderr), 0) << "a thirty-third";
    EXPECT_EQ(ktl_connect_unit(101, stdout), 1) << "a known one may change its stream";
    EXPECT_EQ(ktl_connect_unit(115, nullptr), 1);
    {
        Reports again(200); // a place became free
        for (const int unit : {200, 100}) {
            ktlerr.iunit = unit;
            ktler("TEST  ", 1, 1.0, 0.0);
        }
        EXPECT_EQ(again.count(), 1U);
        EXPECT_EQ(kept.count(), 1U);
    }
    for (int unit = 101; unit <= 131; ++unit) EXPECT_EQ(ktl_connect_unit(unit, nullptr), 1);
}

/// Lines that a writer was handed, as "unit:text" with a bar behind each; unit 50 it refuses.
std::string handed;
int keep_line(int unit, const char* text, std::size_t length) {
    if (unit == 50) return 0;
    handed += std::to_string(unit) + ":" + std::string(text, length) + "|";
    return 1;
}

TEST(Units, WriterOfUnconnectedUnits) {
    const std::string line = " *** KTLFTN-ERROR: Out of range, P=  1.00000000E+00 ***";
    const auto report_on = [](int unit) {
        ktlerr.iunit = unit;
        ktler("TEST  ", 1, 1.0, 0.0);
    };
    Reports connected(40);
    handed.clear();
    EXPECT_EQ(ktl_set_line_writer(keep_line), nullptr);
    report_on(6);
    report_on(40);
    report_on(-3);
    EXPECT_EQ(handed, "6:" + line + "|-3:" + line + "|");
    EXPECT_EQ(connected.count(), 1U) << "a connected unit stays connected";
    ::testing::internal::CaptureStderr();
    report_on(50);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), line + "\n") << "refused: as without a writer";
    EXPECT_EQ(ktl_set_line_writer(nullptr), keep_line);
    ::testing::internal::CaptureStderr();
    report_on(51);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), line + "\n");
}

} // namespace
