// The pairs of properties that states are found by, and how well.
#pragma once

#include "draw.hpp"

#include <array>
#include <cmath>
#include <ktl/steam.hpp>

namespace sweep {

using Member = double Values::*;

/// A pair, its two properties as drawn and as found, the named routine, and the states that it is for.
struct Row {
    const char* name;
    Member first, second;
    ktl_finder find;
    enum Scope { any, single_phase, mixture } scope = any;
};
#define KTL_PAIR(a, b) #a #b, &Values::a, &Values::b, ktlr##a##b
inline constexpr std::array<Row, ktl::pair_count> rows{{
    {KTL_PAIR(p, t), Row::single_phase},
    {KTL_PAIR(p, h)},
    {KTL_PAIR(p, s)},
    {KTL_PAIR(p, u)},
    {KTL_PAIR(p, v)},
    {KTL_PAIR(p, x), Row::mixture},
    {KTL_PAIR(t, v)},
    {KTL_PAIR(t, h)},
    {KTL_PAIR(t, s)},
    {KTL_PAIR(t, u)},
    {KTL_PAIR(t, x), Row::mixture},
    {KTL_PAIR(s, x), Row::mixture},
    {KTL_PAIR(h, s)},
    {KTL_PAIR(u, s)},
    {KTL_PAIR(v, h)},
    {KTL_PAIR(v, s)},
    {KTL_PAIR(v, u)},
}};
#undef KTL_PAIR

/// What ktl::state() promises: relative; h, s and u near zero against 10 of their units.
inline constexpr double promised = 1.0e-10;
/// How far a value is from the wanted one, against what is promised.
inline double deviation(double wanted, double got, Member member) {
    const bool has_zero = member == &Values::h || member == &Values::s || member == &Values::u;
    const double size = member == &Values::x ? 1.0 : std::fmax(std::fabs(wanted), has_zero ? 10.0 : 0.0);
    const double difference = std::fabs(got - wanted) / size;
    return std::isnan(difference) ? INFINITY : difference;
}

} // namespace sweep
