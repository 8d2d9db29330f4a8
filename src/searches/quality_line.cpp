// The search along a line of constant quality from 0.01 to 374.15 degC: interval by interval, with a look at the
// turning points between.
#include "searches/quality_line.hpp"

#include "searches/acceptance.hpp"
#include "searches/enclosure.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace ktl::searches {

namespace {

/// Temperatures tried beside a root that the scatter of the saturated volumes hides, and their distance, K.
constexpr int most_neighbours = 40;
constexpr double neighbour = 1.0e-8;

/// Entropy along a line of quality x, against the given entropy s.
struct QualityLine {
    double s, x;
    SaturationModel model;

    /// A mixture at t. Up to 350.5 degC the saturated phases may be those of sub-regions 1 and 2, which there
    /// cover the gap between the two parts of the line.
    [[nodiscard]] FoundState at(double t, int region) const {
        if (region != KTL_WET) return mixture(saturated_at(t, model), x);
        const double p = saturation::terms(t).p;
        return mixture({t, p, KTL_WET, p, p, model}, x);
    }
    [[nodiscard]] double residual(double t, int region) const { return at(t, region).value(Quantity::entropy) - s; }

    /// The mixture at t with volumes between those at t and at its neighbour on the other side of the root: so close
    /// to the critical point that the volumes change visibly from one temperature to the next.
    [[nodiscard]] FoundState between_neighbours(double t, double beside, int region) const {
        FoundState state = at(t, region);
        const FoundState other = at(beside, region);
        const double share = residual(t, region) / (residual(t, region) - residual(beside, region));
        state.phases.liquid += share * (other.phases.liquid - state.phases.liquid);
        state.phases.vapour += share * (other.phases.vapour - state.phases.vapour);
        return confirmed(state, {Quantity::entropy, s, Quantity::entropy, s, model});
    }

