#include "searches/acceptance.hpp"

#include <algorithm>
#include <cmath>

namespace ktl::searches {

namespace {

bool in_closed(double value, double low, double high) {
    return value >= low - limit_rounding_of_finders * std::fabs(low) &&
           value <= high + limit_rounding_of_finders * std::fabs(high);
}

} // namespace

bool finite(double a, double b) { return std::isfinite(a) && std::isfinite(b); }

bool bring_within(double& value, double low, double high) {
    if (!in_closed(value, low, high)) return false;
    value = std::clamp(value, low, high);
    return true;
}

double allowance(Quantity y, double value, int region, SaturationModel model) {
    const bool outermost = model == SaturationModel::outermost_roots;
    const double near_zero = outermost ? reproduced : reproduced_entry;
    const bool scattered = !outermost && region == KTL_WET_NEAR_CRITICAL;
    const bool energy = y == Quantity::enthalpy || y == Quantity::energy;
    const double least = energy ? near_zero_energy : (y == Quantity::entropy ? near_zero_entropy : 0.0);
    return std::fmax((scattered ? reproduced_entry_near_critical : near_zero) * std::fabs(value), near_zero * least);
}

} // namespace ktl::searches
