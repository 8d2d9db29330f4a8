// Charts: all lines and labels, computed but not drawn, on A3 with a deviation of 0.05 mm.
#include <benchmark/benchmark.h>
#include <ktl/diagram.hpp>

namespace {

namespace diagram = ktl::diagram;

constexpr double width = 392.0, height = 257.0; // mm, of the window on A3

void chart(benchmark::State& state, diagram::Preset preset) {
    std::size_t points = 0;
    for (auto _ : state) {
        diagram::Chart chart = diagram::preset(preset, diagram::System::bar, width, height);
        chart.tolerance = 0.05;
        const diagram::Drawing drawing = diagram::compute(chart);
        points = 0;
        for (const diagram::Line& line : drawing.lines)
            for (const diagram::Piece& piece : line.pieces) points += piece.points.size();
        benchmark::DoNotOptimize(points);
    }
    state.counters["points"] = static_cast<double>(points);
}

BENCHMARK_CAPTURE(chart, hs, diagram::Preset::hs)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(chart, ts, diagram::Preset::ts)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(chart, ph, diagram::Preset::ph)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(chart, pv, diagram::Preset::pv)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(chart, pt, diagram::Preset::pt)->Unit(benchmark::kMillisecond);

} // namespace
