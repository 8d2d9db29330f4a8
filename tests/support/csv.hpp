// Tables of reference values: comma-separated, the first line names the columns, no quotes.
#pragma once

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace ktl::test {

using CsvRow = std::map<std::string, std::string>;

inline std::vector<std::string> cells_of(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream text(line);
    for (std::string cell; std::getline(text, cell, ',');) cells.push_back(cell);
    return cells;
}

/// The rows of a file by the names of their columns; a file that cannot be read fails the test.
inline std::vector<CsvRow> read_csv(const std::string& path) {
    std::ifstream file(path);
    EXPECT_TRUE(file.good()) << path;
    std::string line;
    std::getline(file, line);
    const auto header = cells_of(line);
    std::vector<CsvRow> rows;
    while (std::getline(file, line)) {
        auto cells = cells_of(line);
        cells.resize(header.size());
        CsvRow& row = rows.emplace_back();
        for (std::size_t k = 0; k < header.size(); ++k) row[header[k]] = cells[k];
    }
    return rows;
}

/// 0 for an empty cell.
inline double number(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

} // namespace ktl::test
