// Units of pressure, temperature, specific volume, energy, entropy and quality, and of the other properties of a state,
// by the names that people write.
//
//     const ktl::units::Reading mpa = ktl::units::find(ktl::units::Dimension::pressure, "MPa");
//     if (mpa) std::printf("%g bar\n", mpa.to_ktl(16.5, 0.0)); // 165
//     else std::puts(ktl::units::sentence(mpa.fault));
//
// No unit is guessed: a name is read in full or refused with a fault. Factors are exact: each is a ratio of two decimal
// numbers, so a conversion has the rounding of its two or three operations alone. kcal and Btu are those of the
// International Steam Table, 4.1868 kJ and 1.05505585262 kJ. No call allocates or throws.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace ktl {
namespace units {

/// What a unit measures, and the unit that ktl computes with.
enum class Dimension : unsigned char {
    pressure,            ///< bar
    temperature,         ///< degC
    volume,              ///< specific volume, m3/kg
    energy,              ///< specific energy, kJ/kg
    entropy,             ///< specific entropy or heat capacity, kJ/(kg K)
    quality,             ///< kg/kg
    density,             ///< kg/m3
    speed,               ///< m/s
    compressibility,     ///< 1/bar
    expansion,           ///< 1/K
    joule_thomson,       ///< K/bar
    viscosity,           ///< dynamic, Pa s
    kinematic_viscosity, ///< m2/s
    conductivity,        ///< W/(m K)
    surface_tension      ///< N/m
};

/// A unit: a value in it is (value - zero) * times / over in the unit of ktl.
struct Unit {
    Dimension dimension;
    std::string_view name; ///< as documents print it
    double times, over, zero;
    std::string_view spellings;   ///< separated by blanks, in the form that detail::Normal makes
    bool exact_first = false;     ///< the first M or m must have its case: M is mega, m is milli
    bool needs_reference = false; ///< absolute or gauge must be written: psia, psig
};

// 1 lb = 0.45359237 kg, 1 in = 25.4 mm, 1 lbf = 4.4482216152605 N, 1 kgf = 9.80665 N, 1 Btu/lb = 2.326 kJ/kg.
inline constexpr std::array<Unit, 31> table{{
    {Dimension::pressure, "bar", 1.0, 1.0, 0.0, "bar"},
    {Dimension::pressure, "mbar", 1.0, 1.0e3, 0.0, "mbar", true},
    {Dimension::pressure, "ubar", 1.0, 1.0e6, 0.0, "ubar"},
    {Dimension::pressure, "Pa", 1.0, 1.0e5, 0.0, "Pa N/m2"},
    {Dimension::pressure, "hPa", 1.0, 1.0e3, 0.0, "hPa"},
    {Dimension::pressure, "kPa", 1.0, 1.0e2, 0.0, "kPa kN/m2"},
    {Dimension::pressure, "MPa", 10.0, 1.0, 0.0, "MPa MN/m2", true},
    {Dimension::pressure, "psi", 4.4482216152605, 64.516, 0.0, "psi lbf/in2 lb/in2", false, true},
    {Dimension::pressure, "kgf/cm2", 0.980665, 1.0, 0.0, "kgf/cm2 kg/cm2 kp/cm2 at"},
    {Dimension::pressure, "atm", 1.01325, 1.0, 0.0, "atm"},
    {Dimension::pressure, "Torr", 1.01325, 760.0, 0.0, "Torr"},
    {Dimension::pressure, "mmHg", 133.322387415, 1.0e5, 0.0, "mmHg mm.Hg"},
    {Dimension::pressure, "inHg", 3386.388640341, 1.0e5, 0.0, "inHg in.Hg"},
    {Dimension::temperature, "degC", 1.0, 1.0, 0.0, "degC C deg.C celsius"},
    {Dimension::temperature, "K", 1.0, 1.0, 273.15, "K kelvin"},
    {Dimension::temperature, "degF", 5.0, 9.0, 32.0, "degF F deg.F fahrenheit"},
    {Dimension::temperature, "degR", 5.0, 9.0, 491.67, "degR deg.R rankine"},
    {Dimension::volume, "m3/kg", 1.0, 1.0, 0.0, "m3/kg"},
    {Dimension::volume, "dm3/kg", 1.0, 1.0e3, 0.0, "dm3/kg l/kg cm3/g"},
    {Dimension::volume, "ft3/lb", 0.028316846592, 0.45359237, 0.0, "ft3/lb ft3/lbm"},
    {Dimension::energy, "kJ/kg", 1.0, 1.0, 0.0, "kJ/kg J/g"},
    {Dimension::energy, "J/kg", 1.0, 1.0e3, 0.0, "J/kg"},
    {Dimension::energy, "MJ/kg", 1.0e3, 1.0, 0.0, "MJ/kg", true},
    {Dimension::energy, "kcal/kg", 4.1868, 1.0, 0.0, "kcal/kg cal/g"},
    {Dimension::energy, "Btu/lb", 2.326, 1.0, 0.0, "Btu/lb Btu/lbm"},
    {Dimension::entropy, "kJ/(kg K)", 1.0, 1.0, 0.0, "kJ/kg/K kJ/kgK kJ/kg/degC kJ/kg/C J/g/K"},
    {Dimension::entropy, "J/(kg K)", 1.0, 1.0e3, 0.0, "J/kg/K J/kgK J/kg/degC J/kg/C"},
    {Dimension::entropy, "kcal/(kg K)", 4.1868, 1.0, 0.0, "kcal/kg/K kcal/kgK kcal/kg/degC kcal/kg/C cal/g/K"},
    {Dimension::entropy, "Btu/(lb degF)", 4.1868, 1.0, 0.0,
     "Btu/lb/degF Btu/lb/F Btu/lb/degR Btu/lb/R Btu/lbm/degF Btu/lbm/F Btu/lbm/degR Btu/lbm/R"},
    {Dimension::quality, "kg/kg", 1.0, 1.0, 0.0, "kg/kg 1 lb/lb"},
    {Dimension::quality, "%", 1.0, 1.0e2, 0.0, "%"},
}};

/// Units of the properties that no state is given by.
inline constexpr std::array<Unit, 22> property_table{{
    {Dimension::density, "kg/m3", 1.0, 1.0, 0.0, "kg/m3"},
    {Dimension::density, "lb/ft3", 0.45359237, 0.028316846592, 0.0, "lb/ft3 lbm/ft3"},
    {Dimension::speed, "m/s", 1.0, 1.0, 0.0, "m/s"},
    {Dimension::speed, "ft/s", 0.3048, 1.0, 0.0, "ft/s"},
    {Dimension::compressibility, "1/bar", 1.0, 1.0, 0.0, "1/bar"},
    {Dimension::compressibility, "1/Pa", 1.0e5, 1.0, 0.0, "1/Pa"},
    {Dimension::compressibility, "1/MPa", 1.0, 10.0, 0.0, "1/MPa", true},
    {Dimension::compressibility, "1/psi", 64.516, 4.4482216152605, 0.0, "1/psi"},
    {Dimension::expansion, "1/K", 1.0, 1.0, 0.0, "1/K 1/degC 1/C"},
    {Dimension::expansion, "1/degF", 9.0, 5.0, 0.0, "1/degF 1/F 1/degR"},
    {Dimension::joule_thomson, "K/bar", 1.0, 1.0, 0.0, "K/bar degC/bar C/bar"},
    {Dimension::joule_thomson, "K/Pa", 1.0e5, 1.0, 0.0, "K/Pa degC/Pa C/Pa"},
    {Dimension::joule_thomson, "K/MPa", 1.0, 10.0, 0.0, "K/MPa degC/MPa C/MPa", true},
    {Dimension::joule_thomson, "degF/psi", 322.58, 40.0339945373445, 0.0, "degF/psi F/psi degR/psi"},
    {Dimension::viscosity, "Pa s", 1.0, 1.0, 0.0, "Pa.s kg/m/s"},
    {Dimension::viscosity, "lb/(ft s)", 0.45359237, 0.3048, 0.0, "lb/ft/s lbm/ft/s"},
    {Dimension::kinematic_viscosity, "m2/s", 1.0, 1.0, 0.0, "m2/s"},
    {Dimension::kinematic_viscosity, "ft2/s", 0.09290304, 1.0, 0.0, "ft2/s"},
    {Dimension::conductivity, "W/(m K)", 1.0, 1.0, 0.0, "W/m/K W/mK W/m/degC W/m/C"},
    {Dimension::conductivity, "Btu/(h ft degF)", 1055.05585262, 609.6, 0.0, "Btu/h/ft/degF Btu/h/ft/F Btu/h/ft/degR"},
    {Dimension::surface_tension, "N/m", 1.0, 1.0, 0.0, "N/m"},
    {Dimension::surface_tension, "lbf/ft", 4.4482216152605, 0.3048, 0.0, "lbf/ft"},
}};

/// Why a name is no unit.
enum class Fault : unsigned char {
    none,
    unknown,           ///< no unit of this dimension has the name
    unknown_character, ///< a character that no name of a unit has, or bytes that are not UTF-8
    letter_case,       ///< M and m differ: MPa, mbar
    reference          ///< absolute or gauge is left open: psi
};

/// A sentence for the fault, in plain English.
constexpr const char* sentence(Fault fault) noexcept {
    switch (fault) {
    case Fault::none: return "known";
    case Fault::unknown: return "no unit of this quantity has that name";
    case Fault::unknown_character: return "it has a character that no unit has";
    case Fault::letter_case: return "M is mega and m is milli, and the other one is meant here";
    case Fault::reference: return "absolute or gauge pressure is left open";
    }
    return "unknown fault";
}

/// What a name was read as.
struct Reading {
    const Unit* unit = nullptr; ///< null if there is a fault
    bool gauge = false;         ///< above the atmosphere
    Fault fault = Fault::unknown;

