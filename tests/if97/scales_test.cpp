// Temperature scales: against their tables, and which of them the saturation line of the 1967 formulation fits.
#include "scales.hpp"

#include "support/compare.hpp"
#include "support/csv.hpp"

#include <ktl/if97.hpp>

namespace {

using namespace ktl::test;
using program::on_scale;
using program::Scale;

TEST(Scales, Tables) {
    const auto rows = read_csv(KTL_TEST_DATA "/temperature_scales.csv");
    ASSERT_EQ(rows.size(), 42U);
    for (const auto& row : rows) {
        const double t = number(row.at("t_C"));
        EXPECT_EQ(on_scale(Scale::its90, t), t);
        EXPECT_TRUE(within(named("t68 at ", t), t - on_scale(Scale::ipts68, t),
                           number(row.at("t90_minus_t68_polynomial_K")), 0.000051));
        EXPECT_TRUE(within(named("t48 at ", t), t - on_scale(Scale::ipts48, t), number(row.at("t90_minus_t48_table_K")),
                           1e-12));
    }
    EXPECT_TRUE(within("t48 between two rows", on_scale(Scale::ipts48, 310.0), 310.0 - 0.035, 1e-12));
    EXPECT_TRUE(std::isnan(on_scale(Scale::ipts48, std::nan(""))));
}

/// Temperature of IF97 at the pressure that the 1967 formulation has on the line at t, less t, compared with t90 less the older scale.
double misfit(Scale scale) {
    double sum = 0.0;
    int count = 0;
    for (double t = 1.0; t <= 370.0; t += 0.369, ++count) {
        const double apart = ktl::if97::saturation_temperature(ktl::saturation_pressure(t)) - t;
        const double conversion = t - on_scale(scale, t);
        sum += (apart - conversion) * (apart - conversion);
    }
    return std::sqrt(sum / count);
}

TEST(Scales, TheSaturationLine) {
    EXPECT_TRUE(within("1948", misfit(Scale::ipts48), 0.0055, 0.0005));
    EXPECT_TRUE(within("1968", misfit(Scale::ipts68), 0.050, 0.0025));
    EXPECT_TRUE(within("none", misfit(Scale::its90), 0.025, 0.0025));
}

} // namespace
