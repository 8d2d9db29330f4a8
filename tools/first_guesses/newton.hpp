// Newton steps from a first guess, as the inversions make them.
#pragma once

#include "states.hpp"

namespace first_guesses {

/// Unknowns of an inversion. In two phases above 350 degC the saturated volumes are found beside t.
struct Trial {
    double first = 0.0, t = 0.0;
    double liquid = 0.0, vapour = 0.0;
};

/// One step for a homogeneous phase with both given values; in steam towards s or v by ln p, and towards v by ln v.
Trial step(Region region, std::string_view given, double a, double b, const Trial& trial);
/// One step for t of a mixture with two given values among v, h, s, u, x.
Trial step_wet(Region region, std::string_view given, double a, double b, const Trial& trial);

/// The larger of the two deviations, relative, against at least 5000 kJ/kg, 10 kJ/(kg K), 100 K; above 350 degC in two
/// phases also that of their pressures.
double residual(Region region, std::string_view given, double a, double b, const Trial& trial);

} // namespace first_guesses
