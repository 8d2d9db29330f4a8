// Whole lines of a picture without a fault.
#pragma once

#include "diagram/frame.hpp"

namespace ktl::diagram {

Line traced_line(Property held, double value, const Frame& frame, double tolerance);
Dome traced_dome(const Frame& frame, double tolerance);
/// from and to: solved states.
Line traced_process(const State& from, const State& to, Step step, const Frame& frame, double tolerance);

} // namespace ktl::diagram
