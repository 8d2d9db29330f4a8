// States from pressure and entropy, internal energy or volume.
#include "finders/return_state.hpp"
#include "searches/lines.hpp"

#include <ktl/ktlftn.h>

namespace {

using namespace ktl;

int on_pressure(Quantity y, double& p, double& value) {
    double p_in = p;
    if (!searches::finite(p, value) || !searches::bring_within(p_in, ktl_lc.pmin, ktl_lc.pmax)) return KTL_NO_STATE;
    return finders::return_state(on_isobar(y, p_in, value, SaturationModel::entry_compatible),
                                 {Quantity::pressure, p, y, value}, p, value);
}

} // namespace

int ktlrps(double& p, double& s, const double& /*eps*/) { return on_pressure(Quantity::entropy, p, s); }
int ktlrpu(double& p, double& u, const double& /*eps*/) { return on_pressure(Quantity::energy, p, u); }
int ktlrpv(double& p, double& v, const double& /*eps*/) { return on_pressure(Quantity::volume, p, v); }
