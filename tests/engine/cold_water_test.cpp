// Enthalpy and entropy of cold water next to saturation, which mixtures slightly colder have, too; and saturated water
// next to 350 degC, beside which sub-region 3 has states.
#include "engine/solution.hpp"
#include "searches/saturated_water.hpp"
#include "searches/state.hpp"
#include "support/random.hpp"
#include "sweep/fold_scan.hpp"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <ktl/ktlftn.h>
#include <ktl/steam.hpp>
#include <vector>

namespace {

using ktl::Pair;
using ktl::Property;
using ktl::Region;
using ktl::State;

/// Saturated water as the calls that give it do.
struct Saturated {
    double h, s, v;
};
Saturated of_phase(double t) {
    const ktl::Phase water = ktl::saturation_at_temperature(t).liquid;
    return {water.h(), water.s(), water.v()};
}
Saturated of_pressure(double t) {
    const State state = ktl::state(Pair::px, ktl_pt(t), 0.0);
    return {state.h(), state.s(), state.v()};
}
Saturated of_temperature(double t) {
    const State state = ktl::state(Pair::tx, t, 0.0);
    return {state.h(), state.s(), state.v()};
}
Saturated of_equations(double t) {
    const double p = ktl_pt(t);
    return {ktl_d1(p, t), ktl_e1(p, t), ktl_c1(p, t)};
}
constexpr std::array sources{of_phase, of_pressure, of_temperature, of_equations};

/// Temperatures from 0.01 to 350 degC, most of them in the fold.
std::vector<double> temperatures() {
    std::vector<double> out{0.01, 0.0100001, 13.48, 13.99999, 14.0, 14.00001, 349.99999};
    for (int n = 0; n < 670; ++n) out.push_back(0.013 + 0.0217 * n);
    for (int n = 0; n < 470; ++n) out.push_back(14.5 + 0.713 * n);
    return out;
}

TEST(ColdWater, SaturatedWaterComesBackByEnthalpyAndEntropy) {
    std::vector<double> h;
    std::vector<double> s;
    std::vector<double> expected;
    for (const double t : temperatures()) {
        for (const auto source : sources) {
            const Saturated water = source(t);
            h.push_back(water.h), s.push_back(water.s), expected.push_back(water.v);
        }
    }
    std::vector<double> v(h.size());
    std::vector<double> x(h.size());
    std::vector<double> region(h.size());
    std::vector<ktl::Status> status(h.size());
    const std::array wanted{Property::v, Property::x, Property::region};
    const std::array<double*, 3> outputs{v.data(), x.data(), region.data()};
    ktl::batch(Pair::hs, h, s, wanted, outputs, status);
    for (std::size_t i = 0; i < h.size(); ++i) {
        const State state = ktl::state(Pair::hs, h[i], s[i]);
        EXPECT_EQ(state.region(), Region::water) << h[i] << ", " << s[i];
        EXPECT_NEAR(state.v(), expected[i], 1e-6 * expected[i]) << h[i] << ", " << s[i];
        EXPECT_EQ(v[i], state.v()) << h[i] << ", " << s[i];
        EXPECT_TRUE(std::isnan(x[i]) && region[i] == 1.0) << h[i] << ", " << s[i];
    }
}

// The lanes take such mixtures without asking for water.
TEST(ColdWater, MixturesAboveTheDoubtfulQualityAreNoWater) {
    for (double t = 14.0; t < 350.0; t += t < 20.0 ? 0.0137 : 0.47) {
        for (const double share : {1.0, 1.4, 3.0, 20.0}) {
            const State mixture = ktl::state(Pair::tx, t, share * ktl::searches::doubtful_quality(t));
            EXPECT_EQ(ktl::engine::search(Pair::hs, mixture.h(), mixture.s(), 0).region, Region::wet)
                << t << ", " << share;
        }
    }
}

TEST(ColdWater, TheNamedRoutineFindsIt) {
    for (const double t : temperatures()) {
        const Saturated water = of_equations(t);
        double p = water.h;
        double found = water.s;
        ASSERT_EQ(ktlrhs(p, found, 1e-8), KTL_WATER) << t;
        EXPECT_NEAR(ktl_c1(p, found), water.v, 1e-6 * water.v) << t;
    }
}

/// Beside saturated water itself there is one mixture in the fold, none above it; and none below 0.01 degC.
TEST(ColdWater, SaturatedWaterIsCountedOnce) {
    for (int n = 0; n < 1600; ++n) {
        const double t = 0.01 + 0.01 * n;
        const bool folded = t > 0.035 && t < 13.0;
        if (!folded && t > 0.025 && t < 13.5) continue; // an end of the fold
        for (const auto source : sources) {
            const Saturated water = source(t);
            EXPECT_EQ(ktl::state_count(Pair::hs, water.h, water.s), folded ? 2 : 1) << t;
        }
    }
}

/// From 14 degC on a mixture is taken as water only if it differs from it by rounding.
TEST(ColdWater, WarmerMixturesStayMixtures) {
    const struct {
        double t, x;
    } rows[] = {{14.1, 3e-7},   {15.0, 1.2e-7}, {20.0, 4e-8}, {30.0, 2.5e-8},
                {60.0, 1.5e-8}, {100.0, 6e-9},  {200.0, 2e-9}};
    for (const auto& row : rows) {
        const State mixture = ktl::state(Pair::tx, row.t, row.x);
        const State found = ktl::state(Pair::hs, mixture.h(), mixture.s());
        EXPECT_EQ(found.region(), Region::wet) << row.t;
        EXPECT_NEAR(found.v(), mixture.v(), 0.01 * mixture.v()) << row.t;
    }
}

/// On the line of saturated water, above it inside and outside the fold, and mixtures.
TEST(ColdWater, EveryStateOfAFoldIsCounted) {
    ktl::test::Random random(3);
    std::array<int, 4> certain{}; // rows whose count rounding does not decide, by the count
    for (int n = 0; n < 1500; ++n) {
        const double t = random.between(0.01, 13.9);
        Saturated row = sources[static_cast<std::size_t>(n / 3 % 4)](t);
        if (n % 3 == 1) row.h += std::exp(random.between(std::log(1e-9), std::log(1e-6)));
        if (n % 3 == 2) {
            const State mixture = ktl::state(Pair::tx, t, std::exp(random.between(std::log(1e-8), std::log(1e-4))));
            row = {mixture.h(), mixture.s(), mixture.v()};
        }
        const sweep::Fold fold = sweep::scan_fold(row.h, row.s);
        const char* const fault = sweep::fault_at_fold(row.h, row.s, fold);
        EXPECT_EQ(fault, nullptr) << fault << ": " << row.h << ", " << row.s << " at " << t << " degC";
        if (fold.certain) ++certain.at(fold.mixtures.size() + (fold.water ? 1 : 0));
    }
    EXPECT_EQ(certain[0], 0);
    for (const int count : {1, 2, 3}) EXPECT_GT(certain.at(static_cast<std::size_t>(count)), 50) << count;
}

/// 5 degC: the mixture of the other end of the fold is 0.013 K colder and has four times the volume.
TEST(ColdWater, TheMixtureIsTheStateOfNumberOne) {
    const Saturated water = of_phase(5.0);
    ASSERT_EQ(ktl::state_count(Pair::hs, water.h, water.s), 2);
    const State mixture = ktl::state(Pair::hs, water.h, water.s, 1);
    EXPECT_EQ(mixture.region(), Region::wet);
    EXPECT_NEAR(mixture.t(), 5.0 - 0.0126, 2e-4);
    EXPECT_GT(mixture.v(), 3.0 * water.v);
    EXPECT_NEAR(mixture.h(), water.h, 1e-10 * water.h);
    EXPECT_NEAR(mixture.s(), water.s, 1e-10);
    EXPECT_EQ(ktl::state(Pair::hs, water.h, water.s, 2).status(), ktl::Status::no_state);
}

/// Mixtures of the fold are found by all pairs that tell them from water.
TEST(ColdWater, OtherPairsFindTheMixture) {
    for (const double t : {0.02, 3.0, 9.0, 13.0}) {
        const State mixture = ktl::state(Pair::tx, t, 1e-5);
        const struct {
            Pair pair;
            double a, b;
        } rows[] = {{Pair::us, mixture.u(), mixture.s()},
                    {Pair::vh, mixture.v(), mixture.h()},
                    {Pair::vs, mixture.v(), mixture.s()},
                    {Pair::vu, mixture.v(), mixture.u()}};
        for (const auto& row : rows) {
            const State found = ktl::state(row.pair, row.a, row.b);
            EXPECT_EQ(found.region(), Region::wet) << t;
            EXPECT_NEAR(found.x(), 1e-5, 1e-10) << t;
            EXPECT_EQ(ktl::state_count(row.pair, row.a, row.b), 1) << t;
        }
    }
}

/// Up to 350 degC two values fix a mixture if their slopes by x and t are independent. The determinant changes its sign
/// by h, s below 13.48 degC next to saturated water, and nowhere else.
TEST(ColdWater, OnlyEnthalpyAndEntropyFold) {
    using ktl::Quantity;
    const std::array<std::array<Quantity, 2>, 5> pairs{{{Quantity::enthalpy, Quantity::entropy},
                                                        {Quantity::energy, Quantity::entropy},
                                                        {Quantity::volume, Quantity::enthalpy},
                                                        {Quantity::volume, Quantity::entropy},
                                                        {Quantity::volume, Quantity::energy}}};
    for (const auto& [a, b] : pairs) {
        const auto determinant = [a = a, b = b](double x, double t) {
            constexpr double step = 2e-3;
            const auto at = ktl::saturated_at<ktl::engine::Scalar>(t, ktl::SaturationModel::outermost_roots);
            const auto below = ktl::saturated_at<ktl::engine::Scalar>(t - step, ktl::SaturationModel::outermost_roots);
            const auto above = ktl::saturated_at<ktl::engine::Scalar>(t + step, ktl::SaturationModel::outermost_roots);
            const auto by_t = [&](Quantity y) { return above.mixture(y, x) - below.mixture(y, x); };
            const auto by_x = [&](Quantity y) { return at.of_vapour(y) - at.of_liquid(y); };
            return by_x(a) * by_t(b) - by_t(a) * by_x(b);
        };
        const bool positive = determinant(0.5, 100.0) > 0.0;
        for (int n = 0; n < 778; ++n) {
            const double t = n < 300 ? 0.01 + 0.05 * n : 15.0 + 0.7 * (n - 300);
            for (const double x : {0.0, 1e-9, 1e-7, 1e-6, 1e-5, 3e-5, 1e-4, 1e-3, 0.01, 0.1, 0.5, 0.9, 0.999, 1.0}) {
                const bool folded = a == Quantity::enthalpy && x < 3e-5 && t < 13.48;
                if (folded && x > 1e-9) continue; // the edge of the fold depends on the quality
                EXPECT_EQ((determinant(x, t) > 0.0) != positive, folded)
                    << static_cast<int>(a) << ": " << x << ", " << t;
            }
        }
    }
}

/// Rounding may put saturated water slightly outside sub-region 1 and its mixtures: they take precedence over
/// sub-region 3 all the same.
TEST(HotWater, SaturatedWaterTakesPrecedenceOverSubRegionThree) {
    for (int n = 0; n < 3345; ++n) {
        const double t = n < 1345 ? 345.0 + 0.0037 * n : 349.98 + 1e-5 * (n - 1345);
        const State water = ktl::state(Pair::tx, t, 0.0);
        const struct {
            Pair pair;
            double a, b;
        } rows[] = {{Pair::hs, water.h(), water.s()},
                    {Pair::us, water.u(), water.s()},
                    {Pair::vh, water.v(), water.h()},
                    {Pair::vs, water.v(), water.s()},
                    {Pair::vu, water.v(), water.u()}};
        for (const auto& row : rows) {
            const State found = ktl::state(row.pair, row.a, row.b);
            EXPECT_TRUE(found.region() == Region::water || found.region() == Region::wet)
                << static_cast<int>(row.pair) << " at " << t;
            EXPECT_NEAR(found.v(), water.v(), 1e-6 * water.v()) << static_cast<int>(row.pair) << " at " << t;
        }
    }
}

} // namespace
