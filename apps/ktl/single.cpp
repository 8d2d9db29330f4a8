#include "single.hpp"

#include "states.hpp"

#include <algorithm>
#include <cmath>
#include <iostream>

namespace program {

namespace {

std::string padded(std::string text, std::size_t width) {
    text.append(width - std::min(width, text.size()), ' ');
    return text;
}

/// A column of the table below: a heading, then a cell for each property.
using Column = std::vector<std::string>;

std::size_t width_of(const Column& column) {
    std::size_t widest = 0;
    for (const std::string& cell : column) widest = std::max(widest, cell.size());
    return widest;
}

/// Code, values and unit of each property; headings over the values if there is more than one state.
void write_text(const States& states, std::size_t count, const Properties& wanted, int digits, OutputFile& file) {
    std::vector<Column> columns(count + 1);
    NumberText number;
    bool any = false;
    columns[0].emplace_back();
    for (const Property* property : wanted) columns[0].emplace_back(property->code);
    for (std::size_t i = 0; i < count; ++i) {
        columns[i + 1].push_back(states.label(0, i));
        for (std::size_t place = 0; place < wanted.size(); ++place) {
            const double value = states.value(0, place, i);
            any = any || std::isfinite(value);
            columns[i + 1].emplace_back(std::isfinite(value) ? number(value, digits) : "-");
        }
    }
    std::string text;
    for (std::size_t line = count > 1 ? 0 : 1; any && line <= wanted.size(); ++line) {
        std::string shown = padded(columns[0][line], std::max<std::size_t>(width_of(columns[0]), 2) + 2);
        for (std::size_t i = 1; i <= count; ++i)
            shown += padded(columns[i][line], width_of(columns[i])) + (i < count ? "  " : " ");
        if (line > 0)
            shown += wanted[line - 1]->unit;
        else
            shown.resize(shown.find_last_not_of(' ') + 1);
        text += shown + "\n";
    }
    file.write(text);
}

/// An object for each state; its label only if there is more than one.
void write_json(const States& states, std::size_t count, const Properties& wanted, int digits, OutputFile& file) {
    const auto output = json_output(file, {.digits = digits});
    Titles titles;
    if (count > 1) titles.results.emplace_back("state");
    for (const Property* property : wanted) titles.results.push_back(title_of(*property));
    titles.results.emplace_back("error");
    output->begin(titles);
    const auto lines = output->lines();
    for (std::size_t i = 0; i < count; ++i) {
        lines->begin_line(0);
        if (count > 1) lines->cell(states.label(0, i));
        for (std::size_t place = 0; place < wanted.size(); ++place) lines->number(states.value(0, place, i));
        lines->cell(states.error(0, i));
        lines->end_line();
    }
    output->write(*lines);
}

} // namespace

std::string run_single(const Pair& pair, const Properties& wanted, const SingleWishes& wishes, OutputFile& file) {
    States states(pair, wanted, States::Keep::all);
    states.add(
        argument_value(quantity(pair.first), wishes.first, wishes.atmosphere, measure_in(pair.first, *wishes.units)),
        argument_value(quantity(pair.second), wishes.second, wishes.atmosphere,
                       measure_in(pair.second, *wishes.units)));
    states.solve();
    const std::size_t found = states.count(0);
    const bool phases = states.label(0, 0) == "liquid";
    const std::size_t count = wishes.all_states || phases ? found : 1;
    (wishes.json ? write_json : write_text)(states, count, wanted, wishes.digits, file);
    file.finish();
    if (count < found)
        std::cerr << "ktl: the first of " << found << " states with these values; --all-states shows all\n";
    for (std::size_t i = 0; i < count; ++i)
        if (std::string error = states.error(0, i); !error.empty()) return error;
    return {};
}

} // namespace program
