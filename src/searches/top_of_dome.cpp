#include "searches/top_of_dome.hpp"

#include "searches/enclosure.hpp"
#include "searches/newton.hpp"

#include <cmath>

namespace ktl::searches {

namespace {

using Scalar = engine::Scalar;

/// Where the top begins and ends, degC. Both chosen: from 3e-7 K below the critical temperature on, mixtures and single phases share
/// values to what a state may miss them by, and the enclosing searches decide.
constexpr double coldest = 374.0;
constexpr double closed = ktl_lc.tc - 1.0e-4;
/// A single phase that has the values of a mixture of the top is up to 0.22 K colder.
constexpr double coldest_single_phase = coldest - 1.0;
/// Farther from the critical point than the states of the top by much: of the volume, and K. Chosen.
constexpr double far_volume = 1.0;
constexpr double far_t = 10.0;
/// A single phase is clear of the dome if its pressure differs from that of saturation by more than this share: the saturation line
/// and the loop of the isotherms differ by 3e-9. A mixture is clear of both phases by this quality.
constexpr double clear_pressure = 1.0e-7;
constexpr double clear_quality = 1.0e-3;
/// Share of the allowed deviation that a state may have; others are left to the enclosing searches.
constexpr double well_met = 0.4;

/// Whether a state of sub-region 3 with both values may be near the critical point, by one step of Newton's method from the
/// volume v at its temperature.
bool may_be_near(const Given& given, double v) {
    if (!(std::fabs(v - ktl_lc.vca) < far_volume * ktl_lc.vca)) return false;
    const auto critical = helmholtz_properties(Scalar(v), Scalar(ktl_lc.tc));
    const auto d =
        step<SubRegion::near_critical>({given.a, given.b}, critical, Scalar(given.a_value), Scalar(given.b_value));
    return abs(d.primary) < far_volume * ktl_lc.vca && abs(d.t) < far_t;
}

/// The mixture at t that has the first value.
FoundState<Scalar> mixture_at(double t, const Given& given) {
    const auto phases = saturated_at<Scalar>(t, SaturationModel::outermost_roots);
    const double liquid = phases.of_liquid(given.a);
    return mixture(phases, (given.a_value - liquid) / (phases.of_vapour(given.a) - liquid));
}

FoundState<Scalar> clear_mixture(const Given& given) {
    const auto miss = [&](double t) { return mixture_at(t, given).value(given.b) - given.b_value; };
    const double t = solvers::enclose(miss, coldest, closed, search_tolerance(given.b_value)).x;
    const FoundState<Scalar> found = mixture_at(t, given);
    const bool within = t > coldest && t < closed; // an end comes back if the values have no state between both
    const bool clear = within && found.primary > clear_quality && found.primary < 1.0 - clear_quality;
    return clear ? confirmed(found, given, well_met) : FoundState<Scalar>{};
}

} // namespace

FoundState<Scalar> at_top_of_dome(const Given& given) {
    const double first = given.a == Quantity::volume ? given.a_value : ktl_lc.vca;
    if (!may_be_near(given, first)) return {};
    const FoundState<Scalar> start{KTL_NEAR_CRITICAL_STEAM, first, ktl_lc.tc, {}};
    const FoundState<Scalar> single = confirmed(corrected(start, given), given, well_met);
    if (!single.found() || !(single.t > coldest_single_phase && single.t < closed)) return {};
    const auto phases = saturated_at<Scalar>(single.t, SaturationModel::outermost_roots);
    const double v = single.primary;
    if (v > phases.liquid && v < phases.vapour) return clear_mixture(given);
    const double off = single.value(Quantity::pressure) / phases.p - 1.0;
    const bool clear = v < phases.liquid ? off > clear_pressure : off < -clear_pressure;
    return clear ? single : FoundState<Scalar>{};
}

} // namespace ktl::searches
