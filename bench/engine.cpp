// Time of the ktl:: calls, per state: columns by kind of state on one and on two threads, single calls, saturation line.
#include "engine/rows/block.hpp"
#include "support/pairs.hpp"
#include "timing.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ktl/steam.hpp>
#include <memory>
#include <string>

namespace {

using namespace ktl_bench;
using ktl::Pair;
using ktl::Property;

constexpr std::size_t rows = 1 << 16;

/// The states of one kind, drawn over its whole range.
struct Kind {
    const char* name;
    bool single; ///< one phase
    std::vector<ktl::State> states;
    int digits = 17;     ///< of the values given
    double factor = 1.0; ///< of the second value given
};

template <class Draw>
Kind kind(const char* name, bool single, Draw draw) {
    Kind out{name, single, {}};
    ktl::test::Random random(1967);
    const auto uniform = [&](double low, double high) { return random.between(low, high); };
    while (out.states.size() < rows) {
        const ktl::State s = draw(uniform);
        if (s) out.states.push_back(s);
    }
    return out;
}

ktl::State only(ktl::Region region, const ktl::State& s) {
    return s.region() == region ? s : ktl::state(Pair::pt, -1.0, 0.0);
}

const std::vector<Kind>& kinds() {
    static const std::vector<Kind> all = [] {
        std::vector<Kind> out;
        out.push_back(kind("water", true, [](auto uniform) {
            return only(ktl::Region::water, ktl::state(Pair::pt, uniform(0.01, 1000.0), uniform(0.01, 350.0)));
        }));
        out.push_back(kind("steam", true, [](auto uniform) {
            const double p = std::exp(uniform(std::log(0.0062), std::log(1000.0)));
            return only(ktl::Region::steam, ktl::state(Pair::pt, p, uniform(0.01, 800.0)));
        }));
        out.push_back(kind("near-critical", true, [](auto uniform) {
            const ktl::State s = ktl::state(Pair::pt, uniform(165.0, 1000.0), uniform(350.0, 590.0));
            const bool inside =
                s.region() == ktl::Region::near_critical_water || s.region() == ktl::Region::near_critical_steam;
            return inside ? s : ktl::state(Pair::pt, -1.0, 0.0);
        }));
        out.push_back(kind("two phases", false,
                           [](auto uniform) { return ktl::state(Pair::tx, uniform(0.01, 350.0), uniform(0.0, 1.0)); }));
        out.push_back(kind("two phases above 350 degC", false, [](auto uniform) {
            return ktl::state(Pair::tx, uniform(350.0, 374.0), uniform(0.0, 1.0));
        }));
        return out;
    }();
    return all;
}

/// Saturated states as tables and CSV files have them: rounded to 7 digits, half of them on the other side of the line.
const std::vector<Kind>& rounded_kinds() {
    static const std::vector<Kind> all = [] {
        std::vector<Kind> out;
        const auto add = [&](const char* name, double x, double low, double high) {
            out.push_back(kind(name, false, [=](auto uniform) { return ktl::state(Pair::tx, uniform(low, high), x); }));
            out.back().digits = 7;
        };
        add("x = 0", 0.0, 0.01, 349.5);
        add("x = 1", 1.0, 0.01, 349.5);
        add("x = 0 above 350 degC", 0.0, 350.5, 374.0);
        add("x = 1 above 350 degC", 1.0, 350.5, 374.0);
        return out;
    }();
    return all;
}

/// Water at the border of sub-region 3; steam whose second value is doubled, so that no state has both; rows in other orders than
/// one kind at random.
const std::vector<Kind>& edge_kinds() {
    static const std::vector<Kind> all = [] {
        std::vector<Kind> out;
        const auto add = [&](const char* name, double low, double high) {
            out.push_back(kind(name, true, [=](auto uniform) {
                const double p = uniform(170.0, 1000.0);
                return ktl::state(Pair::pt, p, uniform(low, high));
            }));
        };
        add("at 350 degC", 350.0, 350.0);
        add("349.5 to 350.5 degC", 349.5, 350.5);
        out.push_back(kinds()[1]);
        out.back().name = "no state";
        out.back().factor = 2.0;
        ktl::test::Random random(1967);
        Kind shuffled{"all kinds, shuffled", false, {}};
        for (std::size_t i = 0; i < rows; ++i)
            shuffled.states.push_back(kinds()[random.below(static_cast<unsigned>(kinds().size()))].states[i]);
        out.push_back(std::move(shuffled));
        Kind series{"time series near the critical point", true, {}};
        for (std::size_t i = 0; i < rows; ++i) {
            const double phase = 1.0e-3 * static_cast<double>(i);
            series.states.push_back(
                ktl::state(Pair::pt, 235.0 + 10.0 * std::sin(phase), 385.0 + 5.0 * std::sin(1.7 * phase)));
        }
        out.push_back(std::move(series));
        return out;
    }();
    return all;
}

double rounded(double value, int digits) {
    std::array<char, 40> text;
    std::snprintf(text.data(), text.size(), "%.*g", digits, value);
    return std::strtod(text.data(), nullptr);
}

struct Task {
    std::string name;
    Pair pair;
    Property a, b;
    std::vector<Property> wanted;
};

std::vector<Task> tasks() {
    using P = Property;
    std::vector<Task> out{
        {"p,t to v,h,s,cp", Pair::pt, P::p, P::t, {P::v, P::h, P::s, P::cp}},
        {"p,h to t,v,s", Pair::ph, P::p, P::h, {P::t, P::v, P::s}},
        {"p,s to t,v,h", Pair::ps, P::p, P::s, {P::t, P::v, P::h}},
        {"h,s to p,t", Pair::hs, P::h, P::s, {P::p, P::t}},
        {"p,t to viscosity, conductivity", Pair::pt, P::p, P::t, {P::viscosity, P::conductivity}},
    };
    const auto above = static_cast<std::ptrdiff_t>(out.size());
    for (std::size_t k = 0; k < ktl::pair_count; ++k) {
        const auto& row = ktl::test::pairs[k];
        const auto pair = static_cast<Pair>(k);
        if (std::any_of(out.begin(), out.begin() + above, [=](const Task& task) { return task.pair == pair; }))
            continue;
        out.push_back({{row.name[0], ',', row.name[1]}, pair, row.a, row.b, {P::p, P::t}});
        out.back().name += " to p,t";
    }
    return out;
}

/// Columns of one task on one kind of state.
struct Columns {
    std::vector<double> a, b;
    std::vector<std::vector<double>> results;
    std::vector<double*> outputs;
    std::vector<ktl::Status> status = std::vector<ktl::Status>(rows);

