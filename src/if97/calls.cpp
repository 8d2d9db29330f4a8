// The public calls of ktl/if97.hpp.
#include <ktl/if97.hpp>

#include "engine/calls/batch.hpp"
#include "engine/calls/float_environment.hpp"
#include "engine/calls/state.hpp"
#include "engine/rows/block.hpp"
#include "if97/state.hpp"

#include <array>

namespace ktl::if97 {

namespace {

double value(Property property, const RowState& row) {
    const bool known = row.status == Status::solved ||
                       (row.status == Status::undetermined && (property == Property::p || property == Property::t));
    return known ? engine::value(property, row.bulk, row.x, row.region) : quiet_nan;
}

/// One block of rows: those that take a start are brought together and solved after the 1967 formulation first, in lanes.
std::size_t solve_block(const void* /*context*/, Pair pair, const double* a, const double* b, std::size_t n,
                        std::span<const Property> properties, double* const* outputs, Status* status) noexcept {
    using Column = std::array<double, engine::block_rows>;
    Column first, second, p, t, v, region;
    std::array<Status, engine::block_rows> start_status;
    std::size_t count = 0;
    for (std::size_t i = 0; i < n; ++i) {
        if (!takes_start(pair, a[i], b[i])) continue;
        first[count] = a[i];
        second[count++] = b[i];
    }
    if (count != 0) {
        constexpr std::array wanted{Property::p, Property::t, Property::v, Property::region};
        const std::array<double*, 4> columns{p.data(), t.data(), v.data(), region.data()};
        engine::solve_block(pair, first.data(), second.data(), count, wanted, columns.data(), start_status.data());
    }
    std::size_t solved = 0;
    std::size_t next = 0;
    for (std::size_t i = 0; i < n; ++i) {
        Start start;
        if (takes_start(pair, a[i], b[i])) {
            if (start_status[next] == Status::solved)
                start = {static_cast<Region>(region[next]), p[next], t[next], v[next]};
            ++next;
        }
        const RowState row = solve_row(pair, a[i], b[i], start);
        status[i] = row.status;
        solved += row.status == Status::solved ? 1 : 0;
        for (std::size_t k = 0; k < properties.size(); ++k) outputs[k][i] = value(properties[k], row);
    }
    return solved;
}

State solve(Pair pair, double a, double b) noexcept {
    Start start;
    if (takes_start(pair, a, b)) {
        const RowState row = engine::solve_row(pair, a, b);
        if (row.status == Status::solved) start = {row.region, row.bulk.p.value, row.bulk.t.value, row.bulk.v.value};
    }
    return StateBuilder::state(solve_row(pair, a, b, start));
}

double pressure_on_line(double t) {
    const bool on_line = t >= t_min && t <= saturation::critical_temperature;
    return on_line ? saturation::pressure(Scalar(t)).value : quiet_nan;
}

double temperature_on_line(double p) {
    if (!(p >= p_min && p <= saturation::critical_pressure)) return quiet_nan;
    const double t = saturation::temperature(Scalar(p)).value;
    return t >= t_min * (1.0 - searches::limit_rounding) ? t : quiet_nan;
}

} // namespace

State state(Pair pair, double a, double b) noexcept {
    return in_float_environment([&] { return solve(pair, a, b); });
}

const char* sentence(Status status) noexcept {
    if (status == Status::above_critical)
        return "there is no quality above the critical point, 220.64 bar and 373.946 degC";
    return ktl::sentence(status);
}

double saturation_pressure(double t) noexcept {
    return in_float_environment([&] { return pressure_on_line(t); });
}

double saturation_temperature(double p) noexcept {
    return in_float_environment([&] { return temperature_on_line(p); });
}

BatchResult batch(Pair pair, std::span<const double> a, std::span<const double> b, std::span<const Property> properties,
                  std::span<double* const> outputs, std::span<Status> status, const BatchOptions& options) noexcept {
    if (!has_pair(pair)) return {.fault = BatchResult::Fault::unknown_pair};
    return run_batch({solve_block}, {pair, a, b, properties, outputs, status}, options);
}

} // namespace ktl::if97
