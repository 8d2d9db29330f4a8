// States of given entropy and quality: mixtures on a line of constant quality, 0.01 to 374.15 degC.
#pragma once

#include "searches/state.hpp"

#include <span>

namespace ktl::searches {

/// No entropy occurs more often along a line of constant quality: at most three times up to 350 degC and seven times
/// above, between the extrema that quality_line.cpp lists, and once in the gap between both. Six is the most in fact.
inline constexpr std::size_t most_on_quality_line = 11;

/// The states of entropy s, kJ/(kg K), and quality x, 0 to 1, by rising temperature, with the outermost phases; out takes
/// as many as it has room for. Returns how many it took.
template <class T>
int on_quality_line(double s, double x, std::span<FoundState<T>> out);

/// The state of lowest temperature up to 350 degC, or none.
template <class T>
FoundState<T> first_up_to_350(double s, double x, SaturationModel model);
/// The state on the line of sub-regions 1 and 2 continued past 350 degC, by up to 0.5 K, or none.
template <class T>
FoundState<T> first_past_350(double s, double x, SaturationModel model);

} // namespace ktl::searches
