// The computation of a run of records of a file, by one thread.
#pragma once

#include "columns.hpp"
#include "csv.hpp"
#include "output.hpp"
#include "reasons.hpp"
#include "states.hpp"
#include "tables.hpp"
#include "unit_system.hpp"

namespace program {

/// What every line is computed by.
struct Plan {
    const Pair* pair; ///< null: each line names its own
    std::size_t width;
    Columns columns;
    const Properties& wanted;
    bool decimal_comma; ///< in the file
    bool all_states;
    const UnitSystem& units; ///< of the values of lines that name their pair
};

/// A run of lines on its way from record to result.
class Work {
public:
    explicit Work(const Plan& plan);

    Records records;
    Reasons reasons;      ///< of the lines of the last run without full result
    std::size_t rows = 0; ///< of the last run: lines of its records that are no comments

    /// Computes the records from the given one on and writes their lines.
    void run(std::size_t first, Output::Lines& lines);

private:
    enum class Fault { none, comment, broken, empty, width, earlier, pair, first, second };
    struct Row {
        std::size_t record;
        Fault fault;
        const Pair* pair = nullptr;
        std::size_t state = 0;
        BadNumber bad{};
    };
    /// Why a line has no full result: in general, and of this line.
    struct Why {
        std::string reason, of_line;
    };

    [[nodiscard]] std::string_view field(const Row& row, std::size_t number) const {
        return records.field(row.record, number);
    }
    States& states(const Row& row) { return states_[static_cast<std::size_t>(row.pair - pairs().data())]; }
    Row read(std::size_t record);
    void write(const Row& row, Output::Lines& lines);
    void write_state(const Row& row, std::size_t number, Output::Lines& lines);
    Why why(const Row& row) const;
    Why why_broken(const Row& row) const;
    Why bad_number(const Row& row) const;

    const Plan& plan_;
    std::vector<States> states_; ///< of each pair
    std::vector<Row> rows_;
    bool row_failed_ = false; ///< a state of the row that is being written is not full
};

} // namespace program
