// The first guesses of the inversions against states drawn from the region equations.
#include "engine/guesses.hpp"
#include "first_guesses/check.hpp"
#include "regions/saturation.hpp"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

using namespace first_guesses;
namespace guesses = ktl::engine::guesses;

struct Promise {
    Pair pair;
    Class where;
    double two, three; ///< least shares that two and three Newton steps bring to rounding
    double wrong;      ///< greatest share in the wrong region
};

std::string label(const testing::TestParamInfo<Promise>& row) {
    return std::string(name(row.param.pair)) + "_" + std::to_string(static_cast<int>(row.param.where));
}

class FirstGuesses : public testing::TestWithParam<Promise> {};

TEST_P(FirstGuesses, KeepTheirPromise) {
    const Promise& row = GetParam();
    const Quality q = check(row.pair, row.where, 1000, 77);
    EXPECT_GE(q.two, row.two);
    EXPECT_GE(q.three, row.three);
    EXPECT_LE(q.wrong, row.wrong);
}

INSTANTIATE_TEST_SUITE_P(
    Classes, FirstGuesses,
    testing::Values(
        Promise{Pair::pt, Class::liquid_like, 0.95, 0.99, 0.0}, Promise{Pair::pt, Class::vapour_like, 0.97, 0.99, 0.0},
        Promise{Pair::pt, Class::supercritical, 0.94, 0.99, 0.0}, Promise{Pair::ph, Class::water, 0.99, 0.99, 0.005},
        Promise{Pair::ph, Class::steam_thin, 0.99, 0.99, 0.005}, Promise{Pair::ph, Class::steam, 0.99, 0.99, 0.005},
        Promise{Pair::ph, Class::steam_dense, 0.98, 0.99, 0.005},
        Promise{Pair::ph, Class::liquid_like, 0.7, 0.99, 0.005},
        Promise{Pair::ph, Class::vapour_like, 0.98, 0.99, 0.01}, Promise{Pair::ps, Class::water, 0.99, 0.99, 0.005},
        Promise{Pair::ps, Class::steam_thin, 0.99, 0.99, 0.005}, Promise{Pair::ps, Class::steam, 0.99, 0.99, 0.005},
        Promise{Pair::ps, Class::steam_dense, 0.99, 0.99, 0.005},
        Promise{Pair::ps, Class::liquid_like, 0.8, 0.99, 0.005},
        Promise{Pair::ps, Class::vapour_like, 0.98, 0.99, 0.01}, Promise{Pair::hs, Class::water, 0.98, 0.98, 0.01},
        Promise{Pair::hs, Class::steam_thin, 0.98, 0.98, 0.01}, Promise{Pair::hs, Class::steam, 0.99, 0.99, 0.01},
        Promise{Pair::hs, Class::steam_dense, 0.98, 0.98, 0.01},
        Promise{Pair::hs, Class::liquid_like, 0.98, 0.98, 0.01},
        Promise{Pair::hs, Class::vapour_like, 0.98, 0.98, 0.01}, Promise{Pair::hs, Class::wet_liquid, 0.85, 0.98, 0.01},
        Promise{Pair::hs, Class::wet, 0.98, 0.98, 0.01}, Promise{Pair::hs, Class::wet_near_critical, 0.8, 0.97, 0.02}),
    label);

TEST(SaturationGuess, TemperatureLeavesTwoStepsToRounding) {
    for (double t = 0.01; t < 374.0; t += 0.31) {
        const double wanted = std::log(saturation_pressure(t));
        double found = guesses::saturation_temperature(saturation_pressure(t));
        EXPECT_NEAR(found, t, 0.05);
        for (int k = 0; k < 2; ++k) {
            const auto line = ktl::saturation::terms(found);
            found += ktl::ktl_lc.tca * (wanted - std::log(line.p)) / ktl::saturation::log_slope(line);
        }
        EXPECT_NEAR(found, t, 1.0e-10);
    }
}

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
            for (const double c : {guesses::classify<Pair::ph>(a, b), guesses::classify<Pair::hs>(a, b)}) {
                EXPECT_GE(c, 0.0);
                EXPECT_LT(c, static_cast<double>(guesses::class_count));
            }
}

} // namespace
