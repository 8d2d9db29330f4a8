// What every benchmark here shares: states to run over, and the time of one std::exp to compare with.
#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <ktl/ktlftn.h>
#include <random>
#include <vector>

namespace ktl_bench {

inline constexpr std::size_t count = 1024; // states of one benchmark; a power of two
inline constexpr double eps = 1e-8;

struct State {
    double first, second;
};
using States = std::vector<State>;

/// States of the given range, always the same.
template <class Make>
States states(Make make) {
    std::mt19937_64 random(67);
    const auto uniform = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
    States out(count);
    for (auto& s : out) s = make(uniform);
    return out;
}

inline const States liquid = states([](auto uniform) { return State{uniform(200.0, 1000.0), uniform(0.01, 350.0)}; });
inline const States steam = states([](auto uniform) { return State{uniform(0.01, 100.0), uniform(320.0, 800.0)}; });
inline const States near_critical = states([](auto uniform) {
    return State{uniform(0.0017, 0.006), uniform(375.0, 420.0)};
});

/// Pressure and enthalpy of each state, as the region's own equations give them.
inline States with_enthalpy(States of, ktl_property pressure, ktl_property enthalpy) {
    for (auto& s : of) {
        const double h = enthalpy(s.first, s.second);
        if (pressure != nullptr) s.first = pressure(s.first, s.second);
        s.second = h;
    }
    return of;
}

using clock = std::chrono::steady_clock;
using seconds = std::chrono::duration<double>;

inline double seconds_of_exp() {
    double best = 1.0;
    for (int run = 0; run < 20; ++run) {
        constexpr int calls = 100000;
        const auto start = clock::now();
        for (int i = 0; i < calls; ++i) benchmark::DoNotOptimize(std::exp(-1e-5 * i));
        best = std::min(best, seconds(clock::now() - start).count() / calls);
    }
    return best;
}
inline const double exp_time = seconds_of_exp();

/// Runs call(state) over the states in turn.
template <class Call>
void run(benchmark::State& bench, const States& of, Call call) {
    std::size_t i = 0;
    const auto start = clock::now();
    for (auto _ : bench) benchmark::DoNotOptimize(call(of[i++ % count]));
    bench.counters["exps"] = seconds(clock::now() - start).count() / static_cast<double>(i) / exp_time;
}

/// Runs a finder.
inline void find(benchmark::State& bench, const States& of, ktl_finder finder) {
    run(bench, of, [finder](const State& s) {
        double first = s.first;
        double second = s.second;
        const int region = finder(first, second, eps);
        benchmark::DoNotOptimize(first);
        benchmark::DoNotOptimize(second);
        return region;
    });
}

} // namespace ktl_bench
