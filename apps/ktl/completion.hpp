// Scripts that let a shell complete the arguments of the program.
#pragma once

#include <CLI/App.hpp>
#include <map>
#include <string>

namespace program {

/// The words that may stand for an argument or behind an option, by its name, or by "COMMAND NAME" if they are those of one
/// command: separated by blanks; "FILE" for the name of a file. Others are not completed.
using Words = std::map<std::string, std::string>;

/// The script for bash, zsh or fish.
std::string completion_script(const CLI::App& app, const Words& words, const std::string& shell);

} // namespace program
