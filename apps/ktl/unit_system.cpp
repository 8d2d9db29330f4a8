#include "unit_system.hpp"

#include "number.hpp"
#include "suggestion.hpp"

#include <array>

namespace program {

namespace {

using ktl::units::Dimension;

UnitSystem system(std::string_view name, std::string_view p, std::string_view t, std::string_view v, std::string_view h,
                  std::string_view s) {
    return {name,
            ktl::units::find(Dimension::pressure, p),
            ktl::units::find(Dimension::temperature, t),
            ktl::units::find(Dimension::volume, v),
            ktl::units::find(Dimension::energy, h),
            ktl::units::find(Dimension::entropy, s)};
}

/// Every name is one of ktl/units.hpp.
const std::array systems{
    system("bar", "bar", "degC", "m3/kg", "kJ/kg", "kJ/(kg K)"),
    system("si", "Pa", "K", "m3/kg", "J/kg", "J/(kg K)"),
    system("mpa", "MPa", "K", "m3/kg", "kJ/kg", "kJ/(kg K)"),
    system("us", "psia", "degF", "ft3/lb", "Btu/lb", "Btu/(lb degF)"),
};

} // namespace

const ktl::units::Reading& UnitSystem::unit_of(ktl::Property id) const {
    switch (id) {
    case ktl::Property::p: return pressure;
    case ktl::Property::t: return temperature;
    case ktl::Property::v: return volume;
    case ktl::Property::s:
    case ktl::Property::cp: return entropy;
    default: return energy;
    }
}

const UnitSystem& unit_system(std::string_view name) {
    for (const UnitSystem& known : systems)
        if (known.name == lower_case(name)) return known;
    throw UsageError("--units: no system of units is called " + in_quotes(name) +
                     did_you_mean(name, unit_system_names()) + "; there are " + unit_system_names());
}

std::string unit_system_names() {
    std::string out;
    for (const UnitSystem& known : systems) out.append(out.empty() ? "" : " ").append(known.name);
    return out;
}

std::string heading(const ktl::units::Reading& unit) {
    return std::string(unit.unit->name) + (unit.unit->needs_reference ? "a" : "");
}

} // namespace program
