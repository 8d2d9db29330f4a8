// States of given entropy and quality, for the finder ktlrsx.
#pragma once

#include "searches/state.hpp"

namespace ktl::finders {

/// The state that the finder of entropy and quality gives: with the phases of the entry, the one of lowest temperature.
FoundState<double> on_entry_quality_line(double s, double x);

} // namespace ktl::finders
