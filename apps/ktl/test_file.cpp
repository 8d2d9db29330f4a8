#include "test_file.hpp"

#include "number.hpp"
#include "table_file.hpp"

#include <algorithm>
#include <ktl/if97.hpp>

namespace program {

namespace {

/// Points of pairs that each line names, or of pressure and temperature.
class PointReader {
public:
    explicit PointReader(const Line& header)
        : block_(header), name_(block_.need({"point"})), pair_(block_.find({"pair"})),
          first_(pair_ ? block_.need({"first"}) : block_.need({"p_bar", "p", "pressure"})),
          second_(pair_ ? block_.need({"second"}) : block_.need({"t_degc", "t", "temperature"})),
          flow_(block_.find({"flow_kg/s", "flow"})), turbine_(block_.find({"turbine"})),
          boiler_(block_.find({"boiler"})) {}

    [[nodiscard]] TestPoint read(const Line& line) const {
        block_.check_width(line);
        TestPoint point;
        point.name = line.fields[name_];
        point.line = line.number;
        if (point.name.empty()) block_.fail(line, name_, "the point has no name");
        const bool pressure_alone = line.fields[second_].empty() && (!pair_ || lower_case(line.fields[*pair_]) == "p");
        if (!pressure_alone) {
            point.pair = pair_ ? find_pair(line.fields[*pair_]) : find_pair("pt");
            if (point.pair == nullptr || !ktl::if97::has_pair(point.pair->id))
                block_.fail(line, *pair_,
                            "no pair " + in_quotes(line.fields[*pair_]) +
                                "; the pairs are pt ph ps px tx hs, and p alone");
            point.second = block_.number(line, second_);
        }
        point.first = block_.number(line, first_);
        if (flow_ && !line.fields[*flow_].empty()) {
            point.flow = block_.number(line, *flow_);
            if (*point.flow < 0.0)
                block_.fail(line, *flow_, "the flow " + in_quotes(line.fields[*flow_]) + " is negative");
        }
        point.turbine = crossing(line, turbine_, point);
        point.boiler = crossing(line, boiler_, point);
        return point;
    }

    [[noreturn]] void fail_name(const Line& line, const std::string& what) const { block_.fail(line, name_, what); }

private:
    [[nodiscard]] Crossing crossing(const Line& line, std::optional<std::size_t> column, const TestPoint& point) const {
        if (!column || line.fields[*column].empty()) return Crossing::none;
        const std::string text = lower_case(line.fields[*column]);
        if (text != "in" && text != "out")
            block_.fail(line, *column, in_quotes(line.fields[*column]) + " should be 'in', 'out' or empty");
        if (!point.flow) block_.fail(line, *column, "the point has no flow");
        return text == "in" ? Crossing::in : Crossing::out;
    }

    LineTable block_;
    std::size_t name_;
    std::optional<std::size_t> pair_;
    std::size_t first_, second_;
    std::optional<std::size_t> flow_, turbine_, boiler_;
};

class SectionReader {
public:
    explicit SectionReader(const Line& header)
        : block_(header), name_(block_.need({"section"})), inlet_(block_.need({"inlet"})),
          outlet_(block_.need({"outlet"})), efficiency_(block_.find({"efficiency"})) {}

    [[nodiscard]] TestSection read(const Line& line, const std::vector<TestPoint>& points) const {
        block_.check_width(line);
        TestSection section{
            line.fields[name_], line.number, place(line, inlet_, points), place(line, outlet_, points), {}};
        if (section.name.empty()) block_.fail(line, name_, "the section has no name");
        if (section.inlet == section.outlet) block_.fail(line, outlet_, "inlet and outlet are the same point");
        const bool open = points[section.outlet].pair == nullptr;
        if (efficiency_ && !line.fields[*efficiency_].empty()) {
            section.efficiency = block_.number(line, *efficiency_);
            if (!(*section.efficiency >= 0.0 && *section.efficiency <= 1.0))
                block_.fail(line, *efficiency_,
                            "the efficiency " + in_quotes(line.fields[*efficiency_]) + " is outside 0 to 1");
            if (!open)
                block_.fail(line, *efficiency_,
                            "the outlet has two values, from which the efficiency follows; leave it empty");
        } else if (open) {
            block_.fail(line, outlet_,
                        in_quotes(line.fields[outlet_]) + " has a pressure alone, so the section needs an efficiency");
        }
        return section;
    }

private:
    [[nodiscard]] std::size_t place(const Line& line, std::size_t column, const std::vector<TestPoint>& points) const {
        const auto at = std::find_if(points.begin(), points.end(),
                                     [&](const TestPoint& point) { return point.name == line.fields[column]; });
        if (at == points.end()) block_.fail(line, column, "no point has the name " + in_quotes(line.fields[column]));
        return static_cast<std::size_t>(at - points.begin());
    }

    LineTable block_;
    std::size_t name_, inlet_, outlet_;
    std::optional<std::size_t> efficiency_;
};

/// A pressure alone must be the outlet of one section, whose inlet has a state by then.
void check_open_points(const TestFile& file) {
    std::vector<bool> known;
    for (const TestPoint& point : file.points) known.push_back(point.pair != nullptr);
    for (const TestSection& section : file.sections) {
        const auto line = "line " + std::to_string(section.line) + ": ";
        if (!known[section.inlet])
            throw UsageError(line + "the inlet " + in_quotes(file.points[section.inlet].name) +
                             " has no state; list the section that ends there first");
        if (section.efficiency && known[section.outlet])
            throw UsageError(line + "another section ends at " + in_quotes(file.points[section.outlet].name) +
                             " already");
        known[section.outlet] = true;
    }
    for (std::size_t i = 0; i < known.size(); ++i) {
        if (known[i]) continue;
        throw UsageError("line " + std::to_string(file.points[i].line) + ": " + in_quotes(file.points[i].name) +
                         " has a pressure alone, and no section with an efficiency ends there");
    }
}

} // namespace

TestFile read_test_file(const std::string& path) {
    const std::vector<Line> lines = read_lines(path);
    const std::string name = path == "-" ? "standard input" : in_quotes(path);
    if (lines.empty()) throw UsageError(name + " is empty; its first line should name the columns");
    const auto is_section_header = [](const Line& line) { return lower_case(line.fields.front()) == "section"; };
    const auto sections = std::find_if(lines.begin(), lines.end(), is_section_header);
    if (sections == lines.begin())
        throw UsageError("line " + std::to_string(lines.front().number) +
                         ": the points should come before the sections");
    TestFile file;
    const PointReader points(lines.front());
    for (auto line = lines.begin() + 1; line != sections; ++line) {
        TestPoint point = points.read(*line);
        for (const TestPoint& other : file.points) {
            if (other.name == point.name)
                points.fail_name(*line, in_quotes(point.name) + " is the name of the point in line " +
                                            std::to_string(other.line) + " too");
        }
        file.points.push_back(std::move(point));
    }
    if (file.points.empty()) throw UsageError(name + " has no points");
    if (sections != lines.end()) {
        const SectionReader reader(*sections);
        for (auto line = sections + 1; line != lines.end(); ++line)
            file.sections.push_back(reader.read(*line, file.points));
    }
    check_open_points(file);
    return file;
}

} // namespace program
