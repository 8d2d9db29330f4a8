// What charts and tables are drawn on: pages in millimetres from the upper left corner.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace program {

struct Place {
    double x, y; ///< mm, from the upper left corner
};

struct Colour {
    std::uint8_t red = 0, green = 0, blue = 0;
};

struct Stroke {
    Colour colour;
    double width = 0.2;       ///< mm
    std::vector<double> dash; ///< mm drawn, mm left out, and so on; empty: unbroken
};

enum class Anchor { left, middle, right };

struct Letters {
    double size = 3.0; ///< mm, of the font
    Colour colour;
    Anchor anchor = Anchor::left;
    double angle = 0.0; ///< degrees, upwards from level
    bool bold = false;
};

/// One line of a picture: parts that are joined, each of at least two points.
using Path = std::vector<std::vector<Place>>;

class Canvas {
public:
    Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    virtual ~Canvas() = default;

    virtual void draw(const Path& path, const Stroke& stroke) = 0;
    /// A white rectangle around a place, turned by degrees upwards from level.
    virtual void clear(Place middle, double width, double height, double angle) = 0;
    /// A filled circle with a white rim.
    virtual void dot(Place middle, double radius, Colour colour) = 0;
    /// The middle of the digits is level with the place.
    virtual void write(Place at, std::string_view text, const Letters& letters) = 0;
    /// What follows is on another page of the same size, if the format has pages; pictures have one.
    virtual void next_page() {}
    /// All of the file, in its format. Throws UsageError if it cannot be made.
    virtual std::string finish() = 0;
};

struct Page {
    double width = 420.0, height = 297.0; ///< mm
    std::string title, description;
};

/// Scalable vector graphics, whose texts stay texts.
std::unique_ptr<Canvas> svg_canvas(const Page& page);
/// By cairo. Both throw UsageError if the program was built without it.
std::unique_ptr<Canvas> pdf_canvas(const Page& page);
std::unique_ptr<Canvas> png_canvas(const Page& page, int dots_per_inch);

} // namespace program
