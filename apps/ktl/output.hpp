// Where result lines go: CSV as they come, or a table for reading when all are there.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace program {

class Output {
public:
    virtual ~Output() = default;
    /// Significant digits of the results.
    [[nodiscard]] virtual int digits() const = 0;
    /// One line, the header first; all lines have as many cells.
    virtual void line(std::vector<std::string> cells) = 0;
    /// After the last line. Throws UsageError where standard output did not take everything.
    virtual void finish() = 0;
};

std::unique_ptr<Output> csv_output();
/// Columns of numbers aligned at the decimal point. The last column (errors) appears only if it is not empty.
std::unique_ptr<Output> table_output();

} // namespace program
