#include "table_writers.hpp"

#include <algorithm>

namespace program {

namespace {

// As wide as a digit and as a point where digits have one width.
constexpr std::string_view figure_space = "\xE2\x80\x87", punctuation_space = "\xE2\x80\x88";

constexpr std::string_view style =
    "@page { size: A4; margin: 14mm 10mm; }\n"
    "body { font: 13px/1.35 'DejaVu Sans', Verdana, system-ui, sans-serif; color: #000; background: #fff;\n"
    "       max-width: 60em; margin: 1.5em auto; padding: 0 1em; }\n"
    "h1 { font-size: 1.35em; margin: 0 0 .2em; } p { margin: .2em 0 1em; }\n"
    ".wide { overflow-x: auto; }\n"
    "table { border-collapse: collapse; font-variant-numeric: tabular-nums lining-nums; margin: 0 auto 1.5em; }\n"
    "th, td { padding: .06em .4em; text-align: center; vertical-align: bottom; white-space: pre; font-weight: normal; "
    "}\n"
    ".unit-start { padding-left: 1.1em; } sub { line-height: 0; }\n"
    "thead .symbol { font-style: italic; font-weight: 600; }\n"
    "thead .unit th { border-bottom: 1.5px solid #000; } thead .last th { border-bottom: .75px solid #000; }\n"
    ".bar { border-left: .75px solid #000; } tbody tr:first-child td { padding-top: .35em; }\n"
    ".gap td { padding-top: .6em; } td.rule { border-top: 1.5px solid #000; }\n"
    "tbody tr:last-child td { border-bottom: 1.5px solid #000; padding-bottom: .35em; }\n"
    "thead { display: table-header-group; } tr { break-inside: avoid; }\n"
    "@media print { body { max-width: none; margin: 0; padding: 0; font-size: 8.4pt; line-height: 1.25; }\n"
    "  .wide { overflow: visible; } .sheet { break-before: page; } .sheet:first-of-type { break-before: auto; }\n"
    "  th, td { padding-left: .3em; padding-right: .3em; } .unit-start { padding-left: .8em; } }\n";

std::string repeated(std::string_view text, std::size_t count) {
    std::string out;
    for (; count > 0; --count) out += text;
    return out;
}

/// A symbol, unit or heading: symbols in italics, with indices.
std::string marked(std::string_view text) {
    if (text == "cp") return "c<sub>p</sub>";
    if (text.starts_with("ts =")) return "<i>t</i><sub>s</sub>" + signs(text.substr(2));
    if (text.starts_with("p =")) return "<i>p</i>" + signs(text.substr(1));
    return signs(text);
}

/// A number padded to its decimal point, so that columns of centred texts align.
std::string aligned(std::string_view cell, const ColumnRoom& room) {
    const SplitCell parts = split(cell);
    if (!parts.is_number) return std::string(cell);
    std::string out = repeated(figure_space, room.before - parts.before.size());
    for (const char c : cell) out += c == '-' ? std::string("\xE2\x88\x92") : std::string(1, c);
    if (parts.after.size() == room.after) return out;
    if (parts.after.empty()) return out + std::string(punctuation_space) + repeated(figure_space, room.after - 1);
    return out + repeated(figure_space, room.after - parts.after.size());
}

/// Places of groups among the columns.
class Columns {
public:
    explicit Columns(const Sheet& sheet) : rooms_(rooms(sheet)), starts_(rooms_.size()) {
        const bool has_bars = !sheet.groups.back().heading.empty();
        for (std::size_t g = 0; g < sheet.groups.size(); ++g) {
            std::size_t column = groups_.size();
            for (const PrintedUnit& unit : sheet.groups[g].units) {
                starts_[column] = column == 0 ? "" : has_bars && column == groups_.size() ? "bar" : "unit-start";
                column += unit.columns;
            }
            groups_.resize(column, g);
        }
    }
    [[nodiscard]] const ColumnRoom& room(std::size_t column) const { return rooms_[column]; }
    [[nodiscard]] std::size_t group(std::size_t column) const { return groups_[column]; }
    /// How the column is set off from the one on its left: a line, a space, or not at all.
    [[nodiscard]] std::string_view start(std::size_t column) const { return starts_[column]; }

private:
    std::vector<ColumnRoom> rooms_;
    std::vector<std::string_view> starts_;
    std::vector<std::size_t> groups_;
};

std::string cell(std::string_view tag, std::string_view classes, std::size_t span, std::string_view content) {
    std::string out = "<";
    out += tag;
    if (!classes.empty()) out.append(" class=\"").append(classes) += '"';
    if (span != 1) out += " colspan=\"" + std::to_string(span) + '"';
    return out.append(">").append(content).append("</").append(tag) + ">";
}

std::string row(const PrintedRow& row, const Columns& columns, std::string_view tag, std::string_view classes) {
    std::string out = classes.empty() ? "<tr>" : "<tr class=\"" + std::string(classes) + "\">";
    for (std::size_t k = 0; k < row.cells.size(); ++k) {
        std::string own(columns.start(k));
        if (std::find(row.rules.begin(), row.rules.end(), columns.group(k)) != row.rules.end())
            own += own.empty() ? "rule" : " rule";
        out += cell(tag, own, 1, aligned(row.cells[k], columns.room(k)));
    }
    return out + "</tr>\n";
}

std::string headings(const Sheet& sheet, const Columns& columns) {
    std::string out = "<thead>\n";
    for (std::size_t line = 0; line < sheet.groups.back().heading.size(); ++line) {
        out += "<tr>";
        std::size_t column = 0;
        for (const PrintedGroup& group : sheet.groups) {
            const bool has = line < group.heading.size();
            out += cell("th", columns.start(column), group.symbols.size(), has ? marked(group.heading[line]) : "");
            column += group.symbols.size();
        }
        out += "</tr>\n";
    }
    std::string symbols = "<tr class=\"symbol\">", units = "<tr class=\"unit\">";
    std::size_t column = 0, unit_column = 0;
    for (const PrintedGroup& group : sheet.groups) {
        for (const std::string& symbol : group.symbols)
            symbols += cell("th", columns.start(column++), 1, marked(symbol));
        for (const PrintedUnit& unit : group.units) {
            units += cell("th", columns.start(unit_column), unit.columns, marked(unit.name));
            unit_column += unit.columns;
        }
    }
    out += symbols + "</tr>\n" + units + "</tr>\n";
    for (std::size_t k = 0; k < sheet.saturation.size(); ++k)
        out += row(sheet.saturation[k], columns, "th", k + 1 == sheet.saturation.size() ? "last" : "");
    return out + "</thead>\n";
}

} // namespace

std::string html_page(const PrintedTable& table) {
    std::string out = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                      "<meta name=\"viewport\" content=\"width=device-width\">\n<title>";
    out += table.title + "</title>\n<style>\n" + std::string(style) + "</style>\n</head>\n<body>\n<h1>" + table.title +
           "</h1>\n<p>" + table.source;
    for (const std::string& note : table.notes) out += "<br>\n" + marked(note);
    out += "</p>\n";
    for (const Sheet& sheet : table.sheets) {
        const Columns columns(sheet);
        out += "<section class=\"sheet wide\"><table>\n" + headings(sheet, columns) + "<tbody>\n";
        for (std::size_t k = 0; k < sheet.rows.size(); ++k)
            out += row(sheet.rows[k], columns, "td", k != 0 && k % block_rows == 0 ? "gap" : "");
        out += "</tbody>\n</table></section>\n";
    }
    return out + "</body>\n</html>\n";
}

} // namespace program
