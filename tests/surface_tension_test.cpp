// Surface tension against the table of its release, and where it ends.
#include "support/compare.hpp"
#include "support/csv.hpp"

#include <ktl/steam.h>
#include <ktl/steam.hpp>

namespace {

using namespace ktl::test;

/// The values that the release prints for its equation, mN/m to two decimals; the recommended ones lie within their uncertainty.
TEST(SurfaceTension, PrintedTable) {
    const auto rows = read_csv(KTL_TEST_DATA "/surface_tension.csv");
    ASSERT_EQ(rows.size(), 75U);
    for (const auto& row : rows) {
        const double sigma = 1000.0 * ktl::surface_tension(number(row.at("t_C")));
        const auto at = "sigma at " + row.at("t_C");
        EXPECT_TRUE(within(at, sigma, number(row.at("sigma_equation")), 0.00501));
        EXPECT_TRUE(within(at, sigma, number(row.at("sigma_recommended")), number(row.at("uncertainty"))));
    }
}

/// More digits, evaluated with 50; the call of C, the point of the line, and the ends.
TEST(SurfaceTension, DigitsAndLimits) {
    struct Row {
        double kelvin, millinewton_per_m;
    };
    for (const auto& [kelvin, sigma] :
         {Row{273.16, 75.6462711037}, Row{300.0, 71.6859625272}, Row{373.15, 58.9118685877}, Row{450.0, 42.8914991565},
          Row{500.0, 31.4719760826}, Row{600.0, 8.37561087289}, Row{640.0, 0.808822855221},
          Row{647.0, 0.00366150382871}}) {
        const double t = kelvin - 273.15;
        // 1e-13 K of rounding is 1e-12 of the distance from the critical temperature at 647 K.
        EXPECT_TRUE(close(named("at ", kelvin), 1000.0 * ktl::surface_tension(t), sigma, 4e-12));
        EXPECT_EQ(ktl_surface_tension(t), ktl::surface_tension(t));
        EXPECT_EQ(ktl::saturation_at_temperature(t).surface_tension, ktl::surface_tension(t));
    }
    EXPECT_EQ(ktl::surface_tension(373.946), 0.0);
    for (const double t : {0.0, 373.9461, -300.0, std::nan(""), HUGE_VAL})
        EXPECT_TRUE(std::isnan(ktl::surface_tension(t))) << t;
    ktl_saturation point;
    EXPECT_EQ(ktl_saturation_at_pressure(1.0, &point), KTL_STATUS_SOLVED);
    EXPECT_EQ(point.surface_tension, ktl::surface_tension(point.t));
    EXPECT_TRUE(std::isnan(ktl::saturation_at_temperature(400.0).surface_tension));
}

} // namespace
