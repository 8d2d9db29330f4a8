#include "states.hpp"

#include "regions/saturation.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace first_guesses {

using ktl::boundary_pressure;
using ktl::ktl_lc;
using ktl::PhaseProperties;
namespace guesses = ktl::engine::guesses;

std::string_view name(GuessPatch c) {
    constexpr std::string_view names[]{
        "water",         "steam_thin", "steam", "steam_dense", "liquid_like",       "vapour_like",
        "supercritical", "wet_low_s",  "wet",   "wet_turning", "wet_near_critical", "wet_near_critical_turning"};
    static_assert(std::size(names) == guesses::patch_count - 1);
    return names[static_cast<std::size_t>(c)];
}

double State::operator()(char letter) const {
    switch (letter) {
    case 'p': return p;
    case 't': return t;
    case 'v': return v;
    case 'h': return h;
    case 's': return s;
    case 'u': return u();
    default: return x;
    }
}

PhaseProperties<double> phase(Region region, double first, double t) {
    if (region == Region::water) return ktl::from_gibbs(ktl::region1::terms(first, t), first, t);
    if (region == Region::steam) return ktl::from_gibbs(ktl::region2::terms(first, t), first, t);
    return ktl::from_helmholtz(ktl::helmholtz_properties(first, t));
}

State single(Region region, double first, double t) {
    const PhaseProperties<double> y = phase(region, first, t);
    return {region, first, y.p, t, y.v, y.h, y.s, 0.0};
}

double saturation_pressure(double t) { return ktl::saturation::terms(t).p; }

State mixture(double t, double x) {
    const double p = saturation_pressure(t);
    State a, b;
    if (t > ktl_lc.t1) {
        const Volumes v = saturated_volumes(t);
        a = single(Region::near_critical_water, v.liquid, t);
        b = single(Region::near_critical_steam, v.vapour, t);
    } else {
        a = single(Region::water, p, t);
        b = single(Region::steam, p, t);
    }
    const auto mixed = [x](double water, double steam) { return water + x * (steam - water); };
    const Region region = t > ktl_lc.t1 ? Region::wet_near_critical : Region::wet;
    return {region, x, p, t, mixed(a.v, b.v), mixed(a.h, b.h), mixed(a.s, b.s), x};
}

namespace {

double pressure3(double v, double t) { return ktl::region3::pressure(ktl::region3::terms(v, t)); }

/// The volume nearest to the start at which the isotherm passes p, searched by steps of that factor.
double volume_from(double start, double factor, double p, double t) {
    const bool above = pressure3(start, t) > p;
    double a = start, b = start * factor;
    while ((pressure3(b, t) > p) == above && b > 0.001 && b < 0.02) a = b, b *= factor;
    for (int pass = 0; pass < 60; ++pass) {
        const double middle = 0.5 * (a + b);
        ((pressure3(middle, t) > p) == above ? a : b) = middle;
    }
    return 0.5 * (a + b);
}

constexpr double least_volume = 0.00125, greatest_volume = 0.0095;

State draw_steam(Random& random) {
    const double t = random(ktl_lc.tmin, ktl_lc.tmax);
    const double top = t <= ktl_lc.t1 ? saturation_pressure(t) : std::min(boundary_pressure(t), ktl_lc.pmax);
    const bool even = random() < 0.5;
    const double p = even ? random(ktl_lc.pmin, top) : std::exp(random(std::log(ktl_lc.pmin), std::log(top)));
    return single(Region::steam, p, t);
}

State draw_near_critical(Random& random) {
    for (;;) {
        const double t = random(ktl_lc.t1, ktl_lc.t3max);
        const double low = boundary_pressure(t);
        double v = 0.0;
        if (random() < 0.5) {
            v = volume3(random(low, ktl_lc.pmax), t);
        } else {
            v = std::exp(random(std::log(volume3(ktl_lc.pmax, t)), std::log(greatest_volume)));
            const double p = pressure3(v, t);
            if (p < low || p > ktl_lc.pmax) continue;
            if (t < ktl_lc.tc) {
                const Volumes dome = saturated_volumes(t);
                if (v > dome.liquid && v < dome.vapour) continue;
            }
        }
        const bool water = t < ktl_lc.tc && v < ktl_lc.vca;
        return single(water ? Region::near_critical_water : Region::near_critical_steam, v, t);
    }
}

} // namespace

