// Rows go out in blocks to whichever thread is free. ktl::batch would share them out as well, but it reports only every
// 65,536 rows. Rows of h, s without a state take 0.1 ms each, and an interrupt has to be heard within 0.1 s: while rows
// are slow the blocks are small.
#include "batch.hpp"

#include "column.hpp"
#include "formulation.hpp"
#include "module.hpp"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace ktl::python {

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto between_reports = std::chrono::milliseconds(10);
constexpr std::size_t most_threads = 256;
constexpr std::size_t most_rows = 512, least_rows = 32;
constexpr auto slow_block = std::chrono::milliseconds(1);

struct Columns {
    System system;
    const Formulation* of;
    Pair pair;
    std::span<double> a, b;
    std::vector<Property> properties;
    std::vector<double*> outputs;
    std::span<unsigned char> status;
};

class Run {
public:
    explicit Run(const Columns& columns, PyObject* progress) : columns_(columns), progress_(progress) {}

    /// Without the interpreter's lock, from any thread but the caller's.
    void help() noexcept {
        std::size_t size = most_rows;
        while (block(size)) {
        }
    }

    /// Without the lock, from the calling thread.
    void lead() noexcept {
        Clock::time_point reported = Clock::now();
        std::size_t size = most_rows;
        while (block(size)) {
            if (Clock::now() - reported < between_reports) continue;
            report();
            reported = Clock::now();
        }
    }

    /// With the lock, after all threads have ended. False if a Python exception is set.
    bool finish() {
        begun_ = std::min(next_.load(), rows());
        std::fill(columns_.status.begin() + static_cast<std::ptrdiff_t>(begun_), columns_.status.end(),
                  static_cast<unsigned char>(Status::cancelled));
        for (double* output : columns_.outputs) std::fill(output + begun_, output + rows(), detail::nan);
        if (failed_) return false;
        return PyErr_CheckSignals() == 0 && (stop_ || called_progress() != Answer::error);
    }

    [[nodiscard]] bool cancelled() const { return begun_ < rows(); }
    [[nodiscard]] std::size_t solved() const { return solved_; }

private:
    enum class Answer { go_on, stop, error };

    [[nodiscard]] std::size_t rows() const { return columns_.a.size(); }

    /// One block of that size, which becomes the size of the next one. False if nothing is left to do.
    bool block(std::size_t& size) noexcept {
        if (stop_.load(std::memory_order_relaxed)) return false;
        const std::size_t begin = next_.fetch_add(size, std::memory_order_relaxed);
        if (begin >= rows()) return false;
        const std::size_t n = std::min(size, rows() - begin);
        const Clock::time_point started = Clock::now();
        solved_ += solve(begin, n);
        done_ += n;
        size = Clock::now() - started > slow_block ? least_rows : most_rows;
        return true;
    }

    std::size_t solve(std::size_t begin, std::size_t n) noexcept {
        const PairRow& pair = pairs[static_cast<std::size_t>(columns_.pair)];
        std::array<double, most_rows> a_scratch, b_scratch;
        const auto given = [&](std::span<double> column, Property property, double* scratch) {
            const Given all{reinterpret_cast<const char*>(column.data()), sizeof(double), &unit(property)};
            return std::span<const double>{
                all.block(static_cast<std::ptrdiff_t>(begin), static_cast<std::ptrdiff_t>(n), scratch), n};
        };
        std::array<double*, property_count> outputs{};
        const std::size_t count = columns_.properties.size();
        for (std::size_t k = 0; k < count; ++k) outputs[k] = columns_.outputs[k] + begin;
        const BatchResult result =
            columns_.of->batch(columns_.pair, given(columns_.a, pair.a, a_scratch.data()),
                               given(columns_.b, pair.b, b_scratch.data()), columns_.properties,
                               {outputs.data(), count}, {reinterpret_cast<Status*>(columns_.status.data()) + begin, n});
        for (std::size_t k = 0; k < count; ++k) {
            const Conversion& to = unit(columns_.properties[k]);
            if (to.identity()) continue;
            for (double& y : std::span{outputs[k], n}) y = to.from_library(y);
        }
        return result.solved;
    }

    [[nodiscard]] const Conversion& unit(Property property) const { return conversion(columns_.system, property); }

