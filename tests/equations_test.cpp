// Every equation of the sub-regions against derivatives of its free energy, taken in long double.
#include "regions/region1.hpp"

#include "support/compare.hpp"
#include "support/free_energy.hpp"
#include "support/rounding.hpp"
#include "support/states.hpp"

#include <ktl/ktlftn.h>

namespace {

using namespace ktl;
using namespace ktl::test;

constexpr int states = 3000;
/// pvot is pvo10/tca rounded to ten digits (9e-11 of it), which stands between ds and dh/T.
constexpr double relative = 1e-9;

/// Sizes below which a property is compared absolutely: h and s pass through zero at the triple point, where terms of
/// some thousand times these sizes cancel.
constexpr double scale_h = 1.0;    // kJ/kg
constexpr double scale_s = 0.0015; // kJ/(kg K), scale_h / tca

struct Properties {
    double third, h, s, cp; // third: v of p, t, or p of v, t
};

struct Equations {
    const char* region;
    State (*draw)(Random&);
    ktl_property third, enthalpy, entropy, energy, heat_capacity;
};
constexpr Equations water{"1", random_liquid, ktl_c1, ktl_d1, ktl_e1, ktl_f1, ktl_h1};
constexpr Equations steam{"2", random_steam, ktl_c2, ktl_d2, ktl_e2, ktl_f2, ktl_h2};
constexpr Equations near_critical{"3", random_near_critical, ktl_a3, ktl_d3, ktl_e3, ktl_f3, ktl_h3};

long double theta_of(double t) { return (static_cast<long double>(t) + ktl_lc.tza) / ktl_lc.tca; }

void expect_properties(const Equations& e, const State& x, const Properties& wanted, double rounding_h,
                       double rounding_s) {
    const auto at = named("sub-region ", e.region, " at ", x.first, ", ", x.t, ": ");
    const double third = e.third(x.first, x.t);
    const double h = e.enthalpy(x.first, x.t);
    EXPECT_TRUE(close(at + "v or p", third, wanted.third, relative));
    EXPECT_TRUE(close(at + "h", h - rounding_h, wanted.h, relative, scale_h));
    EXPECT_TRUE(close(at + "s", e.entropy(x.first, x.t) - rounding_s, wanted.s, relative, scale_s));
    EXPECT_TRUE(close(at + "cp", e.heat_capacity(x.first, x.t), wanted.cp, relative));
    const bool by_volume = e.third == ktl_a3;
    const double pv = by_volume ? 100.0 * third * x.first : 100.0 * x.first * third;
    EXPECT_EQ(e.energy(x.first, x.t), h - pv) << at << "u, to the last bit";
}

/// Sub-regions 1 and 2, from a Gibbs function of theta and beta.
template <class Zeta, class Rounding>
void expect_gibbs(const Equations& e, Zeta&& zeta, Rounding&& rounding) {
    Random random(1);
    for (int i = 0; i < states; ++i) {
        const State x = e.draw(random);
        const long double theta = theta_of(x.t);
        const auto z = derivatives(zeta, theta, static_cast<long double>(x.first) / ktl_lc.pca);
        const Properties wanted{static_cast<double>(ktl_lc.vca * z.y),
                                static_cast<double>(ktl_lc.pvo10 * (z.f - theta * z.x + ktl_lc.alpha0)),
                                static_cast<double>(ktl_lc.pvot * (-z.x - ktl_lc.alpha1)),
                                static_cast<double>(-ktl_lc.pvot * theta * z.xx)};
        const auto [rounding_h, rounding_s] = rounding(x);
        expect_properties(e, x, wanted, rounding_h, rounding_s);
    }
}

TEST(Equations, SubRegions1And2) {
    expect_gibbs(
        water, [](const auto& theta, const auto& beta) { return zeta1(theta, beta); },
        [](const State& x) {
            return std::pair{0.0, liquid_entropy_rounding(x.t)};
        });
    expect_gibbs(
        steam, [](const auto& theta, const auto& beta) { return zeta2(theta, beta); },
        [](const State& x) {
            return std::pair{enthalpy_rounding(x.first, x.t), entropy_rounding(x.first, x.t)};
        });
}

/// The equations of sub-region 3 at one state, however close to the critical point or inside the two phases.
void expect_near_critical(const State& x) {
    const auto function = [](const auto& theta, const auto& chi) { return psi(theta, chi); };
    const long double theta = theta_of(x.t);
    const long double chi = static_cast<long double>(x.first) / ktl_lc.vca;
    const auto f = derivatives(function, theta, chi);
    // cp grows without bound towards the critical point, and with it every rounding of psi_chi_chi.
    if (std::fabs(f.yy) < 0.01L) return;
    const Properties wanted{static_cast<double>(-ktl_lc.pca * f.y),
                            static_cast<double>(ktl_lc.pvo10 * (f.f - theta * f.x - chi * f.y + ktl_lc.alpha0)),
                            static_cast<double>(ktl_lc.pvot * (-f.x - ktl_lc.alpha1)),
                            static_cast<double>(ktl_lc.pvot * theta * (f.xy * f.xy / f.yy - f.xx))};
    expect_properties(near_critical, x, wanted, 0.0, 0.0);
    EXPECT_EQ(cp3e(x.first, x.t), ktl_h3(x.first, x.t));
}

/// The liquid-side terms end at chi = 1 and theta = 1, both strict; at chi = 1 they would not vanish.
TEST(Equations, SubRegion3) {
    Random random(3);
    for (int i = 0; i < states; ++i) expect_near_critical(random_near_critical(random));
    for (const double t : {350.0, 352.0, 360.0, 370.0})
        for (const double v : {std::nextafter(ktl_lc.vca, 0.0), ktl_lc.vca, std::nextafter(ktl_lc.vca, 1.0)})
            expect_near_critical({v, t});
    // y is 0.01 at 373.9085 degC; below it the high powers are zero, and stay so.
    const auto before = region3::terms(0.002, 373.9);
    const auto after = region3::terms(0.002, 373.92);
    EXPECT_TRUE(close("y31", before.y31, std::pow(before.y, 31.0), 1e-14));
    EXPECT_GT(before.y30, 0.0);
    EXPECT_EQ(after.y30, 0.0);
    EXPECT_EQ(after.y31, 0.0);
}

/// psl1 against the derivative of the K-function; its divisor is 80.3334 where the slope proper has tca.
TEST(Equations, SaturationLine) {
    Random random(4);
    for (int i = 0; i < states; ++i) {
        const double t = random.between(ktl_lc.tmin, ktl_lc.tc);
        const auto log_p = saturation_log(Dual<long double>(theta_of(t), 1));
        const double p = static_cast<double>(ktl_lc.pca * std::exp(log_p.v));
        const double slope = static_cast<double>(log_p.d);
        EXPECT_TRUE(close(named("ktl_pt at ", t), ktl_pt(t), p, 1e-12));
        EXPECT_EQ(psl1(t), ktl_pt(t)) << t;
        EXPECT_TRUE(close(named("ktl_nt.dpdt at ", t), ktl_nt.dpdt, p / 80.3334 * (slope + slope_rounding(t)), 1e-12));
    }
}

/// p, h and s of sub-region 3 at vca and tc. Neighbouring sub-regions meet as closely as the formulation has it:
/// pressures within 0.065 % along 350 degC and within 0.035 % along the boundary to sub-region 2.
TEST(Equations, CriticalPointAndBoundaries) {
    EXPECT_TRUE(within("p", ktl_a3(ktl_lc.vca, ktl_lc.tc), 221.2, 1e-6));
    EXPECT_TRUE(within("h", ktl_d3(ktl_lc.vca, ktl_lc.tc), 2107.37, 0.005));
    EXPECT_TRUE(within("s", ktl_e3(ktl_lc.vca, ktl_lc.tc), 4.44286, 0.000005));
    const auto meet = [](const Equations& e, double p, double t, double relative_p, double allowed_h) {
        const double v = e.third(p, t);
        EXPECT_TRUE(close(named("p of sub-region ", e.region, " and 3 at ", t), ktl_a3(v, t), p, relative_p));
        EXPECT_TRUE(within(named("h at ", p, ", ", t), ktl_d3(v, t), e.enthalpy(p, t), allowed_h));
    };
    for (double p = 166.0; p <= 1000.0; p += 10.0) meet(water, p, 350.0, 6.5e-4, 0.2);
    for (double t = 350.0; t < 590.0; t += 5.0) meet(steam, steam_limit(t), t, 3.5e-4, 0.35);
}

/// How far rounding takes the enthalpy of water from its equation, kJ/kg, as docs/engine.md has it.
TEST(Equations, RoundingOfWater) {
    struct Row {
        double from, to, worst;
    };
    for (const auto& [from, to, worst] : {Row{0.01, 25.0, 2.1e-10}, Row{325.0, 350.0, 3.6e-9}}) {
        Random random(12);
        double found = 0.0;
        for (int i = 0; i < 50000; ++i) {
            const double t = random.between(from, to);
            const double p = random.between(saturation_pressure(t), ktl_lc.pmax);
            const long double exact =
                region1::enthalpy(region1::terms(static_cast<long double>(p), static_cast<long double>(t)));
            found = std::fmax(found, static_cast<double>(std::fabs(ktl_d1(p, t) - exact)));
        }
        EXPECT_TRUE(within(named("from ", from), found, worst, 0.2 * worst));
    }
}

} // namespace
