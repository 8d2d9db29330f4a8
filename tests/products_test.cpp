// Stored products against their factors, and the stored constants against each other.
#include "regions/constants.hpp"
#include "regions/region1_data.hpp"
#include "regions/region2_data.hpp"
#include "regions/region3_data.hpp"
#include "regions/saturation.hpp"

#include "support/compare.hpp"

namespace {

using namespace ktl;
using namespace ktl::test;

/// A product and what it is stored as. Most are stored with all their digits, a few (see the data files) cut off
/// or rounded; then deviation says by how much.
struct Product {
    double stored;
    double factor;
    double coefficient;
    double deviation;
};

constexpr Product of(double stored, double factor, double coefficient, double deviation = 0.0) {
    return {stored, factor, coefficient, deviation};
}

/// Two roundings of the binary product lie below the last decimal digit of any of them.
template <class... Products>
void expect_products(const Products&... products) {
    for (const Product& row : {products...}) {
        const double exact = row.factor * row.coefficient;
        EXPECT_TRUE(within("stored product", row.stored, exact, row.deviation + 4e-16 * std::fabs(exact)));
        // A stated deviation that is not there would hide a fault.
        if (row.deviation > 0.0) {
            EXPECT_GT(std::fabs(row.stored - exact), 0.2 * row.deviation) << row.stored;
        }
    }
}

TEST(Products, SubRegion1) {
    constexpr auto& c = region1::ktl_t1;
    namespace v = region1::volume_products;
    namespace h = region1::enthalpy_products;
    namespace s = region1::entropy_products;
    namespace cp = region1::heat_capacity_products;
    expect_products(
        of(v::aa18t2, 2, c.aa18), of(v::aa19t3, 3, c.aa19), of(v::aa21t3, 3, c.aa21), of(v::aa22t4, 4, c.aa22),
        of(h::aa4t2, 2, c.aa4), of(h::aa5t3, 3, c.aa5), of(h::aa6t4, 4, c.aa6), of(h::aa7t5, 5, c.aa7),
        of(h::aa8t6, 6, c.aa8), of(h::aa9t7, 7, c.aa9), of(h::aa10t8, 8, c.aa10), of(h::a3m1, 1, c.a3 - 1.0),
        of(h::a9t17, 17, c.a9), of(h::aa2221, 21, c.aa22, 1e-22), of(s::aa3t2, 2, c.aa3), of(s::aa4t3, 3, c.aa4),
        of(s::aa5t4, 4, c.aa5), of(s::aa6t5, 5, c.aa6), of(s::aa7t6, 6, c.aa7), of(s::aa8t7, 7, c.aa8),
        of(s::aa9t8, 8, c.aa9), of(s::aa10t9, 9, c.aa10, 2e-7), of(s::aa14t2, 2, c.aa14), of(s::aa1510, 10, c.aa15),
        of(s::aa1619, 19, c.aa16), of(s::aa2220, 20, c.aa22), of(s::a3m1, 1, c.a3 - 1.0), of(s::a9t18, 18, c.a9),
        of(cp::a1t2, 2, c.a1), of(cp::a2t6, 6, c.a2), of(cp::a2t42, 42, c.a2), of(cp::a4t2, 2, c.a4),
        of(cp::a5t2, 2, c.a5), of(cp::aa3t2, 2, c.aa3), of(cp::aa4t6, 6, c.aa4), of(cp::aa5t12, 12, c.aa5),
        of(cp::aa6t20, 20, c.aa6), of(cp::aa7t30, 30, c.aa7), of(cp::aa8t42, 42, c.aa8), of(cp::aa9t56, 56, c.aa9),
        of(cp::aa1072, 72, c.aa10), of(cp::a9t306, 306, c.a9));
}

TEST(Products, SubRegion2) {
    // The multiples of b00 in the enthalpy are rounded as multiples of 0.76333..., not of the ten digits of b00.
    constexpr auto& c = region2::ktl_t2;
    namespace h = region2::enthalpy_products;
    namespace s = region2::entropy_products;
    expect_products(of(region2::ktl_cl.al2t2, 2, region2::ktl_cl.al2), of(h::bb04t2, 2, c.bb04),
                    of(h::bb05t3, 3, c.bb05), of(h::b00t2, 2, c.b00, 5e-10), of(h::b00t3, 3, c.b00, 5e-10),
                    of(h::b00t4, 4, c.b00, 5e-10), of(h::b00t5, 5, c.b00, 1e-9), of(h::b00t6, 6, c.b00, 5e-10),
                    of(s::bb03t2, 2, c.bb03), of(s::bb04t3, 3, c.bb04), of(s::bb05t4, 4, c.bb05),
                    of(s::bb1113, 13, c.bb11), of(s::bb12t3, 3, c.bb12), of(s::bb2118, 18, c.bb21, 5e-11),
                    of(s::bb22t2, 2, c.bb22), of(s::bb3118, 18, c.bb31), of(s::bb3210, 10, c.bb32),
                    of(s::bb4125, 25, c.bb41, 6e-10), of(s::bb4214, 14, c.bb42, 1e-10), of(s::bb5132, 32, c.bb51, 1e-9),
                    of(s::bb5228, 28, c.bb52, 5e-10), of(s::bb5324, 24, c.bb53), of(s::b00t2, 2, c.b00),
                    of(s::b00t3, 3, c.b00), of(s::b00t4, 4, c.b00), of(s::b00t5, 5, c.b00), of(s::b00t6, 6, c.b00));
}

TEST(Products, SubRegion3) {
    using namespace region3;
    constexpr auto& c = ktl_t3;
    expect_products(
        of(c03t2, 2, c.c03), of(c04t3, 3, c.c04), of(c05t4, 4, c.c05), of(c06t5, 5, c.c06), of(c07t6, 6, c.c07),
        of(c08t7, 7, c.c08), of(c09t8, 8, c.c09), of(c010t9, 9, c.c010), of(c01110, 10, c.c011), of(c13t2, 2, c.c13),
        of(c14t3, 3, c.c14), of(c15t4, 4, c.c15), of(c16t5, 5, c.c16), of(c23t2, 2, c.c23), of(c24t3, 3, c.c24),
        of(c25t4, 4, c.c25), of(c26t5, 5, c.c26), of(c27t6, 6, c.c27), of(c33t2, 2, c.c33), of(c34t3, 3, c.c34),
        of(c35t4, 4, c.c35), of(c36t5, 5, c.c36), of(c37t6, 6, c.c37), of(c38t7, 7, c.c38), of(c39t8, 8, c.c39),
        of(c41t5, 5, c.c41), of(d32t2, 2, c.d32), of(d33t3, 3, c.d33), of(d34t4, 4, c.d34), of(d42t2, 2, c.d42),
        of(d43t3, 3, c.d43), of(d44t4, 4, c.d44), of(d52t2, 2, c.d52));
}

TEST(Products, SaturationLine) {
    using namespace saturation;
    expect_products(of(ak2t2, 2, ak[1], 2e-8), of(ak3t3, 3, ak[2], 2e-7), of(ak4t4, 4, ak[3], 2e-7),
                    of(ak5t5, 5, ak[4], 5e-7), of(ak7t2, 2, ak[6]), of(ak8t2, 2, ak[7]));
}

TEST(Products, Constants) {
    EXPECT_EQ(ktl_lc.pvo10, 70.1204);
    EXPECT_TRUE(within("pvo10", ktl_lc.pvo10, ktl_lc.pca * ktl_lc.vca * 100.0, 1e-13));
    EXPECT_TRUE(within("pvot", ktl_lc.pvot, ktl_lc.pvo10 / ktl_lc.tca, 5e-11));
    EXPECT_EQ(saturation::terms(ktl_lc.tc).p, ktl_lc.pca);
    EXPECT_TRUE(within("p1", ktl_lc.p1, saturation::terms(ktl_lc.t1).p, 5e-8));
    EXPECT_TRUE(within("pmin", ktl_lc.pmin, saturation::terms(ktl_lc.tmin).p, 5e-10));
}

} // namespace
