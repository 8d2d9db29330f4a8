// Batches of rows on threads, whatever formulation solves them.
#pragma once

#include <ktl/steam.hpp>

namespace ktl {

/// Solves one block of at most engine::block_rows rows, as engine::solve_block. Returns how many are solved.
struct BlockSolver {
    std::size_t (*solve)(const void* context, Pair pair, const double* a, const double* b, std::size_t n,
                         std::span<const Property> properties, double* const* outputs, Status* status) noexcept;
    const void* context = nullptr; ///< its first argument: what it needs besides the columns
};

/// The columns of a batch call, as batch() in ktl/steam.hpp has them.
struct BatchArguments {
    Pair pair;
    std::span<const double> a, b;
    std::span<const Property> properties;
    std::span<double* const> outputs;
    std::span<Status> status;
};

BatchResult run_batch(BlockSolver solve_block, const BatchArguments& columns, const BatchOptions& options) noexcept;

} // namespace ktl
