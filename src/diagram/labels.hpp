// Where the labels of a chart have room.
#pragma once

#include <ktl/diagram.hpp>

namespace ktl::diagram {

/// Adds a label for each line that has room for one, near the place that its family asks for.
void place_labels(const Chart& chart, Drawing& drawing);

} // namespace ktl::diagram
