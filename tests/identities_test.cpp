// Thermodynamic identities between the equations as shipped, differentiated by dual numbers.
#include "regions/region1.hpp"
#include "regions/region2.hpp"
#include "regions/region3.hpp"

#include "support/compare.hpp"
#include "support/rounding.hpp"
#include "support/states.hpp"

#include <ktl/ktlftn.h>

namespace {

using namespace ktl;
using namespace ktl::test;
using D = Dual<double>;

constexpr int states = 2000;
/// pvot is pvo10/tca rounded to ten digits (9e-11 of it), which stands between ds and dh/T.
constexpr double relative = 1e-9;

/// Properties along one variable, with what rounded stored products add taken off.
struct Along {
    D v, h, s;
};

/// Along p: dh = T ds + v dp. Along t: dh = cp dt, T ds = cp dt. 1 bar m3 is 100 kJ.
void expect_gibbs_identities(const std::string& at, double t, const Along& p, const Along& along_t, double cp) {
    const double kelvin = t + ktl_lc.tza;
    EXPECT_TRUE(close(at + "dh/dp - T ds/dp", p.h.d - kelvin * p.s.d, 100.0 * p.v.v, relative));
    EXPECT_TRUE(close(at + "dh/dt", along_t.h.d, cp, relative));
    EXPECT_TRUE(close(at + "T ds/dt", kelvin * along_t.s.d, cp, relative));
    EXPECT_TRUE(close(at + "dv/dt", 100.0 * along_t.v.d, -p.s.d, relative, 1e-6)) << "dv/dt = -ds/dp";
}

Along liquid_along(const D& p, const D& t) {
    const auto s = region1::terms(p, t);
    return {region1::volume(s), region1::enthalpy(s), region1::entropy(s) - liquid_entropy_rounding(t)};
}
Along steam_along(const D& p, const D& t) {
    const auto s = region2::terms(p, t);
    return {region2::volume(s), region2::enthalpy(s) - enthalpy_rounding(p, t),
            region2::entropy(s) - entropy_rounding(p, t)};
}

TEST(Identities, SubRegion1) {
    Random random(11);
    for (int i = 0; i < states; ++i) {
        const auto [p, t] = random_liquid(random);
        expect_gibbs_identities(named("sub-region 1 at ", p, ", ", t, ": "), t, liquid_along(D(p, 1.0), D(t)),
                                liquid_along(D(p), D(t, 1.0)), ktl_h1(p, t));
    }
}

TEST(Identities, SubRegion2) {
    Random random(12);
    for (int i = 0; i < states; ++i) {
        const auto [p, t] = random_steam(random);
        expect_gibbs_identities(named("sub-region 2 at ", p, ", ", t, ": "), t, steam_along(D(p, 1.0), D(t)),
                                steam_along(D(p), D(t, 1.0)), ktl_h2(p, t));
    }
}

/// dh = T ds + v dp along v and along t; cp = dh/dt - dh/dv (dp/dt)/(dp/dv).
TEST(Identities, SubRegion3) {
    Random random(13);
    for (int i = 0; i < states; ++i) {
        const auto [v, t] = random_near_critical(random);
        const auto along = [](const D& volume, const D& temperature) {
            const auto s = region3::terms(volume, temperature);
            return std::array<D, 3>{region3::pressure(s), region3::enthalpy(s), region3::entropy(s)};
        };
        const auto [p_v, h_v, s_v] = along(D(v, 1.0), D(t));
        const auto [p_t, h_t, s_t] = along(D(v), D(t, 1.0));
        const double kelvin = t + ktl_lc.tza;
        const auto at = named("sub-region 3 at ", v, ", ", t, ": ");
        EXPECT_TRUE(close(at + "dh/dv", h_v.d, kelvin * s_v.d + 100.0 * v * p_v.d, relative));
        EXPECT_TRUE(close(at + "dh/dt", h_t.d, kelvin * s_t.d + 100.0 * v * p_t.d, relative));
        // Where dp/dv is almost zero, cp follows its rounding.
        if (-p_v.d * v < 0.05 * p_v.v) continue;
        EXPECT_TRUE(close(at + "cp", ktl_h3(v, t), h_t.d - h_v.d * p_t.d / p_v.d, relative));
    }
}

/// u = h - 100 p v, to the last bit.
TEST(Identities, InternalEnergy) {
    Random random(14);
    for (int i = 0; i < states; ++i) {
        const auto [p1, t1] = random_liquid(random);
        EXPECT_EQ(ktl_f1(p1, t1), ktl_d1(p1, t1) - 100.0 * p1 * ktl_c1(p1, t1));
        const auto [p2, t2] = random_steam(random);
        EXPECT_EQ(ktl_f2(p2, t2), ktl_d2(p2, t2) - 100.0 * p2 * ktl_c2(p2, t2));
        const auto [v3, t3] = random_near_critical(random);
        EXPECT_EQ(ktl_f3(v3, t3), ktl_d3(v3, t3) - 100.0 * ktl_a3(v3, t3) * v3);
    }
}

} // namespace
