// Written by tools/first_guesses/fit_guesses.cpp; run it again rather than edit. The notes give the greatest and the
// root-mean-square error, in the unit of the result.
// clang-format off
#pragma once

#include "engine/guesses/guess_form.hpp"

namespace ktl::engine::guesses {

/// Stands where nothing is fitted.
struct None {};

template <Pair pair, Border line>
inline constexpr None border{};
template <Pair pair, GuessPatch where, Unknown unknown>
inline constexpr None surface{};

inline constexpr Curve<5> near_saturation_curve{Scale::linear, Scale::linear, {362.05, 0.082987551867}, {191.42167542, 27.757728642, 1.7825513796, 0.10064951355, 0.005017961708}}; // error 0.00043, rms 0.00023
inline constexpr Curve<5> isochore_curve{Scale::linear, Scale::linear, {482.075, 0.0092656937688}, {519.30697156, 302.47926047, 1.2209870087, -3.1298654123, 0.020639627005}}; // error 0.0008, rms 0.00054
inline constexpr Curve<12> liquid_volume_curve{Scale::below_critical_t, Scale::log, {0.10097188407, 10.847983495}, {-6.1656186466, -0.21855165123, 0.046919395323, -0.041708276906, 0.012660650348, 0.042994263321, 0.048653853234, -0.13521045274, -0.058149656877, 0.14631895896, 0.029037223508, -0.060768425838}}; // error 1.5e-07, rms 6.3e-08
inline constexpr Curve<12> vapour_volume_curve{Scale::below_critical_t, Scale::log, {0.10097188407, 10.847983495}, {-5.2014899058, 0.45010949429, 0.0013641812648, 0.0031249824705, -0.061914297421, 0.19272961495, 0.17195457807, -0.48695759067, -0.25228834478, 0.56586505613, 0.12461208985, -0.24043062177}}; // error 1.8e-06, rms 5.7e-07
inline constexpr Curve<6> least_volume_curve{Scale::linear, Scale::linear, {500.00305622, 0.002000012225}, {0.00097525848299, -2.4864207548e-05, -4.8923235075e-07, 2.8443584847e-07, 6.8019114392e-07, 2.0730873489e-07}}; // error 1.8e-09, rms 1.2e-09
inline constexpr Curve<14> least_energy_curve{Scale::linear, Scale::linear, {1.8899431845, 0.52907321315}, {652.18296012, 808.6877066, 176.74103173, 18.499194815, -4.7344228995, -5.0459147375, -0.38869956037, 3.3775877823, -5.4898247427, -10.051253766, 5.2624375914, 9.1573536432, -2.6310251984, -3.6405322775}}; // error 0.00052, rms 0.00033
inline constexpr Curve<2> tie_curve{Scale::linear, Scale::linear, {0.5, 2}, {4.498848037, 0.71880727216}}; // error 4.5e-13, rms 4.5e-13
inline constexpr Curve<13> wet_water_entropy_curve{Scale::linear, Scale::linear, {175.005, 0.0057147755522}, {2.0907175908, 1.7085221258, -0.22212005055, 0.13679561376, 0.023254568406, 0.0048718692718, -0.11360842499, 0.086918280909, 0.2647476421, -0.10550574986, -0.24815317302, 0.0582482793, 0.095196553223}}; // error 3e-05, rms 2.1e-05
inline constexpr Curve<13> wet_steam_entropy_curve{Scale::linear, Scale::linear, {175.005, 0.0057147755522}, {6.6221904645, -1.4197868814, 0.46030394602, -0.40638690168, 0.28411102246, -0.11501674743, -0.72119588221, -0.02244945392, 1.338184793, 0.058652737517, -1.1349965506, -0.064879306424, 0.33889512493}}; // error 0.00017, rms 0.00012
inline constexpr Curve<13> wet_turning_quality_curve{Scale::linear, Scale::linear, {175.005, 0.0057147755522}, {0.54655459846, 0.097899966475, -0.14076965985, 0.073356151496, 0.38839855658, -0.66557239669, -1.9108811772, 1.679276071, 4.134705196, -1.8436440728, -4.0712465088, 0.71573133089, 1.4764107653}}; // error 0.0004, rms 0.00028
inline constexpr Curve<13> near_water_entropy_curve{Scale::below_critical_t, Scale::linear, {0.10416883012, 11.242765108}, {4.0426727888, -0.24622408011, 0.010167028398, -0.029056058949, 0.014941039185, -0.011926640419, -0.04694385914, 0.019890216741, 0.11679194708, -0.031903443886, -0.11792856381, 0.014670913526, 0.045096112243}}; // error 1.4e-05, rms 8e-06
inline constexpr Curve<13> near_steam_entropy_curve{Scale::below_critical_t, Scale::linear, {0.10416883012, 11.242765108}, {4.9047344089, 0.32488273428, -0.02625970127, 0.018380740462, 4.4936037721e-05, 0.015446328277, -0.044046939928, -0.030680839443, 0.089367802918, 0.039134658619, -0.090647510226, -0.017653461023, 0.034833297852}}; // error 1.7e-05, rms 8e-06
inline constexpr Curve<13> near_turning_quality_curve{Scale::below_critical_t, Scale::linear, {0.10416883012, 11.242765108}, {0.43132789044, 0.018055896923, 0.031584435997, -0.020460529996, 0.19886224373, 0.19413134246, -0.97161937748, -0.59789330224, 2.1645931251, 0.73957360647, -2.1755355678, -0.33032464124, 0.816728077}}; // error 0.00037, rms 0.00018
inline constexpr Curve<12> dip_entropy_curve{Scale::linear, Scale::linear, {0.46657063628, 9.9171438189}, {4.1254871459, 0.64991339706, -0.11633439593, 0.0015584776766, -0.00067053707224, 0.019872708925, -0.016255200422, -0.053870179016, 0.019584958424, 0.058805869006, -0.01064561941, -0.024343110166}}; // error 2.8e-05, rms 1.3e-05
template <>
inline constexpr Curve<9> border<Pair::ph, Border::liquid>{Scale::fourth_root, Scale::linear, {1.9327705643, 0.60490216157}, {829.2671385, 714.25336163, 26.707836842, 90.322036699, -30.335426078, -33.624514806, 42.41324691, 64.748787524, -32.077631172}}; // error 0.27, rms 0.19
template <>
inline constexpr Curve<9> border<Pair::ps, Border::liquid>{Scale::fourth_root, Scale::linear, {1.9327705643, 0.60490216157}, {2.281381115, 1.5117498259, -0.19704927495, 0.27442162089, -0.25300405167, -0.13990500156, 0.30405184162, 0.24256447334, -0.24534664511}}; // error 0.0012, rms 0.00082
template <>
inline constexpr Curve<9> border<Pair::pu, Border::liquid>{Scale::fourth_root, Scale::linear, {1.9327705643, 0.60490216157}, {827.65456482, 708.54083133, 18.722865976, 83.083446818, -35.342032592, -32.034162831, 45.86998572, 61.722000099, -35.325353511}}; // error 0.27, rms 0.18
template <>
inline constexpr Curve<10> border<Pair::ph, Border::vapour>{Scale::fourth_root, Scale::linear, {1.9327705643, 0.60490216157}, {2787.5739117, 106.70860968, -173.85375475, -41.945688678, -75.783394552, -51.425254668, 63.50438878, 60.188285649, -66.844122702, -40.627517272}}; // error 0.16, rms 0.091
template <>
inline constexpr Curve<10> border<Pair::ps, Border::vapour>{Scale::fourth_root, Scale::linear, {1.9327705643, 0.60490216157}, {6.4669079682, -1.2223573897, 0.31847144251, -0.20075505772, 0.38588400234, -0.91843952016, -0.43388490337, 1.1384153587, 0.448828881, -0.76674959556}}; // error 0.0014, rms 0.00094
template <>
inline constexpr Curve<10> border<Pair::pu, Border::vapour>{Scale::fourth_root, Scale::linear, {1.9327705643, 0.60490216157}, {2590.6009664, 82.158814853, -126.27650528, -28.616239822, -65.672460605, -54.532240308, 57.755894291, 67.11395112, -57.53816119, -42.929699014}}; // error 0.12, rms 0.083
template <>
inline constexpr Curve<7> border<Pair::ph, Border::near_liquid>{Scale::below_critical_p, Scale::linear, {0.26348874188, 4.1843461704}, {1858.8488118, -168.92443608, 6.6158582955, -18.536137069, -5.4733095224, -12.060337657, 11.321150384}}; // error 0.23, rms 0.1
template <>
inline constexpr Curve<7> border<Pair::ps, Border::near_liquid>{Scale::below_critical_p, Scale::linear, {0.26348874188, 4.1843461704}, {4.0635581775, -0.25419982002, 0.011218168603, -0.030035869668, -0.0089135583538, -0.01893746248, 0.017439591803}}; // error 0.00035, rms 0.00016
template <>
inline constexpr Curve<7> border<Pair::pu, Border::near_liquid>{Scale::below_critical_p, Scale::linear, {0.26348874188, 4.1843461704}, {1815.1695892, -153.33080922, 4.9323399428, -17.329895912, -5.816139334, -10.475711274, 9.8075321236}}; // error 0.2, rms 0.089
template <>
inline constexpr Curve<7> border<Pair::ph, Border::near_vapour>{Scale::below_critical_p, Scale::linear, {0.26348874188, 4.1843461704}, {2380.103259, 198.99795652, -14.364072715, 21.434271274, -33.356067095, -3.8500565439, 19.356075553}}; // error 0.8, rms 0.36
template <>
inline constexpr Curve<7> border<Pair::ps, Border::near_vapour>{Scale::below_critical_p, Scale::linear, {0.26348874188, 4.1843461704}, {4.8763227679, 0.33377170538, -0.0037615534606, 0.038114970808, -0.050300351798, -0.0055075491655, 0.029974525138}}; // error 0.0012, rms 0.00055
template <>
inline constexpr Curve<7> border<Pair::pu, Border::near_vapour>{Scale::below_critical_p, Scale::linear, {0.26348874188, 4.1843461704}, {2269.1436931, 165.21070211, -14.167959588, 18.287225335, -29.804295216, -2.8481966142, 16.923017069}}; // error 0.69, rms 0.31
template <>
inline constexpr Curve<5> border<Pair::ph, Border::isotherm>{Scale::log, Scale::linear, {6.0079136106, 1.1113066167}, {1588.8412873, -56.23666471, 14.855250929, -4.1226472673, 7.5742314147}}; // error 0.31, rms 0.21
template <>
inline constexpr Curve<5> border<Pair::ps, Border::isotherm>{Scale::log, Scale::linear, {6.0079136106, 1.1113066167}, {3.5855294379, -0.17740409287, -0.0098476584993, -0.015973202922, 0.010460862349}}; // error 0.00052, rms 0.00035
template <>
inline constexpr Curve<5> border<Pair::pu, Border::isotherm>{Scale::log, Scale::linear, {6.0079136106, 1.1113066167}, {1528.4027052, -102.89100562, -3.6863590107, -8.8168101912, 6.420500221}}; // error 0.31, rms 0.21
template <>
inline constexpr Curve<10> border<Pair::ph, Border::boundary>{Scale::log, Scale::linear, {6.0079136115, 1.1113066174}, {2611.1302618, 24.342960739, 184.31699972, 52.464511569, -182.53893537, 154.97601362, 180.40555137, -276.49300602, -105.84222352, 163.89680239}}; // error 0.63, rms 0.3
template <>
inline constexpr Curve<10> border<Pair::ps, Border::boundary>{Scale::log, Scale::linear, {6.0079136115, 1.1113066174}, {5.0787384278, -0.16799617131, 0.24552122305, 0.010225690378, -0.2816655888, 0.29610937337, 0.28547998656, -0.47614513155, -0.17263619714, 0.27455526845}}; // error 0.001, rms 0.00049
template <>
inline constexpr Curve<10> border<Pair::pu, Border::boundary>{Scale::log, Scale::linear, {6.0079136115, 1.1113066174}, {2446.2482715, -10.306599815, 120.92493977, 42.285693703, -139.31518355, 124.08164297, 143.12151744, -229.69595233, -85.363610656, 136.56306471}}; // error 0.53, rms 0.25
template <>
inline constexpr Curve<3> border<Pair::ph, Border::s_critical>{Scale::linear, Scale::linear, {536.95362086, 0.0031670262326}, {2187.3966215, 70.898019447, -8.0933299045}}; // error 0.94, rms 0.63
template <>
inline constexpr Curve<3> border<Pair::ps, Border::s_critical>{Scale::linear, Scale::linear, {536.95362086, 0.0031670262326}, {4.443, -5.5533879121e-15, -3.185178671e-15}}; // error 4.5e-13, rms 4.4e-13
template <>
inline constexpr Curve<3> border<Pair::pu, Border::s_critical>{Scale::linear, Scale::linear, {536.95362086, 0.0031670262326}, {2070.7261343, 23.560326397, -8.5287376666}}; // error 1.3, rms 0.87
template <>
inline constexpr Curve<5> border<Pair::ph, Border::s_5_85>{Scale::log, Scale::linear, {5.5438091925, 0.73316680909}, {3083.7964323, 353.34230443, 59.307164314, 14.965883419, 4.3468609442}}; // error 0.056, rms 0.038
template <>
inline constexpr Curve<5> border<Pair::ps, Border::s_5_85>{Scale::log, Scale::linear, {5.5438091925, 0.73316680909}, {5.85, 4.6407492961e-15, 2.2076094966e-15, -1.6648620967e-14, -1.9663981295e-14}}; // error 6.3e-13, rms 5.8e-13
template <>
inline constexpr Curve<5> border<Pair::pu, Border::s_5_85>{Scale::log, Scale::linear, {5.5438091925, 0.73316680909}, {2824.4904252, 266.36628018, 29.283721224, 2.1545966223, 0.58944885189}}; // error 0.18, rms 0.12
template <>
inline constexpr Curve<14> border<Pair::hs, Border::liquid>{Scale::linear, Scale::linear, {1.8900203824, 0.52909482316}, {652.80834847, 811.68836025, 183.52109142, 27.199944899, 2.3389968564, -1.4007362394, -1.1172390313, 0.8846524334, -2.4178347327, -5.3631330036, 1.502686196, 4.534570492, -0.66349902329, -1.5720071637}}; // error 0.00031, rms 0.00018
template <>
inline constexpr Curve<14> border<Pair::us, Border::liquid>{Scale::linear, Scale::linear, {1.8900203824, 0.52909482316}, {652.21626157, 808.67290975, 176.71635911, 18.421447386, -4.4392182964, -4.1542087086, -1.6951489278, 0.25045952957, -1.8563264531, -3.5501586532, 1.2974125741, 3.107206412, -0.66201413618, -1.1705164331}}; // error 0.0002, rms 0.00012
template <>
inline constexpr Curve<9> border<Pair::hs, Border::vapour>{Scale::linear, Scale::linear, {7.1875580461, 0.50763927641}, {2697.8283553, -264.47171824, 48.458612639, 136.89075527, -301.08085005, 204.55081399, 79.755201914, -110.33813793, 9.6521396372}}; // error 0.33, rms 0.23
template <>
inline constexpr Curve<9> border<Pair::us, Border::vapour>{Scale::linear, Scale::linear, {7.1875580461, 0.50763927641}, {2522.8249064, -198.0521148, 37.758598749, 94.341823206, -219.22983343, 161.65513077, 49.336102946, -81.514112471, 8.1678787835}}; // error 0.27, rms 0.19
template <>
inline constexpr Curve<6> border<Pair::hs, Border::near_liquid>{Scale::linear, Scale::linear, {4.1121847737, 3.011592091}, {1891.108803, 220.10521028, -2.2424405058, -2.2804425243, 1.1722238785, 0.41323704948}}; // error 0.017, rms 0.012
template <>
inline constexpr Curve<6> border<Pair::us, Border::near_liquid>{Scale::linear, Scale::linear, {4.1121847737, 3.011592091}, {1844.4393352, 199.27668646, -4.1789417286, -2.2674025165, 0.24038648999, 0.50539197582}}; // error 0.012, rms 0.0079
template <>
inline constexpr Curve<6> border<Pair::hs, Border::near_vapour>{Scale::linear, Scale::linear, {4.8273068701, 2.561785544}, {2350.6174359, 236.99055277, -15.195365877, -5.2221002553, 0.21408788696, 0.30963098357}}; // error 0.011, rms 0.0063
template <>
inline constexpr Curve<6> border<Pair::us, Border::near_vapour>{Scale::linear, Scale::linear, {4.8273068701, 2.561785544}, {2244.6301143, 197.72829885, -16.512907518, -3.8842473944, -0.067778335959, 0.30499778443}}; // error 0.011, rms 0.0058
template <>
inline constexpr Curve<5> border<Pair::hs, Border::isotherm>{Scale::linear, Scale::linear, {3.5861443364, 5.1573925763}, {1588.936991, 62.189994699, 22.436846093, -1.5208010803, -0.10207308235}}; // error 0.0029, rms 0.0019
template <>
inline constexpr Curve<5> border<Pair::us, Border::isotherm>{Scale::linear, Scale::linear, {3.5861443364, 5.1573925763}, {1528.7535569, 112.50587461, 2.4477866491, -0.48870825196, -0.063490750435}}; // error 0.00075, rms 0.00051
template <>
inline constexpr Curve<8> border<Pair::hs, Border::boundary>{Scale::linear, Scale::linear, {-405.80265399, 0.006363786817}, {5.0519600982, -0.090705131429, 0.31813650727, -0.11074088713, -0.20601735239, 0.062000866359, -0.006721993087, 0.076345274089}}; // error 0.0029, rms 0.0019
template <>
inline constexpr Curve<8> border<Pair::us, Border::boundary>{Scale::linear, Scale::linear, {-607.5673025, 0.0099138689986}, {5.0947662552, -0.23074330968, 0.12848143376, 0.4363973976, 0.047426941153, -0.65376408095, -0.10921402568, 0.38186652207}}; // error 0.01, rms 0.0024
template <>
inline constexpr Curve<4> border<Pair::hs, Border::p_40_bar>{Scale::linear, Scale::linear, {6.959001219, 1.1229738131}, {3346.1503167, 649.41957569, 124.3188774, 20.423221979}}; // error 0.29, rms 0.19
template <>
inline constexpr Curve<4> border<Pair::us, Border::p_40_bar>{Scale::linear, Scale::linear, {6.959001219, 1.1229738131}, {3022.9939769, 503.14682067, 102.25824138, 20.488715648}}; // error 0.28, rms 0.19
template <>
inline constexpr Curve<2> border<Pair::hs, Border::tie_line_350C>{Scale::linear, Scale::linear, {4.498848037, 1.3911934933}, {2119.7976408, 447.85374864}}; // error 2.1e-10, rms 2.1e-10
template <>
inline constexpr Curve<2> border<Pair::us, Border::tie_line_350C>{Scale::linear, Scale::linear, {4.498848037, 1.3911934933}, {2032.6556795, 389.50140978}}; // error 2e-10, rms 2e-10
template <>
inline constexpr Curve<11> border<Pair::pv, Border::liquid>{Scale::fourth_root, Scale::linear, {1.9327705643, 0.60490216157}, {0.0011485955294, 0.00023962214153, 0.00012832942566, 6.2303609844e-05, -1.4881876905e-05, 7.3934794285e-05, 0.00023098298563, -6.7554608011e-05, -0.00027664937788, 6.1993397851e-05, 0.00015429126212}}; // error 1.5e-07, rms 8.7e-08
template <>
inline constexpr Curve<10> border<Pair::pv, Border::vapour>{Scale::log, Scale::log, {0.0053216782799, 0.19597274966}, {0.5208582941, -4.793726985, 0.052888919542, 0.22365721532, -0.41454434224, -1.2755554846, 0.66349496808, 1.8171426214, -0.52250973115, -1.0023441856}}; // error 0.48, rms 0.052
template <>
inline constexpr Curve<7> border<Pair::pv, Border::near_liquid>{Scale::below_critical_p, Scale::linear, {0.26348874188, 4.1843461704}, {0.0021220415738, -0.00047044699781, 0.00014697407465, -6.8482619379e-05, 1.9183775167e-05, -7.375733641e-05, 6.6646905162e-05}}; // error 1.5e-06, rms 6.9e-07
template <>
inline constexpr Curve<9> border<Pair::pv, Border::near_vapour>{Scale::below_critical_p, Scale::linear, {0.26348874188, 4.1843461704}, {0.0053938537289, 0.0023884644225, 0.00055206397409, 0.00024645466999, 0.00031134457926, 0.00023932672696, -0.00045213872605, -0.00014220356359, 0.0002638905045}}; // error 2.3e-06, rms 1.1e-06
template <>
inline constexpr Curve<5> border<Pair::pv, Border::isotherm>{Scale::log, Scale::linear, {6.0079136106, 1.1113066167}, {0.0014867849138, -0.00018615483631, 1.9598816862e-05, -2.5960004889e-05, 2.1563719935e-05}}; // error 1.1e-06, rms 7.1e-07
template <>
inline constexpr Curve<10> border<Pair::pv, Border::boundary>{Scale::log, Scale::linear, {6.0079136115, 1.1113066174}, {0.0040532054131, -0.0027758659744, 0.0025146219072, -0.0016023797234, -0.0013001105207, 0.0028745262232, 0.0016177244974, -0.0035916982022, -0.0011896369032, 0.0019852903908}}; // error 6.8e-06, rms 3.2e-06
template <>
inline constexpr Curve<4> border<Pair::pv, Border::s_critical>{Scale::linear, Scale::linear, {536.95362086, 0.0031670262326}, {0.0021549927617, -0.00032261623189, 0.00036564940997, -0.00030043174092}}; // error 2.7e-05, rms 1.8e-05
template <>
inline constexpr Curve<5> border<Pair::pv, Border::s_5_85>{Scale::log, Scale::log, {5.5438091925, 0.73316680909}, {-4.5912186841, -1.0275255745, 0.061536602329, 0.018518726511, -0.00073779189638}}; // error 1.7e-05, rms 5.6e-06
template <>
inline constexpr Curve<12> border<Pair::th, Border::liquid>{Scale::linear, Scale::linear, {175.005, 0.0057144489843}, {741.07639205, 769.66954625, 58.927300958, 45.777469426, 9.7130368822, -20.728504785, 41.509909349, 96.776875036, -43.977378598, -106.2476184, 28.689720978, 50.722259361}}; // error 0.035, rms 0.02
template <>
inline constexpr Curve<12> border<Pair::ts, Border::liquid>{Scale::linear, Scale::linear, {175.005, 0.0057144489843}, {2.0906717619, 1.7083838697, -0.21883918496, 0.14164553758, -0.015409020278, -0.022649516308, 0.051778366592, 0.15080243572, -0.055016585716, -0.17020567926, 0.036783976262, 0.082041342355}}; // error 5.3e-05, rms 3.1e-05
template <>
inline constexpr Curve<12> border<Pair::tu, Border::liquid>{Scale::linear, Scale::linear, {175.005, 0.0057144489843}, {740.07763681, 765.36408734, 51.129888076, 38.107849815, 7.2195633489, -18.337726407, 36.38032458, 86.01939395, -38.056131727, -94.715514547, 24.796016784, 45.137590149}}; // error 0.031, rms 0.018
template <>
inline constexpr Curve<12> border<Pair::th, Border::vapour>{Scale::linear, Scale::linear, {175.005, 0.0057144489843}, {2771.8304406, 160.44917429, -180.18087991, -68.722821956, 3.64505924, -94.83301724, -125.15636283, 129.01684301, 155.76945981, -103.33027545, -91.478674072, 10.432098617}}; // error 0.21, rms 0.062
template <>
inline constexpr Curve<12> border<Pair::ts, Border::vapour>{Scale::linear, Scale::linear, {175.005, 0.0057144489843}, {6.6220751617, -1.4218014813, 0.46970143101, -0.36805481703, 0.16594974386, -0.32888497524, -0.18679203321, 0.46421107394, 0.26174389236, -0.42640255501, -0.14533719332, 0.11103275448}}; // error 0.00022, rms 0.00015
template <>
inline constexpr Curve<12> border<Pair::tu, Border::vapour>{Scale::linear, Scale::linear, {175.005, 0.0057144489843}, {2578.5736492, 122.09290044, -131.44158368, -52.723787214, 1.7368573732, -53.404045053, -106.37590305, 37.442655684, 136.40716311, -6.9144261698, -80.16182464, -23.257203447}}; // error 0.18, rms 0.043
template <>
inline constexpr Curve<7> border<Pair::th, Border::near_liquid>{Scale::below_critical_t, Scale::linear, {0.10097188407, 10.847983495}, {1850.7551286, -170.86812048, 11.914014687, -16.575933526, -4.1509692576, -12.03926992, 12.82058132}}; // error 0.24, rms 0.11
template <>
inline constexpr Curve<7> border<Pair::ts, Border::near_liquid>{Scale::below_critical_t, Scale::linear, {0.10097188407, 10.847983495}, {4.0513821624, -0.25702589941, 0.018873262894, -0.027346015854, -0.0067503702328, -0.018743337273, 0.019837939539}}; // error 0.00037, rms 0.00017
template <>
inline constexpr Curve<7> border<Pair::tu, Border::near_liquid>{Scale::below_critical_t, Scale::linear, {0.10097188407, 10.847983495}, {1807.8200408, -155.19352721, 9.6458565506, -15.695392979, -4.4849985463, -10.215403853, 11.134949806}}; // error 0.2, rms 0.093
template <>
inline constexpr Curve<7> border<Pair::th, Border::near_vapour>{Scale::below_critical_t, Scale::linear, {0.10097188407, 10.847983495}, {2389.6542278, 199.49023367, -22.12067251, 20.147768974, -36.100201896, -2.9979894469, 20.303591277}}; // error 0.86, rms 0.39
template <>
inline constexpr Curve<7> border<Pair::ts, Border::near_vapour>{Scale::below_critical_t, Scale::linear, {0.10097188407, 10.847983495}, {4.8923884222, 0.33670057409, -0.015909176119, 0.03431328479, -0.055571810059, -0.0045451504441, 0.03132444413}}; // error 0.0013, rms 0.0006
template <>
inline constexpr Curve<7> border<Pair::tu, Border::near_vapour>{Scale::below_critical_t, Scale::linear, {0.10097188407, 10.847983495}, {2277.0664317, 165.36412375, -20.592401654, 17.340396744, -32.070127349, -2.004595792, 17.688644172}}; // error 0.74, rms 0.33
template <>
inline constexpr Curve<10> border<Pair::th, Border::boundary>{Scale::linear, Scale::linear, {470, 0.0083333333333}, {2613.9453078, 54.766293157, 217.82556113, -10.731096573, -241.02260924, 186.37500048, 187.82692983, -231.72690847, -91.350009727, 120.53617375}}; // error 0.35, rms 0.17
template <>
inline constexpr Curve<10> border<Pair::ts, Border::boundary>{Scale::linear, Scale::linear, {470, 0.0083333333333}, {5.0669319155, -0.14216711959, 0.30439149851, -0.071152272429, -0.33572682054, 0.33612738353, 0.25482399976, -0.38266583258, -0.13537743242, 0.19665857401}}; // error 0.00059, rms 0.00028
template <>
inline constexpr Curve<10> border<Pair::tu, Border::boundary>{Scale::linear, Scale::linear, {470, 0.0083333333333}, {2446.042916, 7.7329934804, 149.36286508, 3.9154252957, -187.96273296, 136.34335683, 153.87166033, -183.78219551, -75.902053707, 98.745447267}}; // error 0.3, rms 0.14
template <>
inline constexpr Curve<3> border<Pair::th, Border::s_critical>{Scale::linear, Scale::linear, {427.075, 0.018894662258}, {2164.0492188, 71.486556717, 15.254262838}}; // error 0.36, rms 0.22
template <>
inline constexpr Curve<3> border<Pair::ts, Border::s_critical>{Scale::linear, Scale::linear, {427.075, 0.018894662258}, {4.443, -1.5615679259e-15, 3.5309313513e-15}}; // error 4.3e-13, rms 4.3e-13
template <>
inline constexpr Curve<3> border<Pair::tu, Border::s_critical>{Scale::linear, Scale::linear, {427.075, 0.018894662258}, {2062.6280072, 24.718933498, -0.43294147909}}; // error 0.15, rms 0.1
template <>
inline constexpr Curve<5> border<Pair::th, Border::p_40_bar>{Scale::linear, Scale::linear, {525.16629435, 0.0036385639005}, {3500.5389569, 614.62714536, 23.788578629, 52.546598365, -54.138551676}}; // error 2.7, rms 1.8
template <>
inline constexpr Curve<5> border<Pair::ts, Border::p_40_bar>{Scale::linear, Scale::linear, {525.16629435, 0.0036385639005}, {7.1600026104, 0.76147619165, -0.085161107023, 0.12312616743, -0.11582246376}}; // error 0.0059, rms 0.004
template <>
inline constexpr Curve<5> border<Pair::tu, Border::p_40_bar>{Scale::linear, Scale::linear, {525.16629435, 0.0036385639005}, {3142.8614951, 478.93977087, 26.1421318, 42.557081286, -44.021255877}}; // error 2.1, rms 1.4
template <>
inline constexpr Curve<5> border<Pair::th, Border::s_5_85>{Scale::linear, Scale::linear, {514.27887216, 0.0042901060944}, {3132.846858, 349.38077603, 13.59678646, 19.315592018, 1.006051988}}; // error 0.33, rms 0.22
template <>
inline constexpr Curve<5> border<Pair::ts, Border::s_5_85>{Scale::linear, Scale::linear, {514.27887216, 0.0042901060944}, {5.85, -2.1519962774e-14, -3.4559419774e-15, 3.2297979614e-14, -1.298021694e-14}}; // error 6.3e-13, rms 5.8e-13
template <>
inline constexpr Curve<5> border<Pair::tu, Border::s_5_85>{Scale::linear, Scale::linear, {514.27887216, 0.0042901060944}, {2861.1767617, 258.90985838, -6.5275183177, 9.8780331344, -0.28676665521}}; // error 0.44, rms 0.3
template <>
inline constexpr Curve<12> border<Pair::tv, Border::liquid>{Scale::linear, Scale::linear, {175.005, 0.0057144489843}, {0.0011208146857, 0.00022747613191, 0.00013882332996, 9.2919403163e-05, 4.9950520354e-06, -0.00012944205868, 0.00020063550809, 0.00043596436259, -0.00024515067246, -0.00047812389088, 0.00015040627199, 0.00022164680761}}; // error 1.5e-07, rms 8.9e-08
template <>
inline constexpr Curve<9> border<Pair::tv, Border::vapour>{Scale::linear, Scale::log, {175.005, 0.0057144489843}, {-1.5303843289, -3.9235801687, 1.5309353462, -0.91669968726, 0.24367764046, -0.061225628021, 0.15218793018, -0.12896595616, -0.098637150586}}; // error 0.086, rms 0.0085
template <>
inline constexpr Curve<7> border<Pair::tv, Border::near_liquid>{Scale::below_critical_t, Scale::linear, {0.10097188407, 10.847983495}, {0.0020998770893, -0.00046436257244, 0.00016052187676, -6.3365514111e-05, 2.1329516307e-05, -8.4855330671e-05, 7.3123936379e-05}}; // error 1.6e-06, rms 7.4e-07
template <>
inline constexpr Curve<7> border<Pair::tv, Border::near_vapour>{Scale::below_critical_t, Scale::linear, {0.10097188407, 10.847983495}, {0.0055064686686, 0.0024627352856, 0.00058612497276, 0.00030737609517, -0.00013926883532, -3.5467417471e-05, 0.00011531084819}}; // error 5.3e-06, rms 2.4e-06
template <>
inline constexpr Curve<6> border<Pair::tv, Border::boundary>{Scale::linear, Scale::log, {470, 0.0083333333333}, {-5.5580447358, -0.68322229411, 0.4596085935, -0.081213192537, -0.24699809516, 0.15048443882}}; // error 1.4e-05, rms 4.6e-06
template <>
inline constexpr Curve<4> border<Pair::tv, Border::s_critical>{Scale::linear, Scale::linear, {427.075, 0.018894662258}, {0.002328907364, -0.00056716352402, 0.00021959769807, -5.5977687235e-05}}; // error 1.1e-06, rms 7.6e-07
template <>
inline constexpr Curve<4> border<Pair::tv, Border::p_40_bar>{Scale::linear, Scale::linear, {525.16629435, 0.0036385639005}, {0.089728072947, 0.03354462894, -0.0030969320154, 0.0030059032881}}; // error 0.00033, rms 0.00022
template <>
inline constexpr Curve<5> border<Pair::tv, Border::s_5_85>{Scale::linear, Scale::log, {514.27887216, 0.0042901060944}, {-4.729660857, -0.95175647646, 0.18605582751, -0.058140393191, 0.013190285945}}; // error 4.4e-05, rms 1.4e-05
template <>
inline constexpr Curve<12> border<Pair::vh, Border::liquid>{Scale::above_least_volume, Scale::linear, {0.013710928928, 74.004127254}, {938.7599126, 951.38915973, -170.44517195, -10.890076925, 205.81531644, -822.15004063, -395.01777905, 2070.2929414, 482.76266669, -2228.966348, -214.99277479, 866.39174808}}; // error 4.7, rms 0.55
template <>
inline constexpr Curve<12> border<Pair::vs, Border::liquid>{Scale::above_least_volume, Scale::linear, {0.013710928928, 74.004127254}, {2.5082053122, 1.9023583365, -0.79937440566, 0.47850150405, 0.59616629107, -3.0737517316, -1.3011166588, 7.4277950644, 1.6849987507, -7.9875327199, -0.7592786743, 3.1067073301}}; // error 0.017, rms 0.002
template <>
inline constexpr Curve<12> border<Pair::vu, Border::liquid>{Scale::above_least_volume, Scale::linear, {0.013710928928, 74.004127254}, {936.06156752, 939.79473937, -187.44306538, -15.984021707, 214.71270014, -818.92584853, -400.80241546, 2069.2064374, 485.54860179, -2228.8870837, -215.59042345, 866.468827}}; // error 4.7, rms 0.55
template <>
inline constexpr Curve<10> border<Pair::vh, Border::vapour>{Scale::log, Scale::linear, {0.1624366893, 0.20426747832}, {2692.6948657, -233.46405005, 26.847847118, 69.148645034, -93.083230725, 102.71060503, -89.436738196, 31.810624371, 1.2812820089, 0.46999208857}}; // error 0.19, rms 0.076
template <>
inline constexpr Curve<10> border<Pair::vs, Border::vapour>{Scale::log, Scale::linear, {0.1624366893, 0.20426747832}, {7.22871269, 1.7576834934, 0.04205720637, 0.062588468954, -0.073588794588, 0.065937636563, -0.044939493422, 0.02195687618, -0.016912607388, 0.0091459260393}}; // error 0.00043, rms 0.00013
template <>
inline constexpr Curve<10> border<Pair::vu, Border::vapour>{Scale::log, Scale::linear, {0.1624366893, 0.20426747832}, {2518.9807298, -175.24346688, 21.326598005, 51.446753678, -70.240455948, 66.303326003, -57.175984212, 36.192963571, -11.210383976, 0.6811801306}}; // error 0.24, rms 0.072
template <>
inline constexpr Curve<7> border<Pair::vh, Border::near_liquid>{Scale::linear, Scale::linear, {0.002457982633, 1394.4846607}, {1960.9919731, 185.42755899, -61.880160152, 17.464980528, 10.751967003, 15.127762086, -19.895330982}}; // error 0.28, rms 0.2
template <>
inline constexpr Curve<7> border<Pair::vs, Border::near_liquid>{Scale::linear, Scale::linear, {0.002457982633, 1394.4846607}, {4.2180644939, 0.28246885865, -0.090675502448, 0.023182275267, 0.01733733827, 0.026051804508, -0.03262498664}}; // error 0.00044, rms 0.00031
template <>
inline constexpr Curve<7> border<Pair::vu, Border::near_liquid>{Scale::linear, Scale::linear, {0.002457982633, 1394.4846607}, {1907.5007361, 166.77224977, -58.097422582, 14.994681729, 10.915051384, 15.539800874, -19.861548008}}; // error 0.27, rms 0.19
template <>
inline constexpr Curve<8> border<Pair::vh, Border::near_vapour>{Scale::log, Scale::linear, {-5.2470310125, 1.9458355896}, {2369.3633022, 236.54531141, -38.140961118, -2.6239947577, 5.0531050482, -4.1002742947, -0.62887707348, 2.2569871404}}; // error 0.027, rms 0.012
template <>
inline constexpr Curve<8> border<Pair::vs, Border::near_vapour>{Scale::log, Scale::linear, {-5.2470310125, 1.9458355896}, {4.8583287836, 0.39385618146, -0.035293633085, -0.00098393232722, 0.0043748064195, -0.0058183245896, -7.3679238048e-05, 0.0033011863326}}; // error 3.3e-05, rms 1.5e-05
template <>
inline constexpr Curve<8> border<Pair::vu, Border::near_vapour>{Scale::log, Scale::linear, {-5.2470310125, 1.9458355896}, {2260.2346502, 196.72089423, -35.352667295, -0.86942066766, 3.3051070269, -3.8400034237, -0.10804142046, 2.1393340372}}; // error 0.021, rms 0.0095
template <>
inline constexpr Curve<5> border<Pair::vh, Border::isotherm>{Scale::linear, Scale::linear, {0.0015279509043, 4691.1284424}, {1601.6534902, 68.131235065, 6.7386636446, -7.4059474465, 2.8794458759}}; // error 0.053, rms 0.036
template <>
inline constexpr Curve<5> border<Pair::vs, Border::isotherm>{Scale::linear, Scale::linear, {0.0015279509043, 4691.1284424}, {3.6232277328, 0.18636292419, -0.035725099181, 0.0075182026373, -0.001358264905}}; // error 1.5e-05, rms 1e-05
template <>
inline constexpr Curve<5> border<Pair::vu, Border::isotherm>{Scale::linear, Scale::linear, {0.0015279509043, 4691.1284424}, {1550.3572267, 109.01956229, -18.911879904, 2.9982592105, -0.30935342994}}; // error 0.0033, rms 0.0014
template <>
inline constexpr Curve<10> border<Pair::vh, Border::boundary>{Scale::log, Scale::linear, {-5.3463800923, 1.6301243105}, {2612.7720586, 8.5264376307, 68.35836095, 180.59519791, -107.61643897, -1142.3301782, 354.32754524, 1604.0779279, -235.74734489, -767.53535481}}; // error 8, rms 1.7
template <>
inline constexpr Curve<10> border<Pair::vs, Border::boundary>{Scale::log, Scale::linear, {-5.3463800923, 1.6301243105}, {5.1236984208, 0.16472353938, 0.068492860526, 0.26343759242, -0.19736299919, -1.3968208654, 0.4763026574, 1.9979433221, -0.30994593838, -0.96274079348}}; // error 0.01, rms 0.0021
template <>
inline constexpr Curve<10> border<Pair::vu, Border::boundary>{Scale::log, Scale::linear, {-5.3463800923, 1.6301243105}, {2452.6673002, 20.673247697, 38.28248054, 157.15446213, -99.639363795, -902.41366076, 287.54497738, 1275.0184221, -189.53682378, -611.34205909}}; // error 6.5, rms 1.3
template <>
inline constexpr Curve<4> border<Pair::vh, Border::s_critical>{Scale::linear, Scale::linear, {0.0025473634959, 1604.7798353}, {2140.4941841, -48.934855827, 37.394510492, -22.903654175}}; // error 1.4, rms 0.95
template <>
inline constexpr Curve<4> border<Pair::vs, Border::s_critical>{Scale::linear, Scale::linear, {0.0025473634959, 1604.7798353}, {4.443, -1.2333320923e-14, -5.9447245507e-15, -2.914038632e-15}}; // error 4.6e-13, rms 4.3e-13
template <>
inline constexpr Curve<4> border<Pair::vu, Border::s_critical>{Scale::linear, Scale::linear, {0.0025473634959, 1604.7798353}, {2054.1032299, -20.99360671, 7.8465814921, -3.872375303}}; // error 0.25, rms 0.17
template <>
inline constexpr Curve<5> border<Pair::vh, Border::p_40_bar>{Scale::log, Scale::linear, {-2.5487623329, 2.2124025425}, {3299.9177854, 623.02452597, 163.34924117, 47.057202554, 6.9151273238}}; // error 0.24, rms 0.16
template <>
inline constexpr Curve<5> border<Pair::vs, Border::p_40_bar>{Scale::log, Scale::linear, {-2.5487623329, 2.2124025425}, {6.8951919733, 0.87873741473, 0.061819248266, 0.012230870067, 0.0019907107964}}; // error 0.00048, rms 0.00032
template <>
inline constexpr Curve<5> border<Pair::vu, Border::p_40_bar>{Scale::log, Scale::linear, {-2.5487623329, 2.2124025425}, {2987.2042671, 481.69452077, 131.40752979, 42.182373149, 6.3654195762}}; // error 0.24, rms 0.16
template <>
inline constexpr Curve<5> border<Pair::vh, Border::s_5_85>{Scale::log, Scale::linear, {-4.5304190752, 0.99164696513}, {3063.3794171, -336.53640245, 70.302171904, -31.251713992, 13.767180699}}; // error 0.58, rms 0.39
template <>
inline constexpr Curve<5> border<Pair::vs, Border::s_5_85>{Scale::log, Scale::linear, {-4.5304190752, 0.99164696513}, {5.85, 1.5478780691e-14, 3.5332612814e-14, -1.9945049528e-14, -4.2212786244e-14}}; // error 6.2e-13, rms 5.8e-13
template <>
inline constexpr Curve<5> border<Pair::vu, Border::s_5_85>{Scale::log, Scale::linear, {-4.5304190752, 0.99164696513}, {2808.9705323, -255.89620974, 40.702506916, -12.355956726, 4.6899595004}}; // error 0.092, rms 0.062
template <>
inline constexpr Curve<2> border<Pair::vh, Border::tie_line_350C>{Scale::linear, Scale::linear, {0.0052701123405, 283.36694603}, {2119.7976408, 447.85374864}}; // error 2.1e-10, rms 2.1e-10
template <>
inline constexpr Curve<2> border<Pair::vs, Border::tie_line_350C>{Scale::linear, Scale::linear, {0.0052701123405, 283.36694603}, {4.498848037, 0.71880727216}}; // error 4.5e-13, rms 4.5e-13
template <>
inline constexpr Curve<2> border<Pair::vu, Border::tie_line_350C>{Scale::linear, Scale::linear, {0.0052701123405, 283.36694603}, {2032.6556795, 389.50140978}}; // error 2e-10, rms 2e-10
template <>
inline constexpr Surface<9, 8, 10> surface<Pair::pt, GuessPatch::liquid_like, Unknown::primary>{Scale::linear, Scale::below_critical_t, Scale::log, {4.8060809221, 0.21734827916}, {0.097427133104, 10.446459293},
    {{-6.3888038226, -0.045461614489, -0.021247205113, -0.00030449012563, -0.00092132483645, 0.0040471680578, 0.0011066528005, -0.0024198608641},
     {-0.26338093275, 0.062209487946, 0.026366445644, -0.0017850788715, 0.0010183058021, -0.007307117623, -0.0081385435104, 0.0067328484213},
     {0.052104406378, -0.063693936999, -0.022734772883, 0.014358171007, 0.010747946352, -0.02056679737, 0.00518401866, 0.00041970792104},
     {-0.0093469295341, 0.056163091765, 0.01550625509, -0.043096137953, 0.013087537497, 0.015550708214, 0.014911236005, -0.0059276486502},
     {-0.0015416499773, -0.099870851804, -0.00046312177459, 0.098394188722, -0.058422194552, 0.049380965775, -0.01257186353, 0},
     {0.044143083996, 0.13319346442, -0.12342306007, -0.031492027428, 0.00526531533, -0.041044263104, 0, 0},
     {-0.065253282472, 0.016670469683, 0.19291961506, -0.1679838047, 0.029313122516, 0, 0, 0},
     {0.0077972134224, -0.1528809662, 0.01215966539, 0.13476211331, 0, 0, 0, 0},
     {0.017575582071, 0.076094252162, -0.090833537623, 0, 0, 0, 0, 0}}}; // error 1.4e-05, rms 3.4e-07
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::pt, GuessPatch::vapour_like, Unknown::primary>{Scale::linear, Scale::below_critical_t, Scale::log, {1.4476520536, 0.69077372397}, {0.096349364598, 10.431641188},
    {{-5.1074149237, 0.35046440409, 0.093591002277, -0.034506936409, 0.04976208333, -0.00014939949484, -0.031384379599},
     {0.2790466057, -0.18022271952, 0.089479342407, 0.077717554334, -0.078119459482, -0.040810339156, -0.0079782578318},
     {0.13776878992, 0.096767209994, -0.013856013362, 0.01363881904, -0.34239759151, -0.091166777878, 0.30006937137},
     {-0.042713846631, 0.12196658247, -0.0085174759966, -0.6251460753, 0.044002684949, 0.66556858027, 0.21157067341},
     {0.038011431659, -0.18395373297, -0.30639565541, 0.084198960751, 0.76880354093, 0.72649916934, 0},
     {0.022403437485, -0.055917328794, -0.065592045318, 0.66117768567, 0.65137169618, 0, 0},
     {-0.037770100836, 0.088874660118, 0.28848708821, 0.09553468684, 0, 0, 0}}}; // error 2.3e-05, rms 2.4e-06
template <>
inline constexpr Surface<11, 9, 12> surface<Pair::pt, GuessPatch::supercritical, Unknown::primary>{Scale::linear, Scale::log, Scale::log, {0.93309776928, 0.57330303162}, {6.1523732082, 4.391702179},
    {{-6.2196424561, 0.025639981611, -0.0067247691641, -0.0023050432692, -0.018670697065, -0.025616223412, 0.050886553943, 0.09965640767, 0.044255911049},
     {-0.51888816655, -0.0062235092046, 0.053087068405, -0.086050863195, -0.33858334657, 0.24260326123, 1.3048343474, 1.0948468547, 0.25116790423},
     {0.35013003247, 0.07339663373, -0.16958301011, -0.9856996768, 0.38299269266, 5.3917518056, 7.3053010083, 4.3549374626, 1.2024072976},
     {-0.32167075363, -0.13439049222, -1.7496882233, -0.044870064802, 13.705540477, 24.732942878, 19.579109568, 9.7264113206, 2.7701325717},
     {0.22242422664, -1.6947931034, 0.0062671482147, 21.785630902, 49.283305076, 47.020925408, 31.248341476, 13.792966788, 1.2786014738},
     {-0.70237529231, 0.55979374352, 21.967256175, 63.507823551, 62.14011745, 39.119919374, 26.813399123, 8.762482091, 0},
     {0.23835940463, 13.21850752, 48.654936211, 37.717854928, -6.5570379373, 3.5967276313, 11.565711379, 0, 0},
     {3.690811731, 19.158717684, -0.98214843243, -80.014101195, -73.433531845, -13.150451793, 0, 0, 0},
     {3.2537684065, -14.505589941, -94.795316761, -119.60807763, -43.772653046, 0, 0, 0, 0},
     {-6.7715327649, -46.123562911, -81.608510972, -40.641355887, 0, 0, 0, 0, 0},
     {-8.2872729925, -23.522960112, -14.259831309, 0, 0, 0, 0, 0, 0}}}; // error 0.00014, rms 5.4e-06
template <>
inline constexpr Surface<5, 7, 9> surface<Pair::ph, GuessPatch::water, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {499.94911416, 0.0020002330868}, {834.69013422, 0.0011989901105},
    {{190.39979345, 195.59740853, -9.9530733943, -5.4376863681, -3.9677213093, -1.0216075148, 0.69884128541},
     {-6.5178059958, 7.5859686009, 5.1664189808, 4.863715587, 2.0041833763, 1.1125583295, 0.76141821856},
     {-0.24834840662, 1.114802727, -8.8388255101, -14.872889299, 15.000772392, 11.999801311, -9.3375082872},
     {0.033429681628, 0.85718980614, 1.9837165723, -1.9378259805, -0.72676748534, 4.9589033671, 2.1223866256},
     {-0.38541105563, -3.1323556567, 4.420525965, 15.565492951, -8.6852767384, -18.18294294, 0}}}; // error 0.51, rms 0.067
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::ph, GuessPatch::steam_thin, Unknown::t>{Scale::root, Scale::linear, Scale::linear, {3.2006655134, 0.32025906897}, {3329.9647992, 0.001207178766},
    {{431.06219783, 389.19779729, -14.338095549, -21.16869184, 34.376061154, -20.181620741, 2.9107893517},
     {13.024779513, -17.735904626, 22.542415447, -51.230300934, 54.071161804, 8.6290112096, -25.945914663},
     {5.7063578606, -8.5374120198, 17.200543391, -13.991134904, -20.948616186, 36.871903636, -15.416557208},
     {-0.42802846983, 1.1202122964, -0.13735747514, 13.340070794, -27.033741083, -2.2249240123, 15.545963631},
     {0.081458477545, -0.35952435225, -6.2858175651, 2.2530104928, 16.640847475, -10.534382902, 0},
     {-0.0070356633168, -0.94367306344, 1.1926404628, 1.506859485, -1.4269287873, 0, 0},
     {0.07946471753, 0.97916253238, 0.13688987987, -2.1643282412, 0, 0, 0}}}; // error 0.29, rms 0.054
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::ph, GuessPatch::steam, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {5.2979762779, 0.62165998233}, {3458.9396432, 0.0014815885211},
    {{572.5352837, 238.15896707, 32.467364545, -25.037092272, 7.6087931999, 3.1113286645, -2.2079511851},
     {114.5008785, -85.628005726, 22.614587626, 14.844129943, -20.061738748, 5.7809671778, 0.5376383467},
     {58.511057342, -11.35578038, -26.08921705, 1.8698563997, 5.8460705779, 23.573557115, -21.559063657},
     {1.8596287976, 24.001508043, 0.96434370594, -22.517068143, -20.550685532, 47.09226427, -16.708202963},
     {-12.927156806, 6.508747005, 9.5969593091, 22.643378533, -38.246169503, 22.408433745, 0},
     {-3.2494161643, -1.5877194698, -15.327255768, 29.651352008, -10.283863918, 0, 0},
     {1.3872486837, 1.2818754288, -10.976702187, 3.9585733328, 0, 0, 0}}}; // error 0.25, rms 0.046
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::ph, GuessPatch::steam_dense, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {5.5528098727, 0.73807750215}, {3047.0162519, 0.0021430685948},
    {{473.68814856, 107.21239491, 31.184995094, -24.987735869, -31.883500496, -17.055267617, -4.5662535718},
     {154.81690866, -36.404115213, 11.862092377, 124.03561763, 116.9039181, 25.94450134, -7.7823561852},
     {32.193430726, 9.588660629, -63.973031592, -135.71982305, -194.82308093, -131.45295838, -22.98485882},
     {-6.4606003906, 31.911845269, 31.13176846, 134.29935498, 384.763881, 274.92210123, 33.845313068},
     {-20.90406664, -62.178261701, -201.72381918, -402.48117974, -404.6161422, -139.12181275, 0},
     {3.8542339435, 96.750348028, 375.59898595, 457.62873959, 112.38701763, 0, 0},
     {0.32295814057, -49.798050874, -167.97631696, -151.49288479, 0, 0, 0}}}; // error 0.35, rms 0.065
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::ph, GuessPatch::liquid_like, Unknown::primary>{Scale::log, Scale::linear, Scale::linear, {6.0246729376, 1.1325202235}, {1912.0068445, 0.0027719892454},
    {{0.0018565314696, 0.00057217844072, 0.00021995647282, -4.3087306309e-05, 1.7605112658e-05, 0.0005079925867, 0.00014051318295, -0.00066230029554, -0.00039840319361},
     {-0.00041498216462, -0.00053805344235, -0.00038710250989, -0.00010906625928, 0.00010675395234, -0.00048308779331, -0.00036440715122, 0.001242623549, 0.0010501746406},
     {0.00012261325136, 0.00036259896052, 0.00043760122787, 0.00040127981825, -0.00040549626653, -0.00084665889138, 0.00034222005299, 7.6202990261e-05, -0.00056788637301},
     {-7.7713196515e-05, -0.00026634463623, -0.00024858346091, 1.2216107852e-05, 0.0006006591856, 0.00059115044466, -0.0011301651118, -0.0012840803699, -2.3845309831e-05},
     {4.1959720097e-05, 0.00021031452234, 7.7452620346e-05, -0.00053471119488, -0.00011458192953, 0.0010729653469, 0.0012753345714, 0.00060685643888, 0},
     {1.6665153375e-05, -9.1329130885e-05, -0.00016366947044, 0.00032823113603, -0.00011311112605, -0.0010208824479, -0.00036968077049, 0, 0},
     {-1.9564493543e-05, -3.1820069501e-05, -4.9128691684e-05, -0.00032064306623, -0.00022182758311, 0.00020634939907, 0, 0, 0},
     {-2.9092716033e-05, 5.5161042006e-05, 0.00041521292686, 0.00049146798688, 0.00017582651304, 0, 0, 0, 0},
     {2.4091050832e-05, -1.8690912517e-05, -0.00024150429823, -0.00022186675364, 0, 0, 0, 0, 0}}}; // error 5e-06, rms 4.7e-07
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::ph, GuessPatch::liquid_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {6.035580646, 1.1466997059}, {1912.4330687, 0.002764371636},
    {{399.05899157, 44.390023361, -11.794248817, -10.790587496, 2.1571842134, 47.147990383, 5.1730185332, -51.542081133, -19.318240549},
     {29.91136737, 36.129406589, 13.732984044, -14.868238932, 5.4594789429, 17.576787208, -19.726356283, 8.1035055679, 21.986019153},
     {-6.4998672521, -12.724842596, -2.5889448251, 18.91113725, -17.311638786, -31.435252435, 61.150660887, 30.801553961, -31.637877036},
     {1.4131996418, 7.0818553425, 8.6073661714, -15.841904136, -56.409293974, -18.253352383, 32.246099933, 44.992501186, 42.719117754},
     {-1.8926721818, -1.2397067256, 14.352751573, 5.9872171775, 7.1653611299, -18.929399896, -92.921779542, -46.56391795, 0},
     {-1.2465220221, -6.7590433383, 0.19961696423, 36.302478503, 49.997285562, 13.686225806, -7.0867141205, 0, 0},
     {1.9515996797, 2.5652928019, -26.935528712, -9.0892847107, 39.830801292, 13.693717175, 0, 0, 0},
     {1.4971180497, 5.8636510487, -13.348241977, -44.579457799, -24.73726923, 0, 0, 0, 0},
     {-1.6123234945, -2.8735045086, 17.610393096, 23.343114576, 0, 0, 0, 0, 0}}}; // error 0.45, rms 0.11
