// The transport equations beside later ones of other authors, which serve as witnesses.
#include "rows.hpp"

#include "first_guesses/states.hpp"
#include "regions/transport.hpp"

#include <algorithm>

namespace constants {

using ktl::ktl_lc;
using ktl::Region;

namespace {

/// Check values of the viscosity release of 2008 (IAPWS R12-08, table 4; critical enhancement left out) up to 1000 bar and
/// 800 degC: K, kg/m3, micropascal seconds.
struct Viscosity {
    double t, rho, value;
};
constexpr Viscosity viscosities[]{{298.15, 998.0, 889.735100},
                                  {373.15, 1000.0, 307.883622},
                                  {433.15, 1.0, 14.538324},
                                  {873.15, 1.0, 32.619287},
                                  {873.15, 100.0, 35.802262}};

/// Conductivity, W/(m K), by the equation for industrial use of the IAPS Formulation 1985 (IAPWS, revised release of 1998,
/// appendix), which keeps the form that IAPS released in 1977.
double industrial_conductivity(double rho, double t) {
    using std::exp, std::pow;
    const double tr = (t + 273.15) / 647.26;
    const double r = rho / 317.7;
    const double dilute = std::sqrt(tr) * (0.0102811 + tr * (0.0299621 + tr * (0.0156146 - 0.00422464 * tr)));
    const double dense = -0.397070 + 0.400302 * r + 1.060000 * exp(-0.171587 * (r + 2.392190) * (r + 2.392190));
    const double dt = std::fabs(tr - 1.0) + 0.00308976;
    const double q = 2.0 + 0.0822994 / pow(dt, 0.6);
    const double s = tr >= 1.0 ? 1.0 / dt : 10.0932 / pow(dt, 0.6);
    const double near_critical =
        (0.0701309 / pow(tr, 10.0) + 0.0118520) * pow(r, 1.8) * exp(0.642857 * (1.0 - pow(r, 2.8))) +
        0.00169937 * s * pow(r, q) * exp(q / (1.0 + q) * (1.0 - pow(r, 1.0 + q))) -
        1.0200 * exp(-4.11717 * pow(tr, 1.5) - 6.17937 / pow(r, 5.0));
    return dilute + dense + near_critical;
}

/// Deviation of the conductivity in one phase at p, t, per cent.
double deviation(Region region, double p, double t) {
    const double v = first_guesses::phase(region, p, t).v;
    return 100.0 * std::fabs(ktl::transport::conductivity(v, t) / industrial_conductivity(1.0 / v, t) - 1.0);
}

} // namespace

void transport(Table& table) {
    double worst = 0.0;
    for (const auto& [t, rho, value] : viscosities) {
        const double got = 1.0e6 * ktl::transport::viscosity(1.0 / rho, t - ktl_lc.tza);
        worst = std::fmax(worst, 100.0 * std::fabs(got / value - 1.0));
    }
    table.covers("viscosity of 1975 against 2008, %", 0.5, worst);

    double water = 0.0, cool = 0.0, hot = 0.0;
    const int n = std::max(20, table.points() / 10);
    for (int i = 0; i <= n; ++i)
        for (int j = 0; j <= n; ++j) {
            const double t = ktl_lc.tmin + (ktl_lc.t1 - ktl_lc.tmin) * i / n;
            const double ps = first_guesses::saturation_pressure(t);
            water = std::max(water, deviation(Region::water, ps + (ktl_lc.pmax - ps) * j / n, t));
            const double of_vapour = ktl_lc.tmin + (ktl_lc.tmax - ktl_lc.tmin) * i / n;
            double top = 100.0;
            if (of_vapour < ktl_lc.t1) top = std::min(top, first_guesses::saturation_pressure(of_vapour));
            double& steam = of_vapour < 100.0 ? cool : hot;
            steam = std::max(steam, deviation(Region::steam, top * (j + 1) / (n + 1), of_vapour));
        }
    table.covers("conductivity against 1998: water, %", 3.0, water);
    table.covers("conductivity against 1998: steam to 100 degC, %", 9.0, cool);
    table.covers("conductivity against 1998: steam to 100 bar, %", 5.0, hot);
}

} // namespace constants
