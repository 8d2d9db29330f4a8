// Columns of steps: each part of a step is solved for a block of rows in lanes; polytropic lines row by row.
#include "process/blocks.hpp"
#include "process/rules.hpp"

namespace ktl {

namespace {

using namespace process;

/// The arguments that a block of rows does not bring along.
struct Arguments {
    Process process;
    const double* first; ///< of the first row of all: tells which rows a block has
    std::span<const double> to, efficiency;
    StepOptions options;
    StepColumns results;
};

/// A value for each row, or one for all.
double value_of(std::span<const double> column, std::size_t row) { return column[column.size() == 1 ? 0 : row]; }

/// Rows that go together, from their initial states to the values that fix their ends.
class Rows {
public:
    Rows(const Arguments& given, std::size_t row, std::size_t n) : given_(given), row_(row), n_(n) {}

    void begin(Pair pair, const double* a, const double* b) {
        Column x, region;
        std::array<Status, rows_together> status;
        constexpr std::array wanted{Property::p, Property::h, Property::s, Property::x, Property::region};
        const std::array<double*, wanted.size()> outputs{p_.data(), h_.data(), s_.data(), x.data(), region.data()};
        engine::solve_block(pair, a, b, n_, wanted, outputs.data(), status.data());
        for (std::size_t i = 0; i < n_; ++i) {
            wetness_[i] = water_fraction(static_cast<Region>(region[i]), x[i]);
            status_[i] = refusal(given_.process, start(i, status[i]), to(i), efficiency(i), given_.options);
        }
    }

    /// The values that fix the ends: pressures, and what end_pair() says. NaN in rows that are refused.
    void find_ends(Column& pressure, Column& value) {
        for (std::size_t i = 0; i < n_; ++i)
            pressure[i] = !goes_on(i) ? quiet_nan : is_heating(given_.process) ? p_[i] : to(i);
        if (is_heating(given_.process))
            for (std::size_t i = 0; i < n_; ++i) value[i] = to(i);
        else if (given_.process == Process::throttling)
            value = h_;
        else if (is_polytropic(given_.process))
            find_polytropic(value);
        else
            find_isentropic(pressure, value);
        for (std::size_t i = 0; i < n_; ++i)
            if (!goes_on(i)) pressure[i] = value[i] = quiet_nan;
    }

    /// h, s: of the ends. Writes the columns of results; returns how many rows are solved.
    std::size_t finish(const double* h, const double* s, Status* status) {
        std::size_t solved = 0;
        for (std::size_t i = 0; i < n_; ++i) {
            if (!goes_on(i)) status[i] = status_[i];
            Results y{quiet_nan, quiet_nan, quiet_nan, quiet_nan};
            if (status[i] == Status::solved) {
                y = process::results(given_.process, start(i, Status::solved), h[i], s[i],
                                     given_.options.surroundings_t);
                ++solved;
            }
            write(given_.results.work, i, y.work);
            write(given_.results.heat, i, y.heat);
            write(given_.results.entropy_generated, i, y.entropy_generated);
            write(given_.results.lost_work, i, y.lost_work);
        }
        return solved;
    }

private:
    [[nodiscard]] bool goes_on(std::size_t i) const { return status_[i] == Status::solved; }
    [[nodiscard]] double to(std::size_t i) const { return value_of(given_.to, row_ + i); }
    [[nodiscard]] double efficiency(std::size_t i) const { return value_of(given_.efficiency, row_ + i); }
    [[nodiscard]] Start start(std::size_t i, Status status) const { return {status, p_[i], h_[i], s_[i], wetness_[i]}; }
    void write(std::span<double> column, std::size_t i, double value) const {
        if (!column.empty()) column[row_ + i] = value;
    }

    void find_polytropic(Column& value) {
        for (std::size_t i = 0; i < n_; ++i) {
            if (!goes_on(i)) continue;
            const PolytropicEnd end = polytropic_end(given_.process, start(i, status_[i]), to(i), efficiency(i),
                                                     given_.options.wetness_factor);
            status_[i] = end.status;
            value[i] = end.s;
        }
    }

