#include "report.hpp"

#include "csv.hpp"
#include "number.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace program {

namespace {

/// Digits of numbers in CSV and JSON, which are read by programs.
constexpr int machine_digits = 10;

/// The number with so many decimals; empty if that is long.
std::string fixed_text(double number, int decimals) {
    std::array<char, 64> out;
#if defined(__cpp_lib_to_chars)
    const auto end = std::to_chars(out.data(), out.data() + out.size(), number, std::chars_format::fixed, decimals);
    return end.ec == std::errc{} ? std::string(out.data(), end.ptr) : std::string();
#else
    const int size = std::snprintf(out.data(), out.size(), "%.*f", decimals, number);
    return size < static_cast<int>(out.size()) ? std::string(out.data(), static_cast<std::size_t>(size))
                                               : std::string();
#endif
}

std::string for_machines(const Cell& cell) {
    if (!cell.is_number()) return cell.text;
    NumberText number;
    return std::string(number(cell.number, machine_digits));
}

/// What is shown, on one line: control characters as blanks.
std::string on_one_line(const Cell& cell) {
    std::string text = cell.shown();
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20; }, ' ');
    return text;
}

std::size_t characters(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

bool is_empty(const ReportTable& table, std::size_t column) {
    return std::all_of(table.rows.begin(), table.rows.end(),
                       [=](const auto& row) { return row[column].shown().empty(); });
}

std::string spaces(std::size_t count) { return std::string(count, ' '); }

/// Texts to the left, numbers to the right of their columns.
void add_text(std::string& out, const ReportTable& table) {
    if (!table.title.empty()) out += table.title + "\n\n";
    std::vector<std::size_t> widths;
    for (std::size_t k = 0; k < table.columns.size(); ++k) {
        std::size_t width = characters(table.columns[k]);
        for (const auto& row : table.rows) width = std::max(width, characters(on_one_line(row[k])));
        widths.push_back(is_empty(table, k) ? 0 : width);
    }
    const auto numeric = [&](std::size_t k) {
        return std::any_of(table.rows.begin(), table.rows.end(), [=](const auto& row) { return row[k].is_number(); });
    };
    const auto add_line = [&](auto&& text_of) {
        std::string line;
        for (std::size_t k = 0; k < widths.size(); ++k) {
            if (widths[k] == 0) continue;
            const std::string text = text_of(k);
            const std::string pad = spaces(widths[k] - characters(text));
            line += (line.empty() ? "" : "  ") + (numeric(k) ? pad + text : text + pad);
        }
        out += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    };
    add_line([&](std::size_t k) { return table.columns[k]; });
    for (const auto& row : table.rows) add_line([&](std::size_t k) { return on_one_line(row[k]); });
}

void add_csv(std::string& out, const ReportTable& table) {
    for (std::size_t k = 0; k < table.columns.size(); ++k) {
        if (k != 0) out += ',';
        add_csv_field(out, table.columns[k]);
    }
    out += '\n';
    for (const auto& row : table.rows) {
        for (std::size_t k = 0; k < row.size(); ++k) {
            if (k != 0) out += ',';
            add_csv_field(out, for_machines(row[k]));
        }
        out += '\n';
    }
}

void add_json(std::string& out, const ReportTable& table) {
    add_json_string(out, table.name);
    out += ": [";
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        out += i == 0 ? "\n  {" : ",\n  {";
        for (std::size_t k = 0; k < table.columns.size(); ++k) {
            if (k != 0) out += ", ";
            add_json_string(out, table.columns[k]);
            out += ": ";
            const Cell& cell = table.rows[i][k];
            if (cell.is_number())
                out += for_machines(cell);
            else if (cell.text.empty())
                out += "null";
            else
                add_json_string(out, cell.text);
        }
        out += '}';
    }
    out += "\n ]";
}

std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '&': out += "&amp;"; break;
        case '"': out += "&quot;"; break;
        default: out += c;
        }
    }
    return out;
}

