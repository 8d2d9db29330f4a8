// A plant test after both formulations: its points, its sections, output and heat rate, and what each point does to them.
#include "compare.hpp"

#include "number.hpp"
#include "test_file.hpp"

#include <algorithm>
#include <cmath>
#include <ktl/if97.hpp>

namespace program {

namespace {

constexpr std::array formulations{Formulation::ifc67, Formulation::if97};

template <class T>
using Both = std::array<T, 2>; ///< after 1967 and IF97

/// A section after one formulation; not-a-number if a state is missing.
struct Expansion {
    double drop = std::nan("");       ///< h of the inlet less h of the outlet
    double isentropic = std::nan(""); ///< the same along the isentrope of the inlet
    double efficiency = std::nan("");
    double inlet = std::nan(""), outlet = std::nan(""); ///< h
};

/// All results after one formulation.
struct Results {
    std::vector<ktl::State> points;
    std::vector<Expansion> sections;
    double output = 0.0, heat = 0.0; ///< kW
};

double signed_flow(Crossing crossing, const TestPoint& point, Crossing positive) {
    return crossing == Crossing::none ? 0.0 : (crossing == positive ? 1.0 : -1.0) * *point.flow;
}
/// Flow by which the enthalpy of a point enters the output, and the heat taken up.
double output_flow(const TestPoint& point) { return signed_flow(point.turbine, point, Crossing::in); }
double heat_flow(const TestPoint& point) { return signed_flow(point.boiler, point, Crossing::out); }

/// Both states have a given value to 1e-10 of it only, which is no difference.
double difference_of(double older, double newer) {
    constexpr double reproduced = 1.0e-9;
    return std::fabs(newer - older) <= reproduced * std::fabs(older) ? 0.0 : newer - older;
}

class TestComparison {
public:
    TestComparison(const TestFile& file, const Properties& properties, Scale scale)
        : file_(file), properties_(properties) {
        for (const Formulation f : formulations) results_[static_cast<std::size_t>(f)] = results_after(f, scale);
    }

    Comparison comparison() {
        out_.report.title = "Test after the 1967 formulation and IF97";
        add_points();
        if (!file_.sections.empty()) add_sections();
        const auto crosses = [](const TestPoint& p) {
            return p.turbine != Crossing::none || p.boiler != Crossing::none;
        };
        if (std::any_of(file_.points.begin(), file_.points.end(), crosses)) add_totals();
        return std::move(out_);
    }

private:
    Results results_after(Formulation f, Scale scale) const {
        Results r;
        for (const TestPoint& point : file_.points)
            r.points.push_back(point.pair != nullptr ? state_after(f, *point.pair, point.first, point.second, scale)
                                                     : ktl::State());
        for (const TestSection& section : file_.sections) {
            Expansion e;
            const ktl::State& inlet = r.points[section.inlet];
            ktl::State& outlet = r.points[section.outlet];
            const TestPoint& end = file_.points[section.outlet];
            const double p = end.pair == nullptr ? end.first : outlet.p();
            const ktl::State isentropic = state_after(f, *find_pair("ps"), p, inlet.s(), Scale::its90);
            e.inlet = inlet.h();
            e.isentropic = inlet.h() - isentropic.h();
            if (section.efficiency) {
                const double h = inlet.h() - *section.efficiency * e.isentropic;
                outlet = state_after(f, *find_pair("ph"), p, h, Scale::its90);
            }
            e.outlet = outlet.h();
            e.drop = e.inlet - e.outlet;
            e.efficiency = e.drop / e.isentropic;
            r.sections.push_back(e);
        }
        for (std::size_t i = 0; i < file_.points.size(); ++i) {
            const double m_turbine = output_flow(file_.points[i]);
            const double m_boiler = heat_flow(file_.points[i]);
            if (m_turbine != 0.0) r.output += m_turbine * r.points[i].h();
            if (m_boiler != 0.0) r.heat += m_boiler * r.points[i].h();
        }
        return r;
    }

