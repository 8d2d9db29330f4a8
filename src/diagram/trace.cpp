#include "diagram/trace.hpp"

#include "searches/enclosure.hpp"

#include <algorithm>
#include <cmath>

namespace ktl::diagram {

namespace {

constexpr int first_intervals = 12;
/// An interval is halved at most so often; neighbouring numbers come first.
constexpr int most_halvings = 60;
constexpr std::size_t most_left_out = 64;
/// All steps of a stretch, far above what the least deviation asks for: noise in the last digits must not be followed.
constexpr std::size_t most_steps = 50000;
/// Outside the window a line is followed less closely, but into windows of a millionth of the range.
constexpr int most_halvings_outside = 40;
constexpr double on_edge = 1.0e-7; // mm
/// Part of the tolerance that the deviations at three points of an interval may have: between them they may be larger.
constexpr double safety = 0.9;
/// And the part that the points of a straight part may have to be left out.
constexpr double straight = 0.05;

/// The two sides of sub-region 3 meet above the critical temperature without a jump.
Region kind_of(Region region) { return region == Region::near_critical_water ? Region::near_critical_steam : region; }

struct Node {
    double parameter = 0.0;
    Point point;
    bool found = false;
    unsigned outside = 0; // a bit for each edge of the window that it lies beyond

    [[nodiscard]] bool same_kind(const Node& other) const {
        return found == other.found && (!found || kind_of(point.region) == kind_of(other.point.region));
    }
};

double distance_to_segment(const Point& point, const Point& a, const Point& b) {
    const double dx = b.x - a.x, dy = b.y - a.y, length = dx * dx + dy * dy;
    const double along = length > 0.0 ? ((point.x - a.x) * dx + (point.y - a.y) * dy) / length : 0.0;
    const double part = std::clamp(along, 0.0, 1.0);
    const double ex = point.x - a.x - part * dx, ey = point.y - a.y - part * dy;
    return std::sqrt(ex * ex + ey * ey);
}

class Tracer {
public:
    Tracer(const Stretch& stretch, const Frame& frame, double tolerance, std::vector<Piece>& pieces)
        : stretch_(stretch), frame_(frame), tolerance_(safety * tolerance), pieces_(pieces), begin_(stretch.begin) {}

    void run() {
        Node before = known(stretch_.from, stretch_.first);
        for (const double turn : stretch_.turns) before = walk_evenly(before, at(turn));
        walk_evenly(before, known(stretch_.to, stretch_.last));
        close(stretch_.end);
    }

private:
    /// Walks in equal intervals to begin with; returns the last node.
    Node walk_evenly(const Node& first, const Node& last) {
        Node before = first;
        for (int i = 1; i <= first_intervals; ++i) {
            const double part = static_cast<double>(i) / first_intervals;
            const Node here =
                i == first_intervals ? last : at(first.parameter + part * (last.parameter - first.parameter));
            walk(before, here);
            before = here;
        }
        return last;
    }
    [[nodiscard]] unsigned outside(const Point& point) const {
        return (point.x < -on_edge ? 1U : 0U) | (point.x > frame_.width() + on_edge ? 2U : 0U) |
               (point.y < -on_edge ? 4U : 0U) | (point.y > frame_.height() + on_edge ? 8U : 0U);
    }
    [[nodiscard]] Node known(double parameter, const Point& point) const {
        return {parameter, point, true, outside(point)};
    }
    [[nodiscard]] Node at(double parameter) const {
        Node node;
        node.parameter = parameter;
        node.found = find_point(stretch_, parameter, frame_, node.point);
        if (node.found) node.outside = outside(node.point);
        return node;
    }
    static double middle(const Node& a, const Node& b) { return a.parameter + 0.5 * (b.parameter - a.parameter); }
    static bool neighbours(const Node& a, const Node& b) {
        const double m = middle(a, b);
        return m == a.parameter || m == b.parameter;
    }

    /// What is left to do, the next at the end: an interval to follow; one in the window, with its middle, to be halved until it is
    /// straight; the end of a piece.
    struct Task {
        enum class Kind : unsigned char { follow, halve, end };
        Kind kind;
        Node a, m, b;
        int halvings;
        End reason = End::window;
    };
    void push_follow(const Node& a, const Node& b, int halvings) {
        tasks_.push_back({Task::Kind::follow, a, {}, b, halvings});
    }
    void push_halve(const Node& a, const Node& m, const Node& b, int halvings) {
        tasks_.push_back({Task::Kind::halve, a, m, b, halvings});
    }
    void push_end(End reason) { tasks_.push_back({Task::Kind::end, {}, {}, {}, 0, reason}); }

