// Time of the named routines, each call at a state of its own so that no working terms are found ready.
// The column "exps" is the time divided by that of one std::exp measured in the same run, so that tables from
// different machines compare.
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <ktl/ktlftn.h>
#include <random>
#include <vector>

namespace {

constexpr std::size_t count = 1024; // states of one benchmark; a power of two
constexpr double eps = 1e-8;

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

const States liquid = states([](auto uniform) { return State{uniform(200.0, 1000.0), uniform(0.01, 350.0)}; });
const States steam = states([](auto uniform) { return State{uniform(0.01, 100.0), uniform(320.0, 800.0)}; });
const States near_critical = states([](auto uniform) { return State{uniform(0.0017, 0.006), uniform(375.0, 420.0)}; });

/// Pressure and enthalpy of each state, as the region's own equations give them.
States with_enthalpy(States of, ktl_property pressure, ktl_property enthalpy) {
    for (auto& s : of) {
        const double h = enthalpy(s.first, s.second);
        if (pressure != nullptr) s.first = pressure(s.first, s.second);
        s.second = h;
    }
    return of;
}

using clock = std::chrono::steady_clock;
using seconds = std::chrono::duration<double>;

double seconds_of_exp() {
    double best = 1.0;
    for (int run = 0; run < 20; ++run) {
        constexpr int calls = 100000;
        const auto start = clock::now();
        for (int i = 0; i < calls; ++i) benchmark::DoNotOptimize(std::exp(-1e-5 * i));
        best = std::min(best, seconds(clock::now() - start).count() / calls);
    }
    return best;
}
const double exp_time = seconds_of_exp();

/// Runs call(state) over the states in turn.
template <class Call>
void run(benchmark::State& bench, const States& of, Call call) {
    std::size_t i = 0;
    const auto start = clock::now();
    for (auto _ : bench) benchmark::DoNotOptimize(call(of[i++ % count]));
    bench.counters["exps"] = seconds(clock::now() - start).count() / static_cast<double>(i) / exp_time;
}

void property(benchmark::State& bench, const States& of, ktl_property f) {
    run(bench, of, [f](const State& s) { return f(s.first, s.second); });
}

void request(benchmark::State& bench, const States& of, ktl_finder finder) {
    run(bench, of, [finder](const State& s) {
        std::array<double, 5> out{};
        ktlftn(finder, s.first, s.second, "P,T,V,H,S.", out.data());
        return out;
    });
}

void find(benchmark::State& bench, const States& of, ktl_finder finder) {
    run(bench, of, [finder](const State& s) {
        double first = s.first;
        double second = s.second;
        const int region = finder(first, second, eps);
        benchmark::DoNotOptimize(first);
        benchmark::DoNotOptimize(second);
        return region;
    });
}

void saturation_pressure(benchmark::State& bench) {
    run(bench, liquid, [](const State& s) { return ktl_pt(s.second); });
}

void saturation_temperature(benchmark::State& bench) {
    run(bench, steam, [](const State& s) { return ktl_it(s.first); });
}

const States liquid_ph = with_enthalpy(states([](auto uniform) {
                                           return State{uniform(100.0, 160.0), uniform(10.0, 300.0)};
                                       }),
                                       nullptr, ktl_d1);
const States steam_ph = with_enthalpy(states([](auto uniform) {
                                          return State{uniform(1.0, 160.0), uniform(350.0, 790.0)};
                                      }),
                                      nullptr, ktl_d2);
const States near_critical_ph = with_enthalpy(near_critical, ktl_a3, ktl_d3);

BENCHMARK_CAPTURE(property, ktl_c1, liquid, ktl_c1)->Name("volume, water (ktl_c1)");
BENCHMARK_CAPTURE(property, ktl_d1, liquid, ktl_d1)->Name("enthalpy, water (ktl_d1)");
BENCHMARK_CAPTURE(property, ktl_c2, steam, ktl_c2)->Name("volume, steam (ktl_c2)");
BENCHMARK_CAPTURE(property, ktl_d2, steam, ktl_d2)->Name("enthalpy, steam (ktl_d2)");
BENCHMARK_CAPTURE(property, ktl_a3, near_critical, ktl_a3)->Name("pressure, near-critical (ktl_a3)");
BENCHMARK_CAPTURE(request, water, liquid, ktlrpt)->Name("P,T,V,H,S by ktlrpt, water");
BENCHMARK_CAPTURE(request, steam, steam, ktlrpt)->Name("P,T,V,H,S by ktlrpt, steam");
BENCHMARK_CAPTURE(find, liquid_ph, liquid_ph, ktlrph)->Name("state by ktlrph, water");
BENCHMARK_CAPTURE(find, steam_ph, steam_ph, ktlrph)->Name("state by ktlrph, steam");
BENCHMARK_CAPTURE(find, near_critical_ph, near_critical_ph, ktlrph)->Name("state by ktlrph, near-critical");
BENCHMARK(saturation_pressure)->Name("saturation pressure (ktl_pt)");
BENCHMARK(saturation_temperature)->Name("saturation temperature (ktl_it)");

void exponential(benchmark::State& bench) {
    run(bench, liquid, [](const State& s) { return std::exp(-s.second); });
}
BENCHMARK(exponential)->Name("std::exp");

} // namespace

BENCHMARK_MAIN();