template <>
inline constexpr Surface<6, 6, 9> surface<Pair::ph, GuessPatch::vapour_like, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {6.0282447389, 1.137019361}, {2457.1488963, 0.0028662937581},
    {{-5.7012829008, 0.40910790784, -0.007280370395, -0.014908448977, -0.0042905277747, -0.0053961507823},
     {-0.61729569377, -0.19187399002, 0.060990193292, -0.010204832642, -0.060535993455, -0.05478054824},
     {0.1887423572, -0.065835330244, -0.12999352218, 0.11297957082, 0.23838135482, 0.10842352919},
     {-0.035239598878, 0.072445859675, 0.054088577017, -0.08742570743, -0.069261717134, 0.063217786865},
     {-0.053199215383, 0.052061879936, 0.12926357833, -0.17623937218, -0.34354705214, -0.11644157807},
     {0.033732759572, -0.062842381068, -0.09568017402, 0.18249230434, 0.23738515439, 0}}}; // error 1.6e-05, rms 1.7e-06
template <>
inline constexpr Surface<6, 6, 9> surface<Pair::ph, GuessPatch::vapour_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {6.0160597155, 1.1214876176}, {2458.7588845, 0.0028776472674},
    {{447.51368622, 30.833080208, 5.7484198586, 2.9539586117, -2.883086052, -2.2180446872},
     {93.719909397, 33.76764402, -6.755370244, -2.0670108179, -5.3153438916, -5.455133362},
     {-11.348790735, 5.3904330342, 1.1685470438, 5.1035341117, 13.938139583, 3.7149701637},
     {-3.5919607839, -14.325135669, -10.137028839, 4.1698491045, 14.332928321, 5.8331027411},
     {0.12054987778, 0.063967356541, 2.5071227655, -7.4229031459, -14.051895276, -1.1624891765},
     {-0.77986581055, 6.6498924866, 8.156198551, -0.75464370363, -7.4804724043, 0}}}; // error 0.16, rms 0.038
