#include "tables.hpp"

#include "number.hpp"

#include <algorithm>

namespace program {

namespace {

constexpr std::array<Quantity, 7> quantity_table{{
    {"p", "pressure", "bar", {"bar"}},
    {"t", "temperature", "degC", {"degc", "c", "celsius"}},
    {"v", "volume", "m3/kg", {"m3kg"}},
    {"h", "enthalpy", "kJ/kg", {"kjkg"}},
    {"s", "entropy", "kJ/(kg K)", {"kjkgk"}},
    {"u", "energy", "kJ/kg", {"kjkg"}},
    {"x", "quality", "kg/kg", {"kgkg", "1"}},
}};

constexpr std::array<Pair, ktl::pair_count> pair_table{{
    {"pt", ktl::Pair::pt, pressure, temperature},
    {"ph", ktl::Pair::ph, pressure, enthalpy},
    {"ps", ktl::Pair::ps, pressure, entropy},
    {"pu", ktl::Pair::pu, pressure, energy},
    {"pv", ktl::Pair::pv, pressure, volume},
    {"px", ktl::Pair::px, pressure, quality},
    {"tv", ktl::Pair::tv, temperature, volume},
    {"th", ktl::Pair::th, temperature, enthalpy},
    {"ts", ktl::Pair::ts, temperature, entropy},
    {"tu", ktl::Pair::tu, temperature, energy},
    {"tx", ktl::Pair::tx, temperature, quality},
    {"sx", ktl::Pair::sx, entropy, quality},
    {"hs", ktl::Pair::hs, enthalpy, entropy},
    {"us", ktl::Pair::us, energy, entropy},
    {"vh", ktl::Pair::vh, volume, enthalpy},
    {"vs", ktl::Pair::vs, volume, entropy},
    {"vu", ktl::Pair::vu, volume, energy},
}};

constexpr bool one_phase = true;
constexpr std::array<Property, ktl::property_count> property_table{{
    {"P", "bar", "pressure", ktl::Property::p},
    {"T", "degC", "temperature", ktl::Property::t},
    {"V", "m3/kg", "specific volume", ktl::Property::v},
    {"H", "kJ/kg", "specific enthalpy", ktl::Property::h},
    {"S", "kJ/(kg K)", "specific entropy", ktl::Property::s},
    {"X", "kg/kg", "vapour quality, 0 water to 1 steam", ktl::Property::x},
    {"RHO", "kg/m3", "density", ktl::Property::rho},
    {"U", "kJ/kg", "specific internal energy", ktl::Property::u},
    {"G", "kJ/kg", "specific Gibbs energy h - T s", ktl::Property::gibbs},
    {"F", "kJ/kg", "specific Helmholtz energy u - T s", ktl::Property::helmholtz},
    {"REGION", "1", "1 water, 2 steam, 3 and 4 near-critical, 5 and 6 two phases", ktl::Property::region},
    {"CP", "kJ/(kg K)", "isobaric heat capacity", ktl::Property::cp, 1.0, one_phase},
    {"CV", "kJ/(kg K)", "isochoric heat capacity", ktl::Property::cv, 1.0, one_phase},
    {"W", "m/s", "speed of sound", ktl::Property::speed_of_sound, 1.0, one_phase},
    {"KAPPA", "1", "isentropic exponent", ktl::Property::isentropic_exponent, 1.0, one_phase},
    {"KT", "1/bar", "isothermal compressibility", ktl::Property::compressibility, 1.0, one_phase},
    {"ALPHA", "1/K", "isobaric expansion coefficient", ktl::Property::expansion, 1.0, one_phase},
    {"JT", "K/bar", "Joule-Thomson coefficient", ktl::Property::joule_thomson, 1.0, one_phase},
    {"DV", "Pa s", "dynamic viscosity", ktl::Property::viscosity, 1.0, one_phase},
    {"KV", "m2/s", "kinematic viscosity", ktl::Property::kinematic_viscosity, 1.0, one_phase},
    {"TC", "kW/(m K)", "thermal conductivity", ktl::Property::conductivity, 0.001, one_phase},
    {"PR", "1", "Prandtl number", ktl::Property::prandtl, 1.0, one_phase},
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

std::span<const Property> properties() { return property_table; }

Properties parse_codes(std::string_view list) {
    Properties wanted;
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
        wanted.push_back(at);
        begin = end + 1;
    }
    return wanted;
}

} // namespace program
