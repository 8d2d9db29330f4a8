// Sub-region 3: coefficients c and d of the formulation, and products of them.
#pragma once

namespace ktl::region3 {

/// Record ktl_t3, 68 values in the order of the published table.
struct Coefficients {
    double c00, c01, c02, c03, c04, c05, c06, c07, c08, c09, c010, c011, c012;
    double c11, c12, c13, c14, c15, c16, c17;
    double c21, c22, c23, c24, c25, c26, c27, c28;
    double c31, c32, c33, c34, c35, c36, c37, c38, c39, c310;
    double c40, c41, c50;
    double c60, c61, c62, c63, c64;
    double c70, c71, c72, c73, c74, c75, c76, c77, c78;
    double d30, d31, d32, d33, d34;
    double d40, d41, d42, d43, d44;
    double d50, d51, d52;
};
static_assert(sizeof(Coefficients) == 68 * sizeof(double));

inline constexpr Coefficients ktl_t3{
    .c00 = -6.8399,
    .c01 = -0.017226042,
    .c02 = -7.77175039,
    .c03 = 4.20460752,
    .c04 = -2.76807038,
    .c05 = 2.10419707,
    .c06 = -1.14649588,
    .c07 = 0.223138085,
    .c08 = 0.116250363,
    .c09 = -0.0820900544,
    .c010 = 0.0194129239,
    .c011 = -0.00169470576,
    .c012 = -4.311577033,

    .c11 = 0.708636085,
    .c12 = 12.3679455,
    .c13 = -12.0389004,
    .c14 = 5.40437422,
    .c15 = -0.993865043,
    .c16 = 0.0627523182,
    .c17 = -7.74743016,

    .c21 = -4.29885092,
    .c22 = 43.1430538,
    .c23 = -14.1619313,
    .c24 = 4.04172459,
    .c25 = 1.55546326,
    .c26 = -1.66568935,
    .c27 = 0.324881158,
    .c28 = 29.3655325,

    .c31 = 7.94841842e-06,
    .c32 = 80.8859747,
    .c33 = -83.615338,
    .c34 = 35.8636517,
    .c35 = 7.51895954,
    .c36 = -12.616064,
    .c37 = 1.09717462,
    .c38 = 2.12145492,
    .c39 = -0.546529566,
    .c310 = 8.32875413,

    .c40 = 2.75971776e-06,
    .c41 = -0.000509073985,

    .c50 = 210.636332,

    .c60 = 0.05528935335,
    .c61 = -0.2336365955,
    .c62 = 0.369707142,
    .c63 = -0.259641547,
    .c64 = 0.06828087013,

    .c70 = -257.1600553,
    .c71 = -151.8783715,
    .c72 = 22.20723208,
    .c73 = -180.203957,
    .c74 = 2357.09622,
    .c75 = -14623.35698,
    .c76 = 45429.1663,
    .c77 = -70535.56432,
    .c78 = 43815.71428,

    .d30 = -1.717616747,
    .d31 = 3.526389875,
    .d32 = -2.690899373,
    .d33 = 0.9070982605,
    .d34 = -0.1138791156,

    .d40 = 1.301023613,
    .d41 = -2.642777743,
    .d42 = 1.996765362,
    .d43 = -0.6661557013,
    .d44 = 0.08270860589,

    .d50 = 0.0003426663535,
    .d51 = -0.001236521258,
    .d52 = 0.001155018309,
};

// Stored products: <coefficient>t<factor>.
inline constexpr double c03t2 = 8.40921504;
inline constexpr double c04t3 = -8.30421114;
inline constexpr double c05t4 = 8.41678828;
inline constexpr double c06t5 = -5.7324794;
inline constexpr double c07t6 = 1.33882851;
inline constexpr double c08t7 = 0.813752541;
inline constexpr double c09t8 = -0.6567204352;
inline constexpr double c010t9 = 0.1747163151;
inline constexpr double c01110 = -0.0169470576; // 10 c011

inline constexpr double c13t2 = -24.0778008;
inline constexpr double c14t3 = 16.21312266;
inline constexpr double c15t4 = -3.975460172;
inline constexpr double c16t5 = 0.313761591;

inline constexpr double c23t2 = -28.3238626;
inline constexpr double c24t3 = 12.12517377;
inline constexpr double c25t4 = 6.22185304;
inline constexpr double c26t5 = -8.32844675;
inline constexpr double c27t6 = 1.949286948;

inline constexpr double c33t2 = -167.230676;
inline constexpr double c34t3 = 107.5909551;
inline constexpr double c35t4 = 30.07583816;
inline constexpr double c36t5 = -63.08032;
inline constexpr double c37t6 = 6.58304772;
inline constexpr double c38t7 = 14.85018444;
inline constexpr double c39t8 = -4.372236528;

inline constexpr double c41t5 = -0.002545369925;

inline constexpr double d32t2 = -5.381798746;
inline constexpr double d33t3 = 2.7212947815;
inline constexpr double d34t4 = -0.4555164624;
inline constexpr double d42t2 = 3.993530724;
inline constexpr double d43t3 = -1.9984671039;
inline constexpr double d44t4 = 0.33083442356;
inline constexpr double d52t2 = 0.002310036618;

} // namespace ktl::region3
