// The neighbours of a patch: which other patches may have a row that its own does not have.
#pragma once

#include "engine/guesses/guess_form.hpp"
#include "engine/kernels/kernels.hpp"

#include <algorithm>
#include <span>

namespace ktl::engine {

/// The kind of phase of each patch; the patches of one kind follow one another. GuessPatch::search has none.
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

/// True if two values name one state at most, so that whichever patch finds a state has found it.
constexpr bool names_one_state(Pair pair) {
    return pair == Pair::ph || pair == Pair::ps || pair == Pair::pu || pair == Pair::tv || pair >= Pair::hs;
}

/// Where the search of a patch ended: primary variable, of a mixture its quality, and t.
struct EndOfSearch {
    double primary = quiet_nan, t = quiet_nan;
};

/// The patch that was tried across the saturation line, and where its search ended; GuessPatch::search: none.
struct AcrossLine {
    guesses::GuessPatch patch = guesses::GuessPatch::search;
    EndOfSearch ended;
};

/// The patch across the saturation line from that of a row: it has the row, as a rule, if its own has no state for it. Border curves
/// are fits, so half of the rows on the line, and more of those rounded to a few digits, begin on the wrong side. A state that it
/// has by the margin of the pair is the row's, as one of its own patch is. GuessPatch::search if there is none.
guesses::GuessPatch patch_across(Pair pair, guesses::GuessPatch patch, double a, const EndOfSearch& ended) noexcept;

/// The patches to try after a row's own and the one across the line, by precedence. beside_border: only those on both sides of a border
/// that the searches ended beside; of others no state is near.
struct Candidates {
    std::span<const guesses::GuessPatch> patches;
    bool beside_border = false;
};
Candidates candidates(guesses::GuessPatch own, const EndOfSearch& ended, const AcrossLine& across) noexcept;

} // namespace ktl::engine
