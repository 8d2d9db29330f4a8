// Reports that the equations, the saturation line and the solvers write.
#pragma once

namespace ktl::reports {

/// Case codes of ktler: the decimal digits name the values shown (1 P, 2 T, 4 V), the sign the kind.
enum class Case : int {
    pressure_out_of_range = 1,
    temperature_out_of_range = 2,
    pressure_temperature_out_of_range = 12,
    volume_temperature_out_of_range = 42,
    pressure_volume_out_of_range = 14,
    temperature_entropy_out_of_range = 25,
    pressure_not_converged = -1,
};

/// Reports and counts one error through ktler. Kept out of line: equations stay free of text.
void report(const char* routine, Case what, double a, double b = 0.0);

/// Writes the uncounted line " *** KTLFTN-WARNING: ..." of a solver whose passes ran out.
void warn_passes(const char* solver);

/// Uncounted lines of the finders named by the pair, for given values that name no state.
void no_state_th(double t, double h);
void no_state_tu(double t, double u);
void no_state_us(double u, double s);
/// One line, and a second one for an entropy below that of the critical point.
void no_state_sx(double s, double x);

} // namespace ktl::reports
