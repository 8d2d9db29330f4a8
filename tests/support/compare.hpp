// Two comparers for reference values. What fails prints routine, quantity and state, wanted, got, relative error.
#pragma once

#include <cmath>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace ktl::test {

/// Names the value under test: the routine, and the quantity or state.
template <class... Parts>
std::string named(const Parts&... parts) {
    std::ostringstream text;
    text.precision(17);
    (text << ... << parts);
    return text.str();
}

/// Equal, or both not a number.
inline bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

/// got within an absolute deviation of wanted; a not-a-number on either side fails.
inline ::testing::AssertionResult within(const std::string& what, double got, double wanted, double allowed) {
    if (std::fabs(got - wanted) <= allowed) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << named(what, ": wanted ", wanted, ", got ", got, ", relative error ",
                                                  (got - wanted) / wanted, ", allowed ", allowed);
}

/// got within a relative deviation of wanted. Where wanted passes through zero, scale is the size of the terms
/// that cancel there.
inline ::testing::AssertionResult close(const std::string& what, double got, double wanted, double relative,
                                        double scale = 0.0) {
    return within(what, got, wanted, relative * std::fmax(std::fabs(wanted), scale));
}

} // namespace ktl::test
