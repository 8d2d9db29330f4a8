#include "batch.hpp"

#include "columns.hpp"
#include "csv.hpp"
#include "number.hpp"
#include "progress.hpp"
#include "states.hpp"

#include <cmath>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>

namespace program {

namespace {

/// What every line is computed by.
struct Plan {
    const Pair* pair; ///< null: each line names its own
    std::size_t width;
    Columns columns;
    const Properties& wanted;
    int digits;
};

/// A run of lines on its way from record to result, by one thread.
class Work {
public:
    explicit Work(const Plan& plan) : plan_(plan) {
        for (const Pair& pair : pairs()) states_.emplace_back(pair, plan.wanted);
    }

    Records records;

    /// Computes the records from the given one on and writes their lines; returns how many have no full result.
    std::size_t run(std::size_t first, Output::Lines& lines) {
        for (States& states : states_) states.clear();
        rows_.clear();
        for (std::size_t record = first; record < records.size(); ++record) rows_.push_back(read(record));
        for (States& states : states_) states.solve();
        std::size_t failures = 0;
        for (const Row& row : rows_) failures += write(row, lines) ? 0 : 1;
        return failures;
    }

private:
    enum class Fault { none, too_long, empty, width, pair, first, second };
    struct Row {
        std::size_t record;
        Fault fault;
        const Pair* pair = nullptr;
        std::size_t state = 0;
    };

    [[nodiscard]] std::string_view field(const Row& row, std::size_t number) const {
        return records.field(row.record, number);
    }
    States& states(const Row& row) { return states_[static_cast<std::size_t>(row.pair - pairs().data())]; }

    Row read(std::size_t record) {
        if (records.too_long(record)) return {record, Fault::too_long};
        if (records.fields(record) == 0) return {record, Fault::empty};
        if (records.fields(record) != plan_.width) return {record, Fault::width};
        Row row{record, Fault::none, plan_.pair};
        if (row.pair == nullptr) row.pair = find_pair(trimmed(field(row, plan_.columns.pair)));
        if (row.pair == nullptr) return {record, Fault::pair};
        const auto a = parse_number(field(row, plan_.columns.first));
        if (!a) return {record, Fault::first, row.pair};
        const auto b = parse_number(field(row, plan_.columns.second));
        if (!b) return {record, Fault::second, row.pair};
        row.state = states(row).add(*a, *b);
        return row;
    }

    /// The line of the row; false where it has no full result.
    bool write(const Row& row, Output::Lines& lines) {
        for (std::size_t i = 0; i < plan_.width; ++i) // so that the output stays rectangular
            lines.cell(i < records.fields(row.record) ? field(row, i) : std::string_view{});
        bool full = row.fault == Fault::none;
        for (std::size_t k = 0; k < plan_.wanted.size(); ++k) {
            const double value = row.fault == Fault::none ? states(row).value(row.state, k) : std::nan("");
            full = full && std::isfinite(value);
            lines.cell(std::isfinite(value) ? number_(value, plan_.digits) : std::string_view{});
        }
        lines.cell(full ? std::string() : error(row));
        lines.end_line();
        return full;
    }

    std::string error(const Row& row) {
        switch (row.fault) {
        case Fault::none: return states(row).error(row.state);
        case Fault::too_long: return "line longer than " + std::to_string(longest_record) + " bytes";
        case Fault::empty: return "empty line";
        case Fault::width:
            return "number of columns: " + std::to_string(records.fields(row.record)) + " instead of " +
                   std::to_string(plan_.width);
        case Fault::pair:
            return "no pair " + in_quotes(trimmed(field(row, plan_.columns.pair))) + "; the pairs are " + pair_names();
        case Fault::first: return bad_number(row.pair->first, field(row, plan_.columns.first));
        case Fault::second: break;
        }
        return bad_number(row.pair->second, field(row, plan_.columns.second));
    }

    static std::string bad_number(ktl::Property id, std::string_view text) {
        return std::string(quantity(id).name) + ": " + in_quotes(text) + " is not a number";
    }

    const Plan& plan_;
    std::vector<States> states_; ///< of each pair
    std::vector<Row> rows_;
    NumberText number_;
};

/// Threads that each take a run of records in turn, compute it, and write it in turn.
class Conveyor {
public:
    Conveyor(const Plan& plan, CsvReader& reader, Output& output, Progress& progress)
        : plan_(plan), reader_(reader), output_(output), progress_(progress) {}

