// States, single and in columns.
#include "columns.hpp"
#include "module.hpp"

#include <cmath>
#include <ktl/if97.hpp>

namespace web {

namespace {

/// How the columns of a table become ktl's; one after the other, as ktl_find_columns read them.
program::Columns found;

std::string_view unit_of(const program::Measure& measure, const program::Quantity& quantity) {
    return measure.unit ? measure.unit.unit->name : quantity.unit;
}

/// The names in the header, which a line feed ends each.
std::vector<std::string> header_names() {
    std::vector<std::string> names;
    for (std::size_t begin = 0; begin < given.size();) {
        const std::size_t end = std::min(given.find('\n', begin), given.size());
        names.push_back(given.substr(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

double* next(double* out, const auto& state) {
    for (std::size_t k = 0; k < ktl::property_count; ++k) *out++ = state.get(static_cast<ktl::Property>(k));
    return out;
}

int put(const ktl::State& state) {
    double* out = next(columns.front().data(), state);
    out = next(out, state.liquid());
    out = next(out, state.vapour());
    *out = state.two_phase() ? ktl::surface_tension(state.t()) : std::nan("");
    return static_cast<int>(state.status());
}

} // namespace

} // namespace web

extern "C" {

KTL_WEB_EXPORT(ktl_state_count) int ktl_state_count(unsigned pair, double a, double b) {
    return ktl::state_count(static_cast<ktl::Pair>(pair), a, b);
}

/// Writes one state to the columns: all properties, those of both phases, and the surface tension of a mixture. Returns the status.
KTL_WEB_EXPORT(ktl_state) int ktl_state(unsigned pair, double a, double b, int number) {
    return web::put(ktl::state(static_cast<ktl::Pair>(pair), a, b, number));
}

/// The same after IAPWS-IF97, for its pairs.
KTL_WEB_EXPORT(ktl_state_if97) int ktl_state_if97(unsigned pair, double a, double b) {
    return web::put(ktl::if97::state(static_cast<ktl::Pair>(pair), a, b));
}

/// Bit k of wanted asks for property k. The given columns are the first two; each property has its place among the columns, whether
/// it is wanted or not. Returns how many rows are solved.
KTL_WEB_EXPORT(ktl_batch) std::size_t ktl_batch(unsigned pair, std::size_t rows, unsigned wanted) {
    using web::columns;
    if (rows > web::block) return 0;
    std::array<ktl::Property, ktl::property_count> properties{};
    std::array<double*, ktl::property_count> outputs{};
    std::size_t count = 0;
    for (std::size_t k = 0; k < ktl::property_count; ++k) {
        if ((wanted >> k & 1U) == 0) continue;
        properties[count] = static_cast<ktl::Property>(k);
        outputs[count++] = columns[web::first_output + k].data();
    }
    static std::array<ktl::Status, web::block> status;
    const ktl::BatchResult result =
        ktl::batch(static_cast<ktl::Pair>(pair), {columns[0].data(), rows}, {columns[1].data(), rows},
                   {properties.data(), count}, {outputs.data(), count}, {status.data(), rows});
    for (std::size_t i = 0; i < rows; ++i) columns[web::status_column][i] = static_cast<double>(status[i]);
    return result.solved;
}

/// Finds the columns of a pair by the names in a header, each with a line feed behind it. The answer has their places and units.
KTL_WEB_EXPORT(ktl_find_columns) int ktl_find_columns(unsigned number, double atmosphere) {
    return web::answered([=] {
        if (number >= ktl::pair_count) throw program::UsageError("there is no such pair");
        const program::Pair& pair = program::pairs()[number];
        program::ColumnWishes wishes;
        if (atmosphere >= 0.0) wishes.atmosphere = atmosphere;
        web::found = program::find_columns(web::header_names(), &pair, wishes);
        std::string& out = web::answer;
        out = "{\"first\": " + std::to_string(web::found.first) + ", \"second\": " + std::to_string(web::found.second);
        out += ", \"first_unit\": ";
        web::add_json(out, web::unit_of(web::found.first_unit, program::quantity(pair.first)));
        out += ", \"second_unit\": ";
        web::add_json(out, web::unit_of(web::found.second_unit, program::quantity(pair.second)));
        out += '}';
    });
}

/// Converts the two given columns from the units that ktl_find_columns found.
KTL_WEB_EXPORT(ktl_convert) void ktl_convert(std::size_t rows) {
    for (std::size_t i = 0; i < rows && i < web::block; ++i) {
        web::columns[0][i] = web::found.first_unit.to_ktl(web::columns[0][i]);
        web::columns[1][i] = web::found.second_unit.to_ktl(web::columns[1][i]);
    }
}
}
