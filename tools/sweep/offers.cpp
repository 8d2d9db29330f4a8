#include "offers.hpp"

#include "engine/solution.hpp"
#include "pairs.hpp"
#include "tasks.hpp"

#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

namespace sweep {

namespace {

using ktl::Pair;
using ktl::Property;
using ktl::State;
using ktl::Status;

constexpr long rows_per_task = 1700;
/// Agreement with the exact search, K. Where two values fix a state badly both may be right and differ by less.
constexpr double same_t = 1.0e-3;
/// From this temperature, degC, on the saturated volumes hang on the last digits of it.
constexpr double top_of_dome = 374.1;

/// A value of the quantity: within the range, or beyond it by up to a third of its extent (of its logarithm).
double any_value(Random& random, Property property) {
    const auto extended = [&](double low, double high) {
        const double more = (high - low) / 3.0;
        return random.between(low - more, high + more);
    };
    switch (property) {
    case Property::p: return std::exp(extended(std::log(0.006), std::log(1000.0)));
    case Property::v: return std::exp(extended(std::log(0.0009), std::log(210.0)));
    case Property::t: return extended(0.0, 800.0);
    case Property::s: return extended(-0.1, 11.5);
    case Property::x: return extended(0.0, 1.0);
    default: return extended(-5.0, 4200.0);
    }
}

/// Both values at random, or those of a state, of which one is moved by 1e-14 of it to all of it.
void draw_offer(Random& random, const Row& row, long number, double& a, double& b) {
    if (number % 3 == 0) {
        a = any_value(random, row.a);
        b = any_value(random, row.b);
        return;
    }
    const Values state = draw(random, static_cast<int>(number % kinds), ktl::SaturationModel::outermost_roots);
    a = state.*row.first;
    b = state.*row.second;
    (number % 3 == 1 ? a : b) *= 1.0 + random.around_zero(1e-14, 1.0);
}

struct Tally {
    struct Pair {
        long offers = 0, solved = 0, wrong = 0;
    };
    std::array<Pair, ktl::pair_count> pairs{};

    void add(const Tally& other) {
        for (std::size_t k = 0; k < pairs.size(); ++k) {
            pairs.at(k).offers += other.pairs.at(k).offers;
            pairs.at(k).solved += other.pairs.at(k).solved;
            pairs.at(k).wrong += other.pairs.at(k).wrong;
        }
    }
};

bool has_phases_of_its_temperature(const State& state) {
    const bool beyond_border = state.region() == ktl::Region::wet && state.t() > ktl::ktl_lc.t3min;
    if (!state.two_phase() || beyond_border || state.t() > top_of_dome) return true;
    const ktl::Saturation line = ktl::saturation_at_temperature(state.t());
    const auto same = [](double a, double b) { return std::fabs(a - b) <= 1e-7 * std::fabs(b); };
    return same(state.liquid().v(), line.liquid.v()) && same(state.vapour().v(), line.vapour.v());
}

bool near_critical(ktl::Region region) {
    return region >= ktl::Region::near_critical_steam && region <= ktl::Region::wet_near_critical;
}

/// True where one of both lies in sub-region 3, the other on a border to it, so that the last digits tell which goes first.
bool on_border(const State& state, const ktl::engine::Solution& exact) {
    if (near_critical(state.region()) == near_critical(exact.region)) return false;
    const bool engine_low = near_critical(exact.region);
    const double t = engine_low ? state.t() : exact.t;
    if ((engine_low ? state.region() : exact.region) != ktl::Region::steam) return std::fabs(t - 350.0) < 1e-6;
    const double p = engine_low ? state.p() : exact.primary;
    return std::fabs(p / ktl::boundary_pressure(t) - 1.0) < 1e-7;
}

/// What is wrong with a row, or null. In pairs without p, t and x the exact search takes the side of a border that it meets.
const char* fault(Pair pair, double a, double b, Status status) {
    const ktl::engine::Solution exact = ktl::engine::search(pair, a, b, 0);
    if (status != exact.status) return ktl::sentence(exact.status);
    const State state = ktl::state(pair, a, b);
    if (state.status() != status) return "another status than ktl::state()";
    if (status != Status::solved) return nullptr;
    const Row& row = rows.at(static_cast<std::size_t>(pair));
    const Values got{state.p(), state.t(), state.v(), state.h(), state.s(), state.u(), state.x()};
    if (!(of_calls.deviation(a, got.*row.first, row.first) <= of_calls.relative) ||
        !(of_calls.deviation(b, got.*row.second, row.second) <= of_calls.relative))
        return "other values";
    if (!has_phases_of_its_temperature(state)) return "phases of another temperature";
    if (pair < Pair::hs && !on_border(state, exact) && !(std::fabs(state.t() - exact.t) <= same_t))
        return "another state";
    return nullptr;
}

void run_task(long task, long count, std::uint64_t seed, Tally& tally) {
    Random random(seed + 0x2545f4914f6cdd1dU * static_cast<std::uint64_t>(task + 1));
    const auto n = static_cast<std::size_t>(count);
    std::vector<double> a(n);
    std::vector<double> b(n);
    std::vector<double> t(n);
    std::vector<Status> status(n);
    const auto k = static_cast<std::size_t>(task) % ktl::pair_count;
    const auto pair = static_cast<Pair>(k);
    for (std::size_t i = 0; i < n; ++i) draw_offer(random, rows.at(k), static_cast<long>(i), a[i], b[i]);
    const std::array wanted{Property::t};
    const std::array<double*, 1> outputs{t.data()};
    ktl::batch(pair, a, b, wanted, outputs, status);
    Tally::Pair& of_pair = tally.pairs.at(k);
    of_pair.offers += count;
    for (std::size_t i = 0; i < n; ++i) {
        if (status[i] == Status::solved) ++of_pair.solved;
        const char* const wrong = fault(pair, a[i], b[i], status[i]);
        if (wrong != nullptr && ++of_pair.wrong <= 5)
            std::fprintf(stderr, "%s %.17g %.17g: %s, should be: %s\n", rows.at(k).name, a[i], b[i],
                         ktl::sentence(status[i]), wrong);
    }
}

} // namespace

bool sweep_offers(long count, std::uint64_t seed) {
    const Tally total = on_all_processors<Tally>(
        count, rows_per_task, [&](long task, long offers, Tally& own) { run_task(task, offers, seed, own); });
    std::printf("| pair | offers | solved | wrong |\n|---|---|---|---|\n");
    bool good = true;
    for (std::size_t k = 0; k < total.pairs.size(); ++k) {
        const Tally::Pair& sum = total.pairs.at(k);
        std::printf("| `%s` | %ld | %ld | %ld |\n", rows.at(k).name, sum.offers, sum.solved, sum.wrong);
        good = good && sum.wrong == 0 && sum.offers > sum.solved && sum.solved > 0;
    }
    return good;
}

} // namespace sweep
