// Polytropic steps. dh = efficiency v dp (expansion) or v dp / efficiency (compression) with T ds = dh - v dp gives
//
//     ds/du = r p v / T,   u = ln p,   r = efficiency - 1 (expansion) or 1/efficiency - 1 (compression)
//
// whose right-hand side changes slowly along a line of steam and is exactly 0 if the efficiency is 1. It is integrated by
// Gauss-Legendre collocation: on each stretch the slope is the polynomial through its values at fourteen nodes, whose states
// are solved together in vector lanes. Stretches end where the line leaves a region, since the slope has kinks there.
#include "process/polytropic_line.hpp"
#include "searches/enclosure.hpp"

namespace ktl::process {

namespace {

using collocation::points;

/// Where the line leaves a region: between low and high, x of a stretch.
struct Border {
    double low, high;
    double error = infinity; ///< of the entropy, if the slopes beyond it are taken for those before it

    [[nodiscard]] double middle() const { return 0.5 * (low + high); }
};

/// Goes along the line stretch by stretch.
class Walk {
public:
    /// first, last: slopes at the beginning and at the end of the isentropic line.
    Walk(Line& line, double end, double s, double first, double last)
        : line_(line), end_(end), least_(std::fabs(end) / 4096.0), s_(s), length_(end), goal_(end), limit_(end) {
        // In parts of the greatest entropy rise that the line can have; never below what states are solved to.
        constexpr double accuracy = 1.0e-10, least_tolerance = 1.0e-14;
        const double steepest = std::fmax(std::fabs(first), std::fabs(last));
        tolerance_ = std::fmax(accuracy * std::fabs(end) * steepest, least_tolerance);
        guess_ = {0.0, end, s, {first}};
        if (!std::isnan(last)) guess_.series = {0.5 * (first + last), 0.5 * (last - first)};
    }

    /// The entropy at the end; NaN if the line leaves the valid range.
    double run() {
        constexpr int most_tries = 4096; // a line takes 1 to 50
        for (int tries = 0; tries < most_tries && u_ != end_ && !std::isnan(s_); ++tries) advance();
        return u_ == end_ ? s_ : quiet_nan;
    }

private:
    static constexpr int most_sweeps = 8, most_cuts = 3, most_narrowings = 8;
    static constexpr int most_borders = 64; ///< of a line; a line along a border might have any number
    /// Of the length of a stretch after a try.
    static constexpr double least_change = 0.1, most_change_of_failed = 0.7, most_growth = 8.0;

    /// True for a stretch that is taken as it is: one of 4096 parts of the line.
    [[nodiscard]] bool shortest() const { return is_least(length_); }
    /// A hundredth more counts as the shortest, so that each change of a longer length makes a difference.
    [[nodiscard]] bool is_least(double length) const { return std::fabs(length) <= 1.01 * least_; }
    void set_length(double length) { length_ = std::copysign(std::fmax(std::fabs(length), least_), end_); }

    /// Tries one stretch: goes to its end, or makes the next try shorter.
    void advance() {
        if (limit_ != end_ && std::fabs(length_) > std::fabs(limit_ - u_)) set_length(1.1 * (limit_ - u_));
        constexpr double rounding = 1.0e-3; // of the shortest length; less than what any change of the length leaves
        reaches_goal_ = std::fabs(length_) >= std::fabs(goal_ - u_) - rounding * least_;
        if (reaches_goal_) length_ = goal_ - u_;
        Stretch tried{u_, length_, s_, {}};
        const Samples samples = solve(tried);
        if (samples.valid < point_count) {
            give_way(samples.valid);
            return;
        }
        guess_ = tried;
        const std::size_t alike = count_alike(samples);
        if (alike < labels_end() && !shortest() && cuts_ < most_cuts && borders_ < most_borders) {
            cut(tried, samples, alike);
            return;
        }
        const double error = std::max(error_of(tried), unseen_error(tried, samples));
        if (!shortest() && (alike < labels_end() || !converged_ || !(error <= tolerance_))) {
            set_length(length_ * std::clamp(change_of_length(error), least_change, most_change_of_failed));
            cuts_ = 0;
            return;
        }
        if (at_border()) {
            accept_to_border(tried);
        } else {
            accept(tried, 1.0);
            length_ = std::fmin(change_of_length(error), most_growth) * tried.length;
        }
    }

