// The first guesses of the inversions against states drawn from the region equations.
#include "engine/guesses/guesses.hpp"
#include "first_guesses/check.hpp"
#include "regions/saturation.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

using namespace first_guesses;
namespace guesses = ktl::engine::guesses;

struct Promise {
    double two, three; ///< least shares that two and three Newton steps bring to rounding
    double wrong;      ///< greatest share in the wrong region
};
constexpr Promise usual{0.95, 0.98, 0.015};

/// Classes that fall short of the usual: cold water turns, water at the saturation line hardly differs in v, s or u from
/// compressed water, and mixtures of nearly no steam have nearly the t of any other. Where entropy turns t is ill defined.
struct Exception {
    Pair pair;
    GuessPatch where;
    Promise promise;
};
constexpr std::array exceptions{
    Exception{Pair::pt, GuessPatch::supercritical, {0.93, 0.99, 0.0}},
    Exception{Pair::pv, GuessPatch::water, {0.88, 0.96, 0.01}},
    Exception{Pair::tv, GuessPatch::water, {0.95, 0.95, 0.04}},
    Exception{Pair::th, GuessPatch::liquid_like, {0.65, 0.98, 0.01}},
    Exception{Pair::ts, GuessPatch::water, {0.88, 0.94, 0.04}},
    Exception{Pair::tu, GuessPatch::water, {0.8, 0.94, 0.04}},
    Exception{Pair::sx, GuessPatch::wet, {0.5, 0.98, 0.01}},
    Exception{Pair::sx, GuessPatch::wet_turning, {0.92, 0.98, 0.01}},
    Exception{Pair::sx, GuessPatch::wet_near_critical, {0.2, 0.97, 0.01}},
    Exception{Pair::sx, GuessPatch::wet_near_critical_turning, {0.92, 0.98, 0.01}},
    Exception{Pair::hs, GuessPatch::wet_low_s, {0.75, 0.98, 0.01}},
    Exception{Pair::hs, GuessPatch::wet_near_critical, {0.8, 0.97, 0.02}},
    Exception{Pair::us, GuessPatch::water, {0.4, 0.85, 0.06}},
    Exception{Pair::us, GuessPatch::liquid_like, {0.92, 0.97, 0.02}},
    Exception{Pair::us, GuessPatch::wet_near_critical, {0.85, 0.98, 0.02}},
    Exception{Pair::vh, GuessPatch::water, {0.95, 0.95, 0.04}},
    Exception{Pair::vs, GuessPatch::water, {0.94, 0.94, 0.05}},
    Exception{Pair::vu, GuessPatch::water, {0.95, 0.95, 0.05}},
};

Promise promise(Pair pair, GuessPatch where) {
    const auto* row = std::find_if(exceptions.begin(), exceptions.end(),
                                   [=](const Exception& x) { return x.pair == pair && x.where == where; });
    return row == exceptions.end() ? usual : row->promise;
}

class FirstGuesses : public testing::TestWithParam<std::size_t> {};

TEST_P(FirstGuesses, KeepTheirPromise) {
    const auto pair = static_cast<Pair>(GetParam());
    for (std::size_t c = 0; c < guesses::patch_count; ++c) {
        const auto where = static_cast<GuessPatch>(c);
        if (!followed(pair, where)) continue;
        const Promise least = promise(pair, where);
        const Quality q = check(pair, where, 1000, 77);
        EXPECT_GE(q.two, least.two) << c;
        EXPECT_GE(q.three, least.three) << c;
        EXPECT_LE(q.wrong, least.wrong) << c;
    }
}

INSTANTIATE_TEST_SUITE_P(Pairs, FirstGuesses, testing::Range(std::size_t{0}, ktl::pair_count),
                         [](const auto& row) { return std::string(name(static_cast<Pair>(row.param))); });

TEST(SaturationGuess, VolumesLeaveTwoStepsToRounding) {
    for (double t = 350.0; t < 374.0; t += 0.11) {
        const double p = saturation_pressure(t);
        for (double v : {guesses::liquid_volume(t), guesses::vapour_volume(t)}) {
            for (int k = 0; k < 2; ++k) {
                const auto y = phase(Region::near_critical_steam, v, t);
                v += (p - y.p) * y.dvdp;
            }
            EXPECT_NEAR(phase(Region::near_critical_steam, v, t).p / p, 1.0, 2.0e-12) << t;
        }
    }
}

TEST(Classify, TakesAnyValue) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double a : {0.0, -1.0, 1.0e300, infinity, -infinity, std::nan("")})
        for (const double b : {0.0, -1.0, 1.0e300, infinity, -infinity, std::nan("")})
            for (const double c : {guesses::classify<Pair::ph>(a, b), guesses::classify<Pair::hs>(a, b),
                                   guesses::classify<Pair::tv>(a, b), guesses::classify<Pair::sx>(a, b)}) {
                EXPECT_GE(c, 0.0);
                EXPECT_LT(c, static_cast<double>(guesses::patch_count));
            }
}

} // namespace
