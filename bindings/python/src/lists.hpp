// The lists of pairs and properties with their names, and the unit systems that Python offers.
#pragma once

#include <array>
#include <cstddef>
#include <ktl/steam.hpp>
#include <ktl/units.hpp>

namespace ktl::python {

struct PairRow {
    const char* name;
    Property a, b;
};
inline constexpr std::array<PairRow, pair_count> pairs{{
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) {#pair, Property::a, Property::b},
#include <ktl/pairs.def>
}};

struct PropertyRow {
    const char* name;
    const char* unit; ///< the library's
    const char* meaning;
};
inline constexpr std::array<PropertyRow, property_count> properties{{
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning) {#property, unit, meaning},
#include <ktl/properties.def>
}};

/// From the library's unit to another one: x * multiplier / divisor + offset.
struct Conversion {
    const char* unit;
    double multiplier = 1, divisor = 1, offset = 0;

    [[nodiscard]] bool identity() const { return multiplier == 1 && divisor == 1 && offset == 0; }
    [[nodiscard]] double from_library(double x) const { return x * multiplier / divisor + offset; }
    [[nodiscard]] double to_library(double x) const { return (x - offset) * divisor / multiplier; }
};

using units::System;
using units::system_count;

/// The conversion of a property to its unit in the system.
[[nodiscard]] const Conversion& conversion(System system, Property property);
/// The same for the slope of the saturation line, whose unit no property has.
[[nodiscard]] const Conversion& slope_conversion(System system);

} // namespace ktl::python