    [[nodiscard]] bool at_border() const { return reaches_goal_ && goal_ != end_; }

    // The region at the end does not count if a border is expected there.
    [[nodiscard]] std::size_t labels_end() const { return at_border() ? point_count - 1 : point_count; }

    /// The first point in another region than the beginning; labels_end() if there is none.
    [[nodiscard]] std::size_t count_alike(const Samples& samples) const {
        std::size_t i = 1;
        while (i < labels_end() && samples.region[i] == samples.region[0]) ++i;
        return i;
    }

    /// By what the length may change: the error goes with a high power of it.
    [[nodiscard]] double change_of_length(double error) const {
        return error > 0.0 ? 0.85 * std::sqrt(std::sqrt(std::sqrt(std::sqrt(tolerance_ / error)))) : most_growth;
    }

    /// There is no state at that point: tries before it, or ends if it is next to the beginning.
    void give_way(std::size_t point) {
        limit_ = u_ + 0.5 * length_ * (points[point] + 1.0);
        if (is_least(limit_ - u_)) s_ = quiet_nan;
        set_length(point < 2 ? length_ / 16.0 : 0.5 * length_ * (points[point - 1] + 1.0));
        cuts_ = 0;
    }

    /// Makes the border before that point the goal.
    void cut(const Stretch& tried, const Samples& samples, std::size_t point) {
        Border border{points[point - 1], points[point]};
        const bool no_node_before = point == 1;
        inside_ = samples.region[0];
        outside_ = samples.region[point];
        narrow(tried, border, no_node_before ? most_narrowings : 1);
        ++cuts_;
        ++borders_;
        if (border.low == -1.0)
            begin_at_border_of(samples.region[1]);
        else
            set_goal(tried.u_at(border.middle()));
    }

    /// The next stretch begins at a border, about: its beginning counts as a point of the region behind that.
    void begin_at_border_of(Region region) {
        from_border_ = true;
        begin_ = region;
    }

    void set_goal(double u) {
        goal_ = u;
        length_ = u - u_;
    }

    /// Goes on to the border beside the end of the stretch, or makes it the goal if it is too far from there.
    void accept_to_border(const Stretch& tried) {
        constexpr double farthest = 1.2, near_enough = 1.02;
        Border border{points[point_count - 2], farthest};
        narrow(tried, border, most_narrowings);
        if (border.high == farthest) {
            accept(tried, 1.0);
            set_goal(end_);
        } else if (border.middle() > near_enough && cuts_ < most_cuts) {
            ++cuts_;
            set_goal(tried.u_at(border.middle()));
        } else {
            accept(tried, border.middle());
            begin_at_border_of(outside_);
            set_goal(end_);
        }
    }

    /// Goes on to x of the stretch.
    void accept(const Stretch& tried, double x) {
        s_ = tried.s_at(std::array{x})[0];
        u_ = x == 1.0 && reaches_goal_ ? goal_ : tried.u_at(x);
        if (reaches_goal_) goal_ = end_;
        if (std::fabs(u_) >= std::fabs(limit_)) limit_ = end_;
        cuts_ = 0;
        from_border_ = false;
        double slope = 0.0;
        for (const double c : tried.series) slope += c;
        guess_ = {u_, end_ - u_, s_, {slope}};
    }

    /// Looks for the border: of mixtures by their saturation line, of others by the regions of points between.
    void narrow(const Stretch& stretch, Border& border, int most_times) {
        if ((is_wet(inside_) || is_wet(outside_)) && adjacent(inside_, outside_)) {
            const double x = border_of_mixture(stretch, border);
            if (x > border.low && x < border.high) {
                border.low = border.high = x;
                return;
            }
        }
        for (int i = 0; i < most_times && !(border.error <= tolerance_); ++i) compare_regions(stretch, border);
    }

    static bool is_wet(Region region) { return region == Region::wet || region == Region::wet_near_critical; }

    /// False if a third region lies between the two, or meets them in one point, at 350 degC on the saturation line.
    static bool adjacent(Region a, Region b) {
        const auto near_critical = [](Region region) {
            return region == Region::near_critical_steam || region == Region::near_critical_water ||
                   region == Region::wet_near_critical;
        };
        return (is_wet(a) && is_wet(b)) || near_critical(a) == near_critical(b);
    }

