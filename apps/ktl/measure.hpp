// Given values with their units, and what to say if a unit is not one.
#pragma once

#include "number.hpp"
#include "tables.hpp"

#include <optional>

namespace program {

/// The pressure of the atmosphere that gauge pressures are above, bar, if it was given.
using Atmosphere = std::optional<double>;

/// The pressure (bar) or temperature (degC), or the limit of the range or of the saturation line that it differs from by
/// the rounding of a conversion alone; other properties as they are.
double at_limit(ktl::Property id, double value);

/// How the values of a column, or of an argument, become ktl's.
struct Measure {
    ktl::units::Reading unit; ///< null: ktl's own unit
    double atmosphere = 0.0;
    std::optional<ktl::Property> limited = std::nullopt; ///< values that round from a limit of this one are that limit

    [[nodiscard]] double to_ktl(double value) const {
        const double converted = unit ? unit.to_ktl(value, atmosphere) : value;
        return limited ? at_limit(*limited, converted) : converted;
    }
};

/// The measure of that unit, the plain one if the text has no name in it ("", "[]"). Throws UsageError that names
/// the units if there is no such unit, or if it is a gauge pressure and no atmosphere was given.
Measure measure_of(const Quantity& q, std::string_view unit, const Atmosphere& atmosphere, const Measure& plain = {});
/// The names of the units of the quantity.
std::string unit_names(const Quantity& q);

/// Why a text gives no value: "is empty", "is not a number", "is too large".
struct BadNumber {
    std::string_view reason;
    bool shows_text = true; ///< the message quotes the text
};

/// The value of a field, in ktl's unit; if there is none, bad says why.
std::optional<double> field_value(const Measure& measure, std::string_view text, bool decimal_comma, BadNumber& bad);

/// The value of an argument in ktl's unit, a number with a unit or of the plain measure ("16.5MPa", "300"). Throws
/// UsageError.
double argument_value(const Quantity& q, std::string_view text, const Atmosphere& atmosphere,
                      const Measure& plain = {});
/// The pressure of the atmosphere from such an argument, "1.013bar"; none if it is empty. Throws UsageError.
Atmosphere atmosphere_of(std::string_view text, const Measure& plain = {});

} // namespace program
