// Columns of states: the bits of single calls whatever the threads, faults, progress and cancellation.
#include "rows.hpp"

#include <gtest/gtest.h>
#include <stdexcept>
#if defined(__linux__)
#include <pthread.h>
#endif

namespace {

using namespace ktl;
using test::same_bits;
using Fault = BatchResult::Fault;

/// Columns of results with the call that fills them.
struct Results {
    std::vector<Property> properties;
    std::vector<std::vector<double>> columns;
    std::vector<Status> status;
    BatchResult result;

    Results(Pair pair, const test::Rows& rows, std::vector<Property> wanted, const BatchOptions& options = {})
        : properties(std::move(wanted)), columns(properties.size(), std::vector<double>(rows.a.size(), -1.0)),
          status(rows.a.size(), Status::cancelled) {
        std::vector<double*> outputs;
        for (auto& column : columns) outputs.push_back(column.data());
        result = batch(pair, rows.a, rows.b, properties, outputs, status, options);
    }
};

std::vector<Property> random_properties(test::Random& random) {
    std::vector<Property> wanted(random.below(30));
    for (Property& y : wanted) y = static_cast<Property>(random.below(property_count));
    return wanted;
}

TEST(Batch, GivesTheBitsOfSingleCallsOnAnyThreads) {
    test::Random random(1);
    for (std::size_t pair = 0; pair < pair_count; ++pair) {
        const auto p = static_cast<Pair>(pair);
        const test::Rows rows(random, p, 300 * random.below(20) + random.below(2));
        const auto wanted = random_properties(random);
        const Results one(p, rows, wanted, {.threads = 1});
        std::size_t solved = 0;
        for (std::size_t i = 0; i < rows.a.size(); ++i) {
            const State alone = state(p, rows.a[i], rows.b[i]);
            solved += alone ? 1 : 0;
            ASSERT_EQ(one.status[i], alone.status()) << test::pairs[pair].name << ' ' << rows.a[i] << ' ' << rows.b[i];
            for (std::size_t k = 0; k < wanted.size(); ++k)
                ASSERT_TRUE(same_bits(one.columns[k][i], alone.get(wanted[k])) &&
                            same_bits(one.columns[k][i], value(p, rows.a[i], rows.b[i], wanted[k])))
                    << test::pairs[pair].name << ' ' << rows.a[i] << ' ' << rows.b[i] << " property " << int(wanted[k]);
        }
        EXPECT_EQ(one.result.solved, solved);
        for (const unsigned threads : {2U, 7U, 0U}) {
            const Results more(p, rows, wanted, {.threads = threads});
            EXPECT_EQ(more.status, one.status);
            EXPECT_EQ(more.result.solved, solved);
            for (std::size_t k = 0; k < wanted.size(); ++k)
                EXPECT_TRUE(
                    std::equal(more.columns[k].begin(), more.columns[k].end(), one.columns[k].begin(), same_bits));
        }
    }
}

TEST(Batch, RefusesColumnsThatDoNotFitTogether) {
    const std::vector<double> two(2, 1.0), three(3, 1.0);
    std::vector<Status> status(2, Status::cancelled), longer(3);
    std::vector<double> out(2, -1.0);
    const std::vector<Property> h{Property::h}, unknown{static_cast<Property>(property_count)};
    const std::vector<double*> one{out.data()}, none{}, null{nullptr};
    struct Case {
        Fault fault;
        Pair pair;
        std::span<const double> b;
        std::span<const Property> properties;
        std::span<double* const> outputs;
        std::span<Status> status;
    };
    const std::vector<Case> cases{
        {Fault::lengths_differ, Pair::pt, three, h, one, status},
        {Fault::lengths_differ, Pair::pt, two, h, one, longer},
        {Fault::columns_differ, Pair::pt, two, h, none, status},
        {Fault::columns_differ, Pair::pt, two, h, null, status},
        {Fault::unknown_pair, static_cast<Pair>(pair_count), two, h, one, status},
        {Fault::unknown_property, Pair::pt, two, unknown, one, status},
    };
    for (const Case& c : cases) {
        const BatchResult result = batch(c.pair, two, c.b, c.properties, c.outputs, c.status);
        EXPECT_EQ(result.fault, c.fault);
        EXPECT_EQ(result.solved, 0U);
    }
    EXPECT_EQ(out, std::vector<double>(2, -1.0));
    EXPECT_EQ(status, std::vector<Status>(2, Status::cancelled));
    EXPECT_EQ(batch(Pair::pt, {}, {}, {}, {}, {}).fault, Fault::none);
}

struct Watch {
    std::size_t stop_at = ~std::size_t{0}, last = 0, calls = 0;
    bool throws = false;

