// The stack that calls need: they run on a thread whose stack is filled with a pattern, and what they leave of it is counted.
#include "engine/rows.hpp"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <pthread.h>

namespace {

using namespace ktl;

constexpr std::size_t size = 1U << 20;
constexpr unsigned char pattern = 0xa5;
alignas(4096) unsigned char memory[size];

void* run(void* work) {
    (*static_cast<const std::function<void()>*>(work))();
    return nullptr;
}

/// Bytes used, those that the thread itself takes included.
std::size_t used_by(const std::function<void()>& work) {
    std::fill(std::begin(memory), std::end(memory), pattern);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstack(&attributes, memory, size);
    pthread_t thread;
    auto copy = work;
    if (pthread_create(&thread, &attributes, run, &copy) != 0) return 0;
    pthread_join(thread, nullptr);
    const auto* deepest =
        std::find_if(std::begin(memory), std::end(memory), [](unsigned char c) { return c != pattern; });
    return static_cast<std::size_t>(std::end(memory) - deepest);
}

} // namespace

int main() {
    test::Random random(5);
    std::size_t of_batch = 0;
    std::size_t of_state = 0;
    std::vector<Property> properties;
    for (unsigned k = 0; k < property_count; ++k) properties.push_back(static_cast<Property>(k));
    for (std::size_t k = 0; k < pair_count; ++k) {
        const auto pair = static_cast<Pair>(k);
        const test::Rows rows(random, pair, 3000);
        const std::size_t n = rows.a.size();
        std::vector<std::vector<double>> columns(property_count, std::vector<double>(n));
        std::vector<double*> outputs;
        for (auto& column : columns) outputs.push_back(column.data());
        std::vector<Status> status(n);
        of_batch = std::max(of_batch, used_by([&] { batch(pair, rows.a, rows.b, properties, outputs, status); }));
        of_state =
            std::max(of_state, used_by([&] {
                         for (std::size_t i = 0; i < n; ++i)
                             columns[0][i] =
                                 state(pair, rows.a[i], rows.b[i], state_count(pair, rows.a[i], rows.b[i]) - 1).v();
                     }));
    }
    std::printf("batch %zu bytes of stack, one state %zu\n", of_batch, of_state);
}
