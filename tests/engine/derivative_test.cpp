// Partial derivatives of one phase against those of the free energies, taken in long double; of mixtures and along the
// saturation line against differences of states.
#include "support/compare.hpp"
#include "support/free_energy.hpp"
#include "support/pairs.hpp"
#include "support/states.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <ktl/derivative.hpp>
#include <ktl/if97.hpp>
#include <optional>

namespace {

using namespace ktl;
using test::named;
using test::Random;
using Number = long double;

const char* name_of(Property property) {
    constexpr const char* names[] = {
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning) #property,
#include <ktl/properties.def>
    };
    return names[static_cast<std::size_t>(property)];
}

constexpr Property nine[] = {Property::p, Property::t, Property::v,     Property::rho,      Property::h,
                             Property::s, Property::u, Property::gibbs, Property::helmholtz};

/// Slopes by the primary variable of the sub-region and by T.
struct Slope {
    Number first, t;
};

/// Slopes of the nine properties in their order, from the second derivatives of a free energy: of p, t, v and s as they are, of
/// the others by the product rule on h = f + T s + p v and so on.
struct Truth {
    Slope slopes[9];

    Truth(Number p, Number kelvin, Number v, Number s, Slope dp, Slope dv, Slope ds) {
        const Slope dt{0, 1};
        const auto sum = [](std::initializer_list<std::pair<Number, Slope>> terms) {
            Slope y{0, 0};
            for (const auto& [factor, slope] : terms) y.first += factor * slope.first, y.t += factor * slope.t;
            return y;
        };
        const Slope all[] = {dp,
                             dt,
                             dv,
                             sum({{-1 / (v * v), dv}}),
                             sum({{kelvin, ds}, {100 * v, dp}}),
                             ds,
                             sum({{kelvin, ds}, {-100 * p, dv}}),
                             sum({{-s, dt}, {100 * v, dp}}),
                             sum({{-s, dt}, {-100 * p, dv}})};
        std::copy(std::begin(all), std::end(all), slopes);
    }
};

/// Sub-region 1 or 2 from its Gibbs function of theta and beta, 3 from its Helmholtz function of theta and chi.
template <class Zeta>
Truth gibbs_truth(Zeta&& zeta, double p, double t) {
    const Number theta = (Number(t) + ktl_lc.tza) / ktl_lc.tca;
    const auto z = test::derivatives(zeta, theta, Number(p) / ktl_lc.pca);
    const Number v = ktl_lc.vca * z.y;
    const Slope dv{ktl_lc.vca / ktl_lc.pca * z.yy, ktl_lc.vca / ktl_lc.tca * z.xy};
    const Slope ds{-100 * dv.t, -ktl_lc.pvot / ktl_lc.tca * z.xx};
    return {p, Number(t) + ktl_lc.tza, v, ktl_lc.pvot * (-z.x - ktl_lc.alpha1), {1, 0}, dv, ds};
}
Truth helmholtz_truth(double v, double t) {
    const Number theta = (Number(t) + ktl_lc.tza) / ktl_lc.tca;
    const auto f = test::derivatives([](const auto& x, const auto& chi) { return test::psi(x, chi); }, theta,
                                     Number(v) / ktl_lc.vca);
    const Slope dp{-ktl_lc.pca / ktl_lc.vca * f.yy, -ktl_lc.pca / ktl_lc.tca * f.xy};
    const Slope ds{100 * dp.t, -ktl_lc.pvot / ktl_lc.tca * f.xx};
    return {-ktl_lc.pca * f.y, Number(t) + ktl_lc.tza, v, ktl_lc.pvot * (-f.x - ktl_lc.alpha1), dp, {1, 0}, ds};
}

bool hold_each_other(Property a, Property b) {
    const auto volume = [](Property y) { return y == Property::v || y == Property::rho; };
    return a == b || (volume(a) && volume(b));
}

