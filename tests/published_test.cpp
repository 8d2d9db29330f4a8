// Values printed in tables that were computed with the 1967 formulation.
#include "support/compare.hpp"

#include <array>
#include <cstdlib>
#include <fstream>
#include <ktl/ktlftn.h>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace ktl::test;

struct Row {
    std::string kind, t, p, property, value, unit, source;
};

std::vector<Row> rows_of(const char* path) {
    std::ifstream file(path);
    std::vector<Row> rows;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream cells(line);
        Row row;
        for (auto* cell : {&row.kind, &row.t, &row.p, &row.property, &row.value, &row.unit})
            std::getline(cells, *cell, ',');
        std::getline(cells, row.source);
        rows.push_back(row);
    }
    return rows;
}

double number(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

/// One unit of the last printed digit.
double last_digit(const std::string& printed) {
    const auto point = printed.find('.');
    return point == std::string::npos ? 1.0 : std::pow(10.0, -static_cast<double>(printed.size() - point - 1));
}

/// What the library has for the row, through the entry; a letter f or g behind the property names the phase.
double computed(const Row& row) {
    if (row.kind == "sat_t" && row.property == "p") return ktl_pt(number(row.t));
    if (row.kind == "sat_p" && row.property == "t") return ktl_it(number(row.p));
    const char code = static_cast<char>(row.property[0] - 'a' + 'A');
    const std::array<char, 3> codes{code, '.', '\0'};
    std::array<double, 1> out{-1.0};
    const double quality = row.property.back() == 'g' ? 1.0 : 0.0;
    if (row.kind == "vt") ktlftn(ktlrpt, number(row.p), number(row.t), codes.data(), out.data());
    if (row.kind == "sat_t") ktlftn(ktlrtx, number(row.t), quality, codes.data(), out.data());
    if (row.kind == "sat_p") ktlftn(ktlrpx, number(row.p), quality, codes.data(), out.data());
    return row.unit == "cm3/g" ? 1000.0 * out[0] : out[0];
}

TEST(Published, Values) {
    const auto rows = rows_of(KTL_PUBLISHED_VALUES);
    ASSERT_GE(rows.size(), 34U) << KTL_PUBLISHED_VALUES;
    for (const auto& row : rows)
        EXPECT_TRUE(within(named(row.kind, " t=", row.t, " p=", row.p, " ", row.property, ", ", row.source),
                           computed(row), number(row.value), last_digit(row.value)));
}

/// Viscosity (Pa s) and conductivity (W/(m K)) at the formulation's usual check points. A correction term of the
/// conductivity ends above 150, 300 and 450 degC; at the temperature itself it still counts.
TEST(Published, Transport) {
    struct Check {
        ktl_property property;
        double v, t, value, allowed;
    };
    for (const auto& [property, v, t, value, allowed] :
         {Check{ktl_cj, 0.001002, 20.0, 0.6162, 1e-4}, Check{ktl_ci, 0.001002, 20.0, 1.0029e-03, 1e-7},
          Check{ktl_cj, 1.0, 200.0, 0.03332, 1e-5}, Check{ktl_ci, 1.0, 200.0, 1.6148e-05, 1e-9}})
        EXPECT_TRUE(within(named("transport at ", t), property(v, t), value, allowed));
    for (const auto& [t, size] : {std::pair{150.0, 6.8e-05 * std::exp(-0.0422 * 150.0)},
                                  std::pair{300.0, 0.000173 * std::exp(-6.8e-05 * 300.0 * 300.0)},
                                  std::pair{450.0, 0.000103 * std::exp(-1.33e-10 * 450.0 * 450.0 * 450.0 * 450.0)}}) {
        const double step = ktl_cj(0.1, std::nextafter(t, 1000.0)) - ktl_cj(0.1, t);
        EXPECT_TRUE(within(named("step at ", t), step, size / 0.1, 1e-13));
    }
}

} // namespace
