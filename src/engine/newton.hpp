// Newton steps in the variables of a sub-region, for one number or for lanes. No step branches on a lane's value: a lane
// that has converged stays as it is while others go on, so that each lane's result is its own. The two quantities are
// the same for all lanes; where they are known to the compiler, it leaves away what they do not need.
#pragma once

#include "engine/bodies.hpp"

namespace ktl::engine {

/// A step: what to add to both variables.
template <class T>
struct Step {
    T first, t;
};

/// The two given quantities of a pair that has no quality.
struct Quantities {
    Quantity a, b;
};

/// Step towards A = a, B = b at the state y of a sub-region. A quantity that is a variable there stands already.
template <Body body, class State, class T>
Step<T> step(Quantities given, const State& y, const T& a, const T& b) {
    constexpr Quantity variable = body == Body::near_critical ? Quantity::volume : Quantity::pressure;
    const auto [A, B] = given;
    if (A == variable || B == variable) {
        const Slopes<T> z = slopes(A == variable ? B : A, y);
        return {T(0.0), ((A == variable ? b : a) - z.y) / z.by_t};
    }
    if (A == Quantity::temperature || B == Quantity::temperature) {
        const bool first = A == Quantity::temperature;
        const Slopes<T> z = slopes(first ? B : A, y);
        return {((first ? b : a) - z.y) / z.by_first, T(0.0)};
    }
    const Slopes<T> f = slopes(A, y);
    const Slopes<T> g = slopes(B, y);
    const T scale = 1.0 / (f.by_first * g.by_t - f.by_t * g.by_first);
    const T df = a - f.y;
    const T dg = b - g.y;
    return {(df * g.by_t - f.by_t * dg) * scale, (f.by_first * dg - df * g.by_first) * scale};
}

/// A step this small, K, and relative in the first variable, leaves an error far below 1e-12: Newton squares it.
inline constexpr double small_t = 1.0e-5;
inline constexpr double small_first = 2.0e-8;
/// Passes after which a search gives up; two or three are typical.
inline constexpr int most_passes = 6;

/// Both variables of a search; converged is 1 or 0.
template <class T>
struct Found {
    T first, t, converged;
};

/// Newton from a first guess.
template <Body body, class T>
Found<T> newton(Quantities given, const T& a, const T& b, const T& first_guess, const T& t_guess) {
    Found<T> x{first_guess, t_guess, T(0.0)};
    for (int pass = 0; pass < most_passes; ++pass) {
        const Step<T> d = step<body>(given, body_at<body>(x.first, x.t), a, b);
        const auto open = x.converged < 0.5;
        x.first = choose(open, x.first + d.first, x.first);
        x.t = choose(open, x.t + d.t, x.t);
        const T small =
            choose(abs(d.t) < small_t, choose(abs(d.first) < small_first * x.first, T(1.0), T(0.0)), T(0.0));
        x.converged = choose(open, small, x.converged);
        if (all_set(x.converged)) break;
    }
    return x;
}

} // namespace ktl::engine
