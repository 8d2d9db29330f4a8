// What a mistyped word may have meant.
#pragma once

#include <string>
#include <string_view>

namespace program {

/// "; did you mean NAME?" if one of the names, separated by blanks, is nearly the word: the same letters in another order,
/// or a letter or two (of five and more) wrong. Otherwise empty. The case of letters does not matter.
std::string did_you_mean(std::string_view word, std::string_view names);

} // namespace program
