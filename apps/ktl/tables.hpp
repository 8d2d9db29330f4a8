// What the program knows of quantities, pairs and properties, from the lists of the library.
#pragma once

#include <cstddef>
#include <ktl/derivative.hpp>
#include <ktl/steam.hpp>
#include <ktl/units.hpp>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace program {

/// A fault in the arguments or the file as a whole: printed as it is, exit status 2.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A quantity that a state can be given by.
struct Quantity {
    ktl::Property id;
    std::string_view symbol, name, unit;
    ktl::units::Dimension dimension;
};

/// That of a property which a pair has.
const Quantity& quantity(ktl::Property id);

/// A pair of known values. The letters of the name give the order of the values.
struct Pair {
    std::string_view name;
    ktl::Pair id;
    ktl::Property first, second;
};
std::span<const Pair> pairs();
/// The pair of that name, upper or lower case; null if there is none.
const Pair* find_pair(std::string_view name);
/// The names of all pairs, separated by blanks.
std::string pair_names();

/// A property that can be asked for.
struct Property {
    std::string_view code, unit, meaning;
    ktl::Property id;
    double factor = 1.0;          ///< from the unit of the library
    bool one_phase = false;       ///< a mixture does not have it
    bool surface_tension = false; ///< a function of the temperature, which is the id; mixtures alone have it
    std::optional<ktl::Derivative> derivative = std::nullopt; ///< a partial derivative instead of the property
    ktl::units::Reading result_unit{}; ///< that results are converted to; null: that of the library times the factor

    /// A value of the library, times the factor, in the unit of the results.
    [[nodiscard]] double result(double value) const { return result_unit ? result_unit.from_ktl(value, 0.0) : value; }
};
std::span<const Property> properties();

using Properties = std::vector<const Property*>;
/// The properties listed in a text such as "V,H,d(h)/d(p)|s", upper or lower case. Throws UsageError naming a bad code.
Properties parse_codes(std::string_view list);

} // namespace program
