#include "engine/solution.hpp"

#include "regions/state.hpp"

#include <array>
#include <ktl/ktlftn.h>

namespace ktl::engine {

namespace {

constexpr std::array<ktl_finder, pair_count> finders{ktlrpt, ktlrph, ktlrps, ktlrpu, ktlrpv, ktlrpx,
                                                     ktlrtv, ktlrth, ktlrts, ktlrtu, ktlrtx, ktlrsx,
                                                     ktlrhs, ktlrus, ktlrvh, ktlrvs, ktlrvu};

} // namespace

Solution search(Pair pair, double a, double b, int number) noexcept {
    const auto index = static_cast<std::size_t>(pair);
    if (index >= pair_count || number != 0) return {};
    if (!std::isfinite(a) || !std::isfinite(b)) return {.status = Status::not_a_number};
    const int region = finders[index](a, b, 1.0e-8);
    if (region == KTL_NO_STATE) return {};
    Solution found{Status::solved, static_cast<Region>(region), a, b, not_a_number, not_a_number};
    if (found.two_phase()) {
        const Saturated phases = saturated_at(b);
        found.liquid = phases.liquid;
        found.vapour = phases.steam;
    }
    return found;
}

int count_states(Pair pair, double a, double b) noexcept {
    return search(pair, a, b, 0).status == Status::solved ? 1 : 0;
}

} // namespace ktl::engine
