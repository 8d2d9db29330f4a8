// To which sub-region the limits themselves belong, in single calls and in columns.
#include "engine/solution.hpp"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <ktl/ktlftn.h>
#include <ktl/steam.hpp>
#include <vector>

namespace {

using ktl::Pair;
using ktl::Property;
using ktl::Region;

/// The 2/3 boundary as the formulation prints it.
double boundary(double t) {
    const double theta = (t + 273.15) / 647.3;
    return 221.2 * ((19.31380707 * theta - 34.17061978) * theta + 15.74373327);
}

/// Regions of p, t rows, by single calls; columns must agree.
std::vector<Region> regions(const std::vector<double>& p, const std::vector<double>& t) {
    std::vector<Region> single;
    for (std::size_t i = 0; i < p.size(); ++i) single.push_back(ktl::state(Pair::pt, p[i], t[i]).region());
    std::vector<double> column(p.size());
    std::vector<ktl::Status> status(p.size());
    const std::array wanted{Property::region};
    const std::array<double*, 1> outputs{column.data()};
    EXPECT_EQ(ktl::batch(Pair::pt, p, t, wanted, outputs, status).solved, p.size());
    for (std::size_t i = 0; i < p.size(); ++i)
        EXPECT_EQ(column[i], static_cast<double>(single[i])) << p[i] << ' ' << t[i];
    return single;
}

TEST(Borders, TheBoundaryBelongsToSteamToTheLastBit) {
    std::vector<double> on, below, above, t;
    for (int n = 0; n < 5000; ++n) {
        t.push_back(350.001 + 239.99 * n / 5000.0);
        on.push_back(boundary(t.back()));
        below.push_back(std::nextafter(on.back(), 0.0));
        above.push_back(std::nextafter(on.back(), 1e4));
    }
    for (const Region region : regions(on, t)) EXPECT_EQ(region, Region::steam);
    for (const Region region : regions(below, t)) EXPECT_EQ(region, Region::steam);
    for (const Region region : regions(above, t)) EXPECT_EQ(region, Region::near_critical_steam);
}

/// Water and steam at 350 degC are those of sub-regions 1 and 2 for the exact search, too, next to the saturation line.
TEST(Borders, TheIsotherm350BelongsToWaterAndSteam) {
    const double p = ktl_pt(350.0);
    for (const double off : {1.0e-7, 0.1, 0.9}) {
        EXPECT_EQ(ktl::engine::search(Pair::pt, p * (1.0 + off), 350.0, 0).region, Region::water) << off;
        EXPECT_EQ(ktl::engine::search(Pair::pt, p * (1.0 - off), 350.0, 0).region, Region::steam) << off;
        const double above = std::nextafter(350.0, 351.0);
        EXPECT_EQ(ktl::engine::search(Pair::pt, p * (1.0 + off), above, 0).region, Region::near_critical_water) << off;
    }
}

TEST(Borders, LimitsBelongToTheRange) {
    const double past_350 = std::nextafter(350.0, 400.0);
    const double past_590 = std::nextafter(590.0, 600.0);
    struct Row {
        double p, t;
        Region region;
    };
    const Row rows[] = {
        {0.006112444, 0.02, Region::steam},  {1000.0, 0.01, Region::water},
        {0.006112444, 800.0, Region::steam}, {1000.0, 800.0, Region::steam},
        {1000.0, 350.0, Region::water},      {1000.0, past_350, Region::near_critical_water},
        {200.0, 350.0, Region::water},       {160.0, 350.0, Region::steam},
        {160.0, past_350, Region::steam},    {1000.0, past_590, Region::steam},
        {999.0, 590.0, Region::steam},       {300.0, 400.0, Region::near_critical_steam},
    };
    std::vector<double> p, t;
    for (const Row& row : rows) p.push_back(row.p), t.push_back(row.t);
    const std::vector<Region> found = regions(p, t);
    for (std::size_t i = 0; i < found.size(); ++i) EXPECT_EQ(found[i], rows[i].region) << p[i] << ", " << t[i];
}

} // namespace
