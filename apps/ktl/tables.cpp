#include "tables.hpp"

#include "derivative_code.hpp"
#include "number.hpp"
#include "suggestion.hpp"

#include <algorithm>
#include <array>

namespace program {

namespace {

constexpr bool one_phase = true;

/// The conductivity keeps the unit that its code has in the named routines.
constexpr Property in_unit_of_code(Property property) {
    if (property.id != ktl::Property::conductivity) return property;
    property.unit = "kW/(m K)";
    property.factor = 0.001;
    return property;
}

constexpr std::array<Property, ktl::property_count + 1> property_table{{
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning) {code, unit, meaning, ktl::Property::property},
#define KTL_DEFINE_PHASE_PROPERTY(property, PROPERTY, unit, code, meaning)                                             \
    in_unit_of_code({code, unit, meaning, ktl::Property::property, 1.0, one_phase}),
#include <ktl/properties.def>
    {"ST", "N/m", "surface tension; for mixtures, of neither formulation", ktl::Property::t, 1.0, false, true},
}};

constexpr Quantity quantity_of(ktl::Property id, std::string_view symbol, std::string_view name,
                               ktl::units::Dimension dimension) {
    return {id, symbol, name, property_table[static_cast<std::size_t>(id)].unit, dimension};
}

using ktl::units::Dimension;
constexpr std::array<Quantity, 7> quantity_table{{
    quantity_of(ktl::Property::p, "p", "pressure", Dimension::pressure),
    quantity_of(ktl::Property::t, "t", "temperature", Dimension::temperature),
    quantity_of(ktl::Property::v, "v", "volume", Dimension::volume),
    quantity_of(ktl::Property::h, "h", "enthalpy", Dimension::energy),
    quantity_of(ktl::Property::s, "s", "entropy", Dimension::entropy),
    quantity_of(ktl::Property::u, "u", "energy", Dimension::energy),
    quantity_of(ktl::Property::x, "x", "quality", Dimension::quality),
}};

constexpr std::array<Pair, ktl::pair_count> pair_table{{
#define KTL_DEFINE_PAIR(pair, PAIR, a, b) {#pair, ktl::Pair::pair, ktl::Property::a, ktl::Property::b},
#include <ktl/pairs.def>
}};

template <class Row, std::size_t N>
std::string names(const std::array<Row, N>& table, std::string_view Row::*member) {
    std::string out;
    for (const Row& row : table) out.append(out.empty() ? "" : " ").append(row.*member);
    return out;
}

} // namespace

const Quantity& quantity(ktl::Property id) {
    return *std::find_if(quantity_table.begin(), quantity_table.end(), [=](const Quantity& q) { return q.id == id; });
}

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
        begin = end + 1;
        if (looks_like_derivative(given)) {
            wanted.push_back(&derivative_property(given));
            continue;
        }
        const auto* at =
            std::find_if(property_table.begin(), property_table.end(),
                         [code = lower_case(given)](const Property& p) { return lower_case(p.code) == code; });
        if (at == property_table.end()) {
            const std::string codes = names(property_table, &Property::code);
            throw UsageError("no property has the code " + in_quotes(given) + did_you_mean(given, codes) +
                             "; the codes are " + codes + ", separated by commas");
        }
        wanted.push_back(at);
    }
    return wanted;
}

} // namespace program
