// One state: from two known values to properties that were checked, or to a text that says why not.
#pragma once

#include "tables.hpp"

#include <cstdio>
#include <limits>

namespace program {

struct Result {
    std::array<double, property_count> values; ///< not-a-number where there is no value
    std::string error;                         ///< empty when every wanted property has its value

    Result() { values.fill(std::numeric_limits<double>::quiet_NaN()); }
    [[nodiscard]] bool has(PropertyIndex index) const;
};

/// Calls the library with its report lines collected in memory. One at a time.
class Evaluator {
public:
    Evaluator();
    ~Evaluator();
    Evaluator(const Evaluator&) = delete;
    Evaluator& operator=(const Evaluator&) = delete;

    /// The state given by the two values, with the wanted properties.
    Result evaluate(const Pair& pair, double first, double second, std::span<const PropertyIndex> wanted);

private:
    void clear_reports();
    /// The facts of the first report since clear_reports, or the sentence where there was none.
    std::string first_report_or(std::string sentence);

    FILE* reports_ = nullptr;
    char* text_ = nullptr;
    std::size_t size_ = 0;
};

} // namespace program
