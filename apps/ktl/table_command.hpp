// The command line of "table".
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace program {

struct TableArguments {
    std::string by = "t", from, to, step, p, t;
    std::string units = "bar", format, output, atmosphere;
    int page_rows = 45;
};

inline constexpr const char* table_formats = "text csv json html pdf";

/// Adds the command; its arguments are filled when the line is parsed.
void add_table(CLI::App& app, TableArguments& arguments);
/// Writes the table to standard output or to the file. Throws UsageError, before anything is written if the fault is in the
/// arguments.
void run_table(const CLI::App& app, const TableArguments& arguments);

} // namespace program
