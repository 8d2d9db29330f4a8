// States kept as a whole: an array of NumPy whose elements are ktl::State, opaque to Python.
#pragma once

#include "python_api.hpp"

#include <cstddef>

namespace ktl::python {

/// The size of an element.
extern const std::size_t state_size;

/// solve(system, pair, a, b, number, states): solves every row, the state of the given number, into the array states. Lets
/// signal handlers run between blocks.
PyObject* solve_states(PyObject* module, PyObject* arguments);
/// column(system, states, property, phase, out): a property of the states (phase 0), of their liquid (1) or vapour (2).
PyObject* column_of_states(PyObject* module, PyObject* arguments);
/// derivative(system, states, phase, of, by, at_constant, out): ktl::derivative of the states or of a phase; for the phases
/// ktl::saturation_derivative if at_constant is -1.
PyObject* derivative_of_states(PyObject* module, PyObject* arguments);
/// step(system, process, property, states, to, efficiency, wetness_factor, surroundings_t, ends, work, heat, entropy_generated,
/// lost_work, status): ktl::step of each row; `property` is what `to` is, surroundings_t in degC. Lets signal handlers run between
/// blocks.
PyObject* steps_of_states(PyObject* module, PyObject* arguments);
/// status_column(states, out): their statuses, a byte each.
PyObject* statuses_of_states(PyObject* module, PyObject* arguments);

} // namespace ktl::python
