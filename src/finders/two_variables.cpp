// Properties from pressure and volume, and from temperature and entropy.
#include "reports/diagnostics.hpp"
#include "searches/lines.hpp"

#include <ktl/ktlftn.h>

namespace {

using namespace ktl;
using reports::Case;

/// True if the state has the value that it was searched for, within what the finders promise.
bool has(const FoundState<double>& state, Quantity y, double value) {
    return state.found() && std::fabs(state.value(y) - value) <= 1.0e-8 * (std::fabs(value) + (y == Quantity::entropy));
}

/// Quantity y of the state at p and v; 0.0 and a report without one.
double from_pressure_volume(Quantity y, double p, double v) {
    if (std::isnan(p) || std::isnan(v)) return p + v;
    if (p >= ktl_lc.pmin && p <= ktl_lc.pmax && std::isfinite(v)) {
        const FoundState<double> state = on_isobar<double>(Quantity::volume, p, v, SaturationModel::entry_compatible);
        if (has(state, Quantity::volume, v)) return state.value(y);
    }
    reports::report("KTL_PV", Case::pressure_volume_out_of_range, p, v);
    return 0.0;
}

/// Quantity y of the state at t and s; 0.0 and a report without one.
double from_temperature_entropy(Quantity y, double t, double s) {
    if (std::isnan(t) || std::isnan(s)) return t + s;
    if (t >= ktl_lc.tmin && t <= ktl_lc.tmax && std::isfinite(s)) {
        const FoundState<double> state =
            on_isotherm<double>(Quantity::entropy, t, s, SaturationModel::entry_compatible);
        if (has(state, Quantity::entropy, s)) return state.value(y);
    }
    reports::report("KTL_TS", Case::temperature_entropy_out_of_range, t, s);
    return 0.0;
}

} // namespace

double ktl_sp(const double& p, const double& v, const double& /*eps*/) {
    return from_pressure_volume(Quantity::entropy, p, v);
}
double ktl_hp(const double& p, const double& v, const double& /*eps*/) {
    return from_pressure_volume(Quantity::enthalpy, p, v);
}
double ktl_up(const double& p, const double& v, const double& /*eps*/) {
    return from_pressure_volume(Quantity::energy, p, v);
}
double ktl_ht(const double& t, const double& s, const double& /*eps*/) {
    return from_temperature_entropy(Quantity::enthalpy, t, s);
}
double ktl_ut(const double& t, const double& s, const double& /*eps*/) {
    return from_temperature_entropy(Quantity::energy, t, s);
}