    [[nodiscard]] FoundState root(double a, double fa, double b, double fb, int region) const {
        const auto f = [&](double t) { return residual(t, region); };
        const auto found = solvers::enclose(f, a, fa, b, fb, search_tolerance(s));
        FoundState state = checked(found.x, region);
        // Near the critical point the saturated volumes of the entry scatter from one temperature to the next:
        // one of the neighbours has the entropy.
        if (model == SaturationModel::outermost_roots && !state.found())
            return between_neighbours(found.x, found.other, region);
        for (int n = 1; n <= most_neighbours && region == KTL_WET_NEAR_CRITICAL && !state.found(); ++n)
            state = checked(found.x + (n % 2 == 0 ? n : -n) * neighbour, region);
        return state;
    }
    [[nodiscard]] FoundState checked(double t, int region) const {
        const double share = model == SaturationModel::outermost_roots ? 0.1 : 1.0;
        return confirmed(at(t, region), {Quantity::entropy, s, Quantity::entropy, s, model}, share);
    }
};

/// A part of the line with its own saturated phases.
struct Part {
    int region;
    double from, to;
};
using Parts = std::array<Part, 5>;
/// At two temperatures the saturated volumes of the entry ktlftn change from one root of the pressure to another:
/// at 373.117 degC that of steam goes to the middle root, at 374.14966 degC both go to the critical volume. The
/// parts end and begin at the neighbouring numbers. The last part covers the gap at 350 degC.
constexpr Parts entry_parts{{{KTL_WET, ktl_lc.tmin, ktl_lc.t1max},
                             {KTL_WET_NEAR_CRITICAL, 350.00000000000006, 373.1170218536476},
                             {KTL_WET_NEAR_CRITICAL, 373.11702185364766, 374.14965914868071},
                             {KTL_WET_NEAR_CRITICAL, 374.14965914868077, ktl_lc.tc},
                             {KTL_WET, ktl_lc.t1max, ktl_lc.t1max + 0.5}}};
/// The outermost volumes bend at 374.149 degC, and are steep before the critical point.
constexpr double outermost_bend = 374.149;
constexpr Parts outermost_parts{{{KTL_WET, ktl_lc.tmin, ktl_lc.t1max},
                                 {KTL_WET_NEAR_CRITICAL, 350.00000000000006, 374.0},
                                 {KTL_WET_NEAR_CRITICAL, 374.0, outermost_bend},
                                 {KTL_WET_NEAR_CRITICAL, outermost_bend, ktl_lc.tc},
                                 {KTL_WET, ktl_lc.t1max, ktl_lc.t1max + 0.5}}};
/// Intervals in which a part is looked at first: narrow enough that none holds two turning points.
constexpr std::size_t steps = 16;

using LookTemperatures = std::array<double, steps + 1>;
LookTemperatures look_temperatures(const Part& part) {
    LookTemperatures t{};
    for (std::size_t n = 0; n < t.size(); ++n) {
        const double share = static_cast<double>(n) / steps;
        t[n] = n == steps ? part.to : part.from + (part.to - part.from) * share;
    }
    return t;
}

/// Entropies of the outermost phases at the looks of a part, the same for all lines.
struct PhaseEntropies {
    std::array<double, steps + 1> water, steam;
};
using OutermostEntropies = std::array<PhaseEntropies, outermost_parts.size()>;
const PhaseEntropies& outermost_entropies(const Part& part) {
    static const OutermostEntropies all = [] {
        OutermostEntropies made{};
        for (std::size_t k = 0; k < made.size(); ++k) {
            const LookTemperatures t = look_temperatures(outermost_parts[k]);
            for (std::size_t n = 0; n < t.size(); ++n) {
                const auto at = [&](double x) {
                    return QualityLine{0.0, x, SaturationModel::outermost_roots}.residual(t[n],
                                                                                          outermost_parts[k].region);
                };
                made[k].water[n] = at(0.0);
                made[k].steam[n] = at(1.0);
            }
        }
        return made;
    }();
    return all[static_cast<std::size_t>(&part - outermost_parts.data())];
}

/// A turning point nearer to zero than this may itself count as a state, kJ/(kg K).
constexpr double touch = 1.0e-8;
/// True where saturated phases from t on change without jumps or scatter.
bool is_smooth(const QualityLine& line, double t) {
    return line.model == SaturationModel::outermost_roots && t < outermost_bend;
}

/// Least value of sign times the residual between a and b, by golden section, or a point where it is not positive. Where
/// the line is smooth, the search ends where the least value so far is twice as far from zero as from the greatest in what
/// is left of the interval.
double turning_point(const QualityLine& line, double a, double fa, double b, double fb, int region) {
    constexpr double golden = 0.6180339887498949;
    constexpr int most_passes = 40;
    const double sign = fa > 0.0 ? 1.0 : -1.0;
    const bool smooth = is_smooth(line, a);
    double f_a = sign * fa;
    double f_b = sign * fb;
    double left = b - golden * (b - a);
    double right = a + golden * (b - a);
    double f_left = sign * line.residual(left, region);
    double f_right = sign * line.residual(right, region);
    for (int pass = 0; pass < most_passes; ++pass) {
        const double least = std::fmin(f_left, f_right);
        if (!(least > 0.0) || (smooth && least > touch && least > 2.0 * (std::fmax(f_a, f_b) - least))) break;
        if (f_left < f_right) {
            b = right, f_b = f_right, right = left, f_right = f_left;
            left = b - golden * (b - a), f_left = sign * line.residual(left, region);
        } else {
            a = left, f_a = f_left, left = right, f_left = f_right;
            right = a + golden * (b - a), f_right = sign * line.residual(right, region);
        }
    }
    return f_left < f_right ? left : right;
}

/// Temperatures of one part and the residuals there.
struct Looks {
    LookTemperatures t;
    std::array<double, steps + 1> f{};

    Looks(const QualityLine& line, const Part& part) : t(look_temperatures(part)) {
        for (std::size_t n = 0; n < t.size(); ++n) f[n] = line.residual(t[n], part.region);
    }
    Looks(const QualityLine& line, const Part& part, const PhaseEntropies& s) : t(look_temperatures(part)) {
        for (std::size_t n = 0; n < t.size(); ++n) f[n] = s.water[n] + line.x * (s.steam[n] - s.water[n]) - line.s;
    }

