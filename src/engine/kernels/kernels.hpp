// The work of the engine over columns, compiled once for each kind of machine. All of them give the same bits.
#pragma once

#include "engine/derived.hpp"
#include "engine/guesses/guesses.hpp"
#include "engine/kernels/acceptance.hpp"

#include <array>

namespace ktl::engine {

/// The kinds of states that have equations of their own.
enum class PhaseKind : std::uint8_t { water, steam, near_critical, wet, wet_near_critical };
inline constexpr std::size_t kind_count = 5;
inline constexpr std::size_t level_count = 5;

/// The most lanes that any of them has; columns have room for a whole number of these.
inline constexpr std::size_t widest = 16;

/// SolutionColumns of states in the variables of their regions, as in Solution. accepted is 1 if the search came to a state of
/// its kind, else 0. liquid and vapour belong to two phases.
struct SolutionColumns {
    double *primary, *t, *liquid, *vapour, *accepted;
};

struct Kernels {
    const char* name;  ///< the instruction set
    std::size_t lanes; ///< rows that are computed at once

    using Classify = void (*)(const double* a, const double* b, std::size_t n, double* patches);
    using Guess = void (*)(guesses::GuessPatch c, const double* a, const double* b, std::size_t n,
                           const SolutionColumns& out);
    using Solve = void (*)(Pair pair, const double* a, const double* b, std::size_t n, const SolutionColumns& inout,
                           const Margin& margin);
    using Evaluate = void (*)(const SolutionColumns& states, std::size_t n, const Property* properties,
                              std::size_t count, double* const* outputs);
    using Mix = void (*)(Pair pair, const double* a, const double* b, std::size_t n, const SolutionColumns& out,
                         const Property* properties, std::size_t count, double* const* outputs);
    using Line = void (*)(const double* x, std::size_t n, double* y);

    // The length n of all of them is a multiple of lanes; properties of two-phase kinds are of_mixtures().
    std::array<Classify, pair_count> classify;
    std::array<Guess, pair_count> guess;
    /// From guesses in inout; null where none is needed. States of sub-region 3 within the margin, which another sub-region
    /// may claim, are not accepted.
    std::array<std::array<Solve, kind_count>, pair_count> solve;
    std::array<std::array<Evaluate, level_count>, kind_count> evaluate;
    std::array<std::array<Mix, 3>, 2> mix; ///< for pairs that give p or t, by kind from wet on, and by level
    Line saturation_pressure, saturation_slope, saturation_temperature; ///< not-a-number off the line
};

/// Those of one lane, which every machine has.
const Kernels& scalar_kernels() noexcept;
/// Null where the library was built without them.
const Kernels* avx2_kernels() noexcept;
const Kernels* avx512_kernels() noexcept;
const Kernels* neon_kernels() noexcept;
/// The names of those that the library was built with, separated by blanks.
const char* names_of_kernels() noexcept;
/// The widest that this machine runs.
const Kernels& kernels() noexcept;

} // namespace ktl::engine
