// What all finders of a pair share: the pair itself, the test that a state has the given values, and the way the
// state is handed back.
#pragma once

#include "regions/state.hpp"

namespace ktl::finders {

/// Two properties and their given values.
struct Pair {
    Quantity first;
    double first_value;
    Quantity second;
    double second_value;
};

/// True where both numbers are finite.
bool finite(double a, double b);

/// Brings a value that rounding alone put past a limit (by one part in 1e9) to the limit; false where it lies
/// further out or is not a number.
bool bring_within(double& value, double low, double high);

/// The state, brought to a limit of the range that it passes by a hair (1e-6); no state where it lies further out
/// or where its properties are not the given values (to 1e-8 relative; near zero to 1e-7 kJ/kg and
/// 1e-8 kJ/(kg K)).
FoundState confirmed(FoundState state, const Pair& pair);

/// Overwrites the two given values with the state, confirmed; KTL_NO_STATE and both unchanged without one.
int hand_back(const FoundState& state, const Pair& pair, double& first, double& second);

/// Twelve Newton steps at most, in both variables, from start towards the state that has the given values, in
/// the equations of the region of start. Whether they arrive is for confirmed() to say. No state for a mixture
/// above 350 degC, whose phases are not known in closed form.
FoundState corrected(const FoundState& start, const Pair& pair);

/// How a state lies in the region that it names.
enum class Place { outside, beside, inside };

/// beside: outside by what a gap between sub-regions may need (0.5 K past 350 degC, 1 % of the pressure past the
/// 2/3 boundary).
Place place_of(const FoundState& state);

} // namespace ktl::finders
