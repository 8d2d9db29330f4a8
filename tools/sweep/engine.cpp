// Sweep of the ktl:: calls over random states of the whole range, in columns and on all processors:
//
//   ktl_engine_sweep states COUNT [SEED]    solves COUNT states through all pairs and prints a table
//   ktl_engine_sweep offers COUNT [SEED]    offers COUNT rows, most of which name no state, and prints a table
//   ktl_engine_sweep folds COUNT [SEED]     solves h, s of COUNT states beside saturated water, and prints a table
//   ktl_engine_sweep quality COUNT [SEED]   compares the states of COUNT entropies and qualities with a scan of the line
//   ktl_engine_sweep limits COUNT [SEED]    offers own values of COUNT states of the limits, and prints a table
//
// Exit status 1 if a state is not solved to what ktl::state() promises, a column differs from ktl::state(), an offer is
// not answered as the exact search answers it, a fold does not have the states of a walk along the saturation line, the
// scan of a quality line sees other states, or a state is counted that does not have both values.
#include "columns.hpp"
#include "draw.hpp"
#include "folds.hpp"
#include "limits.hpp"
#include "offers.hpp"
#include "pairs.hpp"
#include "quality.hpp"
#include "tasks.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace sweep {

namespace {

/// One state in so many is compared with the named routine.
constexpr long compared_share = 8;
/// Agreement that is expected of the named routines, which solve to 1e-8.
constexpr double agreement = 1.0e-6;
constexpr long states_per_task = 1200;

struct Tally {
    long states = 0, unsolved = 0, undetermined = 0, compared = 0, disagree = 0;
    double worst = 0.0, disagreement = 0.0;
    Values worst_state{};

    void add(const Tally& other) {
        states += other.states, unsolved += other.unsolved, undetermined += other.undetermined;
        compared += other.compared, disagree += other.disagree;
        disagreement = std::fmax(disagreement, other.disagreement);
        if (other.worst > worst) worst = other.worst, worst_state = other.worst_state;
    }
};
struct Tallies : std::array<Tally, ktl::pair_count> {
    void add(const Tallies& other) {
        for (std::size_t i = 0; i < size(); ++i) at(i).add(other.at(i));
    }
};

/// The named routine's state beside the one found, where both have the given values in the same region.
void compare(const Row& row, const Values& wanted, const Solved& found, Tally& tally) {
    // From 373.117 degC on the entry's saturated steam is another root, and with it every mixture.
    if (found.values.x >= 0.0 && found.values.t > 373.0) return;
    double first = wanted.*row.first;
    double second = wanted.*row.second;
    const int region = row.find(first, second, 1.0e-8);
    if (region != found.region) return;
    const Values named = evaluate(region, first, second);
    const double off = of_calls.deviation(row, wanted, named);
    if (!(off <= 1.0e-8)) return;
    const double apart =
        std::fmax(std::fabs(named.v / found.values.v - 1.0), std::fabs(named.t - found.values.t) / 273.15);
    ++tally.compared;
    tally.disagreement = std::fmax(tally.disagreement, apart);
    if (apart > agreement) ++tally.disagree;
}

void judge(const Row& row, const Values& wanted, const Solved& found, bool with_named, bool same, Tally& tally) {
    ++tally.states;
    if (row.scope() == Row::single_phase && found.status == ktl::Status::undetermined) {
        ++tally.undetermined;
        return;
    }
    double off = of_calls.deviation(row, wanted, found.values);
    if (found.status != ktl::Status::solved || !suits(found.region, found.values) || !same) off = INFINITY;
    if (!(off <= of_calls.relative)) {
        if (++tally.unsolved <= 5)
            std::fprintf(stderr,
                         "%s: %s, region %d, off %.2e: p=%.17g t=%.17g v=%.17g h=%.17g s=%.17g u=%.17g x=%.17g%s\n",
                         row.name, ktl::sentence(found.status), found.region, off, wanted.p, wanted.t, wanted.v,
                         wanted.h, wanted.s, wanted.u, wanted.x, same ? "" : ", other bits than ktl::state()");
    } else if (with_named) {
        compare(row, wanted, found, tally);
    }
    if (off > tally.worst) tally.worst = off, tally.worst_state = wanted;
}

/// States of one task: all kinds in turn, one in ten between the sides of a border, where p and t are no state.
void run_task(long task, long count, std::uint64_t seed, Tallies& tallies) {
    Random random(seed + 0x51ed270b9f3c2d17U * static_cast<std::uint64_t>(task + 1));
    std::vector<Values> states(static_cast<std::size_t>(count));
    const auto at_border = [](long n) { return n % (kinds + 1) == kinds; };
    for (long n = 0; n < count; ++n)
        states[static_cast<std::size_t>(n)] =
            at_border(n)
                ? draw_at_border(random, static_cast<int>(n / (kinds + 1) % 3), ktl::SaturationModel::outermost_roots)
                : draw(random, static_cast<int>(n % (kinds + 1)), ktl::SaturationModel::outermost_roots);
    for (std::size_t k = 0; k < rows.size(); ++k) {
        const Row& row = rows.at(k);
        const auto pair = static_cast<ktl::Pair>(k);
        Columns columns;
        std::vector<long> numbers;
        for (long n = 0; n < count; ++n) {
            const Values& state = states[static_cast<std::size_t>(n)];
            if (k == 0 && at_border(n)) continue;
            if (!row.suits_quality(state.x)) continue;
            columns.add(state.*row.first, state.*row.second);
            numbers.push_back(n);
        }
        columns.solve(pair);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const bool with_named = numbers[i] % compared_share == 0;
            judge(row, states[static_cast<std::size_t>(numbers[i])], columns.solved(i), with_named,
                  !with_named || columns.same_as_state(pair, i), tallies.at(k));
        }
    }
}

