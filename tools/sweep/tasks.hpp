// Work on all processors.
#pragma once

#include <algorithm>
#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

namespace sweep {

/// Runs work(task, n, tally), where n is the number of rows of the task, until all count rows are done, and adds each
/// thread's tally up. What a task does must depend on its number alone.
template <class Tally, class Work>
Tally on_all_processors(long count, long rows_per_task, Work work) {
    const long tasks = (count + rows_per_task - 1) / rows_per_task;
    std::atomic<long> next{0};
    std::mutex adding;
    Tally total{};
    const auto run = [&] {
        Tally own{};
        for (long task = next++; task < tasks; task = next++)
            work(task, std::min(rows_per_task, count - task * rows_per_task), own);
        const std::lock_guard lock(adding);
        total.add(own);
    };
    std::vector<std::thread> threads(std::max(1U, std::thread::hardware_concurrency()));
    for (std::thread& thread : threads) thread = std::thread(run);
    for (std::thread& thread : threads) thread.join();
    return total;
}

} // namespace sweep