template <>
inline constexpr Surface<5, 7, 9> surface<Pair::ps, GuessPatch::water, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {499.95444847, 0.0020002288689}, {1.8762491318, 0.53334860702},
    {{158.69094935, 193.37850219, 35.618171029, -4.1830097641, -7.0461775072, -2.3423274691, -0.28069980859},
     {4.9274961735, 8.0697658046, 8.1963113015, 0.13413271226, -6.10725733, 7.6090050525, 9.3167231626},
     {-0.30107522798, -2.2601748108, -2.8477678205, 5.1800137944, 6.9731580401, -5.2355481429, -5.9132620052},
     {0.2270273775, -0.34473071791, -3.8108898192, 1.5099657042, 11.548767229, 0.76285935586, -6.3725634465},
     {0.065574784715, 1.1834086232, 1.3755600834, -2.9954780915, -4.273432574, -0.89316243474, 0}}}; // error 0.22, rms 0.058
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::ps, GuessPatch::steam_thin, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-0.70523917785, 0.22773762259}, {8.9733084424, 0.34787448536},
    {{434.14092142, 974.66178795, 522.70612236, 54.233358621, -14.752415529, -58.402651718, -114.20037405},
     {687.94308797, 731.96238313, 135.42240589, -22.129727456, -162.52627554, -953.61730754, -559.53056402},
     {259.47400309, 91.822061842, -31.293425151, -118.20420143, -1866.865488, -2563.6670162, -842.46149848},
     {21.099021539, -32.451119787, -50.373127801, -1653.9636067, -3857.1021035, -2416.1134183, -486.76135874},
     {-11.365617776, -20.744462939, -715.34089607, -2688.1162423, -2638.8787577, -999.47701214, 0},
     {0.021495266835, -128.63329968, -866.53609081, -1299.1998338, -731.59163527, 0, 0},
     {1.1027440081, -92.531773815, -245.12310063, -192.47343129, 0, 0, 0}}}; // error 0.11, rms 0.033
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::ps, GuessPatch::steam, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {5.2979358365, 0.62154797728}, {6.8339595006, 1.0163775089},
    {{714.32620066, 369.35990665, 80.886614211, 5.5557501379, 52.374869057, 46.694175569, 13.603118772},
     {337.37194429, 62.351258962, 36.074362268, 146.16088773, 188.29198493, 114.79939009, 26.384262147},
     {38.538480544, 10.993701376, 158.67791941, 310.12786659, 262.18079047, 77.589653521, -4.0945691016},
     {2.7596739434, 77.815089786, 234.24814226, 282.82653559, 92.406930481, -40.837659807, -15.461739521},
     {15.550474202, 93.300908741, 153.24742872, 55.617260126, -77.649327069, -41.234953615, 0},
     {15.782499051, 50.427379678, 25.596777334, -54.925610435, -42.950675817, 0, 0},
     {5.2269792285, 10.255577206, -7.634485432, -18.409302745, 0, 0, 0}}}; // error 0.12, rms 0.031
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::ps, GuessPatch::steam_dense, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {5.5640663403, 0.74434013041}, {5.4505300088, 2.5038459001},
    {{428.63977227, 39.790898203, 14.613444546, 2.8980287639, -1.0559063784, -0.6406666949, 0.60857435525},
     {202.32159321, 35.175822263, 4.1818778661, -5.9425497194, -2.3515008558, 3.7810945514, -1.1204642032},
     {34.976614598, 17.662291421, -21.115448084, -14.718420887, 24.320492755, 1.3345135458, -6.1446861404},
     {9.6041474435, -29.179537245, -28.334278918, 58.000062475, 1.1717192227, -28.227653844, 8.020189722},
     {-21.713022953, -14.167858078, 66.29598315, -2.6164597764, -61.986199849, 26.215756288, 0},
     {-20.779719072, 56.96688509, -6.1188909938, -64.010547917, 37.484953752, 0, 0},
     {21.924868169, -24.870214446, -17.82527591, 24.509176784, 0, 0, 0}}}; // error 0.28, rms 0.068
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::ps, GuessPatch::liquid_like, Unknown::primary>{Scale::log, Scale::linear, Scale::linear, {6.0269976354, 1.1354296187}, {3.9203845943, 1.9139461254},
    {{0.0017050789162, 0.00042154614994, 0.00017420551019, 0.00016198996642, -0.0001252116468, -0.00028971049027, 0.00038929477677, 0.00020435505839, -0.00027637324823},
     {-0.00020718629193, -0.00026148759287, -8.2979338721e-05, -0.00032329015932, -0.00043637957654, 0.0011007068664, 4.5625074423e-05, -0.0011872478148, 0.00060360866498},
     {1.3939130419e-05, 0.0001678726704, -1.4292713445e-05, -0.00024118691287, 0.0012956568222, -0.00022432463064, -0.0018090223266, 0.0015576344092, -0.00036278156059},
     {2.7178289121e-06, -0.00012303809112, -0.00020518821716, 0.00081345587619, -0.0003468962013, -0.0016428482389, 0.0018812584414, -0.00065935817731, 6.3770998797e-05},
     {-1.4499232381e-05, -1.8022236388e-05, 0.00044022239466, -3.3913781308e-05, -0.0011554936033, 0.0011982807574, -0.00038213765911, 5.4084959189e-05, 0},
     {1.422185108e-05, 0.00015302506813, -0.00020680822078, -0.00090008313256, 0.00086654230646, 0.00025963385948, -0.00017253249836, 0, 0},
     {4.1859858683e-06, -5.4575922423e-05, -0.00012930734368, 0.00042344747182, -3.7117446717e-06, -0.000360991858, 0, 0, 0},
     {-1.3479719664e-05, -7.9194363692e-05, 0.00011227260279, 0.00022631411587, -8.0527811721e-05, 0, 0, 0, 0},
     {5.3013231764e-06, 4.3948060465e-05, -9.3884572813e-06, -0.0001196614034, 0, 0, 0, 0, 0}}}; // error 3.1e-06, rms 4.6e-07
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::ps, GuessPatch::liquid_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {6.0223310201, 1.1301136712}, {3.9225103165, 1.9221840852},
    {{384.81278969, 46.81720851, -8.5244047883, 9.9936907867, -15.57305373, -21.546878536, 39.079850241, 1.3309408359, -13.292669376},
     {29.787278066, 23.193318442, 29.754137522, -12.34651806, -68.693942002, 76.396364118, 44.714585347, -59.972500446, 3.5504336432},
     {3.1030463368, 2.0994101614, -5.8368081059, -33.859676317, 61.82387277, -42.221726368, -47.654508504, 159.42069934, -99.23040245},
     {0.73107779767, -8.6532870334, -7.7587039653, 86.99805711, -34.495270226, -75.832235054, 160.01911112, -216.82840195, 107.22483135},
     {3.4105710801, -4.8305315077, 11.738671053, -20.659695697, -51.778195123, 168.08782504, -196.28909325, 92.579894509, 0},
     {2.642122112, 31.515435436, -0.31718793093, -141.929878, 83.869530717, -11.708613019, 7.3565019648, 0, 0},
     {-7.3829201429, -5.8141494607, -4.6174116447, 54.454448178, 30.881168501, -54.805277676, 0, 0, 0},
     {-2.3673197054, -21.641709072, -5.2861798475, 78.749537071, -16.077119745, 0, 0, 0, 0},
     {5.1275934489, 10.316271883, -2.7754839085, -38.793464976, 0, 0, 0, 0, 0}}}; // error 0.49, rms 0.14
template <>
inline constexpr Surface<6, 6, 9> surface<Pair::ps, GuessPatch::vapour_like, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {6.0117242925, 1.1160714951}, {4.8522033973, 2.4441920805},
    {{-5.7016545652, 0.34807604026, 0.0020932343129, -0.0061988273289, -0.0056108293524, -0.0068583163287},
     {-0.48599509981, -0.12328147782, 0.030354645583, -0.014450381997, -0.00471766462, 0.0037462296036},
     {0.16041305049, -0.041916933821, -0.077533120694, 0.027126180545, 0.041351661909, 0.021276975836},
     {-0.046619011773, 0.018755471126, 0.045098628887, 0.026800367463, -0.0013043172208, -0.0075304706921},
     {-0.061452960335, 0.038463640363, 0.068076776323, -0.043408556511, -0.034553070837, -0.012805572594},
     {0.04349462619, -0.023038610673, -0.049087758206, 0.0073426905429, -0.0017381091197, 0}}}; // error 9.7e-06, rms 1.6e-06
template <>
inline constexpr Surface<6, 6, 9> surface<Pair::ps, GuessPatch::vapour_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {6.0122199436, 1.116671931}, {4.8529294417, 2.4436015091},
    {{446.19109302, 25.751020091, 4.4854495203, 2.1653229234, -1.8568949986, -1.5450958423},
     {103.92093641, 36.617928378, -1.3886624907, -4.9475903563, -2.3489653692, 0.78147976271},
     {2.3266075638, 4.7695297207, -1.3678189937, -0.26411487684, 9.2249291995, 6.7020076462},
     {0.15888700885, -13.74920376, -1.6633615072, 17.737570344, 9.618303768, -1.9580625881},
     {-0.55780797247, -0.25238223993, 5.1058477107, -0.45789342871, -9.9500145763, -4.9872961548},
     {-0.025266052312, 8.8118785997, 0.10237277984, -12.786119385, -6.3116280623, 0}}}; // error 0.15, rms 0.031
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::hs, GuessPatch::water, Unknown::primary>{Scale::linear, Scale::linear, Scale::linear, {826.57256511, 0.0012103386258}, {1.8732718124, 0.53373331742},
    {{1714.9343191, -7927.2562491, -1721.348941, 11848.014094, -17885.897343, 3045.6879782, 24176.318726},
     {7922.1515916, 259.00642101, -28293.685117, 62999.387797, -27832.874543, -75292.977274, 25431.19931},
     {-407.04852767, 21090.148672, -66991.842761, 31910.343643, 78456.041528, -55184.440373, -63.998649829},
     {-4789.9689277, 20639.120814, 29088.388975, -50214.230268, 16879.586186, 23020.678937, 134.26003691},
     {1411.6056911, -54708.150143, 47624.656576, 35531.26487, -56655.094169, 1851.680309, 0},
     {18954.437648, -31374.000241, -30357.44354, 47013.795636, -3147.3172449, 0, 0},
     {6673.6431478, 7333.1817506, -13293.545488, 1305.6315285, 0, 0, 0}}}; // error 0.26, rms 0.059
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::hs, GuessPatch::water, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {829.00969947, 0.0012069116813}, {1.8764912045, 0.53204018326},
    {{161.49368905, 371.54781642, -2261.5823664, 7779.7748696, -4085.5429339, -22456.424623, -3356.2384596},
     {-181.44882464, 5057.8732603, -29373.907757, 41051.518598, 82102.563782, -15481.390203, -13707.167185},
     {-2709.4591724, 34322.050596, -94957.057006, -96597.375247, 82779.933114, 44379.25089, -14104.03342},
     {-12626.759714, 80387.150757, 39084.736514, -139139.40853, -59725.026693, 49469.800964, -1880.1467465},
     {-22553.751935, -3470.1603709, 130150.80992, 37836.822112, -68320.858127, 4788.4879607, 0},
     {1052.2619833, -72441.23037, -5615.3314406, 42609.728901, -4276.9821678, 0, 0},
     {17640.487964, -2889.6110012, -9723.9184809, 1257.3451675, 0, 0, 0}}}; // error 0.13, rms 0.036
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::hs, GuessPatch::steam_thin, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {3328.4949032, 0.0012095797813}, {8.9909674835, 0.34780994764},
    {{-0.80936744813, -6.2332109512, 0.0080514576614, -0.0086989685383, 0.033057486826, -0.085435878686, 0.063215517231},
     {2.5757856564, 0.0032107355096, -0.034022343009, -0.066099482614, 0.18123348233, 0.064013897406, -0.21963010517},
     {-0.74508994536, -0.0038632273145, 0.094430425847, -0.1461265573, -0.30617452456, 0.33207013624, 0.25446063885},
     {0.27845991925, -0.024855112392, 0.18282165877, 0.41268288227, -0.32650541036, -0.61492477291, -0.026182595902},
     {-0.10809549799, 0.022542128983, -0.33797390556, 0.10542993622, 0.74455449539, 0.15057958791, 0},
     {0.1317170851, 0.026804133012, -0.17846296307, -0.46512120168, -0.21804134513, 0, 0},
     {-0.085259635864, -0.024430740991, 0.27605674703, 0.13606989401, 0, 0, 0}}}; // error 0.034, rms 0.0035
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::hs, GuessPatch::steam_thin, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {3330.1154852, 0.0012069632933}, {8.9842412004, 0.34373276933},
    {{424.58499056, -2.0867502375, 8.6275259229, -8.0293968324, 3.0895797277, -47.38962378, 60.796514252},
     {399.4544728, -2.5702529134, -9.340671269, -1.3848558413, 132.76822998, -65.118242392, -155.59442672},
     {-24.840107933, 5.5676360185, -18.482028581, -108.35566375, 107.62224201, 251.67761151, -58.099914821},
     {0.46728049643, 5.6470313753, 51.009107234, -53.306616517, -327.92673817, 88.866670671, 200.35044933},
     {-0.49677345379, -13.545444553, 42.271776944, 178.38620981, -104.72870033, -325.44835002, 0},
     {0.47914467254, -5.5841691719, -43.220047944, 46.257769116, 250.01688331, 0, 0},
     {1.1927091531, 6.9670785565, -21.72936929, -68.701067098, 0, 0, 0}}}; // error 0.18, rms 0.049
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::hs, GuessPatch::steam, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {3458.0457583, 0.001478701904}, {6.8375527737, 1.0126620352},
    {{4.2996923845, -2.2603937545, 0.12334510887, -0.072236344029, 0.014046703083, -0.072367617265, -0.085723218423},
     {1.9476499265, -0.027641937279, 0.002221150754, 0.073589826073, 0.23084350135, 0.42999836118, 0.11506199284},
     {-0.41436869191, 0.024503340582, -0.1044074058, -0.35436982984, -0.90348458399, -0.66138401616, -0.16226405362},
     {0.12693534106, 0.049834871022, 0.27299438827, 0.96756301657, 1.374907818, 0.72142004477, 0.075537472076},
     {-0.049634612504, -0.098228060365, -0.51834405872, -1.2986140561, -1.1744311699, -0.24023999964, 0},
     {0.012880663132, 0.10529365083, 0.53729093083, 0.84146278312, 0.26671243635, 0, 0},
     {0.0021038614109, -0.054158071883, -0.22593029995, -0.10709807701, 0, 0, 0}}}; // error 0.066, rms 0.012
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::hs, GuessPatch::steam, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {3455.6639157, 0.0014819728849}, {6.828203341, 1.022286235},
    {{521.06227715, -76.24515172, 73.524048126, -44.661012588, 50.660087757, 44.008667255, -7.8480936978},
     {347.5596769, -50.751653923, 26.697134931, -99.613107388, -67.390580505, 176.41985814, 96.197001005},
     {-11.059187685, 11.672509157, 74.223434636, -22.864811829, -720.70346287, -776.03936609, -214.86681394},
     {-12.358475765, -14.690901054, 139.26154389, 1141.2822882, 1788.3492605, 787.23030365, 14.249117455},
     {1.6757722586, -108.86724307, -847.81107163, -1814.1310577, -1095.3136311, 9.7072807909, 0},
     {26.083446812, 276.1004359, 854.70581275, 701.39936512, -70.908276422, 0, 0},
     {-22.433255072, -159.66860915, -179.10507352, 51.72942993, 0, 0, 0}}}; // error 0.23, rms 0.043
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::hs, GuessPatch::steam_dense, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {3050.6175897, 0.0022121222748}, {5.4505623112, 2.5038882369},
    {{6.6497114102, -1.2544221103, -0.059733626416, 0.15297627265, -0.19250083688, 0.18660687342, -0.068777092934},
     {1.6075295385, 0.42014080858, -0.40691183616, 0.84346880813, -1.5022788444, 1.1436896694, -0.30868237878},
     {-0.52186978249, 0.23213347463, -1.5295331114, 4.2694986615, -4.5578925831, 2.0442036202, -0.32110641228},
     {0.073237443492, 1.376403855, -5.8143136829, 8.2538600747, -4.8561836991, 1.1223539919, -0.079073783668},
     {-0.52835683764, 3.78631077, -7.5127323514, 5.6813880006, -1.5742444534, 0.12213698764, 0},
     {-0.93140049071, 3.2069977465, -3.3225421435, 1.0537607747, -0.045375087043, 0, 0},
     {-0.45123589517, 0.78060360221, -0.28781431617, -0.0057498949274, 0, 0, 0}}}; // error 0.4, rms 0.092
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::hs, GuessPatch::steam_dense, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {3041.4306658, 0.0021524965374}, {5.4490464823, 2.4954917184},
    {{604.73169892, -150.14722708, -42.788760503, 51.008776958, -2.1597983641, -12.864193681, 5.1090956009},
     {290.75998396, 134.54850967, -117.49731992, 2.6341086613, -88.230889038, 148.03468872, -57.197210067},
     {-101.74036654, 57.56837826, 92.216768333, 356.57871258, -843.31635658, 565.03455452, -122.48203467},
     {21.340107542, -184.72025725, -446.15663746, 1569.6394463, -1400.6172606, 446.61226035, -37.366063062},
     {94.386537845, 233.46708511, -1328.6476232, 1500.7008271, -531.39727957, 22.952214097, 0},
     {-61.113317214, 545.19930237, -769.82720053, 224.92556009, 70.924007783, 0, 0},
     {-96.091306729, 180.91483831, -19.2125124, -63.53981098, 0, 0, 0}}}; // error 0.47, rms 0.074
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::hs, GuessPatch::liquid_like, Unknown::primary>{Scale::linear, Scale::linear, Scale::linear, {1913.8123109, 0.002763120184}, {3.9211718208, 1.9166210537},
    {{0.0014937119546, 0.00048747365707, 0.0048370453876, -0.035457959452, 0.16724099663, -0.33785560828, 0.12239239301, 0.51901925168, -0.37475632966},
     {-0.00025977325445, -0.008943061055, 0.10185412266, -0.64040558828, 1.6928840424, -1.1565292113, -2.4641076461, 2.1420516323, -0.061022470714},
     {0.0042032861927, -0.096198330723, 0.89791537009, -3.2332708162, 3.3340184719, 5.0272425718, -4.9826229749, -0.54097002896, 0.55962965008},
     {0.029951598301, -0.54447183851, 2.9330054599, -4.296235821, -6.2904485003, 6.8214052022, 3.075697128, -2.9271531567, 0.11827038361},
     {0.11964153721, -1.2495962042, 2.6545763625, 5.7105042152, -7.1285817001, -5.3586767545, 5.9034965484, -0.55477330909, 0},
     {0.19424723335, -0.70729424665, -3.5941054593, 5.9869674828, 3.7971029775, -5.4987499258, 1.0087396508, 0, 0},
     {0.049366441395, 1.2329360184, -3.1783197623, -0.62008500799, 1.9530828933, -0.8721185983, 0, 0, 0},
     {-0.13969778343, 0.70146338717, -0.41897263154, 0.25456460616, 0.34398704433, 0, 0, 0, 0},
     {0.012007109588, 0.12557032651, -0.2447005792, -0.043612218492, 0, 0, 0, 0, 0}}}; // error 1.5e-06, rms 3.7e-07
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::hs, GuessPatch::liquid_like, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {1913.471214, 0.0027610064358}, {3.9192269387, 1.9092667918},
    {{424.61226004, -33.959066768, -121.37330211, 291.65895958, -3131.7790867, 9988.4284932, -11529.159613, -6717.9704008, 10928.124026},
     {107.49785099, 129.87506314, -26.05625348, 7129.1628271, -35131.744983, 53856.694661, 30117.334931, -42661.966799, -14346.153134},
     {-5.597756182, -926.06121668, -2187.2629438, 38517.71829, -81190.976218, -98309.796055, 81563.357067, 86792.021344, -16184.625068},
     {691.89563673, -4309.4006068, -9199.1708519, 39939.353483, 221065.1791, -145259.49199, -204090.1038, 69883.761829, 14867.188213},
     {2463.3344436, -6143.4993885, -1140.9033579, -258813.74226, 205832.45474, 266704.60015, -118327.36338, -81333.395957, 0},
     {1714.8219795, 7437.4041441, 129293.45391, -146946.29996, -268211.61678, 111261.02683, 177932.21762, 0, 0},
     {-7278.7386076, -8981.1990872, 28975.498539, 239898.69564, -82553.524107, -192805.24739, 0, 0, 0},
     {-7022.4639688, 6541.0086043, -141530.50399, 52948.070016, 102542.45542, 0, 0, 0, 0},
     {913.03016972, 34139.195989, -16977.176608, -20970.707962, 0, 0, 0, 0, 0}}}; // error 0.27, rms 0.068