    [[nodiscard]] std::string reason(std::size_t point) const {
        std::string text;
        for (const Formulation f : formulations) {
            const ktl::State& state = after(f).points[point];
            if (!state) text += (text.empty() ? "" : "; ") + reason_after(f, state.status());
        }
        return text;
    }

    void add_points() {
        ReportTable table{"points", "Points: properties after each formulation", {}, {}};
        table.columns = {"point", "property", "unit", "1967", "IF97", "difference", "relative_%", "remark"};
        for (std::size_t i = 0; i < file_.points.size(); ++i) {
            const std::string error = reason(i);
            out_.complete = out_.complete && error.empty();
            const ktl::State& older = after(Formulation::ifc67).points[i];
            const ktl::State& newer = after(Formulation::if97).points[i];
            const bool comparable = error.empty() && same_phase(older, newer);
            for (const Property* property : properties_) {
                const double a = value_of(*property, older);
                const double b = value_of(*property, newer);
                if (error.empty() && !std::isfinite(a) && !std::isfinite(b)) continue;
                const double difference = comparable ? difference_of(a, b) : std::nan("");
                table.rows.push_back(
                    {file_.points[i].name, property->code, property->unit, Cell::significant(a, table_digits),
                     Cell::significant(b, table_digits), Cell::significant(difference, 4),
                     Cell::decimals(100.0 * difference / std::fabs(a), 4),
                     error.empty() && !comparable ? "water after one formulation, steam after the other" : error});
            }
        }
        out_.report.tables.push_back(std::move(table));
    }

    /// The change of an efficiency N/D is dN/D97 - N67 dD/(D97 D67), of which each end of the section has its share.
    void add_sections() {
        ReportTable table{"sections", "Sections: isentropic efficiency, and what inlet and outlet do to it", {}, {}};
        table.columns = {"section",  "inlet",     "outlet",          "1967_%",          "IF97_%", "difference",
                         "by_inlet", "by_outlet", "drop_1967_kJ/kg", "drop_IF97_kJ/kg", "remark"};
        for (std::size_t i = 0; i < file_.sections.size(); ++i) {
            const TestSection& section = file_.sections[i];
            const Expansion& older = after(Formulation::ifc67).sections[i];
            const Expansion& newer = after(Formulation::if97).sections[i];
            const double by_outlet = -100.0 * (newer.outlet - older.outlet) / newer.isentropic;
            const double by_inlet =
                100.0 * (newer.inlet - older.inlet) / newer.isentropic -
                100.0 * older.drop * (newer.isentropic - older.isentropic) / (newer.isentropic * older.isentropic);
            const bool given = section.efficiency.has_value();
            const auto share = [&](double x) { return Cell::decimals(given ? std::nan("") : x, 3); };
            const bool found = std::isfinite(older.drop) && std::isfinite(newer.drop);
            out_.complete = out_.complete && found;
            table.rows.push_back({section.name, file_.points[section.inlet].name, file_.points[section.outlet].name,
                                  Cell::decimals(100.0 * older.efficiency, 3),
                                  Cell::decimals(100.0 * newer.efficiency, 3),
                                  Cell::decimals(100.0 * (newer.efficiency - older.efficiency), 3), share(by_inlet),
                                  share(by_outlet), Cell::decimals(older.drop, 3), Cell::decimals(newer.drop, 3),
                                  !found  ? "a state is missing"
                                  : given ? "efficiency given"
                                          : ""});
        }
        out_.report.tables.push_back(std::move(table));
    }

