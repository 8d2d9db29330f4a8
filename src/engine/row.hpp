// One state by the kernels of one lane: what ktl::state does, and what columns do for rows that their lanes left open.
#pragma once

#include "engine/kernels.hpp"
#include "engine/pairs.hpp"

#include <algorithm>

namespace ktl::engine {

/// The kind of each class; the classes of one kind follow one another. Class::search has none.
inline constexpr std::array<Kind, guesses::class_count - 1> kind_of{
    Kind::water,         Kind::steam, Kind::steam, Kind::steam, Kind::near_critical,     Kind::near_critical,
    Kind::near_critical, Kind::wet,   Kind::wet,   Kind::wet,   Kind::wet_near_critical, Kind::wet_near_critical};
static_assert(std::is_sorted(kind_of.begin(), kind_of.end()));

/// The region of a state of that kind at its own variables.
Region region_of(Kind kind, double first, double t) noexcept;

/// The state that has both values.
Solution solve_row(Pair pair, double a, double b) noexcept;
/// The same for a row whose class did not lead to a state: by the other classes, then by the exact search.
Solution search_row_again(Pair pair, double a, double b) noexcept;

} // namespace ktl::engine
