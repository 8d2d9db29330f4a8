// exp, log and power for the engine's number types, made of correctly rounded operations alone (+ - * and /) and of
// shifts of bit patterns. So one number and every lane of a vector give the same bits on every machine, which no
// library of the system promises. Both err by less than one unit of the last place (ktl_constants measures it).
//
// A number type T brings two operations on the bits of a double:
//     ldexp_bits(y, k)      y 2^n, where k is n + rounding_shift, so that n is in the lowest bits of k
//     split(x, e)       m in [1/sqrt(2), sqrt(2)) with x = m 2^e, for x positive and normal
#pragma once

#include <array>
#include <cstddef>

namespace ktl::engine {

/// 1.5 2^52: adding it to a double below 2^51 in magnitude rounds that to a whole number, to even where it is halfway.
inline constexpr double rounding_shift = 6755399441055744.0;
// ln 2 in two parts, as in e_log.c (below); products of the first with whole numbers up to 2^20 are exact.
inline constexpr double ln2_high = 6.93147180369123816490e-01;
inline constexpr double ln2_low = 1.90821492927058770002e-10;

/// e^x for x from -708 to 709; nothing of use beyond.
///
/// x = n ln 2 + r, |r| <= ln 2 / 2, and the series of e^r to r^13/13!, whose remainder is below 5e-18: r^14/14! = 4.2e-18.
template <class T>
T exponential(const T& x) {
    constexpr double log2_e = 1.44269504088896338700;
    const T k = x * log2_e + rounding_shift;
    const T n = k - rounding_shift;
    const T r = (x - n * ln2_high) - n * ln2_low;
    const T r2 = r * r;
    const T r4 = r2 * r2;
    const T a = (1.0 / 2.0 + r * (1.0 / 6.0)) + r2 * (1.0 / 24.0 + r * (1.0 / 120.0));
    const T b = (1.0 / 720.0 + r * (1.0 / 5040.0)) + r2 * (1.0 / 40320.0 + r * (1.0 / 362880.0));
    const T c = (1.0 / 3628800.0 + r * (1.0 / 39916800.0)) + r2 * (1.0 / 479001600.0 + r * (1.0 / 6227020800.0));
    return ldexp_bits(1.0 + (r + r2 * (a + r4 * (b + r4 * c))), k);
}

/// ln x for x positive and normal; nothing of use else.
///
/// x = m 2^e; ln m by the odd series in s = (m - 1)/(m + 1). The method and the seven coefficients are those of e_log.c of
/// the freely distributable library fdlibm, whose notice is:
///
///     Copyright (C) 1993 by Sun Microsystems, Inc. All rights reserved.
///     Developed at SunPro, a Sun Microsystems, Inc. business.
///     Permission to use, copy, modify, and distribute this software is freely granted, provided that this notice is
///     preserved.
///
/// They are those of the minimax polynomial of degree 14 in s, less than 2^-58 off (ktl_constants measures 2^-58.3).
template <class T>
T logarithm(const T& x) {
    T e;
    const T f = split(x, e) - 1.0;
    const T s = f / (2.0 + f);
    const T z = s * s;
    const T w = z * z;
    const T t1 = w * (3.999999999940941908e-01 + w * (2.222219843214978396e-01 + w * 1.531383769920937332e-01));
    const T t2 = z * (6.666666666666735130e-01 +
                      w * (2.857142874366239149e-01 + w * (1.818357216161805012e-01 + w * 1.479819860511658591e-01)));
    const T half = 0.5 * f * f;
    return e * ln2_high - ((half - (s * (half + (t1 + t2)) + e * ln2_low)) - f);
}

/// x^y for x positive and normal.
template <class T>
T power(const T& x, double y) {
    return exponential(logarithm(x) * y);
}

} // namespace ktl::engine
