// One row, a request by two values: the search of its state and the properties of its phases.
#pragma once

#include "engine/derived.hpp"
#include "engine/lanes/scalar.hpp"
#include "engine/rows/neighbours.hpp"
#include "engine/solution.hpp"

namespace ktl::engine {

/// The region of a state of that kind in its own variables.
Region region_of(PhaseKind kind, double primary, double t) noexcept;

/// No phase: not-a-number everywhere.
inline constexpr auto no_phase = [] {
    const Scalar n(quiet_nan);
    return PhaseProperties<Scalar>{n, n, n, n, n, n, n, n, n, n};
}();

/// A row after its search. Each phase is evaluated once; liquid and vapour exist in two phases only.
struct RowState {
    Status status = Status::no_state;
    Region region = Region::none;
    double x = quiet_nan;
    PhaseProperties<Scalar> bulk = no_phase, liquid = no_phase, vapour = no_phase;
};
static_assert(sizeof(RowState) <= 256, "compilers copy more than that by an instruction that takes 30 ns to begin");

/// The preferred state that has both values.
RowState solve_row(Pair pair, double a, double b) noexcept;
/// The same for a row whose patch did not lead to a state: by the patch across the line, by the others, then by the exact search. ended:
/// of the search in its patch.
RowState solve_row_again(Pair pair, double a, double b, const EndOfSearch& ended) noexcept;
/// One property of the state of solve_row, with the same bits.
double value_of_row(Pair pair, double a, double b, Property property) noexcept;
/// The state of a solution of the exact search.
RowState evaluated(const Solution& found) noexcept;

} // namespace ktl::engine
