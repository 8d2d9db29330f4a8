#include "engine/rows/block.hpp"

#include "engine/pairs.hpp"
#include "engine/rows/row.hpp"

#include <algorithm>
#include <cmath>

namespace ktl::engine {

namespace {

using guesses::GuessPatch;

constexpr auto wet_kind = static_cast<std::size_t>(PhaseKind::wet);
constexpr std::size_t search_patch = static_cast<std::size_t>(GuessPatch::search);

static_assert(block_rows % widest == 0);

/// Up to so many rows take less time one at a time than a block does.
constexpr std::size_t few_rows = 2;

using Column = std::array<double, block_rows + widest>;

/// Room for the results of a block, so that it does not outgrow the stack of a small thread: whole blocks of up to six
/// properties, fewer rows of more.
constexpr std::size_t result_room = 6 * block_rows;
constexpr std::size_t rows_with(std::size_t properties) {
    return std::min(block_rows, result_room / std::max<std::size_t>(1, properties) / widest * widest);
}
static_assert(rows_with(property_count) >= 4 * widest);

/// Rows of one kind, brought together.
struct Rows {
    alignas(64) Column a, b, primary, t, liquid, vapour, accepted;

    SolutionColumns from(std::size_t begin) {
        return {primary.data() + begin, t.data() + begin, liquid.data() + begin, vapour.data() + begin,
                accepted.data() + begin};
    }
};

/// One block on its way through patches, searches and evaluation.
class Block {
public:
    Block(const Kernels& kernels, Pair pair, const double* a, const double* b, std::size_t n)
        : kernels_(kernels), index_(static_cast<std::size_t>(pair)), n_(n), a_(a), b_(b), pair_(pair) {}

    std::size_t solve(std::span<const Property> properties, double* const* outputs, Status* status) {
        if (n_ <= few_rows) {
            for (std::size_t i = 0; i < n_; ++i)
                deliver(solve_row(pair_, a_[i], b_[i]), i, properties, outputs, status);
            return solved_;
        }
        sort();
        const std::size_t classified = solve_kinds(properties, outputs, status);
        for (std::size_t i = classified; i < n_; ++i) search_row(order_[i], {}, properties, outputs, status);
        if (open_count_ != 0) {
            sort_open();
            solve_kinds(properties, outputs, status);
        }
        return solved_;
    }

private:
    /// A row that its own patch left open, and the patch across the saturation line.
    struct Open {
        std::uint16_t row;
        GuessPatch across;
    };

    /// Orders the rows by patch; rows keep their order within one. A block of one patch is in order already.
    void sort() {
        std::copy_n(a_, n_, rows_.a.begin());
        std::copy_n(b_, n_, rows_.b.begin());
        pad(rows_.a, n_);
        pad(rows_.b, n_);
        kernels_.classify[index_](rows_.a.data(), rows_.b.data(), padded(n_), rows_.primary.data());
        unsigned present = 0;
        for (std::size_t i = 0; i < n_; ++i) {
            const auto c = static_cast<unsigned>(static_cast<int>(rows_.primary[i]));
            patches_[i] = static_cast<std::uint8_t>(c);
            present |= 1U << c;
        }
        in_order_ = (present & (present - 1U)) == 0;
        std::size_t end = 0;
        for (std::size_t c = 0; c < guesses::patch_count; ++c) {
            if ((present >> c & 1U) == 0) continue;
            const std::size_t begin = end;
            for (std::size_t i = 0; i < n_; ++i) {
                order_[end] = static_cast<std::uint16_t>(i);
                end += patches_[i] == c ? 1 : 0;
            }
            counts_[c] = end - begin;
        }
    }

    /// n, rounded up to a whole number of lanes.
    [[nodiscard]] std::size_t padded(std::size_t n) const {
        return (n + kernels_.lanes - 1) / kernels_.lanes * kernels_.lanes;
    }

    /// Solves the rows in the order of their kinds, each kind in lanes. Returns how many rows have one.
    std::size_t solve_kinds(std::span<const Property> properties, double* const* outputs, Status* status) {
        std::size_t begin = 0;
        for (std::size_t c = 0; c < search_patch;) {
            std::size_t end_patch = c;
            std::size_t count = 0;
            for (; end_patch < search_patch && kind_of[end_patch] == kind_of[c]; ++end_patch)
                count += counts_[end_patch];
            if (count != 0) {
                gather(begin, count);
                find(kind_of[c], c, end_patch, count, begin, properties, outputs);
                close(begin, count, properties, outputs, status);
            }
            begin += count;
            c = end_patch;
        }
        return begin;
    }

