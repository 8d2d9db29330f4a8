// What a finder hands back, evaluated by the named routines of its region.
#pragma once

#include <ktl/ktlftn.h>

namespace ktl::test {

inline constexpr double eps = 1e-08;

struct Found {
    int region;
    double first, second;
};

inline Found find(ktl_finder finder, double first, double second) {
    const int region = finder(first, second, eps);
    return {region, first, second};
}

/// Every finder beside those with given steps.
struct Named {
    const char* name;
    ktl_finder find;
};
inline constexpr Named all_pairs[] = {
    {"ktlrps", ktlrps}, {"ktlrpu", ktlrpu}, {"ktlrpv", ktlrpv}, {"ktlrtv", ktlrtv}, {"ktlrth", ktlrth},
    {"ktlrts", ktlrts}, {"ktlrtu", ktlrtu}, {"ktlrsx", ktlrsx}, {"ktlrhs", ktlrhs}, {"ktlrus", ktlrus},
    {"ktlrvh", ktlrvh}, {"ktlrvs", ktlrvs}, {"ktlrvu", ktlrvu},
};

} // namespace ktl::test
