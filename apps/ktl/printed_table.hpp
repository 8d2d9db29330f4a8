// Steam tables as they are printed: cells with the digits that the formulation supports, headings, and rules where an
// isobar crosses the saturation line. What a page looks like is up to the writers.
#pragma once

#include "report.hpp"
#include "steam_table.hpp"

namespace program {

/// Neighbouring columns of one unit, which appears once.
struct PrintedUnit {
    std::string name;
    std::size_t columns;
};

/// Columns that belong together: the argument, or one isobar.
struct PrintedGroup {
    std::vector<std::string> heading; ///< lines above the columns
    std::vector<std::string> symbols; ///< one for each column
    std::vector<PrintedUnit> units;
};

/// A line of cells, one for each column; number texts with a decimal point or without.
struct PrintedRow {
    std::vector<std::string> cells;
    std::vector<std::size_t> rules; ///< groups with a rule above the row
};

/// A table as wide as a page and as long as its rows.
struct Sheet {
    std::vector<PrintedGroup> groups;
    std::vector<PrintedRow> saturation; ///< below the headings: saturated water and steam of each isobar
    std::vector<PrintedRow> rows;
};

struct PrintedTable {
    std::string title;
    std::string source; ///< formulation and version
    std::vector<Sheet> sheets;
    std::vector<std::string> notes;
};

PrintedTable printed(const SaturationTable& table);
/// At most that many isobars beside one another.
PrintedTable printed(const SingleTable& table, std::size_t isobars);

/// The tables for programs: a row for each state, 10 digits. Isobars have their saturated water and steam as rows of their own.
Report report(const SaturationTable& table);
Report report(const SingleTable& table);

/// As many digits of a column as the formulation supports.
struct Rounding {
    int significant; ///< at most
    int decimals;    ///< at most
};
/// The number with a decimal point only if decimals follow; "inf" or "-" if it is not finite.
std::string rounded(double value, Rounding rounding);

} // namespace program
