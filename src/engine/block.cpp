#include "engine/block.hpp"

#include "engine/kernels.hpp"
#include "engine/state.hpp"

#include <algorithm>
#include <cmath>

namespace ktl::engine {

namespace {

using guesses::Class;

/// The kind of each class; the classes of one kind follow one another. Class::search has none.
constexpr std::array<Kind, guesses::class_count - 1> kind_of{Kind::water, Kind::steam,         Kind::steam,
                                                             Kind::steam, Kind::near_critical, Kind::near_critical,
                                                             Kind::wet,   Kind::wet,           Kind::wet_near_critical};
static_assert(std::is_sorted(kind_of.begin(), kind_of.end()));
constexpr std::size_t search_class = static_cast<std::size_t>(Class::search);

constexpr std::size_t padded(std::size_t n) { return (n + widest - 1) / widest * widest; }
static_assert(padded(block_rows) == block_rows);

using Column = std::array<double, block_rows + widest>;

/// Rows of one kind, brought together.
struct Rows {
    alignas(64) Column a, b, first, t, liquid, vapour, settled;

    Columns from(std::size_t begin) {
        return {first.data() + begin, t.data() + begin, liquid.data() + begin, vapour.data() + begin,
                settled.data() + begin};
    }
};

/// One block on its way through classes, searches and evaluation.
class Block {
public:
    Block(const Kernels& kernels, Pair pair, const double* a, const double* b, std::size_t n)
        : kernels_(kernels), pair_(pair), index_(static_cast<std::size_t>(pair)), n_(n), a_(a), b_(b) {}

    std::size_t solve(std::span<const Property> properties, double* const* outputs, Status* status) {
        sort();
        std::size_t begin = 0;
        for (std::size_t c = 0; c < search_class;) {
            std::size_t end_class = c + 1;
            while (end_class < search_class && kind_of[end_class] == kind_of[c]) ++end_class;
            const std::size_t count = counts_of(c, end_class);
            if (count != 0) solve_kind(begin, c, end_class, count, properties, outputs, status);
            begin += count;
            c = end_class;
        }
        for (std::size_t i = begin; i < n_; ++i) search_row(order_[i], properties, outputs, status);
        return solved_;
    }

private:
    [[nodiscard]] std::size_t counts_of(std::size_t begin, std::size_t end) const {
        std::size_t sum = 0;
        for (std::size_t c = begin; c < end; ++c) sum += counts_[c];
        return sum;
    }

    /// Counts the rows of each class and orders them by class; rows keep their order within one.
    void sort() {
        std::copy_n(a_, n_, rows_.a.begin());
        std::copy_n(b_, n_, rows_.b.begin());
        pad(rows_.a, n_);
        pad(rows_.b, n_);
        kernels_.classify[index_](rows_.a.data(), rows_.b.data(), padded(n_), rows_.first.data());
        std::array<std::uint8_t, block_rows> classes;
        for (std::size_t i = 0; i < n_; ++i) {
            classes[i] = static_cast<std::uint8_t>(rows_.first[i]);
            ++counts_[classes[i]];
        }
        std::array<std::size_t, guesses::class_count> next{};
        for (std::size_t c = 1; c < next.size(); ++c) next[c] = next[c - 1] + counts_[c - 1];
        for (std::size_t i = 0; i < n_; ++i) order_[next[classes[i]]++] = static_cast<std::uint16_t>(i);
    }

    /// Repeats the last row up to a whole number of lanes.
    static void pad(Column& column, std::size_t n) {
        for (std::size_t i = n; i < padded(n); ++i) column[i] = column[n - 1];
    }

    void solve_kind(std::size_t begin, std::size_t c, std::size_t end_class, std::size_t count,
                    std::span<const Property> properties, double* const* outputs, Status* status) {
        const Kind kind = kind_of[c];
        for (std::size_t i = 0; i < count; ++i) rows_.a[i] = a_[order_[begin + i]];
        for (std::size_t i = 0; i < count; ++i) rows_.b[i] = b_[order_[begin + i]];
        pad(rows_.a, count);
        pad(rows_.b, count);
        find(kind, c, end_class, count);
        evaluate(kind, begin, count, properties, outputs);
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t row = order_[begin + i];
            if (rows_.settled[i] > 0.5) {
                status[row] = Status::solved;
                ++solved_;
            } else {
                search_row(row, properties, outputs, status);
            }
        }
    }

