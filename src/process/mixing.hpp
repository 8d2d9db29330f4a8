// The mixture of streams, wherever they are kept.
#pragma once

#include "process/rules.hpp"

namespace ktl::process {

/// flow_of(i), state_of(i): of stream i < count. Flows are counted in parts of the largest, so that no sum overflows.
template <class FlowOf, class StateOf>
Mixture mix_streams(std::size_t count, FlowOf&& flow_of, StateOf&& state_of, double surroundings_t) {
    const auto refused = [](Status status) -> Mixture { return {.status = status, .end = {}}; };
    double largest = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        if (!(flow_of(i) >= 0.0 && std::isfinite(flow_of(i)))) return refused(Status::flow_outside);
        largest = std::max(largest, flow_of(i));
    }
    double parts = 0.0, h = 0.0, s = 0.0, p = infinity;
    for (std::size_t i = 0; i < count; ++i) {
        if (flow_of(i) == 0.0) continue;
        const State& at = state_of(i);
        if (!at) return refused(at.status());
        const double part = flow_of(i) / largest;
        parts += part;
        h += part * at.h();
        s += part * at.s();
        p = std::min(p, at.p());
    }
    const double flow = parts * largest;
    if (!(flow > 0.0 && std::isfinite(flow))) return refused(Status::flow_outside);
    if (!has_temperature(surroundings_t)) return refused(Status::surroundings_outside);
    Mixture y;
    y.end = state(Pair::ph, p, h / parts);
    y.status = y.end.status();
    if (!y) return y;
    y.flow = flow;
    y.entropy_generated = y.end.s() - s / parts;
    y.lost_work = lost_work(y.entropy_generated, surroundings_t);
    return y;
}

/// The streams of columns of mixtures, wherever they are kept.
struct StreamSource {
    std::size_t count;
    const void* context;
    StreamColumns (*at)(const void* context, std::size_t i) noexcept;

    [[nodiscard]] StreamColumns operator[](std::size_t i) const { return at(context, i); }
};

/// mix_batch() of these streams; status has the number of rows.
BatchResult mix_columns(const StreamSource& streams, double surroundings_t, std::span<const Property> properties,
                        std::span<double* const> outputs, const MixtureColumns& results, std::span<Status> status,
                        const BatchOptions& options) noexcept;

} // namespace ktl::process
