// Columns of derivatives: one phase from the properties of a block of rows, which lanes solve; mixtures row by row.
#include "engine/calls/batch.hpp"
#include "engine/calls/slopes.hpp"
#include "engine/rows/block.hpp"

#include <algorithm>
#include <array>
#include <ktl/derivative.hpp>

namespace ktl {

namespace {

/// Rows that go together; few, since their values are kept on the stack.
constexpr std::size_t rows_together = 128;
static_assert(engine::block_rows % rows_together == 0);

struct Arguments {
    const double* first; ///< of the first row of all: tells which rows a block has
    std::span<const Derivative> derivatives;
    std::span<double* const> outputs;
};

constexpr std::array wanted{Property::p,
                            Property::t,
                            Property::v,
                            Property::s,
                            Property::cp,
                            Property::cv,
                            Property::compressibility,
                            Property::expansion,
                            Property::speed_of_sound,
                            Property::region};

bool is_two_phase(Region region) { return region == Region::wet || region == Region::wet_near_critical; }

void fill_row(const Arguments& given, std::size_t row, const partial::PhaseInput& y) {
    const partial::PhaseSlopes z = partial::slopes_of(y);
    for (std::size_t k = 0; k < given.derivatives.size(); ++k) {
        const auto [of, by, at_constant] = given.derivatives[k];
        given.outputs[k][row] =
            partial::independent(by, at_constant, false)
                ? partial::ratio(partial::slope_of(of, z), partial::slope_of(by, z), partial::slope_of(at_constant, z))
                : quiet_nan;
    }
}

std::size_t solve_derivatives(const void* context, Pair pair, const double* a, const double* b, std::size_t n,
                              std::span<const Property> /*properties*/, double* const* /*outputs*/,
                              Status* status) noexcept {
    const auto& given = *static_cast<const Arguments*>(context);
    std::size_t solved = 0;
    for (std::size_t done = 0; done < n; done += rows_together) {
        const std::size_t now = std::min(rows_together, n - done);
        std::array<std::array<double, rows_together>, wanted.size()> y;
        std::array<double*, wanted.size()> outputs;
        std::transform(y.begin(), y.end(), outputs.begin(), [](auto& column) { return column.data(); });
        solved += engine::solve_block(pair, a + done, b + done, now, wanted, outputs.data(), status + done);
        for (std::size_t i = 0; i < now; ++i) {
            const std::size_t row = static_cast<std::size_t>(a - given.first) + done + i;
            const auto region = static_cast<Region>(y[9][i]);
            if (status[done + i] == Status::solved && !is_two_phase(region)) {
                fill_row(given, row,
                         {y[0][i], y[1][i], y[2][i], y[3][i], y[4][i], y[5][i], y[6][i], y[7][i], y[8][i], region});
                continue;
            }
            // A mixture, or not-a-number: by the single call.
            const State at = status[done + i] == Status::solved ? state(pair, a[done + i], b[done + i]) : State{};
            for (std::size_t k = 0; k < given.derivatives.size(); ++k) {
                const auto [of, by, at_constant] = given.derivatives[k];
                given.outputs[k][row] = derivative(at, of, by, at_constant);
            }
        }
    }
    return solved;
}

} // namespace

BatchResult derivative_batch(Pair pair, std::span<const double> a, std::span<const double> b,
                             std::span<const Derivative> derivatives, std::span<double* const> outputs,
                             std::span<Status> status, const BatchOptions& options) noexcept {
    const bool null = !a.empty() && std::find(outputs.begin(), outputs.end(), nullptr) != outputs.end();
    if (outputs.size() != derivatives.size() || null) return {.fault = BatchResult::Fault::columns_differ};
    const Arguments given{a.data(), derivatives, outputs};
    const BatchResult result = run_batch({solve_derivatives, &given}, {pair, a, b, {}, {}, status}, options);
    if (result.cancelled)
        for (std::size_t i = 0; i < a.size(); ++i)
            for (double* const output : outputs)
                if (status[i] == Status::cancelled) output[i] = quiet_nan;
    return result;
}

} // namespace ktl
