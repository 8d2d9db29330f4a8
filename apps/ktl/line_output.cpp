#include "line_output.hpp"

#include "number.hpp"
#include "tables.hpp"

#include <array>
#include <cmath>

namespace program {

namespace {

namespace diagram = ktl::diagram;
using Id = ktl::Property;

constexpr std::array<Id, 7> columns{Id::p, Id::t, Id::v, Id::h, Id::s, Id::u, Id::x};

/// The unit in ASCII letters, as the columns of other results have it.
std::string unit_of(diagram::System system, Id property) {
    const ktl::units::Unit& unit = *diagram::unit(system, property);
    return std::string(unit.name) += unit.needs_reference ? "a" : "";
}

/// The number in the unit of the chart; empty if there is none.
std::string number_text(double value, Id property, diagram::System system) {
    NumberText text;
    const double shown =
        ktl::units::Reading{diagram::unit(system, property), false, ktl::units::Fault::none}.from_ktl(value, 0.0);
    return std::isfinite(shown) ? std::string(text(shown, result_digits)) : std::string();
}
std::string place_text(double millimetres) {
    NumberText text;
    return std::string(text(std::round(millimetres * 1.0e4) / 1.0e4, result_digits));
}

const char* name_of(diagram::End end) {
    switch (end) {
    case diagram::End::window: return "window";
    case diagram::End::dome: return "dome";
    case diagram::End::sub_region: return "sub-region";
    default: return "range";
    }
}

/// A line with what it is called.
struct NamedLine {
    std::string held;
    const diagram::Line* line;
    bool valued = true;
};

std::vector<NamedLine> named_lines(const diagram::Drawing& drawing) {
    std::vector<NamedLine> all{{"dome", &drawing.dome.water}, {"dome", &drawing.dome.steam}};
    for (const diagram::Line& line : drawing.lines) all.push_back({std::string(quantity(line.held).symbol), &line});
    for (const diagram::Line& line : drawing.process) all.push_back({"process", &line, false});
    return all;
}

std::string value_of(const NamedLine& named, diagram::System system) {
    return named.valued ? number_text(named.line->value, named.line->held, system) : std::string();
}

void add_json_column(std::string& out, const std::string& name, const diagram::Piece& piece, const auto& text) {
    out.append(",\n      \"").append(name).append("\": [");
    for (std::size_t i = 0; i < piece.points.size(); ++i) {
        const std::string value = text(piece.points[i]);
        out.append(i == 0 ? "" : ", ").append(value.empty() ? "null" : value);
    }
    out += ']';
}

void add_json_piece(std::string& out, const diagram::Piece& piece, diagram::System system) {
    out.append("     {\"begin\": \"").append(name_of(piece.begin)).append("\", \"end\": \"").append(name_of(piece.end));
    out += '"';
    add_json_column(out, "x_mm", piece, [](const diagram::Point& point) { return place_text(point.x); });
    add_json_column(out, "y_mm", piece, [](const diagram::Point& point) { return place_text(point.y); });
    for (const Id id : columns)
        add_json_column(out, std::string(quantity(id).symbol), piece,
                        [&](const diagram::Point& point) { return number_text(point.get(id), id, system); });
    out += '}';
}

std::string json_string(std::string_view text) {
    std::string out(1, '"');
    for (const char c : text) {
        if (c == '"' || c == '\\') out += '\\';
        out += static_cast<unsigned char>(c) < 0x20U ? ' ' : c;
    }
    return out += '"';
}

} // namespace

std::string lines_as_csv(const diagram::Chart& chart, const diagram::Drawing& drawing) {
    std::string out = "line,held,value,piece,begin,end,region,x_mm,y_mm";
    for (const Id id : columns) {
        const std::string symbol(quantity(id).symbol);
        out.append(",")
            .append(1, static_cast<char>(symbol[0] - 'a' + 'A'))
            .append("_")
            .append(unit_of(chart.system, id));
    }
    out += '\n';
    std::size_t number = 0;
    for (const NamedLine& named : named_lines(drawing)) {
        if (named.line->pieces.empty()) continue;
        const std::string head =
            std::to_string(++number) + "," + named.held + "," + value_of(named, chart.system) + ",";
        std::size_t piece_number = 0;
        for (const diagram::Piece& piece : named.line->pieces) {
            std::string start = head;
            start.append(std::to_string(++piece_number)).append(",").append(name_of(piece.begin));
            start.append(",").append(name_of(piece.end));
            for (const diagram::Point& point : piece.points) {
                out.append(start).append(",").append(std::to_string(static_cast<int>(point.region)));
                out.append(",").append(place_text(point.x)).append(",").append(place_text(point.y));
                for (const Id id : columns) out.append(",").append(number_text(point.get(id), id, chart.system));
                out += '\n';
            }
        }
    }
    return out;
}

std::string lines_as_json(const diagram::Chart& chart, const diagram::Drawing& drawing, const Page& page) {
    std::string out = std::string("{\n \"title\": ").append(json_string(page.title));
    out.append(",\n \"description\": ").append(json_string(page.description)).append(",\n \"units\": {");
    for (const Id id : columns)
        out.append(id == columns.front() ? "" : ", ")
            .append(json_string(quantity(id).symbol))
            .append(": ")
            .append(json_string(unit_of(chart.system, id)));
    out += "},\n \"lines\": [";
    bool first = true;
    for (const NamedLine& named : named_lines(drawing)) {
        if (named.line->pieces.empty()) continue;
        const std::string value = value_of(named, chart.system);
        out.append(first ? "\n" : ",\n").append("  {\"held\": \"").append(named.held).append("\", \"value\": ");
        out.append(value.empty() ? "null" : value).append(", \"pieces\": [\n");
        for (const diagram::Piece& piece : named.line->pieces) {
            if (&piece != &named.line->pieces.front()) out += ",\n";
            add_json_piece(out, piece, chart.system);
        }
        out += "]}";
        first = false;
    }
    return out += "]\n}\n";
}

} // namespace program
