#include "suggestion.hpp"

#include "number.hpp"

#include <algorithm>
#include <numeric>
#include <vector>

namespace program {

namespace {

constexpr std::size_t longest_word = 40;

/// Letters to change, add or drop to make one word the other.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, diagonal + 1, row[j] + 1});
        }
    }
    return row.back();
}

std::string sorted(std::string text) {
    std::sort(text.begin(), text.end());
    return text;
}

} // namespace

std::string did_you_mean(std::string_view word, std::string_view names) {
    const std::string given = lower_case(word.substr(0, longest_word));
    std::string_view best;
    std::size_t least = longest_word;
    while (!names.empty()) {
        const std::size_t end = std::min(names.find(' '), names.size());
        const std::string_view name = names.substr(0, end);
        const std::string known = lower_case(name);
        const std::size_t allowed = known.size() < 3 ? 0 : known.size() < 5 ? 1 : 2;
        const std::size_t away = sorted(known) == sorted(given) ? 0 : distance(given, known);
        if (away <= allowed && away < least) {
            best = name;
            least = away;
        }
        names.remove_prefix(std::min(end + 1, names.size()));
    }
    return best.empty() ? std::string() : "; did you mean " + std::string(best) + "?";
}

} // namespace program
