// The sweep of ktl::state().
#pragma once

#include <cstdint>

namespace sweep {

/// Solves states of the range and of its borders by all pairs and prints a table; the exit status of the program.
int sweep_engine(long count, std::uint64_t seed);

} // namespace sweep
