// Fits the first guesses of the inversions and writes them: ktl_fit_guesses ENGINE_FILE REGIONS_FILE.
#include "newton.hpp"
#include "tables.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>

namespace {

using namespace first_guesses;
namespace guesses = ktl::engine::guesses;

constexpr std::size_t curve_points = 2000, surface_points = 6000;

/// Printed names; the order is that of the enumeration.
constexpr std::string_view border_names[]{"liquid",   "vapour",     "near_liquid", "near_vapour", "isotherm",
                                          "boundary", "s_critical", "p_40_bar",    "s_5_85",      "tie_line_350C"};
std::string_view word(Border b) { return border_names[static_cast<std::size_t>(b)]; }

void note_error(std::ostream& out, const Polynomial& y) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "; // error %.2g, rms %.2g\n", y.greatest, y.rms);
    out << text.data();
}

std::string curve_type(const Polynomial& y) { return "Curve<" + std::to_string(y.shape.na) + ">"; }
std::string surface_type(const Polynomial& y) {
    return "Surface<" + std::to_string(y.shape.na) + ", " + std::to_string(y.shape.nb) + ", " +
           std::to_string(y.shape.total) + ">";
}

struct Fitted {
    std::map<std::pair<Pair, Border>, Polynomial> borders;
    Polynomial near_saturation, isochore, least_volume, least_energy;
};

Polynomial fit_border(Pair pair, const BorderItem& item) {
    std::vector<Point> points;
    for (const State& state : line(pair, item.border, curve_points)) {
        const Values given = plane(pair, item.border, state);
        points.push_back({given.x, 0.0, given.y});
    }
    return fit(curve(item.x, item.y, item.n), points);
}

void write_borders(std::ostream& out, Fitted& fitted) {
    for (const BorderItem& item : border_items)
        for (std::size_t k = 0; k < ktl::pair_count; ++k) {
            const auto pair = static_cast<Pair>(k);
            if (item.pairs.find(name(pair)) == item.pairs.npos) continue;
            const Polynomial y = fit_border(pair, item);
            fitted.borders.emplace(std::pair{pair, item.border}, y);
            out << "template <>\ninline constexpr " << curve_type(y) << " border<Pair::" << name(pair)
                << ", Border::" << word(item.border) << ">" << y.curve_text();
            note_error(out, y);
        }
}

void write_curve(std::ostream& out, const char* what, const Polynomial& y) {
    out << "inline constexpr " << curve_type(y) << ' ' << what << y.curve_text();
    note_error(out, y);
}

/// The saturated volumes of sub-region 3, and what divides it.
void write_saturation(std::ostream& out, Fitted& fitted) {
    std::vector<Point> liquid, vapour, pressure, isochore;
    for (std::size_t k = 0; k < curve_points; ++k) {
        const double along = static_cast<double>(k) / static_cast<double>(curve_points - 1);
        const double near = ktl::ktl_lc.t1 + along * (2.0 - along) * (last_apart - ktl::ktl_lc.t1);
        const Volumes v = saturated_volumes(near);
        liquid.push_back({near, 0.0, v.liquid});
        vapour.push_back({near, 0.0, v.vapour});
        pressure.push_back({near, 0.0, saturation_pressure(near)});
        const double above = ktl::ktl_lc.tc + along * (ktl::ktl_lc.t3max - ktl::ktl_lc.tc);
        isochore.push_back({above, 0.0, phase(Region::near_critical_steam, ktl::ktl_lc.vca, above).p});
    }
    fitted.near_saturation = fit(curve(Scale::linear, Scale::linear, 5), pressure);
    fitted.isochore = fit(curve(Scale::linear, Scale::linear, 5), isochore);
    write_curve(out, "near_saturation_curve", fitted.near_saturation);
    write_curve(out, "isochore_curve", fitted.isochore);
    write_curve(out, "liquid_volume_curve", fit(curve(Scale::below_critical_t, Scale::log, 12), liquid));
    write_curve(out, "vapour_volume_curve", fit(curve(Scale::below_critical_t, Scale::log, 12), vapour));
}

void write_fit(std::ostream& out, const char* what, const Polynomial& y) {
    out << "inline constexpr Fit<" << y.shape.na << "> " << what << y.fit_text();
    note_error(out, y);
}

