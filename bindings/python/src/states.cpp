#include "states.hpp"

#include "column.hpp"
#include "module.hpp"

#include <algorithm>
#include <ktl/derivative.hpp>
#include <type_traits>

namespace ktl::python {

// The elements are copied with the array's memory.
static_assert(std::is_trivially_copyable_v<State>);
const std::size_t state_size = sizeof(State);

namespace {

std::size_t states_in(std::span<char> memory) { return memory.size() / sizeof(State); }

State state_at(std::span<char> memory, std::size_t row) {
    State state;
    std::memcpy(&state, memory.data() + row * sizeof state, sizeof state);
    return state;
}

double value(const State& state, int phase, Property property) {
    switch (phase) {
    case 1: return state.liquid().get(property);
    case 2: return state.vapour().get(property);
    default: return state.get(property);
    }
}

/// What a derivative is asked for; along the saturation line if nothing is held constant.
struct Derivative {
    Property of, by, at_constant;
    bool along_line;

    [[nodiscard]] double operator()(const State& state, int phase) const {
        if (phase == 0) return along_line ? detail::nan : ktl::derivative(state, of, by, at_constant);
        const Phase& one = phase == 1 ? state.liquid() : state.vapour();
        return along_line ? saturation_derivative(one, of, by) : ktl::derivative(one, of, by, at_constant);
    }
};

bool is_property(int number) { return number >= 0 && number < static_cast<int>(property_count); }

} // namespace

PyObject* solve_states(PyObject*, PyObject* arguments) {
    int system_number = 0, pair_number = 0, number = 0;
    PyObject *a_array = nullptr, *b_array = nullptr, *array = nullptr;
    System system;
    std::span<double> a, b;
    std::span<char> states;
    if (!PyArg_ParseTuple(arguments, "iiOOiO", &system_number, &pair_number, &a_array, &b_array, &number, &array) ||
        !system_from(system_number, &system) || !doubles_of(a_array, false, &a) || !doubles_of(b_array, false, &b) ||
        !elements_of(array, sizeof(State), true, &states))
        return nullptr;
    if (pair_number < 0 || pair_number >= static_cast<int>(pair_count)) return refuse("unknown pair"), nullptr;
    if (a.size() != b.size() || a.size() != states_in(states)) return refuse("columns differ in length"), nullptr;
    const auto pair = static_cast<Pair>(pair_number);
    const PairRow& row_of_pair = pairs[static_cast<std::size_t>(pair)];
    const Conversion &a_unit = conversion(system, row_of_pair.a), &b_unit = conversion(system, row_of_pair.b);
    const auto in_library_unit = [](const Conversion& unit, double x) {
        return unit.identity() ? x : unit.to_library(x);
    };
    for (std::size_t begin = 0; begin < a.size(); begin += block_rows) {
        const std::size_t end = std::min(begin + static_cast<std::size_t>(block_rows), a.size());
        Py_BEGIN_ALLOW_THREADS;
        for (std::size_t row = begin; row < end; ++row) {
            const State state =
                ktl::state(pair, in_library_unit(a_unit, a[row]), in_library_unit(b_unit, b[row]), number);
            std::memcpy(states.data() + row * sizeof state, &state, sizeof state);
        }
        Py_END_ALLOW_THREADS;
        if (PyErr_CheckSignals() != 0) return nullptr;
    }
    Py_RETURN_NONE;
}

PyObject* column_of_states(PyObject*, PyObject* arguments) {
    int system_number = 0, property_number = 0, phase = 0;
    PyObject *array = nullptr, *out_array = nullptr;
    System system;
    std::span<double> out;
    std::span<char> states;
    if (!PyArg_ParseTuple(arguments, "iOiiO", &system_number, &array, &property_number, &phase, &out_array) ||
        !system_from(system_number, &system) || !doubles_of(out_array, true, &out) ||
        !elements_of(array, sizeof(State), false, &states))
        return nullptr;
    if (!is_property(property_number)) return refuse("unknown property"), nullptr;
    if (out.size() != states_in(states)) return refuse("columns differ in length"), nullptr;
    const auto property = static_cast<Property>(property_number);
    const Conversion& unit = conversion(system, property);
    Py_BEGIN_ALLOW_THREADS;
    for (std::size_t row = 0; row < out.size(); ++row) {
        const double y = value(state_at(states, row), phase, property);
        out[row] = unit.identity() ? y : unit.from_library(y);
    }
    Py_END_ALLOW_THREADS;
    Py_RETURN_NONE;
}

PyObject* derivative_of_states(PyObject*, PyObject* arguments) {
    int system_number = 0, phase = 0, of = 0, by = 0, at_constant = 0;
    PyObject *array = nullptr, *out_array = nullptr;
    System system;
    std::span<double> out;
    std::span<char> states;
    if (!PyArg_ParseTuple(arguments, "iOiiiiO", &system_number, &array, &phase, &of, &by, &at_constant, &out_array) ||
        !system_from(system_number, &system) || !doubles_of(out_array, true, &out) ||
        !elements_of(array, sizeof(State), false, &states))
        return nullptr;
    if (!is_property(of) || !is_property(by) || (at_constant != -1 && !is_property(at_constant)))
        return refuse("unknown property"), nullptr;
    if (out.size() != states_in(states)) return refuse("columns differ in length"), nullptr;
    const Derivative derivative{static_cast<Property>(of), static_cast<Property>(by),
                                static_cast<Property>(at_constant), at_constant == -1};
    const Conversion &to = conversion(system, derivative.of), &per = conversion(system, derivative.by);
    Py_BEGIN_ALLOW_THREADS;
    for (std::size_t row = 0; row < out.size(); ++row) {
        const double y = derivative(state_at(states, row), phase);
        out[row] = to.identity() && per.identity() ? y : y * to.multiplier / to.divisor * per.divisor / per.multiplier;
    }
    Py_END_ALLOW_THREADS;
    Py_RETURN_NONE;
}

PyObject* statuses_of_states(PyObject*, PyObject* arguments) {
    PyObject *array = nullptr, *out_array = nullptr;
    std::span<unsigned char> out;
    std::span<char> states;
    if (!PyArg_ParseTuple(arguments, "OO", &array, &out_array) || !bytes_of(out_array, &out) ||
        !elements_of(array, sizeof(State), false, &states))
        return nullptr;
    if (out.size() != states_in(states)) return refuse("columns differ in length"), nullptr;
    for (std::size_t row = 0; row < out.size(); ++row)
        out[row] = static_cast<unsigned char>(state_at(states, row).status());
    Py_RETURN_NONE;
}

} // namespace ktl::python