/// All 504 derivatives; what cancels in numerator and denominator counts.
void expect_all(const State& state, const Truth& truth) {
    // The entropy of water is off by 3e-9 of it, by the digits of one coefficient, and so is the slope of gibbs by t.
    constexpr Number relative = 1e-8;
    for (std::size_t of = 0; of < 9; ++of)
        for (std::size_t by = 0; by < 9; ++by)
            for (std::size_t held = 0; held < 9; ++held) {
                const double got = derivative(state, nine[of], nine[by], nine[held]);
                const auto at = named(name_of(nine[of]), " by ", name_of(nine[by]), " at constant ",
                                      name_of(nine[held]), ", ", state.p(), " bar, ", state.t(), " degC");
                if (hold_each_other(nine[by], nine[held])) {
                    EXPECT_TRUE(std::isnan(got)) << at;
                    continue;
                }
                const Slope &y = truth.slopes[of], &x = truth.slopes[by], &z = truth.slopes[held];
                const Number below = x.first * z.t - x.t * z.first;
                const Number wanted = (y.first * z.t - y.t * z.first) / below;
                const Number size = (std::fabs(y.first * z.t) + std::fabs(y.t * z.first) +
                                     std::fabs(wanted) * (std::fabs(x.first * z.t) + std::fabs(x.t * z.first))) /
                                    std::fabs(below);
                EXPECT_LE(std::fabs(got - wanted), relative * size) << at << ": " << got << ", not " << double(wanted);
            }
}

TEST(Derivative, OnePhaseHasThoseOfTheFreeEnergies) {
    Random random(7);
    for (int i = 0; i < 200; ++i) {
        const auto water = test::random_liquid(random);
        expect_all(state(Pair::pt, water.first, water.t),
                   gibbs_truth([](const auto& x, const auto& y) { return test::zeta1(x, y); }, water.first, water.t));
        const auto steam = test::random_steam(random);
        expect_all(state(Pair::pt, steam.first, steam.t),
                   gibbs_truth([](const auto& x, const auto& y) { return test::zeta2(x, y); }, steam.first, steam.t));
        const auto dense = test::random_near_critical(random);
        expect_all(state(Pair::tv, dense.t, dense.first), helmholtz_truth(dense.first, dense.t));
    }
}

/// The pair of two properties in either order.
std::optional<Pair> pair_of(Property a, Property b, bool& swapped) {
    for (std::size_t k = 0; k < pair_count; ++k) {
        const auto& row = test::row_of(static_cast<Pair>(k));
        swapped = row.a == b && row.b == a;
        if (swapped || (row.a == a && row.b == b)) return static_cast<Pair>(k);
    }
    return {};
}

/// Derivative by five points; not-a-number if one of them is no mixture of the same region.
template <class StateAt>
double difference(StateAt&& state_at, double x, double step, Property of) {
    const Region region = state_at(x).region();
    const auto value = [&](int n) {
        const State s = state_at(x + n * step);
        return s.region() == region ? s.get(of) : std::nan("");
    };
    return (8.0 * (value(1) - value(-1)) - (value(2) - value(-2))) / (12.0 * step);
}

TEST(Derivative, MixturesStayOnTheSaturationLine) {
    Random random(11);
    int compared = 0;
    for (int i = 0; i < 400; ++i) {
        const double t = i % 3 == 0 ? random.between(351.0, 372.0) : random.between(15.0, 349.0);
        const State s = state(Pair::tx, t, random.between(0.1, 0.9));
        for (const Property by : nine)
            for (const Property held : nine) {
                bool swapped = false;
                const auto pair = pair_of(by, held, swapped);
                if (!pair || *pair == Pair::pt) continue;
                // A part of 30,000 of what the property spans in the two phases, or of what 100 K do.
                const double span = by == Property::t   ? 100.0
                                    : by == Property::p ? s.p()
                                                        : std::fmin(s.vapour().get(by) - s.liquid().get(by), s.get(by));
                const auto state_at = [&](double x) {
                    return swapped ? state(*pair, s.get(held), x) : state(*pair, x, s.get(held));
                };
                // Up to 350 degC h and s, u and s of mixtures change almost alike: that multiplies what the digits of one
                // coefficient leave between the entropy of water and its slope.
                const double allowed = *pair == Pair::hs || *pair == Pair::us ? 1.0e-5 : 2.0e-6;
                for (const Property of : nine) {
                    const double wanted = difference(state_at, s.get(by), 3.0e-5 * span, of);
                    if (std::isnan(wanted)) continue;
                    const double difference_of_phases = std::fabs(s.vapour().get(of) - s.liquid().get(of));
                    const double size = (difference_of_phases + 2.0e-3 * std::fabs(s.get(of))) / span; // and rounding
                    EXPECT_NEAR(derivative(s, of, by, held), wanted, allowed * (std::fabs(wanted) + size))
                        << name_of(of) << " by " << name_of(by) << " at constant " << name_of(held) << ", " << s.t()
                        << " degC, x = " << s.x();
                    ++compared;
                }
            }
    }
    EXPECT_GT(compared, 5000);
}

