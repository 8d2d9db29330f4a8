// Doors of the solvers in one unknown.
#include "reports/diagnostics.hpp"
#include "solvers/bracketing.hpp"

#include <ktl/ktlftn.h>

namespace solvers = ktl::solvers;

double ktl_i1(ktl_property f, const double& y, const double& x, double& a, double& b, const double& eps) {
    const auto found = solvers::solve<solvers::WarnAndZero>([&](double z) { return f(y, z); }, x, a, b, eps);
    if (found.exit == solvers::Exit::passes) ktl::reports::warn_passes("KTL_I1");
    return found.z;
}

double ktl_i2(ktl_property f, const double& y, const double& x, double& a, double& b, const double& eps) {
    return solvers::solve<solvers::SecantOutside>([&](double z) { return f(z, y); }, x, a, b, eps).z;
}

double ktl_i3(ktl_property_eps f, const double& y, const double& x, double& a, double& b, const double& eps) {
    return solvers::solve<solvers::LastPoint>([&](double z) { return f(z, y, eps); }, x, a, b, eps).z;
}
