// Columns of mixtures and of exergy.
#include "engine/calls/float_environment.hpp"
#include "process/blocks.hpp"
#include "process/mixing.hpp"

namespace ktl {

namespace {

using namespace process;

struct MixingArguments {
    StreamSource streams;
    double surroundings_t;
    MixtureColumns results;
};

/// Rows that are mixed together: the sums of mix_streams(), in the same order.
class MixedRows {
public:
    MixedRows(const MixingArguments& given, std::size_t row, std::size_t n) : given_(given), row_(row), n_(n) {
        for (Column* const column : {&largest_, &parts_, &h_, &s_}) column->fill(0.0);
        p_.fill(infinity);
        status_.fill(Status::solved);
        for (std::size_t k = 0; k < given.streams.count; ++k) {
            const StreamColumns stream = given.streams[k];
            for (std::size_t i = 0; i < n; ++i) {
                const double flow = stream.flow[row + i];
                if (!(flow >= 0.0 && std::isfinite(flow))) status_[i] = Status::flow_outside;
                largest_[i] = std::max(largest_[i], flow);
            }
        }
        for (std::size_t k = 0; k < given.streams.count; ++k) add(given.streams[k]);
    }

    /// Pressures and enthalpies of the mixtures; NaN in rows that are refused.
    void find_ends(Column& pressure, Column& enthalpy) {
        for (std::size_t i = 0; i < n_; ++i) {
            const double flow = parts_[i] * largest_[i];
            if (status_[i] == Status::solved && !(flow > 0.0 && std::isfinite(flow))) status_[i] = Status::flow_outside;
            if (status_[i] == Status::solved && !has_temperature(given_.surroundings_t))
                status_[i] = Status::surroundings_outside;
            const bool goes_on = status_[i] == Status::solved;
            pressure[i] = goes_on ? p_[i] : quiet_nan;
            enthalpy[i] = goes_on ? h_[i] / parts_[i] : quiet_nan;
        }
    }

    /// s: of the mixtures. Writes the columns of results; returns how many rows are solved.
    std::size_t finish(const double* s, Status* status) const {
        std::size_t solved = 0;
        for (std::size_t i = 0; i < n_; ++i) {
            if (status_[i] != Status::solved) status[i] = status_[i];
            const bool is_solved = status[i] == Status::solved;
            solved += is_solved ? 1 : 0;
            const double entropy = is_solved ? s[i] - s_[i] / parts_[i] : quiet_nan;
            const auto write = [&](std::span<double> column, double value) {
                if (!column.empty()) column[row_ + i] = value;
            };
            write(given_.results.flow, is_solved ? parts_[i] * largest_[i] : quiet_nan);
            write(given_.results.entropy_generated, entropy);
            write(given_.results.lost_work, lost_work(entropy, given_.surroundings_t));
        }
        return solved;
    }

private:
    void add(const StreamColumns& stream) {
        constexpr std::array wanted{Property::p, Property::h, Property::s};
        Column p, h, s;
        const std::array<double*, wanted.size()> outputs{p.data(), h.data(), s.data()};
        std::array<Status, rows_together> status;
        engine::solve_block(stream.pair, stream.a.data() + row_, stream.b.data() + row_, n_, wanted, outputs.data(),
                            status.data());
        for (std::size_t i = 0; i < n_; ++i) {
            const double flow = stream.flow[row_ + i];
            if (status_[i] != Status::solved || flow == 0.0) continue;
            status_[i] = status[i];
            const double part = flow / largest_[i];
            parts_[i] += part;
            h_[i] += part * h[i];
            s_[i] += part * s[i];
            p_[i] = std::min(p_[i], p[i]);
        }
    }

