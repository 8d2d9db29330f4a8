// Units: their factors, and which names are read.
#include "support/compare.hpp"

#include <gtest/gtest.h>
#include <ktl/units.hpp>
#include <limits>
#include <set>
#include <string>

namespace {

using namespace ktl::test;
using namespace ktl::units;

Reading read(Dimension dimension, std::string_view name) {
    return dimension < Dimension::density ? find(dimension, name) : find_of_property(dimension, name);
}

/// 100 of the unit in ktl's, from the definitions of the pound, the inch, the pound-force, the calorie and so on:
/// exact fractions, rounded. The atmosphere is 1 bar.
TEST(UnitNames, Factors) {
    struct Row {
        Dimension dimension;
        std::vector<const char*> names;
        double value;
    };
    using D = Dimension;
    for (const Row& row : std::initializer_list<Row>{
             {D::pressure, {"bar", "BAR", "_bar", " [bar] ", "bara", "bar(a)", "bar abs", "bar_absolute"}, 100.0},
             {D::pressure, {"barg", "bar(g)", "bar gauge", "bar-g"}, 101.0},
             {D::pressure, {"mbar", "hPa", "hPa(abs)"}, 0.1},
             {D::pressure,
              {"\xC2\xB5"
               "bar",
               "\xCE\xBC"
               "bar",
               "ubar"},
              1.0e-4},
             {D::pressure, {"Pa", "N/m2", "N m-2", "N\xC2\xB7m\xE2\x81\xBB\xC2\xB2", "N/m^2"}, 1.0e-3},
             {D::pressure, {"kPa", "KPA", "kPaa"}, 1.0},
             {D::pressure, {"MPa", "Mpa", "MPA", "MPa(a)"}, 1000.0},
             {D::pressure, {"psia", "psi (a)", "lbf/in2 abs"}, 6.8947572931683613},
             {D::pressure, {"psig", "PSIG", "psi gauge"}, 7.8947572931683613},
             {D::pressure, {"kgf/cm2", "kg/cm\xC2\xB2", "at", "ata", "kp/cm2"}, 98.0665},
             {D::pressure, {"atm"}, 101.325},
             {D::pressure, {"Torr", "torr"}, 0.13332236842105263},
             {D::pressure, {"mmHg", "mm Hg"}, 0.133322387415},
             {D::pressure, {"inHg"}, 3.386388640341},
             {D::temperature,
              {"degC", "C",
               "\xC2\xB0"
               "C",
               "\xE2\x84\x83", "deg C", "celsius",
               "\xC2\xBA"
               "C"},
              100.0},
             {D::temperature, {"K", "k", "kelvin", "\xE2\x84\xAA"}, -173.15},
             {D::temperature,
              {"degF", "F",
               "\xC2\xB0"
               "F",
               "\xE2\x84\x89"},
              37.777777777777778},
             {D::temperature,
              {"degR", "\xC2\xB0"
                       "R"},
              -217.59444444444444},
             {D::volume, {"m3/kg", "m\xC2\xB3/kg", "m^3/kg", "m3 kg-1", "M3/KG"}, 100.0},
             {D::volume, {"dm3/kg", "l/kg", "cm3/g"}, 0.1},
             {D::volume, {"ft3/lb", "ft\xC2\xB3/lbm"}, 6.2427960576144606},
             {D::energy, {"kJ/kg", "kj/kg", "kJ kg\xE2\x81\xBB\xC2\xB9", "J/g"}, 100.0},
             {D::energy, {"J/kg"}, 0.1},
             {D::energy, {"MJ/kg"}, 1.0e5},
             {D::energy, {"kcal/kg"}, 418.68},
             {D::energy, {"Btu/lb", "BTU/lbm"}, 232.6},
             {D::entropy, {"kJ/(kg K)", "kJ/kgK", "kJ/kg/K", "kJ/kg-K", "kJ/(kg\xC2\xB7K)", "kJ kg^-1 K^-1"}, 100.0},
             {D::entropy, {"J/(kg K)"}, 0.1},
             {D::entropy,
              {"kcal/(kg K)",
               "Btu/(lb \xC2\xB0"
               "F)",
               "Btu/lb-R"},
              418.68},
             {D::quality, {"kg/kg", "1"}, 100.0},
             {D::quality, {"%"}, 1.0},
             {D::density, {"kg/m3"}, 100.0},
             {D::density, {"lb/ft3", "lbm/ft^3"}, 1601.8463373960140},
             {D::speed, {"ft/s", "ft s^-1"}, 30.48},
             {D::compressibility, {"1/Pa"}, 1.0e7},
             {D::compressibility, {"1/MPa", "1/MPA"}, 10.0},
             {D::compressibility, {"1/psi"}, 1450.3773773020922},
             {D::expansion, {"1/K", "1/degC"}, 100.0},
             {D::expansion, {"1/degF"}, 180.0},
             {D::joule_thomson, {"K/Pa"}, 1.0e7},
             {D::joule_thomson, {"K/MPa"}, 10.0},
             {D::joule_thomson, {"degF/psi"}, 805.76520961227346},
             {D::viscosity, {"Pa s", "kg/(m s)"}, 100.0},
             {D::viscosity, {"lb/(ft s)"}, 148.81639435695538},
             {D::kinematic_viscosity, {"ft2/s"}, 9.290304},
             {D::conductivity, {"W/(m K)"}, 100.0},
             {D::conductivity, {"Btu/(h ft degF)", "Btu/(h ft F)"}, 173.07346663713911},
             {D::surface_tension, {"lbf/ft"}, 1459.3902937206365},
         }) {
        for (const char* const name : row.names) {
            const Reading unit = read(row.dimension, name);
            ASSERT_TRUE(unit) << name << ": " << sentence(unit.fault);
            EXPECT_TRUE(within(named(name), unit.to_ktl(100.0, 1.0), row.value, 4.5e-16 * std::fabs(row.value)));
            EXPECT_TRUE(within(named(name, " back"), unit.from_ktl(unit.to_ktl(100.0, 1.0), 1.0), 100.0, 5e-13));
        }
    }
}

/// What is nearly a unit, or could be two.
TEST(UnitNames, Refused) {
    struct Row {
        Dimension dimension;
        Fault fault;
        std::vector<const char*> names;
    };
    using D = Dimension;
    for (const Row& row : std::initializer_list<Row>{
             {D::pressure,
              Fault::unknown,
              {"", "b", "barr", "ba", "bar2", "P", "a", "g", "kg/m2", "mm", "Pas", "bar/K", "1000 Pa",
               "a very long name that no unit has, not in any notation"}},
             {D::pressure,
              Fault::unknown_character,
              {"\xD0\x9C\xD0\x9F\xD0\xB0", "bar\xC2\xB0\xC3", "b\xE4r", "bar!", "\xC2"}},
             {D::pressure, Fault::letter_case, {"mPa", "mpa", "MBAR", "mPa(g)"}},
             {D::pressure, Fault::reference, {"psi", "lbf/in2", "PSI"}},
             {D::temperature, Fault::unknown, {"\xC2\xB0", "deg", "CC", "Cg", "J"}},
             {D::volume, Fault::unknown, {"m3", "kg/m3", "m3 kg", "m2/kg"}},
             {D::volume, Fault::unknown_character, {"m\xB3/kg"}}, // Latin-1
             {D::energy, Fault::unknown, {"kJ", "kg/kJ", "kJ/kg2", "Btu/kg"}},
             {D::energy, Fault::letter_case, {"mJ/kg"}},
             {D::energy, Fault::unknown_character, {"\xD0\xBA\xD0\xBA\xD0\xB0\xD0\xBB/\xD0\xBA\xD0\xB3"}},
             {D::entropy, Fault::unknown, {"kJ/kg", "kJ K/kg"}},
             {D::compressibility, Fault::letter_case, {"1/mPa"}},
             {D::joule_thomson, Fault::letter_case, {"K/mPa"}},
             {D::quality, Fault::unknown_character, {"\xE2\x80\xB0"}}, // per mille
         }) {
        for (const char* const name : row.names) {
            const Reading unit = read(row.dimension, name);
            EXPECT_FALSE(unit) << name;
            EXPECT_EQ(unit.fault, row.fault) << name << ": " << sentence(unit.fault);
        }
    }
}

/// Each unit is found by the name that documents print, and no spelling is taken by two units.
TEST(UnitNames, Table) {
    std::set<std::string> seen;
    std::vector<const Unit*> all;
    for (const Unit& unit : table) all.push_back(&unit);
    for (const Unit& unit : property_table) all.push_back(&unit);
    for (const Unit* const row : all) {
        const Unit& unit = *row;
        const std::string name = std::string(unit.name) + (unit.needs_reference ? "a" : "");
        EXPECT_EQ(read(unit.dimension, name).unit, &unit) << name;
        for (std::string_view rest = unit.spellings; !rest.empty();) {
            const std::size_t end = std::min(rest.find(' '), rest.size());
            std::string key = std::to_string(static_cast<int>(unit.dimension));
            for (const char c : rest.substr(0, end)) key += detail::lower(c);
            EXPECT_TRUE(seen.insert(key).second) << key;
            EXPECT_EQ(detail::Normal(rest.substr(0, end)).text(), rest.substr(0, end));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
}

/// Every system has a unit for every dimension, by a name that is read again; the first system is ktl's own.
TEST(UnitSystems, AreComplete) {
    for (std::size_t k = 0; k < system_count; ++k)
        for (std::size_t d = 0; d < dimension_count; ++d) {
            const auto dimension = static_cast<Dimension>(d);
            const Reading unit = in_system(static_cast<System>(k), dimension);
            ASSERT_TRUE(unit) << k << ", " << d;
            const std::string name = std::string(unit.unit->name) + (unit.unit->needs_reference ? "a" : "");
            EXPECT_EQ(read(dimension, name).unit, unit.unit) << name;
            const Reading own = in_system(System::bar, dimension);
            EXPECT_EQ(own.to_ktl(1.25, 0.0), 1.25);
            EXPECT_EQ(in_system(static_cast<System>(k), own.unit->name).unit, unit.unit) << own.unit->name;
        }
    EXPECT_EQ(in_system(System::us, Dimension::viscosity).unit->name, "lb/(ft s)");
    EXPECT_EQ(in_system(System::mpa, "K/bar").unit->name, "K/MPa");
    EXPECT_EQ(in_system(System::si, "kJ/kg").unit->name, "J/kg");
    for (const Reading& none :
         {in_system(System::si, "1"), in_system(System::si, "furlong"), in_system(static_cast<System>(4), "bar"),
          in_system(System::si, static_cast<Dimension>(99))})
        EXPECT_FALSE(none);
}

} // namespace
