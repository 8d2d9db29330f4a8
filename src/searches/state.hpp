// A state in the variables of its region, and its properties: what searches work on. Nothing here reports or
// keeps working terms, so trial states may lie anywhere.
//
// Every search is a template on the number T in which it evaluates the equations; what it works on itself are doubles. With
// engine::Scalar exp, log and power are the engine's own: the same bits on every platform, for the ktl:: calls. With double
// they are those of the C library, as in the named routines: the named finders decide at a border by the same bits that the
// equations ktl_c1, ktl_d1 and so on give there. searches.cpp compiles the first, finders/searches.cpp the second.
#pragma once

#include "engine/lanes/scalar.hpp"
#include "regions/quantity.hpp"
#include "regions/saturation.hpp"

namespace ktl {

/// A number of the equations as a double.
inline double plain(double x) { return x; }
inline double plain(engine::Scalar x) { return x.value; }

/// A quantity of a single-phase region, evaluated in T.
template <class T>
double property_in(Quantity y, int region, double primary, double t) {
    return plain(property(y, region, T(primary), T(t)));
}
/// Saturation pressure, bar, evaluated in T.
template <class T>
double saturation_pressure_in(double t) {
    return plain(saturation::terms(T(t)).p);
}

/// Where saturated phases above 350 degC come from.
enum class SaturationModel {
    /// The volumes that the entry ktlftn finds, to the last bit, so that the entry evaluates a mixture as it was found. For
    /// double alone.
    entry_compatible,
    /// The outermost volumes at which the isotherm has the saturation pressure, up to 374.149 degC. In the last
    /// millikelvin the saturation line leaves the loop of the isotherms, by up to 3e-9 of the pressure, and one or the
    /// other volume does not exist: there both go to the critical volume with the square root of the distance from
    /// the critical temperature.
    outermost_roots
};

/// Highest temperature, degC, at which the isotherm has the saturation pressure at both outermost volumes; they bend there.
inline constexpr double last_outermost = 374.149;

/// Saturated water and steam at one temperature, in the variables of their regions.
template <class T>
struct Saturated {
    double t = 0.0;
    double p = 0.0;
    int region = KTL_NO_STATE; // of the mixture: KTL_WET or KTL_WET_NEAR_CRITICAL
    double liquid = 0.0;       // pressure, or volume above 350 degC
    double vapour = 0.0;
    SaturationModel model = SaturationModel::entry_compatible;

    [[nodiscard]] double of_liquid(Quantity y) const {
        return of_phase(y, region == KTL_WET ? KTL_WATER : KTL_NEAR_CRITICAL_WATER, liquid);
    }
    [[nodiscard]] double of_vapour(Quantity y) const {
        return of_phase(y, region == KTL_WET ? KTL_STEAM : KTL_NEAR_CRITICAL_STEAM, vapour);
    }
    [[nodiscard]] double mixture(Quantity y, double x) const {
        if (y == Quantity::pressure) return p;
        if (y == Quantity::temperature) return t;
        const double water = of_liquid(y);
        return water + x * (of_vapour(y) - water);
    }

private:
    /// The energy of outermost phases is made with the saturation pressure, which they share.
    [[nodiscard]] double of_phase(Quantity y, int phase, double primary) const {
        if (y != Quantity::energy || model == SaturationModel::entry_compatible || region == KTL_WET)
            return property_in<T>(y, phase, primary, t);
        return internal_energy(property_in<T>(Quantity::enthalpy, phase, primary, t), p, primary);
    }
};

/// Saturated states at t, 0.01 to 374.15 degC.
template <class T>
Saturated<T> saturated_at(double t, SaturationModel model);
/// Saturated states at p, from pmin to the critical pressure; the ends of the line beyond.
template <class T>
Saturated<T> saturated_under(double p, SaturationModel model);
/// Pressure above which saturated states under p are those of sub-region 3.
template <class T>
double last_low_pressure(SaturationModel model);
/// Factor of volume by which searches in sub-region 3 go on past the outermost phases: within a millikelvin of the
/// critical point these have the saturation pressure to 4e-9 only, and a value may lie between them and the isobar.
constexpr double past_saturation(SaturationModel model) {
    return model == SaturationModel::entry_compatible ? 1.0 : 1.0001;
}

/// A state that a search returns. The saturated phases exist for a mixture only.
template <class T>
struct FoundState {
    int region = KTL_NO_STATE;
    double primary = 0.0;
    double t = 0.0;
    Saturated<T> phases{};

    [[nodiscard]] bool found() const { return region != KTL_NO_STATE; }
    [[nodiscard]] bool wet() const { return region == KTL_WET || region == KTL_WET_NEAR_CRITICAL; }
    [[nodiscard]] double value(Quantity y) const {
        if (y == Quantity::quality) return wet() ? primary : quiet_nan;
        return wet() ? phases.mixture(y, primary) : property_in<T>(y, region, primary, t);
    }
};

template <class T>
FoundState<T> mixture(const Saturated<T>& phases, double x) {
    return {phases.region, x, phases.t, phases};
}

/// Residual at which a search for y stops: far below what the finders promise, above the rounding of the
/// equations.
inline double search_tolerance(double y) { return 1.0e-14 * std::fabs(y) + 1.0e-15; }

/// The same for a quantity of one region. Enthalpy and entropy of sub-region 1 are rounded by up to 2e-12 of them and
/// 2e-10 kJ/kg, 8e-13 kJ/(kg K): searches with the outermost phases are content with that. Volume is rounded less: it fixes
/// water next to its least volume to 4e-5 K.
inline double search_tolerance(Quantity y, int region, double value, SaturationModel model) {
    if (model == SaturationModel::outermost_roots && y == Quantity::volume) return 1.0e-14 * std::fabs(value);
    if (model == SaturationModel::entry_compatible || region != KTL_WATER) return search_tolerance(value);
    return 2.0e-12 * std::fabs(value) + (y == Quantity::entropy ? 8.0e-13 : 2.0e-10);
}

} // namespace ktl
