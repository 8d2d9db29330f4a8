// Columns of states: rows go out in chunks of a few blocks to whichever thread is free.
#include "engine/calls/batch.hpp"

#include "engine/calls/float_environment.hpp"
#include "engine/rows/block.hpp"

#include "engine/solution.hpp"

#include <algorithm>
#include <array>
#include <atomic>
#if !defined(KTL_NO_THREADS)
#include <mutex>
#include <thread>
#endif

namespace ktl {

namespace {

constexpr std::size_t chunk_rows = 4 * engine::block_rows;
constexpr std::size_t rows_between_reports = 65536;

using Fault = BatchResult::Fault;

Fault fault_of(const BatchArguments& c) {
    if (static_cast<std::size_t>(c.pair) >= pair_count) return Fault::unknown_pair;
    if (c.b.size() != c.a.size() || c.status.size() != c.a.size()) return Fault::lengths_differ;
    if (c.outputs.size() != c.properties.size()) return Fault::columns_differ;
    if (!c.a.empty() && std::find(c.outputs.begin(), c.outputs.end(), nullptr) != c.outputs.end())
        return Fault::columns_differ;
    const auto unknown = [](Property y) { return static_cast<std::size_t>(y) >= property_count; };
    return std::any_of(c.properties.begin(), c.properties.end(), unknown) ? Fault::unknown_property : Fault::none;
}

/// One batch call, shared by its threads.
class Run {
public:
    Run(BlockSolver solve_block, const BatchArguments& columns, const BatchOptions& options)
        : solve_block_(solve_block), arguments_(columns), options_(options) {
        for (std::size_t k = 0; k < arguments_.properties.size(); ++k) {
            double*& first = first_column_[static_cast<std::size_t>(arguments_.properties[k])];
            if (first != nullptr) continue;
            first = arguments_.outputs[k];
            wanted_[distinct_++] = arguments_.properties[k];
        }
    }

    /// Takes chunks until none is left.
    void work() noexcept {
        const FloatEnvironment environment;
        while (!stop_.load(std::memory_order_relaxed)) {
            const std::size_t begin = next_.fetch_add(1, std::memory_order_relaxed) * chunk_rows;
            if (begin >= rows()) return;
            const std::size_t end = begin + std::min(chunk_rows, rows() - begin);
            std::size_t solved = 0;
            for (std::size_t row = begin; row < end; row += engine::block_rows)
                solved += block(row, std::min(engine::block_rows, end - row));
            account(end - begin, solved);
        }
    }

    /// After all threads have ended: marks the rows that no thread has begun.
    BatchResult finish() noexcept {
        const std::size_t begun = std::min(next_.load(), rows() / chunk_rows + 1) * chunk_rows;
        if (begun >= rows()) return {Fault::none, false, solved_};
        std::fill(arguments_.status.begin() + static_cast<std::ptrdiff_t>(begun), arguments_.status.end(),
                  Status::cancelled);
        for (double* output : arguments_.outputs) std::fill(output + begun, output + rows(), quiet_nan);
        return {Fault::none, true, solved_};
    }

    [[nodiscard]] std::size_t chunks() const { return rows() / chunk_rows + (rows() % chunk_rows != 0 ? 1 : 0); }

private:
    [[nodiscard]] std::size_t rows() const { return arguments_.a.size(); }

    /// Every property is solved for once, however often it is listed.
    std::size_t block(std::size_t row, std::size_t n) noexcept {
        std::array<double*, property_count> outputs;
        for (std::size_t k = 0; k < distinct_; ++k) outputs[k] = column_of(wanted_[k]) + row;
        const std::size_t solved = solve_block_.solve(solve_block_.context, arguments_.pair, arguments_.a.data() + row,
                                                      arguments_.b.data() + row, n, {wanted_.data(), distinct_},
                                                      outputs.data(), arguments_.status.data() + row);
        for (std::size_t k = 0; k < arguments_.properties.size(); ++k) {
            const double* first = column_of(arguments_.properties[k]);
            if (first != arguments_.outputs[k]) std::copy_n(first + row, n, arguments_.outputs[k] + row);
        }
        return solved;
    }

    [[nodiscard]] double* column_of(Property y) const { return first_column_[static_cast<std::size_t>(y)]; }

    void account(std::size_t rows_done, std::size_t solved) noexcept {
#if !defined(KTL_NO_THREADS)
        const std::scoped_lock lock(mutex_);
#endif
        done_ += rows_done;
        solved_ += solved;
        if (options_.progress == nullptr || stop_) return;
        if (done_ < rows() && done_ - reported_ + chunk_rows <= rows_between_reports) return;
        reported_ = done_;
        if (!goes_on()) stop_ = true;
    }

    /// A callback that throws asks to stop.
    bool goes_on() noexcept {
#if defined(__cpp_exceptions)
        try {
            return options_.progress(options_.context, done_, rows());
        } catch (...) {
            return false;
        }
#else
        return options_.progress(options_.context, done_, rows());
#endif
    }

    BlockSolver solve_block_;
    const BatchArguments& arguments_;
    const BatchOptions& options_;
    std::array<double*, property_count> first_column_{};
    std::array<Property, property_count> wanted_;
    std::size_t distinct_ = 0;
    std::atomic<std::size_t> next_{0};
    std::atomic<bool> stop_{false};
#if !defined(KTL_NO_THREADS)
    std::mutex mutex_; // of the three below, and of the callback
#endif
    std::size_t done_ = 0, reported_ = 0, solved_ = 0;
};

#if defined(KTL_NO_THREADS)
void run_on_threads(Run& run, unsigned /*wanted*/) noexcept { run.work(); }
#else
constexpr std::size_t most_threads = 256;

/// The calling thread is one of the threads. What cannot be started is done without.
void run_on_threads(Run& run, unsigned wanted) noexcept {
    if (run.chunks() == 1) return run.work();
    if (wanted == 0) wanted = std::max(1U, std::thread::hardware_concurrency());
    const std::size_t helpers = std::min({std::size_t{wanted}, most_threads, run.chunks()}) - 1;
    if (helpers == 0) return run.work();
    std::array<std::thread, most_threads> threads;
    try {
        for (std::size_t i = 0; i < helpers; ++i) threads[i] = std::thread(&Run::work, &run);
    } catch (...) { // no thread, or no memory for one
    }
    run.work();
    for (std::thread& thread : threads)
        if (thread.joinable()) thread.join();
}
#endif

} // namespace

BatchResult run_batch(BlockSolver solve_block, const BatchArguments& columns, const BatchOptions& options) noexcept {
    if (const Fault fault = fault_of(columns); fault != Fault::none) return {.fault = fault};
    if (columns.a.empty()) return {};
    Run run(solve_block, columns, options);
    run_on_threads(run, options.threads);
    return run.finish();
}

BatchResult batch(Pair pair, std::span<const double> a, std::span<const double> b, std::span<const Property> properties,
                  std::span<double* const> outputs, std::span<Status> status, const BatchOptions& options) noexcept {
    const BlockSolver solver{[](const void*, Pair of, const double* first, const double* second, std::size_t n,
                                std::span<const Property> wanted, double* const* to, Status* result) noexcept {
        return engine::solve_block(of, first, second, n, wanted, to, result);
    }};
    return run_batch(solver, {pair, a, b, properties, outputs, status}, options);
}

} // namespace ktl
