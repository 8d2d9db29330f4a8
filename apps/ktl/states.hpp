// States given by one pair of values each: the wanted properties, or a text that says why there is none.
#pragma once

#include "tables.hpp"

namespace program {

/// Columns of states that one pair gives. Filled, solved and read in turn.
class States {
public:
    /// Which states of a row are kept: the first; or all, with both saturated phases if p and t leave the quality open.
    enum class Keep { first, all };

    States(const Pair& pair, const Properties& wanted, Keep keep = Keep::first);

    void clear();
    /// Adds a state; returns its row.
    std::size_t add(double first, double second);
    void solve();

    /// How many states of the row are kept, at least 1: one without values if there is none.
    [[nodiscard]] std::size_t count(std::size_t row) const;
    /// What the state of that number is called among them: its number from 1, or liquid and vapour.
    [[nodiscard]] std::string label(std::size_t row, std::size_t number) const;
    /// The property of that place in the wanted ones, of the state of that number; not-a-number if there is none.
    [[nodiscard]] double value(std::size_t row, std::size_t place, std::size_t number = 0) const;
    /// Why not all values are there; empty if they are.
    [[nodiscard]] std::string error(std::size_t row, std::size_t number = 0) const;

private:
    /// More states of a row than the columns have.
    struct More {
        std::size_t row, begin, count;
    };
    [[nodiscard]] const More* more(std::size_t row) const;
    void find_more(std::size_t row);
    [[nodiscard]] std::string missing(std::size_t row, std::size_t number) const;

    const Pair* pair_;
    const Properties* wanted_;
    Keep keep_;
    std::vector<ktl::Property> ids_;           ///< the wanted ones, then region and quality
    std::vector<ktl::Derivative> derivatives_; ///< the wanted ones
    std::vector<double> first_, second_;
    std::vector<ktl::Status> status_;
    std::vector<std::vector<double>> columns_;
    std::vector<More> more_; ///< in the order of rows
    std::vector<ktl::State> found_;
};

} // namespace program
