// States from solutions: what fills the public classes.
#pragma once

#include "engine/kernels/thermo.hpp"
#include "engine/lanes/scalar.hpp"
#include "engine/solution.hpp"

namespace ktl {

/// The one writer of Phase and State.
struct StateBuilder {
    static Phase phase(const engine::PhaseProperties<engine::Scalar>& y, Region region) noexcept;
    static engine::PhaseProperties<engine::Scalar> thermo(const Phase& y) noexcept;
    static Phase no_phase(Region region) noexcept;
    static State state(const engine::Solution& found) noexcept;
    static State failed(Status status) noexcept;
};

namespace engine {

/// Sub-region 1 to 4 at its own variables.
Phase phase_of(Region region, double primary, double t) noexcept;

} // namespace engine
} // namespace ktl
