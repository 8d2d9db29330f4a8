// The values, rows and pages of steam tables.
#include "printed_table.hpp"
#include "steam_table.hpp"
#include "table_writers.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <ktl/table.hpp>
#include <limits>
#include <sstream>

namespace {

using program::UnitSystem;

constexpr double inf = std::numeric_limits<double>::infinity();

template <class Values>
std::vector<double> all(const Values& values) {
    std::vector<double> out;
    for (std::size_t k = 0; k < values.size(); ++k) out.push_back(values[k]);
    return out;
}

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

/// Half a unit of the last digit that the text has.
double half_digit(const std::string& text) {
    const auto point = text.find('.');
    if (point == std::string::npos) { // zeros at the end may be rounded places
        const auto last = text.find_last_not_of('0');
        return 0.5 * std::pow(10.0, static_cast<double>(text.size() - 1 - last));
    }
    return 0.5 * std::pow(10.0, -static_cast<double>(text.size() - 1 - point));
}

void expect_rounded(const std::string& text, double value) {
    ASSERT_FALSE(text.empty());
    EXPECT_LE(std::fabs(std::stod(text) - value), half_digit(text) * (1.0 + 1.0e-9) + 1.0e-12) << text;
}

TEST(TableValues, StepsEndOnBothValuesAndAreDecimal) {
    struct Case {
        double from, to, step;
        std::vector<double> expected;
    };
    for (const Case& c :
         {Case{0.01, 3.5, 1, {0.01, 1, 2, 3, 3.5}}, Case{5, 95, 30, {5, 35, 65, 95}},
          Case{5, 100, 30, {5, 30, 60, 90, 100}}, Case{0.1, 0.7, 0.1, {0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7}},
          Case{0, 1, 0.3, {0, 0.3, 0.6, 0.9, 1}}, Case{-10, 10, 7, {-10, -7, 0, 7, 10}}, Case{20, 20, 5, {20}},
          Case{1, 2, 50, {1, 2}}, Case{273.16, 275.16, 1, {273.16, 274.16, 275.16}}})
        EXPECT_EQ(all(ktl::table::Steps(c.from, c.to, c.step)), c.expected) << c.from << ":" << c.to << ":" << c.step;
    const auto line = all(ktl::table::Steps(0.01, 374.15, 1.0));
    ASSERT_EQ(line.size(), 376U);
    EXPECT_EQ(line[1], 1.0);
    EXPECT_EQ(line[374], 374.0);
    EXPECT_EQ(line[375], 374.15);
    for (const Case& c :
         {Case{0, 1, 0, {}}, Case{0, 1, -1, {}}, Case{1, 0, 1, {}}, Case{0, 1, NAN, {}}, Case{NAN, 1, 1, {}},
          Case{0, inf, 1, {}}, Case{-inf, 0, 1, {}}, Case{0, 1, 1e-9, {}}, Case{0, 1, 1e-320, {}}})
        EXPECT_EQ(ktl::table::Steps(c.from, c.to, c.step).size(), 0U) << c.from << ":" << c.to << ":" << c.step;
    EXPECT_EQ(ktl::table::Steps(0, 9999, 1).size(), ktl::table::most_rows);
    EXPECT_EQ(ktl::table::Steps(0, 10000, 1).size(), 0U);
}

TEST(TableValues, PressuresGrowByAboutATenth) {
    EXPECT_EQ(all(ktl::table::Pressures(0.085, 0.12)), (std::vector<double>{0.085, 0.09, 0.1, 0.11, 0.12}));
    EXPECT_EQ(all(ktl::table::Pressures(9, 9)), std::vector<double>{9});
    EXPECT_EQ(all(ktl::table::Pressures(8, 10)), (std::vector<double>{8, 9, 10}));
    const auto line = all(ktl::table::Pressures(0.006112444, 221.2));
    EXPECT_EQ(line.back(), 221.2);
    for (std::size_t k = 1; k < line.size(); ++k) {
        EXPECT_LT(line[k - 1], line[k]);
        EXPECT_LT(line[k] / line[k - 1], 1.21);
    }
    EXPECT_EQ(std::count(line.begin(), line.end(), 0.3), 1); // the nearest number, not 3 * 0.1
    for (const auto& [from, to] : {std::pair{0.0, 1.0}, {-1.0, 1.0}, {2.0, 1.0}, {NAN, 1.0}, {1.0, inf}, {1e-300, 1.0}})
        EXPECT_EQ(ktl::table::Pressures(from, to).size(), 0U) << from << " " << to;
}

TEST(TableRows, SaturationIsThatOfTheLibraryAtThePrintedDigits) {
    const std::vector<double> t{0.01, 20, 100, 349.99, 350, 350.01, 374, 374.15};
    const auto table = printed(program::saturation_table(program::unit_system("bar"), false, t));
    ASSERT_EQ(table.sheets.size(), 1U);
    ASSERT_EQ(table.sheets[0].rows.size(), t.size());
    for (std::size_t k = 0; k < t.size(); ++k) {
        const ktl::Saturation at = ktl::saturation_at_temperature(t[k]);
        const double expected[] = {t[k],          at.p,          at.liquid.v(),
                                   at.vapour.v(), at.liquid.h(), at.vapour.h() - at.liquid.h(),
                                   at.vapour.h(), at.liquid.s(), at.vapour.s()};
        const auto& cells = table.sheets[0].rows[k].cells;
        ASSERT_EQ(cells.size(), std::size(expected));
        for (std::size_t i = 0; i < cells.size(); ++i) expect_rounded(cells[i], expected[i]);
    }
    EXPECT_EQ(table.sheets[0].rows[0].cells[7], "0.0000"); // no -0.0000
    EXPECT_EQ(table.sheets[0].rows[2].cells, (std::vector<std::string>{"100", "1.0133", "0.0010437", "1.6730", "419.06",
                                                                       "2256.9", "2676.0", "1.3069", "7.3554"}));
}

TEST(TableRows, HeatOfEvaporationIsExactlyZeroAtTheCriticalPoint) {
    struct Case {
        const char* units;
        double t, p;
    };
    for (const Case& c : {Case{"bar", 374.15, 221.2}, Case{"si", 647.3, 22.12e6}, Case{"mpa", 647.3, 22.12},
                          Case{"us", 705.47, 3208.234759}}) {
        const UnitSystem& units = program::unit_system(c.units);
        for (const bool by_pressure : {false, true}) {
            const double value = by_pressure ? c.p : c.t;
            const auto row = program::saturation_table(units, by_pressure, {&value, 1}).rows.at(0);
            EXPECT_EQ(row.evaporation, 0.0) << c.units;
            EXPECT_EQ(row.v_water, row.v_steam) << c.units;
            EXPECT_NEAR(row.t, c.t, 1e-9 * c.t) << c.units;
        }
    }
}

TEST(TableRows, SinglePhaseIsThatOfTheLibraryInEachSystemOfUnits) {
    const double p[] = {1, 165.35, 221.2, 300, 1000}, t[] = {0.01, 100, 349, 350, 351, 374.15, 800};
    for (const char* name : {"bar", "si", "mpa", "us"}) {
        const UnitSystem& units = program::unit_system(name);
        std::vector<double> own_p, own_t;
        for (const double x : p) own_p.push_back(units.unit_of(ktl::Property::p).from_ktl(x, 0.0));
        for (const double x : t) own_t.push_back(units.unit_of(ktl::Property::t).from_ktl(x, 0.0));
        const auto table = printed(program::single_table(units, own_p, own_t), 5);
        for (std::size_t i = 0; i < std::size(p); ++i) {
            for (std::size_t k = 0; k < std::size(t); ++k) {
                const ktl::State state = ktl::state(ktl::Pair::pt, p[i], t[k]);
                const ktl::Phase& water = state.liquid(); // saturated water represents an undetermined state
                const bool open = state.status() == ktl::Status::undetermined;
                const auto* cells = &table.sheets.at(0).rows.at(k).cells.at(1 + 4 * i);
                expect_rounded(cells[0], units.unit_of(ktl::Property::v).from_ktl(open ? water.v() : state.v(), 0.0));
                expect_rounded(cells[1], units.unit_of(ktl::Property::h).from_ktl(open ? water.h() : state.h(), 0.0));
                expect_rounded(cells[2], units.unit_of(ktl::Property::s).from_ktl(open ? water.s() : state.s(), 0.0));
                if (open)
                    EXPECT_EQ(cells[3], "inf"); // the critical point
                else
                    expect_rounded(cells[3], units.unit_of(ktl::Property::s).from_ktl(state.cp(), 0.0));
            }
        }
    }
}

TEST(TableRows, TheRuleIsWhereTheIsobarCrossesTheSaturationLine) {
    struct Case {
        double p;
        std::vector<double> t;
        std::size_t rule; ///< the row below it; 0 without one
    };
    const double at_120 = ktl::saturation_pressure(120);
    for (const Case& c :
         {Case{1, {98, 99, 100, 101}, 2}, Case{1, {99.63, 99.64}, 1}, Case{1, {10, 20}, 0}, Case{1, {100, 200}, 0},
          Case{165.3, {349, 350, 351}, 1}, Case{165.36, {349, 350, 350.01, 351}, 2}, Case{200, {350, 365, 366, 380}, 2},
          Case{221.19, {374, 374.14, 374.15}, 2}, Case{221.2, {374, 374.15, 374.16}, 2},
          Case{222, {374, 374.15, 375}, 0}, Case{at_120, {110, 120, 130}, 2}}) {
        const auto table = printed(program::single_table(program::unit_system("bar"), {&c.p, 1}, c.t), 1);
        std::vector<std::size_t> rules;
        for (std::size_t k = 0; k < c.t.size(); ++k)
            if (!table.sheets[0].rows[k].rules.empty()) rules.push_back(k);
        EXPECT_EQ(rules, c.rule == 0 ? std::vector<std::size_t>{} : std::vector<std::size_t>{c.rule}) << c.p;
        EXPECT_EQ(table.notes.size(), c.rule == 0 ? 0U : 1U) << c.p;
        EXPECT_EQ(table.sheets[0].saturation.size(), c.p < 221.3 ? 2U : 0U) << c.p;
    }
}

TEST(TablePages, RoundedToSignificantDigitsAndDecimals) {
    struct Case {
        double value;
        program::Rounding rounding;
        const char* text;
    };
    for (const Case& c :
         {Case{1.0133, {5, 7}, "1.0133"}, Case{99.9996, {5, 7}, "100.00"}, Case{0.0061124440, {5, 7}, "0.0061124"},
          Case{-4.9e-13, {6, 4}, "0.0000"}, Case{2676.0088, {5, 2}, "2676.0"}, Case{999.996, {5, 2}, "1000.0"},
          Case{419.0647, {5, 2}, "419.06"}, Case{2676008.8, {5, 0}, "2676000"}, Case{0.0, {5, 2}, "0.00"},
          Case{-12.345678, {5, 7}, "-12.346"}, Case{inf, {5, 3}, "inf"}, Case{NAN, {5, 3}, "-"}})
        EXPECT_EQ(program::rounded(c.value, c.rounding), c.text);
}

TEST(TablePages, EveryPageRepeatsTheHeadingsAndFitsATerminal) {
    for (const char* name : {"bar", "si", "mpa", "us"}) {
        const UnitSystem& units = program::unit_system(name);
        const double first = units.unit_of(ktl::Property::p).from_ktl(0.006112444, 0.0),
                     last = units.unit_of(ktl::Property::p).from_ktl(221.2, 0.0);
        const auto values = all(ktl::table::Pressures(first, last));
        const auto table = printed(program::saturation_table(units, true, values));
        const std::string text = text_pages(table, 20);
        std::istringstream in(text);
        std::vector<std::string> pages;
        for (std::string page; std::getline(in, page, '\f');) pages.push_back(page);
        ASSERT_EQ(pages.size(), (values.size() + 19) / 20);
        const auto heading = lines_of(pages[0]);
        std::size_t rows = 0;
        for (std::size_t k = 0; k < pages.size(); ++k) {
            auto lines = lines_of(pages[k]);
            EXPECT_TRUE(lines.at(0).ends_with("page " + std::to_string(k + 1) + " of " + std::to_string(pages.size())));
            for (std::size_t i = 1; i < 6; ++i) EXPECT_EQ(lines.at(i), heading.at(i));
            rows += static_cast<std::size_t>(std::count_if(lines.begin() + 6, lines.end(), [](const std::string& line) {
                return line.find_first_of("0123456789") == line.find_first_not_of(' ') && !line.empty();
            }));
            for (const std::string& line : lines) EXPECT_LE(line.size(), 80U) << line;
        }
        EXPECT_EQ(rows, values.size());
    }
}

TEST(TablePages, DecimalPointsAreAligned) {
    const double p[] = {1, 5}, t[] = {0.01, 20, 99.5, 100, 101, 200};
    const auto table = printed(program::single_table(program::unit_system("bar"), p, t), 2);
    const auto rooms = program::rooms(table.sheets[0]);
    std::vector<std::string> rows;
    for (const std::string& line : lines_of(text_pages(table, 45)))
        if (line.find("0.0010") != std::string::npos || line.starts_with("200")) rows.push_back(line);
    ASSERT_EQ(rows.size(), 7U);                  // water of the heading, five rows with water, the last one
    const std::size_t last = rows[0].rfind('.'); // of the last column
    for (const std::string& row : rows) EXPECT_EQ(row.rfind('.'), last) << row;
    EXPECT_EQ(rooms[0].width, 6U);
}

TEST(TablePages, CsvParsesBackToTheSameRows) {
    const double p[] = {1, 300}, t[] = {99, 100, 500};
    const auto table = program::single_table(program::unit_system("bar"), p, t);
    const auto lines = lines_of(written(program::report(table), "csv"));
    ASSERT_EQ(lines.size(), 1U + 2 + 2 * 3); // titles, saturated water and steam of one isobar, the rows
    EXPECT_EQ(lines[0], "P_bar,T_degC,phase,V_m3/kg,H_kJ/kg,S_kJ/(kg K),CP_kJ/(kg K)");
    const char* phases[] = {"water", "saturated water", "saturated steam", "steam",
                            "steam", "supercritical",   "supercritical",   "supercritical"};
    for (std::size_t k = 1; k < lines.size(); ++k) {
        std::vector<std::string> fields;
        std::istringstream in(lines[k]);
        for (std::string field; std::getline(in, field, ',');) fields.push_back(field);
        ASSERT_EQ(fields.size(), 7U);
        EXPECT_EQ(fields[2], phases[k - 1]);
        if (fields[2].starts_with("saturated")) continue;
        const ktl::State state = ktl::state(ktl::Pair::pt, std::stod(fields[0]), std::stod(fields[1]));
        EXPECT_NEAR(std::stod(fields[3]) / state.v(), 1.0, 5e-10);
        EXPECT_NEAR(std::stod(fields[4]) / state.h(), 1.0, 5e-10);
        EXPECT_NEAR(std::stod(fields[5]) / state.s(), 1.0, 5e-10);
        EXPECT_NEAR(std::stod(fields[6]) / state.cp(), 1.0, 5e-10);
    }
}

TEST(TablePages, HtmlHasEveryCellAndRepeatsHeadings) {
    const double p[] = {1, 5, 10, 300}, t[] = {20, 120, 200};
    const auto table = printed(program::single_table(program::unit_system("us"), std::vector<double>{14.5, 200, 4000},
                                                     std::vector<double>{100, 300, 700}),
                               3);
    const std::string html = html_page(table);
    const auto count = [&](std::string_view what) {
        std::size_t found = 0;
        for (std::size_t at = html.find(what); at != std::string::npos; at = html.find(what, at + 1)) ++found;
        return found;
    };
    EXPECT_EQ(count("<td"), 3U * (1 + 3 * 4));
    EXPECT_EQ(count("rule\""), 2U * 4);
    EXPECT_EQ(count("<thead>"), 1U);
    EXPECT_NE(html.find("table-header-group"), std::string::npos);
    const auto bars = html_page(printed(program::single_table(program::unit_system("bar"), p, t), 3));
    EXPECT_NE(bars.find("above the critical pressure"), std::string::npos);
}

} // namespace
