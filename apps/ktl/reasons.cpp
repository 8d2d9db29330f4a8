#include "reasons.hpp"

#include <algorithm>
#include <vector>

namespace program {

std::string Reasons::text(std::size_t rows) const {
    using Entry = std::pair<std::string, Lines>;
    std::vector<Entry> entries(lines_.begin(), lines_.end());
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& a, const Entry& b) { return a.second.count > b.second.count; });
    if (entries.empty()) return {};
    const std::size_t failures = total();
    std::string out = std::to_string(failures) + " of " + std::to_string(rows) + (rows == 1 ? " line" : " lines") +
                      (failures == 1 ? " has" : " have") + " no full result:\n";
    const std::size_t widest = std::to_string(entries.front().second.count).size();
    for (const auto& [reason, lines] : entries) {
        const std::string count = std::to_string(lines.count);
        out.append(2 + widest - count.size(), ' ').append(count).append("  ").append(reason);
        out += (lines.count == 1 ? " (line " : " (first in line ") + std::to_string(lines.first) + ")\n";
    }
    return out;
}

} // namespace program
