// Time of polytropic steps: one call for each line, on a turbine's ways and beside the critical point.
#include "timing.hpp"

#include <ktl/process.hpp>
#include <string>

namespace {

using ktl::Pair;
using ktl::Process;

struct Row {
    const char* name;
    Pair pair;
    double a, b, to, efficiency;
    double wetness_factor = 0.0;
};
constexpr Row rows[] = {
    {"high pressure", Pair::pt, 166.7, 538.0, 42.0, 0.88},
    {"into the mixture", Pair::pt, 40.0, 538.0, 0.04, 0.9},
    {"into the mixture by Baumann", Pair::pt, 40.0, 538.0, 0.04, 0.9, 1.0},
    {"whole turbine", Pair::pt, 166.7, 538.0, 0.04, 0.9},
    {"mixture", Pair::px, 8.0, 0.97, 0.05, 0.8},
    {"flashing water", Pair::px, 100.0, 0.0, 1.0, 0.5},
    {"feed pump", Pair::pt, 8.0, 165.0, 250.0, 0.8},
    {"compressor", Pair::pt, 1.0, 150.0, 20.0, 0.75},
    {"beside the critical point", Pair::pt, 300.0, 420.0, 1.0, 0.8},
    {"out of the range", Pair::pt, 100.0, 500.0, 1000.0, 0.4},
};

void line(benchmark::State& loop, const Row& row) {
    const ktl::State from = ktl::state(row.pair, row.a, row.b);
    const Process process = row.to > from.p() ? Process::polytropic_compression : Process::polytropic_expansion;
    for (auto _ : loop)
        benchmark::DoNotOptimize(
            ktl::step(process, from, row.to, row.efficiency, {.wetness_factor = row.wetness_factor}).work);
}

const bool registered = [] {
    for (const Row& row : rows)
        benchmark::RegisterBenchmark((std::string("polytropic step/") += row.name).c_str(), line, row);
    return true;
}();

} // namespace
