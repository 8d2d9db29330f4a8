// States on the limits of the range, for values that rounding puts just past them.
#pragma once

#include "searches/acceptance.hpp"

namespace ktl::searches {

/// For pairs without p, t and x: the state on a limit of the range that misses both values by least, if it has both as
/// closely as is promised. With the outermost saturated phases.
template <class T>
FoundState<T> on_limits(const Given& given);

/// For pairs of p or t: the state on the isobar or isotherm of that pressure or temperature, which lies in the range and is
/// the given one but for rounding. If the value belongs to no state there, or to none of the sub-region, by rounding: that of
/// a line next to it. With the outermost saturated phases.
template <class T>
FoundState<T> on_line(double line, const Given& given);

} // namespace ktl::searches
