// Rows of states of IF97 in the variables that the searches find.
#pragma once

#include "engine/rows/row.hpp"
#include "if97/newton.hpp"
#include "if97/region3_volume.hpp"

namespace ktl::if97 {

using engine::RowState;

/// A homogeneous state of a region in its own variables.
RowState row_of(SubRegion region, const Point& x) noexcept;
RowState failed(Status status) noexcept;

/// A point of the saturation line with both phases, of regions 1 and 2 up to 350 degC, of region 3 above.
struct SaturatedState {
    double p, t;
    bool high;
    SaturatedProperties<Scalar> phases;
};
SaturatedState saturated_at(double t) noexcept;
/// At p (bar), up to the critical pressure. Up to 350 degC if the pressure lies between the ends of the saturation line and of the
/// 2/3 boundary there, 1.7e-10 bar.
SaturatedState saturated_under(double p) noexcept;
/// The same with both phases of regions 1 and 2, up to 0.5 K beyond 350 degC.
SaturatedState saturated_low(double p, double t) noexcept;
/// With volumes of region 3 that are known.
SaturatedState saturated_high(double p, double t, const SaturatedVolumes& v) noexcept;

/// The mixture of quality x; with a quality that is not a number, p and t alone.
RowState mixture_row(const SaturatedState& line, double x) noexcept;

/// Whether a state lies in its region. margin: how far, relative to the pressure, it must be from the saturation line and the 2/3
/// boundary; t_margin: from 350 degC on the side of region 3, K.
bool in_water(double p, double t, double margin) noexcept;
bool in_steam(double p, double t, double margin) noexcept;
bool in_near_critical(double p, double v, double t, double margin, double t_margin) noexcept;

} // namespace ktl::if97
