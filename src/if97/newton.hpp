// Newton's method in the own variables of a region of IF97, by the step and the tests of convergence of searches/newton.hpp.
#pragma once

#include "if97/evaluation.hpp"
#include "searches/newton.hpp"
#include "searches/tolerances.hpp"

namespace ktl::if97 {

/// The own variables of a region: p, t in water and steam, v, t in region 3. Not-a-number if a search did not get there.
struct Point {
    double primary = quiet_nan, t = quiet_nan;

    [[nodiscard]] bool found() const { return primary == primary; }
};

/// Where a search begins: a state close to the one sought, such as that of the 1967 formulation. Of no region if there is none.
struct Start {
    Region region = Region::none;
    double p = quiet_nan, t = quiet_nan, v = quiet_nan;
};

template <SubRegion region>
auto properties_of(double primary, double t) {
    if constexpr (region == SubRegion::water)
        return water(Scalar(primary), Scalar(t));
    else if constexpr (region == SubRegion::steam)
        return steam(Scalar(primary), Scalar(t));
    else
        return near_critical(Scalar(primary), Scalar(t));
}

/// Bounds beyond which no search goes on: some way outside of the range, inside of what the equations allow.
template <SubRegion region>
bool is_reasonable(const Point& x) {
    if constexpr (region == SubRegion::near_critical)
        return x.primary > 0.001 && x.primary < 0.02 && x.t > 340.0 && x.t < 610.0;
    else
        return x.primary > 0.0 && x.primary < 1100.0 && x.t > -5.0 &&
               x.t < (region == SubRegion::water ? 360.0 : 805.0);
}

/// The state with the values a and b of the quantities A and B, from a start close to it; at most 12 steps, typically three.
template <SubRegion region, Quantity A, Quantity B>
[[gnu::flatten]] inline Point newton(double a, double b, Point x) noexcept {
    constexpr Quantities given{A, B};
    const double scale = 1.0 / std::fabs(x.primary);
    searches::ConvergenceTest<double> convergence{.negligible = 1.0e-13};
    for (int pass = 0; pass < searches::most_passes; ++pass) {
        if (!is_reasonable<region>(x)) return {};
        const auto step = searches::step<region>(given, properties_of<region>(x.primary, x.t), Scalar(a), Scalar(b));
        if (all_set(step.met)) return x;
        if constexpr (region == SubRegion::near_critical || A != Quantity::pressure) x.primary += step.primary.value;
        x.t += step.t.value;
        const double size =
            std::fmax(std::fabs(step.primary.value) * scale, std::fabs(step.t.value) / searches::scale_of_t);
        if (convergence.reached(size) > 0.5) return is_reasonable<region>(x) ? x : Point{};
    }
    return {};
}

} // namespace ktl::if97
