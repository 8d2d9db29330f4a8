// States from entropy and enthalpy or internal energy, and from volume and a second property.
#include "finders/return_state.hpp"
#include "reports/diagnostics.hpp"
#include "searches/isentrope_isochore.hpp"

#include <ktl/ktlftn.h>

namespace {

using namespace ktl;

/// True if a value exceeds the greatest of its line by more than the sub-regions differ at their borders.
bool beyond(double value, double greatest, Quantity y) {
    return value > greatest + (y == Quantity::entropy ? 0.002 : 1.0);
}

/// The value y of the isentrope s at 800 degC is its greatest, for the isentropes that end there.
bool beyond_isentrope(Quantity y, ktl_property_eps of_end, double value, double s, double eps) {
    const bool ends_there = s >= property(Quantity::entropy, KTL_STEAM, ktl_lc.pmax, ktl_lc.tmax) &&
                            s <= property(Quantity::entropy, KTL_STEAM, ktl_lc.pmin, ktl_lc.tmax);
    return ends_there && beyond(value, of_end(ktl_lc.tmax, s, eps), y);
}

/// The value y of the isochore v at 1000 bar is its greatest, for the isochores that end there.
bool beyond_isochore(Quantity y, ktl_property_eps of_end, double value, double v, double eps) {
    const bool ends_there = v >= property(Quantity::volume, KTL_WATER, ktl_lc.pmax, ktl_lc.tmin) &&
                            v <= property(Quantity::volume, KTL_STEAM, ktl_lc.pmax, ktl_lc.tmax);
    return ends_there && beyond(value, of_end(ktl_lc.pmax, v, eps), y);
}

int on_entropy(Quantity y, ktl_property_eps of_end, double& value, double& s, double eps) {
    if (!searches::finite(value, s) || beyond_isentrope(y, of_end, value, s, eps)) return KTL_NO_STATE;
    const FoundState found = searches::on_isentrope(y, value, s, SaturationModel::entry_compatible);
    return finders::return_state(found, {y, value, Quantity::entropy, s}, value, s);
}

int on_volume(Quantity y, ktl_property_eps of_end, double& v, double& value, double eps) {
    if (!searches::finite(v, value) || beyond_isochore(y, of_end, value, v, eps)) return KTL_NO_STATE;
    const FoundState found = searches::on_isochore(y, value, v, SaturationModel::entry_compatible);
    return finders::return_state(found, {Quantity::volume, v, y, value}, v, value);
}

} // namespace

int ktlrhs(double& h, double& s, const double& eps) { return on_entropy(Quantity::enthalpy, ktl_ht, h, s, eps); }

int ktlrus(double& u, double& s, const double& eps) {
    const int region = on_entropy(Quantity::energy, ktl_ut, u, s, eps);
    if (region == KTL_NO_STATE) reports::no_state_us(u, s);
    return region;
}

int ktlrvh(double& v, double& h, const double& eps) { return on_volume(Quantity::enthalpy, ktl_hp, v, h, eps); }
int ktlrvs(double& v, double& s, const double& eps) { return on_volume(Quantity::entropy, ktl_sp, v, s, eps); }
int ktlrvu(double& v, double& u, const double& eps) { return on_volume(Quantity::energy, ktl_up, v, u, eps); }
