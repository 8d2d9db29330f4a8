// How often ktl::state evaluates the equations of a sub-region for one state, by pair. Compiled with the library's sources and
// KTL_COUNT_EVALUATIONS.
#include "regions/number.hpp"
#include "support/pairs.hpp"
#include "support/random.hpp"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

using namespace ktl;

/// A state of any kind, many of them cold, near-critical or mixtures.
State draw(test::Random& random) {
    const double p = random.logarithmic(0.0062, 999.0);
    const double t = random.between(0.01, random.below(4) == 0 ? 12.0 : 800.0);
    const double near_critical = random.between(345.0, 378.0);
    switch (random.below(4)) {
    case 0: return state(Pair::px, p, random.between(0.0, 1.0));
    case 1: return state(Pair::tx, near_critical, random.between(0.0, 1.0));
    case 2: return state(Pair::pt, random.between(160.0, 300.0), near_critical);
    default: return state(Pair::pt, p, t);
    }
}

} // namespace

int main() {
    test::Random random(12);
    std::puts("| pair | median | 99.9 % | most | most without a state |\n| --- | --- | --- | --- | --- |");
    for (const test::PairRow& pair : test::pairs) {
        std::vector<long> solved;
        long without = 0;
        for (int i = 0; i < 40000; ++i) {
            const State drawn = draw(random);
            const double a = drawn.get(pair.a);
            const double b = drawn.get(pair.b) * (random.below(8) == 0 ? random.between(0.9, 1.1) : 1.0);
            evaluations = 0;
            if (state(static_cast<Pair>(&pair - test::pairs.data()), a, b))
                solved.push_back(evaluations);
            else
                without = std::max(without, evaluations);
        }
        std::sort(solved.begin(), solved.end());
        std::printf("| `%s` | %ld | %ld | %ld | %ld |\n", pair.name, solved[solved.size() / 2],
                    solved[solved.size() * 999 / 1000], solved.back(), without);
    }
}
