#include "reports/format.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace ktl::reports {

namespace {

constexpr int most_digits = 20;

/// A decimal number d.ddd x 10^exponent, rounded to the nearest as its exact binary value demands.
struct Decimal {
    std::array<char, most_digits + 1> digits; // significant digits, no point
    int exponent;
    bool negative;
};

Decimal decimal(double value, int significant) {
    std::array<char, most_digits + 16> text;
    // to_chars, not printf: the decimal point must not follow the locale.
    auto end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value), std::chars_format::scientific,
                             significant - 1)
                   .ptr;
    Decimal out{};
    out.negative = std::signbit(value);
    const char* begin = text.data();
    const char* e = std::find(begin, static_cast<const char*>(end), 'e');
    std::copy_if(begin, e, out.digits.begin(), [](char c) { return c != '.'; });
    const char* exponent_digits = e + 1 + (e[1] == '+' ? 1 : 0);
    std::from_chars(exponent_digits, end, out.exponent);
    return out;
}

/// Exponent of an E descriptor: four characters; the letter gives way to a third digit.
void put_exponent(Line& field, int exponent) {
    const int size = std::abs(exponent);
    const auto digit = [](int d) { return static_cast<char>('0' + d % 10); };
    const char sign = exponent < 0 ? '-' : '+';
    const bool wide = size >= 100;
    const std::array<char, 4> shown{wide ? sign : 'E', wide ? digit(size / 100) : sign, digit(size / 10), digit(size)};
    field.text({shown.data(), shown.size()});
}

/// Infinity and NaN as the E descriptors show them; empty for a finite value.
std::string_view non_finite(double value) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value < 0.0 ? "-Infinity" : "Infinity";
    return {};
}

/// The characters of Ew.d (leading = 0) or 1PEw.d (leading = 1) before alignment.
Line e_form(double value, int d, int leading) {
    Line field;
    const Decimal number = decimal(value, std::min(d + leading, most_digits));
    const std::string_view digits(number.digits.data());
    if (number.negative) field.text("-");
    field.text(leading == 1 ? digits.substr(0, 1) : "0").text(".");
    field.text(digits.substr(static_cast<std::size_t>(leading)));
    const bool zero = value == 0.0;
    put_exponent(field, zero ? 0 : number.exponent + 1 - leading);
    return field;
}

} // namespace

Line& Line::text(std::string_view words) {
    const std::size_t count = std::min(words.size(), room_.size() - size_);
    std::copy_n(words.data(), count, room_.data() + size_);
    size_ += count;
    return *this;
}

Line& Line::fill(char c, int count) {
    for (int i = 0; i < count; ++i) text({&c, 1});
    return *this;
}

Line& Line::right_aligned(std::string_view field, int w) {
    const int blanks = w - static_cast<int>(field.size());
    return blanks < 0 ? fill('*', w) : fill(' ', blanks).text(field);
}

Line& Line::real_1pe(double value, int w, int d) {
    const auto special = non_finite(value);
    return right_aligned(special.empty() ? e_form(value, d, 1).view() : special, w);
}

Line& Line::real_e(double value, int w, int d) {
    const auto special = non_finite(value);
    return right_aligned(special.empty() ? e_form(value, d, 0).view() : special, w);
}

Line& Line::integer(int value, int w) {
    std::array<char, 16> digits;
    const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return right_aligned({digits.data(), static_cast<std::size_t>(end - digits.data())}, w);
}

} // namespace ktl::reports
