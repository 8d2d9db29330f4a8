#include "chart_page.hpp"

#include "tables.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace program {

namespace {

using ktl::Property;
namespace diagram = ktl::diagram;

constexpr double left_margin = 20.0, right_margin = 8.0, top_margin = 14.0, bottom_margin = 26.0;
constexpr double text_size = 3.2, title_size = 4.6, small_size = 2.8;
constexpr double gap = 2.0;           // between the frame and its numbers
constexpr double digit_height = 0.72; // of the size of letters

constexpr Colour black{}, grey{0x77, 0x77, 0x77}, light{0xdd, 0xdd, 0xdd}, process_colour{0xc0, 0x20, 0x10};

/// How the lines of a property look. The colours differ for the colour-blind, the strokes in grey print.
struct Look {
    Property held;
    const char* name;
    Stroke stroke;
};
const std::array<Look, 7>& looks() {
    static const std::array<Look, 7> all{{
        {Property::p, "isobars p", {{0x1f, 0x3a, 0x93}, 0.3, {}}},
        {Property::t, "isotherms t", {{0xb3, 0x47, 0x00}, 0.22, {4.0, 0.8, 0.8, 0.8}}},
        {Property::v, "isochores v", {{0x11, 0x77, 0x33}, 0.22, {2.0, 1.2}}},
        {Property::h, "isenthalps h", {{0x66, 0x66, 0x00}, 0.22, {5.0, 1.2}}},
        {Property::s, "isentropes s", {{0x88, 0x22, 0x77}, 0.25, {0.6, 0.9}}},
        {Property::u, "lines of constant u", {{0x22, 0x77, 0x88}, 0.22, {3.0, 0.8, 0.8, 0.8, 0.8, 0.8}}},
        {Property::x, "quality x", {{0x55, 0x55, 0x55}, 0.15, {}}},
    }};
    return all;
}
const Look& look_of(Property held) {
    const auto& all = looks();
    return *std::find_if(all.begin(), all.end() - 1, [&](const Look& look) { return look.held == held; });
}

const Stroke dome_stroke{{}, 0.5, {}};
const Stroke process_stroke{process_colour, 0.7, {}};
const Stroke ideal_stroke{process_colour, 0.35, {1.6, 1.2}};

double in_unit(double value, Property property, diagram::System system) {
    return ktl::units::Reading{diagram::unit(system, property), false, ktl::units::Fault::none}.from_ktl(value, 0.0);
}
double from_unit(double value, Property property, diagram::System system) {
    return ktl::units::Reading{diagram::unit(system, property), false, ktl::units::Fault::none}.to_ktl(value, 0.0);
}

/// A mark of an axis. rank: 0 with a number, 1 with a line of the grid, 2 a short mark alone.
struct Tick {
    double part; ///< of the length
    double value;
    int rank;
};

std::vector<Tick> even_ticks(const diagram::Axis& axis, double low, double high, diagram::System system) {
    const double a = in_unit(low, axis.property, system), b = in_unit(high, axis.property, system);
    const auto step_of = [&](double millimetres) {
        const double least = (b - a) * millimetres / axis.length;
        const auto steps = diagram::sequence_125(least, 11.0 * least);
        return steps.empty() ? b - a : steps.front();
    };
    const double major = step_of(18.0), minor = step_of(3.5);
    std::vector<Tick> all;
    for (const double value : diagram::sequence(a, b, minor)) {
        const double whole = value / major;
        const bool numbered = std::fabs(whole - std::round(whole)) < 1.0e-6;
        all.push_back({(value - a) / (b - a), from_unit(value, axis.property, system), numbered ? 0 : 2});
    }
    return all;
}

std::vector<Tick> decade_ticks(const diagram::Axis& axis, double low, double high, diagram::System system) {
    const double a = in_unit(low, axis.property, system), b = in_unit(high, axis.property, system);
    const double decade = axis.length / std::log10(b / a);
    const auto numbered = diagram::sequence_125(a, b);
    std::vector<Tick> all;
    for (const double one : diagram::sequence_125(0.1 * a, b)) {
        const double exponent = std::log10(one);
        if (std::fabs(exponent - std::round(exponent)) > 1.0e-9) continue;
        for (int digit = 1; digit < 10; ++digit) {
            const double value = one * digit;
            if (value < a * (1.0 - 1.0e-12) || value > b * (1.0 + 1.0e-12)) continue;
            const bool few = digit == 1 || ((digit == 2 || digit == 5) && decade > 25.0);
            const int rank = few ? 0 : decade > 12.0 ? 1 : 2;
            all.push_back({std::log10(value / a) / std::log10(b / a), from_unit(value, axis.property, system), rank});
        }
    }
    return all;
}

std::vector<Tick> ticks(const diagram::Axis& axis, double low, double high, diagram::System system) {
    const double ratio = in_unit(high, axis.property, system) / in_unit(low, axis.property, system);
    return axis.logarithmic && ratio > 8.0 ? decade_ticks(axis, low, high, system)
                                           : even_ticks(axis, low, high, system);
}

class ChartPage {
public:
    ChartPage(const diagram::Chart& chart, const diagram::Drawing& drawing, const Page& page, Canvas& canvas)
        : chart_(chart), drawing_(drawing), page_(page), room_(room_of(page)), canvas_(canvas) {}

