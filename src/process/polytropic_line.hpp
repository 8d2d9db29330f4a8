// A polytropic line as the search for its end sees it: slopes of the entropy at many points together, and stretches.
#pragma once

#include "engine/lanes/scalar.hpp"
#include "engine/rows/block.hpp"
#include "process/collocation.hpp"
#include "process/rules.hpp"
#include "regions/constants.hpp"
#include "regions/number.hpp"

namespace ktl::process {

/// States at points of the line, from its beginning on.
struct Samples {
    Points slope; ///< ds/du; NaN if there is no state
    std::array<Region, point_count> region;
    std::size_t valid; ///< points before the first without a state
};

/// The right-hand side.
class Line {
public:
    /// From p to the pressure `to`.
    Line(Process process, double p, double to, double efficiency, double wetness_factor)
        : process_(process), p_(p), to_(to), efficiency_(efficiency), wetness_factor_(wetness_factor) {}

    Samples at(const Points& u, const Points& s) {
        constexpr std::array wanted{Property::v, Property::t, Property::x, Property::region};
        Points p, v, t, x, region;
        for (std::size_t i = 0; i < point_count; ++i) p[i] = pressure(u[i]);
        const std::array<double*, wanted.size()> outputs{v.data(), t.data(), x.data(), region.data()};
        std::array<Status, point_count> status;
        engine::solve_block(Pair::ps, p.data(), s.data(), point_count, wanted, outputs.data(), status.data());
        Samples y;
        y.valid = point_count;
        for (std::size_t i = point_count; i-- > 0;) {
            y.region[i] = static_cast<Region>(region[i]);
            y.slope[i] = slope(status[i], p[i], v[i], t[i], water_fraction(y.region[i], x[i]));
            if (std::isnan(y.slope[i])) y.valid = i;
        }
        return y;
    }

    /// ds/du at a state.
    double at(const State& y) { return slope(y.status(), y.p(), y.v(), y.t(), water_fraction(y.region(), y.x())); }

    /// Entropy of a saturated phase; NaN above the critical pressure.
    [[nodiscard]] double saturated(double u, bool vapour) const {
        const State y = state(Pair::px, pressure(u), vapour ? 1.0 : 0.0);
        return (vapour ? y.vapour() : y.liquid()).s();
    }

    /// Where a mixture has 350 degC, at which the equations change.
    [[nodiscard]] double change_of_equations() const {
        return log(engine::Scalar(saturation_pressure(ktl_lc.t1) / p_)).value;
    }

    /// Why a slope does not exist: of the points asked for last, the first of them.
    [[nodiscard]] Status status() const { return status_; }

private:
    /// Between both ends, so that rounding does not leave the valid range at one of them.
    [[nodiscard]] double pressure(double u) const {
        return std::clamp(p_ * exp(engine::Scalar(u)).value, std::min(p_, to_), std::max(p_, to_));
    }

    double slope(Status status, double p, double v, double t, double wetness) {
        double r = 1.0 / efficiency_ - 1.0;
        if (status == Status::solved && process_ == Process::polytropic_expansion) {
            const double left = efficiency_ * (1.0 - wetness_factor_ * wetness);
            if (!is_efficiency(left)) status = Status::efficiency_outside;
            r = left - 1.0;
        }
        if (status != Status::solved) {
            status_ = status;
            return quiet_nan;
        }
        return r * kj_per_bar_m3 * p * v / (t - absolute_zero);
    }

    Process process_;
    double p_, to_, efficiency_, wetness_factor_;
    Status status_ = Status::solved;
};

/// The line on one stretch in terms of x, from -1 at its beginning to 1 at its end.
struct Stretch {
    double u, length, s; ///< u, s: at the beginning
    Nodes series;        ///< of the slope

    [[nodiscard]] double u_at(double x) const { return u + 0.5 * length * (x + 1.0); }
    [[nodiscard]] double x_at(double at_u) const { return 2.0 * (at_u - u) / length - 1.0; }
    template <std::size_t N>
    [[nodiscard]] std::array<double, N> s_at(const std::array<double, N>& x) const {
        std::array<double, N> y = collocation::integrals_to(x, series);
        for (double& value : y) value = s + 0.5 * length * value;
        return y;
    }
};

} // namespace ktl::process
