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

constexpr std::array systems = [] {
    std::array<UnitSystem, ktl::units::system_count> all{};
    for (std::size_t k = 0; k < all.size(); ++k)
        all[k] = {ktl::units::system_names[k], static_cast<ktl::units::System>(k)};
    return all;
}();

/// A property with the text of its unit, which it refers to.
struct Converted {
    std::string unit;
    Property property;
};

/// The unit that the system has in place of one of kJ, m3, kg, bar and K; m3 may be squared to m6, the others to kg2.
std::string factor_in(std::string_view factor, const UnitSystem& units) {
    using ktl::units::Dimension;
    const auto name = [&](Dimension dimension) { return units.unit_of(dimension).unit->name; };
    const std::string_view volume = name(Dimension::volume), energy = name(Dimension::energy);
    const std::string_view temperature = name(Dimension::temperature);
    std::string out;
    if (factor.starts_with("kJ")) out = energy.substr(0, energy.find('/'));
    if (factor.starts_with("m")) out = volume.substr(0, volume.find('/'));
    if (factor.starts_with("kg")) out = volume.substr(volume.find('/') + 1);
    if (factor.starts_with("bar")) out = name(Dimension::pressure);
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

ktl::units::Reading result_unit(const Property& property, const UnitSystem& units) {
    using ktl::units::Dimension;
    return property.surface_tension ? units.unit_of(Dimension::surface_tension) : units.unit_of(property.id);
}

/// The name of the unit that the property has in the system.
std::string unit_in(const Property& property, const UnitSystem& units) {
    const ktl::units::Reading unit = result_unit(property, units);
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
            converted.property.result_unit = result_unit(property, units);
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

const ktl::units::Reading& UnitSystem::unit_of(ktl::Property property) const {
    static constexpr std::array units_of_ktl{
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning) std::string_view(unit),
#include <ktl/properties.def>
    };
    static const auto all = [] {
        std::array<std::array<ktl::units::Reading, ktl::property_count>, ktl::units::system_count> readings;
        for (std::size_t k = 0; k < readings.size(); ++k)
            std::transform(units_of_ktl.begin(), units_of_ktl.end(), readings[k].begin(), [&](std::string_view unit) {
                return ktl::units::in_system(static_cast<ktl::units::System>(k), unit);
            });
        return readings;
    }();
    return all[static_cast<std::size_t>(id)][static_cast<std::size_t>(property)];
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
