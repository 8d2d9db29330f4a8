// The calls in plain C against those of C++, and the saturation line.
#include "rows.hpp"

#include "engine/kernels/kernels.hpp"
#include "support/compare.hpp"

#include <cstddef>
#include <cstring>
#include <gtest/gtest.h>
#include <ktl/derivative.hpp>
#include <ktl/steam.h>
#include <set>
#include <string>

namespace {

using namespace ktl;
using test::same_bits;

/// The members that a phase and a state in C share, in the order of Property, against those of C++.
template <class C, class Cpp>
void expect_members(const C& c, const Cpp& cpp, double x) {
    const std::array<double, property_count> values{
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning) c.property,
#define KTL_DEFINE_STATE_PROPERTY(property, PROPERTY, unit, code, meaning) x,
#define KTL_DEFINE_REGION_PROPERTY(property, PROPERTY, unit, code, meaning) double(c.property),
#include <ktl/properties.def>
    };
    for (std::size_t y = 0; y < property_count; ++y)
        EXPECT_TRUE(same_bits(values[y], cpp.get(static_cast<Property>(y)))) << y;
}

void expect_equal(const ktl_phase& c, const Phase& phase) { expect_members(c, phase, std::nan("")); }

void expect_equal(const ktl_state& c, const State& s) {
    EXPECT_EQ(c.status, static_cast<int>(s.status()));
    expect_members(c, s, c.x);
    expect_equal(c.liquid, s.liquid());
    expect_equal(c.vapour, s.vapour());
}

TEST(CForm, GivesWhatTheCallsOfCppGive) {
    test::Random random(3);
    for (int pair = -1; pair <= static_cast<int>(pair_count); ++pair) {
        const Pair p = pair < 0 ? static_cast<Pair>(255) : static_cast<Pair>(pair);
        const test::Rows rows(random, pair < 0 || pair == pair_count ? Pair::pt : p, 50);
        for (std::size_t i = 0; i < rows.a.size(); ++i) {
            const double a = rows.a[i], b = rows.b[i];
            ktl_state c;
            std::memset(&c, 1, sizeof c);
            EXPECT_EQ(ktl_state_of(pair, a, b, &c), ktl_state_of(pair, a, b, nullptr));
            expect_equal(c, state(p, a, b));
            for (int y = -1; y <= static_cast<int>(property_count); ++y) {
                const double got = ktl_value(pair, a, b, y);
                EXPECT_TRUE(same_bits(got, state(p, a, b).get(static_cast<Property>(y))))
                    << pair << ": " << a << ", " << b;
            }
            EXPECT_EQ(ktl_state_count(pair, a, b), state_count(p, a, b));
            EXPECT_TRUE(same_bits(ktl_derivative(pair, a, b, KTL_PROPERTY_H, KTL_PROPERTY_P, KTL_PROPERTY_S),
                                  derivative(state(p, a, b), Property::h, Property::p, Property::s)));
            EXPECT_TRUE(same_bits(ktl_volume_second_derivative(pair, a, b, KTL_PROPERTY_P, KTL_PROPERTY_T),
                                  volume_second_derivative(state(p, a, b), Property::t, Property::p)));
            for (const int number : {-1, 1, 2, 1 << 30}) {
                ktl_state_nth(pair, a, b, number, &c);
                expect_equal(c, state(p, a, b, number));
            }
        }
        std::vector<double> h(rows.a.size()), wanted(rows.a.size());
        std::vector<unsigned char> status(rows.a.size());
        std::vector<Status> cpp_status(rows.a.size());
        const unsigned char property = KTL_PROPERTY_H;
        const Property cpp_property = Property::h;
        double* const output = h.data();
        double* const cpp_output = wanted.data();
        const ktl_batch_result c =
            ktl_batch(pair, rows.a.data(), rows.b.data(), rows.a.size(), &property, &output, 1, status.data(), nullptr);
        const BatchResult cpp = batch(p, rows.a, rows.b, {&cpp_property, 1}, {&cpp_output, 1}, cpp_status);
        EXPECT_EQ(c.fault, static_cast<int>(cpp.fault));
        EXPECT_EQ(c.solved, cpp.solved);
        EXPECT_TRUE(std::equal(h.begin(), h.end(), wanted.begin(), same_bits));
        EXPECT_TRUE(std::equal(status.begin(), status.end(), cpp_status.begin(),
                               [](unsigned char x, Status y) { return x == static_cast<unsigned char>(y); }));
    }
    // Cancelled at the first report of progress, or not.
    const std::vector<double> given(200000, 100.0);
    std::vector<unsigned char> all(given.size());
    for (const int go_on : {0, 1}) {
        int answer = go_on;
        const ktl_batch_options options{1, [](void* to, size_t, size_t) { return *static_cast<int*>(to); }, &answer};
        const auto result =
            ktl_batch(KTL_PAIR_PT, given.data(), given.data(), given.size(), nullptr, nullptr, 0, all.data(), &options);
        EXPECT_EQ(result.cancelled, 1 - go_on);
    }
    EXPECT_EQ(ktl_batch(KTL_PAIR_PT, nullptr, nullptr, 1, nullptr, nullptr, 0, nullptr, nullptr).fault,
              KTL_FAULT_LENGTHS_DIFFER);
    const double one = 100.0;
    double out = 0.0;
    double* const outputs[] = {&out};
    unsigned char one_status = 0;
    const unsigned char h = KTL_PROPERTY_H;
    EXPECT_EQ(ktl_batch(KTL_PAIR_PT, &one, &one, 1, nullptr, outputs, 1, &one_status, nullptr).fault,
              KTL_FAULT_COLUMNS_DIFFER);
    EXPECT_EQ(ktl_batch(KTL_PAIR_PT, &one, &one, 1, &h, nullptr, 1, &one_status, nullptr).fault,
              KTL_FAULT_COLUMNS_DIFFER);
}

