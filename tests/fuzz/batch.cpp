// Columns of states: each row has the bits of the single call, whatever stands beside it.
#include "given.hpp"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ktl;
    using fuzz::promise;

    fuzz::Bytes bytes(data, size);
    const auto pair = static_cast<Pair>(bytes.byte() % pair_count);
    const test::PairRow& row = test::row_of(pair);
    const unsigned threads = bytes.byte() % 3;
    std::vector<Property> properties(bytes.byte() % 8);
    bool known = true;
    for (Property& y : properties) {
        y = static_cast<Property>(bytes.byte() % (property_count + 1));
        known = known && static_cast<std::size_t>(y) < property_count;
    }
    const std::size_t repeats = 1 + bytes.byte() % 64; // so that few bytes fill several blocks

    std::vector<double> a, b;
    while (!bytes.empty() && a.size() < 64) {
        a.push_back(fuzz::given(bytes, row.a));
        b.push_back(fuzz::given(bytes, row.b));
    }
    const std::size_t rows = a.size();
    for (std::size_t i = rows; i < rows * repeats; ++i) {
        a.push_back(a[i % rows]);
        b.push_back(b[i % rows]);
    }

    std::vector<std::vector<double>> columns(properties.size(), std::vector<double>(a.size(), -1.0));
    std::vector<double*> outputs;
    for (auto& column : columns) outputs.push_back(column.data());
    std::vector<Status> status(a.size(), Status::cancelled);
    const BatchResult result = batch(pair, a, b, properties, outputs, status, {.threads = threads});
    if (!known) {
        promise(result.fault == BatchResult::Fault::unknown_property, "fault", pair, 0.0, 0.0);
        return 0;
    }
    promise(result.fault == BatchResult::Fault::none && !result.cancelled, "fault", pair, 0.0, 0.0);
    std::size_t solved = 0;
    for (std::size_t first = 0; first < rows; ++first) {
        const State alone = state(pair, a[first], b[first]);
        for (std::size_t i = first; i < a.size(); i += rows) {
            solved += alone ? 1 : 0;
            promise(status[i] == alone.status(), "status", pair, a[i], b[i]);
            for (std::size_t k = 0; k < properties.size(); ++k)
                promise(fuzz::same_bits(columns[k][i], alone.get(properties[k])), "bits", pair, a[i], b[i]);
        }
    }
    promise(result.solved == solved, "count of solved rows", pair, 0.0, 0.0);
    return 0;
}
