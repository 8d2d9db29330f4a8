// States kept as a whole: an array of NumPy whose elements are ktl::State, opaque to Python.
#pragma once

#include "python_api.hpp"

#include <cstddef>
#include <cstring>
#include <ktl/steam.hpp>
#include <span>

namespace ktl::python {

/// The size of an element.
extern const std::size_t state_size;

inline std::size_t states_in(std::span<char> memory) { return memory.size() / sizeof(State); }
inline State state_at(std::span<char> memory, std::size_t row) {
    State state;
    std::memcpy(&state, memory.data() + row * sizeof state, sizeof state);
    return state;
}
inline void put_state(std::span<char> memory, std::size_t row, const State& state) {
    std::memcpy(memory.data() + row * sizeof state, &state, sizeof state);
}

/// solve(system, formulation, pair, a, b, number, states): solves every row, the state of the given number, into the array states. Lets
/// signal handlers run between blocks.
PyObject* solve_states(PyObject* module, PyObject* arguments);
/// column(system, states, property, phase, out): a property of the states (phase 0), of their liquid (1) or vapour (2).
PyObject* column_of_states(PyObject* module, PyObject* arguments);
/// derivative(system, states, phase, of, by, at_constant, out): ktl::derivative of the states or of a phase; for the phases
/// ktl::saturation_derivative if at_constant is -1.
PyObject* derivative_of_states(PyObject* module, PyObject* arguments);
/// second_derivative(system, states, phase, by, also_by, out): ktl::volume_second_derivative of the states or of a phase.
PyObject* second_derivative_of_states(PyObject* module, PyObject* arguments);
/// step(system, process, property, states, to, efficiency, wetness_factor, surroundings_t, ends, work, heat, entropy_generated,
/// lost_work, status): ktl::step of each row; `property` is what `to` is, surroundings_t in degC. Lets signal handlers run between
/// blocks.
PyObject* steps_of_states(PyObject* module, PyObject* arguments);
/// status_column(states, out): their statuses, a byte each.
PyObject* statuses_of_states(PyObject* module, PyObject* arguments);

} // namespace ktl::python
