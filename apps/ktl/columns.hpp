// Which columns of a file hold the state.
#pragma once

#include "tables.hpp"

namespace program {

/// Places of the columns of the two known values, and of the pair's name where each line names its own.
struct Columns {
    std::size_t first, second;
    std::size_t pair; ///< only where the pair is null
};

/// Finds the columns by their names in the header: the letter or the name of a quantity, alone or with its
/// unit, upper or lower case ("p", "P_bar", "pressure [bar]"); for a null pair "pair", "first", "second".
/// Throws UsageError that names the wanted and the present columns.
Columns find_columns(const std::vector<std::string>& header, const Pair* pair);

} // namespace program
