#include "tables.hpp"

#include "engine/guesses/guess_form.hpp"
#include "regions/saturation.hpp"

#include <cmath>

namespace first_guesses {

using ktl::boundary_pressure;
using ktl::boundary_temperature;
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
    {Border::s_critical, of_p, linear, linear, 3},
    {Border::s_5_85, of_p, log, linear, 5},

    {Border::liquid, of_s, linear, linear, 14},
    {Border::vapour, of_s, linear, linear, 9},
    {Border::near_liquid, of_s, linear, linear, 6},
    {Border::near_vapour, of_s, linear, linear, 6},
    {Border::isotherm, of_s, linear, linear, 5},
    {Border::boundary, of_s, linear, linear, 8},
    {Border::p_40_bar, of_s, linear, linear, 4},
    {Border::tie_line_350C, of_s, linear, linear, 2},

    {Border::liquid, "pv", fourth_root, linear, 11},
    {Border::vapour, "pv", log, log, 10},
    {Border::near_liquid, "pv", Scale::below_critical_p, linear, 7},
    {Border::near_vapour, "pv", Scale::below_critical_p, linear, 9},
    {Border::isotherm, "pv", log, linear, 5},
    {Border::boundary, "pv", log, linear, 10},
    {Border::s_critical, "pv", linear, linear, 4},
    {Border::s_5_85, "pv", log, log, 5},

    {Border::liquid, of_t, linear, linear, 12},
    {Border::vapour, of_t, linear, linear, 12},
    {Border::near_liquid, of_t, Scale::below_critical_t, linear, 7},
    {Border::near_vapour, of_t, Scale::below_critical_t, linear, 7},
    {Border::boundary, of_t, linear, linear, 10},
    {Border::s_critical, of_t, linear, linear, 3},
    {Border::p_40_bar, of_t, linear, linear, 5},
    {Border::s_5_85, of_t, linear, linear, 5},
    {Border::liquid, "tv", linear, linear, 12},
    {Border::vapour, "tv", linear, log, 9},
    {Border::near_liquid, "tv", Scale::below_critical_t, linear, 7},
    {Border::near_vapour, "tv", Scale::below_critical_t, linear, 7},
    {Border::boundary, "tv", linear, log, 6},
    {Border::s_critical, "tv", linear, linear, 4},
    {Border::p_40_bar, "tv", linear, linear, 4},
    {Border::s_5_85, "tv", linear, log, 5},

    {Border::liquid, of_v, Scale::above_least_volume, linear, 12},
    {Border::vapour, of_v, log, linear, 10},
    {Border::near_liquid, of_v, linear, linear, 7},
    {Border::near_vapour, of_v, log, linear, 8},
    {Border::isotherm, of_v, linear, linear, 5},
    {Border::boundary, of_v, log, linear, 10},
    {Border::s_critical, of_v, linear, linear, 4},
    {Border::p_40_bar, of_v, log, linear, 5},
    {Border::s_5_85, of_v, log, linear, 5},
    {Border::tie_line_350C, of_v, linear, linear, 2},
};

