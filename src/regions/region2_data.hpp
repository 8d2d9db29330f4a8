// Sub-region 2 and the 2/3 boundary: coefficients B, b and L of the formulation, and products of them.
#pragma once

namespace ktl::region2 {

/// Record ktl_t2, 36 values in the order of the published table; bb are the B, b the lower-case b.
struct Coefficients {
    double bb00, bb01, bb02, bb03, bb04, bb05;
    double bb11, bb12;
    double bb21, bb22, bb23;
    double bb31, bb32;
    double bb41, bb42;
    double bb51, bb52, bb53;
    double bb61, bb62;
    double bb71, bb72;
    double bb81, bb82;
    double b00, b61, b71, b81, b82;
    double bb90, bb91, bb92, bb93, bb94, bb95, bb96;
};
static_assert(sizeof(Coefficients) == 36 * sizeof(double));

inline constexpr Coefficients ktl_t2{
    .bb00 = 16.83599274,
    .bb01 = 28.56067796,
    .bb02 = -54.38923329,
    .bb03 = 0.4330662834,
    .bb04 = -0.6547711697,
    .bb05 = 0.08565182058,

    .bb11 = 0.06670375918,
    .bb12 = 1.388983801,

    .bb21 = 0.08390104328,
    .bb22 = 0.02614670893,
    .bb23 = -0.03373439453,

    .bb31 = 0.4520918904,
    .bb32 = 0.1069036614,

    .bb41 = -0.5975336707,
    .bb42 = -0.08847535804,

    .bb51 = 0.5958051609,
    .bb52 = -0.5159303373,
    .bb53 = 0.2075021122,

    .bb61 = 0.1190610271,
    .bb62 = -0.09867174132,

    .bb71 = 0.1683998803,
    .bb72 = -0.05809438001,

    .bb81 = 0.006552390126,
    .bb82 = 0.0005710218649,

    .b00 = 0.7633333333,
    .b61 = 0.4006073948,
    .b71 = 0.08636081627,
    .b81 = -0.8532322921,
    .b82 = 0.3460208861,

    .bb90 = 193.6587558,
    .bb91 = -1388.522425,
    .bb92 = 4126.607219,
    .bb93 = -6508.211677,
    .bb94 = 5745.984054,
    .bb95 = -2693.088365,
    .bb96 = 523.5718623,
};

/// Record ktl_cl, the boundary L between sub-regions 2 and 3: betaL = al0 + al1 theta + al2 theta^2.
struct BoundaryCoefficients {
    double al0, al1, al2, al2t2;
};

inline constexpr BoundaryCoefficients ktl_cl{
    .al0 = 15.74373327,
    .al1 = -34.17061978,
    .al2 = 19.31380707,
    .al2t2 = 38.62761414,
};

// Products stored by each equation, to the digits given: <coefficient>t<factor>. The multiples of b00 stand
// twice: rounded to ten digits for the enthalpy, at full length for the entropy. Each equation keeps its own.
namespace enthalpy_products {
inline constexpr double bb04t2 = -1.3095423394;
inline constexpr double bb05t3 = 0.25695546174;
inline constexpr double b00t2 = 1.526666667;
inline constexpr double b00t3 = 2.29;
inline constexpr double b00t4 = 3.053333333;
inline constexpr double b00t5 = 3.816666667;
inline constexpr double b00t6 = 4.58;
} // namespace enthalpy_products

namespace entropy_products {
inline constexpr double bb03t2 = 0.8661325668;
inline constexpr double bb04t3 = -1.9643135091;
inline constexpr double bb05t4 = 0.34260728232;
inline constexpr double bb1113 = 0.86714886934; // 13 bb11
inline constexpr double bb12t3 = 4.166951403;
inline constexpr double bb2118 = 1.510218779; // 18 bb21 is 1.51021877904; stored to ten digits
inline constexpr double bb22t2 = 0.05229341786;
inline constexpr double bb3118 = 8.1376540272;  // 18 bb31
inline constexpr double bb3210 = 1.069036614;   // 10 bb32
inline constexpr double bb4125 = -14.938341767; // 25 bb41 is -14.9383417675
inline constexpr double bb4214 = -1.2386550125; // 14 bb42 is -1.23865501256
inline constexpr double bb5132 = 19.065765148;  // 32 bb51 is 19.0657651488
inline constexpr double bb5228 = -14.446049444; // 28 bb52 is -14.4460494444
inline constexpr double bb5324 = 4.9800506928;  // 24 bb53
inline constexpr double b00t2 = 1.5266666666;
inline constexpr double b00t3 = 2.2899999999;
inline constexpr double b00t4 = 3.0533333332;
inline constexpr double b00t5 = 3.8166666665;
inline constexpr double b00t6 = 4.5799999998;
} // namespace entropy_products

} // namespace ktl::region2
