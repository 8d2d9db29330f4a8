// Sub-region 1: coefficients A0..A22, a1..a12 of the formulation, and products of them.
#pragma once

namespace ktl::region1 {

/// Record ktl_t1, 35 values in the order of the published table.
struct Coefficients {
    double aa0, aa1, aa2, aa3, aa4, aa5, aa6, aa7, aa8, aa9;
    double aa10, aa11, aa12, aa13, aa14, aa15, aa16, aa17, aa18, aa19;
    double aa20, aa21, aa22;
    double a1, a2, a3, a4, a5, a6, a7, a8, a9, a10, a11, a12;
};
static_assert(sizeof(Coefficients) == 35 * sizeof(double));

inline constexpr Coefficients ktl_t1{
    .aa0 = 6824.687741,
    .aa1 = -542.2063673,
    .aa2 = -20966.66205,
    .aa3 = 39412.86787,
    .aa4 = -67332.77739,
    .aa5 = 99023.81028,
    .aa6 = -109391.1774,
    .aa7 = 85908.41667,
    .aa8 = -45111.68742,
    .aa9 = 14181.38926,

    .aa10 = -2017.271113,
    .aa11 = 7.982692717,
    .aa12 = -0.02616571843,
    .aa13 = 0.00152241179,
    .aa14 = 0.02284279054,
    .aa15 = 242.1647003,
    .aa16 = 1.269716088e-10,
    .aa17 = 2.074838328e-07,
    .aa18 = 2.17402035e-08,
    .aa19 = 1.105710498e-09,

    .aa20 = 12.93441934,
    .aa21 = 1.308119072e-05,
    .aa22 = 6.047626338e-14,

    .a1 = 0.8438375405,
    .a2 = 0.0005362162162,
    .a3 = 1.72,
    .a4 = 0.07342278489,
    .a5 = 0.0497585887,
    .a6 = 0.65371543,
    .a7 = 1.15e-06,
    .a8 = 1.5108e-05,
    .a9 = 0.14188,
    .a10 = 7.002753165,
    .a11 = 0.0002995284926,
    .a12 = 0.204,
};

// Products stored by each equation, to the digits given: <coefficient>t<factor>.
namespace volume_products {
inline constexpr double aa18t2 = 4.3480407e-08;
inline constexpr double aa19t3 = 3.317131494e-09;
inline constexpr double aa21t3 = 3.924357216e-05;
inline constexpr double aa22t4 = 2.4190505352e-13;
} // namespace volume_products

namespace enthalpy_products {
inline constexpr double aa4t2 = -134665.55478;
inline constexpr double aa5t3 = 297071.43084;
inline constexpr double aa6t4 = -437564.7096;
inline constexpr double aa7t5 = 429542.08335;
inline constexpr double aa8t6 = -270670.12452;
inline constexpr double aa9t7 = 99269.72482;
inline constexpr double aa10t8 = -16138.168904;
inline constexpr double a3m1 = 0.72; // a3 - 1
inline constexpr double a9t17 = 2.41196;
inline constexpr double aa2221 = 1.2700015309e-12; // 21 aa22
} // namespace enthalpy_products

namespace entropy_products {
inline constexpr double aa3t2 = 78825.73574;
inline constexpr double aa4t3 = -201998.33217;
inline constexpr double aa5t4 = 396095.24112;
inline constexpr double aa6t5 = -546955.887;
inline constexpr double aa7t6 = 515450.50002;
inline constexpr double aa8t7 = -315781.81194;
inline constexpr double aa9t8 = 113451.11408;
inline constexpr double aa10t9 = -18155.4400172; // 9 aa10 is -18155.440017; stored one digit longer
inline constexpr double aa14t2 = 0.04568558108;
inline constexpr double aa1510 = 2421.647003;      // 10 aa15
inline constexpr double aa1619 = 2.4124605672e-09; // 19 aa16
inline constexpr double aa2220 = 1.2095252676e-12; // 20 aa22
inline constexpr double a3m1 = 0.72;               // a3 - 1
inline constexpr double a9t18 = 2.55384;
} // namespace entropy_products

namespace heat_capacity_products {
inline constexpr double a1t2 = 1.687675081;
inline constexpr double a2t6 = 0.0032172972972;
inline constexpr double a2t42 = 0.0225210810804;
inline constexpr double a4t2 = 0.14684556978;
inline constexpr double a5t2 = 0.0995171774;
inline constexpr double aa3t2 = 78825.73574;
inline constexpr double aa4t6 = -403996.66434;
inline constexpr double aa5t12 = 1188285.72336;
inline constexpr double aa6t20 = -2187823.548;
inline constexpr double aa7t30 = 2577252.5001;
inline constexpr double aa8t42 = -1894690.87164;
inline constexpr double aa9t56 = 794157.79856;
inline constexpr double aa1072 = -145243.520136; // 72 aa10
inline constexpr double a9t306 = 43.41528;
} // namespace heat_capacity_products

} // namespace ktl::region1
