// Rows of each pair and what the native library makes of them: native_rows FILE. For each pair the file has the first values, the
// second values and, of each row, a hash of the bits of all properties and of the status.
#include "engine/rows.hpp"

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace {

using namespace ktl;

constexpr std::size_t count = 100000;

/// A state of any kind, many of them near-critical, cold or mixtures. Pairs with a quality get mixtures.
State draw(test::Random& random, bool wet) {
    const double x = random.between(0.0, 1.0);
    const double p = random.logarithmic(0.0062, 999.0);
    const double t = random.between(0.01, random.below(8) == 0 ? 12.0 : 800.0);
    const unsigned kind = random.below(8);
    if (wet || kind == 0) return state(Pair::tx, random.between(0.01, 374.1), x);
    if (kind == 1) return state(Pair::pt, random.between(160.0, 300.0), random.between(345.0, 378.0));
    return state(Pair::pt, p, t);
}

/// Values of states, and one row in sixteen that may have none.
test::Rows rows_of(test::Random& random, Pair pair) {
    const test::PairRow& row = test::row_of(pair);
    const bool wet = row.b == Property::x;
    test::Rows rows(random, pair, count);
    for (std::size_t i = 0; i < count; ++i) {
        if (i % 16 == 0) continue;
        const State drawn = draw(random, wet);
        rows.a[i] = drawn.get(row.a);
        rows.b[i] = drawn.get(row.b);
    }
    return rows;
}

class Hash {
public:
    void add(double number) {
        std::uint32_t halves[2]{0, 0x7ff80000}; // one not-a-number for all
        if (number == number) std::memcpy(halves, &number, sizeof number);
        for (const std::uint32_t half : halves) value_ = (value_ ^ half) * 0x01000193U;
    }
    [[nodiscard]] std::uint32_t value() const { return value_; }

private:
    std::uint32_t value_ = 0x811c9dc5U;
};

bool write_pair(std::FILE* file, Pair pair) {
    test::Random random(20 + static_cast<unsigned>(pair));
    const test::Rows rows = rows_of(random, pair);
    std::vector<std::vector<double>> columns(property_count, std::vector<double>(count));
    std::vector<Property> properties;
    std::vector<double*> outputs;
    for (std::size_t k = 0; k < property_count; ++k) {
        properties.push_back(static_cast<Property>(k));
        outputs.push_back(columns[k].data());
    }
    std::vector<Status> status(count);
    batch(pair, rows.a, rows.b, properties, outputs, status);
    std::vector<std::uint32_t> hashes;
    for (std::size_t i = 0; i < count; ++i) {
        Hash hash;
        for (const auto& column : columns) hash.add(column[i]);
        hash.add(static_cast<double>(status[i]));
        hashes.push_back(hash.value());
    }
    return std::fwrite(rows.a.data(), sizeof(double), count, file) == count &&
           std::fwrite(rows.b.data(), sizeof(double), count, file) == count &&
           std::fwrite(hashes.data(), sizeof(std::uint32_t), count, file) == count;
}

} // namespace

int main(int argc, char** argv) {
    std::FILE* file = argc == 2 ? std::fopen(argv[1], "wb") : nullptr;
    if (file == nullptr) {
        std::fputs("native_rows: FILE\n", stderr);
        return 2;
    }
    bool written = true;
    for (std::size_t k = 0; k < pair_count; ++k) written = written && write_pair(file, static_cast<Pair>(k));
    return std::fclose(file) == 0 && written ? 0 : 1;
}