constexpr std::string_view html_style =
    "body { font: 15px/1.45 system-ui, sans-serif; color: #222; max-width: 75em; margin: 2em auto; padding: 0 1em; }\n"
    "h1 { font-size: 1.5em; } h2 { font-size: 1.1em; margin-top: 2em; font-weight: 600; }\n"
    ".wide { overflow-x: auto; }\n"
    "table { border-collapse: collapse; font-variant-numeric: tabular-nums; }\n"
    "th, td { padding: .2em .8em; text-align: left; border-bottom: 1px solid #ddd; }\n"
    "th { border-bottom: 2px solid #888; } .n { text-align: right; white-space: nowrap; }\n"
    "tbody tr:hover { background: #f2f6fa; } .note { color: #444; }\n";

void add_html(std::string& out, const ReportTable& table) {
    if (!table.title.empty()) out += "<h2>" + escaped(table.title) + "</h2>\n";
    out += "<div class=\"wide\"><table>\n<thead><tr>";
    std::vector<std::string_view> kinds;
    for (std::size_t k = 0; k < table.columns.size(); ++k) {
        const bool numeric =
            std::any_of(table.rows.begin(), table.rows.end(), [=](const auto& row) { return row[k].is_number(); });
        kinds.emplace_back(numeric ? " class=\"n\"" : "");
        if (!is_empty(table, k)) out.append("<th").append(kinds[k]).append(">") += escaped(table.columns[k]) + "</th>";
    }
    out += "</tr></thead>\n<tbody>\n";
    for (const auto& row : table.rows) {
        out += "<tr>";
        for (std::size_t k = 0; k < row.size(); ++k)
            if (!is_empty(table, k))
                out.append("<td").append(kinds[k]).append(">") += escaped(on_one_line(row[k])) + "</td>";
        out += "</tr>\n";
    }
    out += "</tbody></table></div>\n";
}

template <class Add>
std::string joined(const Report& report, std::string_view between, Add add) {
    std::string out;
    for (const ReportTable& table : report.tables) {
        if (!out.empty()) out += between;
        add(out, table);
    }
    return out;
}

std::string text_of(const Report& report) {
    std::string out = joined(report, "\n", add_text);
    if (!report.notes.empty()) out += '\n';
    for (const std::string& note : report.notes) out += note + "\n";
    return out;
}

std::string html_of(const Report& report) {
    std::string out = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
                      "<meta name=\"viewport\" content=\"width=device-width\">\n<title>" +
                      escaped(report.title) + "</title>\n<style>\n";
    out.append(html_style) += "</style>\n</head>\n<body>\n<h1>" + escaped(report.title) + "</h1>\n";
    out += joined(report, "", add_html);
    for (const std::string& note : report.notes) out += "<p class=\"note\">" + escaped(note) + "</p>\n";
    return out + "</body>\n</html>\n";
}

std::string json_of(const Report& report) {
    std::string out = "{\"title\": ";
    add_json_string(out, report.title);
    out += ",\n " + joined(report, ",\n ", add_json) + ",\n \"notes\": [";
    for (std::size_t i = 0; i < report.notes.size(); ++i) {
        out += i == 0 ? "\n  " : ",\n  ";
        add_json_string(out, report.notes[i]);
    }
    return out + "]\n}\n";
}

} // namespace

void add_json_string(std::string& out, std::string_view text) {
    constexpr std::string_view hex = "0123456789abcdef";
    out += '"';
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (code < 0x20) {
            out += "\\u00";
            out += hex[code >> 4U];
            out += hex[code & 0xFU];
        } else {
            out += c;
        }
    }
    out += '"';
}

std::string Cell::shown() const {
    if (!is_number()) return text;
    if (!fixed) {
        NumberText as_text;
        return std::string(as_text(number, digits));
    }
    const std::string plain = fixed_text(number, digits);
    if (plain.empty()) {
        NumberText as_text;
        return std::string(as_text(number, table_digits));
    }
    const bool zero = plain.find_first_not_of("-0.") == std::string::npos;
    return zero && plain.front() == '-' ? plain.substr(1) : plain;
}

std::string written(const Report& report, std::string_view format) {
    if (format == "csv") return joined(report, "\n", add_csv);
    if (format == "json") return json_of(report);
    if (format == "html") return html_of(report);
    return text_of(report);
}

} // namespace program
