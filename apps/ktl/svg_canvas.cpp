#include "canvas.hpp"

#include <cmath>

namespace program {

namespace {

constexpr const char* fonts = "Helvetica, Arial, 'Liberation Sans', 'DejaVu Sans', sans-serif";
/// From the middle of digits to their lower edge, of the size of letters.
constexpr double half_digit = 0.36;

/// Hundredths of a millimetre, as short as they can be written, whatever the locale.
std::string decimal(double value) {
    const auto hundredths = static_cast<long long>(std::llround(value * 100.0));
    const long long size = hundredths < 0 ? -hundredths : hundredths;
    std::string out = hundredths < 0 ? "-" : "";
    if (size >= 100 || size == 0) out += std::to_string(size / 100);
    if (size % 100 == 0) return out;
    out += '.';
    out += static_cast<char>('0' + size % 100 / 10);
    if (size % 10 != 0) out += static_cast<char>('0' + size % 10);
    return out;
}

std::string hexadecimal(Colour colour) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string out(1, '#');
    for (const unsigned part : {colour.red, colour.green, colour.blue}) {
        out += digits[part / 16];
        out += digits[part % 16];
    }
    return out;
}

std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '>')
            out += "&gt;";
        else if (byte < 0x20U || byte == 0x7fU)
            out += ' '; // no control character is allowed
        else
            out += c;
    }
    return out;
}

/// Points as steps from one to the next, which take fewer digits. Roundings do not add up.
std::string path_data(const Path& path) {
    std::string out;
    const auto rounded = [](double value) { return std::round(value * 100.0) / 100.0; };
    const auto append = [&](double value) {
        const std::string number = decimal(value);
        if (number.front() != '-' && out.back() != 'M' && out.back() != 'l') out += ' ';
        out += number;
    };
    for (const std::vector<Place>& part : path) {
        Place at{rounded(part.front().x), rounded(part.front().y)};
        out += 'M';
        append(at.x);
        append(at.y);
        out += 'l';
        for (std::size_t i = 1; i < part.size(); ++i) {
            const Place next{rounded(part[i].x), rounded(part[i].y)};
            append(next.x - at.x);
            append(next.y - at.y);
            at = next;
        }
    }
    return out;
}

class SvgCanvas final : public Canvas {
public:
    explicit SvgCanvas(const Page& page) {
        const std::string width = decimal(page.width), height = decimal(page.height);
        out_ = std::string(
                   "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"")
                   .append(width)
                   .append("mm\" height=\"")
                   .append(height)
                   .append("mm\" viewBox=\"0 0 ")
                   .append(width + " " + height)
                   .append("\" role=\"img\" aria-labelledby=\"title desc\" font-family=\"")
                   .append(fonts)
                   .append("\" stroke-linejoin=\"round\" stroke-linecap=\"butt\">\n<title id=\"title\">")
                   .append(escaped(page.title))
                   .append("</title>\n<desc id=\"desc\">")
                   .append(escaped(page.description))
                   .append("</desc>\n<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n");
    }

    void draw(const Path& path, const Stroke& stroke) override {
        if (path.empty()) return;
        std::string style = std::string("fill=\"none\" stroke=\"")
                                .append(hexadecimal(stroke.colour))
                                .append("\" stroke-width=\"")
                                .append(decimal(stroke.width))
                                .append("\"");
        if (!stroke.dash.empty()) {
            style += " stroke-dasharray=\"";
            for (const double length : stroke.dash)
                style.append(style.back() == '"' ? "" : " ").append(decimal(length));
            style += '"';
        }
        open_group(style);
        out_.append("<path d=\"").append(path_data(path)).append("\"/>\n");
    }

    void clear(Place middle, double width, double height, double angle) override {
        open_group("fill=\"#ffffff\"");
        out_.append("<rect x=\"")
            .append(decimal(middle.x - 0.5 * width))
            .append("\" y=\"")
            .append(decimal(middle.y - 0.5 * height))
            .append("\" width=\"")
            .append(decimal(width))
            .append("\" height=\"")
            .append(decimal(height))
            .append("\"")
            .append(turn(angle, middle))
            .append("/>\n");
    }

    void dot(Place middle, double radius, Colour colour) override {
        open_group(
            std::string("fill=\"").append(hexadecimal(colour)).append("\" stroke=\"#ffffff\" stroke-width=\".25\""));
        out_.append("<circle cx=\"")
            .append(decimal(middle.x))
            .append("\" cy=\"")
            .append(decimal(middle.y))
            .append("\" r=\"")
            .append(decimal(radius))
            .append("\"/>\n");
    }

    void write(Place at, std::string_view text, const Letters& letters) override {
        const char* anchor = letters.anchor == Anchor::left     ? "start"
                             : letters.anchor == Anchor::middle ? "middle"
                                                                : "end";
        open_group(std::string("fill=\"")
                       .append(hexadecimal(letters.colour))
                       .append("\" font-size=\"")
                       .append(decimal(letters.size))
                       .append("\" text-anchor=\"")
                       .append(anchor)
                       .append(letters.bold ? "\" font-weight=\"bold\"" : "\""));
        out_.append("<text x=\"")
            .append(decimal(at.x))
            .append("\" y=\"")
            .append(decimal(at.y + half_digit * letters.size))
            .append("\"")
            .append(turn(letters.angle, at))
            .append(">")
            .append(escaped(text))
            .append("</text>\n");
    }

    std::string finish() override {
        open_group("");
        out_ += "</svg>\n";
        return std::move(out_);
    }

private:
    static std::string turn(double angle, Place middle) {
        const std::string degrees = decimal(-angle);
        if (degrees == "0") return {};
        return std::string(" transform=\"rotate(")
            .append(degrees)
            .append(" ")
            .append(decimal(middle.x))
            .append(" ")
            .append(decimal(middle.y))
            .append(")\"");
    }

    /// What follows has this style: one group for neighbours that share it.
    void open_group(const std::string& style) {
        if (style == style_) return;
        if (!style_.empty()) out_ += "</g>\n";
        style_ = style;
        if (!style.empty()) out_.append("<g ").append(style).append(">\n");
    }

    std::string out_, style_;
};

} // namespace

std::unique_ptr<Canvas> svg_canvas(const Page& page) { return std::make_unique<SvgCanvas>(page); }

} // namespace program
