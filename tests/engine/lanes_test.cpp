// The engine's equations: elementary functions, and the same bits from every set of kernels.
#include "engine/lanes/scalar.hpp"
#include "engine/rows/block.hpp"
#include "regions/quantity.hpp"
#include "rows.hpp"

#include <gtest/gtest.h>

namespace {

using namespace ktl;
using namespace ktl::engine;
using ktl::test::Random;

/// Largest error of f in units of the last place of the true value.
template <class Function, class Exact>
long double worst_ulp(Function f, Exact exact, double low, double high) {
    Random random(3);
    long double worst = 0.0L;
    for (int i = 0; i < 200000; ++i) {
        const double x = random.between(low, high);
        const long double truth = exact(static_cast<long double>(x));
        const long double unit = std::ldexp(1.0L, std::ilogb(truth) - 52);
        worst = std::fmax(worst, std::fabs(f(x) - truth) / unit);
    }
    return worst;
}

TEST(Elementary, FunctionsAreWithinOneUnitOfTheLastPlace) {
    const auto e = [](double x) { return exponential(Scalar(x)).value; };
    const auto l = [](double x) { return logarithm(Scalar(x)).value; };
    EXPECT_LT(worst_ulp(
                  e, [](long double x) { return std::exp(x); }, -708.0, 709.0),
              1.0L);
    EXPECT_LT(worst_ulp(
                  e, [](long double x) { return std::exp(x); }, -1.0, 1.0),
              1.0L);
    EXPECT_LT(worst_ulp(
                  l, [](long double x) { return std::log(x); }, 0.5, 2.0),
              1.0L);
    EXPECT_LT(worst_ulp(
                  l, [](long double x) { return std::log(x); }, 1.0e-6, 1.0e6),
              1.0L);
}

TEST(Kernels, GiveTheSameBitsOnEveryMachine) {
    constexpr std::array properties{
        Property::p,           Property::t, Property::v,  Property::h,         Property::s,
        Property::x,           Property::u, Property::cp, Property::viscosity, Property::speed_of_sound,
        Property::conductivity};
    if (kernels().lanes == 1) GTEST_SKIP() << "this machine or this build has no vector lanes";
    Random random(5);
    for (std::size_t k = 0; k < pair_count; ++k) {
        const auto pair = static_cast<Pair>(k);
        const test::Rows rows(random, pair, 509);
        const auto solved_by = [&](const Kernels& set) {
            std::vector<double> out(properties.size() * rows.a.size());
            std::vector<double*> columns;
            for (std::size_t i = 0; i < properties.size(); ++i) columns.push_back(out.data() + i * rows.a.size());
            std::vector<Status> status(rows.a.size());
            solve_block(set, pair, rows.a.data(), rows.b.data(), rows.a.size(), properties, columns.data(),
                        status.data());
            for (const Status s : status) out.push_back(static_cast<double>(s));
            return out;
        };
        const std::vector<double> one = solved_by(scalar_kernels());
        for (const Kernels* set : {avx2_kernels(), &kernels()}) {
            if (set == nullptr || set->lanes > kernels().lanes) continue;
            const std::vector<double> many = solved_by(*set);
            for (std::size_t i = 0; i < one.size(); ++i)
                ASSERT_TRUE(test::same_bits(one[i], many[i]))
                    << set->name << ", pair " << test::pairs[k].name << ", row " << i % rows.a.size();
        }
    }
}

} // namespace
