// The searches for the named finders, with exp and log of the C library, as the named routines have them.
#include "searches/bodies.hpp"

namespace ktl {

KTL_COMPILE_SEARCHES(double)

} // namespace ktl