    /// First guesses class by class, each in whole lanes that the next class may write over; then the search.
    void find(Kind kind, std::size_t c, std::size_t end_class, std::size_t count) {
        for (std::size_t begin = 0; c < end_class; begin += counts_[c++]) {
            if (counts_[c] == 0) continue;
            kernels_.guess[index_](static_cast<Class>(c), rows_.a.data() + begin, rows_.b.data() + begin,
                                   padded(counts_[c]), rows_.from(begin));
        }
        pad(rows_.first, count);
        pad(rows_.t, count);
        const Kernels::Solve newton = kernels_.solve[index_][static_cast<std::size_t>(kind)];
        if (newton != nullptr)
            newton(rows_.a.data(), rows_.b.data(), padded(count), rows_.from(0));
        else
            std::fill_n(rows_.settled.begin(), count, 1.0);
    }

    void evaluate(Kind kind, std::size_t begin, std::size_t count, std::span<const Property> properties,
                  double* const* outputs) {
        std::array<Property, property_count> wanted;
        std::array<double*, property_count> columns;
        std::size_t used = 0;
        Depth depth = Depth::volume;
        for (std::size_t k = 0; k < properties.size(); ++k) {
            if (kind >= Kind::wet && !of_mixtures(properties[k])) continue;
            depth = std::max(depth, depth_of(properties[k]));
            wanted[used] = properties[k];
            columns[used++] = results_[k].data();
        }
        kernels_.evaluate[static_cast<std::size_t>(kind)][static_cast<std::size_t>(depth)](
            rows_.from(0), padded(count), wanted.data(), used, columns.data());
        for (std::size_t k = 0; k < properties.size(); ++k) deliver(kind, begin, count, properties[k], k, outputs[k]);
    }

    /// One column of results to its rows.
    void deliver(Kind kind, std::size_t begin, std::size_t count, Property property, std::size_t k, double* output) {
        if (property == Property::region) {
            for (std::size_t i = 0; i < count; ++i)
                results_[k][i] = static_cast<double>(region_of(kind, rows_.first[i], rows_.t[i]));
        } else if (kind >= Kind::wet && !of_mixtures(property)) {
            std::fill_n(results_[k].begin(), count, not_a_number);
        }
        if (count == n_)
            std::copy_n(results_[k].begin(), n_, output);
        else
            for (std::size_t i = 0; i < count; ++i) output[order_[begin + i]] = results_[k][i];
    }

    void search_row(std::size_t row, std::span<const Property> properties, double* const* outputs, Status* status) {
        const State found = Access::state(search(pair_, a_[row], b_[row], 0));
        status[row] = found.status();
        solved_ += found ? 1 : 0;
        for (std::size_t k = 0; k < properties.size(); ++k) outputs[k][row] = found.get(properties[k]);
    }

    const Kernels& kernels_;
    Pair pair_;
    std::size_t index_, n_;
    const double *a_, *b_;
    std::size_t solved_ = 0;
    std::array<std::size_t, guesses::class_count> counts_{};
    std::array<std::uint16_t, block_rows> order_;
    Rows rows_;
    alignas(64) std::array<Column, property_count> results_;
};

} // namespace

Region region_of(Kind kind, double first, double t) noexcept {
    switch (kind) {
    case Kind::water: return Region::water;
    case Kind::steam: return Region::steam;
    case Kind::near_critical:
        return first < ktl_lc.vca && t <= ktl_lc.tc ? Region::near_critical_water : Region::near_critical_steam;
    case Kind::wet: return Region::wet;
    case Kind::wet_near_critical: return Region::wet_near_critical;
    }
    return Region::none;
}

std::size_t solve_block(const Kernels& kernels, Pair pair, const double* a, const double* b, std::size_t n,
                        std::span<const Property> properties, double* const* outputs, Status* status) noexcept {
    return Block(kernels, pair, a, b, n).solve(properties, outputs, status);
}

std::size_t solve_block(Pair pair, const double* a, const double* b, std::size_t n,
                        std::span<const Property> properties, double* const* outputs, Status* status) noexcept {
    return solve_block(kernels(), pair, a, b, n, properties, outputs, status);
}

Solution solve_row(Pair pair, double a, double b) noexcept {
    const auto index = static_cast<std::size_t>(pair);
    if (index >= pair_count) return {};
    const Kernels& one = scalar_kernels();
    double c = 0.0;
    one.classify[index](&a, &b, 1, &c);
    const auto of_class = static_cast<Class>(c);
    if (of_class == Class::search) return search(pair, a, b, 0);
    Solution found{Status::solved, Region::none, a, b, not_a_number, not_a_number};
    double settled = 1.0;
    const Columns columns{&found.first, &found.t, &found.liquid, &found.vapour, &settled};
    one.guess[index](of_class, &a, &b, 1, columns);
    const Kind kind = kind_of[static_cast<std::size_t>(c)];
    const Kernels::Solve solve = one.solve[index][static_cast<std::size_t>(kind)];
    if (solve != nullptr) solve(&a, &b, 1, columns);
    if (!(settled > 0.5)) return search(pair, a, b, 0);
    found.region = region_of(kind, found.first, found.t);
    return found;
}

} // namespace ktl::engine