    static bool call(void* context, std::size_t done, std::size_t total) {
        auto& self = *static_cast<Watch*>(context);
        EXPECT_GT(done, self.last);
        EXPECT_LE(done - self.last, 65536U);
        EXPECT_LE(done, total);
        self.last = done;
        ++self.calls;
        if (done < self.stop_at) return true;
        if (self.throws) throw std::runtime_error("stop");
        return false;
    }
};

TEST(Batch, TellsItsProgressAndStops) {
    test::Random random(2);
    const std::size_t count = 300001;
    const test::Rows rows(random, Pair::tx, count);
    const Results all(Pair::tx, rows, {Property::p});
    EXPECT_FALSE(all.result.cancelled);
    for (const unsigned threads : {1U, 3U}) {
        Watch watch;
        const Results told(Pair::tx, rows, {Property::p}, {threads, Watch::call, &watch});
        EXPECT_EQ(watch.last, count);
        EXPECT_EQ(told.status, all.status);

        watch = {.stop_at = 100000, .throws = threads == 3};
        const Results stopped(Pair::tx, rows, {Property::p, Property::p}, {threads, Watch::call, &watch});
        EXPECT_TRUE(stopped.result.cancelled);
        EXPECT_EQ(watch.calls, (100000U + 65535U) / 65536U);
        std::size_t begun = 0, solved = 0;
        while (begun < count && stopped.status[begun] != Status::cancelled) {
            solved += stopped.status[begun] == Status::solved ? 1 : 0;
            ASSERT_TRUE(same_bits(stopped.columns[1][begun], all.columns[0][begun]));
            ++begun;
        }
        EXPECT_EQ(stopped.result.solved, solved);
        EXPECT_GE(begun, 100000U);
        EXPECT_LT(begun, 200000U);
        for (std::size_t i = begun; i < count; ++i)
            ASSERT_TRUE(stopped.status[i] == Status::cancelled && std::isnan(stopped.columns[0][i]));
    }
}

#if defined(__linux__) && defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST(Batch, NeedsLessThan64KiBOfStack) {
    struct Work {
        Pair pair;
        const test::Rows& rows;
        std::vector<Property> properties;
        std::vector<double*> outputs;
        std::vector<Status> status;
    };
    const auto run = [](void* given) -> void* { // beyond its stack the thread ends the program
        Work& w = *static_cast<Work*>(given);
        batch(w.pair, w.rows.a, w.rows.b, w.properties, w.outputs, w.status);
        return nullptr;
    };
    test::Random random(4);
    for (std::size_t pair = 0; pair < pair_count; ++pair) {
        const test::Rows rows(random, static_cast<Pair>(pair), 2000);
        Results columns(static_cast<Pair>(pair), rows, random_properties(random));
        for (auto& column : columns.columns) std::fill(column.begin(), column.end(), -1.0);
        Work work{static_cast<Pair>(pair), rows, columns.properties, {}, columns.status};
        for (auto& column : columns.columns) work.outputs.push_back(column.data());
        pthread_attr_t small;
        pthread_attr_init(&small);
        ASSERT_EQ(pthread_attr_setstacksize(&small, 65536), 0);
        pthread_t thread;
        ASSERT_EQ(pthread_create(&thread, &small, run, &work), 0);
        pthread_join(thread, nullptr);
        pthread_attr_destroy(&small);
        EXPECT_EQ(work.status, columns.status);
    }
}
#endif

} // namespace
