// Toy functions for the solvers: any closure behind a plain function, with a record of where it was evaluated.
#pragma once

#include <functional>
#include <ktl/ktlftn.h>
#include <utility>
#include <vector>

namespace ktl::test {

/// Function of the unknown alone, and the points asked.
struct Toy {
    std::function<double(double)> f;
    std::vector<double> points;

    double at(double z) {
        points.push_back(z);
        return f(z);
    }
    void set(std::function<double(double)> function) {
        f = std::move(function);
        points.clear();
    }
};
inline Toy toy;

/// The fixed variable that the tests of the solvers in one unknown pass, in whatever place.
inline constexpr double fixed = -7.5;

inline double fixed_first(const double& y, const double& z) { return y == fixed ? toy.at(z) : 1e300; }
inline double fixed_second(const double& z, const double& y) { return y == fixed ? toy.at(z) : 1e300; }
inline double fixed_second_eps(const double& z, const double& y, const double& eps) {
    return y == fixed && eps > 0.0 ? toy.at(z) : 1e300;
}

} // namespace ktl::test