    /// Second difference at look n, or at the neighbour that has one.
    [[nodiscard]] double bend(std::size_t n) const {
        n = std::clamp<std::size_t>(n, 1, steps - 1);
        return std::fabs(f[n - 1] - 2.0 * f[n] + f[n + 1]);
    }
    /// True where a turning point between looks n and n + 1 may reach zero: a parabola turns at most an eighth of
    /// its second difference beyond them.
    [[nodiscard]] bool may_turn_at_zero(std::size_t n) const {
        return std::min(std::fabs(f[n]), std::fabs(f[n + 1])) <= std::max(bend(n), bend(n + 1));
    }
};

/// The states of a line by rising temperature, up to as many as are asked for.
struct States {
    FoundState* out;
    int most;
    int count = 0;

    [[nodiscard]] bool wanted() const { return count < most; }
    /// Takes a state unless it is none, or the last one again: both sides of a turning point may come upon it.
    void add(const FoundState& state) {
        constexpr double same = 1.0e-5;
        if (!state.found() || !wanted() || (count > 0 && std::fabs(state.t - out[count - 1].t) <= same)) return;
        out[count++] = state;
    }
};

/// The states of one part: interval by interval, in each a root between its ends, or those on both sides of its
/// turning point; without any the ends themselves.
void look(const QualityLine& line, const Part& part, const Looks& looks, States& states) {
    const int before = states.count;
    for (std::size_t n = 0; n < steps && states.wanted(); ++n) {
        const double a = looks.t[n];
        const double b = looks.t[n + 1];
        const double fa = looks.f[n];
        const double fb = looks.f[n + 1];
        if (fa * fb <= 0.0) {
            states.add(line.root(a, fa, b, fb, part.region));
        } else if (looks.may_turn_at_zero(n)) {
            const double t = turning_point(line, a, fa, b, fb, part.region);
            const double ft = line.residual(t, part.region);
            if (is_smooth(line, a) && fa * ft > 0.0 && std::fabs(ft) > touch) continue;
            const FoundState colder = line.root(a, fa, t, ft, part.region);
            states.add(colder);
            if (colder.found() && states.wanted()) states.add(line.root(t, ft, b, fb, part.region));
        }
    }
    if (states.count == before) states.add(line.checked(part.from, part.region));
    if (states.count == before) states.add(line.checked(part.to, part.region));
}

/// A closer look at the intervals of a part that come near the entropy without a root, and once more at those of
/// the closer look: where the saturated volumes of the entry jump by a little, a turning point may have been missed.
void look_closely(const QualityLine& line, const Part& part, const Looks& looks, double near, int closer_looks,
                  States& states) {
    const int before = states.count;
    for (std::size_t n = 0; n < steps && states.count == before; ++n) {
        if (std::min(std::fabs(looks.f[n]), std::fabs(looks.f[n + 1])) > near) continue;
        const Part closer{part.region, looks.t[n], looks.t[n + 1]};
        const Looks at_closer(line, closer);
        look(line, closer, at_closer, states);
        if (states.count == before && closer_looks > 1)
            look_closely(line, closer, at_closer, near / steps, closer_looks - 1, states);
    }
}

} // namespace

int on_quality_line(double s, double x, SaturationModel model, FoundState* out, int most) {
    const QualityLine line{s, x, model};
    States states{out, most};
    for (const Part& part : model == SaturationModel::entry_compatible ? entry_parts : outermost_parts) {
        const Looks looks = model == SaturationModel::outermost_roots ? Looks(line, part, outermost_entropies(part))
                                                                      : Looks(line, part);
        const int before = states.count;
        look(line, part, looks, states);
        if (states.count == before && part.region == KTL_WET_NEAR_CRITICAL &&
            model == SaturationModel::entry_compatible)
            look_closely(line, part, looks, 0.002, 2, states);
        if (!states.wanted()) break;
    }
    return states.count;
}

} // namespace ktl::searches
