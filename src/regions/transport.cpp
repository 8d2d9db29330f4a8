// Doors of the transport properties.
#include "regions/transport.hpp"

#include <ktl/ktlftn.h>

double ktl_ci(const double& v, const double& t) { return ktl::transport::viscosity(v, t); }
double ktl_cj(const double& v, const double& t) { return ktl::transport::conductivity(v, t); }
