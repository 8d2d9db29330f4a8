// States of given entropy along a line of constant quality.
//
// With s' and s" the entropies of saturated liquid and vapour, and w = s' - s", which rises with temperature throughout,
// the entropy of the mixture of quality x is s = s' - x w, and along the saturation line
//
//   ds/dw = x*(t) - x,   x*(t) = (ds'/dt) / (dw/dt).
//
// s has an extremum at the temperatures where x* equals x. It is a convex function of w if x* rises, a concave one if x*
// falls. So between two nodes with x* monotonic between them s has one extremum at most, and the tangents at both nodes
// bound it. The table of the nodes tells, without another evaluation, which intervals may contain a state.
#pragma once

#include "searches/acceptance.hpp"
#include "searches/enclosure.hpp"
#include "searches/quality_line.hpp"
#include "searches/two_phase.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace ktl::searches {

namespace quality_lines {

/// A point of the saturation line, degC and kJ/(kg K); x* on its cold and on its warm side, which differ at a bend.
struct Node {
    double t;
    double liquid, w;
    double before, after;

    [[nodiscard]] double entropy(double x) const { return liquid - x * w; }
};

/// An entropy and its slope by t along the saturation line.
using Along = LineDerivative<double>;

/// Entropy of saturated liquid or vapour of sub-region 1 or 2, or of its continuation.
template <SubRegion sub_region, class T>
Along along_line(const LinePoint<T>& line, double t) {
    const auto s = SaturatedPhaseIterate<sub_region, T>(line, line.p, T(t)).property(Quantity::entropy);
    return {plain(s.y), plain(s.slope)};
}
/// The same of sub-region 3. Up to last_outermost the volume follows the saturation pressure, then the square root of the
/// distance from the critical temperature.
template <class T>
Along along_line_near_critical(double v, const LinePoint<T>& line, double t) {
    const auto phase = helmholtz_properties(T(v), T(t));
    const Slopes<T> s = slopes(Quantity::entropy, phase);
    const T dvdt =
        t > last_outermost ? T((v - ktl_lc.vca) / (2.0 * (t - ktl_lc.tc))) : (line.slope - phase.dpdt) / phase.dpdv;
    return {plain(s.y), plain(s.d_t + s.d_primary * dvdt)};
}

inline Node node(const Along& liquid, const Along& vapour, double t) {
    const double extremum = liquid.slope / (liquid.slope - vapour.slope);
    return {t, liquid.y, liquid.y - vapour.y, extremum, extremum};
}

/// The point at t: of sub-regions 1 and 2 (region KTL_WET), or of sub-region 3 with the outermost phases.
template <class T>
Node node_at(double t, int region) {
    const LinePoint<T> line = line_at(T(t));
    if (region == KTL_WET) return node(along_line<SubRegion::water>(line, t), along_line<SubRegion::steam>(line, t), t);
    if (!(t < ktl_lc.tc)) {
        // Both phases are one. Next to it their volumes go with the same square root: x* tends to the quality at which a
        // mixture has the critical volume.
        const auto last = saturated_at<T>(std::nextafter(last_outermost, ktl_lc.tc), SaturationModel::outermost_roots);
        const double extremum = (ktl_lc.vca - last.liquid) / (last.vapour - last.liquid);
        return {t, saturated_at<T>(t, SaturationModel::outermost_roots).of_liquid(Quantity::entropy), 0.0, extremum,
                extremum};
    }
    const auto phases = saturated_at<T>(t, SaturationModel::outermost_roots);
    return node(along_line_near_critical(phases.liquid, line, t), along_line_near_critical(phases.vapour, line, t), t);
}

/// Intervals from one of the given temperatures to the next. Any number gives the same states; with sixteen the search takes
/// 10 to 40 % less time than with four.
inline constexpr std::size_t intervals = 16;
template <std::size_t count>
using Nodes = std::array<Node, (count - 1) * intervals + 1>;

/// Nodes evenly spaced by the square root of the distance from the critical temperature.
template <class T, std::size_t count>
Nodes<count> nodes_between(const std::array<double, count>& t, int region) {
    Nodes<count> out{};
    for (std::size_t n = 0; n < out.size(); ++n) {
        const std::size_t k = std::min(n / intervals, count - 2);
        const double share = static_cast<double>(n - k * intervals) / intervals;
        const double from = std::sqrt(ktl_lc.tc - t[k]);
        const double root = from + share * (std::sqrt(ktl_lc.tc - t[k + 1]) - from);
        const bool given = n % intervals == 0;
        out[n] = node_at<T>(given ? t[n / intervals] : ktl_lc.tc - root * root, region);
    }
    return out;
}

/// The temperatures at which x* has its extrema, and the ends of each part of the line. `ktl_engine_sweep quality` prints
/// the extrema, from difference quotients, to 0.003 K. x* is 0.3657 at 0.01 degC, 0.5674, 0.4806 at 350 degC.
inline constexpr std::array low_part{ktl_lc.tmin, 244.177, ktl_lc.t1max};
/// 0.4770 just above 350 degC, 0.4895, 0.4296, 0.6184, 0.4763 at last_outermost and 0.5804 just above, where the volumes
/// bend, 0.5759 at the critical point.
inline constexpr std::array high_part{350.00000000000006, 351.2876, 369.2345, 374.10879, last_outermost, ktl_lc.tc};
/// Up to where sub-regions 1 and 2 cover the gap to sub-region 3. x* falls.
inline constexpr std::array continued_part{ktl_lc.t1max, ktl_lc.t1max + 0.5};

struct Line {
    Nodes<low_part.size()> low;
    Nodes<high_part.size()> high;
    Nodes<continued_part.size()> continued;
};
template <class T>
const Line& saturation_line() {
    static const Line line = [] {
        Line made{nodes_between<T>(low_part, KTL_WET), nodes_between<T>(high_part, KTL_WET_NEAR_CRITICAL),
                  nodes_between<T>(continued_part, KTL_WET)};
        made.high[4 * intervals].after =
            node_at<T>(std::nextafter(last_outermost, ktl_lc.tc), KTL_WET_NEAR_CRITICAL).after;
        return made;
    }();
    return line;
}

/// The states found so far, by rising temperature.
template <class T>
class States {
public:
    explicit States(std::span<FoundState<T>> out) : out_(out) {}

