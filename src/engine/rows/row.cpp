#include "engine/rows/row.hpp"
#include "engine/rows/neighbours.hpp"

#include "engine/kernels/inversion.hpp"

#include <span>
#include <type_traits>
#include <utility>

namespace ktl::engine {

namespace {

using guesses::GuessPatch;

template <SubRegion sub_region>
constexpr PhaseKind kind_of_sub_region = sub_region == SubRegion::water   ? PhaseKind::water
                                         : sub_region == SubRegion::steam ? PhaseKind::steam
                                                                          : PhaseKind::near_critical;

template <SubRegion sub_region>
void fill_phase(Scalar primary, Scalar t, RowState& out) {
    out.status = Status::solved;
    out.region = region_of(kind_of_sub_region<sub_region>, primary.value, t.value);
    out.x = quiet_nan;
    out.bulk = phase_at<sub_region>(primary, t);
}
template <SubRegion sub_region>
void fill_phase(Scalar primary, Scalar t, Solution& out) {
    out.status = Status::solved;
    out.region = region_of(kind_of_sub_region<sub_region>, primary.value, t.value);
    out.primary = primary.value;
    out.t = t.value;
}

template <bool high>
void fill_mixture(Scalar x, const SaturatedProperties<Scalar>& phases, const PhaseProperties<Scalar>& bulk,
                  RowState& out) {
    out.status = Status::solved;
    out.region = high ? Region::wet_near_critical : Region::wet;
    out.x = x.value;
    out.bulk = bulk;
    out.liquid = phases.liquid;
    out.vapour = phases.vapour;
    // Next to the critical point the isotherm has the saturation pressure at the saturated volumes to 4e-9 only.
    out.liquid.p = out.vapour.p = bulk.p;
}
template <bool high>
void fill_mixture(const TwoPhaseIterate<Scalar>& m, Solution& out) {
    out = {Status::solved, high ? Region::wet_near_critical : Region::wet, m.x.value, m.t.value, m.liquid.value,
           m.vapour.value};
}

// The searches below return false unless they come to an accepted state; out then tells where they ended. They are made twice:
// for a RowState, which has every property, and for a Solution, which has the variables alone.

/// Leaves t, and the primary variable in the place of x.
void ended_at(Scalar primary, Scalar t, RowState& out) {
    out.x = primary.value;
    out.bulk.t = t;
}
void ended_at(Scalar primary, Scalar t, Solution& out) {
    out.primary = primary.value;
    out.t = t.value;
}

template <SubRegion sub_region, class Out>
KTL_FLATTEN bool solve_phase(Pair pair, Scalar a, Scalar b, Scalar primary, Scalar t, const Margin& margin, Out& out) {
    const NewtonResult<Scalar> found = solve_in<sub_region>(pair, a, b, primary, t, margin);
    ended_at(found.primary, found.t, out);
    if (!all_set(found.converged)) return false;
    fill_phase<sub_region>(found.primary, found.t, out);
    return true;
}
/// For any pair; not inlined, so that it exists once for all of them.
template <SubRegion sub_region, class Out>
[[gnu::noinline]] bool solve_phase_of_any(Pair pair, Scalar a, Scalar b, Scalar primary, Scalar t, const Margin& margin,
                                          Out& out) {
    return solve_phase<sub_region>(pair, a, b, primary, t, margin, out);
}

/// A mixture of a pair that gives p or t.
template <bool high>
[[gnu::noinline]] KTL_FLATTEN bool solve_mixture_at_line(Pair pair, Scalar a, Scalar b, const Margin& margin,
                                                         RowState& out) {
    SaturatedProperties<Scalar> phases;
    const auto found = mixture_at_p_or_t<high, PropertyLevel::everything>(pair, a, b, &phases);
    ended_at(found.m.x, found.m.t, out);
    if (!all_set(accept<high>(pair, found.m, margin))) return false;
    fill_mixture<high>(found.m.x, phases, found.bulk, out);
    return true;
}
template <bool high>
[[gnu::noinline]] KTL_FLATTEN bool solve_mixture_at_line(Pair pair, Scalar a, Scalar b, const Margin& margin,
                                                         Solution& out) {
    const auto m = mixture_at_p_or_t<high, PropertyLevel::variables>(pair, a, b).m;
    ended_at(m.x, m.t, out);
    if (!all_set(accept<high>(pair, m, margin))) return false;
    fill_mixture<high>(m, out);
    return true;
}

/// A mixture of any other pair, from a guess of its temperature.
template <bool high, class Out>
[[gnu::noinline]] KTL_FLATTEN bool solve_mixture(Pair pair, Scalar a, Scalar b, Scalar t, const Margin& margin,
                                                 Out& out) {
    const TwoPhaseIterate<Scalar> m = mixture_search<high>(pair, a, b, t);
    ended_at(m.x, m.t, out);
    if (!all_set(accept<high>(pair, m, margin))) return false;
    if constexpr (std::is_same_v<Out, Solution>) {
        fill_mixture<high>(m, out);
    } else {
        const auto phases = phases_at<high>(m.t, m.liquid, m.vapour);
        const Scalar p = high ? saturation::terms(m.t).p : m.liquid;
        fill_mixture<high>(m.x, phases, mixture_of(phases, m.x, p), out);
    }
    return true;
}

/// The pairs that programs ask most have searches that know the pair.
constexpr bool is_frequent(Pair pair) { return pair == Pair::pt || pair == Pair::ph || pair == Pair::ps; }

template <Pair pair, SubRegion sub_region, class Out>
bool solve_guessed(Scalar a, Scalar b, Scalar primary, Scalar t, const Margin& margin, Out& out) {
    if constexpr (pair == Pair::pt && sub_region != SubRegion::near_critical) {
        fill_phase<sub_region>(a, b, out); // both variables are given
        return true;
    } else if constexpr (is_frequent(pair)) {
        return solve_phase<sub_region>(pair, a, b, primary, t, margin, out);
    } else {
        return solve_phase_of_any<sub_region>(pair, a, b, primary, t, margin, out);
    }
}

template <Pair pair, bool high, class Out>
bool solve_mixture_guessed(Scalar a, Scalar b, Scalar t, const Margin& margin, Out& out) {
    if constexpr (has_pressure(pair) || has_temperature(pair))
        return solve_mixture_at_line<high>(pair, a, b, margin, out);
    else
        return solve_mixture<high>(pair, a, b, t, margin, out);
}

/// The state by the guess of one patch.
template <Pair pair, class Out>
KTL_FLATTEN bool solve_by_patch(GuessPatch patch, double a, double b, const Margin& margin, Out& out) {
    Scalar primary(1.0);
    Scalar t(1.0);
    guesses::guess<pair>(patch, Scalar(a), Scalar(b), primary, t);
    switch (kind_of[static_cast<std::size_t>(patch)]) {
    case PhaseKind::water: return solve_guessed<pair, SubRegion::water>(a, b, primary, t, margin, out);
    case PhaseKind::steam: return solve_guessed<pair, SubRegion::steam>(a, b, primary, t, margin, out);
    case PhaseKind::near_critical: return solve_guessed<pair, SubRegion::near_critical>(a, b, primary, t, margin, out);
    case PhaseKind::wet: return solve_mixture_guessed<pair, false>(a, b, t, margin, out);
    case PhaseKind::wet_near_critical: return solve_mixture_guessed<pair, true>(a, b, t, margin, out);
    }
    return false;
}

template <Pair pair>
KTL_FLATTEN GuessPatch classify_row(double a, double b) {
    return static_cast<GuessPatch>(static_cast<int>(patch_of<pair>(Scalar(a), Scalar(b)).value));
}

/// What is made for each pair.
struct PairSolver {
    GuessPatch (*classify)(double a, double b);
    bool (*solve)(GuessPatch patch, double a, double b, const Margin& margin, RowState& out);
    bool (*find)(GuessPatch patch, double a, double b, const Margin& margin, Solution& out);
};
template <std::size_t... pair>
constexpr std::array<PairSolver, pair_count> solvers_of(std::index_sequence<pair...>) {
    return {{{classify_row<static_cast<Pair>(pair)>, solve_by_patch<static_cast<Pair>(pair), RowState>,
              solve_by_patch<static_cast<Pair>(pair), Solution>}...}};
}
constexpr auto solvers = solvers_of(std::make_index_sequence<pair_count>());

/// Limits of the states of sub-region 3 that share values with saturated water of sub-region 1, at 348.36 to 350 degC:
/// measured down to 0.001709 m3/kg in one phase, and up to x = 2.1e-6 in two.
constexpr double overlapping_volume = 0.00169;
constexpr double overlapping_quality = 1.0e-5;

/// True if rounding may have kept saturated water, which takes precedence, out of sub-region 1: a mixture of little
/// steam by h, s, or a state of sub-region 3 within the overlap at 350 degC.
bool in_doubt(Pair pair, const RowState& found) noexcept {
    if (pair < Pair::hs) return false;
    const Margin margin = margin_of(pair);
    const double t = found.bulk.t.value;
    if (found.region == Region::wet) return margin.doubtful_quality && found.x < searches::doubtful_quality(t);
    if (!(t < ktl_lc.t3min + margin.one_phase)) return false;
    if (found.region == Region::wet_near_critical) return found.x < overlapping_quality;
    return found.region == Region::near_critical_water && found.bulk.v.value > overlapping_volume;
}

PhaseKind kind_of_region(Region region) noexcept {
    switch (region) {
    case Region::water: return PhaseKind::water;
    case Region::steam: return PhaseKind::steam;
    case Region::wet: return PhaseKind::wet;
    case Region::wet_near_critical: return PhaseKind::wet_near_critical;
    default: return PhaseKind::near_critical;
    }
}

/// One property of a solved state, by the kernels of one lane, which compute no more than it needs.
double value_of(Solution state, Property property) noexcept {
    if (property == Property::t) return state.t;
    if (property == Property::region) return static_cast<double>(state.region);
    if (property == Property::x) return state.two_phase() ? state.primary : quiet_nan;
    if (state.two_phase() && !of_mixtures(property)) return quiet_nan;
    const auto kind = static_cast<std::size_t>(kind_of_region(state.region));
    const auto level = static_cast<std::size_t>(level_of(property));
    double y = quiet_nan;
    double* output = &y;
    scalar_kernels().evaluate[kind][level]({&state.primary, &state.t, &state.liquid, &state.vapour, nullptr}, 1,
                                           &property, 1, &output);
    return y;
}

/// The water that takes precedence over a state in doubt, or that state.
RowState water_or(Pair pair, double a, double b, const RowState& found) noexcept {
    const double primary = found.region == Region::wet ? found.x : found.bulk.v.value;
    const Solution water =
        water_before(pair, a, b, {Status::solved, found.region, primary, found.bulk.t.value, quiet_nan, quiet_nan});
    return water.status == Status::solved ? evaluated(water) : found;
}

} // namespace

Region region_of(PhaseKind kind, double primary, double t) noexcept {
    switch (kind) {
    case PhaseKind::water: return Region::water;
    case PhaseKind::steam: return Region::steam;
    case PhaseKind::near_critical:
        return primary < ktl_lc.vca && t <= ktl_lc.tc ? Region::near_critical_water : Region::near_critical_steam;
    case PhaseKind::wet: return Region::wet;
    case PhaseKind::wet_near_critical: return Region::wet_near_critical;
    }
    return Region::none;
}

RowState solve_row(Pair pair, double a, double b) noexcept {
    if (static_cast<std::size_t>(pair) >= pair_count) return {};
    const PairSolver& solver = solvers[static_cast<std::size_t>(pair)];
    const GuessPatch patch = solver.classify(a, b);
    RowState out;
    if (patch != GuessPatch::search && solver.solve(patch, a, b, margin_of(pair), out)) return out;
    return solve_row_again(pair, a, b, {out.x, out.bulk.t.value});
}

Solution find_by_patch(Pair pair, double a, double b) noexcept {
    Solution out;
    if (static_cast<std::size_t>(pair) >= pair_count) return out;
    const PairSolver& solver = solvers[static_cast<std::size_t>(pair)];
    const GuessPatch patch = solver.classify(a, b);
    if (patch != GuessPatch::search) solver.find(patch, a, b, margin_of(pair), out);
    return out;
}

double value_of_row(Pair pair, double a, double b, Property property) noexcept {
    const Solution found = find_by_patch(pair, a, b);
    if (found.status == Status::solved) return value_of(found, property);
    const RowState row = static_cast<std::size_t>(pair) < pair_count
                             ? solve_row_again(pair, a, b, {found.primary, found.t})
                             : RowState{};
    return value(property, row.bulk, row.x, row.region);
}

RowState solve_row_again(Pair pair, double a, double b, const EndOfSearch& ended) noexcept {
    const PairSolver& solver = solvers[static_cast<std::size_t>(pair)];
    const GuessPatch own = solver.classify(a, b);
    const bool by_patches = names_one_state(pair) && own != GuessPatch::search;
    RowState out;
    const auto solved = [&](std::span<const GuessPatch> patches, const Margin& margin) {
        return std::any_of(patches.begin(), patches.end(),
                           [&](GuessPatch patch) { return solver.solve(patch, a, b, margin, out); });
    };
    AcrossLine across{patch_across(pair, own, a, ended), {}};
    if (across.patch != GuessPatch::search) {
        if (solver.solve(across.patch, a, b, margin_of(pair), out)) return out;
        across.ended = {out.x, out.bulk.t.value};
    }
    const Candidates others = by_patches ? candidates(own, ended, across) : Candidates{};
    bool found = others.beside_border && solved(others.patches, no_margin);
    if (!found) {
        if (const Status beyond = status_beyond(pair, a, b); beyond != Status::solved) {
            out = {};
            out.status = beyond;
            return out;
        }
        found = !others.beside_border && solved(others.patches, no_margin);
    }
    if (!found) return evaluated(search(pair, a, b, 0));
    return in_doubt(pair, out) ? water_or(pair, a, b, out) : out;
}

RowState evaluated(const Solution& found) noexcept {
    RowState out;
    const Scalar primary(found.primary);
    const Scalar t(found.t);
    const auto fill_two_phases = [&]<bool high>() {
        const auto phases = phases_at<high>(t, Scalar(found.liquid), Scalar(found.vapour));
        const Scalar p = high ? saturation::terms(t).p : Scalar(found.liquid);
        fill_mixture<high>(primary, phases, mixture_of(phases, primary, p), out);
    };
    if (found.status == Status::solved || found.status == Status::undetermined) {
        switch (found.region) {
        case Region::water: fill_phase<SubRegion::water>(primary, t, out); break;
        case Region::steam: fill_phase<SubRegion::steam>(primary, t, out); break;
        case Region::wet: fill_two_phases.operator()<false>(); break;
        case Region::wet_near_critical: fill_two_phases.operator()<true>(); break;
        default: fill_phase<SubRegion::near_critical>(primary, t, out); break;
        }
    }
    out.status = found.status;
    return out;
}

} // namespace ktl::engine
