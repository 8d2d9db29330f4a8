// Printed tables as pages: text, HTML, PDF.
#pragma once

#include "printed_table.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace program {

/// A cell split at its decimal point. A text that is no number is all before it.
struct SplitCell {
    std::string_view before, after; ///< after: the point and the decimals
    bool is_number;
};
SplitCell split(std::string_view cell);

/// Room of a column in characters: numbers aligned at their decimal points take before + after, which width may exceed.
struct ColumnRoom {
    std::size_t before = 0, after = 0, width = 0;
};
/// The room of each column of a sheet, headings included.
std::vector<ColumnRoom> rooms(const Sheet& sheet);

/// A symbol, unit or sentence in the signs of print: degrees, powers, primes (UTF-8).
std::string signs(std::string_view text);

/// Rows of a block, which a space separates from the next one.
inline constexpr std::size_t block_rows = 5;

/// Pages of that many rows, separated by form feeds, each with the headings. Every five rows are a block.
std::string text_pages(const PrintedTable& table, std::size_t page_rows);
/// Characters of its widest line.
std::size_t text_width(const PrintedTable& table);

/// A document whose headings are repeated on every sheet of paper.
std::string html_page(const PrintedTable& table);

/// Pages of A4. Throws UsageError if the program was built without cairo.
std::string pdf_pages(const PrintedTable& table);

} // namespace program
