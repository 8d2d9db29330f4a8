#include "quality_scan.hpp"

#include "searches/state.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ktl/steam.hpp>

namespace sweep {

namespace {

using ktl::ktl_lc;
using ktl::Quantity;

/// What the equations round in the entropy of a mixture, kJ/(kg K). Above 374.1 degC the volumes hang on the last digits
/// of the temperature.
constexpr double top = 374.1;
double rounding_at(double t) { return t > top ? 2.0e-10 : 1.0e-11; }

/// Adds the points from the last one to t, at the given distance at most. Beside an extremum a parabola between two points
/// lies less than a fifth of the tolerance beyond them.
struct Stretch {
    double to, distance;
};
constexpr std::array low_stretches{Stretch{349.0, 1.0e-3}, Stretch{350.0, 1.0e-4}};
constexpr std::array high_stretches{Stretch{353.0, 1.0e-4},   Stretch{370.0, 1.0e-3},    Stretch{373.0, 5.0e-4},
                                    Stretch{374.0, 3.0e-5},   Stretch{374.1, 1.0e-5},    Stretch{374.145, 4.0e-6},
                                    Stretch{374.149, 1.0e-6}, Stretch{374.1499, 1.0e-6}, Stretch{374.149999, 1.0e-8},
                                    Stretch{374.15, 1.0e-10}};

void add_point(QualityScan::Part& part, double t, bool low) {
    part.t.push_back(t);
    if (low) {
        const double p = ktl::saturation::terms(t).p;
        part.liquid.push_back(ktl::property(Quantity::entropy, KTL_WATER, p, t));
        part.vapour.push_back(ktl::property(Quantity::entropy, KTL_STEAM, p, t));
    } else {
        const auto phases = ktl::saturated_at<double>(t, ktl::SaturationModel::outermost_roots);
        part.liquid.push_back(phases.of_liquid(Quantity::entropy));
        part.vapour.push_back(phases.of_vapour(Quantity::entropy));
    }
}

template <class Stretches>
QualityScan::Part points(double from, const Stretches& stretches, bool low) {
    QualityScan::Part part;
    add_point(part, from, low);
    for (const Stretch& stretch : stretches) {
        const double start = part.t.back();
        const long count = std::lround(std::ceil((stretch.to - start) / stretch.distance));
        for (long n = 1; n < count; ++n)
            add_point(part, start + (stretch.to - start) * static_cast<double>(n) / static_cast<double>(count), low);
        add_point(part, stretch.to, low);
    }
    return part;
}

/// Points next to one another that have the entropy or nearly so.
class Group {
public:
    Group(double from, int side) : from_(from), sign_(side), open_end_(side == 0) {}
    void add(double t, double f) {
        nearest_ = std::fmin(nearest_, std::fabs(f));
        const int sign = std::fabs(f) > rounding_at(t) ? (f < 0.0 ? -1 : 1) : 0;
        if (sign == 0) return;
        if (sign_ != 0 && sign != sign_) ++changes_;
        sign_ = sign;
    }
    [[nodiscard]] Place closed(double to, bool at_end, double tolerance) const {
        const bool end = at_end || open_end_;
        if (changes_ == 0) return {from_, to, nearest_ <= 0.5 * tolerance ? 1 : 0, 2, false};
        // On both sides of 374.149 degC an extremum may lie as close to that bend as the volumes round: then the entropy
        // rises, falls and rises by no more.
        if (to > top && nearest_ <= rounding_at(to)) return {from_, to, 1, std::max(3, changes_), false};
        return {from_, to, changes_, changes_ + (end ? 1 : 0), false};
    }

private:
    double from_;
    int sign_;
    bool open_end_;
    int changes_ = 0;
    double nearest_ = INFINITY;
};

/// Takes the places of one part.
void scan(const QualityScan::Part& part, double s, double x, double tolerance, std::vector<Place>& places) {
    constexpr std::size_t block = 64;
    const double wide = 1.5 * tolerance;
    const auto side_of = [wide](double f) { return f > wide ? 1 : (f < -wide ? -1 : 0); };
    const std::size_t size = part.t.size();
    std::vector<Group> open;
    int before = 0;
    for (std::size_t start = 0; start < size; start += block) {
        const std::size_t end = std::min(start + block, size);
        // Entropy of liquid rises with temperature, that of vapour falls.
        const double least = part.liquid[start] + x * (part.vapour[end - 1] - part.liquid[start]) - s;
        const double greatest = part.liquid[end - 1] + x * (part.vapour[start] - part.liquid[end - 1]) - s;
        const double margin = rounding_at(part.t[end - 1]);
        if (open.empty() && before != 0 && side_of(least - margin) == before && side_of(greatest + margin) == before)
            continue;
        for (std::size_t i = start; i < end; ++i) {
            const double f = part.entropy(i, x) - s;
            const int side = side_of(f);
            if (open.empty() && (i == 0 ? side == 0 : side != before))
                open.emplace_back(part.t[i == 0 ? 0 : i - 1], before);
            if (!open.empty()) open.back().add(part.t[i], f);
            if (!open.empty() && side != 0) {
                places.push_back(open.back().closed(part.t[i], false, tolerance));
                open.clear();
            }
            before = side;
        }
    }
    if (!open.empty()) places.push_back(open.back().closed(part.t.back(), true, tolerance));
}

/// Entropy closest to s, less s, between an end of a part and the extremum next to it; step is 1 from the first point on,
/// -1 back from the last.
double closest_from_end(const QualityScan::Part& part, double s, double x, int step) {
    const auto size = static_cast<long>(part.t.size());
    const auto f = [&](long n) { return part.entropy(static_cast<std::size_t>(n), x) - s; };
    long n = step > 0 ? 0 : size - 1;
    const double sign = f(n) < 0.0 ? -1.0 : 1.0;
    while (n + step >= 0 && n + step < size && sign * f(n + step) < sign * f(n) && sign * f(n) > 0.0) n += step;
    return f(n);
}

std::string at(double s, double x, const char* what, double t) {
    std::array<char, 200> text{};
    std::snprintf(text.data(), text.size(), "s %.17g, x %.17g: %s at %.10g degC", s, x, what, t);
    return text.data();
}

/// What is wrong with one state, but for its place.
const char* fault_of(const ktl::State& state, double s, double x) {
    if (!state) return "counted, but not solved";
    if (state.x() != x) return "another quality";
    if (!(std::fabs(state.s() - s) <= entropy_tolerance * std::fmax(1.0, std::fabs(s)))) return "another entropy";
    const bool low = state.region() == ktl::Region::wet;
    if (!low && state.region() != ktl::Region::wet_near_critical) return "another region";
    return low == (state.t() <= ktl_lc.t1max + 0.5) || state.t() > ktl_lc.t1max ? nullptr
                                                                                : "a region of other temperatures";
}

} // namespace

QualityScan::QualityScan()
    : low_(points(ktl_lc.tmin, low_stretches, true)),
      high_(points(std::nextafter(ktl_lc.t3min, ktl_lc.tc), high_stretches, false)),
      continued_(points(ktl_lc.t1max, std::array{Stretch{350.5, 1.0e-4}}, true)) {}

/// Entropy jumps up at 350 degC. The continued line has what neither side has up to the next extremum.
Place QualityScan::gap(double s, double x, double tolerance) const {
    constexpr Place none{0.0, 0.0, 0, 0, true};
    if (!(low_.entropy(low_.t.size() - 1, x) < s && s < high_.entropy(0, x))) return none;
    const double below = -closest_from_end(low_, s, x, -1);
    const double above = closest_from_end(high_, s, x, 1);
    const double closest = std::fmin(below, above);
    if (closest <= 0.5 * tolerance) return none;
    const bool doubtful = closest <= 1.5 * tolerance;
    for (std::size_t n = 1; n < continued_.t.size(); ++n) {
        const double f = continued_.entropy(n, x) - s;
        const double to = continued_.t[std::min(n + 1, continued_.t.size() - 1)];
        if (f >= -rounding_at(to)) return {continued_.t[n - 1], to, doubtful ? 0 : 1, 1, true};
        if (f >= -1.5 * tolerance) return {continued_.t[n - 1], continued_.t.back(), 0, 1, true};
    }
    return none;
}

std::vector<Place> QualityScan::places(double s, double x) const {
    const double tolerance = entropy_tolerance * std::fmax(1.0, std::fabs(s));
    std::vector<Place> out;
    scan(low_, s, x, tolerance, out);
    scan(high_, s, x, tolerance, out);
    if (const Place in_gap = gap(s, x, tolerance); in_gap.most > 0) out.push_back(in_gap);
    return out;
}

std::string QualityScan::fault(double s, double x) const {
    const std::vector<Place> expected = places(s, x);
    std::vector<int> seen(expected.size(), 0);
    const int count = ktl::state_count(ktl::Pair::sx, s, x);
    double before = 0.0;
    for (int n = 0; n < count; ++n) {
        const ktl::State state = ktl::state(ktl::Pair::sx, s, x, n);
        if (const char* const wrong = fault_of(state, s, x)) return at(s, x, wrong, state.t());
        if (!(state.t() > before)) return at(s, x, "out of order", state.t());
        before = state.t();
        const bool gap = state.region() == ktl::Region::wet && state.t() > ktl_lc.t1max;
        const auto place = std::find_if(expected.begin(), expected.end(), [&](const Place& p) {
            return p.gap == gap && state.t() >= p.from && state.t() <= p.to;
        });
        if (place == expected.end()) return at(s, x, "no state", state.t());
        ++seen[static_cast<std::size_t>(place - expected.begin())];
        if (n == 0 && ktl::state(ktl::Pair::sx, s, x).t() != state.t()) return at(s, x, "not the first", state.t());
    }
    for (std::size_t n = 0; n < expected.size(); ++n) {
        const Place& p = expected[n];
        if (seen[n] < p.least) return at(s, x, "missed", p.from);
        if (seen[n] > p.most) return at(s, x, "twice", p.from);
    }
    if (ktl::state(ktl::Pair::sx, s, x, count).status() != ktl::Status::no_state)
        return at(s, x, "not counted", before);
    return {};
}

std::vector<LinePoint> QualityScan::extrema(double x) const {
    std::vector<LinePoint> out;
    for (const Part* part : {&low_, &high_}) {
        const std::size_t last = part->t.size() - 1;
        out.push_back({part->t.front(), part->entropy(0, x)});
        double s = part->entropy(1, x);
        bool rises = s > out.back().s;
        for (std::size_t n = 1; n < last; ++n) {
            const double next = part->entropy(n + 1, x);
            if ((next > s) != rises) out.push_back({part->t[n], s});
            rises = next > s, s = next;
        }
        out.push_back({part->t[last], part->entropy(last, x)});
    }
    return out;
}

std::vector<LinePoint> QualityScan::extrema_of_extremum_quality() {
    // By difference quotients, over a distance that shrinks towards the critical point.
    const auto quality = [](double t) {
        const double distance = 2.0e-3 * (ktl_lc.tc - t);
        Part beside;
        for (const double at : {t - distance, t + distance}) add_point(beside, at, t < ktl_lc.t3min);
        const double liquid = beside.liquid[1] - beside.liquid[0];
        return liquid / (liquid - (beside.vapour[1] - beside.vapour[0]));
    };
    std::vector<LinePoint> out;
    for (const auto& [from, to] : {std::array{2.0, 349.0}, std::array{350.1, 374.14}}) {
        const double ratio = std::pow((ktl_lc.tc - to) / (ktl_lc.tc - from), 1.0 / 2000.0);
        std::array<double, 3> t{};
        for (double distance = ktl_lc.tc - from; distance > ktl_lc.tc - to; distance *= ratio) {
            t = {t[1], t[2], ktl_lc.tc - distance};
            if (t[0] == 0.0) continue;
            const double sign = quality(t[1]) > quality(t[0]) ? 1.0 : -1.0;
            if (!(sign * quality(t[1]) > sign * quality(t[2]))) continue;
            // A parabola through the three points.
            const double a = (quality(t[1]) - quality(t[0])) / (t[1] - t[0]);
            const double b = (quality(t[2]) - quality(t[1])) / (t[2] - t[1]);
            const double extremum = 0.5 * (t[0] + t[1]) + 0.5 * (t[2] - t[0]) * a / (a - b);
            out.push_back({extremum, quality(extremum)});
        }
    }
    return out;
}

} // namespace sweep
