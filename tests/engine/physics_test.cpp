// Every derived property against differences of states found by other pairs, and against the definitions and identities
// of thermodynamics; the transport equations against a second evaluation; what holds next to the critical point.
#include "rows.hpp"

#include "regions/region3.hpp"
#include "support/compare.hpp"
#include "support/states.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <ktl/ktlftn.h>

namespace {

using namespace ktl;
using test::close;
using test::named;
using test::Random;
using test::within;

using Getter = double (State::*)() const;

constexpr double kelvin(double t) { return t + 273.15; }

/// Derivative by five points a step apart; not-a-number if one of them lies in another region than the middle one.
template <class StateAt>
double difference(StateAt&& state_at, double x, double step, Getter y) {
    const Region region = state_at(x).region();
    const auto value = [&](int n) {
        const State s = state_at(x + n * step);
        return s.region() == region ? (s.*y)() : std::nan("");
    };
    return (8.0 * (value(1) - value(-1)) - (value(2) - value(-2))) / (12.0 * step);
}

/// What differences say of a state. Steps are small against the distances over which a property bends.
struct Differences {
    double dp, cp, cv, dvdt, dvdp, dtdp_h, dvdp_s;

    explicit Differences(const State& s) {
        const double p = s.p(), t = s.t(), v = s.v();
        dp = std::fmin(1.0, 1.0e-3 / (1.0 / p + s.compressibility()));
        const double dt = std::fmin(0.1, 1.0e-3 / std::fabs(s.expansion()));
        const auto by_p = [&](double x) { return state(Pair::pt, x, t); };
        const auto by_t = [&](double x) { return state(Pair::pt, p, x); };
        cp = difference(by_t, t, dt, &State::h);
        dvdt = difference(by_t, t, dt, &State::v);
        dvdp = difference(by_p, p, dp, &State::v);
        cv = difference([&](double x) { return state(Pair::tv, x, v); }, t, dt, &State::u);
        dtdp_h = difference([&](double x) { return state(Pair::ph, x, s.h()); }, p, dp, &State::t);
        dvdp_s = difference([&](double x) { return state(Pair::ps, x, s.s()); }, p, dp, &State::v);
    }
};

struct Row {
    const char* name;
    double got, wanted, relative, scale;
};
void expect(const std::string& at, std::initializer_list<Row> rows) {
    for (const Row& y : rows) EXPECT_TRUE(close(at + y.name, y.got, y.wanted, y.relative, y.scale));
}

/// Definitions and identities, of a state of one phase and of each saturated phase. 1 bar m3 is 100 kJ.
template <class Homogeneous>
void expect_identities(const std::string& at, const Homogeneous& s) {
    const double p = s.p(), v = s.v(), T = kelvin(s.t());
    const double dvdp = -v * s.compressibility(), dvdt = v * s.expansion();
    const double speed_of_sound_squared = s.speed_of_sound() * s.speed_of_sound();
    expect(at,
           {{"rho", s.rho(), 1.0 / v, 1e-15, 0.0},
            {"u", s.u(), s.h() - 100.0 * p * v, 1e-15, s.h()},
            {"gibbs", s.gibbs(), s.h() - T * s.s(), 1e-14, s.h()},
            {"helmholtz", s.helmholtz(), s.gibbs() - 100.0 * p * v, 1e-14, s.h()},
            {"cp - cv", s.cp() - s.cv(), -100.0 * T * dvdt * dvdt / dvdp, 1e-9, s.cp()},
            {"speed_of_sound_squared", speed_of_sound_squared, -1.0e5 * v * v * s.cp() / (s.cv() * dvdp), 1e-9, 0.0},
            {"isentropic exponent", s.isentropic_exponent(), speed_of_sound_squared / (1.0e5 * p * v), 1e-14, 0.0},
            {"Joule-Thomson", s.joule_thomson(), 100.0 * (T * dvdt - v) / s.cp(), 1e-12, 100.0 * v / s.cp()},
            {"kinematic viscosity", s.kinematic_viscosity(), s.viscosity() * v, 1e-15, 0.0},
            {"Prandtl", s.prandtl(), 1000.0 * s.cp() * s.viscosity() / s.conductivity(), 1e-15, 0.0},
            {"viscosity", s.viscosity(), ktl_ci(v, s.t()), 1e-14, 0.0},
            {"conductivity", s.conductivity(), ktl_cj(v, s.t()), 1e-13, 0.0}});
    for (const double y :
         {s.cp(), s.cv(), speed_of_sound_squared, s.compressibility(), s.viscosity(), s.conductivity()})
        EXPECT_GT(y, 0.0) << at;
}

State drawn(Random& random, int kind) {
    const test::State x = kind == 0   ? test::random_liquid(random)
                          : kind == 1 ? test::random_steam(random)
                                      : test::random_near_critical(random);
    return state(kind == 2 ? Pair::tv : Pair::pt, kind == 2 ? x.t : x.first, kind == 2 ? x.first : x.t);
}

/// The stored products of sub-region 2 set its enthalpy and entropy apart by 1e-6 of their slopes next to the 2/3 boundary.
constexpr double bend = 1e-5;

TEST(Physics, DerivedPropertiesAreTheSlopesOfStates) {
    Random random(21);
    int compared = 0;
    for (int i = 0; i < 3000; ++i) {
        const State s = drawn(random, i % 3);
        const auto at = named("region ", static_cast<int>(s.region()), " at ", s.p(), ", ", s.t(), ", v ", s.v(), ": ");
        expect_identities(at, s);
        const Differences d(s);
        if (std::isnan(d.cp + d.cv + d.dvdt + d.dvdp + d.dtdp_h + d.dvdp_s)) continue;
        ++compared;
        const double v = s.v();
        expect(at, {{"cp", s.cp(), d.cp, bend, 0.0},
                    {"cv", s.cv(), d.cv, bend, 0.0},
                    {"expansion", s.expansion(), d.dvdt / v, bend, 1e-4},
                    {"compressibility", s.compressibility(), -d.dvdp / v, bend, 0.0},
                    {"Joule-Thomson", s.joule_thomson(), d.dtdp_h, bend, 0.01 / d.dp},
                    {"speed of sound", s.speed_of_sound(), v * std::sqrt(-1.0e5 / d.dvdp_s), bend, 0.0},
                    {"isentropic exponent", s.isentropic_exponent(), -v / (s.p() * d.dvdp_s), bend, 0.0}});
    }
    EXPECT_GT(compared, 2500);
}

/// Newton steps end within 4e-12 of h + 100 kJ/kg, which docs/engine.md gives in kJ/kg.
TEST(Physics, EnthalpyOfWaterIsReproduced) {
    Random random(24);
    for (const auto& [from, to, worst] : {std::array{0.01, 25.0, 5.0e-10}, {325.0, 350.0, 7.1e-9}}) {
        double found = 0.0;
        for (int i = 0; i < 10000; ++i) {
            const double t = random.between(from, to), p = random.between(ktl_pt(t), from < 1.0 ? 100.0 : 1000.0);
            const double h = state(Pair::pt, p, t).h();
            for (const State& s : {state(Pair::ph, p, h), state(Pair::th, t, h)})
                found = std::fmax(found, std::fabs(s.h() - h));
        }
        EXPECT_TRUE(within(named("from ", from), found, 0.8 * worst, 0.2 * worst));
    }
}

/// A saturated phase has the properties of the single phase next to the line; a mixture has those that add up.
TEST(Physics, SaturatedPhasesAndMixtures) {
    Random random(22);
    constexpr Getter add_up[] = {&State::v, &State::h, &State::s, &State::u, &State::gibbs, &State::helmholtz};
    constexpr double (Phase::*of_phase[])()
        const = {&Phase::v, &Phase::h, &Phase::s, &Phase::u, &Phase::gibbs, &Phase::helmholtz};
    for (int i = 0; i < 400; ++i) {
        const double t = random.between(i % 2 == 0 ? 0.01 : 350.0, i % 2 == 0 ? 350.0 : 372.0),
                     x = random.between(0.0, 1.0);
        const State m = state(Pair::tx, t, x);
        const auto at = named("saturated at ", t, ": ");
        for (const bool liquid : {true, false}) {
            const Phase& phase = liquid ? m.liquid() : m.vapour();
            expect_identities(at, phase);
            const State beside = state(Pair::pt, m.p() * (liquid ? 1.0 + 2.1e-8 : 1.0 - 2.1e-8), t);
            for (unsigned y = 0; y < property_count; ++y) {
                const auto property = static_cast<Property>(y);
                if (property == Property::region || property == Property::x) continue;
                const double scale = property == Property::gibbs || property == Property::helmholtz ? 1.0 : 1e-6;
                EXPECT_TRUE(close(at + named("property ", y), phase.get(property), beside.get(property), 1e-5, scale));
            }
        }
        for (std::size_t y = 0; y < std::size(add_up); ++y) {
            const double a = (m.liquid().*of_phase[y])(), b = (m.vapour().*of_phase[y])();
            EXPECT_TRUE(close(at + named("mixture, ", y), (m.*add_up[y])(), a + x * (b - a), 1e-12, 1000.0));
        }
        EXPECT_EQ(m.rho(), 1.0 / m.v());
        for (unsigned y = static_cast<unsigned>(Property::cp); y < property_count; ++y)
            EXPECT_TRUE(std::isnan(m.get(static_cast<Property>(y)))) << at << y;
    }
}

using Wide = long double;

/// The representative equation of the release of 1975, summed term by term.
double viscosity(Wide v, Wide t) {
    constexpr Wide a[] = {0.0181583L, 0.0177624L, 0.0105287L, -0.0036744L};
    constexpr Wide b[6][5] = {{0.501938L, 0.235622L, -0.274637L, 0.145831L, -0.0270448L},
                              {0.162888L, 0.789393L, -0.743539L, 0.263129L, -0.0253093L},
                              {-0.130356L, 0.673665L, -0.959456L, 0.347247L, -0.0267758L},
                              {0.907919L, 1.207552L, -0.687343L, 0.213486L, -0.0822904L},
                              {-0.551119L, 0.0670665L, -0.497089L, 0.100754L, 0.0602253L},
                              {0.146543L, -0.084337L, 0.195286L, -0.032932L, -0.0202595L}};
    const Wide inverse = 647.27L / (t + 273.15L), density = 1.0L / (317.763L * v);
    Wide dilute = 0.0L, sum = 0.0L;
    for (int k = 0; k < 4; ++k) dilute += a[k] * std::pow(inverse, k);
    for (int i = 0; i < 6; ++i)
        for (int j = 0; j < 5; ++j) sum += b[i][j] * std::pow(inverse - 1.0L, i) * std::pow(density - 1.0L, j);
    return static_cast<double>(1e-6L / std::sqrt(inverse) / dilute * std::exp(density * sum));
}

/// The industrial equation: a polynomial, a hump, and three corrections that end with the temperature.
double conductivity(Wide v, Wide t) {
    const Wide rho = 1.0L / v;
    Wide sum = 0.0179L + 5.53e-5L * t + 1.13e-7L * t * t - 5.2e-11L * t * t * t + 3.5e-4L * rho + 5.5e-7L * rho * rho +
               (8.56e-33L * std::exp(-0.01371L * t) + 2.55e-29L * std::exp(-0.0433L * t)) *
                   std::pow(rho * std::pow(1000.0L - rho, 3), 3);
    if (t <= 450.0L) sum -= 1.03e-4L * rho * std::exp(-1.33e-10L * std::pow(t, 4));
    if (t <= 300.0L) sum -= 1.73e-4L * rho * std::exp(-6.8e-5L * t * t);
    if (t <= 150.0L) sum -= 6.8e-5L * rho * std::exp(-0.0422L * t);
    return static_cast<double>(sum);
}

/// And the values that the releases of 2008 (viscosity) and 2011 (conductivity) print for checks, without the critical
/// enhancement: the older equations lie within 0.5 % and 3 % of them.
TEST(Transport, HasTheValuesOfItsEquations) {
    Random random(23);
    for (int i = 0; i < 3000; ++i) {
        const State s = drawn(random, i % 3);
        const auto at = named("at ", s.v(), ", ", s.t());
        EXPECT_TRUE(close("viscosity " + at, s.viscosity(), viscosity(s.v(), s.t()), 1e-13));
        EXPECT_TRUE(close("conductivity " + at, s.conductivity(), conductivity(s.v(), s.t()), 1e-12));
    }
    for (const auto& [kelvins, rho, value] : {std::array{298.15, 998.0, 889.735100e-6},
                                              {373.15, 1000.0, 307.883622e-6},
                                              {433.15, 1.0, 14.538324e-6},
                                              {873.15, 1.0, 32.619287e-6},
                                              {873.15, 100.0, 35.802262e-6},
                                              {1173.15, 1.0, 44.217245e-6}})
        EXPECT_TRUE(close(named("viscosity at ", kelvins), ktl_ci(1.0 / rho, kelvins - 273.15), value, 5e-3));
    EXPECT_TRUE(close("conductivity", ktl_cj(1.0 / 998.0, 25.0), 0.607712868, 3e-2));
}

/// Where the printed digits leave an isotherm level or rising, cp, compressibility and expansion are infinite; everywhere
/// else near the critical point they are positive and follow the slope to its rounding.
TEST(NearCritical, HeatCapacityIsPositiveOrInfinite) {
    double widest = 0.0, below = 0.0, above = 0.0, rounding = 0.0, least = 0.0;
    const auto look = [&](const auto& s) {
        const auto at = named(s.t(), ", ", s.v());
        const double curvature = region3::free_energy_volume_curvature(region3::terms(s.v(), s.t()));
        const auto exact = region3::free_energy_volume_curvature(
            region3::terms(static_cast<long double>(s.v()), static_cast<long double>(s.t())));
        rounding = std::fmax(rounding, static_cast<double>(std::fabs(curvature - exact)));
        for (const double y : {s.cp(), s.compressibility(), s.expansion()}) {
            EXPECT_GT(y, 0.0) << at;
            EXPECT_EQ(std::isinf(y), curvature < 2.0e-9) << at;
        }
        for (const double y : {s.cv(), s.speed_of_sound()}) EXPECT_TRUE(y > 0.0 && std::isfinite(y)) << at;
        // Its limit is the slope of the saturation line, upside down; the formulation has that to 0.3 % on both sides.
        if (curvature > 1e-7) return;
        EXPECT_TRUE(close("Joule-Thomson at " + at, s.joule_thomson(), 1.0 / saturation_slope(374.15), 3e-3));
        if (curvature > 0.0) return;
        least = std::fmin(least, curvature);
        widest = std::fmax(widest, std::fabs(s.v() / ktl_lc.vca - 1.0));
        below = std::fmax(below, ktl_lc.tc - s.t());
        above = std::fmax(above, s.t() - ktl_lc.tc);
    };
    std::vector<double> t{374.15}, v{0.00317};
    for (double size = 1e-12; size < 2e-2; size *= 1.1) {
        for (const double sign : {-1.0, 1.0}) t.push_back(374.15 + sign * size);
        for (const double sign : {-1.0, 1.0}) v.push_back(0.00317 * (1.0 + sign * 0.2 * size));
    }
    for (const double at : t) {
        const State saturated = state(Pair::tx, at, 0.5);
        if (saturated) look(saturated.liquid()), look(saturated.vapour());
        for (const double volume : v) {
            const State s = state(Pair::tv, at, volume);
            ASSERT_TRUE(s);
            if (!s.two_phase()) look(s);
        }
    }
    // Columns, and so vector lanes, have the same bits.
    const std::vector<double> level(v.size(), 374.1500005);
    constexpr Property wanted[] = {Property::cp, Property::compressibility, Property::joule_thomson};
    std::vector<double> column[3]{level, level, level};
    double* const outputs[] = {column[0].data(), column[1].data(), column[2].data()};
    std::vector<Status> status(v.size());
    EXPECT_EQ(batch(Pair::tv, level, v, wanted, outputs, status).solved, v.size());
    for (std::size_t i = 0; i < v.size(); ++i)
        for (std::size_t k = 0; k < 3; ++k)
            EXPECT_TRUE(test::same_bits(column[k][i], state(Pair::tv, level[i], v[i]).get(wanted[k]))) << v[i];
    // As documented in docs/engine.md and where level_slope is defined.
    EXPECT_TRUE(within("below", below, 8.5e-6, 0.5e-6));
    EXPECT_TRUE(within("above", above, 9.3e-7, 0.5e-7));
    EXPECT_TRUE(within("volumes", widest, 6.5e-4, 0.3e-4));
    EXPECT_TRUE(within("least", least, -2.2e-8, 0.1e-8));
    EXPECT_LT(rounding, 2e-13);
}

} // namespace
