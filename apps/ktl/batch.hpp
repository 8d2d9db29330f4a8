// Many states from a CSV file: one line of results for each line of the file, on all cores.
#pragma once

#include "output.hpp"
#include "tables.hpp"

namespace program {

/// Reads the file ("-" for standard input), writes a header and one line for each line of the file, and
/// returns the number of lines without a full result. A null pair: each line names its own. With stats the last line
/// on standard error tells the rate, as it does on a terminal.
/// Throws UsageError where the file cannot be read or lacks a column.
std::size_t run_batch(const Pair* pair, const std::string& path, const Properties& wanted, bool stats, Output& output);

} // namespace program
