// Pages as pdf and png.
#include "canvas.hpp"
#include "tables.hpp"

#include <cairo-pdf.h>
#include <cmath>

namespace program {

namespace {

constexpr double points_per_inch = 72.0, millimetres_per_inch = 25.4;
constexpr double half_digit = 0.36; // of the size of letters

cairo_status_t take(void* closure, const unsigned char* bytes, unsigned count) noexcept {
    try {
        static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(bytes), count);
        return CAIRO_STATUS_SUCCESS;
    } catch (...) {
        return CAIRO_STATUS_NO_MEMORY;
    }
}

[[noreturn]] void fail(cairo_status_t status) {
    throw UsageError(std::string("cannot draw the picture: ") += cairo_status_to_string(status));
}

class CairoCanvas : public Canvas {
public:
    /// scale: units of the surface in a millimetre.
    CairoCanvas(cairo_surface_t* surface, double scale) : surface_(surface), context_(cairo_create(surface)) {
        cairo_scale(context_, scale, scale);
        cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
        cairo_select_font_face(context_, "Helvetica, Arial, Liberation Sans, DejaVu Sans", CAIRO_FONT_SLANT_NORMAL,
                               CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_source_rgb(context_, 1.0, 1.0, 1.0);
        cairo_paint(context_);
    }
    ~CairoCanvas() override {
        cairo_destroy(context_);
        cairo_surface_destroy(surface_);
    }

    void draw(const Path& path, const Stroke& stroke) override {
        set_colour(stroke.colour);
        cairo_set_line_width(context_, stroke.width);
        cairo_set_dash(context_, stroke.dash.data(), static_cast<int>(stroke.dash.size()), 0.0);
        for (const std::vector<Place>& part : path) {
            cairo_move_to(context_, part.front().x, part.front().y);
            for (const Place& place : part) cairo_line_to(context_, place.x, place.y);
        }
        cairo_stroke(context_);
    }

    void clear(Place middle, double width, double height, double angle) override {
        turned(middle, angle, [&] {
            cairo_set_source_rgb(context_, 1.0, 1.0, 1.0);
            cairo_rectangle(context_, -0.5 * width, -0.5 * height, width, height);
            cairo_fill(context_);
        });
    }

    void dot(Place middle, double radius, Colour colour) override {
        cairo_new_path(context_);
        cairo_arc(context_, middle.x, middle.y, radius, 0.0, 2.0 * std::acos(-1.0));
        set_colour(colour);
        cairo_fill_preserve(context_);
        cairo_set_source_rgb(context_, 1.0, 1.0, 1.0);
        cairo_set_dash(context_, nullptr, 0, 0.0);
        cairo_set_line_width(context_, 0.25);
        cairo_stroke(context_);
    }

    void write(Place at, std::string_view text, const Letters& letters) override {
        const std::string ended(text);
        cairo_select_font_face(context_, "Helvetica, Arial, Liberation Sans, DejaVu Sans", CAIRO_FONT_SLANT_NORMAL,
                               letters.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(context_, letters.size);
        cairo_text_extents_t extents;
        cairo_text_extents(context_, ended.c_str(), &extents);
        const double part = letters.anchor == Anchor::left ? 0.0 : letters.anchor == Anchor::middle ? 0.5 : 1.0;
        turned(at, letters.angle, [&] {
            set_colour(letters.colour);
            cairo_move_to(context_, -part * extents.x_advance, half_digit * letters.size);
            cairo_show_text(context_, ended.c_str());
        });
    }

protected:
    void check() const {
        if (const cairo_status_t status = cairo_status(context_); status != CAIRO_STATUS_SUCCESS) fail(status);
        if (const cairo_status_t status = cairo_surface_status(surface_); status != CAIRO_STATUS_SUCCESS) fail(status);
    }
    [[nodiscard]] cairo_surface_t* surface() const { return surface_; }

private:
    void set_colour(Colour colour) {
        cairo_set_source_rgb(context_, colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0);
    }
    template <class Work>
    void turned(Place middle, double angle, const Work& work) {
        cairo_save(context_);
        cairo_translate(context_, middle.x, middle.y);
        cairo_rotate(context_, -angle * std::acos(-1.0) / 180.0);
        work();
        cairo_restore(context_);
    }

    cairo_surface_t* surface_;
    cairo_t* context_;
};

class PdfCanvas final : public CairoCanvas {
public:
    PdfCanvas(const Page& page, std::unique_ptr<std::string> bytes)
        : CairoCanvas(cairo_pdf_surface_create_for_stream(take, bytes.get(), points(page.width), points(page.height)),
                      points(1.0)),
          bytes_(std::move(bytes)) {
        cairo_pdf_surface_set_metadata(surface(), CAIRO_PDF_METADATA_TITLE, page.title.c_str());
        cairo_pdf_surface_set_metadata(surface(), CAIRO_PDF_METADATA_SUBJECT, page.description.c_str());
    }
    void next_page() override { cairo_surface_show_page(surface()); }
    std::string finish() override {
        cairo_surface_finish(surface());
        if (const cairo_status_t status = cairo_surface_status(surface()); status != CAIRO_STATUS_SUCCESS) fail(status);
        return *bytes_;
    }

private:
    static double points(double millimetres) { return millimetres * points_per_inch / millimetres_per_inch; }
    std::unique_ptr<std::string> bytes_; ///< its place is known to cairo
};

class PngCanvas final : public CairoCanvas {
public:
    PngCanvas(const Page& page, double scale)
        : CairoCanvas(cairo_image_surface_create(CAIRO_FORMAT_RGB24, dots(page.width, scale), dots(page.height, scale)),
                      scale) {}
    std::string finish() override {
        check();
        cairo_surface_flush(surface());
        std::string bytes;
        const cairo_status_t status = cairo_surface_write_to_png_stream(surface(), take, &bytes);
        if (status != CAIRO_STATUS_SUCCESS) fail(status);
        return bytes;
    }

private:
    static int dots(double millimetres, double scale) { return static_cast<int>(std::ceil(millimetres * scale)); }
};

} // namespace

std::unique_ptr<Canvas> pdf_canvas(const Page& page) {
    return std::make_unique<PdfCanvas>(page, std::make_unique<std::string>());
}

std::unique_ptr<Canvas> png_canvas(const Page& page, int dots_per_inch) {
    return std::make_unique<PngCanvas>(page, dots_per_inch / millimetres_per_inch);
}

} // namespace program