    void add_totals() {
        const Results& older = after(Formulation::ifc67);
        const Results& newer = after(Formulation::if97);
        if (!std::isfinite(older.output + newer.output + older.heat + newer.heat)) {
            out_.report.notes.emplace_back("Output and heat rate are left out: a point with a flow has no state.");
            out_.complete = false;
            return;
        }
        const auto rate = [](const Results& r) { return 3600.0 * r.heat / r.output; };
        const bool has_rate = std::any_of(file_.points.begin(), file_.points.end(),
                                          [](const TestPoint& p) { return p.boiler != Crossing::none; }) &&
                              older.output > 0.0 && newer.output > 0.0;
        ReportTable table{"totals", "Turbine output from the steam, heat taken up in the boiler, heat rate", {}, {}};
        table.columns = {"quantity", "unit", "1967", "IF97", "difference", "relative_%"};
        const auto add = [&](std::string_view name, std::string_view unit, double x, double y) {
            table.rows.push_back({name, unit, Cell::decimals(x, 2), Cell::decimals(y, 2), Cell::decimals(y - x, 2),
                                  Cell::decimals(100.0 * (y - x) / std::fabs(x), 4)});
        };
        add("output", "kW", older.output, newer.output);
        if (has_rate) {
            add("heat", "kW", older.heat, newer.heat);
            add("heat rate", "kJ/kWh", rate(older), rate(newer));
        }
        out_.report.tables.push_back(std::move(table));
        add_shares(has_rate);
        check_balance();
    }

    /// With Q and P linear in the enthalpies, d(Q/P) is dQ/P97 - Q67 dP/(P97 P67): the shares add up to the change.
    void add_shares(bool has_rate) {
        const Results& older = after(Formulation::ifc67);
        const Results& newer = after(Formulation::if97);
        const double change = 3600.0 * (newer.heat / newer.output - older.heat / older.output);
        ReportTable table{"shares", "Share of each point in these differences", {}, {}};
        table.columns = {"point",  "flow_kg/s", "H_difference_kJ/kg", "output_kW", "heat_kW", "heat_rate_kJ/kWh",
                         "share_%"};
        for (std::size_t i = 0; i < file_.points.size(); ++i) {
            const TestPoint& point = file_.points[i];
            const double dh = newer.points[i].h() - older.points[i].h();
            const double output = output_flow(point) == 0.0 ? 0.0 : output_flow(point) * dh;
            const double heat = heat_flow(point) == 0.0 ? 0.0 : heat_flow(point) * dh;
            if (point.turbine == Crossing::none && point.boiler == Crossing::none) continue;
            const double by_rate = 3600.0 * (heat / newer.output - older.heat * output / (newer.output * older.output));
            const double none = std::nan("");
            table.rows.push_back({point.name, Cell::decimals(*point.flow, 2), Cell::decimals(dh, 3),
                                  Cell::decimals(output, 2), Cell::decimals(has_rate ? heat : none, 2),
                                  Cell::decimals(has_rate ? by_rate : none, 3),
                                  Cell::decimals(has_rate ? 100.0 * by_rate / change : none, 1)});
        }
        out_.report.tables.push_back(std::move(table));
    }

    /// Flows that do not close make output and heat depend on the zero of enthalpy.
    void check_balance() {
        const auto check = [&](const char* what, auto flow_of) {
            double in = 0.0;
            double out = 0.0;
            for (const TestPoint& point : file_.points) {
                const double flow = flow_of(point);
                (flow > 0.0 ? in : out) += std::fabs(flow);
            }
            constexpr double closed = 1.0e-6;
            if (std::fabs(in - out) <= closed * (in + out)) return;
            NumberText a;
            NumberText b;
            out_.report.notes.push_back(std::string("The flows of the ") + what +
                                        " do not close: " + std::string(a(in, table_digits)) + " against " +
                                        std::string(b(out, table_digits)) + " kg/s.");
        };
        check("turbine", output_flow);
        check("boiler", heat_flow);
    }

    [[nodiscard]] const Results& after(Formulation f) const { return results_[static_cast<std::size_t>(f)]; }

    const TestFile& file_;
    const Properties& properties_;
    Both<Results> results_;
    Comparison out_;
};

} // namespace

Comparison compare_test(const std::string& path, const Properties& properties, Scale scale) {
    const TestFile file = read_test_file(path);
    return TestComparison(file, properties, scale).comparison();
}

} // namespace program
