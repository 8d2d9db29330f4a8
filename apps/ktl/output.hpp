// Where result lines go: CSV as they come, or a table for reading when all are there.
#pragma once

#include <memory>
#include <string_view>

namespace program {

class Output {
public:
    /// A run of lines, filled by any thread, all with as many cells.
    class Lines {
    public:
        virtual ~Lines() = default;
        virtual void cell(std::string_view text) = 0;
        virtual void end_line() = 0;
    };

    virtual ~Output() = default;
    /// Significant digits of the results.
    [[nodiscard]] virtual int digits() const = 0;
    [[nodiscard]] virtual std::unique_ptr<Lines> lines() const = 0;
    /// Writes lines that lines() has made, and empties them. The header comes first.
    virtual void write(Lines& lines) = 0;
    /// After the last line. Throws UsageError where standard output did not take everything.
    virtual void finish() = 0;
};

std::unique_ptr<Output> csv_output();
/// Columns of numbers aligned at the decimal point. The last column (errors) appears only if it is not empty.
std::unique_ptr<Output> table_output();

} // namespace program
