// The lines of a chart as points.
#pragma once

#include "canvas.hpp"

#include <ktl/diagram.hpp>

namespace program {

/// A row for each point: its line, piece, place and state.
std::string lines_as_csv(const ktl::diagram::Chart& chart, const ktl::diagram::Drawing& drawing);
/// An object: units, window, and the lines with their pieces as columns of points.
std::string lines_as_json(const ktl::diagram::Chart& chart, const ktl::diagram::Drawing& drawing, const Page& page);

} // namespace program
