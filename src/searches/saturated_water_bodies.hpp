// Saturated water by two properties, and the mixtures of its fold.
#pragma once

#include "searches/enclosure.hpp"
#include "searches/saturated_water.hpp"

#include <algorithm>

namespace ktl::searches {

namespace folds {

template <class T>
double of_saturated_water(Quantity y, double t) {
    return property_in<T>(y, KTL_WATER, saturation_pressure_in<T>(t), t);
}

/// Temperature up to 350 degC at which saturated water has the value, or the nearer end.
template <class T>
double temperature_of_saturated_water(Quantity y, double value) {
    const auto f = [&](double t) { return of_saturated_water<T>(y, t) - value; };
    return solvers::enclose(f, ktl_lc.tmin, ktl_lc.t1max, search_tolerance(value)).x;
}

/// The mixture at t that has the entropy s.
template <class T>
FoundState<T> mixture_of_entropy(double s, double t) {
    const auto phases = saturated_at<T>(t, SaturationModel::outermost_roots);
    const double liquid = phases.of_liquid(Quantity::entropy);
    return mixture(phases, (s - liquid) / (phases.of_vapour(Quantity::entropy) - liquid));
}

/// How far below the temperature of saturated water of the same entropy mixtures are searched, K; those of a fold are
/// up to 0.0198 K below.
inline constexpr double fold_reach = 0.03;

} // namespace folds

template <class T>
FoundState<T> saturated_water(const Given& given, double share) {
    const double t = folds::temperature_of_saturated_water<T>(given.b, given.b_value);
    return confirmed(FoundState<T>{KTL_WATER, saturation_pressure_in<T>(t), t, {}}, given, share);
}

template <class T>
FoundState<T> water_before(const FoundState<T>& found, const Given& given) {
    if (found.region != KTL_WET || !(found.primary <= folded_quality)) return {};
    const Given exact{given.a, given.a_value, given.b, given.b_value, SaturationModel::outermost_roots};
    if (!(found.t < folded_below)) return saturated_water<T>(exact, rounding_share);
    const FoundState<T> start{KTL_WATER, saturation_pressure_in<T>(found.t), found.t, {}};
    const FoundState<T> water = confirmed(corrected(start, exact), exact);
    if (water.found() && water.primary >= saturation_pressure_in<T>(water.t)) return water;
    return saturated_water<T>(exact);
}

template <class T>
FoldedMixtures<T> folded_mixtures(const FoundState<T>& water, const Given& given) {
    using namespace folds;
    const double s = given.b_value;
    const double warmest = temperature_of_saturated_water<T>(Quantity::entropy, s);
    if (water.region != KTL_WATER || !(warmest < folded_below + fold_reach)) return {};
    const auto f = [&](double below) {
        return mixture_of_entropy<T>(s, warmest - below).value(Quantity::enthalpy) - given.a_value;
    };
    // Over its temperature, the enthalpy of the mixture of entropy s is a parabola, but for 1e-4 of the distance.
    constexpr double step = fold_reach / 3.0;
    const double on_line = f(0.0);
    const double first = (f(step) - on_line) / step;
    const double second = (f(2.0 * step) - on_line) / (2.0 * step);
    const double curvature = (second - first) / step;
    const double crest = std::max(-0.5 * (first - curvature * step) / curvature, 0.0);
    // Without a fold, a mixture of practically no steam beside saturated water is told from it by its enthalpy alone.
    const double least =
        crest > 0.0 ? 0.0 : 2.0 * search_tolerance(Quantity::enthalpy, KTL_WATER, given.a_value, given.model);
    if (!(f(crest) >= least)) return {};
    const auto between = [&](double a, double b) {
        const double below = solvers::enclose(f, a, b, search_tolerance(given.a_value)).x;
        return confirmed(mixture_of_entropy<T>(s, warmest - below), given);
    };
    FoldedMixtures<T> mixtures{between(crest, fold_reach), {}};
    if (!saturated_water<T>(given).found()) mixtures.less_steam = between(0.0, crest);
    return mixtures;
}

} // namespace ktl::searches