    [[nodiscard]] bool has_room() const { return count_ < out_.size(); }
    [[nodiscard]] int count() const { return static_cast<int>(count_); }
    /// Takes a state warmer than those before unless it is none.
    void add(const FoundState<T>& state) {
        const bool again = count_ > 0 && out_[count_ - 1].t == state.t;
        if (state.found() && has_room() && !again) out_[count_++] = state;
    }
    /// Takes a state in its order; with no room left the warmest goes.
    void insert(const FoundState<T>& state) {
        if (!state.found()) return;
        std::size_t n = has_room() ? count_++ : count_;
        while (n > 0 && out_[n - 1].t > state.t) {
            if (n < count_) out_[n] = out_[n - 1];
            --n;
        }
        if (n < count_) out_[n] = state;
    }

private:
    std::span<FoundState<T>> out_;
    std::size_t count_ = 0;
};

/// The given values, and how far the entropy of a state at an extremum or at an end of the line may be off.
struct Target {
    double s, x;
    SaturationModel model;
    double tolerance = allowance(Quantity::entropy, s, KTL_WET, model);

    [[nodiscard]] double residual(const Node& n) const { return n.entropy(x) - s; }
};

/// The search along one smooth part of the line.
template <class T>
class PartSearch {
public:
    PartSearch(const Target& target, int region, States<T>& states)
        : target_(target), region_(region), states_(states) {}

    /// Takes the states between the first and the last node.
    void along(std::span<const Node> nodes);

