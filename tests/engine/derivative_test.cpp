// Partial derivatives of one phase against those of the free energies, taken in long double; of mixtures and along the
// saturation line against differences of states.
#include "rows.hpp"

#include "support/compare.hpp"
#include "support/derivative_truth.hpp"
#include "support/free_energy.hpp"
#include "support/pairs.hpp"
#include "support/states.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <ktl/derivative.hpp>
#include <ktl/if97.hpp>
#include <ktl/steam.h>
#include <optional>

namespace {

using namespace ktl;
using test::name_of;
using test::named;
using test::nine;
using test::Random;
using Number = long double;

/// Sub-region 1 or 2 from its Gibbs function of theta and beta, 3 from its Helmholtz function of theta and chi.
template <class Zeta>
test::Truth of_gibbs(Zeta&& zeta, double p, double t) {
    const Number theta = (Number(t) + ktl_lc.tza) / ktl_lc.tca;
    return test::gibbs_truth(test::derivatives(zeta, theta, Number(p) / ktl_lc.pca), p, t);
}
test::Truth of_helmholtz(double v, double t) {
    const Number theta = (Number(t) + ktl_lc.tza) / ktl_lc.tca;
    const auto f = test::derivatives([](const auto& x, const auto& chi) { return test::psi(x, chi); }, theta,
                                     Number(v) / ktl_lc.vca);
    return test::helmholtz_truth(f, v, t);
}

/// All 504 derivatives; what cancels in numerator and denominator counts.
void expect_all(const State& state, const test::Truth& truth) {
    // The entropy of water is off by 3e-9 of it, by the digits of one coefficient, and so is the slope of gibbs by t.
    constexpr Number relative = 1e-8;
    for (std::size_t of = 0; of < 9; ++of)
        for (std::size_t by = 0; by < 9; ++by)
            for (std::size_t held = 0; held < 9; ++held) {
                const double got = derivative(state, nine[of], nine[by], nine[held]);
                const auto at = named(name_of(nine[of]), " by ", name_of(nine[by]), " at constant ",
                                      name_of(nine[held]), ", ", state.p(), " bar, ", state.t(), " degC");
                if (test::hold_each_other(nine[by], nine[held])) {
                    EXPECT_TRUE(std::isnan(got)) << at;
                    continue;
                }
                const auto [wanted, size] = truth.derivative(of, by, held);
                EXPECT_LE(std::fabs(got - wanted), relative * size) << at << ": " << got << ", not " << double(wanted);
            }
}

TEST(Derivative, OnePhaseHasThoseOfTheFreeEnergies) {
    Random random(7);
    for (int i = 0; i < 200; ++i) {
        const auto water = test::random_liquid(random);
        expect_all(state(Pair::pt, water.first, water.t),
                   of_gibbs([](const auto& x, const auto& y) { return test::zeta1(x, y); }, water.first, water.t));
        const auto steam = test::random_steam(random);
        expect_all(state(Pair::pt, steam.first, steam.t),
                   of_gibbs([](const auto& x, const auto& y) { return test::zeta2(x, y); }, steam.first, steam.t));
        const auto dense = test::random_near_critical(random);
        expect_all(state(Pair::tv, dense.t, dense.first), of_helmholtz(dense.first, dense.t));
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

/// Relations of Maxwell among the derivatives of one phase; 1 bar m3 is 100 kJ.
TEST(Derivative, FulfilsTheRelationsOfMaxwell) {
    using enum Property;
    struct Row {
        Property of, by, at, of2, by2, at2;
        double factor;
    };
    const Row rows[] = {
        {Property::t, v, s, p, s, v, -100.0},
        {Property::t, p, s, v, s, p, 100.0},
        {s, v, Property::t, p, Property::t, v, 100.0},
        {s, p, Property::t, v, Property::t, p, -100.0},
        {helmholtz, v, Property::t, u, v, s, 1.0},
        {h, p, s, gibbs, p, Property::t, 1.0},
        {u, s, v, h, s, p, 1.0},
        {helmholtz, Property::t, v, gibbs, Property::t, p, 1.0},
    };
    Random random(19);
    for (int i = 0; i < 100; ++i) {
        const auto water = test::random_liquid(random);
        const auto steam = test::random_steam(random);
        const auto dense = test::random_near_critical(random);
        for (const State& y : {state(Pair::pt, water.first, water.t), state(Pair::pt, steam.first, steam.t),
                               state(Pair::tv, dense.t, dense.first)})
            for (const Row& row : rows) {
                const double wanted = row.factor * derivative(y, row.of2, row.by2, row.at2);
                // Terms of size T ds and v dp cancel in those of the energies.
                EXPECT_NEAR(derivative(y, row.of, row.by, row.at), wanted, 1e-9 * std::fabs(wanted))
                    << name_of(row.of) << " by " << name_of(row.by) << ", " << y.p() << " bar, " << y.t() << " degC";
            }
    }
}

/// Second derivatives against differences of first ones, (dcp/dp)_t = -T (d2v/dt2)_p with them, and where there are none.
TEST(Derivative, SecondOnesAreTheSlopesOfTheFirst) {
    Random random(29);
    for (int i = 0; i < 300; ++i) {
        const auto water = test::random_liquid(random);
        const auto steam = test::random_steam(random);
        const auto dense = test::random_near_critical(random);
        const State all[] = {state(Pair::pt, water.first, water.t), state(Pair::pt, steam.first, steam.t),
                             state(Pair::tv, dense.t, dense.first)};
        const State& y = all[i % 3];
        const auto difference = [&](bool by_p, auto&& value) {
            const double step = by_p ? 1e-4 * y.p() : 1e-2;
            const auto at = [&](int n) {
                const State there =
                    by_p ? state(Pair::pt, y.p() + n * step, y.t()) : state(Pair::pt, y.p(), y.t() + n * step);
                return there.region() == y.region() ? value(there) : std::nan("");
            };
            return (8.0 * (at(1) - at(-1)) - (at(2) - at(-2))) / (12.0 * step);
        };
        const auto by_p = [](const State& s) { return derivative(s, Property::v, Property::p, Property::t); };
        const auto by_t = [](const State& s) { return derivative(s, Property::v, Property::t, Property::p); };
        const auto expect = [&](const char* name, double got, double wanted, double size) {
            if (std::isnan(wanted)) return; // a neighbour lies in another region
            EXPECT_NEAR(got, wanted, 2e-6 * std::fabs(wanted) + 1e-7 * size)
                << name << ", " << y.p() << " bar, " << y.t();
        };
        const double vp = std::fabs(by_p(y)), vt = std::fabs(by_t(y));
        const double tt = volume_second_derivative(y, Property::t, Property::t);
        if (vp / y.v() * y.p() > 10.0) continue; // so near the critical point the steps are too long
        expect("pp", volume_second_derivative(y, Property::p, Property::p), difference(true, by_p), vp / y.p());
        expect("pt", volume_second_derivative(y, Property::p, Property::t), difference(false, by_p), vp);
        expect("tp", volume_second_derivative(y, Property::t, Property::p), difference(true, by_t), vt / y.p());
        expect("tt", tt, difference(false, by_t), vt);
        expect("cp", -100.0 * (y.t() + 273.15) * tt, difference(true, [](const State& s) { return s.cp(); }),
               10.0 * y.cp() / y.p());
    }
    const auto pp = [](const State& y) { return volume_second_derivative(y, Property::p, Property::p); };
    for (const State& y : {state(Pair::tx, 100.0, 0.5), State{}, if97::state(Pair::pt, 10.0, 300.0),
                           state(Pair::tv, 374.15, 0.00317), state(Pair::pt, saturation_pressure(100.0), 100.0)})
        EXPECT_TRUE(std::isnan(pp(y)));
    EXPECT_FALSE(std::isnan(volume_second_derivative(state(Pair::tx, 100.0, 0.5).vapour(), Property::t, Property::t)));
    const State steam = state(Pair::pt, 10.0, 300.0);
    EXPECT_TRUE(std::isnan(volume_second_derivative(steam, Property::h, Property::t)));
    EXPECT_TRUE(std::isnan(volume_second_derivative(steam, Property::t, static_cast<Property>(99))));
}

TEST(Derivative, ColumnsHaveTheBitsOfSingleCalls) {
    Random random(41);
    std::vector<Derivative> wanted;
    for (int k = 0; k < 12; ++k) {
        const Property of = nine[random.below(9)];
        const Property by = nine[random.below(9)];
        const Property held = nine[random.below(9)];
        wanted.push_back({of, by, held});
    }
    wanted.push_back({Property::h, Property::cp, static_cast<Property>(99)});
    for (std::size_t k = 0; k < pair_count; ++k) {
        const Pair pair = static_cast<Pair>(k);
        test::Rows rows(random, pair, 500);
        if (pair == Pair::tv) { // a level isotherm
            rows.a.back() = 374.15;
            rows.b.back() = 0.00317;
        }
        std::vector<std::vector<double>> columns(wanted.size(), std::vector<double>(rows.a.size()));
        std::vector<double*> outputs;
        for (auto& column : columns) outputs.push_back(column.data());
        std::vector<Status> status(rows.a.size());
        const BatchResult result = derivative_batch(pair, rows.a, rows.b, wanted, outputs, status, {.threads = 2});
        EXPECT_EQ(result.fault, BatchResult::Fault::none);
        for (std::size_t i = 0; i < rows.a.size(); ++i) {
            const State y = state(pair, rows.a[i], rows.b[i]);
            EXPECT_EQ(status[i], y.status());
            for (std::size_t n = 0; n < wanted.size(); ++n)
                EXPECT_TRUE(
                    test::same_bits(columns[n][i], derivative(y, wanted[n].of, wanted[n].by, wanted[n].at_constant)))
                    << test::row_of(pair).name << " " << rows.a[i] << " " << rows.b[i] << ", derivative " << n;
        }
        std::vector<double> from_c(rows.a.size());
        double* const output = from_c.data();
        const unsigned char bytes[] = {static_cast<unsigned char>(wanted[0].of),
                                       static_cast<unsigned char>(wanted[0].by),
                                       static_cast<unsigned char>(wanted[0].at_constant)};
        std::vector<unsigned char> c_status(rows.a.size());
        const ktl_batch_result in_c = ktl_derivative_batch(static_cast<int>(pair), rows.a.data(), rows.b.data(),
                                                           rows.a.size(), bytes, &output, 1, c_status.data(), nullptr);
        EXPECT_TRUE(in_c.fault == KTL_FAULT_NONE && in_c.solved == result.solved);
        for (std::size_t i = 0; i < rows.a.size(); ++i) EXPECT_TRUE(test::same_bits(from_c[i], columns[0][i])) << i;
        outputs.pop_back();
        EXPECT_EQ(derivative_batch(pair, rows.a, rows.b, wanted, outputs, status).fault,
                  BatchResult::Fault::columns_differ);
        outputs.push_back(nullptr);
        EXPECT_EQ(derivative_batch(pair, rows.a, rows.b, wanted, outputs, status).fault,
                  BatchResult::Fault::columns_differ);
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
