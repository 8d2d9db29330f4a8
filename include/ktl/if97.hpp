// ktl::if97: properties of water and steam after the industrial formulation of 1997, IAPWS-IF97 (release R7-97(2012)).
//
// The same calls, structs, units and range as those of the 1967 formulation in steam.hpp, so that both can be compared state by
// state. The equations are those of regions 1 to 4 and of the 2/3 boundary; states by other values than p, t and quality are solved
// on these equations to rounding, without the backward equations of the release. No property depends on the 1967 formulation:
// a state of it may be where a search begins, never where it ends.
//
//     const ktl::State s = ktl::if97::state(ktl::Pair::ph, 100.0, 2800.0); // bar, kJ/kg
//
// Other calls take these states too. ktl::derivative() of a mixture and saturation_derivative() know the saturation line of the
// 1967 formulation alone: they are NaN for states of this one.
//
// Temperatures are on the ITS-90. Viscosity and conductivity are the correlations of the library at the volume and temperature of
// the state: IF97 has none of its own.
#pragma once

#include <ktl/steam.hpp>

namespace ktl::if97 {

/// The pairs that a state can be given by: pt, ph, ps, px, tx and hs.
[[nodiscard]] constexpr bool has_pair(Pair pair) noexcept {
    return pair == Pair::pt || pair == Pair::ph || pair == Pair::ps || pair == Pair::px || pair == Pair::tx ||
           pair == Pair::hs;
}

/// The state in which the two properties of the pair have the values a and b.
///
/// Range: 0.01 to 800 degC, 0.006112444 to 1000 bar, as in steam.hpp; the saturation line begins at 0.006116570 bar and ends at
/// 373.946 degC and 220.64 bar, and the two sides of region 3 meet there. Both values are reproduced to 1e-10, as in steam.hpp.
/// At the borders of the regions, which leave gaps and overlaps of up to 0.13 kJ/kg, the rule of the library holds: regions 1 and 2
/// and their mixtures take precedence over region 3 and are continued into a gap.
/// a and b may hold any bit pattern. If there is no such state the status says why and every property is NaN; for a pair that
/// has_pair() does not name it is no_state.
[[nodiscard]] KTL_API State state(Pair pair, double a, double b) noexcept;

/// The sentence of a status, in which the limits are those of IF97. Never null.
[[nodiscard]] KTL_API const char* sentence(Status status) noexcept;

/// Saturation pressure, bar, at t (degC). NaN outside 0.01 to 373.946 degC.
[[nodiscard]] KTL_API double saturation_pressure(double t) noexcept;
/// Saturation temperature, degC, at p (bar). NaN outside 0.00611657 to 220.64 bar.
[[nodiscard]] KTL_API double saturation_temperature(double p) noexcept;

/// The states of many rows, as ktl::batch: same arguments, same results as state() to the last bit. A pair that has_pair() does not
/// name is the fault unknown_pair.
KTL_API BatchResult batch(Pair pair, std::span<const double> a, std::span<const double> b,
                          std::span<const Property> properties, std::span<double* const> outputs,
                          std::span<Status> status, const BatchOptions& options = {}) noexcept;

} // namespace ktl::if97
