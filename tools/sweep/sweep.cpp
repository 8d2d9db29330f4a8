// Sweeps of all finders over random states.
//
//   ktl_sweep states COUNT [SEED]    solves COUNT states of the range through all finders and prints a table
//   ktl_sweep borders COUNT [SEED]   the same for values between the two sides of the borders between sub-regions
//   ktl_sweep refused COUNT [SEED]   offers COUNT pairs that name no state
//
// Exit status 1 where a finder fails, the known limits of ktlrpt and ktlrph excepted.
#include "draw.hpp"
#include "refused.hpp"
#include "regions/number.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

using sweep::Values;

/// A finder, its two properties, the states that it is for, and whether its steps are given.
struct Finder {
    const char* name;
    ktl_finder find;
    double Values::*first;
    double Values::*second;
    enum Scope { any, single_phase, mixture } scope = any;
    bool given = false;
};
constexpr std::array<Finder, 17> finders{{
    {"ktlrpt", ktlrpt, &Values::p, &Values::t, Finder::single_phase, true},
    {"ktlrpx", ktlrpx, &Values::p, &Values::x, Finder::mixture},
    {"ktlrtx", ktlrtx, &Values::t, &Values::x, Finder::mixture},
    {"ktlrph", ktlrph, &Values::p, &Values::h, Finder::any, true},
    {"ktlrps", ktlrps, &Values::p, &Values::s},
    {"ktlrpu", ktlrpu, &Values::p, &Values::u},
    {"ktlrpv", ktlrpv, &Values::p, &Values::v},
    {"ktlrtv", ktlrtv, &Values::t, &Values::v},
    {"ktlrth", ktlrth, &Values::t, &Values::h},
    {"ktlrts", ktlrts, &Values::t, &Values::s},
    {"ktlrtu", ktlrtu, &Values::t, &Values::u},
    {"ktlrsx", ktlrsx, &Values::s, &Values::x, Finder::mixture},
    {"ktlrhs", ktlrhs, &Values::h, &Values::s},
    {"ktlrus", ktlrus, &Values::u, &Values::s},
    {"ktlrvh", ktlrvh, &Values::v, &Values::h},
    {"ktlrvs", ktlrvs, &Values::v, &Values::s},
    {"ktlrvu", ktlrvu, &Values::v, &Values::u},
}};

/// What the finders promise: relative, against at least one unit in h, s and u.
constexpr double promised = 1.0e-7;

double deviation(const Values& wanted, const Values& got, double Values::*member) {
    const bool has_zero = member == &Values::h || member == &Values::s || member == &Values::u;
    const bool absolute = member == &Values::x;
    const double size = absolute ? 1.0 : std::fmax(std::fabs(wanted.*member), has_zero ? 1.0 : 0.0);
    const double difference = std::fabs(got.*member - wanted.*member) / size;
    return std::isnan(difference) ? INFINITY : difference;
}

struct Tally {
    long states = 0, solved = 0, saturated = 0, reports = 0;
    double worst = 0.0, sum_of_squares = 0.0;
    Values worst_state{};
    long evaluations = 0, most_evaluations = 0;
};

void solve(const Finder& finder, const Values& state, Tally& tally) {
    if (finder.scope != Finder::any && (finder.scope == Finder::mixture) != (state.x >= 0.0)) return;
    double first = state.*finder.first;
    double second = state.*finder.second;
    const int reports_before = ktlerr.ientry;
    const long before = ktl::evaluations;
    const int region = finder.find(first, second, 1.0e-8);
    const long used = ktl::evaluations - before;
    tally.reports += ktlerr.ientry - reports_before;
    ++tally.states;
    tally.evaluations += used;
    if (used > tally.most_evaluations) tally.most_evaluations = used;
    double off = INFINITY;
    if (region >= KTL_WATER && region <= KTL_WET) {
        const Values got = sweep::evaluate(region, first, second);
        off = std::fmax(deviation(state, got, finder.first), deviation(state, got, finder.second));
        if (!finder.given && !sweep::suits(region, got)) off = INFINITY;
    }
    // A single-phase state on the saturation line, taken for a mixture with the pressure in place of its quality.
    const bool saturated =
        finder.scope == Finder::single_phase && (region == KTL_WET || region == KTL_WET_NEAR_CRITICAL);
    if (saturated) {
        ++tally.saturated;
    } else if (off <= promised) {
        ++tally.solved;
        tally.sum_of_squares += off * off;
    } else if (!finder.given) {
        std::fprintf(stderr, "%s: region %d, off %.2e: p=%.17g t=%.17g v=%.17g h=%.17g s=%.17g u=%.17g x=%.17g\n",
                     finder.name, region, off, state.p, state.t, state.v, state.h, state.s, state.u, state.x);
    }
    if (off > tally.worst && (off <= promised || !finder.given)) {
        tally.worst = off;
        tally.worst_state = state;
    }
}

