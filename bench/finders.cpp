// Time of the finders of any two quantities, each over water, steam and near-critical states of one phase.
#include "timing.hpp"

#include <array>
#include <string>

namespace {

using namespace ktl_bench;

/// Volume (pressure in sub-region 3), enthalpy, entropy and energy of one region.
using Equations = std::array<ktl_property, 4>;
constexpr Equations water_equations{ktl_c1, ktl_d1, ktl_e1, ktl_f1};
constexpr Equations steam_equations{ktl_c2, ktl_d2, ktl_e2, ktl_f2};
constexpr Equations near_critical_equations{ktl_a3, ktl_d3, ktl_e3, ktl_f3};

/// Value of the quantity that a letter of a finder's name stands for.
double value(char letter, const State& s, const Equations& equations) {
    const bool by_volume = equations == near_critical_equations;
    switch (letter) {
    case 'p': return by_volume ? equations[0](s.first, s.second) : s.first;
    case 'v': return by_volume ? s.first : equations[0](s.first, s.second);
    case 't': return s.second;
    case 'h': return equations[1](s.first, s.second);
    case 's': return equations[2](s.first, s.second);
    default: return equations[3](s.first, s.second);
    }
}

struct Named {
    const char* pair;
    ktl_finder finder;
};
constexpr std::array<Named, 12> finders{{{"ps", ktlrps},
                                         {"pu", ktlrpu},
                                         {"pv", ktlrpv},
                                         {"tv", ktlrtv},
                                         {"th", ktlrth},
                                         {"ts", ktlrts},
                                         {"tu", ktlrtu},
                                         {"hs", ktlrhs},
                                         {"us", ktlrus},
                                         {"vh", ktlrvh},
                                         {"vs", ktlrvs},
                                         {"vu", ktlrvu}}};

void add(const Named& named, const char* region, const States& of, const Equations& equations) {
    States pairs = of;
    for (auto& s : pairs) s = {value(named.pair[0], s, equations), value(named.pair[1], s, equations)};
    const std::string name = std::string("state by ktlr") + named.pair + ", " + region;
    benchmark::RegisterBenchmark(
        name.c_str(), [pairs, finder = named.finder](benchmark::State& bench) { find(bench, pairs, finder); });
}

/// Entropy and quality of two-phase states.
const States wet_sx = [] {
    States pairs = states([](auto uniform) { return State{uniform(1.0, 370.0), uniform(0.05, 0.95)}; });
    for (auto& s : pairs) {
        const double x = s.second;
        ktlftn(ktlrtx, s.first, x, "S.", &s.first);
    }
    return pairs;
}();
BENCHMARK_CAPTURE(find, wet_sx, wet_sx, ktlrsx)->Name("state by ktlrsx, two phases");

[[maybe_unused]] const bool registered = [] {
    for (const Named& named : finders) {
        add(named, "water", liquid, water_equations);
        add(named, "steam", steam, steam_equations);
        add(named, "near-critical", near_critical, near_critical_equations);
    }
    return true;
}();

} // namespace
