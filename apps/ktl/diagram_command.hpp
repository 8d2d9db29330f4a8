// The command lines of "diagram" and "lines".
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace program {

struct DiagramArguments {
    std::string preset, window, process, from, to, title, output;
    std::vector<std::string> lines;
    std::string size = "A3", units = "bar", format = "csv", deviation = "0.05";
    int dots = 0; ///< of an inch; 0: not given
};

inline constexpr const char* preset_names = "hs ts ph pv pt";
inline constexpr const char* page_sizes = "A0 A1 A2 A3 A4 A5 A6";

/// Adds both commands; their arguments are filled when the line is parsed.
void add_diagram(CLI::App& app, DiagramArguments& arguments);
/// Draws the chart.
void run_diagram(const DiagramArguments& arguments);
/// Writes the lines of the chart.
void run_lines(const DiagramArguments& arguments);

} // namespace program