    /// The first run has been read, with the header as its first record. Returns the number of lines that have no full
    /// result.
    std::size_t run(Records first) {
        Work work(plan_);
        work.records = std::move(first);
        const auto lines = output_.lines();
        finish(work, *lines, {1, 0, reader_.bytes_read()});
        std::vector<std::thread> helpers;
        const unsigned count = reader_.at_end() ? 1 : std::thread::hardware_concurrency();
        try {
            while (helpers.size() + 1 < count) helpers.emplace_back(&Conveyor::work_on, this);
        } catch (const std::system_error&) { // fewer threads, then
        }
        work_on();
        for (std::thread& helper : helpers) helper.join();
        if (failure_) std::rethrow_exception(failure_);
        progress_.finish(rows_);
        return failures_;
    }

private:
    struct Run {
        std::size_t first_record, number, bytes;
    };

    void work_on() noexcept {
        try {
            Work work(plan_);
            const auto lines = output_.lines();
            while (const auto run = take(work.records)) finish(work, *lines, *run);
        } catch (...) {
            fail(true);
        }
    }

    /// Keeps the exception for the caller. A broken conveyor writes no further line.
    void fail(bool broken) {
        const std::scoped_lock lock(writing_);
        failure_ = std::current_exception();
        broken_ = broken_ || broken;
        turn_.notify_all();
    }

    /// Where the file cannot be read on, the lines before that are still written.
    std::optional<Run> take(Records& records) {
        const std::scoped_lock lock(reading_);
        try {
            if (!closed_ && reader_.next(records)) return Run{0, taken_++, reader_.bytes_read()};
        } catch (...) {
            fail(false);
        }
        closed_ = true;
        return std::nullopt;
    }

    void finish(Work& work, Output::Lines& lines, const Run& run) {
        const std::size_t failures = work.run(run.first_record, lines);
        std::unique_lock lock(writing_);
        turn_.wait(lock, [&] { return broken_ || written_ == run.number; });
        if (broken_) return;
        output_.write(lines);
        failures_ += failures;
        rows_ += work.records.size() - run.first_record;
        progress_.show(rows_, run.bytes);
        ++written_;
        turn_.notify_all();
    }

    const Plan& plan_;
    CsvReader& reader_;
    Output& output_;
    Progress& progress_;

    std::mutex reading_; // of the reader and the two below
    std::size_t taken_ = 1;
    bool closed_ = false;

    std::mutex writing_; // of the output and all below
    std::condition_variable turn_;
    std::size_t written_ = 0, failures_ = 0, rows_ = 0;
    bool broken_ = false;
    std::exception_ptr failure_;
};

/// The header of the file. Throws UsageError where there is none.
std::vector<std::string> header_of(const Records& records, const std::string& path) {
    const std::string name = path == "-" ? "standard input" : in_quotes(path);
    if (records.size() == 0) throw UsageError(name + " is empty; its first line should name the columns");
    if (records.fields(0) == 0) {
        throw UsageError("the first line of " + name + " should name the columns; it is " +
                         (records.too_long(0) ? "longer than " + std::to_string(longest_record) + " bytes" : "empty"));
    }
    std::vector<std::string> header;
    for (std::size_t i = 0; i < records.fields(0); ++i) {
        header.emplace_back(records.field(0, i));
        if (header.back().find('\0') != std::string::npos)
            throw UsageError("the first line of " + name + " has NUL bytes; it should be text in UTF-8 or ASCII");
    }
    return header;
}

void write_header(const std::vector<std::string>& header, const Properties& wanted, Output& output) {
    const auto lines = output.lines();
    for (const std::string& name : header) lines->cell(name);
    for (const Property* property : wanted)
        lines->cell(std::string(property->code) + "_" + std::string(property->unit));
    lines->cell("error");
    lines->end_line();
    output.write(*lines);
}

} // namespace

std::size_t run_batch(const Pair* pair, const std::string& path, const Properties& wanted, bool stats, Output& output) {
    CsvReader reader(path);
    Progress progress(stats, reader.size());
    Records records;
    reader.next(records);
    const std::vector<std::string> header = header_of(records, path);
    const Plan plan{pair, header.size(), find_columns(header, pair), wanted, output.digits()};
    write_header(header, wanted, output);
    const std::size_t failures = Conveyor(plan, reader, output, progress).run(std::move(records));
    output.finish();
    return failures;
}

} // namespace program
