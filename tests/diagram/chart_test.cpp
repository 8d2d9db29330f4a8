// Charts: room of labels, values of families, texts of numbers.
#include "diagram/pictures.hpp"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace ktl::diagram {
namespace {

struct Corner {
    double x, y;
};
using Corners = std::array<Corner, 4>;

Corners corners(const Label& label) {
    Corners all{};
    std::size_t i = 0;
    for (const auto& [a, b] : {Corner{-0.5, -0.5}, {0.5, -0.5}, {0.5, 0.5}, {-0.5, 0.5}})
        all[i++] = {label.x + a * label.width * label.dx - b * label.height * label.dy,
                    label.y + a * label.width * label.dy + b * label.height * label.dx};
    return all;
}
double turn(const Corner& a, const Corner& b, const Corner& c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}
bool cross(const Corner& a, const Corner& b, const Corner& c, const Corner& d) {
    return turn(a, b, c) * turn(a, b, d) < 0.0 && turn(c, d, a) * turn(c, d, b) < 0.0;
}
bool holds(const Corners& box, const Corner& point) {
    return std::all_of(box.begin(), box.end(), [&, i = std::size_t{0}](const Corner&) mutable {
        const std::size_t k = i++;
        return turn(box[k], box[(k + 1) % 4], point) > 0.0;
    });
}
/// Two rectangles overlap if edges cross, or if one lies in the other.
bool overlap(const Corners& a, const Corners& b) {
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t k = 0; k < 4; ++k)
            if (cross(a[i], a[(i + 1) % 4], b[k], b[(k + 1) % 4])) return true;
    return holds(a, b[0]) || holds(b, a[0]);
}

void check_labels(const Chart& chart, const Drawing& drawing) {
    std::vector<Label> all = drawing.labels;
    all.insert(all.end(), drawing.state_labels.begin(), drawing.state_labels.end());
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_NEAR(std::hypot(all[i].dx, all[i].dy), 1.0, 1.0e-12);
        EXPECT_GE(all[i].width, 0.4 * chart.letter_height * static_cast<double>(all[i].text.size()) / 2.0);
        for (const Corner& corner : corners(all[i])) {
            EXPECT_TRUE(corner.x > 0.0 && corner.x < chart.axes.x.length && corner.y > 0.0 &&
                        corner.y < chart.axes.y.length)
                << all[i].text;
        }
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_FALSE(overlap(corners(all[i]), corners(all[k]))) << all[i].text << " and " << all[k].text;
    }
    for (const Label& label : drawing.labels) {
        Point middle;
        middle.x = label.x, middle.y = label.y;
        EXPECT_LE(distance_to_line(middle, drawing.lines[label.line]), 0.5 * label.height) << label.text;
        EXPECT_EQ(label.family, drawing.families[label.line]);
        EXPECT_TRUE(label.dx > 1.0e-7 || label.dy > 0.99) << label.text << " is upside down";
    }
}

double length(const Line& line) {
    double sum = 0.0;
    for (const Piece& piece : line.pieces)
        for (std::size_t i = 1; i < piece.points.size(); ++i)
            sum += std::hypot(piece.points[i].x - piece.points[i - 1].x, piece.points[i].y - piece.points[i - 1].y);
    return sum;
}

TEST(Labels, DoNotOverlap) {
    constexpr std::array<const char*, 5> names{"hs", "ts", "ph", "pv", "pt"};
    for (int number = 0; number < 5; ++number) {
        const auto kind = static_cast<Preset>(number);
        for (const System system : {System::bar, System::si, System::mpa, System::us}) {
            for (const double width : {392.0, 180.0, 90.0}) {
                SCOPED_TRACE(std::string(names[static_cast<std::size_t>(number)]) + " " + std::to_string(width));
                const Chart chart = preset(kind, system, width, 0.65 * width);
                const Drawing drawing = compute(chart);
                ASSERT_EQ(drawing.fault, Fault::none);
                check_labels(chart, drawing);
                if (width < 300.0) continue;
                const auto long_lines = std::count_if(drawing.lines.begin(), drawing.lines.end(),
                                                      [](const Line& line) { return length(line) > 60.0; });
                EXPECT_GE(static_cast<double>(drawing.labels.size()), 0.9 * static_cast<double>(long_lines));
            }
        }
    }
}

