// Constants of the formulation and limits of its validity.
#pragma once

#include <cstddef>
#include <ktl/ktlftn.h>

namespace ktl {

static_assert(sizeof(ktl_lc_record) == 33 * sizeof(double));
static_assert(offsetof(ktl_lc_record, v3min) == 16 * sizeof(double));
static_assert(offsetof(ktl_lc_record, t1max) == 21 * sizeof(double));

/// Values of the record ktl_lc, known to the compiler: the constants of the 1967 formulation and what follows from them.
/// alpha0 and alpha1 make internal energy and entropy of saturated water zero at 0.01 degC; pvo10 is 100 pca vca, pvot
/// pvo10/tca, ai1 is R/pvot with R = 0.46151 kJ/(kg K); p1 and pmin are the saturation pressures at t1 and tmin; v3min is
/// the volume of sub-region 1 at 1000 bar and 350 degC, v3max that of saturated steam at 350 degC. Compared by
/// ktl_constants. No routine reads the unread ones; programs may.
inline constexpr ktl_lc_record ktl_lc{
    .alpha0 = 1.041659047737673e-08,
    .alpha1 = -1.592682542006834e-06,
    .pca = 221.2,
    .vca = 0.00317,
    .tca = 647.3,
    .tza = 273.15,
    .pvo10 = 70.1204,
    .pvot = 0.1083275143,
    .ai1 = 4.260321148,
    .t1 = 350.0,
    .tc = 374.15,
    .p1 = 165.3512406,
    .pmin = 0.006112444,
    .pmax = 1000.0,
    .unread1 = {3208.3, 165.12406},
    .v3min = 0.001314782578,
    .v3max = 0.008799105448,
    .tmin = 0.01,
    .tmax = 800.0,
    .unread2 = 705.5,
    .t1max = 350.0,
    .t2min = 0.01,
    .t3min = 350.0,
    .t3max = 590.0,
    .unread3 = {-1.0, 1860.0, 1205.0, 906.1, -0.1, 3.0, 0.804, 1.065},
};

/// The range tests of comt1, comt2 and comt3 let a limit be passed by one part in 1e5.
inline constexpr double lower_limit_factor = 0.99999;
inline constexpr double upper_limit_factor = 1.00001;

/// True if x lies outside low..high by more than the factors above; false for not-a-number.
constexpr bool out_of_range(double x, double low, double high) {
    return x < low * lower_limit_factor || x > high * upper_limit_factor;
}

} // namespace ktl
