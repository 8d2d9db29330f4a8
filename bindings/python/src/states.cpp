#include "states.hpp"

#include "column.hpp"
#include "formulation.hpp"
#include "module.hpp"

#include <algorithm>
#include <ktl/derivative.hpp>
#include <ktl/process.hpp>
#include <type_traits>

namespace ktl::python {

// The elements are copied with the array's memory.
static_assert(std::is_trivially_copyable_v<State>);
const std::size_t state_size = sizeof(State);

namespace {

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
    long formulation_number = 0;
    int system_number = 0, pair_number = 0, number = 0;
    const Formulation* of = nullptr;
    PyObject *a_array = nullptr, *b_array = nullptr, *array = nullptr;
    System system;
    std::span<double> a, b;
    std::span<char> states;
    if (!PyArg_ParseTuple(arguments, "iliOOiO", &system_number, &formulation_number, &pair_number, &a_array, &b_array,
                          &number, &array) ||
        !system_from(system_number, &system) || !formulation_from(formulation_number, &of) ||
        !doubles_of(a_array, false, &a) || !doubles_of(b_array, false, &b) ||
        !elements_of(array, sizeof(State), true, &states))
        return nullptr;
    if (pair_number < 0 || pair_number >= static_cast<int>(pair_count) || !of->has_pair(static_cast<Pair>(pair_number)))
        return refuse("unknown pair"), nullptr;
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
                of->state(pair, in_library_unit(a_unit, a[row]), in_library_unit(b_unit, b[row]), number);
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

PyObject* second_derivative_of_states(PyObject*, PyObject* arguments) {
    int system_number = 0, phase = 0, by = 0, also_by = 0;
    PyObject *array = nullptr, *out_array = nullptr;
    System system;
    std::span<double> out;
    std::span<char> states;
    if (!PyArg_ParseTuple(arguments, "iOiiiO", &system_number, &array, &phase, &by, &also_by, &out_array) ||
        !system_from(system_number, &system) || !doubles_of(out_array, true, &out) ||
        !elements_of(array, sizeof(State), false, &states))
        return nullptr;
    if (!is_property(by) || !is_property(also_by)) return refuse("unknown property"), nullptr;
    if (out.size() != states_in(states)) return refuse("columns differ in length"), nullptr;
    const auto first = static_cast<Property>(by), second = static_cast<Property>(also_by);
    const Conversion& v = conversion(system, Property::v);
    const Conversion &x = conversion(system, first), &y = conversion(system, second);
    const double multiplier = v.multiplier * x.divisor * y.divisor, divisor = v.divisor * x.multiplier * y.multiplier;
    Py_BEGIN_ALLOW_THREADS;
    for (std::size_t row = 0; row < out.size(); ++row) {
        const State state = state_at(states, row);
        const double d = phase == 0
                             ? volume_second_derivative(state, first, second)
                             : volume_second_derivative(phase == 1 ? state.liquid() : state.vapour(), first, second);
        out[row] = d * multiplier / divisor;
    }
    Py_END_ALLOW_THREADS;
    Py_RETURN_NONE;
}

PyObject* steps_of_states(PyObject*, PyObject* arguments) {
    int system_number = 0, process_number = 0, to_property = 0;
    StepOptions options;
    PyObject *array = nullptr, *to_array = nullptr, *efficiency_array = nullptr, *end_array = nullptr;
    PyObject *work_array = nullptr, *heat_array = nullptr, *entropy_array = nullptr, *lost_array = nullptr;
    PyObject* status_array = nullptr;
    System system;
    std::span<double> to, efficiency, work, heat, entropy, lost;
    std::span<unsigned char> status;
    std::span<char> states, ends;
    if (!PyArg_ParseTuple(arguments, "iiiOOOddOOOOOO", &system_number, &process_number, &to_property, &array, &to_array,
                          &efficiency_array, &options.wetness_factor, &options.surroundings_t, &end_array, &work_array,
                          &heat_array, &entropy_array, &lost_array, &status_array) ||
        !system_from(system_number, &system) || !elements_of(array, sizeof(State), false, &states) ||
        !doubles_of(to_array, false, &to) || !doubles_of(efficiency_array, false, &efficiency) ||
        !elements_of(end_array, sizeof(State), true, &ends) || !doubles_of(work_array, true, &work) ||
        !doubles_of(heat_array, true, &heat) || !doubles_of(entropy_array, true, &entropy) ||
        !doubles_of(lost_array, true, &lost) || !bytes_of(status_array, &status))
        return nullptr;
    if (process_number < 0 || process_number >= static_cast<int>(process_count) || !is_property(to_property))
        return refuse("unknown process"), nullptr;
    const std::size_t rows = states_in(states);
    for (const std::size_t length : {to.size(), efficiency.size(), states_in(ends), work.size(), heat.size(),
                                     entropy.size(), lost.size(), status.size()})
        if (length != rows) return refuse("columns differ in length"), nullptr;
    const Conversion& to_unit = conversion(system, static_cast<Property>(to_property));
    const Conversion &h = conversion(system, Property::h), &s = conversion(system, Property::s);
    for (std::size_t begin = 0; begin < rows; begin += block_rows) {
        const std::size_t end = std::min(begin + static_cast<std::size_t>(block_rows), rows);
        Py_BEGIN_ALLOW_THREADS;
        for (std::size_t row = begin; row < end; ++row) {
            const double target = to_unit.identity() ? to[row] : to_unit.to_library(to[row]);
            const Step y =
                step(static_cast<Process>(process_number), state_at(states, row), target, efficiency[row], options);
            std::memcpy(ends.data() + row * sizeof y.end, &y.end, sizeof y.end);
            status[row] = static_cast<unsigned char>(y.status);
            work[row] = h.from_library(y.work);
            heat[row] = h.from_library(y.heat);
            entropy[row] = s.from_library(y.entropy_generated);
            lost[row] = h.from_library(y.lost_work);
        }
        Py_END_ALLOW_THREADS;
        if (PyErr_CheckSignals() != 0) return nullptr;
    }
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
