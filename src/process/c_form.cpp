// The calls of ktl/process.h.
#include "engine/calls/c_form.hpp"
#include "engine/calls/float_environment.hpp"
#include "process/mixing.hpp"

#include <ktl/process.h>

namespace {

using namespace ktl;
using c_form::enumerator;

constexpr bool same(int c, Process cpp) { return c == static_cast<int>(cpp); }
static_assert(same(KTL_PROCESS_EXPANSION, Process::expansion) && same(KTL_PROCESS_COMPRESSION, Process::compression) &&
              same(KTL_PROCESS_POLYTROPIC_EXPANSION, Process::polytropic_expansion) &&
              same(KTL_PROCESS_POLYTROPIC_COMPRESSION, Process::polytropic_compression) &&
              same(KTL_PROCESS_THROTTLING, Process::throttling) &&
              same(KTL_PROCESS_HEATING_TO_T, Process::heating_to_t) &&
              same(KTL_PROCESS_HEATING_TO_H, Process::heating_to_h) &&
              same(KTL_PROCESS_HEATING_TO_X, Process::heating_to_x) && KTL_PROCESS_COUNT == process_count);

State state_of(int pair, double a, double b) { return state(enumerator<Pair>(pair), a, b); }

StepOptions options_of(const ktl_step_options* given) {
    if (given == nullptr) return {};
    return {.wetness_factor = given->wetness_factor, .surroundings_t = given->surroundings_t};
}

/// A column of that many rows; none if it is null.
template <class T>
std::span<T> column(T* first, std::size_t rows) {
    return {first, first != nullptr ? rows : 0};
}

// Property and Status have the size of a byte and any value of one.
std::span<const Property> properties_of(const unsigned char* first, std::size_t count) {
    return {reinterpret_cast<const Property*>(first), count};
}
std::span<Status> statuses_of(unsigned char* first, std::size_t rows) {
    return {reinterpret_cast<Status*>(first), rows};
}

/// What the streams of ktl_mix_batch are read from.
struct Streams {
    const ktl_stream_columns* first;
    std::size_t rows;

    static StreamColumns at(const void* context, std::size_t i) noexcept {
        const Streams& all = *static_cast<const Streams*>(context);
        const ktl_stream_columns& stream = all.first[i];
        return {enumerator<Pair>(stream.pair), column(stream.a, all.rows), column(stream.b, all.rows),
                column(stream.flow, all.rows)};
    }
};

} // namespace

int ktl_step_of(int process, int pair, double a, double b, double to, double efficiency,
                const ktl_step_options* options, ktl_step* step) {
    const Step y = ktl::step(enumerator<Process>(process), state_of(pair, a, b), to, efficiency, options_of(options));
    const int status = static_cast<int>(y.status);
    if (step == nullptr) return status;
    step->status = status;
    step->work = y.work;
    step->heat = y.heat;
    step->entropy_generated = y.entropy_generated;
    step->lost_work = y.lost_work;
    c_form::hand_over(y.end, &step->end);
    return status;
}

ktl_batch_result ktl_step_batch(int process, int pair, const double* a, const double* b, const double* to,
                                const double* efficiency, size_t rows, const ktl_step_options* step_options,
                                const unsigned char* properties, double* const* outputs, size_t columns,
                                const ktl_step_columns* results, unsigned char* status,
                                const ktl_batch_options* options) {
    const bool given = a != nullptr && b != nullptr && to != nullptr && efficiency != nullptr && status != nullptr;
    if (rows != 0 && !given) return {KTL_FAULT_LENGTHS_DIFFER, 0, 0};
    if (columns != 0 && (properties == nullptr || outputs == nullptr)) return {KTL_FAULT_COLUMNS_DIFFER, 0, 0};
    const ktl_step_columns wanted = results != nullptr ? *results : ktl_step_columns{};
    c_form::Options batch_options(options);
    return c_form::result_of(step_batch(enumerator<Process>(process), enumerator<Pair>(pair), {a, rows}, {b, rows},
                                        {to, rows}, {efficiency, rows}, options_of(step_options),
                                        properties_of(properties, columns), {outputs, columns},
                                        {column(wanted.work, rows), column(wanted.heat, rows),
                                         column(wanted.entropy_generated, rows), column(wanted.lost_work, rows)},
                                        statuses_of(status, rows), batch_options.options()));
}

