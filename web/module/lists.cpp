// The lists of the library: pairs, properties, statuses and units, as JSON.
#include "measure.hpp"
#include "module.hpp"

#include <ktl/if97.hpp>
#include <ktl/version.h>

namespace web {

namespace {

/// Appends ", " between the elements of a list, then the text.
void add(std::string& out, std::string_view text) {
    if (out.back() != '[' && out.back() != '{') out += ", ";
    out += text;
}

void add_member(std::string& out, std::string_view name, std::string_view value) {
    add(out, "");
    add_json(out, name);
    out += ": ";
    add_json(out, value);
}

constexpr std::array dimensions{"pressure", "temperature", "volume", "energy", "entropy", "quality"};

void add_property(std::string& out, std::string_view name, std::string_view unit, std::string_view code,
                  std::string_view meaning, std::string_view owner) {
    add(out, "{");
    add_member(out, "name", name);
    add_member(out, "unit", unit);
    add_member(out, "code", code);
    add_member(out, "meaning", meaning);
    add_member(out, "of", owner);
    out += '}';
}

void add_lists(std::string& out) {
    out += "{\"version\": ";
    add_json(out, ktl::build_info().version);
    out += ", \"pairs\": [";
    for (const program::Pair& pair : program::pairs()) {
        add(out, "{");
        add_member(out, "name", pair.name);
        add_member(out, "first", program::quantity(pair.first).symbol);
        add_member(out, "second", program::quantity(pair.second).symbol);
        out += ktl::if97::has_pair(pair.id) ? ", \"if97\": true}" : ", \"if97\": false}";
    }
    out += "], \"properties\": [";
#define KTL_DEFINE_PROPERTY(property, PROPERTY, unit, code, meaning)                                                   \
    add_property(out, #property, unit, code, meaning, "any");
#define KTL_DEFINE_STATE_PROPERTY(property, PROPERTY, unit, code, meaning)                                             \
    add_property(out, #property, unit, code, meaning, "mixture");
#define KTL_DEFINE_PHASE_PROPERTY(property, PROPERTY, unit, code, meaning)                                             \
    add_property(out, #property, unit, code, meaning, "phase");
#include <ktl/properties.def>
    out += "], \"statuses\": [";
#define KTL_DEFINE_STATUS(status, STATUS, sentence)                                                                    \
    add(out, "{");                                                                                                     \
    add_member(out, "name", #status);                                                                                  \
    add_member(out, "sentence", sentence);                                                                             \
    out += '}';
#include <ktl/status.def>
    out += "], \"units\": [";
    for (const ktl::units::Unit& unit : ktl::units::table) {
        add(out, "{");
        add_member(out, "name", unit.name);
        add_member(out, "dimension", dimensions[static_cast<std::size_t>(unit.dimension)]);
        for (const auto& [name, value] : {std::pair{"times", unit.times}, {"over", unit.over}, {"zero", unit.zero}}) {
            add(out, "\"");
            out.append(name) += "\": ";
            add_json(out, value);
        }
        out += '}';
    }
    out += "]}";
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// The text as the program reads numbers: no blanks between the digits of a number, a point for a decimal comma. Blanks may be the
/// narrow ones that programs write between thousands. Refuses a comma that may as well separate thousands.
std::string plain_number(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size();) {
        std::size_t blank = 0;
        for (const std::string_view known : {" ", "\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x89"})
            if (text.substr(i, known.size()) == known) blank = known.size();
        const std::size_t next = i + blank;
        const bool between = !out.empty() && is_digit(out.back()) && next < text.size() && is_digit(text[next]);
        if (blank != 0 && !between) out += ' ';
        if (blank == 0) out += text[i];
        i += blank == 0 ? 1 : blank;
    }
    std::string_view minus = "\xE2\x88\x92";
    if (const std::size_t at = out.find(minus); at == out.find_first_not_of(' ') && at != std::string::npos)
        out.replace(at, minus.size(), "-");
    const std::size_t end = out.find_first_not_of("+-0123456789., ");
    const std::string_view digits = std::string_view(out).substr(0, end);
    const std::size_t comma = digits.find(',');
    if (comma == std::string_view::npos) return out;
    if (digits.find(',', comma + 1) != std::string_view::npos || digits.find('.') != std::string_view::npos)
        throw program::UsageError(program::in_quotes(text) + " has more than one decimal mark");
    out[comma] = '.';
    return out;
}

} // namespace

} // namespace web

extern "C" {

/// All lists, to be read once.
KTL_WEB_EXPORT(ktl_lists) int ktl_lists() {
    return web::answered([] { web::add_lists(web::answer); });
}

/// Reads the given text as a value of the quantity with that property's number, with or without a unit: the first element of the
/// columns, in ktl's unit. atmosphere: bar, for gauge pressures; below 0 if none is known.
KTL_WEB_EXPORT(ktl_read) int ktl_read(unsigned property, double atmosphere) {
    return web::answered([=] {
        const program::Atmosphere above = atmosphere < 0.0 ? program::Atmosphere{} : program::Atmosphere{atmosphere};
        web::columns.front().front() = program::argument_value(program::quantity(static_cast<ktl::Property>(property)),
                                                               web::plain_number(web::given), above);
    });
}
}
