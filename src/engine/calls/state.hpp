// What fills the public classes.
#pragma once

#include "engine/rows/row.hpp"

namespace ktl {

/// The one writer of Phase and State.
struct StateBuilder {
    static State state(const engine::RowState& row) noexcept;
    static Phase phase(const PhaseProperties<engine::Scalar>& y, Region region) noexcept;
    static PhaseProperties<engine::Scalar> properties(const Phase& y) noexcept;
    /// The one phase of a state; of a mixture its properties, without slopes.
    static const Phase& bulk(const State& y) noexcept { return y.bulk_; }
};

} // namespace ktl