template <>
inline constexpr Surface<8, 8, 9> surface<Pair::hs, GuessPatch::vapour_like, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {2459.327439, 0.0028841928342}, {4.8514752854, 2.4488733149},
    {{-5.7505296584, 1.4002310193, 1.3422739292, 0.57418305054, -2.9777867834, -4.2441925554, 4.5163247467, 6.5610997352},
     {-1.2398635811, -3.1364898689, -3.3779159777, 11.749324301, 27.862267423, -20.367393779, -54.339127527, -13.205205575},
     {1.8667375916, 5.429296009, -16.695840918, -70.469639632, 28.787656371, 181.83425062, 89.017616582, 2.5236065572},
     {-2.6639475414, 9.904320752, 87.020878019, -0.47493547873, -319.63970179, -245.03764033, -10.22473676, 0},
     {-1.9886516972, -52.904603561, -35.38595892, 316.39042826, 351.50566982, 13.769702351, 0, 0},
     {12.73168358, 31.798643957, -173.37037684, -277.17184896, -5.4207693267, 0, 0, 0},
     {-8.8275826202, 47.27541018, 114.21918262, -2.1559352003, 0, 0, 0, 0},
     {-4.6514531336, -19.305449833, 1.5054292377, 0, 0, 0, 0, 0}}}; // error 4e-06, rms 9e-07
template <>
inline constexpr Surface<8, 8, 9> surface<Pair::hs, GuessPatch::vapour_like, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {2462.4214419, 0.0029075190672}, {4.8521424918, 2.4463497408},
    {{458.84434862, -213.25832444, -116.05676149, 101.75636659, 178.88482023, -153.05836463, -300.47963905, 326.78465531},
     {279.74135781, 257.25451339, -229.88940969, -630.19727726, 788.43119174, 1269.4378174, -2603.1751048, 900.76083988},
     {-143.91720747, 147.70810774, 726.88797393, -1801.3858481, -1482.0599711, 9728.8852898, -6347.8915063, -735.1813413},
     {-18.305083839, -251.73520606, 2303.0638827, -880.6240972, -21608.777109, 18641.85958, 4295.6442025, 0},
     {-24.887056037, -1602.5469205, 3364.4966332, 30027.009682, -28959.287192, -9938.3342816, 0, 0},
     {466.50590626, -2720.2294874, -25629.401485, 24897.078585, 11390.515819, 0, 0, 0},
     {748.82344854, 12277.953271, -11155.86407, -6475.4445114, 0, 0, 0, 0},
     {-2520.7824146, 2022.6563527, 1462.9974075, 0, 0, 0, 0, 0}}}; // error 0.086, rms 0.026
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::hs, GuessPatch::wet_low_s, Unknown::t>{Scale::root, Scale::linear, Scale::linear, {12.414125975, 0.080559884915}, {1.9488289995, 0.54619954565},
    {{-4.3395657043, 159.40457619, -33.988335512, 248.11852334, -374.48081441, 272.65141436, -80.555274708},
     {-162.59737526, 140.30715357, -984.83131661, 2233.5142049, -2439.5433914, 1266.4290354, -243.8343354},
     {-94.451248827, 1226.1825833, -4411.5883977, 7028.547549, -5432.4220895, 1920.5510883, -229.74995447},
     {-482.16921295, 3535.0604956, -8755.7118472, 9802.7964515, -5189.9131617, 1146.3550852, -61.219283869},
     {-982.01949295, 4808.9951847, -8228.3750808, 6260.0506043, -2069.9590346, 212.644731, 0},
     {-923.36048961, 2997.08024, -3404.6789495, 1597.3972067, -242.93560966, 0, 0},
     {-325.89210043, 662.64486389, -444.1816627, 90.195414082, 0, 0, 0}}}; // error 0.87, rms 0.21
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::hs, GuessPatch::wet, Unknown::t>{Scale::root, Scale::linear, Scale::linear, {33.652898274, 0.030673619908}, {6.430997606, 0.37723279711},
    {{171.70015169, 325.23549087, 14.488971982, -138.03118178, -452.6216645, -782.82738084, -492.28795327},
     {-498.60359717, -17.191071899, 491.4157447, 1864.7853119, 3094.3870304, 667.31571713, -1710.9097996},
     {7.4592048728, -544.04642488, -2621.214338, -4367.8560067, 2022.7325529, 5202.5645765, -2973.4100788},
     {187.83103178, 1435.6904987, 1672.3432033, -8664.8513578, -9000.3051412, 8216.8544407, -2553.8061345},
     {-237.59193652, 796.09356914, 12131.387478, 11718.958902, -4841.7310867, 10206.526503, 0},
     {-407.27907189, -6818.1153255, -7786.7256384, -2821.5728329, -13314.736868, 0, 0},
     {1175.9806236, 1575.9094629, 2406.9846676, 5661.4025686, 0, 0, 0}}}; // error 0.32, rms 0.064
template <>
inline constexpr Surface<5, 5, 9> surface<Pair::hs, GuessPatch::wet_near_critical, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {2121.8528567, 0.0023049970552}, {4.5017671661, 1.4355610908},
    {{350.28777272, -410.63031325, 507.95401597, -6113.1400114, 6590.7519544},
     {410.10492771, -748.92722624, 17353.657847, -10807.431973, -9467.9009554},
     {241.48677068, -16495.582213, -4364.1757236, 24441.24519, 1905.6238749},
     {5255.1847967, 14864.31354, -20643.676278, -3678.4481203, -16.585098524},
     {-6283.7551787, 5669.6694179, 1772.9664447, 16.819318221, 0.21320878741}}}; // error 0.018, rms 0.01
template <>
inline constexpr Surface<5, 7, 9> surface<Pair::pu, GuessPatch::water, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {499.7572682, 0.0020010120906}, {815.99280992, 0.0012258574497},
    {{199.06628712, 193.27620483, -9.299416617, -6.1266502353, -3.973137308, -0.40377385695, 0.93700443315},
     {6.4632144521, 9.1664832094, 5.7072557246, 3.1206388558, 1.068113085, 2.8111432881, 1.9123058022},
     {-0.21248461096, 0.074347300686, -7.7228421364, -8.1641684194, 14.104494191, 6.8729668513, -7.5744820947},
     {0.085886102559, 0.3705464123, 0.07877677852, 0.1691424426, 2.440024487, 1.7264348169, -0.37213763232},
     {-0.26198049339, -1.6193202174, 4.1539572132, 9.8647863989, -8.5034004001, -13.090616872, 0}}}; // error 0.19, rms 0.048
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::pu, GuessPatch::steam_thin, Unknown::t>{Scale::root, Scale::linear, Scale::linear, {3.2006864788, 0.32025904317}, {3019.3410671, 0.0015536812074},
    {{437.41584704, 388.71394038, -22.046992971, -19.663634376, 36.197233409, -22.786485079, 3.8766028616},
     {11.79743852, -15.488242063, 22.675221316, -54.165756515, 56.119555999, 8.0748141151, -26.022452454},
     {5.6089341077, -7.1419945451, 16.877506044, -20.155163036, -19.365265516, 44.63624055, -19.402316646},
     {0.13952806327, 0.43246685812, -2.8696610092, 14.346437736, -22.93218875, -0.88600509741, 13.380480429},
     {-0.66693296025, -1.5144531838, -4.8643212676, 6.4080767625, 18.007058731, -15.624004292, 0},
     {-0.34509795545, -0.70037167939, 3.5504911646, 0.62978749052, -4.2779084231, 0, 0},
     {0.55582799692, 1.3227068243, -1.1446676409, -2.1392930025, 0, 0, 0}}}; // error 0.22, rms 0.055
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::pu, GuessPatch::steam, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {5.2984409135, 0.62173203326}, {3114.7462284, 0.0019097751115},
    {{573.31136743, 239.50939662, 28.946053671, -27.053278603, 10.585976036, 2.2712692717, -3.7648967235},
     {114.42054745, -84.990708888, 26.136380897, 14.745789728, -26.427302092, 4.2415368719, 6.357766107},
     {62.912481724, -13.72948575, -26.639888947, -1.7957536219, -3.0677759314, 26.887675877, -5.4962420714},
     {5.3834310093, 22.819918178, 1.5152654671, -23.508306721, -18.380100218, 47.810351523, -6.5758181256},
     {-11.548154574, 6.696792124, 12.914749237, 27.13640165, -30.107369442, 17.854166718, 0},
     {-1.8812760047, -1.1280190253, -17.107880877, 27.611888921, -6.7466842395, 0, 0},
     {1.9953212758, 1.0578592329, -12.890611367, 2.1865261604, 0, 0, 0}}}; // error 0.25, rms 0.058
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::pu, GuessPatch::steam_dense, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {5.5587336049, 0.74144737026}, {2774.7999234, 0.002964207111},
    {{468.07568181, 96.676670464, 30.825828566, -19.957155069, -33.1238749, -23.107770829, -7.4380642662},
     {158.37713521, -32.921552165, 0.0092658571701, 113.69515599, 156.87221451, 90.044417432, 18.729176482},
     {36.496740863, 15.005668459, -60.715672246, -166.18009385, -249.29444526, -161.64356169, -28.333907946},
     {-3.4466713446, 29.097616279, 28.022501303, 51.508222187, 188.09618885, 140.55861549, 16.824712684},
     {-17.383573169, -46.724160195, -60.673869558, -41.872033509, -69.102875766, -42.273083751, 0},
     {-2.8209875186, 31.040597897, 162.67446755, 185.87409772, 0.57065155398, 0, 0},
     {5.4188767737, -3.9695830997, -87.156643251, -123.02948815, 0, 0, 0}}}; // error 0.49, rms 0.075
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::pu, GuessPatch::liquid_like, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {6.0220772752, 1.1291104851}, {1756.3102226, 0.002978028022},
    {{-6.3559729445, 0.26562437604, 0.085268072075, 0.056482023788, -0.14768540241, -0.081145165711, 0.33454299129, 0.026773690218, -0.20195275938},
     {-0.13845379948, -0.14456455005, -0.052303186282, -0.22925991526, -0.019794778349, 0.74305451556, -0.4274466712, -0.66451887789, 0.56556456513},
     {0.0077792726229, 0.084408850118, -0.043591537882, 0.047279057757, 0.73668400754, -0.62006671266, -0.81453706984, 1.027314605, -0.26670730961},
     {-0.0023507536827, -0.082451500328, -0.081018532446, 0.39763387939, -0.32424893576, -0.63911063868, 0.98936867776, -0.23693006386, -0.06048745463},
     {-0.0077353311547, 0.0368437155, 0.25891730276, -0.24987094193, -0.67815497302, 0.72335993399, 0.02681660832, -0.17422397832, 0},
     {0.0086244381764, 0.059162333288, -0.095465140597, -0.15161946397, 0.48303154434, -0.1344979781, -0.17126248011, 0, 0},
     {0.0016316525086, -0.057499637485, -0.093028183412, 0.1723091263, 0.041334776917, 0.040046843583, 0, 0, 0},
     {-0.0075478336326, -0.026888798379, 0.040263093966, -0.0093418158088, -0.068329372533, 0, 0, 0, 0},
     {0.00338526012, 0.03260571624, 0.011710071945, -0.040597012478, 0, 0, 0, 0, 0}}}; // error 9e-06, rms 5e-07
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::pu, GuessPatch::liquid_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {6.030854799, 1.1404295646}, {1756.5570009, 0.0029967283998},
    {{388.14974415, 47.272624564, -7.1841982805, 5.6165553313, -28.380750072, -1.5927627994, 54.62124619, -15.367303292, -17.991335192},
     {29.83207814, 25.733415689, 24.513261616, -24.613701111, -32.460384124, 80.03821714, -2.7699629305, -39.069521562, 5.1698437016},
     {2.2663615682, -1.0799385808, -15.418826083, -20.027095203, 80.887676741, -27.902811325, -86.45798529, 64.914146054, -1.9368784168},
     {1.0691527858, -8.0037378042, 3.861955815, 92.700178426, -40.789450457, -116.15454813, 94.21750157, -45.366328023, 25.94148252},
     {1.6021247018, -5.3840566589, 3.1329796183, -23.00163876, -28.008095797, 106.86171333, -58.821194993, 19.712993015, 0},
     {1.2125396873, 23.893531528, -9.0473019779, -123.17509556, 44.26919599, 51.46030042, -17.296438162, 0, 0},
     {-4.19806514, 1.1199346459, 12.168321592, 46.917639196, 0.72927812141, -67.884620366, 0, 0, 0},
     {-1.0742232492, -14.139936523, -0.89144042398, 57.25430539, 7.0161801908, 0, 0, 0, 0},
     {2.9176153392, 2.3971269439, -9.39412581, -22.38615767, 0, 0, 0, 0, 0}}}; // error 0.44, rms 0.11
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::pu, GuessPatch::vapour_like, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {6.0162565032, 1.1217363585}, {2294.3476382, 0.0039408567555},
    {{-5.7278736687, 0.35569414778, 0.0070368907007, -0.0074748914904, -0.0011511219613, -0.0052047833277, 0.0035156662971, 0.0060830407589},
     {-0.56219024921, -0.19096316051, 0.034684720766, 0.0038009734381, 0.0076714114095, 0.0063465975169, -0.020369016409, -0.0134693944},
     {0.22898669044, 0.0056877955092, -0.11438833225, -0.032083687791, 0.0015311993276, 0.025425916697, 0.013136482446, -0.011229317936},
     {-0.070020459992, 0.034173836418, 0.025211715927, 0.0096517689725, 0.005713311655, -0.012449587771, 0.041577011032, 0.021835849959},
     {-0.1144705174, -0.061396144414, 0.18223980186, 0.12523088849, -0.008937094505, -0.039254067112, -0.040690034949, 0},
     {0.090549938551, 0.021503153251, -0.056449874162, -0.069721317745, -0.061857887581, 0.020802300141, 0, 0},
     {0.040256347255, 0.060699318507, -0.13339678851, -0.087840333788, 0.05795828226, 0, 0, 0},
     {-0.038905467734, -0.043206914626, 0.066664036673, 0.061039287039, 0, 0, 0, 0}}}; // error 3.3e-06, rms 5.1e-07
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::pu, GuessPatch::vapour_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {6.0111820677, 1.1153699945}, {2294.6715931, 0.0039428609904},
    {{444.37313214, 25.811799302, 3.9878643324, 2.3545111156, 0.4367241795, -0.10886889666, -0.37278696265, -0.10177893589},
     {95.069186271, 31.467567453, -3.1576109391, -3.930062607, -1.2536747912, 1.7003125976, 0.7515206105, -0.12733785577},
     {-4.7296214138, 2.7447041933, 3.4158482956, -0.50842166959, -1.7505544297, 0.68536288017, 0.90789985113, -0.40178553952},
     {1.8028137863, -18.450142692, -13.587449529, 10.930579641, 6.4254041627, -6.0674098387, -1.4176726478, 1.0096577809},
     {-0.82878603524, -0.81124894733, 1.5342836739, 3.4670046147, 0.97992706652, -0.23117490189, -0.2233306643, 0},
     {-2.5803344639, 18.67354361, 16.487603463, -13.762903971, -5.4229420294, 3.4712153919, 0, 0},
     {0.86257139433, 0.82868161304, -1.8461073795, -3.5814225373, 0.63456517744, 0, 0, 0},
     {0.39259781296, -7.7928018442, -4.9071734425, 6.7129708152, 0, 0, 0, 0}}}; // error 0.019, rms 0.0073
