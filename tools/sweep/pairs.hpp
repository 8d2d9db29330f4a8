// The pairs of properties that states are found by, and how well they are found.
#pragma once

#include "draw.hpp"
#include "support/pairs.hpp"

#include <array>
#include <cmath>

namespace sweep {

using Member = double Values::*;

/// A pair, its two properties as drawn and as found, and the states that it is for.
struct Row : ktl::test::PairRow {
    Member first, second;

    enum Scope { any, single_phase, mixture };
    [[nodiscard]] constexpr Scope scope() const {
        if (b == ktl::Property::x) return mixture;
        return a == ktl::Property::p && b == ktl::Property::t ? single_phase : any;
    }
    /// True if the pair is for states with that quality, -1 for a single phase.
    [[nodiscard]] constexpr bool suits_quality(double x) const {
        return scope() == any || (scope() == mixture) == (x >= 0.0);
    }
};
inline constexpr std::array<Row, ktl::pair_count> rows{{
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) {ktl::test::row_of(ktl::Pair::pair), &Values::a, &Values::b},
#include <ktl/pairs.def>
}};

/// How well given values are reproduced: relative, and near zero against so many kJ/kg of h and u, kJ/(kg K) of s.
struct Accuracy {
    double relative, least_energy, least_entropy;

    /// What deviations of a value are measured against.
    [[nodiscard]] double size_of(double value, Member member) const {
        if (member == &Values::x) return 1.0;
        const bool energy = member == &Values::h || member == &Values::u;
        return std::fmax(std::fabs(value), energy ? least_energy : member == &Values::s ? least_entropy : 0.0);
    }
    /// How far a value is from the wanted one, relative.
    [[nodiscard]] double deviation(double wanted, double got, Member member) const {
        const double difference = std::fabs(got - wanted) / size_of(wanted, member);
        return std::isnan(difference) ? INFINITY : difference;
    }
    /// The greater deviation of the row's two values.
    [[nodiscard]] double deviation(const Row& row, const Values& wanted, const Values& got) const {
        return std::fmax(deviation(wanted.*row.first, got.*row.first, row.first),
                         deviation(wanted.*row.second, got.*row.second, row.second));
    }
};
/// What ktl::state() promises, and what the finders do.
inline constexpr Accuracy of_calls{1.0e-10, 10.0, 1.0};
inline constexpr Accuracy of_finders{1.0e-7, 1.0, 1.0};

} // namespace sweep
