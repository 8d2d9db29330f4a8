// Which columns of a file hold the state, and in which units.
#pragma once

#include "measure.hpp"
#include "tables.hpp"

#include <optional>

namespace program {

/// Places of the columns of the two known values, and of the pair's name if each line names its own.
struct Columns {
    std::size_t first = 0, second = 0;
    std::size_t pair = 0; ///< only if the pair is null
    Measure first_unit, second_unit;
    std::optional<std::size_t> error; ///< of a file that this program wrote: the reason why a line has no values
};

/// True for a heading of results in ktl's own units: "H_kJ/kg".
bool is_own_title(const std::string& column);

/// How the caller wants columns to be read.
struct ColumnWishes {
    std::string chosen; ///< "p=P_in,t_K=T in": which column is which, with its unit or without
    Atmosphere atmosphere;
    Measure first, second;                                      ///< of columns that name no unit
    bool (*is_title)(const std::string& column) = is_own_title; ///< true for headings of results of this program
};

/// Finds the columns by their names in the header: the letter or the name of a quantity, alone or with a unit
/// ("p", "P_bar", "pressure [MPa]"); for a null pair "pair", "first", "second". In a file that this program wrote, the
/// last results take precedence over the columns before them.
/// Throws UsageError that names the wanted and the present columns.
Columns find_columns(const std::vector<std::string>& header, const Pair* pair, const ColumnWishes& wishes = {});

} // namespace program
