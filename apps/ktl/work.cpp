#include "work.hpp"

#include <cmath>
#include <limits>

namespace program {

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

} // namespace

Work::Work(const Plan& plan) : plan_(plan) {
    const auto keep = plan.all_states ? States::Keep::all : States::Keep::first;
    for (const Pair& pair : pairs()) states_.emplace_back(pair, plan.wanted, keep);
}

void Work::run(std::size_t first, Output::Lines& lines) {
    for (States& states : states_) states.clear();
    rows_.clear();
    reasons.clear();
    rows = 0;
    for (std::size_t record = first; record < records.size(); ++record) rows_.push_back(read(record));
    for (States& states : states_) states.solve();
    for (const Row& row : rows_) write(row, lines);
}

Work::Row Work::read(std::size_t record) {
    using Kind = Records::Kind;
    if (records.kind(record) == Kind::comment) return {record, Fault::comment};
    if (records.kind(record) != Kind::row) return {record, Fault::broken};
    if (records.fields(record) == 0) return {record, Fault::empty};
    if (records.fields(record) != plan_.width) return {record, Fault::width};
    Row row{record, Fault::none, plan_.pair};
    if (plan_.columns.error && !trimmed(field(row, *plan_.columns.error)).empty()) return {record, Fault::earlier};
    if (row.pair == nullptr) row.pair = find_pair(trimmed(field(row, plan_.columns.pair)));
    if (row.pair == nullptr) return {record, Fault::pair};
    const bool own_pair = plan_.pair == nullptr;
    const Measure first = own_pair ? measure_in(row.pair->first, plan_.units) : plan_.columns.first_unit;
    const auto a = field_value(first, field(row, plan_.columns.first), plan_.decimal_comma, row.bad);
    if (!a) return {record, Fault::first, row.pair, 0, row.bad};
    const Measure second = own_pair ? measure_in(row.pair->second, plan_.units) : plan_.columns.second_unit;
    const auto b = field_value(second, field(row, plan_.columns.second), plan_.decimal_comma, row.bad);
    if (!b) return {record, Fault::second, row.pair, 0, row.bad};
    row.state = states(row).add(*a, *b);
    return row;
}

void Work::write(const Row& row, Output::Lines& lines) {
    if (row.fault == Fault::comment) {
        lines.comment(field(row, 0));
        return;
    }
    ++rows;
    row_failed_ = false;
    const std::size_t count = row.fault == Fault::none ? states(row).count(row.state) : 1;
    for (std::size_t number = 0; number < count; ++number) write_state(row, number, lines);
}

/// The line of one state of the row.
void Work::write_state(const Row& row, std::size_t number, Output::Lines& lines) {
    const std::size_t line = records.line(row.record);
    const bool read = row.fault == Fault::none;
    lines.begin_line(line);
    for (std::size_t i = 0; i < plan_.width; ++i) // so that the output stays rectangular
        lines.cell(i < records.fields(row.record) ? field(row, i) : std::string_view{});
    if (plan_.all_states) lines.cell(read ? states(row).label(row.state, number) : std::string());
    bool full = read;
    for (std::size_t place = 0; place < plan_.wanted.size(); ++place) {
        const double value = read ? states(row).value(row.state, place, number) : none;
        full = full && std::isfinite(value);
        lines.number(value);
    }
    Why reason;
    if (!read)
        reason = why(row);
    else if (!full || plan_.all_states)
        reason.reason = states(row).error(row.state, number);
    if (reason.of_line.empty()) reason.of_line = reason.reason;
    lines.cell(reason.reason.empty() ? "" : "line " + std::to_string(line) + ": " + reason.of_line);
    lines.end_line();
    if (!reason.reason.empty() && !row_failed_) reasons.add(reason.reason, line);
    row_failed_ = row_failed_ || !reason.reason.empty();
}

Work::Why Work::why(const Row& row) const {
    switch (row.fault) {
    case Fault::none:
    case Fault::comment: break;
    case Fault::broken: return why_broken(row);
    case Fault::empty: return {"empty line", {}};
    case Fault::width:
        return {"another number of columns than the header has",
                "number of columns: " + std::to_string(records.fields(row.record)) + " instead of " +
                    std::to_string(plan_.width)};
    case Fault::earlier:
        return {"no result in the run before", "before: " + std::string(field(row, *plan_.columns.error))};
    case Fault::pair: {
        const std::string_view name = trimmed(field(row, plan_.columns.pair));
        return {"no such pair", "no pair " + in_quotes(name) + "; the pairs are " + pair_names()};
    }
    case Fault::first:
    case Fault::second: return bad_number(row);
    }
    return {};
}

Work::Why Work::why_broken(const Row& row) const {
    const std::size_t lines = records.quoted_lines(row.record);
    const std::string went_on = lines > 1 ? " after " + std::to_string(lines) + " lines; line " +
                                                std::to_string(records.line(row.record) + 1) + " is read anew"
                                          : "";
    switch (records.kind(row.record)) {
    case Records::Kind::too_long: return {"line longer than " + std::to_string(longest_record) + " bytes", {}};
    case Records::Kind::no_end: return {"a quote is not closed", "the quote that opens here is not closed" + went_on};
    case Records::Kind::text_after_quote:
        return {"text behind a closing quote", "the quote that opens here ends in the middle of a field" + went_on};
    case Records::Kind::wrong_width:
        return {"a quote joins lines",
                "the quote that opens here leaves another number of columns than the header has" + went_on};
    case Records::Kind::row:
    case Records::Kind::comment: break;
    }
    return {};
}

Work::Why Work::bad_number(const Row& row) const {
    const bool first = row.fault == Fault::first;
    const std::string name(quantity(first ? row.pair->first : row.pair->second).name);
    const std::string_view text = field(row, first ? plan_.columns.first : plan_.columns.second);
    const std::string reason(row.bad.reason);
    return {name + " " + reason, row.bad.shows_text ? name + ": " + in_quotes(text) + " " + reason : std::string()};
}

} // namespace program
