#include "scales.hpp"

#include <algorithm>
#include <array>

namespace program {

namespace {

template <std::size_t n>
double polynomial(const std::array<double, n>& c, double x) {
    double sum = 0.0;
    for (std::size_t i = n; i-- > 0;) sum = sum * x + c[i];
    return sum;
}

/// t90 - t68, R. L. Rusby and others, Metrologia 31 (1994) 149; up to 630.6 degC by powers of t/630.
double its90_less_ipts68(double t) {
    constexpr std::array<double, 9> low{0.0,       -0.148759, -0.267408, 1.080760, 1.269056,
                                        -4.089591, -1.871251, 7.438081,  -3.536296};
    constexpr std::array<double, 6> high{78.687209,     -0.47135991,   1.0954715e-3,
                                         -1.2357884e-6, 6.7736583e-10, -1.4458081e-13};
    return t <= 630.6 ? polynomial(low, t / 630.0) : polynomial(high, t);
}

struct Row {
    double t, difference;
};
/// t90 - t48, K. Above 630 degC to two decimals.
constexpr Row since_1948[] = {{0, 0.000},    {20, -0.012},  {40, -0.020},  {60, -0.026},  {80, -0.027}, {100, -0.026},
                              {120, -0.023}, {140, -0.018}, {160, -0.012}, {180, -0.005}, {200, 0.003}, {220, 0.011},
                              {240, 0.018},  {260, 0.024},  {280, 0.030},  {300, 0.034},  {320, 0.036}, {340, 0.037},
                              {360, 0.035},  {380, 0.032},  {400, 0.028},  {420, 0.022},  {440, 0.015}, {460, 0.009},
                              {480, 0.004},  {500, 0.000},  {520, -0.002}, {540, 0.000},  {560, 0.007}, {580, 0.018},
                              {600, 0.035},  {620, 0.060},  {630, 0.075},  {640, 0.15},   {660, 0.30},  {680, 0.45},
                              {700, 0.59},   {720, 0.73},   {740, 0.83},   {760, 0.92},   {780, 0.97},  {800, 1.01}};

double its90_less_ipts48(double t) {
    const auto* above = std::upper_bound(std::begin(since_1948) + 1, std::end(since_1948) - 1, t,
                                         [](double x, const Row& row) { return x < row.t; });
    const Row& low = above[-1];
    return low.difference + (t - low.t) / (above->t - low.t) * (above->difference - low.difference);
}

} // namespace

double on_scale(Scale scale, double t) {
    switch (scale) {
    case Scale::its90: break;
    case Scale::ipts68: return t - its90_less_ipts68(t);
    case Scale::ipts48: return t - its90_less_ipts48(t);
    }
    return t;
}

} // namespace program
