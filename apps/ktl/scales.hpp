// Temperature scales before the ITS-90.
#pragma once

namespace program {

enum class Scale { its90, ipts68, ipts48 };

/// The temperature, degC, that a thermometer of the scale shows where one of the ITS-90 shows t (0 to 800 degC): t - (t90 - t68) by
/// the polynomials of Rusby and others (1994), or t - (t90 - t48) interpolated in a table of every 20 K, known to 2 mK up to
/// 630 degC and to 10 mK above.
double on_scale(Scale scale, double t);

} // namespace program
