#include "batch.hpp"

#include "columns.hpp"
#include "csv.hpp"
#include "number.hpp"
#include "state.hpp"

namespace program {

namespace {

/// The header of the file. Throws UsageError where there is none.
std::vector<std::string> read_header(CsvReader& reader, const std::string& path) {
    Record header;
    const std::string name = path == "-" ? "standard input" : in_quotes(path);
    if (!reader.next(header)) throw UsageError(name + " is empty; its first line should name the columns");
    if (header.too_long || header.fields.empty()) {
        throw UsageError("the first line of " + name + " should name the columns; it is " +
                         (header.too_long ? "longer than " + std::to_string(longest_record) + " bytes" : "empty"));
    }
    for (const std::string& field : header.fields) {
        if (field.find('\0') != std::string::npos)
            throw UsageError("the first line of " + name + " has NUL bytes; it should be text in UTF-8 or ASCII");
    }
    return header.fields;
}

/// Turns one record into its result.
class Lines {
public:
    Lines(const Pair* pair, std::size_t width, const Columns& columns, const std::vector<PropertyIndex>& wanted)
        : pair_(pair), width_(width), columns_(columns), wanted_(wanted) {}

    Result result(const Record& record) {
        if (const std::string fault = shape_fault(record); !fault.empty()) return failed(fault);
        const Pair* pair = pair_ != nullptr ? pair_ : find_pair(trimmed(record.fields[columns_.pair]));
        if (pair == nullptr) {
            return failed("no pair " + in_quotes(trimmed(record.fields[columns_.pair])) + "; the pairs are " +
                          pair_names());
        }
        const std::string& first = record.fields[columns_.first];
        const std::string& second = record.fields[columns_.second];
        const auto a = parse_number(first);
        const auto b = parse_number(second);
        if (!a) return failed(bad_number(pair->first, first));
        if (!b) return failed(bad_number(pair->second, second));
        return evaluator_.evaluate(*pair, *a, *b, wanted_);
    }

private:
    [[nodiscard]] std::string shape_fault(const Record& record) const {
        if (record.too_long) return "line longer than " + std::to_string(longest_record) + " bytes";
        if (record.fields.empty()) return "empty line";
        if (record.fields.size() == width_) return {};
        return "number of columns: " + std::to_string(record.fields.size()) + " instead of " + std::to_string(width_);
    }

    static std::string bad_number(QuantityIndex index, const std::string& text) {
        return std::string(quantity(index).name) + ": " + in_quotes(text) + " is not a number";
    }

    static Result failed(std::string error) {
        Result result;
        result.error = std::move(error);
        return result;
    }

    const Pair* pair_;
    std::size_t width_;
    Columns columns_;
    const std::vector<PropertyIndex>& wanted_;
    Evaluator evaluator_;
};

std::vector<std::string> output_header(std::vector<std::string> cells, const std::vector<PropertyIndex>& wanted) {
    for (const PropertyIndex index : wanted) {
        const Property& property = properties()[index];
        cells.push_back(std::string(property.code) + "_" + std::string(property.unit));
    }
    cells.emplace_back("error");
    return cells;
}

} // namespace

std::size_t run_batch(const Pair* pair, const std::string& path, const std::vector<PropertyIndex>& wanted,
                      Output& output) {
    CsvReader reader(path);
    const std::vector<std::string> header = read_header(reader, path);
    Lines lines(pair, header.size(), find_columns(header, pair), wanted);
    output.line(output_header(header, wanted));

    std::size_t failures = 0;
    for (Record record; reader.next(record);) {
        const Result result = lines.result(record);
        std::vector<std::string> cells = std::move(record.fields);
        cells.resize(header.size()); // so that the output stays rectangular
        for (const PropertyIndex index : wanted)
            cells.push_back(result.has(index) ? show_number(result.values[index], output.digits()) : "");
        cells.push_back(result.error);
        if (!result.error.empty()) ++failures;
        output.line(std::move(cells));
    }
    output.finish();
    return failures;
}

} // namespace program
