// The Fortran names: each hands on every argument, and a Fortran text ends with its length.
#include <array>
#include <bit>
#include <cstdint>
#include <gtest/gtest.h>
#include <ktl/ktlftn.h>
#include <string>
#include <vector>

extern "C" {
#define KTL_FINDER(name) int name##_(double&, double&, const double&);
#define KTL_PROPERTY(name) double name##_(const double&, const double&);
#define KTL_PURE KTL_PROPERTY
#define KTL_PROPERTY_EPS(name) double name##_(const double&, const double&, const double&);
#define KTL_SATURATION(name) double name##_(const double&);
#define KTL_TERMS(name) void name##_(const double&, const double&);
#define KTL_SOLVER(name) double name##_(ktl_property, const double&, const double&, double&, double&, const double&);
#define KTL_SOLVER_EPS(name)                                                                                           \
    double name##_(ktl_property_eps, const double&, const double&, double&, double&, const double&);
#include "routines.def"
#undef KTL_FINDER
#undef KTL_PROPERTY
#undef KTL_PURE
#undef KTL_PROPERTY_EPS
#undef KTL_SATURATION
#undef KTL_TERMS
#undef KTL_SOLVER
#undef KTL_SOLVER_EPS
void ktl_id_(ktl_property, const double&, ktl_property, const double&, double&, double&, double&, double&,
             const double&);
void ktlftn_(ktl_finder, const double&, const double&, const char*, double*, std::size_t);
extern ktlerr_record ktlerr_;
extern ktl_lc_record ktl_lc_;
}

namespace {

double slope_minus(const double& first, const double& second) { return 3.0 * first - second; }
double slope_minus_eps(const double& first, const double& second, const double& eps) {
    return 3.0 * first - second + eps;
}

std::uint64_t bits(double value) { return std::bit_cast<std::uint64_t>(value); }

/// What a call leaves: the value and both arguments.
using Left = std::array<double, 3>;

Left found(ktl_finder finder, double first, double second) {
    const double eps = 1e-8;
    const int region = finder(first, second, eps);
    return {static_cast<double>(region), first, second};
}

template <class Solver, class Function>
Left solved(Solver solver, Function function) {
    double a = -1.0;
    double b = 7.0;
    const double y = 2.0;
    const double x = 3.5;
    const double eps = 1e-9;
    const double root = solver(function, y, x, a, b, eps);
    return {root, a, b};
}

Left terms(void (*prepare)(const double&, const double&), double first, double second) {
    prepare(first, second);
    return {ktl_cu.p, ktl_cu.t, ktl_cu.v};
}

TEST(Doors, GiveWhatTheRoutinesGive) {
    ktlerr.nprer = 0;
    // Two values whose exchange shows. Not every routine has a number for them: bits, not values, are compared.
    const double first = 20.0;
    const double second = 300.0;
    [[maybe_unused]] const double eps = 1e-8;
#define KTL_FINDER(name) EXPECT_EQ(found(name##_, 3.0, 0.7), found(name, 3.0, 0.7)) << #name;
#define KTL_PROPERTY(name) EXPECT_EQ(bits(name##_(first, second)), bits(name(first, second))) << #name;
#define KTL_PURE KTL_PROPERTY
#define KTL_PROPERTY_EPS(name) EXPECT_EQ(bits(name##_(first, second, eps)), bits(name(first, second, eps))) << #name;
#define KTL_SATURATION(name) EXPECT_EQ(name##_(201.5), name(201.5)) << #name;
#define KTL_TERMS(name) EXPECT_EQ(terms(name##_, first, second), terms(name, first, second)) << #name;
#define KTL_SOLVER(name) EXPECT_EQ(solved(name##_, slope_minus), solved(name, slope_minus)) << #name;
#define KTL_SOLVER_EPS(name) EXPECT_EQ(solved(name##_, slope_minus_eps), solved(name, slope_minus_eps)) << #name;
#include "routines.def"
    ktlerr.nprer = KTL_INITIAL_LIMIT;
}

TEST(Doors, SolverInTwoUnknowns) {
    const double x = 4.0;
    const double y = 9.0;
    const double eps = 1e-9;
    const auto root = [&](decltype(&ktl_id) solver) {
        std::array<double, 4> ends{0.0, 6.0, 1.0, 8.0};
        solver([](const double& z, const double& w) { return z + w; }, x,
               [](const double& z, const double& w) { return 3.0 * z + w * w; }, y, ends[0], ends[1], ends[2], ends[3],
               eps);
        return ends;
    };
    EXPECT_EQ(root(ktl_id_), root(ktl_id));
}

TEST(Doors, ATextEndsWithItsLength) {
    struct Case {
        std::string text;
        std::size_t length;
        int written;
    };
    const std::vector<Case> cases{
        {"T,P,H", 5, 3}, {"T,P,H", 3, 2},     {"T,P", 2, 1}, {"T,P", 1, 1},   {"T.P,H", 5, 1},
        {"T P,H", 5, 1}, {"T,P,H    ", 9, 3}, {"T", 0, 0},   {"CPX,T", 3, 0},
    };
    const double p = 10.0;
    const double t = 100.0;
    ktl_connect_unit(13, stderr);
    for (const auto& c : cases) {
        // Exactly as long as the text: the address sanitizer sees a read past it.
        const std::vector<char> text(c.text.begin(), c.text.begin() + static_cast<std::ptrdiff_t>(c.length));
        constexpr double mark = -77.0;
        std::array<double, 4> out{mark, mark, mark, mark};
        ktlftn_(ktlrpt, p, t, text.data(), out.data(), text.size());
        int written = 0;
        while (written < 4 && out[static_cast<std::size_t>(written)] != mark) ++written;
        EXPECT_EQ(written, c.written) << c.text << " to " << c.length;
    }
    ktl_connect_unit(13, nullptr);
}

TEST(Doors, RecordsAreTheLibrarysOwn) {
    EXPECT_EQ(&ktlerr_, &ktlerr);
    EXPECT_EQ(ktl_lc_.pca, 221.2);
    EXPECT_EQ(ktl_lc_.unread3[7], 1.065);
}

} // namespace
