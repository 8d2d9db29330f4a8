// Temperatures at which a saturated phase has a value: one on each part of the saturation line on which the property rises or
// falls throughout.
#include "engine/calls/float_environment.hpp"
#include "process/saturation_extrema.hpp"
#include "regions/constants.hpp"
#include "regions/number.hpp"
#include "searches/enclosure.hpp"

#include <algorithm>
#include <cmath>
#include <ktl/process.hpp>

namespace ktl {

namespace {

using namespace process;

/// The one turn of the property up to 350 degC; NaN if it has none.
double turn_of(SaturatedPhase phase, Property property) {
    const bool vapour = phase == SaturatedPhase::vapour;
    if (!vapour && property == Property::v) return least_water_volume;
    if (vapour && property == Property::h) return greatest_steam_enthalpy;
    if (vapour && property == Property::u) return greatest_steam_energy;
    return quiet_nan;
}

/// By how much a value may miss the line: as that of a state may miss the given one.
double allowance(Property property, double value) {
    constexpr double relative = 1.0e-10;
    const double least = property == Property::v ? 0.0 : property == Property::s ? 1.0 : 10.0; // kJ/(kg K), kJ/kg
    return relative * std::max(std::fabs(value), least);
}

class Search {
public:
    Search(SaturatedPhase phase, Property property, double value) : phase_(phase), property_(property), value_(value) {}

    /// Adds the temperature between two, if there is one.
    void look(double cold, double warm) {
        const double at_cold = residual(cold);
        const double at_warm = residual(warm);
        double t = std::fabs(at_cold) <= std::fabs(at_warm) ? cold : warm;
        if (std::signbit(at_cold) != std::signbit(at_warm)) {
            constexpr double rounding = 1.0e-14;
            t = solvers::enclose([&](double x) { return residual(x); }, cold, at_cold, warm, at_warm,
                                 rounding * std::fabs(value_))
                    .x;
        } else if (!(std::min(std::fabs(at_cold), std::fabs(at_warm)) <= allowance(property_, value_))) {
            return;
        }
        if (found_.count != 0 && found_.t[found_.count - 1] == t) return; // a turn, the end of two parts
        found_.t[found_.count++] = t;
        found_.status = Status::solved;
    }

    [[nodiscard]] const SaturationPoints& found() const { return found_; }

private:
    double residual(double t) const {
        const State at = state(Pair::tx, t, 0.0);
        return (phase_ == SaturatedPhase::liquid ? at.liquid() : at.vapour()).get(property_) - value_;
    }

    SaturatedPhase phase_;
    Property property_;
    double value_;
    SaturationPoints found_;
};

bool has_temperatures(SaturatedPhase phase, Property property) {
    return (phase == SaturatedPhase::liquid || phase == SaturatedPhase::vapour) &&
           (property == Property::v || property == Property::h || property == Property::s || property == Property::u);
}

} // namespace

SaturationPoints saturation_by(SaturatedPhase phase, Property property, double value) noexcept {
    return in_float_environment([&]() -> SaturationPoints {
        if (!std::isfinite(value)) return {.status = Status::not_a_number};
        if (!has_temperatures(phase, property)) return {};
        Search search(phase, property, value);
        const double turn = turn_of(phase, property);
        if (std::isnan(turn)) {
            search.look(ktl_lc.tmin, ktl_lc.t1);
        } else {
            search.look(ktl_lc.tmin, turn);
            search.look(turn, ktl_lc.t1);
        }
        search.look(std::nextafter(ktl_lc.t1, ktl_lc.tc), ktl_lc.tc); // the equations of sub-region 3
        return search.found();
    });
}

} // namespace ktl
