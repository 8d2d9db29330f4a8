// The way a named finder hands its state back.
#pragma once

#include "searches/acceptance.hpp"

namespace ktl::finders {

/// Overwrites the two given values with the state, confirmed; KTL_NO_STATE and both unchanged without one.
inline int return_state(const FoundState& state, const searches::Given& given, double& first, double& second) {
    const FoundState answer = searches::confirmed(state, given);
    if (!answer.found()) return KTL_NO_STATE;
    first = answer.primary;
    second = answer.t;
    return answer.region;
}

} // namespace ktl::finders