/// Where the searches on the saturation line begin.
void write_line(std::ostream& out) {
    std::vector<Point> theta, liquid, vapour;
    for (std::size_t k = 0; k < curve_points; ++k) {
        const double along = static_cast<double>(k) / static_cast<double>(curve_points - 1);
        const double t = ktl::ktl_lc.tmin + along * (ktl::ktl_lc.tc - ktl::ktl_lc.tmin);
        theta.push_back(
            {std::log(saturation_pressure(t) / ktl::ktl_lc.pca), 0.0, (t + ktl::ktl_lc.tza) / ktl::ktl_lc.tca});
        const double longest = std::sqrt(ktl::ktl_lc.tc - ktl::ktl_lc.t1),
                     shortest = std::sqrt(ktl::ktl_lc.tc - last_loop);
        const double root = shortest + along * (longest - shortest);
        const Volumes v = saturated_volumes(ktl::ktl_lc.tc - root * root);
        liquid.push_back({root, 0.0, ktl::ktl_lc.vca / v.liquid});
        vapour.push_back({root, 0.0, ktl::ktl_lc.vca / v.vapour});
    }
    const auto linear = [](std::size_t n) { return curve(Scale::linear, Scale::linear, n); };
    write_fit(out, "saturation_theta", fit(linear(14), theta));
    write_fit(out, "liquid_density", fit(linear(7), liquid));
    write_fit(out, "vapour_density", fit(linear(7), vapour));
}

/// The parabolas v(t) of cold water under p and u(p) of water at s: their least values, beyond the range as well.
void write_water(std::ostream& out, Fitted& fitted) {
    std::vector<Point> volume, energy, tie;
    for (std::size_t k = 0; k < curve_points; ++k) {
        const double along = static_cast<double>(k) / static_cast<double>(curve_points - 1);
        const double p = ktl::ktl_lc.pmin + along * (ktl::ktl_lc.pmax - ktl::ktl_lc.pmin);
        constexpr double cold = 20.0, width = 10.0;
        const auto slope = [p](double t) { return phase(Region::water, p, t).dvdt; };
        const double curvature = (slope(cold + width) - slope(cold - width)) / (2.0 * width);
        volume.push_back({p, 0.0, phase(Region::water, p, cold).v - 0.5 * slope(cold) * slope(cold) / curvature});
        const auto y = phase(Region::water, saturation_pressure(ktl::ktl_lc.t1 * along), ktl::ktl_lc.t1 * along);
        energy.push_back(
            {y.s, 0.0, y.h - 100.0 * y.p * y.v - 50.0e5 * (y.p * y.v) * (y.p * y.v) / y.speed_of_sound_squared});
        tie.push_back({along, 0.0, mixture(ktl::ktl_lc.t1, along).s});
    }
    fitted.least_volume = fit(curve(Scale::linear, Scale::linear, 6), volume);
    fitted.least_energy = fit(curve(Scale::linear, Scale::linear, 14), energy);
    write_curve(out, "least_volume_curve", fitted.least_volume);
    write_curve(out, "least_energy_curve", fitted.least_energy);
    write_curve(out, "tie_curve", fit(curve(Scale::linear, Scale::linear, 2), tie));
}

/// Quality at which entropy turns along the saturation line at t.
double turning_quality(double t) {
    constexpr double step = 1.0e-3;
    const auto rise = [t](double x) { return mixture(t + step, x).s - mixture(t - step, x).s; };
    return rise(0.0) / (rise(0.0) - rise(1.0));
}

/// Above 350 degC: it waves up to 354 degC, below which a straight line stands for it.
double near_turning_quality(double t) {
    constexpr double straight = 354.0;
    const double slope = turning_quality(straight + 1.0) - turning_quality(straight);
    return t < straight ? turning_quality(straight) + (t - straight) * slope : turning_quality(t);
}

/// Entropy of both phases along one part of the saturation line, and the quality at which that of mixtures turns there.
void write_quality_line(std::ostream& out, const std::string& part, Scale scale, double from, double to) {
    std::vector<Point> water, steam, turning;
    for (std::size_t k = 0; k < curve_points; ++k) {
        const double along = static_cast<double>(k) / static_cast<double>(curve_points - 1);
        const double t = from + along * (2.0 - along) * (to - from);
        water.push_back({t, 0.0, mixture(t, 0.0).s});
        steam.push_back({t, 0.0, mixture(t, 1.0).s});
        turning.push_back({t, 0.0, scale == Scale::linear ? turning_quality(t) : near_turning_quality(t)});
    }
    write_curve(out, (part + "_water_entropy_curve").c_str(), fit(curve(scale, Scale::linear, 13), water));
    write_curve(out, (part + "_steam_entropy_curve").c_str(), fit(curve(scale, Scale::linear, 13), steam));
    write_curve(out, (part + "_turning_quality_curve").c_str(), fit(curve(scale, Scale::linear, 13), turning));
}

void write_quality_lines(std::ostream& out) {
    constexpr double step = 0.01; // off both ends, for slopes
    write_quality_line(out, "wet", Scale::linear, ktl::ktl_lc.tmin + step, ktl::ktl_lc.t1 - step);
    write_quality_line(out, "near", Scale::below_critical_t, ktl::ktl_lc.t1 + step, guesses::last_turning);
    std::vector<Point> dip;
    for (std::size_t k = 0; k < curve_points; ++k) {
        const double along = static_cast<double>(k) / static_cast<double>(curve_points - 1);
        const double t = ktl::ktl_lc.tmin + step + along * (guesses::widest_turning - ktl::ktl_lc.tmin - step);
        const double x = turning_quality(t);
        dip.push_back({x, 0.0, mixture(t, x).s});
    }
    write_curve(out, "dip_entropy_curve", fit(curve(Scale::linear, Scale::linear, 12), dip));
}

