// Why lines have no full result: how many for each reason, and the first of them.
#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace program {

class Reasons {
public:
    void add(const std::string& reason, std::size_t line) { add(reason, {1, line}); }
    /// Adds those of later lines.
    void add(const Reasons& later) {
        for (const auto& [reason, lines] : later.lines_) add(reason, lines);
    }
    void clear() { lines_.clear(); }
    /// Number of lines.
    [[nodiscard]] std::size_t total() const {
        std::size_t sum = 0;
        for (const auto& [reason, lines] : lines_) sum += lines.count;
        return sum;
    }
    /// The summary for people, most frequent reason first; empty if there is none. rows: those of the whole file.
    [[nodiscard]] std::string text(std::size_t rows) const;

private:
    struct Lines {
        std::size_t count, first;
    };
    void add(const std::string& reason, Lines lines) {
        lines_.try_emplace(reason, Lines{0, lines.first}).first->second.count += lines.count;
    }
    std::map<std::string, Lines> lines_;
};

} // namespace program
