// How far sub-region 3 overlaps the others: the margins of engine/pairs.hpp. For states of sub-region 3 near its border a
// state of another sub-region with the same two values is searched, by the engine's own steps and tests.
#include "rows.hpp"

#include "engine/kernels/inversion.hpp"
#include "engine/lanes/scalar.hpp"
#include "first_guesses/states.hpp"
#include "searches/state.hpp"

#include <algorithm>
#include <string>

namespace constants {

namespace {

using first_guesses::State;
using ktl::ktl_lc;
using ktl::Pair;
using ktl::Region;
using ktl::SubRegion;
using ktl::engine::Scalar;
namespace engine = ktl::engine;
namespace searches = ktl::searches;

/// What one pair needs, and how many states with a double its margins let pass.
struct Widths {
    double one_phase = 0.0, mixture = 0.0, least_mixture = 0.0, pressure = 0.0;
    int passed = 0;
};

/// One phase of sub-region 1 or 2 with the values of a state.
template <SubRegion sub_region>
bool in_one_phase(Pair pair, Scalar a, Scalar b, double p, double t) {
    const auto found = searches::newton<sub_region>(engine::quantities(pair), a, b, Scalar(p), Scalar(t));
    return all_set(found.converged) && all_set(engine::accept<sub_region>(pair, found, Scalar(p), engine::no_margin));
}

/// The sub-region beside sub-region 3 in which a state has a double: another state with both its values.
enum class Double { none, across_350, across_boundary };

Double double_of(Pair pair, const State& state) {
    const auto given = first_guesses::name(pair);
    const Scalar a = state(given[0]), b = state(given[1]);
    const double t = engine::has_temperature(pair) ? state.t : std::min(state.t, ktl_lc.t1);
    if (in_one_phase<SubRegion::water>(pair, a, b, state.p, t)) return Double::across_350;
    if (in_one_phase<SubRegion::steam>(pair, a, b, state.p, state.t)) return Double::across_boundary;
    if (engine::has_pressure(pair) || engine::has_temperature(pair)) return Double::none;
    engine::TwoPhaseIterate<Scalar> m{Scalar(0.0), Scalar(t), Scalar(0.0), Scalar(0.0), Scalar(0.0)};
    searches::newton_two_phase<false>(m, engine::quantities(pair), a, b);
    return all_set(engine::accept<false>(pair, m, engine::no_margin)) ? Double::across_350 : Double::none;
}

/// True if the engine takes a state of sub-region 3 although it keeps the margins.
bool is_taken(Pair pair, const State& y) {
    const engine::Margin margin = engine::margin_of(pair);
    const Scalar first(y.first), t(y.t);
    if (y.two_phase()) {
        const auto v = first_guesses::saturated_volumes(y.t);
        return all_set(engine::accept<true>(
            pair, engine::TwoPhaseIterate<Scalar>{first, t, Scalar(v.liquid), Scalar(v.vapour), Scalar(1.0)}, margin));
    }
    const engine::NewtonResult<Scalar> found{first, t, Scalar(1.0), Scalar(y.p), Scalar(-1.0)};
    return all_set(engine::accept_near_critical(pair, found, first, margin));
}

/// How far the states at(0), at(1) ... have doubles of a kind: the largest distance up to which there is one.
template <class At>
double reach_of_doubles(Pair pair, Double kind, At&& at, double most, Widths& widths) {
    constexpr int steps = 24;
    double last = 0.0;
    for (int i = 1; i <= steps; ++i) {
        const double distance = most * i * i / (steps * steps);
        const State state = at(distance);
        const Double found = double_of(pair, state);
        if (found != Double::none && is_taken(pair, state)) ++widths.passed;
        if (found == kind) last = distance;
    }
    if (last == 0.0) return 0.0;
    return last_point([&](double distance) { return double_of(pair, at(distance)) == kind; }, last, most);
}

void along_350_degrees(Pair pair, double share, Widths& widths) {
    constexpr double widest = 2.0; // K
    const double past = ktl_lc.t1 + 1.0e-9;
    const bool dense = share < 0.5;
    const double ps = first_guesses::saturation_pressure(past);
    const double along = 2.0 * (dense ? share : share - 0.5);
    const auto one_phase = [&](double distance) {
        const double t = past + distance;
        const double line = first_guesses::saturation_pressure(t);
        // On the steam side there is but the narrow strip between the boundary and the saturation line.
        const double p = dense ? line * std::pow(ktl_lc.pmax / ps, along * along)
                               : ktl::boundary_pressure(t) + along * (line - ktl::boundary_pressure(t));
        return first_guesses::single(dense ? Region::near_critical_water : Region::near_critical_steam,
                                     first_guesses::volume3(p, t), t);
    };
    widths.one_phase =
        std::max(widths.one_phase, reach_of_doubles(pair, Double::across_350, one_phase, widest, widths));
}

void along_the_boundary(Pair pair, double share, Widths& widths) {
    constexpr double widest = 0.005; // of the pressure
    const double t = ktl_lc.t1 + 0.01 + (ktl_lc.t3max - ktl_lc.t1 - 0.02) * share * share;
    const auto above = [&](double distance) {
        const double p = ktl::boundary_pressure(t) * (1.0 + distance);
        return first_guesses::single(Region::near_critical_steam, first_guesses::volume3(p, t), t);
    };
    widths.pressure = std::max(widths.pressure, reach_of_doubles(pair, Double::across_boundary, above, widest, widths));
}

void along_the_tie_line(Pair pair, double x, Widths& widths) {
    constexpr double widest = 2.0; // K
    const auto mixture = [&](double distance) { return first_guesses::mixture(ktl_lc.t1 + 1.0e-9 + distance, x); };
    const double reach = reach_of_doubles(pair, Double::across_350, mixture, widest, widths);
    const double water = (1.0 - x) * (1.0 - x);
    constexpr double nearly_dry = 0.1;
    if (water < nearly_dry)
        widths.least_mixture = std::max(widths.least_mixture, reach - engine::margin_of(pair).mixture * water);
    else
        widths.mixture = std::max(widths.mixture, (reach - engine::margin_of(pair).least_mixture) / water);
}

} // namespace

void overlaps(Table& table) {
    for (std::size_t k = 0; k < ktl::pair_count; ++k) {
        const auto pair = static_cast<Pair>(k);
        const auto letters = first_guesses::name(pair);
        // A given temperature or quality decides by itself; s, x has rules of its own.
        if (letters[1] == 'x' || pair == Pair::pt) continue;
        const bool mixtures = !engine::has_pressure(pair) && !engine::has_temperature(pair);
        Widths widths;
        for (int i = 0; i <= table.points(); ++i) {
            const double share = static_cast<double>(i) / table.points();
            if (!engine::has_temperature(pair)) along_350_degrees(pair, share, widths);
            along_the_boundary(pair, share, widths);
            if (mixtures) along_the_tie_line(pair, share, widths);
        }
        const engine::Margin margin = engine::margin_of(pair);
        const auto name = [&](const char* what) { return "margin of " + std::string(letters) + ": " + what; };
        table.covers(name("of the 2/3 boundary").c_str(), margin.pressure, widths.pressure);
        if (!engine::has_temperature(pair))
            table.covers(name("one phase, K").c_str(), margin.one_phase, widths.one_phase);
        if (mixtures) {
            table.covers(name("mixture, K").c_str(), margin.mixture, widths.mixture);
            table.covers(name("least of mixtures, K").c_str(), margin.least_mixture, widths.least_mixture);
        }
        table.covers(name("states that it lets pass").c_str(), 0.0, widths.passed);
    }
}

} // namespace constants
