// What the searches for all pairs share: the given values, the test that a state has them, and Newton steps to them.
#pragma once

#include "searches/state.hpp"
#include "searches/tolerances.hpp"

namespace ktl::searches {

/// Two properties and their given values, and whose saturated phases the search follows.
///
/// With the outermost phases a state must have both values to 1e-10 of them, near zero to 1e-9 kJ/kg and
/// 1e-10 kJ/(kg K). With those of the entry, which scatter near the critical point, to 1e-8 and in mixtures above
/// 350 degC to 8e-8; near zero to 1e-7 kJ/kg and 1e-8 kJ/(kg K).
struct Given {
    Quantity a;
    double a_value;
    Quantity b;
    double b_value;
    SaturationModel model = SaturationModel::entry_compatible;
};

/// True if both numbers are finite.
bool finite(double a, double b);

/// Brings a value that rounding alone put past a limit (by one part in 1e9) to the limit; false where it lies
/// further out or is not a number.
bool bring_within(double& value, double low, double high);

/// How closely a state must have the given value. With the phases of the entry a tenth of what the finders promise:
/// its saturated volumes, found to 1e-8 of the pressure, move by more than that near the critical point.
double allowance(Quantity y, double value, int region, SaturationModel model);

/// The state, brought to a limit of the range that it passes by a hair (1e-6); no state where it lies further out
/// or where its properties are not the given values to the given share of what is allowed.
template <class T>
FoundState<T> confirmed(FoundState<T> state, const Given& given, double share = 1.0);

/// Newton steps from start, which is near the state that has the given values, in the equations of its region. Whether they
/// arrive is for confirmed() to say. No state for a mixture above 350 degC, whose phases have the entry's volumes.
template <class T>
FoundState<T> corrected(const FoundState<T>& start, const Given& given);

/// How a state lies in the region that it names.
enum class Place { outside, beside, inside };

/// beside: outside by what a gap between sub-regions may need (0.5 K past 350 degC, 1 % of the pressure past the
/// 2/3 boundary).
template <class T>
Place place_of(const FoundState<T>& state, SaturationModel model);

} // namespace ktl::searches
