// Two-phase states for one number or for lanes: the saturated phases at a temperature, and searches for the
// temperature of a mixture. Below 350 degC both phases follow from the saturation pressure; above, their volumes are
// found along with it.
#pragma once

#include "regions/saturation.hpp"
#include "searches/newton.hpp"

namespace ktl::searches {

/// A two-phase state; liquid and vapour as in Solution, converged 1 or 0.
template <class T>
struct TwoPhaseIterate {
    T x, t, liquid, vapour, converged;
};

/// Saturation pressure, bar, and its slope, bar/K.
template <class T>
struct LinePoint {
    T p, slope;
};
template <class T>
LinePoint<T> line_at(const T& t) {
    const auto terms = saturation::terms(t);
    return {terms.p, terms.p * saturation::log_slope(terms) * (1.0 / ktl_lc.tca)};
}

/// A property of a saturated phase and its slope along the line, by t.
template <class T>
struct LineDerivative {
    T y, slope;
};

/// One saturated phase next to the saturation line: how far its variable is off, the slope of that variable along the
/// line, and properties brought onto the line to first order.
template <SubRegion sub_region, class T>
struct SaturatedPhaseIterate {
    decltype(properties_at<sub_region>(T(), T())) y;
    T off, along;

    SaturatedPhaseIterate(const LinePoint<T>& line, const T& primary, const T& t)
        : y(properties_at<sub_region>(primary, t)) {
        if constexpr (sub_region == SubRegion::near_critical) {
            const T dvdp = 1.0 / y.dpdv;
            off = (line.p - y.p) * dvdp;
            along = (line.slope - y.dpdt) * dvdp;
        } else {
            off = T(0.0);
            along = line.slope;
        }
    }

    /// How far off it is, relative.
    [[nodiscard]] T size() const { return abs(off) * (1.0 / ktl_lc.vca); }

    /// The property on the line.
    [[nodiscard]] LineDerivative<T> property(Quantity quantity) const {
        const Slopes<T> z = slopes(quantity, y);
        return {z.y + z.d_primary * off, z.d_t + z.d_primary * along};
    }
};

/// Relative size of a step that changes nothing: 3e-11 K. Beside saturated water rounding makes steps of 1e-14, so that a smaller
/// one would never come.
inline constexpr double negligible_of_mixtures = 1.0e-13;

/// Both saturated volumes above 350 degC at a given temperature, from first guesses.
template <class T>
TwoPhaseIterate<T> saturated_volumes(const LinePoint<T>& line, const T& t, const T& liquid, const T& vapour) {
    TwoPhaseIterate<T> m{T(0.0), t, liquid, vapour, T(0.0)};
    ConvergenceTest<T> convergence{.negligible = negligible_of_mixtures};
    for (int pass = 0; pass < most_passes; ++pass) {
        const SaturatedPhaseIterate<SubRegion::near_critical, T> liquid_side(line, m.liquid, t);
        const SaturatedPhaseIterate<SubRegion::near_critical, T> vapour_side(line, m.vapour, t);
        const auto open = m.converged < 0.5;
        m.liquid = select(open, m.liquid + liquid_side.off, m.liquid);
        m.vapour = select(open, m.vapour + vapour_side.off, m.vapour);
        m.converged = select(open, convergence.reached(larger(liquid_side.size(), vapour_side.size())), m.converged);
        if (all_set(m.converged)) break;
    }
    return m;
}

/// A mixture's property: those of the phases and their slopes along the saturation line.
template <class T>
struct MixtureProperty {
    LineDerivative<T> liquid, vapour;

    [[nodiscard]] T at(const T& x) const { return liquid.y + x * (vapour.y - liquid.y); }
    [[nodiscard]] T along(const T& x) const { return liquid.slope + x * (vapour.slope - liquid.slope); }
    [[nodiscard]] T by_quality() const { return vapour.y - liquid.y; }
    [[nodiscard]] T quality(const T& value) const { return (value - liquid.y) / by_quality(); }
};

/// Both phases beside the line at one temperature: sub-regions 1 and 2 (high false), or sub-region 3 twice.
template <bool high, class T>
struct PhasePairIterate {
    static constexpr SubRegion liquid_region = high ? SubRegion::near_critical : SubRegion::water;
    static constexpr SubRegion vapour_region = high ? SubRegion::near_critical : SubRegion::steam;
    SaturatedPhaseIterate<liquid_region, T> liquid;
    SaturatedPhaseIterate<vapour_region, T> vapour;