    Columns(const Task& task, const Kind& of) : results(task.wanted.size(), std::vector<double>(rows)) {
        for (const ktl::State& s : of.states) {
            a.push_back(rounded(s.get(task.a), of.digits));
            b.push_back(rounded(of.factor * s.get(task.b), of.digits));
        }
        for (auto& column : results) outputs.push_back(column.data());
    }
};

void batch(benchmark::State& bench, const Task& task, const Kind& of, unsigned threads) {
    Columns c(task, of);
    const ktl::BatchOptions options{.threads = threads};
    run_rows(bench, rows, [&] { ktl::batch(task.pair, c.a, c.b, task.wanted, c.outputs, c.status, options); });
}

/// Calls of a few rows each: the time of a call.
void calls(benchmark::State& bench, const Task& task, const Kind& of, std::size_t length) {
    Columns c(task, of);
    std::vector<double*> outputs(task.wanted.size());
    run_rows(bench, rows / length, [&] {
        for (std::size_t i = 0; i + length <= rows; i += length) {
            for (std::size_t k = 0; k < outputs.size(); ++k) outputs[k] = c.outputs[k] + i;
            ktl::batch(task.pair, std::span(c.a).subspan(i, length), std::span(c.b).subspan(i, length), task.wanted,
                       outputs, std::span(c.status).subspan(i, length));
        }
    });
}

/// The kernels of one instruction set, whatever the machine has beside it.
void columns_by(benchmark::State& bench, const Task& task, const Kind& of, const ktl::engine::Kernels& kernels) {
    Columns c(task, of);
    std::vector<double*> outputs(task.wanted.size());
    run_rows(bench, rows, [&] {
        for (std::size_t i = 0; i < rows; i += ktl::engine::block_rows) {
            for (std::size_t k = 0; k < outputs.size(); ++k) outputs[k] = c.outputs[k] + i;
            ktl::engine::solve_block(kernels, task.pair, c.a.data() + i, c.b.data() + i,
                                     std::min(ktl::engine::block_rows, rows - i), task.wanted, outputs.data(),
                                     c.status.data() + i);
        }
    });
}

/// One call after the other, each with every property that is computed when asked for.
void single(benchmark::State& bench, const Task& task, const Kind& of) {
    const Columns c(task, of);
    run_rows(bench, rows, [&] {
        for (std::size_t i = 0; i < rows; ++i) benchmark::DoNotOptimize(ktl::state(task.pair, c.a[i], c.b[i]));
    });
}

/// The first of the wanted properties alone.
void one_value(benchmark::State& bench, const Task& task, const Kind& of) {
    const Columns c(task, of);
    run_rows(bench, rows, [&] {
        for (std::size_t i = 0; i < rows; ++i)
            benchmark::DoNotOptimize(ktl::value(task.pair, c.a[i], c.b[i], task.wanted.front()));
    });
}

void one_of_line(benchmark::State& bench, bool pressure) {
    std::vector<double> x;
    for (const ktl::State& s : kinds()[3].states) x.push_back(pressure ? s.t() : s.p());
    run_rows(bench, rows, [&] {
        for (const double y : x)
            benchmark::DoNotOptimize(pressure ? ktl::saturation_pressure(y) : ktl::saturation_temperature(y));
    });
}

void line(benchmark::State& bench, bool pressure) {
    std::vector<double> x;
    for (const ktl::State& s : kinds()[3].states) x.push_back(pressure ? s.t() : s.p());
    std::vector<double> y(rows);
    run_rows(bench, rows, [&] {
        if (pressure)
            ktl::saturation_pressure(x, y);
        else
            ktl::saturation_temperature(x, y);
        benchmark::DoNotOptimize(y.data());
    });
}

void yardstick_of(benchmark::State& bench, decltype(&yardstick_lanes) kernel) {
    std::vector<double> x;
    for (const ktl::State& s : kinds()[0].states) x.push_back(0.4 + 1.0e-3 * s.t());
    std::vector<double> y(rows);
    run_rows(bench, rows, [&] {
        kernel(x.data(), rows, y.data());
        benchmark::DoNotOptimize(y.data());
    });
}

/// Those that this machine runs.
std::vector<const ktl::engine::Kernels*> sets_of_kernels() {
    using namespace ktl::engine;
    std::vector<const Kernels*> out{&scalar_kernels()};
    const std::string best = kernels().name;
    if (best == "avx512") out.push_back(avx2_kernels());
    if (best != "scalar") out.push_back(&kernels());
    return out;
}

/// Whether states of that kind have both values, and one state alone.
bool fits(const Task& task, const Kind& of) {
    const bool of_quality = task.b == Property::x;
    return of.single ? !of_quality : task.pair != Pair::pt;
}

[[maybe_unused]] const bool registered = [] {
    benchmark::RegisterBenchmark("yardstick, one number at a time", yardstick_of, yardstick_scalar);
#ifdef KTL_LANES
    if (__builtin_cpu_supports("avx512dq"))
        benchmark::RegisterBenchmark("yardstick, AVX-512", yardstick_of, yardstick_lanes);
#endif
    for (const Task& task : tasks()) {
        for (const Kind& of : kinds()) {
            if (!fits(task, of)) continue;
            for (const unsigned threads : {1U, 2U}) {
                const std::string name = task.name + ", " + of.name + ", threads " + std::to_string(threads);
                benchmark::RegisterBenchmark(name.c_str(), batch, task, std::cref(of), threads)->UseRealTime();
            }
        }
    }
    for (const Task& task : tasks()) {
        if (task.wanted.size() < 3 && task.pair != Pair::hs) continue;
        for (const Kind& of : kinds()) {
            if (!fits(task, of)) continue;
            for (const std::size_t length : {1U, 10U, 100U}) {
                const std::string many = std::to_string(length) + (length == 1 ? " row, " : " rows, ");
                benchmark::RegisterBenchmark(("calls, " + task.name + ", " + many + of.name).c_str(), calls, task,
                                             std::cref(of), length);
            }
            for (const ktl::engine::Kernels* kernels : sets_of_kernels()) {
                const std::string name = "kernels, " + task.name + ", " + kernels->name + ", " + of.name;
                benchmark::RegisterBenchmark(name.c_str(), columns_by, task, std::cref(of), std::cref(*kernels));
            }
        }
    }
    for (const Task& task : tasks()) {
        if (task.b == Property::x || task.pair == Pair::pt) continue;
        for (const auto& [what, of_what] : {std::pair("7 digits, ", &rounded_kinds()), {"edge, ", &edge_kinds()}})
            for (const Kind& of : *of_what)
                benchmark::RegisterBenchmark((what + task.name + ", " + of.name).c_str(), batch, task, std::cref(of),
                                             1U)
                    ->UseRealTime();
    }
    for (const Task& task : tasks()) {
        if (task.wanted.size() < 3 && task.pair != Pair::hs) continue;
        for (const Kind& of : kinds()) {
            if (!fits(task, of)) continue;
            const std::string name = task.name + "), " + of.name;
            benchmark::RegisterBenchmark(("state(" + name).c_str(), single, task, std::cref(of));
            benchmark::RegisterBenchmark(("value(" + name).c_str(), one_value, task, std::cref(of));
        }
    }
    benchmark::RegisterBenchmark("saturation_pressure, single call", one_of_line, true);
    benchmark::RegisterBenchmark("saturation_temperature, single call", one_of_line, false);
    benchmark::RegisterBenchmark("saturation_pressure, column", line, true);
    benchmark::RegisterBenchmark("saturation_temperature, column", line, false);
    return true;
}();

} // namespace
