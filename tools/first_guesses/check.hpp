// How good the first guesses are: shares of states, drawn anew, that are put into the right region and that Newton
// steps bring to rounding.
#pragma once

#include "engine/guesses/guesses.hpp"
#include "states.hpp"

namespace first_guesses {

struct Quality {
    double t_greatest = 0.0, t_rms = 0.0;         ///< error of the guess, K
    double first_greatest = 0.0, first_rms = 0.0; ///< relative
    double two = 0.0, three = 0.0;                ///< shares that two and three steps bring to tolerance
    double wrong = 0.0;                           ///< share put into another region
};

/// Miss that counts as rounding.
inline constexpr double tolerance = 1.0e-12;

/// True where the patch has a guess that Newton steps follow.
bool followed(Pair pair, GuessPatch where);
/// Of s, x where several states may be, those count that are beyond doubt the lowest.
Quality check(Pair pair, GuessPatch where, std::size_t n, std::uint64_t seed);

} // namespace first_guesses
