// The texts of --help below the lists of arguments.
#pragma once

#include <string>

namespace program {

std::string main_help();
std::string single_help();
std::string batch_help();

} // namespace program
