// Steps from state to state.
#include "diagram/pictures.hpp"

#include <gtest/gtest.h>

namespace ktl::diagram {
namespace {

const Picture& hs = pictures[0];

State at(Pair pair, double a, double b) { return state(pair, a, b); }

TEST(StepEnd, KeepsEntropyOrEnthalpy) {
    const State steam = at(Pair::pt, 100.0, 500.0);
    const State ideal = step_end(steam, Step::isentropic, 1.0);
    EXPECT_NEAR(ideal.s(), steam.s(), 1.0e-9);
    const State real = step_end(steam, Step::isentropic, 1.0, 0.8);
    EXPECT_NEAR((steam.h() - real.h()) / (steam.h() - ideal.h()), 0.8, 1.0e-9);
    const State water = at(Pair::pt, 1.0, 30.0);
    const State pumped = step_end(water, Step::isentropic, 200.0, 0.5);
    EXPECT_NEAR((step_end(water, Step::isentropic, 200.0).h() - water.h()) / (pumped.h() - water.h()), 0.5, 1.0e-6);
    EXPECT_NEAR(step_end(steam, Step::isenthalpic, 1.0).h(), steam.h(), 1.0e-6);
    for (const State& none :
         {step_end(steam, Step::isobaric, 1.0), step_end(steam, Step::straight, 1.0),
          step_end(State(), Step::isentropic, 1.0), step_end(steam, Step::isentropic, 1.0, 0.0),
          step_end(steam, Step::isentropic, 1.0, 1.1), step_end(steam, Step::isentropic, -1.0),
          step_end(steam, Step::isentropic, std::nan("")), step_end(steam, Step::isenthalpic, 2000.0),
          step_end(at(Pair::pt, 10.0, 790.0), Step::isentropic, 900.0)})
        EXPECT_FALSE(none);
}

TEST(ProcessLine, FollowsItsStep) {
    const State a = at(Pair::pt, 50.0, 500.0), b = at(Pair::pt, 50.0, 200.0); // condensed, at h 853: below the window
    const Line isobar = process_line(a, b, Step::isobaric, hs.axes, hs.window, 0.05);
    ASSERT_EQ(isobar.fault, Fault::none);
    EXPECT_EQ(isobar.pieces.front().points.front().h, a.h());
    EXPECT_EQ(isobar.pieces.front().end, End::dome);
    EXPECT_EQ(isobar.pieces.back().end, End::window);
    for (const Piece& piece : isobar.pieces)
        for (const Point& point : piece.points) EXPECT_NEAR(point.p, 50.0, 1.0e-8);

    // Reheating with a drop of pressure, which is even over the enthalpy.
    const State hot = at(Pair::pt, 40.0, 600.0);
    const Line drop = process_line(a, hot, Step::isobaric, hs.axes, hs.window, 0.05);
    for (const Point& point : drop.pieces.front().points)
        EXPECT_NEAR(point.p, 50.0 - 10.0 * (point.h - a.h()) / (hot.h() - a.h()), 1.0e-7);

    const State end = step_end(a, Step::isentropic, 0.05, 0.85);
    const Line expansion = process_line(a, end, Step::isentropic, hs.axes, hs.window, 0.05);
    EXPECT_EQ(expansion.pieces.back().points.size(), 2U); // straight to the real end
    EXPECT_NEAR(expansion.pieces.back().points.back().s, end.s(), 1.0e-12);
    for (std::size_t i = 0; i + 1 < expansion.pieces.size(); ++i)
        for (const Point& point : expansion.pieces[i].points) EXPECT_NEAR(point.s, a.s(), 1.0e-9);

    const Line throttle =
        process_line(a, step_end(a, Step::isenthalpic, 5.0), Step::isenthalpic, hs.axes, hs.window, 0.05);
    for (const Point& point : throttle.pieces.front().points) EXPECT_NEAR(point.h, a.h(), 1.0e-6);

    EXPECT_EQ(process_line(a, State(), Step::straight, hs.axes, hs.window, 0.05).fault, Fault::process_range);
    const State low = at(Pair::pt, 10.0, 50.0);
    EXPECT_EQ(process_line(low, low, Step::straight, hs.axes, hs.window, 0.05).fault, Fault::outside_window);
}

TEST(ProcessLine, IsCutOffAtTheWindow) {
    struct Row {
        double h1, s1, h2, s2;
        int pieces;
    };
    const Row rows[] = {{3000.0, 6.0, 3200.0, 7.0, 1}, {1000.0, 2.6, 3000.0, 6.0, 1}, {3000.0, 6.0, 1000.0, 2.6, 1},
                        {500.0, 1.5, 4000.0, 10.0, 1}, {500.0, 1.5, 700.0, 2.0, 0},   {3800.0, 9.6, 3900.0, 10.2, 0}};
    for (const Row& row : rows) {
        const State a = at(Pair::hs, row.h1, row.s1), b = at(Pair::hs, row.h2, row.s2);
        ASSERT_TRUE(a && b) << row.h1 << " " << row.h2;
        const Line line = process_line(a, b, Step::straight, hs.axes, hs.window, 0.05);
        ASSERT_EQ(line.pieces.size(), static_cast<std::size_t>(row.pieces)) << row.h1;
        for (const Piece& piece : line.pieces)
            for (const Point& point : piece.points) {
                EXPECT_GE(point.x, -1.0e-9);
                EXPECT_LE(point.x, hs.axes.x.length + 1.0e-9);
                // On the straight line from a to b.
                const double s = 5.0 + point.x / hs.axes.x.length * 4.5,
                             h = 1800.0 + point.y / hs.axes.y.length * 2400.0;
                EXPECT_NEAR((h - row.h1) * (row.s2 - row.s1), (s - row.s1) * (row.h2 - row.h1), 1.0e-6);
            }
    }
}

TEST(ProcessInAChart, HasItsStatesAndTheirNames) {
    Chart chart = preset(Preset::hs);
    chart.process = {{"boiler", at(Pair::pt, 160.0, 540.0), Step::straight},
                     {"", at(Pair::px, 0.05, 0.9), Step::isentropic},
                     {"condenser", at(Pair::px, 0.05, 0.0), Step::isobaric}};
    const Drawing drawing = compute(chart);
    ASSERT_EQ(drawing.fault, Fault::none);
    EXPECT_EQ(drawing.process.size(), 2U);
    ASSERT_EQ(drawing.states.size(), 3U);
    ASSERT_EQ(drawing.state_labels.size(), 2U); // the third one is outside the window
    EXPECT_EQ(drawing.state_labels[0].text, "boiler: 160 bar, 540 \xC2\xB0\x43");
    EXPECT_EQ(drawing.state_labels[1].text, "2: 0.05 bar, x = 0.9");
    for (const Label& label : drawing.state_labels) {
        const Point& state = drawing.states[label.line];
        EXPECT_LT(std::hypot(label.x - state.x, label.y - state.y), 0.5 * label.width + 15.0);
        EXPECT_GT(std::fmax(std::fabs(label.x - state.x) - 0.5 * label.width,
                            std::fabs(label.y - state.y) - 0.5 * label.height),
                  0.9);
    }
}

} // namespace
} // namespace ktl::diagram
