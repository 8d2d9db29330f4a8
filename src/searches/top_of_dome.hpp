// States at the top of the two-phase dome, for the ktl:: calls.
#pragma once

#include "searches/acceptance.hpp"

namespace ktl::searches {

/// The state from 374 degC up to the critical temperature that has both values of a pair without p, t and x, if it lies clearly
/// inside or clearly outside the dome; no state if it does not, or elsewhere. It is the one that an enclosing search finds: along
/// isentropes and isochores h and u rise, so that no other state has both values.
FoundState<engine::Scalar> at_top_of_dome(const Given& given);

} // namespace ktl::searches
