// What the stored products that are rounded add to an equation: (stored - exact product) times its term.
// The tests take these amounts off and compare the rest to full accuracy, rather than widen a tolerance.
#pragma once

#include "regions/region1_data.hpp"
#include "regions/region2_data.hpp"

#include "support/free_energy.hpp"

namespace ktl::test {

/// The entropy of sub-region 1 keeps 9 aa10 one digit off, by 2e-7: up to 1.5e-8 kJ/(kg K) at 350 degC.
template <class T>
T liquid_entropy_rounding(const T& t) {
    const T theta = (t + ktl_lc.tza) / ktl_lc.tca;
    return -ktl_lc.pvot * (region1::entropy_products::aa10t9 - 9.0 * region1::ktl_t1.aa10) * power(theta, 8);
}

/// Stored multiples of b00 in the enthalpy of sub-region 2, rounded to ten digits, in the boundary group:
/// up to 1e-4 kJ/kg near the boundary. p in bar, t in degC.
template <class T>
T enthalpy_rounding(const T& p, const T& t) {
    using namespace region2::enthalpy_products;
    constexpr auto& c = region2::ktl_t2;
    const T theta = (t + ktl_lc.tza) / ktl_lc.tca;
    const T beta = p / ktl_lc.pca;
    const T sum =
        series(x_of(theta), 2, 1, c.bb92 * (b00t2 - 2.0 * c.b00), c.bb93 * (b00t3 - 3.0 * c.b00),
               c.bb94 * (b00t4 - 4.0 * c.b00), c.bb95 * (b00t5 - 5.0 * c.b00), c.bb96 * (b00t6 - 6.0 * c.b00));
    return ktl_lc.pvo10 * theta * beta * power(beta / beta_l(theta), 10) * sum;
}

/// Stored multiples of the B coefficients in the entropy of sub-region 2, four of them cut after ten digits.
template <class T>
T entropy_rounding(const T& p, const T& t) {
    using namespace region2::entropy_products;
    constexpr auto& c = region2::ktl_t2;
    const T x = x_of((t + ktl_lc.tza) / ktl_lc.tca);
    const T beta = p / ktl_lc.pca;
    const T sum = power(beta, 2) * sum_of({{bb2118 - 18.0 * c.bb21, 18}}, x) +
                  power(beta, 4) * sum_of({{bb4125 - 25.0 * c.bb41, 25}, {bb4214 - 14.0 * c.bb42, 14}}, x) +
                  power(beta, 5) * sum_of({{bb5132 - 32.0 * c.bb51, 32}, {bb5228 - 28.0 * c.bb52, 28}}, x);
    return -ktl_lc.pvot * c.b00 * sum;
}

/// Stored multiples of k2..k5 in d ln p / d theta on the saturation line.
inline double slope_rounding(double t) {
    using namespace saturation;
    const double theta = (t + ktl_lc.tza) / ktl_lc.tca;
    const double x = 1.0 - theta;
    const double sum =
        series(x, 1, 1, ak2t2 - 2.0 * ak[1], ak3t3 - 3.0 * ak[2], ak4t4 - 4.0 * ak[3], ak5t5 - 5.0 * ak[4]);
    return -sum / theta / series(x, 0, 1, 1.0, ak[5], ak[6]);
}

} // namespace ktl::test
