// Each trial of the one search variable (pressure along an isentrope, temperature along an isochore) is a state of
// an isobar or an isotherm. Newton steps finish the search from a rough root; where they leave the region, the
// search is carried to the end.
//
// Where the line passes from one sub-region to another its properties jump a little. A value inside the jump
// stops the search between two neighbouring trials, one on each side; the equations of each side then carry on
// past their limit to the value.
#pragma once

#include "searches/acceptance.hpp"
#include "searches/enclosure.hpp"
#include "searches/isentrope_isochore.hpp"
#include "searches/limits.hpp"
#include "searches/lines.hpp"
#include "searches/saturated_water.hpp"

#include <cmath>
#include <type_traits>

namespace ktl::searches {

namespace single_lines {

/// Where the rough search stops, relative to 1000 kJ/kg, 1 kJ/(kg K): near enough for Newton steps. Chosen: 0.3 %.
inline double rough_tolerance(Quantity y) { return y == Quantity::entropy ? 3.0e-3 : 3.0; }

/// Lowest temperature of trial states on an isobar. Below tmin the isentropes of cold water go on, so that each
/// is one unbroken line although entropy first rises and then falls with pressure at 0.01 degC.
inline constexpr double below_tmin = -1.0;

/// Share of the allowed deviation with which a search ends at once: where a line is almost level a state may have all
/// that is allowed although another has the values better.
constexpr double well_met(SaturationModel model) { return model == SaturationModel::outermost_roots ? 0.4 : 1.0; }

/// The corrected state where it lies in its region, inside or at least as far in as asked.
template <class T>
FoundState<T> corrected_in_place(const FoundState<T>& start, const Given& given, Place least, double share = 1.0) {
    const FoundState<T> state = confirmed(corrected(start, given), given, share);
    return state.found() && place_of(state, given.model) >= least ? state : FoundState<T>{};
}

/// The region on the other side of the border that a state lies at, with the state in its variables.
template <class T>
FoundState<T> neighbour_across_border(const FoundState<T>& start) {
    if (start.wet()) {
        const bool low = start.region == KTL_WET;
        if (start.primary < 0.5) return {low ? KTL_WATER : KTL_NEAR_CRITICAL_WATER, start.phases.liquid, start.t, {}};
        return {low ? KTL_STEAM : KTL_NEAR_CRITICAL_STEAM, start.phases.vapour, start.t, {}};
    }
    const double v = start.value(Quantity::volume);
    if (start.region == KTL_WATER) return {KTL_NEAR_CRITICAL_WATER, v, start.t, {}};
    if (start.region == KTL_STEAM) return {KTL_NEAR_CRITICAL_STEAM, v, start.t, {}};
    const bool cool = start.t < ktl_lc.t1max + 1.0 && v < ktl_lc.vca;
    return {cool ? KTL_WATER : KTL_STEAM, start.value(Quantity::pressure), start.t, {}};
}

/// The search along a line: at(z) is the state at z, a and b the ends; beside_line(share) a state that the line may
/// miss by rounding, with that share of the allowed deviation.
template <class T, class At, class BesideLine>
FoundState<T> search(const Given& given, Quantity y, double value, double a, double b, At&& at,
                     BesideLine&& beside_line) {
    const auto f = [&](double z) { return at(z).value(y) - value; };
    const double fa = f(a);
    const double fb = f(b);
    const auto rough = solvers::enclose(f, a, fa, b, fb, rough_tolerance(y));
    const double share = well_met(given.model);
    FoundState<T> found = corrected_in_place(at(rough.x), given, Place::inside, share);
    if (found.found()) return found;

    const auto fine = solvers::enclose(f, a, fa, b, fb, search_tolerance(y, KTL_WATER, value, given.model));
    const FoundState<T> best = at(fine.x);
    const FoundState<T> other = at(fine.other);
    for (const double allowed : {share, 1.0}) {
        found = confirmed(best, given, allowed);
        if (found.found()) return found;
        for (const Place least : {Place::inside, Place::beside}) {
            for (const FoundState<T>& side : {best, other}) {
                found = corrected_in_place(side, given, least, allowed);
                if (!found.found()) found = corrected_in_place(neighbour_across_border(side), given, least, allowed);
                if (found.found()) return found;
            }
        }
        found = beside_line(allowed);
        if (found.found()) return found;
    }
    // At a limit the line ends near the value: the sub-regions differ by less than this.
    const bool near = std::fabs(best.value(y) - value) <= 1.0e-3 * (std::fabs(value) + 1.0);
    if constexpr (!std::is_same_v<T, double>) // the named finders end at the line
        if (near && given.model == SaturationModel::outermost_roots) return on_limits<T>(given);
    return {};
}

/// Water of entropy s at tmin, compressed or saturated. Along the isentropes of the coldest water the energies
/// depend on the pressure very little: the search may end at one where the temperature is below tmin. The last start is
/// water a little above tmin under about the lowest pressure.
template <class T>
FoundState<T> coldest_water(const Given& given, double s, double share) {
    if (s > 0.01) return {};
    const FoundState<T> starts[] = {on_isotherm<T>(Quantity::entropy, ktl_lc.tmin, s, given.model),
                                    {KTL_WATER, saturation_pressure_in<T>(ktl_lc.tmin), ktl_lc.tmin, {}},
                                    water_on_isotherm<T>(Quantity::entropy, ktl_lc.tmin, s, given.model).preferred,
                                    on_isobar<T>(Quantity::entropy, 1.001 * ktl_lc.pmin, s, given.model)};
    for (const FoundState<T>& start : starts)
        if (const FoundState<T> state = confirmed(start, given, share); state.found()) return state;
    for (const FoundState<T>& start : starts)
        if (const FoundState<T> state = corrected_in_place(start, given, Place::inside, share); state.found())
            return state;
    return {};
}

} // namespace single_lines

template <class T>
FoundState<T> on_isentrope(Quantity y, double value, double s, SaturationModel model) {
    using namespace single_lines;
    constexpr double slack = 2.0 * limit_rounding_of_finders;
    if (s > property_in<T>(Quantity::entropy, KTL_STEAM, ktl_lc.pmin, ktl_lc.tmax) + slack) return {};
    if (s < property_in<T>(Quantity::entropy, KTL_WATER, ktl_lc.pmax, ktl_lc.tmin) - slack) return {};
    double highest = ktl_lc.pmax;
    if (s > property_in<T>(Quantity::entropy, KTL_STEAM, ktl_lc.pmax, ktl_lc.tmax))
        highest = on_isotherm<T>(Quantity::entropy, ktl_lc.tmax, s, model).primary;
    const auto at = [&](double z) { return on_isobar<T>(Quantity::entropy, plain(exp(T(z))), s, model, below_tmin); };
    const Given given{y, value, Quantity::entropy, s, model};
    const auto beside_line = [&](double share) { return coldest_water<T>(given, s, share); };
    const FoundState<T> found =
        search<T>(given, y, value, plain(log(T(ktl_lc.pmin))), plain(log(T(highest))), at, beside_line);
    const FoundState<T> water = y == Quantity::enthalpy ? water_before(found, given) : FoundState<T>{};
    return water.found() ? water : found;
}

template <class T>
FoundState<T> on_isochore(Quantity y, double value, double v, SaturationModel model) {
    using namespace single_lines;
    if (v > property_in<T>(Quantity::volume, KTL_STEAM, ktl_lc.pmin, ktl_lc.tmax) * (1.0 + limit_rounding_of_finders))
        return {};
    if (v < property_in<T>(Quantity::volume, KTL_WATER, ktl_lc.pmax, ktl_lc.tmin) * (1.0 - limit_rounding_of_finders))
        return {};
    double coldest = ktl_lc.tmin;
    if (v > property_in<T>(Quantity::volume, KTL_STEAM, ktl_lc.pmin, ktl_lc.tmin))
        coldest = on_isobar<T>(Quantity::volume, ktl_lc.pmin, v, model).t;
    double hottest = ktl_lc.tmax;
    if (v < property_in<T>(Quantity::volume, KTL_STEAM, ktl_lc.pmax, ktl_lc.tmax))
        hottest = on_isobar<T>(Quantity::volume, ktl_lc.pmax, v, model).t;
    const auto at = [&](double t) { return on_isotherm<T>(Quantity::volume, t, v, model); };
    // Sub-region 3 ends at the 2/3 boundary; where that reaches 1000 bar, trials beyond it are steam that the line does not have.
    const auto beside_line = [&](double share) {
        const Given given{Quantity::volume, v, y, value, model};
        const double last = boundary_temperature(ktl_lc.pmax);
        return corrected_in_place(FoundState<T>{KTL_NEAR_CRITICAL_STEAM, v, last, {}}, given, Place::inside, share);
    };
    return search<T>({Quantity::volume, v, y, value, model}, y, value, coldest, hottest, at, beside_line);
}

} // namespace ktl::searches
