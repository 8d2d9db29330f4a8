// Steps against the laws that define them, balances of energy, entropy and exergy, and what is refused.
#include "support/compare.hpp"
#include "support/random.hpp"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <iterator>
#include <ktl/process.hpp>
#include <limits>

namespace {

using namespace ktl;
using test::close;
using test::named;
using test::Random;
using test::within;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double none = std::numeric_limits<double>::quiet_NaN();

/// Steam, mixtures and water over the range of turbines and pumps.
State random_state(Random& random) {
    const unsigned kind = random.below(3);
    const double p = random.logarithmic(0.02, 300.0);
    const double u = random.between(0.0, 1.0);
    if (kind == 0 && p < 220.0) return state(Pair::px, p, 0.5 + 0.5 * u);
    if (kind == 1) return state(Pair::pt, p, 10.0 + 20.0 * u);
    return state(Pair::ph, p, 2800.0 + 900.0 * u);
}

TEST(Step, OfIsentropicEfficiencyHasIts) {
    Random random(3);
    for (int i = 0; i < 300; ++i) {
        const State from = random_state(random);
        const double efficiency = random.between(0.3, 1.0);
        const double ratio = random.logarithmic(1.0, 20.0);
        const std::string at = named(from.p(), " bar, ", from.h(), " kJ/kg, ratio ", ratio, ", ", efficiency);
        for (const bool up : {false, true}) {
            const double p = up ? from.p() * ratio : from.p() / ratio;
            const Step ideal = up ? compress(from, p) : expand(from, p);
            const Step real = up ? compress(from, p, efficiency) : expand(from, p, efficiency);
            if (!ideal || !real) continue;
            EXPECT_TRUE(within(at, ideal.end.s(), from.s(), 2e-10));
            EXPECT_TRUE(within(at, real.work, up ? ideal.work / efficiency : ideal.work * efficiency, 2e-7));
            EXPECT_GE(real.entropy_generated, -2e-10) << at;
        }
    }
}

/// dh = efficiency v dp in h and p, or ds = (efficiency - 1) v dp / T in s and p, by the midpoint rule on two grids.
double polytropic(Property property, const State& from, double to, double efficiency) {
    const bool up = to > from.p();
    const double factor = (up ? 1.0 / efficiency : efficiency) - (property == Property::s ? 1.0 : 0.0);
    const Pair pair = property == Property::s ? Pair::ps : Pair::ph;
    const auto midpoint = [&](int n) {
        double y = from.get(property);
        const double ratio = std::pow(to / from.p(), 1.0 / n);
        double p = from.p();
        const auto rise = [&](double at, double value, double dp) {
            const State here = state(pair, at, value);
            return factor * 100.0 * here.v() * dp / (property == Property::s ? here.t() + 273.15 : 1.0);
        };
        for (int i = 0; i < n; ++i) {
            const double step = p * (ratio - 1.0);
            const double middle = y + rise(p, y, 0.5 * step);
            y += rise(p + 0.5 * step, middle, step);
            p *= ratio;
        }
        return y;
    };
    const double coarse = midpoint(1000), fine = midpoint(2000);
    return fine + (fine - coarse) / 3.0;
}

TEST(Step, OfPolytropicEfficiencyFollowsItsEquation) {
    struct Row {
        const char* what;
        Pair pair;
        double a, b, to, efficiency;
        double
            s_allowed; ///< kJ/(kg K): the error of the midpoint rule, which a kink at the saturation line makes larger
        double h_allowed; ///< kJ/kg: in mixtures the equations have T ds = dh - v dp to 1e-5 of the change of h only
    };
    const Row rows[] = {
        {"high pressure", Pair::pt, 166.7, 538.0, 42.0, 0.88, 1e-9, 1e-6},
        {"into the mixture", Pair::pt, 40.0, 538.0, 0.04, 0.9, 1e-8, 1e-2},
        {"mixture", Pair::px, 8.0, 0.97, 0.05, 0.8, 1e-9, 1e-2},
        {"flashing water", Pair::px, 100.0, 0.0, 1.0, 0.5, 1e-9, 2e-2},
        {"supercritical", Pair::pt, 300.0, 600.0, 50.0, 0.85, 1e-9, 1e-5},
        {"feed pump", Pair::pt, 8.0, 165.0, 250.0, 0.8, 1e-9, 1e-6},
        {"compressor", Pair::pt, 1.0, 150.0, 20.0, 0.75, 1e-9, 1e-5},
    };
    for (const Row& row : rows) {
        const State from = state(row.pair, row.a, row.b);
        const bool up = row.to > from.p();
        const Step y =
            up ? compress_polytropic(from, row.to, row.efficiency) : expand_polytropic(from, row.to, row.efficiency);
        ASSERT_TRUE(y) << row.what << ": " << sentence(y.status);
        const auto wanted = [&](Property property) { return polytropic(property, from, row.to, row.efficiency); };
        EXPECT_TRUE(within(row.what, y.end.s(), wanted(Property::s), row.s_allowed));
        EXPECT_TRUE(within(row.what, y.end.h(), wanted(Property::h), row.h_allowed));
        const Step whole = up ? compress(from, row.to) : expand(from, row.to);
        const double isentropic = up ? whole.work / y.work : y.work / whole.work;
        if (from.x() != 0.0 && from.t() > 200.0) { // reheat makes the whole better than its parts
            EXPECT_GT(isentropic, row.efficiency) << row.what;
        }
        // In two parts it is the same step.
        const double between = std::sqrt(from.p() * row.to);
        const Process process = up ? Process::polytropic_compression : Process::polytropic_expansion;
        const Step first = step(process, from, between, row.efficiency);
        const Step second = step(process, first.end, row.to, row.efficiency);
        EXPECT_TRUE(within(row.what, first.entropy_generated + second.entropy_generated, y.entropy_generated,
                           2e-8 * y.entropy_generated + 4e-10));
    }
    const State live = state(Pair::pt, 100.0, 500.0);
    EXPECT_EQ(expand_polytropic(live, 1.0, 1.0).entropy_generated,
              expand_polytropic(live, 1.0, 1.0).end.s() - live.s());
    EXPECT_NEAR(expand_polytropic(live, 1.0, 1.0).entropy_generated, 0.0, 1e-10);
}

TEST(Step, BaumannTakesTheMeanWetnessOfBothEnds) {
    for (const double x : {0.8, 0.95, 1.0})
        for (const double factor : {0.5, 1.0, 1.5}) {
            const State from = x < 1.0 ? state(Pair::px, 3.0, x) : state(Pair::pt, 3.0, 220.0);
            for (const double p : {2.9, 1.0, 0.05}) {
                const Step dry = expand(from, p, 0.85);
                const Step ideal = expand(from, p);
                const Step wet = expand(from, p, 0.85, {.wetness_factor = factor});
                ASSERT_TRUE(wet) << sentence(wet.status);
                const auto water = [](const State& y) { return y.two_phase() ? wetness(y) : 0.0; };
                const double mean = 0.5 * (water(from) + water(wet.end));
                EXPECT_TRUE(close(named("efficiency, x ", x, ", to ", p), wet.work / ideal.work,
                                  0.85 * (1.0 - factor * mean), 1e-7));
                EXPECT_EQ(mean == 0.0, wet.work == dry.work);
            }
        }
    const State wet = state(Pair::px, 3.0, 0.95);
    const StepOptions one{.wetness_factor = 1.0};
    const Step at_each = expand_polytropic(wet, 2.99, 0.85, one);
    EXPECT_NEAR(at_each.work / expand(wet, 2.99).work, 0.85 * 0.95, 1e-4);
    EXPECT_EQ(expand(state(Pair::px, 1.0, 0.1), 0.05, 0.85, {.wetness_factor = 2.0}).status,
              Status::efficiency_outside);
    EXPECT_EQ(expand_polytropic(state(Pair::px, 1.0, 0.1), 0.05, 0.85, {.wetness_factor = 2.0}).status,
              Status::efficiency_outside);
}

TEST(Step, LosesTheExergyThatItDoesNotDeliver) {
    Random random(5);
    int compared = 0;
    const Surroundings outside{1.0, 20.0};
    for (int i = 0; i < 200; ++i) {
        const State from = random_state(random);
        const double p = from.p() * random.logarithmic(0.1, 10.0);
        const double efficiency = random.between(0.4, 1.0);
        for (const Process process : {Process::expansion, Process::compression, Process::polytropic_expansion,
                                      Process::polytropic_compression, Process::throttling}) {
            const Step y = step(process, from, p, efficiency, {.surroundings_t = outside.t});
            if (!y) continue;
            ++compared;
            const double before = exergy(from, outside).flow, after = exergy(y.end, outside).flow;
            EXPECT_NEAR(before - after - y.work, y.lost_work, 1e-6) << static_cast<int>(process);
            EXPECT_GE(y.lost_work, -1e-6);
            if (process == Process::throttling) {
                EXPECT_TRUE(within("throttling keeps h", y.end.h(), from.h(), 1e-6));
            }
        }
    }
    EXPECT_GT(compared, 300);
    const State dead = state(Pair::pt, outside.p, outside.t);
    EXPECT_EQ(exergy(dead, outside).flow, 0.0);
    EXPECT_EQ(exergy(dead, outside).closed, 0.0);
    // The closed mass has that of the stream less what pushing it out would give: v (p - p0).
    const State live = state(Pair::pt, 100.0, 500.0);
    EXPECT_NEAR(exergy(live, outside).flow - exergy(live, outside).closed, 100.0 * live.v() * (live.p() - outside.p),
                1e-9);
}

TEST(Step, HeatsAtConstantPressure) {
    const State from = state(Pair::pt, 60.0, 150.0);
    const Step to_t = heat_to_t(from, 480.0), to_h = heat_to_h(from, 2000.0), to_x = heat_to_x(from, 0.9);
    for (const Step& y : {to_t, to_h, to_x}) {
        ASSERT_TRUE(y);
        EXPECT_EQ(y.end.p(), 60.0);
        EXPECT_EQ(y.heat, y.end.h() - from.h());
        EXPECT_EQ(y.work, 0.0);
        EXPECT_EQ(y.lost_work, 0.0);
    }
    EXPECT_EQ(to_t.end.t(), 480.0);
    EXPECT_NEAR(to_h.heat, 2000.0 - from.h(), 1e-9);
    EXPECT_EQ(to_x.end.x(), 0.9);
    EXPECT_LT(heat_to_t(from, 100.0).heat, 0.0);
    EXPECT_EQ(heat_to_t(from, saturation_temperature(60.0)).status, Status::undetermined);
}

TEST(Step, RefusesWithAReason) {
    const State live = state(Pair::pt, 100.0, 500.0);
    struct Row {
        Process process;
        State from;
        double to, efficiency;
        Status status;
        StepOptions options{};
    };
    const Row rows[] = {
        {Process::expansion, live, 10.0, 0.0, Status::efficiency_outside},
        {Process::expansion, live, 10.0, -0.5, Status::efficiency_outside},
        {Process::expansion, live, 10.0, 1.0000001, Status::efficiency_outside},
        {Process::compression, live, 200.0, 88.0, Status::efficiency_outside},
        {Process::polytropic_expansion, live, 10.0, none, Status::efficiency_outside},
        {Process::expansion, live, 10.0, 0.8, Status::efficiency_outside, {.wetness_factor = -1.0}},
        {Process::expansion, live, 10.0, 0.8, Status::efficiency_outside, {.wetness_factor = infinity}},
        {Process::expansion, live, 10.0, 0.8, Status::surroundings_outside, {.surroundings_t = -273.15}},
        {Process::throttling, live, 10.0, none, Status::surroundings_outside, {.surroundings_t = none}},
        {Process::expansion, live, 101.0, 0.8, Status::wrong_direction},
        {Process::polytropic_expansion, live, 101.0, 0.8, Status::wrong_direction},
        {Process::throttling, live, 101.0, 0.8, Status::wrong_direction},
        {Process::compression, live, 99.0, 0.8, Status::wrong_direction},
        {Process::compression, live, -99.0, 0.8, Status::wrong_direction},
        {Process::expansion, live, none, 0.8, Status::not_a_number},
        {Process::expansion, live, -infinity, 0.8, Status::not_a_number},
        {Process::heating_to_h, live, infinity, 0.8, Status::not_a_number},
        {Process::expansion, live, 0.001, 0.8, Status::pressure_low},
        {Process::polytropic_expansion, live, -1.0, 0.8, Status::pressure_low},
        {Process::polytropic_compression, live, 1.0e9, 0.8, Status::pressure_high},
        {Process::compression, live, 1000.0, 0.4, Status::temperature_high},
        {Process::polytropic_compression, live, 1000.0, 0.4, Status::temperature_high},
        {Process::polytropic_compression, state(Pair::ps, 10.83926479, 6.757263844), 196.1648426, 0.68097,
         Status::temperature_high},
        {Process::heating_to_t, live, 900.0, 0.0, Status::temperature_high},
        {Process::heating_to_x, live, 1.5, 0.0, Status::quality_high},
        {Process::heating_to_x, state(Pair::pt, 300.0, 500.0), 0.5, 0.0, Status::above_critical},
        {Process::expansion, State{}, 10.0, 0.8, Status::no_state},
        {Process::expansion, state(Pair::pt, 2000.0, 500.0), 10.0, 0.8, Status::pressure_high},
        {static_cast<Process>(8), live, 10.0, 0.8, Status::no_state},
        {Process::throttling, live, 100.0, none, Status::solved},
        {Process::expansion, live, 100.0, 0.8, Status::solved},
        {Process::polytropic_compression, live, 100.0, 0.8, Status::solved},
    };
    for (const Row& row : rows) {
        const Step y = step(row.process, row.from, row.to, row.efficiency, row.options);
        EXPECT_EQ(y.status, row.status) << &row - rows << ": " << sentence(y.status);
        const bool solved = row.status == Status::solved;
        for (const double result : {y.work, y.heat, y.entropy_generated, y.lost_work, y.end.h()})
            EXPECT_EQ(std::isnan(result), !solved) << &row - rows;
    }
}

/// Any bits in any argument: a status, and numbers exactly if it is solved.
TEST(Step, BearsAnyValues) {
    Random random(53);
    const State starts[] = {state(Pair::pt, 100.0, 500.0),    state(Pair::px, 3.0, 0.9),  state(Pair::pt, 300.0, 380.0),
                            state(Pair::tv, 374.15, 0.00317), state(Pair::pt, 5.0, 20.0), State{}};
    const auto any = [&](double plausible) {
        const unsigned kind = random.below(4);
        const std::uint64_t bits = random.bits();
        return kind == 0 ? std::bit_cast<double>(bits) : plausible;
    };
    int solved = 0;
    for (int i = 0; i < 4000; ++i) {
        const auto process = static_cast<Process>(random.below(process_count + 1));
        const State& from = starts[random.below(6)];
        const double to = any(from.p() * random.between(0.0, 2.0));
        const double efficiency = any(random.between(0.0, 1.0));
        const double factor = any(random.between(0.0, 3.0));
        const double surroundings = any(20.0);
        const Step y = step(process, from, to, efficiency, {factor, surroundings});
        solved += y ? 1 : 0;
        EXPECT_EQ(static_cast<bool>(y), std::isfinite(y.work) && std::isfinite(y.heat) && std::isfinite(y.end.h()))
            << i;
        EXPECT_EQ(static_cast<bool>(y), static_cast<bool>(y.end)) << i;
        const Exergy e = exergy(from, {to, surroundings});
        EXPECT_EQ(static_cast<bool>(e), std::isfinite(e.flow)) << i;
        const SaturationPoints points =
            saturation_by(static_cast<SaturatedPhase>(random.below(3)), static_cast<Property>(random.below(30)), to);
        EXPECT_EQ(points ? points.count > 0 : points.count == 0, true) << i;
    }
    EXPECT_GT(solved, 400);
}

TEST(Mix, KeepsEnergyAndTakesTheLowestPressure) {
    const Stream streams[] = {{state(Pair::pt, 12.0, 300.0), 3.0},
                              {state(Pair::pt, 8.0, 60.0), 1.0},
                              {State{}, 0.0},
                              {state(Pair::px, 5.0, 0.5), 0.0}};
    const Mixture y = mix(streams, 20.0);
    ASSERT_TRUE(y);
    EXPECT_EQ(y.flow, 4.0);
    EXPECT_EQ(y.end.p(), 8.0);
    const double h = (3.0 * streams[0].state.h() + streams[1].state.h()) / 4.0;
    EXPECT_NEAR(y.end.h(), h, 1e-8);
    const double before =
        (3.0 * exergy(streams[0].state, {1.0, 20.0}).flow + exergy(streams[1].state, {1.0, 20.0}).flow) / 4.0;
    EXPECT_NEAR(before - exergy(y.end, {1.0, 20.0}).flow, y.lost_work, 1e-7);
    // Flows of any size have the same mixture.
    for (const double size : {1e-320, 1e300}) {
        const Stream scaled[] = {{streams[0].state, 3.0 * size}, {streams[1].state, size}};
        EXPECT_NEAR(mix(scaled).end.h(), h, size < 1.0 ? 3.0 : 1e-8);
    }
    const auto status_of = [&](double flow, const State& of) {
        const Stream two[] = {streams[0], {of, flow}};
        return mix(two).status;
    };
    EXPECT_EQ(status_of(-1.0, streams[1].state), Status::flow_outside);
    EXPECT_EQ(status_of(none, streams[1].state), Status::flow_outside);
    EXPECT_EQ(status_of(infinity, streams[1].state), Status::flow_outside);
    EXPECT_EQ(status_of(1.0, state(Pair::pt, 1.0, 900.0)), Status::temperature_high);
    EXPECT_EQ(mix({}).status, Status::flow_outside);
    EXPECT_EQ(mix({std::begin(streams) + 2, 2}).status, Status::flow_outside);
    EXPECT_EQ(mix(streams, infinity).status, Status::surroundings_outside);
}

TEST(Exergy, RefusesSurroundingsWithoutAState) {
    const State live = state(Pair::pt, 100.0, 500.0);
    for (const Surroundings& bad : {Surroundings{1.0, -5.0}, Surroundings{none, 20.0}, Surroundings{2000.0, 20.0},
                                    Surroundings{saturation_pressure(50.0), 50.0}}) {
        EXPECT_EQ(exergy(live, bad).status, Status::surroundings_outside) << bad.p << " " << bad.t;
        EXPECT_TRUE(std::isnan(exergy(live, bad).flow));
    }
    EXPECT_EQ(exergy(State{}).status, Status::no_state);
}

TEST(BesideSaturation, HasAMeaningOrIsNotANumber) {
    const auto none_of = [](double y) { return std::isnan(y); };
    for (const double p : {0.01, 1.0, 100.0, 200.0}) { // nearer to the critical point the digits of p count
        const Saturation line = saturation_at_pressure(p);
        const State steam = state(Pair::ph, p, line.vapour.h() + 100.0);
        const State water = state(Pair::ph, p, line.liquid.h() - 20.0);
        const State wet = state(Pair::px, p, 0.7);
        const double latent = line.vapour.h() - line.liquid.h();
        EXPECT_NEAR(superheat(steam), steam.t() - line.t, 1e-10);
        EXPECT_NEAR(subcooling(water), line.t - water.t(), 1e-10);
        EXPECT_TRUE(none_of(subcooling(steam)) && none_of(superheat(water)));
        EXPECT_TRUE(superheat(wet) == 0.0 && subcooling(wet) == 0.0);
        EXPECT_NEAR(wetness(wet), 0.3, 1e-15);
        EXPECT_TRUE(none_of(wetness(steam)) && none_of(wetness(water)));
        for (const State& y : {steam, water, wet}) EXPECT_NEAR(latent_heat(y), latent, 1e-8);
    }
    const State undetermined = state(Pair::pt, saturation_pressure(100.0), 100.0);
    for (const State& y : {state(Pair::pt, 300.0, 500.0), State{}, undetermined})
        for (const double value : {superheat(y), subcooling(y), wetness(y), latent_heat(y)})
            EXPECT_TRUE(none_of(value));
}

} // namespace
