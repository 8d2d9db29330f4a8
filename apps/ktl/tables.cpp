#include "tables.hpp"

#include "number.hpp"

#include <algorithm>
#include <limits>

namespace program {

namespace {

constexpr double none = std::numeric_limits<double>::infinity();

constexpr std::array<Quantity, 7> quantity_table{{
    {"p", "pressure", "bar", {"bar"}, 0.006112444, 1000.0, 0.0},
    {"t", "temperature", "degC", {"degc", "c", "celsius"}, 0.01, 800.0, 1.0},
    {"v", "volume", "m3/kg", {"m3kg"}, -none, none, 0.0},
    {"h", "enthalpy", "kJ/kg", {"kjkg"}, -none, none, 1.0},
    {"s", "entropy", "kJ/(kg K)", {"kjkgk"}, -none, none, 0.01},
    {"u", "energy", "kJ/kg", {"kjkg"}, -none, none, 1.0},
    {"x", "quality", "kg/kg", {"kgkg", "1"}, 0.0, 1.0, 1.0},
}};

constexpr std::array pair_table{
    Pair{"pt", ktlrpt, pressure, temperature}, Pair{"ph", ktlrph, pressure, enthalpy},
    Pair{"ps", ktlrps, pressure, entropy},     Pair{"pu", ktlrpu, pressure, energy},
    Pair{"pv", ktlrpv, pressure, volume},      Pair{"px", ktlrpx, pressure, quality},
    Pair{"tv", ktlrtv, temperature, volume},   Pair{"th", ktlrth, temperature, enthalpy},
    Pair{"ts", ktlrts, temperature, entropy},  Pair{"tu", ktlrtu, temperature, energy},
    Pair{"tx", ktlrtx, temperature, quality},  Pair{"sx", ktlrsx, entropy, quality},
    Pair{"hs", ktlrhs, enthalpy, entropy},     Pair{"us", ktlrus, energy, entropy},
    Pair{"vh", ktlrvh, volume, enthalpy},      Pair{"vs", ktlrvs, volume, entropy},
    Pair{"vu", ktlrvu, volume, energy},
};

constexpr std::array<Property, property_count> property_table{{
    {"P", "bar", "pressure"},
    {"T", "degC", "temperature"},
    {"V", "m3/kg", "specific volume"},
    {"H", "kJ/kg", "specific enthalpy"},
    {"S", "kJ/(kg K)", "specific entropy"},
    {"X", "kg/kg", "vapour quality, 0 water to 1 steam"},
    {"CP", "kJ/(kg K)", "isobaric heat capacity, one phase only"},
    {"DV", "Pa s", "dynamic viscosity, one phase only"},
    {"TC", "kW/(m K)", "thermal conductivity, one phase only"},
}};

template <class Row, std::size_t N>
std::string names(const std::array<Row, N>& table, std::string_view Row::*member) {
    std::string out;
    for (const Row& row : table) out.append(out.empty() ? "" : " ").append(row.*member);
    return out;
}

} // namespace

const Quantity& quantity(QuantityIndex index) { return quantity_table[index]; }

std::span<const Pair> pairs() { return pair_table; }

const Pair* find_pair(std::string_view name) {
    const std::string wanted = lower_case(name);
    const auto* at =
        std::find_if(pair_table.begin(), pair_table.end(), [&](const Pair& p) { return p.name == wanted; });
    return at != pair_table.end() ? at : nullptr;
}

std::string pair_names() { return names(pair_table, &Pair::name); }

std::span<const Property, property_count> properties() { return property_table; }

std::vector<PropertyIndex> parse_codes(std::string_view list) {
    std::vector<PropertyIndex> wanted;
    for (std::size_t begin = 0; begin <= list.size();) {
        const std::size_t end = std::min(list.find(',', begin), list.size());
        const std::string_view given = trimmed(list.substr(begin, end - begin));
        const auto* at =
            std::find_if(property_table.begin(), property_table.end(),
                         [code = lower_case(given)](const Property& p) { return lower_case(p.code) == code; });
        if (at == property_table.end()) {
            throw UsageError("no property has the code " + in_quotes(given) + "; the codes are " +
                             names(property_table, &Property::code) + ", separated by commas");
        }
        wanted.push_back(static_cast<PropertyIndex>(at - property_table.begin()));
        begin = end + 1;
    }
    return wanted;
}

} // namespace program
