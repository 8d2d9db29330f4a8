#include "limits.hpp"

#include "columns.hpp"
#include "tasks.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace sweep {

namespace {

using ktl::ktl_lc;
using ktl::Pair;
using ktl::State;
using ktl::Status;

constexpr long states_per_task = 600;
/// One row in so many has its states counted.
constexpr long counted_share = 16;
/// p, t this close to the saturation line, relative in p, leave the quality open.
constexpr double line_width = 1.0e-8;
/// Greatest move of a given value, a tenth of what a state may miss it by.
constexpr double greatest_move = 0.1 * of_calls.relative;

double neighbour(double value, int steps) {
    for (; steps > 0; --steps) value = std::nextafter(value, INFINITY);
    for (; steps < 0; ++steps) value = std::nextafter(value, -INFINITY);
    return value;
}
/// The value itself or one of its three neighbours on either side.
double beside(Random& random, double value) { return neighbour(value, static_cast<int>(random.below(7)) - 3); }

template <std::size_t n>
double one_of(Random& random, const std::array<double, n>& values) {
    return values.at(random.below(static_cast<unsigned>(n)));
}

double limit_temperature(Random& random) {
    constexpr std::array limits{ktl_lc.tmin, ktl_lc.t3min, ktl_lc.tc, ktl_lc.t3max, ktl_lc.tmax};
    return std::clamp(beside(random, one_of(random, limits)), ktl_lc.tmin, ktl_lc.tmax);
}
/// pmin lies below the saturation pressure at tmin by its last digits: a mixture may have any pressure between them.
double limit_pressure(Random& random) {
    const double coldest = ktl::saturation_pressure(ktl_lc.tmin);
    const std::array limits{
        ktl_lc.pmin,
        coldest,
        random.between(ktl_lc.pmin, coldest),
        ktl_lc.p1,
        ktl::saturation_pressure(ktl_lc.t1max),
        ktl_lc.pca,
        ktl_lc.pmax,
    };
    return std::clamp(beside(random, one_of(random, limits)), ktl_lc.pmin, ktl_lc.pmax);
}

/// Any temperature, half of them where limits, borders and turns lie close together.
double any_temperature(Random& random) {
    switch (random.below(8)) {
    case 0: return random.between(ktl_lc.tmin, 15.0);
    case 1: return ktl_lc.tmin + random.logarithmic(1e-14, 1.0);
    case 2: return ktl_lc.t3min + random.around_zero(1e-13, 1.0);
    case 3: return random.below(2) == 0 ? random.between(589.5, 590.5) : ktl_lc.tc - random.logarithmic(1e-13, 10.0);
    default: return random.between(ktl_lc.tmin, ktl_lc.tmax);
    }
}
double any_pressure(Random& random) {
    return random.below(2) == 0 ? random.between(ktl_lc.pmin, ktl_lc.pmax)
                                : std::clamp(random.logarithmic(ktl_lc.pmin, ktl_lc.pmax), ktl_lc.pmin, ktl_lc.pmax);
}

/// On the border that the isotherm crosses, or beside it: by some last digits, or by up to 1e-3.
double border_pressure(Random& random, double t) {
    const double border = t > ktl_lc.t3min && (t > ktl_lc.tc || random.below(2) == 0)
                              ? ktl::boundary_pressure(std::min(t, ktl_lc.t3max))
                              : ktl::saturation_pressure(t);
    const double p = random.below(2) == 0 ? beside(random, border) : border * (1.0 + random.around_zero(1e-15, 1e-3));
    return std::clamp(p, ktl_lc.pmin, ktl_lc.pmax);
}

double limit_quality(Random& random) {
    switch (random.below(4)) {
    case 0: return 0.0;
    case 1: return 1.0;
    case 2: return random.below(2) == 0 ? random.logarithmic(1e-18, 1e-2) : 1.0 - random.logarithmic(1e-16, 1e-2);
    default: return random.between(0.0, 1.0);
    }
}

Values values_of(const State& y) { return {y.p(), y.t(), y.v(), y.h(), y.s(), y.u(), y.two_phase() ? y.x() : -1.0}; }
Values values_of(const ktl::Phase& y, double x) { return {y.p(), y.t(), y.v(), y.h(), y.s(), y.u(), x}; }

/// A saturated phase as the calls of the saturation line return it, or a mixture.
Values saturated(Random& random, bool by_pressure, double given) {
    if (random.below(3) == 0)
        return values_of(ktl::state(by_pressure ? Pair::px : Pair::tx, given, limit_quality(random)));
    const ktl::Saturation line =
        by_pressure ? ktl::saturation_at_pressure(given) : ktl::saturation_at_temperature(given);
    return random.below(2) == 0 ? values_of(line.liquid, 0.0) : values_of(line.vapour, 1.0);
}

Values at(Random& random, double p, double t) {
    const State y = ktl::state(Pair::pt, p, t);
    return y.status() == Status::undetermined ? saturated(random, false, t) : values_of(y);
}

/// A state of the limits; kind cycles through them.
Values draw_at_limit(Random& random, int kind) {
    switch (kind % 7) {
    case 0: return at(random, limit_pressure(random), any_temperature(random));
    case 1: return at(random, any_pressure(random), limit_temperature(random));
    case 2: return at(random, limit_pressure(random), limit_temperature(random));
    case 3: {
        const double t = std::clamp(any_temperature(random), ktl_lc.tmin, ktl_lc.tmax);
        return at(random, border_pressure(random, t), t);
    }
    case 4: {
        const double t = random.below(4) == 0 ? limit_temperature(random) : any_temperature(random);
        return saturated(random, false, std::min(t, ktl_lc.tc));
    }
    case 5: {
        const double p = random.below(4) == 0 ? limit_pressure(random) : any_pressure(random);
        return saturated(random, true, std::min(p, ktl_lc.pca));
    }
    default: {
        const double t = limit_temperature(random);
        return at(random, border_pressure(random, t), t);
    }
    }
}

/// The value itself, one of its neighbours, or the value moved by up to the greatest move.
double moved(Random& random, double value, Member member) {
    switch (random.below(4)) {
    case 0: return value;
    case 1:
    case 2: return beside(random, value);
    default: return value + random.around_zero(1e-16, greatest_move) * of_calls.size_of(value, member);
    }
}

struct Tally {
    struct Pair {
        long offers = 0, undetermined = 0, unsolved = 0, wrong = 0, counted = 0;
        double worst = 0.0, worst_a = 0.0, worst_b = 0.0;
    };
    std::array<Pair, ktl::pair_count> pairs{};