    /// NaN if it is not between low and high.
    [[nodiscard]] double border_of_mixture(const Stretch& stretch, const Border& border) const {
        if (is_wet(inside_) && is_wet(outside_)) return stretch.x_at(line_.change_of_equations());
        const bool vapour = water_fraction(is_wet(inside_) ? outside_ : inside_, quiet_nan) == 0.0;
        const auto beyond = [&](double x) {
            return stretch.s_at(std::array{x})[0] - line_.saturated(stretch.u_at(x), vapour);
        };
        const double at_low = beyond(border.low), at_high = beyond(border.high);
        if (!((at_low < 0.0 && at_high > 0.0) || (at_low > 0.0 && at_high < 0.0))) return quiet_nan;
        constexpr double close =
            1.0e-7; // kJ/(kg K); the slope has a kink there and no step, so the error goes with its square
        return solvers::enclose(beyond, border.low, at_low, border.high, at_high, close).x;
    }

    void compare_regions(const Stretch& stretch, Border& border) {
        Points x, u;
        for (std::size_t i = 0; i < point_count; ++i) {
            const double part = static_cast<double>(i + 1) / static_cast<double>(point_count + 1);
            x[i] = border.low + (border.high - border.low) * part;
            u[i] = stretch.u_at(x[i]);
        }
        const Samples samples = line_.at(u, stretch.s_at(x));
        std::size_t count = 0;
        while (count < point_count && samples.region[count] == inside_) ++count;
        if (count < point_count) {
            border.high = x[count];
            outside_ = samples.region[count];
        }
        if (count == 0) return;
        border.low = x[count - 1];
        if (count == point_count) return;
        const double rise = samples.slope[count] - samples.slope[count - 1];
        border.error = std::fabs(rise * 0.5 * stretch.length * (border.high - border.low));
    }

    /// The error of the entropy at the end. The coefficients of a smooth slope fall like those of a geometric series, and those of
    /// the error at the end go on from the last one; those of a kink hardly fall.
    [[nodiscard]] double error_of(const Stretch& stretch) const {
        const Nodes& c = stretch.series;
        const double last = std::max(std::fabs(c[node_count - 1]), std::fabs(c[node_count - 2]));
        const double middle = std::max(std::fabs(c[node_count / 2]), std::fabs(c[node_count / 2 - 1]));
        if (last == 0.0) return 0.0;
        const double fall = std::min(last / middle, 1.0);
        const double beside_end = at_border() ? 0.1 : 0.0; // the fall holds for the end alone
        return std::fabs(stretch.length) * last * std::max(fall * fall, beside_end);
    }

    /// The error of what the nodes do not see: between them and the ends, by the slopes at the ends. Beyond a border the equations
    /// themselves leave a small step, which is not followed but next to the critical point, where slopes change at once.
    [[nodiscard]] double unseen_error(const Stretch& stretch, const Samples& samples) const {
        const bool near_critical =
            samples.region[1] == Region::near_critical_steam || samples.region[1] == Region::near_critical_water;
        double at_begin = 0.0, at_end = 0.0, sign = 1.0;
        for (const double c : stretch.series) {
            at_begin += sign * c;
            at_end += c;
            sign = -sign;
        }
        const double half_gap = 0.25 * (1.0 + points[1]);
        const double begin = from_border_ && !near_critical ? 0.0 : std::fabs(samples.slope.front() - at_begin);
        const double end = at_border() ? 0.0 : std::fabs(samples.slope.back() - at_end);
        return std::fabs(stretch.length) * half_gap * std::max(begin, end);
    }