/// Compiled programs and files keep the numbers of the lists: a row may be added at an end, none moved or taken away.
TEST(CForm, KeepsTheNumbersOfItsLists) {
    EXPECT_EQ(KTL_PAIR_PT, 0);
    EXPECT_EQ(KTL_PAIR_HS, 12);
    EXPECT_EQ(KTL_PAIR_VU, 16);
    EXPECT_EQ(KTL_STATUS_SOLVED, 0);
    EXPECT_EQ(KTL_STATUS_NO_STATE, 10);
    EXPECT_EQ(KTL_STATUS_CANCELLED, 11);
    EXPECT_EQ(KTL_PROPERTY_P, 0);
    EXPECT_EQ(KTL_PROPERTY_X, 7);
    EXPECT_EQ(KTL_PROPERTY_REGION, 10);
    EXPECT_EQ(KTL_PROPERTY_PRANDTL, 21);
    // The members of C follow one another in the order of the list.
    EXPECT_EQ(offsetof(ktl_phase, prandtl), 19 * sizeof(double));
    EXPECT_EQ(offsetof(ktl_state, prandtl), 2 * sizeof(int) + 20 * sizeof(double));
}

TEST(CForm, HasASentenceForEveryNumber) {
    std::set<std::string> sentences;
    for (int status = -1; status <= static_cast<int>(status_count); ++status) sentences.insert(ktl_sentence(status));
    EXPECT_EQ(sentences.size(), status_count + 1);
}

TEST(Saturation, PressureTemperatureAndSlopeBelongTogether) {
    test::Random random(4);
    for (int i = 0; i < 2000; ++i) {
        const double t = i == 0 ? 0.01 : i == 1 ? 374.15 : random.between(0.01, 374.15);
        const double p = saturation_pressure(t);
        EXPECT_TRUE(test::within(test::named("t at ", p), saturation_temperature(p), t, 1e-9));
        const double low = std::fmax(t - 1e-4, 0.01), high = std::fmin(t + 1e-4, 374.15);
        const double middle = saturation_slope(0.5 * (low + high));
        const double chord = (saturation_pressure(high) - saturation_pressure(low)) / (high - low);
        EXPECT_TRUE(test::close(test::named("dp/dt at ", t), middle, chord, 1e-6));
        ktl_saturation c;
        EXPECT_EQ(ktl_saturation_at_temperature(t, &c), KTL_STATUS_SOLVED) << t;
        const Saturation at = saturation_at_pressure(c.p);
        expect_equal(c.liquid, saturation_at_temperature(t).liquid);
        EXPECT_TRUE(test::within(test::named("t at ", p), at.t, t, 1e-9));
        EXPECT_TRUE(same_bits(c.slope, saturation_slope(t)) && same_bits(c.slope, ktl_saturation_slope(t)));
        EXPECT_TRUE(at.liquid.v() <= at.vapour.v() && at.liquid.h() <= at.vapour.h()) << t;
    }
}

TEST(Saturation, ColumnsHaveTheBitsOfSingleCalls) {
    test::Random random(5);
    for (std::size_t n = 0; n < 40; ++n) {
        std::vector<double> given(n), p(n + 1, -1.0), t(n + 1, -1.0);
        for (double& value : given)
            value = random.below(4) == 0 ? std::bit_cast<double>(random.bits()) : random.between(0.0, 400.0);
        ktl_saturation_pressures(given.data(), p.data(), n);
        ktl_saturation_temperatures(given.data(), t.data(), n);
        for (std::size_t i = 0; i < n; ++i)
            EXPECT_TRUE(same_bits(p[i], saturation_pressure(given[i])) &&
                        same_bits(t[i], saturation_temperature(given[i])))
                << given[i];
        EXPECT_TRUE(p[n] == -1.0 && t[n] == -1.0);
    }
}

TEST(Saturation, EndsWhereTheLineEnds) {
    struct Case {
        double given;
        Status by_t, by_p;
    };
    for (const Case& c : {Case{0.0061, Status::temperature_low, Status::pressure_low},
                          Case{400.0, Status::above_critical, Status::above_critical},
                          Case{std::nan(""), Status::not_a_number, Status::not_a_number},
                          Case{-HUGE_VAL, Status::not_a_number, Status::not_a_number}}) {
        EXPECT_TRUE(std::isnan(saturation_pressure(c.given)) && std::isnan(saturation_slope(c.given)));
        EXPECT_TRUE(std::isnan(saturation_temperature(c.given)));
        EXPECT_EQ(saturation_at_temperature(c.given).status, c.by_t) << c.given;
        EXPECT_EQ(ktl_saturation_at_pressure(c.given, nullptr), static_cast<int>(c.by_p)) << c.given;
        EXPECT_TRUE(std::isnan(saturation_at_pressure(c.given).liquid.h()));
    }
}

/// The kernels in use are among those that the library has, and both forms say the same.
TEST(CForm, BuildInfo) {
    const ktl::BuildInfo info = ktl::build_info();
    const ktl_build_info c = ktl_get_build_info();
    EXPECT_STREQ(c.version, info.version);
    EXPECT_STREQ(c.compiler, info.compiler);
    EXPECT_STREQ(c.kernels, info.kernels);
    EXPECT_STREQ(c.kernels_in_use, info.kernels_in_use);
    EXPECT_NE(std::string(info.kernels).find(info.kernels_in_use), std::string::npos);
    EXPECT_EQ(info.kernels_in_use, std::string(ktl::engine::kernels().name));
}

} // namespace
