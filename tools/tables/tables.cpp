// The tables of the documents that come from ktl/pairs.def, ktl/properties.def and ktl/status.def:
//
//   ktl_tables write SOURCE    writes them anew
//   ktl_tables check SOURCE    compares only; exit status 1 if a table is stale
//
// SOURCE is the folder of the project. A table is what lies between two lines of comments, in Markdown
//
//     <!-- table NAME, from the lists -->
//     <!-- end of table -->
//
// and in a manual page .\" table NAME, from the lists and .\" end of table.
#include "tables.hpp"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

using program::UsageError;

struct Pair {
    std::string_view name, c_name;
    ktl::Property a, b;
};
constexpr std::array<Pair, ktl::pair_count> pairs{{
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) {#pair, "KTL_PAIR_" #PAIR, ktl::Property::a, ktl::Property::b},
#include <ktl/pairs.def>
}};

struct Status {
    std::string_view name, c_name, sentence;
};
constexpr std::array<Status, ktl::status_count> statuses{{
#define KTL_DEFINE_STATUS(status, STATUS, sentence) {#status, "KTL_STATUS_" #STATUS, sentence},
#include <ktl/status.def>
}};

enum class Owner { phase_and_mixture, mixture, phase };

struct Property {
    ktl::Property id;
    std::string_view name, unit, meaning;
    Owner owner;
};
constexpr std::array<Property, ktl::property_count> properties{{
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning)                                                   \
    {ktl::Property::property, #property, unit, meaning, Owner::phase_and_mixture},
#define KTL_DEFINE_STATE_PROPERTY(property, PROPERTY, unit, code, meaning)                                             \
    {ktl::Property::property, #property, unit, meaning, Owner::mixture},
#define KTL_DEFINE_PHASE_PROPERTY(property, PROPERTY, unit, code, meaning)                                             \
    {ktl::Property::property, #property, unit, meaning, Owner::phase},
#include <ktl/properties.def>
}};

/// The property as the program has it.
const program::Property& of_program(const Property& property) {
    return program::properties()[static_cast<std::size_t>(property.id)];
}

bool in_pairs(const Property& y) {
    return std::any_of(pairs.begin(), pairs.end(), [&](const Pair& pair) { return pair.a == y.id || pair.b == y.id; });
}

std::string quoted(std::string_view text) { return std::string("`").append(text).append("`"); }

std::string row(const std::vector<std::string>& cells) {
    std::string out = "|";
    for (const std::string& cell : cells) out.append(" ").append(cell).append(" |");
    return out + "\n";
}
std::string head(const std::vector<std::string>& cells) {
    return row(cells) + row(std::vector<std::string>(cells.size(), "---"));
}

/// An item of a list in a manual page.
std::string item(std::string_view tag, std::string_view text) {
    return ".It " + std::string(tag) + "\n" + std::string(text) + "\n";
}
std::string with_unit(std::string_view meaning, std::string_view unit) {
    return std::string(meaning) + (unit == "1" ? "" : ", " + std::string(unit));
}

// ---- Markdown --------------------------------------------------------------------------------------------------------

std::string pairs_in_markdown() {
    std::string out = head({"letter", "value", "unit", "pairs that begin with it"});
    for (const Property& y : properties) {
        if (!in_pairs(y)) continue;
        std::string names;
        for (const Pair& pair : pairs)
            if (pair.a == y.id) names.append(names.empty() ? "" : " ").append(quoted(pair.name));
        out += row({quoted(y.name), std::string(y.meaning), std::string(y.unit), names.empty() ? "-" : names});
    }
    return out;
}

std::string properties_in_markdown() {
    std::string out = head({"name", "meaning", "unit", "`ktl` code", "exists for"});
    for (const Property& y : properties) {
        const program::Property& shown = of_program(y);
        std::string code(shown.code);
        if (shown.unit != y.unit) code += ", " + std::string(shown.unit);
        out += row({quoted(y.name), std::string(y.meaning), std::string(y.unit), code,
                    y.owner == Owner::phase     ? "a phase"
                    : y.owner == Owner::mixture ? "a mixture"
                                                : "a phase, a mixture"});
    }
    return out;
}

std::string statuses_in_markdown() {
    std::string out = head({"`Status`", "sentence"});
    for (const Status& status : statuses) out += row({quoted(status.name), std::string(status.sentence)});
    return out;
}

// ---- Manual pages ----------------------------------------------------------------------------------------------------

/// Names in bold as arguments of one macro, broken into lines.
std::string names_in_page(std::string_view macro, std::string_view Pair::*name) {
    constexpr std::size_t longest = 78;
    std::string out, line(macro);
    for (std::size_t k = 0; k + 1 < pairs.size(); ++k) {
        std::string next(" ");
        next.append(pairs.at(k).*name).append(k + 2 < pairs.size() ? " ," : "");
        if (line.size() + next.size() > longest) {
            out += line + "\n";
            line = macro;
        }
        line += next;
    }
    return out + line + "\nor\n" + std::string(macro) + " " + std::string(pairs.back().*name) + " .\n";
}

std::string values_in_page() {
    std::string out;
    for (const Property& y : properties)
        if (in_pairs(y)) out += item(y.name, with_unit(y.meaning, y.unit));
    return out;
}

std::string codes_in_page(bool of_mixtures) {
    std::string out;
    for (const Property& y : properties) {
        const program::Property& shown = of_program(y);
        if ((y.owner != Owner::phase) == of_mixtures) out += item(shown.code, with_unit(shown.meaning, shown.unit));
    }
    return out;
}

std::string properties_in_page() {
    std::string out;
    for (const Property& y : properties) out += item(y.name, with_unit(y.meaning, y.unit));
    return out;
}

std::string statuses_in_page() {
    std::string out;
    for (const Status& status : statuses) out += item("Dv " + std::string(status.c_name), status.sentence);
    return out;
}

// ---- Documents -------------------------------------------------------------------------------------------------------

struct Table {
    std::string file, name;
    std::function<std::string()> text;
};

std::vector<Table> tables() {
    const std::string engine = "docs/engine.md", page = "docs/man/ktl.1", page_of_calls = "docs/man/ktl_state_of.3";
    return {
        {engine, "pairs", pairs_in_markdown},
        {engine, "properties", properties_in_markdown},
        {engine, "statuses", statuses_in_markdown},
        {page, "pairs", [] { return names_in_page(".Cm", &Pair::name); }},
        {page, "values", values_in_page},
        {page, "codes of states", [] { return codes_in_page(true); }},
        {page, "codes of one phase", [] { return codes_in_page(false); }},
        {page_of_calls, "pairs", [] { return names_in_page(".Dv", &Pair::c_name); }},
        {page_of_calls, "values", values_in_page},
        {page_of_calls, "properties", properties_in_page},
        {page_of_calls, "statuses", statuses_in_page},
    };
}

std::string read(const std::string& path) {
    std::ifstream in(path);
    if (!in) throw UsageError("cannot read " + path);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// The document with its table replaced.
std::string replaced(const std::string& document, const Table& table) {
    const bool markdown = table.file.ends_with(".md");
    const auto comment = [&](const std::string& text) {
        return (markdown ? "<!-- " : ".\\\" ") + text + (markdown ? " -->\n" : "\n");
    };
    const std::string first = comment("table " + table.name + ", from the lists"), last = comment("end of table");
    const std::size_t begin = document.find(first);
    const std::size_t end = begin == document.npos ? begin : document.find(last, begin);
    if (end == document.npos) throw UsageError(table.file + " has no table " + table.name);
    return document.substr(0, begin + first.size()) + table.text() + document.substr(end);
}

/// Writes stale tables if told so; true if all are as they should be.
bool compare(const std::string& source, bool write) {
    bool good = true;
    for (const Table& table : tables()) {
        const std::string path = source + "/" + table.file;
        const std::string found = read(path);
        const std::string wanted = replaced(found, table);
        if (found == wanted) continue;
        if (!write) {
            std::cerr << table.file << ": the table " << table.name << " is stale; ktl_tables write writes it anew\n";
            good = false;
        } else if (!(std::ofstream(path) << wanted).flush()) {
            throw UsageError("cannot write " + path);
        }
    }
    return good;
}

} // namespace

int main(int count, char** arguments) {
    const std::string_view task = count == 3 ? arguments[1] : "";
    if (task != "check" && task != "write") {
        std::cerr << "usage: ktl_tables check|write SOURCE\n";
        return 2;
    }
    try {
        return compare(arguments[2], task == "write") ? 0 : 1;
    } catch (const std::exception& fault) {
        std::cerr << "ktl_tables: " << fault.what() << "\n";
        return 1;
    }
}
