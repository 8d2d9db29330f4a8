// The search along a line of constant quality with the saturated phases of the entry ktlftn. Up to 350 degC they are
// those of every search. Above, their volumes are found to 1e-8 of the pressure only and scatter from one temperature to
// the next, so that slopes tell nothing: each part is looked at interval by interval, with a closer look at extrema.
#include "finders/entry_quality_line.hpp"

#include "searches/acceptance.hpp"
#include "searches/enclosure.hpp"
#include "searches/quality_line.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace ktl::finders {

namespace {

/// Temperatures tried beside a root that the scatter of the saturated volumes hides, and their distance, K.
constexpr int most_neighbours = 40;
constexpr double neighbour = 1.0e-8;

/// Entropy along a line of quality x above 350 degC, against the given entropy s.
struct EntryLine {
    double s, x;

    [[nodiscard]] FoundState<double> at(double t) const {
        return mixture(saturated_at<double>(t, SaturationModel::entry_compatible), x);
    }
    [[nodiscard]] double residual(double t) const { return at(t).value(Quantity::entropy) - s; }
    [[nodiscard]] FoundState<double> checked(double t) const {
        return searches::confirmed(at(t),
                                   {Quantity::entropy, s, Quantity::entropy, s, SaturationModel::entry_compatible});
    }
    /// The root between a and b, or that of one of its neighbours.
    [[nodiscard]] FoundState<double> root(double a, double fa, double b, double fb) const {
        const auto f = [&](double t) { return residual(t); };
        const double t = solvers::enclose(f, a, fa, b, fb, search_tolerance(s)).x;
        FoundState<double> state = checked(t);
        for (int n = 1; n <= most_neighbours && !state.found(); ++n)
            state = checked(t + (n % 2 == 0 ? n : -n) * neighbour);
        return state;
    }
};

struct Part {
    double from, to;
};
/// At two temperatures the saturated volumes of the entry change from one root of the pressure to another: at
/// 373.117 degC that of vapour goes to the middle root, at 374.14966 degC both go to the critical volume. The parts end
/// and begin at the neighbouring numbers.
constexpr std::array<Part, 3> parts{{{350.00000000000006, 373.1170218536476},
                                     {373.11702185364766, 374.14965914868071},
                                     {374.14965914868077, ktl_lc.tc}}};
/// Intervals in which a part is looked at first: so narrow that none holds two extrema.
constexpr std::size_t steps = 16;

/// An extremum of the residual between a and b that heads for zero, by golden section, or a point beyond zero.
double extremum(const EntryLine& line, double a, double fa, double b) {
    constexpr double golden = 0.6180339887498949;
    constexpr int most_passes = 40;
    const double sign = fa > 0.0 ? 1.0 : -1.0;
    double left = b - golden * (b - a);
    double right = a + golden * (b - a);
    double f_left = sign * line.residual(left);
    double f_right = sign * line.residual(right);
    for (int pass = 0; pass < most_passes && std::fmin(f_left, f_right) > 0.0; ++pass) {
        if (f_left < f_right) {
            b = right, right = left, f_right = f_left;
            left = b - golden * (b - a), f_left = sign * line.residual(left);
        } else {
            a = left, left = right, f_left = f_right;
            right = a + golden * (b - a), f_right = sign * line.residual(right);
        }
    }
    return f_left < f_right ? left : right;
}

/// Temperatures of a part, evenly spaced, and the residuals there.
struct Looks {
    std::array<double, steps + 1> t{}, f{};

    Looks(const EntryLine& line, const Part& part) {
        for (std::size_t n = 0; n < t.size(); ++n) {
            const double share = static_cast<double>(n) / steps;
            t[n] = n == steps ? part.to : part.from + (part.to - part.from) * share;
            f[n] = line.residual(t[n]);
        }
    }

    /// Second difference at look n, or at the neighbour that has one.
    [[nodiscard]] double bend(std::size_t n) const {
        n = std::clamp<std::size_t>(n, 1, steps - 1);
        return std::fabs(f[n - 1] - 2.0 * f[n] + f[n + 1]);
    }
    /// True if an extremum between looks n and n + 1 may reach zero: that of a parabola lies at most an eighth of its
    /// second difference beyond them.
    [[nodiscard]] bool may_reach_zero(std::size_t n) const {
        return std::min(std::fabs(f[n]), std::fabs(f[n + 1])) <= std::max(bend(n), bend(n + 1));
    }
};

/// The first state of a part: a root between two looks, or between a look and an extremum; without any an end.
FoundState<double> look(const EntryLine& line, const Part& part, const Looks& looks) {
    FoundState<double> state;
    for (std::size_t n = 0; n < steps && !state.found(); ++n) {
        const double a = looks.t[n];
        const double b = looks.t[n + 1];
        const double fa = looks.f[n];
        const double fb = looks.f[n + 1];
        if (fa * fb <= 0.0) {
            state = line.root(a, fa, b, fb);
        } else if (looks.may_reach_zero(n)) {
            const double t = extremum(line, a, fa, b);
            state = line.root(a, fa, t, line.residual(t));
        }
    }
    if (!state.found()) state = line.checked(part.from);
    if (!state.found()) state = line.checked(part.to);
    return state;
}

/// A closer look at the intervals of a part that come near the entropy without a root, and once more at those of the
/// closer look: volumes that jump by a little may hide an extremum.
// NOLINTNEXTLINE(misc-no-recursion): closer_looks bounds it
FoundState<double> look_closely(const EntryLine& line, const Looks& looks, double near, int closer_looks) {
    FoundState<double> state;
    for (std::size_t n = 0; n < steps && !state.found(); ++n) {
        if (std::min(std::fabs(looks.f[n]), std::fabs(looks.f[n + 1])) > near) continue;
        const Part closer{looks.t[n], looks.t[n + 1]};
        const Looks at_closer(line, closer);
        state = look(line, closer, at_closer);
        if (!state.found() && closer_looks > 1) state = look_closely(line, at_closer, near / steps, closer_looks - 1);
    }
    return state;
}

} // namespace

FoundState<double> on_entry_quality_line(double s, double x) {
    FoundState<double> state = searches::first_up_to_350<double>(s, x, SaturationModel::entry_compatible);
    const EntryLine line{s, x};
    // Without any state the ends count with all that the finder allows.
    for (const double end : {ktl_lc.tmin, ktl_lc.t1max})
        if (!state.found()) state = line.checked(end);
    for (const Part& part : parts) {
        if (state.found()) return state;
        const Looks looks(line, part);
        state = look(line, part, looks);
        if (!state.found()) state = look_closely(line, looks, 0.002, 2);
    }
    return state.found() ? state : searches::first_past_350<double>(s, x, SaturationModel::entry_compatible);
}

} // namespace ktl::finders
