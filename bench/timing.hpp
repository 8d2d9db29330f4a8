// What every benchmark here shares: states to run over, and how a time is noted.
#pragma once

#include "support/random.hpp"
#include "yardstick.hpp"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <ktl/ktlftn.h>
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
    ktl::test::Random random(67);
    const auto uniform = [&](double low, double high) { return random.between(low, high); };
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

/// Notes the time of one call or row, in ns and as a multiple of the yardstick.
inline void note(benchmark::State& bench, std::chrono::steady_clock::duration spent, double calls) {
    const double seconds = std::chrono::duration<double>(spent).count() / calls;
    bench.counters["ns"] = 1.0e9 * seconds;
    bench.counters["yards"] = seconds / yardstick_time;
}

/// Runs call(state) over the states in turn.
template <class Call>
void run(benchmark::State& bench, const States& of, Call call) {
    std::size_t i = 0;
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : bench) benchmark::DoNotOptimize(call(of[i++ % count]));
    note(bench, std::chrono::steady_clock::now() - start, static_cast<double>(i));
}

/// Runs a call that does so many rows.
template <class Call>
void run_rows(benchmark::State& bench, std::size_t rows, Call call) {
    std::size_t calls = 0;
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : bench) {
        call();
        ++calls;
    }
    note(bench, std::chrono::steady_clock::now() - start, static_cast<double>(calls * rows));
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