    void draw() {
        draw_axes();
        draw_lines();
        draw_process();
        draw_labels();
        canvas_.draw(rectangle(), {black, 0.35, {}});
        canvas_.write({room_.left, 0.55 * top_margin}, page_.title,
                      {fitted(title_size, page_.title), black, Anchor::left, 0.0, true});
        draw_legend();
    }

private:
    [[nodiscard]] Place place(double x, double y) const { return {room_.left + x, room_.top + room_.height - y}; }

    [[nodiscard]] Path rectangle() const {
        return {{place(0.0, 0.0), place(room_.width, 0.0), place(room_.width, room_.height), place(0.0, room_.height),
                 place(0.0, 0.0)}};
    }

    [[nodiscard]] Path path_of(const diagram::Line& line) const {
        Path path;
        for (const std::vector<diagram::Point>& stroke : diagram::strokes(line)) {
            path.emplace_back();
            for (const diagram::Point& point : stroke) path.back().push_back(place(point.x, point.y));
        }
        return path;
    }

    void draw_axes() {
        const diagram::Axis &x = chart_.axes.x, &y = chart_.axes.y;
        Path grid, fine, marks;
        const Letters below{text_size, black, Anchor::middle}, beside{text_size, black, Anchor::right};
        std::vector<std::pair<Place, std::string>> numbers_x, numbers_y;
        for (const Tick& tick : ticks(x, chart_.window.left, chart_.window.right, chart_.system)) {
            const double at = tick.part * room_.width;
            if (tick.rank < 2) (tick.rank == 0 ? grid : fine).push_back({place(at, 0.0), place(at, room_.height)});
            marks.push_back({place(at, 0.0), place(at, tick.rank == 0 ? -1.6 : -0.8)});
            if (tick.rank == 0)
                numbers_x.emplace_back(place(at, -gap - 2.0), diagram::text(tick.value, x.property, chart_.system));
        }
        for (const Tick& tick : ticks(y, chart_.window.bottom, chart_.window.top, chart_.system)) {
            const double at = tick.part * room_.height;
            if (tick.rank < 2) (tick.rank == 0 ? grid : fine).push_back({place(0.0, at), place(room_.width, at)});
            marks.push_back({place(0.0, at), place(tick.rank == 0 ? -1.6 : -0.8, at)});
            if (tick.rank == 0)
                numbers_y.emplace_back(place(-gap, at), diagram::text(tick.value, y.property, chart_.system));
        }
        canvas_.draw(fine, {light, 0.08, {}});
        canvas_.draw(grid, {light, 0.15, {}});
        canvas_.draw(marks, {black, 0.2, {}});
        for (const auto& [at, text] : numbers_x) canvas_.write(at, text, below);
        for (const auto& [at, text] : numbers_y) canvas_.write(at, text, beside);
        canvas_.write(place(0.5 * room_.width, -gap - 7.0), axis_title(x.property), {text_size, black, Anchor::middle});
        canvas_.write({4.5, room_.top + 0.5 * room_.height}, axis_title(y.property),
                      {text_size, black, Anchor::middle, 90.0});
    }

    [[nodiscard]] std::string axis_title(Property property) const {
        return std::string(meaning_of(property)).append(" in ").append(diagram::unit_name(chart_.system, property));
    }

    void draw_lines() {
        // Thin lines first, so that the others lie on top of them.
        for (const Property held :
             {Property::x, Property::v, Property::h, Property::u, Property::s, Property::t, Property::p}) {
            for (const diagram::Line& line : drawing_.lines)
                if (line.held == held) canvas_.draw(path_of(line), look_of(held).stroke);
        }
        canvas_.draw(path_of(drawing_.dome.water), dome_stroke);
        canvas_.draw(path_of(drawing_.dome.steam), dome_stroke);
    }

