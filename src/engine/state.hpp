// States from solutions: what fills the public classes.
#pragma once

#include "engine/scalar.hpp"
#include "engine/solution.hpp"
#include "engine/thermo.hpp"

namespace ktl {

/// The one writer of Phase and State.
struct Access {
    static Phase phase(const engine::Thermo<engine::Scalar>& y, Region region) noexcept;
    static engine::Thermo<engine::Scalar> thermo(const Phase& y) noexcept;
    static Phase no_phase(Region region) noexcept;
    static State state(const engine::Solution& found) noexcept;
    static State failed(Status status) noexcept;
};

namespace engine {

/// Sub-region 1 to 4 at its own variables.
Phase phase_of(Region region, double first, double t) noexcept;

} // namespace engine
} // namespace ktl
