#include "newton.hpp"

#include "regions/saturation.hpp"

#include <algorithm>
#include <cmath>

namespace first_guesses {

using ktl::ktl_lc;
using ktl::engine::Thermo;

namespace {

/// A value with its slopes by the unknowns, or, along the saturation line, by t alone.
struct Slopes {
    double value, first, t;
};

Slopes in_gibbs(char letter, const Thermo<double>& y) {
    const double kelvin = y.t + ktl_lc.tza;
    const Slopes h{y.h, 100.0 * (y.v - kelvin * y.dvdt), y.cp};
    switch (letter) {
    case 'p': return {y.p, 1.0, 0.0};
    case 't': return {y.t, 0.0, 1.0};
    case 'v': return {y.v, y.dvdp, y.dvdt};
    case 'h': return h;
    case 's': return {y.s, -100.0 * y.dvdt, y.cp / kelvin};
    default: return {y.h - 100.0 * y.p * y.v, h.first - 100.0 * (y.v + y.p * y.dvdp), h.t - 100.0 * y.p * y.dvdt};
    }
}

Slopes in_helmholtz(char letter, const Thermo<double>& y) {
    const double kelvin = y.t + ktl_lc.tza;
    const double pv = 1.0 / y.dvdp, pt = -y.dvdt / y.dvdp;
    const Slopes u{y.h - 100.0 * y.p * y.v, 100.0 * (kelvin * pt - y.p), y.cv};
    switch (letter) {
    case 'p': return {y.p, pv, pt};
    case 't': return {y.t, 0.0, 1.0};
    case 'v': return {y.v, 1.0, 0.0};
    case 'h': return {y.h, u.first + 100.0 * (y.p + y.v * pv), u.t + 100.0 * y.v * pt};
    case 's': return {y.s, 100.0 * pt, y.cv / kelvin};
    default: return u;
    }
}

bool has(std::string_view given, char letter) { return given.find(letter) != given.npos; }

/// Both phases at the trial, their volumes carried to the pressure ps(t + dt) of the line: values and slopes by t.
struct Phases {
    Thermo<double> liquid, vapour;
    Slopes liquid_volume, vapour_volume; ///< value: correction of the volume at dt = 0; t: its slope
    double p, slope;
};

Phases phases_at(Region region, const Trial& trial) {
    Phases y{};
    const auto line = ktl::saturation::terms(trial.t);
    y.p = line.p;
    y.slope = line.p * ktl::saturation::log_slope(line) / ktl_lc.tca;
    const bool low = region == Region::wet;
    y.liquid = phase(low ? Region::water : Region::near_critical_water, low ? y.p : trial.liquid, trial.t);
    y.vapour = phase(low ? Region::steam : Region::near_critical_steam, low ? y.p : trial.vapour, trial.t);
    return y;
}

/// A value of a phase at ps: to first order where its volume is not yet that of ps; its slope along the line.
Slopes on_line(char letter, Region region, const Thermo<double>& y, double p, double slope) {
    const Slopes by_p = in_gibbs(letter, y);
    const double off = region == Region::wet ? 0.0 : p - y.p;
    return {by_p.value + by_p.first * off, 0.0, by_p.t + by_p.first * slope};
}

} // namespace

Trial step(Region region, std::string_view given, double a, double b, const Trial& trial) {
    const Thermo<double> y = phase(region, trial.first, trial.t);
    const bool gibbs = region == Region::water || region == Region::steam;
    const bool logarithmic = region == Region::steam && !has(given, 'p') && given != "th" && given != "tu";
    double wanted[2]{a, b};
    Slopes f[2];
    for (int k = 0; k < 2; ++k) {
        const char letter = given[static_cast<std::size_t>(k)];
        f[k] = gibbs ? in_gibbs(letter, y) : in_helmholtz(letter, y);
        if (letter == 'v' && region == Region::steam) {
            f[k].first /= y.v, f[k].t /= y.v;
            wanted[k] = std::log(wanted[k] / y.v), f[k].value = 0.0;
        }
        if (logarithmic) f[k].first *= trial.first;
    }
    const double e0 = wanted[0] - f[0].value, e1 = wanted[1] - f[1].value;
    const double det = f[0].first * f[1].t - f[0].t * f[1].first;
    const double first = (e0 * f[1].t - e1 * f[0].t) / det, t = (e1 * f[0].first - e0 * f[1].first) / det;
    return {logarithmic ? trial.first * std::exp(first) : trial.first + first, trial.t + t};
}

Trial step_wet(Region region, std::string_view given, double a, double b, const Trial& trial) {
    const Phases y = phases_at(region, trial);
    const auto liquid = [&](char letter) { return on_line(letter, region, y.liquid, y.p, y.slope); };
    const auto vapour = [&](char letter) { return on_line(letter, region, y.vapour, y.p, y.slope); };
    // Quality by one value, and its slope by t; then the other value.
    double x = b, dx = 0.0;
    if (given[1] != 'x') {
        const Slopes l = liquid(given[1]), v = vapour(given[1]);
        x = (b - l.value) / (v.value - l.value);
        dx = (-l.t - x * (v.t - l.t)) / (v.value - l.value);
    }
    const Slopes l = liquid(given[0]), v = vapour(given[0]);
    const double value = l.value + x * (v.value - l.value);
    const double slope = l.t + x * (v.t - l.t) + dx * (v.value - l.value);
    Trial next = trial;
    const double dt = (a - value) / slope;
    next.t += dt;
    next.liquid += y.liquid.dvdp * (y.p + y.slope * dt - y.liquid.p) + y.liquid.dvdt * dt;
    next.vapour += y.vapour.dvdp * (y.p + y.slope * dt - y.vapour.p) + y.vapour.dvdt * dt;
    return next;
}

double residual(Region region, std::string_view given, double a, double b, const Trial& trial) {
    const auto deviation = [](char letter, double wanted, double found) {
        const double least = letter == 'h' || letter == 'u' ? 5000.0
                             : letter == 's'                ? 10.0
                             : letter == 't'                ? 100.0
                                                            : 0.0;
        return std::fabs(found - wanted) / std::max(std::fabs(wanted), least);
    };
    if (region != Region::wet && region != Region::wet_near_critical) {
        const State found = single(region, trial.first, trial.t);
        return std::max(deviation(given[0], a, found(given[0])), deviation(given[1], b, found(given[1])));
    }
    const Phases y = phases_at(region, trial);
    const auto of = [&](char letter, const Thermo<double>& phase) { return in_gibbs(letter, phase).value; };
    double x = b;
    if (given[1] != 'x') x = (b - of(given[1], y.liquid)) / (of(given[1], y.vapour) - of(given[1], y.liquid));
    const double found = of(given[0], y.liquid) + x * (of(given[0], y.vapour) - of(given[0], y.liquid));
    const double pressures = std::max(deviation('p', y.p, y.liquid.p), deviation('p', y.p, y.vapour.p));
    return std::max(pressures, deviation(given[0], a, found));
}

} // namespace first_guesses
