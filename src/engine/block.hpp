// One block of rows: the unit of work of a batch call, done by one thread from beginning to end.
#pragma once

#include <ktl/steam.hpp>

namespace ktl::engine {

inline constexpr std::size_t block_rows = 512;

/// The states of rows (a[i], b[i]), i < n <= block_rows; outputs[k][i] gets properties[k]. Returns how many are solved.
std::size_t solve_block(Pair pair, const double* a, const double* b, std::size_t n,
                        std::span<const Property> properties, double* const* outputs, Status* status) noexcept;

} // namespace ktl::engine