template <>
inline constexpr Surface<8, 10, 12> surface<Pair::pv, GuessPatch::water, Unknown::t>{Scale::linear, Scale::root, Scale::linear, {499.94326909, 0.002000259735}, {0.013711082197, 75.443420822},
    {{235.53578066, 237.92672659, -67.967108256, -49.25363191, 90.705192418, 70.932073749, -227.55139782, -217.00004798, 234.58641391, 238.0289311},
     {15.478202952, 39.48418734, -9.6378386903, 26.432164329, 253.66180114, -17.132631531, -1066.6522444, -488.35402217, 1356.338894, 1036.3684871},
     {-3.9570037347, -4.4197211006, 41.080184538, 81.788877558, -155.49661799, -430.81556591, -723.64778229, 121.85209967, 2403.9857327, 1874.5920697},
     {1.3263416962, 13.965968112, -8.7504936456, -39.242498322, -198.02990438, -743.66880647, 29.183000322, 2401.960519, 2658.9222861, 867.64284822},
     {0.9996801557, 14.883031205, -21.598152785, -208.18800153, 14.708208922, 317.94882994, 442.29469216, 1687.91398, 1472.1427848, 0},
     {-2.252847901, -40.909629887, 47.745589585, 284.47180288, 54.195686502, -172.43398028, 82.903462179, 75.242410821, 0, 0},
     {0.62678652474, -15.029712187, -26.246347289, 227.66409569, 211.0956179, -685.54236527, -702.12438848, 0, 0, 0},
     {1.1403683056, 26.533097524, -11.409066232, -171.6644579, -122.09515268, 29.706839296, 0, 0, 0, 0}}}; // error 5.9, rms 0.52
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::pv, GuessPatch::steam_thin, Unknown::t>{Scale::log, Scale::log, Scale::linear, {-0.70521478351, 0.22769764864}, {1.8390468371, 0.20776844781},
    {{400.67435368, 3243.6735065, 7884.5702203, 11218.026668, 8208.7974916, -5709.2326148, -6933.905195},
     {2959.5606605, 14304.027198, 30898.813105, 37147.899603, 25890.358759, -50756.334254, -62173.778157},
     {6497.1882525, 28306.161547, 59667.664323, 138530.35831, -54609.396334, -216701.44827, -55719.996412},
     {8640.4227812, 41226.316282, 206348.13784, 83986.768503, -277491.80576, -183617.22643, 4319.5904123},
     {10448.029104, 128887.51036, 193527.34438, -150853.31815, -226844.75747, 12219.357939, 0},
     {29485.535992, 126635.34973, -25244.219923, -124541.93293, 11542.914689, 0, 0},
     {28025.137983, 2650.9358708, -25662.967427, 3630.862564, 0, 0, 0}}}; // error 2.1, rms 0.28
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::pv, GuessPatch::steam, Unknown::t>{Scale::log, Scale::log, Scale::linear, {5.2972548539, 0.62202854427}, {-3.8404558888, 0.59326777559},
    {{712.41879885, 1294.0392326, 1658.8243116, 619.42450278, -51.947830471, 942.34636867, 1432.8222286},
     {1305.3639742, 2847.6256411, 1976.7963952, 92.516417735, 1673.1428845, 4316.1899138, 893.52277054},
     {1240.9976423, 1960.2044816, 300.58028903, -1089.1246378, 3021.2839924, 3393.8965623, -1276.2662098},
     {608.08605495, 154.0950373, -4664.9934911, -3722.0340171, 6420.2134373, -4144.3315348, -841.22709351},
     {-13.079341934, -3965.040956, -7752.721293, 7137.5029607, -4677.1273087, -2252.6634314, 0},
     {-1129.5675971, -5145.5434872, 4174.6720534, -2083.2403994, -1997.6385588, 0, 0},
     {-1262.1160028, 960.79405968, -271.05900942, -587.80965825, 0, 0, 0}}}; // error 0.14, rms 0.021
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::pv, GuessPatch::steam_dense, Unknown::t>{Scale::log, Scale::log, Scale::linear, {5.5507147411, 0.73700882519}, {-4.7473566359, 0.82519104355},
    {{448.21983949, 227.08844505, 371.36641973, 276.60081138, -559.32022964, -2328.1783825, -2594.4972522},
     {411.51695264, 768.78062586, 704.57230442, -2164.4482234, -10855.672814, -16029.026109, -3076.2843808},
     {403.49574012, 569.73063753, -3217.5735209, -18623.59578, -32902.725681, -6085.1493864, 2495.9622478},
     {116.69255876, -2164.371196, -14250.815876, -26212.311231, 8875.8324272, 15271.90323, 1389.0868812},
     {-566.89769467, -4241.7478384, -2795.2779447, 31630.505425, 31043.906989, 4727.0165411, 0},
     {-88.148489905, 6078.8722956, 27852.162716, 26219.257475, 5203.3784069, 0, 0},
     {2125.1740781, 8114.6079961, 7953.1001835, 1861.6348195, 0, 0, 0}}}; // error 0.35, rms 0.061
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::pv, GuessPatch::liquid_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {6.0321876737, 1.1421733247}, {0.0022376614077, 1087.8433257},
    {{419.4658233, 35.429110131, -19.835989754, 1.4589858311, -84.720153486, 65.237913929, 450.0802404, 614.76439204, 260.45670372},
     {84.078472862, 51.515891324, -30.948941253, -194.83107972, -284.53422005, 771.58675767, 2707.7580723, 2813.6610173, 994.77731909},
     {32.705985713, 5.1500042904, -213.62955809, -837.58648267, -711.3644066, 2277.5522928, 5626.4868218, 4519.7536772, 1234.0793365},
     {6.489207842, -102.58817788, -843.73891498, -2356.4018952, -2021.0660902, 2005.6130293, 4755.5191172, 2848.334342, 508.13036492},
     {-17.883375105, -354.0418284, -1866.2229224, -4110.3436744, -3749.2230617, -397.46199163, 1294.684649, 519.30687132, 0},
     {-54.071878167, -582.88279606, -2207.9333834, -3794.1068152, -3035.5206976, -957.05436663, -40.770378381, 0, 0},
     {-60.578943811, -443.60811181, -1179.8825111, -1405.2325706, -710.49574482, -95.841597915, 0, 0, 0},
     {-20.343047517, -97.616483154, -123.76860614, 8.5130860582, 65.56971593, 0, 0, 0, 0},
     {3.7080032264, 26.227476494, 55.373123602, 36.778363673, 0, 0, 0, 0, 0}}}; // error 0.063, rms 0.02
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::pv, GuessPatch::vapour_like, Unknown::t>{Scale::log, Scale::log, Scale::linear, {6.0112479398, 1.1154465484}, {-5.5142678807, 1.2978905957},
    {{461.42115759, 71.864852404, 44.1861414, 37.474535539, -5.2253715098, -39.83646854, -38.095917558, -5.4188510189},
     {173.83060361, 158.35796272, 76.361487652, -20.437006488, -183.3328359, -248.64976212, -144.20966899, -27.096507331},
     {83.975004567, 99.00947966, -22.626868947, -321.48846591, -589.71036024, -474.27813861, -139.65445684, -3.1879550526},
     {26.016927841, -0.1089579191, -218.67766635, -595.73508995, -621.88112569, -162.81188845, 84.535343061, 21.282366346},
     {1.3828715148, -59.247964667, -228.4712287, -255.19886107, 115.08590394, 337.20198524, 120.65895922, 0},
     {-1.3563027567, -13.123708263, 64.718486239, 367.15777823, 527.35034011, 221.85117645, 0, 0},
     {6.3093911785, 56.424120211, 221.61589466, 359.35056302, 185.77567761, 0, 0, 0},
     {5.5909179976, 37.417719069, 86.056041715, 55.596519706, 0, 0, 0, 0}}}; // error 0.0038, rms 0.0012
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::th, GuessPatch::steam_thin, Unknown::primary>{Scale::linear, Scale::linear, Scale::linear, {399.9530728, 0.0025007706181}, {3330.0057072, 0.0012072719299},
    {{-34.532741377, -582.54022545, -176.62868065, 1278.6575419, 2294.9842832, 492.32888399, -1279.4998903},
     {536.82043613, -224.75082762, -1259.7468711, -1123.1440392, 2954.68794, 5198.7224528, -25.429953884},
     {442.079067, -1020.4815053, -7744.484879, -11284.894583, -3001.9034788, 8729.8201108, 4965.7669215},
     {1031.6424931, 9083.0418585, 8403.2375347, -11499.714086, -23217.522873, -8614.5649471, 3700.724228},
     {-2566.9952044, 1751.9570558, 19677.595523, 18721.514595, -5972.4232096, -11835.082738, 0},
     {-2291.146855, -10671.886249, -2216.2122241, 17779.533146, 12618.468454, 0, 0},
     {1650.9023857, -2006.0910832, -8182.0706094, -4480.689217, 0, 0, 0}}}; // error 0.054, rms 0.012
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::th, GuessPatch::steam, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {525.40727324, 0.0036435991264}, {3459.3165251, 0.0014799789885},
    {{4.3909299676, -7.9407933514, -32.649552176, -118.80102126, -271.4318406, -324.35305444, -151.23405408},
     {7.7777525902, 56.05461444, 309.61223595, 940.58087849, 1363.6149331, 630.05210914, -167.82483609},
     {-23.90751138, -266.67571453, -1221.8790356, -2345.4303882, -1203.5986438, 794.72404689, 187.16162041},
     {76.156303802, 705.7695023, 2057.6499253, 1412.7274688, -1359.1362039, -648.16496873, -52.315796591},
     {-153.2839832, -915.91379854, -1046.6994732, 1043.8690966, 824.66628425, 137.95011164, 0},
     {164.32004714, 429.5255382, -343.78594386, -454.5530041, -121.57091133, 0, 0},
     {-70.445473443, 32.22077064, 90.758787848, 35.930633161, 0, 0, 0}}}; // error 13, rms 1.7
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::th, GuessPatch::steam_dense, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {513.01513959, 0.0043354957366}, {3058.3618019, 0.002229631895},
    {{5.8618427596, -0.79119460394, -0.42751682071, -0.22003891952, 0.42780675456, 0.79511345538, 0.39484816106},
     {1.8810920807, 0.62238417187, 0.78979184459, -1.1869191604, -1.916294774, -0.17094680017, 0.8948697538},
     {-0.32703234986, -0.96572338299, 0.61736166086, -0.060626270291, -3.5651939255, -3.7039576464, 0.76912444071},
     {0.44901983356, -0.026291196848, 3.6862269737, 8.8668726804, 7.0776252389, -1.4345681141, 0.7307689202},
     {-0.053924036463, -2.9389919319, -7.2335952562, -6.7423266124, -0.42678006173, -1.9861848923, 0},
     {0.89657885335, 2.3198250474, 2.3640392086, 1.3182542614, 1.0873382326, 0, 0},
     {-0.19421273097, -0.71921668836, -0.49602853864, 0.63224333964, 0, 0, 0}}}; // error 1.5, rms 0.27
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::th, GuessPatch::liquid_like, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {421.2041695, 0.014045544684}, {1914.5723496, 0.0027587862677},
    {{-6.4695121621, 0.88803251398, -1.5797460644, 2.2203890901, 8.5816067145, -7.5462529154, -86.382384168, 193.23163404, -116.34913987},
     {-0.75218634721, 2.7615107622, -6.2406044378, -34.663627132, 147.30273776, -20.344126929, -551.18614608, 748.94325361, -265.85363693},
     {-1.03793707, 5.7271814408, 50.949734753, -375.72634086, 669.6516377, 115.26546636, -1218.8409203, 810.41916765, -64.012931399},
     {-1.1878056214, -33.648418045, 380.85650416, -1102.4699461, 774.60160587, 804.47076897, -591.93645013, -559.12640502, 221.71214569},
     {7.7269868185, -183.20530265, 775.72996286, -672.00302378, -1024.9453421, 511.19799863, 2039.5121635, -1239.1568354, 0},
     {34.701440341, -293.30329047, 188.6789223, 1651.1779077, -1919.8147225, -1910.0207415, 2306.4536287, 0, 0},
     {60.664019824, -90.471003905, -1027.5996374, 2352.2664444, 19.864679389, -1819.1377537, 0, 0, 0},
     {51.455463136, 160.15964472, -1009.2566839, 720.26077041, 550.41802255, 0, 0, 0, 0},
     {18.106565529, 102.56090282, -244.21640919, -16.312071994, 0, 0, 0, 0, 0}}}; // error 4.1e-05, rms 4.6e-06
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::th, GuessPatch::vapour_like, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {471.9389213, 0.0084735040016}, {2459.6992118, 0.0028859933738},
    {{-5.8463298888, 0.60151990698, 0.030489512323, 0.0090015164244, -0.0022346414426, 0.017947252008, -0.025210850574, -0.01047066814},
     {-0.73026858719, -0.065012301243, -0.017187968859, 0.082402130609, -0.10335124387, 0.12044887851, -0.06400479438, -0.1055710249},
     {0.097826683466, 0.057343046568, -0.28265285943, 0.32054257807, -0.23865352174, 0.26276364278, 0.23135200235, -0.22674069305},
     {-0.21556099901, 0.34490115408, -0.48097036807, 0.24847361644, -0.37752609271, 0.045759265232, 0.72283898974, -0.14696324728},
     {-0.064272500764, 0.31929947256, -0.22381306514, 0.35470688267, -0.58490967903, -0.51385528958, 0.50341529152, 0},
     {0.1147533157, 0.18775523767, -0.35952716701, 0.82933063959, -0.46686630273, -0.45297670799, 0, 0},
     {-0.17321920631, 0.28251113713, -0.55324523604, 0.71935300535, -0.10943915313, 0, 0, 0},
     {-0.19015542519, 0.17803917471, -0.22348678969, 0.211676038, 0, 0, 0, 0}}}; // error 5e-07, rms 6.8e-08
template <>
inline constexpr Surface<9, 8, 10> surface<Pair::ts, GuessPatch::water, Unknown::primary>{Scale::linear, Scale::linear, Scale::linear, {174.99847038, 0.0057166139366}, {1.8848860693, 0.53056481846},
    {{2716.5117778, -50802.697528, 486141.01274, -3191707.2747, 7824931.2145, 6857036.2247, -12599697.831, -1858392.8782},
     {42463.291496, -814352.84078, 8330963.251, -30237132.487, -5463709.6711, 22997952.699, -591638.3428, 16284772.677},
     {331702.58155, -6993880.9221, 39531504.897, -5604960.0042, -32859979.562, 11125532.976, 1919769.8527, -16705499.58},
     {1891309.7885, -21056767.93, -1581698.2639, 90966256.404, -25687149.627, -102627808.73, 39323046.322, 2194196.9231},
     {3845760.6472, 9702215.6091, -127078273.72, 28134451.101, 153223661.61, -6286986.4943, -28718253.901, 0},
     {-3873017.3765, 74062813.107, -14223194.103, -102506931.55, -32023297.496, 70956326.863, 0, 0},
     {-15346397.041, 3876639.5011, 64816325.702, -5171988.8687, -68357691.498, 0, 0, 0},
     {-948127.81183, -45781159.085, 36603932.204, 26843630.487, 0, 0, 0, 0},
     {14657810.858, -15631598.959, -2961599.9791, 0, 0, 0, 0, 0}}}; // error 2.9e+02, rms 17
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::ts, GuessPatch::steam_thin, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {400.09032643, 0.0025007690492}, {8.985328082, 0.35027139943},
    {{-0.95262587226, -6.1761764438, -0.041573482303, 0.030423901525, 0.0093223955474, 0.18757912872, -0.25531508094},
     {2.654121768, 0.0017279996265, -0.022933344908, 0.058589193183, -0.085933928425, 0.0079192340352, 0.070358160855},
     {-0.62491796828, 0.014433197837, 0.044470323841, -0.10212436045, -0.39896844966, 0.46887597452, 0.45799304995},
     {0.23849296062, -0.0050610914985, 0.19777555765, 0.14380284659, -0.2948036324, -0.79184545567, -0.29190037341},
     {-0.098640286678, -0.020865936551, -0.23632024314, 0.28619027183, 0.82926749487, 0.19579989375, 0},
     {0.095262244063, 0.0090921268404, -0.21878206299, -0.35234749659, -0.17860283338, 0, 0},
     {-0.057242482495, 0.0071748124065, 0.22018035942, 0.050232609617, 0, 0, 0}}}; // error 0.056, rms 0.005
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::ts, GuessPatch::steam, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {526.23004305, 0.003652970666}, {6.8476227152, 1.0024233885},
    {{4.3072798703, -1.8601929664, -0.26882603353, 0.13120714493, -0.0078386841849, -0.035699398484, -0.0020535881688},
     {1.5286642814, 0.093814418361, -0.038620968348, -0.047497953491, 0.065081191754, 0.062864205249, 0.041435139233},
     {-0.21619893143, 0.02341573302, 0.017409996607, 0.0048657853626, -0.14257152647, -0.34188894996, -0.16470183452},
     {0.068073970203, -0.035438239069, -0.0047353582182, 0.14509460458, 0.61252361454, 0.55023753911, 0.12245428178},
     {-0.017291232256, 0.013461285708, -0.119025368, -0.50389898163, -0.71492186795, -0.264477919, 0},
     {-0.002860726314, 0.0052744744142, 0.20678591355, 0.45636247021, 0.240631508, 0, 0},
     {0.0027975792432, -0.0080868398925, -0.085130751316, -0.12010273863, 0, 0, 0}}}; // error 0.21, rms 0.043
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::ts, GuessPatch::steam_dense, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {514.23078824, 0.0043267945333}, {5.4494351841, 2.4965160444},
    {{6.0981841554, -0.32422132132, -0.030883375478, -0.021345008629, 0.0022938149932, 0.003377782182, 0.0010180675391},
     {1.3622462366, -0.15984064042, 0.11749542378, -0.065500123078, -0.0086446766463, 0.011906616222, 0.015343849409},
     {-0.14728527912, -0.045380563726, 0.08714133362, 0.013059574965, -0.057712480687, -0.031842669705, 0.021051493806},
     {0.21541254002, -0.20166614535, -0.080583018657, 0.35514103859, -0.17715640372, 0.0089614312939, -0.034424814063},
     {0.062609146654, -0.12570463813, -0.15001466647, 0.15561851496, -0.010407306067, 0.048682313109, 0},
     {-0.17370910133, 0.34563807663, -0.042110570267, -0.40509542464, 0.26797167619, 0, 0},
     {-0.13145576255, 0.29474537326, -0.050478894418, -0.11397172702, 0, 0, 0}}}; // error 0.88, rms 0.18
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::ts, GuessPatch::liquid_like, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {420.7591429, 0.014134042057}, {3.9231532609, 1.9249950009},
    {{-6.4965110628, 0.37150666681, 0.075766778868, 0.047064470712, -0.16370538864, 0.54997007418, -0.89922861627, 0.65297259583, -0.1708049505},
     {-0.21075240681, -0.087297401686, -0.19854143936, 0.83177873273, -2.4975660567, 3.5343350383, -1.7632434092, -0.39947062028, 0.45043069524},
     {0.062082187649, 0.24632412128, -1.5863249099, 5.9212246383, -8.8912004264, 0.96422000494, 10.678257013, -9.4475586137, 2.1702865754},
     {0.0091248701016, 1.2269493623, -7.5888187031, 16.708708442, -6.8458080924, -26.174045874, 37.874502919, -16.916587737, 1.6301056703},
     {-0.30929034536, 4.5612559701, -17.92013076, 22.628861525, 13.319264994, -54.926718638, 41.330345784, -8.6704881856, 0},
     {-1.5305650636, 9.487981655, -25.065325542, 19.272803413, 22.113583874, -38.970916204, 14.946036666, 0, 0},
     {-2.0453675518, 11.455651327, -24.140761457, 17.095503328, 5.4196935453, -7.9440533659, 0, 0, 0},
     {-0.66316143197, 7.4097544814, -16.467907379, 12.622403866, -3.2023984673, 0, 0, 0, 0},
     {0.18617525012, 1.9673734343, -5.6217436624, 3.7077489106, 0, 0, 0, 0, 0}}}; // error 2.2e-06, rms 4.4e-07
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::ts, GuessPatch::vapour_like, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {470.8896091, 0.0084005897437}, {4.8521231128, 2.4447053941},
    {{-5.8087879171, 0.45373445304, 0.032134934104, -0.0066180054265, -0.013495630969, -0.0043909003382, 0.022791961219, 0.015519402749},
     {-0.47338958498, -0.075241584234, 0.037541333591, 0.0018360078934, -0.028557030628, 0.031767774959, 0.11150791144, 0.059837089917},
     {0.15313124502, -0.010285309656, -0.11675054406, 0.0025854816885, 0.15159615009, 0.081561676421, 0.062261670352, 0.047191332099},
     {-0.17023960755, 0.12931013182, 0.037003798877, -0.22242321927, 0.080693936165, 0.0029236831243, -0.13267989182, 0.0030845586618},
     {0.014027109279, -0.1398970089, 0.44156961491, -0.23489074334, -0.57425495592, 0.054328567128, -0.088340345731, 0},
     {0.22118455057, -0.21147955547, 0.042553169532, 0.54499911781, -0.68086796102, 0.11303505828, 0, 0},
     {-0.050133095156, 0.19824961887, -0.6437060151, 0.94238361313, -0.22221949666, 0, 0, 0},
     {-0.12675099932, 0.23585943187, -0.43324638553, 0.35788634056, 0, 0, 0, 0}}}; // error 2.2e-06, rms 3.7e-07
template <>
inline constexpr Surface<9, 8, 10> surface<Pair::tu, GuessPatch::water, Unknown::primary>{Scale::linear, Scale::linear, Scale::linear, {175.01934189, 0.005715894671}, {811.28030816, 0.0012333868114},
    {{-1223.8546038, -18343.397187, -111274.37102, -875697.15783, -2159791.2302, -3036681.2069, 1847349.8797, 5254950.5692},
     {17472.135929, 181203.31387, 1971925.0826, 5743333.3163, 10250951.032, 7917465.2633, -16769955.694, -16153737.97},
     {-68078.638988, -1277919.8469, -3413529.3997, -2450127.2377, -23281338.328, 1975669.5572, 36559340.127, 2414863.0302},
     {195167.40244, -1329930.3642, -18964515.226, -2245808.876, 25366887.027, -17300329.189, 14166223.593, 8786189.0975},
     {1158432.0015, 19263835.558, 35279411.924, -16703776.391, -12169400.732, -20350450.073, -36671602.939, 0},
     {-5105921.2913, -22538689.446, 7402766.4078, 33590705.681, -31072933.894, 31220653.754, 0, 0},
     {3029817.9827, -11471428.212, -50716168.263, 40644332.054, 34055575.303, 0, 0, 0},
     {4998413.2342, 30433912.587, 7365418.2114, -59025015.289, 0, 0, 0, 0},
     {-4262383.4248, -13191132.411, 21645104.448, 0, 0, 0, 0, 0}}}; // error 6.7e+02, rms 41
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::tu, GuessPatch::steam_thin, Unknown::primary>{Scale::linear, Scale::linear, Scale::linear, {399.97969749, 0.0025002756333}, {3019.4210601, 0.0015531612628},
    {{-48.827230265, -652.23511116, -266.39704483, 1526.5220713, 3460.8030369, 1921.3788967, -1268.3189434},
     {595.6467393, 104.32562884, -495.89602925, -848.77848516, 2526.3847761, 7301.7324548, -846.36590692},
     {246.10903436, -2701.7627248, -12570.609523, -15770.066185, -6196.5176615, 13531.274263, 5734.1934855},
     {1708.9954787, 13066.27939, 9703.2048882, -16136.697323, -30516.669441, -10385.214323, 3899.5151218},
     {-3248.2797445, 6301.4941675, 29991.408283, 19182.1396, -6626.9168193, -12803.856053, 0},
     {-4654.9836773, -15172.904539, 3953.389739, 21411.284205, 14041.649451, 0, 0},
     {1636.7521663, -5313.8778535, -10183.320837, -5135.7822919, 0, 0, 0}}}; // error 0.054, rms 0.017
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::tu, GuessPatch::steam, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {526.05964568, 0.0036504734741}, {3113.1771768, 0.0019122757641},
    {{4.3923363358, -8.2090191604, -34.71953328, -124.08394458, -271.5194973, -308.42193819, -136.98591868},
     {8.0373354845, 60.219864804, 325.89718054, 956.72789597, 1364.3419277, 689.18423743, -80.806654462},
     {-25.918532453, -281.60157144, -1247.2713019, -2396.4538593, -1518.5189213, 327.11896672, 112.36004376},
     {80.317195023, 713.25446436, 2080.6272051, 1830.7690058, -470.38073089, -376.87512977, -14.538424047},
     {-151.12375834, -888.65136259, -1238.8528968, 273.07862331, 470.29474115, 41.649011225, 0},
     {148.3993021, 432.18601562, -37.886273111, -257.17665044, -39.457899005, 0, 0},
     {-57.931120767, -11.179124865, 51.524332325, 12.451237606, 0, 0, 0}}}; // error 7.9, rms 1.7
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::tu, GuessPatch::steam_dense, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {512.0818886, 0.0043722111835}, {2768.2514238, 0.0029224905011},
    {{5.9263355646, -0.68325245914, -0.3444492281, -0.27288521423, 0.024945754282, 0.26605889691, 0.15761712212},
     {1.7541694548, 0.47489353392, 0.86710878934, 0.041167126395, -0.30693581568, 0.1213431825, 0.38308914053},
     {-0.31678697972, -0.89054429224, -0.49469396652, -0.89432860197, -2.7400359414, -3.3990774929, -0.80585200354},
     {0.38638891038, 0.23611707097, 2.1779212595, 6.1804600466, 7.58142284, 2.6701543392, -0.53717472113},
     {-0.030353596915, -1.2364736875, -4.7374244254, -6.9775750363, -2.8351739315, 3.3965532403, 0},
     {0.40225592223, 1.8758898281, 2.4805258496, 0.31480773232, -5.8064698161, 0, 0},
     {-0.37549239236, -0.95366712966, 0.31261412796, 3.496868365, 0, 0, 0}}}; // error 2.2, rms 0.31
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::tu, GuessPatch::liquid_like, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {420.72631536, 0.014140250319}, {1757.29199, 0.0029961120514},
    {{-6.4858584012, 0.41151287265, 0.071614900633, -0.046778840241, 0.46035658039, -0.68389144115, -0.22515488094, 1.123224003, -0.60587286491},
     {-0.25174895884, -0.096837707408, -0.012527824566, -1.1173529012, 3.9098201043, -4.8650778073, 0.066877959948, 4.0947086849, -2.1464142786},
     {0.06250072277, 0.16150356674, 0.39597212418, -4.8325995198, 14.525857573, -17.440617397, 6.4604427314, 3.1265355169, -2.3761104437},
     {0.0095300682091, 0.61622512533, -0.48256473757, -9.1410384126, 29.039173347, -36.253011478, 19.454920359, -2.2144770303, -1.0158382226},
     {-0.34116927763, 3.0898032226, -6.1600863972, -3.4050385914, 27.020566163, -38.59212451, 20.698821424, -1.9514800751, 0},
     {-1.625056759, 7.7859661197, -18.710237938, 20.727976785, -0.23763231482, -15.65176558, 7.3666729562, 0, 0},
     {-1.9821229151, 11.106237855, -30.432048988, 40.368770494, -18.735563099, -0.68699346219, 0, 0, 0},
     {-0.32455839775, 8.5848223866, -26.248979104, 27.26353309, -8.8376400183, 0, 0, 0, 0},
     {0.41210702736, 2.8503261065, -8.9564378074, 5.6181104623, 0, 0, 0, 0, 0}}}; // error 2e-06, rms 4.9e-07
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::tu, GuessPatch::vapour_like, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {471.81280699, 0.0084676155266}, {2295.3341061, 0.0039555432604},
    {{-5.8716017292, 0.47262473017, 0.054630353036, -0.0013816355496, 0.010834506203, 0.010307047284, -0.015809175263, -0.016699103569},
     {-0.58436701687, -0.16162950717, 0.012091554765, 0.0098535948703, 0.0067957165432, 0.03889876836, -0.022129918703, -0.063766203919},
     {0.18786053376, 0.025707729193, -0.10908314727, -0.028821598075, 0.006692817024, 0.049537982472, 0.12512700958, -0.034808985234},
     {-0.2305287093, 0.15512743742, 0.091460245054, -0.24539443428, 0.0088679259235, 0.066964963742, 0.17019169226, 0.016420822904},
     {0.027689900806, -0.17050366, 0.36049698727, -0.052863904633, -0.28536990222, 0.049309107264, 0.019151047998, 0},
     {0.30709544251, -0.15978524835, -0.073158354435, 0.44148298022, -0.59587513684, -0.0037820688007, 0, 0},
     {-0.10395658509, 0.18622874014, -0.3825027228, 0.5712596271, -0.28866285953, 0, 0, 0},
     {-0.20204569458, 0.13697992439, -0.14319079541, 0.26807893794, 0, 0, 0, 0}}}; // error 1.5e-06, rms 2.2e-07
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::tv, GuessPatch::water, Unknown::primary>{Scale::linear, Scale::linear, Scale::linear, {175.02262586, 0.005715113193}, {0.0013356615238, 2638.5812486},
    {{-878.23763295, 3804.8746571, 23001.714949, 45619.409038, 47788.727589, 16327.924084, -445.84983851},
     {2032.6596027, -16138.177793, -84123.325967, -167915.35734, -138219.81311, -39350.32274, -69.261530631},
     {-6566.5367289, -1259.4932848, 79154.898617, 160338.91408, 112159.69011, 27223.77018, 778.84251743},
     {21656.529549, 71295.572732, 85953.510583, 53452.302486, 15859.540878, -988.65446615, -146.69251094},
     {-30193.471761, -121472.06169, -200895.98658, -159125.33292, -51846.46556, -3736.057762, 0},
     {19912.409312, 82353.139829, 122044.20358, 73767.865412, 15442.053935, 0, 0},
     {-5074.6214068, -20462.030207, -22875.633467, -8009.6414357, 0, 0, 0}}}; // error 2.3, rms 0.57
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::tv, GuessPatch::steam_thin, Unknown::primary>{Scale::linear, Scale::log, Scale::log, {399.89490101, 0.0025008452469}, {1.851682602, 0.20752249794},
    {{-0.71849156797, -4.8157043314, -0.0148679296, 0.01048171636, 0.0094501938794, 0.024123827598, -0.035768982369},
     {0.59351354679, -0.011026522275, 0.065208217912, 0.015148465164, -0.16621758785, -0.07039936404, 0.19073094335},
     {-0.18076743259, 0.012696824001, 0.010167130788, -0.037276098888, -0.011312456672, 0.10311410445, -0.09897029612},
     {0.071293867133, 0.0086696719354, -0.09664750871, -0.020156137316, 0.31910457065, -0.12691612163, -0.093364043416},
     {-0.025207433433, -0.0068021679749, -0.036743295807, 0.097595110202, -0.13133618845, 0.093364186355, 0},
     {0.024248771043, -0.024222475861, 0.087870592871, -0.090415809566, 0.014736288101, 0, 0},
     {-0.016393270044, 0.02061221983, -0.027313053282, 0.012681991693, 0, 0, 0}}}; // error 0.034, rms 0.0041
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::tv, GuessPatch::steam, Unknown::primary>{Scale::linear, Scale::log, Scale::log, {525.37241802, 0.0036413593347}, {-3.8351480483, 0.59352135473},
    {{5.0224314299, -1.4896958525, -0.15950346821, 0.077868176527, -0.014335452955, -0.014087871195, 0.010398307816},
     {0.4712389727, -0.22579493448, 0.20231199951, -0.12411851278, 0.058874144663, -0.01566946581, 0.00088040307249},
     {-0.14125624912, 0.15706300891, -0.17448138139, 0.15671423337, -0.058132644356, -0.021525457466, 0.0047619545739},
     {0.06153034111, -0.13189408117, 0.18305334065, -0.089320607778, -0.076748116008, 0.071279976941, -0.0010644626111},
     {-0.048425214143, 0.13267578959, -0.11301911832, -0.10533202459, 0.17833201999, -0.04191430659, 0},
     {0.054261286943, -0.07818387689, -0.029290323004, 0.14684931702, -0.087982832087, 0, 0},
     {-0.026212153134, 0.014186251749, 0.046618593393, -0.041233912532, 0, 0, 0}}}; // error 0.28, rms 0.041
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::tv, GuessPatch::steam_dense, Unknown::primary>{Scale::linear, Scale::log, Scale::log, {513.84079734, 0.0043184762011}, {-4.7407622257, 0.83038733781},
    {{5.7358438876, -0.86647619629, -0.033669208318, 0.46511454351, 0.88865039304, 0.71318774899, 0.28858893623},
     {0.59921702895, -0.17498678589, 1.4355187789, 3.1136854136, 3.5898164416, 1.6564779946, 0.18606571438},
     {-0.14535316434, 1.1888220518, 3.2171746738, 4.1744637577, -0.39570280231, -4.195544443, -2.5367595259},
     {0.31458477935, 0.77823258752, -0.44149043275, -9.7542507773, -18.58095431, -13.166769463, -2.1213353664},
     {-0.20067938077, -2.3249193715, -13.125567419, -27.124476589, -24.191628319, -7.2109773218, 0},
     {-0.60988866186, -5.7604404286, -15.749577638, -18.664449365, -8.3513745539, 0, 0},
     {-0.59713654428, -2.8678840909, -5.1282199955, -3.2348174903, 0, 0, 0}}}; // error 0.35, rms 0.064
