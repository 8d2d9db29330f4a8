#include "table_writers.hpp"

#include <algorithm>

namespace program {

namespace {

constexpr std::size_t terminal_width = 80;
constexpr std::string_view between_groups = " | ";

/// Where the columns of a sheet are.
struct Places {
    std::vector<ColumnRoom> columns;
    std::vector<std::size_t> begins;       ///< of columns
    std::vector<std::size_t> group_begins; ///< first columns of groups, and one past the last column
    std::size_t width = 0;
    bool bars = false; ///< between groups

    Places(const Sheet& sheet, std::size_t gap) : columns(rooms(sheet)), bars(!sheet.groups.back().heading.empty()) {
        std::size_t column = 0;
        for (const PrintedGroup& group : sheet.groups) {
            group_begins.push_back(column);
            for (std::size_t k = 0; k < group.symbols.size(); ++k, ++column) {
                if (column != 0) width += k == 0 && bars ? between_groups.size() : gap;
                begins.push_back(width);
                width += columns[column].width;
            }
        }
        group_begins.push_back(column);
    }
    [[nodiscard]] std::size_t end(std::size_t column) const { return begins[column] + columns[column].width; }
};

Places places_of(const Sheet& sheet) {
    Places wide(sheet, 2);
    return wide.width <= terminal_width ? wide : Places(sheet, 1);
}

/// A line of text that is filled at places.
class Line {
public:
    explicit Line(const Places& places) : places_(places), text_(places.width, ' ') {
        if (!places.bars) return;
        for (std::size_t g = 1; g + 1 < places.group_begins.size(); ++g) {
            const std::size_t begin = places.begins[places.group_begins[g]];
            text_.replace(begin - between_groups.size(), between_groups.size(), between_groups);
        }
    }
    void put(std::size_t begin, std::string_view text) { text_.replace(begin, text.size(), text); }
    /// In the middle of some columns; an odd blank is on the left.
    void center(std::size_t first, std::size_t last, std::string_view text) {
        const std::size_t begin = places_.begins[first], room = places_.end(last) - begin;
        put(begin + (room - std::min(room, text.size()) + 1) / 2, text);
    }
    void cell(std::size_t column, std::string_view text) {
        const ColumnRoom& room = places_.columns[column];
        const SplitCell parts = split(text);
        const std::size_t point = places_.end(column) - (room.width - room.before - room.after + 1) / 2 - room.after;
        if (parts.is_number)
            put(point - parts.before.size(), text);
        else
            put(places_.end(column) - text.size(), text);
    }
    void rule(std::size_t group) {
        const std::size_t begin = places_.begins[places_.group_begins[group]];
        put(begin, std::string(places_.end(places_.group_begins[group + 1] - 1) - begin, '-'));
    }
    [[nodiscard]] std::string text() const { return text_.substr(0, text_.find_last_not_of(' ') + 1) + "\n"; }

private:
    const Places& places_;
    std::string text_;
};

std::string row_text(const Places& places, const PrintedRow& row) {
    Line line(places);
    for (std::size_t k = 0; k < row.cells.size(); ++k) line.cell(k, row.cells[k]);
    return line.text();
}

/// The line between headings and rows.
std::string full_rule(const Places& places) { return std::string(places.width, '-') + "\n"; }

std::string headings(const Sheet& sheet, const Places& places) {
    std::string out;
    const auto add_line = [&](auto fill) {
        Line line(places);
        for (std::size_t g = 0; g < sheet.groups.size(); ++g) fill(line, sheet.groups[g], places.group_begins[g]);
        out += line.text();
    };
    std::size_t lines = 0;
    for (const PrintedGroup& group : sheet.groups) lines = std::max(lines, group.heading.size());
    for (std::size_t k = 0; k < lines; ++k)
        add_line([k](Line& line, const PrintedGroup& group, std::size_t column) {
            if (k < group.heading.size()) line.center(column, column + group.symbols.size() - 1, group.heading[k]);
        });
    add_line([](Line& line, const PrintedGroup& group, std::size_t column) {
        for (const std::string& symbol : group.symbols) {
            line.center(column, column, symbol);
            ++column;
        }
    });
    add_line([](Line& line, const PrintedGroup& group, std::size_t column) {
        for (const PrintedUnit& unit : group.units) {
            line.center(column, column + unit.columns - 1, unit.name);
            column += unit.columns;
        }
    });
    out += full_rule(places);
    for (const PrintedRow& row : sheet.saturation) out += row_text(places, row);
    return sheet.saturation.empty() ? out : out + full_rule(places);
}

/// The rows of a page. A line with rules, or without, is between blocks of five and where an isobar crosses the line.
std::string body(const Sheet& sheet, const Places& places, std::size_t begin, std::size_t end) {
    std::string out;
    for (std::size_t k = begin; k < end; ++k) {
        const PrintedRow& row = sheet.rows[k];
        Line line(places);
        for (const std::size_t group : row.rules) line.rule(group);
        const bool begins_block = k != begin && (k - begin) % block_rows == 0;
        if (begins_block || !row.rules.empty()) out += line.text();
        out += row_text(places, row);
    }
    return out;
}

std::size_t page_count(const Sheet& sheet, std::size_t page_rows) {
    return (sheet.rows.size() + page_rows - 1) / page_rows;
}

} // namespace

SplitCell split(std::string_view cell) {
    const std::size_t point = std::min(cell.find('.'), cell.size());
    const bool is_number = !cell.empty() && cell.back() >= '0' && cell.back() <= '9';
    return {cell.substr(0, point), cell.substr(point), is_number};
}

std::string signs(std::string_view text) {
    struct Sign {
        std::string_view plain, printed;
    };
    constexpr Sign known[] = {{"degC", "\xC2\xB0"
                                       "C"},
                              {"degF", "\xC2\xB0"
                                       "F"},
                              {"m3/", "m\xC2\xB3/"},
                              {"ft3/", "ft\xC2\xB3/"},
                              {"'", "\xE2\x80\xB2"},
                              {"\"", "\xE2\x80\xB3"}};
    std::string out;
    while (!text.empty()) {
        const Sign* const sign =
            std::find_if(std::begin(known), std::end(known), [=](const Sign& s) { return text.starts_with(s.plain); });
        const bool found = sign != std::end(known);
        out += found ? sign->printed : text.substr(0, 1);
        text.remove_prefix(found ? sign->plain.size() : 1);
    }
    return out;
}

std::vector<ColumnRoom> rooms(const Sheet& sheet) {
    std::vector<ColumnRoom> out;
    for (const PrintedGroup& group : sheet.groups)
        for (const std::string& symbol : group.symbols) out.push_back({0, 0, symbol.size()});
    for (const auto* rows : {&sheet.saturation, &sheet.rows}) {
        for (const PrintedRow& row : *rows) {
            for (std::size_t k = 0; k < row.cells.size(); ++k) {
                const SplitCell parts = split(row.cells[k]);
                ColumnRoom& room = out[k];
                if (parts.is_number) {
                    room.before = std::max(room.before, parts.before.size());
                    room.after = std::max(room.after, parts.after.size());
                }
                room.width = std::max({room.width, room.before + room.after, row.cells[k].size()});
            }
        }
    }
    std::size_t column = 0;
    for (const PrintedGroup& group : sheet.groups) {
        for (const PrintedUnit& unit : group.units) {
            std::size_t room = unit.columns - 1; // a blank between columns
            for (std::size_t k = 0; k < unit.columns; ++k) room += out[column + k].width;
            if (unit.name.size() > room) out[column].width += unit.name.size() - room;
            column += unit.columns;
        }
    }
    return out;
}

std::size_t text_width(const PrintedTable& table) {
    std::size_t width = 0;
    for (const Sheet& sheet : table.sheets) width = std::max(width, places_of(sheet).width);
    return width;
}

std::string text_pages(const PrintedTable& table, std::size_t page_rows) {
    std::size_t pages = 0, page = 0;
    for (const Sheet& sheet : table.sheets) pages += page_count(sheet, page_rows);
    const std::size_t width = text_width(table);
    std::string out;
    for (const Sheet& sheet : table.sheets) {
        const Places places = places_of(sheet);
        for (std::size_t begin = 0; begin < sheet.rows.size(); begin += page_rows) {
            ++page;
            if (page != 1) out += '\f';
            const std::string number = "page " + std::to_string(page) + " of " + std::to_string(pages);
            const std::size_t taken = table.title.size() + number.size();
            out += table.title + std::string(std::max(width, taken + 2) - taken, ' ') + number + "\n";
            out += table.source + "\n\n" + headings(sheet, places);
            out += body(sheet, places, begin, std::min(begin + page_rows, sheet.rows.size()));
            out += full_rule(places);
        }
    }
    for (const std::string& note : table.notes) out += note + "\n";
    return out;
}

} // namespace program
