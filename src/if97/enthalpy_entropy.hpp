// States of an enthalpy and an entropy.
#pragma once

#include "if97/rows.hpp"

namespace ktl::if97 {

/// The state with h and s; no_state if there is none. Borders by the rule of isobar.hpp; water takes precedence over a mixture of
/// less than 1e-4 steam. The start saves time only.
RowState of_enthalpy_entropy(double h, double s, const Start& start) noexcept;

} // namespace ktl::if97
