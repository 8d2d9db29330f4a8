// Systems of units that results are written in.
#pragma once

#include "tables.hpp"

#include <ktl/diagram.hpp>

namespace program {

/// One unit for each dimension, under the name that --units has for them: those of charts.
struct UnitSystem {
    std::string_view name;
    ktl::diagram::System of_charts;
    ktl::units::Reading pressure, temperature, volume, energy, entropy;

    /// The unit of a quantity, a heat capacity included.
    [[nodiscard]] const ktl::units::Reading& unit_of(ktl::Property id) const;
};

/// That of the name bar, si, mpa or us. Throws UsageError that names the option.
const UnitSystem& unit_system(std::string_view name);
/// The names of all, separated by blanks.
std::string unit_system_names();
/// A unit as headings name it: a pressure in psi with the a of absolute.
std::string heading(const ktl::units::Reading& unit);

} // namespace program
