#include "number.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace program {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

std::string_view without_blanks_before(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

/// Bytes of the text that are a decimal number, digits with one mark and an exponent; 0 if there is none.
std::size_t length_of_decimal(std::string_view text, bool decimal_comma) {
    const auto at = [&](std::size_t i) { return i < text.size() ? text[i] : '\0'; };
    std::size_t i = at(0) == '-' ? 1 : 0;
    std::size_t digits = 0;
    for (; is_digit(at(i)); ++i) ++digits;
    if (at(i) == '.' || (decimal_comma && at(i) == ','))
        for (++i; is_digit(at(i)); ++i) ++digits;
    if (digits == 0) return 0;
    const char mark = at(i);
    if (mark != 'e' && mark != 'E' && mark != 'd' && mark != 'D') return i;
    std::size_t end = i + 1;
    if (at(end) == '+' || at(end) == '-') ++end;
    if (!is_digit(at(end))) return i;
    while (is_digit(at(end))) ++end;
    return end;
}

/// The text, which is a decimal number, as from_chars reads it: a point, an e.
std::string plain(std::string_view decimal) {
    std::string text(decimal);
    std::replace(text.begin(), text.end(), ',', '.');
    for (char& c : text)
        if (c == 'd' || c == 'D') c = 'e';
    return text;
}

/// The value of a decimal number: infinite if it is too large, the nearest number if it is tiny. The program keeps the C
/// locale, so strtod reads a point.
double slow_value(std::string_view decimal) { return std::strtod(plain(decimal).c_str(), nullptr); }

double value_of(std::string_view decimal) {
#if defined(__cpp_lib_to_chars)
    double value = 0.0;
    const char* const end = decimal.data() + decimal.size();
    const auto read = std::from_chars(decimal.data(), end, value);
    if (read.ec == std::errc{} && read.ptr == end) return value;
#endif
    return slow_value(decimal);
}

/// Reads infinity and NaN, in any case of letters.
ReadNumber read_word(std::string_view text) {
    const bool negative = text.starts_with('-');
    const std::string_view word = text.substr(negative ? 1 : 0);
    for (const std::string_view known : {"infinity", "inf", "nan"}) {
        if (lower_case(word.substr(0, known.size())) != known) continue;
        const double size =
            known == "nan" ? std::numeric_limits<double>::quiet_NaN() : std::numeric_limits<double>::infinity();
        return {negative ? -size : size, without_blanks_before(word.substr(known.size())), true, false};
    }
    return {};
}

} // namespace

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::string lower_case(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return out;
}

std::string in_quotes(std::string_view text) {
    constexpr std::size_t longest = 40;
    std::size_t end = std::min(text.size(), longest);
    while (end < text.size() && end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        --end; // whole UTF-8
    std::string out(text.substr(0, end));
    for (char& c : out)
        if ((c >= '\0' && c < ' ') || c == '\x7f') c = '?';
    return "'" + out + (text.size() > end ? "...'" : "'");
}

ReadNumber read_number(std::string_view text, bool decimal_comma) {
    text = trimmed(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    const std::size_t length = length_of_decimal(text, decimal_comma);
    if (length == 0) return read_word(text);
    const double value = value_of(text.substr(0, length));
    return {value, without_blanks_before(text.substr(length)), true, std::isinf(value)};
}

std::optional<double> parse_number(std::string_view text) {
    const ReadNumber read = read_number(text);
    if (!read.is_number || read.too_large || !read.rest.empty()) return std::nullopt;
    return read.value;
}

std::string_view NumberText::operator()(double value, int digits) {
    char* const begin = text_.data();
#if defined(__cpp_lib_to_chars)
    return {begin, std::to_chars(begin, begin + text_.size(), value, std::chars_format::general, digits).ptr};
#else
    return {begin, static_cast<std::size_t>(std::snprintf(begin, text_.size(), "%.*g", digits, value))};
#endif
}

} // namespace program
