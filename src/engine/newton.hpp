// Newton steps in the variables of a sub-region, for one number or for lanes. No step branches on a value: a lane that
// has converged stays as it is while others go on, so that each lane's result is its own.
#pragma once

#include "engine/bodies.hpp"
#include "engine/slopes.hpp"

namespace ktl::engine {

/// A step: what to add to both variables.
template <class T>
struct Step {
    T first, t;
};

/// Solution of [[a1, a2], [b1, b2]] (first, t) = (ra, rb).
template <class T>
Step<T> linear(const T& a1, const T& a2, const T& b1, const T& b2, const T& ra, const T& rb) {
    const T scale = 1.0 / (a1 * b2 - a2 * b1);
    return {(ra * b2 - a2 * rb) * scale, (a1 * rb - ra * b1) * scale};
}

template <Body body, Quantity Y, class T, class Terms>
Slopes<T> slopes(const Terms& terms, const T& first, const T& t) {
    if constexpr (body == Body::near_critical)
        return helmholtz_slopes<Y>(terms, first, t);
    else
        return gibbs_slopes<Y>(terms, first, t);
}

/// True where a quantity is one of the variables of the sub-region.
template <Body body>
constexpr bool is_first(Quantity y) {
    return y == (body == Body::near_critical ? Quantity::volume : Quantity::pressure);
}

/// One step towards A = a, B = b. A quantity that is a variable of the sub-region stands already.
template <Body body, Quantity A, Quantity B, class T>
Step<T> step(const T& a, const T& b, const T& first, const T& t) {
    const auto terms = terms_of<body>(first, t);
    constexpr bool a_is_first = is_first<body>(A);
    constexpr bool a_is_t = A == Quantity::temperature;
    if constexpr (a_is_first) {
        const Slopes<T> y = slopes<body, B>(terms, first, t);
        return {T(0.0), (b - y.y) / y.by_t};
    } else if constexpr (is_first<body>(B)) {
        const Slopes<T> y = slopes<body, A>(terms, first, t);
        return {T(0.0), (a - y.y) / y.by_t};
    } else if constexpr (a_is_t) {
        const Slopes<T> y = slopes<body, B>(terms, first, t);
        return {(b - y.y) / y.by_first, T(0.0)};
    } else if constexpr (B == Quantity::temperature) {
        const Slopes<T> y = slopes<body, A>(terms, first, t);
        return {(a - y.y) / y.by_first, T(0.0)};
    } else {
        const Slopes<T> y = slopes<body, A>(terms, first, t);
        const Slopes<T> z = slopes<body, B>(terms, first, t);
        return linear(y.by_first, y.by_t, z.by_first, z.by_t, a - y.y, b - z.y);
    }
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
template <Body body, Quantity A, Quantity B, class T>
Found<T> newton(const T& a, const T& b, const T& first_guess, const T& t_guess) {
    Found<T> x{first_guess, t_guess, T(0.0)};
    for (int pass = 0; pass < most_passes; ++pass) {
        const Step<T> d = step<body, A, B>(a, b, x.first, x.t);
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
