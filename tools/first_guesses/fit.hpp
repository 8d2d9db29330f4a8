// Polynomials of one and two variables by weighted least squares, brought close to the least maximum error.
#pragma once

#include "engine/guesses/guess_form.hpp"

#include <string>
#include <vector>

namespace first_guesses {

using ktl::engine::guesses::Interval;
using ktl::engine::guesses::Scale;

double transform(Scale scale, double x);
double inverse_transform(Scale scale, double x);

/// A point to be met: z at a, b, and what a miss in transform z counts there. A curve has no b.
struct Point {
    double a, b, z, weight = 1.0;
};

struct Shape {
    Scale a, b, z;
    std::size_t na, nb;
    std::size_t total; ///< greatest i + j
};
inline Shape curve(Scale x, Scale y, std::size_t n) { return {x, Scale::linear, y, n, 1, n}; }

struct Polynomial {
    Shape shape;
    Interval a_span, b_span;
    std::vector<double> c; ///< na rows of nb
    double greatest = 0.0, rms = 0.0;

    [[nodiscard]] double operator()(double a, double b = 0.0) const;
    /// As an initialiser of Curve or Surface.
    [[nodiscard]] std::string curve_text() const;
    /// As an initialiser of Fit, where neither variable is transform.
    [[nodiscard]] std::string fit_text() const;
    [[nodiscard]] std::string surface_text() const;
};

Polynomial fit(const Shape& shape, const std::vector<Point>& points);

} // namespace first_guesses
