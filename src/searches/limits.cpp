// Two values of a state on a limit, rounded, may belong to no state of the range. On each limit, an isotherm or an isobar,
// one state has the one value and another the other; both lie close together, and the one between them that misses both
// values by the same share is the nearest of the limit.
#include "searches/limits.hpp"

#include "searches/enclosure.hpp"
#include "searches/lines.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace ktl::searches {

namespace {

/// By how much of that a state misses each value.
struct Miss {
    double a, b;
};
Miss miss_of(const FoundState& state, const Given& given) {
    const auto share = [&](Quantity y, double value) {
        return std::fabs(state.value(y) - value) / allowance(y, value, state.region, given.model);
    };
    return {share(given.a, given.a_value), share(given.b, given.b_value)};
}

/// The nearest state so far.
struct Nearest {
    const Given& given;
    FoundState state{};
    double miss = 1.0;

    void try_state(const FoundState& candidate) {
        if (!candidate.found()) return;
        const Miss both = miss_of(candidate, given);
        const double greater = std::fmax(both.a, both.b);
        if (greater <= miss) state = candidate, miss = greater;
    }
    /// Both states, of which a has the first value and b the second, and the one between them.
    void try_both(const FoundState& a, const FoundState& b) {
        try_state(a);
        try_state(b);
        if (!a.found() || a.region != b.region) return;
        const double off_a = miss_of(a, given).b;
        const double off_b = miss_of(b, given).a;
        if (!(off_a > 0.0 && off_b > 0.0)) return;
        const double share = off_a / (off_a + off_b);
        FoundState between = a;
        between.primary += share * (b.primary - a.primary);
        between.t += share * (b.t - a.t);
        try_state(between);
    }
};

/// The states at tmin that may have the value: water may have two beside a mixture.
std::array<FoundState, 3> coldest(Quantity y, double value, SaturationModel model) {
    std::array<FoundState, 3> states{on_isotherm(y, ktl_lc.tmin, value, model)};
    if (y == Quantity::volume) return states;
    const BothSides water = water_on_isotherm(y, ktl_lc.tmin, value, model);
    states[1] = water.preferred;
    states[2] = water.other;
    return states;
}

/// pmin lies below the saturation pressure at tmin by its last digits, and so may the pressure of a mixture at tmin. Its
/// volume tells: saturated steam is an ideal gas there.
FoundState coldest_mixture(const Given& given) {
    if (given.a != Quantity::volume) return {};
    Saturated phases = saturated_at(ktl_lc.tmin, given.model);
    const auto with_second_value = [&] {
        const double water = phases.of_liquid(given.b);
        const double x = (given.b_value - water) / (phases.of_vapour(given.b) - water);
        return mixture(phases, std::clamp(x, 0.0, 1.0));
    };
    const double p = phases.p * (with_second_value().value(Quantity::volume) / given.a_value);
    phases.p = phases.liquid = phases.vapour = std::clamp(p, ktl_lc.pmin, phases.p);
    return with_second_value();
}

/// Sub-region 3 at pmax next to one of its ends there, 350 degC and the 2/3 boundary: on the isobar sub-regions 1 and 2 take
/// precedence.
void try_near_critical(double end, Nearest& nearest) {
    const Given& given = nearest.given;
    const FoundState corner = near_critical_at(ktl_lc.pmax, end, given.model);
    const auto at_pmax = [&](Quantity y, double value) {
        const FoundState state = corrected(corner, {y, value, Quantity::pressure, ktl_lc.pmax, given.model});
        const bool inside =
            state.t > ktl_lc.t3min && state.t <= boundary_temperature(ktl_lc.pmax) &&
            std::fabs(state.value(Quantity::pressure) - ktl_lc.pmax) <= rounding_of_pressure * ktl_lc.pmax;
        return inside ? state : corner;
    };
    nearest.try_both(at_pmax(given.a, given.a_value), at_pmax(given.b, given.b_value));
}

/// A line of states at(t) between two temperatures.
template <class At>
void try_line(double from, double to, At&& at, Nearest& nearest) {
    const Given& given = nearest.given;
    const auto with = [&](Quantity y, double value) {
        const auto miss = [&](double t) { return at(t).value(y) - value; };
        return at(solvers::enclose(miss, from, to, search_tolerance(value)).x);
    };
    nearest.try_both(with(given.a, given.a_value), with(given.b, given.b_value));
}

/// Sub-region 3 on the last part of the 2/3 boundary, where steam cannot cover a gap to sub-region 2 before it reaches pmax.
void try_end_of_boundary(Nearest& nearest) {
    constexpr double last_part = 589.0;
    const auto at = [&](double t) { return near_critical_at(boundary_pressure(t), t, nearest.given.model); };
    try_line(last_part, boundary_temperature(ktl_lc.pmax), at, nearest);
}

/// By h, s saturated water below 14 degC is a limit: the saturation line and the Gibbs functions do not quite agree, and
/// mixtures lie on the side of compressed water.
void try_cold_saturated_water(Nearest& nearest) {
    constexpr double warmest = 14.0;
    if (nearest.given.a != Quantity::enthalpy) return;
    const auto at = [](double t) { return FoundState{KTL_WATER, saturation::terms(t).p, t, {}}; };
    try_line(ktl_lc.tmin, warmest, at, nearest);
}

/// On the isobar or isotherm of that pressure or temperature the state that has the second value, or the nearest end.
FoundState end_of_line(double line, const Given& given) {
    if (given.a == Quantity::pressure) return on_isobar(given.b, line, given.b_value, given.model);
    return on_isotherm(given.b, line, given.b_value, given.model);
}

/// The nearest state of the lines next to the one that ends there.
FoundState beside_line(double line, const FoundState& end, const Given& given) {
    constexpr double near = 100.0;
    if (!end.found()) return {};
    Nearest nearest{given};
    nearest.try_state(end);
    const double off = miss_of(end, given).b;
    if (nearest.state.found() || !(off < near)) return nearest.state;
    const bool isobar = given.a == Quantity::pressure;
    const auto at = [&](double steps) {
        const double z = std::clamp(line * (1.0 + steps * reproduced), isobar ? ktl_lc.pmin : ktl_lc.tmin,
                                    isobar ? ktl_lc.pmax : ktl_lc.tmax);
        return end_of_line(z, given);
    };
    for (const double side : {-1.0, 1.0}) {
        const FoundState there = at(side);
        nearest.try_state(there);
        // From line to line the miss changes evenly.
        const double change = off - miss_of(there, given).b;
        if (change > 0.0) nearest.try_state(at(side * off / (1.0 + change)));
    }
    return nearest.state;
}

/// The pressure or temperature next to that of the line across a border at which isobars or isotherms change, if it lies
/// within that share of the border; itself elsewhere. Isobars: the saturation pressure at 350 degC. Isotherms: up to 350 degC
/// they pass through sub-region 1, from there on through sub-region 3 until the 2/3 boundary leaves the range.
double across_border(double line, const Given& given, double share) {
    const bool isobar = given.a == Quantity::pressure;
    const double last_low = isobar ? last_low_pressure(given.model) : ktl_lc.t1max;
    const double end = isobar ? last_low : boundary_temperature(ktl_lc.pmax);
    for (const double border : {last_low, end})
        if (std::fabs(line - border) <= share * border)
            return line > border ? border : std::nextafter(border, ktl_lc.pmax);
    return line;
}

} // namespace

