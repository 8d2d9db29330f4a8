// Transport properties, functions of specific volume and temperature.
#pragma once

#include "regions/number.hpp"

namespace ktl::transport {

/// Dynamic viscosity, Pa s, at v (m3/kg), t (degC): the 1975 international representative equation for the
/// viscosity of water substance, reference state 647.27 K and 317.763 kg/m3. International Association for the Properties
/// of Steam, Release on Dynamic Viscosity of Water Substance, 1975; A. Nagashima, J. Phys. Chem. Ref. Data 6 (1977) 1133.
template <class T>
T viscosity(const T& v, const T& t) {
    const T tau = (t + 273.15) / 647.27;
    const T rt = 1.0 / tau;
    const T x = rt - 1.0;
    const T rho = 1.0 / (317.763 * v);
    const T y = rho - 1.0;
    const T dev = horner(rt, 0.0181583, 0.0177624, 0.0105287, -0.0036744);
    const T dilute = 1.0e-06 * sqrt(tau) / dev;
    const T s0 = horner(y, 0.501938, 0.235622, -0.274637, 0.145831, -0.0270448);
    const T s1 = horner(y, 0.162888, 0.789393, -0.743539, 0.263129, -0.0253093);
    const T s2 = horner(y, -0.130356, 0.673665, -0.959456, 0.347247, -0.0267758);
    const T s3 = horner(y, 0.907919, 1.207552, -0.687343, 0.213486, -0.0822904);
    const T s4 = horner(y, -0.551119, 0.0670665, -0.497089, 0.100754, 0.0602253);
    const T s5 = horner(y, 0.146543, -0.084337, 0.195286, -0.032932, -0.0202595);
    const T sum = s0 + x * (s1 + x * (s2 + x * (s3 + x * (s4 + x * s5))));
    return dilute * exp(rho * sum);
}

/// Thermal conductivity, W/(m K), at v (m3/kg), t (degC). Three correction terms end at 450, 300 and 150 degC,
/// where the value steps; a temperature at the limit still has its term.
///
/// Its publication is not known to us, and the coefficients are kept as they came: a cubic of t for thin steam, a quadratic
/// of density, a term that is greatest at 250 kg/m3 and fades with t, and the corrections. docs/sources.md compares it.
template <class T>
T conductivity(const T& v, const T& t) {
    const T rho = 1.0 / v;
    const T base = horner(t, 0.0179, 5.53e-05, 1.13e-07, -5.2e-11) + (0.00035 + 5.5e-07 * rho) * rho;
    const T r1 = 1000.0 - rho;
    const T r3 = rho * (r1 * r1 * r1);
    const T y = 8.56e-33 * exp(-0.01371 * t) + 2.55e-29 * exp(-0.0433 * t);
    const T lambda = base + y * (r3 * r3 * r3);
    const T t2 = t * t;
    const T below450 = lambda - 0.000103 * rho * exp(-1.33e-10 * (t2 * t2));
    const T below300 = below450 - 0.000173 * rho * exp(-6.8e-05 * t2);
    const T below150 = below300 - 6.8e-05 * rho * exp(-0.0422 * t);
    return select(t > 450.0, lambda, select(t > 300.0, below450, select(t > 150.0, below300, below150)));
}

} // namespace ktl::transport
