// The command "compare": states of a plant test, maps and the saturation line after the 1967 formulation and after IF97.
#pragma once

#include "report.hpp"
#include "scales.hpp"
#include "tables.hpp"

namespace program {

/// The two formulations, in the order of all results.
enum class Formulation { ifc67, if97 };
inline constexpr std::array<std::string_view, 2> formulation_names{"1967", "IF97"};

/// State after a formulation. scale: that of temperatures given to the 1967 formulation, which are measured on the ITS-90.
ktl::State state_after(Formulation formulation, const Pair& pair, double first, double second, Scale scale);
/// Why it has no state, in a sentence.
std::string reason_after(Formulation formulation, ktl::Status status);
/// False if one state is water and the other steam: below the critical pressures these are two phases.
bool same_phase(const ktl::State& a, const ktl::State& b);
/// A property in the unit of the program; not-a-number if there is none.
double value_of(const Property& property, const ktl::State& state);

/// A report, and whether something in it is missing.
struct Comparison {
    Report report;
    bool complete = true;
};

Comparison compare_test(const std::string& path, const Properties& properties, Scale scale);
/// Differences of v, h, s or cp over lists of pressures and temperatures.
Comparison compare_map(std::string_view property, const std::vector<double>& p, const std::vector<double>& t,
                       Scale scale);
Comparison compare_saturation(const std::vector<double>& t, Scale scale);

/// Numbers of a text such as "1,10,100" or "50:350:50" (from, to, step). Throws UsageError that names the option.
std::vector<double> number_list(std::string_view option, std::string_view text);

} // namespace program
