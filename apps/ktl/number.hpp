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

/// The number that a text begins with.
struct ReadNumber {
    double value = 0.0;
    std::string_view rest;  ///< what follows the number, without blanks before it
    bool is_number = false; ///< false: value and rest are not set
    bool too_large = false; ///< beyond 1.8e308; the value is infinite then
};

/// Reads the number that the text begins with: blanks before it and a leading + are allowed, a Fortran exponent (1D+03)
/// too. Infinity and NaN are read. With decimal_comma a comma is a decimal mark as a point is.
ReadNumber read_number(std::string_view text, bool decimal_comma = false);

/// The number that the whole text is, blanks around it allowed; none if it is too large.
std::optional<double> parse_number(std::string_view text);

/// The number with up to that many significant digits, in the shorter of plain and exponent form. The text stands
/// until the next one.
class NumberText {
public:
    std::string_view operator()(double value, int digits);

private:
    std::array<char, 64> text_;
};

/// Digits of a result, of a result in a table for reading, and those that tell any two numbers apart.
inline constexpr int result_digits = 10;
inline constexpr int table_digits = 7;
inline constexpr int all_digits = 17;

} // namespace program
