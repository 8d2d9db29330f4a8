// Pairs that name no state of the valid range.
#pragma once

#include "draw.hpp"

namespace sweep {

struct Offer {
    const char* name;
    ktl_finder find;
    double first, second;
};

/// One pair beyond an end of the range: by its first value, or by its second value at a first value within the
/// range. number cycles through the finders and the sides.
Offer draw_refused(Random& random, long number);

} // namespace sweep
