// Temperatures of a value on the saturation line against the line itself.
#include "support/compare.hpp"
#include "support/random.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <ktl/derivative.hpp>
#include <ktl/process.hpp>
#include <limits>
#include <vector>

namespace {

using namespace ktl;
using test::named;

constexpr SaturatedPhase both[] = {SaturatedPhase::liquid, SaturatedPhase::vapour};
constexpr Property four[] = {Property::v, Property::h, Property::s, Property::u};

double on_line(SaturatedPhase phase, Property property, double t) {
    const Saturation y = saturation_at_temperature(t);
    return (phase == SaturatedPhase::liquid ? y.liquid : y.vapour).get(property);
}

/// What the values near zero are met to.
double allowance(Property property, double value) {
    const double least = property == Property::v ? 0.0 : property == Property::s ? 1.0 : 10.0;
    return 1e-10 * std::fmax(std::fabs(value), least);
}

TEST(SaturationBy, FindsEveryTemperatureOfAValue) {
    test::Random random(17);
    // Temperatures of a walk between which the value lies: at least as many must be found.
    constexpr int steps = 400;
    for (const SaturatedPhase phase : both)
        for (const Property property : four) {
            std::vector<double> walk;
            for (int i = 0; i <= steps; ++i)
                walk.push_back(on_line(phase, property, 0.01 + (374.15 - 0.01) * i / steps));
            for (int i = 0; i < 100; ++i) {
                const bool at_border = random.below(4) == 0;
                const double t = at_border ? random.between(349.9, 350.1) : random.between(0.01, 374.15);
                const double value = on_line(phase, property, t);
                const SaturationPoints y = saturation_by(phase, property, value);
                const std::string at = named(static_cast<int>(phase), " ", static_cast<int>(property), " at ", t);
                ASSERT_TRUE(y) << at;
                bool found = false;
                for (std::size_t k = 0; k < y.count; ++k) {
                    EXPECT_NEAR(on_line(phase, property, y.t[k]), value, allowance(property, value)) << at;
                    EXPECT_TRUE(k == 0 || y.t[k] > y.t[k - 1]) << at;
                    found = found || std::fabs(y.t[k] - t) < 1e-4;
                }
                EXPECT_TRUE(found) << at;
                for (std::size_t k = y.count; k < y.t.size(); ++k) EXPECT_TRUE(std::isnan(y.t[k])) << at;
                std::size_t crossed = 0;
                for (std::size_t k = 1; k < walk.size(); ++k)
                    crossed += (walk[k - 1] < value) != (walk[k] < value) ? 1 : 0;
                EXPECT_GE(y.count, crossed) << at;
                if (property == Property::s) {
                    const double x = phase == SaturatedPhase::liquid ? 0.0 : 1.0;
                    const State by_entropy = state(Pair::sx, value, x);
                    EXPECT_NEAR(y.t[0], by_entropy.t(), 1e-7) << at;
                }
            }
        }
}

TEST(SaturationBy, HasItsExtremaWhereTheLineTurns) {
    struct Row {
        SaturatedPhase phase;
        Property property;
        double t, other, aside; ///< a value at `other` is met on the far side of the turn, too
        int sign;
    };
    const Row rows[] = {
        {SaturatedPhase::liquid, Property::v, 4.688758842, 3.0, 1e-4, 1},
        {SaturatedPhase::vapour, Property::h, 236.262815906, 200.0, 1e-6, -1},
        {SaturatedPhase::vapour, Property::u, 237.887701885, 200.0, 1e-6, -1},
    };
    for (const Row& row : rows) {
        const auto slope = [&](double t) {
            const Saturation y = saturation_at_temperature(t);
            return saturation_derivative(row.phase == SaturatedPhase::liquid ? y.liquid : y.vapour, row.property,
                                         Property::t);
        };
        EXPECT_LT(row.sign * slope(row.t - row.aside), 0.0);
        EXPECT_GT(row.sign * slope(row.t + row.aside), 0.0);
        const double extremum = on_line(row.phase, row.property, row.t);
        const SaturationPoints turn = saturation_by(row.phase, row.property, extremum);
        EXPECT_TRUE(turn && turn.count >= 1 && std::fabs(turn.t[0] - row.t) < 0.1);
        const SaturationPoints beside =
            saturation_by(row.phase, row.property, on_line(row.phase, row.property, row.other));
        EXPECT_EQ(beside.count, 2U);
        EXPECT_NEAR(beside.t[0], row.other, 1e-5);
        EXPECT_GT(beside.t[1], row.t);
        EXPECT_EQ(saturation_by(row.phase, row.property, extremum * (1.0 - row.sign * 1e-8)).status, Status::no_state);
    }
}

TEST(SaturationBy, SeparatesTheTwoSidesOf350) {
    // h' falls at 350 degC: the values between are taken twice. s' rises: the values between are taken nowhere.
    const double above = std::nextafter(350.0, 400.0);
    const auto between = [&](Property y) {
        return 0.5 * (on_line(SaturatedPhase::liquid, y, 350.0) + on_line(SaturatedPhase::liquid, y, above));
    };
    EXPECT_EQ(saturation_by(SaturatedPhase::liquid, Property::h, between(Property::h)).count, 2U);
    EXPECT_EQ(saturation_by(SaturatedPhase::liquid, Property::s, between(Property::s)).status, Status::no_state);
    // h": on the rising side, before 350 degC and behind it.
    const double steam = 0.5 * (on_line(SaturatedPhase::vapour, Property::h, 350.0) +
                                on_line(SaturatedPhase::vapour, Property::h, above));
    EXPECT_EQ(saturation_by(SaturatedPhase::vapour, Property::h, steam).count, 3U);
}

TEST(SaturationBy, RefusesWithAReason) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double bad : {none, HUGE_VAL, -HUGE_VAL})
        EXPECT_EQ(saturation_by(SaturatedPhase::liquid, Property::h, bad).status, Status::not_a_number);
    EXPECT_EQ(saturation_by(SaturatedPhase::liquid, Property::cp, 4.2).status, Status::no_state);
    EXPECT_EQ(saturation_by(static_cast<SaturatedPhase>(2), Property::h, 500.0).status, Status::no_state);
    for (const SaturatedPhase phase : both)
        for (const double value : {1e300, -1e300, -1.0, 1e-300})
            EXPECT_EQ(saturation_by(phase, Property::v, value).count, 0U) << value;
}

} // namespace
