// Systems of units that results are written in.
#pragma once

#include "measure.hpp"
#include "tables.hpp"

#include <ktl/units.hpp>
#include <span>

namespace program {

/// A system of ktl/units.hpp under the name that --units has for it.
struct UnitSystem {
    std::string_view name;
    ktl::units::System id;

    [[nodiscard]] ktl::units::Reading unit_of(ktl::units::Dimension dimension) const {
        return ktl::units::in_system(id, dimension);
    }
    /// The unit of a property; null for a pure number.
    [[nodiscard]] const ktl::units::Reading& unit_of(ktl::Property property) const;
};

/// That of the name bar, si, mpa or us. Throws UsageError that names the option.
const UnitSystem& unit_system(std::string_view name);
/// All of them; that of ktl itself (bar) is the first.
std::span<const UnitSystem> unit_systems();
inline const UnitSystem& own_units() { return unit_systems().front(); }
/// The names of all, separated by blanks.
std::string unit_system_names();
/// A unit as headings name it: a pressure in psi with the a of absolute.
std::string heading(const ktl::units::Reading& unit);
/// The measure of values without a unit. Of another system than ktl's own, values that are a limit of the range but for
/// the rounding of their digits are that limit: 32.018 degF is 0.01 degC.
Measure measure_in(ktl::Property id, const UnitSystem& units);
/// The same properties with their results in these units, derivatives included. They remain for good.
Properties in_units(const Properties& wanted, const UnitSystem& units);
/// The heading of a column of results: "H_kJ/kg".
std::string title_of(const Property& property);
/// True for a heading of results in any of the systems.
bool is_title_of_results(const std::string& column);

} // namespace program
