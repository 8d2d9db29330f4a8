// Derivatives have no codes here: the module is asked for properties alone, by codes of its own.
#include "derivative_code.hpp"

namespace program {

bool looks_like_derivative(std::string_view /*given*/) { return false; }

const Property& derivative_property(std::string_view /*given*/) { throw UsageError("there are no derivatives here"); }

} // namespace program
