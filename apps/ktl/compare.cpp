#include "compare.hpp"

#include "number.hpp"

#include <algorithm>
#include <cmath>
#include <ktl/if97.hpp>

namespace program {

ktl::State state_after(Formulation formulation, const Pair& pair, double first, double second, Scale scale) {
    if (formulation == Formulation::if97) return ktl::if97::state(pair.id, first, second);
    if (pair.first == ktl::Property::t) first = on_scale(scale, first);
    if (pair.second == ktl::Property::t) second = on_scale(scale, second);
    return ktl::state(pair.id, first, second);
}

std::string reason_after(Formulation formulation, ktl::Status status) {
    const bool newer = formulation == Formulation::if97;
    const char* sentence = newer ? ktl::if97::sentence(status) : ktl::sentence(status);
    return std::string(formulation_names[static_cast<std::size_t>(formulation)]) + ": " + sentence;
}

bool same_phase(const ktl::State& a, const ktl::State& b) {
    const auto is_water = [](const ktl::State& s) {
        return s.region() == ktl::Region::water || s.region() == ktl::Region::near_critical_water;
    };
    constexpr double supercritical = 221.2; // bar, the greater one of the critical pressures
    return a.two_phase() || b.two_phase() || a.p() > supercritical || is_water(a) == is_water(b);
}

double value_of(const Property& property, const ktl::State& state) {
    if (property.surface_tension) return state.two_phase() ? ktl::surface_tension(state.t()) : std::nan("");
    if (const auto& d = property.derivative) return ktl::derivative(state, d->of, d->by, d->at_constant);
    return property.factor * state.get(property.id);
}

std::vector<double> number_list(std::string_view option, std::string_view text) {
    constexpr std::size_t most = 1000;
    const auto fail = [&](const std::string& what) { throw UsageError(std::string(option) + ": " + what); };
    std::vector<double> numbers;
    const auto number = [&](std::string_view part) {
        const auto value = parse_number(part);
        if (!value || !std::isfinite(*value)) fail(in_quotes(part) + " is not a number");
        return value.value_or(0.0);
    };
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(',', begin), text.size());
        const std::string_view part = text.substr(begin, end - begin);
        begin = end + 1;
        const std::size_t colon = part.find(':');
        if (colon == std::string_view::npos) {
            numbers.push_back(number(part));
        } else {
            const std::size_t second = part.find(':', colon + 1);
            if (second == std::string_view::npos) fail(in_quotes(part) + " should be from:to:step");
            const double from = number(part.substr(0, colon));
            const double to = number(part.substr(colon + 1, second - colon - 1));
            const double step = number(part.substr(second + 1));
            const double steps = (to - from) / step;
            if (!(steps >= 0.0)) fail(in_quotes(part) + " does not lead from the first number to the second");
            if (!(steps < static_cast<double>(most)))
                fail(in_quotes(part) + " has more than " + std::to_string(most) + " numbers");
            for (std::size_t k = 0; k <= static_cast<std::size_t>(steps + 1.0e-9); ++k)
                numbers.push_back(from + static_cast<double>(k) * step);
        }
        if (numbers.size() > most) fail("more than " + std::to_string(most) + " numbers");
    }
    return numbers;
}

namespace {

/// What a map shows of a property: the difference, or the relative one in percent.
struct MapKind {
    std::string_view name;
    ktl::Property id;
    bool relative;
    std::string_view unit;
    int decimals;
};
constexpr std::array map_kinds{
    MapKind{"v", ktl::Property::v, true, "%", 3},
    MapKind{"h", ktl::Property::h, false, "kJ/kg", 2},
    MapKind{"s", ktl::Property::s, false, "kJ/(kg K)", 4},
    MapKind{"cp", ktl::Property::cp, true, "%", 2},
};

std::string number_text(double x) {
    NumberText number;
    return std::string(number(x, table_digits));
}

constexpr const char* map_note =
    "Differences are IF97 less 1967. \"phase\": water after one formulation, steam after the other. "
    "\"-\": no state after one of them.";

} // namespace

