#include "newton.hpp"

#include "engine/guess_form.hpp"
#include "engine/scalar.hpp"
#include "engine/wet.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace first_guesses {

namespace {

using ktl::Quantity;
using ktl::engine::Body;
using ktl::engine::Scalar;

constexpr Quantity quantity(char letter) {
    switch (letter) {
    case 'p': return Quantity::pressure;
    case 't': return Quantity::temperature;
    case 'v': return Quantity::volume;
    case 'h': return Quantity::enthalpy;
    case 's': return Quantity::entropy;
    default: return Quantity::energy;
    }
}
template <Pair pair>
constexpr Quantity quantity_a = quantity(ktl::engine::guesses::letters<pair>.a);
template <Pair pair>
constexpr Quantity quantity_b = quantity(ktl::engine::guesses::letters<pair>.b);

double against(double step, double small) { return std::fabs(step) / small; }

template <Pair pair, Body body>
Move in_body(double a, double b, const Trial& trial) {
    const auto d = ktl::engine::step<body, quantity_a<pair>, quantity_b<pair>, Scalar>(a, b, trial.first, trial.t);
    Move move{trial, std::max(against(d.first.value, ktl::engine::small_first * trial.first),
                              against(d.t.value, ktl::engine::small_t))};
    move.to.first += d.first.value;
    move.to.t += d.t.value;
    return move;
}

template <Pair pair, bool high>
Move in_mixture(double a, double b, const Trial& trial) {
    ktl::engine::Mixed<Scalar> m{0.0, trial.t, trial.liquid, trial.vapour, 0.0};
    const ktl::engine::Phases<high, Scalar> phases(ktl::engine::line_at(m.t), m);
    Scalar dt = 0.0;
    const auto y = phases.template blend<quantity_a<pair>>();
    if constexpr (pair == Pair::sx) {
        dt = (a - y.at(b)) / y.along(b);
    } else {
        const auto z = phases.template blend<quantity_b<pair>>();
        const Scalar x = y.quality(a);
        const Scalar dxdt = -y.along(x) / y.by_quality();
        dt = (b - z.at(x)) / (z.along(x) + dxdt * z.by_quality());
    }
    static_cast<void>(phases.move(m, dt));
    Move move{{trial.first, m.t.value, m.liquid.value, m.vapour.value}, against(dt.value, ktl::engine::small_t)};
    if constexpr (high)
        for (const auto& [from, off] : {std::pair{trial.liquid, phases.water.off}, {trial.vapour, phases.steam.off}})
            move.length = std::max(move.length, against(off.value, ktl::engine::small_first * from));
    return move;
}

using Step = Move (*)(double a, double b, const Trial& trial);
/// Steps of a pair by region: water, steam, sub-region 3, two phases above 350 degC and below.
using Steps = std::array<Step, 5>;

template <Pair pair>
constexpr Steps steps_of() {
    if constexpr (pair == Pair::px || pair == Pair::tx)
        return {};
    else if constexpr (pair == Pair::pt)
        return {nullptr, nullptr, in_body<pair, Body::near_critical>, nullptr, nullptr};
    else if constexpr (pair == Pair::sx)
        return {nullptr, nullptr, nullptr, in_mixture<pair, true>, in_mixture<pair, false>};
    else if constexpr (pair >= Pair::hs)
        return {in_body<pair, Body::water>, in_body<pair, Body::steam>, in_body<pair, Body::near_critical>,
                in_mixture<pair, true>, in_mixture<pair, false>};
    else
        return {in_body<pair, Body::water>, in_body<pair, Body::steam>, in_body<pair, Body::near_critical>, nullptr,
                nullptr};
}
template <std::size_t... k>
constexpr std::array<Steps, sizeof...(k)> all_steps(std::index_sequence<k...> /*pairs*/) {
    return {steps_of<static_cast<Pair>(k)>()...};
}
constexpr auto steps = all_steps(std::make_index_sequence<ktl::pair_count>());

std::size_t index_of(Region region) {
    switch (region) {
    case Region::water: return 0;
    case Region::steam: return 1;
    case Region::wet_near_critical: return 3;
    case Region::wet: return 4;
    default: return 2;
    }
}

} // namespace

Move step(Pair pair, Region region, double a, double b, const Trial& trial) {
    return steps[static_cast<std::size_t>(pair)][index_of(region)](a, b, trial);
}

double miss(Pair pair, Region region, double a, double b, const Trial& trial) {
    const auto deviation = [](char letter, double wanted, double found) {
        constexpr std::string_view with_least = "vhsut";
        constexpr std::array least{0.005, 5000.0, 10.0, 5000.0, 100.0, 0.0};
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
