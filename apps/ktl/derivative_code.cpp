#include "derivative_code.hpp"

#include "number.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>

namespace program {

namespace {

/// A property that has derivatives, and its unit as factors above and below the line; a difference of degC is in K.
struct Known {
    std::string_view code;
    ktl::Property id;
    std::array<std::string_view, 2> above, below;
};
constexpr std::array<Known, 9> known{{
    {"P", ktl::Property::p, {"bar"}, {}},
    {"T", ktl::Property::t, {"K"}, {}},
    {"V", ktl::Property::v, {"m3"}, {"kg"}},
    {"RHO", ktl::Property::rho, {"kg"}, {"m3"}},
    {"H", ktl::Property::h, {"kJ"}, {"kg"}},
    {"S", ktl::Property::s, {"kJ"}, {"kg", "K"}},
    {"U", ktl::Property::u, {"kJ"}, {"kg"}},
    {"G", ktl::Property::gibbs, {"kJ"}, {"kg"}},
    {"F", ktl::Property::helmholtz, {"kJ"}, {"kg"}},
}};

/// "kJ/(kg bar)" of factors with their powers: the unit of one property over that of another.
std::string unit_of(const Known& of, const Known& by) {
    std::map<std::string_view, int> powers;
    const auto add = [&](const std::array<std::string_view, 2>& factors, int power) {
        for (const std::string_view factor : factors)
            if (!factor.empty()) powers[factor] += power;
    };
    add(of.above, 1);
    add(of.below, -1);
    add(by.above, -1);
    add(by.below, 1);
    std::string above, below;
    int count_below = 0;
    for (const std::string_view factor : {"kJ", "m3", "kg", "bar", "K"}) {
        const int power = powers[factor];
        std::string& side = power > 0 ? above : below;
        if (power == 0) continue;
        count_below += power < 0 ? 1 : 0;
        if (!side.empty()) side += ' ';
        const bool squared = std::abs(power) == 2;
        side.append(squared && factor == "m3" ? "m6" : factor);
        if (squared && factor != "m3") side += '2';
    }
    if (above.empty()) above += '1';
    if (below.empty()) return above;
    above.append(count_below > 1 ? "/(" : "/").append(below).append(count_below > 1 ? ")" : "");
    return above;
}

[[noreturn]] void refuse(std::string_view given, const std::string& why) {
    std::string text = in_quotes(given);
    text += why;
    throw UsageError(text + "; a derivative is written d(h)/d(p)|s, in quotes for the shell");
}

/// Reads the text from its beginning to its end.
class Reader {
public:
    explicit Reader(std::string_view given) : given_(given), text_(lower_case(given)) {
        text_.erase(std::remove_if(text_.begin(), text_.end(), [](char c) { return c == ' ' || c == '\t'; }),
                    text_.end());
    }

    void take(std::string_view wanted, const char* if_missing) {
        if (std::string_view(text_).substr(at_, wanted.size()) != wanted) refuse(given_, if_missing);
        at_ += wanted.size();
    }
    const Known& take_property() {
        const std::size_t end = std::min(text_.find_first_of("()|/", at_), text_.size());
        const std::string name = text_.substr(at_, end - at_);
        at_ = end;
        const auto* found =
            std::find_if(known.begin(), known.end(), [&](const Known& k) { return lower_case(k.code) == name; });
        if (found == known.end())
            refuse(given_, std::string(" has ") + in_quotes(name) + " in place of P, T, V, RHO, H, S, U, G or F");
        return *found;
    }
    void end() {
        if (at_ != text_.size()) refuse(given_, std::string(" goes on with ") + in_quotes(text_.substr(at_)));
    }

private:
    std::string_view given_;
    std::string text_;
    std::size_t at_ = 0;
};

bool is_volume(ktl::Property id) { return id == ktl::Property::v || id == ktl::Property::rho; }

/// A derivative with the texts that its Property refers to.
struct Named {
    std::string code, unit, meaning;
    Property property;
};

} // namespace

bool looks_like_derivative(std::string_view given) {
    return given.size() > 1 && (given[0] == 'd' || given[0] == 'D') && trimmed(given.substr(1)).substr(0, 1) == "(";
}

const Property& derivative_property(std::string_view given) {
    Reader reader(given);
    reader.take("d(", " does not begin with d(");
    const Known& of = reader.take_property();
    reader.take(")/d(", " has no )/d( behind the first property");
    const Known& by = reader.take_property();
    reader.take(")", " has no ) behind the second property");
    reader.take("|", " does not say what is held constant");
    const Known& held = reader.take_property();
    reader.end();
    if (by.id == held.id || (is_volume(by.id) && is_volume(held.id)))
        refuse(given, std::string(": ") + std::string(by.code) + " does not change while " + std::string(held.code) +
                          " is held");

    static std::map<std::string, Named> all;
    std::string code("d(");
    code.append(of.code).append(")/d(").append(by.code).append(")|").append(held.code);
    const auto [at, is_new] = all.try_emplace(code);
    Named& named = at->second;
    if (is_new) {
        named.code = code;
        named.unit = unit_of(of, by);
        named.meaning = "partial derivative";
        named.property = {named.code, named.unit, named.meaning, of.id};
        named.property.derivative = ktl::Derivative{of.id, by.id, held.id};
    }
    return named.property;
}

} // namespace program