    /// Whether s occurs between the end of the part and the extremum next to it.
    [[nodiscard]] bool occurs_at_first() const { return at_first_; }
    [[nodiscard]] bool occurs_at_last() const { return at_last_; }

private:
    [[nodiscard]] bool falls(double extremum) const { return extremum < target_.x; }
    [[nodiscard]] FoundState<T> at(double t) const {
        if (region_ != KTL_WET) return mixture(saturated_at<T>(t, target_.model), target_.x);
        const double p = saturation_pressure_in<T>(t);
        return mixture(Saturated<T>{t, p, KTL_WET, p, p, target_.model}, target_.x);
    }
    [[nodiscard]] double residual(const FoundState<T>& state) const {
        return state.value(Quantity::entropy) - target_.s;
    }
    [[nodiscard]] FoundState<T> checked(const FoundState<T>& state, double share) const {
        const Given given{Quantity::entropy, target_.s, Quantity::entropy, target_.s, target_.model};
        return confirmed(state, given, share);
    }

    void add(const FoundState<T>& state) {
        states_.add(state);
        at_first_ = at_first_ || !turned_;
        at_last_ = true;
    }
    void turn() {
        turned_ = true;
        at_last_ = false;
    }
    /// An extremum that has the entropy without passing it.
    void add_extremum(double t) {
        add(checked(at(t), 1.0));
        turn();
        at_last_ = true;
    }
    [[nodiscard]] FoundState<T> root(const Node& a, const Node& b) const;
    [[nodiscard]] Node off(const Node& end, Node other) const;
    void interval(const Node& a, const Node& b);
    void approach(Node a, Node b);

    const Target& target_;
    int region_;
    States<T>& states_;
    bool turned_ = false, at_first_ = false, at_last_ = false;
};

/// The state between two nodes on different sides of s. Close to the critical point the volumes change visibly from one
/// temperature to the next: there the state has volumes between those of two neighbours.
template <class T>
FoundState<T> PartSearch<T>::root(const Node& a, const Node& b) const {
    const auto f = [&](double t) { return residual(at(t)); };
    const auto found =
        solvers::enclose(f, a.t, target_.residual(a), b.t, target_.residual(b), search_tolerance(target_.s));
    FoundState<T> state = at(found.x);
    if (const FoundState<T> good = checked(state, 0.1); good.found()) return good;
    const FoundState<T> other = at(found.other);
    const double share = residual(state) / (residual(state) - residual(other));
    if (!(share >= 0.0 && share <= 1.0)) return {}; // the line ends at this temperature
    state.phases.liquid += share * (other.phases.liquid - state.phases.liquid);
    state.phases.vapour += share * (other.phases.vapour - state.phases.vapour);
    return checked(state, 1.0);
}

/// Takes the states of an interval whose ends are on the same side of s and whose extremum lies towards s: two if it is
/// beyond s, one if it is close enough. The nodes are moved towards the extremum until the tangents decide.
template <class T>
void PartSearch<T>::approach(Node a, Node b) {
    constexpr int most_passes = 60;
    const bool below = target_.residual(a) < 0.0;
    const double sign = below ? -1.0 : 1.0;
    double best = std::fabs(target_.residual(a)) < std::fabs(target_.residual(b)) ? a.t : b.t;
    double nearest = std::min(std::fabs(target_.residual(a)), std::fabs(target_.residual(b)));
    for (int pass = 0; pass < most_passes; ++pass) {
        const double at_a = sign * target_.residual(a);
        const double at_b = sign * target_.residual(b);
        const double slope_a = sign * (a.after - target_.x);
        const double slope_b = sign * (b.before - target_.x);
        if (!(slope_b - slope_a > 0.0)) break;
        const double tangents =
            (slope_b * at_a - slope_a * at_b + slope_a * slope_b * (b.w - a.w)) / (slope_b - slope_a);
        if (tangents > target_.tolerance) return turn();
        if (tangents > 0.0 && nearest - tangents <= search_tolerance(target_.s)) break;
        // The secant of x*, and every third time the middle.
        const double share = pass % 3 == 2 ? 0.5 : -slope_a / (slope_b - slope_a);
        const double t = a.t + share * (b.t - a.t);
        if (!(t > a.t && t < b.t)) break;
        const Node middle = node_at<T>(t, region_);
        const double f = target_.residual(middle);
        if ((f < 0.0) != below) {
            add(root(a, middle));
            turn();
            return add(root(middle, b));
        }
        if (std::fabs(f) < nearest) best = t, nearest = std::fabs(f);
        (sign * (middle.before - target_.x) < 0.0 ? a : b) = middle;
    }
    if (nearest <= target_.tolerance) return add_extremum(best);
    turn();
}

/// For an interval with an extremum and one state, which lies beyond the extremum as seen from this end: the end, or, if the
/// end itself has s to rounding, a point before the state where the entropy is off, so that the state is enclosed.
template <class T>
Node PartSearch<T>::off(const Node& end, Node other) const {
    constexpr int most_passes = 60;
    const bool below = target_.residual(end) < 0.0;
    Node point = end;
    for (int pass = 0; pass < most_passes; ++pass) {
        const double f = target_.residual(point);
        const bool same_side = (f < 0.0) == below;
        if (same_side && std::fabs(f) > search_tolerance(target_.s)) return point;
        if (pass > 0) other = point;
        point = node_at<T>(0.5 * (end.t + other.t), region_);
    }
    return end;
}

template <class T>
void PartSearch<T>::interval(const Node& a, const Node& b) {
    const bool below = target_.residual(a) < 0.0;
    const bool turns = falls(a.after) != falls(b.before);
    const bool heads_for_s = falls(a.after) != below;
    if (below == (target_.residual(b) < 0.0)) {
        if (turns && heads_for_s) return approach(a, b);
        if (turns) turn();
        return;
    }
    if (!turns) return add(root(a, b));
    if (heads_for_s) {
        add(root(a, off(b, a)));
        turn();
    } else {
        turn();
        add(root(off(a, b), b));
    }
}

template <class T>
void PartSearch<T>::along(std::span<const Node> nodes) {
    // An end has the entropy if it is close enough and the line does not come closer.
    const auto ends = [&](const Node& n, double extremum, bool last) {
        const double f = target_.residual(n);
        const bool closer = (falls(extremum) != (f < 0.0)) != last;
        return std::fabs(f) <= target_.tolerance && !closer;
    };
    if (ends(nodes.front(), nodes.front().after, false)) add(checked(at(nodes.front().t), 1.0));
    for (std::size_t n = 0; n + 1 < nodes.size() && states_.has_room(); ++n) {
        const Node& a = nodes[n];
        if (n > 0 && falls(a.before) != falls(a.after)) {
            const bool has = ends(a, a.before, true) && ends(a, a.after, false);
            if (has)
                add_extremum(a.t);
            else
                turn();
        }
        interval(a, nodes[n + 1]);
    }
    if (ends(nodes.back(), nodes.back().before, true)) add(checked(at(nodes.back().t), 1.0));
}

template <class T>
FoundState<T> first_on(std::span<const Node> nodes, const Target& target) {
    FoundState<T> found;
    States<T> states{{&found, 1}};
    PartSearch<T>(target, KTL_WET, states).along(nodes);
    return found;
}

} // namespace quality_lines

