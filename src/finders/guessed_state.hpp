// The state by the engine's first guess, which most named finders try before their enclosing searches.
#pragma once

#include "searches/acceptance.hpp"

#include <ktl/steam.hpp>

namespace ktl::finders {

/// The state that has both given values, confirmed, its saturated phases those of the entry. None if the guess does not lead to
/// a state away from every border, or leads to a mixture above 350 degC: the entry has saturated volumes of its own there.
FoundState<double> guessed_state(Pair pair, const searches::Given& given);

} // namespace ktl::finders
