// Numbers and short texts, read and shown the same way whatever the locale.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace program {

std::string_view trimmed(std::string_view text);
std::string lower_case(std::string_view text);

/// The text between apostrophes, fit for a message: control characters as '?', cut after 40 bytes.
std::string in_quotes(std::string_view text);

/// The number that the whole text is; blanks around it and a leading + are allowed. Infinity and NaN are read.
std::optional<double> parse_number(std::string_view text);

/// The number with up to that many significant digits, in the shorter of plain and exponent form. The text stands
/// until the next one.
class NumberText {
public:
    std::string_view operator()(double value, int digits);

private:
    std::array<char, 64> text_;
};

/// Digits of a result, and of a result in a table for reading.
inline constexpr int result_digits = 10;
inline constexpr int table_digits = 7;

} // namespace program
