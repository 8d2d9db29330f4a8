// Time of the named routines, each call at a state of its own so that no working terms are found ready.
#include "timing.hpp"

#include <array>

namespace {

using namespace ktl_bench;

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

} // namespace

BENCHMARK_MAIN();
