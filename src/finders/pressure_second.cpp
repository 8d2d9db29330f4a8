// States from pressure and entropy, internal energy or volume.
#include "finders/return_state.hpp"
#include "searches/lines.hpp"

#include <ktl/ktlftn.h>

namespace {

using namespace ktl;
using searches::Given;

FoundState<double> on_pressure(Quantity y, const Given& given) {
    double p_in = given.a_value;
    if (!searches::finite(p_in, given.b_value) || !searches::bring_within(p_in, ktl_lc.pmin, ktl_lc.pmax)) return {};
    return searches::confirmed(on_isobar<double>(y, p_in, given.b_value, SaturationModel::entry_compatible), given);
}

/// From the engine's guess, or else by the enclosing search.
int guessed_on_pressure(Pair pair, Quantity y, double& p, double& value) {
    const Given given{Quantity::pressure, p, y, value};
    const FoundState<double> guessed = finders::guessed_state(pair, given);
    return finders::return_state(guessed.found() ? guessed : on_pressure(y, given), p, value);
}

} // namespace

int ktlrps(double& p, double& s, const double& /*eps*/) {
    return guessed_on_pressure(Pair::ps, Quantity::entropy, p, s);
}
int ktlrpu(double& p, double& u, const double& /*eps*/) {
    return guessed_on_pressure(Pair::pu, Quantity::energy, p, u);
}
/// Without a guess: the search by volume needs few evaluations, and water below 10 degC may have two temperatures.
int ktlrpv(double& p, double& v, const double& /*eps*/) {
    return finders::return_state(on_pressure(Quantity::volume, {Quantity::pressure, p, Quantity::volume, v}), p, v);
}
