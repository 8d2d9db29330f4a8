// What a finder hands back.
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

} // namespace ktl::test
