#include "output.hpp"

#include "csv.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <set>
#include <utility>

namespace program {

std::string_view Output::Lines::text_of(double value) {
    if (!std::isfinite(value)) return {};
    const std::string_view text = number_(value, format_.digits);
    if (!format_.decimal_comma) return text;
    text_ = text;
    std::replace(text_.begin(), text_.end(), '.', ',');
    return text_;
}

void Output::Lines::number(double value) { cell(text_of(value)); }

namespace {

class CsvOutput : public Output {
public:
    using Output::Output;

    void begin(const Titles& titles) override {
        CsvLines header(format_);
        for (const std::string& title : titles.given) header.cell(title);
        for (const std::string& title : titles.results) header.cell(title);
        header.end_line();
        write(header);
    }
    [[nodiscard]] std::unique_ptr<Lines> lines() const override { return std::make_unique<CsvLines>(format_); }
    void write(Lines& lines) override {
        std::string& text = static_cast<CsvLines&>(lines).text;
        file_.write(text);
        text.clear();
    }
    void finish() override { file_.finish(); }

private:
    struct CsvLines : Lines {
        using Lines::Lines;
        std::string text;
        bool first = true; // cell of its line

        void cell(std::string_view field) override {
            if (!first) text += format_.separator;
            first = false;
            add_csv_field(text, field, format_.separator);
        }
        void end_line() override {
            text += '\n';
            first = true;
        }
        void comment(std::string_view line) override { text.append(line).append(1, '\n'); }
    };
};

/// Characters on the screen: the continuation bytes of UTF-8 take no place.
std::size_t width(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

/// Characters before the decimal mark, or before the exponent where there is none.
std::size_t before_mark(std::string_view number) { return std::min(number.find_first_of(".,e"), number.size()); }

bool is_number(std::string_view text) {
    const ReadNumber read = read_number(text, true);
    return read.is_number && read.rest.empty();
}

class TableOutput : public Output {
public:
    using Output::Output;

    void begin(const Titles& titles) override {
        auto& header = lines_.emplace_back(titles.given);
        header.insert(header.end(), titles.results.begin(), titles.results.end());
        for (std::string& title : header) title = on_one_line(title);
    }
    [[nodiscard]] std::unique_ptr<Lines> lines() const override { return std::make_unique<TableLines>(format_); }

    void write(Lines& lines) override {
        auto& added = static_cast<TableLines&>(lines).lines;
        std::move(added.begin(), added.end(), std::back_inserter(lines_));
        added.clear();
    }

    void finish() override {
        for (std::size_t column = 0; !lines_.empty() && column < lines_.front().size(); ++column) align(column);
        std::string text;
        for (const auto& cells : lines_) {
            for (const std::string& cell : cells) text += cell.empty() ? "" : cell + "  ";
            text.resize(std::min(text.find_last_not_of(' ') + 1, text.size()));
            text += '\n';
        }
        file_.write(text);
        file_.finish();
    }

private:
    static std::string on_one_line(std::string_view field) {
        std::string text(field);
        std::replace_if(
            text.begin(), text.end(), [](char c) { return c >= '\0' && c < ' '; }, ' ');
        return text;
    }

    struct TableLines : Lines {
        using Lines::Lines;
        std::vector<std::vector<std::string>> lines;
        std::vector<std::string> open;

        void cell(std::string_view field) override { open.push_back(on_one_line(field)); }
        void end_line() override { lines.push_back(std::exchange(open, {})); }
    };

    /// Brings the cells of a column to one width, numbers with their decimal marks in line.
    void align(std::size_t column) {
        const auto cell = [&](std::size_t i) -> std::string& { return lines_[i][column]; };
        std::size_t point = 0;
        bool numbers = true;
        bool empty = true;
        for (std::size_t i = 1; i < lines_.size(); ++i) {
            const std::string text(trimmed(cell(i)));
            cell(i) = text;
            numbers = numbers && (text.empty() || is_number(text));
            empty = empty && text.empty();
            point = std::max(point, before_mark(text));
        }
        if (empty && column + 1 == lines_.front().size()) cell(0).clear();
        std::size_t widest = width(cell(0));
        for (std::size_t i = 1; i < lines_.size(); ++i) {
            if (numbers && !cell(i).empty()) cell(i).insert(0, point - before_mark(cell(i)), ' ');
            widest = std::max(widest, width(cell(i)));
        }
        for (auto& cells : lines_) cells[column].append(widest - width(cells[column]), ' ');
    }

    std::vector<std::vector<std::string>> lines_;
};

class JsonOutput : public Output {
public:
    using Output::Output;

    /// A name that comes twice gets a number, so that no cell is lost.
    void begin(const Titles& titles) override {
        given_ = keys(titles.given);
        results_ = keys(titles.results);
    }
    [[nodiscard]] std::unique_ptr<Lines> lines() const override { return std::make_unique<JsonLines>(*this); }
    void write(Lines& lines) override {
        std::string& text = static_cast<JsonLines&>(lines).text;
        file_.write(text);
        text.clear();
    }
    void finish() override { file_.finish(); }

private:
    /// The text as a JSON string: quotes, backslashes and control characters escaped, bytes that are no UTF-8 replaced.
    static void add_string(std::string& out, std::string_view text) {
        out += '"';
        while (!text.empty()) {
            const std::size_t size = utf8_size(text);
            const auto c = static_cast<unsigned char>(text.front());
            if (c == '"' || c == '\\')
                out.append(1, '\\').append(1, text.front());
            else if (c < 0x20U || c == 0x7fU)
                out.append("\\u00").append(1, hex(c >> 4U)).append(1, hex(c & 0xFU));
            else if (size == 0)
                out += "\\ufffd";
            else
                out.append(text.substr(0, size));
            text.remove_prefix(std::max<std::size_t>(size, 1));
        }
        out += '"';
    }
    static char hex(unsigned digit) { return "0123456789abcdef"[digit]; }

    /// Bytes of the UTF-8 character that the text begins with; 0 if it begins with none.
    static std::size_t utf8_size(std::string_view text) {
        const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
        const unsigned lead = byte(0);
        const std::size_t size = lead < 0x80U ? 1 : lead < 0xC2U ? 0 : lead < 0xE0U ? 2 : lead < 0xF0U ? 3 : 4;
        for (std::size_t i = 1; i < size; ++i)
            if ((byte(i) & 0xC0U) != 0x80U) return 0;
        const unsigned second = byte(1);
        const bool no_character = (lead == 0xE0U && second < 0xA0U) || (lead == 0xEDU && second >= 0xA0U) ||
                                  (lead == 0xF0U && second < 0x90U) || (lead == 0xF4U && second >= 0x90U) ||
                                  lead > 0xF4U;
        return no_character ? 0 : size;
    }

    static std::vector<std::string> keys(const std::vector<std::string>& titles) {
        std::vector<std::string> out;
        std::set<std::string> used;
        std::map<std::string, int> last; // number given to a title
        for (const std::string& title : titles) {
            std::string name = title;
            for (int& n = last.try_emplace(title, 1).first->second; !used.insert(name).second;)
                name = title + " (" + std::to_string(++n) + ")";
            add_string(out.emplace_back(), name);
        }
        return out;
    }

    struct JsonLines : Lines {
        explicit JsonLines(const JsonOutput& of) : Lines(of.format_), owner(of) {}
        const JsonOutput& owner;
        std::string text;
        std::size_t place = 0; // of the next cell

        void begin_line(std::size_t number) override {
            text += '{';
            if (number != 0) text += "\"line\":" + std::to_string(number) + ",";
            if (!owner.given_.empty()) text += "\"input\":{";
        }
        void key() {
            const std::size_t given = owner.given_.size();
            text += place == 0 ? "" : ",";
            text += (place < given ? owner.given_[place] : owner.results_[place - given]) + ":";
            ++place;
        }
        void end_value() {
            if (place == owner.given_.size()) text += '}';
        }
        /// An empty result is null, as is an error that there is not.
        void cell(std::string_view field) override {
            const bool given = place < owner.given_.size();
            key();
            if (given || !field.empty())
                add_string(text, field);
            else
                text += "null";
            end_value();
        }
        void number(double value) override {
            key();
            const std::string_view shown = text_of(value);
            text += shown.empty() ? "null" : shown;
        }
        void end_line() override {
            text += "}\n";
            place = 0;
        }
    };

    std::vector<std::string> given_, results_; ///< as JSON strings
};

/// JSON has no decimal comma.
Format with_point(Format format) {
    format.decimal_comma = false;
    return format;
}

} // namespace

std::unique_ptr<Output> csv_output(OutputFile& file, const Format& format) {
    return std::make_unique<CsvOutput>(file, format);
}
std::unique_ptr<Output> table_output(OutputFile& file, const Format& format) {
    return std::make_unique<TableOutput>(file, format);
}
std::unique_ptr<Output> json_output(OutputFile& file, const Format& format) {
    return std::make_unique<JsonOutput>(file, with_point(format));
}

} // namespace program
