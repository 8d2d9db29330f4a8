// Partial derivatives as properties: d(h)/d(p)|s.
#pragma once

#include "tables.hpp"

namespace program {

/// True for a text that is meant to be a derivative: it begins with d(.
bool looks_like_derivative(std::string_view given);
/// The property that the text names, upper or lower case, blanks allowed: (d of / d by) with a third one held, each of them
/// P, T, V, RHO, H, S, U, G or F. It remains for good. Throws UsageError that says what is wrong.
const Property& derivative_property(std::string_view given);

} // namespace program