bool print(const Tallies& tallies) {
    std::printf(
        "| pair | states | unsolved | undetermined | worst residual | worst state | compared | worst difference | "
        "above 1e-6 |\n|---|---|---|---|---|---|---|---|---|\n");
    bool good = true;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Tally& tally = tallies.at(i);
        const Values& w = tally.worst_state;
        std::printf("| `%s` | %ld | %ld | %ld | %.1e | p %.6g t %.6g v %.6g x %.4g | %ld | %.1e | %ld |\n",
                    rows.at(i).name, tally.states, tally.unsolved, tally.undetermined, tally.worst, w.p, w.t, w.v, w.x,
                    tally.compared, tally.disagreement, tally.disagree);
        good = good && tally.unsolved == 0 && tally.states > 0;
    }
    return good;
}

bool sweep_states(long count, std::uint64_t seed) {
    return print(on_all_processors<Tallies>(
        count, states_per_task, [&](long task, long states, Tallies& own) { run_task(task, states, seed, own); }));
}

} // namespace

} // namespace sweep

int main(int argc, char** argv) {
    const std::string_view what = argc > 1 ? argv[1] : "";
    const long count = argc > 2 ? std::strtol(argv[2], nullptr, 10) : 0;
    const std::uint64_t seed = argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 1U;
    const auto sweep_of = what == "states"    ? sweep::sweep_states
                          : what == "offers"  ? sweep::sweep_offers
                          : what == "folds"   ? sweep::sweep_folds
                          : what == "quality" ? sweep::sweep_quality
                          : what == "limits"  ? sweep::sweep_limits
                                              : nullptr;
    if (count <= 0 || sweep_of == nullptr) {
        std::fprintf(stderr, "usage: ktl_engine_sweep states|offers|folds|quality|limits COUNT [SEED]\n");
        return EXIT_FAILURE;
    }
    sweep::silence_reports();
    return sweep_of(count, seed) ? EXIT_SUCCESS : EXIT_FAILURE;
}