    /// Walks from a to b.
    void walk(const Node& a, const Node& b) {
        push_follow(a, b, 0);
        while (!tasks_.empty()) {
            ++steps_;
            const Task task = tasks_.back();
            tasks_.pop_back();
            switch (task.kind) {
            case Task::Kind::follow: follow(task.a, task.b, task.halvings); break;
            case Task::Kind::halve: halve(task.a, task.m, task.b, task.halvings); break;
            case Task::Kind::end: close(task.reason); begin_ = task.reason;
            }
        }
    }

    void follow(const Node& a, const Node& b, int halvings) {
        if (!a.found && !b.found) return;
        if (a.found && b.found && (a.outside & b.outside) != 0 && stays_outside(a, b, halvings)) return;
        if (!a.same_kind(b)) {
            split(a, b, halvings);
        } else if (a.outside != 0 || b.outside != 0) {
            follow_edge(a, b, halvings);
        } else {
            push_halve(a, at(middle(a, b)), b, halvings);
        }
    }

    /// Whether the line between two points beyond the same edge stays there. It may come back in between if its middle is
    /// nearer to the window than both ends.
    [[nodiscard]] bool stays_outside(const Node& a, const Node& b, int halvings) const {
        if (halvings >= most_halvings_outside || neighbours(a, b)) return true;
        const Node m = at(middle(a, b));
        if (!m.found) return false;
        const unsigned common = a.outside & b.outside & m.outside;
        const auto nearer = [&](double edge, double pa, double pm, double pb) {
            return std::fabs(pm - edge) < std::min(std::fabs(pa - edge), std::fabs(pb - edge));
        };
        if ((common & 3U) != 0)
            return !nearer((common & 1U) != 0 ? 0.0 : frame_.width(), a.point.x, m.point.x, b.point.x);
        if ((common & 12U) != 0)
            return !nearer((common & 4U) != 0 ? 0.0 : frame_.height(), a.point.y, m.point.y, b.point.y);
        return false;
    }

    /// The two sides of a change of region, or of the limit of the range, are neighbouring parameters.
    void split(Node a, Node b, int halvings) {
        const Node first = a, last = b;
        for (int pass = 0; pass < 2 * most_halvings && !neighbours(a, b); ++pass) {
            const Node m = at(middle(a, b));
            (m.same_kind(first) ? a : b) = m;
        }
        const bool dome = a.found && b.found && is_wet(a.point.region) != is_wet(b.point.region);
        // A third region may lie between first and a, or b and last.
        if (halvings < most_halvings) push_follow(b, last, halvings + 1);
        push_end(!a.found || !b.found ? End::range : dome ? End::dome : End::sub_region);
        if (halvings < most_halvings) push_follow(first, a, halvings + 1);
    }

    void follow_edge(const Node& a, const Node& b, int halvings) {
        const bool a_in = a.outside == 0, b_in = b.outside == 0;
        const bool crosses = a_in != b_in;
        if (neighbours(a, b) || (!crosses && halvings >= most_halvings_outside)) {
            push_end(End::window);
        } else if (crosses && halvings >= 4) {
            const Node edge = crossing(a, b);
            if (!a_in) push_inside(edge, b, halvings);
            push_end(End::window);
            if (a_in) push_inside(a, edge, halvings);
        } else {
            const Node m = at(middle(a, b));
            push_follow(m, b, halvings + 1);
            push_follow(a, m, halvings + 1);
        }
    }
    void push_inside(const Node& a, const Node& b, int halvings) {
        if (a.same_kind(b) && !neighbours(a, b)) push_halve(a, at(middle(a, b)), b, halvings);
    }

