// The one sink of all text: numbered output units.
#pragma once

#include "reports/format.hpp"

namespace ktl::reports {

/// Writes the line and its end as one piece. 6 is standard output, 0 standard error; a unit that nobody has
/// connected (ktl_connect_unit) writes to standard error. The writer of ktl_set_line_writer, if there is one, comes
/// before all but the connected units.
void write_line(int unit, const Line& line);

/// Hands what the unit holds back on to its stream.
void flush_unit(int unit);

} // namespace ktl::reports