double volume3(double p, double t) {
    if (t > ktl_lc.tc || p < saturation_pressure(t)) return volume_from(greatest_volume, 0.998, p, t);
    return volume_from(least_volume, 1.002, p, t);
}

Volumes saturated_volumes(double t) {
    const double p = saturation_pressure(t);
    return {volume_from(least_volume, 1.0005, p, t), volume_from(greatest_volume, 0.9995, p, t)};
}

State draw(Region region, Random& random) {
    switch (region) {
    case Region::water: {
        const double t = random(ktl_lc.tmin, ktl_lc.t1);
        const double ps = saturation_pressure(t);
        const double p =
            random() < 0.5 ? random(ps, ktl_lc.pmax) : std::exp(random(std::log(ps), std::log(ktl_lc.pmax)));
        return single(region, p, t);
    }
    case Region::steam: return draw_steam(random);
    case Region::wet: return mixture(random(ktl_lc.tmin, ktl_lc.t1), random());
    case Region::wet_near_critical: return mixture(random(ktl_lc.t1, last_apart), random());
    default: return draw_near_critical(random);
    }
}

GuessPatch patch_of(Pair pair, const State& state) {
    const auto given = name(pair);
    const bool turns = state.x > guesses::turning_from && state.x < guesses::turning_to;
    switch (state.region) {
    case Region::water: return GuessPatch::water;
    case Region::steam:
        if (state.s < guesses::dense_limit) return GuessPatch::steam_dense;
        return state.p < guesses::thin_limit ? GuessPatch::steam_thin : GuessPatch::steam;
    case Region::wet:
        if (given[0] == 'p' || given[0] == 't') return GuessPatch::wet;
        if (given[1] == 'x' && turns) return GuessPatch::wet_turning;
        if (given[1] == 'x') return state.x < guesses::turning_from ? GuessPatch::wet_low_s : GuessPatch::wet;
        if (given[0] == 'v') return state.v < guesses::wet_volume_limit ? GuessPatch::wet_low_s : GuessPatch::wet;
        return state.s < guesses::wet_limit ? GuessPatch::wet_low_s : GuessPatch::wet;
    case Region::wet_near_critical:
        if (given[1] == 'x' && turns) return GuessPatch::wet_near_critical_turning;
        return GuessPatch::wet_near_critical;
    default:
        if (pair == Pair::pt && state.t >= ktl_lc.tc) return GuessPatch::supercritical;
        if (pair == Pair::pt) return state.v < ktl_lc.vca ? GuessPatch::liquid_like : GuessPatch::vapour_like;
        return state.s < guesses::middle_entropy ? GuessPatch::liquid_like : GuessPatch::vapour_like;
    }
}

Region region_of(GuessPatch c) {
    if (c == GuessPatch::water) return Region::water;
    if (c <= GuessPatch::steam_dense) return Region::steam;
    if (c <= GuessPatch::supercritical) return Region::near_critical_steam;
    if (c <= GuessPatch::wet_turning) return Region::wet;
    return c <= GuessPatch::wet_near_critical_turning ? Region::wet_near_critical : Region::none;
}

std::vector<State> draw(Pair pair, GuessPatch wanted, std::size_t n, std::uint64_t seed) {
    const Region region = region_of(wanted);
    Random random(seed);
    std::vector<State> states;
    while (states.size() < n) {
        const State state = draw(region, random);
        if (patch_of(pair, state) == wanted) states.push_back(state);
    }
    return states;
}

} // namespace first_guesses
