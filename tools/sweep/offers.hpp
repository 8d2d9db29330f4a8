// Values of all kinds, most of which name no state, offered to the ktl:: calls.
#pragma once

#include <cstdint>

namespace sweep {

/// Offers count rows and prints a table. A row must have the status of the exact search, which looks at every state of
/// the range, and where it is solved a state that has both values and, of two phases, those of its temperature. True where
/// all have.
bool sweep_offers(long count, std::uint64_t seed);

} // namespace sweep
