// The way a named finder hands its state back.
#pragma once

#include "finders/guessed_state.hpp"

namespace ktl::finders {

/// Overwrites the two given values with the state; KTL_NO_STATE and both unchanged without one.
inline int return_state(const FoundState<double>& state, double& first, double& second) {
    if (!state.found()) return KTL_NO_STATE;
    first = state.primary;
    second = state.t;
    return state.region;
}

} // namespace ktl::finders