    void draw_process() {
        for (const diagram::Line& step : drawing_.process) {
            const auto has_state = [](const diagram::Piece& piece) { return !std::isnan(piece.points[0].p); };
            const bool has_ideal = step.held == Property::s && step.pieces.size() > 1 &&
                                   has_state(step.pieces.front()) &&
                                   std::fabs(step.pieces.back().points.back().s - step.value) > 1.0e-9;
            diagram::Line drawn = step;
            if (has_ideal) {
                diagram::Line ideal = step;
                ideal.pieces.pop_back();
                drawn.pieces = {step.pieces.back()};
                canvas_.draw(path_of(ideal), ideal_stroke);
            }
            canvas_.draw(path_of(drawn), process_stroke);
        }
        for (const diagram::Point& state : drawing_.states) {
            if (state.x >= 0.0 && state.x <= room_.width && state.y >= 0.0 && state.y <= room_.height)
                canvas_.dot(place(state.x, state.y), 0.9, process_colour);
        }
    }

    void draw_labels() {
        const double size = chart_.letter_height / digit_height;
        const auto write = [&](const diagram::Label& label, const Letters& letters) {
            const Place at = place(label.x, label.y);
            canvas_.clear(at, label.width - 0.4, label.height, letters.angle);
        };
        constexpr double degrees = 57.29577951308232;
        const auto letters_of = [&](const diagram::Label& label, Colour colour, bool bold) {
            return Letters{size, colour, Anchor::middle, std::atan2(label.dy, label.dx) * degrees, bold};
        };
        const auto colour_of = [&](const diagram::Label& label) {
            return look_of(drawing_.lines[label.line].held).stroke.colour;
        };
        for (const diagram::Label& label : drawing_.labels) write(label, letters_of(label, colour_of(label), false));
        for (const diagram::Label& label : drawing_.state_labels) write(label, letters_of(label, process_colour, true));
        for (const diagram::Label& label : drawing_.labels)
            canvas_.write(place(label.x, label.y), label.text, letters_of(label, colour_of(label), false));
        for (const diagram::Label& label : drawing_.state_labels)
            canvas_.write(place(label.x, label.y), label.text, letters_of(label, process_colour, true));
    }

    void draw_legend() {
        std::vector<std::pair<const Stroke*, std::string>> entries;
        for (const diagram::Family& family : chart_.families) {
            if (family.values.empty()) continue;
            const Look& look = look_of(family.held);
            const std::string_view unit = diagram::unit_name(chart_.system, family.held);
            entries.emplace_back(&look.stroke, std::string(look.name).append(unit.empty() ? "" : " in ").append(unit));
        }
        entries.emplace_back(&dome_stroke, "saturation");
        if (!drawing_.process.empty()) entries.emplace_back(&process_stroke, "process");
        std::string all;
        for (const auto& entry : entries)
            all += entry.second + std::string(10, ' '); // the sample and what is beside it
        const double size = fitted(small_size, all), y = page_.height - 9.5;
        double x = room_.left;
        for (const auto& [stroke, text] : entries) {
            canvas_.draw({{{x, y}, {x + 3.0 * size, y}}}, *stroke);
            canvas_.write({x + 3.5 * size, y}, text, {size, black});
            x += width_of(text, size) + 5.0 * size;
        }
        canvas_.write({room_.left, page_.height - 4.5}, page_.description,
                      {fitted(small_size, page_.description), grey});
    }

    static double width_of(const std::string& text, double size) {
        constexpr double letter = 0.54; // of its size, with what is usual between thin and broad ones
        const auto letters = std::count_if(text.begin(), text.end(),
                                           [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; });
        return letter * size * static_cast<double>(letters);
    }
    /// The size of letters, or a smaller one with which the text is as wide as the chart.
    [[nodiscard]] double fitted(double size, const std::string& text) const {
        return std::min(size, size * room_.width / width_of(text, size));
    }

    const diagram::Chart& chart_;
    const diagram::Drawing& drawing_;
    const Page& page_;
    Room room_;
    Canvas& canvas_;
};

} // namespace

Room room_of(const Page& page) {
    return {left_margin, top_margin, page.width - left_margin - right_margin, page.height - top_margin - bottom_margin};
}

std::string_view meaning_of(ktl::Property property) {
    const auto all = properties();
    return std::find_if(all.begin(), all.end(), [&](const auto& row) { return row.id == property; })->meaning;
}

void draw_chart(const diagram::Chart& chart, const diagram::Drawing& drawing, const Page& page, Canvas& canvas) {
    ChartPage(chart, drawing, page, canvas).draw();
}

} // namespace program
