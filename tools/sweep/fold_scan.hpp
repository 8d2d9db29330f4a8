// All states that have an enthalpy and an entropy of cold water next to saturation, by a walk along the saturation
// line.
#pragma once

#include <vector>

namespace sweep {

/// Highest temperature of saturated water that scan_fold() and fault_at_fold() are for, degC.
inline constexpr double warmest_fold = 14.0;

struct Fold {
    bool water = false;           ///< water has both values
    std::vector<double> mixtures; ///< temperatures of the mixtures that have them, falling, degC, to fold_step
    bool certain = false;         ///< the rounding of the equations does not decide how many there are
    bool solved = false;          ///< a state has both values to the accuracy of ktl::state()
};

/// Distance of the trial mixtures, K.
inline constexpr double fold_step = 1.0e-4;

/// The states that have h (kJ/kg) and s (kJ/(kg K)), if saturated water of that entropy lies between 0.01 degC and
/// warmest_fold. From saturated water down to 0.07 K below it, at each step the enthalpy of the mixture of entropy s is
/// compared with h. If saturated water itself has both values to the accuracy of ktl::state(), the mixture of
/// practically no steam beside it is the same state and is not counted.
Fold scan_fold(double h, double s);

/// What ktl::states() and ktl::state() get wrong about h and s, or null; expected is what scan_fold() found.
const char* fault_at_fold(double h, double s, const Fold& expected);

} // namespace sweep
