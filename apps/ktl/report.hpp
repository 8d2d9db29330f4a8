// Results as titled tables, written as text for reading, CSV, JSON or HTML.
#pragma once

#include <cmath>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace program {

/// A text, or a number with a count of significant digits or, if fixed, of decimals; empty if the number is not finite.
struct Cell {
    std::string text;
    double number = std::nan("");
    int digits = 0;
    bool fixed = false;

    Cell() = default;
    Cell(std::string a_text) : text(std::move(a_text)) {}
    Cell(std::string_view a_text) : text(a_text) {}
    Cell(const char* a_text) : text(a_text) {}
    static Cell significant(double value, int digits) { return {value, digits, false}; }
    static Cell decimals(double value, int digits) { return {value, digits, true}; }

    [[nodiscard]] bool is_number() const { return std::isfinite(number); }
    /// The text, or the number as it is shown.
    [[nodiscard]] std::string shown() const;

private:
    Cell(double value, int count, bool is_fixed) : number(value), digits(count), fixed(is_fixed) {}
};

struct ReportTable {
    std::string name;  ///< key in JSON
    std::string title; ///< sentence above the table, not in CSV and JSON
    std::vector<std::string> columns;
    std::vector<std::vector<Cell>> rows; ///< each as long as the columns
};

struct Report {
    std::string title;
    std::vector<ReportTable> tables;
    std::vector<std::string> notes; ///< sentences below the tables
};

/// Appends the text in quotes, as JSON has it.
void add_json_string(std::string& out, std::string_view text);

/// The whole report in the format "table", "csv", "json" or "html". A column whose cells are all empty is left out of texts.
std::string written(const Report& report, std::string_view format);

} // namespace program
