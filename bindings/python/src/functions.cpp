#include "functions.hpp"

#include "lists.hpp"
#include "loops.hpp"
#include "module.hpp"

#include <cstdio>
#include <deque>
#include <string>
#include <utility>

namespace ktl::python {

namespace {

/// A ufunc refers to its name, its text, its loop and the loop's argument as long as the process runs.
struct Kept {
    std::string name, text;
    Function function;
    void* argument;
    PyUFuncGenericFunction loop;
};

constexpr char property_types[] = {NPY_DOUBLE, NPY_DOUBLE, NPY_DOUBLE};
constexpr char status_types[] = {NPY_DOUBLE, NPY_DOUBLE, NPY_UBYTE};
constexpr char count_types[] = {NPY_DOUBLE, NPY_DOUBLE, NPY_INT32};

/// Owns a reference.
class Reference {
public:
    explicit Reference(PyObject* object) : object_(object) {}
    ~Reference() { Py_XDECREF(object_); }
    Reference(const Reference&) = delete;
    Reference& operator=(const Reference&) = delete;
    [[nodiscard]] PyObject* get() const { return object_; }

private:
    PyObject* object_;
};

bool add(PyObject* all, const Function& function, std::string name, std::string text, PyUFuncGenericFunction loop,
         const char* types, int given) {
    // Never destroyed: a ufunc may outlive every static object.
    static auto& kept = *new std::deque<Kept>;
    Kept& row = kept.emplace_back(Kept{std::move(name), std::move(text), function, nullptr, loop});
    row.argument = &row.function;
    const Reference made(PyUFunc_FromFuncAndData(&row.loop, &row.argument, types, 1, given, 1, PyUFunc_None,
                                                 row.name.c_str(), row.text.c_str(), 0));
    return made.get() != nullptr && PyDict_SetItemString(all, row.name.c_str(), made.get()) == 0;
}

std::string number(double x) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.7g", x);
    return digits;
}

std::string with_unit(const std::string& meaning, const char* unit) {
    return unit == std::string("1") ? meaning : meaning + " (" + unit + ")";
}

std::string meaning_of(System system, Property property) {
    const auto& row = properties[static_cast<std::size_t>(property)];
    return with_unit(row.meaning, conversion(system, property).unit);
}

std::string range_of(System system) {
    const Conversion& p = conversion(system, Property::p);
    const Conversion& t = conversion(system, Property::t);
    return "Valid range: " + number(t.from_library(0.01)) + " to " + number(t.from_library(800)) + ' ' + t.unit + ", " +
           number(p.from_library(0.006112444)) + " to " + number(p.from_library(1000)) + ' ' + p.unit +
           ", one phase or two.\n";
}

std::string letter(Property property) { return properties[static_cast<std::size_t>(property)].name; }

/// "x1: pressure p (bar). x2: ..."
std::string given_text(System system, const PairRow& pair) {
    return "x1: " + letter(pair.a) + ", " + meaning_of(system, pair.a) + "\nx2: " + letter(pair.b) + ", " +
           meaning_of(system, pair.b) + "\n\n";
}

bool add_pair(PyObject* all, System system, const Formulation& of, Pair number_of_pair) {
    const PairRow& pair = pairs[static_cast<std::size_t>(number_of_pair)];
    const std::string ending = std::string("_") + pair.name;
    const std::string given = given_text(system, pair), range = range_of(system);
    Function function{&of,    number_of_pair, Property::p, &conversion(system, pair.a), &conversion(system, pair.b),
                      nullptr};
    for (std::size_t k = 0; k < property_count; ++k) {
        function.property = static_cast<Property>(k);
        if (function.property == pair.a || function.property == pair.b) continue;
        function.result = &conversion(system, function.property);
        std::string text = "Of the state with two given values: ";
        text.append(meaning_of(system, function.property)).append(".\n\n").append(given).append(range);
        text.append(function.property == Property::region ? "7" : "NaN");
        text.append(", with NumPy's \"invalid\" signal, if there is no such state: status").append(ending);
        text.append(
            " tells why. A given NaN\ncomes back without the signal. NaN without it: what the state does not have, "
            "such as the quality of one phase.");
        if (!add(all, function, properties[k].name + ending, std::move(text), property_loop, property_types, 2))
            return false;
    }
    return add(all, function, "status" + ending,
               "The status of the state with two given values, a number of ktl.Status: 0 if there is one.\n\n" + given +
                   range,
               status_loop, status_types, 2);
}

/// What the formulation of 1967 alone has: how many states have two given values.
bool add_count(PyObject* all, System system, Pair number_of_pair) {
    const PairRow& pair = pairs[static_cast<std::size_t>(number_of_pair)];
    return add(all,
               {&formulation(0), number_of_pair, Property::p, &conversion(system, pair.a), &conversion(system, pair.b),
                nullptr},
               std::string("states_") + pair.name,
               "How many states have two given values, 0 if none; ktl.state(..., number=n) is each of them.\n\n" +
                   given_text(system, pair) + range_of(system),
               count_loop, count_types, 2);
}

/// "NaN, with NumPy's "invalid" signal, outside 0.01 to 374.15 degC."
std::string outside_text(double low, double high, const Conversion& unit) {
    return ").\n\nNaN, with NumPy's \"invalid\" signal, outside " + number(unit.from_library(low)) + " to " +
           number(unit.from_library(high)) + ' ' + unit.unit + '.';
}

bool add_line(PyObject* all, System system, const Formulation& of) {
    const Conversion &p = conversion(system, Property::p), &t = conversion(system, Property::t);
    const std::string by_t =
        ", x1: temperature (" + std::string(t.unit) + outside_text(0.01, of.critical_temperature, t);
    const std::string by_p =
        ", x1: pressure (" + std::string(p.unit) + outside_text(of.least_pressure, of.critical_pressure, p);
    const bool done =
        add(all, {&of, Pair::tx, Property::p, &t, nullptr, &p}, "psat", with_unit("Saturation pressure", p.unit) + by_t,
            saturation_pressure_loop, property_types, 1) &&
        add(all, {&of, Pair::px, Property::t, &p, nullptr, &t}, "tsat",
            with_unit("Saturation temperature", t.unit) + by_p, saturation_temperature_loop, property_types, 1);
    if (!done || &of != &formulation(0)) return done;
    const Conversion& slope = slope_conversion(system);
    return add(all, {&of, Pair::tx, Property::p, &t, nullptr, &slope}, "saturation_slope",
               with_unit("Slope dp/dt of the saturation line", slope.unit) + by_t, saturation_slope_loop,
               property_types, 1);
}

bool add_all(PyObject* all, System system, const Formulation& of) {
    for (std::size_t k = 0; k < pair_count; ++k) {
        const auto pair = static_cast<Pair>(k);
        if (!of.has_pair(pair)) continue;
        if (!add_pair(all, system, of, pair)) return false;
        if (&of == &formulation(0) && !add_count(all, system, pair)) return false;
    }
    return add_line(all, system, of);
}

} // namespace

PyObject* functions(PyObject*, PyObject* arguments) {
    long system_number = 0, formulation_number = 0;
    System system;
    const Formulation* of = nullptr;
    if (!PyArg_ParseTuple(arguments, "ll", &system_number, &formulation_number) ||
        !system_from(system_number, &system) || !formulation_from(formulation_number, &of))
        return nullptr;
    PyObject* all = PyDict_New();
    if (all != nullptr && !add_all(all, system, *of)) Py_CLEAR(all);
    return all;
}

} // namespace ktl::python
