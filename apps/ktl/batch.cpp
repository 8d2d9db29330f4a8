#include "batch.hpp"

#include "progress.hpp"
#include "work.hpp"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>

namespace program {

namespace {

/// Threads that each take a run of records in turn, compute it, and write it in turn.
class Conveyor {
public:
    Conveyor(const Plan& plan, InputFile& file, CsvReader& reader, Output& output, Progress& progress)
        : plan_(plan), file_(file), reader_(reader), output_(output), progress_(progress) {}

    /// The first run has been read; its records from the given one on are lines of the file.
    Summary run(Records first, std::size_t first_record) {
        Work work(plan_);
        work.records = std::move(first);
        const auto lines = output_.lines();
        finish(work, *lines, {first_record, 0, reader_.bytes_read()});
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
        return {reasons_, rows_};
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
        if (broken) file_.stop(); // another thread may wait for input
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
        work.run(run.first_record, lines);
        std::unique_lock lock(writing_);
        turn_.wait(lock, [&] { return broken_ || written_ == run.number; });
        if (broken_) return;
        output_.write(lines);
        reasons_.add(work.reasons);
        rows_ += work.rows;
        progress_.show(rows_, run.bytes);
        ++written_;
        turn_.notify_all();
    }

    const Plan& plan_;
    InputFile& file_;
    CsvReader& reader_;
    Output& output_;
    Progress& progress_;

    std::mutex reading_; // of the reader and the two below
    std::size_t taken_ = 1;
    bool closed_ = false;

    std::mutex writing_; // of the output and all below
    std::condition_variable turn_;
    std::size_t written_ = 0, rows_ = 0;
    Reasons reasons_;
    bool broken_ = false;
    std::exception_ptr failure_;
};

/// The header split at the separator. Throws UsageError if there is none.
std::vector<std::string> header_of(CsvReader& reader, char separator, const std::string& path) {
    const Records records = reader.header(separator);
    const std::string name = path == "-" ? "standard input" : in_quotes(path);
    if (records.size() == 0) throw UsageError(name + " is empty; its first line should name the columns");
    if (records.kind(0) != Records::Kind::row || records.fields(0) == 0) {
        const bool too_long = records.kind(0) == Records::Kind::too_long;
        const bool empty = records.fields(0) == 0 && !too_long;
        throw UsageError("the first line of " + name + " should name the columns; it " +
                         (empty      ? "is empty"
                          : too_long ? "is longer than " + std::to_string(longest_record) + " bytes"
                                     : "has a quote that is not closed"));
    }
    std::vector<std::string> header;
    for (std::size_t i = 0; i < records.fields(0); ++i) {
        header.emplace_back(records.field(0, i));
        if (header.back().find('\0') != std::string::npos)
            throw UsageError("the first line of " + name + " has NUL bytes; it should be text in UTF-8 or ASCII");
    }
    return header;
}

/// How the file is laid out.
struct Layout {
    char separator;
    std::vector<std::string> header;
    Columns columns;
};

/// The layout with the given separator or, if none is given, with the first one that finds the columns. The fault of the
/// one that splits the header into most columns is thrown if none does.
Layout layout_of(CsvReader& reader, const Pair* pair, const BatchWishes& wishes) {
    const std::string separators = wishes.separator == '\0' ? ",;\t" : std::string(1, wishes.separator);
    std::exception_ptr fault;
    std::size_t most = 0;
    for (const char separator : separators) {
        std::vector<std::string> header = header_of(reader, separator, wishes.path);
        try {
            const Columns columns = find_columns(header, pair, wishes.columns);
            return {separator, std::move(header), columns};
        } catch (const UsageError&) {
            if (header.size() > most) fault = std::current_exception();
            most = std::max(most, header.size());
        }
    }
    std::rethrow_exception(fault);
}

Titles titles_of(const std::vector<std::string>& header, const Properties& wanted, bool all_states) {
    Titles titles{header, {}};
    if (all_states) titles.results.emplace_back("state");
    for (const Property* property : wanted) titles.results.push_back(title_of(*property));
    titles.results.emplace_back("error");
    return titles;
}

/// Reads what is there of the file with the header, and gives its place; comments may be before it.
std::size_t read_first(CsvReader& reader, Records& records) {
    reader.next(records);
    std::size_t header = 0;
    while (records.kind(header) == Records::Kind::comment) ++header;
    return header;
}

} // namespace

Summary run_batch(const Pair* pair, const BatchWishes& wishes, const Properties& wanted,
                  const MakeOutput& make_output) {
    InputFile file(wishes.path);
    CsvReader reader(file);
    const Layout layout = layout_of(reader, pair, wishes);
    if (wishes.decimal_comma && layout.separator == ',')
        throw UsageError("with --decimal-comma the separator cannot be a comma; use --separator ';' or tab");
    reader.set_format(layout.separator, layout.header.size());
    const auto output = make_output(file, layout.separator);
    Progress progress(wishes.stats, file.size(), output->to_terminal());
    const Plan plan{pair,
                    layout.header.size(),
                    layout.columns,
                    wanted,
                    wishes.decimal_comma || layout.separator == ';',
                    wishes.all_states,
                    *wishes.units};
    Records records;
    const std::size_t header = read_first(reader, records);
    const auto comments = output->lines();
    for (std::size_t i = 0; i < header; ++i) comments->comment(records.field(i, 0));
    output->write(*comments);
    output->begin(titles_of(layout.header, wanted, wishes.all_states));
    Summary summary = Conveyor(plan, file, reader, *output, progress).run(std::move(records), header + 1);
    output->finish();
    return summary;
}

} // namespace program
