// Newton's method in the variables of a sub-region, for one number or for vector lanes. No step branches on a lane's value: a
// lane that has converged keeps its state while others go on, so that each lane's result is its own. The two given quantities
// are the same for all lanes; if they are known to the compiler, it drops what they do not need.
#pragma once

#include "regions/quantity.hpp"

namespace ktl::searches {

/// What to add to both variables; met is 1 if the state already has the given values to rounding.
template <class T>
struct Step {
    T primary, t, met;
};

/// 1 if a property is as near to its value as the rounding of the equations lets it be: 4e-12 of it, near zero 4e-10 kJ/kg
/// and 1e-12 kJ/(kg K) (measured by ktl_constants: 0.63 of that at most, but for v of dense steam, 5.2e-12). Two values that nearly do not depend on a variable leave it to rounding, and steps never become small; the
/// search ends here then.
template <class T>
T is_met(Quantity quantity, const T& miss, const T& value) {
    const bool energy = quantity == Quantity::enthalpy || quantity == Quantity::energy;
    const double least = energy ? 100.0 : (quantity == Quantity::entropy ? 0.25 : 0.0);
    return zero_unless(abs(miss) <= 4.0e-12 * (abs(value) + least), T(1.0));
}

/// Step towards given.a = a, given.b = b from the state y of a sub-region. A given quantity that is a variable of the
/// sub-region keeps its value.
template <SubRegion sub_region, class State, class T>
Step<T> step(Quantities given, const State& y, const T& a, const T& b) {
    constexpr Quantity variable = sub_region == SubRegion::near_critical ? Quantity::volume : Quantity::pressure;
    const auto [A, B] = given;
    if (A == variable || B == variable) {
        const Quantity sought = A == variable ? B : A;
        const T& value = A == variable ? b : a;
        const Slopes<T> z = slopes(sought, y);
        return {T(0.0), (value - z.y) / z.d_t, is_met(sought, T(value - z.y), value)};
    }
    if (A == Quantity::temperature || B == Quantity::temperature) {
        const Quantity sought = A == Quantity::temperature ? B : A;
        const T& value = A == Quantity::temperature ? b : a;
        const Slopes<T> z = slopes(sought, y);
        return {(value - z.y) / z.d_primary, T(0.0), is_met(sought, T(value - z.y), value)};
    }
    const Slopes<T> f = slopes(A, y);
    const Slopes<T> g = slopes(B, y);
    const T scale = 1.0 / (f.d_primary * g.d_t - f.d_t * g.d_primary);
    const T df = a - f.y;
    const T dg = b - g.y;
    return {(df * g.d_t - f.d_t * dg) * scale, (f.d_primary * dg - df * g.d_primary) * scale,
            is_met(A, df, a) * is_met(B, dg, b)};
}

/// Tells when a Newton search has converged. Once steps are short each is about the square of the one before, so the last
/// two foretell the next: size (size / last)^2. The square of a short step, 9e-14, is negligible.
template <class T>
struct ConvergenceTest {
    static constexpr double short_step = 3.0e-7;
    double negligible; // relative size of a step that changes nothing
    T last{0.0};

    /// 1 if the step of that relative size is followed by a negligible one, else 0.
    T reached(const T& size) {
        const T end =
            zero_unless(size < short_step, zero_unless(size * size * size <= negligible * last * last, T(1.0)));
        last = size;
        return end;
    }
};
/// What a step of t is relative to, K: the size of the lowest temperatures.
inline constexpr double scale_of_t = 300.0;

template <class T>
T larger(const T& a, const T& b) {
    return select(a < b, b, a);
}

/// Passes after which a search gives up; two or three are typical.
inline constexpr int most_passes = 12;

/// Both variables of a search; converged is 1 or 0. In sub-region 3 also the pressure there, to first order in the last
/// step, and its slope by the volume before that step.
template <class T>
struct NewtonResult {
    T primary, t, converged, p, dpdv;
};

/// How far one step may go: unlimited from a fitted guess, which lies within the reach of Newton's method; limited to a third
/// of the primary variable and 20 K from a rough root of another search.
enum class StepLimit { none, third };

/// z, but not beyond +-most.
template <class T>
T limited(const T& z, const T& most) {
    return select(z < -most, T(-most), select(z < most, z, most));
}

/// Newton from a first guess, at most most_passes steps.
template <SubRegion sub_region, StepLimit limit = StepLimit::none, class T>
NewtonResult<T> newton(Quantities given, const T& a, const T& b, const T& primary_guess, const T& t_guess) {
    NewtonResult<T> x{primary_guess, t_guess, T(0.0), T(0.0), T(0.0)};
    constexpr Quantity variable = sub_region == SubRegion::near_critical ? Quantity::volume : Quantity::pressure;
    const auto is_given = [&](Quantity y) { return given.a == y || given.b == y; };
    const T scale = 1.0 / abs(primary_guess);
    ConvergenceTest<T> convergence{.negligible = 1.0e-13};
    for (int pass = 0; pass < most_passes; ++pass) {
        const auto y = properties_at<sub_region>(x.primary, x.t);
        Step<T> d = step<sub_region>(given, y, a, b);
        if constexpr (limit == StepLimit::third) {
            d.primary = limited(d.primary, T(abs(x.primary) * (1.0 / 3.0)));
            d.t = limited(d.t, T(20.0));
        }
        const auto sought = x.converged < 0.5;
        // A state that has the values keeps them: the next step may be rounding noise.
        x.converged = larger(x.converged, d.met);
        const auto open = x.converged < 0.5;
        if constexpr (sub_region == SubRegion::near_critical) {
            x.p = select(open, y.p + y.dpdv * d.primary + y.dpdt * d.t, select(sought, y.p, x.p));
            x.dpdv = select(sought, y.dpdv, x.dpdv);
        }
        if (!is_given(variable)) x.primary = select(open, x.primary + d.primary, x.primary);
        if (!is_given(Quantity::temperature)) x.t = select(open, x.t + d.t, x.t);
        const T end = convergence.reached(larger(abs(d.primary) * scale, abs(d.t) * (1.0 / scale_of_t)));
        x.converged = select(open, end, x.converged);
        if (all_set(x.converged)) break;
    }
    return x;
}

} // namespace ktl::searches
