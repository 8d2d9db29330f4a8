// The ends of polytropic lines against very fine steps along them.
#include "support/compare.hpp"
#include "support/random.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <ktl/process.hpp>

namespace {

using namespace ktl;
using test::named;
using test::Random;

/// ds/du = r p v / T with u = ln p: the equation of a polytropic line.
struct Equation {
    Process process;
    double p, efficiency, wetness_factor;

    [[nodiscard]] double slope(double u, double s) const {
        const State at = state(Pair::ps, p * std::exp(u), s);
        const bool water = at.region() == Region::water || at.region() == Region::near_critical_water;
        const double wet = at.two_phase() ? 1.0 - at.x() : water ? 1.0 : 0.0;
        const double r = process == Process::polytropic_compression ? 1.0 / efficiency - 1.0
                                                                    : efficiency * (1.0 - wetness_factor * wet) - 1.0;
        return r * 100.0 * at.p() * at.v() / (at.t() + 273.15);
    }

    /// s after one step of the Runge-Kutta formula of fourth order.
    [[nodiscard]] double advanced(double u, double s, double step) const {
        const double first = slope(u, s), second = slope(u + 0.5 * step, s + 0.5 * step * first);
        const double third = slope(u + 0.5 * step, s + 0.5 * step * second);
        return s + step / 6.0 * (first + 2.0 * (second + third) + slope(u + step, s + step * third));
    }

