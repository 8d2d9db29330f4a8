#include "engine.hpp"

#include "draw.hpp"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ktl/steam.hpp>
#include <mutex>
#include <thread>
#include <vector>

namespace sweep {

namespace {

using Member = double Values::*;
using Getter = double (ktl::State::*)() const;

/// A pair, its two properties as drawn and as found, the named routine, and the states that it is for.
struct Row {
    const char* name;
    Member first, second;
    Getter got_first, got_second;
    ktl_finder find;
    enum Scope { any, single_phase, mixture } scope = any;
};
#define KTL_PAIR(a, b) #a #b, &Values::a, &Values::b, &ktl::State::a, &ktl::State::b, ktlr##a##b
constexpr std::array<Row, ktl::pair_count> rows{{
    {KTL_PAIR(p, t), Row::single_phase},
    {KTL_PAIR(p, h)},
    {KTL_PAIR(p, s)},
    {KTL_PAIR(p, u)},
    {KTL_PAIR(p, v)},
    {KTL_PAIR(p, x), Row::mixture},
    {KTL_PAIR(t, v)},
    {KTL_PAIR(t, h)},
    {KTL_PAIR(t, s)},
    {KTL_PAIR(t, u)},
    {KTL_PAIR(t, x), Row::mixture},
    {KTL_PAIR(s, x), Row::mixture},
    {KTL_PAIR(h, s)},
    {KTL_PAIR(u, s)},
    {KTL_PAIR(v, h)},
    {KTL_PAIR(v, s)},
    {KTL_PAIR(v, u)},
}};
#undef KTL_PAIR

/// What ktl::state() promises: relative; h, s and u near zero against 10 of their units.
constexpr double promised = 1.0e-10;
/// One state in so many is compared with the named routine.
constexpr long compared_share = 8;
/// Agreement that is expected of the named routines, which solve to 1e-8.
constexpr double agreement = 1.0e-6;
constexpr long states_per_task = 1200;

double deviation(double wanted, double got, Member member) {
    const bool has_zero = member == &Values::h || member == &Values::s || member == &Values::u;
    const double size = member == &Values::x ? 1.0 : std::fmax(std::fabs(wanted), has_zero ? 10.0 : 0.0);
    const double difference = std::fabs(got - wanted) / size;
    return std::isnan(difference) ? INFINITY : difference;
}

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
using Tallies = std::array<Tally, ktl::pair_count>;

Values values_of(const ktl::State& got) {
    return {got.p(), got.t(), got.v(), got.h(), got.s(), got.u(), got.two_phase() ? got.x() : -1.0};
}

/// The named routine's state beside the one found, where both have the given values in the same region.
void compare(const Row& row, const Values& wanted, const ktl::State& found, Tally& tally) {
    // From 373.117 degC on the entry's saturated steam is another root, and with it every mixture.
    if (found.two_phase() && found.t() > 373.0) return;
    double first = wanted.*row.first;
    double second = wanted.*row.second;
    const int region = row.find(first, second, 1.0e-8);
    if (region != static_cast<int>(found.region())) return;
    const Values named = evaluate(region, first, second);
    const double off = std::fmax(deviation(wanted.*row.first, named.*row.first, row.first),
                                 deviation(wanted.*row.second, named.*row.second, row.second));
    if (!(off <= 1.0e-8)) return;
    const double apart = std::fmax(std::fabs(named.v / found.v() - 1.0), std::fabs(named.t - found.t()) / 273.15);
    ++tally.compared;
    tally.disagreement = std::fmax(tally.disagreement, apart);
    if (apart > agreement) ++tally.disagree;
}

void solve(std::size_t pair, const Values& wanted, bool with_named, Tally& tally) {
    const Row& row = rows.at(pair);
    if (row.scope != Row::any && (row.scope == Row::mixture) != (wanted.x >= 0.0)) return;
    const double first = wanted.*row.first;
    const double second = wanted.*row.second;
    const ktl::State found = ktl::state(static_cast<ktl::Pair>(pair), first, second);
    ++tally.states;
    if (row.scope == Row::single_phase && found.status() == ktl::Status::undetermined) {
        ++tally.undetermined;
        return;
    }
    double off = std::fmax(deviation(first, (found.*row.got_first)(), row.first),
                           deviation(second, (found.*row.got_second)(), row.second));
    if (!found || !suits(static_cast<int>(found.region()), values_of(found))) off = INFINITY;
    if (!(off <= promised)) {
        if (++tally.unsolved <= 5)
            std::fprintf(stderr,
                         "%s: %s, region %d, off %.2e: p=%.17g t=%.17g v=%.17g h=%.17g s=%.17g u=%.17g x=%.17g\n",
                         row.name, ktl::sentence(found.status()), static_cast<int>(found.region()), off, wanted.p,
                         wanted.t, wanted.v, wanted.h, wanted.s, wanted.u, wanted.x);
    } else if (with_named) {
        compare(row, wanted, found, tally);
    }
    if (off > tally.worst) tally.worst = off, tally.worst_state = wanted;
}

/// States of one task: all kinds in turn, one in ten between the sides of a border, where p and t are no state.
void run_task(long task, long count, std::uint64_t seed, Tallies& tallies) {
    Random random(seed + 0x51ed270b9f3c2d17U * static_cast<std::uint64_t>(task + 1));
    for (long n = 0; n < count; ++n) {
        const int kind = static_cast<int>(n % (kinds + 1));
        const bool border = kind == kinds;
        const Values state = border
                                 ? draw_at_border(random, static_cast<int>(n / (kinds + 1) % 3), ktl::Phases::outermost)
                                 : draw(random, kind, ktl::Phases::outermost);
        for (std::size_t pair = border ? 1 : 0; pair < rows.size(); ++pair)
            solve(pair, state, n % compared_share == 0, tallies.at(pair));
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

} // namespace

int sweep_engine(long count, std::uint64_t seed) {
    const long tasks = (count + states_per_task - 1) / states_per_task;
    std::atomic<long> next{0};
    std::mutex adding;
    Tallies total{};
    const auto work = [&] {
        Tallies own{};
        for (long task = next++; task < tasks; task = next++)
            run_task(task, std::min(states_per_task, count - task * states_per_task), seed, own);
        const std::lock_guard lock(adding);
        for (std::size_t i = 0; i < own.size(); ++i) total.at(i).add(own.at(i));
    };
    std::vector<std::thread> threads(std::max(1U, std::thread::hardware_concurrency()));
    for (std::thread& thread : threads) thread = std::thread(work);
    for (std::thread& thread : threads) thread.join();
    return print(total) ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace sweep