template <>
inline constexpr Surface<8, 7, 10> surface<Pair::sx, GuessPatch::wet_low_s, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {-2.8850697933, 0.4485818162}, {0.18007133917, 5.5578453093},
    {{140.21885285, 30.62836827, 26.016163354, 4.5331464736, -13.753353812, 1.4300594333, 6.6272815687},
     {198.43996545, -44.432793517, -24.733046284, 58.823461753, 19.25096179, -60.662750799, -33.423562055},
     {38.589236841, -71.664950166, -142.65684573, 99.650855572, 170.32153936, -49.421364717, -33.431756261},
     {9.1275079404, 141.42378936, 15.831378496, -244.4918095, 17.915369391, 211.52048487, 85.566481002},
     {-67.189862052, 94.84739038, 346.36863909, -199.7684917, -259.16857119, 110.73923501, -30.245814509},
     {9.9622262548, -185.41125955, -65.084512358, 231.29116122, -180.65792519, -220.54447433, 0},
     {63.139521444, -49.303785702, -340.04958191, 52.539955944, 253.55525985, 0, 0},
     {-41.816757258, 81.753652367, 181.9892061, 6.2668055402, 0, 0, 0}}}; // error 7.4, rms 1.1
template <>
inline constexpr Surface<8, 7, 10> surface<Pair::sx, GuessPatch::wet, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {-2.3569507679, 0.59240607721}, {0.81505441477, 5.4070272591},
    {{99.9434292, 23.996928264, -12.75221497, 1.5785574786, 1.9113495593, 1.6643307887, -0.70188940838},
     {164.42116497, 32.243981266, -20.439736121, 9.4799205514, 0.18365773929, -3.783876227, -6.3883413895},
     {115.61132263, -29.365853301, 28.422263616, 93.664139718, -102.1955993, -20.164017605, 9.7483989544},
     {97.663183691, -135.66519848, 57.145788609, 39.020118889, -64.886698756, 47.617905937, 22.531650507},
     {-14.331165484, -10.009572661, -40.288770586, -265.83114844, 290.12307203, 48.31703558, -25.142878393},
     {-126.3468123, 183.6349684, -29.328395056, -127.51211545, 76.436639576, -74.505374425, 0},
     {-29.19169956, 20.381373171, 27.302191302, 167.67739917, -205.60149608, 0, 0},
     {41.540358353, -86.177379548, -8.2199999942, 85.872684271, 0, 0, 0}}}; // error 5.6, rms 0.98
template <>
inline constexpr Surface<9, 9, 12> surface<Pair::sx, GuessPatch::wet_near_critical, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {-0.35283395598, 3.1422452008}, {0.50001376159, 2.0000596292},
    {{369.5396797, -3.0265626037, -3.0380017279, 13.41047959, 6.8517190556, -20.5587225, -6.2372161324, 10.116417703, 1.929681885},
     {13.551782784, -11.118714956, -11.002012937, 51.374293736, 30.808028773, -81.833805242, -36.473976844, 41.418810319, 15.214679599},
     {-13.782815395, 24.657191331, 29.209247243, -109.9292549, -55.429211427, 166.26473734, 37.946893202, -80.540893788, -6.4878699795},
     {-3.7396048342, 16.866957648, 27.586445506, -94.184908394, -72.365602491, 162.8138952, 78.546185425, -85.126039023, -29.848976418},
     {12.49824182, -32.815643671, -55.793607889, 131.66980049, 84.480029921, -174.33875462, -33.822998568, 75.193017847, -5.0707687354},
     {3.2512839674, -11.350379135, -16.11099254, 69.855102135, 27.338788955, -117.82445355, -13.7922041, 56.46537945, 0},
     {-8.3769508402, 14.152628064, 41.330924817, -38.857070689, -54.768726642, 22.385098921, 20.422387741, 0, 0},
     {-1.2465925219, 3.4342070762, 4.4639555736, -15.033009559, -4.4544262236, 14.8116847, 0, 0, 0},
     {1.6482997404, -2.8795921553, -8.5611808559, 5.7149230146, 6.9168987147, 0, 0, 0, 0}}}; // error 0.35, rms 0.092
template <>
inline constexpr Surface<9, 9, 12> surface<Pair::us, GuessPatch::water, Unknown::primary>{Scale::root, Scale::linear, Scale::linear, {1.3505412248, 0.74099255483}, {1.875617657, 0.53221720493},
    {{895.87841553, -368.7731806, -284.76735258, -34.035427575, -76.699263357, 46.662659586, 68.384868633, 3.0368984767, -35.606134933},
     {1003.4069122, -299.73734378, -540.89830805, 887.34909385, -1519.0661326, -1085.7008708, 3122.093754, 80.331470403, -1422.3768772},
     {3.5667076204, 717.88712983, -2249.9184297, 7471.1921279, -10710.259971, -3686.148157, 16908.289356, -6526.2541106, -1978.2197874},
     {-647.99824443, 785.86215402, -5568.851263, 33466.214387, -44923.467773, -16328.899714, 65176.279783, -36696.277904, 4745.8286306},
     {1528.7845426, -13760.834332, 833.88010976, 85960.882007, -87216.589836, -86826.120051, 157627.12066, -63607.754881, 6797.9405432},
     {15213.612959, -60946.001865, 28837.982602, 110225.18726, -45341.976056, -188896.47458, 177990.10615, -35522.877968, 0},
     {33337.170662, -105987.5387, 61207.804864, 53788.274008, 49596.418089, -165252.91126, 70763.794003, 0, 0},
     {29916.65976, -84757.618161, 56941.466397, -6893.2970308, 49974.123649, -47575.652777, 0, 0, 0},
     {9722.3406072, -25842.494779, 20194.077451, -9052.9158716, 6623.8403875, 0, 0, 0, 0}}}; // error 16, rms 2.7
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::us, GuessPatch::water, Unknown::t>{Scale::root, Scale::linear, Scale::linear, {1.3376880468, 0.74811770961}, {1.8746384297, 0.53318818322},
    {{162.35459381, 194.03333334, 29.866648013, -1.8932509805, -2.5778003042, -15.543091962, -12.868605078},
     {8.7033371966, 8.9256354265, 21.527238108, -0.031278006541, -48.619030634, 3.7253444451, 32.165180943},
     {0.4275260611, -27.729467852, 66.174365411, 54.049242072, -166.34717434, -17.705876851, 99.915169681},
     {19.365080061, -116.3373838, 61.741406966, 228.94163979, -157.91295716, -88.086217884, 53.290303628},
     {66.678248828, -180.82119591, -15.071099119, 274.58852292, -93.698182505, -50.891422414, 0},
     {82.565768951, -135.20512075, -67.11540607, 163.35983389, -48.175769181, 0, 0},
     {34.392479402, -43.040530449, -36.70463, 55.281140956, 0, 0, 0}}}; // error 0.31, rms 0.11
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::us, GuessPatch::steam_thin, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {3019.3318428, 0.0015537675195}, {8.9922990356, 0.34442004775},
    {{-0.76305985834, -6.2935982273, 0.0033358616199, -0.0019844061965, 0.036197679526, -0.081664555012, 0.045922008011},
     {2.5487594904, 0.0050967672937, -0.03635696209, -0.083059703226, 0.15518063121, 0.089859996538, -0.15217670775},
     {-0.77580960327, -0.010260216233, 0.13692151799, -0.15598024847, -0.36748562527, 0.25374017476, 0.28852903721},
     {0.29421863763, -0.034398065531, 0.21291685835, 0.52672162321, -0.29956617725, -0.6537457408, -0.1485740314},
     {-0.11282159533, 0.035315065575, -0.44679264926, 0.092374114411, 0.85259489061, 0.28420612002, 0},
     {0.14549124027, 0.036949393222, -0.21714466193, -0.58309777161, -0.24980179896, 0, 0},
     {-0.095936097792, -0.031991901811, 0.35839323651, 0.14470922339, 0, 0, 0}}}; // error 0.049, rms 0.0047
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::us, GuessPatch::steam_thin, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {3019.0807334, 0.0015549418327}, {8.9833998153, 0.347661604},
    {{431.27211787, -1.9441487601, 8.5786664968, -7.6414099396, 0.25598624469, -42.445999569, 57.615041449},
     {397.38519253, -2.4626120594, -6.5342431523, -1.2120691148, 113.44915964, -60.398191703, -127.44945947},
     {-31.976274129, 3.348673283, -17.745270393, -84.350281412, 113.11605291, 186.93922237, -73.009273673},
     {2.8008942947, 5.4786847281, 32.542581302, -60.642549907, -260.49581505, 126.1747344, 179.31111311},
     {0.091720894252, -8.1757607921, 44.783597127, 138.05158682, -136.72065537, -285.14382526, 0},
     {-0.32119402602, -5.4479396031, -25.378844911, 59.709751402, 221.09804633, 0, 0},
     {0.81632856079, 3.8106298646, -24.88510439, -62.800351047, 0, 0, 0}}}; // error 0.19, rms 0.048
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::us, GuessPatch::steam, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {3117.9775998, 0.0018968341473}, {6.8404417305, 1.0098807845},
    {{4.3192685299, -2.2497251073, 0.11370252937, -0.095619162033, 0.077049277728, 0.040343896315, 0.072251013507},
     {1.9319143527, -0.044939260395, 0.057042834994, -0.13084167983, -0.08216987202, 0.07635899315, 0.17701467933},
     {-0.41822539166, -0.0044321144957, 0.11213407713, -0.027459538304, -0.80693784085, -0.95965470437, -0.12573709922},
     {0.12158470925, -0.030867818542, 0.12667685248, 1.3660914235, 2.0075355402, 0.29191026688, -0.23236280735},
     {-0.04182553236, -0.10079687352, -0.98843312395, -1.9749433471, -0.2816926689, 0.73168490525, 0},
     {0.042079752136, 0.3357899617, 0.95444016871, 0.19721372205, -0.85323333491, 0, 0},
     {-0.027389388045, -0.21857082145, -0.099282361154, 0.36419222719, 0, 0, 0}}}; // error 0.19, rms 0.03
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::us, GuessPatch::steam, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {3113.9717717, 0.0019074413587}, {6.8364953484, 1.0138075984},
    {{523.70960504, -73.073167495, 72.09743459, -48.858303927, 58.529458322, 53.257275811, 16.503029579},
     {345.30676806, -52.01295764, 32.195820766, -139.15210656, -74.00231364, 177.88145958, 138.36877024},
     {-14.284586151, 10.29863827, 122.46881029, -28.34732896, -727.90108248, -652.75658367, -52.625192548},
     {-17.578700602, -40.124270079, 128.07955314, 1012.1172393, 1084.1459225, -59.568996039, -166.08269337},
     {14.58668697, -91.30450723, -660.84831992, -816.36391402, 407.24393126, 542.11653201, 0},
     {32.652128377, 213.3999507, 303.49098464, -442.12542857, -632.10521934, 0, 0},
     {-36.339033272, -80.892050372, 145.79893643, 266.75667543, 0, 0, 0}}}; // error 0.31, rms 0.066
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::us, GuessPatch::steam_dense, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {2774.8172455, 0.0028879141728}, {5.4498712694, 2.4994692888},
    {{6.6884629315, -1.7153401555, 0.36638283606, -0.29279178645, 0.74905902709, -0.76042114243, 0.24746334273},
     {2.0747054292, -0.093894100706, 0.83702064732, -4.9835147624, 7.7986135765, -4.7618350929, 0.99630254998},
     {-0.49019087187, -1.266209748, 11.884920182, -24.836581925, 20.251808489, -6.1353568902, 0.36129283519},
     {0.83839236458, -11.946174369, 35.477254936, -38.450375212, 14.956464976, -0.98843232573, -0.051972997336},
     {4.281056647, -23.267595452, 36.067269771, -18.58788777, 1.5892697873, -0.17901268599, 0},
     {5.525578848, -15.585961182, 11.356338593, -1.4297541711, 0.76495756964, 0, 0},
     {2.2286984363, -2.5196623218, 0.46574634314, -0.56470692779, 0, 0, 0}}}; // error 2, rms 0.35
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::us, GuessPatch::steam_dense, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {2777.8331909, 0.002941593599}, {5.4497328888, 2.4984007395},
    {{619.64127009, -226.11433848, 14.035235423, 30.162138831, 49.950128272, -69.3624446, 21.62368681},
     {352.85400188, 48.830430757, 51.073770592, -841.67004416, 1248.8503226, -699.35773886, 140.92950253},
     {-73.377546557, -302.33187087, 2696.6052436, -5013.4608939, 3782.638826, -1218.0844091, 156.70220463},
     {240.09840605, -3106.3320276, 8180.5352652, -8405.660253, 3783.4904281, -898.07410591, 145.94611833},
     {1191.2998105, -5780.7448873, 8670.2102005, -5419.15049, 1910.9614587, -576.9357538, 0},
     {1417.4086731, -3890.4134362, 3477.1146721, -1694.6166362, 802.87324, 0, 0},
     {538.88626083, -753.81353185, 515.42152748, -376.30223044, 0, 0, 0}}}; // error 0.8, rms 0.16
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::us, GuessPatch::liquid_like, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {-600.31380861, 0.037183298087}, {3.9222388506, 1.9204237992},
    {{-6.5135574303, 0.10674568407, 1.2820027024, -3.2907682927, 4.4282054198, -0.46953000679, -5.7314693558, 6.0730466995, -1.9740241211},
     {0.00086029140557, -2.0843028167, 10.218138849, -25.646372856, 27.179006407, 5.8719999612, -41.284281097, 35.722097706, -10.229238723},
     {0.66242528743, -7.3147117977, 35.074393974, -75.857418242, 59.240429571, 44.669440135, -117.00073845, 78.036414049, -17.436706022},
     {0.64802280966, -11.281353793, 54.913746784, -106.55461243, 50.622633166, 106.36438153, -159.55320605, 74.467837949, -9.6343534606},
     {-1.3336495165, -2.4274423884, 38.584012385, -76.224461415, 7.5106035287, 106.79191041, -98.862258417, 25.920902768, 0},
     {-4.1784244872, 8.6186494398, 17.065796468, -45.361668389, 6.0927520964, 37.500495781, -19.728513218, 0, 0},
     {-2.8014803273, -0.24555895663, 29.747126556, -50.530553634, 24.857193572, -0.97594448423, 0, 0, 0},
     {0.8708476512, -13.256058899, 35.437477672, -34.397392572, 11.338554503, 0, 0, 0, 0},
     {1.1992918015, -7.7211232499, 12.707310243, -6.2079592669, 0, 0, 0, 0, 0}}}; // error 8.5e-07, rms 1.8e-07
template <>
inline constexpr Surface<11, 11, 13> surface<Pair::us, GuessPatch::liquid_like, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {-600.36762639, 0.036346494958}, {3.9249560685, 1.9305926107},
    {{427.99958288, 87.101251452, -499.90810218, 1711.2232778, -3476.1151902, 3443.65051, 183.14826962, -4006.6944615, 3723.6545002, -1239.0737141, 77.948241923},
     {63.7650074, 305.85376946, -3182.6174451, 13318.765614, -26771.311512, 21629.726789, 10729.567815, -35072.962804, 23906.907151, -3506.7261989, -1361.6511491},
     {415.3814525, -2438.4729022, -907.06966399, 33150.888053, -80912.040468, 53586.270043, 58613.064537, -108522.74152, 50191.349206, 1414.8408027, -4591.3539509},
     {2846.2528873, -20009.186284, 40708.877381, 11030.958583, -123729.73343, 87529.476456, 101987.87512, -147798.70701, 38003.490051, 12492.559268, -3060.2670975},
     {7958.7902769, -53130.373587, 118371.45042, -65416.300264, -110412.91817, 139055.83871, 13953.224692, -69894.281019, 9558.0920387, 9982.8376678, 0},
     {8700.1058958, -50058.529168, 100495.78842, -60625.324275, -79630.148245, 165545.85536, -110412.63239, 23285.966188, 2708.2790396, 0, 0},
     {-4678.3429286, 30249.952312, -59257.518681, 35447.996288, -23020.43292, 80125.456166, -81061.908303, 22101.02282, 0, 0, 0},
     {-20859.698301, 96393.236856, -125286.26953, 2205.2068817, 80518.295929, -21839.437172, -11157.361765, 0, 0, 0, 0},
     {-17759.214811, 52835.188688, -3307.0155046, -109554.62749, 101033.95852, -23127.413379, 0, 0, 0, 0, 0},
     {-3652.8355392, -13785.219137, 70525.266558, -85847.732702, 32774.472096, 0, 0, 0, 0, 0, 0},
     {1071.6453714, -14828.764998, 28857.386487, -15153.199317, 0, 0, 0, 0, 0, 0, 0}}}; // error 0.73, rms 0.15
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::us, GuessPatch::vapour_like, Unknown::primary>{Scale::linear, Scale::linear, Scale::log, {2294.7735198, 0.0039435129228}, {4.8494826266, 2.460481267},
    {{-5.5941076758, 2.2553300455, 0.35198874355, -2.537587524, 2.8700422435, 10.148704318, -7.3435305436, -8.437959318},
     {-2.017843499, -1.5836835631, 6.9060902957, -7.4364245026, -57.854333446, 14.18258955, 71.306127761, 5.3078311235},
     {1.2472388463, -5.8895884389, 5.8428034466, 127.26317866, 46.242583275, -213.86417613, -46.268655859, 9.239525758},
     {1.5140870966, -0.97672621877, -136.60238425, -177.67557445, 295.86953936, 147.34299131, -45.966401424, -4.6597528366},
     {-0.30147846694, 72.10150791, 223.69261595, -178.97881652, -233.29817639, 91.69029032, 18.596632902, 0},
     {-15.050449966, -126.18693698, 7.4623675117, 199.47263424, -90.827092257, -27.361737568, 0, 0},
     {27.117319523, 39.213399115, -88.843018028, 44.223620244, 17.523467634, 0, 0, 0},
     {-12.555638009, 16.249006301, -8.4099359787, -4.1155880137, 0, 0, 0, 0}}}; // error 7.3e-07, rms 1.2e-07
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::us, GuessPatch::vapour_like, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {2294.8949033, 0.0039485127073}, {4.8500293027, 2.4571821458},
    {{423.89376338, -328.02377112, 297.86676397, -613.72104905, -2358.3025411, 7343.4842029, 10102.245598, -13063.502054},
     {369.91938625, -518.98216793, 1754.4455472, 11231.343678, -34616.10794, -84038.774187, 70440.175659, 27431.438899},
     {224.73281528, -1702.8616578, -19715.520294, 63991.115838, 269238.99514, -123363.42061, -162551.82772, -16839.05036},
     {564.27973522, 15193.330485, -57697.226184, -438668.23468, 19062.655288, 393558.50799, 87587.588913, 1861.1695036},
     {-4347.5834104, 25171.721857, 389312.41564, 204500.37827, -495891.29219, -180674.68676, -7146.308992, 0},
     {-4187.9492607, -179967.31916, -276135.17003, 340719.69132, 184501.52228, 9791.2871628, 0, 0},
     {34008.59271, 148134.42535, -119876.08882, -93198.574208, -5605.5337708, 0, 0, 0},
     {-29598.711934, 16615.497404, 18653.358516, 1113.8600228, 0, 0, 0, 0}}}; // error 0.19, rms 0.074
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::us, GuessPatch::wet_low_s, Unknown::t>{Scale::root, Scale::linear, Scale::linear, {12.811448259, 0.078410753564}, {1.950434978, 0.54668514858},
    {{4.279452815, 165.70240903, 47.456118595, -7.8681681189, 24.877956941, -46.893289582, 32.550324215, -12.466907785},
     {-173.27793643, -62.153680696, 16.992164634, -48.621848667, 118.73608262, -131.11863723, 91.377351906, -25.377253724},
     {23.616794644, -3.9956449034, -88.197189498, 216.14607045, -253.04023898, 69.275103977, 36.14942269, -13.62464476},
     {-7.9750342995, 226.8922616, -909.855299, 1723.3546536, -1497.4925581, 566.82879601, -65.701739753, 0.95682305065},
     {-113.20324263, 887.4791232, -2604.7208967, 3417.6785082, -2177.5488921, 615.49311089, -45.825916599, 0},
     {-250.17384861, 1469.5502078, -2983.2065764, 2827.7476354, -1264.5416253, 205.26719629, 0, 0},
     {-254.72891452, 954.78186474, -1385.2364026, 931.99943177, -243.94947626, 0, 0, 0},
     {-69.363999846, 186.4232212, -182.17000841, 63.218986436, 0, 0, 0, 0}}}; // error 0.04, rms 0.014
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::us, GuessPatch::wet, Unknown::t>{Scale::root, Scale::linear, Scale::linear, {36.484470629, 0.032346733965}, {6.4377805194, 0.37634749796},
    {{168.77840044, 398.65181899, 78.72544116, -40.165581867, 30.09117506, 247.67307229, 382.81874264, 198.85921783},
     {-578.85069158, -182.68507256, 171.7397003, -46.388757605, -946.28780331, -834.74553212, 1092.9820668, 1301.2625926},
     {113.71705546, -277.20308672, -101.82353662, 1360.1819009, -1170.7147077, -9337.9893334, -6838.7296533, 860.10552004},
     {150.00751809, 241.02411287, -925.60610535, 5700.9467634, 23999.174928, 12188.949769, -9163.4196873, -1955.1831943},
     {-122.8593152, 337.87854259, -7400.8168367, -32033.845872, -7293.1317024, 28899.617531, 8590.6866458, 0},
     {-72.283613852, 4364.2831681, 25195.733416, -2353.8894707, -40705.599316, -14285.699077, 0, 0},
     {-1049.7422372, -11630.550414, 4072.9639386, 27090.625993, 10707.239782, 0, 0, 0},
     {2515.2648173, -1071.1534533, -6979.9758596, -3059.7400628, 0, 0, 0, 0}}}; // error 0.026, rms 0.0072
