// Many states from a CSV file: one line of results for each line of the file, on all cores.
#pragma once

#include "columns.hpp"
#include "output.hpp"
#include "reasons.hpp"
#include "tables.hpp"
#include "unit_system.hpp"

#include <functional>

namespace program {

/// How the file is to be read.
struct BatchWishes {
    std::string path; ///< "-" for standard input
    ColumnWishes columns;
    const UnitSystem* units = &own_units(); ///< of values without a unit
    char separator = '\0';                  ///< none given: comma, semicolon or tab, whichever finds the columns
    bool decimal_comma = false;             ///< a file with semicolons may have decimal commas anyway
    bool all_states = false;                ///< a line for each state of those that the two values have
    bool stats = false;                     ///< tell the rate at the end, as on a terminal
};

/// Makes the output for a file, once its separator is known.
using MakeOutput = std::function<std::unique_ptr<Output>(const InputFile& file, char separator)>;

struct Summary {
    Reasons reasons;
    std::size_t rows = 0;
};

/// Reads the file, writes a header and one line for each line of the file, and returns why lines have no full result. A
/// null pair: each line names its own. Throws UsageError if the file cannot be read or lacks a column, or if the results
/// cannot be written.
Summary run_batch(const Pair* pair, const BatchWishes& wishes, const Properties& wanted, const MakeOutput& make_output);

} // namespace program