    constexpr explicit operator bool() const noexcept { return unit != nullptr; }
    /// The value in ktl's unit, of a value in this one. atmosphere: bar, added to a gauge pressure, else not used.
    [[nodiscard]] constexpr double to_ktl(double value, double atmosphere) const noexcept {
        const double absolute = (value - unit->zero) * unit->times / unit->over;
        return gauge ? absolute + atmosphere : absolute;
    }
    /// The value in this unit, of a value in ktl's.
    [[nodiscard]] constexpr double from_ktl(double value, double atmosphere) const noexcept {
        return (gauge ? value - atmosphere : value) * unit->over / unit->times + unit->zero;
    }
};

namespace detail {

constexpr bool is_digit(char c) noexcept { return c >= '0' && c <= '9'; }
constexpr bool is_letter(char c) noexcept { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr char lower(char c) noexcept { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// What a character outside ASCII stands for in ASCII; empty if no unit has it. U+ numbers in the comments.
struct Sign {
    std::string_view utf8, ascii;
};
inline constexpr std::array<Sign, 18> signs{{
    {"\xC2\xB0", "deg"},      // 00B0 degree
    {"\xC2\xBA", "deg"},      // 00BA ordinal, which keyboards have beside it
    {"\xE2\x84\x83", "degC"}, // 2103
    {"\xE2\x84\x89", "degF"}, // 2109
    {"\xE2\x84\xAA", "K"},    // 212A kelvin
    {"\xC2\xB5", "u"},        // 00B5 micro
    {"\xCE\xBC", "u"},        // 03BC mu
    {"\xC2\xB2", "2"},        // 00B2 superscripts
    {"\xC2\xB3", "3"},        // 00B3
    {"\xC2\xB9", "1"},        // 00B9
    {"\xE2\x81\xBB", "-"},    // 207B superscript minus
    {"\xE2\x88\x92", "-"},    // 2212 minus
    {"\xC2\xB7", " "},        // 00B7 middle dot
    {"\xE2\x8B\x85", " "},    // 22C5 dot operator
    {"\xE2\x88\x99", " "},    // 2219 bullet operator
    {"\xC2\xA0", " "},        // 00A0 no-break space
    {"\xE2\x80\xAF", " "},    // 202F narrow no-break space
    {"\xE2\x80\x89", " "},    // 2009 thin space
}};

/// A name in the one form that spellings have: factors joined by dots, then each divisor after a slash, as "kJ/kg/K" for
/// "kJ/(kg K)", "kJ/kg-K" and "kJ kg^-1 K^-1". All that follows a slash divides.
class Normal {
public:
    constexpr explicit Normal(std::string_view text) noexcept {
        while (!text.empty() && fault_ == Fault::none) text.remove_prefix(take(text));
        end_atom();
        merge();
    }

    [[nodiscard]] constexpr std::string_view text() const noexcept { return {text_.data(), size_}; }
    [[nodiscard]] constexpr Fault fault() const noexcept { return fault_; }

private:
    static constexpr std::size_t longest = 32;

    /// Reads one character; returns its bytes.
    constexpr std::size_t take(std::string_view text) noexcept {
        const auto c = static_cast<unsigned char>(text.front());
        if (c < 0x80U) {
            take_ascii(text.front());
            return 1;
        }
        for (const Sign& sign : signs) {
            if (text.substr(0, sign.utf8.size()) != sign.utf8) continue;
            for (const char ascii : sign.ascii) take_ascii(ascii);
            return sign.utf8.size();
        }
        fault_ = Fault::unknown_character;
        return 1;
    }

    constexpr void take_ascii(char c) noexcept {
        if (minus_ && is_digit(c)) {
            exponent_ = true;
            minus_ = false;
            if (c != '1') append(c);
        } else if (is_letter(c) || is_digit(c) || c == '%') {
            if (minus_ || exponent_) end_atom();
            append(c);
        } else if (c == '-' && atom_size_ != 0) {
            minus_ = true;
        } else if (c == '^') {
            return;
        } else if (c == '/') {
            end_atom();
            below_ = true;
        } else if (c == ' ' || c == '\t' || c == '.' || c == '*' || c == '_' || c == '-' || c == '(' || c == ')' ||
                   c == '[' || c == ']') {
            end_atom();
        } else {
            fault_ = Fault::unknown_character;
        }
    }

    constexpr void append(char c) noexcept {
        if (atom_size_ < longest)
            atom_[atom_size_++] = c;
        else
            fault_ = Fault::unknown;
    }

    /// Adds the atom read so far to the factors or to the divisors.
    constexpr void end_atom() noexcept {
        const bool divides = below_ || exponent_;
        auto& text = divides ? divisors_ : text_;
        std::size_t& size = divides ? divisors_size_ : size_;
        if (atom_size_ != 0 && size + atom_size_ + 1 <= longest) {
            if (divides)
                text[size++] = '/';
            else if (size != 0)
                text[size++] = '.';
            for (std::size_t i = 0; i < atom_size_; ++i) text[size++] = atom_[i];
        } else if (atom_size_ != 0) {
            fault_ = Fault::unknown;
        }
        atom_size_ = 0;
        minus_ = exponent_ = false;
    }

    constexpr void merge() noexcept {
        for (std::size_t i = 0; i < divisors_size_; ++i) text_[size_++] = divisors_[i];
    }

    std::array<char, 2 * longest> text_{}, divisors_{};
    std::array<char, longest> atom_{};
    std::size_t size_ = 0, divisors_size_ = 0, atom_size_ = 0;
    bool below_ = false, minus_ = false, exponent_ = false;
    Fault fault_ = Fault::none;
};

/// Equal but for the case of letters; that of the first M or m of a counts too if it is exact.
constexpr bool same(std::string_view a, std::string_view b, bool exact_first) noexcept {
    if (a.size() != b.size() || a.empty()) return false;
    const std::size_t first = exact_first ? a.find_first_of("Mm") : std::string_view::npos;
    if (first != std::string_view::npos && a[first] != b[first]) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (lower(a[i]) != lower(b[i])) return false;
    return true;
}

constexpr bool has_spelling(const Unit& unit, std::string_view name, bool exact_first) noexcept {
    for (std::string_view rest = unit.spellings; !rest.empty();) {
        const std::size_t end = rest.find(' ');
        if (same(rest.substr(0, end), name, exact_first)) return true;
        rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
    }
    return false;
}

template <std::size_t N>
constexpr Reading find_normal(const std::array<Unit, N>& units, Dimension dimension, std::string_view name) noexcept {
    Fault fault = Fault::unknown;
    for (const Unit& unit : units) {
        if (unit.dimension != dimension) continue;
        if (has_spelling(unit, name, unit.exact_first)) return {&unit, false, Fault::none};
        if (has_spelling(unit, name, false)) fault = Fault::letter_case;
    }
    return {nullptr, false, fault};
}

/// Cuts the ending off, with the mark before it; false if the text does not end so.
constexpr bool cut(std::string_view& name, std::string_view ending) noexcept {
    if (name.size() <= ending.size() || !same(name.substr(name.size() - ending.size()), ending, false)) return false;
    name.remove_suffix(ending.size());
    if (name.back() == '.' || name.back() == '/') name.remove_suffix(1);
    return true;
}

/// A pressure that is written as absolute or gauge: bara, bar(g), psi abs, MPa gauge.
constexpr Reading find_referred(std::string_view name) noexcept {
    for (const std::string_view ending : {"absolute", "abs", "a", "gauge", "g"}) {
        std::string_view rest = name;
        if (!cut(rest, ending)) continue;
        Reading reading = find_normal(table, Dimension::pressure, rest);
        reading.gauge = reading && ending.front() == 'g';
        return reading;
    }
    return {};
}

} // namespace detail

/// The unit of that dimension with that name: "MPa", "kJ/(kg K)", "bar(g)", "deg C", UTF-8 signs
/// such as the degree, the micro and superscripts included. Blanks, brackets and dots are passed over, and so is the case
/// of letters unless it matters. If there is none, the reading says why.
constexpr Reading find(Dimension dimension, std::string_view name) noexcept {
    const detail::Normal normal(name);
    if (normal.fault() != Fault::none) return {nullptr, false, normal.fault()};
    const Reading plain = detail::find_normal(table, dimension, normal.text());
    if (plain && plain.unit->needs_reference) return {nullptr, false, Fault::reference};
    if (plain || dimension != Dimension::pressure) return plain;
    const Reading referred = detail::find_referred(normal.text());
    return referred || referred.fault == Fault::letter_case ? referred : plain;
}

/// The same for units of density, speed and the dimensions after it: "lb/ft3", "K/MPa", "W/(m K)".
constexpr Reading find_of_property(Dimension dimension, std::string_view name) noexcept {
    const detail::Normal normal(name);
    if (normal.fault() != Fault::none) return {nullptr, false, normal.fault()};
    return detail::find_normal(property_table, dimension, normal.text());
}

// ---- Systems of units -----------------------------------------------------------------------------------------------

/// One unit for each dimension: those that the program, charts, tables and the Python package offer.
enum class System : unsigned char {
    bar, ///< bar, degC, m3/kg, kJ/kg, kJ/(kg K): those of ktl
    si,  ///< Pa, K, m3/kg, J/kg, J/(kg K)
    mpa, ///< MPa, K, m3/kg, kJ/kg, kJ/(kg K)
    us   ///< psia, degF, ft3/lb, Btu/lb, Btu/(lb degF)
};
inline constexpr std::array<std::string_view, 4> system_names{"bar", "si", "mpa", "us"};
inline constexpr std::size_t system_count = system_names.size();
inline constexpr std::size_t dimension_count = static_cast<std::size_t>(Dimension::surface_tension) + 1;

namespace detail {

/// In the order of Dimension.
using Names = std::array<std::string_view, dimension_count>;
inline constexpr std::array<Names, system_count> systems{{
    {"bar", "degC", "m3/kg", "kJ/kg", "kJ/(kg K)", "kg/kg", "kg/m3", "m/s", "1/bar", "1/K", "K/bar", "Pa s", "m2/s",
     "W/(m K)", "N/m"},
    {"Pa", "K", "m3/kg", "J/kg", "J/(kg K)", "kg/kg", "kg/m3", "m/s", "1/Pa", "1/K", "K/Pa", "Pa s", "m2/s", "W/(m K)",
     "N/m"},
    {"MPa", "K", "m3/kg", "kJ/kg", "kJ/(kg K)", "kg/kg", "kg/m3", "m/s", "1/MPa", "1/K", "K/MPa", "Pa s", "m2/s",
     "W/(m K)", "N/m"},
    {"psi", "degF", "ft3/lb", "Btu/lb", "Btu/(lb degF)", "kg/kg", "lb/ft3", "ft/s", "1/psi", "1/degF", "degF/psi",
     "lb/(ft s)", "ft2/s", "Btu/(h ft degF)", "lbf/ft"},
}};

constexpr const Unit* named(Dimension dimension, std::string_view name) noexcept {
    for (const Unit& unit : table)
        if (unit.dimension == dimension && unit.name == name) return &unit;
    for (const Unit& unit : property_table)
        if (unit.dimension == dimension && unit.name == name) return &unit;
    return nullptr;
}

} // namespace detail

/// The unit of a dimension in a system; pressures are absolute. Without a unit if there is no such system or dimension.
constexpr Reading in_system(System system, Dimension dimension) noexcept {
    const auto row = static_cast<std::size_t>(system), column = static_cast<std::size_t>(dimension);
    if (row >= system_count || column >= dimension_count) return {};
    return {detail::named(dimension, detail::systems[row][column]), false, Fault::none};
}

/// The unit that a system has in place of one of ktl, "kJ/kg": of a property by the unit that properties.def gives it. Without
/// a unit if ktl has none of that name, as for pure numbers, "1".
constexpr Reading in_system(System system, std::string_view unit_of_ktl) noexcept {
    for (std::size_t k = 0; k < dimension_count; ++k)
        if (detail::systems[0][k] == unit_of_ktl) return in_system(system, static_cast<Dimension>(k));
    return {};
}

} // namespace units
} // namespace ktl
