#include "lists.hpp"

#include <string_view>
#include <vector>

namespace ktl::python {

namespace {

// Exact: a pound is 0.45359237 kg, a foot 0.3048 m, a pound-force 4.4482216152605 N, a Btu (International Table)
// 1.05505585262 kJ, which makes a Btu/lb 2.326 kJ/kg and a Btu/(lb degF) 4.1868 kJ/(kg K).
constexpr double square_inch_bar = 64.516; // newtons of a bar on a square inch
constexpr double pound_force = 4.4482216152605;
constexpr double cubic_foot = 0.028316846592; // m3

constexpr Conversion si_units[] = {
    {"bar", "Pa", 1e5, 1, 0},      {"degC", "K", 1, 1, 273.15},
    {"kJ/kg", "J/kg", 1000, 1, 0}, {"kJ/(kg K)", "J/(kg K)", 1000, 1, 0},
    {"1/bar", "1/Pa", 1, 1e5, 0},  {"K/bar", "K/Pa", 1, 1e5, 0},
    {"bar/K", "Pa/K", 1e5, 1, 0},
};
constexpr Conversion us_units[] = {
    {"bar", "psi", square_inch_bar, pound_force, 0},
    {"degC", "degF", 9, 5, 32},
    {"m3/kg", "ft3/lb", 0.45359237, cubic_foot, 0},
    {"kg/m3", "lb/ft3", cubic_foot, 0.45359237, 0},
    {"kJ/kg", "Btu/lb", 1, 2.326, 0},
    {"kJ/(kg K)", "Btu/(lb degF)", 1, 4.1868, 0},
    {"m/s", "ft/s", 1, 0.3048, 0},
    {"1/bar", "1/psi", pound_force, square_inch_bar, 0},
    {"1/K", "1/degF", 5, 9, 0},
    {"K/bar", "degF/psi", 9 * pound_force, 5 * square_inch_bar, 0},
    {"bar/K", "psi/degF", 5 * square_inch_bar, 9 * pound_force, 0},
    {"Pa s", "lb/(ft s)", 0.3048, 0.45359237, 0},
    {"m2/s", "ft2/s", 1, 0.3048 * 0.3048, 0},
    {"W/(m K)", "Btu/(h ft degF)", 3600 * 0.3048 / 1.8, 1055.05585262, 0},
};

Conversion find(System system, std::string_view library_unit, const char* kept) {
    const auto in = [&](const auto& table) {
        for (const Conversion& row : table)
            if (row.library_unit == library_unit) return row;
        return Conversion{kept, kept};
    };
    switch (system) {
    case System::si: return in(si_units);
    case System::us: return in(us_units);
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