template <>
inline constexpr Surface<10, 10, 10> surface<Pair::us, GuessPatch::wet_near_critical, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {2034.4472322, 0.0026044361622}, {4.5010500069, 1.4112393404},
    {{350.45639985, -270.95756633, -443.14431712, -18947.409581, -142112.23101, 254701.92378, 91414.593031, -332249.91238, 47505.728648, 100468.11396},
     {270.69612786, 1000.6207933, 57827.712928, 617596.55458, -808769.18848, -852987.6723, 1078211.8716, 186677.70721, -328133.07752, 14728.239102},
     {-557.16262799, -58770.400889, -995879.71401, 716001.29834, 2517578.4021, -1275209.1593, -1376537.6119, 523467.33033, -38892.182319, 0},
     {19889.791393, 707252.78509, 145138.40541, -3601397.0629, 711402.10952, 3265942.9455, -697360.78807, -330613.42838, 0, 0},
     {-186858.68359, -476999.50398, 2850770.4233, -1096.8059593, -4470944.1325, 548436.31775, 1487146.4972, 0, 0, 0},
     {169927.98807, -1250680.3556, -684843.45005, 3842400.6464, 115224.46177, -2392768.1985, 0, 0, 0, 0},
     {245304.89679, 760227.23303, -1964434.6778, -517826.63336, 1861218.5969, 0, 0, 0, 0, 0},
     {-256443.10187, 527590.26701, 403938.51543, -730815.04924, 0, 0, 0, 0, 0, 0},
     {-58204.241321, -216860.36417, 151634.71056, 0, 0, 0, 0, 0, 0, 0},
     {68646.661094, -21637.918019, 0, 0, 0, 0, 0, 0, 0, 0}}}; // error 0.024, rms 0.0092
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vh, GuessPatch::water, Unknown::primary>{Scale::linear, Scale::linear, Scale::linear, {0.001321264669, 2744.1447933}, {819.57923336, 0.0012203591386},
    {{-1085.9433388, 3237.2613657, -3182.89775, 2230.07581, 3839.7521032, -6888.8317634, 3114.4451133},
     {-2351.1079455, 7632.0438418, -16506.926309, 2681.9143827, 25428.018831, -28200.146347, 8947.7847549},
     {-2717.9482213, 20628.530431, -28546.391318, -6973.224273, 50880.870147, -40939.831735, 9507.264559},
     {-7211.0428587, 26299.817881, -30759.405292, -13947.823867, 46610.778814, -23574.996498, 2200.5811286},
     {-6926.3481708, 28179.49455, -24002.779006, -14092.514598, 18023.054316, -1611.4262898, 0},
     {-8225.4831934, 20640.216916, -7583.9743319, -4866.6616975, 303.12760668, 0, 0},
     {-4103.6902908, 4647.15761, -916.95040009, 350.05202095, 0, 0, 0}}}; // error 2.3, rms 0.42
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vh, GuessPatch::water, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {0.0013174427786, 2774.4918287}, {823.53624781, 0.0012199639532},
    {{147.7718732, 478.09428604, -691.07634196, 330.26316408, 972.4750451, -1460.5111798, 598.21726186},
     {-422.60209839, 2361.007844, -4405.2895958, 1164.3107767, 5689.8150051, -6499.0609917, 2092.8699319},
     {-1465.9977872, 7081.2485944, -10493.450542, -226.59003728, 13303.256934, -10526.270974, 2279.7713036},
     {-2618.1474157, 10539.588407, -11009.643834, -4872.0991001, 14261.262575, -7043.8123558, 851.03427443},
     {-2550.3194454, 7560.9425489, -4228.7893847, -5652.7034695, 6467.3208224, -1711.0342156, 0},
     {-1079.9729835, 2046.0433819, 135.44610891, -1984.369367, 940.61325389, 0, 0},
     {-96.237238636, 37.989608317, 208.25460705, -161.46828563, 0, 0, 0}}}; // error 0.073, rms 0.024
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vh, GuessPatch::steam_thin, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {1.807247522, 0.20834118668}, {3328.9095839, 0.0012091245032},
    {{-0.63915649801, 0.57185216826, -0.19943212706, 0.081325171958, -0.038788260787, 0.027636359258, -0.011941927495},
     {-4.7991725203, -0.00062720545725, -0.0026593768433, -0.0030068694303, 0.0085058889921, 0.012494846981, -0.015767059276},
     {-0.00076630252431, 0.0054962294407, -0.0098295787206, -0.017786708231, 0.036462652747, -0.0022923397486, -0.011116490802},
     {0.0019673772059, -0.0033415594341, -0.00037390857692, 0.024891542996, -0.037876937062, -0.005462532694, 0.020138895461},
     {-0.0035521436892, -0.0017315189915, 0.019083663614, -0.0066578184198, -0.0079469932386, 0.00046871314892, 0},
     {0.0027303491012, -0.0041930498137, 0.0002509167111, -0.0031989590767, 0.0063493481131, 0, 0},
     {-0.00084739599437, 0.0050342044713, -0.0091302579982, 0.003512146101, 0, 0, 0}}}; // error 0.006, rms 0.00065
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vh, GuessPatch::steam_thin, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {1.8280204135, 0.20756129451}, {3329.2907059, 0.001208211607},
    {{424.05580856, 397.52772363, -23.790623051, 2.5047714885, -1.2254972359, -2.3936528161, 2.9565060904},
     {-2.0496675095, 3.936417696, -8.9804664386, -6.3441208245, 9.1137078827, 12.659764559, -7.2282657638},
     {8.934047563, 8.3284858988, -27.299978986, -20.924367896, 55.089382952, -9.2591286568, -17.833662709},
     {-3.7207069706, -6.6809575818, 35.060807282, 56.848810262, -99.239262461, -22.705126704, 27.238441667},
     {-6.3277209556, -44.911895657, 88.58548172, -1.5097238101, -33.904822246, 17.025755509, 0},
     {-13.351812881, 20.131219247, -52.502744618, -17.846467019, 71.187925887, 0, 0},
     {17.325641736, 24.76768714, -51.280424043, -2.3269335348, 0, 0, 0}}}; // error 0.52, rms 0.18
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vh, GuessPatch::steam, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {-3.8305955256, 0.59079818956}, {3461.0961295, 0.0014863160221},
    {{5.0731924502, 0.44093358585, -0.11756755713, 0.025211229659, 0.0060509341995, -0.0024376476008, -0.0039966604568},
     {-1.6873844106, -0.022361924153, 0.0057937440875, -0.0084995743563, 0.017101405129, 0.012740571034, -0.019389391266},
     {0.017393303657, 0.0010338842378, -0.0016568866463, 0.021169687797, -0.051756119871, -0.012381839105, 0.055080488997},
     {-0.025887862549, 0.019898146508, -0.0042920777794, -0.0065132023636, 0.0036914717558, -0.0055250269907, -0.031042468138},
     {0.017470409691, -0.022831450923, 0.03898064529, -0.0069185701914, 0.012331868986, 0.0062363679233, 0},
     {-0.017799173248, -0.0097756041609, -0.0074506389934, 0.017544224422, 0.0021689661437, 0, 0},
     {0.013793516363, 0.017067466867, -0.037101883076, 0.0052283388152, 0, 0, 0}}}; // error 0.16, rms 0.027
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vh, GuessPatch::steam, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-3.8331617355, 0.58830704315}, {3459.1564431, 0.0014787422618},
    {{557.90792039, 277.49531705, 2.5181082132, -15.598839978, 14.31292052, -1.1640209427, -4.8011201434},
     {-103.63585611, 51.131426828, -14.289060339, -7.6040996058, 22.58533481, 3.2844892204, -13.959589353},
     {62.659645387, -15.69801711, -10.322791965, 20.026015824, -33.937251241, -6.6506768656, 32.150060822},
     {-13.224865649, -7.0866782808, 5.3136601708, 6.7704801683, 3.7920670786, -10.850932144, -18.399749466},
     {-7.0515802964, 1.0032887005, 10.821978787, -11.615536798, 14.289578908, 15.203825802, 0},
     {3.7076695189, 0.20159056851, -1.1025798738, 4.0004474559, -6.9304844764, 0, 0},
     {1.2225955067, 3.2694428517, -7.4160218369, -4.3582624162, 0, 0, 0}}}; // error 0.25, rms 0.04
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vh, GuessPatch::steam_dense, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {-4.7580577744, 0.83645507352}, {3050.0426272, 0.002186855695},
    {{5.6832942947, 0.43001840628, -0.089602341644, 0.0064635545924, 0.11488498502, 0.16177833632, 0.057406047991},
     {-1.2358268276, -0.024810866874, 0.022896698818, 0.10950288794, 0.69822900815, 1.1580757086, 0.53936794407},
     {0.083841116376, -0.048001116508, 0.12638522978, 0.9507738673, 2.0912444325, 2.6236499946, 1.2913169261},
     {-0.069118928821, 0.12091529566, 0.7151326031, 2.3758220737, 3.2468298924, 2.1810864534, 0.94265721269},
     {0.086957522246, 0.49617775509, 1.7342523552, 2.762811595, 2.2585741088, 0.43000372321, 0},
     {0.088614891597, 0.7686475401, 1.9544081023, 1.8132390398, 0.37970123965, 0, 0},
     {0.049816582758, 0.34094241439, 0.87450223923, 0.80021236031, 0, 0, 0}}}; // error 0.31, rms 0.055
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vh, GuessPatch::steam_dense, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-4.7495583671, 0.83203124134}, {3043.9105797, 0.0021293686087},
    {{486.4580299, 155.27040524, 11.507141136, 36.439413292, 197.77993321, 248.99144567, 98.274467907},
     {-148.21180514, 7.6743529572, 101.75743805, 560.41779356, 1490.0631465, 1717.665825, 702.06065734},
     {31.372619814, 69.869446811, 699.66162335, 2438.0933007, 4156.5641369, 3845.7206874, 1508.5355661},
     {21.582177013, 369.06636103, 1830.280915, 4301.8161661, 5086.7631796, 3195.9634419, 1039.8408317},
     {75.259197537, 640.26325227, 1991.1653742, 3082.2586838, 2470.3768433, 666.35140419, 0},
     {80.189140719, 467.88358829, 1001.4317229, 794.343045, 147.36502749, 0, 0},
     {14.450935579, 102.14126042, 278.91791588, 290.49174886, 0, 0, 0}}}; // error 0.69, rms 0.12
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::vh, GuessPatch::liquid_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-6.1952807529, 2.3136822156}, {1915.3790353, 0.0027646741032},
    {{386.69740581, 83.893553631, 5.2867798205, 12.693345473, -165.14778538, 298.37031862, 337.20713012, -1101.3818304, 638.06324386},
     {-58.939567096, -1.6409908517, 31.035397959, 112.5229368, -1526.6701995, 2167.1964977, 2921.1508931, -7891.4638031, 4298.8385047},
     {-0.76010736602, -67.370921511, 216.87621582, 2294.2609545, -9225.6003874, 6506.0450811, 14815.489949, -25349.594753, 10658.160209},
     {24.675408302, -296.05735132, -1372.598533, 13734.850533, -29322.047233, 8057.0122525, 42418.282702, -46564.954076, 11524.053756},
     {99.287467934, 351.76212011, -10117.058884, 40016.611324, -54728.928665, -9500.5721486, 80414.083405, -44700.179533, 0},
     {10.217303572, 4011.6129944, -27419.799583, 68216.834484, -45060.893222, -61842.23883, 72278.337124, 0, 0},
     {-746.25160708, 9689.4250282, -39314.345812, 53488.181667, 16090.946662, -58703.990512, 0, 0, 0},
     {-1482.585282, 10547.247666, -24454.512588, 4242.0144103, 23876.237593, 0, 0, 0, 0},
     {-896.37241741, 4237.856094, -2307.5717086, -3938.2790631, 0, 0, 0, 0, 0}}}; // error 0.55, rms 0.14
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::vh, GuessPatch::vapour_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-5.5173480949, 1.3027009514}, {2463.9021809, 0.0029209919997},
    {{424.31503639, 82.649092241, 14.199707168, 8.352935566, -7.2891622517, -14.166775159, 6.3994391929, 13.575773873},
     {-103.20084607, -30.836188455, -24.958488485, 41.258626917, 63.763353236, -65.356599787, -47.256287485, 67.187561601},
     {20.194779947, 38.139662304, -73.810083736, -150.16216628, 185.06446976, 155.15569842, -241.89316938, 61.485339195},
     {-20.60405713, 55.993225431, 178.39881316, -291.38816778, -269.98583187, 596.73086026, -251.25890799, -16.020049563},
     {-11.450035064, -109.21016161, 228.20413283, 312.63823348, -787.00132786, 480.26536633, -54.233177576, 0},
     {28.352556167, -67.961581842, -222.53101889, 615.74253859, -522.10333129, 148.71772405, 0, 0},
     {2.9741769041, 81.492732748, -279.91180566, 276.31078174, -175.85952332, 0, 0, 0},
     {-10.009387214, 41.546725512, -54.41812987, 84.272712614, 0, 0, 0, 0}}}; // error 0.062, rms 0.022
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::vh, GuessPatch::wet_low_s, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-5.6829033074, 0.92796191804}, {1380.2414324, 0.00082032758096},
    {{284.89790916, 182.88428291, -62.692745407, 7.839782494, -9.0462119389, -6.4019514682, 22.040752255, 12.500664434},
     {-31.473790494, -53.949571464, 4.3317499645, 33.302632321, 3.4893794946, -16.19035435, -49.932479325, -36.124872021},
     {-5.8421930279, -0.13307573183, 9.5081624955, -14.325783086, -11.781155993, 52.786478392, 74.57242271, 25.516054414},
     {0.81068738364, 1.9770399033, -2.6991695639, 4.4404063334, -9.5106624401, -71.715627656, -53.654785008, -5.2918256439},
     {0.48949434645, 0.39772031981, -5.3818637082, -2.9360128537, 48.761972532, 69.303649805, 14.442639121, 0},
     {-0.27962224671, 1.3949544648, 5.2367038284, -19.964123022, -61.692403322, -29.06530198, 0, 0},
     {-0.26360815323, -1.5862356083, 3.1999508728, 26.24672199, 26.695978795, 0, 0, 0},
     {0.27143361773, 0.33064923621, -3.8287734063, -8.4566387813, 0, 0, 0, 0}}}; // error 0.07, rms 0.0057
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::vh, GuessPatch::wet, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {0.34718771304, 0.2019488955}, {1420.126447, 0.00072444532374},
    {{83.128856003, 32.05388463, -15.025606189, 10.529679474, 0.88552878938, -3.3849066148, -13.301877499, 12.18838171},
     {-123.91252528, -38.705960863, 17.417924655, -6.9473821394, 9.7946046823, -24.331518741, 11.688066449, 4.6992417753},
     {44.101914027, 33.026346969, -7.3530974525, 4.5289646273, -50.704947614, 47.632317797, 33.641160813, -37.214587572},
     {-12.131208869, -22.861001093, 7.3985982935, -20.563756948, 31.71651434, 15.998834587, -36.895420024, 7.7707617693},
     {-0.7925661035, 16.168423688, -13.591739012, 11.639790484, 20.20320606, -29.869621403, 6.7621368556, 0},
     {4.8938615633, -6.8851381622, 8.3690883214, 0.43652047746, -18.041146245, 7.1598070555, 0, 0},
     {-3.7513978392, -2.5214370628, 4.0337098085, -8.1167454891, 1.6834923011, 0, 0, 0},
     {1.1725388064, 2.6069683107, -6.7448256153, 9.6981466688, 0, 0, 0, 0}}}; // error 0.54, rms 0.062