const std::vector<SurfaceItem> surface_items{
    {Pair::pt, GuessPatch::liquid_like, Unknown::primary, {linear, Scale::below_critical_t, log, 9, 8, 10}},
    {Pair::pt, GuessPatch::vapour_like, Unknown::primary, {linear, Scale::below_critical_t, log, 7, 7, 9}},
    {Pair::pt, GuessPatch::supercritical, Unknown::primary, {linear, log, log, 11, 9, 12}},

    {Pair::ph, GuessPatch::water, Unknown::t, {linear, linear, linear, 5, 7, 9}},
    {Pair::ph, GuessPatch::steam_thin, Unknown::t, {root, linear, linear, 7, 7, 9}},
    {Pair::ph, GuessPatch::steam, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::ph, GuessPatch::steam_dense, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::ph, GuessPatch::liquid_like, Unknown::primary, {log, linear, linear, 9, 9, 11}},
    {Pair::ph, GuessPatch::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::ph, GuessPatch::vapour_like, Unknown::primary, {log, linear, log, 6, 6, 9}},
    {Pair::ph, GuessPatch::vapour_like, Unknown::t, {log, linear, linear, 6, 6, 9}},

    {Pair::ps, GuessPatch::water, Unknown::t, {linear, linear, linear, 5, 7, 9}},
    {Pair::ps, GuessPatch::steam_thin, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::ps, GuessPatch::steam, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::ps, GuessPatch::steam_dense, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::ps, GuessPatch::liquid_like, Unknown::primary, {log, linear, linear, 9, 9, 11}},
    {Pair::ps, GuessPatch::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::ps, GuessPatch::vapour_like, Unknown::primary, {log, linear, log, 6, 6, 9}},
    {Pair::ps, GuessPatch::vapour_like, Unknown::t, {log, linear, linear, 6, 6, 9}},

    {Pair::hs, GuessPatch::water, Unknown::primary, {linear, linear, linear, 7, 7, 9}},
    {Pair::hs, GuessPatch::water, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::hs, GuessPatch::steam_thin, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::hs, GuessPatch::steam_thin, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::hs, GuessPatch::steam, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::hs, GuessPatch::steam, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::hs, GuessPatch::steam_dense, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::hs, GuessPatch::steam_dense, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::hs, GuessPatch::liquid_like, Unknown::primary, {linear, linear, linear, 9, 9, 11}},
    {Pair::hs, GuessPatch::liquid_like, Unknown::t, {linear, linear, linear, 9, 9, 11}},
    {Pair::hs, GuessPatch::vapour_like, Unknown::primary, {linear, linear, log, 8, 8, 9}},
    {Pair::hs, GuessPatch::vapour_like, Unknown::t, {linear, linear, linear, 8, 8, 9}},
    {Pair::hs, GuessPatch::wet_low_s, Unknown::t, {root, linear, linear, 7, 7, 9}},
    {Pair::hs, GuessPatch::wet, Unknown::t, {root, linear, linear, 7, 7, 9}},
    {Pair::hs, GuessPatch::wet_near_critical, Unknown::t, {linear, linear, linear, 5, 5, 9}},

    {Pair::pu, GuessPatch::water, Unknown::t, {linear, linear, linear, 5, 7, 9}},
    {Pair::pu, GuessPatch::steam_thin, Unknown::t, {root, linear, linear, 7, 7, 9}},
    {Pair::pu, GuessPatch::steam, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::pu, GuessPatch::steam_dense, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::pu, GuessPatch::liquid_like, Unknown::primary, {log, linear, log, 9, 9, 11}},
    {Pair::pu, GuessPatch::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::pu, GuessPatch::vapour_like, Unknown::primary, {log, linear, log, 8, 8, 10}},
    {Pair::pu, GuessPatch::vapour_like, Unknown::t, {log, linear, linear, 8, 8, 10}},

    {Pair::pv, GuessPatch::water, Unknown::t, {linear, root, linear, 8, 10, 12}},
    {Pair::pv, GuessPatch::steam_thin, Unknown::t, {log, log, linear, 7, 7, 9}},
    {Pair::pv, GuessPatch::steam, Unknown::t, {log, log, linear, 7, 7, 9}},
    {Pair::pv, GuessPatch::steam_dense, Unknown::t, {log, log, linear, 7, 7, 9}},
    {Pair::pv, GuessPatch::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::pv, GuessPatch::vapour_like, Unknown::t, {log, log, linear, 8, 8, 10}},

    {Pair::th, GuessPatch::steam_thin, Unknown::primary, {linear, linear, linear, 7, 7, 9}},
    {Pair::th, GuessPatch::steam, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::th, GuessPatch::steam_dense, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::th, GuessPatch::liquid_like, Unknown::primary, {linear, linear, log, 9, 9, 11}},
    {Pair::th, GuessPatch::vapour_like, Unknown::primary, {linear, linear, log, 8, 8, 10}},

    {Pair::ts, GuessPatch::water, Unknown::primary, {linear, linear, linear, 9, 8, 10}},
    {Pair::ts, GuessPatch::steam_thin, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::ts, GuessPatch::steam, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::ts, GuessPatch::steam_dense, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::ts, GuessPatch::liquid_like, Unknown::primary, {linear, linear, log, 9, 9, 11}},
    {Pair::ts, GuessPatch::vapour_like, Unknown::primary, {linear, linear, log, 8, 8, 10}},

    {Pair::tu, GuessPatch::water, Unknown::primary, {linear, linear, linear, 9, 8, 10}},
    {Pair::tu, GuessPatch::steam_thin, Unknown::primary, {linear, linear, linear, 7, 7, 9}},
    {Pair::tu, GuessPatch::steam, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::tu, GuessPatch::steam_dense, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::tu, GuessPatch::liquid_like, Unknown::primary, {linear, linear, log, 9, 9, 11}},
    {Pair::tu, GuessPatch::vapour_like, Unknown::primary, {linear, linear, log, 8, 8, 10}},

    {Pair::tv, GuessPatch::water, Unknown::primary, {linear, linear, linear, 7, 7, 9}},
    {Pair::tv, GuessPatch::steam_thin, Unknown::primary, {linear, log, log, 7, 7, 9}},
    {Pair::tv, GuessPatch::steam, Unknown::primary, {linear, log, log, 7, 7, 9}},
    {Pair::tv, GuessPatch::steam_dense, Unknown::primary, {linear, log, log, 7, 7, 9}},

    {Pair::sx, GuessPatch::wet_low_s, Unknown::t, {linear, linear, linear, 8, 7, 10}},
    {Pair::sx, GuessPatch::wet, Unknown::t, {linear, linear, linear, 8, 7, 10}},
    {Pair::sx, GuessPatch::wet_near_critical, Unknown::t, {linear, linear, linear, 9, 9, 12}},

    {Pair::us, GuessPatch::water, Unknown::primary, {root, linear, linear, 9, 9, 12}},
    {Pair::us, GuessPatch::water, Unknown::t, {root, linear, linear, 7, 7, 9}},
    {Pair::us, GuessPatch::steam_thin, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::us, GuessPatch::steam_thin, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::us, GuessPatch::steam, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::us, GuessPatch::steam, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::us, GuessPatch::steam_dense, Unknown::primary, {linear, linear, log, 7, 7, 9}},
    {Pair::us, GuessPatch::steam_dense, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::us, GuessPatch::liquid_like, Unknown::primary, {linear, linear, log, 9, 9, 11}},
    {Pair::us, GuessPatch::liquid_like, Unknown::t, {linear, linear, linear, 11, 11, 13}},
    {Pair::us, GuessPatch::vapour_like, Unknown::primary, {linear, linear, log, 8, 8, 10}},
    {Pair::us, GuessPatch::vapour_like, Unknown::t, {linear, linear, linear, 8, 8, 10}},
    {Pair::us, GuessPatch::wet_low_s, Unknown::t, {root, linear, linear, 8, 8, 10}},
    {Pair::us, GuessPatch::wet, Unknown::t, {root, linear, linear, 8, 8, 10}},
    {Pair::us, GuessPatch::wet_near_critical, Unknown::t, {linear, linear, linear, 10, 10, 10}},

    {Pair::vh, GuessPatch::water, Unknown::primary, {linear, linear, linear, 7, 7, 9}},
    {Pair::vh, GuessPatch::water, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::vh, GuessPatch::steam_thin, Unknown::primary, {log, linear, log, 7, 7, 9}},
    {Pair::vh, GuessPatch::steam_thin, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vh, GuessPatch::steam, Unknown::primary, {log, linear, log, 7, 7, 9}},
    {Pair::vh, GuessPatch::steam, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vh, GuessPatch::steam_dense, Unknown::primary, {log, linear, log, 7, 7, 9}},
    {Pair::vh, GuessPatch::steam_dense, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vh, GuessPatch::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::vh, GuessPatch::vapour_like, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vh, GuessPatch::wet_low_s, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vh, GuessPatch::wet, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vh, GuessPatch::wet_near_critical, Unknown::t, {log, linear, linear, 6, 6, 8}},

    {Pair::vs, GuessPatch::water, Unknown::primary, {linear, linear, linear, 7, 7, 9}},
    {Pair::vs, GuessPatch::water, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::vs, GuessPatch::steam_thin, Unknown::primary, {log, linear, log, 7, 7, 9}},
    {Pair::vs, GuessPatch::steam_thin, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vs, GuessPatch::steam, Unknown::primary, {log, linear, log, 7, 7, 9}},
    {Pair::vs, GuessPatch::steam, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vs, GuessPatch::steam_dense, Unknown::primary, {log, linear, log, 7, 7, 9}},
    {Pair::vs, GuessPatch::steam_dense, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vs, GuessPatch::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::vs, GuessPatch::vapour_like, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vs, GuessPatch::wet_low_s, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vs, GuessPatch::wet, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vs, GuessPatch::wet_near_critical, Unknown::t, {log, linear, linear, 6, 6, 8}},

    {Pair::vu, GuessPatch::water, Unknown::primary, {linear, linear, linear, 7, 7, 9}},
    {Pair::vu, GuessPatch::water, Unknown::t, {linear, linear, linear, 7, 7, 9}},
    {Pair::vu, GuessPatch::steam_thin, Unknown::primary, {log, linear, log, 7, 7, 9}},
    {Pair::vu, GuessPatch::steam_thin, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vu, GuessPatch::steam, Unknown::primary, {log, linear, log, 7, 7, 9}},
    {Pair::vu, GuessPatch::steam, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vu, GuessPatch::steam_dense, Unknown::primary, {log, linear, log, 7, 7, 9}},
    {Pair::vu, GuessPatch::steam_dense, Unknown::t, {log, linear, linear, 7, 7, 9}},
    {Pair::vu, GuessPatch::liquid_like, Unknown::t, {log, linear, linear, 9, 9, 11}},
    {Pair::vu, GuessPatch::vapour_like, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vu, GuessPatch::wet_low_s, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vu, GuessPatch::wet, Unknown::t, {log, linear, linear, 8, 8, 10}},
    {Pair::vu, GuessPatch::wet_near_critical, Unknown::t, {log, linear, linear, 6, 6, 8}},
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

double saturation_temperature(double p) {
    return bisected([p](double t) { return saturation_pressure(t) - p; }, ktl_lc.tmin, ktl_lc.tc);
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
    case Border::s_critical: {
        const auto above = [](double t) { return middle_state(t).p - ktl_lc.pmax; };
        return middle_state(ktl_lc.tc + along * (bisected(above, ktl_lc.tc, 480.0) - ktl_lc.tc));
    }
    case Border::p_40_bar: {
        const double t = saturation_temperature(guesses::thin_limit);
        return single(Region::steam, guesses::thin_limit, t + along * (ktl_lc.tmax - t));
    }
    case Border::tie_line_350C: return mixture(ktl_lc.t1, along);
    case Border::s_5_85: {
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
    if (border == Border::boundary) return {guesses::boundary_coordinate(a, b), b};
    return {b, a};
}

} // namespace first_guesses