template <class T>
FoundState<T> first_up_to_350(double s, double x, SaturationModel model) {
    return quality_lines::first_on<T>(quality_lines::saturation_line<T>().low, {s, x, model});
}
template <class T>
FoundState<T> first_past_350(double s, double x, SaturationModel model) {
    return quality_lines::first_on<T>(quality_lines::saturation_line<T>().continued, {s, x, model});
}

template <class T>
int on_quality_line(double s, double x, std::span<FoundState<T>> out) {
    using namespace quality_lines;
    const Line& line = saturation_line<T>();
    const Target target{s, x, SaturationModel::outermost_roots};
    States<T> states(out);
    PartSearch<T> cold(target, KTL_WET, states);
    cold.along(line.low);
    if (!states.has_room()) return states.count();
    PartSearch<T> hot(target, KTL_WET_NEAR_CRITICAL, states);
    hot.along(line.high);
    // Entropy jumps up at 350 degC. If neither side has s, the line of sub-regions 1 and 2 is continued to it.
    const bool in_jump = target.residual(line.low.back()) < 0.0 && target.residual(line.high.front()) > 0.0;
    if (in_jump && !cold.occurs_at_last() && !hot.occurs_at_first())
        states.insert(first_past_350<T>(s, x, SaturationModel::outermost_roots));
    return states.count();
}

} // namespace ktl::searches
