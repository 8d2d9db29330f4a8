// A chart on a page: frame, axes, lines, labels, legend.
#pragma once

#include "canvas.hpp"

#include <ktl/diagram.hpp>

namespace program {

/// The room of the window of a chart on a page, mm.
struct Room {
    double left, top, width, height;
};
Room room_of(const Page& page);

void draw_chart(const ktl::diagram::Chart& chart, const ktl::diagram::Drawing& drawing, const Page& page,
                Canvas& canvas);

/// "specific enthalpy".
std::string_view meaning_of(ktl::Property property);

} // namespace program
