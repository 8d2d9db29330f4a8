// Own values of states of the limits, offered to the ktl:: calls.
#pragma once

#include <cstdint>

namespace sweep {

/// Draws count states on the limits of the range and of the sub-regions, offers the values of each to every pair, as they
/// are and moved by a few of their last digits, and prints a table. Each row must be solved to what ktl::state() promises,
/// in columns and by ktl::state() with the same bits; in one row of sixteen so must each of the states that
/// ktl::states() counts. True if all are.
bool sweep_limits(long count, std::uint64_t seed);

} // namespace sweep