/// The lines as guess_coordinates() asks for them.
struct FittedLines {
    Pair pair;
    const Fitted& fitted;
    [[nodiscard]] double liquid(double s) const { return fitted.borders.at({pair, Border::liquid})(s); }
    [[nodiscard]] double saturation(double t) const { return fitted.near_saturation(t); }
    [[nodiscard]] double isochore(double t) const { return fitted.isochore(t); }
    [[nodiscard]] double least_volume(double p) const { return fitted.least_volume(p); }
    [[nodiscard]] double least_energy(double s) const { return fitted.least_energy(s); }
};

/// Gives each point the weight of a miss: the root of what one Newton step leaves of it, against the median of all,
/// within bounds.
void weigh(const SurfaceItem& item, const std::vector<State>& states, std::vector<Point>& points) {
    constexpr double bound = 8.0, part = 1.0e-3;
    double low = 1.0e300, high = -1.0e300;
    for (const Point& point : points) {
        low = std::min(low, transform(item.shape.z, point.z));
        high = std::max(high, transform(item.shape.z, point.z));
    }
    std::vector<double> weights;
    for (std::size_t k = 0; k < points.size(); ++k) {
        const State& state = states[k];
        const auto given = name(item.pair);
        Trial trial{state.first, state.t};
        if (state.region == Region::wet_near_critical) {
            const Volumes v = saturated_volumes(state.t);
            trial.liquid = v.liquid, trial.vapour = v.vapour;
        }
        double& missed = item.unknown == Unknown::t ? trial.t : trial.first;
        missed = inverse_transform(item.shape.z, transform(item.shape.z, missed) + part * (high - low));
        const double a = state(given[0]), b = state(given[1]);
        const double left = miss(item.pair, state.region, a, b, step(item.pair, state.region, a, b, trial));
        weights.push_back(std::isfinite(left) ? std::sqrt(left) : 1.0);
    }
    std::vector<double> sorted = weights;
    std::nth_element(sorted.begin(), sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2), sorted.end());
    const double median = std::max(sorted[sorted.size() / 2], 1.0e-14);
    for (std::size_t k = 0; k < points.size(); ++k)
        points[k].weight = std::clamp(weights[k] / median, 1.0 / bound, bound);
}

void write_surfaces(std::ostream& out, const Fitted& fitted) {
    std::uint64_t seed = 1;
    for (const SurfaceItem& item : surface_items) {
        std::vector<Point> points;
        const auto given = name(item.pair);
        const FittedLines lines{item.pair, fitted};
        const std::vector<State> states = draw(item.pair, item.where, surface_points, ++seed);
        for (const State& state : states) {
            const auto by = guesses::guess_coordinates(item.pair, item.where, lines, state(given[0]), state(given[1]));
            points.push_back({by.a, by.b, item.unknown == Unknown::t ? state.t : state.first});
        }
        weigh(item, states, points);
        const Polynomial z = fit(item.shape, points);
        out << "template <>\ninline constexpr " << surface_type(z) << " surface<Pair::" << given
            << ", GuessPatch::" << name(item.where) << ", Unknown::" << (item.unknown == Unknown::t ? "t" : "primary")
            << ">" << z.surface_text();
        note_error(out, z);
    }
}

constexpr const char* head =
    R"(// Written by tools/first_guesses/fit_guesses.cpp; run it again rather than edit. The notes give the greatest and the
// root-mean-square error, in the unit of the result.
// clang-format off
#pragma once

#include "engine/guesses/guess_form.hpp"

namespace ktl::engine::guesses {

/// Stands where nothing is fitted.
struct None {};

template <Pair pair, Border line>
inline constexpr None border{};
template <Pair pair, GuessPatch where, Unknown unknown>
inline constexpr None surface{};

)";

constexpr const char* regions_head =
    R"(// Written by tools/first_guesses/fit_guesses.cpp; run it again rather than edit. Where searches on the saturation line
// begin: theta by ln(p/pca); densities of saturated water and steam, relative to the critical one, by the root of tc - t,
// K, from 350 degC up. The notes give the greatest and the root-mean-square error.
// clang-format off
#pragma once

#include "regions/number.hpp"

namespace ktl::saturation_guesses {

)";

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "usage: ktl_fit_guesses ENGINE_FILE REGIONS_FILE\n";
        return 2;
    }
    std::ofstream regions(arguments[2]);
    regions << regions_head;
    write_line(regions);
    regions << "\n} // namespace ktl::saturation_guesses\n";
    std::ofstream out(arguments[1]);
    out << head;
    Fitted fitted;
    write_saturation(out, fitted);
    write_water(out, fitted);
    write_quality_lines(out);
    write_borders(out, fitted);
    write_surfaces(out, fitted);
    out << "\n} // namespace ktl::engine::guesses\n";
    return out.flush() && regions.flush() ? 0 : 1;
}
