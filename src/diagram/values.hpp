// Round values of families, and how values and units are written.
#pragma once

#include <ktl/diagram.hpp>

namespace ktl::diagram {

/// As text(), with four significant digits: of a measured state.
std::string rounded_text(double value, Property property, System system);

} // namespace ktl::diagram
