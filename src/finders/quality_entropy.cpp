// States from entropy and quality: a search along the line of constant quality from 0.01 to 374.15 degC.
#include "finders/pair.hpp"
#include "front/diagnostics.hpp"
#include "solvers/enclosure.hpp"

#include <array>
#include <cmath>
#include <ktl/ktlftn.h>

namespace {

using namespace ktl;

/// Entropy along a line of quality x, against the given entropy s.
struct QualityLine {
    double s, x;

    /// A mixture at t. Up to 350.5 degC the saturated phases may be those of sub-regions 1 and 2, which there
    /// cover the gap between the two parts of the line.
    [[nodiscard]] State at(double t, int region) const {
        if (region != KTL_WET) return mixture(saturated_at(t), x);
        const double p = saturation::terms(t).p;
        return mixture({t, p, KTL_WET, p, p}, x);
    }
    [[nodiscard]] double residual(double t, int region) const { return at(t, region).value(Property::entropy) - s; }

    [[nodiscard]] State root(double a, double fa, double b, double fb, int region) const {
        const auto f = [&](double t) { return residual(t, region); };
        const auto found = solvers::enclose(f, a, fa, b, fb, search_tolerance(s));
        return finders::confirmed(at(found.x, region), {Property::entropy, s, Property::entropy, s});
    }
};

/// A part of the line with its own saturated phases.
struct Part {
    int region;
    double from, to;
};
/// At two temperatures the saturated volumes of the entry ktlftn change from one root of the pressure to another:
/// at 373.117 degC that of steam goes to the middle root, at 374.14966 degC both go to the critical volume. The
/// parts end and begin at the neighbouring numbers. The last part covers the gap at 350 degC.
constexpr std::array<Part, 5> parts{{{KTL_WET, ktl_lc.tmin, ktl_lc.t1max},
                                     {KTL_WET_NEAR_CRITICAL, 350.00000000000006, 373.1170218536476},
                                     {KTL_WET_NEAR_CRITICAL, 373.11702185364766, 374.14965914868071},
                                     {KTL_WET_NEAR_CRITICAL, 374.14965914868077, ktl_lc.tc},
                                     {KTL_WET, ktl_lc.t1max, ktl_lc.t1max + 0.5}}};
/// Intervals in which a part is looked at first: narrow enough that none holds two turning points.
constexpr int steps = 16;

/// Extreme of the residual between a and b, of the sign of the residual around it turned, by golden section.
double turning_point(const QualityLine& line, double a, double b, int region, double sign) {
    constexpr double golden = 0.6180339887498949;
    constexpr int most_passes = 40;
    double left = b - golden * (b - a);
    double right = a + golden * (b - a);
    double f_left = sign * line.residual(left, region);
    double f_right = sign * line.residual(right, region);
    for (int pass = 0; pass < most_passes && std::fmin(f_left, f_right) > 0.0; ++pass) {
        if (f_left < f_right) {
            b = right, right = left, f_right = f_left;
            left = b - golden * (b - a), f_left = sign * line.residual(left, region);
        } else {
            a = left, left = right, f_left = f_right;
            right = a + golden * (b - a), f_right = sign * line.residual(right, region);
        }
    }
    return f_left < f_right ? left : right;
}

/// The coldest state of one part. Where three neighbours show that the residual turns towards zero between them,
/// the turning point decides whether there is a root.
State coldest(const QualityLine& line, const Part& part) {
    double before = part.from, f_before = 0.0;
    double a = part.from;
    double fa = line.residual(a, part.region);
    if (std::fabs(fa) <= search_tolerance(line.s)) return line.at(a, part.region);
    for (int step = 1; step <= steps; ++step) {
        const double b = step == steps ? part.to : part.from + (part.to - part.from) * step / steps;
        const double fb = line.residual(b, part.region);
        const double sign = fa > 0.0 ? 1.0 : -1.0;
        const bool turns = fa * fb > 0.0 && step > 1 && sign * fa <= sign * f_before && sign * fa <= sign * fb;
        if (turns) {
            const double t = turning_point(line, before, b, part.region, sign);
            const State found = line.root(before, f_before, t, line.residual(t, part.region), part.region);
            if (found.found()) return found;
        } else if (fa * fb <= 0.0) {
            const State found = line.root(a, fa, b, fb, part.region);
            if (found.found()) return found;
        }
        before = a, f_before = fa;
        a = b, fa = fb;
    }
    return {};
}

State on_quality_line(double s, double x) {
    const QualityLine line{s, x};
    for (const Part& part : parts) {
        const State found = coldest(line, part);
        if (found.found()) return found;
    }
    return {};
}

} // namespace

int ktlrsx(double& s, double& x, const double& /*eps*/) {
    double quality = x;
    if (finders::finite(s, x) && x >= -rounding && finders::bring_within(quality, 0.0, 1.0)) {
        const State found = on_quality_line(s, quality);
        if (found.found()) {
            s = found.first;
            x = found.t;
            return found.region;
        }
    }
    front::no_state_sx(s, x);
    return KTL_NO_STATE;
}