    void find_isentropic(const Column& pressure, Column& value) {
        std::array<Status, rows_together> status;
        constexpr std::array wanted{Property::h};
        Column ideal;
        solve(Pair::ps, pressure, s_, wanted, ideal, status);
        for (std::size_t i = 0; i < n_; ++i)
            if (goes_on(i)) status_[i] = status[i];
        const double factor = given_.options.wetness_factor;
        Column left;
        for (std::size_t i = 0; i < n_; ++i) left[i] = efficiency(i);
        if (expands(given_.process) && factor != 0.0) {
            Column quality, water, steam;
            quality.fill(0.0);
            solve(Pair::px, pressure, quality, wanted, water, status);
            quality.fill(1.0);
            solve(Pair::px, pressure, quality, wanted, steam, status);
            for (std::size_t i = 0; i < n_; ++i) {
                if (!goes_on(i)) continue;
                left[i] =
                    efficiency_of_wet(left[i], factor, start(i, status_[i]), h_[i] - ideal[i], {water[i], steam[i]});
                if (!is_efficiency(left[i])) status_[i] = Status::efficiency_outside;
            }
        }
        for (std::size_t i = 0; i < n_; ++i) value[i] = end_enthalpy(given_.process, h_[i], ideal[i], left[i]);
    }

    void solve(Pair pair, const Column& a, const Column& b, std::span<const Property> wanted, Column& y,
               std::array<Status, rows_together>& status) const {
        double* const output = y.data();
        engine::solve_block(pair, a.data(), b.data(), n_, wanted, &output, status.data());
    }

    const Arguments& given_;
    std::size_t row_, n_;
    Column p_, h_, s_, wetness_;
    std::array<Status, rows_together> status_;
};

std::size_t solve_steps(const void* context, Pair pair, const double* a, const double* b, std::size_t n,
                        std::span<const Property> properties, double* const* outputs, Status* status) noexcept {
    const auto& given = *static_cast<const Arguments*>(context);
    std::size_t solved = 0;
    for (std::size_t done = 0; done < n; done += rows_together) {
        const std::size_t now = std::min(rows_together, n - done);
        Rows rows(given, static_cast<std::size_t>(a - given.first) + done, now);
        rows.begin(pair, a + done, b + done);
        Column pressure, value, h, s;
        rows.find_ends(pressure, value);
        Wanted wanted;
        for (std::size_t k = 0; k < properties.size(); ++k) wanted.add(properties[k], outputs[k] + done);
        const double* const end_h = wanted.add(Property::h, h.data());
        const double* const end_s = wanted.add(Property::s, s.data());
        engine::solve_block(end_pair(given.process), pressure.data(), value.data(), now,
                            {wanted.properties.data(), wanted.count}, wanted.outputs.data(), status + done);
        solved += rows.finish(end_h, end_s, status + done);
    }
    return solved;
}

} // namespace

BatchResult step_batch(Process process, Pair pair, std::span<const double> a, std::span<const double> b,
                       std::span<const double> to, std::span<const double> efficiency, const StepOptions& step_options,
                       std::span<const Property> properties, std::span<double* const> outputs,
                       const StepColumns& results, std::span<Status> status, const BatchOptions& options) noexcept {
    const std::size_t n = a.size();
    if (!exists(process)) return {.fault = BatchResult::Fault::unknown_process};
    const auto one_or_all = [&](std::span<const double> column) { return column.size() == 1 || column.size() == n; };
    const std::array columns{results.work, results.heat, results.entropy_generated, results.lost_work};
    if (!fit_rows(columns, n) || !one_or_all(to) || !one_or_all(efficiency))
        return {.fault = BatchResult::Fault::lengths_differ};
    const Arguments given{process, a.data(), to, efficiency, step_options, results};
    const BatchResult result = run_batch({solve_steps, &given}, {pair, a, b, properties, outputs, status}, options);
    if (result.cancelled) clear_cancelled(status, columns);
    return result;
}

} // namespace ktl
