// All first derivatives of p, t, v, rho, h, s, u, gibbs and helmholtz from the second derivatives of a free energy.
#pragma once

#include "regions/constants.hpp"

#include <cmath>
#include <initializer_list>
#include <ktl/steam.hpp>
#include <utility>

namespace ktl::test {

inline constexpr Property nine[] = {Property::p, Property::t, Property::v,     Property::rho,      Property::h,
                                    Property::s, Property::u, Property::gibbs, Property::helmholtz};

inline const char* name_of(Property property) {
    constexpr const char* names[] = {
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning) #property,
#include <ktl/properties.def>
    };
    return names[static_cast<std::size_t>(property)];
}

/// True for two properties that do not vary independently in one phase.
constexpr bool hold_each_other(Property a, Property b) {
    const auto volume = [](Property y) { return y == Property::v || y == Property::rho; };
    return a == b || (volume(a) && volume(b));
}

/// Slopes by the primary variable of the sub-region and by T.
struct Slope {
    long double first, t;
};

/// Slopes of the nine properties in their order, from the second derivatives of a free energy: of p, t, v and s as they are, of
/// the others by the product rule on h = f + T s + p v and so on.
struct Truth {
    using Number = long double;
    Slope slopes[9];

    Truth(Number p, Number kelvin, Number v, Number s, Slope dp, Slope dv, Slope ds) {
        const Slope dt{0, 1};
        const auto sum = [](std::initializer_list<std::pair<Number, Slope>> terms) {
            Slope y{0, 0};
            for (const auto& [factor, slope] : terms) y.first += factor * slope.first, y.t += factor * slope.t;
            return y;
        };
        const Slope all[] = {dp,
                             dt,
                             dv,
                             sum({{-1 / (v * v), dv}}),
                             sum({{kelvin, ds}, {100 * v, dp}}),
                             ds,
                             sum({{kelvin, ds}, {-100 * p, dv}}),
                             sum({{-s, dt}, {100 * v, dp}}),
                             sum({{-s, dt}, {-100 * p, dv}})};
        std::copy(std::begin(all), std::end(all), slopes);
    }

    /// A derivative, and what its terms add up to if none cancels: by places in nine.
    struct Value {
        Number value, size;
    };
    [[nodiscard]] Value derivative(std::size_t of, std::size_t by, std::size_t held) const {
        const Slope &y = slopes[of], &x = slopes[by], &z = slopes[held];
        const Number below = x.first * z.t - x.t * z.first;
        const Number value = (y.first * z.t - y.t * z.first) / below;
        const Number size = (std::fabs(y.first * z.t) + std::fabs(y.t * z.first) +
                             std::fabs(value) * (std::fabs(x.first * z.t) + std::fabs(x.t * z.first))) /
                            std::fabs(below);
        return {value, size};
    }
};

/// Derivatives of a free energy up to the second: of the reduced Gibbs function by theta and beta (z), or of the Helmholtz
/// function by theta and chi, with members x, y, xx, xy, yy.
template <class Derivatives>
Truth gibbs_truth(const Derivatives& z, double p, double t) {
    const long double v = ktl_lc.vca * z.y;
    const Slope dv{ktl_lc.vca / ktl_lc.pca * z.yy, ktl_lc.vca / ktl_lc.tca * z.xy};
    const Slope ds{-100 * dv.t, -ktl_lc.pvot / ktl_lc.tca * z.xx};
    const long double kelvin = static_cast<long double>(t) + ktl_lc.tza;
    return {p, kelvin, v, ktl_lc.pvot * (-z.x - ktl_lc.alpha1), {1, 0}, dv, ds};
}
template <class Derivatives>
Truth helmholtz_truth(const Derivatives& f, double v, double t) {
    const Slope dp{-ktl_lc.pca / ktl_lc.vca * f.yy, -ktl_lc.pca / ktl_lc.tca * f.xy};
    const Slope ds{100 * dp.t, -ktl_lc.pvot / ktl_lc.tca * f.xx};
    const long double kelvin = static_cast<long double>(t) + ktl_lc.tza;
    return {-ktl_lc.pca * f.y, kelvin, v, ktl_lc.pvot * (-f.x - ktl_lc.alpha1), dp, {1, 0}, ds};
}

} // namespace ktl::test
