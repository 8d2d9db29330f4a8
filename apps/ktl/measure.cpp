#include "measure.hpp"

#include <algorithm>
#include <cmath>

namespace program {

namespace {

std::string about(const Quantity& q, std::string_view text) { return std::string(q.name) + ": " + in_quotes(text); }

/// The unit without the blanks, marks and brackets around it.
std::string_view bare(std::string_view unit) {
    const std::size_t begin = std::min(unit.find_first_not_of(" \t_[("), unit.size());
    const std::size_t end = unit.find_last_not_of(" \t])");
    return end == std::string_view::npos || end < begin ? std::string_view{} : unit.substr(begin, end - begin + 1);
}

/// True if the text only encloses nothing: blanks, brackets and marks that separate.
bool names_nothing(std::string_view text) { return text.find_first_not_of(" \t_[](){}:,;") == std::string_view::npos; }

} // namespace

double at_limit(ktl::Property id, double value) {
    constexpr double rounding = 1.0e-9; // of a limit that was copied with ten digits
    const bool pressure = id == ktl::Property::p;
    if (!pressure && id != ktl::Property::t) return value;
    for (const double limit : {pressure ? 0.006112444 : 0.01, pressure ? 221.2 : 374.15, pressure ? 1000.0 : 800.0})
        if (std::fabs(value - limit) <= rounding * limit) return limit;
    return value;
}

std::string unit_names(const Quantity& q) {
    std::string out;
    for (const ktl::units::Unit& unit : ktl::units::table) {
        if (unit.dimension != q.dimension) continue;
        out += out.empty() ? "" : ", ";
        out += unit.name;
        if (unit.needs_reference) out += "a, " + std::string(unit.name) + "g";
    }
    return out;
}

Measure measure_of(const Quantity& q, std::string_view unit, const Atmosphere& atmosphere, const Measure& plain) {
    if (names_nothing(unit) || (q.dimension == ktl::units::Dimension::quality && bare(unit) == "-")) return plain;
    const ktl::units::Reading read = ktl::units::find(q.dimension, unit);
    if (!read) {
        const bool unknown = read.fault == ktl::units::Fault::unknown;
        throw UsageError(std::string(q.name) + " has no unit " + in_quotes(bare(unit)) +
                         (unknown ? "" : std::string(": ") + ktl::units::sentence(read.fault)) + "; the units are " +
                         unit_names(q));
    }
    if (read.gauge && !atmosphere) {
        throw UsageError(about(q, bare(unit)) +
                         " is a gauge pressure; give that of the atmosphere, as in --atmosphere 1.013bar");
    }
    if (plain.unit.unit == read.unit && !read.gauge) return plain;
    return {read, atmosphere.value_or(0.0)};
}

std::optional<double> field_value(const Measure& measure, std::string_view text, bool decimal_comma, BadNumber& bad) {
    const ReadNumber read = read_number(text, decimal_comma);
    if (trimmed(text).empty())
        bad = {"is empty", false};
    else if (!read.is_number || !read.rest.empty())
        bad = {"is not a number"};
    else if (read.too_large)
        bad = {"is too large for a number"};
    else
        return measure.to_ktl(read.value);
    return std::nullopt;
}

double argument_value(const Quantity& q, std::string_view text, const Atmosphere& atmosphere, const Measure& plain) {
    text = trimmed(text);
    const ReadNumber read = read_number(text);
    if (text.empty()) throw UsageError(std::string(q.name) + " is empty");
    if (!read.is_number) throw UsageError(about(q, text) + " is not a number");
    if (read.too_large) throw UsageError(about(q, text) + " is too large for a number");
    if (read.rest.empty()) return plain.to_ktl(read.value);
    const auto fault = ktl::units::find(q.dimension, read.rest).fault;
    if (fault == ktl::units::Fault::unknown)
        throw UsageError(about(q, text) + " is not a number, nor one with a unit, which are " + unit_names(q));
    return measure_of(q, read.rest, atmosphere, plain).to_ktl(read.value);
}

Atmosphere atmosphere_of(std::string_view text, const Measure& plain) {
    if (text.empty()) return std::nullopt;
    const double value = argument_value(quantity(ktl::Property::p), text, std::nullopt, plain);
    if (!std::isfinite(value) || value < 0.0) throw UsageError("atmosphere: " + in_quotes(text) + " is no pressure");
    return value;
}

} // namespace program
