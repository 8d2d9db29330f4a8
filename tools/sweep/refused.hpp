// Pairs that name no state of the valid range.
#pragma once

#include "pairs.hpp"

namespace sweep {

struct Offer {
    const Row* row;
    double first, second;
};

/// One pair beyond an end of the range: by its first value, or by its second value at a first value within the
/// range. number cycles through the finders and the sides.
Offer draw_refused(Random& random, long number);

} // namespace sweep
