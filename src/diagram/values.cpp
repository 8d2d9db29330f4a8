#include "diagram/values.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace ktl::diagram {

namespace {

/// Units that a chart writes otherwise than ktl/units.hpp, UTF-8.
struct Written {
    std::string_view unit, name;
};
constexpr std::array<Written, 6> written{{{"psi", "psia"},
                                          {"degC", "\xC2\xB0\x43"},
                                          {"degF", "\xC2\xB0\x46"},
                                          {"m3/kg", "m\xC2\xB3/kg"},
                                          {"ft3/lb", "ft\xC2\xB3/lb"},
                                          {"Btu/(lb degF)", "Btu/(lb \xC2\xB0\x46)"}}};

constexpr std::size_t most_values = 10000;

} // namespace

const units::Unit* unit(System system, Property property) noexcept {
    using units::Dimension;
    switch (property) {
    case Property::p: return units::in_system(system, Dimension::pressure).unit;
    case Property::t: return units::in_system(system, Dimension::temperature).unit;
    case Property::v: return units::in_system(system, Dimension::volume).unit;
    case Property::h:
    case Property::u: return units::in_system(system, Dimension::energy).unit;
    case Property::s: return units::in_system(system, Dimension::entropy).unit;
    case Property::x: return units::in_system(system, Dimension::quality).unit;
    default: return nullptr;
    }
}

std::string_view unit_name(System system, Property property) noexcept {
    const units::Unit* const found = property == Property::x ? nullptr : unit(system, property);
    if (found == nullptr) return {};
    for (const Written& row : written)
        if (row.unit == found->name) return row.name;
    return found->name;
}

std::vector<double> sequence_125(double low, double high) {
    std::vector<double> all;
    if (!(low > 0.0) || !std::isfinite(high)) return all;
    constexpr std::array<int, 3> leading{1, 2, 5};
    for (int exponent = -300; exponent <= 300 && all.size() < most_values; ++exponent) {
        for (const int digit : leading) {
            std::array<char, 16> name{}; // read as a decimal number: the nearest double
            std::snprintf(name.data(), name.size(), "%de%d", digit, exponent);
            const double value = std::strtod(name.data(), nullptr);
            if (value >= low && value <= high) all.push_back(value);
        }
    }
    return all;
}

std::vector<double> sequence(double low, double high, double step) {
    std::vector<double> all;
    if (!(step > 0.0) || !(low <= high) || !((high - low) / step < static_cast<double>(most_values))) return all;
    constexpr double slack = 1.0e-9;
    const double first = std::ceil(low / step - slack), last = std::floor(high / step + slack);
    // A step below 1 is the inverse of a whole number more often than not: division rounds once.
    const double inverse = std::round(1.0 / step);
    const bool divides = step < 1.0 && std::fabs(inverse * step - 1.0) < 1.0e-12;
    for (std::size_t i = 0; first + static_cast<double>(i) <= last; ++i) {
        const double n = first + static_cast<double>(i);
        all.push_back(divides ? n / inverse : n * step);
    }
    return all;
}

namespace {

std::string digits_of(double value, Property property, System system, int count) {
    const units::Unit* in = unit(system, property);
    if (in == nullptr) return {};
    const double shown = units::Reading{in, false, units::Fault::none}.from_ktl(value, 0.0);
    std::array<char, 40> digits{};
    std::snprintf(digits.data(), digits.size(), "%.*g", count, std::fabs(shown) < 1.0e-9 ? 0.0 : shown);
    std::string out(digits.data());
    std::replace(out.begin(), out.end(), ',', '.'); // whatever the locale
    const std::size_t e = out.find('e');
    if (e == std::string::npos) return out;
    // 2e+07 is written 2e7.
    std::size_t rest = e + (out[e + 1] == '-' ? 2 : 1);
    while (rest + 1 < out.size() && (out[rest] == '0' || out[rest] == '+')) out.erase(rest, 1);
    return out;
}

} // namespace

std::string text(double value, Property property, System system) { return digits_of(value, property, system, 6); }
std::string rounded_text(double value, Property property, System system) {
    return digits_of(value, property, system, 4);
}

} // namespace ktl::diagram
