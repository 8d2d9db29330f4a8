// States on the limits of the range and of the sub-regions: their own values, rounded, have a state in every pair; and how
// many states a pair has beside saturation, turning points and limits.
#include "rows.hpp"
#include "searches/state.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <ktl/ktlftn.h>

namespace {

using ktl::Pair;
using ktl::Property;
using ktl::Region;
using ktl::State;
using ktl::Status;
using ktl::test::row_of;

constexpr double promised = 1e-10;

/// How far a value is from the given one: relative; h, s and u near zero against 10 of their units, x against 1.
double deviation(double given, const State& y, Property property) {
    const bool has_zero = property == Property::h || property == Property::s || property == Property::u;
    const double size = property == Property::x ? 1.0 : std::fmax(std::fabs(given), has_zero ? 10.0 : 0.0);
    return std::fabs(y.get(property) - given) / size;
}
double residual(Pair pair, const State& y, double a, double b) {
    return std::fmax(deviation(a, y, row_of(pair).a), deviation(b, y, row_of(pair).b));
}

/// A solved state has both values and lies in the range.
void expect_solved(Pair pair, double a, double b) {
    const State found = ktl::state(pair, a, b);
    const auto what = [&] { return ::testing::Message() << row_of(pair).name << ": " << a << ", " << b; };
    ASSERT_TRUE(found) << what() << ": " << ktl::sentence(found.status());
    EXPECT_LE(residual(pair, found, a, b), promised) << what();
    EXPECT_GE(found.p(), 0.006112444 * (1.0 - promised)) << what();
    EXPECT_LE(found.p(), 1000.0 * (1.0 + promised)) << what();
    EXPECT_GE(found.t(), 0.01 - 1e-12) << what();
    EXPECT_LE(found.t(), 800.0) << what();
    EXPECT_TRUE(!found.two_phase() || (found.x() >= 0.0 && found.x() <= 1.0)) << what() << ": x = " << found.x();
}

/// Values of states on limits, rounded or moved by less than they must be met to.
TEST(Limits, ValuesNextToThoseOfAStateHaveAState) {
    struct Row {
        const char* what;
        Pair pair;
        double a, b;
    };
    const Row rows[] = {
        {"1000 bar, both ends of the isotherm on one side", Pair::ts, 0.45580599002628869, -0.00034607600548816148},
        {"the same by u", Pair::tu, 3.1778665286802235, 12.347524411657304},
        {"the same, one digit below", Pair::ts, 2.1040124487527034, 0.022598736425036327},
        {"1000 bar, coldest, t below", Pair::ts, 0.0099999999999999967, -0.0065498452071928934},
        {"steam just inside the 2/3 boundary, u", Pair::tu, 589.91951305703367, 2548.0302223995641},
        {"sub-region 3 on the 2/3 boundary, v", Pair::tv, 589.99414679578592, 0.0025799563975755103},
        {"sub-region 3 on it, s and t moved", Pair::ts, 589.97966247635918, 5.0913649233642335},
        {"sub-region 3 at 1000 bar, t back at 350 degC, v", Pair::tv, 349.99999999999989, 0.0013147170817400342},
        {"the same, h", Pair::th, 350.0, 1550.4892839699023},
        {"the same, u", Pair::tu, 349.9999999999996, 1419.0175757958896},
        {"water at 350 degC and 1000 bar, t beyond", Pair::ts, 350.00000000000011, 3.3922479078130001},
        {"water at 350 degC and 994.9 bar, t beyond", Pair::th, 349.99999999999994, 1550.5706784623274},
        {"sub-region 3 at its corner, v, u", Pair::vu, 0.001314717081743465, 1419.0175757958934},
        {"the same, v, h", Pair::vh, 0.0013147170817342261, 1550.4892839699023},
        {"sub-region 3 at 1000 bar next to sub-region 2", Pair::us, 2548.3937013603731, 5.0915761702169373},
        {"sub-region 3 past 1000 bar by rounding, u", Pair::us, 2507.1195389155318, 5.0338709965221478},
        {"the same, h", Pair::hs, 2106.9786327188885, 4.2137851389838996},
        {"mixture below the least saturation pressure, v, s", Pair::vs, 58.653890674193313, 2.6052903512718273},
        {"the same, v, u", Pair::vu, 58.653890674193313, 675.84315710150713},
        {"the same, v, h", Pair::vh, 158.6239481753463, 1924.7320979241892},
        {"the same, almost steam", Pair::vu, 206.16283728137148, 2375.5532891965404},
        {"coldest water, u, s", Pair::us, 0.1113819056487643, 0.00038460606565586254},
        {"coldest water, v, h", Pair::vh, 0.00099874296832189418, 3.0236917473031282},
        {"coldest saturated water, v, h", Pair::vh, 0.0010002234927834999, 0.00061138106497852596},
        {"saturated steam at 350 degC, p beyond", Pair::pv, 165.35124056379539, 0.0087991029306435983},
        {"p and h moved at 1000 bar", Pair::ph, 1000.0000000542151, 2805.8889331167657},
        {"p moved at the least pressure", Pair::pu, 0.006112444 * (1.0 - 0.9e-10), 3663.4764824726944},
        {"t and h moved at 800 degC", Pair::th, 800.0 * (1.0 + 0.9e-10), 4158.738629316862},
        {"t and s moved at 1000 bar", Pair::ts, 800.0, 6.0396613722638373},
        {"t and h moved at saturated water", Pair::th, 160.19717509975126, 676.33203963878748},
        {"s near zero at the least temperature", Pair::ps, 0.0061124440017336313, -9.7394932824837807e-11},
        {"both moved at the greatest entropy", Pair::hs, 4158.7453422156395, 11.918292567074293},
        {"both moved at the end of the 2/3 boundary", Pair::us, 2548.2876879355076, 5.0915116612709612},
        {"t and s moved past 800 degC, least pressure", Pair::ts, 800.0 * (1.0 + 0.9e-10), 11.918292567074293},
        {"x moved past 1", Pair::px, 0.0061246690214705477, 1.0 + 0.9e-10},
        {"x moved past 0", Pair::tx, 374.15 * (1.0 + 0.9e-10), -0.9e-10},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        expect_solved(row.pair, row.a, row.b);
    }
}

/// Both neighbours of a value, and itself.
std::array<double, 3> neighbours(double value) {
    return {std::nextafter(value, -INFINITY), value, std::nextafter(value, INFINITY)};
}

/// Every pair, h, s of saturated cold water and s, x apart: states found there are another matter.
void expect_own_values(const State& y) {
    ASSERT_TRUE(y) << y.p() << ", " << y.t();
    for (std::size_t k = 0; k < ktl::pair_count; ++k) {
        const auto pair = static_cast<Pair>(k);
        const auto& row = ktl::test::pairs[k];
        const bool by_quality = row.b == Property::x;
        if (pair == Pair::pt || pair == Pair::hs || pair == Pair::sx || (by_quality && !y.two_phase())) continue;
        for (const double a : neighbours(y.get(row.a)))
            for (const double b : neighbours(y.get(row.b))) expect_solved(pair, a, b);
    }
}

TEST(Limits, OwnValuesAndTheirNeighboursHaveAState) {
    const double coldest = ktl::saturation_pressure(0.01);
    for (int n = 0; n <= 60; ++n) {
        const double share = n / 60.0;
        expect_own_values(ktl::state(Pair::pt, 1000.0, 0.01 + 5.0 * share));
        expect_own_values(ktl::state(Pair::pt, 1000.0, 589.9 + 0.2 * share));
        expect_own_values(ktl::state(Pair::pt, 1000.0, 800.0 * share + 0.01 * (1.0 - share)));
        expect_own_values(ktl::state(Pair::pt, 0.006112444, 800.0 * share + 0.02 * (1.0 - share)));
        expect_own_values(ktl::state(Pair::pt, 1000.0 * share + 0.007 * (1.0 - share), 0.01));
        expect_own_values(ktl::state(Pair::pt, 1000.0 * share + 0.007 * (1.0 - share), 800.0));
        expect_own_values(ktl::state(Pair::px, 0.006112444 * (1.0 - share) + coldest * share, 0.5 + 0.5 * share));
        const double t = 589.9 + 0.09999 * share;
        expect_own_values(ktl::state(Pair::pt, ktl::boundary_pressure(t) * (1.0 - 1e-15), t));
        expect_own_values(ktl::state(Pair::pt, ktl::boundary_pressure(t) * (1.0 + 1e-15), t));
        for (const double border : {350.0, std::nextafter(350.0, 351.0)})
            expect_own_values(ktl::state(Pair::pt, 166.0 + 834.0 * share, border));
    }
}

TEST(Limits, NamedFindersReachTheGreatestPressure) {
    const auto u1 = [](const double& p, const double& t) { return ktl_d1(p, t) - 100.0 * p * ktl_c1(p, t); };
    int water = 0;
    for (int n = 0; n <= 400; ++n) {
        const double t = 0.01 + 4.69 * n / 400.0;
        for (const bool by_u : {false, true}) {
            for (const double wanted : neighbours(by_u ? u1(1000.0, t) : ktl_e1(1000.0, t))) {
                double first = t;
                double second = wanted;
                const int region = by_u ? ktlrtu(first, second, 1e-8) : ktlrts(first, second, 1e-8);
                ASSERT_NE(region, KTL_NO_STATE) << t << (by_u ? " u" : " s");
                if (region == KTL_WET) continue; // goes before water of higher pressure
                EXPECT_NEAR(by_u ? u1(first, second) : ktl_e1(first, second), wanted, 1e-8);
                ++water;
            }
        }
    }
    EXPECT_GE(water, 2000);
}

/// Saturated phases share their pressure, up to the critical point.
TEST(Limits, SaturatedPhasesHaveThePressureOfTheLine) {
    for (const double t : {0.01, 100.0, 350.0, 360.0, 374.1, 374.1496, 374.15 - 1e-9, 374.15}) {
        const ktl::Saturation line = ktl::saturation_at_temperature(t);
        EXPECT_EQ(line.liquid.p(), line.p) << t;
        EXPECT_EQ(line.vapour.p(), line.p) << t;
        expect_solved(Pair::px, line.vapour.p(), 1.0);
    }
}

TEST(Limits, MixturesOfHardlyAnySteamAboveSubRegionOneStayOutsideTheDome) {
    for (double t = 350.5; t < 374.1; t += 1.3) {
        const ktl::Saturation line = ktl::saturation_at_temperature(t);
        for (const double x : {9e-7, 1e-7, 1e-8, 1e-9}) {
            const State y = ktl::state(Pair::tx, t, x);
            for (const Pair pair : {Pair::th, Pair::ts, Pair::tu}) {
                const double b = y.get(row_of(pair).b);
                const State found = ktl::state(pair, t, b);
                ASSERT_TRUE(found);
                EXPECT_LE(residual(pair, found, t, b), promised);
                EXPECT_EQ(found.region(), Region::wet_near_critical) << t << ", " << x;
                EXPECT_GE(found.v(), line.liquid.v()) << t << ", " << x;
            }
        }
    }
}

/// Values of a property along a line of constant pressure or temperature, in its order, in
/// steps so close that the property turns within one by less than 2e-8 of it.
struct Walk {
    std::vector<double> y;

