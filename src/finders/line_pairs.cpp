// States from entropy and enthalpy or internal energy, and from volume and a second property.
#include "finders/return_state.hpp"
#include "reports/diagnostics.hpp"
#include "searches/isentrope_isochore.hpp"

#include <ktl/ktlftn.h>

namespace {

using namespace ktl;
using searches::Given;

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

FoundState<double> on_isentrope(Quantity y, ktl_property_eps of_end, const Given& given, double eps) {
    const double value = given.a_value;
    const double s = given.b_value;
    if (!searches::finite(value, s) || beyond_isentrope(y, of_end, value, s, eps)) return {};
    return searches::confirmed(searches::on_isentrope<double>(y, value, s, SaturationModel::entry_compatible), given);
}

int on_entropy(Pair pair, Quantity y, ktl_property_eps of_end, double& value, double& s, double eps) {
    const Given given{y, value, Quantity::entropy, s};
    const FoundState<double> guessed = finders::guessed_state(pair, given);
    return finders::return_state(guessed.found() ? guessed : on_isentrope(y, of_end, given, eps), value, s);
}

FoundState<double> on_isochore(Quantity y, ktl_property_eps of_end, const Given& given, double eps) {
    const double v = given.a_value;
    const double value = given.b_value;
    if (!searches::finite(v, value) || beyond_isochore(y, of_end, value, v, eps)) return {};
    return searches::confirmed(searches::on_isochore<double>(y, value, v, SaturationModel::entry_compatible), given);
}

int on_volume(Pair pair, Quantity y, ktl_property_eps of_end, double& v, double& value, double eps) {
    const Given given{Quantity::volume, v, y, value};
    const FoundState<double> guessed = finders::guessed_state(pair, given);
    return finders::return_state(guessed.found() ? guessed : on_isochore(y, of_end, given, eps), v, value);
}

} // namespace

int ktlrhs(double& h, double& s, const double& eps) {
    return on_entropy(Pair::hs, Quantity::enthalpy, ktl_ht, h, s, eps);
}

int ktlrus(double& u, double& s, const double& eps) {
    const int region = on_entropy(Pair::us, Quantity::energy, ktl_ut, u, s, eps);
    if (region == KTL_NO_STATE) reports::no_state_us(u, s);
    return region;
}

int ktlrvh(double& v, double& h, const double& eps) {
    return on_volume(Pair::vh, Quantity::enthalpy, ktl_hp, v, h, eps);
}
int ktlrvs(double& v, double& s, const double& eps) {
    return on_volume(Pair::vs, Quantity::entropy, ktl_sp, v, s, eps);
}
int ktlrvu(double& v, double& u, const double& eps) { return on_volume(Pair::vu, Quantity::energy, ktl_up, v, u, eps); }
