// Constants of the formulation that follow from others, and those of the given routines that it explains.
#include "rows.hpp"

#include "first_guesses/states.hpp"
#include "regions/saturation.hpp"
#include "searches/state.hpp"

#include <ktl/ktlftn.h>

namespace constants {

using first_guesses::phase;
using first_guesses::saturation_pressure;
using ktl::ktl_lc;
using ktl::Region;

void formulation(Table& table) {
    table.equal("pvo10 = 100 pca vca, kJ/kg", ktl_lc.pvo10, 100.0 * ktl_lc.pca * ktl_lc.vca, 1.0e-13);
    table.equal("pvot = pvo10/tca, kJ/(kg K)", ktl_lc.pvot, ktl_lc.pvo10 / ktl_lc.tca, 5.0e-11);
    table.equal("R = ai1 pvot, kJ/(kg K)", 0.46151, ktl_lc.ai1 * ktl_lc.pvot, 5.0e-8);
    table.equal("p1 = ps(350 degC), bar", ktl_lc.p1, saturation_pressure(ktl_lc.t1), 5.0e-8);
    table.equal("pmin = ps(0.01 degC), bar", ktl_lc.pmin, saturation_pressure(ktl_lc.tmin), 5.0e-10);

    // Entropy and internal energy of saturated water are zero at the triple point, to the rounding of the equations.
    const auto triple = phase(Region::water, saturation_pressure(ktl_lc.tmin), ktl_lc.tmin);
    const double u = triple.h - 100.0 * triple.p * triple.v;
    table.equal("alpha0: u' = 0 at 0.01 degC", ktl_lc.alpha0, ktl_lc.alpha0 - u / ktl_lc.pvo10, 1.0e-12);
    table.equal("alpha1: s' = 0 at 0.01 degC", ktl_lc.alpha1, ktl_lc.alpha1 + triple.s / ktl_lc.pvot, 1.0e-11);

    const auto densest = phase(Region::water, ktl_lc.pmax, ktl_lc.t1);
    const auto dry = phase(Region::steam, saturation_pressure(ktl_lc.t1), ktl_lc.t1);
    table.equal("v3min = v1(1000 bar, 350 degC), m3/kg", ktl_lc.v3min, densest.v, 5.0e-13);
    table.equal("v3max = v''(350 degC), m3/kg", ktl_lc.v3max, dry.v, 5.0e-12);
}

namespace {

/// Pressure from which ktlrpt takes a state at t as sub-region 3, bar.
double drawn_boundary(double t) {
    const auto is_steam = [t](double p) {
        double first = p, second = t;
        return ktlrpt(first, second, 1.0e-8) == KTL_STEAM;
    };
    const double formulation = ktl::boundary_pressure(t);
    return last_point(is_steam, formulation - 0.5, formulation + 2.0);
}

} // namespace

void named_routines(Table& table) {
    // psl1: pounds per square inch in a bar, degrees Fahrenheit in a kelvin.
    constexpr double t = 200.0, psi = 14.5038, fahrenheit = 1.8;
    psl1(t);
    const auto line = ktl::saturation::terms(t);
    const double slope = line.p * ktl::saturation::log_slope(line) / ktl_lc.tca;
    table.equal("psl1: slope stored in psi per degF", ktl_nt.dpdt / slope, psi / fahrenheit, 1.0e-4);

    table.shown("ktlrpt: boundary too high at 380 degC, bar", drawn_boundary(380.0) - ktl::boundary_pressure(380.0));
    table.shown("ktlrpt: boundary too high at 589 degC, bar", drawn_boundary(589.0) - ktl::boundary_pressure(589.0));

    // The bracket of saturated volumes in ktlftn ends on the wrong side of the root from these temperatures on.
    const auto off = [](double at, bool steam) {
        const auto entry = ktl::saturated_at<double>(at, ktl::SaturationModel::entry_compatible);
        const auto outermost = ktl::saturated_at<double>(at, ktl::SaturationModel::outermost_roots);
        return steam ? std::fabs(entry.vapour / outermost.vapour - 1.0)
                     : std::fabs(entry.liquid / outermost.liquid - 1.0);
    };
    constexpr double apart = 1.0e-3;
    table.shown("ktlftn: last outermost steam volume, degC",
                last_point([&](double x) { return off(x, true) < apart; }, 373.0, 373.5));
    table.shown("ktlftn: last saturated volumes, degC",
                last_point(
                    [](double x) {
                        const auto y = ktl::saturated_at<double>(x, ktl::SaturationModel::entry_compatible);
                        return y.liquid < y.vapour;
                    },
                    374.1, ktl_lc.tc));
}

} // namespace constants
