// Which named routines raise INVALID, DIVBYZERO or OVERFLOW for states of the range: a program that traps these would end.
#include "support/pairs.hpp"
#include "support/random.hpp"

#include <algorithm>
#include <cfenv>
#include <cmath>
#include <cstdio>

namespace {

using namespace ktl;

int silent(int /*unit*/, const char* /*text*/, std::size_t /*length*/) { return 1; }

State draw(test::Random& random) {
    switch (random.below(3)) {
    case 0: return state(Pair::tx, random.between(0.01, 374.15), random.between(0.0, 1.0));
    case 1: return state(Pair::pt, random.between(160.0, 1000.0), random.between(350.0, 600.0));
    default: return state(Pair::pt, random.logarithmic(0.006112444, 1000.0), random.between(0.01, 800.0));
    }
}

/// Counts the flags of call(a, b) over states of which values(state, a, b) takes two values, and how many of the calls that
/// raise one return a finite number all the same.
template <class Values, class Call>
void count(const char* name, int states, Values values, Call call) {
    test::Random random(9);
    int invalid = 0, by_zero = 0, overflow = 0, finite = 0;
    for (int n = 0; n < states;) {
        double a = NAN, b = NAN;
        if (!values(draw(random), a, b)) continue;
        ++n;
        std::feclearexcept(FE_ALL_EXCEPT);
        const bool good = call(a, b);
        const int raised = std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW);
        invalid += (raised & FE_INVALID) != 0 ? 1 : 0;
        by_zero += (raised & FE_DIVBYZERO) != 0 ? 1 : 0;
        overflow += (raised & FE_OVERFLOW) != 0 ? 1 : 0;
        finite += raised != 0 && good ? 1 : 0;
    }
    std::printf("| `%s` | %d | %d | %d | %d | %d |\n", name, states, invalid, by_zero, overflow, finite);
}

void count_equation(const char* name, ktl_property f, int sub_region) {
    count(
        name, 20000,
        [=](const State& s, double& a, double& b) {
            const int region = static_cast<int>(s.region());
            if (!s || s.two_phase() || (sub_region != 0 && std::min(region, 3) != sub_region)) return false;
            a = sub_region == 3 || sub_region == 0 ? s.v() : s.p();
            b = s.t();
            return true;
        },
        [=](double a, double b) { return std::isfinite(f(a, b)); });
}

void count_line(const char* name, double (*f)(const double&), Property given) {
    count(
        name, 20000,
        [=](const State& s, double& a, double&) {
            a = s.get(given);
            return s.two_phase();
        },
        [=](double a, double) { return std::isfinite(f(a)); });
}

} // namespace

int main() {
    ktl_set_line_writer(silent);
    std::puts("| routine | states | invalid | by zero | overflow | finite all the same |\n| --- | --- | --- | --- | "
              "--- | --- |");
    for (const test::PairRow& pair : test::pairs)
        count(
            pair.finder, pair.given_steps() ? 200000 : 50000,
            [&](const State& s, double& a, double& b) {
                a = s.get(pair.a);
                b = s.get(pair.b);
                return !std::isnan(a) && !std::isnan(b);
            },
            [&](double a, double b) {
                return pair.find(a, b, 1.0e-8) != KTL_NO_STATE && std::isfinite(a) && std::isfinite(b);
            });
#define KTL_COUNT(name, sub_region) count_equation(#name, name, sub_region)
    KTL_COUNT(ktl_c1, 1), KTL_COUNT(ktl_d1, 1), KTL_COUNT(ktl_e1, 1), KTL_COUNT(ktl_f1, 1), KTL_COUNT(ktl_h1, 1);
    KTL_COUNT(ktl_c2, 2), KTL_COUNT(ktl_d2, 2), KTL_COUNT(ktl_e2, 2), KTL_COUNT(ktl_f2, 2), KTL_COUNT(ktl_h2, 2);
    KTL_COUNT(ktl_a3, 3), KTL_COUNT(ktl_d3, 3), KTL_COUNT(ktl_e3, 3), KTL_COUNT(ktl_f3, 3), KTL_COUNT(ktl_h3, 3);
    KTL_COUNT(ktl_ci, 0), KTL_COUNT(ktl_cj, 0);
    count_line("ktl_pt", ktl_pt, Property::t);
    count_line("psl1", psl1, Property::t);
    count_line("ktl_it", ktl_it, Property::p);
    count_line("ktl_tp", ktl_tp, Property::p);
}
