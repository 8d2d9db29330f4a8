// Lines against states that are walked along by other means: values, deviation, completeness, ends, faults.
#include "diagram/pictures.hpp"

#include <gtest/gtest.h>
#include <string>

namespace ktl::diagram {
namespace {

struct Given {
    Property held;
    double value;
};
std::ostream& operator<<(std::ostream& out, const Given& given) {
    return out << "property " << static_cast<int>(given.held) << " = " << given.value;
}

// Ordinary lines, and those of limits, of the dome's extrema, of borders and of the neighbourhood of the critical point.
const Given lines[] = {
    {Property::p, 0.006112444}, {Property::p, 0.01},     {Property::p, 1.0},     {Property::p, 165.0},
    {Property::p, 166.0},       {Property::p, 221.0},    {Property::p, 221.2},   {Property::p, 230.0},
    {Property::p, 1000.0},      {Property::t, 0.01},     {Property::t, 4.0},     {Property::t, 150.0},
    {Property::t, 350.0},       {Property::t, 350.001},  {Property::t, 374.0},   {Property::t, 374.15},
    {Property::t, 380.0},       {Property::t, 590.0},    {Property::t, 800.0},   {Property::x, 0.0},
    {Property::x, 0.05},        {Property::x, 0.5},      {Property::x, 1.0},     {Property::v, 0.00096},
    {Property::v, 0.0010001},   {Property::v, 0.001001}, {Property::v, 0.00317}, {Property::v, 0.0088},
    {Property::v, 0.1},         {Property::v, 200.0},    {Property::v, 700.0},   {Property::h, 2.0},
    {Property::h, 1500.0},      {Property::h, 2100.0},   {Property::h, 2700.0},  {Property::h, 2800.0},
    {Property::h, 2803.0},      {Property::h, 2804.0},   {Property::h, 4150.0},  {Property::s, -0.004},
    {Property::s, 0.001},       {Property::s, 4.44},     {Property::s, 6.0},     {Property::s, 9.0},
    {Property::s, 11.5},        {Property::u, 0.3},      {Property::u, 2029.0},  {Property::u, 2550.0},
    {Property::u, 2600.0},      {Property::u, 3500.0},
};

/// How closely states have a value: 1e-10 of it, or of 10 kJ/kg and 1 kJ/(kg K) near zero.
double closeness(Property property, double value) {
    const double least = property == Property::h || property == Property::u ? 10.0
                         : property == Property::s                          ? 1.0
                                                                            : 0.0;
    return 1.0e-10 * std::fmax(std::fabs(value), least);
}

double between(double a, double b, double part, bool ratio) {
    return ratio ? a * std::pow(b / a, part) : a + part * (b - a);
}

/// The state of a line part of the way from one state to another.
State state_between(const Given& given, const Point& a, const Point& b, double part) {
    const bool wet = a.region == Region::wet || a.region == Region::wet_near_critical;
    switch (given.held) {
    case Property::p: return state(Pair::ph, given.value, between(a.h, b.h, part, false));
    case Property::t:
        if (wet) return state(Pair::tx, given.value, between(a.quality, b.quality, part, false));
        return state(Pair::pt, between(a.p, b.p, part, true), given.value);
    case Property::x: return state(Pair::tx, between(a.t, b.t, part, false), given.value);
    case Property::v: return state(Pair::tv, between(a.t, b.t, part, false), given.value);
    case Property::h: return state(Pair::ph, between(a.p, b.p, part, true), given.value);
    case Property::s: return state(Pair::ps, between(a.p, b.p, part, true), given.value);
    default: return state(Pair::pu, between(a.p, b.p, part, true), given.value);
    }
}

/// The place of a state in a picture.
Point placed(const State& at, const Picture& picture) {
    Point point;
    const Axis &x = picture.axes.x, &y = picture.axes.y;
    point.x = place(x, picture.window.left, picture.window.right, at.get(x.property));
    point.y = place(y, picture.window.bottom, picture.window.top, at.get(y.property));
    return point;
}
bool inside(const Point& point, const Axes& axes, double margin) {
    return point.x >= margin && point.x <= axes.x.length - margin && point.y >= margin &&
           point.y <= axes.y.length - margin;
}

void check_end(const Given& given, const Picture& picture, const Point& point, End end) {
    const auto near = [](double a, double b) { return std::fabs(a - b) <= 1.0e-9 * std::fabs(b); };
    if (end == End::window) {
        EXPECT_FALSE(inside(point, picture.axes, 2.0e-6));
        EXPECT_TRUE(inside(point, picture.axes, -2.0e-6));
    } else if (end == End::range) {
        EXPECT_TRUE(near(point.p, 1000.0) || near(point.p, 0.006112444) || near(point.t, 800.0) ||
                    std::fabs(point.t - 0.01) < 1.0e-7)
            << point.p << " bar, " << point.t << " degC";
    } else if (end == End::dome && given.held != Property::x) {
        const Saturation at =
            given.held == Property::p ? saturation_at_pressure(point.p) : saturation_at_temperature(point.t);
        ASSERT_EQ(at.status, Status::solved) << point.t;
        EXPECT_NEAR(point.p, at.p, 1.0e-9 * at.p);
        const bool steam = std::fabs(point.v - at.vapour.v()) < std::fabs(point.v - at.liquid.v());
        const Phase& phase = steam ? at.vapour : at.liquid;
        for (const Property property : {Property::v, Property::h, Property::s})
            EXPECT_NEAR(point.get(property), phase.get(property), 10.0 * closeness(property, phase.get(property)));
        if (given.held != Property::p && given.held != Property::t) {
            EXPECT_NEAR(phase.get(given.held), given.value, closeness(given.held, given.value));
        }
    }
}

class Lines : public testing::TestWithParam<Picture> {};

TEST_P(Lines, HaveTheirValueAtStatesOfTheLibrary) {
    const Picture& picture = GetParam();
    std::size_t points = 0;
    for (const Given& given : lines) {
        SCOPED_TRACE(testing::PrintToString(given));
        const Line line = isoline(given.held, given.value, picture.axes, picture.window, 0.05);
        ASSERT_TRUE(line.fault == Fault::none || line.fault == Fault::outside_window) << sentence(line.fault);
        ASSERT_EQ(line.fault == Fault::none, !line.pieces.empty());
        for (const Piece& piece : line.pieces) {
            ASSERT_GE(piece.points.size(), 2U);
            check_end(given, picture, piece.points.front(), piece.begin);
            check_end(given, picture, piece.points.back(), piece.end);
            for (const Point& point : piece.points) {
                ++points;
                ASSERT_NEAR(point.get(given.held), given.value, closeness(given.held, given.value));
                ASSERT_TRUE(inside(point, picture.axes, -1.0e-6)) << point.x << ", " << point.y;
                const bool wet = point.region == Region::wet || point.region == Region::wet_near_critical;
                ASSERT_EQ(piece.two_phase(), wet);
                // The same state by t and v. On a border of sub-regions, where a piece ends, these may take the other one.
                State same = wet ? state(Pair::tx, point.t, point.quality) : state(Pair::tv, point.t, point.v);
                const bool at_border = (&point == &piece.points.front() && piece.begin == End::sub_region) ||
                                       (&point == &piece.points.back() && piece.end == End::sub_region);
                if (at_border && same.region() != point.region) same = state(Pair::pt, point.p, point.t);
                if (at_border && same.region() != point.region) continue;
                ASSERT_TRUE(same) << sentence(same.status());
                ASSERT_NEAR(same.h(), point.h, 1.0e-6);
                ASSERT_NEAR(same.s(), point.s, 1.0e-8);
                ASSERT_NEAR(placed(same, picture).x, point.x, 1.0e-3);
            }
        }
    }
    EXPECT_GT(points, 150U);
}

TEST_P(Lines, DeviateByLessThanStated) {
    const Picture& picture = GetParam();
    for (const double tolerance : {0.02, 1.0}) {
        for (const Given& given : lines) {
            SCOPED_TRACE(testing::PrintToString(given));
            const Line line = isoline(given.held, given.value, picture.axes, picture.window, tolerance);
            double worst = 0.0;
            for (const Piece& piece : line.pieces) {
                for (std::size_t i = 1; i < piece.points.size(); ++i) {
                    const Point &a = piece.points[i - 1], &b = piece.points[i];
                    for (int k = 1; k < 10; ++k) {
                        const State at = state_between(given, a, b, 0.1 * k);
                        if (!at) continue; // on the saturation line, where p and t leave the quality open
                        worst = std::fmax(worst, distance_to_segment(placed(at, picture), a, b));
                    }
                }
            }
            EXPECT_LE(worst, tolerance);
        }
    }
}

/// All states with the value, walked from limit to limit, lie on the line if they are in the window.
TEST_P(Lines, AreComplete) {
    const Picture& picture = GetParam();
    constexpr double tolerance = 0.05;
    constexpr int count = 400;
    int seen = 0;
    for (const Given& given : lines) {
        SCOPED_TRACE(testing::PrintToString(given));
        const Line line = isoline(given.held, given.value, picture.axes, picture.window, tolerance);
        for (int i = 0; i <= count; ++i) {
            const double even = static_cast<double>(i) / count, rest = 1.0 - even;
            // Quality lines turn sharply close to the critical point.
            const double part = given.held == Property::x ? 1.0 - rest * rest * rest * rest : even;
            Point a, b; // of all that state_between() may take
            a.p = 0.006112444, b.p = 1000.0;
            a.t = 0.01, b.t = given.held == Property::x ? 374.15 : 800.0;
            a.h = -1.0, b.h = 4160.0;
            a.region = b.region = i % 2 == 0 ? Region::wet : Region::steam;
            a.quality = 0.0, b.quality = 1.0;
            const State at = state_between(given, a, b, part);
            if (!at || !inside(placed(at, picture), picture.axes, 1.0e-6)) continue;
            ++seen;
            ASSERT_LE(distance_to_line(placed(at, picture), line), tolerance)
                << at.p() << " bar, " << at.t() << " degC, " << at.v() << " m3/kg";
        }
    }
    EXPECT_GT(seen, 500);
}

INSTANTIATE_TEST_SUITE_P(Pictures, Lines, testing::ValuesIn(pictures), [](const auto& picture) {
    std::string name;
    for (const char c : std::string(picture.param.name))
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) name += c;
    return name;
});

/// The pieces of a line by what they begin and end with: R range, D dome, S sub-region, W window.
std::string shape(const Line& line) {
    std::string out;
    for (const Piece& piece : line.pieces) {
        constexpr const char* letters = "RWDS";
        out += out.empty() ? "" : " ";
        out += letters[static_cast<int>(piece.begin)];
        out += piece.two_phase() ? "=" : "-";
        out += letters[static_cast<int>(piece.end)];
    }
    return out;
}

TEST(Splits, LieAtTheDomeAndAtSubRegions) {
    struct Row {
        Property held;
        double value;
        const char* shape; // in p over h
    };
    const Row rows[] = {
        {Property::p, 1.0, "R-D D=D D-R"},
        {Property::p, 200.0, "R-S S-D D=D D-S S-R"}, // 350 degC; the 2/3 boundary
        {Property::p, 300.0, "R-S S-S S-R"},
        {Property::t, 100.0, "R-D D=D D-R"},
        {Property::t, 360.0, "R-S S-D D=D D-R"},
        {Property::t, 700.0, "R-R"},
        {Property::v, 0.01, "R=D D-R"},
        {Property::h, 2790.0, "R-D D=D D-S S-R"}, // two crossings of saturated steam
        {Property::h, 2804.0, "R-S S-R"},         // none: the highest is below 2803 kJ/kg
        {Property::s, 6.0, "R=D D-R"},
        {Property::x, 0.5, "R=S S=D"},        // 350 degC
        {Property::u, 1900.0, "R=S S=D D-R"}, // on the dome rounding takes states to its other side and back: one crossing
    };
    const Picture& picture = pictures[3];
    for (const Row& row : rows)
        EXPECT_EQ(shape(isoline(row.held, row.value, picture.axes, picture.window, 0.05)), row.shape)
            << testing::PrintToString(Given{row.held, row.value});
}

TEST(Splits, LeaveOutPiecesWithoutExtent) {
    const Axes axes{{Property::t, false, 100.0}, {Property::p, true, 100.0}};
    const Window window{0.0, 800.0, 0.005, 1000.0};
    EXPECT_EQ(shape(isoline(Property::p, 1.0, axes, window, 0.05)), "R-D D-R"); // all mixtures have one place
    EXPECT_EQ(shape(isoline(Property::t, 100.0, axes, window, 0.05)), "R-D D-R");
    EXPECT_EQ(shape(isoline(Property::x, 0.5, axes, window, 0.05)), "R=S S=D");
}

TEST(Dome, EndsAtTheCriticalPointAndAtTheTriplePoint) {
    const Picture& picture = pictures[1];
    const Dome both = dome(picture.axes, picture.window, 0.05);
    const Point water = both.water.pieces.back().points.back(), steam = both.steam.pieces.back().points.back();
    EXPECT_NEAR(water.x, steam.x, 1.0e-3);
    EXPECT_NEAR(water.p, 221.2, 1.0e-6);
    EXPECT_NEAR(both.steam.pieces.front().points.front().t, 0.01, 1.0e-12);
}

TEST(Faults, AreNamed) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN(), inf = std::numeric_limits<double>::infinity();
    const Picture& hs = pictures[0];
    struct Row {
        Fault fault;
        Property held;
        double value;
        Axes axes;
        Window window;
        double tolerance;
    };
    const auto axes = [&](Property x, Property y, bool log_y = false, double length = 100.0) {
        return Axes{{x, false, length}, {y, log_y, 100.0}};
    };
    const Row rows[] = {
        {Fault::axis_property, Property::p, 1.0, axes(Property::s, Property::s), hs.window, 0.05},
        {Fault::axis_property, Property::p, 1.0, axes(Property::s, Property::x), hs.window, 0.05},
        {Fault::axis_property, Property::p, 1.0, axes(Property::s, static_cast<Property>(200)), hs.window, 0.05},
        {Fault::axis_length, Property::p, 1.0, axes(Property::s, Property::h, false, nan), hs.window, 0.05},
        {Fault::axis_length, Property::p, 1.0, axes(Property::s, Property::h, false, 1.0e9), hs.window, 0.05},
        {Fault::empty_window, Property::p, 1.0, hs.axes, {9.5, 5.0, 1800.0, 4200.0}, 0.05},
        {Fault::empty_window, Property::p, 1.0, hs.axes, {5.0, 9.5, 1800.0, 1800.0}, 0.05},
        {Fault::empty_window, Property::p, 1.0, hs.axes, {5.0, nan, 1800.0, 4200.0}, 0.05},
        {Fault::empty_window, Property::p, 1.0, hs.axes, {5.0, 9.5, -inf, 4200.0}, 0.05},
        {Fault::empty_window, Property::p, 1.0, hs.axes, {5.0, 5.0 + 1.0e-320, 1.0e-320, 2.0e-320}, 0.05},
        {Fault::empty_window, Property::p, 1.0, hs.axes, {5.0, 9.5, 3000.0, 3000.001}, 0.05},
        {Fault::tolerance, Property::p, 1.0, hs.axes, hs.window, 3.0e-5},
        {Fault::tolerance, Property::p, 1.0, hs.axes, hs.window, 1001.0},
        {Fault::window_not_above_zero,
         Property::t,
         1.0,
         axes(Property::h, Property::p, true),
         {0.0, 1.0, 0.0, 1.0},
         0.05},
        {Fault::window_out_of_range, Property::p, 1.0, hs.axes, {5.0, 9.5, 4200.0, 4300.0}, 0.05},
        {Fault::window_out_of_range, Property::p, 1.0, hs.axes, {-3.0, -1.0, 0.0, 4300.0}, 0.05},
        {Fault::held_property, Property::cp, 1.0, hs.axes, hs.window, 0.05},
        {Fault::held_property, static_cast<Property>(255), 1.0, hs.axes, hs.window, 0.05},
        {Fault::held_value, Property::p, nan, hs.axes, hs.window, 0.05},
        {Fault::held_value, Property::v, inf, hs.axes, hs.window, 0.05},
        {Fault::no_line, Property::p, 0.006, hs.axes, hs.window, 0.05},
        {Fault::no_line, Property::p, 1000.1, hs.axes, hs.window, 0.05},
        {Fault::no_line, Property::p, -1.0, hs.axes, hs.window, 0.05},
        {Fault::no_line, Property::t, 801.0, hs.axes, hs.window, 0.05},
        {Fault::no_line, Property::x, 1.1, hs.axes, hs.window, 0.05},
        {Fault::no_line, Property::v, -0.1, hs.axes, hs.window, 0.05},
        {Fault::no_line, Property::v, 1.0e300, hs.axes, hs.window, 0.05},
        {Fault::no_line, Property::h, 5000.0, hs.axes, hs.window, 0.05},
        {Fault::no_line, Property::s, -1.0, hs.axes, hs.window, 0.05},
        {Fault::no_line, Property::u, -1.0e300, hs.axes, hs.window, 0.05},
        {Fault::outside_window, Property::h, 100.0, hs.axes, hs.window, 0.05},
        {Fault::tolerance, Property::p, 1.0, hs.axes, hs.window, 0.0},
        {Fault::tolerance, Property::p, 1.0, hs.axes, hs.window, nan},
    };
    for (const Row& row : rows) {
        const Line line = isoline(row.held, row.value, row.axes, row.window, row.tolerance);
        EXPECT_EQ(line.fault, row.fault) << testing::PrintToString(Given{row.held, row.value}) << ": "
                                         << sentence(line.fault) << ", not: " << sentence(row.fault);
        EXPECT_TRUE(line.pieces.empty());
    }
    EXPECT_STREQ(sentence(static_cast<Fault>(99)), "unknown fault");
}

TEST(NarrowWindows, GiveAsManyPointsAsTheDeviationAsksFor) {
    const Axes axes{{Property::s, false, 1000.0}, {Property::h, false, 1000.0}};
    const State near = state(Pair::pt, 30.0, 300.0);
    const Window window{near.s() - 4.0e-6, near.s() + 4.0e-6, near.h() - 2.0e-3, near.h() + 2.0e-3};
    for (const Property held : {Property::p, Property::t, Property::v, Property::h, Property::s, Property::u}) {
        std::size_t points = 0;
        for (const Piece& piece : isoline(held, near.get(held), axes, window, 1.0e-4).pieces)
            points += piece.points.size();
        EXPECT_LT(points, 100U) << static_cast<int>(held);
        EXPECT_GE(points, 2U) << static_cast<int>(held);
    }
}

} // namespace
} // namespace ktl::diagram
