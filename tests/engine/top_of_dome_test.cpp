// States next to the critical point, which are found without an enclosing search if they are clear of the border of the dome.
#include "searches/top_of_dome.hpp"

#include "engine/pairs.hpp"
#include "searches/isentrope_isochore.hpp"
#include "support/pairs.hpp"
#include "support/random.hpp"

#include <gtest/gtest.h>

namespace {

using namespace ktl;
using engine::Scalar;
using test::Random;
constexpr SaturationModel outermost = SaturationModel::outermost_roots;
constexpr Pair pairs[] = {Pair::hs, Pair::us, Pair::vh, Pair::vs, Pair::vu};

/// A mixture, or a single phase at up to a fifth of the volume from it; beside the border of the dome or anywhere.
State drawn_at(double t, bool mixture, bool beside, Random& random) {
    const bool steam = random.below(2) == 0;
    const double off = beside ? random.logarithmic(1e-9, 1e-2) : random.between(0.0, 1.0);
    if (mixture) return state(Pair::tx, t, steam ? 1.0 - off : off);
    const State line = state(Pair::tx, t, 0.5);
    const double v = steam ? line.vapour().v() * (1.0 + 0.2 * off) : line.liquid().v() * (1.0 - 0.2 * off);
    return state(Pair::tv, t, v);
}

TEST(TopOfDome, HasTheStatesOfTheEnclosingSearches) {
    Random random(1967);
    int offered = 0;
    int found = 0;
    for (int n = 0; n < 2000; ++n) {
        const double t = n % 5 == 0 ? 374.15 - random.logarithmic(1e-9, 1e-3) : random.between(374.05, 374.1499);
        const bool beside = n % 3 == 0;
        const State at = drawn_at(t, n % 2 == 0, beside, random);
        ASSERT_TRUE(at);
        const Pair pair = pairs[random.below(std::size(pairs))];
        const auto [a, b] = engine::quantities(pair);
        const double a_value = at.get(test::row_of(pair).a);
        const double b_value = at.get(test::row_of(pair).b);
        const FoundState<Scalar> top = searches::at_top_of_dome({a, a_value, b, b_value, outermost});
        const bool clear = !beside && n % 5 != 0;
        offered += clear ? 1 : 0;
        if (!top.found()) continue;
        found += clear ? 1 : 0;
        const bool isentrope = pair == Pair::hs || pair == Pair::us;
        const FoundState<Scalar> searched = isentrope ? searches::on_isentrope<Scalar>(a, a_value, b_value, outermost)
                                                      : searches::on_isochore<Scalar>(b, b_value, a_value, outermost);
        SCOPED_TRACE(testing::Message() << test::row_of(pair).name << ' ' << a_value << ' ' << b_value);
        EXPECT_EQ(top.region, searched.region);
        EXPECT_NEAR(top.t, searched.t, 5e-8);
        for (const Quantity y : {Quantity::pressure, Quantity::volume, Quantity::enthalpy, Quantity::entropy}) {
            const double wanted = searched.value(y);
            EXPECT_NEAR(top.value(y), wanted, 3e-10 * wanted);
        }
    }
    EXPECT_GT(found, 0.9 * offered);
}

TEST(TopOfDome, IsLeftByOtherStates) {
    const State elsewhere[] = {state(Pair::tx, 373.9, 0.5), state(Pair::pt, 250.0, 380.0),
                               state(Pair::pt, 1.0, 20.0),  state(Pair::pt, 221.0, 374.2),
                               state(Pair::tx, 100.0, 0.3), state(Pair::pt, 900.0, 360.0)};
    for (const State& at : elsewhere) {
        for (const Pair pair : pairs) {
            const auto [a, b] = engine::quantities(pair);
            const double a_value = at.get(test::row_of(pair).a);
            EXPECT_FALSE(searches::at_top_of_dome({a, a_value, b, at.get(test::row_of(pair).b), outermost}).found())
                << test::row_of(pair).name << ' ' << at.t();
        }
    }
}

} // namespace
