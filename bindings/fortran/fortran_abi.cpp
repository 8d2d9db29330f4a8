// Every named routine under the name by which gfortran calls it: lower case and an underscore. Fortran passes
// every argument by reference, as the routines themselves take them, so a Fortran routine is a ktl_finder or a
// ktl_property as it stands; a text brings its length behind all other arguments.
#include "records.hpp"

#include <cstddef>
#include <ktl/ktlftn.h>

using ktl::fortran::CommonSync;

extern "C" {

#define KTL_FINDER(name)                                                                                               \
    KTL_API int name##_(double& first, double& second, const double& eps) {                                            \
        const CommonSync after;                                                                                        \
        return name(first, second, eps);                                                                               \
    }
#define KTL_PROPERTY(name)                                                                                             \
    KTL_API double name##_(const double& first, const double& second) {                                                \
        const CommonSync after;                                                                                        \
        return name(first, second);                                                                                    \
    }
#define KTL_PURE(name)                                                                                                 \
    KTL_API double name##_(const double& first, const double& second) { return name(first, second); }
#define KTL_PROPERTY_EPS(name)                                                                                         \
    KTL_API double name##_(const double& first, const double& second, const double& eps) {                             \
        const CommonSync after;                                                                                        \
        return name(first, second, eps);                                                                               \
    }
#define KTL_SATURATION(name)                                                                                           \
    KTL_API double name##_(const double& value) {                                                                      \
        const CommonSync after;                                                                                        \
        return name(value);                                                                                            \
    }
#define KTL_TERMS(name)                                                                                                \
    KTL_API void name##_(const double& first, const double& second) {                                                  \
        const CommonSync after;                                                                                        \
        name(first, second);                                                                                           \
    }
#define KTL_SOLVER(name)                                                                                               \
    KTL_API double name##_(ktl_property f, const double& y, const double& x, double& a, double& b,                     \
                           const double& eps) {                                                                        \
        const CommonSync after;                                                                                        \
        return name(f, y, x, a, b, eps);                                                                               \
    }
#define KTL_SOLVER_EPS(name)                                                                                           \
    KTL_API double name##_(ktl_property_eps f, const double& y, const double& x, double& a, double& b,                 \
                           const double& eps) {                                                                        \
        const CommonSync after;                                                                                        \
        return name(f, y, x, a, b, eps);                                                                               \
    }
#include "routines.def"

KTL_API void ktl_id_(ktl_property f1, const double& x, ktl_property f2, const double& y, double& a1, double& b1,
                     double& a2, double& b2, const double& eps) {
    const CommonSync after;
    ktl_id(f1, x, f2, y, a1, b1, a2, b2, eps);
}

KTL_API void ktlftn_(ktl_finder regfun, const double& indep1, const double& indep2, const char* strdep, double* prodep,
                     std::size_t length) {
    const CommonSync after;
    ktlftn_len(regfun, indep1, indep2, strdep, length, prodep);
}

/// The name carries no end of its own, and ktler does not read it.
KTL_API void ktler_(const char* /*name*/, const int& i, const double& a, const double& b, std::size_t /*length*/) {
    ktler("", i, a, b);
}
}
