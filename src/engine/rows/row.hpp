// One state by the kernels of one lane: what ktl::state does, and what columns do for rows that their lanes left open.
#pragma once

#include "engine/kernels/kernels.hpp"
#include "engine/pairs.hpp"

#include <algorithm>

namespace ktl::engine {

/// The kind of each patch; the patches of one kind follow one another. GuessPatch::search has none.
inline constexpr std::array<PhaseKind, guesses::patch_count - 1> kind_of{PhaseKind::water,
                                                                         PhaseKind::steam,
                                                                         PhaseKind::steam,
                                                                         PhaseKind::steam,
                                                                         PhaseKind::near_critical,
                                                                         PhaseKind::near_critical,
                                                                         PhaseKind::near_critical,
                                                                         PhaseKind::wet,
                                                                         PhaseKind::wet,
                                                                         PhaseKind::wet,
                                                                         PhaseKind::wet_near_critical,
                                                                         PhaseKind::wet_near_critical};
static_assert(std::is_sorted(kind_of.begin(), kind_of.end()));

/// The region of a state of that kind at its own variables.
Region region_of(PhaseKind kind, double primary, double t) noexcept;

/// The state that has both values.
Solution solve_row(Pair pair, double a, double b) noexcept;
/// The same for a row whose patch did not lead to a state: by the other patches, then by the exact search.
Solution search_row_again(Pair pair, double a, double b) noexcept;

} // namespace ktl::engine
