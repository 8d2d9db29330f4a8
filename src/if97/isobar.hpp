// States of a pressure and an enthalpy or entropy.
//
// Along an isobar h and s rise with the temperature in every region, but the regions do not meet exactly: at 350 degC and on the
// 2/3 boundary h jumps by up to 0.03 and 0.13 kJ/kg, upwards (a gap: values without a state) at some pressures and downwards (an
// overlap: two states) at others. One rule, that of the library: regions 1 and 2 and their mixtures take precedence over region 3,
// and a gap belongs to region 1 or 2, whose equations are continued past the border to exactly the given values.
#pragma once

#include "if97/rows.hpp"

namespace ktl::if97 {

/// The state at p (bar, within the range) with h or s = value. Not found: temperature_low or temperature_high, by the end of the
/// isobar beyond which the value lies. The start saves time only.
RowState on_isobar(double p, Quantity y, double value, const Start& start) noexcept;

} // namespace ktl::if97
