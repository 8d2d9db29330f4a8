#include "lists.hpp"

namespace ktl::python {

namespace {

using units::Reading;

Conversion made_for(System system, const char* unit_of_ktl) {
    const Reading to = units::in_system(system, unit_of_ktl);
    if (!to) return {unit_of_ktl};
    return {to.unit->name.data(), to.unit->over, to.unit->times, to.unit->zero};
}

/// dp/dt, in the units of p and t.
Conversion slope_made_for(System system) {
    constexpr std::array<const char*, system_count> names{"bar/K", "Pa/K", "MPa/K", "psi/degF"};
    const Conversion p = made_for(system, "bar"), t = made_for(system, "degC");
    return {names[static_cast<std::size_t>(system)], p.multiplier * t.divisor, p.divisor * t.multiplier};
}

/// A row for each property, then one for the slope of the saturation line.
using Conversions = std::array<Conversion, property_count + 1>;

const Conversions& conversions(System system) {
    static const auto all = [] {
        std::array<Conversions, system_count> rows;
        for (std::size_t k = 0; k < system_count; ++k) {
            const auto id = static_cast<System>(k);
            for (std::size_t i = 0; i < property_count; ++i) rows[k][i] = made_for(id, properties[i].unit);
            rows[k].back() = slope_made_for(id);
        }
        return rows;
    }();
    return all[static_cast<std::size_t>(system)];
}

} // namespace

const Conversion& conversion(System system, Property property) {
    return conversions(system)[static_cast<std::size_t>(property)];
}

const Conversion& slope_conversion(System system) { return conversions(system).back(); }

} // namespace ktl::python
