#include "printed_table.hpp"

#include "number.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace program {

namespace {

using Id = ktl::Property;

/// Digits of given values, enough for the limits of the range.
constexpr int given_digits = 9;

/// Five digits, and no more than the last place that the sub-regions agree to if they meet (7 decimals of v in m3/kg, 1 of h
/// in kJ/kg, 4 of s in kJ/(kg K)); h below 1000 kJ/kg has a second decimal for differences.
Rounding rounding_of(const UnitSystem& units, Id id) {
    const double one = units.unit_of(id).to_ktl(1.0, 0.0); // ktl's units in one of these
    switch (id) {
    case Id::p: return {5, one < 0.001 ? 2 : one < 0.5 ? 6 : one < 5.0 ? 7 : 8};
    case Id::t: return {7, 2};
    case Id::v: return {5, one < 0.5 ? 6 : 7};
    case Id::h: return {5, one < 0.1 ? 0 : 2};
    case Id::s: return {6, one < 0.1 ? 1 : 4};
    default: return {5, one < 0.1 ? 0 : one > 2.0 ? 4 : 3};
    }
}

std::string given(double value) {
    NumberText number;
    return std::string(number(value, given_digits));
}

std::string source() {
    return std::string("1967 IFC Formulation for Industrial Use (IFC-67), ktl ") + ktl::build_info().version;
}

/// Rounds numbers of a system of units.
struct Printer {
    const UnitSystem& units;
    [[nodiscard]] std::string operator()(Id id, double value) const { return rounded(value, rounding_of(units, id)); }
    [[nodiscard]] std::string unit(Id id) const { return heading(units.unit_of(id)); }
};

constexpr const char* water_note = "' saturated water, \" saturated steam, r heat of evaporation h\" - h'";
constexpr const char* rule_note = "The rule of each isobar is its saturation line: water above it, steam below it.";

/// The cells of a phase, without t.
void add_cells(std::vector<std::string>& cells, const Printer& print, const PhaseRow& row) {
    cells.insert(cells.end(), {print(Id::v, row.v), print(Id::h, row.h), print(Id::s, row.s), print(Id::cp, row.cp)});
}
constexpr std::size_t isobar_columns = 4;

PrintedGroup group_of(const Isobar& isobar, const Printer& print) {
    const std::string line = isobar.has_saturation()
                                 ? "ts = " + print(Id::t, isobar.t_saturation) + " " + print.unit(Id::t)
                                 : std::string("above the critical pressure");
    return {{"p = " + given(isobar.p) + " " + print.unit(Id::p), line},
            {"v", "h", "s", "cp"},
            {{print.unit(Id::v), 1}, {print.unit(Id::h), 1}, {print.unit(Id::s), 2}}};
}

/// The sheet of some neighbouring isobars.
Sheet sheet_of(std::span<const Isobar> isobars, const Printer& print) {
    Sheet sheet;
    sheet.groups.push_back({{}, {"t"}, {{print.unit(Id::t), 1}}});
    PrintedRow water{{"water"}, {}}, steam{{"steam"}, {}};
    bool any_saturation = false;
    for (const Isobar& isobar : isobars) {
        sheet.groups.push_back(group_of(isobar, print));
        any_saturation = any_saturation || isobar.has_saturation();
        if (isobar.has_saturation()) {
            add_cells(water.cells, print, isobar.water);
            add_cells(steam.cells, print, isobar.steam);
        } else {
            for (PrintedRow* row : {&water, &steam}) row->cells.resize(row->cells.size() + isobar_columns);
        }
    }
    if (any_saturation) sheet.saturation = {water, steam};
    for (std::size_t k = 0; k < isobars.front().rows.size(); ++k) {
        PrintedRow row{{given(isobars.front().rows[k].t)}, {}};
        for (std::size_t i = 0; i < isobars.size(); ++i) {
            add_cells(row.cells, print, isobars[i].rows[k]);
            if (k != 0 && isobars[i].water_rows == k) row.rules.push_back(i + 1);
        }
        sheet.rows.push_back(std::move(row));
    }
    return sheet;
}

/// The property with its unit, as files name it.
std::string column(std::string_view code, const UnitSystem& units, Id id) {
    return std::string(code) + "_" + heading(units.unit_of(id));
}

Cell exact(double value) { return Cell::significant(value, result_digits); }

} // namespace

std::string rounded(double value, Rounding rounding) {
    if (!std::isfinite(value)) return std::isinf(value) ? "inf" : "-";
    std::array<char, 64> text;
    char* const end = text.data() + text.size();
    int decimals = rounding.decimals;
    if (value != 0.0) {
        *std::to_chars(text.data(), end, value, std::chars_format::scientific, rounding.significant - 1).ptr = '\0';
        const int power = std::atoi(std::strchr(text.data(), 'e') + 1); // of ten, after rounding
        decimals = std::min(decimals, rounding.significant - 1 - power);
        if (decimals < 0) value = std::strtod(text.data(), nullptr); // whole tens, hundreds ..
    }
    const auto out = std::to_chars(text.data(), end, value, std::chars_format::fixed, std::max(decimals, 0));
    std::string number(text.data(), out.ptr);
    const bool zero = number.find_first_not_of("-0.") == std::string::npos;
    return zero && number.front() == '-' ? number.substr(1) : number;
}