FoundState on_limits(const Given& given) {
    const auto [first, a_value, second, b_value, model] = given;
    Nearest nearest{given};
    for (const FoundState& a : coldest(first, a_value, model))
        for (const FoundState& b : coldest(second, b_value, model)) nearest.try_both(a, b);
    nearest.try_both(on_isotherm(first, ktl_lc.tmax, a_value, model), on_isotherm(second, ktl_lc.tmax, b_value, model));
    for (const double p : {ktl_lc.pmin, ktl_lc.pmax})
        nearest.try_both(on_isobar(first, p, a_value, model), on_isobar(second, p, b_value, model));
    nearest.try_state(coldest_mixture(given));
    for (const double end : {std::nextafter(ktl_lc.t3min, ktl_lc.tc), boundary_temperature(ktl_lc.pmax)})
        try_near_critical(end, nearest);
    nearest.try_state({KTL_WATER, ktl_lc.pmax, ktl_lc.t1max, {}});
    try_end_of_boundary(nearest);
    try_cold_saturated_water(nearest);
    return nearest.state;
}

FoundState on_line(double line, const Given& given) {
    constexpr double last_digits = 1.0e-15;
    Given held = given;
    held.a_value = line;
    const auto inside = [&](const FoundState& state) {
        return state.region == KTL_WET_NEAR_CRITICAL || place_of(state, given.model) == Place::inside;
    };
    const FoundState end = end_of_line(line, given);
    const FoundState found = confirmed(end, held);
    const double neighbour = across_border(line, given, found.found() ? last_digits : reproduced);
    const FoundState other = neighbour == line ? FoundState{} : end_of_line(neighbour, given);
    if (found.found()) {
        const FoundState across = confirmed(other, held);
        return across.found() && inside(across) && !inside(found) ? across : found;
    }
    const FoundState nearest = beside_line(neighbour, other, given);
    return nearest.found() ? nearest : beside_line(line, end, given);
}

} // namespace ktl::searches
