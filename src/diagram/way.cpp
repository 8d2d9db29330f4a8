#include "diagram/way.hpp"

#include "diagram/dome_crossings.hpp"

#include <algorithm>
#include <cmath>

namespace ktl::diagram {

namespace {

/// The saturated phase that p and t leave open, or the one phase.
bool phase_point(const State& state, double side, const Frame& frame, Point& point) {
    if (state) {
        point = frame.point(state);
        return true;
    }
    if (state.status() != Status::undetermined || std::isnan(side)) return false;
    point = side > 0.5 ? frame.point(state.vapour(), 1.0) : frame.point(state.liquid(), 0.0);
    return true;
}

/// An end of stretches: a parameter with its point, on the dome or at a limit of the range.
struct Knot {
    double parameter;
    Point point;
    End end;
};

Region wet_region(double t) { return t <= 350.0 ? Region::wet : Region::wet_near_critical; }

Stretch between(const Way& way, const Knot& first, const Knot& last) {
    return {way, first.parameter, last.parameter, first.point, last.point, first.end, last.end, detail::nan, {}};
}

/// Knots that are nearer to one another are one: a limit that two pairs were asked for, or a crossing in the corner of the range.
constexpr double same_parameter = 1.0e-9;

void drop_doubles(std::vector<Knot>& knots) {
    std::sort(knots.begin(), knots.end(), [](const Knot& a, const Knot& b) { return a.parameter < b.parameter; });
    std::vector<Knot> kept;
    for (const Knot& knot : knots) {
        const double near = same_parameter * std::fmax(1.0, std::fabs(knot.parameter));
        if (kept.empty() || knot.parameter - kept.back().parameter > near)
            kept.push_back(knot);
        else if (knot.end == End::dome)
            kept.back() = knot;
    }
    knots = kept;
}

/// The stretches between knots that have states in their middle.
std::vector<Stretch> joined(const Way& way, std::vector<Knot>& knots, const Frame& frame) {
    drop_doubles(knots);
    std::vector<Stretch> all;
    for (std::size_t i = 1; i < knots.size(); ++i) {
        Stretch stretch = between(way, knots[i - 1], knots[i]);
        Point middle;
        if (!find_point(stretch, 0.5 * (stretch.from + stretch.to), frame, middle)) continue;
        if (is_wet(middle.region)) {
            stretch.first.region = wet_region(stretch.first.t);
            stretch.last.region = wet_region(stretch.last.t);
        }
        all.push_back(stretch);
    }
    return all;
}

/// By the enthalpy, which grows with the temperature all along.
std::vector<Stretch> isobar(double p, const Frame& frame) {
    const Way way{Pair::ph, true, Parameter::value, p};
    Point cold, hot;
    if (!phase_point(state(Pair::pt, p, least_temperature), 0.0, frame, cold) ||
        !phase_point(state(Pair::pt, p, highest_temperature), 1.0, frame, hot))
        return {};
    std::vector<Knot> knots{{cold.h, cold, End::range}, {hot.h, hot, End::range}};
    const Saturation at = saturation_at_pressure(p);
    if (at.status == Status::solved) {
        knots.push_back({at.liquid.h(), frame.point(at.liquid, 0.0), End::dome});
        knots.push_back({at.vapour.h(), frame.point(at.vapour, 1.0), End::dome});
    }
    return joined(way, knots, frame);
}

/// By the logarithm of the pressure in one phase, by the quality in two.
std::vector<Stretch> isotherm(double t, const Frame& frame) {
    const Way one_phase{Pair::pt, false, Parameter::logarithm, t};
    const Saturation at = saturation_at_temperature(t);
    Point least, most;
    std::vector<Stretch> all;
    if (!phase_point(state(Pair::pt, highest_pressure, t), 0.0, frame, most)) return all;
    const bool has_steam = phase_point(state(Pair::pt, least_pressure, t), 1.0, frame, least);
    const Knot low{natural_log(least_pressure), least, End::range};
    const Knot high{natural_log(highest_pressure), most, End::range};
    if (at.status != Status::solved) {
        if (has_steam) all.push_back(between(one_phase, low, high));
        return all;
    }
    const Point water = frame.point(at.liquid, 0.0), steam = frame.point(at.vapour, 1.0);
    const double saturation = natural_log(at.p);
    if (has_steam && low.parameter < saturation) {
        all.push_back(between(one_phase, low, {saturation, steam, End::dome}));
        all.back().side = 1.0;
    }
    if (at.liquid.h() < at.vapour.h()) {
        all.push_back(between({Pair::tx, true, Parameter::value, t}, {1.0, steam, End::dome}, {0.0, water, End::dome}));
        all.back().first.region = all.back().last.region = wet_region(t);
    }
    all.push_back(between(one_phase, {saturation, water, End::dome}, high));
    all.back().side = 0.0;
    return all;
}

std::vector<Stretch> quality_line(double x, const Frame& frame) {
    const State cold = state(Pair::tx, least_temperature, x), critical = state(Pair::tx, critical_temperature, x);
    if (!cold || !critical) return {};
    const double first = std::sqrt(critical_temperature - least_temperature);
    Stretch line = between({Pair::tx, false, Parameter::root_below_critical, x}, {first, frame.point(cold), End::range},
                           {0.0, frame.point(critical), End::dome});
    // In the last 0.2 K the sum of both phases runs back, in the last millikelvin forward again: 374.149 degC is the end of the loop
    // of the isotherms.
    line.turns = {1.0, std::sqrt(0.2), std::sqrt(0.001)};
    return {line};
}

/// By a pair of the parameter and the held value, from limit to limit. limits: the parameter's own two and those of the states on
/// the lines of the two other limits.
class General {
public:
    General(Property held, double value, const Frame& frame) : held_(held), value_(value), frame_(frame) {
        if (held == Property::v)
            way_ = {Pair::tv, false, Parameter::value, value};
        else
            way_ = {held == Property::h   ? Pair::ph
                    : held == Property::s ? Pair::ps
                                          : Pair::pu,
                    false, Parameter::logarithm, value};
    }

