#include "diagram/labels.hpp"

#include "diagram/values.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace ktl::diagram {

namespace {

/// Of the letters, in their size: the size of letters is the height of digits over the first.
constexpr double digit_height = 0.72, letter_width = 0.62, line_height = 1.1;
constexpr double margin = 0.6;         // mm, around a text
constexpr double edge_margin = 1.0;    // mm, to the frame
constexpr double most_bend = 0.25;     // of the height of a label: how far its line may leave its middle
constexpr int places = 24;             // along a line
constexpr double crossing_cost = 0.05; // a crossed line counts as much as that part of the length
constexpr double cell = 8.0;           // mm
constexpr std::size_t nothing = static_cast<std::size_t>(-1); // the number of no line
constexpr double widest_state_label = 0.2; // of the width of the chart: name and values of a state, otherwise the name
constexpr double bold_cost = 3.0;          // lines that a state label may cross rather than the dome or the process
constexpr double mark_room = 1.0;          // mm, around a state

struct Vector {
    double x, y;
};
Vector operator-(Vector a, Vector b) { return {a.x - b.x, a.y - b.y}; }
double dot(Vector a, Vector b) { return a.x * b.x + a.y * b.y; }

/// The room of a label as a turned rectangle.
struct Box {
    Vector middle, along; // along: of length 1
    double half_width, half_height;

    [[nodiscard]] Vector across() const { return {-along.y, along.x}; }
    /// How far it reaches from its middle in a direction.
    [[nodiscard]] double reach(Vector direction) const {
        return half_width * std::fabs(dot(along, direction)) + half_height * std::fabs(dot(across(), direction));
    }
    [[nodiscard]] bool apart_in(Vector direction, const Box& other) const {
        return std::fabs(dot(other.middle - middle, direction)) >= reach(direction) + other.reach(direction);
    }
    [[nodiscard]] bool overlaps(const Box& other) const {
        return !apart_in(along, other) && !apart_in(across(), other) && !apart_in(other.along, other) &&
               !apart_in(other.across(), other);
    }
    [[nodiscard]] bool meets(Vector a, Vector b) const {
        const auto local = [&](Vector p) { return Vector{dot(p - middle, along), dot(p - middle, across())}; };
        const Vector from = local(a), to = local(b);
        double low = 0.0, high = 1.0;
        const auto cut = [&](double start, double end, double half) {
            const double rate = end - start;
            for (const double sign : {1.0, -1.0}) { // sign * (start + part * rate) <= half
                const double room = half - sign * start, slope = sign * rate;
                if (slope > 0.0) high = std::min(high, room / slope);
                if (slope < 0.0) low = std::max(low, room / slope);
                if (slope == 0.0 && room < 0.0) high = -1.0;
            }
        };
        cut(from.x, to.x, half_width);
        cut(from.y, to.y, half_height);
        return low <= high;
    }
};

/// All straight parts of a chart, by cells of the picture.
class Net {
public:
    Net(double width, double height) : columns_(count(width)), rows_(count(height)), cells_(columns_ * rows_) {}

    void add(const Line& line, std::size_t number) {
        for (const Piece& piece : line.pieces)
            for (std::size_t i = 1; i < piece.points.size(); ++i) add(piece.points[i - 1], piece.points[i], number);
    }
    /// How many lines but its own a box meets.
    [[nodiscard]] int crossings(const Box& box, std::size_t own) const {
        std::vector<std::size_t> met;
        const double dx = box.reach({1.0, 0.0}), dy = box.reach({0.0, 1.0});
        visit(box.middle.x - dx, box.middle.x + dx, box.middle.y - dy, box.middle.y + dy, [&](std::size_t at) {
            for (const Part& part : cells_[at]) {
                if (part.line == own || std::find(met.begin(), met.end(), part.line) != met.end()) continue;
                if (box.meets(part.a, part.b)) met.push_back(part.line);
            }
        });
        return static_cast<int>(met.size());
    }

private:
    struct Part {
        Vector a, b;
        std::size_t line;
    };
    static std::size_t count(double length) { return static_cast<std::size_t>(std::min(length / cell, 500.0)) + 1; }
    static std::size_t index(double place, std::size_t cells) {
        return static_cast<std::size_t>(std::clamp(place / cell, 0.0, static_cast<double>(cells - 1)));
    }
    template <class Visitor>
    void visit(double left, double right, double bottom, double top, Visitor&& visitor) const {
        for (std::size_t row = index(bottom, rows_); row <= index(top, rows_); ++row)
            for (std::size_t column = index(left, columns_); column <= index(right, columns_); ++column)
                visitor(row * columns_ + column);
    }
    void add(const Point& from, const Point& to, std::size_t number) {
        // A long line is cut, so that it lies in few cells that it does not cross.
        const double length = std::fmax(std::fabs(to.x - from.x), std::fabs(to.y - from.y));
        const int parts = static_cast<int>(std::min(length / cell, 1000.0)) + 1;
        Vector a{from.x, from.y};
        for (int i = 1; i <= parts; ++i) {
            const double part = static_cast<double>(i) / parts;
            const Vector b{from.x + part * (to.x - from.x), from.y + part * (to.y - from.y)};
            visit(std::min(a.x, b.x), std::max(a.x, b.x), std::min(a.y, b.y), std::max(a.y, b.y), [&](std::size_t at) {
                cells_[at].push_back({a, b, number});
            });
            a = b;
        }
    }

