#include "table_file.hpp"

#include "csv.hpp"
#include "files.hpp"
#include "number.hpp"
#include "tables.hpp"

#include <algorithm>
#include <cmath>

namespace program {

namespace {

constexpr std::size_t most_lines_of_file = 10000;

/// Refuses a line that could not be read whole.
void check_kind(Records::Kind kind, std::size_t number) {
    const std::string line = "line " + std::to_string(number);
    if (kind == Records::Kind::too_long) throw UsageError(line + " is too long");
    if (kind != Records::Kind::row && kind != Records::Kind::comment)
        throw UsageError(line + ": a quote is not closed, or text follows it");
}

} // namespace

std::vector<Line> read_lines(const std::string& path) {
    InputFile file(path);
    CsvReader reader(file);
    const Records header = reader.header(',');
    reader.set_format(',', header.size() == 0 ? 0 : header.fields(0));
    Records records;
    std::vector<Line> lines;
    while (reader.next(records)) {
        for (std::size_t record = 0; record < records.size(); ++record) {
            check_kind(records.kind(record), records.line(record));
            if (records.kind(record) == Records::Kind::comment) continue;
            Line line{records.line(record), {}};
            for (std::size_t k = 0; k < records.fields(record); ++k)
                line.fields.emplace_back(trimmed(records.field(record, k)));
            const bool empty =
                std::all_of(line.fields.begin(), line.fields.end(), [](const std::string& f) { return f.empty(); });
            if (!empty) lines.push_back(std::move(line));
            if (lines.size() > most_lines_of_file)
                throw UsageError("more than " + std::to_string(most_lines_of_file) +
                                 " lines; a test or a process has fewer points");
        }
    }
    return lines;
}

std::optional<std::size_t> LineTable::find(std::initializer_list<std::string_view> names) const {
    for (std::size_t k = 0; k < header_.fields.size(); ++k) {
        const std::string name = lower_case(header_.fields[k]);
        if (std::find(names.begin(), names.end(), name) != names.end()) return k;
    }
    return std::nullopt;
}

std::size_t LineTable::need(std::initializer_list<std::string_view> names) const {
    if (const auto place = find(names)) return *place;
    throw UsageError("line " + std::to_string(header_.number) + ": no column " + in_quotes(*names.begin()));
}

void LineTable::fail(const Line& line, std::size_t column, const std::string& what) const {
    throw UsageError("line " + std::to_string(line.number) + ", column " + in_quotes(header_.fields[column]) + ": " +
                     what);
}

void LineTable::check_width(const Line& line) const {
    if (line.fields.size() == header_.fields.size()) return;
    throw UsageError("line " + std::to_string(line.number) + ": " + std::to_string(line.fields.size()) +
                     " columns instead of " + std::to_string(header_.fields.size()));
}

double LineTable::number(const Line& line, std::size_t column) const {
    const auto value = parse_number(line.fields[column]);
    if (!value || !std::isfinite(*value)) fail(line, column, in_quotes(line.fields[column]) + " is not a number");
    return *value;
}

} // namespace program
