// Small CSV files with texts and numbers, read whole: points of a test, of a process.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace program {

/// One line of a file with its number.
struct Line {
    std::size_t number;
    std::vector<std::string> fields; ///< without blanks around them
};

/// The lines of a file, "-" for standard input, that are neither empty nor comments. Throws UsageError if it cannot be read, or
/// has more than 10,000 of them.
std::vector<Line> read_lines(const std::string& path);

/// A table of a file: its header, and texts of its lines by the names of columns. Throws UsageError that names line and column.
class LineTable {
public:
    /// The header has to stay.
    explicit LineTable(const Line& header) : header_(header) {}

    /// The place of the column with one of the names, in lower case.
    [[nodiscard]] std::optional<std::size_t> find(std::initializer_list<std::string_view> names) const;
    [[nodiscard]] std::size_t need(std::initializer_list<std::string_view> names) const;
    [[noreturn]] void fail(const Line& line, std::size_t column, const std::string& what) const;
    void check_width(const Line& line) const;
    [[nodiscard]] double number(const Line& line, std::size_t column) const;

private:
    const Line& header_;
};

} // namespace program