    std::size_t columns_, rows_;
    std::vector<std::vector<Part>> cells_;
};

/// Length along a line, over all its pieces.
class Path {
public:
    explicit Path(const Line& line) {
        for (const Piece& piece : line.pieces) {
            for (const Point& point : piece.points) {
                const Vector here{point.x, point.y};
                if (!points_.empty()) {
                    const Vector step = here - points_.back();
                    lengths_.push_back(lengths_.back() + std::sqrt(dot(step, step)));
                } else {
                    lengths_.push_back(0.0);
                }
                points_.push_back(here);
            }
        }
    }
    [[nodiscard]] double length() const { return lengths_.empty() ? 0.0 : lengths_.back(); }
    [[nodiscard]] Vector at(double length) const {
        const auto after = std::lower_bound(lengths_.begin(), lengths_.end(), length);
        const auto i = static_cast<std::size_t>(after - lengths_.begin());
        if (i == 0) return points_.front();
        if (i == points_.size()) return points_.back();
        const double step = lengths_[i] - lengths_[i - 1];
        const double part = step > 0.0 ? (length - lengths_[i - 1]) / step : 0.0;
        const Vector a = points_[i - 1], b = points_[i];
        return {a.x + part * (b.x - a.x), a.y + part * (b.y - a.y)};
    }

private:
    std::vector<Vector> points_;
    std::vector<double> lengths_;
};

/// A box on a line, turned to it; false if the line bends there.
bool make_box(const Path& path, double at, double width, double height, Box& box) {
    const Vector from = path.at(at - 0.5 * width), to = path.at(at + 0.5 * width);
    Vector along = to - from;
    const double length = std::sqrt(dot(along, along));
    if (!(length > 0.9 * width)) return false;
    along = {along.x / length, along.y / length};
    if (along.x < -1.0e-6 || (along.x < 1.0e-6 && along.y < 0.0)) along = {-along.x, -along.y};
    box = {{0.5 * (from.x + to.x), 0.5 * (from.y + to.y)}, along, 0.5 * width, 0.5 * height};
    for (const double part : {-0.25, 0.0, 0.25}) {
        const Vector off = path.at(at + part * width) - box.middle;
        if (std::fabs(dot(off, box.across())) > most_bend * height) return false;
    }
    return true;
}

std::size_t letters(const std::string& text) { // of UTF-8
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

/// "x = 0.9" if the symbol says it better than the unit, "10 bar" otherwise.
std::string label_text(const Chart& chart, const Line& line, bool in_full) {
    std::string value = text(line.value, line.held, chart.system);
    if (!in_full) return value;
    switch (line.held) {
    case Property::s: return std::string("s = ") += value;
    case Property::u: return std::string("u = ") += value;
    case Property::x: return std::string("x = ") += value;
    default: return value.append(" ").append(unit_name(chart.system, line.held));
    }
}

class Labels {
public:
    Labels(const Chart& chart, Drawing& drawing)
        : chart_(chart), drawing_(drawing), net_(chart.axes.x.length, chart.axes.y.length), bold_(net_),
          size_(chart.letter_height / digit_height) {
        for (std::size_t i = 0; i < drawing.lines.size(); ++i) net_.add(drawing.lines[i], i);
        for (const Line& step : drawing.process) bold_.add(step, 0);
        bold_.add(drawing.dome.water, 1);
        bold_.add(drawing.dome.steam, 1);
        for (const Point& state : drawing.states)
            boxes_.push_back({{state.x, state.y}, {1.0, 0.0}, mark_room, mark_room});
    }

    /// Beside the state, level: as near and with as few crossings as can be.
    void place_state(std::size_t number) {
        const Point& at = drawing_.states[number];
        const bool inside = at.x >= 0.0 && at.x <= chart_.axes.x.length && at.y >= 0.0 && at.y <= chart_.axes.y.length;
        if (!inside) return;
        std::string name = chart_.process[number].name;
        if (name.empty()) name = std::to_string(number + 1);
        const std::string in_full = std::string(name).append(": ").append(values(at));
        const bool short_enough = text_width(in_full) <= widest_state_label * chart_.axes.x.length;
        if (!short_enough || !place_state(number, at, in_full)) place_state(number, at, name);
    }

    void place(std::size_t number) {
        const Path path(drawing_.lines[number]);
        if (path.length() > 0.0 && !place(number, path, true)) place(number, path, false);
    }

private:
    /// Pressure and temperature, or quality.
    [[nodiscard]] std::string values(const Point& at) const {
        const auto with_unit = [&](Property property) {
            return rounded_text(at.get(property), property, chart_.system)
                .append(" ")
                .append(unit_name(chart_.system, property));
        };
        const std::string second = std::isnan(at.quality)
                                       ? with_unit(Property::t)
                                       : std::string("x = ") += rounded_text(at.quality, Property::x, chart_.system);
        return with_unit(Property::p) + ", " + second;
    }

    bool place_state(std::size_t number, const Point& at, const std::string& text) {
        const double width = text_width(text), height = line_height * size_;
        double least = 1.0e300;
        Box best{};
        for (int ring = 0; ring < 4; ++ring) {
            for (int place = 0; place < 8; ++place) {
                // Right and left of the state first, then above and below.
                constexpr std::array<Vector, 8> sides{{{1.0, 0.0},
                                                       {-1.0, 0.0},
                                                       {1.0, 1.0},
                                                       {-1.0, 1.0},
                                                       {1.0, -1.0},
                                                       {-1.0, -1.0},
                                                       {0.0, 1.0},
                                                       {0.0, -1.0}}};
                const Vector side = sides[static_cast<std::size_t>(place)];
                const double gap = 0.2 + mark_room + 2.5 * ring;
                const Box box{{at.x + side.x * (gap + 0.5 * width), at.y + side.y * (gap + 0.5 * height)},
                              {1.0, 0.0},
                              0.5 * width,
                              0.5 * height};
                if (!has_room(box)) continue;
                const double cost =
                    3.0 * ring + 0.3 * place + net_.crossings(box, nothing) + bold_cost * bold_.crossings(box, nothing);
                if (cost < least) {
                    least = cost;
                    best = box;
                }
            }
        }
        if (least > 1.0e299) return false;
        boxes_.push_back(best);
        drawing_.state_labels.push_back({text, 0, number, best.middle.x, best.middle.y, 1.0, 0.0, width, height});
        return true;
    }

    [[nodiscard]] double text_width(const std::string& text) const {
        return static_cast<double>(letters(text)) * letter_width * size_ + 2.0 * margin;
    }

    bool place(std::size_t number, const Path& path, bool in_full) {
        const std::size_t family = drawing_.families[number];
        const std::string text = label_text(chart_, drawing_.lines[number], in_full);
        const double width = text_width(text), height = line_height * size_;
        if (path.length() < 1.6 * width) return false;
        double least = 1.0e300;
        Box best{};
        for (int i = 0; i <= places; ++i) {
            const double part = static_cast<double>(i) / places;
            const double at = 0.6 * width + part * (path.length() - 1.2 * width);
            const double off = std::fabs(part - chart_.families[family].place);
            if (off >= least) continue;
            Box box{};
            if (!make_box(path, at, width, height, box) || !has_room(box)) continue;
            if (bold_.crossings(box, nothing) != 0) continue;
            const double cost = off + crossing_cost * net_.crossings(box, number);
            if (cost < least) {
                least = cost;
                best = box;
            }
        }
        if (least > 1.0e299) return false;
        boxes_.push_back(best);
        drawing_.labels.push_back(
            {text, family, number, best.middle.x, best.middle.y, best.along.x, best.along.y, width, height});
        return true;
    }

    [[nodiscard]] bool has_room(const Box& box) const {
        const double dx = box.reach({1.0, 0.0}) + edge_margin, dy = box.reach({0.0, 1.0}) + edge_margin;
        if (box.middle.x < dx || box.middle.x > chart_.axes.x.length - dx || box.middle.y < dy ||
            box.middle.y > chart_.axes.y.length - dy)
            return false;
        return std::none_of(boxes_.begin(), boxes_.end(), [&](const Box& other) { return box.overlaps(other); });
    }

    const Chart& chart_;
    Drawing& drawing_;
    Net net_, bold_; // the lines of families; those that no label on a line crosses
    double size_;
    std::vector<Box> boxes_;
};

} // namespace

void place_labels(const Chart& chart, Drawing& drawing) {
    Labels labels(chart, drawing);
    for (std::size_t i = 0; i < drawing.states.size(); ++i) labels.place_state(i);
    for (std::size_t i = 0; i < drawing.lines.size(); ++i) labels.place(i);
}

} // namespace ktl::diagram
