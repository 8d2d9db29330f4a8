// Door of the solver in two unknowns: an inner search nested in the residual of the outer one.
#include "reports/diagnostics.hpp"
#include "solvers/bracketing.hpp"

#include <ktl/ktlftn.h>

void ktl_id(ktl_property f1, const double& x, ktl_property f2, const double& y, double& a1, double& b1, double& a2,
            double& b2, const double& eps) {
    using namespace ktl::solvers;
    const double eps1 = std::fabs(x * eps);
    const double eps2 = std::pow(eps, 1.25);

    double z = a1; // solution of the inner search for the latest w
    const auto residual = [&](double w) {
        double a = a1;
        double b = b1;
        z = solve<SecantOutside>([&](double trial) { return f2(trial, w); }, y, a, b, eps2).z;
        return f1(z, w) - x;
    };
    const double fa2 = residual(a2);
    double c1 = z; // z at the latest false-position point; the bisections between do not count
    const double fb2 = residual(b2);

    Interval s{a2, b2, fa2, fb2};
    const auto found = bracketed<PairOfUnknowns>(s, a2, fa2, eps, eps1, residual, [&](double) { c1 = z; });
    if (found.exit == Exit::passes) ktl::reports::warn_passes("KTL_ID");
    a1 = b1 = c1;
    a2 = b2 = found.z;
}
