#include "engine/calls/float_environment.hpp"
#include "engine/kernels/kernels.hpp"
#include "engine/lanes/scalar.hpp"
#include "regions/surface_tension.hpp"

#include <algorithm>

namespace ktl {

namespace {

Saturation at(Pair pair, double given) noexcept {
    const State water = state(pair, given, 0.0);
    return {water.status(),
            water.p(),
            water.t(),
            saturation_slope(water.t()),
            water.liquid(),
            water.vapour(),
            surface_tension(water.t())};
}

using engine::Kernels;

/// One value by the kernel of one lane.
double one(Kernels::Line line, double x) noexcept {
    return in_float_environment([&] {
        double y;
        line(&x, 1, &y);
        return y;
    });
}

/// A column; its end, less than a whole number of lanes, by way of a padded copy.
void column(Kernels::Line line, std::span<const double> x, std::span<double> y) noexcept {
    const FloatEnvironment environment;
    const std::size_t n = std::min(x.size(), y.size());
    const std::size_t whole = n - n % engine::widest;
    line(x.data(), whole, y.data());
    std::array<double, engine::widest> given{}, found;
    std::copy_n(x.data() + whole, n - whole, given.begin());
    line(given.data(), engine::widest, found.data());
    std::copy_n(found.begin(), n - whole, y.data() + whole);
}

} // namespace

double saturation_pressure(double t) noexcept { return one(engine::scalar_kernels().saturation_pressure, t); }
double saturation_temperature(double p) noexcept { return one(engine::scalar_kernels().saturation_temperature, p); }
double saturation_slope(double t) noexcept { return one(engine::scalar_kernels().saturation_slope, t); }

double surface_tension(double t) noexcept {
    return in_float_environment([&]() -> double { // comparisons with not-a-number raise INVALID
        using namespace surface_tension_of_water;
        if (!(t >= ktl_lc.tmin && t <= critical_temperature)) return quiet_nan;
        return t < critical_temperature ? sigma(engine::Scalar(t)).value : 0.0;
    });
}

void saturation_pressure(std::span<const double> t, std::span<double> p) noexcept {
    column(engine::kernels().saturation_pressure, t, p);
}
void saturation_temperature(std::span<const double> p, std::span<double> t) noexcept {
    column(engine::kernels().saturation_temperature, p, t);
}

Saturation saturation_at_temperature(double t) noexcept { return at(Pair::tx, t); }
Saturation saturation_at_pressure(double p) noexcept { return at(Pair::px, p); }

} // namespace ktl
