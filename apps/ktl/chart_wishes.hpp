// A chart from the arguments of the program.
#pragma once

#include "canvas.hpp"
#include "diagram_command.hpp"

#include <ktl/diagram.hpp>

namespace program {

/// The page that the chart is for: its size, title and description.
Page page_of(const DiagramArguments& arguments);
/// The chart that the arguments ask for, on that page. Throws UsageError that names the argument at fault.
ktl::diagram::Chart chart_of(const DiagramArguments& arguments, const Page& page);
/// The lines of the chart. Throws UsageError if there is no chart, or no line of values that were given.
ktl::diagram::Drawing drawing_of(const DiagramArguments& arguments, const ktl::diagram::Chart& chart);

} // namespace program
