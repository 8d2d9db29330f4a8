// Searches that find every state of the range.
//
// Border gaps. The sub-regions do not meet exactly at 350 degC and on the 2/3 boundary, so a pair there may have a state
// on both sides or on neither. On both: sub-regions 1 and 2 go before sub-region 3. On neither: sub-region 1,
// sub-region 2 or their mixture goes on past its limit, by less than 0.5 K or 1 % of the pressure, to exactly the given
// values. Saturated phases above 350 degC are the outermost ones of the isotherm (SaturationModel::outermost_roots).
#include "engine/solution.hpp"

#include "engine/lanes/scalar.hpp"
#include "engine/pairs.hpp"
#include "engine/rows/row.hpp"
#include "searches/acceptance.hpp"
#include "searches/isentrope_isochore.hpp"
#include "searches/limits.hpp"
#include "searches/lines.hpp"
#include "searches/quality_line.hpp"
#include "searches/saturated_water.hpp"
#include "searches/tolerances.hpp"
#include "searches/top_of_dome.hpp"

#include <algorithm>
#include <array>

namespace ktl::engine {

namespace {

using searches::Given;
/// The searches evaluated in the number type of the engine: exp and log are its own.
using FoundState = ktl::FoundState<Scalar>;
constexpr SaturationModel outermost = SaturationModel::outermost_roots;

/// How a pair is searched for.
enum class SearchMethod { pressure_temperature, quality, isobar, isotherm, quality_line, isentrope, isochore };
constexpr SearchMethod method_of(Pair pair) {
    if (pair == Pair::pt) return SearchMethod::pressure_temperature;
    if (pair == Pair::px || pair == Pair::tx) return SearchMethod::quality;
    if (pair == Pair::sx) return SearchMethod::quality_line;
    if (has_pressure(pair)) return SearchMethod::isobar;
    if (has_temperature(pair)) return SearchMethod::isotherm;
    return pair == Pair::hs || pair == Pair::us ? SearchMethod::isentrope : SearchMethod::isochore;
}

struct PairPlan {
    SearchMethod method;
    Quantity a, b; // without meaning for a quality
};
PairPlan plan_of(Pair pair) { return {method_of(pair), quantities(pair).a, quantities(pair).b}; }

Solution failed(Status status) {
    Solution out;
    out.status = status;
    return out;
}

Solution solution(const FoundState& state) {
    if (!state.found()) return {};
    Solution out{Status::solved, static_cast<Region>(state.region), state.primary, state.t, quiet_nan, quiet_nan};
    if (state.wet()) {
        out.liquid = state.phases.liquid;
        out.vapour = state.phases.vapour;
    }
    return out;
}

/// Brings a given value to the limit that rounding alone may have put it past; solved unless it lies further out.
Status within(double& value, double low, double high, Status if_low, Status if_high) {
    if (low - value > searches::limit_rounding * (low > 0.0 ? low : 1.0)) return if_low;
    if (value - high > searches::limit_rounding * high) return if_high;
    value = std::clamp(value, low, high);
    return Status::solved;
}
Status pressure_within(double& p) {
    return within(p, ktl_lc.pmin, ktl_lc.pmax, Status::pressure_low, Status::pressure_high);
}
Status temperature_within(double& t) {
    return within(t, ktl_lc.tmin, ktl_lc.tmax, Status::temperature_low, Status::temperature_high);
}
Status quality_within(double& x) { return within(x, 0.0, 1.0, Status::quality_low, Status::quality_high); }

Solution at_pressure_temperature(double p, double t) {
    if (const Status status = pressure_within(p); status != Status::solved) return failed(status);
    if (const Status status = temperature_within(t); status != Status::solved) return failed(status);
    const bool subcritical = t <= ktl_lc.tc;
    const double ps = subcritical ? saturation_pressure_in<Scalar>(t) : ktl_lc.pca;
    if (subcritical && std::fabs(p - ps) <= searches::on_saturation_line * p) {
        Solution out = solution(mixture(saturated_at<Scalar>(t, outermost), quiet_nan));
        out.status = Status::undetermined;
        return out;
    }
    return solution(searches::confirmed(single_phase_at<Scalar>(p, t, outermost),
                                        {Quantity::pressure, p, Quantity::temperature, t, outermost}));
}

Solution of_quality(Quantity line, double value, double x) {
    const bool by_pressure = line == Quantity::pressure;
    if (const Status status =
            by_pressure ? within(value, ktl_lc.pmin, ktl_lc.pca, Status::pressure_low, Status::above_critical)
                        : within(value, ktl_lc.tmin, ktl_lc.tc, Status::temperature_low, Status::above_critical);
        status != Status::solved)
        return failed(status);
    if (const Status status = quality_within(x); status != Status::solved) return failed(status);
    return solution(
        mixture(by_pressure ? saturated_under<Scalar>(value, outermost) : saturated_at<Scalar>(value, outermost), x));
}

/// A property of water with its slopes by pressure and by temperature.
Slopes<Scalar> slopes_of_water(Quantity y, double p, double t) {
    return slopes(y, properties_at<SubRegion::water>(Scalar(p), Scalar(t)));
}

/// The end of the isobar beyond which the value lies. The least volume of cold water is no end.
Status past_end_of_isobar(Quantity y, double p, double value) {
    if (value > property_in<Scalar>(y, KTL_STEAM, p, ktl_lc.tmax)) return Status::temperature_high;
    const Slopes<Scalar> coldest = slopes_of_water(y, p, ktl_lc.tmin);
    return coldest.d_t > 0.0 && value < coldest.y ? Status::temperature_low : Status::no_state;
}
/// The end of the isotherm beyond which the value lies. Where a property of water turns its least value is no end.
Status past_end_of_isotherm(Quantity y, double t, double value) {
    if (value > property_in<Scalar>(y, KTL_STEAM, ktl_lc.pmin, t)) return Status::pressure_low;
    const bool least = t > ktl_lc.t1max || slopes_of_water(y, ktl_lc.pmax, t).d_primary < 0.0;
    return least ? Status::pressure_high : Status::no_state;
}

/// More than the sub-regions differ at their borders, and than a state that covers a gap, by 0.5 K or 1 % of the pressure, lies
/// beyond a limit.
double clearly(Quantity y, double value) {
    if (y == Quantity::volume) return 0.02 * std::fabs(value);
    return y == Quantity::entropy ? 0.02 : 10.0;
}

/// The value of y at the state of the first of two pairs that has one by its first guess; not-a-number if none has.
double at_end(Quantity y, Pair pair, double end, double line, Pair other, double other_end) {
    Solution found = find_by_patch(pair, end, line);
    if (found.status != Status::solved) found = find_by_patch(other, other_end, line);
    if (found.status != Status::solved) return quiet_nan;
    if (!found.two_phase()) return property_in<Scalar>(y, static_cast<int>(found.region), found.primary, found.t);
    return mixture(saturated_at<Scalar>(found.t, outermost), found.primary).value(y);
}

/// True if y is clearly beyond its values at the ends of its line.
bool is_beyond(Quantity y, double value, double low, double high) {
    return value < low - clearly(y, low) || value > high + clearly(y, high);
}

Status line_within(Quantity line, double& value) {
    return line == Quantity::pressure ? pressure_within(value) : temperature_within(value);
}

/// Whether y is clearly beyond its values at the ends of a line that lies in the range itself.
bool is_beyond_isobar(Quantity line, Quantity y, double p, double value) {
    if (line_within(line, p) != Status::solved) return false;
    return is_beyond(y, value, property_in<Scalar>(y, KTL_WATER, p, ktl_lc.tmin),
                     property_in<Scalar>(y, KTL_STEAM, p, ktl_lc.tmax));
}
bool is_beyond_isotherm(Quantity line, Quantity y, double t, double value) {
    if (line_within(line, t) != Status::solved) return false;
    // Of the properties only the volume falls with pressure everywhere.
    const double densest = y == Quantity::volume ? value_of_row(Pair::pt, ktl_lc.pmax, t, Property::v) : -infinity;
    return is_beyond(y, value, densest, property_in<Scalar>(y, KTL_STEAM, ktl_lc.pmin, t));
}
/// Enthalpy and internal energy rise with pressure along an isentrope.
bool is_beyond_isentrope(Quantity y, double value, double s) {
    const double least = std::fmin(0.0, property_in<Scalar>(Quantity::entropy, KTL_WATER, ktl_lc.pmax, ktl_lc.tmin));
    const double greatest = property_in<Scalar>(Quantity::entropy, KTL_STEAM, ktl_lc.pmin, ktl_lc.tmax);
    return is_beyond(Quantity::entropy, s, least, greatest) ||
           is_beyond(y, value, at_end(y, Pair::ps, ktl_lc.pmin, s, Pair::ts, ktl_lc.tmin), infinity) ||
           is_beyond(y, value, -infinity, at_end(y, Pair::ps, ktl_lc.pmax, s, Pair::ts, ktl_lc.tmax));
}
/// Enthalpy, entropy and internal energy rise with temperature along an isochore.
bool is_beyond_isochore(Quantity y, double v, double value) {
    const double least = property_in<Scalar>(Quantity::volume, KTL_WATER, ktl_lc.pmax, ktl_lc.tmin);
    const double greatest = property_in<Scalar>(Quantity::volume, KTL_STEAM, ktl_lc.pmin, ktl_lc.tmax);
    return is_beyond(Quantity::volume, v, least, greatest) ||
           is_beyond(y, value, at_end(y, Pair::tv, ktl_lc.tmin, v, Pair::pv, ktl_lc.pmin), infinity) ||
           is_beyond(y, value, -infinity, at_end(y, Pair::pv, ktl_lc.pmax, v, Pair::tv, ktl_lc.tmax));
}

Solution on_line(const PairPlan& plan, double a, double b) {
    double line = a;
    if (const Status status = line_within(plan.a, line); status != Status::solved) return failed(status);
    const FoundState found = searches::on_line<Scalar>(line, {plan.a, a, plan.b, b, outermost});
    if (found.found()) return solution(found);
    return failed(plan.method == SearchMethod::isobar ? past_end_of_isobar(plan.b, line, b)
                                                      : past_end_of_isotherm(plan.b, line, b));
}

Solution on_quality_line(double s, double x) {
    if (const Status status = quality_within(x); status != Status::solved) return failed(status);
    FoundState found;
    if (searches::on_quality_line<Scalar>(s, x, {&found, 1}) > 0) return solution(found);
    // Both are zero for water at 0.01 degC: rounding may put them past what any mixture has.
    const FoundState coldest = mixture(saturated_at<Scalar>(ktl_lc.tmin, outermost), x);
    return solution(searches::confirmed(coldest, {Quantity::entropy, s, Quantity::quality, x, outermost}));
}

/// The state that the rule gives.
Solution first_state(const PairPlan& plan, double a, double b) {
    switch (plan.method) {
    case SearchMethod::pressure_temperature: return at_pressure_temperature(a, b);
    case SearchMethod::quality: return of_quality(plan.a, a, b);
    case SearchMethod::isobar:
    case SearchMethod::isotherm: return on_line(plan, a, b);
    case SearchMethod::quality_line: return on_quality_line(a, b);
    case SearchMethod::isentrope:
    case SearchMethod::isochore: break;
    }
    const FoundState top = searches::at_top_of_dome({plan.a, a, plan.b, b, outermost});
    if (top.found()) return solution(top);
    if (plan.method == SearchMethod::isentrope)
        return solution(searches::on_isentrope<Scalar>(plan.a, a, b, outermost));
    return solution(searches::on_isochore<Scalar>(plan.b, b, a, outermost));
}

/// The states of a pair, that of the rule first.
struct Several {
    std::array<FoundState, searches::most_on_quality_line> states{};
    int count = 0;