    /// s at the end, by steps that are halved down to 1/65536 of the line.
    [[nodiscard]] double end(double s, double to) const {
        constexpr double accuracy = 1e-14, least = 1.0 / 65536.0;
        const double length = std::log(to / p);
        double part = 1.0 / 64.0;
        for (double done = 0.0; done < 1.0;) {
            const double step = part * length;
            const double whole = advanced(done * length, s, step);
            const double halves =
                advanced(done * length + 0.5 * step, advanced(done * length, s, 0.5 * step), 0.5 * step);
            const double error = std::fabs(halves - whole) / 15.0;
            if (!(error <= accuracy) && part > least) {
                part *= 0.5;
                continue;
            }
            s = halves + (halves - whole) / 15.0;
            done += part;
            if (error <= accuracy / 64.0 && part < 1.0 / 64.0 && std::fmod(done, 2.0 * part) == 0.0) part *= 2.0;
        }
        return s;
    }
};

::testing::AssertionResult ends_there(const std::string& what, const State& from, double to, double efficiency,
                                      double wetness_factor, double allowed) {
    const Process process = to > from.p() ? Process::polytropic_compression : Process::polytropic_expansion;
    const Step y = step(process, from, to, efficiency, {.wetness_factor = wetness_factor});
    if (!y) return ::testing::AssertionFailure() << what << ": " << sentence(y.status);
    const Equation equation{process, from.p(), efficiency, wetness_factor};
    const double wanted = equation.end(from.s(), to);
    const double scale = std::fmax(std::fabs(wanted - from.s()), 0.01);
    return test::within(what, y.end.s(), wanted, allowed * scale);
}

/// Allowed: parts of the entropy rise. The fine steps know nothing of kinks, so that they are the less exact ones at a
/// border at which the formulation or Baumann's rule makes the slope step.
TEST(Polytrope, EndsWhereFineStepsDo) {
    struct Row {
        const char* what;
        Pair pair;
        double a, b, to, efficiency, wetness_factor;
        double allowed = 1e-10;
    };
    const Row rows[] = {
        {"high pressure", Pair::pt, 166.7, 538.0, 42.0, 0.88, 0.0},
        {"into the mixture", Pair::pt, 40.0, 538.0, 0.04, 0.9, 0.0},
        {"into the mixture by Baumann", Pair::pt, 40.0, 538.0, 0.04, 0.9, 1.0},
        {"whole turbine", Pair::pt, 166.7, 538.0, 0.04, 0.9, 0.0},
        {"mixture", Pair::px, 8.0, 0.97, 0.05, 0.8, 0.5},
        {"from saturated steam", Pair::px, 5.0, 1.0, 1.0, 0.8, 0.0},
        {"steam just above saturation", Pair::pt, 10.0, 180.0, 9.0, 0.85, 1.0},
        {"to a mixture just below saturation", Pair::pt, 40.0, 538.0, 0.974, 0.9, 1.0},
        {"flashing saturated water", Pair::px, 100.0, 0.0, 1.0, 0.5, 0.0},
        {"water that flashes", Pair::pt, 150.0, 250.0, 0.1, 0.5, 0.0},
        {"mixture compressed to steam", Pair::px, 1.0, 0.95, 10.0, 0.7, 0.0},
        {"supercritical", Pair::pt, 300.0, 600.0, 50.0, 0.85, 0.0},
        {"beside the critical point", Pair::pt, 300.0, 420.0, 1.0, 0.8, 0.0, 1e-8},
        {"across 350 degC in the mixture", Pair::px, 180.0, 0.5, 100.0, 0.8, 0.0, 1e-9},
        {"feed pump", Pair::pt, 8.0, 165.0, 250.0, 0.8, 0.0},
        {"compressor", Pair::pt, 1.0, 150.0, 20.0, 0.75, 0.0},
        {"water to the greatest pressure", Pair::ps, 81.699365661086048, 0.67989962147273353, 1000.0,
         0.1254393953775009, 0.0, 1e-9},
        {"out of the mixture beside the critical point", Pair::ps, 0.03799557646, 3.881106542, 266.3087415, 0.750981,
         0.0, 1e-8},
        {"hardly any efficiency", Pair::pt, 100.0, 500.0, 1.0, 0.05, 0.0},
    };
    for (const Row& row : rows) {
        const State from = state(row.pair, row.a, row.b);
        EXPECT_TRUE(ends_there(row.what, from, row.to, row.efficiency, row.wetness_factor, row.allowed));
    }
}

/// Borders at any place of a line, beginning and end included.
TEST(Polytrope, EndsWhereFineStepsDoFromAnywhere) {
    Random random(29);
    int compared = 0;
    for (int i = 0; i < 120; ++i) {
        const double p = random.logarithmic(0.1, 100.0), quality = random.between(0.9, 1.0);
        const double superheat = random.logarithmic(0.01, 100.0), ratio = random.logarithmic(1.01, 200.0);
        const double efficiency = random.between(0.6, 0.95), factor = random.between(0.0, 1.0);
        const bool up = random.below(3) == 0;
        const State from = random.below(2) == 0 ? state(Pair::px, p, quality)
                                                : state(Pair::pt, p, saturation_temperature(p) + superheat);
        const double to = up ? p * std::sqrt(ratio) : std::max(p / ratio, 0.02);
        if (to > 150.0 || to == p) continue;
        ++compared;
        const std::string what = named(p, " bar, ", from.s(), " kJ/(kg K) to ", to, ", ", efficiency, ", ", factor);
        EXPECT_TRUE(ends_there(what, from, to, efficiency, up ? 0.0 : factor, 3e-10));
    }
    EXPECT_GT(compared, 80);
}

/// Any line of the range, limits included, in two parts: the same entropy as in one, or the same reason why it has no end.
TEST(Polytrope, IsTheSameInTwoParts) {
    Random random(31);
    int compared = 0, refused = 0;
    for (int i = 0; i < 2500; ++i) {
        const unsigned kind = random.below(3);
        const double p = random.logarithmic(0.0062, 1000.0), t = random.between(0.01, 800.0);
        const double x = random.between(0.0, 1.0), near = random.between(200.0, 260.0);
        const double ratio = random.logarithmic(1.001, 1e5), efficiency = random.between(0.05, 1.0);
        const double factor = random.below(2) == 0 ? 0.0 : random.between(0.0, 1.2);
        const bool up = random.below(2) == 0;
        const State from = kind == 0   ? state(Pair::pt, p, t)
                           : kind == 1 ? state(Pair::px, std::min(p, 221.0), x)
                                       : state(Pair::pt, near, 360.0 + 40.0 * x);
        if (!from) continue;
        const double to = up ? std::min(from.p() * ratio, 1000.0) : std::max(from.p() / ratio, 0.0062);
        const Process process = up ? Process::polytropic_compression : Process::polytropic_expansion;
        const StepOptions options{.wetness_factor = factor};
        const std::string what = named(from.p(), " bar, ", from.s(), " to ", to, ", ", efficiency, ", ", factor);
        const Step whole = step(process, from, to, efficiency, options);
        const Step first = step(process, from, std::sqrt(from.p() * to), efficiency, options);
        const Step second = step(process, first.end, to, efficiency, options);
        const Status in_parts = first ? second.status : first.status;
        EXPECT_EQ(whole.status, in_parts) << what;
        if (!whole || !second) {
            ++refused;
            continue;
        }
        ++compared;
        EXPECT_TRUE(test::close(what, whole.end.p(), to, 2e-10));
        // Above 165 bar a line may pass sub-region 3 between two nodes, unseen: volumes there differ by 2e-4 at its border.
        const double allowed = std::max(from.p(), to) > 165.0 ? 2e-6 : 2e-9;
        EXPECT_TRUE(test::within(what, first.entropy_generated + second.entropy_generated, whole.entropy_generated,
                                 allowed * whole.entropy_generated + 1e-9));
    }
    EXPECT_GT(compared, 1000);
    EXPECT_GT(refused, 100);
}

} // namespace