TEST(Derivative, SaturatedPhasesAlongTheLine) {
    Random random(13);
    for (int i = 0; i < 100; ++i) {
        const double t = i % 3 == 0 ? random.between(351.0, 372.0) : random.between(1.0, 349.0);
        const Saturation line = saturation_at_temperature(t);
        for (const bool vapour : {false, true}) {
            const auto value = [&](double at, Property y) {
                const Saturation there = saturation_at_temperature(at);
                return (vapour ? there.vapour : there.liquid).get(y);
            };
            const auto by_t = [&](Property y) {
                constexpr double step = 0.01;
                return (8.0 * (value(t + step, y) - value(t - step, y)) - value(t + 2 * step, y) +
                        value(t - 2 * step, y)) /
                       (12.0 * step);
            };
            for (const Property of : nine) {
                // The entropy of water is off by 3e-9, and differences of helmholtz and gibbs by T times that.
                const double size = 5.0e-3 * std::fabs(value(t, of));
                const double got = saturation_derivative(vapour ? line.vapour : line.liquid, of, Property::t);
                EXPECT_NEAR(got, by_t(of), 1.0e-6 * (std::fabs(got) + size)) << name_of(of) << " at " << t;
            }
            const double dhdp = saturation_derivative(vapour ? line.vapour : line.liquid, Property::h, Property::p);
            EXPECT_NEAR(dhdp * line.slope, by_t(Property::h), 1.0e-6 * (std::fabs(by_t(Property::h)) + 1.0));
        }
    }
}

TEST(Derivative, IsNotANumberWithoutAStateAndInfiniteOnALevelIsotherm) {
    const State wet = state(Pair::tx, 100.0, 0.5);
    EXPECT_TRUE(std::isnan(derivative(wet, Property::h, Property::p, Property::t)));
    EXPECT_TRUE(std::isnan(derivative(wet, Property::cp, Property::p, Property::s)));
    EXPECT_TRUE(std::isnan(derivative(wet, Property::h, Property::x, Property::p)));
    EXPECT_TRUE(std::isnan(derivative(State{}, Property::h, Property::t, Property::p)));
    EXPECT_TRUE(std::isnan(
        derivative(state(Pair::pt, saturation_pressure(100.0), 100.0), Property::h, Property::t, Property::p)));
    EXPECT_TRUE(std::isnan(derivative(wet, static_cast<Property>(200), Property::t, Property::p)));
    EXPECT_TRUE(std::isnan(saturation_derivative(state(Pair::pt, 1.0, 200.0).liquid(), Property::h, Property::t)));
    const State of_if97 = if97::state(Pair::tx, 100.0, 0.5);
    EXPECT_TRUE(std::isnan(derivative(of_if97, Property::h, Property::p, Property::s)));
    EXPECT_TRUE(std::isnan(saturation_derivative(of_if97.liquid(), Property::h, Property::t)));
    const State critical = state(Pair::tv, 374.15, 0.00317);
    EXPECT_EQ(derivative(critical, Property::h, Property::t, Property::p), INFINITY);
    EXPECT_EQ(derivative(critical, Property::v, Property::p, Property::t), -INFINITY);
    EXPECT_NEAR(derivative(critical, Property::u, Property::t, Property::v), critical.cv(), 1e-12 * critical.cv());
    EXPECT_NEAR(derivative(critical, Property::t, Property::p, Property::h), critical.joule_thomson(), 1e-9);
}

} // namespace
