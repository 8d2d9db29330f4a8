// Columns as NumPy hands them over, strided and in the caller's unit, and the blocks of rows that the library takes.
#pragma once

#include "lists.hpp"

#include <cstdint>
#include <cstring>

namespace ktl::python {

/// Rows of one call of the library: a few of its own blocks, so that what a call costs does not count.
inline constexpr std::ptrdiff_t block_rows = 2048;

/// A given column.
struct Given {
    const char* base;
    std::ptrdiff_t step; ///< bytes; 0 repeats one number
    const Conversion* unit;

    [[nodiscard]] double at(std::ptrdiff_t row) const {
        double x;
        std::memcpy(&x, base + row * step, sizeof x);
        return unit->identity() ? x : unit->to_library(x);
    }
    /// Rows begin to begin + n side by side in the library's unit: in their place if they are so there, else in scratch.
    [[nodiscard]] const double* block(std::ptrdiff_t begin, std::ptrdiff_t n, double* scratch) const {
        if (step == sizeof(double) && unit->identity()) return reinterpret_cast<const double*>(base) + begin;
        for (std::ptrdiff_t row = 0; row < n; ++row) scratch[row] = at(begin + row);
        return scratch;
    }
};

/// A column of results.
struct Result {
    char* base;
    std::ptrdiff_t step;
    const Conversion* unit;

    void put(std::ptrdiff_t row, double y) const {
        if (!unit->identity()) y = unit->from_library(y);
        std::memcpy(base + row * step, &y, sizeof y);
    }
    /// True if the library may write its rows to their place.
    [[nodiscard]] bool direct() const { return step == sizeof(double) && unit->identity(); }
    [[nodiscard]] double* place(std::ptrdiff_t row) const { return reinterpret_cast<double*>(base) + row; }
};

/// How n rows of a given column and of a column of results share memory.
enum class Sharing : std::uint8_t {
    none,
    same_rows, ///< each result replaces the given value of its own row
    other_rows ///< a result may replace a value that a later row needs: the rows must be computed one after another
};

inline Sharing sharing(const char* given, std::ptrdiff_t given_step, const char* result, std::ptrdiff_t result_step,
                       std::ptrdiff_t result_size, std::ptrdiff_t n) {
    const auto begin_of = [n](const char* base, std::ptrdiff_t step) {
        return reinterpret_cast<std::uintptr_t>(step < 0 ? base + step * (n - 1) : base);
    };
    const auto extent = [n](std::ptrdiff_t step, std::ptrdiff_t size) {
        return static_cast<std::uintptr_t>((step < 0 ? -step : step) * (n - 1) + size);
    };
    const std::uintptr_t a = begin_of(given, given_step), b = begin_of(result, result_step);
    const std::uintptr_t a_end = a + extent(given_step, sizeof(double));
    const std::uintptr_t b_end = b + extent(result_step, result_size);
    if (a_end <= b || b_end <= a) return Sharing::none;
    return given == result && given_step == result_step && given_step != 0 ? Sharing::same_rows : Sharing::other_rows;
}

} // namespace ktl::python
