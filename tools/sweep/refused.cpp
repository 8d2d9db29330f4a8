#include "refused.hpp"

#include "regions/constants.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

namespace sweep {

namespace {

using ktl::ktl_lc;

constexpr double eps = 1.0e-8;

/// A step out of the range: from just outside (one part in 1e6) to far away.
double step_out(Random& random, double size) { return random.logarithmic(1e-6, 1e3) * std::fmax(std::fabs(size), 1.0); }

double below(Random& random, double least, bool positive) {
    return positive ? least / (1.0 + random.logarithmic(1e-6, 1e3)) : least - step_out(random, least);
}
double above(Random& random, double greatest, bool positive) {
    return positive ? greatest * (1.0 + random.logarithmic(1e-6, 1e3)) : greatest + step_out(random, greatest);
}

/// A value outside low..high. Volumes stay positive.
double outside(Random& random, double low, double high, bool positive) {
    return random.below(2) == 0 ? below(random, low, positive) : above(random, high, positive);
}

struct Range {
    double low, high;
};

/// Where a line ends in or beside sub-region 3 it may have jumped shortly before its end: up or down by no more
/// than this.
double jump_before(int region, double t, Member y) {
    const bool beside =
        region == KTL_NEAR_CRITICAL_STEAM || region == KTL_NEAR_CRITICAL_WATER || std::fabs(t - 350.0) < 1.0;
    if (!beside) return 0.0;
    return y == &Values::s ? 0.001 : 0.5;
}

Range range_on_isobar(double p, Member y) {
    const Values cold = at_pressure_temperature(p, ktl_lc.tmin);
    const Values hot = at_pressure_temperature(p, ktl_lc.tmax);
    double low = std::min(cold.*y, hot.*y);
    if (y == &Values::v)
        for (double t = ktl_lc.tmin; t < 10.0; t += 0.02)
            low = std::min(low, at_pressure_temperature(std::max(p, ktl_pt(t)), t).v);
    return {low, std::max(cold.*y, hot.*y)};
}

Range range_on_isotherm(double t, Member y) {
    const Values thin = at_pressure_temperature(ktl_lc.pmin, t);
    Range range{thin.*y, thin.*y};
    for (int n = 0; n <= 400; ++n) {
        const double p = ktl_lc.pmin * std::pow(ktl_lc.pmax / ktl_lc.pmin, n / 400.0);
        const double value = at_pressure_temperature(std::min(p, ktl_lc.pmax), t).*y;
        range = {std::min(range.low, value), std::max(range.high, value)};
    }
    // Between the sampled pressures the extreme may lie a little further out.
    const double slack = y == &Values::v ? 0.0 : 2e-3 * (range.high - range.low);
    return {range.low - slack, range.high + slack};
}

/// Value y at the ends of the isentrope s: at pmin, and at 800 degC or pmax.
Range range_on_isentrope(double s, Member y) {
    double p = ktl_lc.pmin;
    double s_in = s;
    const int region = ktlrps(p, s_in, eps);
    const double low = evaluate(region, p, s_in).*y;
    const bool hot = s > ktl_e2(ktl_lc.pmax, ktl_lc.tmax);
    double first = hot ? ktl_lc.tmax : ktl_lc.pmax;
    double second = s;
    const int end = hot ? ktlrts(first, second, eps) : ktlrps(first, second, eps);
    return {low, evaluate(end, first, second).*y + jump_before(end, second, y)};
}

/// Value y at the ends of the isochore v: at 0.01 degC or pmin, and at 800 degC or pmax.
Range range_on_isochore(double v, Member y) {
    const bool thin = v > ktl_c2(ktl_lc.pmin, ktl_lc.tmin);
    double first = thin ? ktl_lc.pmin : ktl_lc.tmin;
    double second = v;
    int region = thin ? ktlrpv(first, second, eps) : ktlrtv(first, second, eps);
    const double low = evaluate(region, first, second).*y;
    const bool dense = v < ktl_c2(ktl_lc.pmax, ktl_lc.tmax);
    first = dense ? ktl_lc.pmax : ktl_lc.tmax;
    second = v;
    region = dense ? ktlrpv(first, second, eps) : ktlrtv(first, second, eps);
    return {low, evaluate(region, first, second).*y + jump_before(region, second, y)};
}

Offer with_pressure(Random& random, const Row& row, bool first_out) {
    const Member y = row.second;
    const double p = random.logarithmic(ktl_lc.pmin, ktl_lc.pmax);
    const Range range = range_on_isobar(p, y);
    if (first_out)
        return {&row, outside(random, ktl_lc.pmin, ktl_lc.pmax, true), random.between(range.low, range.high)};
    return {&row, p, outside(random, range.low, range.high, y == &Values::v)};
}

Offer with_temperature(Random& random, const Row& row, bool first_out) {
    const Member y = row.second;
    const double t = random.between(ktl_lc.tmin, ktl_lc.tmax);
    const Range range = range_on_isotherm(t, y);
    if (first_out)
        return {&row, outside(random, ktl_lc.tmin, ktl_lc.tmax, false), random.between(range.low, range.high)};
    return {&row, t, outside(random, range.low, range.high, y == &Values::v)};
}

Offer with_entropy(Random& random, const Row& row, bool entropy_out) {
    const double greatest = ktl_e2(ktl_lc.pmin, ktl_lc.tmax);
    const double s = random.between(0.01, greatest);
    const Range range = range_on_isentrope(s, row.first);
    if (entropy_out)
        return {&row, random.between(range.low, range.high),
                outside(random, ktl_e1(ktl_lc.pmax, ktl_lc.tmin), greatest, false)};
    return {&row, outside(random, range.low, range.high, false), s};
}

Offer with_volume(Random& random, const Row& row, bool volume_out) {
    const double least = ktl_c1(ktl_lc.pmax, ktl_lc.tmin);
    const double greatest = ktl_c2(ktl_lc.pmin, ktl_lc.tmax);
    const double v = random.logarithmic(least * 1.0001, greatest);
    const Range range = range_on_isochore(v, row.second);
    if (volume_out) return {&row, outside(random, least, greatest, true), random.between(range.low, range.high)};
    return {&row, v, outside(random, range.low, range.high, false)};
}

Offer with_quality(Random& random, const Row& row, bool quality_out) {
    const double x = random.between(0.0, 1.0);
    if (quality_out) return {&row, random.between(0.0, 9.0), outside(random, 0.0, 1.0, false)};
    double low = 10.0;
    double high = -10.0;
    for (int n = 0; n <= 200; ++n) {
        // Half of the steps from 350 degC on, where the line is steep and, as the entry has it, broken.
        const double t = n <= 100 ? ktl_lc.tmin + (ktl_lc.t3min - ktl_lc.tmin) * n / 100.0
                                  : std::min(ktl_lc.t3min + (ktl_lc.tc - ktl_lc.t3min) * (n - 100) / 100.0, ktl_lc.tc);
        const double s = evaluate(t > ktl_lc.t3min ? KTL_WET_NEAR_CRITICAL : KTL_WET, x, t).s;
        low = std::min(low, s);
        high = std::max(high, s);
    }
    return {&row, outside(random, low - 0.05, high + 0.05, false), x};
}

/// The finders with searches of their own: those with given steps take any value for a state.
std::vector<const Row*> searching() {
    std::vector<const Row*> out;
    for (const Row& row : rows)
        if (!row.given_steps()) out.push_back(&row);
    return out;
}

} // namespace

Offer draw_refused(Random& random, long number) {
    static const std::vector<const Row*> all = searching();
    const auto index = static_cast<std::size_t>(number);
    const Row& row = *all[index % all.size()];
    const bool first_out = index / all.size() % 2 == 0;
    if (row.scope() == Row::mixture) return with_quality(random, row, first_out);
    switch (row.a) {
    case ktl::Property::p: return with_pressure(random, row, first_out);
    case ktl::Property::t: return with_temperature(random, row, first_out);
    case ktl::Property::v: return with_volume(random, row, first_out);
    default: return with_entropy(random, row, first_out);
    }
}

} // namespace sweep
