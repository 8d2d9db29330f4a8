// Sweeps of all finders over random states.
//
//   ktl_sweep states COUNT [SEED]    solves COUNT states of the range through all finders and prints a table
//   ktl_sweep borders COUNT [SEED]   the same for values between the two sides of the borders between sub-regions
//   ktl_sweep refused COUNT [SEED]   offers COUNT pairs that name no state
//
// Exit status 1 where a finder fails, the known limits of ktlrpt and ktlrph excepted.
#include "draw.hpp"
#include "pairs.hpp"
#include "refused.hpp"
#include "regions/number.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

using sweep::of_finders;
using sweep::Row;
using sweep::rows;
using sweep::Values;

/// True for the finders whose steps were given and miss states: ktlrpt and ktlrph.
bool may_miss(const Row& row) { return row.given_steps() && row.scope() != Row::mixture; }

struct Tally {
    long states = 0, solved = 0, saturated = 0, reports = 0;
    double worst = 0.0, sum_of_squares = 0.0;
    Values worst_state{};
    long evaluations = 0, most_evaluations = 0;
};

void solve(const Row& row, const Values& state, Tally& tally) {
    if (!row.suits_quality(state.x)) return;
    double first = state.*row.first;
    double second = state.*row.second;
    const int reports_before = ktlerr.ientry;
    const long before = ktl::evaluations;
    const int region = row.find(first, second, 1.0e-8);
    const long used = ktl::evaluations - before;
    tally.reports += ktlerr.ientry - reports_before;
    ++tally.states;
    tally.evaluations += used;
    if (used > tally.most_evaluations) tally.most_evaluations = used;
    double off = INFINITY;
    if (region >= KTL_WATER && region <= KTL_WET) {
        const Values got = sweep::evaluate(region, first, second);
        off = of_finders.deviation(row, state, got);
        if (!may_miss(row) && !sweep::suits(region, got)) off = INFINITY;
    }
    // A single-phase state on the saturation line, taken for a mixture with the pressure in place of its quality.
    const bool saturated = row.scope() == Row::single_phase && (region == KTL_WET || region == KTL_WET_NEAR_CRITICAL);
    if (saturated) {
        ++tally.saturated;
    } else if (off <= of_finders.relative) {
        ++tally.solved;
        tally.sum_of_squares += off * off;
    } else if (!may_miss(row)) {
        std::fprintf(stderr, "%s: region %d, off %.2e: p=%.17g t=%.17g v=%.17g h=%.17g s=%.17g u=%.17g x=%.17g\n",
                     row.finder, region, off, state.p, state.t, state.v, state.h, state.s, state.u, state.x);
    }
    if (off > tally.worst && (off <= of_finders.relative || !may_miss(row))) {
        tally.worst = off;
        tally.worst_state = state;
    }
}

int sweep_states(long count, std::uint64_t seed, bool at_borders) {
    sweep::Random random(seed);
    std::array<Tally, rows.size()> tallies{};
    for (long n = 0; n < count; ++n) {
        const Values state = at_borders ? sweep::draw_at_border(random, static_cast<int>(n % 3))
                                        : sweep::draw(random, static_cast<int>(n % sweep::kinds));
        for (std::size_t i = 0; i < rows.size(); ++i)
            if (!at_borders || !may_miss(rows.at(i))) solve(rows.at(i), state, tallies.at(i));
    }
    std::printf("| finder | states | solved | not solved | worst residual | RMS residual | worst state | "
                "evaluations mean | worst | reports |\n|---|---|---|---|---|---|---|---|---|---|\n");
    bool good = true;
    long saturated = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Tally& tally = tallies.at(i);
        const Values& w = tally.worst_state;
        const auto states = static_cast<double>(tally.states);
        std::printf("| `%s` | %ld | %ld | %ld%s | %.1e | %.1e | p %.6g t %.6g v %.6g x %.4g | %.1f | %ld | %ld |\n",
                    rows.at(i).finder, tally.states, tally.solved, tally.states - tally.solved - tally.saturated,
                    may_miss(rows.at(i)) ? " (given steps)" : "", tally.worst,
                    std::sqrt(tally.sum_of_squares / std::fmax(1.0, static_cast<double>(tally.solved))), w.p, w.t, w.v,
                    w.x, static_cast<double>(tally.evaluations) / std::fmax(1.0, states), tally.most_evaluations,
                    tally.reports);
        saturated += tally.saturated;
        const bool silent = tally.reports == 0;
        if (!may_miss(rows.at(i)) && (tally.solved != tally.states || tally.states == 0 || !silent)) good = false;
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
        const int region = offer.row->find(first, second, 1.0e-8);
        most_evaluations = std::max(most_evaluations, ktl::evaluations - before);
        const bool unchanged = first == offer.first && second == offer.second;
        if (region == KTL_NO_STATE && unchanged) continue;
        ++accepted;
        if (accepted <= 20)
            std::fprintf(stderr, "%s accepts %.17g, %.17g: region %d, %.17g, %.17g\n", offer.row->finder, offer.first,
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
