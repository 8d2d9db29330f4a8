// Time of the calls of IF97 for each state, beside those of the 1967 formulation on the same rows: columns on one thread and single
// calls. The two run in turn, and the processor time of the thread is counted, so that what else the machine does tells little.
#include "support/pairs.hpp"
#include "timing.hpp"

#include <ctime>
#include <ktl/if97.hpp>
#include <string>

namespace {

using namespace ktl_bench;
using ktl::Pair;
using ktl::Property;

constexpr std::size_t rows = 1 << 14;

/// Processor time of this thread, ns.
double processor_time() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return 1.0e9 * static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec);
}

struct Kind {
    const char* name;
    bool single; ///< one phase
    ktl::State (*draw)(ktl::test::Random&);
};
constexpr Kind kinds[] = {
    {"water", true,
     [](auto& random) {
         const ktl::State s = ktl::if97::state(Pair::pt, random.between(0.01, 1000.0), random.between(0.01, 350.0));
         return s.region() == ktl::Region::water ? s : ktl::State();
     }},
    {"steam", true,
     [](auto& random) {
         const ktl::State s =
             ktl::if97::state(Pair::pt, random.logarithmic(0.0062, 1000.0), random.between(0.01, 800.0));
         return s.region() == ktl::Region::steam ? s : ktl::State();
     }},
    {"near-critical", true,
     [](auto& random) {
         const ktl::State s = ktl::if97::state(Pair::pt, random.between(165.0, 1000.0), random.between(350.0, 590.0));
         return s.region() == ktl::Region::steam ? ktl::State() : s;
     }},
    {"two phases", false,
     [](auto& random) { return ktl::if97::state(Pair::tx, random.between(0.01, 350.0), random.between(0.0, 1.0)); }},
    {"two phases above 350 degC", false,
     [](auto& random) { return ktl::if97::state(Pair::tx, random.between(350.0, 373.9), random.between(0.0, 1.0)); }},
};

struct Columns {
    std::vector<double> a, b;
    std::vector<std::vector<double>> results = std::vector<std::vector<double>>(4, std::vector<double>(rows));
    std::vector<double*> outputs;
    std::vector<ktl::Status> status = std::vector<ktl::Status>(rows);

    Columns(Pair pair, const Kind& kind) {
        ktl::test::Random random(1997);
        const auto& row = ktl::test::row_of(pair);
        while (a.size() < rows) {
            const ktl::State s = kind.draw(random);
            if (!s) continue;
            a.push_back(s.get(row.a));
            b.push_back(s.get(row.b));
        }
        for (auto& column : results) outputs.push_back(column.data());
    }
};

/// newer() and older() in turn, each over all rows.
template <class Newer, class Older>
void compare(benchmark::State& bench, Newer newer, Older older) {
    double spent = 0.0;
    double spent_1967 = 0.0;
    double states = 0.0;
    for (auto _ : bench) {
        const double start = processor_time();
        newer();
        const double middle = processor_time();
        older();
        spent += middle - start;
        spent_1967 += processor_time() - middle;
        states += static_cast<double>(rows);
    }
    bench.counters["ns"] = spent / states;
    bench.counters["ns_1967"] = spent_1967 / states;
    bench.counters["times"] = spent / spent_1967;
}

void columns(benchmark::State& bench, Pair pair, const Kind& kind) {
    Columns c(pair, kind);
    using P = Property;
    const bool mixture = !kind.single;
    const std::vector<P> wanted{pair == Pair::pt ? P::v : P::p, pair == Pair::pt ? P::h : P::t,
                                pair == Pair::pt ? P::s : P::v, mixture ? P::u : P::cp};
    compare(
        bench, [&] { ktl::if97::batch(pair, c.a, c.b, wanted, c.outputs, c.status); },
        [&] { ktl::batch(pair, c.a, c.b, wanted, c.outputs, c.status); });
}

void single(benchmark::State& bench, Pair pair, const Kind& kind) {
    const Columns c(pair, kind);
    compare(
        bench,
        [&] {
            for (std::size_t i = 0; i < rows; ++i) benchmark::DoNotOptimize(ktl::if97::state(pair, c.a[i], c.b[i]));
        },
        [&] {
            for (std::size_t i = 0; i < rows; ++i) benchmark::DoNotOptimize(ktl::state(pair, c.a[i], c.b[i]));
        });
}

[[maybe_unused]] const bool registered = [] {
    for (const bool by_column : {true, false}) {
        for (const Pair pair : {Pair::pt, Pair::ph, Pair::ps, Pair::hs, Pair::px, Pair::tx}) {
            for (const Kind& kind : kinds) {
                const bool of_quality = pair == Pair::px || pair == Pair::tx;
                if (kind.single ? of_quality : pair == Pair::pt) continue;
                const char* form = by_column ? "if97 columns, " : "if97 single, ";
                const auto name = form + std::string(ktl::test::row_of(pair).name) + ", " + kind.name;
                benchmark::RegisterBenchmark(name.c_str(), by_column ? columns : single, pair, std::cref(kind))
                    ->MinTime(0.2);
            }
        }
    }
    return true;
}();

} // namespace