    void add(const Tally& other) {
        for (std::size_t k = 0; k < pairs.size(); ++k) {
            Pair& sum = pairs.at(k);
            const Pair& more = other.pairs.at(k);
            sum.offers += more.offers, sum.undetermined += more.undetermined;
            sum.unsolved += more.unsolved, sum.wrong += more.wrong, sum.counted += more.counted;
            if (more.worst > sum.worst) sum.worst = more.worst, sum.worst_a = more.worst_a, sum.worst_b = more.worst_b;
        }
    }
};

/// True within the range, but for a gap at 1000 bar and 350 degC that sub-region 1 covers beyond both limits.
bool in_range(const Solved& found) {
    constexpr double slack = 1.0e-10;
    const Values& y = found.values;
    const bool gap = found.region == KTL_WATER && y.t > ktl_lc.t1max;
    return y.p >= ktl_lc.pmin * (1.0 - slack) && y.p <= ktl_lc.pmax * (gap ? 1.01 : 1.0 + slack) &&
           y.t >= ktl_lc.tmin * (1.0 - slack) && y.t <= ktl_lc.tmax * (1.0 + slack);
}

double residual(const Row& row, const Values& got, double a, double b) {
    return std::fmax(of_calls.deviation(a, got.*row.first, row.first),
                     of_calls.deviation(b, got.*row.second, row.second));
}

/// True if two states of one pair are the same.
bool same(const Values& a, const Values& b) {
    return std::fabs(a.t - b.t) <= 1e-7 && std::fabs(a.p - b.p) <= 1e-9 * b.p && std::fabs(a.v - b.v) <= 1e-10 * b.v;
}

/// True if each of the states that are counted has both values, no two are the same, and there is none beyond them.
bool count_holds(const Row& row, Pair pair, double a, double b) {
    const int count = ktl::state_count(pair, a, b);
    std::vector<Values> found;
    for (int n = 0; n < count; ++n) {
        const State one = ktl::state(pair, a, b, n);
        found.push_back(values_of(one));
        const Values& last = found.back();
        if (!one || !(residual(row, last, a, b) <= of_calls.relative)) return false;
        if (std::any_of(found.begin(), found.end() - 1, [&](const Values& y) { return same(y, last); })) return false;
    }
    return count > 0 && ktl::state(pair, a, b, count).status() == Status::no_state;
}

/// What is wrong with a solved row, or null.
const char* fault(const Row& row, Pair pair, const Columns& columns, std::size_t i, bool counted) {
    const Solved found = columns.solved(i);
    if (!columns.same_as_state(pair, i)) return "other bits than ktl::state()";
    if (found.status == Status::undetermined) return nullptr;
    if (!suits(found.region, found.values)) return "the region does not suit";
    if (!in_range(found)) return "out of range";
    if (!(residual(row, found.values, columns.a(i), columns.b(i)) <= of_calls.relative)) return "other values";
    if (counted && !count_holds(row, pair, columns.a(i), columns.b(i))) return "the count";
    return nullptr;
}

void judge(const Row& row, Pair pair, const Columns& columns, std::size_t i, const Values& state, Tally::Pair& tally) {
    const Solved found = columns.solved(i);
    const double a = columns.a(i);
    const double b = columns.b(i);
    const bool on_line =
        row.scope() == Row::single_phase && b <= ktl_lc.tc * (1.0 + of_calls.relative) &&
        std::fabs(a / ktl::saturation_pressure(std::clamp(b, ktl_lc.tmin, ktl_lc.tc)) - 1.0) <= 1.001 * line_width;
    // By s, x both sides of 350 degC may be counted for one state.
    const bool counted = tally.offers++ % counted_share == 0 && !on_line && pair != Pair::sx;
    tally.counted += counted ? 1 : 0;
    tally.undetermined += found.status == Status::undetermined ? 1 : 0;
    const bool answered = found.status == Status::solved || (on_line && found.status == Status::undetermined);
    const char* const wrong = answered ? fault(row, pair, columns, i, counted) : ktl::sentence(found.status);
    const double off = found.status == Status::solved ? residual(row, found.values, a, b) : 0.0;
    if (off > tally.worst) tally.worst = off, tally.worst_a = a, tally.worst_b = b;
    if (wrong == nullptr) return;
    long& faults = answered ? tally.wrong : tally.unsolved;
    if (++faults <= 5)
        std::fprintf(stderr, "%s %.17g %.17g: %s, region %d, off %.2e; from p=%.17g t=%.17g x=%.17g\n", row.name, a, b,
                     wrong, found.region, off, state.p, state.t, state.x);
}

void run_task(long task, long count, std::uint64_t seed, Tally& tally) {
    Random random(seed + 0x6a09e667f3bcc909U * static_cast<std::uint64_t>(task + 1));
    std::vector<Values> states(static_cast<std::size_t>(count));
    for (long n = 0; n < count; ++n)
        states[static_cast<std::size_t>(n)] = draw_at_limit(random, static_cast<int>(n % 7));
    for (std::size_t k = 0; k < rows.size(); ++k) {
        const Row& row = rows.at(k);
        Columns columns;
        std::vector<const Values*> origins;
        for (const Values& state : states) {
            if (row.scope() == Row::mixture && !(state.x >= 0.0)) continue;
            columns.add(moved(random, state.*row.first, row.first), moved(random, state.*row.second, row.second));
            origins.push_back(&state);
        }
        columns.solve(static_cast<Pair>(k));
        for (std::size_t i = 0; i < columns.size(); ++i)
            judge(row, static_cast<Pair>(k), columns, i, *origins[i], tally.pairs.at(k));
    }
}

} // namespace

bool sweep_limits(long count, std::uint64_t seed) {
    const Tally total = on_all_processors<Tally>(
        count, states_per_task, [&](long task, long states, Tally& own) { run_task(task, states, seed, own); });
    std::printf("| pair | offers | undetermined | unsolved | wrong | worst residual | of | counted |\n"
                "|---|---|---|---|---|---|---|---|\n");
    bool good = true;
    for (std::size_t k = 0; k < total.pairs.size(); ++k) {
        const Tally::Pair& sum = total.pairs.at(k);
        std::printf("| `%s` | %ld | %ld | %ld | %ld | %.1e | %.17g, %.17g | %ld |\n", rows.at(k).name, sum.offers,
                    sum.undetermined, sum.unsolved, sum.wrong, sum.worst, sum.worst_a, sum.worst_b, sum.counted);
        good = good && sum.unsolved == 0 && sum.wrong == 0 && sum.offers > 0;
    }
    return good;
}

} // namespace sweep
