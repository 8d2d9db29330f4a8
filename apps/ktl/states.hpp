// States given by one pair of values each: the wanted properties, or a text that says why there is none.
#pragma once

#include "tables.hpp"

namespace program {

/// Columns of states that one pair gives. Filled, solved and read in turn.
class States {
public:
    States(const Pair& pair, const Properties& wanted);

    void clear();
    /// Adds a state; returns its row.
    std::size_t add(double first, double second);
    void solve();

    /// The wanted property of that number; not-a-number where there is none.
    [[nodiscard]] double value(std::size_t row, std::size_t number) const;
    /// Why not all values are there; empty where they are.
    [[nodiscard]] std::string error(std::size_t row) const;

private:
    [[nodiscard]] bool mixed(std::size_t row) const;
    [[nodiscard]] double quality_of(std::size_t row) const;

    const Pair* pair_;
    const Properties* wanted_;
    std::vector<ktl::Property> ids_; ///< the wanted ones, then region and quality
    std::vector<double> first_, second_;
    std::vector<ktl::Status> status_;
    std::vector<std::vector<double>> columns_;
};

} // namespace program
