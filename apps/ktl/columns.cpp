#include "columns.hpp"

#include "derivative_code.hpp"
#include "number.hpp"

#include <algorithm>

namespace program {

namespace {

using Header = std::vector<std::string>;

bool letter_or_digit(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

/// A column's title: the name is what stands before the first character that is no letter or digit, the rest its unit.
struct Title {
    std::string name, unit;

    explicit Title(std::string_view text) {
        text = trimmed(text);
        const auto end = std::find_if_not(text.begin(), text.end(), letter_or_digit);
        const auto size = static_cast<std::size_t>(end - text.begin());
        name = lower_case(text.substr(0, size));
        unit = std::string(text.substr(size));
    }
    [[nodiscard]] bool names(const Quantity& q) const { return name == q.symbol || name == q.name; }
};

std::string list_of(const Header& columns) {
    constexpr std::size_t most = 20;
    std::string out;
    for (std::size_t i = 0; i < std::min(columns.size(), most); ++i)
        out += (i == 0 ? "" : ", ") + in_quotes(trimmed(columns[i]));
    return columns.size() > most ? out + ", ..." : out;
}

/// A derivative with its unit, as "d(H)/d(P)|S_kJ/(kg bar)".
bool is_derivative(const std::string& column) {
    const std::size_t end = column.find('_');
    if (end == std::string::npos || !looks_like_derivative(column)) return false;
    try {
        const Property& property = derivative_property(column.substr(0, end));
        return column.compare(0, end, property.code) == 0 &&
               column.compare(end + 1, std::string::npos, property.unit) == 0;
    } catch (const UsageError&) {
        return false;
    }
}

/// The first of the result columns right before a last column "error"; the header's size if this program did not write
/// the file.
std::size_t first_result(const Header& header, const ColumnWishes& wishes) {
    if (header.empty() || header.back() != "error") return header.size();
    std::size_t first = header.size() - 1;
    while (first > 0 && wishes.is_title(header[first - 1])) --first;
    return first;
}

/// The only place of the matching ones; those from the first result on take precedence.
std::size_t only_place(const Header& header, std::vector<std::size_t> places, const std::string& wanted,
                       const std::string& hint, const ColumnWishes& wishes) {
    const std::size_t results = first_result(header, wishes);
    if (!places.empty() && places.back() >= results && results < header.size())
        std::erase_if(places, [=](std::size_t place) { return place < results; });
    if (places.size() == 1) return places.front();
    if (places.empty()) {
        throw UsageError("no column for " + wanted + hint + "; the file has, between separators, the columns " +
                         list_of(header));
    }
    Header matching;
    for (const std::size_t place : places) matching.push_back(header[place]);
    throw UsageError("more than one column for " + wanted + ": " + list_of(matching));
}

std::size_t find_named(const Header& header, std::string_view name, bool any_case, const ColumnWishes& wishes) {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < header.size(); ++i) {
        const std::string column(trimmed(header[i]));
        if (any_case ? lower_case(column) == name : column == trimmed(name)) places.push_back(i);
    }
    return only_place(header, places, in_quotes(name), "", wishes);
}

struct Place {
    std::size_t column;
    Measure measure;
};

Place find_quantity(const Header& header, const Quantity& q, const Measure& plain, const ColumnWishes& wishes) {
    std::vector<std::size_t> places;
    std::string hint;
    for (std::size_t i = 0; i < header.size(); ++i) {
        const Title title(header[i]);
        if (!title.names(q)) continue;
        try {
            measure_of(q, title.unit, wishes.atmosphere, plain);
            places.push_back(i);
        } catch (const UsageError& fault) {
            hint = "; column " + in_quotes(trimmed(header[i])) + ": " + fault.what();
        }
    }
    const std::string symbol(q.symbol);
    const std::string wanted = std::string(q.name) + " (" + symbol + " or " + symbol + "_" + std::string(q.unit) + ")";
    const std::size_t place = only_place(header, places, wanted, hint, wishes);
    return {place, measure_of(q, Title(header[place]).unit, wishes.atmosphere, plain)};
}

/// What the caller chose for one name: the title on its left, the column on its right.
struct Choice {
    Title title;
    std::string column;
};

std::vector<Choice> choices_of(const std::string& text) {
    std::vector<Choice> choices;
    for (std::size_t begin = 0; !text.empty() && begin <= text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        const std::string part = text.substr(begin, end - begin);
        const std::size_t equals = part.find('=');
        if (equals == std::string::npos)
            throw UsageError("--columns: " + in_quotes(part) + " should be as in p=P_in or p_MPa=P_in");
        choices.push_back({Title(part.substr(0, equals)), part.substr(equals + 1)});
        begin = end + 1;
    }
    return choices;
}

/// The unit that a chosen column's own name has in brackets at its end. A name that could end in a unit in another way is
/// refused: T_F may be of the feed or in Fahrenheit.
std::string unit_of_column(const Quantity& q, std::string_view column) {
    column = trimmed(column);
    const char last = column.empty() ? '\0' : column.back();
    const std::size_t open = last == ']' ? column.rfind('[') : last == ')' ? column.find('(') : std::string_view::npos;
    if (open != std::string_view::npos) return std::string(column.substr(open));
    const std::size_t mark = column.find_last_of(" _");
    if (mark != std::string_view::npos && ktl::units::find(q.dimension, column.substr(mark + 1))) {
        throw UsageError("--columns: is " + in_quotes(column) + " in " + std::string(column.substr(mark + 1)) +
                         "? Say so on the left of '=', or " + std::string(q.symbol) + "_" + std::string(q.unit) +
                         " for ktl's unit");
    }
    return {};
}

Place chosen_or_found(const Header& header, const Quantity& q, const std::vector<Choice>& choices, const Measure& plain,
                      const ColumnWishes& wishes) {
    for (const Choice& choice : choices) {
        if (!choice.title.names(q)) continue;
        const std::size_t place = find_named(header, choice.column, false, wishes);
        const std::string unit = choice.title.unit.empty() ? unit_of_column(q, header[place]) : choice.title.unit;
        return {place, measure_of(q, unit, wishes.atmosphere, plain)};
    }
    return find_quantity(header, q, plain, wishes);
}

std::size_t chosen_or_named(const Header& header, std::string_view name, const std::vector<Choice>& choices,
                            const ColumnWishes& wishes) {
    for (const Choice& choice : choices)
        if (choice.title.name == name) return find_named(header, choice.column, false, wishes);
    return find_named(header, name, true, wishes);
}

void check_names(const std::vector<Choice>& choices, const Pair* pair) {
    for (const Choice& choice : choices) {
        const bool used =
            pair == nullptr
                ? choice.title.name == "pair" || choice.title.name == "first" || choice.title.name == "second"
                : choice.title.names(quantity(pair->first)) || choice.title.names(quantity(pair->second));
        if (!used) throw UsageError("--columns: the pair has no " + in_quotes(choice.title.name));
    }
}

} // namespace

bool is_own_title(const std::string& column) {
    return is_derivative(column) || std::any_of(properties().begin(), properties().end(), [&](const Property& p) {
               return column == std::string(p.code) + "_" + std::string(p.unit);
           });
}

Columns find_columns(const std::vector<std::string>& header, const Pair* pair, const ColumnWishes& wishes) {
    const auto choices = choices_of(wishes.chosen);
    check_names(choices, pair);
    Columns found;
    if (first_result(header, wishes) + 1 < header.size()) found.error = header.size() - 1;
    if (pair == nullptr) {
        found.first = chosen_or_named(header, "first", choices, wishes);
        found.second = chosen_or_named(header, "second", choices, wishes);
        found.pair = chosen_or_named(header, "pair", choices, wishes);
        return found;
    }
    const Place first = chosen_or_found(header, quantity(pair->first), choices, wishes.first, wishes);
    const Place second = chosen_or_found(header, quantity(pair->second), choices, wishes.second, wishes);
    found.first = first.column;
    found.second = second.column;
    found.first_unit = first.measure;
    found.second_unit = second.measure;
    return found;
}

} // namespace program