    /// Solves the equations of collocation by Newton's method with the slopes' derivatives by s from the last two sweeps. Gives
    /// up early if the stretch will not do.
    Samples solve(Stretch& stretch) {
        Points u, x;
        for (std::size_t i = 0; i < point_count; ++i) {
            u[i] = stretch.u_at(points[i]);
            x[i] = guess_.x_at(u[i]);
        }
        Points s = guess_.s_at(x), s_before{};
        s.front() = stretch.s;
        Samples samples{}, before{};
        Nodes derivative{};
        double last = 0.0;
        converged_ = false;
        for (int sweep = 0; sweep < most_sweeps; ++sweep) {
            samples = line_.at(u, s);
            if (from_border_) samples.region[0] = begin_;
            if (samples.valid < point_count) return samples;
            double defect = 0.0;
            for (std::size_t i = 0; sweep > 0 && i < node_count; ++i) {
                const double ds = s[i + 1] - s_before[i + 1], rise = samples.slope[i + 1] - before.slope[i + 1];
                defect = std::max(defect, std::fabs(stretch.length * (rise - derivative[i] * ds)));
                constexpr double meaningful = 1.0e-9;
                if (std::fabs(ds) > meaningful) derivative[i] = rise / ds;
            }
            s_before = s;
            before = samples;
            const double change = solve_linear(stretch, samples.slope, derivative, s);
            if (count_alike(samples) < labels_end()) return samples;
            if (sweep > 0) {
                const bool converges = defect < 0.3 * last && defect * defect <= 0.1 * tolerance_ * last;
                converged_ = (converges || defect <= 0.1 * tolerance_) && residual_ <= 0.1 * tolerance_;
                if (converged_ || error_of(stretch) > 1000.0 * tolerance_) return samples;
            }
            last = sweep > 0 ? defect : change;
        }
        return samples;
    }

    /// The collocation with slopes linear in s: s becomes its solution. Returns by how much it differs.
    double solve_linear(Stretch& stretch, const Points& slopes, const Nodes& derivative, Points& s) {
        Nodes slope, given, y;
        double contraction = 0.0;
        for (std::size_t i = 0; i < node_count; ++i) {
            slope[i] = given[i] = slopes[i + 1];
            y[i] = s[i + 1];
            contraction = std::max(contraction, std::fabs(stretch.length * derivative[i]));
        }
        constexpr int most_times = 40;
        for (int times = 0; times < most_times; ++times) {
            const Nodes integrals = collocation::integrals_to_nodes(slope);
            double change = 0.0;
            for (std::size_t i = 0; i < node_count; ++i) {
                const double next = stretch.s + 0.5 * stretch.length * integrals[i];
                change = std::max(change, std::fabs(next - y[i]));
                y[i] = next;
                slope[i] = given[i] + derivative[i] * (next - s[i + 1]);
            }
            residual_ = contraction * change;
            if (residual_ <= 0.01 * tolerance_) break;
        }
        stretch.series = collocation::series(slope);
        double change = 0.0;
        for (std::size_t i = 0; i < node_count; ++i) {
            change = std::max(change, std::fabs(y[i] - s[i + 1]));
            s[i + 1] = y[i];
        }
        s.back() = stretch.s + stretch.length * stretch.series[0];
        return change;
    }

    Line& line_;
    double end_, least_;
    double u_ = 0.0, s_; ///< how far the walk is
    double length_;      ///< of the stretch that is tried next
    double goal_;        ///< the end, or about the border that was found before it
    double limit_;       ///< there was no state; the end if none is known
    double tolerance_ = 0.0;
    double residual_ = 0.0; ///< what the linear equations were left with
    Stretch guess_{};
    Region inside_ = Region::none, outside_ = Region::none; ///< of the border that is the goal
    Region begin_ = Region::none;                           ///< behind the border at the beginning
    int cuts_ = 0, borders_ = 0;                            ///< how often the stretch, the line was cut at a border
    bool reaches_goal_ = false, from_border_ = false, converged_ = false;
};

} // namespace

PolytropicEnd polytropic_end(Process process, const Start& start, double to, double efficiency,
                             double wetness_factor) noexcept {
    if (to == start.p || (efficiency == 1.0 && wetness_factor == 0.0)) return {Status::solved, start.s};

    const State ideal = state(Pair::ps, to, start.s);
    if (ideal.status() == Status::pressure_low || ideal.status() == Status::pressure_high)
        return {ideal.status(), quiet_nan};

    Line line(process, start.p, to, efficiency, wetness_factor);
    const double last = line.at(ideal);
    const double first = line.at(state(Pair::ps, start.p, start.s));
    const double s = Walk(line, log(engine::Scalar(to / start.p)).value, start.s, first, last).run();
    if (!std::isnan(s)) return {Status::solved, s};
    return {line.status() != Status::solved ? line.status() : Status::no_state, s};
}

} // namespace ktl::process
