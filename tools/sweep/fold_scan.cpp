#include "fold_scan.hpp"

#include "pairs.hpp"
#include "searches/state.hpp"

#include <algorithm>
#include <cmath>

namespace sweep {

namespace {

using ktl::Pair;
using ktl::Quantity;
using ktl::State;

/// Rounding of h of water and mixtures at the same s, kJ/kg.
constexpr double rounding = 6.0e-10;
/// Mixtures with x up to 1e-4 are colder than saturated water by less than this, K.
constexpr double reach = 0.07;

/// Agreement with the walk, K: one step, and what rounding makes of the temperature next to the crest of a fold.
constexpr double same_mixture = 4.0 * fold_step;

/// What ktl::state() promises of h, kJ/kg.
double accuracy(double h) { return of_calls.relative * of_calls.size_of(h, &Values::h); }
/// How far h may lie below saturated water of entropy s at t if both values may be off: dh is T ds along the isobar.
double accuracy_of_both(double h, double s, double t) {
    return accuracy(h) + (t + ktl::ktl_lc.tza) * of_calls.relative * of_calls.size_of(s, &Values::s);
}

double of_saturated(Quantity y, int region, double t) { return property(y, region, ktl::saturation::terms(t).p, t); }

/// Enthalpy of the mixture at t that has the entropy s.
double enthalpy_of_mixture(double s, double t) {
    const auto water = [t](Quantity y) { return of_saturated(y, KTL_WATER, t); };
    const auto steam = [t](Quantity y) { return of_saturated(y, KTL_STEAM, t); };
    const double x = (s - water(Quantity::entropy)) / (steam(Quantity::entropy) - water(Quantity::entropy));
    return water(Quantity::enthalpy) + x * (steam(Quantity::enthalpy) - water(Quantity::enthalpy));
}

/// Temperature of saturated water of entropy s, by bisection.
double saturated_water(double s) {
    double a = 0.0;
    double b = warmest_fold + 1.0;
    for (int pass = 0; pass < 60; ++pass) {
        const double middle = 0.5 * (a + b);
        (of_saturated(Quantity::entropy, KTL_WATER, middle) < s ? a : b) = middle;
    }
    return 0.5 * (a + b);
}

int sign(double difference) { return difference > rounding ? 1 : (difference < -rounding ? -1 : 0); }

bool reproduces(const State& state, double h, double s) {
    return of_calls.deviation(h, state.h(), &Values::h) <= of_calls.relative &&
           of_calls.deviation(s, state.s(), &Values::s) <= of_calls.relative;
}

} // namespace

Fold scan_fold(double h, double s) {
    const double t = saturated_water(s);
    const double above = h - of_saturated(Quantity::enthalpy, KTL_WATER, t); // above the line of saturated water
    // Further below the line, water has both values only if both are off.
    const double least = -accuracy_of_both(h, s, t);
    const bool both_off = above > least - rounding && above < -accuracy(h) + rounding;
    Fold found{above >= -accuracy(h), {}, !both_off, above > least + rounding};
    double greatest = -INFINITY;
    int before = sign(-above);
    for (int step = 1; step * fold_step <= reach; ++step) {
        const double trial = t - step * fold_step;
        if (trial < ktl::ktl_lc.tmin) {
            // A mixture at the limit itself may be inside or outside.
            if (std::fabs(enthalpy_of_mixture(s, ktl::ktl_lc.tmin) - h) < 1.0e-7) found.certain = false;
            break;
        }
        const double difference = enthalpy_of_mixture(s, trial) - h;
        greatest = std::fmax(greatest, difference);
        const int now = sign(difference);
        if (now * before < 0 && (now < 0 || above > accuracy(h))) found.mixtures.push_back(trial);
        if (now != 0) before = now;
    }
    const bool fold_open = std::fabs(greatest) > 2.0 * rounding;
    const bool beside_line = above > rounding && above < accuracy(h) + rounding;
    if (!fold_open || beside_line) found.certain = false;
    return found;
}

const char* fault_at_fold(double h, double s, const Fold& expected) {
    const int count = ktl::state_count(Pair::hs, h, s);
    const auto water = static_cast<std::size_t>(expected.water ? 1 : 0);
    if (expected.certain && static_cast<std::size_t>(count) != water + expected.mixtures.size())
        return "another number of states";
    if (expected.solved && count == 0) return "no state";
    if (ktl::state(Pair::hs, h, s, count)) return "a state past the last";
    std::vector<double> mixtures;
    for (int number = 0; number < count; ++number) {
        const State state = ktl::state(Pair::hs, h, s, number);
        if (!state || !reproduces(state, h, s)) return "other values";
        if (!state.two_phase() && number > 0) return "water after another state";
        if (state.two_phase()) mixtures.push_back(state.t());
    }
    if (!expected.certain || count == 0) return nullptr;
    if (expected.water == ktl::state(Pair::hs, h, s).two_phase()) return expected.water ? "not water" : "not a mixture";
    std::sort(mixtures.rbegin(), mixtures.rend());
    for (std::size_t k = 0; k < mixtures.size(); ++k)
        if (!(std::fabs(mixtures[k] - expected.mixtures.at(k)) <= same_mixture)) return "another mixture";
    return nullptr;
}

} // namespace sweep
