// A process from a file: states, and how one goes over into the next.
#pragma once

#include <ktl/diagram.hpp>
#include <string>
#include <vector>

namespace program {

/// Reads the states between two names, the first and the last of the file if a name is empty. Throws UsageError with line and
/// column of the first fault.
std::vector<ktl::diagram::ProcessState> read_process(const std::string& path, const std::string& from,
                                                     const std::string& to);

} // namespace program
