// Two values of a state on a limit, rounded, may belong to no state of the range. On each limit, an isotherm or an isobar,
// one state has the one value and another the other; both lie close together, and the one between them that misses both
// values by the same share is the nearest of the limit.
#pragma once

#include "searches/enclosure.hpp"
#include "searches/limits.hpp"
#include "searches/lines.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace ktl::searches {

namespace nearest_states {

/// By how much of that a state misses each value.
struct Miss {
    double a, b;
};
template <class T>
Miss miss_of(const FoundState<T>& state, const Given& given) {
    const auto share = [&](Quantity y, double value) {
        return std::fabs(state.value(y) - value) / allowance(y, value, state.region, given.model);
    };
    return {share(given.a, given.a_value), share(given.b, given.b_value)};
}

/// The nearest state so far.
template <class T>
struct Nearest {
    const Given& given;
    FoundState<T> state{};
    double miss = 1.0;

    void try_state(const FoundState<T>& candidate) {
        if (!candidate.found()) return;
        const Miss both = miss_of(candidate, given);
        const double greater = std::fmax(both.a, both.b);
        if (greater <= miss) state = candidate, miss = greater;
    }
    /// Both states, of which a has the first value and b the second, and the one between them.
    void try_both(const FoundState<T>& a, const FoundState<T>& b) {
        try_state(a);
        try_state(b);
        if (!a.found() || a.region != b.region) return;
        const double off_a = miss_of(a, given).b;
        const double off_b = miss_of(b, given).a;
        if (!(off_a > 0.0 && off_b > 0.0)) return;
        const double share = off_a / (off_a + off_b);
        FoundState<T> between = a;
        between.primary += share * (b.primary - a.primary);
        between.t += share * (b.t - a.t);
        try_state(between);
    }
};

/// The states at tmin that may have the value: water may have two beside a mixture.
template <class T>
std::array<FoundState<T>, 3> coldest(Quantity y, double value, SaturationModel model) {
    std::array<FoundState<T>, 3> states{on_isotherm<T>(y, ktl_lc.tmin, value, model)};
    if (y == Quantity::volume) return states;
    const auto water = water_on_isotherm<T>(y, ktl_lc.tmin, value, model);
    states[1] = water.preferred;
    states[2] = water.other;
    return states;
}

/// pmin lies below the saturation pressure at tmin by its last digits, and so may the pressure of a mixture at tmin. Its
/// volume tells: saturated steam is an ideal gas there.
template <class T>
FoundState<T> coldest_mixture(const Given& given) {
    if (given.a != Quantity::volume) return {};
    auto phases = saturated_at<T>(ktl_lc.tmin, given.model);
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
template <class T>
void try_near_critical(double end, Nearest<T>& nearest) {
    const Given& given = nearest.given;
    const auto corner = near_critical_at<T>(ktl_lc.pmax, end, given.model);
    const auto at_pmax = [&](Quantity y, double value) {
        const auto state = corrected(corner, {y, value, Quantity::pressure, ktl_lc.pmax, given.model});
        const bool inside =
            state.t > ktl_lc.t3min && state.t <= boundary_temperature(ktl_lc.pmax) &&
            std::fabs(state.value(Quantity::pressure) - ktl_lc.pmax) <= rounding_of_pressure * ktl_lc.pmax;
        return inside ? state : corner;
    };
    nearest.try_both(at_pmax(given.a, given.a_value), at_pmax(given.b, given.b_value));
}

/// A line of states at(t) between two temperatures.
template <class T, class At>
void try_line(double from, double to, At&& at, Nearest<T>& nearest) {
    const Given& given = nearest.given;
    const auto with = [&](Quantity y, double value) {
        const auto miss = [&](double t) { return at(t).value(y) - value; };
        return at(solvers::enclose(miss, from, to, search_tolerance(value)).x);
    };
    nearest.try_both(with(given.a, given.a_value), with(given.b, given.b_value));
}

/// Sub-region 3 on the last part of the 2/3 boundary, where steam cannot cover a gap to sub-region 2 before it reaches pmax.
template <class T>
void try_end_of_boundary(Nearest<T>& nearest) {
    constexpr double last_part = 589.0;
    const auto at = [&](double t) { return near_critical_at<T>(boundary_pressure(t), t, nearest.given.model); };
    try_line(last_part, boundary_temperature(ktl_lc.pmax), at, nearest);
}

/// By h, s saturated water below 14 degC is a limit: the saturation line and the Gibbs functions do not quite agree, and
/// mixtures lie on the side of compressed water.
template <class T>
void try_cold_saturated_water(Nearest<T>& nearest) {
    constexpr double warmest = 14.0;
    if (nearest.given.a != Quantity::enthalpy) return;
    const auto at = [](double t) { return FoundState<T>{KTL_WATER, saturation_pressure_in<T>(t), t, {}}; };
    try_line(ktl_lc.tmin, warmest, at, nearest);
}

/// On the isobar or isotherm of that pressure or temperature the state that has the second value, or the nearest end.
template <class T>
FoundState<T> end_of_line(double line, const Given& given) {
    if (given.a == Quantity::pressure) return on_isobar<T>(given.b, line, given.b_value, given.model);
    return on_isotherm<T>(given.b, line, given.b_value, given.model);
}

/// The nearest state of the lines next to the one that ends there.
template <class T>
FoundState<T> beside_line(double line, const FoundState<T>& end, const Given& given) {
    constexpr double near = 100.0;
    if (!end.found()) return {};
    Nearest<T> nearest{given};
    nearest.try_state(end);
    const double off = miss_of(end, given).b;
    if (nearest.state.found() || !(off < near)) return nearest.state;
    const bool isobar = given.a == Quantity::pressure;
    const auto at = [&](double steps) {
        const double z = std::clamp(line * (1.0 + steps * reproduced), isobar ? ktl_lc.pmin : ktl_lc.tmin,
                                    isobar ? ktl_lc.pmax : ktl_lc.tmax);
        return end_of_line<T>(z, given);
    };
    for (const double side : {-1.0, 1.0}) {
        const FoundState<T> there = at(side);
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
template <class T>
double across_border(double line, const Given& given, double share) {
    const bool isobar = given.a == Quantity::pressure;
    const double last_low = isobar ? last_low_pressure<T>(given.model) : ktl_lc.t1max;
    const double end = isobar ? last_low : boundary_temperature(ktl_lc.pmax);
    for (const double border : {last_low, end})
        if (std::fabs(line - border) <= share * border)
            return line > border ? border : std::nextafter(border, ktl_lc.pmax);
    return line;
}

} // namespace nearest_states

template <class T>
FoundState<T> on_limits(const Given& given) {
    using namespace nearest_states;
    const auto [first, a_value, second, b_value, model] = given;
    Nearest<T> nearest{given};
    for (const FoundState<T>& a : coldest<T>(first, a_value, model))
        for (const FoundState<T>& b : coldest<T>(second, b_value, model)) nearest.try_both(a, b);
    nearest.try_both(on_isotherm<T>(first, ktl_lc.tmax, a_value, model),
                     on_isotherm<T>(second, ktl_lc.tmax, b_value, model));
    for (const double p : {ktl_lc.pmin, ktl_lc.pmax})
        nearest.try_both(on_isobar<T>(first, p, a_value, model), on_isobar<T>(second, p, b_value, model));
    nearest.try_state(coldest_mixture<T>(given));
    for (const double end : {std::nextafter(ktl_lc.t3min, ktl_lc.tc), boundary_temperature(ktl_lc.pmax)})
        try_near_critical(end, nearest);
    nearest.try_state({KTL_WATER, ktl_lc.pmax, ktl_lc.t1max, {}});
    try_end_of_boundary(nearest);
    try_cold_saturated_water(nearest);
    return nearest.state;
}

template <class T>
FoundState<T> on_line(double line, const Given& given) {
    using namespace nearest_states;
    constexpr double last_digits = 1.0e-15;
    Given held = given;
    held.a_value = line;
    const auto inside = [&](const FoundState<T>& state) {
        return state.region == KTL_WET_NEAR_CRITICAL || place_of(state, given.model) == Place::inside;
    };
    const auto end = end_of_line<T>(line, given);
    const FoundState<T> found = confirmed(end, held);
    const double neighbour = across_border<T>(line, given, found.found() ? last_digits : reproduced);
    const FoundState<T> other = neighbour == line ? FoundState<T>{} : end_of_line<T>(neighbour, given);
    if (found.found()) {
        const FoundState<T> across = confirmed(other, held);
        return across.found() && inside(across) && !inside(found) ? across : found;
    }
    const FoundState<T> nearest = beside_line(neighbour, other, given);
    return nearest.found() ? nearest : beside_line(line, end, given);
}

} // namespace ktl::searches
