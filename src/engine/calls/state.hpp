// What fills the public classes.
#pragma once

#include "engine/rows/row.hpp"

namespace ktl {

/// The one writer of Phase and State.
struct StateBuilder {
    static State state(const engine::RowState& row) noexcept;
    static Phase phase(const PhaseProperties<engine::Scalar>& y, Region region) noexcept;
    static PhaseProperties<engine::Scalar> properties(const Phase& y) noexcept;
};

} // namespace ktl
