// Entropies and qualities offered to the ktl:: calls.
#pragma once

#include <cstdint>

namespace sweep {

/// Offers count pairs of entropy and quality, compares count, order and temperatures of their states with a scan of the
/// whole line, and prints a table. True where all agree.
bool sweep_quality(long count, std::uint64_t seed);

} // namespace sweep
