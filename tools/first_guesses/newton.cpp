#include "newton.hpp"

#include "engine/lanes/scalar.hpp"
#include "searches/two_phase.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace first_guesses {

namespace {

using ktl::Quantities;
using ktl::Quantity;
using ktl::SubRegion;
using ktl::engine::Scalar;

Quantity quantity(char letter) {
    switch (letter) {
    case 'p': return Quantity::pressure;
    case 't': return Quantity::temperature;
    case 'v': return Quantity::volume;
    case 'h': return Quantity::enthalpy;
    case 's': return Quantity::entropy;
    default: return Quantity::energy;
    }
}

template <SubRegion sub_region>
Trial in_sub_region(const Quantities& given, Scalar a, Scalar b, const Trial& trial) {
    const auto y = ktl::properties_at<sub_region>(Scalar(trial.first), Scalar(trial.t));
    const auto d = ktl::searches::step<sub_region>(given, y, a, b);
    return {trial.first + d.primary.value, trial.t + d.t.value};
}

template <bool high>
Trial in_mixture(Pair pair, const Quantities& given, Scalar a, Scalar b, const Trial& trial) {
    ktl::searches::TwoPhaseIterate<Scalar> m{0.0, trial.t, trial.liquid, trial.vapour, 0.0};
    const ktl::searches::PhasePairIterate<high, Scalar> phases(ktl::searches::line_at(m.t), m);
    Scalar x = b;
    Scalar met = 0.0;
    const Scalar dt = pair == Pair::sx ? ktl::searches::step_at_quality<high>(phases, given.a, a, b, met)
                                       : ktl::searches::step_along_line<high>(phases, given, a, b, x);
    ktl::searches::ConvergenceTest<Scalar> convergence{.negligible = 0.0};
    phases.move(m, dt, convergence);
    return {trial.first, m.t.value, m.liquid.value, m.vapour.value};
}

} // namespace

Trial step(Pair pair, Region region, double a, double b, const Trial& trial) {
    const Quantities given{quantity(name(pair)[0]), quantity(name(pair)[1])};
    switch (region) {
    case Region::water: return in_sub_region<SubRegion::water>(given, a, b, trial);
    case Region::steam: return in_sub_region<SubRegion::steam>(given, a, b, trial);
    case Region::wet: return in_mixture<false>(pair, given, a, b, trial);
    case Region::wet_near_critical: return in_mixture<true>(pair, given, a, b, trial);
    default: return in_sub_region<SubRegion::near_critical>(given, a, b, trial);
    }
}

double miss(Pair pair, Region region, double a, double b, const Trial& trial) {
    const auto deviation = [](char letter, double wanted, double found) {
        constexpr std::string_view with_least = "vhsut";
        constexpr std::array least{0.015, 5000.0, 10.0, 5000.0, 100.0, 0.0};
        const double floor = least[std::min(with_least.find(letter), with_least.size())];
        return std::fabs(found - wanted) / std::max(std::fabs(wanted), floor);
    };
    const auto given = name(pair);
    if (region != Region::wet && region != Region::wet_near_critical) {
        const State found = single(region, trial.first, trial.t);
        return std::max(deviation(given[0], a, found(given[0])), deviation(given[1], b, found(given[1])));
    }
    const double p = saturation_pressure(trial.t);
    const bool high = region == Region::wet_near_critical;
    const State water = single(high ? Region::near_critical_water : Region::water, high ? trial.liquid : p, trial.t);
    const State steam = single(high ? Region::near_critical_steam : Region::steam, high ? trial.vapour : p, trial.t);
    // Of s, x the entropy shows the miss, of other pairs the second value.
    const bool by_x = given[1] == 'x';
    const double x = by_x ? b : (a - water(given[0])) / (steam(given[0]) - water(given[0]));
    const char letter = by_x ? given[0] : given[1];
    const double found = water(letter) + x * (steam(letter) - water(letter));
    return std::max({deviation(letter, by_x ? a : b, found), deviation('p', p, water.p), deviation('p', p, steam.p)});
}

} // namespace first_guesses