Comparison compare_map(std::string_view property, const std::vector<double>& p, const std::vector<double>& t,
                       Scale scale) {
    const auto* kind = std::find_if(map_kinds.begin(), map_kinds.end(),
                                    [&](const MapKind& k) { return k.name == lower_case(property); });
    if (kind == map_kinds.end()) throw UsageError("no map of " + in_quotes(property) + "; there are v, h, s and cp");
    Comparison out;
    const std::string what = std::string(kind->relative ? "Relative difference of " : "Difference of ") +
                             std::string(kind->name) + ", " + std::string(kind->unit) +
                             ", over pressure (bar) and temperature (degC)";
    out.report.title = what;
    ReportTable table{"map", what, {"p_bar"}, {}};
    for (const double column : t) table.columns.push_back(number_text(column));
    const Pair& pt = *find_pair("pt");
    for (const double pressure : p) {
        std::vector<Cell> row{Cell::significant(pressure, table_digits)};
        for (const double temperature : t) {
            const ktl::State older = state_after(Formulation::ifc67, pt, pressure, temperature, scale);
            const ktl::State newer = state_after(Formulation::if97, pt, pressure, temperature, scale);
            const double a = older.get(kind->id);
            const double b = newer.get(kind->id);
            if (!std::isfinite(a) || !std::isfinite(b))
                row.emplace_back("-");
            else if (!same_phase(older, newer))
                row.emplace_back("phase");
            else
                row.push_back(Cell::decimals(kind->relative ? 100.0 * (b - a) / std::fabs(a) : b - a, kind->decimals));
        }
        table.rows.push_back(std::move(row));
    }
    out.report.tables.push_back(std::move(table));
    out.report.notes.emplace_back(map_note);
    return out;
}

Comparison compare_saturation(const std::vector<double>& t, Scale scale) {
    Comparison out;
    out.report.title = "Saturation line: IF97 less 1967";
    ReportTable table{
        "saturation", "Saturation line at temperatures of the ITS-90: differences are IF97 less 1967", {}, {}};
    table.columns = {"T_degC",         "P_1967_bar",     "P_IF97_bar",    "P_%",
                     "V_water_%",      "V_steam_%",      "H_water_kJ/kg", "H_steam_kJ/kg",
                     "S_water_kJ/kgK", "S_steam_kJ/kgK", "error"};
    const Pair& tx = *find_pair("tx");
    for (const double temperature : t) {
        const ktl::State older = state_after(Formulation::ifc67, tx, temperature, 0.0, scale);
        const ktl::State newer = state_after(Formulation::if97, tx, temperature, 0.0, scale);
        const auto percent = [](double a, double b) { return 100.0 * (b - a) / a; };
        std::string error;
        if (!older) error = reason_after(Formulation::ifc67, older.status());
        if (!newer) error += (error.empty() ? "" : "; ") + reason_after(Formulation::if97, newer.status());
        out.complete = out.complete && error.empty();
        const ktl::Phase& w = older.liquid();
        const ktl::Phase& g = older.vapour();
        const ktl::Phase& w97 = newer.liquid();
        const ktl::Phase& g97 = newer.vapour();
        table.rows.push_back({Cell::significant(temperature, table_digits), Cell::significant(older.p(), table_digits),
                              Cell::significant(newer.p(), table_digits),
                              Cell::decimals(percent(older.p(), newer.p()), 4),
                              Cell::decimals(percent(w.v(), w97.v()), 4), Cell::decimals(percent(g.v(), g97.v()), 4),
                              Cell::decimals(w97.h() - w.h(), 3), Cell::decimals(g97.h() - g.h(), 3),
                              Cell::decimals(w97.s() - w.s(), 5), Cell::decimals(g97.s() - g.s(), 5), error});
    }
    out.report.tables.push_back(std::move(table));
    return out;
}

} // namespace program
