// Lines from state to state.
#include "diagram/isoline.hpp"
#include "diagram/trace.hpp"
#include "engine/calls/float_environment.hpp"

#include <cmath>

namespace ktl::diagram {

namespace {

State ended(const State& from, Step step, double pressure, double efficiency) noexcept {
    if (!from || !(pressure > 0.0) || !(efficiency > 0.0 && efficiency <= 1.0)) return {};
    if (step == Step::isenthalpic) return state(Pair::ph, pressure, from.h());
    if (step != Step::isentropic) return {};
    const State ideal = state(Pair::ps, pressure, from.s());
    if (!ideal || efficiency == 1.0) return ideal;
    const double difference = ideal.h() - from.h();
    return state(Pair::ph, pressure, from.h() + (difference < 0.0 ? difference * efficiency : difference / efficiency));
}

Stretch stretch_of(const Way& way, double first, double last, const Point& from, const Point& to) {
    return {way, first, last, from, to, End::range, End::range, detail::nan, {}};
}

/// By the logarithm of the pressure, with h or s held.
Stretch by_pressure(Pair pair, double held, const Point& from, const Point& to) {
    return stretch_of({pair, false, Parameter::logarithm, held}, natural_log(from.p), natural_log(to.p), from, to);
}

void add_isentropic(const State& from, const State& to, const Frame& frame, double tolerance, Line& line) {
    const State ideal = state(Pair::ps, to.p(), from.s());
    if (!ideal) {
        line.fault = Fault::process_range;
        return;
    }
    trace(by_pressure(Pair::ps, from.s(), frame.point(from), frame.point(ideal)), frame, tolerance, line.pieces);
    constexpr double same_entropy = 1.0e-9; // kJ/(kg K)
    if (std::fabs(to.s() - from.s()) > same_entropy)
        trace_straight(frame.point(from), frame.point(to), frame, line.pieces);
}

void add_isobaric(const Point& from, const Point& to, const Frame& frame, double tolerance, Line& line) {
    Way way{Pair::ph, true, Parameter::value, from.p};
    way.origin = from.h;
    if (to.h != from.h) way.drift = (to.p - from.p) / (to.h - from.h);
    trace(stretch_of(way, from.h, to.h, from, to), frame, tolerance, line.pieces);
}

} // namespace

Line traced_process(const State& from, const State& to, Step step, const Frame& frame, double tolerance) {
    Line line;
    const Point first = frame.point(from), last = frame.point(to);
    switch (step) {
    case Step::isobaric:
        line.held = Property::p;
        line.value = from.p();
        add_isobaric(first, last, frame, tolerance, line);
        break;
    case Step::isentropic:
        line.held = Property::s;
        line.value = from.s();
        add_isentropic(from, to, frame, tolerance, line);
        break;
    case Step::isenthalpic:
        line.held = Property::h;
        line.value = from.h();
        trace(by_pressure(Pair::ph, from.h(), first, last), frame, tolerance, line.pieces);
        break;
    default: trace_straight(first, last, frame, line.pieces);
    }
    if (line.fault == Fault::none && line.pieces.empty()) line.fault = Fault::outside_window;
    return line;
}

State step_end(const State& from, Step step, double pressure, double efficiency) noexcept {
    const FloatEnvironment environment;
    return ended(from, step, pressure, efficiency);
}

Line process_line(const State& from, const State& to, Step step, const Axes& axes, const Window& window,
                  double tolerance) {
    const FloatEnvironment environment;
    Line line;
    line.fault = fault_of(axes, window, tolerance);
    if (line.fault == Fault::none && (!from || !to)) line.fault = Fault::process_range;
    return line.fault == Fault::none ? traced_process(from, to, step, Frame(axes, window), tolerance) : line;
}

} // namespace ktl::diagram
