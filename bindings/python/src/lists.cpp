#include "lists.hpp"

#include <ktl/units.hpp>
#include <string_view>
#include <vector>

namespace ktl::python {

namespace {

using units::Dimension;
using units::Reading;

// Values of these, of what is counted for each of one, and of the ratio of two.
Conversion in(const char* library_unit, const Reading& to) {
    return {library_unit, to.unit->name.data(), to.unit->over, to.unit->times, to.unit->zero};
}
Conversion per(const char* library_unit, const char* name, const Reading& of) {
    return {library_unit, name, of.unit->times, of.unit->over};
}
Conversion ratio(const char* library_unit, const char* name, const Reading& above, const Reading& below) {
    return {library_unit, name, above.unit->over * below.unit->times, above.unit->times * below.unit->over};
}

const Reading pascal = units::find(Dimension::pressure, "Pa"), psi = units::find(Dimension::pressure, "psia");
const Reading kelvin = units::find(Dimension::temperature, "K");
const Reading fahrenheit = units::find(Dimension::temperature, "degF");
const Reading cubic_foot = units::find(Dimension::volume, "ft3/lb");

// Exact, as those of ktl/units.hpp: a foot in m, a pound in kg, a Btu of the International Steam Table in J.
constexpr double foot = 0.3048, pound = 0.45359237, btu = 1055.05585262;
constexpr double hour = 3600.0, fahrenheit_of_kelvin = 1.8;

const Conversion si_units[] = {
    in("bar", pascal),
    in("degC", kelvin),
    in("kJ/kg", units::find(Dimension::energy, "J/kg")),
    in("kJ/(kg K)", units::find(Dimension::entropy, "J/(kg K)")),
    per("1/bar", "1/Pa", pascal),
    ratio("K/bar", "K/Pa", kelvin, pascal),
    ratio("bar/K", "Pa/K", pascal, kelvin),
};
const Conversion us_units[] = {
    in("bar", psi),
    in("degC", fahrenheit),
    in("m3/kg", cubic_foot),
    per("kg/m3", "lb/ft3", cubic_foot),
    in("kJ/kg", units::find(Dimension::energy, "Btu/lb")),
    in("kJ/(kg K)", units::find(Dimension::entropy, "Btu/(lb degF)")),
    {"m/s", "ft/s", 1, foot},
    per("1/bar", "1/psi", psi),
    per("1/K", "1/degF", fahrenheit),
    ratio("K/bar", "degF/psi", fahrenheit, psi),
    ratio("bar/K", "psi/degF", psi, fahrenheit),
    {"Pa s", "lb/(ft s)", foot, pound},
    {"m2/s", "ft2/s", 1, foot* foot},
    {"W/(m K)", "Btu/(h ft degF)", hour* foot / fahrenheit_of_kelvin, btu},
};

Conversion find(System system, std::string_view library_unit, const char* kept) {
    const auto row_of = [&](const auto& table) {
        for (const Conversion& row : table)
            if (row.library_unit == library_unit) return row;
        return Conversion{kept, kept};
    };
    switch (system) {
    case System::si: return row_of(si_units);
    case System::us: return row_of(us_units);
    default: return {kept, kept};
    }
}

constexpr const char* slope_unit = "bar/K";

/// A row for each property, then one for the slope of the saturation line.
std::vector<Conversion> made_for(System system) {
    std::vector<Conversion> all;
    all.reserve(property_count + 1);
    for (const PropertyRow& row : properties) all.push_back(find(system, row.unit, row.unit));
    all.push_back(find(system, slope_unit, slope_unit));
    return all;
}

const std::vector<Conversion>& conversions(System system) {
    static const std::array<std::vector<Conversion>, system_count> all{made_for(System::bar), made_for(System::si),
                                                                       made_for(System::us)};
    return all[static_cast<std::size_t>(system)];
}

} // namespace

const Conversion& conversion(System system, Property property) {
    return conversions(system)[static_cast<std::size_t>(property)];
}

const Conversion& slope_conversion(System system) { return conversions(system).back(); }

} // namespace ktl::python
