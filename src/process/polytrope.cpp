// Polytropic steps. dh = efficiency v dp (expansion) or v dp / efficiency (compression) with T ds = dh - v dp gives
//
//     ds/du = r p v / T,   u = ln p,   r = efficiency - 1 (expansion) or 1/efficiency - 1 (compression)
//
// whose right-hand side changes slowly along a line of steam and is exactly 0 if the efficiency is 1. It is integrated by the
// classical Runge-Kutta formula of fourth order, each step once whole and once in two halves.
#include "engine/lanes/scalar.hpp"
#include "process/rules.hpp"
#include "regions/number.hpp"

namespace ktl::process {

namespace {

/// The entropy along a polytropic line as a function of u = ln(p/p1).
class Line {
public:
    Line(Process process, double p, double efficiency, double wetness_factor)
        : process_(process), p_(p), efficiency_(efficiency), wetness_factor_(wetness_factor) {}

    /// ds/du; NaN where there is no state, for the reason that status() keeps.
    double slope(double u, double s) {
        if (std::isnan(s)) return quiet_nan;
        const State at = state(Pair::ps, p_ * exp(engine::Scalar(u)).value, s);
        if (!at) {
            status_ = at.status();
            return quiet_nan;
        }
        return factor(water_fraction(at.region(), at.x())) * kj_per_bar_m3 * at.p() * at.v() / (at.t() - absolute_zero);
    }

    /// s at u + step; slope: at u.
    double advanced(double u, double s, double slope_here, double step) {
        const double half = 0.5 * step;
        const double second = slope(u + half, s + half * slope_here);
        const double third = slope(u + half, s + half * second);
        const double fourth = slope(u + step, s + step * third);
        return s + step / 6.0 * (slope_here + 2.0 * (second + third) + fourth);
    }

    [[nodiscard]] Status status() const { return status_; }

private:
    double factor(double wetness) {
        if (process_ == Process::polytropic_compression) return 1.0 / efficiency_ - 1.0;
        const double left = efficiency_ * (1.0 - wetness_factor_ * wetness);
        if (is_efficiency(left)) return left - 1.0;
        status_ = Status::efficiency_outside;
        return quiet_nan;
    }

    Process process_;
    double p_, efficiency_, wetness_factor_;
    Status status_ = Status::solved; ///< of the last slope that does not exist
};

} // namespace

PolytropicEnd polytropic_end(Process process, const Start& start, double to, double efficiency,
                             double wetness_factor) noexcept {
    constexpr double accuracy = 1.0e-9; // of one step, in parts of the greatest entropy rise that is possible
    constexpr double first = 0.25, least = 1.0 / 4096.0; // lengths of steps in parts of the line
    if (to == start.p || (efficiency == 1.0 && wetness_factor == 0.0)) return {Status::solved, start.s};

    const State ideal = state(Pair::ps, to, start.s);
    if (ideal.status() == Status::pressure_low || ideal.status() == Status::pressure_high)
        return {ideal.status(), quiet_nan};

    Line line(process, start.p, efficiency, wetness_factor);
    const double end = log(engine::Scalar(to / start.p)).value;
    double s = start.s;
    double slope = line.slope(0.0, s);
    const double tolerance = accuracy * std::fabs(end) * std::fmax(std::fabs(slope), std::fabs(line.slope(end, s)));
    double part = first;
    // Each pass goes on by at least the least part of the line, or halves the step after it was doubled or begun.
    for (double done = 0.0; done < 1.0;) {
        const double u = done * end;
        const double step = part * end;
        const double whole = line.advanced(u, s, slope, step);
        const double middle = line.advanced(u, s, slope, 0.5 * step);
        const double halves = line.advanced(u + 0.5 * step, middle, line.slope(u + 0.5 * step, middle), 0.5 * step);
        const double error = std::fabs(halves - whole) / 15.0;
        if (!(error <= tolerance) && part > least) {
            part *= 0.5;
            continue;
        }
        s = halves + (halves - whole) / 15.0;
        done += part;
        slope = line.slope(done * end, s);
        if (std::isnan(slope)) return {line.status(), quiet_nan};
        // Steps remain powers of two that end on a multiple of themselves, so that the last one ends at 1 exactly.
        const double doubled = 2.0 * part;
        if (error <= tolerance / 64.0 && part < first && std::fmod(done, doubled) == 0.0) part = doubled;
    }
    return {Status::solved, s};
}

} // namespace ktl::process