int sweep_states(long count, std::uint64_t seed, bool at_borders) {
    sweep::Random random(seed);
    std::array<Tally, finders.size()> tallies{};
    for (long n = 0; n < count; ++n) {
        const Values state = at_borders ? sweep::draw_at_border(random, static_cast<int>(n % 3))
                                        : sweep::draw(random, static_cast<int>(n % sweep::kinds));
        for (std::size_t i = 0; i < finders.size(); ++i)
            if (!at_borders || !finders.at(i).given) solve(finders.at(i), state, tallies.at(i));
    }
    std::printf("| finder | states | solved | not solved | worst residual | RMS residual | worst state | "
                "evaluations mean | worst | reports |\n|---|---|---|---|---|---|---|---|---|---|\n");
    bool good = true;
    long saturated = 0;
    for (std::size_t i = 0; i < finders.size(); ++i) {
        const Tally& tally = tallies.at(i);
        const Values& w = tally.worst_state;
        const auto states = static_cast<double>(tally.states);
        std::printf("| `%s` | %ld | %ld | %ld%s | %.1e | %.1e | p %.6g t %.6g v %.6g x %.4g | %.1f | %ld | %ld |\n",
                    finders.at(i).name, tally.states, tally.solved, tally.states - tally.solved - tally.saturated,
                    finders.at(i).given ? " (given steps)" : "", tally.worst,
                    std::sqrt(tally.sum_of_squares / std::fmax(1.0, static_cast<double>(tally.solved))), w.p, w.t, w.v,
                    w.x, static_cast<double>(tally.evaluations) / std::fmax(1.0, states), tally.most_evaluations,
                    tally.reports);
        saturated += tally.saturated;
        const bool silent = tally.reports == 0;
        if (!finders.at(i).given && (tally.solved != tally.states || tally.states == 0 || !silent)) good = false;
    }
    std::printf("\nBeside these, `ktlrpt` takes %ld states on the saturation line for mixtures.\n", saturated);
    return good ? EXIT_SUCCESS : EXIT_FAILURE;
}

int sweep_refused(long count, std::uint64_t seed) {
    sweep::Random random(seed);
    long accepted = 0;
    long most_evaluations = 0;
    for (long n = 0; n < count; ++n) {
        const sweep::Offer offer = sweep::draw_refused(random, n);
        double first = offer.first;
        double second = offer.second;
        const long before = ktl::evaluations;
        const int region = offer.find(first, second, 1.0e-8);
        most_evaluations = std::max(most_evaluations, ktl::evaluations - before);
        const bool unchanged = first == offer.first && second == offer.second;
        if (region == KTL_NO_STATE && unchanged) continue;
        ++accepted;
        if (accepted <= 20)
            std::fprintf(stderr, "%s accepts %.17g, %.17g: region %d, %.17g, %.17g\n", offer.name, offer.first,
                         offer.second, region, first, second);
    }
    std::printf("%ld pairs that name no state: %ld refused, with %ld evaluations at most\n", count, count - accepted,
                most_evaluations);
    return accepted == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view mode = argc > 2 ? argv[1] : "";
    if (mode != "states" && mode != "borders" && mode != "refused") {
        std::fprintf(stderr, "usage: ktl_sweep states|borders|refused COUNT [SEED]\n");
        return EXIT_FAILURE;
    }
    sweep::silence_reports();
    const long count = std::strtol(argv[2], nullptr, 10);
    const std::uint64_t seed = argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 1U;
    return mode == "refused" ? sweep_refused(count, seed) : sweep_states(count, seed, mode == "borders");
}
