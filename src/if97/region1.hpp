// Region 1 of IF97, water from 0 to 350 degC, from the saturation pressure to 1000 bar:
//
//   gamma = sum(i=1..34) n (7.1 - pi)^I (tau - 1.222)^J,   pi = p/165.3 bar, tau = 1386 K/T
//
// IAPWS R7-97(2012), equation 7.
#pragma once

#include "if97/gibbs.hpp"
#include "if97/region1_data.hpp"

namespace ktl::if97::region1 {

/// Terms at p (bar), t (degC).
template <class T>
Gibbs<T> terms(const T& p, const T& t) {
    constexpr double p_star = 165.3;
    constexpr double t_star = 1386.0;
    const T kelvin = t + kelvin_of_zero;
    const T tau = t_star / kelvin;
    const auto g = sum<table>(T(7.1 - p / p_star), T(tau - 1.222));
    return {p_star, t_star, kelvin, tau, g.f, -g.x, g.y, g.xx, -g.xy, g.yy};
}

} // namespace ktl::if97::region1
