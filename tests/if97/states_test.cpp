// States of IF97 by every pair: round trips, both sides of every border, limits and bad input, columns against single calls.
#include "if97/state.hpp"

#include "support/compare.hpp"
#include "support/pairs.hpp"
#include "support/random.hpp"
#include "support/same_bits.hpp"

#include <array>
#include <bit>
#include <ktl/if97.hpp>
#include <thread>
#include <vector>

namespace {

using namespace ktl;
using namespace ktl::test;

constexpr std::array solved_pairs{Pair::pt, Pair::ph, Pair::ps, Pair::px, Pair::tx, Pair::hs};

/// Random states of every region, a fifth each.
State random_state(Random& random) {
    for (;;) {
        const unsigned kind = random.below(5);
        const bool mixture = kind >= 3;
        // One draw after the other, so that every compiler has the same states.
        const double p = kind == 0   ? random.logarithmic(0.007, 1000.0)
                         : kind == 1 ? random.logarithmic(0.0062, 1000.0)
                                     : random.between(165.0, 1000.0);
        constexpr std::array<std::array<double, 2>, 5> t{
            {{0.01, 350.0}, {0.01, 800.0}, {350.0, 590.0}, {0.01, 350.0}, {350.0, 373.945}}};
        const auto& span = t[kind];
        const double at = random.between(span[0], span[1]);
        const State s = mixture ? if97::state(Pair::tx, at, random.between(0.0, 1.0)) : if97::state(Pair::pt, p, at);
        if (s) return s;
    }
}

/// Deviation relative to the value, near zero to 10 kJ/kg and 1 kJ/(kg K).
double deviation(Property y, double got, double wanted) {
    const double least = y == Property::h ? 10.0 : y == Property::s ? 1.0 : 0.0;
    return std::fabs(got - wanted) / std::fmax(std::fabs(wanted), least);
}

/// In an overlap the state of region 1 or 2 is preferred to that of region 3; it lies no further than this from the border.
bool beside_border(const State& s) {
    return s.t() > 350.0 && (s.t() < 350.05 || std::fabs(s.p() - if97::boundary_pressure(s.t())) < 3.0e-3 * s.p());
}

/// The values given are met to 1e-10, and the state is the one that they were taken from: to 1e-10 of the
/// temperature by p, h and p, s; h and s of cold water leave its pressure to rounding.
TEST(If97States, RoundTrips) {
    Random random(11);
    for (int k = 0; k < 20000; ++k) {
        const State s = random_state(random);
        for (const Pair pair : solved_pairs) {
            const auto& row = row_of(pair);
            if (!s.two_phase() && row.b == Property::x) continue;
            if (s.two_phase() && pair == Pair::pt) continue;
            const State got = if97::state(pair, s.get(row.a), s.get(row.b));
            const auto at = named(row.name, " of ", s.p(), " bar, ", s.t(), " degC, x ", s.x(), ": ");
            ASSERT_EQ(got.status(), Status::solved) << at;
            EXPECT_LT(deviation(row.a, got.get(row.a), s.get(row.a)), 1.0e-10) << at;
            EXPECT_LT(deviation(row.b, got.get(row.b), s.get(row.b)), 1.0e-10) << at;
            if (got.region() != s.region()) {
                EXPECT_TRUE(beside_border(s)) << at << "region " << got.get(Property::region);
                continue;
            }
            const double kelvin = s.t() + 273.15;
            EXPECT_TRUE(within(at + "t", got.t(), s.t(), (pair == Pair::hs ? 1.0e-7 : 1.0e-10) * kelvin));
            // Next to the critical point the phases, and so the quality, follow from the last digits of the temperature.
            const double steepness = std::fmax(1.0, 0.5 / (373.946 - s.t()));
            if (s.two_phase()) {
                EXPECT_TRUE(within(at + "x", got.x(), s.x(), (pair == Pair::hs ? 1.0e-8 : 1.0e-10) * steepness));
            }
        }
    }
}

/// The state does not depend on where the search begins: a start from the 1967 formulation saves time only.
TEST(If97States, TheStartDoesNotMatter) {
    Random random(12);
    for (int k = 0; k < 1500; ++k) {
        const State s = random_state(random);
        for (const Pair pair : {Pair::pt, Pair::ph, Pair::ps, Pair::hs}) {
            if (s.two_phase() && pair == Pair::pt) continue;
            const auto& row = row_of(pair);
            const double a = s.get(row.a);
            const double b = s.get(row.b);
            const State with = if97::state(pair, a, b);
            const if97::RowState without = if97::solve_row(pair, a, b, {});
            const auto at = named(row.name, " of ", s.p(), " bar, ", s.t(), " degC, x ", s.x(), ": ");
            ASSERT_EQ(with.status(), without.status) << at;
            EXPECT_EQ(with.region(), without.region) << at;
            const double allowed = pair == Pair::hs ? 1.0e-6 : 1.0e-9;
            EXPECT_TRUE(close(at + "v", without.bulk.v.value, with.v(), allowed * (s.two_phase() ? 10.0 : 1.0)));
            EXPECT_TRUE(close(at + "t", without.bulk.t.value, with.t(), allowed, 1.0));
        }
    }
}

/// Steam has the 2/3 boundary and the limits of 350 and 590 degC, to the last bit; the saturation line is undetermined.
TEST(If97States, BordersOfPressureAndTemperature) {
    const auto region = [](double p, double t) { return if97::state(Pair::pt, p, t).region(); };
    const double past_350 = std::nextafter(350.0, 400.0);
    for (int n = 0; n < 3000; ++n) {
        const double t = 350.001 + 239.99 * n / 3000.0;
        const double kelvin = t + 273.15;
        const double border =
            10.0 * (0.34805185628969E+03 + kelvin * (-0.11671859879975E+01 + 0.10192970039326E-02 * kelvin));
        EXPECT_EQ(region(border, t), Region::steam) << t;
        EXPECT_EQ(region(std::nextafter(border, 0.0), t), Region::steam) << t;
        EXPECT_EQ(region(std::nextafter(border, 1e4), t), Region::near_critical_steam) << t;
    }
    struct Row {
        double p, t;
        Region region;
    };
    for (const auto& [p, t, wanted] :
         {Row{1000.0, 0.01, Region::water}, Row{0.006112444, 0.01, Region::steam},
          Row{0.006112444, 800.0, Region::steam}, Row{1000.0, 800.0, Region::steam}, Row{1000.0, 350.0, Region::water},
          Row{1000.0, past_350, Region::near_critical_water}, Row{200.0, 350.0, Region::water},
          Row{165.0, 350.0, Region::steam}, Row{165.0, past_350, Region::steam}, Row{1000.0, 590.0, Region::steam},
          Row{1000.0, 589.99, Region::near_critical_steam},
          Row{300.0, std::nextafter(373.946, 0.0), Region::near_critical_water},
          Row{300.0, 373.946, Region::near_critical_steam}})
        EXPECT_EQ(region(p, t), wanted) << p << ' ' << t;
    for (const double t : {0.01, 100.0, 350.0, past_350, 373.0, 373.946}) {
        const double p = if97::saturation_pressure(t);
        const State s = if97::state(Pair::pt, p, t);
        EXPECT_EQ(s.status(), Status::undetermined) << t;
        EXPECT_EQ(s.liquid().p(), p);
        EXPECT_TRUE(std::isnan(s.v()));
        EXPECT_EQ(region(p * (1.0 - 2.0e-8), t), t > 351.0 ? Region::near_critical_steam : Region::steam) << t;
        if (t < 373.0) {
            EXPECT_EQ(region(p * (1.0 + 2.0e-8), t), t > 350.0 ? Region::near_critical_water : Region::water) << t;
        }
    }
}

/// On both sides of a border, and in the gaps and overlaps between: a state that has the values, of regions 1 or 2 wherever they have
/// one, and never further past their borders than a gap reaches.
void expect_border_state(Pair pair, double a, double b, bool low_side_has_it) {
    const auto& row = row_of(pair);
    const State s = if97::state(pair, a, b);
    const auto at = named(row.name, " at ", a, ", ", b, ": ");
    ASSERT_EQ(s.status(), Status::solved) << at;
    EXPECT_LT(deviation(row.a, s.get(row.a), a), 1.0e-10) << at;
    EXPECT_LT(deviation(row.b, s.get(row.b), b), 1.0e-10) << at;
    const bool low = s.region() == Region::water || s.region() == Region::steam || s.region() == Region::wet;
    if (low_side_has_it) {
        EXPECT_TRUE(low) << at;
    }
    if (s.region() == Region::water) {
        EXPECT_LT(s.t(), 350.1) << at;
    }
    if (s.region() == Region::steam && s.t() < 590.0 && s.t() > 350.0) {
        EXPECT_LT(s.p(), if97::boundary_pressure(s.t()) * 1.003) << at;
    }
}

TEST(If97States, GapsAndOverlaps) {
    int gaps = 0;
    int overlaps = 0;
    const auto walk = [&](const State& low, const State& high, double p) {
        for (const Pair pair : {Pair::ph, Pair::ps}) {
            const Property y = row_of(pair).b;
            const double jump = high.get(y) - low.get(y); // towards region 3
            const double sign = low.t() > 350.0 ? -1.0 : 1.0;
            (sign * jump > 0.0 ? gaps : overlaps) += 1;
            for (const double share : {-0.5, 0.0, 0.3, 0.5, 1.0, 1.5})
                expect_border_state(pair, p, low.get(y) + share * jump, sign * share * jump <= 0.0);
        }
        for (const double share : {0.0, 0.5, 1.0})
            expect_border_state(Pair::hs, low.h() + share * (high.h() - low.h()),
                                low.s() + share * (high.s() - low.s()), share == 0.0);
    };
    for (double p = 166.0; p <= 1000.0; p += 17.0)
        walk(if97::state(Pair::pt, p, 350.0), if97::state(Pair::pt, p, std::nextafter(350.0, 400.0)), p);
    for (double t = 350.5; t < 590.0; t += 7.0) {
        const double p = if97::boundary_pressure(t);
        walk(if97::state(Pair::pt, p, t), if97::state(Pair::pt, std::nextafter(p, 1e4), t), p);
    }
    EXPECT_GT(gaps, 50);
    EXPECT_GT(overlaps, 50);
}

TEST(If97States, TheTopOfTheDome) {
    for (const double below : {1.0, 1.0e-2, 1.0e-3, 2.0e-4, 1.0e-4, 5.0e-5, 1.0e-6, 1.0e-9, 0.0}) {
        const double t = 373.946 - below;
        const State s = if97::state(Pair::tx, t, 0.5);
        ASSERT_TRUE(s) << t;
        EXPECT_TRUE(close(named("h by p, h at ", t), if97::state(Pair::ph, s.p(), s.h()).h(), s.h(), 1e-10));
        EXPECT_GE(s.vapour().v(), s.liquid().v()) << t;
        EXPECT_TRUE(close(named("densities at ", t), 0.5 * (s.liquid().rho() + s.vapour().rho()), 322.0, 0.01));
    }
    const State critical = if97::state(Pair::pt, 220.64, 373.946);
    EXPECT_EQ(critical.status(), Status::undetermined);
    EXPECT_TRUE(within("h", critical.liquid().h(), 2087.547, 0.001));
    EXPECT_TRUE(within("s", critical.liquid().s(), 4.412021, 0.000001));
}

/// Each limit with what lies just past it.
TEST(If97States, Refusals) {
    struct Row {
        Pair pair;
        double a, b;
        Status status;
    };
    for (const auto& [pair, a, b, status] : {Row{Pair::pt, 0.0061, 20.0, Status::pressure_low},
                                             Row{Pair::pt, 1000.1, 20.0, Status::pressure_high},
                                             Row{Pair::pt, 1000.0 * (1.0 + 0.9e-10), 20.0, Status::solved},
                                             Row{Pair::pt, 1.0, 0.0, Status::temperature_low},
                                             Row{Pair::pt, 1.0, 800.1, Status::temperature_high},
                                             Row{Pair::px, 1.0, -0.1, Status::quality_low},
                                             Row{Pair::tx, 100.0, 1.1, Status::quality_high},
                                             Row{Pair::px, 221.0, 0.5, Status::above_critical},
                                             Row{Pair::tx, 374.0, 0.5, Status::above_critical},
                                             Row{Pair::px, 0.006114, 0.5, Status::temperature_low},
                                             Row{Pair::ph, 10.0, -5.0, Status::temperature_low},
                                             Row{Pair::ph, 10.0, 4300.0, Status::temperature_high},
                                             Row{Pair::ps, 10.0, -0.5, Status::temperature_low},
                                             Row{Pair::ps, 10.0, 9.9, Status::temperature_high},
                                             Row{Pair::ph, 0.006113, 1000.0, Status::temperature_low},
                                             Row{Pair::hs, 5000.0, 7.0, Status::no_state},
                                             Row{Pair::hs, 100.0, 9.0, Status::no_state},
                                             Row{Pair::hs, 3000.0, 2.0, Status::no_state},
                                             Row{Pair::pv, 10.0, 0.1, Status::no_state},
                                             Row{static_cast<Pair>(200), 1.0, 1.0, Status::no_state}}) {
        const State s = if97::state(pair, a, b);
        EXPECT_EQ(s.status(), status) << static_cast<int>(pair) << ' ' << a << ' ' << b << ": "
                                      << if97::sentence(s.status());
        if (status != Status::solved) {
            EXPECT_TRUE(std::isnan(s.v()));
        }
    }
    EXPECT_STREQ(if97::sentence(Status::above_critical),
                 "there is no quality above the critical point, 220.64 bar and 373.946 degC");
    EXPECT_STREQ(if97::sentence(static_cast<Status>(99)), "unknown status");
    EXPECT_TRUE(std::isnan(if97::saturation_pressure(373.95)) && std::isnan(if97::saturation_pressure(0.0)));
    EXPECT_TRUE(std::isnan(if97::saturation_temperature(220.7)) && std::isnan(if97::saturation_temperature(0.006113)));
}

/// Any two bit patterns end in a status, and columns have the bits of single calls, on any number of threads.
TEST(If97States, ColumnsHaveTheBitsOfSingleCalls) {
    constexpr std::array wanted{Property::p,
                                Property::t,
                                Property::v,
                                Property::h,
                                Property::s,
                                Property::x,
                                Property::region,
                                Property::cp,
                                Property::cv,
                                Property::u,
                                Property::speed_of_sound};
    Random random(13);
    for (const Pair pair : solved_pairs) {
        const auto& row = row_of(pair);
        std::vector<double> a, b;
        for (int k = 0; k < 2500; ++k) {
            const State s = random_state(random);
            const bool wild = random.below(8) == 0;
            a.push_back(wild ? std::bit_cast<double>(random.bits()) : s.get(row.a) * random.between(0.999, 1.001));
            b.push_back(random.below(8) == 0 ? std::bit_cast<double>(random.bits()) : s.get(row.b));
        }
        for (const unsigned threads : {1U, 3U}) {
            std::vector<std::vector<double>> columns(wanted.size(), std::vector<double>(a.size()));
            std::vector<double*> outputs;
            for (auto& column : columns) outputs.push_back(column.data());
            std::vector<Status> status(a.size());
            const BatchResult result = if97::batch(pair, a, b, wanted, outputs, status, {.threads = threads});
            EXPECT_EQ(result.fault, BatchResult::Fault::none);
            std::size_t solved = 0;
            for (std::size_t i = 0; i < a.size(); ++i) {
                const State s = if97::state(pair, a[i], b[i]);
                solved += s ? 1 : 0;
                ASSERT_EQ(s.status(), status[i]) << row.name << ' ' << a[i] << ' ' << b[i];
                for (std::size_t k = 0; k < wanted.size(); ++k) {
                    if (wanted[k] == Property::region && !s)
                        continue; // a row that is not solved has no number of a region
                    ASSERT_TRUE(same_bits(columns[k][i], s.get(wanted[k]))) << row.name << ' ' << a[i] << ' ' << b[i];
                }
            }
            EXPECT_EQ(result.solved, solved);
        }
    }
    double one = 1.0;
    double* output = &one;
    Status status{};
    EXPECT_EQ(if97::batch(Pair::pv, {&one, 1}, {&one, 1}, {}, {}, {&status, 1}).fault,
              BatchResult::Fault::unknown_pair);
    EXPECT_EQ(if97::batch(Pair::pt, {&one, 1}, {&one, 1}, {}, {&output, 1}, {&status, 1}).fault,
              BatchResult::Fault::columns_differ);
}

} // namespace
