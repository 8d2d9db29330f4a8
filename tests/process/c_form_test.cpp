// The calls of process.h against those of C++.
#include "engine/rows.hpp"

#include <gtest/gtest.h>
#include <ktl/process.h>
#include <ktl/process.hpp>

namespace {

using namespace ktl;
using test::same_bits;

TEST(ProcessInC, GivesWhatTheCallsOfCppGive) {
    test::Random random(37);
    for (int process = -1; process <= KTL_PROCESS_COUNT; ++process) {
        const test::Rows rows(random, Pair::pt, 40);
        const ktl_step_options options{1.1, 20.0};
        std::vector<double> to, efficiency(40, 0.9), h(40), work(40), lost(40);
        for (const double p : rows.a) to.push_back(p * random.between(0.2, 1.5));
        std::vector<unsigned char> status(40);
        const unsigned char wanted = KTL_PROPERTY_H;
        double* const output = h.data();
        const ktl_step_columns results{work.data(), nullptr, nullptr, lost.data()};
        const ktl_batch_result batch =
            ktl_step_batch(process, KTL_PAIR_PT, rows.a.data(), rows.b.data(), to.data(), efficiency.data(), 40,
                           &options, &wanted, &output, 1, &results, status.data(), nullptr);
        const bool known = process >= 0 && process < KTL_PROCESS_COUNT;
        EXPECT_EQ(batch.fault, known ? KTL_FAULT_NONE : KTL_FAULT_UNKNOWN_PROCESS);
        for (std::size_t i = 0; i < 40; ++i) {
            ktl_step c;
            const int code = ktl_step_of(process, KTL_PAIR_PT, rows.a[i], rows.b[i], to[i], 0.9, &options, &c);
            const Step cpp = step(static_cast<Process>(process), state(Pair::pt, rows.a[i], rows.b[i]), to[i], 0.9,
                                  {.wetness_factor = 1.1, .surroundings_t = 20.0});
            EXPECT_EQ(code, static_cast<int>(cpp.status));
            EXPECT_EQ(c.status, code);
            EXPECT_TRUE(same_bits(c.work, cpp.work) && same_bits(c.heat, cpp.heat) &&
                        same_bits(c.entropy_generated, cpp.entropy_generated) &&
                        same_bits(c.lost_work, cpp.lost_work) && same_bits(c.end.h, cpp.end.h()) &&
                        same_bits(c.end.t, cpp.end.t()));
            if (!known) continue;
            EXPECT_EQ(status[i], code);
            EXPECT_TRUE(same_bits(h[i], cpp.end.h()) && same_bits(work[i], cpp.work) &&
                        same_bits(lost[i], cpp.lost_work));
        }
    }
    const double p[] = {10.0, 8.0}, t[] = {300.0, 60.0}, flow[] = {2.0, 1.0};
    ktl_mixture c;
    EXPECT_EQ(ktl_mix(KTL_PAIR_PT, p, t, flow, 2, 15.0, &c), KTL_STATUS_SOLVED);
    const Stream streams[] = {{state(Pair::pt, 10.0, 300.0), 2.0}, {state(Pair::pt, 8.0, 60.0), 1.0}};
    const Mixture cpp = mix(streams);
    EXPECT_TRUE(c.end.h == cpp.end.h() && c.lost_work == cpp.lost_work && c.flow == 3.0 &&
                c.entropy_generated == cpp.entropy_generated);
    double of_stream, of_mass, at[3];
    EXPECT_EQ(ktl_exergy_of(KTL_PAIR_PT, 10.0, 300.0, 1.0, 20.0, &of_stream, &of_mass), KTL_STATUS_SOLVED);
    const Exergy exergy_of_stream = exergy(streams[0].state, {1.0, 20.0});
    EXPECT_TRUE(of_stream == exergy_of_stream.flow && of_mass == exergy_of_stream.closed);
    EXPECT_EQ(ktl_superheat(KTL_PAIR_PT, 10.0, 300.0), superheat(streams[0].state));
    EXPECT_EQ(ktl_subcooling(KTL_PAIR_PT, 8.0, 60.0), subcooling(streams[1].state));
    EXPECT_EQ(ktl_latent_heat(KTL_PAIR_PT, 8.0, 60.0), latent_heat(streams[1].state));
    EXPECT_EQ(ktl_wetness(KTL_PAIR_PX, 8.0, 0.75), 0.25);
    EXPECT_EQ(ktl_saturation_by(1, KTL_PROPERTY_H, 2800.0, at), 2);
    EXPECT_EQ(at[1], saturation_by(SaturatedPhase::vapour, Property::h, 2800.0).t[1]);
    EXPECT_TRUE(std::isnan(at[2]));
}

TEST(ProcessInC, BearsNullPointersAndNumbersOfNoEnumeration) {
    EXPECT_EQ(ktl_step_of(KTL_PROCESS_EXPANSION, KTL_PAIR_PT, 10.0, 300.0, 1.0, 0.8, nullptr, nullptr),
              KTL_STATUS_SOLVED);
    EXPECT_EQ(ktl_step_of(KTL_PROCESS_EXPANSION, -7, 10.0, 300.0, 1.0, 0.8, nullptr, nullptr), KTL_STATUS_NO_STATE);
    EXPECT_EQ(ktl_mix(KTL_PAIR_PT, nullptr, nullptr, nullptr, 2, 15.0, nullptr), KTL_STATUS_FLOW_OUTSIDE);
    EXPECT_EQ(ktl_exergy_of(KTL_PAIR_PT, 10.0, 300.0, 1.0, -20.0, nullptr, nullptr), KTL_STATUS_SURROUNDINGS_OUTSIDE);
    EXPECT_EQ(ktl_saturation_by(2, KTL_PROPERTY_H, 2800.0, nullptr), 0);
    EXPECT_EQ(ktl_saturation_by(-1, 1 << 20, 2800.0, nullptr), 0);
    const double one = 1.0;
    const auto fault = [&](const double* column, std::size_t columns) {
        unsigned char status;
        return ktl_step_batch(KTL_PROCESS_THROTTLING, KTL_PAIR_PT, column, &one, &one, &one, 1, nullptr, nullptr,
                              nullptr, columns, nullptr, &status, nullptr)
            .fault;
    };
    EXPECT_EQ(fault(nullptr, 0), KTL_FAULT_LENGTHS_DIFFER);
    EXPECT_EQ(fault(&one, 1), KTL_FAULT_COLUMNS_DIFFER);
    EXPECT_EQ(fault(&one, 0), KTL_FAULT_NONE);
}

/// Two streams of different pairs and the exergy of one of them: the C++ calls, row by row; then what is refused.
TEST(ProcessInC, MixesColumnsAndHasTheirExergy) {
    constexpr std::size_t rows = 5;
    const double p[rows] = {6.0, 6.0, 6.0, 6.0, -1.0}, x[rows] = {1.0, 0.9, 0.5, 0.0, 0.5};
    const double h[rows] = {500.0, 400.0, 300.0, 5000.0, 100.0};
    const double flow[rows] = {1.0, 2.0, -1.0, 1.0, 1.0}, other[rows] = {3.0, 0.0, 1.0, 1.0, 1.0};
    const ktl_stream_columns streams[] = {{KTL_PAIR_PX, p, x, flow}, {KTL_PAIR_PH, p, h, other}};
    double t[rows], sum[rows], lost[rows], stream_exergy[rows], closed[rows];
    double* const outputs[] = {t};
    const unsigned char properties[] = {KTL_PROPERTY_T};
    const ktl_mixture_columns wanted{sum, nullptr, lost};
    unsigned char status[rows];
    const ktl_batch_result result =
        ktl_mix_batch(streams, 2, rows, 20.0, properties, outputs, 1, &wanted, status, nullptr);
    EXPECT_EQ(result.fault, KTL_FAULT_NONE);
    EXPECT_EQ(result.solved, 2U);
    for (std::size_t i = 0; i < rows; ++i) {
        const Stream both[] = {{state(Pair::px, p[i], x[i]), flow[i]}, {state(Pair::ph, p[i], h[i]), other[i]}};
        const Mixture y = mix(both, 20.0);
        EXPECT_EQ(status[i], static_cast<unsigned char>(y.status));
        EXPECT_TRUE(same_bits(t[i], y.end.t()) && same_bits(sum[i], y.flow) && same_bits(lost[i], y.lost_work)) << i;
    }
    EXPECT_EQ(ktl_exergy_batch(KTL_PAIR_PX, p, x, rows, 1.0, 20.0, stream_exergy, closed, status, nullptr).solved, 4U);
    for (std::size_t i = 0; i < rows; ++i) {
        const Exergy y = exergy(state(Pair::px, p[i], x[i]), {1.0, 20.0});
        EXPECT_EQ(status[i], static_cast<unsigned char>(y.status));
        EXPECT_TRUE(same_bits(stream_exergy[i], y.flow) && same_bits(closed[i], y.closed)) << i;
    }
    const auto fault_of = [&](const ktl_stream_columns& stream, size_t count, size_t columns) {
        return ktl_mix_batch(&stream, count, rows, 20.0, nullptr, outputs, columns, nullptr, status, nullptr).fault;
    };
    EXPECT_EQ(fault_of(streams[0], 1, 0), KTL_FAULT_NONE);
    EXPECT_EQ(fault_of(streams[0], 0, 0), KTL_FAULT_LENGTHS_DIFFER);
    EXPECT_EQ(fault_of({KTL_PAIR_PX, p, nullptr, flow}, 1, 0), KTL_FAULT_LENGTHS_DIFFER);
    EXPECT_EQ(fault_of({99, p, x, flow}, 1, 0), KTL_FAULT_UNKNOWN_PAIR);
    EXPECT_EQ(fault_of(streams[0], 1, 1), KTL_FAULT_COLUMNS_DIFFER);
    EXPECT_EQ(ktl_mix_batch(nullptr, 1, rows, 20.0, nullptr, nullptr, 0, nullptr, status, nullptr).fault,
              KTL_FAULT_LENGTHS_DIFFER);
    EXPECT_EQ(ktl_exergy_batch(KTL_PAIR_PX, p, nullptr, rows, 1.0, 20.0, nullptr, nullptr, status, nullptr).fault,
              KTL_FAULT_LENGTHS_DIFFER);
}

} // namespace
