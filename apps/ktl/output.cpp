#include "output.hpp"

#include "csv.hpp"
#include "number.hpp"
#include "tables.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace program {

namespace {

void write(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void finish_writing() {
    errno = 0;
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
        throw UsageError(std::string("cannot write the results: ") + std::strerror(errno != 0 ? errno : EIO));
}

class CsvOutput : public Output {
public:
    [[nodiscard]] int digits() const override { return result_digits; }
    [[nodiscard]] std::unique_ptr<Lines> lines() const override { return std::make_unique<CsvLines>(); }
    void write(Lines& lines) override {
        std::string& text = static_cast<CsvLines&>(lines).text;
        program::write(text);
        text.clear();
    }
    void finish() override { finish_writing(); }

private:
    struct CsvLines : Lines {
        std::string text;
        bool first = true; // cell of its line

        void cell(std::string_view field) override {
            if (!first) text += ',';
            first = false;
            add_csv_field(text, field);
        }
        void end_line() override {
            text += '\n';
            first = true;
        }
    };
};

/// Characters on the screen: the continuation bytes of UTF-8 take no place.
std::size_t width(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

/// Characters before the decimal point, or before the exponent where there is none.
std::size_t before_point(std::string_view number) { return std::min(number.find_first_of(".e"), number.size()); }

class TableOutput : public Output {
public:
    [[nodiscard]] int digits() const override { return table_digits; }

    [[nodiscard]] std::unique_ptr<Lines> lines() const override { return std::make_unique<TableLines>(); }

    void write(Lines& lines) override {
        auto& added = static_cast<TableLines&>(lines).lines;
        std::move(added.begin(), added.end(), std::back_inserter(lines_));
        added.clear();
    }

    void finish() override {
        for (std::size_t column = 0; !lines_.empty() && column < lines_.front().size(); ++column) align(column);
        for (const auto& cells : lines_) {
            std::string text;
            for (const std::string& cell : cells) text += cell.empty() ? "" : cell + "  ";
            program::write(text.substr(0, text.find_last_not_of(' ') + 1) + "\n");
        }
        finish_writing();
    }

private:
    struct TableLines : Lines {
        std::vector<std::vector<std::string>> lines;
        std::vector<std::string> open;

        void cell(std::string_view field) override {
            std::string& text = open.emplace_back(field);
            std::replace_if(
                text.begin(), text.end(), [](char c) { return c >= '\0' && c < ' '; }, ' ');
        }
        void end_line() override { lines.push_back(std::exchange(open, {})); }
    };

    /// Brings the cells of a column to one width, numbers with their decimal points in line.
    void align(std::size_t column) {
        const auto cell = [&](std::size_t i) -> std::string& { return lines_[i][column]; };
        std::size_t point = 0;
        bool numbers = true;
        bool empty = true;
        for (std::size_t i = 1; i < lines_.size(); ++i) {
            const std::string text(trimmed(cell(i)));
            cell(i) = text;
            numbers = numbers && (text.empty() || parse_number(text).has_value());
            empty = empty && text.empty();
            point = std::max(point, before_point(text));
        }
        if (empty && column + 1 == lines_.front().size()) cell(0).clear();
        std::size_t widest = width(cell(0));
        for (std::size_t i = 1; i < lines_.size(); ++i) {
            if (numbers && !cell(i).empty()) cell(i).insert(0, point - before_point(cell(i)), ' ');
            widest = std::max(widest, width(cell(i)));
        }
        for (auto& cells : lines_) cells[column].append(widest - width(cells[column]), ' ');
    }

    std::vector<std::vector<std::string>> lines_;
};

} // namespace

std::unique_ptr<Output> csv_output() { return std::make_unique<CsvOutput>(); }
std::unique_ptr<Output> table_output() { return std::make_unique<TableOutput>(); }

} // namespace program