    static bool same(const FoundState& a, const FoundState& b) {
        const auto close = [&](Quantity y, double relative) {
            return std::fabs(a.value(y) - b.value(y)) <= relative * std::fabs(b.value(y));
        };
        return std::fabs(a.t - b.t) <= 1.0e-5 && close(Quantity::pressure, 1.0e-6) && close(Quantity::volume, 1.0e-8);
    }
    /// Takes a state unless it is none or there already.
    void add(const FoundState& state) {
        if (!state.found() || count == static_cast<int>(states.size())) return;
        const auto end = states.begin() + count;
        if (std::none_of(states.begin(), end, [&](const FoundState& known) { return same(known, state); }))
            states.at(static_cast<std::size_t>(count++)) = state;
    }
};

/// The mixture that has the value, but for rounding, on a line of constant pressure or temperature up to 350 degC.
FoundState mixture_on_line(const Given& given) {
    const bool isobar = given.a == Quantity::pressure;
    const double a = given.a_value;
    const double b = given.b_value;
    if (isobar && a > last_low_pressure<Scalar>(outermost)) return {};
    const auto phases = isobar ? saturated_under<Scalar>(a, outermost) : saturated_at<Scalar>(a, outermost);
    const double liquid = phases.of_liquid(given.b);
    const double x = (b - liquid) / (phases.of_vapour(given.b) - liquid);
    // Beside saturated water a mixture of nearly no steam differs from it by rounding alone.
    const bool between = b - liquid > 2.0 * search_tolerance(given.b, KTL_WATER, b, outermost) && x <= 1.0;
    return between ? searches::confirmed(mixture(phases, x), given) : FoundState{};
}

/// All states on a line of constant pressure or temperature, if it meets water: this may have two states, and a mixture
/// beside them. Along an isotherm by rising pressure, along an isobar by falling temperature; but first the one that the rule
/// takes.
Several states_through_water(const Given& given, const FoundState& first) {
    Several found;
    const auto& [line, a, y, b, source] = given;
    found.add(mixture_on_line(given));
    const bool wet = found.count == 1;
    const BothSides<Scalar> water = line == Quantity::pressure ? water_on_isobar<Scalar>(a, b, source, wet)
                                                               : water_on_isotherm<Scalar>(y, a, b, source, wet);
    found.add(searches::confirmed(water.preferred, given));
    found.add(searches::confirmed(water.other, given));
    if (found.count == 0) {
        found.add(first);
        return found;
    }
    // Two values may fix the pressure of water badly: the nearest state is the first one.
    const auto apart = [&](const FoundState& state) {
        const double p = state.value(Quantity::pressure) / first.value(Quantity::pressure);
        const double phase = state.wet() == first.wet() ? 0.0 : ktl_lc.tmax;
        return std::fabs(state.t - first.t) + std::fabs(log(Scalar(p)).value) + phase;
    };
    const auto begin = found.states.begin();
    const auto nearest = std::min_element(
        begin, begin + found.count, [&](const FoundState& x, const FoundState& z) { return apart(x) < apart(z); });
    *nearest = first;
    std::rotate(begin, nearest, nearest + 1);
    return found;
}

/// By h, s: the mixtures of a fold of cold water beside the first state.
Several states_of_isentrope(const PairPlan& plan, double a, double b) {
    const Given given{plan.a, a, plan.b, b, outermost};
    const FoundState first = searches::on_isentrope<Scalar>(plan.a, a, b, outermost);
    Several found;
    found.add(first);
    const searches::FoldedMixtures<Scalar> mixtures = searches::folded_mixtures(first, given);
    found.add(mixtures.more_steam);
    found.add(mixtures.less_steam);
    return found;
}

Several all_states(const PairPlan& plan, double a, double b) {
    if (plan.method == SearchMethod::isentrope && plan.a == Quantity::enthalpy) return states_of_isentrope(plan, a, b);
    Several found;
    if (plan.method == SearchMethod::quality_line) {
        if (quality_within(b) == Status::solved) found.count = searches::on_quality_line<Scalar>(a, b, found.states);
        return found;
    }
    const bool isobar = plan.method == SearchMethod::isobar;
    if (!isobar && plan.method != SearchMethod::isotherm) return found;
    double line = a;
    if (line_within(plan.a, line) != Status::solved) return found;
    const FoundState first = searches::on_line<Scalar>(line, {plan.a, a, plan.b, b, outermost});
    const bool may_turn = isobar == (plan.b == Quantity::volume) &&
                          (first.region == KTL_WATER || first.region == KTL_WET) && (isobar || line <= ktl_lc.t1max);
    if (may_turn) return states_through_water({plan.a, line, plan.b, b, outermost}, first);
    found.add(first);
    return found;
}

} // namespace

Solution search(Pair pair, double a, double b, int number) noexcept {
    if (static_cast<std::size_t>(pair) >= pair_count) return {};
    if (!searches::finite(a, b)) return failed(Status::not_a_number);
    if (number == 0) return first_state(plan_of(pair), a, b);
    const Several found = all_states(plan_of(pair), a, b);
    return number > 0 && number < found.count ? solution(found.states.at(static_cast<std::size_t>(number)))
                                              : Solution{};
}

Solution water_before(Pair pair, double a, double b, const Solution& found) noexcept {
    const PairPlan plan = plan_of(pair);
    const Given given{plan.a, a, plan.b, b, outermost};
    const FoundState mixture{static_cast<int>(found.region), found.primary, found.t, {}};
    return solution(found.region == Region::wet ? searches::water_before(mixture, given)
                                                : searches::saturated_water<Scalar>(given, searches::rounding_share));
}

Status status_beyond(Pair pair, double a, double b) noexcept {
    const PairPlan plan = plan_of(pair);
    if (!searches::finite(a, b)) return Status::solved;
    const bool beyond = plan.method == SearchMethod::isobar      ? is_beyond_isobar(plan.a, plan.b, a, b)
                        : plan.method == SearchMethod::isotherm  ? is_beyond_isotherm(plan.a, plan.b, a, b)
                        : plan.method == SearchMethod::isentrope ? is_beyond_isentrope(plan.a, a, b)
                        : plan.method == SearchMethod::isochore  ? is_beyond_isochore(plan.b, a, b)
                                                                 : false;
    if (!beyond) return Status::solved;
    if (plan.method == SearchMethod::isobar) return past_end_of_isobar(plan.b, a, b);
    return plan.method == SearchMethod::isotherm ? past_end_of_isotherm(plan.b, a, b) : Status::no_state;
}

int count_states(Pair pair, double a, double b) noexcept {
    const Solution first = search(pair, a, b, 0);
    if (first.status != Status::solved) return 0;
    return std::max(1, all_states(plan_of(pair), a, b).count);
}

} // namespace ktl::engine
