// Newton steps from a first guess, as the inversions of the engine make them.
#pragma once

#include "states.hpp"

namespace first_guesses {

/// Unknowns of an inversion. In two phases above 350 degC the saturated volumes are found beside t.
struct Trial {
    double first = 0.0, t = 0.0;
    double liquid = 0.0, vapour = 0.0;
};

/// One step of the pair's inversion in the region; near the critical point that of steam.
Trial step(Pair pair, Region region, double a, double b, const Trial& trial);

/// How far a trial is from both values, relative, against at least 5000 kJ/kg, 10 kJ/(kg K), 0.015 m3/kg, 100 K; of two
/// phases above 350 degC also how far their pressures are from that of the saturation line.
double miss(Pair pair, Region region, double a, double b, const Trial& trial);

} // namespace first_guesses