    /// How often the line passes the value.
    [[nodiscard]] int count(double value) const {
        int passed = 0;
        for (std::size_t i = 1; i < y.size(); ++i) passed += (y[i - 1] < value) != (y[i] < value) ? 1 : 0;
        return passed;
    }
};

constexpr int steps = 6000;
/// Volumes of water in close steps up to 15 degC, of saturated phases up to 350 degC and at 800 degC.
Walk along_isobar(double p) {
    Walk walk;
    const double ts = p < ktl_pt(350.0) ? ktl::saturation_temperature(p) : 350.0;
    const double end = std::min(ts, 15.0);
    for (int i = 0; i <= steps; ++i) walk.y.push_back(ktl_c1(p, i == steps ? end : 0.01 + (end - 0.01) * i / steps));
    walk.y.push_back(ktl_c1(p, ts));
    if (ts < 350.0) walk.y.push_back(ktl_c2(p, ts));
    walk.y.push_back(ktl_c2(p, 800.0));
    return walk;
}
/// Steam, mixture and, in steps that grow from saturation on, water.
Walk along_isotherm(Pair pair, double t) {
    const auto value = [&](bool water, double p) {
        if (pair == Pair::ts) return water ? ktl_e1(p, t) : ktl_e2(p, t);
        const double h = water ? ktl_d1(p, t) : ktl_d2(p, t);
        return pair == Pair::th ? h : h - 100.0 * p * (water ? ktl_c1(p, t) : ktl_c2(p, t));
    };
    const double ps = ktl_pt(t);
    Walk walk{{value(false, 0.006112444), value(false, ps)}};
    for (int i = 0; i <= steps; ++i) {
        const double share = static_cast<double>(i) / steps;
        walk.y.push_back(value(true, i == steps ? 1000.0 : ps + (1000.0 - ps) * share * share * share));
    }
    return walk;
}

void expect_count(Pair pair, double a, double b, int expected) {
    ASSERT_EQ(ktl::state_count(pair, a, b), expected) << row_of(pair).name << ": " << a << ", " << b;
    for (int n = 0; n < expected; ++n) {
        const State y = ktl::state(pair, a, b, n);
        ASSERT_TRUE(y) << n;
        EXPECT_LE(residual(pair, y, a, b), promised) << n;
        for (int m = 0; m < n; ++m) {
            const State other = ktl::state(pair, a, b, m);
            EXPECT_TRUE(std::fabs(y.t() - other.t()) > 1e-6 || std::fabs(y.p() / other.p() - 1.0) > 1e-8);
        }
    }
}

/// As often as the line passes the value; next to saturated water, to the turning point and to both ends, from 2e-8 of the
/// value on.
void expect_counts(Pair pair, double a, const Walk& walk) {
    ASSERT_GT(walk.y.size(), 3U);
    std::vector<double> nodes{walk.y.front(), walk.y.back()};
    for (std::size_t i = 1; i + 1 < walk.y.size(); ++i)
        if ((walk.y[i] - walk.y[i - 1]) * (walk.y[i + 1] - walk.y[i]) <= 0.0) nodes.push_back(walk.y[i]);
    for (const double node : nodes) {
        for (const double off : {-1e-3, -1e-5, -1e-6, -2e-8, 2e-8, 1e-6, 1e-5, 1e-3}) {
            const double size = pair == Pair::pv ? node : std::fmax(std::fabs(node), 10.0);
            const double b = node + off * size;
            expect_count(pair, a, b, walk.count(b));
        }
    }
}

TEST(Counts, AgreeWithAWalkAlongTheLine) {
    const double psat8 = ktl_pt(8.0);
    for (const double p : {ktl_pt(0.5), ktl_pt(3.0), psat8, 0.05, 1.0, 20.0, 148.5, 200.0, 274.0, 400.0})
        expect_counts(Pair::pv, p, along_isobar(p));
    for (const double t : {0.01, 0.2, 0.5, 1.0, 2.5, 3.9, 8.0, 60.0, 150.0, 207.0, 235.0, 252.0, 280.0, 306.0, 330.0})
        for (const Pair pair : {Pair::th, Pair::ts, Pair::tu}) expect_counts(pair, t, along_isotherm(pair, t));
}

TEST(Counts, BesideSaturationAndAtLimits) {
    struct Row {
        const char* what;
        Pair pair;
        double a, b;
        int count;
    };
    const auto v1 = [](double p, double t) { return ktl::state(Pair::pt, p, t).v(); };
    const double least = ktl::state(Pair::pv, 148.48359472045908, 0.00099287560201188571).v() * (1.0 - 5.1e-13);
    const ktl::Saturation line = ktl::saturation_at_temperature(0.01);
    const Row rows[] = {
        {"next to the least volume", Pair::pv, 148.48359472045908, 0.00099287560201188571, 2},
        {"the least volume", Pair::pv, 148.48359472045908, least, 1},
        {"below the least volume", Pair::pv, 148.48359472045908, least * (1.0 - 2e-10), 0},
        {"0.01 degC", Pair::pv, 10.0, v1(10.0, 0.01), 2},
        {"0.01 degC, rounded past it", Pair::pv, 10.0, std::nextafter(v1(10.0, 0.01), 1.0), 2},
        {"beyond 0.01 degC", Pair::pv, 10.0, v1(10.0, 0.01) * (1.0 + 2e-10), 1},
        {"saturated water, u, at 0.01 degC", Pair::tu, 0.01, line.liquid.u(), 1},
        {"water and mixture of hardly any steam, u", Pair::tu, 0.01, 1.6083115682789681e-07, 2},
        {"the same", Pair::tu, 0.50060553168692867, 2.0686513947261616, 2},
        {"1000 bar, s", Pair::ts, 0.5, ktl_e1(1000.0, 0.5), 1},
        {"1000 bar, h", Pair::th, 300.0, ktl_d1(1000.0, 300.0), 2},
        {"1000 bar, u", Pair::tu, 0.01, ktl_d1(1000.0, 0.01) - 1e5 * ktl_c1(1000.0, 0.01), 3},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        expect_count(row.pair, row.a, row.b, row.count);
    }
}

} // namespace
