// One pair's given values, solved in columns.
#pragma once

#include "pairs.hpp"

#include <vector>

namespace sweep {

/// One state as the engine found it.
struct Solved {
    ktl::Status status;
    Values values;
    int region;
};

class Columns {
public:
    /// What is asked of each state.
    static constexpr std::array wanted{ktl::Property::p, ktl::Property::t, ktl::Property::v, ktl::Property::h,
                                       ktl::Property::s, ktl::Property::u, ktl::Property::x, ktl::Property::region};

    void add(double a, double b) {
        a_.push_back(a);
        b_.push_back(b);
    }

    void solve(ktl::Pair pair) {
        const std::size_t n = a_.size();
        results_.resize(n * wanted.size());
        status_.resize(n);
        std::array<double*, wanted.size()> outputs;
        for (std::size_t k = 0; k < outputs.size(); ++k) outputs.at(k) = results_.data() + k * n;
        ktl::batch(pair, a_, b_, wanted, outputs, status_);
    }

    [[nodiscard]] std::size_t size() const { return a_.size(); }
    [[nodiscard]] double a(std::size_t i) const { return a_[i]; }
    [[nodiscard]] double b(std::size_t i) const { return b_[i]; }
    [[nodiscard]] Solved solved(std::size_t i) const {
        const auto y = [&](std::size_t k) { return results_[k * a_.size() + i]; };
        const double x = std::isnan(y(6)) ? -1.0 : y(6);
        return {status_[i], {y(0), y(1), y(2), y(3), y(4), y(5), x}, static_cast<int>(y(7))};
    }

    /// True if ktl::state() gives the same bits.
    [[nodiscard]] bool same_as_state(ktl::Pair pair, std::size_t i) const {
        const ktl::State one = ktl::state(pair, a_[i], b_[i]);
        bool same = one.status() == status_[i];
        for (std::size_t k = 0; k < wanted.size(); ++k) {
            const double column = results_[k * a_.size() + i];
            const double single = one.get(wanted.at(k));
            same = same && (column == single || (std::isnan(column) && std::isnan(single)));
        }
        return same;
    }

private:
    std::vector<double> a_, b_, results_;
    std::vector<ktl::Status> status_;
};

} // namespace sweep