    /// Orders the rows that their own patches left open by the patches across the saturation line.
    void sort_open() {
        in_order_ = false;
        across_ = true;
        std::size_t end = 0;
        for (std::size_t c = 0; c < guesses::patch_count; ++c) {
            const std::size_t begin = end;
            for (std::size_t i = 0; i < open_count_; ++i) {
                order_[end] = open_[i].row;
                end += static_cast<std::size_t>(open_[i].across) == c ? 1 : 0;
            }
            counts_[c] = end - begin;
        }
    }

    /// Repeats the last row up to a whole number of lanes.
    void pad(Column& column, std::size_t n) const {
        for (std::size_t i = n; i < padded(n); ++i) column[i] = column[n - 1];
    }

    /// Brings the rows of one kind together; a block in order is left as it is.
    void gather(std::size_t begin, std::size_t count) {
        if (in_order_) return;
        for (std::size_t i = 0; i < count; ++i) rows_.a[i] = a_[order_[begin + i]];
        for (std::size_t i = 0; i < count; ++i) rows_.b[i] = b_[order_[begin + i]];
        pad(rows_.a, count);
        pad(rows_.b, count);
    }

    /// Searches the states of one kind and evaluates their properties.
    void find(PhaseKind kind, std::size_t c, std::size_t end_patch, std::size_t count, std::size_t begin,
              std::span<const Property> properties, double* const* outputs) {
        const bool direct = in_order_ && padded(n_) == n_;
        std::array<Property, property_count> wanted;
        std::array<double*, property_count> columns;
        std::size_t used = 0;
        PropertyLevel level = PropertyLevel::variables;
        for (std::size_t k = 0; k < properties.size(); ++k) {
            if (kind >= PhaseKind::wet && !of_mixtures(properties[k])) continue;
            level = std::max(level, level_of(properties[k]));
            wanted[used] = properties[k];
            columns[used++] = direct ? outputs[k] : results_of(k);
        }
        const auto level_index = static_cast<std::size_t>(level);
        const auto kind_index = static_cast<std::size_t>(kind);
        const bool on_line = has_pressure(pair_) || has_temperature(pair_);
        if (kind >= PhaseKind::wet && on_line) {
            kernels_.mix[kind_index - wet_kind][level_index](pair_, rows_.a.data(), rows_.b.data(), padded(count),
                                                             rows_.from(0), wanted.data(), used, columns.data());
        } else {
            search_in_lanes(kind_index, c, end_patch, count);
            kernels_.evaluate[kind_index][level_index](rows_.from(0), padded(count), wanted.data(), used,
                                                       columns.data());
        }
        for (std::size_t k = 0; k < properties.size(); ++k) {
            double* column = direct ? outputs[k] : results_of(k);
            fill(kind, count, properties[k], column);
            if (!direct) scatter(begin, count, column, outputs[k]);
        }
    }

    [[nodiscard]] double* results_of(std::size_t property) { return results_.data() + property * padded(n_); }

    /// First guesses patch by patch, each in whole lanes that the next patch may write over; then the search.
    void search_in_lanes(std::size_t kind, std::size_t c, std::size_t end_patch, std::size_t count) {
        for (std::size_t begin = 0; c < end_patch; begin += counts_[c++]) {
            if (counts_[c] == 0) continue;
            kernels_.guess[index_](static_cast<GuessPatch>(c), rows_.a.data() + begin, rows_.b.data() + begin,
                                   padded(counts_[c]), rows_.from(begin));
        }
        pad(rows_.primary, count);
        pad(rows_.t, count);
        const Kernels::Solve newton = kernels_.solve[index_][kind];
        if (newton != nullptr)
            newton(pair_, rows_.a.data(), rows_.b.data(), padded(count), rows_.from(0), margin_of(pair_));
        else
            std::fill_n(rows_.accepted.begin(), count, 1.0);
    }

