// States on a line of constant quality.
#pragma once

#include "searches/state.hpp"

namespace ktl::searches {

/// The states of quality x (0 to 1) and entropy s by rising temperature, three at most; out takes the first `most`.
/// Returns how many it took.
int on_quality_line(double s, double x, SaturationModel model, FoundState* out, int most);

} // namespace ktl::searches