    /// The point of the line on the edge of the window between a point inside and one outside.
    [[nodiscard]] Node crossing(const Node& a, const Node& b) const {
        const auto room = [&](const Point& p) {
            return std::min(std::min(p.x, frame_.width() - p.x), std::min(p.y, frame_.height() - p.y));
        };
        const auto residual = [&](double parameter) {
            const Node node = at(parameter);
            return node.found ? room(node.point) : -1.0;
        };
        const auto found = solvers::enclose(residual, a.parameter, room(a.point), b.parameter, room(b.point), 1.0e-9);
        Node edge = at(found.x);
        if (edge.found && edge.outside == 0) return edge;
        edge = at(found.other);
        return edge.found && edge.outside == 0 ? edge : (a.outside == 0 ? a : b);
    }

    /// Halves an interval of the window unless three points between its ends are near enough to their straight line.
    void halve(const Node& a, const Node& m, const Node& b, int halvings) {
        if (halvings >= most_halvings || steps_ > most_steps || neighbours(a, b)) {
            emit(a, b);
            return;
        }
        const Node q1 = at(middle(a, m)), q3 = at(middle(m, b));
        const bool plain = is_plain(a, q1) && is_plain(a, m) && is_plain(a, q3);
        if (!plain) {
            push_follow(m, b, halvings + 1);
            push_follow(a, m, halvings + 1);
        } else if (is_near(q1, a, b) && is_near(m, a, b) && is_near(q3, a, b)) {
            emit(a, b);
        } else {
            push_halve(m, q3, b, halvings + 1);
            push_halve(a, q1, m, halvings + 1);
        }
    }
    static bool is_plain(const Node& a, const Node& other) { return other.outside == 0 && other.same_kind(a); }
    [[nodiscard]] bool is_near(const Node& node, const Node& a, const Node& b) const {
        return distance_to_segment(node.point, a.point, b.point) <= tolerance_;
    }

    void emit(const Node& a, const Node& b) {
        if (!open_) {
            left_out_.clear();
            pieces_.emplace_back();
            pieces_.back().begin = begin_;
            pieces_.back().points.push_back(a.point);
            open_ = true;
        }
        auto& points = pieces_.back().points;
        if (points.size() >= 2 && is_straight(points[points.size() - 2], b.point)) {
            left_out_.push_back(points.back());
            points.back() = b.point;
        } else {
            left_out_.clear();
            points.push_back(b.point);
        }
    }
    /// Whether the points between from and to, the last one of the piece included, may be left out.
    [[nodiscard]] bool is_straight(const Point& from, const Point& to) const {
        const auto on_line = [&](const Point& point) {
            return distance_to_segment(point, from, to) <= straight * tolerance_;
        };
        return left_out_.size() < most_left_out && on_line(pieces_.back().points.back()) &&
               std::all_of(left_out_.begin(), left_out_.end(), on_line);
    }
    void close(End end) {
        if (open_) pieces_.back().end = end;
        open_ = false;
    }

    const Stretch& stretch_;
    const Frame& frame_;
    double tolerance_;
    std::vector<Piece>& pieces_;
    End begin_;
    bool open_ = false;
    std::vector<Task> tasks_;
    std::size_t steps_ = 0;
    std::vector<Point> left_out_; // between the last two points of the piece
};

} // namespace

void trace(const Stretch& stretch, const Frame& frame, double tolerance, std::vector<Piece>& pieces) {
    Tracer(stretch, frame, tolerance, pieces).run();
}

void trace_straight(const Point& from, const Point& to, const Frame& frame, std::vector<Piece>& pieces) {
    double low = 0.0, high = 1.0;
    const double dx = to.x - from.x, dy = to.y - from.y;
    const auto cut = [&](double rate, double room) { // rate * part <= room
        if (rate > 0.0) high = std::min(high, room / rate);
        if (rate < 0.0) low = std::max(low, room / rate);
        return rate != 0.0 || room >= 0.0;
    };
    const bool meets =
        cut(-dx, from.x) && cut(dx, frame.width() - from.x) && cut(-dy, from.y) && cut(dy, frame.height() - from.y);
    if (!meets || !(low < high)) return;
    const auto place = [&](double part) {
        Point point;
        point.x = from.x + part * dx;
        point.y = from.y + part * dy;
        return point;
    };
    Piece piece;
    piece.points = {low > 0.0 ? place(low) : from, high < 1.0 ? place(high) : to};
    piece.begin = low > 0.0 ? End::window : End::range;
    piece.end = high < 1.0 ? End::window : End::range;
    pieces.push_back(std::move(piece));
}

} // namespace ktl::diagram
