// Time of the finders of any two quantities, by finder and kind of state.
#include "support/pairs.hpp"
#include "timing.hpp"

#include <array>
#include <string>

namespace {

using namespace ktl_bench;

struct Values {
    double p, t, v, h, s, u, x = 0.0;
};

Values with_energy(double p, double t, double v, double h, double s) { return {p, t, v, h, s, h - 100.0 * p * v}; }
Values water_at(double p, double t) { return with_energy(p, t, ktl_c1(p, t), ktl_d1(p, t), ktl_e1(p, t)); }
Values steam_at(double p, double t) { return with_energy(p, t, ktl_c2(p, t), ktl_d2(p, t), ktl_e2(p, t)); }
Values near_critical_at(double v, double t) { return with_energy(ktl_a3(v, t), t, v, ktl_d3(v, t), ktl_e3(v, t)); }
Values wet_at(double x, double t) {
    const double p = ktl_pt(t);
    const Values a = water_at(p, t);
    const Values b = steam_at(p, t);
    Values mixed = with_energy(p, t, a.v + x * (b.v - a.v), a.h + x * (b.h - a.h), a.s + x * (b.s - a.s));
    mixed.x = x;
    return mixed;
}

/// A finder with a search of its own, and its two values.
struct Finder : ktl::test::PairRow {
    double Values::*first;
    double Values::*second;
};
constexpr std::array<Finder, ktl::pair_count> finders{{
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) {ktl::test::row_of(ktl::Pair::pair), &Values::a, &Values::b},
#include <ktl/pairs.def>
}};

/// Registers one finder over states whose values make(first, t) gives.
template <class Make>
void add(const Finder& finder, const char* kind, States pairs, Make make) {
    for (auto& s : pairs) {
        const Values values = make(s.first, s.second);
        s = {values.*finder.first, values.*finder.second};
    }
    const std::string name = std::string("state by ") + finder.finder + ", " + kind;
    benchmark::RegisterBenchmark(name.c_str(),
                                 [pairs, call = finder.find](benchmark::State& bench) { find(bench, pairs, call); });
}

[[maybe_unused]] const bool registered = [] {
    const States wet = states([](auto uniform) { return State{uniform(0.1, 0.9), uniform(1.0, 349.0)}; });
    for (const Finder& finder : finders) {
        if (finder.given_steps()) continue;
        add(finder, "two phases", wet, wet_at);
        if (finder.b == ktl::Property::x) continue;
        add(finder, "water", liquid, water_at);
        add(finder, "steam", steam, steam_at);
        add(finder, "near-critical", near_critical, near_critical_at);
    }
    return true;
}();

} // namespace
