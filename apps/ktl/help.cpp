#include "help.hpp"

#include "measure.hpp"
#include "tables.hpp"

#include <initializer_list>

namespace program {

namespace {

std::string property_help() {
    std::string text = "Properties, upper or lower case, separated by commas:\n";
    bool one_phase = false;
    for (const Property& p : properties()) {
        if (p.one_phase && !one_phase) text += "and, if there is one phase:\n";
        one_phase = p.one_phase;
        std::string line("  ");
        line += p.code;
        line.append(10 - line.size(), ' ');
        line += p.unit;
        line.append(22 - line.size(), ' ');
        text += line + std::string(p.meaning) + "\n";
    }
    return text + "X is 0 in water and 1 in steam.\n"
                  "Derivatives of P T V RHO H S U G F: \"d(h)/d(p)|s\" is that of H by P at constant S.\n";
}

/// One line for each dimension that a pair has.
std::string unit_help() {
    std::string text = "Units of given values, if not ktl's own:\n";
    for (const ktl::Property id :
         {ktl::Property::p, ktl::Property::t, ktl::Property::v, ktl::Property::h, ktl::Property::s, ktl::Property::x}) {
        const Quantity& q = quantity(id);
        std::string line("  ");
        line += q.name;
        line.append(15 - line.size(), ' ');
        text += line + unit_names(q) + "\n";
    }
    text +=
        "Pressures take abs, a, (a) or g, (g), gauge behind the unit: barg, MPa(a).\n"
        "--units is the system that results are in, derivatives too, and that given values and columns without a unit\n"
        "are read in: bar (bar, degC, kJ), si (Pa, K, J), mpa (MPa, K, kJ), us (psia, degF, ft3, lb, Btu).\n";
    return text;
}

constexpr const char* range_help = "Range: 0.01 to 800 degC, 0.006112444 to 1000 bar.\n";
constexpr const char* exit_help =
    "Exit status: 0 all results found, 1 a state has no result, 2 wrong use, unreadable file or unwritten results.\n";

constexpr const char* file_help =
    "The file starts with a line of column names; lines that begin with # are comments. The two columns of the pair\n"
    "are found by name: the letter or the name of the quantity, alone or with its unit (p, P_bar, pressure [MPa]);\n"
    "--columns names others. With the pair \"auto\" the file has the columns pair, first and second, and each line\n"
    "names its own pair. In a file that ktl wrote the last results take precedence. The separator is a comma, a\n"
    "semicolon or a tab, whichever finds the columns; numbers may have Fortran exponents (1D+02) and, between\n"
    "semicolons, decimal commas.\n\n"
    "Each line of the file yields one line, in order: its columns, one column for each property, and a column\n"
    "\"error\". A line without a state keeps the property columns empty and says why in the last one; no line\n"
    "ends the run. Extra columns of a line that has too many are dropped. CSV and JSON carry 10 digits and stream,\n"
    "and lines are answered when the input pauses; a table carries 7 digits and is printed once all lines are read.\n"
    "All cores compute. A terminal shows how far it has come.\n\n"
    "Examples:\n"
    "  ktl batch ph states.csv T,V,S\n"
    "  ktl batch pt plant.csv --columns p_MPa=P_in,t=T_in --digits 17 -o results.csv\n"
    "  ktl batch auto examples/heat_balance.csv P,T,V,H,S,X --format table\n";

/// The texts one below the other, after an empty line.
std::string joined(std::initializer_list<std::string> texts) {
    std::string out(1, '\n');
    for (const std::string& text : texts) out += text;
    return out;
}

} // namespace

std::string main_help() { return joined({property_help(), range_help, exit_help, "\nExample: ktl pt 10 100 V,H,S\n"}); }
std::string single_help() { return joined({property_help(), unit_help(), range_help, exit_help}); }
std::string batch_help() { return joined({file_help, "\n", property_help(), unit_help(), range_help, exit_help}); }

} // namespace program
