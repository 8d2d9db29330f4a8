// The floating-point environment of a caller: traps, flags and rounding modes have no influence on the ktl:: calls, and
// these have none on them.
#include "rows.hpp"

#include <cfenv>
#include <gtest/gtest.h>
#include <ktl/derivative.hpp>
#include <ktl/steam.h>

namespace {

using namespace ktl;

constexpr std::size_t rows_of_pair = 300;

/// Everything that the calls give for the rows of a pair. No arithmetic here: nothing but the library may raise a flag.
std::vector<double> everything(Pair pair, const test::Rows& rows) {
    std::vector<double> out;
    out.reserve(rows.a.size() * (3 * property_count + 8));
    std::vector<std::vector<double>> columns(property_count, std::vector<double>(rows.a.size()));
    std::vector<Property> properties;
    std::vector<double*> outputs;
    for (std::size_t k = 0; k < property_count; ++k) {
        properties.push_back(static_cast<Property>(k));
        outputs.push_back(columns[k].data());
    }
    std::vector<Status> statuses(rows.a.size());
    for (std::size_t i = 0; i < rows.a.size(); ++i) {
        const double a = rows.a[i];
        const double b = rows.b[i];
        const State found = state(pair, a, b);
        for (const Property y : properties) out.push_back(found.get(y));
        for (const Property y : properties) out.push_back(found.vapour().get(y));
        if (i % 8 == 0) out.push_back(state(pair, a, b, state_count(pair, a, b)).t());
        ktl_state of_c;
        out.push_back(ktl_state_of(static_cast<int>(pair), a, b, &of_c));
        for (const double y :
             {saturation_pressure(b), saturation_temperature(a), saturation_slope(b),
              saturation_at_temperature(b).liquid.v(), of_c.s, derivative(found, Property::h, Property::p, Property::t),
              derivative(found, Property::rho, Property::s, Property::v),
              saturation_derivative(found.liquid(), Property::h, Property::p)})
            out.push_back(y);
    }
    for (const unsigned threads : {1U, 3U}) {
        batch(pair, rows.a, rows.b, properties, outputs, statuses, {.threads = threads});
        for (const auto& column : columns) out.insert(out.end(), column.begin(), column.end());
    }
    saturation_pressure(rows.b, columns[0]);
    saturation_temperature(rows.a, columns[1]);
    for (const std::size_t k : {0U, 1U}) out.insert(out.end(), columns[k].begin(), columns[k].end());
    return out;
}

class FloatEnvironment : public testing::Test {
protected:
    FloatEnvironment() { std::fegetenv(&before_); }
    ~FloatEnvironment() override { std::fesetenv(&before_); }

    template <class Check>
    void of_every_pair(Check check) {
        test::Random random(77);
        for (std::size_t k = 0; k < pair_count; ++k) {
            SCOPED_TRACE(test::pairs[k].name);
            const auto pair = static_cast<Pair>(k);
            check(pair, test::Rows(random, pair, rows_of_pair));
        }
    }

    std::fenv_t before_;
};

TEST_F(FloatEnvironment, FlagsAreThoseOfTheCaller) {
    of_every_pair([](Pair pair, const test::Rows& rows) {
        for (const int given : {0, FE_DIVBYZERO | FE_UNDERFLOW}) {
            std::feclearexcept(FE_ALL_EXCEPT);
            std::feraiseexcept(given);
            everything(pair, rows);
            EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), given);
        }
    });
}

#if defined(__GLIBC__)
TEST_F(FloatEnvironment, TrapsOfTheCallerDoNotStopTheCalls) {
    of_every_pair([](Pair pair, const test::Rows& rows) {
        const std::vector<double> expected = everything(pair, rows);
        std::feclearexcept(FE_ALL_EXCEPT);
        feenableexcept(FE_ALL_EXCEPT); // a trap ends the test program
        const std::vector<double> found = everything(pair, rows);
        EXPECT_EQ(fegetexcept(), FE_ALL_EXCEPT);
        fedisableexcept(FE_ALL_EXCEPT);
        ASSERT_EQ(found.size(), expected.size());
        for (std::size_t i = 0; i < found.size(); ++i) ASSERT_TRUE(test::same_bits(found[i], expected[i])) << i;
    });
}
#endif

TEST_F(FloatEnvironment, RoundingModesOfTheCallerDoNotChangeABit) {
    of_every_pair([](Pair pair, const test::Rows& rows) {
        const std::vector<double> expected = everything(pair, rows);
        for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
            std::fesetround(mode);
            const std::vector<double> found = everything(pair, rows);
            EXPECT_EQ(std::fegetround(), mode);
            std::fesetround(FE_TONEAREST);
            ASSERT_EQ(found.size(), expected.size());
            for (std::size_t i = 0; i < found.size(); ++i) ASSERT_TRUE(test::same_bits(found[i], expected[i])) << i;
        }
    });
}

} // namespace
