// Newton steps in the variables of a sub-region, for one number or for lanes. No step branches on a lane's value: a lane
// that has converged stays as it is while others go on, so that each lane's result is its own. The two quantities are
// the same for all lanes; where they are known to the compiler, it leaves away what they do not need.
#pragma once

#include "engine/kernels/bodies.hpp"
#include "engine/pairs.hpp"

namespace ktl::engine {

/// A step: what to add to both variables; met is 1 where the state has the given values already, but for rounding.
template <class T>
struct Step {
    T primary, t, met;
};

/// 1 where a property is as near to its value as the rounding of the equations lets it be: 4e-12, and about zero
/// 4e-10 kJ/kg and 1e-12 kJ/(kg K). Where two values fix a state badly, steps never end; there this is the end.
template <class T>
T is_met(Quantity quantity, const T& miss, const T& value) {
    const bool energy = quantity == Quantity::enthalpy || quantity == Quantity::energy;
    const double least = energy ? 100.0 : (quantity == Quantity::entropy ? 0.25 : 0.0);
    return zero_unless(abs(miss) <= 4.0e-12 * (abs(value) + least), T(1.0));
}

/// Step towards A = a, B = b at the state y of a sub-region. A quantity that is a variable there stands already.
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

/// Tells when a Newton search is at its end. Once steps are short each is about the square of the one before, so the
/// last two foretell the next: it would be size (size / last)^2.
template <class T>
struct ConvergenceTest {
    static constexpr double short_step = 3.0e-7;
    double negligible; // relative size of a step that is not worth while
    T last{0.0};

    /// 1 where the step of that size, relative, is followed by a negligible one; else 0.
    T reached(const T& size) {
        const T end =
            zero_unless(size < short_step, zero_unless(size * size * size <= negligible * last * last, T(1.0)));
        last = size;
        return end;
    }
};
/// What a step of t is relative to, K.
inline constexpr double scale_of_t = 300.0;

template <class T>
T larger(const T& a, const T& b) {
    return select(a < b, b, a);
}

/// Passes after which a search gives up; two or three are typical.
inline constexpr int most_passes = 12;

/// Both variables of a search; converged is 1 or 0. In sub-region 3 also the pressure there, but for the square of the last
/// step, and its slope by the volume before that step.
template <class T>
struct NewtonResult {
    T primary, t, converged, p, dpdv;
};

/// Newton from a first guess.
template <SubRegion sub_region, class T>
NewtonResult<T> newton(Quantities given, const T& a, const T& b, const T& first_guess, const T& t_guess) {
    NewtonResult<T> x{first_guess, t_guess, T(0.0), T(0.0), T(0.0)};
    constexpr Quantity variable = sub_region == SubRegion::near_critical ? Quantity::volume : Quantity::pressure;
    const auto stands = [&](Quantity y) { return given.a == y || given.b == y; };
    const T per_first = 1.0 / abs(first_guess);
    ConvergenceTest<T> convergence{.negligible = 1.0e-13};
    for (int pass = 0; pass < most_passes; ++pass) {
        const auto y = properties_at<sub_region>(x.primary, x.t);
        const Step<T> d = step<sub_region>(given, y, a, b);
        const auto sought = x.converged < 0.5;
        // A state that is met stays: the next step may be noise.
        x.converged = larger(x.converged, d.met);
        const auto open = x.converged < 0.5;
        if constexpr (sub_region == SubRegion::near_critical) {
            x.p = select(open, y.p + y.dpdv * d.primary + y.dpdt * d.t, select(sought, y.p, x.p));
            x.dpdv = select(sought, y.dpdv, x.dpdv);
        }
        if (!stands(variable)) x.primary = select(open, x.primary + d.primary, x.primary);
        if (!stands(Quantity::temperature)) x.t = select(open, x.t + d.t, x.t);
        const T end = convergence.reached(larger(abs(d.primary) * per_first, abs(d.t) * (1.0 / scale_of_t)));
        x.converged = select(open, end, x.converged);
        if (all_set(x.converged)) break;
    }
    return x;
}

} // namespace ktl::engine
