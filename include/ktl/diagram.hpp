// ktl::diagram: lines of constant properties, and the charts that are made of them: h-s (Mollier), T-s, p-h, p-v, p-t.
//
//     namespace diagram = ktl::diagram;
//     diagram::Chart chart = diagram::preset(diagram::Preset::hs);
//     const diagram::Drawing drawing = diagram::compute(chart);
//     for (const diagram::Line& line : drawing.lines)
//         for (const diagram::Piece& piece : line.pieces) draw(piece.points); // x, y in mm from the lower left corner
//
// Every point of a line is a state that ktl::state() returns, with the held value to 1e-10. Points are as dense as the stated
// deviation asks for, and a line is split exactly at the dome, at the limits of the range and of the window, and as it goes from one
// sub-region to another. Nothing is drawn yet: the points are in millimetres of the picture.
//
// Link with ktl::diagram. These calls allocate, unlike those of steam.hpp, and throw std::bad_alloc if there is no memory left;
// nothing else. They keep nothing and may be made from any thread. Units are those of steam.hpp unless another one is named.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ktl/steam.hpp>
#include <ktl/units.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace ktl {
namespace diagram {

// ---- Lines -----------------------------------------------------------------------------------------------------------

/// An axis of a picture: one of p, t, v, h, s and u.
struct Axis {
    Property property = Property::s;
    bool logarithmic = false;
    double length = 300.0; ///< mm of paper
};

struct Axes {
    Axis x, y;
};

/// What a picture shows, in the units of ktl/properties.def. Each first value is less than the second.
struct Window {
    double left = 0.0, right = 0.0; ///< of the x axis
    double bottom = 0.0, top = 0.0; ///< of the y axis
};

/// Why there is no line or no chart.
enum class Fault : std::uint8_t {
    none,
    axis_property, ///< an axis is none of p, t, v, h, s and u, or both are the same
    axis_length,   ///< a length is not between 1 and 100,000 mm
    empty_window, ///< a limit of the window is not a finite number, or the first is not below the second by 1e-6 of them
    window_not_above_zero, ///< a limit of a logarithmic axis is not above zero
    window_out_of_range,   ///< the window lies outside the range of water and steam
    held_property,         ///< the held property is none of p, t, v, h, s, u and x
    held_value,            ///< the held value is not a finite number
    no_line,               ///< no state of the range has the held value
    outside_window,        ///< the line exists but does not cross the window
    tolerance,             ///< the deviation is not between 1e-7 of the longer axis and 1000 mm
    too_many_lines,        ///< a chart has more than 10,000 lines
    letter_height,         ///< the height of letters is not above 0 to 100 mm
    process_range,         ///< an end of a step is no state, or the step leaves the range of water and steam
};

/// A sentence for the fault, in plain English. Never null.
[[nodiscard]] const char* sentence(Fault fault) noexcept;

/// A point of a line: its place in the picture and its state.
struct Point {
    double x = 0.0, y = 0.0; ///< mm from the lower left corner of the window
    double p = detail::nan, t = detail::nan, v = detail::nan, h = detail::nan, s = detail::nan, u = detail::nan;
    double quality = detail::nan; ///< not-a-number in one phase, except on the dome: 0 or 1
    Region region = Region::none;

    /// The property of that number, one of p, t, v, h, s, u and x; NaN for any other.
    [[nodiscard]] double get(Property property) const noexcept;
};

/// Why a piece of a line begins or ends.
enum class End : std::uint8_t {
    range,      ///< the range of water and steam ends
    window,     ///< the line leaves the window
    dome,       ///< the line crosses the saturation line
    sub_region, ///< the line goes to another sub-region, whose properties differ slightly
};

/// A part of a line: at least two points, all of them in the window and in one sub-region, or all of two phases.
struct Piece {
    std::vector<Point> points;
    End begin = End::range, end = End::range;

