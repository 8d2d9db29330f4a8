// The command line of "compare".
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

namespace program {

struct CompareArguments {
    std::string file, property, p, t;
    std::string codes = "V,H,S";
    std::string format = "table";
    std::string scale = "90";
};

/// Adds the command; its arguments are filled when the line is parsed.
void add_compare(CLI::App& app, CompareArguments& arguments);
/// Writes the comparison to standard output. False if a state is missing.
bool run_compare(const CLI::App& app, const CompareArguments& arguments);

} // namespace program
