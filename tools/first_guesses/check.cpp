#include "check.hpp"

#include "newton.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace first_guesses {

namespace guesses = ktl::engine::guesses;

namespace {

struct Calls {
    double (*classify)(const double&, const double&);
    void (*guess)(GuessPatch, const double&, const double&, double&, double&);
    std::array<bool, guesses::patch_count> guessed;
};

template <Pair pair, std::size_t... c>
constexpr Calls calls_of(std::index_sequence<c...> /*patches*/) {
    return {&guesses::classify<pair, double>,
            &guesses::guess<pair, double>,
            {guesses::guessed<pair, static_cast<GuessPatch>(c)>()...}};
}
template <std::size_t... k>
constexpr std::array<Calls, sizeof...(k)> all_calls(std::index_sequence<k...> /*pairs*/) {
    return {calls_of<static_cast<Pair>(k)>(std::make_index_sequence<guesses::patch_count>())...};
}
constexpr auto calls = all_calls(std::make_index_sequence<ktl::pair_count>());

} // namespace

namespace {

/// True of the coldest mixture of its entropy and quality, where that is beyond doubt.
bool lowest(const State& state) {
    const auto test = state.t > ktl::ktl_lc.t1 ? guesses::is_lowest<true, double> : guesses::is_lowest<false, double>;
    return test(state.s, state.x, state.t) > 0.5;
}

} // namespace

bool followed(Pair pair, GuessPatch where) {
    const char leader = name(pair)[0];
    if (pair == Pair::pt && !guesses::near_critical(where)) return false;
    if (pair == Pair::tv && guesses::near_critical(where)) return false;
    if (guesses::two_phase(where) && (leader == 'p' || leader == 't')) return false;
    return calls[static_cast<std::size_t>(pair)].guessed[static_cast<std::size_t>(where)];
}

Quality check(Pair pair, GuessPatch where, std::size_t n, std::uint64_t seed) {
    const auto given = name(pair);
    const Calls& call = calls[static_cast<std::size_t>(pair)];
    const Region region = region_of(where);
    const bool wet = region == Region::wet || region == Region::wet_near_critical;
    Quality q;
    double all = 0.0;
    const auto note = [](double miss, double& greatest, double& rms) {
        greatest = std::max(greatest, miss);
        rms += miss * miss;
    };
    for (const State& state : draw(pair, where, n, seed)) {
        const double a = state(given[0]), b = state(given[1]);
        if (guesses::turning(where) && !lowest(state)) continue;
        all += 1.0;
        const auto found = pair == Pair::pt ? where : static_cast<GuessPatch>(static_cast<int>(call.classify(a, b)));
        if (region_of(found) != region) {
            q.wrong += 1.0;
            continue;
        }
        Trial trial;
        call.guess(found, a, b, trial.first, trial.t);
        note(std::fabs(trial.t - state.t), q.t_greatest, q.t_rms);
        if (!wet) note(std::fabs(trial.first / state.first - 1.0), q.first_greatest, q.first_rms);
        trial.liquid = guesses::liquid_volume(trial.t);
        trial.vapour = guesses::vapour_volume(trial.t);
        for (int k = 1; k <= 3; ++k) {
            trial = step(pair, region, a, b, trial);
            const bool reached = miss(pair, region, a, b, trial) <= tolerance;
            if (k == 2 && reached) q.two += 1.0;
            if (k == 3 && reached) q.three += 1.0;
        }
    }
    const double right = all - q.wrong;
    q.two /= all, q.three /= all, q.wrong /= all;
    q.t_rms = std::sqrt(q.t_rms / right), q.first_rms = std::sqrt(q.first_rms / right);
    return q;
}

} // namespace first_guesses