TEST(Labels, DoNotOverlapInWindows) {
    struct Row {
        Preset preset;
        Window window;
    };
    const Row rows[] = {
        {Preset::hs, {6.0, 7.0, 2600.0, 3400.0}},     {Preset::hs, {0.0, 2.0, 0.0, 700.0}},
        {Preset::hs, {4.3, 4.6, 2000.0, 2200.0}},     {Preset::hs, {-1.0, 15.0, -100.0, 6000.0}},
        {Preset::ts, {4.0, 5.0, 340.0, 400.0}},       {Preset::ph, {2500.0, 3500.0, 1.0, 100.0}},
        {Preset::ph, {1900.0, 2300.0, 200.0, 230.0}}, {Preset::pv, {0.001, 0.01, 100.0, 400.0}},
        {Preset::pt, {300.0, 400.0, 50.0, 300.0}},    {Preset::pt, {0.0, 10.0, 0.006, 0.02}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << static_cast<int>(row.preset) << " " << row.window.left);
        const Chart chart = preset(row.preset, row.window);
        const Drawing drawing = compute(chart);
        ASSERT_EQ(drawing.fault, Fault::none) << sentence(drawing.fault);
        check_labels(chart, drawing);
        std::size_t visible = 0;
        for (const Line& line : drawing.lines) visible += line.pieces.empty() ? 0U : 1U;
        EXPECT_GE(visible, 8U); // the values suit the window
    }
}

TEST(Charts, HaveTheFamiliesOfTheirKind) {
    const Chart chart = preset(Preset::hs);
    const auto& values = chart.families;
    ASSERT_EQ(values.size(), 4U);
    EXPECT_EQ(values[0].values, sequence_125(0.01, 1000.0));
    EXPECT_EQ(values[1].values, sequence(50.0, 800.0, 50.0));
    EXPECT_TRUE(values[1].outside_dome);
    EXPECT_EQ(values[2].values.back(), 0.95);
    EXPECT_NEAR(values[2].values[1] - values[2].values[0], 0.05, 1.0e-15);
    const Drawing drawing = compute(chart);
    for (const Line& line : drawing.lines)
        for (const Piece& piece : line.pieces) EXPECT_FALSE(line.held == Property::t && piece.two_phase());
}

TEST(Charts, RefuseWhatCannotBeDrawn) {
    Chart chart = preset(Preset::hs);
    chart.families[0].values.assign(10001, 1.0);
    EXPECT_EQ(compute(chart).fault, Fault::too_many_lines);
    chart = preset(Preset::hs);
    chart.letter_height = 0.0;
    EXPECT_EQ(compute(chart).fault, Fault::letter_height);
    chart = preset(Preset::hs);
    chart.process.push_back({"nothing", State(), Step::straight});
    EXPECT_EQ(compute(chart).fault, Fault::process_range);
    chart = preset(Preset::ph, Window{0.0, 100.0, -1.0, 1.0});
    EXPECT_EQ(compute(chart).fault, Fault::window_not_above_zero);
    // A value without a line does not keep the others from being drawn.
    chart = preset(Preset::hs);
    chart.families[0].values = {1.0, 2000.0, std::nan("")};
    const Drawing drawing = compute(chart);
    EXPECT_EQ(drawing.fault, Fault::none);
    EXPECT_FALSE(drawing.lines[0].pieces.empty());
    EXPECT_EQ(drawing.lines[1].fault, Fault::no_line);
    EXPECT_EQ(drawing.lines[2].fault, Fault::held_value);
}

TEST(Values, AreRoundAndWrittenShortly) {
    EXPECT_EQ(sequence_125(0.05, 2.0), (std::vector<double>{0.05, 0.1, 0.2, 0.5, 1.0, 2.0}));
    EXPECT_TRUE(sequence_125(0.0, 1.0).empty());
    EXPECT_TRUE(sequence_125(1.0, std::nan("")).empty());
    EXPECT_EQ(sequence(0.6, 0.9, 0.1), (std::vector<double>{0.6, 0.7, 0.8, 0.9}));
    EXPECT_EQ(sequence(-10.0, 12.0, 10.0), (std::vector<double>{-10.0, 0.0, 10.0}));
    EXPECT_TRUE(sequence(0.0, 1.0, 0.0).empty());
    EXPECT_TRUE(sequence(0.0, 1.0, 1.0e-9).empty());
    struct Row {
        double value;
        Property property;
        System system;
        const char* text;
    };
    const Row rows[] = {{0.05, Property::p, System::bar, "0.05"},      {200.0, Property::p, System::si, "2e7"},
                        {0.001, Property::v, System::us, "0.0160185"}, {0.0, Property::t, System::us, "32"},
                        {100.0, Property::p, System::mpa, "10"},       {1.0e-7, Property::h, System::bar, "1e-7"},
                        {1.0, Property::cp, System::bar, ""}};
    for (const Row& row : rows) EXPECT_EQ(text(row.value, row.property, row.system), row.text);
    EXPECT_EQ(unit(System::bar, Property::cp), nullptr);
    EXPECT_EQ(unit(static_cast<System>(9), Property::p), nullptr);
    EXPECT_EQ(unit_name(System::us, Property::p), "psia");
}

} // namespace
} // namespace ktl::diagram