template <>
inline constexpr Surface<6, 6, 8> surface<Pair::vh, GuessPatch::wet_near_critical, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-5.5413959421, 1.2519208721}, {2117.6140747, 0.0022634396329},
    {{365.75901667, 38.059783285, -16.098447913, -31.723521105, -32.948722878, -13.010423243},
     {-41.669481798, 13.517778159, 120.84616763, 213.9400213, 143.28966037, 14.520954089},
     {-12.122249241, -130.93246726, -431.21733108, -505.3696422, -139.14647706, 37.824454574},
     {45.939735336, 335.91844011, 691.00102371, 371.12389419, -49.266207796, -23.224215401},
     {-88.047298321, -386.01841073, -350.7869518, -13.26792807, 30.852746914, 0},
     {70.184418279, 105.94000474, 24.086721109, -7.822751457, 0, 0}}}; // error 0.025, rms 0.0063
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vs, GuessPatch::water, Unknown::primary>{Scale::linear, Scale::linear, Scale::linear, {0.0013295884986, 2680.3288677}, {1.8704287971, 0.53374585959},
    {{965.62515069, 5953.4183117, -61238.912778, 119382.70506, -31565.883623, -91062.810029, 60663.371956},
     {18935.272014, -1836.8343694, -228638.23995, 362433.94133, 26054.246452, -333378.33014, 147667.11566},
     {55565.082947, -44832.368974, -268126.95201, 301694.96836, 259892.37147, -408087.864, 112561.6149},
     {53660.882987, -32793.926775, -136102.80197, -49328.154279, 324447.20619, -184263.89615, 26573.50444},
     {-18425.388041, 131353.93768, -91391.014331, -147475.08638, 135704.8149, -21797.166111, 0},
     {-77488.550607, 188098.63566, -88275.396342, -30573.72427, 17754.07772, 0, 0},
     {-39413.952819, 64504.872392, -32966.319859, 5361.656079, 0, 0, 0}}}; // error 1.8, rms 0.67
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vs, GuessPatch::water, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {0.0013285210134, 2692.8114966}, {1.8733211223, 0.53400780359},
    {{571.90464652, -1438.3495631, 624.68769848, 3644.4857677, -3061.5929534, -2020.0627863, 2173.6128959},
     {2776.4806614, -8721.6721229, 1447.214127, 15710.539373, -8257.2793665, -9572.541708, 6268.4008835},
     {6566.6174125, -16076.654907, -1935.0743916, 24213.460477, -3008.0567251, -15411.08733, 5835.3437677},
     {6126.6552643, -8616.405656, -10520.258585, 13062.67233, 8208.5214222, -9650.536475, 1759.5929359},
     {-79.850215904, 7986.8759066, -12410.601433, -1470.2714086, 7222.2653595, -1904.6750119, 0},
     {-3880.2668102, 10534.438861, -5652.8815408, -2086.8219094, 1464.5540932, 0, 0},
     {-1863.1415143, 2905.2781066, -1121.2941724, 4.2362915508, 0, 0, 0}}}; // error 0.041, rms 0.012
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vs, GuessPatch::steam_thin, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {1.8309046964, 0.20760123736}, {8.9772988241, 0.34487788454},
    {{-0.62980519676, 1.7784020583, -0.47293893348, -0.089506483438, 0.35386939954, -0.18396768509, -1.0245312815},
     {-6.1790516539, 0.71665182655, 0.21211951036, -1.0922884604, 0.48522096399, 5.7254269957, 3.2502778366},
     {-0.27359789262, -0.15033018786, 1.170031293, -0.54525308828, -11.566077337, -13.651638938, -3.2372141266},
     {0.036882504601, -0.53030250786, 0.4639600693, 11.491828247, 22.021381955, 10.690803959, 1.11675507},
     {0.077559834225, -0.25152042718, -5.983124861, -17.202523481, -13.422988896, -2.8405605805, 0},
     {0.048027198432, 1.4492312763, 6.5013266137, 7.5751083093, 2.4996978082, 0, 0},
     {-0.083042000771, -0.92405749306, -1.6249848583, -0.76306193761, 0, 0, 0}}}; // error 0.0025, rms 0.00034
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vs, GuessPatch::steam_thin, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {1.818535416, 0.20862250432}, {8.9745684176, 0.34855396343},
    {{448.76494188, 1268.7027547, 784.92523006, -20.292143395, -75.347399226, 120.41187897, -135.12180734},
     {-978.72799428, -1206.1299479, 16.523968883, 185.64339273, -530.14550495, 1663.0993872, 1971.5189972},
     {466.3936857, -13.83963791, -217.48727238, 1074.6181038, -3627.8886735, -8750.5687304, -2683.1843157},
     {2.6440757475, 136.03444267, -974.99573049, 3203.5904331, 13895.935984, 8455.9552493, 1160.5653986},
     {-33.416825654, 420.44009556, -1152.619823, -10340.274321, -10071.07897, -2676.0227893, 0},
     {-78.086038694, 28.597639879, 3583.4694303, 5366.8205576, 2144.828948, 0, 0},
     {60.666093327, -440.59242878, -1080.7400056, -593.57898557, 0, 0, 0}}}; // error 0.12, rms 0.038
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vs, GuessPatch::steam, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {-3.8336200909, 0.58924785902}, {6.8344854022, 1.0158284177},
    {{5.2917831248, 0.61284914356, -0.11399926964, 0.017391661341, -0.049155054327, -0.14270791648, -0.06966228213},
     {-2.1629397074, 0.090310223165, 0.039876173496, 0.17434416212, 0.68046011953, 0.46035885387, 0.036789704914},
     {0.0025642813104, -0.041850995523, -0.26884245117, -1.1455574703, -0.73118876317, 0.54178662345, 0.37105248291},
     {-0.029892362167, 0.16672036629, 0.88714431722, 0.28104749427, -2.3039676349, -1.9950080625, -0.29325926029},
     {-0.01081909952, -0.33837842382, 0.14141136889, 3.1338153044, 3.7000765715, 0.93694710776, 0},
     {0.070983879019, -0.0092926527599, -1.6849231729, -2.9478318334, -1.0372256362, 0, 0},
     {-0.042995996976, 0.22327493912, 0.86715381648, 0.41316162997, 0, 0, 0}}}; // error 0.35, rms 0.036
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vs, GuessPatch::steam, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-3.8227297093, 0.58701078783}, {6.8346833635, 1.0157023744},
    {{710.45397136, 497.96927302, 84.87746087, -17.071189965, 11.078528991, -24.89156437, -20.835861393},
     {-454.4519249, -105.04187757, 47.423594828, 92.577022598, 380.7391178, 354.31699386, 81.66743225},
     {70.959654245, -68.324076213, -218.67121766, -736.67305062, -651.66294368, 94.242846951, 169.39993815},
     {7.0621084736, 134.30789307, 465.39633258, -40.122333584, -1573.6056594, -1367.3606627, -242.40568324},
     {-10.714406289, -41.080404418, 736.3103286, 2895.9283375, 3031.2146298, 866.91667549, 0},
     {-6.8005855655, -407.15416556, -1909.6008078, -2665.6147509, -1026.1301872, 0, 0},
     {20.110778448, 367.17941279, 837.55267505, 419.61032248, 0, 0, 0}}}; // error 0.45, rms 0.072
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vs, GuessPatch::steam_dense, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {-4.7430031816, 0.82449853238}, {5.4494947757, 2.4974530061},
    {{5.3629654379, 0.39722467174, -0.023733404487, 0.03868273141, -0.012945713063, -0.04209829171, 0.02723327073},
     {-1.5618105246, -0.070485892191, -0.18613954462, 0.12654097884, 0.33570702126, -0.45403470233, 0.16465907006},
     {0.13200752135, 0.37938472294, -0.26902679484, -1.152083627, 1.9236876162, -1.0836922028, 0.20401038458},
     {-0.33518029852, 0.071631271699, 2.2003471376, -4.1533947399, 3.0754281585, -0.95868529315, 0.06881049994},
     {0.21403449597, -2.1762702325, 4.8794819113, -4.5205802845, 1.9672395623, -0.35103510186, 0},
     {0.7446264365, -2.6580970794, 3.2870060824, -1.958795802, 0.51960031119, 0, 0},
     {0.41611583379, -0.88303685831, 0.75178179764, -0.24691025341, 0, 0, 0}}}; // error 0.61, rms 0.087
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vs, GuessPatch::steam_dense, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-4.7457670537, 0.8315590996}, {5.4499271814, 2.4997141285},
    {{399.60078183, 91.690156198, 21.984639637, 16.511499022, -5.275849063, -20.759094507, 14.864266975},
     {-221.67573325, -64.495332222, -76.312632954, 49.325819126, 141.23782909, -205.65216619, 78.897870688},
     {57.481420004, 147.96641465, -105.37952506, -457.41380986, 828.16230791, -468.46444374, 66.606531642},
     {-99.284661098, 48.377813073, 814.99129612, -1722.2003265, 1293.4874377, -311.50735056, -11.968373376},
     {43.213808792, -771.11878448, 1985.1633476, -1933.1001107, 690.55963248, -18.490103496, 0},
     {281.86938093, -1114.0129102, 1479.2331356, -775.58986979, 97.042212877, 0, 0},
     {183.10086114, -431.45521944, 343.76402824, -76.500237296, 0, 0, 0}}}; // error 0.52, rms 0.14
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::vs, GuessPatch::liquid_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-6.1996582041, 2.3028063637}, {3.9179311049, 1.9060635201},
    {{354.15865826, -55.91578543, 1261.6271588, -4638.9683154, 8787.2357562, -8377.4110218, 2975.7891661, 771.84956572, -616.16062619},
     {90.867381966, -2606.2365813, 14533.852192, -39050.324303, 52593.269424, -29300.364069, -5579.089511, 13184.368887, -3994.566671},
     {1396.1125115, -15381.96126, 63975.644065, -121858.71413, 89939.98829, 39363.63551, -110951.08419, 66942.254413, -13327.774905},
     {5418.4460869, -45557.334623, 132135.04717, -127363.00811, -104755.26897, 313445.48616, -216623.10998, 32005.058815, 11109.419686},
     {11591.271409, -64943.515914, 79645.911487, 155509.4434, -435388.8856, 256167.2055, 82800.402713, -86169.975592, 0},
     {10545.720347, -9581.578642, -154665.99166, 379796.76952, -109335.73145, -356079.22076, 244879.74237, 0, 0},
     {-5774.9379074, 89146.977174, -237170.80268, 26639.742086, 442771.76678, -327019.19951, 0, 0, 0},
     {-19751.707052, 88501.506929, -38045.732562, -228805.59416, 208045.10323, 0, 0, 0, 0},
     {-11309.816146, 18054.697323, 40813.216316, -50737.35433, 0, 0, 0, 0, 0}}}; // error 1.8, rms 0.24
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::vs, GuessPatch::vapour_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-5.5158261699, 1.298252367}, {4.8521768147, 2.4456528745},
    {{410.95715124, 80.210833884, 16.219336041, 16.142676656, 18.869343034, -18.782084671, -39.968741525, 20.994147342},
     {-130.99184151, -49.797059998, -79.501577669, -93.31388651, 205.92261853, 297.56442542, -407.24991346, 11.012600011},
     {37.774461201, 139.28442389, 174.94297027, -697.92211282, -825.59690923, 2228.5401376, -633.48213319, -204.24494703},
     {-85.950692042, -157.29851204, 1037.6142354, 1230.2889638, -5584.3564599, 3284.3119968, 533.09047255, -184.76581209},
     {65.736218975, -699.27896861, -1096.3471312, 7481.8318792, -7138.9114307, 134.16416905, 730.07194119, 0},
     {160.84293894, 552.88788745, -5434.1688677, 7772.1884263, -1676.4160074, -999.01554085, 0, 0},
     {-113.40138491, 1879.0307509, -4150.7888327, 1861.9396468, 543.93949946, 0, 0, 0},
     {-174.17443145, 849.90226072, -652.3312103, -88.359330016, 0, 0, 0, 0}}}; // error 0.18, rms 0.046
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::vs, GuessPatch::wet_low_s, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-5.6841317072, 0.92683690477}, {2.9141834079, 0.42127865293},
    {{247.81753116, 219.23552809, -20.48539292, -27.355040156, 3.2320104371, -6.273849615, -8.8930989355, -1.3466316438},
     {-22.183559092, -59.11814903, -33.001139643, 26.808265744, 15.497198875, 6.5907742483, 37.281990116, 22.908238188},
     {-5.7097634206, -7.2057415829, 15.814062507, 29.25239559, -24.591222959, -72.360052879, -35.088854128, -2.4391734668},
     {0.43008670804, 3.7878577436, -10.566090651, -4.7606240567, 58.838747678, 23.083856335, -48.45152012, -17.777066657},
     {0.1302553965, 4.8280838777, -3.5576102033, -45.877323132, 2.6349087511, 104.84091849, 55.382426974, 0},
     {-0.25676932877, -1.3611571661, 17.665410848, 6.0819186068, -77.008301709, -65.116192686, 0, 0},
     {0.17855174475, -3.3230809831, -3.3338223111, 25.615297123, 31.73354165, 0, 0, 0},
     {-0.033882414069, 1.5501483481, -2.922540143, -7.3823322799, 0, 0, 0, 0}}}; // error 0.041, rms 0.0076
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::vs, GuessPatch::wet, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {0.34088941237, 0.20220584193}, {4.5312790126, 0.22255707738},
    {{86.810478522, 37.259107706, -16.724605779, 8.6740795977, 1.0501771649, 8.2556071975, -18.617179163, -0.30679285347},
     {-138.01973591, -50.723396805, 26.021122275, -1.960662221, -25.171265856, -74.755685037, 87.656762324, 91.823373341},
     {59.757471794, 45.13466491, -20.65342179, 30.177597077, 37.44821991, 57.50590138, -188.13810404, -221.3109109},
     {-24.497810422, -34.102330416, -2.1805927453, -74.774185133, 49.690305055, 173.2276186, 157.3871488, 123.6967115},
     {10.201068819, 39.847836097, -3.6870404722, -45.58146633, -100.33814523, -106.35278983, -12.397666308, 0},
     {-3.1343638644, -26.764174625, 49.456201762, 90.220830174, -66.129091774, -85.731391674, 0, 0},
     {-5.6722538232, -11.563886922, -18.176239054, 45.428748901, 100.4296656, 0, 0, 0},
     {5.5880004938, 13.655928715, -25.762970663, -32.735189852, 0, 0, 0, 0}}}; // error 0.66, rms 0.058
template <>
inline constexpr Surface<6, 6, 8> surface<Pair::vs, GuessPatch::wet_near_critical, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-5.5439656004, 1.2562198125}, {4.491795908, 1.4200381703},
    {{367.16422833, 40.720826454, -24.767310684, -54.337299504, -49.986388945, -12.200666412},
     {-44.29982856, 31.446452654, 204.66499409, 329.52159726, 170.00223936, -1.9530155593},
     {-22.501176379, -224.44182836, -660.36407526, -648.51916423, -119.92445017, 50.31890757},
     {78.196451232, 504.77360273, 896.06231997, 412.55819421, -54.451642064, -17.633141313},
     {-127.3020552, -487.06137553, -407.53421626, -36.268918273, 11.965866347, 0},
     {82.106059998, 119.58421917, 39.463484839, 5.181295828, 0, 0}}}; // error 0.021, rms 0.0072
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vu, GuessPatch::water, Unknown::primary>{Scale::linear, Scale::linear, Scale::linear, {0.0013371326983, 2636.7402468}, {814.93574494, 0.001227177023},
    {{-4220.1098626, 26069.559425, -70660.414703, 85848.365054, -3413.8921168, -75186.719446, 44706.388931},
     {-20111.614743, 125914.90742, -291011.75534, 197202.80719, 160699.19037, -254254.58082, 70636.142786},
     {-41417.732989, 218969.20681, -307541.82369, -42126.283103, 368059.95702, -206084.67444, 28571.184408},
     {-35263.571636, 86971.906533, 48247.769537, -264107.16473, 167940.9814, -21628.372599, 1302.9012661},
     {5824.4413782, -65395.362259, 143952.63998, -57665.005194, -34156.56167, 13669.139013, 0},
     {6083.4098774, -15445.027607, -19000.846173, 45707.972702, -16696.523128, 0, 0},
     {-5867.5430303, 20149.35417, -23636.934978, 8530.7878326, 0, 0, 0}}}; // error 2.1, rms 0.41
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vu, GuessPatch::water, Unknown::t>{Scale::linear, Scale::linear, Scale::linear, {0.0013398913217, 2621.088295}, {816.39738324, 0.0012260299842},
    {{51.937911399, 1143.9683751, -2905.4715701, 3695.3350324, -28.404341488, -3689.6108174, 2227.9061999},
     {-910.30047716, 6094.4827832, -15003.623671, 11362.861493, 8292.104662, -15284.607735, 4991.4877418},
     {-2695.9418022, 15252.672507, -25925.752773, 4385.0419592, 25711.397373, -19765.721333, 3630.3541931},
     {-4270.48308, 17197.62048, -15199.644233, -14808.409193, 25766.551681, -9762.7866599, 883.66542829},
     {-3377.0639129, 7992.5988592, 2437.2483777, -15374.699074, 9553.8967403, -1583.3058125, 0},
     {-1208.7040165, 407.7142589, 4380.5041316, -4266.5063564, 1055.1287285, 0, 0},
     {-140.26513539, -419.44923363, 694.26940128, -239.18571103, 0, 0, 0}}}; // error 0.036, rms 0.011
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vu, GuessPatch::steam_thin, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {1.8379625962, 0.20820207772}, {3018.7129308, 0.0015551487342},
    {{-0.65982636809, 0.56438686927, -0.20476069146, 0.085876441866, -0.041775240708, 0.030307367452, -0.013228790671},
     {-4.8022326149, -0.00093939479264, -0.0024453600573, -0.0036718769697, 0.0078894144963, 0.015415658389, -0.017235874227},
     {-0.00076790882412, 0.0063820047628, -0.012939154978, -0.020092849116, 0.044887481626, -0.0044582276822, -0.012456827155},
     {0.0022743851075, -0.0041880143254, 0.00028875308352, 0.03037186474, -0.044863738111, -0.0056926200494, 0.020909506983},
     {-0.00472904185, -0.00059540322307, 0.022870787869, -0.0099310303737, -0.0086387552902, -7.8091628184e-05, 0},
     {0.003519364033, -0.0056874572492, -0.00023368876385, -0.0032885359205, 0.0081795573266, 0, 0},
     {-0.00079055252144, 0.0053755845614, -0.011000967256, 0.0051512167735, 0, 0, 0}}}; // error 0.0066, rms 0.00088
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vu, GuessPatch::steam_thin, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {1.8325586354, 0.20753338587}, {3019.5501669, 0.001554519418},
    {{431.4317844, 396.04439262, -31.106986251, 4.2766089772, -0.1755418387, -2.6957088576, 2.3000978153},
     {-1.8896893104, 3.7307120915, -8.4967584135, -6.3790543574, 6.8833620304, 13.161991265, -6.0337501774},
     {8.7123820557, 7.4448688933, -29.376890353, -19.034073622, 59.081044811, -10.950043697, -18.751585554},
     {-3.3715656036, -7.3296794445, 34.82891421, 59.421253414, -99.776129573, -24.111187021, 28.483952666},
     {-7.3219272822, -38.35782894, 92.61592405, -13.818579276, -37.283334349, 21.380196774, 0},
     {-12.564620907, 18.865083053, -51.556472746, -16.535436238, 67.867541904, 0, 0},
     {17.228936579, 20.242684587, -51.795741426, 4.6499672429, 0, 0, 0}}}; // error 0.5, rms 0.18
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vu, GuessPatch::steam, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {-3.8233716143, 0.58562994347}, {3116.6815962, 0.0018906475102},
    {{5.0677016387, 0.44738948935, -0.12728751922, 0.025927362241, 0.011777544543, -0.004723567056, -0.0056596895157},
     {-1.7007638874, -0.029730540548, 0.0091273606275, -0.011150004316, 0.021627212137, 0.018582119996, -0.026858531608},
     {0.023068710801, 0.00052047465794, -0.0073360494471, 0.033905411004, -0.067556767765, -0.022159583957, 0.079556135006},
     {-0.033440848933, 0.027239371477, -0.0057206809882, -0.014088366162, 0.0074746984748, -0.0048763496262, -0.048651526899},
     {0.020289814298, -0.024351915912, 0.063886893496, -0.032249617019, 0.016425238518, 0.019140842858, 0},
     {-0.024795249235, -0.014326835546, -0.011751758578, 0.046303269746, -0.011524212386, 0, 0},
     {0.02213063498, 0.013853287992, -0.049389792226, 0.0087774355509, 0, 0, 0}}}; // error 0.25, rms 0.039
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vu, GuessPatch::steam, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-3.8276160942, 0.58774763031}, {3115.4475868, 0.0018961284709},
    {{558.78285987, 280.16991284, -1.4344756863, -18.331294299, 17.904197392, -0.97467501146, -6.3849325803},
     {-102.1275069, 47.67968539, -15.691053023, -6.9238553438, 22.946600229, 4.5261264913, -14.058801657},
     {66.338219521, -15.251247666, -13.746526606, 24.884858738, -33.417862017, -10.233680065, 33.615283132},
     {-17.739337456, -6.2833900548, 6.3906505603, 4.6224935963, 2.4738348079, -15.499625529, -19.09064379},
     {-6.3237269286, -0.29707663987, 24.268778187, -12.479584658, 2.2658513157, 23.86955953, 0},
     {1.3294419754, -1.9026392462, -3.8313953768, 8.3756183418, 4.8651644632, 0, 0},
     {5.0362555474, 6.2338168833, -17.908901355, -9.7737903673, 0, 0, 0}}}; // error 0.31, rms 0.05
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vu, GuessPatch::steam_dense, Unknown::primary>{Scale::log, Scale::linear, Scale::log, {-4.7472961988, 0.82682992169}, {2780.0949312, 0.0029602078708},
    {{5.65002837, 0.42429531685, -0.082906625885, -0.012813064204, 0.13349193487, 0.22128109436, 0.089029866222},
     {-1.2589680181, -0.036476079154, 0.029070329226, 0.092412581735, 0.77954589886, 1.4864191797, 0.76042100036},
     {0.11569713467, -0.055235335215, 0.065107834231, 0.90992879977, 2.227400166, 3.1700891999, 1.7278000381},
     {-0.09771679565, 0.085285369113, 0.35942969935, 1.792980972, 3.0684530202, 2.3934699764, 1.2065601944},
     {0.075670653079, 0.22169236729, 0.8456844075, 1.4479468415, 1.598849144, 0.30945072935, 0},
     {0.020871733768, 0.35574127596, 1.0773414853, 0.95746685389, -0.042700170832, 0, 0},
     {-0.0029418297175, 0.12856345851, 0.64812900086, 0.82774886893, 0, 0, 0}}}; // error 0.45, rms 0.073
template <>
inline constexpr Surface<7, 7, 9> surface<Pair::vu, GuessPatch::steam_dense, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-4.7437336648, 0.82859658396}, {2777.2828876, 0.0029343779777},
    {{478.79335175, 146.40441599, 10.687683441, 7.8233988677, 119.24259076, 167.35707645, 68.069257208},
     {-152.07675399, -2.8400047496, 36.635114029, 266.28539608, 879.09027165, 1134.762835, 490.95419368},
     {41.824543362, 35.323592769, 311.2156374, 1178.4448136, 2217.2825784, 2394.7699638, 1078.7700547},
     {-0.50905938277, 173.02630931, 804.11787078, 1810.9025122, 2147.0952118, 1617.1055063, 769.76214761},
     {33.247946731, 191.37278058, 520.31269542, 752.9708443, 575.10483138, -0.064495279996, 0},
     {17.790384614, 54.390275308, 13.130396822, -146.75297128, -141.75829369, 0, 0},
     {-17.164022719, -24.594117257, 105.0871878, 201.56479599, 0, 0, 0}}}; // error 0.97, rms 0.17
template <>
inline constexpr Surface<9, 9, 11> surface<Pair::vu, GuessPatch::liquid_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-6.2124035883, 2.3767265846}, {1756.3819565, 0.0029797640049},
    {{358.94199395, 100.7820479, 220.12955603, -1642.7941127, 5013.2256326, -7661.7662621, 6023.2062971, -2150.5730664, 209.24847657},
     {-64.683222531, -452.70906104, 4460.7085501, -17877.795965, 34162.59594, -30983.919697, 8526.8508306, 4535.7176495, -2395.3100543},
     {255.80125308, -4342.8863519, 25516.785579, -63015.07993, 60889.080304, 12814.986839, -66503.688711, 41291.253781, -6791.1692119},
     {1466.0327166, -17273.876264, 62113.076496, -65530.759727, -81775.583534, 227692.14377, -143331.86653, -1519.5291226, 17221.92168},
     {4529.0282023, -31961.929293, 42703.145123, 122711.90661, -353892.48783, 207242.79764, 112819.05734, -104779.78036, 0},
     {6482.0026377, -13466.740244, -91872.496705, 302360.85442, -147300.14594, -292756.92376, 249219.80209, 0, 0},
     {672.94961348, 40007.324219, -157018.99319, 65575.766365, 316040.70269, -291813.09171, 0, 0, 0},
     {-8313.0412457, 48487.775916, -31085.887517, -156190.50906, 168695.38433, 0, 0, 0, 0},
     {-6290.7750869, 9878.5812522, 28600.500898, -38436.758934, 0, 0, 0, 0, 0}}}; // error 0.99, rms 0.25
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::vu, GuessPatch::vapour_like, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-5.5098373288, 1.2897396563}, {2295.0844784, 0.0039479608775},
    {{412.47681365, 73.112882003, 10.104358398, 11.18606106, 8.0632114981, -18.248565231, -15.018143668, 22.020757013},
     {-105.4012313, -25.18688482, -45.240413879, -28.719196993, 121.57035516, 50.060303576, -200.29519859, 110.363683},
     {23.303999018, 75.982603472, 53.577900297, -322.96821581, -111.05095306, 757.80008479, -623.64185336, 166.91931474},
     {-47.403431885, -61.114651572, 418.03363005, 196.75523873, -1599.6907626, 1688.70469, -740.70061037, 94.308075404},
     {34.761454421, -251.8637658, -253.43167777, 1964.0477625, -2583.3479518, 1516.7019589, -363.7415043, 0},
     {52.142109756, 201.02729117, -1369.4306544, 2216.0186205, -1669.8481305, 613.61938096, 0, 0},
     {-55.749392421, 469.16685996, -980.11847831, 946.79062009, -506.39368674, 0, 0, 0},
     {-50.083243933, 151.00364515, -214.34013911, 174.63889887, 0, 0, 0, 0}}}; // error 0.15, rms 0.031
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::vu, GuessPatch::wet_low_s, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-5.7082152604, 0.90664451913}, {1325.1403479, 0.00088877194962},
    {{280.50306521, 182.2770152, -52.846528966, 1.4438226428, -9.4034620231, -5.5148336463, 21.477924069, 14.023865527},
     {-28.165291128, -50.878171154, -2.5056910732, 32.570359221, 10.412948266, -22.347162326, -56.041881228, -37.140250475},
     {-6.4060661104, -2.613925862, 8.6111019333, -9.0653415345, -2.8080536439, 55.60928799, 76.696679965, 33.920783385},
     {0.49723157789, 3.2941735456, -1.413527309, -9.5376819234, -18.550156922, -47.461115565, -50.034077458, -13.020992194},
     {0.29955268639, 0.091067299696, 0.41148424772, 6.8733177393, 11.92251708, 16.267386413, 13.327590458, 0},
     {-0.043429110251, -0.53338223139, 0.50496118326, 2.7337554604, 4.4794607394, 1.3573288251, 0, 0},
     {0.080481269224, 0.17142802704, -1.7245068309, -6.3945762125, -4.8579525102, 0, 0, 0},
     {-0.058806538848, 0.090698009165, 1.0240199346, 2.0614747922, 0, 0, 0, 0}}}; // error 0.053, rms 0.0055
template <>
inline constexpr Surface<8, 8, 10> surface<Pair::vu, GuessPatch::wet, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {0.33627823316, 0.20239288004}, {1321.8378545, 0.00078189803619},
    {{82.815020136, 32.589908904, -14.71141052, 9.3136220956, -0.70949981835, 0.36910582658, -11.413409376, 8.6704443405},
     {-123.01194345, -39.659110452, 16.276310677, -10.736180134, 16.745327442, -18.608512046, 4.5747024221, 2.9288512197},
     {43.165209243, 33.385392178, -11.102531006, 19.304622023, -45.697887116, 20.276111078, 33.079897462, -25.333757393},
     {-11.280288258, -26.469905105, 19.145459902, -18.436696978, 3.0101285015, 17.805820052, -22.158561176, 9.6348004477},
     {-2.8686388351, 22.419755098, -13.112527502, -16.293798906, 35.309241343, -7.5829475758, -3.6348313593, 0},
     {7.2183079051, -6.6138600562, -8.5522076188, 15.682178864, -1.6991816469, -6.4751824286, 0, 0},
     {-3.7138718988, -6.9786760969, 8.5266053702, 1.5749819284, -10.732198107, 0, 0, 0},
     {0.37950125429, 3.8931736291, -1.4065696855, 2.2400944748, 0, 0, 0, 0}}}; // error 0.8, rms 0.06
template <>
inline constexpr Surface<6, 6, 8> surface<Pair::vu, GuessPatch::wet_near_critical, Unknown::t>{Scale::log, Scale::linear, Scale::linear, {-5.5378785002, 1.2534686349}, {2038.7061925, 0.002632724938},
    {{365.54349736, 35.693311238, -14.175296681, -27.01729099, -22.788197363, -3.1317962242},
     {-39.515689485, 11.762816253, 102.30705955, 158.32876365, 73.968075482, 2.0756609487},
     {-11.409076541, -110.55777197, -326.19306136, -312.67048506, -70.4436111, 25.841583972},
     {38.662597483, 255.28173705, 452.64257175, 225.95115257, -33.931071894, -10.732093504},
     {-66.338750224, -256.26087165, -224.28416586, -9.2192230523, 10.106817875, 0},
     {45.73423896, 67.553031806, 16.638616564, 0.77858910119, 0, 0}}}; // error 0.015, rms 0.0061

} // namespace ktl::engine::guesses