    /// What the kernels do not give: the region, and not-a-number for what mixtures do not have.
    void fill(PhaseKind kind, std::size_t count, Property property, double* column) const {
        if (property == Property::region) {
            for (std::size_t i = 0; i < count; ++i)
                column[i] = static_cast<double>(region_of(kind, rows_.primary[i], rows_.t[i]));
        } else if (kind >= PhaseKind::wet && !of_mixtures(property)) {
            std::fill_n(column, count, quiet_nan);
        }
    }

    void scatter(std::size_t begin, std::size_t count, const double* column, double* output) const {
        if (in_order_)
            std::copy_n(column, count, output);
        else
            for (std::size_t i = 0; i < count; ++i) output[order_[begin + i]] = column[i];
    }

    /// Gives the rows of one kind their status; those that the lanes left open go across the line, then to the
    /// exact search.
    void close(std::size_t begin, std::size_t count, std::span<const Property> properties, double* const* outputs,
               Status* status) {
        std::size_t accepted = 0;
        for (std::size_t i = 0; i < count; ++i) accepted += rows_.accepted[i] > 0.5 ? 1 : 0;
        solved_ += accepted;
        if (in_order_)
            std::fill_n(status, count, Status::solved);
        else
            for (std::size_t i = 0; i < count; ++i) status[order_[begin + i]] = Status::solved;
        if (accepted == count) return;
        for (std::size_t i = 0; i < count; ++i) {
            if (rows_.accepted[i] > 0.5) continue;
            const std::uint16_t row = order_[begin + i];
            if (across_)
                deliver(solve_row(pair_, a_[row], b_[row]), row, properties, outputs, status);
            else
                leave_open(row, {rows_.primary[i], rows_.t[i]}, properties, outputs, status);
        }
    }

    /// Keeps a row for the patch across the saturation line, if there is one.
    void leave_open(std::uint16_t row, const EndOfSearch& ended, std::span<const Property> properties,
                    double* const* outputs, Status* status) {
        const GuessPatch across = patch_across(pair_, static_cast<GuessPatch>(patches_[row]), a_[row], ended);
        if (across == GuessPatch::search) return search_row(row, ended, properties, outputs, status);
        open_[open_count_++] = {row, across};
    }

    void search_row(std::size_t row, const EndOfSearch& ended, std::span<const Property> properties,
                    double* const* outputs, Status* status) {
        deliver(solve_row_again(pair_, a_[row], b_[row], ended), row, properties, outputs, status);
    }

    void deliver(const RowState& found, std::size_t row, std::span<const Property> properties, double* const* outputs,
                 Status* status) {
        status[row] = found.status;
        solved_ += found.status == Status::solved ? 1 : 0;
        for (std::size_t k = 0; k < properties.size(); ++k)
            outputs[k][row] = value(properties[k], found.bulk, found.x, found.region);
    }

    // By size, so that little room is lost between them.
    const Kernels& kernels_;
    std::size_t index_, n_;
    const double *a_, *b_;
    std::size_t solved_ = 0, open_count_ = 0;
    std::array<std::size_t, guesses::patch_count> counts_{};
    std::array<Open, block_rows> open_; ///< the rows of the second round
    std::array<std::uint16_t, block_rows + 1> order_;
    std::array<std::uint8_t, block_rows> patches_;
    Pair pair_;
    bool in_order_ = false, across_ = false;
    Rows rows_;
    alignas(64) std::array<double, result_room> results_;
};

} // namespace

std::size_t solve_block(const Kernels& kernels, Pair pair, const double* a, const double* b, std::size_t n,
                        std::span<const Property> properties, double* const* outputs, Status* status) noexcept {
    std::array<double*, property_count> from;
    std::size_t solved = 0;
    for (std::size_t row = 0; row < n; row += rows_with(properties.size())) {
        for (std::size_t k = 0; k < properties.size(); ++k) from[k] = outputs[k] + row;
        solved += Block(kernels, pair, a + row, b + row, std::min(rows_with(properties.size()), n - row))
                      .solve(properties, from.data(), status + row);
    }
    return solved;
}

std::size_t solve_block(Pair pair, const double* a, const double* b, std::size_t n,
                        std::span<const Property> properties, double* const* outputs, Status* status) noexcept {
    return solve_block(kernels(), pair, a, b, n, properties, outputs, status);
}

} // namespace ktl::engine
