#include "diagram/isoline.hpp"
#include "diagram/labels.hpp"
#include "engine/calls/float_environment.hpp"

#include <algorithm>
#include <cmath>

namespace ktl::diagram {

namespace {

constexpr std::size_t most_lines = 10000;

Fault fault_of(const Chart& chart) {
    const Fault fault = fault_of(chart.axes, chart.window, chart.tolerance);
    if (fault != Fault::none) return fault;
    if (!(chart.letter_height > 0.0 && chart.letter_height <= 100.0)) return Fault::letter_height;
    for (const ProcessState& here : chart.process)
        if (!here.state) return Fault::process_range;
    std::size_t count = chart.process.size();
    for (const Family& family : chart.families) count += family.values.size();
    return count <= most_lines ? Fault::none : Fault::too_many_lines;
}

Drawing computed(const Chart& chart) {
    Drawing drawing;
    drawing.fault = fault_of(chart);
    if (drawing.fault != Fault::none) return drawing;
    const Frame frame(chart.axes, chart.window);
    drawing.dome = traced_dome(frame, chart.tolerance);
    for (std::size_t i = 0; i < chart.families.size(); ++i) {
        const Family& family = chart.families[i];
        for (const double value : family.values) {
            Line line = traced_line(family.held, value, frame, chart.tolerance);
            if (family.outside_dome)
                line.pieces.erase(std::remove_if(line.pieces.begin(), line.pieces.end(),
                                                 [](const Piece& piece) { return piece.two_phase(); }),
                                  line.pieces.end());
            drawing.lines.push_back(std::move(line));
            drawing.families.push_back(i);
        }
    }
    for (const ProcessState& here : chart.process) {
        drawing.states.push_back(frame.point(here.state));
        if (&here == &chart.process.front()) continue;
        const ProcessState& before = *(&here - 1);
        drawing.process.push_back(traced_process(before.state, here.state, here.step, frame, chart.tolerance));
    }
    place_labels(chart, drawing);
    return drawing;
}

} // namespace

Drawing compute(const Chart& chart) {
    const FloatEnvironment environment;
    return computed(chart);
}

} // namespace ktl::diagram
