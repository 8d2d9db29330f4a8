// One state of IF97 from its two values.
#pragma once

#include "if97/rows.hpp"

namespace ktl::if97 {

/// Whether a search for that pair and those values begins at a state of the 1967 formulation.
bool takes_start(Pair pair, double a, double b) noexcept;

/// The state with both values, to rounding the same from every start. Pairs other than pt, ph, ps, px, tx and hs: no_state.
RowState solve_row(Pair pair, double a, double b, const Start& start) noexcept;

} // namespace ktl::if97
