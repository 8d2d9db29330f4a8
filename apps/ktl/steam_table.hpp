// The rows of steam tables, computed in a system of units and not yet rounded.
#pragma once

#include "unit_system.hpp"

#include <limits>
#include <span>
#include <vector>

namespace program {

/// A point of the saturation line. evaporation: enthalpy of steam less that of water, exactly 0 at the critical point.
struct SaturationRow {
    double t, p, v_water, v_steam, h_water, evaporation, h_steam, s_water, s_steam;
};

struct SaturationTable {
    const UnitSystem* units;
    bool by_pressure; ///< p is given, t follows
    std::vector<SaturationRow> rows;
};

/// The table with a row for each value, which are temperatures or pressures of the saturation line in the system's unit.
SaturationTable saturation_table(const UnitSystem& units, bool by_pressure, std::span<const double> values);

/// Properties of one phase. cp is infinite at the critical point.
struct PhaseRow {
    double t, v, h, s, cp;
};

/// States of one pressure by rising temperature.
struct Isobar {
    double p;
    double t_saturation = std::numeric_limits<double>::quiet_NaN(); ///< none above the critical pressure
    PhaseRow water{}, steam{};                                      ///< at saturation, if it exists
    std::vector<PhaseRow> rows;
    std::size_t water_rows =
        0; ///< how many rows are water; the saturation line lies behind them. 0 without a saturation line

    [[nodiscard]] bool has_saturation() const { return t_saturation == t_saturation; }
};

struct SingleTable {
    const UnitSystem* units;
    std::vector<Isobar> isobars;
};

/// The table of all pressures and temperatures, which lie in the range and are in the system's units; temperatures rise. A
/// row at the saturation temperature itself is saturated water.
SingleTable single_table(const UnitSystem& units, std::span<const double> p, std::span<const double> t);

/// The value in ktl's unit. One that differs from a limit of the range, or from the critical point, by rounding alone counts
/// as that: 647.3 K is the critical temperature.
double given_value(const UnitSystem& units, ktl::Property id, double value);

} // namespace program
