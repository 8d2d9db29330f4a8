// What columns of steps, mixtures and exergy share.
#pragma once

#include "engine/calls/batch.hpp"
#include "engine/rows/block.hpp"
#include "regions/number.hpp"

#include <algorithm>
#include <array>
#include <ktl/process.hpp>

namespace ktl::process {

/// Rows that go through all parts of a step together; few, since their values are kept on the stack.
constexpr std::size_t rows_together = 128;
static_assert(engine::block_rows % rows_together == 0);
using Column = std::array<double, rows_together>;

/// The properties that the caller wants of the end, with h and s, which the results are made of.
struct Wanted {
    std::array<Property, property_count> properties;
    std::array<double*, property_count> outputs;
    std::size_t count = 0;

    /// The column that gets the property: the caller's, or the spare one.
    double* add(Property property, double* spare) {
        for (std::size_t k = 0; k < count; ++k)
            if (properties[k] == property) return outputs[k];
        properties[count] = property;
        return outputs[count++] = spare;
    }
};

/// True if each column of results is empty or has as many rows.
inline bool fit_rows(std::span<const std::span<double>> columns, std::size_t rows) {
    return std::all_of(columns.begin(), columns.end(),
                       [&](std::span<double> column) { return column.empty() || column.size() == rows; });
}

/// Marks the results of rows that no thread has begun.
inline void clear_cancelled(std::span<const Status> status, std::span<const std::span<double>> columns) {
    for (std::size_t i = 0; i < status.size(); ++i)
        for (const std::span<double> column : columns)
            if (!column.empty() && status[i] == Status::cancelled) column[i] = quiet_nan;
}

} // namespace ktl::process
