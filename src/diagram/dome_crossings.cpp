#include "diagram/dome_crossings.hpp"

#include "diagram/frame.hpp"
#include "searches/enclosure.hpp"

#include <array>
#include <cmath>

namespace ktl::diagram {

namespace {

constexpr std::size_t node_count = 97;
/// The saturated properties jump at 350 degC, by less than this part of them. A value in the jump has no crossing.
constexpr double reproduced = 1.0e-10;

/// Points of the saturation line, denser towards the critical point.
const std::array<Saturation, node_count>& nodes() {
    static const std::array<Saturation, node_count> all = [] {
        std::array<Saturation, node_count> points;
        for (std::size_t i = 0; i < node_count; ++i) {
            const double rest = 1.0 - static_cast<double>(i) / (node_count - 1);
            const double t = critical_temperature - (critical_temperature - least_temperature) * rest * rest;
            points[i] = saturation_at_temperature(i == 0 ? least_temperature : t);
        }
        return points;
    }();
    return all;
}

class Side {
public:
    Side(Property property, double value, double quality) : property_(property), value_(value), quality_(quality) {}

    [[nodiscard]] double residual(const Saturation& at) const {
        return Crossing{at, quality_}.phase().get(property_) - value_;
    }
    [[nodiscard]] double residual(double t) const { return residual(saturation_at_temperature(t)); }

    /// Adds the crossing between two temperatures, if there is one.
    void add(double low, double f_low, double high, double f_high, std::vector<Crossing>& found) const {
        if ((f_low < 0.0) == (f_high < 0.0)) return;
        const double t = solvers::enclose([this](double x) { return residual(x); }, low, f_low, high, f_high, 0.0).x;
        const Saturation at = saturation_at_temperature(t);
        const double scale = std::fmax(std::fabs(value_), property_ == Property::v ? 0.0 : 1.0);
        if (std::fabs(residual(at)) <= reproduced * scale) found.push_back({at, quality_});
    }

    /// The temperature of the extremum between low and high, which lies on the side of sign from zero.
    [[nodiscard]] double extremum(double low, double high, double sign) const {
        constexpr double golden = 0.6180339887498949;
        for (int pass = 0; pass < 40; ++pass) {
            const double step = golden * (high - low);
            const double a = high - step, b = low + step;
            if (sign * residual(a) > sign * residual(b))
                high = b;
            else
                low = a;
        }
        return 0.5 * (low + high);
    }

private:
    Property property_;
    double value_, quality_;
};

void add_crossings(const Side& side, std::vector<Crossing>& found) {
    const auto& points = nodes();
    double before = side.residual(points[0]);
    for (std::size_t i = 1; i < node_count; ++i) {
        const double here = side.residual(points[i]);
        side.add(points[i - 1].t, before, points[i].t, here, found);
        if (i + 1 < node_count) {
            const double after = side.residual(points[i + 1]);
            const double sign = here > 0.0 ? -1.0 : 1.0;
            // The line turns towards the value here, and may cross it twice between two points.
            if (sign * (here - before) > 0.0 && sign * (here - after) > 0.0) {
                const double t = side.extremum(points[i - 1].t, points[i + 1].t, sign);
                const double f = side.residual(t);
                side.add(points[i - 1].t, before, t, f, found);
                side.add(t, f, points[i + 1].t, after, found);
            }
        }
        before = here;
    }
}

} // namespace

std::vector<Crossing> dome_crossings(Property property, double value) {
    std::vector<Crossing> found;
    add_crossings(Side(property, value, 0.0), found);
    add_crossings(Side(property, value, 1.0), found);
    return found;
}

} // namespace ktl::diagram
