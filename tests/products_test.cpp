// Stored products against their factors, and the stored constants against each other.
#include "front/constants.hpp"
#include "regions/region1_data.hpp"
#include "regions/region2_data.hpp"
#include "regions/region3_data.hpp"
#include "regions/saturation.hpp"

#include "support/compare.hpp"

#include <array>
#include <span>

namespace {

using namespace ktl;
using namespace ktl::test;

/// A product and what it is stored as. Most are stored with all their digits, a few (see the data files) cut off
/// or rounded; then deviation says by how much.
struct Product {
    double stored;
    double factor;
    double coefficient;
    double deviation = 0.0;
};

/// Two roundings of the binary product lie below the last decimal digit of any of them.
void expect_products(std::span<const Product> products) {
    for (const auto& row : products) {
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
    const std::array rows{Product{v::aa18t2, 2, c.aa18},   Product{v::aa19t3, 3, c.aa19},
                          Product{v::aa21t3, 3, c.aa21},   Product{v::aa22t4, 4, c.aa22},
                          Product{h::aa4t2, 2, c.aa4},     Product{h::aa5t3, 3, c.aa5},
                          Product{h::aa6t4, 4, c.aa6},     Product{h::aa7t5, 5, c.aa7},
                          Product{h::aa8t6, 6, c.aa8},     Product{h::aa9t7, 7, c.aa9},
                          Product{h::aa10t8, 8, c.aa10},   Product{h::a3m1, 1, c.a3 - 1.0},
                          Product{h::a9t17, 17, c.a9},     Product{h::aa2221, 21, c.aa22, 1e-22},
                          Product{s::aa3t2, 2, c.aa3},     Product{s::aa4t3, 3, c.aa4},
                          Product{s::aa5t4, 4, c.aa5},     Product{s::aa6t5, 5, c.aa6},
                          Product{s::aa7t6, 6, c.aa7},     Product{s::aa8t7, 7, c.aa8},
                          Product{s::aa9t8, 8, c.aa9},     Product{s::aa10t9, 9, c.aa10, 2e-7},
                          Product{s::aa14t2, 2, c.aa14},   Product{s::aa1510, 10, c.aa15},
                          Product{s::aa1619, 19, c.aa16},  Product{s::aa2220, 20, c.aa22},
                          Product{s::a3m1, 1, c.a3 - 1.0}, Product{s::a9t18, 18, c.a9},
                          Product{cp::a1t2, 2, c.a1},      Product{cp::a2t6, 6, c.a2},
                          Product{cp::a2t42, 42, c.a2},    Product{cp::a4t2, 2, c.a4},
                          Product{cp::a5t2, 2, c.a5},      Product{cp::aa3t2, 2, c.aa3},
                          Product{cp::aa4t6, 6, c.aa4},    Product{cp::aa5t12, 12, c.aa5},
                          Product{cp::aa6t20, 20, c.aa6},  Product{cp::aa7t30, 30, c.aa7},
                          Product{cp::aa8t42, 42, c.aa8},  Product{cp::aa9t56, 56, c.aa9},
                          Product{cp::aa1072, 72, c.aa10}, Product{cp::a9t306, 306, c.a9}};
    expect_products(rows);
}

TEST(Products, SubRegion2) {
    constexpr auto& c = region2::ktl_t2;
    namespace h = region2::enthalpy_products;
    namespace s = region2::entropy_products;
    const std::array rows{Product{region2::ktl_cl.al2t2, 2, region2::ktl_cl.al2}, Product{h::bb04t2, 2, c.bb04},
                          Product{h::bb05t3, 3, c.bb05},
                          // Rounded as multiples of 0.76333..., not of the ten digits of b00.
                          Product{h::b00t2, 2, c.b00, 5e-10}, Product{h::b00t3, 3, c.b00, 5e-10},
                          Product{h::b00t4, 4, c.b00, 5e-10}, Product{h::b00t5, 5, c.b00, 1e-9},
                          Product{h::b00t6, 6, c.b00, 5e-10}, Product{s::bb03t2, 2, c.bb03},
                          Product{s::bb04t3, 3, c.bb04}, Product{s::bb05t4, 4, c.bb05}, Product{s::bb1113, 13, c.bb11},
                          Product{s::bb12t3, 3, c.bb12}, Product{s::bb2118, 18, c.bb21, 5e-11},
                          Product{s::bb22t2, 2, c.bb22}, Product{s::bb3118, 18, c.bb31}, Product{s::bb3210, 10, c.bb32},
                          Product{s::bb4125, 25, c.bb41, 6e-10}, Product{s::bb4214, 14, c.bb42, 1e-10},
                          Product{s::bb5132, 32, c.bb51, 1e-9}, Product{s::bb5228, 28, c.bb52, 5e-10},
                          Product{s::bb5324, 24, c.bb53}, Product{s::b00t2, 2, c.b00}, Product{s::b00t3, 3, c.b00},
                          Product{s::b00t4, 4, c.b00}, Product{s::b00t5, 5, c.b00}, Product{s::b00t6, 6, c.b00}};
    expect_products(rows);
}

TEST(Products, SubRegion3) {
    using namespace region3;
    constexpr auto& c = ktl_t3;
    const std::array rows{
        Product{c03t2, 2, c.c03},    Product{c04t3, 3, c.c04}, Product{c05t4, 4, c.c05}, Product{c06t5, 5, c.c06},
        Product{c07t6, 6, c.c07},    Product{c08t7, 7, c.c08}, Product{c09t8, 8, c.c09}, Product{c010t9, 9, c.c010},
        Product{c01110, 10, c.c011}, Product{c13t2, 2, c.c13}, Product{c14t3, 3, c.c14}, Product{c15t4, 4, c.c15},
        Product{c16t5, 5, c.c16},    Product{c23t2, 2, c.c23}, Product{c24t3, 3, c.c24}, Product{c25t4, 4, c.c25},
        Product{c26t5, 5, c.c26},    Product{c27t6, 6, c.c27}, Product{c33t2, 2, c.c33}, Product{c34t3, 3, c.c34},
        Product{c35t4, 4, c.c35},    Product{c36t5, 5, c.c36}, Product{c37t6, 6, c.c37}, Product{c38t7, 7, c.c38},
        Product{c39t8, 8, c.c39},    Product{c41t5, 5, c.c41}, Product{d32t2, 2, c.d32}, Product{d33t3, 3, c.d33},
        Product{d34t4, 4, c.d34},    Product{d42t2, 2, c.d42}, Product{d43t3, 3, c.d43}, Product{d44t4, 4, c.d44},
        Product{d52t2, 2, c.d52}};
    expect_products(rows);
}

TEST(Products, SaturationLine) {
    using namespace saturation;
    const std::array rows{Product{ak2t2, 2, ak[1], 2e-8}, Product{ak3t3, 3, ak[2], 2e-7},
                          Product{ak4t4, 4, ak[3], 2e-7}, Product{ak5t5, 5, ak[4], 5e-7},
                          Product{ak7t2, 2, ak[6]},       Product{ak8t2, 2, ak[7]}};
    expect_products(rows);
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
