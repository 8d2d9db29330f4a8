// Points along a stretch, as dense as the deviation asks for, cut off at the window.
#pragma once

#include "diagram/way.hpp"

namespace ktl::diagram {

/// Adds the pieces of a stretch that lie in the window.
void trace(const Stretch& stretch, const Frame& frame, double tolerance, std::vector<Piece>& pieces);

/// The part of a straight line between two points that lies in the window. Points on its edge have no state.
void trace_straight(const Point& from, const Point& to, const Frame& frame, std::vector<Piece>& pieces);

} // namespace ktl::diagram
