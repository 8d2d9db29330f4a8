#include "engine/solution.hpp"

#include "regions/curves.hpp"
#include "regions/state.hpp"

#include <array>
#include <ktl/ktlftn.h>
#include <string_view>

namespace ktl::engine {

namespace {

constexpr std::array<ktl_finder, pair_count> finders{ktlrpt, ktlrph, ktlrps, ktlrpu, ktlrpv, ktlrpx,
                                                     ktlrtv, ktlrth, ktlrts, ktlrtu, ktlrtx, ktlrsx,
                                                     ktlrhs, ktlrus, ktlrvh, ktlrvs, ktlrvu};
constexpr std::array<std::string_view, pair_count> letters{"pt", "ph", "ps", "pu", "pv", "px", "tv", "th", "ts",
                                                           "tu", "tx", "sx", "hs", "us", "vh", "vs", "vu"};

Status limits(char letter, double value) {
    if (!std::isfinite(value)) return Status::not_a_number;
    if (letter == 'p' && value < ktl_lc.pmin) return Status::pressure_low;
    if (letter == 'p' && value > ktl_lc.pmax) return Status::pressure_high;
    if (letter == 't' && value < ktl_lc.tmin) return Status::temperature_low;
    if (letter == 't' && value > ktl_lc.tmax) return Status::temperature_high;
    if (letter == 'x' && value < 0.0) return Status::quality_low;
    if (letter == 'x' && value > 1.0) return Status::quality_high;
    return Status::solved;
}

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

FoundState found_by(std::size_t index, double a, double b) {
    const std::string_view pair = letters[index];
    if (pair[0] == 'p' && pair[1] != 't' && pair[1] != 'x') return on_isobar(quantity(pair[1]), a, b);
    if (pair[0] == 't' && pair[1] != 'x') return on_isotherm(quantity(pair[1]), a, b);
    const int region = finders[index](a, b, 1.0e-8);
    FoundState out{region, a, b, {}};
    if (out.wet()) out.phases = saturated_at(b);
    return out;
}

bool reproduces(const FoundState& found, char letter, double value) {
    const double reached = letter == 'x' ? found.first : found.value(quantity(letter));
    return std::fabs(reached - value) <= 1.0e-7 * std::fmax(std::fabs(value), 1.0e-3);
}

} // namespace

Solution search(Pair pair, double a, double b, int number) noexcept {
    const auto index = static_cast<std::size_t>(pair);
    if (index >= pair_count || number != 0) return {};
    const char one = letters[index][0], two = letters[index][1];
    if (!std::isfinite(b)) return {.status = Status::not_a_number};
    for (const Status status : {limits(one, a), limits(two, b)})
        if (status != Status::solved) return {.status = status};
    if (two == 'x' && ((one == 'p' && a > ktl_lc.pca) || (one == 't' && a > ktl_lc.tc)))
        return {.status = Status::above_critical};
    const FoundState found = found_by(index, a, b);
    if (!found.found()) return {};
    Solution out{Status::solved, static_cast<Region>(found.region), found.first, found.t, not_a_number, not_a_number};
    if (out.two_phase()) {
        out.liquid = found.phases.liquid;
        out.vapour = found.phases.steam;
    }
    if (pair == Pair::pt && out.two_phase())
        out.status = Status::undetermined;
    else if (!reproduces(found, one, a) || !reproduces(found, two, b))
        return {};
    return out;
}

int count_states(Pair pair, double a, double b) noexcept {
    return search(pair, a, b, 0).status == Status::solved ? 1 : 0;
}

} // namespace ktl::engine
