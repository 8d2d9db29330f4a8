// States from temperature and volume, enthalpy, entropy or internal energy.
#include "finders/return_state.hpp"
#include "reports/diagnostics.hpp"
#include "searches/lines.hpp"

#include <ktl/ktlftn.h>

namespace {

using namespace ktl;
using searches::Given;

int on_temperature(Quantity y, double& t, double& value) {
    double t_in = t;
    if (!searches::finite(t, value) || !searches::bring_within(t_in, ktl_lc.tmin, ktl_lc.tmax)) return KTL_NO_STATE;
    const Given given{Quantity::temperature, t, y, value};
    return finders::return_state(
        searches::confirmed(on_isotherm<double>(y, t_in, value, SaturationModel::entry_compatible), given), t, value);
}

} // namespace

int ktlrtv(double& t, double& v, const double& /*eps*/) { return on_temperature(Quantity::volume, t, v); }
int ktlrts(double& t, double& s, const double& /*eps*/) { return on_temperature(Quantity::entropy, t, s); }

int ktlrth(double& t, double& h, const double& /*eps*/) {
    const int region = on_temperature(Quantity::enthalpy, t, h);
    if (region == KTL_NO_STATE) reports::no_state_th(t, h);
    return region;
}

int ktlrtu(double& t, double& u, const double& /*eps*/) {
    const int region = on_temperature(Quantity::energy, t, u);
    if (region == KTL_NO_STATE) reports::no_state_tu(t, u);
    return region;
}
