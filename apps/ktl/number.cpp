#include "number.hpp"

#include <algorithm>
#include <charconv>

namespace program {

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
    std::string out(text.substr(0, longest));
    for (char& c : out)
        if ((c >= '\0' && c < ' ') || c == '\x7f') c = '?';
    return "'" + out + (text.size() > longest ? "...'" : "'");
}

std::optional<double> parse_number(std::string_view text) {
    text = trimmed(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    if (text.empty() || read.ec != std::errc{} || read.ptr != end) return std::nullopt;
    return value;
}

std::string_view NumberText::operator()(double value, int digits) {
    char* const begin = text_.data();
    return {begin, std::to_chars(begin, begin + text_.size(), value, std::chars_format::general, digits).ptr};
}

} // namespace program