    [[nodiscard]] bool two_phase() const noexcept {
        return !points.empty() &&
               (points.front().region == Region::wet || points.front().region == Region::wet_near_critical);
    }
};

struct Line {
    Fault fault = Fault::none;
    Property held = Property::p; ///< x for the dome, with the value 0 for its left side and 1 for the right one
    double value = detail::nan;
    std::vector<Piece> pieces;
};

/// The line on which a property has a value: p, t, v, h, s, u or x. tolerance: the largest deviation of the straight lines
/// between the points from the true line, mm of the picture. If there is no such line the fault says why, and there are no
/// pieces.
[[nodiscard]] Line isoline(Property held, double value, const Axes& axes, const Window& window, double tolerance);

/// The points of a line as they are drawn: pieces that begin where the one before ends, within 0.3 mm, are one stroke. The jumps
/// at the borders of sub-regions are smaller than that on paper.
[[nodiscard]] std::vector<std::vector<Point>> strokes(const Line& line);

/// Saturated water (the first line) and saturated steam. Their fault is outside_window if the window does not show them.
struct Dome {
    Line water, steam;
};
[[nodiscard]] Dome dome(const Axes& axes, const Window& window, double tolerance);

// ---- Processes -------------------------------------------------------------------------------------------------------

/// How a state goes over into the next one.
enum class Step : std::uint8_t {
    straight,   ///< a straight line in the picture, of no states
    isobaric,   ///< at constant pressure; if both pressures differ, the drop is spread evenly over the enthalpy
    isentropic, ///< at constant entropy; with an efficiency below 1 the ideal line, and a straight line to the real end
    isenthalpic ///< at constant enthalpy: a throttle
};

/// The end of a step from a state to a pressure, bar. efficiency: isentropic, above 0 to 1: the actual over the ideal difference
/// of enthalpies in an expansion, the inverse in a compression. Only isentropic and isenthalpic steps have such an end: a state
/// that is not solved comes back for any other, and if it lies outside the range.
[[nodiscard]] State step_end(const State& from, Step step, double pressure, double efficiency = 1.0) noexcept;

/// The line from one state to the next, cut off at the window. A straight step, or an isentropic one to another entropy, has
/// a straight piece whose points have no state but its ends.
[[nodiscard]] Line process_line(const State& from, const State& to, Step step, const Axes& axes, const Window& window,
                                double tolerance);

// ---- Charts ----------------------------------------------------------------------------------------------------------

using units::System;
/// The unit of a property in a system; of p, t, v, h, s, u and x, otherwise null.
[[nodiscard]] const units::Unit* unit(System system, Property property) noexcept;
/// Its name on a chart: "bar", "degC", "psia"; empty if there is none.
[[nodiscard]] std::string_view unit_name(System system, Property property) noexcept;

/// Values 1, 2, 5, 10 and so on from low to high, of the unit; empty if they are not above zero and finite.
[[nodiscard]] std::vector<double> sequence_125(double low, double high);
/// Multiples of step from low to high; empty if there are none or more than 10,000.
[[nodiscard]] std::vector<double> sequence(double low, double high, double step);

/// Lines of one property.
struct Family {
    Property held = Property::p;
    std::vector<double> values; ///< in the units of steam.hpp
    bool outside_dome = false;  ///< not drawn in two phases
    double place = 0.5;         ///< where labels are best along a line: 0 is its beginning, 1 its end
};

/// A state of a process, and the step that leads to it from the one before.
struct ProcessState {
    std::string name; ///< UTF-8, may be empty
    State state;
    Step step = Step::straight; ///< not used for the first state
};

enum class Preset : std::uint8_t { hs, ts, ph, pv, pt };

struct Chart {
    Axes axes;
    Window window;
    System system = System::bar;
    std::vector<Family> families;
    std::vector<ProcessState> process;
    double tolerance = 0.05;    ///< mm
    double letter_height = 2.2; ///< height of the digits of labels, mm
};

/// A chart as engineers know it. width, height: of the window on paper, mm.
[[nodiscard]] Chart preset(Preset preset, System system = System::bar, double width = 380.0, double height = 230.0);
/// The same for a window of the caller's: the families have values that suit it.
[[nodiscard]] Chart preset(Preset preset, const Window& window, System system = System::bar, double width = 380.0,
                           double height = 230.0);

/// A text on a line, turned to its direction; or beside a state, level.
struct Label {
    std::string text;                 ///< a value, with its unit if there is room for it
    std::size_t family = 0;           ///< of Chart::families
    std::size_t line = 0;             ///< of Drawing::lines
    double x = 0.0, y = 0.0;          ///< mm: the middle of the text
    double dx = 1.0, dy = 0.0;        ///< direction of reading, of length 1
    double width = 0.0, height = 0.0; ///< mm: the room of the text, with a margin
};

/// Everything of a chart but its frame. No two labels overlap, and none crosses the frame.
struct Drawing {
    Fault fault = Fault::none; ///< of the chart: if there is one, nothing else is there
    Dome dome;
    std::vector<Line> lines;           ///< of all families, in their order; a line outside the window has no pieces
    std::vector<std::size_t> families; ///< the family of each line
    std::vector<Label> labels;
    std::vector<Line> process;       ///< the steps, from the first state to the second and so on
    std::vector<Point> states;       ///< of the process, inside the window or not
    std::vector<Label> state_labels; ///< of those inside, with values if there is room
};
[[nodiscard]] Drawing compute(const Chart& chart);

/// A value in the unit of the system as labels and axes have it: "0.05", "100", "2e7".
[[nodiscard]] std::string text(double value, Property property, System system);

} // namespace diagram
} // namespace ktl
