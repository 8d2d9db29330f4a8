#include "tables.hpp"

#include "engine/guess_form.hpp"
#include "regions/saturation.hpp"

#include <cmath>

namespace first_guesses {

using ktl::ktl_lc;
namespace guesses = ktl::engine::guesses;

namespace {

constexpr Scale linear = Scale::linear, log = Scale::log, root = Scale::root, fourth_root = Scale::fourth_root;

constexpr std::string_view of_p = "ph ps pu", of_t = "th ts tu", of_s = "hs us", of_v = "vh vs vu";

} // namespace

const std::vector<BorderItem> border_items{
    {Border::liquid, of_p, fourth_root, linear, 9},
    {Border::vapour, of_p, fourth_root, linear, 10},
    {Border::near_liquid, of_p, Scale::below_critical_p, linear, 7},
    {Border::near_vapour, of_p, Scale::below_critical_p, linear, 7},
    {Border::isotherm, of_p, log, linear, 5},
    {Border::boundary, of_p, log, linear, 10},
    {Border::middle, of_p, linear, linear, 3},
    {Border::dense, of_p, log, linear, 5},

    {Border::liquid, of_s, linear, linear, 14},
    {Border::vapour, of_s, linear, linear, 9},
    {Border::near_liquid, of_s, linear, linear, 6},
    {Border::near_vapour, of_s, linear, linear, 6},
    {Border::isotherm, of_s, linear, linear, 5},
    {Border::boundary, of_s, linear, linear, 8},
    {Border::thin, of_s, linear, linear, 4},
    {Border::tie, of_s, linear, linear, 2},

    {Border::liquid, "pv", fourth_root, linear, 11},
    {Border::vapour, "pv", log, log, 10},
    {Border::near_liquid, "pv", Scale::below_critical_p, linear, 7},
    {Border::near_vapour, "pv", Scale::below_critical_p, linear, 9},
    {Border::isotherm, "pv", log, linear, 5},
    {Border::boundary, "pv", log, linear, 10},
    {Border::middle, "pv", linear, linear, 4},
    {Border::dense, "pv", log, log, 5},

    {Border::liquid, of_t, linear, linear, 12},
    {Border::vapour, of_t, linear, linear, 12},
    {Border::near_liquid, of_t, Scale::below_critical_t, linear, 7},
    {Border::near_vapour, of_t, Scale::below_critical_t, linear, 7},
    {Border::boundary, of_t, linear, linear, 10},
    {Border::middle, of_t, linear, linear, 3},
    {Border::thin, of_t, linear, linear, 5},
    {Border::dense, of_t, linear, linear, 5},
    {Border::liquid, "tv", linear, linear, 12},
    {Border::vapour, "tv", linear, log, 9},
    {Border::near_liquid, "tv", Scale::below_critical_t, linear, 7},
    {Border::near_vapour, "tv", Scale::below_critical_t, linear, 7},
    {Border::boundary, "tv", linear, log, 6},
    {Border::middle, "tv", linear, linear, 4},
    {Border::thin, "tv", linear, linear, 4},
    {Border::dense, "tv", linear, log, 5},

    {Border::liquid, of_v, Scale::above_least_volume, linear, 12},
    {Border::vapour, of_v, log, linear, 10},
    {Border::near_liquid, of_v, linear, linear, 7},
    {Border::near_vapour, of_v, log, linear, 8},
    {Border::isotherm, of_v, linear, linear, 5},
    {Border::boundary, of_v, log, linear, 10},
    {Border::middle, of_v, linear, linear, 4},
    {Border::thin, of_v, log, linear, 5},
    {Border::dense, of_v, log, linear, 5},
    {Border::tie, of_v, linear, linear, 2},
};

const std::vector<SurfaceItem> surface_items{
    {Pair::pt, Class::liquid_like, Unknown::first, {linear, Scale::below_critical_t, log, 9, 8, 10}},
    {Pair::pt, Class::vapour_like, Unknown::first, {linear, Scale::below_critical_t, log, 7, 7, 9}},
    {Pair::pt, Class::supercritical, Unknown::first, {linear, log, log, 11, 9, 12}},

    {Pair::ph, Class::water, Unknown::t, {linear, linear, linear, 5, 7, 9}},
    {Pair::ph, Class::steam_thin, Unknown::t, {root, linear, linear, 7, 7, 9}},
    {Pair::ph, Class::steam, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::ph, Class::steam_dense, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::ph, Class::liquid_like, Unknown::first, {log, linear, linear, 9, 9, 11}},
    {Pair::ph, Class::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::ph, Class::vapour_like, Unknown::first, {log, linear, log, 6, 6, 9}},
    {Pair::ph, Class::vapour_like, Unknown::t, {log, linear, linear, 6, 6, 9}},

    {Pair::ps, Class::water, Unknown::t, {linear, linear, linear, 5, 7, 9}},
    {Pair::ps, Class::steam_thin, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::ps, Class::steam, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::ps, Class::steam_dense, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::ps, Class::liquid_like, Unknown::first, {log, linear, linear, 9, 9, 11}},
    {Pair::ps, Class::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::ps, Class::vapour_like, Unknown::first, {log, linear, log, 6, 6, 9}},
    {Pair::ps, Class::vapour_like, Unknown::t, {log, linear, linear, 6, 6, 9}},

    {Pair::hs, Class::water, Unknown::first, {linear, linear, linear, 7, 7, 9}},
    {Pair::hs, Class::water, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::hs, Class::steam_thin, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::hs, Class::steam_thin, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::hs, Class::steam, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::hs, Class::steam, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::hs, Class::steam_dense, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::hs, Class::steam_dense, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::hs, Class::liquid_like, Unknown::first, {linear, linear, linear, 9, 9, 11}},
    {Pair::hs, Class::liquid_like, Unknown::t, {linear, linear, linear, 9, 9, 11}},
    {Pair::hs, Class::vapour_like, Unknown::first, {linear, linear, log, 8, 8, 9}},
    {Pair::hs, Class::vapour_like, Unknown::t, {linear, linear, linear, 8, 8, 9}},
    {Pair::hs, Class::wet_liquid, Unknown::t, {root, linear, linear, 7, 7, 9}},
    {Pair::hs, Class::wet, Unknown::t, {root, linear, linear, 7, 7, 9}},
    {Pair::hs, Class::wet_near_critical, Unknown::t, {linear, linear, linear, 5, 5, 9}},

    {Pair::pu, Class::water, Unknown::t, {linear, linear, linear, 5, 7, 9}},
    {Pair::pu, Class::steam_thin, Unknown::t, {root, linear, linear, 7, 7, 9}},
    {Pair::pu, Class::steam, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::pu, Class::steam_dense, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::pu, Class::liquid_like, Unknown::first, {log, linear, log, 9, 9, 11}},
    {Pair::pu, Class::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::pu, Class::vapour_like, Unknown::first, {log, linear, log, 8, 8, 10}},
    {Pair::pu, Class::vapour_like, Unknown::t, {log, linear, linear, 8, 8, 10}},

    {Pair::pv, Class::water, Unknown::t, {linear, root, linear, 8, 10, 12}},
    {Pair::pv, Class::steam_thin, Unknown::t, {log, log, linear, 7, 7, 9}},
    {Pair::pv, Class::steam, Unknown::t, {log, log, linear, 7, 7, 9}},
    {Pair::pv, Class::steam_dense, Unknown::t, {log, log, linear, 7, 7, 9}},
    {Pair::pv, Class::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::pv, Class::vapour_like, Unknown::t, {log, log, linear, 8, 8, 10}},

    {Pair::th, Class::steam_thin, Unknown::first, {linear, linear, linear, 7, 7, 9}},
    {Pair::th, Class::steam, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::th, Class::steam_dense, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::th, Class::liquid_like, Unknown::first, {linear, linear, log, 9, 9, 11}},
    {Pair::th, Class::vapour_like, Unknown::first, {linear, linear, log, 8, 8, 10}},

    {Pair::ts, Class::water, Unknown::first, {linear, linear, linear, 9, 8, 10}},
    {Pair::ts, Class::steam_thin, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::ts, Class::steam, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::ts, Class::steam_dense, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::ts, Class::liquid_like, Unknown::first, {linear, linear, log, 9, 9, 11}},
    {Pair::ts, Class::vapour_like, Unknown::first, {linear, linear, log, 8, 8, 10}},

    {Pair::tu, Class::water, Unknown::first, {linear, linear, linear, 9, 8, 10}},
    {Pair::tu, Class::steam_thin, Unknown::first, {linear, linear, linear, 7, 7, 9}},
    {Pair::tu, Class::steam, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::tu, Class::steam_dense, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::tu, Class::liquid_like, Unknown::first, {linear, linear, log, 9, 9, 11}},
    {Pair::tu, Class::vapour_like, Unknown::first, {linear, linear, log, 8, 8, 10}},

    {Pair::tv, Class::water, Unknown::first, {linear, linear, linear, 7, 7, 9}},
    {Pair::tv, Class::steam_thin, Unknown::first, {linear, log, log, 7, 7, 9}},
    {Pair::tv, Class::steam, Unknown::first, {linear, log, log, 7, 7, 9}},
    {Pair::tv, Class::steam_dense, Unknown::first, {linear, log, log, 7, 7, 9}},

    {Pair::sx, Class::wet_liquid, Unknown::t, {linear, linear, linear, 8, 7, 10}},
    {Pair::sx, Class::wet, Unknown::t, {linear, linear, linear, 8, 7, 10}},
    {Pair::sx, Class::wet_near_critical, Unknown::t, {linear, linear, linear, 9, 9, 12}},

    {Pair::us, Class::water, Unknown::first, {root, linear, linear, 9, 9, 12}},
    {Pair::us, Class::water, Unknown::t, {root, linear, linear, 7, 7, 9}},
    {Pair::us, Class::steam_thin, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::us, Class::steam_thin, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::us, Class::steam, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::us, Class::steam, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::us, Class::steam_dense, Unknown::first, {linear, linear, log, 7, 7, 9}},
    {Pair::us, Class::steam_dense, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::us, Class::liquid_like, Unknown::first, {linear, linear, log, 9, 9, 11}},
    {Pair::us, Class::liquid_like, Unknown::t, {linear, linear, linear, 11, 11, 13}},
    {Pair::us, Class::vapour_like, Unknown::first, {linear, linear, log, 8, 8, 10}},
    {Pair::us, Class::vapour_like, Unknown::t, {linear, linear, linear, 8, 8, 10}},
    {Pair::us, Class::wet_liquid, Unknown::t, {root, linear, linear, 8, 8, 10}},
    {Pair::us, Class::wet, Unknown::t, {root, linear, linear, 8, 8, 10}},
    {Pair::us, Class::wet_near_critical, Unknown::t, {linear, linear, linear, 10, 10, 10}},

    {Pair::vh, Class::water, Unknown::first, {linear, linear, linear, 7, 7, 9}},
    {Pair::vh, Class::water, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::vh, Class::steam_thin, Unknown::first, {log, linear, log, 7, 7, 9}},
    {Pair::vh, Class::steam_thin, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vh, Class::steam, Unknown::first, {log, linear, log, 7, 7, 9}},
    {Pair::vh, Class::steam, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vh, Class::steam_dense, Unknown::first, {log, linear, log, 7, 7, 9}},
    {Pair::vh, Class::steam_dense, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vh, Class::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::vh, Class::vapour_like, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vh, Class::wet_liquid, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vh, Class::wet, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vh, Class::wet_near_critical, Unknown::t, {log, linear, linear, 6, 6, 8}},

    {Pair::vs, Class::water, Unknown::first, {linear, linear, linear, 7, 7, 9}},
    {Pair::vs, Class::water, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::vs, Class::steam_thin, Unknown::first, {log, linear, log, 7, 7, 9}},
    {Pair::vs, Class::steam_thin, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vs, Class::steam, Unknown::first, {log, linear, log, 7, 7, 9}},
    {Pair::vs, Class::steam, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vs, Class::steam_dense, Unknown::first, {log, linear, log, 7, 7, 9}},
    {Pair::vs, Class::steam_dense, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vs, Class::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::vs, Class::vapour_like, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vs, Class::wet_liquid, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vs, Class::wet, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vs, Class::wet_near_critical, Unknown::t, {log, linear, linear, 6, 6, 8}},

    {Pair::vu, Class::water, Unknown::first, {linear, linear, linear, 7, 7, 9}},
    {Pair::vu, Class::water, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::vu, Class::steam_thin, Unknown::first, {log, linear, log, 7, 7, 9}},
    {Pair::vu, Class::steam_thin, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vu, Class::steam, Unknown::first, {log, linear, log, 7, 7, 9}},
    {Pair::vu, Class::steam, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vu, Class::steam_dense, Unknown::first, {log, linear, log, 7, 7, 9}},
    {Pair::vu, Class::steam_dense, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vu, Class::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::vu, Class::vapour_like, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vu, Class::wet_liquid, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vu, Class::wet, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vu, Class::wet_near_critical, Unknown::t, {log, linear, linear, 6, 6, 8}},
};

namespace {

/// The root of an increasing or falling function between a and b.
template <class F>
double bisected(F&& f, double a, double b) {
    const bool positive = f(a) > 0.0;
    for (int pass = 0; pass < 60; ++pass) {
        const double middle = 0.5 * (a + b);
        ((f(middle) > 0.0) == positive ? a : b) = middle;
    }
    return 0.5 * (a + b);
}

double boundary_pressure(double t) { return ktl_lc.pca * ktl::region2::boundary((t + ktl_lc.tza) / ktl_lc.tca); }
double saturation_temperature(double p) {
    return bisected([p](double t) { return saturation_pressure(t) - p; }, ktl_lc.tmin, ktl_lc.tc);
}
double boundary_temperature(double p) {
    return bisected([p](double t) { return boundary_pressure(t) - p; }, ktl_lc.t1, ktl_lc.t3max);
}

State middle_state(double t) {
    const auto above = [t](double v) { return phase(Region::none, v, t).s - guesses::middle_entropy; };
    return single(Region::near_critical_steam, bisected(above, 0.0014, 0.004), t);
}

/// Steam of entropy dense_limit under p.
State dense_state(double p) {
    const auto above = [p](double t) { return phase(Region::steam, p, t).s - guesses::dense_limit; };
    const double lowest = (p < ktl_lc.p1 ? saturation_temperature(p) : boundary_temperature(p)) - 1.0;
    return single(Region::steam, p, bisected(above, lowest, ktl_lc.tmax));
}

/// Temperature of the least volume of saturated water, degC.
constexpr double densest = 4.0;

/// One state of the line, between the ends of the saturation line that it uses, at `along` from 0 to 1.
State line_state(Border border, double along, double bottom, double top) {
    const double low = bottom + along * (ktl_lc.t1 - bottom);
    const double high = top - (1.0 - along) * (1.0 - along) * (top - ktl_lc.t1 - 1.0e-9);
    const double boundary = ktl_lc.t1 + along * (ktl_lc.t3max - ktl_lc.t1);
    switch (border) {
    case Border::liquid: return mixture(low, 0.0);
    case Border::vapour: return mixture(low, 1.0);
    case Border::near_liquid: return mixture(high, 0.0);
    case Border::near_vapour: return mixture(high, 1.0);
    case Border::isotherm:
        return single(Region::water, ktl_lc.p1 * std::pow(ktl_lc.pmax / ktl_lc.p1, along), ktl_lc.t1);
    case Border::boundary: return single(Region::steam, boundary_pressure(boundary), boundary);
    case Border::middle: {
        const auto above = [](double t) { return middle_state(t).p - ktl_lc.pmax; };
        return middle_state(ktl_lc.tc + along * (bisected(above, ktl_lc.tc, 480.0) - ktl_lc.tc));
    }
    case Border::thin: {
        const double t = saturation_temperature(guesses::thin_limit);
        return single(Region::steam, guesses::thin_limit, t + along * (ktl_lc.tmax - t));
    }
    case Border::tie: return mixture(ktl_lc.t1, along);
    case Border::dense: {
        const auto below = [](double t) {
            return phase(Region::steam, saturation_pressure(t), t).s - guesses::dense_limit;
        };
        const double p = saturation_pressure(bisected(below, 200.0, 340.0));
        return dense_state(p * std::pow(ktl_lc.pmax / p, along));
    }
    }
    return {};
}

} // namespace

std::vector<State> line(Pair pair, Border border, std::size_t n) {
    const char leader = name(pair)[0];
    const double bottom = leader == 'v' ? densest : ktl_lc.tmin;
    const double top = leader == 'p' || leader == 't' ? last_apart : ktl_lc.tc;
    std::vector<State> states;
    for (std::size_t k = 0; k < n; ++k)
        states.push_back(line_state(border, static_cast<double>(k) / static_cast<double>(n - 1), bottom, top));
    return states;
}

Values plane(Pair pair, Border border, const State& state) {
    const auto given = name(pair);
    const double a = state(given[0]), b = state(given[1]);
    if (pair != Pair::hs && pair != Pair::us) return {a, b};
    if (border == Border::boundary) return {guesses::across(a, b), b};
    return {b, a};
}

} // namespace first_guesses
