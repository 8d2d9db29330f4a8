// Columns of steps have the bits of single ones, whatever is given.
#include "engine/rows.hpp"
#include "support/compare.hpp"

#include <gtest/gtest.h>
#include <ktl/process.hpp>

namespace {

using namespace ktl;
using test::Random;
using test::same_bits;

constexpr std::array wanted{Property::t, Property::h, Property::x, Property::region, Property::v};

struct Columns {
    explicit Columns(std::size_t n) : work(n), heat(n), entropy(n), lost(n), status(n) {
        for (auto& column : ends) column.resize(n);
    }
    BatchResult run(Process process, Pair pair, const test::Rows& rows, std::span<const double> to,
                    std::span<const double> efficiency, const StepOptions& options, const BatchOptions& batch) {
        std::array<double*, wanted.size()> outputs;
        for (std::size_t k = 0; k < wanted.size(); ++k) outputs[k] = ends[k].data();
        return step_batch(process, pair, rows.a, rows.b, to, efficiency, options, wanted, outputs,
                          {work, heat, entropy, lost}, status, batch);
    }
    std::vector<double> work, heat, entropy, lost;
    std::array<std::vector<double>, wanted.size()> ends;
    std::vector<Status> status;
};

void expect_singles(Process process, Pair pair, const test::Rows& rows, std::span<const double> to,
                    std::span<const double> efficiency, const StepOptions& options, const Columns& got) {
    for (std::size_t i = 0; i < rows.a.size(); ++i) {
        const Step one = step(process, state(pair, rows.a[i], rows.b[i]), to[to.size() == 1 ? 0 : i],
                              efficiency[efficiency.size() == 1 ? 0 : i], options);
        const auto at = test::named("process ", static_cast<int>(process), ", ", test::row_of(pair).name, " ",
                                    rows.a[i], " ", rows.b[i], ", status ", static_cast<int>(one.status));
        ASSERT_EQ(got.status[i], one.status) << at;
        EXPECT_TRUE(same_bits(got.work[i], one.work) && same_bits(got.heat[i], one.heat) &&
                    same_bits(got.entropy[i], one.entropy_generated) && same_bits(got.lost[i], one.lost_work))
            << at;
        for (std::size_t k = 0; k < wanted.size(); ++k)
            EXPECT_TRUE(same_bits(got.ends[k][i], one.end.get(wanted[k]))) << at << ", property " << k;
    }
}

/// Pressures on either side, efficiencies, and any bits.
std::vector<double> ends_of(Random& random, Process process, const test::Rows& rows) {
    std::vector<double> to;
    const Property kind = process == Process::heating_to_t   ? Property::t
                          : process == Process::heating_to_h ? Property::h
                          : process == Process::heating_to_x ? Property::x
                                                             : Property::p;
    for (std::size_t i = 0; i < rows.a.size(); ++i) {
        const double plausible = test::plausible(random, kind);
        const bool any = random.below(12) == 0;
        const std::uint64_t bits = random.bits();
        to.push_back(any ? std::bit_cast<double>(bits) : plausible);
    }
    return to;
}

TEST(StepColumns, HaveTheBitsOfSingleSteps) {
    Random random(23);
    for (std::size_t k = 0; k < process_count; ++k) {
        const auto process = static_cast<Process>(k);
        const bool polytropic = process == Process::polytropic_expansion || process == Process::polytropic_compression;
        for (const Pair pair : {Pair::pt, Pair::ph, Pair::px, Pair::hs}) {
            const test::Rows rows(random, pair, polytropic ? 60 : 700);
            const std::vector<double> to = ends_of(random, process, rows);
            std::vector<double> efficiency;
            for (std::size_t i = 0; i < rows.a.size(); ++i) efficiency.push_back(random.between(0.05, 1.05));
            for (const double factor : {0.0, 1.2}) {
                const StepOptions options{.wetness_factor = factor, .surroundings_t = 20.0};
                Columns got(rows.a.size());
                const BatchResult result = got.run(process, pair, rows, to, efficiency, options, {.threads = 2});
                EXPECT_EQ(result.fault, BatchResult::Fault::none);
                EXPECT_EQ(result.solved,
                          static_cast<std::size_t>(std::count(got.status.begin(), got.status.end(), Status::solved)));
                expect_singles(process, pair, rows, to, efficiency, options, got);
            }
            const std::array one_pressure{50.0}, one_efficiency{0.87};
            Columns got(rows.a.size());
            got.run(process, pair, rows, one_pressure, one_efficiency, {}, {});
            expect_singles(process, pair, rows, one_pressure, one_efficiency, {}, got);
        }
    }
}

TEST(StepColumns, SayWhatDoesNotFit) {
    using Fault = BatchResult::Fault;
    Random random(29);
    const test::Rows rows(random, Pair::pt, 4);
    const std::vector<double> one(1, 1.0), three(3, 1.0);
    Columns columns(4);
    const auto fault = [&](Process process, Pair pair, std::span<const double> to, std::span<const double> efficiency) {
        return columns.run(process, pair, rows, to, efficiency, {}, {}).fault;
    };
    EXPECT_EQ(fault(Process::expansion, Pair::pt, one, one), Fault::none);
    EXPECT_EQ(fault(static_cast<Process>(8), Pair::pt, one, one), Fault::unknown_process);
    EXPECT_EQ(fault(Process::expansion, static_cast<Pair>(99), one, one), Fault::unknown_pair);
    EXPECT_EQ(fault(Process::expansion, Pair::pt, three, one), Fault::lengths_differ);
    EXPECT_EQ(fault(Process::expansion, Pair::pt, one, {}), Fault::lengths_differ);
    columns.work.resize(3);
    EXPECT_EQ(fault(Process::expansion, Pair::pt, one, one), Fault::lengths_differ);
    columns.work.clear();
    columns.heat.clear();
    EXPECT_EQ(fault(Process::expansion, Pair::pt, one, one), Fault::none);
}

TEST(StepColumns, MarkRowsThatWereCancelled) {
    Random random(31);
    const test::Rows rows(random, Pair::pt, 200000);
    const std::array to{0.5}, efficiency{0.9};
    Columns columns(rows.a.size());
    const BatchResult result = columns.run(Process::throttling, Pair::pt, rows, to, efficiency, {},
                                           {.progress = [](void*, std::size_t, std::size_t) { return false; }});
    EXPECT_TRUE(result.cancelled);
    EXPECT_EQ(columns.status.back(), Status::cancelled);
    EXPECT_TRUE(std::isnan(columns.work.back()) && std::isnan(columns.lost.back()));
}

TEST(MixtureColumns, HaveTheBitsOfSingleMixtures) {
    Random random(43);
    constexpr std::size_t n = 500;
    const test::Rows first(random, Pair::pt, n), second(random, Pair::px, n), third(random, Pair::hs, n);
    std::array<std::vector<double>, 3> flows;
    for (auto& flow : flows)
        for (std::size_t i = 0; i < n; ++i) {
            const double plausible = random.between(0.0, 10.0);
            const unsigned kind = random.below(10);
            const std::uint64_t bits = random.bits();
            flow.push_back(kind < 3 ? 0.0 : kind == 3 ? std::bit_cast<double>(bits) : plausible);
        }
    const StreamColumns streams[] = {{Pair::pt, first.a, first.b, flows[0]},
                                     {Pair::px, second.a, second.b, flows[1]},
                                     {Pair::hs, third.a, third.b, flows[2]}};
    std::vector<double> t(n), flow(n), entropy(n), lost(n);
    std::vector<Status> status(n);
    const std::array properties{Property::t};
    const std::array outputs{t.data()};
    for (const double surroundings : {20.0, -300.0}) {
        const BatchResult result =
            mix_batch(streams, surroundings, properties, outputs, {flow, entropy, lost}, status, {.threads = 2});
        EXPECT_EQ(result.fault, BatchResult::Fault::none);
        for (std::size_t i = 0; i < n; ++i) {
            const Stream single[] = {{state(Pair::pt, first.a[i], first.b[i]), flows[0][i]},
                                     {state(Pair::px, second.a[i], second.b[i]), flows[1][i]},
                                     {state(Pair::hs, third.a[i], third.b[i]), flows[2][i]}};
            const Mixture y = mix(single, surroundings);
            ASSERT_EQ(status[i], y.status) << i;
            EXPECT_TRUE(same_bits(t[i], y.end.t()) && same_bits(flow[i], y.flow) &&
                        same_bits(entropy[i], y.entropy_generated) && same_bits(lost[i], y.lost_work))
                << i;
        }
        if (surroundings > 0.0) {
            EXPECT_GT(result.solved, n / 20);
        }
    }
    using Fault = BatchResult::Fault;
    EXPECT_EQ(mix_batch({}, 20.0, {}, {}, {}, status).fault, Fault::lengths_differ);
    EXPECT_EQ(mix_batch(streams, 20.0, {}, {}, {.flow = {flow.data(), 3}}, status).fault, Fault::lengths_differ);
    EXPECT_EQ(mix_batch(streams, 20.0, properties, {}, {}, status).fault, Fault::columns_differ);
    const StreamColumns no_pair{static_cast<Pair>(77), first.a, first.b, flows[0]};
    EXPECT_EQ(mix_batch({&no_pair, 1}, 20.0, {}, {}, {}, status).fault, Fault::unknown_pair);
}

TEST(ExergyColumns, HaveTheBitsOfSingleCalls) {
    Random random(47);
    const test::Rows rows(random, Pair::ph, 300);
    std::vector<double> flow(300), closed(300);
    std::vector<Status> status(300);
    for (const Surroundings& outside : {Surroundings{1.0, 20.0}, Surroundings{1.0, -20.0}}) {
        exergy_batch(Pair::ph, rows.a, rows.b, outside, flow, closed, status);
        for (std::size_t i = 0; i < 300; ++i) {
            const Exergy y = exergy(state(Pair::ph, rows.a[i], rows.b[i]), outside);
            EXPECT_EQ(status[i], y.status);
            EXPECT_TRUE(same_bits(flow[i], y.flow) && same_bits(closed[i], y.closed)) << i;
        }
    }
    EXPECT_EQ(exergy_batch(Pair::ph, rows.a, rows.b, {}, {flow.data(), 2}, closed, status).fault,
              BatchResult::Fault::lengths_differ);
    EXPECT_EQ(exergy_batch(Pair::ph, rows.a, rows.b, {}, {}, {}, status).fault, BatchResult::Fault::none);
}

} // namespace
