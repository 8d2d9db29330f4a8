#include "unit_system.hpp"

#include "derivative_code.hpp"
#include "number.hpp"
#include "suggestion.hpp"

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace program {

namespace {

/// Units that charts do not have.
struct Further {
    const char *density, *speed, *compressibility, *expansion, *joule_thomson, *viscosity, *kinematic_viscosity;
    const char *conductivity, *surface_tension;
};
constexpr Further further_bar{"kg/m3", "m/s", "1/bar", "1/K", "K/bar", "Pa s", "m2/s", "W/(m K)", "N/m"};
constexpr Further further_si{"kg/m3", "m/s", "1/Pa", "1/K", "K/Pa", "Pa s", "m2/s", "W/(m K)", "N/m"};
constexpr Further further_mpa{"kg/m3", "m/s", "1/MPa", "1/K", "K/MPa", "Pa s", "m2/s", "W/(m K)", "N/m"};
constexpr Further further_us{"lb/ft3",    "ft/s",  "1/psi",           "1/degF", "degF/psi",
                             "lb/(ft s)", "ft2/s", "Btu/(h ft degF)", "lbf/ft"};

UnitSystem system(std::string_view name, ktl::diagram::System id, const Further& further) {
    using ktl::units::Dimension;
    const auto find = ktl::units::find_of_property;
    const auto of = [=](ktl::Property property) {
        return ktl::units::Reading{ktl::diagram::unit(id, property), false, ktl::units::Fault::none};
    };
    return {name,
            id,
            of(ktl::Property::p),
            of(ktl::Property::t),
            of(ktl::Property::v),
            of(ktl::Property::h),
            of(ktl::Property::s),
            find(Dimension::density, further.density),
            find(Dimension::speed, further.speed),
            find(Dimension::compressibility, further.compressibility),
            find(Dimension::expansion, further.expansion),
            find(Dimension::joule_thomson, further.joule_thomson),
            find(Dimension::viscosity, further.viscosity),
            find(Dimension::kinematic_viscosity, further.kinematic_viscosity),
            find(Dimension::conductivity, further.conductivity),
            find(Dimension::surface_tension, further.surface_tension),
            ktl::units::find(Dimension::quality, "kg/kg")};
}

const std::array systems{
    system("bar", ktl::diagram::System::bar, further_bar), system("si", ktl::diagram::System::si, further_si),
    system("mpa", ktl::diagram::System::mpa, further_mpa), system("us", ktl::diagram::System::us, further_us)};

/// A property with the text of its unit, which it refers to.
struct Converted {
    std::string unit;
    Property property;
};

/// The unit that the system has in place of one of kJ, m3, kg, bar and K; m3 may be squared to m6, the others to kg2.
std::string factor_in(std::string_view factor, const UnitSystem& units) {
    const std::string_view volume = units.volume.unit->name, energy = units.energy.unit->name;
    const std::string_view temperature = units.temperature.unit->name;
    std::string out;
    if (factor.starts_with("kJ")) out = energy.substr(0, energy.find('/'));
    if (factor.starts_with("m")) out = volume.substr(0, volume.find('/'));
    if (factor.starts_with("kg")) out = volume.substr(volume.find('/') + 1);
    if (factor.starts_with("bar")) out = units.pressure.unit->name;
    if (factor.starts_with("K")) out = temperature == "degC" ? "K" : temperature; // of a difference
    if (factor.ends_with('6')) out.back() = '6';
    if (factor.ends_with('2')) out += '2';
    return out.empty() ? std::string(factor) : out;
}

/// The unit of a derivative, "kJ/(kg bar)", with each factor in the system: "Btu/(lb psi)".
std::string unit_of_derivative(std::string_view unit, const UnitSystem& units) {
    constexpr std::string_view marks = " ()/";
    std::string out;
    while (!unit.empty()) {
        const std::size_t end = std::min(unit.find_first_of(marks), unit.size());
        if (end != 0) out += factor_in(unit.substr(0, end), units);
        out += unit.substr(end, 1);
        unit.remove_prefix(std::min(end + 1, unit.size()));
    }
    return out;
}

/// The name of the unit that the property has in the system.
std::string unit_in(const Property& property, const UnitSystem& units) {
    const ktl::units::Reading& unit = property.surface_tension ? units.surface_tension : units.unit_of(property.id);
    if (&units == &own_units() || !unit) return std::string(property.unit);
    return property.derivative ? unit_of_derivative(property.unit, units) : heading(unit);
}

const Property& in_units(const Property& property, const UnitSystem& units) {
    if (&units == &own_units()) return property;
    static std::map<std::pair<std::string_view, std::string_view>, Converted> all;
    const auto [at, is_new] = all.try_emplace({units.name, property.code});
    Converted& converted = at->second;
    if (is_new) {
        converted.unit = unit_in(property, units);
        converted.property = property;
        converted.property.unit = converted.unit;
        converted.property.factor = 1.0;
        if (const auto& d = property.derivative) {
            const ktl::units::Unit &of = *units.unit_of(d->of).unit, &by = *units.unit_of(d->by).unit;
            converted.property.factor = of.over * by.times / (of.times * by.over);
        } else {
            converted.property.result_unit =
                property.surface_tension ? units.surface_tension : units.unit_of(property.id);
        }
    }
    return converted.property;
}

/// True for the heading of that property's results in any of the systems.
bool is_title(const std::string& column, const Property& property) {
    return std::any_of(systems.begin(), systems.end(), [&](const UnitSystem& units) {
        return column == std::string(property.code).append(1, '_').append(unit_in(property, units));
    });
}

/// A derivative with its unit, as "d(H)/d(P)|S_kJ/(kg bar)".
bool is_title_of_derivative(const std::string& column) {
    const std::size_t end = column.find('_');
    if (end == std::string::npos || !looks_like_derivative(column)) return false;
    try {
        return is_title(column, derivative_property(column.substr(0, end)));
    } catch (const UsageError&) {
        return false;
    }
}

} // namespace

const ktl::units::Reading& UnitSystem::unit_of(ktl::Property id) const {
    static constexpr ktl::units::Reading pure_number{};
    switch (id) {
    case ktl::Property::p: return pressure;
    case ktl::Property::t: return temperature;
    case ktl::Property::v: return volume;
    case ktl::Property::rho: return density;
    case ktl::Property::h:
    case ktl::Property::u:
    case ktl::Property::gibbs:
    case ktl::Property::helmholtz: return energy;
    case ktl::Property::s:
    case ktl::Property::cp:
    case ktl::Property::cv: return entropy;
    case ktl::Property::x: return quality;
    case ktl::Property::speed_of_sound: return speed;
    case ktl::Property::compressibility: return compressibility;
    case ktl::Property::expansion: return expansion;
    case ktl::Property::joule_thomson: return joule_thomson;
    case ktl::Property::viscosity: return viscosity;
    case ktl::Property::kinematic_viscosity: return kinematic_viscosity;
    case ktl::Property::conductivity: return conductivity;
    case ktl::Property::region:
    case ktl::Property::isentropic_exponent:
    case ktl::Property::prandtl: break;
    }
    return pure_number;
}

const UnitSystem& unit_system(std::string_view name) {
    for (const UnitSystem& known : systems)
        if (known.name == lower_case(name)) return known;
    throw UsageError("--units: no system of units is called " + in_quotes(name) +
                     did_you_mean(name, unit_system_names()) + "; there are " + unit_system_names());
}

std::span<const UnitSystem> unit_systems() { return systems; }

std::string unit_system_names() {
    std::string out;
    for (const UnitSystem& known : systems) out.append(out.empty() ? "" : " ").append(known.name);
    return out;
}

std::string heading(const ktl::units::Reading& unit) {
    return std::string(unit.unit->name) + (unit.unit->needs_reference ? "a" : "");
}

Measure measure_in(ktl::Property id, const UnitSystem& units) {
    if (&units == &own_units()) return {};
    return {units.unit_of(id), 0.0, id};
}

Properties in_units(const Properties& wanted, const UnitSystem& units) {
    Properties converted;
    for (const Property* property : wanted) converted.push_back(&in_units(*property, units));
    return converted;
}

std::string title_of(const Property& property) {
    return std::string(property.code).append(1, '_').append(property.unit);
}

bool is_title_of_results(const std::string& column) {
    return is_title_of_derivative(column) || std::any_of(properties().begin(), properties().end(),
                                                         [&](const Property& p) { return is_title(column, p); });
}

} // namespace program