    const MixingArguments& given_;
    std::size_t row_, n_;
    Column largest_, parts_, h_, s_, p_;
    std::array<Status, rows_together> status_;
};

std::size_t solve_mixtures(const void* context, Pair /*pair*/, const double* a, const double* /*b*/, std::size_t n,
                           std::span<const Property> properties, double* const* outputs, Status* status) noexcept {
    const auto& given = *static_cast<const MixingArguments*>(context);
    const auto first = static_cast<std::size_t>(a - given.streams[0].a.data());
    std::size_t solved = 0;
    for (std::size_t done = 0; done < n; done += rows_together) {
        const std::size_t now = std::min(rows_together, n - done);
        MixedRows rows(given, first + done, now);
        Column pressure, enthalpy, s;
        rows.find_ends(pressure, enthalpy);
        Wanted wanted;
        for (std::size_t k = 0; k < properties.size(); ++k) wanted.add(properties[k], outputs[k] + done);
        const double* const end_s = wanted.add(Property::s, s.data());
        engine::solve_block(Pair::ph, pressure.data(), enthalpy.data(), now, {wanted.properties.data(), wanted.count},
                            wanted.outputs.data(), status + done);
        solved += rows.finish(end_s, status + done);
    }
    return solved;
}

struct ExergyArguments {
    const double* first; ///< of the first row of all: tells which rows a block has
    State dead;
    std::span<double> flow, closed;
};

std::size_t solve_exergies(const void* context, Pair pair, const double* a, const double* b, std::size_t n,
                           std::span<const Property> /*properties*/, double* const* /*outputs*/,
                           Status* status) noexcept {
    const auto& given = *static_cast<const ExergyArguments*>(context);
    std::size_t solved = 0;
    for (std::size_t done = 0; done < n; done += rows_together) {
        const std::size_t now = std::min(rows_together, n - done);
        constexpr std::array wanted{Property::v, Property::h, Property::s, Property::u};
        Column v, h, s, u;
        const std::array<double*, wanted.size()> outputs{v.data(), h.data(), s.data(), u.data()};
        engine::solve_block(pair, a + done, b + done, now, wanted, outputs.data(), status + done);
        for (std::size_t i = 0; i < now; ++i) {
            Exergy y{status[done + i]};
            if (y && !given.dead) y.status = Status::surroundings_outside;
            if (y) y = exergy_of({v[i], h[i], s[i], u[i]}, given.dead);
            status[done + i] = y.status;
            solved += y ? 1 : 0;
            const std::size_t row = static_cast<std::size_t>(a - given.first) + done + i;
            if (!given.flow.empty()) given.flow[row] = y.flow;
            if (!given.closed.empty()) given.closed[row] = y.closed;
        }
    }
    return solved;
}

} // namespace

BatchResult process::mix_columns(const StreamSource& streams, double surroundings_t,
                                 std::span<const Property> properties, std::span<double* const> outputs,
                                 const MixtureColumns& results, std::span<Status> status,
                                 const BatchOptions& options) noexcept {
    using Fault = BatchResult::Fault;
    const std::size_t n = status.size();
    const std::array columns{results.flow, results.entropy_generated, results.lost_work};
    if (streams.count == 0 || !fit_rows(columns, n)) return {.fault = Fault::lengths_differ};
    for (std::size_t k = 0; k < streams.count; ++k) {
        const StreamColumns stream = streams[k];
        if (static_cast<std::size_t>(stream.pair) >= pair_count) return {.fault = Fault::unknown_pair};
        if (stream.a.size() != n || stream.b.size() != n || stream.flow.size() != n)
            return {.fault = Fault::lengths_differ};
    }
    const MixingArguments given{streams, surroundings_t, results};
    const StreamColumns carrier = streams[0];
    const BatchResult result =
        run_batch({solve_mixtures, &given}, {carrier.pair, carrier.a, carrier.b, properties, outputs, status}, options);
    if (result.cancelled) clear_cancelled(status, columns);
    return result;
}

BatchResult mix_batch(std::span<const StreamColumns> streams, double surroundings_t,
                      std::span<const Property> properties, std::span<double* const> outputs,
                      const MixtureColumns& results, std::span<Status> status, const BatchOptions& options) noexcept {
    const auto at = [](const void* context, std::size_t i) noexcept {
        return static_cast<const StreamColumns*>(context)[i];
    };
    return mix_columns({streams.size(), streams.data(), at}, surroundings_t, properties, outputs, results, status,
                       options);
}

BatchResult exergy_batch(Pair pair, std::span<const double> a, std::span<const double> b,
                         const Surroundings& surroundings, std::span<double> flow, std::span<double> closed,
                         std::span<Status> status, const BatchOptions& options) noexcept {
    const std::array columns{flow, closed};
    if (!fit_rows(columns, a.size())) return {.fault = BatchResult::Fault::lengths_differ};
    const ExergyArguments given{a.data(), state(Pair::pt, surroundings.p, surroundings.t), flow, closed};
    const BatchResult result = run_batch({solve_exergies, &given}, {pair, a, b, {}, {}, status}, options);
    if (result.cancelled) clear_cancelled(status, columns);
    return result;
}

} // namespace ktl