ktl_batch_result ktl_mix_batch(const ktl_stream_columns* streams, size_t stream_count, size_t rows,
                               double surroundings_t, const unsigned char* properties, double* const* outputs,
                               size_t columns, const ktl_mixture_columns* results, unsigned char* status,
                               const ktl_batch_options* options) {
    if (streams == nullptr || (rows != 0 && status == nullptr)) return {KTL_FAULT_LENGTHS_DIFFER, 0, 0};
    if (columns != 0 && (properties == nullptr || outputs == nullptr)) return {KTL_FAULT_COLUMNS_DIFFER, 0, 0};
    const ktl_mixture_columns wanted = results != nullptr ? *results : ktl_mixture_columns{};
    const Streams all{streams, rows};
    c_form::Options batch_options(options);
    return c_form::result_of(process::mix_columns(
        {stream_count, &all, Streams::at}, surroundings_t, properties_of(properties, columns), {outputs, columns},
        {column(wanted.flow, rows), column(wanted.entropy_generated, rows), column(wanted.lost_work, rows)},
        statuses_of(status, rows), batch_options.options()));
}

ktl_batch_result ktl_exergy_batch(int pair, const double* a, const double* b, size_t rows, double p0, double t0,
                                  double* flow, double* closed, unsigned char* status,
                                  const ktl_batch_options* options) {
    if (rows != 0 && (a == nullptr || b == nullptr || status == nullptr)) return {KTL_FAULT_LENGTHS_DIFFER, 0, 0};
    c_form::Options batch_options(options);
    return c_form::result_of(exergy_batch(enumerator<Pair>(pair), {a, rows}, {b, rows}, {p0, t0}, column(flow, rows),
                                          column(closed, rows), statuses_of(status, rows), batch_options.options()));
}

int ktl_mix(int pair, const double* a, const double* b, const double* flow, size_t streams, double surroundings_t,
            ktl_mixture* mixture) {
    if (a == nullptr || b == nullptr || flow == nullptr) streams = 0;
    const Mixture y = in_float_environment([&] {
        return process::mix_streams(
            streams, [&](std::size_t i) { return flow[i]; }, [&](std::size_t i) { return state_of(pair, a[i], b[i]); },
            surroundings_t);
    });
    const int status = static_cast<int>(y.status);
    if (mixture == nullptr) return status;
    mixture->status = status;
    mixture->flow = y.flow;
    mixture->entropy_generated = y.entropy_generated;
    mixture->lost_work = y.lost_work;
    c_form::hand_over(y.end, &mixture->end);
    return status;
}

int ktl_exergy_of(int pair, double a, double b, double p0, double t0, double* flow, double* closed) {
    const Exergy y = exergy(state_of(pair, a, b), {p0, t0});
    if (flow != nullptr) *flow = y.flow;
    if (closed != nullptr) *closed = y.closed;
    return static_cast<int>(y.status);
}

double ktl_superheat(int pair, double a, double b) { return superheat(state_of(pair, a, b)); }
double ktl_subcooling(int pair, double a, double b) { return subcooling(state_of(pair, a, b)); }
double ktl_wetness(int pair, double a, double b) { return wetness(state_of(pair, a, b)); }
double ktl_latent_heat(int pair, double a, double b) { return latent_heat(state_of(pair, a, b)); }

int ktl_saturation_by(int vapour, int property, double value, double* t) {
    const SaturationPoints y = saturation_by(enumerator<SaturatedPhase>(vapour), enumerator<Property>(property), value);
    if (t != nullptr) std::copy(y.t.begin(), y.t.end(), t);
    return static_cast<int>(y.count);
}
