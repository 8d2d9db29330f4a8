// First partial derivatives of states, in closed form.
//
//     const ktl::State s = ktl::state(ktl::Pair::pt, 100.0, 500.0);
//     const double dhdp = ktl::derivative(s, ktl::Property::h, ktl::Property::p, ktl::Property::s); // (dh/dp) at constant s
//
// Any three of p, t, v, rho, h, s, u, gibbs and helmholtz. Units are those of ktl/properties.def: (dh/dp) is in kJ/(kg bar).
// Every derivative follows from those of p, t, v and s in the variables of the sub-region, which the solve keeps, and from
// the fundamental relations dh = T ds + v dp, du = T ds - p dv, dg = v dp - s dT, df = -p dv - s dT.
#pragma once

#include <ktl/steam.hpp>

namespace ktl {

/// (d of / d by) with at_constant held.
///
/// In two phases the mixture stays in equilibrium: its pressure is the saturation pressure of its temperature, and the
/// derivative is that of what state() gives. NaN if the state is not solved, if one of the three is none of the nine
/// properties, or if `by` and `at_constant` do not fix a neighbouring state: they are the same, or v and rho, or p and t of a
/// mixture. NaN too for a mixture of another formulation, which lies off the saturation line of this one. Infinite where it is, as (dh/dt) at constant p on a level isotherm next to the critical point. The equations of
/// the sub-regions hold on both sides of their borders: on a border the derivative is that of the state's own region.
[[nodiscard]] KTL_API double derivative(const State& state, Property of, Property by, Property at_constant) noexcept;
/// The same of one phase: of a saturated one as if it were alone, that is away from the saturation line.
[[nodiscard]] KTL_API double derivative(const Phase& phase, Property of, Property by, Property at_constant) noexcept;

/// (d of / d by) of a saturated phase along the saturation line: dh'/dp and so on. `phase` is the liquid or the vapour of a
/// Saturation or of a two-phase state. NaN if the phase does not exist, lies off the line, or a property is none of the nine.
[[nodiscard]] KTL_API double saturation_derivative(const Phase& phase, Property of, Property by) noexcept;

/// Second derivatives of volume: (d2v/dp2) at constant t, (d2v/dt2) at constant p, and (d2v/dpdt), in m3/(kg bar2), m3/(kg K2)
/// and m3/(kg bar K). `by` and `also_by` are p or t, in any order. In closed form, as the first ones. NaN for a mixture and without
/// a state, for other properties, for a state of another formulation, and on a level isotherm next to the critical point, where
/// the limits on its two sides differ. The derivative of a border's own region, as above.
[[nodiscard]] KTL_API double volume_second_derivative(const State& state, Property by, Property also_by) noexcept;
/// The same of one phase: of a saturated one as if it were alone.
[[nodiscard]] KTL_API double volume_second_derivative(const Phase& phase, Property by, Property also_by) noexcept;

/// Which derivative: (d of / d by) with at_constant held.
struct Derivative {
    Property of, by, at_constant;
};

/// Derivatives of many rows: outputs[k][i] receives derivatives[k] of the state with the values a[i], b[i], status[i] its
/// status, with the bits of derivative(state(pair, a[i], b[i]), ...); NaN if it is not solved. Faults, threads and outputs as in
/// batch(), but that any Property may be named: of those without derivatives a column of NaN comes back.
KTL_API BatchResult derivative_batch(Pair pair, std::span<const double> a, std::span<const double> b,
                                     std::span<const Derivative> derivatives, std::span<double* const> outputs,
                                     std::span<Status> status, const BatchOptions& options = {}) noexcept;

} // namespace ktl
