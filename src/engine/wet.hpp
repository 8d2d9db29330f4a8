// Two-phase states for one number or for lanes: the saturated phases at a temperature, and searches for the
// temperature of a mixture. Below 350 degC both phases follow from the saturation pressure; above, their volumes are
// found along with it.
#pragma once

#include "engine/newton.hpp"

namespace ktl::engine {

/// A two-phase state; liquid and vapour as in Solution, converged 1 or 0.
template <class T>
struct Mixed {
    T x, t, liquid, vapour, converged;
};

/// Saturation pressure, bar, and its slope, bar/K.
template <class T>
struct LinePoint {
    T p, slope;
};
template <class T>
LinePoint<T> line_at(const T& t) {
    const auto terms = saturation::terms(t);
    return {terms.p, terms.p * saturation::log_slope(terms) * (1.0 / ktl_lc.tca)};
}

/// A property of a saturated phase and its slope along the line, by t.
template <class T>
struct Along {
    T y, slope;
};

/// One saturated phase next to the saturation line: how far its variable is off, the slope of that variable along the
/// line, and properties brought onto the line to first order.
template <Body body, class T>
struct Side {
    decltype(body_at<body>(T(), T())) y;
    T off, along;

    Side(const LinePoint<T>& line, const T& first, const T& t) : y(body_at<body>(first, t)) {
        if constexpr (body == Body::near_critical) {
            const T softness = 1.0 / y.dpdv;
            off = (line.p - y.p) * softness;
            along = (line.slope - y.dpdt) * softness;
        } else {
            off = T(0.0);
            along = line.slope;
        }
    }

    /// How far off it is, relative.
    [[nodiscard]] T size() const { return abs(off) * (1.0 / ktl_lc.vca); }

    /// The property on the line.
    [[nodiscard]] Along<T> property(Quantity quantity) const {
        const Slopes<T> z = slopes(quantity, y);
        return {z.y + z.by_first * off, z.by_t + z.by_first * along};
    }
};

/// Mixtures of hardly any steam hang on their temperature.
inline constexpr double negligible_of_mixtures = 1.0e-16;

/// Both saturated volumes above 350 degC at a given temperature, from first guesses.
template <class T>
Mixed<T> saturated_volumes(const LinePoint<T>& line, const T& t, const T& liquid, const T& vapour) {
    Mixed<T> m{T(0.0), t, liquid, vapour, T(0.0)};
    Pace<T> pace{.negligible = negligible_of_mixtures};
    for (int pass = 0; pass < most_passes; ++pass) {
        const Side<Body::near_critical, T> water(line, m.liquid, t);
        const Side<Body::near_critical, T> steam(line, m.vapour, t);
        const auto open = m.converged < 0.5;
        m.liquid = choose(open, m.liquid + water.off, m.liquid);
        m.vapour = choose(open, m.vapour + steam.off, m.vapour);
        m.converged = choose(open, pace.ends(larger(water.size(), steam.size())), m.converged);
        if (all_set(m.converged)) break;
    }
    return m;
}

/// A mixture's property: those of the phases and their slopes along the saturation line.
template <class T>
struct Blend {
    Along<T> water, steam;

    [[nodiscard]] T at(const T& x) const { return water.y + x * (steam.y - water.y); }
    [[nodiscard]] T along(const T& x) const { return water.slope + x * (steam.slope - water.slope); }
    [[nodiscard]] T by_quality() const { return steam.y - water.y; }
    [[nodiscard]] T quality(const T& value) const { return (value - water.y) / by_quality(); }
};

/// Both phases beside the line at one temperature: sub-regions 1 and 2 (high false), or sub-region 3 twice.
template <bool high, class T>
struct Phases {
    static constexpr Body water_body = high ? Body::near_critical : Body::water;
    static constexpr Body steam_body = high ? Body::near_critical : Body::steam;
    Side<water_body, T> water;
    Side<steam_body, T> steam;

    Phases(const LinePoint<T>& line, const Mixed<T>& m)
        : water(line, high ? m.liquid : line.p, m.t), steam(line, high ? m.vapour : line.p, m.t) {}

    [[nodiscard]] Blend<T> blend(Quantity quantity) const {
        return {water.property(quantity), steam.property(quantity)};
    }

    /// Moves the state by dt along the line, where it has not converged.
    void move(Mixed<T>& m, const T& dt, Pace<T>& pace) const {
        const auto open = m.converged < 0.5;
        m.t = choose(open, m.t + dt, m.t);
        T size = abs(dt) * (1.0 / scale_of_t);
        if constexpr (high) {
            size = larger(size, larger(water.size(), steam.size()));
            m.liquid = choose(open, m.liquid + water.off + water.along * dt, m.liquid);
            m.vapour = choose(open, m.vapour + steam.off + steam.along * dt, m.vapour);
        }
        m.converged = choose(open, pace.ends(size), m.converged);
    }
};

/// Up to 350 degC the phases' variable is the saturation pressure.
template <bool high, class T>
void settle(Mixed<T>& m) {
    if constexpr (!high) m.liquid = m.vapour = saturation::terms(m.t).p;
}

/// Newton step of the temperature, along the line, towards the mixture with A = a and B = b; x becomes its quality.
template <bool high, class T>
T step_along(const Phases<high, T>& phases, Quantities given, const T& a, const T& b, T& x) {
    const Blend<T> y = phases.blend(given.a);
    const Blend<T> z = phases.blend(given.b);
    const T now = y.quality(a);
    const T dxdt = -y.along(now) / y.by_quality();
    const T dt = (b - z.at(now)) / (z.along(now) + dxdt * z.by_quality());
    x = now + dxdt * dt;
    return dt;
}

/// The same towards the mixture of quality x with the given entropy; met becomes 1 where that has it already, but for
/// rounding. Near a turn of entropy along the line rounding moves t further than a search would end with.
template <bool high, class T>
T step_of_quality(const Phases<high, T>& phases, const T& entropy, const T& x, T& met) {
    const Blend<T> y = phases.blend(Quantity::entropy);
    const T miss = entropy - y.at(x);
    met = is_met(Quantity::entropy, miss, entropy);
    return miss / y.along(x);
}

/// Newton for the temperature of the mixture with A = a and B = b, or of the entropy a and the quality b, from the
/// guesses in m.
template <bool high, class T>
void mix(Mixed<T>& m, Pair pair, Quantities given, const T& a, const T& b) {
    m.converged = T(0.0);
    Pace<T> pace{.negligible = negligible_of_mixtures};
    for (int pass = 0; pass < most_passes; ++pass) {
        const Phases<high, T> phases(line_at(m.t), m);
        T x = b;
        T met(0.0);
        const T dt =
            pair == Pair::sx ? step_of_quality<high>(phases, a, b, met) : step_along<high>(phases, given, a, b, x);
        m.x = choose(m.converged < 0.5, x, m.x);
        phases.move(m, dt, pace);
        if (!high) m.converged = larger(m.converged, met);
        if (all_set(m.converged)) break;
    }
    settle<high>(m);
}

} // namespace ktl::engine