    void report() noexcept {
        const PyGILState_STATE lock = PyGILState_Ensure();
        const Answer answer = PyErr_CheckSignals() != 0 ? Answer::error : called_progress();
        failed_ = answer == Answer::error;
        if (answer != Answer::go_on) stop_ = true;
        PyGILState_Release(lock);
    }

    /// With the lock.
    Answer called_progress() noexcept {
        if (progress_ == Py_None) return Answer::go_on;
        PyObject* answer = PyObject_CallFunction(progress_, "nn", static_cast<Py_ssize_t>(done_.load()),
                                                 static_cast<Py_ssize_t>(rows()));
        if (answer == nullptr) return Answer::error;
        const bool stop = answer == Py_False;
        Py_DECREF(answer);
        return stop ? Answer::stop : Answer::go_on;
    }

    const Columns& columns_;
    PyObject* progress_;
    std::atomic<std::size_t> next_{0}, done_{0}, solved_{0};
    std::atomic<bool> stop_{false};
    std::size_t begun_ = 0;
    bool failed_ = false; ///< a Python exception is set
};

/// Without the interpreter's lock. The calling thread is one of the threads; what cannot be started is done without.
void run_on_threads(Run& run, std::size_t threads, std::size_t rows) noexcept {
    if (threads == 0) threads = std::max(1U, std::thread::hardware_concurrency());
    const std::size_t helpers = std::min({threads, most_threads, rows / most_rows + 1}) - 1;
    std::array<std::thread, most_threads> started;
    try {
        for (std::size_t i = 0; i < helpers; ++i) started[i] = std::thread(&Run::help, &run);
    } catch (...) { // no thread, or no memory for one
    }
    run.lead();
    for (std::thread& thread : started)
        if (thread.joinable()) thread.join();
}

bool read_outputs(PyObject* tuple, const char* wanted, Py_ssize_t count, Columns* columns) {
    if (count != PyTuple_Size(tuple) || count > static_cast<Py_ssize_t>(property_count))
        return PyErr_Occurred() == nullptr && refuse("there must be an output for each property");
    for (Py_ssize_t k = 0; k < count; ++k) {
        std::span<double> output;
        if (!doubles_of(PyTuple_GetItem(tuple, k), true, &output)) return false;
        if (output.size() != columns->a.size()) return refuse("columns differ in length");
        const auto property = static_cast<unsigned char>(wanted[k]);
        if (property >= property_count) return refuse("unknown property");
        columns->properties.push_back(static_cast<Property>(property));
        columns->outputs.push_back(output.data());
    }
    return true;
}

} // namespace

PyObject* batch_columns(PyObject*, PyObject* arguments) {
    long formulation_number = 0;
    int system = 0, pair = 0;
    unsigned threads = 0;
    PyObject *a = nullptr, *b = nullptr, *outputs = nullptr, *status = nullptr, *progress = nullptr;
    const char* wanted = nullptr;
    Py_ssize_t count = 0;
    Columns columns{};
    if (!PyArg_ParseTuple(arguments, "iliOOy#O!OIO", &system, &formulation_number, &pair, &a, &b, &wanted, &count,
                          &PyTuple_Type, &outputs, &status, &threads, &progress) ||
        !system_from(system, &columns.system) || !formulation_from(formulation_number, &columns.of) ||
        !doubles_of(a, false, &columns.a) || !doubles_of(b, false, &columns.b) || !bytes_of(status, &columns.status))
        return nullptr;
    if (pair < 0 || pair >= static_cast<int>(pair_count) || !columns.of->has_pair(static_cast<Pair>(pair)))
        return refuse("unknown pair"), nullptr;
    columns.pair = static_cast<Pair>(pair);
    if (columns.b.size() != columns.a.size() || columns.status.size() != columns.a.size())
        return refuse("columns differ in length"), nullptr;
    if (!read_outputs(outputs, wanted, count, &columns)) return nullptr;
    Run run(columns, progress);
    PyThreadState* state = PyEval_SaveThread();
    run_on_threads(run, threads, columns.a.size());
    PyEval_RestoreThread(state);
    if (!run.finish()) return nullptr;
    return Py_BuildValue("Nn", PyBool_FromLong(run.cancelled() ? 1 : 0), static_cast<Py_ssize_t>(run.solved()));
}

} // namespace ktl::python
