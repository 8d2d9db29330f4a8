// States beside the line of saturated water, found again by h, s.
#pragma once

#include <cstdint>

namespace sweep {

/// Draws count states of saturated water, of water slightly above saturation and of mixtures of little steam, solves
/// their h, s, and prints a table by temperature; the last columns tell how far the mixture of number 1 is from
/// saturated water. Up to 14 degC the states found must be those of scan_fold(); saturated water must come back as
/// water with its volume at every temperature up to 350 degC, from the named routine too. True if all do.
bool sweep_folds(long count, std::uint64_t seed);

} // namespace sweep
