// The entry ktlftn with a stub in place of the finder: the code list, its messages, and what it evaluates.
#include "support/compare.hpp"
#include "support/reports.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <ktl/ktlftn.h>
#if !defined(_WIN32)
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace {

using namespace ktl::test;
using Lines = std::vector<std::string>;

/// What the stub returns, and what it was asked.
struct Stub {
    int region = KTL_WATER;
    double first = 10.0, second = 100.0;
    std::array<double, 3> asked{};
    int calls = 0;
};
Stub stub;

int stub_finder(double& first, double& second, const double& eps) {
    stub.asked = {first, second, eps};
    ++stub.calls;
    first = stub.first;
    second = stub.second;
    return stub.region;
}

constexpr double untouched = -77.25;
constexpr std::size_t room = 10;
using Values = std::array<double, room>;

Values ask(int region, double first, double second, const char* codes) {
    stub = {.region = region, .first = first, .second = second};
    Values out;
    out.fill(untouched);
    ktlftn(stub_finder, 1.0, 2.0, codes, out.data());
    return out;
}

/// One value of a state.
double value(int region, double first, double second, const char* code) { return ask(region, first, second, code)[0]; }

const char* const wet_line = " *** KTLFTN-ERROR: CP, DV, TC cannot be calculated in wet region ***";

std::string illegal(const std::string& token) {
    return " *** KTLFTN-ERROR: illegal dependend property: " + token + " ***";
}

TEST(Entry, AsksTheFinderOnce) {
    ask(KTL_WATER, 10.0, 100.0, "P,T.");
    EXPECT_EQ(stub.calls, 1);
    EXPECT_EQ(stub.asked, (std::array{1.0, 2.0, 1e-08}));
}

/// The text, the values that follow one another (p is 10, t is 100), and the lines on unit 13.
TEST(Entry, CodeList) {
    constexpr double p = 10.0;
    constexpr double t = 100.0;
    constexpr double u = untouched;
    const std::string empty = illegal("    ");
    struct Row {
        const char* codes;
        std::vector<double> values;
        Lines lines;
    };
    const Row rows[] = {{"P,T.", {p, t}, {}},
                        {"P,T", {p, t}, {}},
                        {"T,P,T,X.", {t, p, t, 0.0}, {}},
                        {"P ,T.", {p}, {}},
                        {"P  ", {p}, {}},
                        {"P.T,T.", {p}, {}},
                        {"P\0,T.", {p}, {}},
                        {"", {u}, {empty}},
                        {".", {u}, {empty}},
                        {" P,T.", {u}, {empty}},
                        {",P.", {u, p}, {empty}},
                        {"P,", {p, u}, {empty}},
                        {",,,", {u, u, u, u}, Lines(4, empty)},
                        {"p,T.", {u, t}, {illegal("p   ")}},
                        {"ABCDE,T.", {u}, {illegal("ABCD")}},
                        {"TEMP", {u}, {illegal("TEMP")}},
                        {"PT,T.", {u, t}, {illegal("PT  ")}},
                        {"P\t,T.", {u, t}, {illegal("P\t  ")}},
                        {"\xC3\x96,T.", {u, t}, {illegal("\xC3\x96  ")}},
                        {nullptr, {u}, {empty}}};
    Reports unit13(13);
    Reports unit6;
    const int counted = ktlerr.ientry;
    for (const auto& row : rows) {
        const std::string text = row.codes != nullptr ? row.codes : "(null)";
        const Values out = ask(KTL_WATER, p, t, row.codes);
        EXPECT_EQ(unit13.lines(), row.lines) << text;
        for (std::size_t i = 0; i < room; ++i)
            EXPECT_EQ(out[i], i < row.values.size() ? row.values[i] : untouched) << text << ", element " << i;
    }
    EXPECT_EQ(unit6.count(), 0U);
    EXPECT_EQ(ktlerr.ientry, counted) << "the entry's lines are not counted";
}

/// Texts that end with their last character at the end of a page: reading past it would stop the program.
#if !defined(_WIN32)
TEST(Entry, NothingReadPastTheEnd) {
    Reports unit13(13);
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* memory = mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(memory, MAP_FAILED);
    char* end = static_cast<char*>(memory) + page;
    ASSERT_EQ(mprotect(end, page, PROT_NONE), 0);
    for (const std::string text : {"P.", "P,T ", "VOLUM", "ABCDE"}) {
        std::memcpy(end - text.size(), text.data(), text.size());
        ask(KTL_WATER, 10.0, 100.0, end - text.size());
    }
    for (const std::string text : {"", "P", "P,", "ABCD"}) {
        const std::size_t size = text.size() + 1;
        std::memcpy(end - size, text.c_str(), size);
        ask(KTL_WATER, 10.0, 100.0, end - size);
    }
    munmap(memory, 2 * page);
}
#endif

TEST(Entry, IllegalRegion) {
    Reports unit13(13);
    for (const auto& [region, shown] : {std::pair{7, "           7"}, std::pair{0, "           0"},
                                        std::pair{-1, "          -1"}, std::pair{2147483647, "  2147483647"}}) {
        EXPECT_EQ(value(region, 10.0, 100.0, "P,XYZ."), untouched);
        EXPECT_EQ(unit13.lines(),
                  Lines{std::string(" *** KTLFTN-ERROR: illegal region calculated: IREG = ") + shown + " ***"});
    }
}

/// All codes in the single-phase regions, against the routines themselves.
TEST(Entry, SinglePhases) {
    constexpr const char* all = "P,T,V,H,S,X,CP,DV,TC.";
    const double t = 100.0;
    const double v1 = ktl_c1(10.0, t);
    const double lambda = ktl_cj(v1, t) * 0.001;
    EXPECT_EQ(ask(KTL_WATER, 10.0, t, all), (Values{10.0, t, v1, ktl_d1(10.0, t), ktl_e1(10.0, t), 0.0, ktl_h1(10.0, t),
                                                    ktl_ci(v1, t), lambda, untouched}));
    EXPECT_EQ(value(KTL_WATER, 10.0, t, "TC."), lambda) << "alone, too, it finds its volume";
    const double v2 = ktl_c2(1.0, t);
    EXPECT_EQ(ask(KTL_STEAM, 1.0, t, all), (Values{1.0, t, v2, ktl_d2(1.0, t), ktl_e2(1.0, t), 1.0, ktl_h2(1.0, t),
                                                   ktl_ci(v2, t), ktl_cj(v2, t) * 0.001, untouched}));
    Reports unit13(13);
    for (const auto& [region, x] : {std::pair{KTL_NEAR_CRITICAL_STEAM, 1.0}, std::pair{KTL_NEAR_CRITICAL_WATER, 0.0}})
        EXPECT_EQ(ask(region, 0.002, 370.0, all),
                  (Values{ktl_a3(0.002, 370.0), 370.0, 0.002, ktl_d3(0.002, 370.0), ktl_e3(0.002, 370.0), x,
                          ktl_h3(0.002, 370.0), untouched, untouched, untouched}))
            << "DV and TC are left as they were, without a line";
    EXPECT_EQ(unit13.count(), 0U);
}

TEST(Entry, WetRegion) {
    Reports unit13(13);
    const double t = 200.0;
    const double ps = ktl_pt(t);
    const auto mix = [](double a, double b) { return a + 0.25 * (b - a); };
    EXPECT_EQ(ask(KTL_WET, 0.25, t, "P,T,X,V,H,S."),
              (Values{ps, t, 0.25, mix(ktl_c1(ps, t), ktl_c2(ps, t)), mix(ktl_d1(ps, t), ktl_d2(ps, t)),
                      mix(ktl_e1(ps, t), ktl_e2(ps, t)), untouched, untouched, untouched, untouched}));
    EXPECT_EQ(unit13.count(), 0U);
    for (const int region : {KTL_WET, KTL_WET_NEAR_CRITICAL}) {
        const double at = region == KTL_WET ? 200.0 : 360.0;
        EXPECT_EQ(ask(region, 0.25, at, "CP,DV,T,TC,Q."),
                  (Values{0.0, 0.0, at, 0.0, untouched, untouched, untouched, untouched, untouched, untouched}));
        EXPECT_EQ(unit13.lines(), (Lines{illegal("Q   "), wet_line})) << "one line for the call, after all codes";
    }
}

/// Two-phase states of sub-region 3: saturated volumes that meet the saturation pressure, and their mean.
TEST(Entry, WetNearCriticalRegion) {
    for (const double t : {350.5, 360.0, 372.0, 374.0}) {
        const double ps = ktl_pt(t);
        const double vp = value(KTL_WET_NEAR_CRITICAL, 0.0, t, "V.");
        const double vpp = value(KTL_WET_NEAR_CRITICAL, 1.0, t, "V.");
        EXPECT_LT(vp, 0.00317);
        EXPECT_GT(vpp, 0.00317);
        EXPECT_TRUE(close("a3(vp)", ktl_a3(vp, t), ps, 1e-8));
        EXPECT_TRUE(close("a3(vpp)", ktl_a3(vpp, t), ps, 1e-8));
        const auto mean = [&](ktl_property f) { return (f(vp, t) + f(vpp, t)) / 2.0; };
        const Values wet = ask(KTL_WET_NEAR_CRITICAL, 0.5, t, "P,T,X,V,H,S.");
        const Values wanted{ps, t, 0.5, (vp + vpp) / 2.0, mean(ktl_d3), mean(ktl_e3)};
        for (std::size_t i = 0; i < 6; ++i) EXPECT_TRUE(close(named("value ", i), wet[i], wanted[i], 1e-15));
        for (const char* code : {"H.", "S."}) {
            value(KTL_WET_NEAR_CRITICAL, 0.5, t, code);
            EXPECT_EQ(ktl_cu.v, vpp) << "saturated water is evaluated before steam";
        }
        // The volumes by the given brackets, to the last bit.
        const auto volume = [&](double a, double b) { return ktl_i2(ktl_a3, t, ps, a, b, 1e-8); };
        EXPECT_EQ(vpp, volume(std::max(0.08611 - 0.000222 * t, 0.00317), 0.008799105448));
        EXPECT_EQ(vp, volume(std::min(6e-05 * t - 0.01899, 0.00317), 0.00174));
    }
}

/// Qualities at or below 1e-6 are saturated water, at or above 0.999999 saturated steam.
TEST(Entry, QualityEnds) {
    struct Row {
        double given, x;
        bool wet;
    };
    const double low = std::nextafter(1e-06, 1.0);
    const double high = std::nextafter(0.999999, 0.0);
    const Row rows[] = {{1e-06, 0.0, false},    {low, low, true},   {high, high, true},
                        {0.999999, 1.0, false}, {-0.5, 0.0, false}, {7.5, 1.0, false}};
    Reports unit13(13);
    for (const int region : {KTL_WET, KTL_WET_NEAR_CRITICAL})
        for (const auto& [given, x, wet] : rows) {
            const double t = region == KTL_WET ? 250.0 : 365.0;
            const Values out = ask(region, given, t, "X,T,P,CP.");
            EXPECT_EQ(out[0], x) << given;
            EXPECT_EQ(out[1], t);
            EXPECT_TRUE(close("P", out[2], ktl_pt(t), 1e-8));
            EXPECT_EQ(out[3] == 0.0, wet) << given;
            EXPECT_EQ(unit13.count(), wet ? 1U : 0U);
        }
    // A converted state answers DV in regions 1 and 2, with its own volume, and leaves it alone in 3 and 4.
    const double v = ktl_c1(ktl_pt(250.0), 250.0);
    EXPECT_EQ(value(KTL_WET, 0.0, 250.0, "DV."), ktl_ci(v, 250.0));
    EXPECT_EQ(value(KTL_WET_NEAR_CRITICAL, 1.0, 365.0, "DV."), untouched);
}

/// Above the end of the saturation line the pressure is reported and taken as zero.
TEST(Entry, WetAboveCriticalTemperature) {
    Reports unit6;
    EXPECT_EQ(value(KTL_WET, 0.5, 374.16, "P."), 0.0);
    EXPECT_EQ(unit6.lines(), Lines{" *** KTLFTN-ERROR: Out of range, T=  3.74160000E+02 ***"});
}

} // namespace