PrintedTable printed(const SaturationTable& table) {
    const Printer print{*table.units};
    const PrintedUnit t{print.unit(Id::t), 1}, p{print.unit(Id::p), 1};
    PrintedGroup properties{{},
                            {"v'", "v\"", "h'", "r", "h\"", "s'", "s\""},
                            {{print.unit(Id::v), 2}, {print.unit(Id::h), 3}, {print.unit(Id::s), 2}}};
    Sheet sheet;
    sheet.groups = {{{}, {table.by_pressure ? "p" : "t"}, {table.by_pressure ? p : t}},
                    {{}, {table.by_pressure ? "t" : "p"}, {table.by_pressure ? t : p}},
                    properties};
    for (const SaturationRow& row : table.rows) {
        const std::string first = given(table.by_pressure ? row.p : row.t);
        const std::string second = table.by_pressure ? print(Id::t, row.t) : print(Id::p, row.p);
        sheet.rows.push_back({{first, second, print(Id::v, row.v_water), print(Id::v, row.v_steam),
                               print(Id::h, row.h_water), print(Id::h, row.evaporation), print(Id::h, row.h_steam),
                               print(Id::s, row.s_water), print(Id::s, row.s_steam)},
                              {}});
    }
    return {std::string("Saturated water and steam, by ") + (table.by_pressure ? "pressure" : "temperature"),
            source(),
            {std::move(sheet)},
            {water_note}};
}

PrintedTable printed(const SingleTable& table, std::size_t isobars) {
    const Printer print{*table.units};
    PrintedTable out{"Water and steam, by pressure and temperature", source(), {}, {}};
    const std::span<const Isobar> all = table.isobars;
    for (std::size_t begin = 0; begin < all.size(); begin += isobars)
        out.sheets.push_back(sheet_of(all.subspan(begin, std::min(isobars, all.size() - begin)), print));
    const bool any_rule = std::any_of(all.begin(), all.end(), [](const Isobar& isobar) {
        return isobar.water_rows != 0 && isobar.water_rows < isobar.rows.size();
    });
    if (any_rule) out.notes.emplace_back(rule_note);
    return out;
}

Report report(const SaturationTable& table) {
    const UnitSystem& units = *table.units;
    ReportTable out{"saturation", {}, {}, {}};
    out.columns = {column("T", units, Id::t),       column("P", units, Id::p),       column("V_water", units, Id::v),
                   column("V_steam", units, Id::v), column("H_water", units, Id::h), column("R", units, Id::h),
                   column("H_steam", units, Id::h), column("S_water", units, Id::s), column("S_steam", units, Id::s)};
    for (const SaturationRow& row : table.rows)
        out.rows.push_back({exact(row.t), exact(row.p), exact(row.v_water), exact(row.v_steam), exact(row.h_water),
                            exact(row.evaporation), exact(row.h_steam), exact(row.s_water), exact(row.s_steam)});
    return {printed(SaturationTable{&units, table.by_pressure, {}}).title + ". " + source(), {std::move(out)}, {}};
}

Report report(const SingleTable& table) {
    const UnitSystem& units = *table.units;
    ReportTable out{"single", {}, {}, {}};
    out.columns = {column("P", units, Id::p),  column("T", units, Id::t), "phase",
                   column("V", units, Id::v),  column("H", units, Id::h), column("S", units, Id::s),
                   column("CP", units, Id::cp)};
    for (const Isobar& isobar : table.isobars) {
        const auto add = [&](const PhaseRow& row, const char* phase) {
            out.rows.push_back(
                {exact(isobar.p), exact(row.t), phase, exact(row.v), exact(row.h), exact(row.s), exact(row.cp)});
        };
        const auto add_saturation = [&] {
            add(isobar.water, "saturated water");
            add(isobar.steam, "saturated steam");
        };
        for (std::size_t k = 0; k < isobar.rows.size(); ++k) {
            if (isobar.has_saturation() && k == isobar.water_rows) add_saturation();
            const char* side = k < isobar.water_rows ? "water" : "steam";
            add(isobar.rows[k], isobar.has_saturation() ? side : "supercritical");
        }
        if (isobar.has_saturation() && isobar.water_rows == isobar.rows.size()) add_saturation();
    }
    return {printed(SingleTable{&units, {}}, 1).title + ". " + source(), {std::move(out)}, {}};
}

} // namespace program