    PhasePairIterate(const LinePoint<T>& line, const TwoPhaseIterate<T>& m)
        : liquid(line, high ? m.liquid : line.p, m.t), vapour(line, high ? m.vapour : line.p, m.t) {}

    [[nodiscard]] MixtureProperty<T> mixture_property(Quantity quantity) const {
        return {liquid.property(quantity), vapour.property(quantity)};
    }

    /// Moves the state by dt along the line, where it has not converged.
    void move(TwoPhaseIterate<T>& m, const T& dt, ConvergenceTest<T>& convergence) const {
        const auto open = m.converged < 0.5;
        m.t = select(open, m.t + dt, m.t);
        T size = abs(dt) * (1.0 / scale_of_t);
        if constexpr (high) {
            size = larger(size, larger(liquid.size(), vapour.size()));
            m.liquid = select(open, m.liquid + liquid.off + liquid.along * dt, m.liquid);
            m.vapour = select(open, m.vapour + vapour.off + vapour.along * dt, m.vapour);
        }
        m.converged = select(open, convergence.reached(size), m.converged);
    }
};

/// Up to 350 degC the phases' variable is the saturation pressure.
template <bool high, class T>
void set_phase_pressures(TwoPhaseIterate<T>& m) {
    if constexpr (!high) m.liquid = m.vapour = saturation::terms(m.t).p;
}

/// Newton step of the temperature, along the line, towards the mixture with given.a = a and given.b = b; x becomes its
/// quality.
template <bool high, class T>
T step_along_line(const PhasePairIterate<high, T>& phases, Quantities given, const T& a, const T& b, T& x) {
    const MixtureProperty<T> y = phases.mixture_property(given.a);
    const MixtureProperty<T> z = phases.mixture_property(given.b);
    const T now = y.quality(a);
    const T dxdt = -y.along(now) / y.by_quality();
    const T dt = (b - z.at(now)) / (z.along(now) + dxdt * z.by_quality());
    x = now + dxdt * dt;
    return dt;
}

/// The same towards the mixture of quality x with the given value of another quantity; met becomes 1 if it already has that
/// to rounding. Near an extremum along the line rounding moves t further than a search would end with.
template <bool high, class T>
T step_at_quality(const PhasePairIterate<high, T>& phases, Quantity quantity, const T& value, const T& x, T& met) {
    const MixtureProperty<T> y = phases.mixture_property(quantity);
    const T miss = value - y.at(x);
    met = is_met(quantity, miss, value);
    return miss / y.along(x);
}

/// Newton for the temperature of the mixture with given.a = a and given.b = b, from the guesses in m. The second quantity may
/// be the quality.
template <bool high, StepLimit limit = StepLimit::none, class T>
void newton_two_phase(TwoPhaseIterate<T>& m, Quantities given, const T& a, const T& b) {
    m.converged = T(0.0);
    ConvergenceTest<T> convergence{.negligible = negligible_of_mixtures};
    for (int pass = 0; pass < most_passes; ++pass) {
        const PhasePairIterate<high, T> phases(line_at(m.t), m);
        T x = b;
        T met(0.0);
        T dt = given.b == Quantity::quality ? step_at_quality<high>(phases, given.a, a, b, met)
                                            : step_along_line<high>(phases, given, a, b, x);
        if constexpr (limit == StepLimit::third) dt = limited(dt, T(20.0));
        m.x = select(m.converged < 0.5, x, m.x);
        phases.move(m, dt, convergence);
        if (!high) m.converged = larger(m.converged, met);
        if (all_set(m.converged)) break;
    }
    set_phase_pressures<high>(m);
}

} // namespace ktl::searches