    std::vector<Stretch> stretches() {
        if (held_ == Property::v) {
            add_parameter(least_temperature);
            add_parameter(highest_temperature);
            add_states(Pair::pv, least_pressure);
            add_states(Pair::pv, highest_pressure);
        } else {
            const Pair pair = held_ == Property::h ? Pair::th : held_ == Property::s ? Pair::ts : Pair::tu;
            add_parameter(natural_log(least_pressure));
            add_parameter(natural_log(highest_pressure));
            add_states(pair, least_temperature);
            add_states(pair, highest_temperature);
        }
        for (const Crossing& crossing : dome_crossings(held_, value_)) {
            const Point point = frame_.point(crossing.phase(), crossing.quality);
            knots_.push_back({parameter(point), point, End::dome});
        }
        return joined(way_, knots_, frame_);
    }

private:
    [[nodiscard]] double parameter(const Point& point) const {
        return held_ == Property::v ? point.t : natural_log(point.p);
    }
    void add_parameter(double parameter) {
        if (const State found = way_.at(parameter)) knots_.push_back({parameter, frame_.point(found), End::range});
    }
    void add_states(Pair pair, double limit) {
        const int count = state_count(pair, limit, value_);
        for (int i = 0; i < count; ++i) {
            const Point point = frame_.point(state(pair, limit, value_, i));
            knots_.push_back({parameter(point), point, End::range});
        }
    }

    Property held_;
    double value_;
    const Frame& frame_;
    Way way_;
    std::vector<Knot> knots_;
};

} // namespace

State Way::at(double at) const {
    const double other = parameter == Parameter::logarithm             ? exponential(at)
                         : parameter == Parameter::root_below_critical ? critical_temperature - at * at
                                                                       : at;
    const double kept = held + drift * (at - origin);
    return held_first ? state(pair, kept, other) : state(pair, other, kept);
}

std::vector<Stretch> stretches(Property held, double value, const Frame& frame) {
    switch (held) {
    case Property::p: return isobar(value, frame);
    case Property::t: return isotherm(value, frame);
    case Property::x: return quality_line(value, frame);
    default: return General(held, value, frame).stretches();
    }
}

bool find_point(const Stretch& stretch, double parameter, const Frame& frame, Point& point) {
    return phase_point(stretch.way.at(parameter), stretch.side, frame, point);
}

} // namespace ktl::diagram
