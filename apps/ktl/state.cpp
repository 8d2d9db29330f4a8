#include "state.hpp"

#include "number.hpp"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <system_error>

namespace program {

namespace {

/// Tolerance of ktlftn's own call of the finder.
constexpr double finder_eps = 1e-08;
/// Relative deviation up to which a state reproduces a given value.
constexpr double tolerance = 1e-06;
/// Quality up to which ktlftn takes a wet state for saturated water; as far below 1, for saturated steam.
constexpr double quality_step = 1e-06;
/// A limit of pressure or temperature may be passed by one part in 1e5, as in the library.
constexpr double slack = 1e-05;

/// Units of the library's report lines: diagnostics and warnings, and the entry's own.
constexpr int diagnostic_unit = 6;
constexpr int entry_unit = 13;

/// What a finder left: region number and the two variables of the region.
struct Found {
    int region;
    double first, second;
};

/// The state that replay hands to ktlftn, so that the search runs once for all requests about a state.
thread_local Found replayed;

int replay(double& first, double& second, const double& /*eps*/) {
    first = replayed.first;
    second = replayed.second;
    return replayed.region;
}

using Values = std::array<double, property_count>;

void request(const Found& found, const char* codes, double* values) {
    replayed = found;
    ktlftn(replay, 0.0, 0.0, codes, values);
}

bool wet_region(const Found& found) { return found.region == KTL_WET || found.region == KTL_WET_NEAR_CRITICAL; }

double value_of(QuantityIndex index, const Values& values) {
    switch (index) {
    case pressure: return values[P];
    case temperature: return values[T];
    case volume: return values[V];
    case enthalpy: return values[H];
    case entropy: return values[S];
    case energy: return values[H] - 100.0 * values[P] * values[V];
    case quality: break;
    }
    return values[X];
}

std::string with_unit(QuantityIndex index, double value) {
    const Quantity& q = quantity(index);
    return std::string(q.symbol) + " = " + show_number(value, result_digits) + " " + std::string(q.unit);
}

bool out_of_range(QuantityIndex index, double value) {
    const Quantity& q = quantity(index);
    const double beyond = index == quality ? 0.0 : slack;
    return value < q.low * (1.0 - beyond) || value > q.high * (1.0 + beyond);
}

std::string out_of_range_text(QuantityIndex index, double value) {
    const Quantity& q = quantity(index);
    return "no state: out of range, " + with_unit(index, value) + ", valid from " + show_number(q.low, result_digits) +
           " to " + show_number(q.high, result_digits);
}

/// Largest deviation of a reproduced value. Where ktlftn took a wet state for a saturated phase, the value may
/// be off by that step in quality; the other phase tells how much that is.
double allowance(QuantityIndex index, double given, const Found& found, const Values& values) {
    const double relative = tolerance * std::max(std::fabs(given), quantity(index).floor);
    if (!wet_region(found) || (values[X] > 0.0 && values[X] < 1.0)) return relative;
    Values other{};
    request({found.region, 1.0 - values[X], found.second}, "P,T,V,H,S,X.", other.data());
    return relative + quality_step * std::fabs(value_of(index, other) - value_of(index, values));
}

/// Why the state is none, or an empty text. The library reports trial points of a search just as it reports
/// final states, so the state itself is judged: finite, within the range, and with the two values given.
std::string fault(const Pair& pair, double first, double second, const Found& found, const Values& values) {
    const auto six = std::span(values).first<every_state_count>();
    if (!std::all_of(six.begin(), six.end(), [](double v) { return std::isfinite(v); }))
        return "no state: the equations yield a value that is not a number";
    for (const auto& [index, given] : {std::pair(pair.first, first), std::pair(pair.second, second)})
        if (out_of_range(index, given)) return out_of_range_text(index, given);
    for (const QuantityIndex index : {pressure, temperature, quality})
        if (out_of_range(index, value_of(index, values))) return out_of_range_text(index, value_of(index, values));
    for (const auto& [index, given] : {std::pair(pair.first, first), std::pair(pair.second, second)}) {
        const double reached = value_of(index, values);
        if (!(std::fabs(reached - given) <= allowance(index, given, found, values))) {
            return "no state: " + with_unit(index, given) + " was not reached, the search ended at " +
                   show_number(reached, result_digits);
        }
    }
    return {};
}

/// CP, DV and TC of a state of one phase.
void add_single_phase(const Found& found, Values& values) {
    request(found, "CP,DV,TC.", values.data() + every_state_count);
    // In sub-region 3 ktlftn leaves DV and TC alone; their equations hold there all the same.
    if (std::isnan(values[DV])) values[DV] = ktl_ci(values[V], values[T]);
    if (std::isnan(values[TC])) values[TC] = ktl_cj(values[V], values[T]) * 0.001;
}

} // namespace

bool Result::has(PropertyIndex index) const { return std::isfinite(values[index]); }

Evaluator::Evaluator() : reports_(open_memstream(&text_, &size_)) {
    if (reports_ == nullptr) throw std::system_error(errno, std::generic_category(), "memory stream");
    ktl_connect_unit(diagnostic_unit, reports_);
    ktl_connect_unit(entry_unit, reports_);
}

Evaluator::~Evaluator() {
    ktl_connect_unit(diagnostic_unit, nullptr);
    ktl_connect_unit(entry_unit, nullptr);
    std::fclose(reports_);
    std::free(text_);
}

void Evaluator::clear_reports() {
    std::rewind(reports_);
    // The library stops the program when its count of errors passes a limit; no batch may end that way.
    ktlerr.ientry = 0;
}

std::string Evaluator::first_report_or(std::string sentence) {
    std::fflush(reports_);
    std::string_view line(text_, size_);
    line = line.substr(0, line.find('\n'));
    // " *** KTLFTN-ERROR: Out of range, P=  1.20000000E+03 ***": the facts stand between the marks.
    const std::size_t begin = line.find(": ");
    const std::size_t end = line.rfind(" ***");
    if (begin == std::string_view::npos || end == std::string_view::npos || end < begin + 2) return sentence;
    std::string facts = "no state: ";
    for (const char c : line.substr(begin + 2, end - begin - 2))
        if (c != ' ' || !facts.ends_with('=')) facts += c;
    return facts;
}

Result Evaluator::evaluate(const Pair& pair, double first, double second, std::span<const PropertyIndex> wanted) {
    Result result;
    for (const auto& [index, given] : {std::pair(pair.first, first), std::pair(pair.second, second)}) {
        if (std::isfinite(given)) continue;
        result.error = std::string(quantity(index).name) + (std::isnan(given) ? " is not a number" : " is infinite");
        return result;
    }

    clear_reports();
    Found found{0, first, second};
    found.region = pair.finder(found.first, found.second, finder_eps);
    if (found.region < KTL_LIQUID || found.region > KTL_WET) {
        result.error =
            first_report_or("no state: at " + with_unit(pair.first, first) + ", " + with_unit(pair.second, second));
        return result;
    }
    if (pair.finder == ktlrpt && wet_region(found)) {
        result.error = "on the saturation line: undetermined, give p,x or t,x";
        return result;
    }
    Values values = result.values;
    request(found, "P,T,V,H,S,X.", values.data());
    if (const std::string sentence = fault(pair, first, second, found, values); !sentence.empty()) {
        result.error = first_report_or(sentence);
        return result;
    }

    const bool two_phases = values[X] > 0.0 && values[X] < 1.0;
    const auto single_phase = [](PropertyIndex index) { return index >= every_state_count; };
    if (!two_phases && std::any_of(wanted.begin(), wanted.end(), single_phase)) add_single_phase(found, values);
    result.values = values;
    for (const PropertyIndex index : wanted) {
        if (!result.has(index)) {
            const std::string code(properties()[index].code);
            result.error = code + (two_phases ? " is undefined for two phases" : " is infinite or not a number here");
            break;
        }
    }
    return result;
}

} // namespace program
