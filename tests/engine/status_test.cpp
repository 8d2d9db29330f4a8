// What ktl::state() says of values that name no state, and that it bears any value.
#include "support/random.hpp"

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <gtest/gtest.h>
#include <iterator>
#include <ktl/ktlftn.h>
#include <ktl/steam.hpp>
#include <limits>
#include <new>

namespace {

using ktl::Pair;
using ktl::Region;
using ktl::State;
using ktl::Status;
constexpr double infinity = std::numeric_limits<double>::infinity();
const double none = std::nan("");

TEST(Statuses, NameTheLimit) {
    struct Row {
        Pair pair;
        double a, b;
        Status status;
    };
    const Row rows[] = {
        {Pair::pt, none, 100.0, Status::not_a_number},
        {Pair::hs, 1000.0, infinity, Status::not_a_number},
        {Pair::pt, 0.006, 100.0, Status::pressure_low},
        {Pair::pt, 1000.1, 100.0, Status::pressure_high},
        {Pair::pt, 1000.0 * (1.0 + 1e-11), 100.0, Status::solved},
        {Pair::px, 221.2 * (1.0 + 1e-10), 0.5, Status::above_critical},
        {Pair::tv, 0.01 * (1.0 - 1e-10), 1.0, Status::temperature_low},
        {Pair::pt, 1.0, 0.0, Status::temperature_low},
        {Pair::pt, 1.0, 800.1, Status::temperature_high},
        {Pair::ph, -1.0, 100.0, Status::pressure_low},
        {Pair::ph, 5928.0, 0.0, Status::pressure_high}, // the guess of t there is one of the saturation line
        {Pair::pu, 2406.25, 221.2, Status::pressure_high},
        {Pair::ph, 1.0, -10.0, Status::temperature_low},
        {Pair::ps, 1.0, 20.0, Status::temperature_high},
        {Pair::pv, 1.0, 1.0e300, Status::temperature_high},
        {Pair::pv, 1.0, 0.0009, Status::no_state}, // less than at any temperature
        {Pair::tv, 900.0, 1.0, Status::temperature_high},
        {Pair::tv, 100.0, 1.0e6, Status::pressure_low},
        {Pair::tv, 100.0, 0.0, Status::pressure_high},
        {Pair::tv, 400.0, -1.0, Status::pressure_high},
        {Pair::ts, 500.0, 0.0, Status::pressure_high},
        {Pair::tu, 200.0, -1.0e300, Status::pressure_high},
        {Pair::th, 320.0, 1000.0, Status::no_state}, // less than at any pressure
        {Pair::px, 1.0, -0.01, Status::quality_low},
        {Pair::px, 1.0, 1.01, Status::quality_high},
        {Pair::px, 221.3, 0.5, Status::above_critical},
        {Pair::tx, 374.2, 0.5, Status::above_critical},
        {Pair::tx, 0.0, 0.5, Status::temperature_low},
        {Pair::sx, 5.0, 2.0, Status::quality_high},
        {Pair::sx, 20.0, 0.5, Status::no_state},
        {Pair::hs, 1.0e4, 5.0, Status::no_state},
        {Pair::vu, -1.0, 100.0, Status::no_state},
        {static_cast<Pair>(200), 1.0, 100.0, Status::no_state},
    };
    for (const Row& row : rows) {
        const State found = ktl::state(row.pair, row.a, row.b);
        EXPECT_EQ(found.status(), row.status) << static_cast<int>(row.pair) << ": " << row.a << ", " << row.b;
        EXPECT_EQ(ktl::state_count(row.pair, row.a, row.b), found ? 1 : 0);
    }
}

/// An object by default, in memory that held something else.
template <class T>
T in_used_memory() {
    alignas(T) std::array<std::byte, sizeof(T)> memory;
    memory.fill(std::byte{0x41});
    return *new (memory.data()) T;
}

template <class T>
void expect_no_value(const T& y) {
    EXPECT_EQ(y.region(), Region::none);
    for (std::size_t k = 0; k < ktl::property_count; ++k) {
        const auto property = static_cast<ktl::Property>(k);
        EXPECT_TRUE(property == ktl::Property::region || std::isnan(y.get(property))) << k;
    }
}

TEST(Statuses, NothingIsGivenByDefault) {
    const auto state = in_used_memory<State>();
    EXPECT_EQ(state.status(), Status::no_state);
    EXPECT_FALSE(state || state.two_phase());
    expect_no_value(state);
    expect_no_value(state.liquid());
    expect_no_value(state.vapour());
    expect_no_value(in_used_memory<ktl::Phase>());
    const auto line = in_used_memory<ktl::Saturation>();
    EXPECT_EQ(line.status, Status::no_state);
    for (const double value : {line.p, line.t, line.slope}) EXPECT_TRUE(std::isnan(value));
    expect_no_value(line.liquid);
    expect_no_value(line.vapour);
}

TEST(Statuses, PressureAndTemperatureChooseTheRegion) {
    struct Row {
        double p, t;
        Status status;
        Region region;
    };
    const double p100 = ktl_pt(100.0);
    const double p360 = ktl_pt(360.0);
    const Row rows[] = {
        {p100, 100.0, Status::undetermined, Region::wet},
        {p100 * (1.0 + 2e-8), 100.0, Status::solved, Region::water},
        {p100 * (1.0 - 2e-8), 100.0, Status::solved, Region::steam},
        {p360, 360.0, Status::undetermined, Region::wet_near_critical},
        {p360 * (1.0 + 2e-8), 360.0, Status::solved, Region::near_critical_water},
        {p360 * (1.0 - 2e-8), 360.0, Status::solved, Region::near_critical_steam},
        {175.0, 360.0, Status::solved, Region::steam},
        {165.3512406099255, 350.00000000017906, Status::undetermined, Region::wet_near_critical},
        {221.2, 374.15, Status::undetermined, Region::wet_near_critical},
        {1000.0, 350.0, Status::solved, Region::water},
        {1000.0, 374.15, Status::solved, Region::near_critical_water},
        {1000.0, 374.16, Status::solved, Region::near_critical_steam},
        {1000.0, 800.0, Status::solved, Region::steam},
    };
    for (const Row& row : rows) {
        const State found = ktl::state(Pair::pt, row.p, row.t);
        EXPECT_EQ(found.status(), row.status) << row.p << ", " << row.t;
        EXPECT_EQ(found.region(), row.region) << row.p << ", " << row.t;
        EXPECT_NEAR(found.p(), row.p, 1e-8 * row.p);
        EXPECT_EQ(found.t(), row.t);
        EXPECT_EQ(std::isnan(found.v()), !found);
        EXPECT_EQ(found.status() == Status::undetermined, found.liquid().v() < found.vapour().v() + 1e-12);
    }
}

TEST(Statuses, UndeterminedStatesHaveTheBitsOfTheLine) {
    for (double t = 0.5; t < ktl_constants()->tc; t += 0.25) {
        const State found = ktl::state(Pair::pt, ktl_pt(t), t);
        ASSERT_EQ(found.status(), Status::undetermined) << t;
        EXPECT_EQ(found.p(), ktl::saturation_pressure(t)) << t;
        EXPECT_EQ(found.p(), ktl::state(Pair::tx, t, 0.5).p()) << t;
    }
}

/// Any two bit patterns, and any near the range: a state has both values, anything else has none.
TEST(Statuses, AnyBitsAreBorne) {
    ktl::test::Random random(1);
    const double limits[] = {0.0,         -0.0,        0.01,   350.0,  374.15, 590.0,  800.0,
                             0.006112444, 165.3512406, 221.2,  1000.0, 1e300,  -1e300, 5e-324,
                             0.0013147,   0.00317,     2107.4, 4.443,  1.0,    9.2,    -1e-9};
    const auto value = [&] {
        switch (random.below(3)) {
        case 0: return std::bit_cast<double>(random.bits());
        case 1: return limits[random.below(std::size(limits))];
        default: return std::exp(random.between(-8.0, 8.0));
        }
    };
    for (int n = 0; n < 20000; ++n) {
        const auto pair = static_cast<Pair>(random.below(18));
        const double a = value();
        const double b = value();
        const State found = ktl::state(pair, a, b, static_cast<int>(random.below(5)) - 1);
        const bool stands = found.status() == Status::solved;
        EXPECT_EQ(std::isfinite(found.v()) && std::isfinite(found.h()) && std::isfinite(found.s()), stands)
            << static_cast<int>(pair) << ": " << a << ", " << b;
        EXPECT_LE(ktl::state_count(pair, a, b), pair == Pair::sx ? 6 : 3);
    }
}

} // namespace
