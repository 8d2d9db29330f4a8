#include "process_file.hpp"

#include "number.hpp"
#include "table_file.hpp"
#include "tables.hpp"

#include <algorithm>
#include <cmath>

namespace program {

namespace {

using ktl::diagram::ProcessState;
using ktl::diagram::Step;

constexpr const char* step_names = "straight, isobaric, isentropic, isenthalpic";

/// The step that the values of two states suggest: what is the same in both; otherwise a straight line.
Step suggested(const ktl::State& from, const ktl::State& to) {
    constexpr double same = 1.0e-9;   // relative
    constexpr double most_drop = 0.2; // of the pressure, of steam or water on its way through tubes
    if (std::fabs(to.h() - from.h()) <= same * std::fabs(from.h())) return Step::isenthalpic;
    if (std::fabs(to.s() - from.s()) <= same * std::fabs(from.s())) return Step::isentropic;
    return std::fabs(to.p() - from.p()) <= most_drop * std::fmax(from.p(), to.p()) && to.p() <= from.p()
               ? Step::isobaric
               : Step::straight;
}

struct GivenStep {
    bool given = false;
    Step step = Step::straight;
    double efficiency = 1.0;
};

class ProcessReader {
public:
    explicit ProcessReader(const Line& header)
        : table_(header), name_(table_.find({"point", "name", "state"})), pair_(table_.find({"pair"})),
          first_(pair_ ? table_.need({"first"}) : table_.need({"p_bar", "p", "pressure"})),
          second_(pair_ ? table_.need({"second"}) : table_.need({"t_degc", "t", "temperature"})),
          step_(table_.find({"step"})) {}

    /// before: the state that the step begins at; null for the first one of the file.
    [[nodiscard]] ProcessState read(const Line& line, const ProcessState* before) const {
        table_.check_width(line);
        ProcessState out;
        if (name_) out.name = line.fields[*name_];
        const GivenStep step = step_of(line);
        const std::string pair = pair_ ? lower_case(line.fields[*pair_]) : "pt";
        const double first = table_.number(line, first_);
        if (pair == "p") {
            out.state = end_of(line, step, first, before);
        } else {
            const Pair* found = find_pair(pair);
            if (found == nullptr)
                table_.fail(line, *pair_,
                            "no pair " + in_quotes(line.fields[*pair_]) + "; the pairs are " + pair_names() +
                                ", and p, a pressure that the step leads to");
            if (step.efficiency != 1.0)
                table_.fail(line, *step_,
                            "the state is given, so the step needs no efficiency; give the pair p instead");
            out.state = ktl::state(found->id, first, table_.number(line, second_));
        }
        if (!out.state)
            throw UsageError("line " + std::to_string(line.number) + ": " + ktl::sentence(out.state.status()));
        if (before != nullptr) out.step = step.given ? step.step : suggested(before->state, out.state);
        return out;
    }

private:
    [[nodiscard]] GivenStep step_of(const Line& line) const {
        GivenStep out;
        const std::string text = step_ ? lower_case(line.fields[*step_]) : std::string();
        if (text.empty()) return out;
        const std::size_t blank = text.find(' ');
        const std::string name = text.substr(0, blank);
        out.given = true;
        if (name == "isobaric")
            out.step = Step::isobaric;
        else if (name == "isentropic")
            out.step = Step::isentropic;
        else if (name == "isenthalpic")
            out.step = Step::isenthalpic;
        else if (name != "straight")
            table_.fail(line, *step_, "no step " + in_quotes(name) + "; the steps are " + step_names);
        if (blank == std::string::npos) return out;
        const auto efficiency = parse_number(std::string_view(text).substr(blank));
        if (out.step != Step::isentropic) table_.fail(line, *step_, "only an isentropic step has an efficiency");
        if (!efficiency || !(*efficiency > 0.0 && *efficiency <= 1.0))
            table_.fail(line, *step_,
                        "the efficiency " + in_quotes(trimmed(text.substr(blank))) + " is not above 0 and at most 1");
        out.efficiency = *efficiency;
        return out;
    }

    /// The state at a pressure that a step leads to.
    [[nodiscard]] ktl::State end_of(const Line& line, const GivenStep& step, double pressure,
                                    const ProcessState* before) const {
        if (!line.fields[second_].empty()) table_.fail(line, second_, "a pressure alone has no second value");
        if (before == nullptr) table_.fail(line, first_, "the first state needs two values");
        if (step.step != Step::isentropic && step.step != Step::isenthalpic)
            table_.fail(line, step_.value_or(*pair_),
                        "a pressure alone needs an isentropic or isenthalpic step that leads to it");
        const ktl::State end = ktl::diagram::step_end(before->state, step.step, pressure, step.efficiency);
        if (!end) table_.fail(line, first_, std::string("the step leaves the range: ") += ktl::sentence(end.status()));
        return end;
    }

    LineTable table_;
    std::optional<std::size_t> name_, pair_;
    std::size_t first_, second_;
    std::optional<std::size_t> step_;
};

/// The place of a name; of the end that is meant if it is empty.
std::size_t place_of(const std::vector<ProcessState>& states, const std::string& name, std::size_t otherwise,
                     const char* option) {
    if (name.empty()) return otherwise;
    const auto at = std::find_if(states.begin(), states.end(), [&](const ProcessState& s) { return s.name == name; });
    if (at == states.end()) throw UsageError(std::string(option) + ": no state has the name " + in_quotes(name));
    return static_cast<std::size_t>(at - states.begin());
}

} // namespace

std::vector<ProcessState> read_process(const std::string& path, const std::string& from, const std::string& to) {
    constexpr std::size_t most_states = 1000;
    const std::vector<Line> lines = read_lines(path);
    const std::string name = path == "-" ? "standard input" : in_quotes(path);
    if (lines.empty()) throw UsageError(name + " is empty; its first line should name the columns");
    const ProcessReader reader(lines.front());
    std::vector<ProcessState> states;
    for (std::size_t i = 1; i < lines.size(); ++i)
        states.push_back(reader.read(lines[i], states.empty() ? nullptr : &states.back()));
    if (states.empty()) throw UsageError(name + " has no states");
    if (states.size() > most_states)
        throw UsageError(name + " has more than " + std::to_string(most_states) + " states");
    const std::size_t first = place_of(states, from, 0, "--from");
    const std::size_t last = place_of(states, to, states.size() - 1, "--to");
    if (last < first) throw UsageError("--from: " + in_quotes(from) + " comes after " + in_quotes(states[last].name));
    states.erase(states.begin() + static_cast<std::ptrdiff_t>(last) + 1, states.end());
    states.erase(states.begin(), states.begin() + static_cast<std::ptrdiff_t>(first));
    return states;
}

} // namespace program
