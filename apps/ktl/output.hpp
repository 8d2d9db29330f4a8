// Where result lines go: CSV or JSON as they come, or a table for reading when all are there.
#pragma once

#include "files.hpp"
#include "number.hpp"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace program {

/// How results are written.
struct Format {
    int digits = result_digits; ///< significant ones
    char separator = ',';       ///< of CSV
    bool decimal_comma = false; ///< the decimal mark of results in CSV and tables
};

/// What the columns of all lines are called: those of the input, then those of results, the last of which is the error.
struct Titles {
    std::vector<std::string> given, results;
};

class Output {
public:
    /// A run of lines, filled by any thread, all with as many cells: one for each title.
    class Lines {
    public:
        explicit Lines(const Format& format) : format_(format) {}
        virtual ~Lines() = default;

        /// Number of the line in the input that the next cells come from; 0 if there is no input.
        virtual void begin_line(std::size_t /*number*/) {}
        virtual void cell(std::string_view text) = 0;
        /// A result; empty if it is not finite.
        virtual void number(double value);
        virtual void end_line() = 0;
        /// A line of the input that is no record, passed on as it is if the format has a place for it.
        virtual void comment(std::string_view /*text*/) {}

    protected:
        /// The number as text; empty if it is not finite.
        std::string_view text_of(double value);
        Format format_;

    private:
        NumberText number_;
        std::string text_;
    };

    Output(OutputFile& file, const Format& format) : file_(file), format_(format) {}
    virtual ~Output() = default;
    [[nodiscard]] int digits() const { return format_.digits; }
    /// True if the results appear on a terminal.
    [[nodiscard]] bool to_terminal() const { return file_.is_terminal(); }
    /// Writes the titles; before the first line.
    virtual void begin(const Titles& titles) = 0;
    [[nodiscard]] virtual std::unique_ptr<Lines> lines() const = 0;
    /// Writes lines that lines() has made, and empties them. Throws UsageError if not all was taken, as finish() does.
    virtual void write(Lines& lines) = 0;
    /// After the last line.
    virtual void finish() = 0;

protected:
    OutputFile& file_;
    Format format_;
};

std::unique_ptr<Output> csv_output(OutputFile& file, const Format& format);
/// Columns of numbers aligned at the decimal mark. The last column (errors) appears only if it is not empty.
std::unique_ptr<Output> table_output(OutputFile& file, const Format& format);
/// One JSON object for each line: "line", "input" with the given columns as texts, the results as numbers or null.
std::unique_ptr<Output> json_output(OutputFile& file, const Format& format);

} // namespace program
