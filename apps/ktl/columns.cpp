#include "columns.hpp"

#include "number.hpp"

#include <algorithm>
#include <functional>
#include <iterator>

namespace program {

namespace {

enum class Match { no, yes, other_unit };
using Matcher = std::function<Match(const std::string&)>;

bool letter_or_digit(char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); }

Match match_name(std::string_view name, const std::string& column) {
    return lower_case(trimmed(column)) == name ? Match::yes : Match::no;
}

/// The column's name is what stands before the first character that is no letter or digit; the rest is its
/// unit, compared without blanks and marks. Another unit is no match: bar must not be taken for MPa.
Match match_quantity(const Quantity& q, const std::string& column) {
    const std::string text = lower_case(trimmed(column));
    const auto name_end = std::find_if_not(text.begin(), text.end(), letter_or_digit);
    const std::string_view name(text.begin(), name_end);
    if (name != q.symbol && name != q.name) return Match::no;
    std::string unit;
    std::copy_if(name_end, text.end(), std::back_inserter(unit), [](char c) { return letter_or_digit(c) || c == '%'; });
    const auto& known = q.unit_spellings;
    return std::find(known.begin(), known.end(), unit) != known.end() || unit.empty() ? Match::yes : Match::other_unit;
}

std::string list_of(const std::vector<std::string>& columns) {
    constexpr std::size_t most = 20;
    std::string out;
    for (std::size_t i = 0; i < std::min(columns.size(), most); ++i)
        out += (i == 0 ? "" : ", ") + in_quotes(trimmed(columns[i]));
    return columns.size() > most ? out + ", ..." : out;
}

std::size_t find_column(const std::vector<std::string>& header, const std::string& wanted, const Matcher& matcher) {
    std::vector<std::string> matching;
    std::string hint;
    std::size_t place = 0;
    for (std::size_t i = 0; i < header.size(); ++i) {
        const Match match = matcher(header[i]);
        if (match == Match::other_unit) hint = "; " + in_quotes(trimmed(header[i])) + " is not in that unit";
        if (match != Match::yes) continue;
        matching.push_back(header[i]);
        place = i;
    }
    if (matching.size() == 1) return place;
    if (matching.empty()) {
        throw UsageError("no column for " + wanted + hint + "; the file has, between commas, the columns " +
                         list_of(header));
    }
    throw UsageError("more than one column for " + wanted + ": " + list_of(matching));
}

std::size_t find_quantity(const std::vector<std::string>& header, ktl::Property id) {
    const Quantity& q = quantity(id);
    const std::string symbol(q.symbol);
    const std::string wanted = std::string(q.name) + " (" + symbol + " or " + symbol + "_" + std::string(q.unit) + ")";
    return find_column(header, wanted, [&q](const std::string& column) { return match_quantity(q, column); });
}

std::size_t find_name(const std::vector<std::string>& header, std::string_view name) {
    return find_column(header, in_quotes(name), [name](const std::string& column) { return match_name(name, column); });
}

} // namespace

Columns find_columns(const std::vector<std::string>& header, const Pair* pair) {
    if (pair == nullptr) return {find_name(header, "first"), find_name(header, "second"), find_name(header, "pair")};
    return {find_quantity(header, pair->first), find_quantity(header, pair->second), 0};
}

} // namespace program
