// In place of cairo_canvas.cpp if the machine that built the program had no cairo.
#include "canvas.hpp"
#include "tables.hpp"

namespace program {

namespace {

[[noreturn]] void refuse() {
    throw UsageError("this ktl was built without cairo, which pdf and png need; see KTL_PICTURES in its build");
}

} // namespace

std::unique_ptr<Canvas> pdf_canvas(const Page& /*page*/) { refuse(); }
std::unique_ptr<Canvas> png_canvas(const Page& /*page*/, int /*dots_per_inch*/) { refuse(); }

} // namespace program
