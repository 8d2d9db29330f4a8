// A fixed set of 10,000 calls over all regions: named routines, finders and ktl:: calls of both formulations, some of them with invalid
// input. Prints the bits of every result and what the call left in the records, one call to a line; builds by different
// compilers must print the same.
#include "support/pairs.hpp"
#include "support/random.hpp"

#include <array>
#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <ktl/derivative.hpp>
#include <ktl/if97.hpp>
#include <ktl/ktlftn.h>
#include <ktl/process.hpp>
#include <ktl/steam.hpp>

namespace {

using ktl::test::Random;

/// Sign and payload of a not-a-number are the compiler's choice, all other bits are not.
void print(double value) {
    if (std::isnan(value))
        std::printf(" nan");
    else
        std::printf(" %016" PRIx64, std::bit_cast<std::uint64_t>(value));
}

/// What a call leaves: the state last prepared, the slope of psl1, the count of errors.
void print_records() {
    for (const double value : {ktl_cu.p, ktl_cu.t, ktl_cu.v, ktl_nt.dpdt}) print(value);
    std::printf(" %d", ktlerr.ientry);
}

constexpr std::array properties{ktl_c1, ktl_d1, ktl_e1, ktl_f1, ktl_h1, ktl_c2, ktl_d2, ktl_e2, ktl_f2,
                                ktl_h2, ktl_a3, ktl_d3, ktl_e3, ktl_f3, ktl_h3, cp3e,   ktl_ci, ktl_cj};
constexpr std::array finders{ktlrpt, ktlrph, ktlrpx, ktlrtx};
constexpr std::array<double, 9> invalid{0.0, -0.0, -1.0, 1e300, -1e300, 5e-324, HUGE_VAL, -HUGE_VAL, NAN};

double cubic(const double& z, const double& w) { return z * z * z - 3.0 * z + w; }
double cubic_eps(const double& z, const double& w, const double& /*eps*/) { return cubic(z, w); }

/// Pressures spread over the logarithm, by products alone: the C library's functions are not under test here.
double pressure(Random& random) {
    double p = random.between(0.0061, 0.0122);
    for (unsigned doublings = random.below(17); doublings > 0; --doublings) p *= 2.0;
    return p;
}

double sometimes_invalid(Random& random, double value) {
    return random.below(50) == 0 ? invalid[random.below(invalid.size())] : value;
}

/// Every random number in a statement of its own: the order of arguments is the compiler's choice.
void call_property(Random& random, std::size_t n) {
    const bool by_volume = n >= 10;
    double first = by_volume ? random.between(0.00131, 0.0088) : pressure(random);
    double t = by_volume ? random.between(350.0, 590.0) : random.between(0.01, n < 5 ? 350.0 : 800.0);
    first = sometimes_invalid(random, first);
    t = sometimes_invalid(random, t);
    print(properties[n](first, t));
}

void call_entry(Random& random, std::size_t n) {
    const double second[] = {random.between(0.01, 800.0), random.between(0.0, 4200.0), random.between(-0.1, 1.1),
                             random.between(-0.1, 1.1)};
    double first = finders[n] == ktlrtx ? random.between(0.01, 375.0) : pressure(random);
    double last = sometimes_invalid(random, second[n]);
    first = sometimes_invalid(random, first);
    std::array<double, 9> out{};
    ktlftn(finders[n], first, last, "P,T,V,H,S,X,CP,DV,TC.", out.data());
    print_records();
    const int region = finders[n](first, last, 1e-8);
    std::printf(" %d", region);
    print(first);
    print(last);
    for (const double value : out) print(value);
}

void call_saturation(Random& random) {
    const double t = sometimes_invalid(random, random.between(0.0, 375.0));
    const double p = sometimes_invalid(random, pressure(random));
    print(ktl_pt(t));
    print(psl1(t));
    print(ktl_nt.dpdt);
    print(ktl_it(p));
    print(ktl_tp(p));
}

void call_solvers(Random& random) {
    const double y = random.between(-4.0, 4.0);
    const double ends[] = {random.between(-3.0, 0.0), random.between(0.0, 3.0)};
    for (int solver = 1; solver <= 4; ++solver) {
        double a = sometimes_invalid(random, ends[0]);
        double b = sometimes_invalid(random, ends[1]);
        double a2 = -5.0;
        double b2 = 5.0;
        if (solver == 1)
            print(ktl_i1([](const double& w, const double& z) { return cubic(z, w); }, y, 1.0, a, b, 1e-8));
        if (solver == 2) print(ktl_i2(cubic, y, 1.0, a, b, 1e-8));
        if (solver == 3) print(ktl_i3(cubic_eps, y, 1.0, a, b, 1e-8));
        if (solver == 4)
            ktl_id([](const double& z, const double& w) { return z + w; }, y, cubic, 1.0, a, b, a2, b2, 1e-8);
        for (const double end : {a, b, a2, b2}) print(end);
    }
}

/// A state of any pair, by the properties of one drawn by pressure and temperature or quality.
void call_state(Random& random) {
    const double p = pressure(random);
    const double t = random.between(0.01, 800.0);
    const double x = random.between(0.0, 1.0);
    const bool wet = random.below(3) == 0;
    const ktl::State drawn = wet ? ktl::state(ktl::Pair::px, p, x) : ktl::state(ktl::Pair::pt, p, t);
    const unsigned pair = random.below(ktl::pair_count);
    const double a = sometimes_invalid(random, drawn.get(ktl::test::pairs[pair].a));
    const double b = sometimes_invalid(random, drawn.get(ktl::test::pairs[pair].b));
    for (const auto state :
         {static_cast<ktl::State (*)(ktl::Pair, double, double) noexcept>(ktl::state), ktl::if97::state}) {
        const ktl::State found = state(static_cast<ktl::Pair>(pair), a, b);
        std::printf(" %d", static_cast<int>(found.status()));
        for (unsigned k = 0; k < ktl::property_count; ++k) print(found.get(static_cast<ktl::Property>(k)));
    }
    print(ktl::surface_tension(t));
}

/// Every step from a state, its derivatives, and the temperatures of its enthalpy on the saturation line.
void call_steps(Random& random) {
    const double p = pressure(random);
    const double t = random.between(0.01, 800.0);
    const ktl::State from = ktl::state(ktl::Pair::pt, p, t);
    const double ratio = random.between(0.1, 3.0);
    const double efficiency = sometimes_invalid(random, random.between(0.3, 1.0));
    const std::array<double, ktl::process_count> to{p * ratio, p * ratio, p * ratio, p * ratio,
                                                    p * ratio, 400.0,     2500.0,    0.5};
    for (std::size_t k = 0; k < ktl::process_count; ++k) {
        const ktl::Step y = ktl::step(static_cast<ktl::Process>(k), from, to[k], efficiency, {0.8, 20.0});
        std::printf(" %d", static_cast<int>(y.status));
        for (const double value : {y.work, y.heat, y.entropy_generated, y.lost_work, y.end.t()}) print(value);
    }
    for (const double value : {ktl::exergy(from).flow, ktl::superheat(from), ktl::latent_heat(from)}) print(value);
    print(ktl::derivative(from, ktl::Property::h, ktl::Property::p, ktl::Property::s));
    for (const auto by : {ktl::Property::p, ktl::Property::t})
        print(ktl::volume_second_derivative(from, by, ktl::Property::t));
    for (const double at : ktl::saturation_by(ktl::SaturatedPhase::vapour, ktl::Property::h, from.h()).t) print(at);
}

} // namespace

int main() {
    FILE* nowhere = std::fopen("/dev/null", "w");
    for (const int unit : {6, 13}) ktl_connect_unit(unit, nowhere);
    Random random(1967);
    constexpr unsigned kinds = properties.size() + finders.size() + 4;
    for (int call = 0; call < 10000; ++call) {
        const unsigned kind = random.below(kinds);
        std::printf("%d %u", call, kind);
        if (kind < properties.size())
            call_property(random, kind);
        else if (kind < properties.size() + finders.size())
            call_entry(random, kind - properties.size());
        else if (kind == kinds - 4)
            call_steps(random);
        else if (kind == kinds - 3)
            call_saturation(random);
        else if (kind == kinds - 2)
            call_state(random);
        else
            call_solvers(random);
        print_records();
        std::printf("\n");
    }
    for (const int unit : {6, 13}) ktl_connect_unit(unit, nullptr);
    std::fclose(nowhere);
}
