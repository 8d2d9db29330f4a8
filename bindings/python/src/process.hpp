// What is computed of states beside their properties: mixtures, exergy, distances from saturation.
#pragma once

#include "python_api.hpp"

namespace ktl::python {

// Arrays of results have an element for each state, and so have those of a tuple. Signal handlers run between blocks.

/// mix(system, states, flows, surroundings_t, ends, flow, entropy_generated, lost_work, status): ktl::mix of each row. states,
/// flows: tuples with an array for each stream.
PyObject* mixtures_of_states(PyObject* module, PyObject* arguments);
/// exergy(system, states, p0, t0, flow, closed, status): ktl::exergy to surroundings of p0 in bar, t0 in degC.
PyObject* exergies_of_states(PyObject* module, PyObject* arguments);
/// beside_saturation(system, what, states, out): ktl::superheat (0), subcooling, wetness or latent_heat (3).
PyObject* beside_saturation(PyObject* module, PyObject* arguments);
/// saturation_by(system, vapour, property, values, t, count, status): ktl::saturation_by of each value; t has three numbers for each.
PyObject* saturation_points(PyObject* module, PyObject* arguments);

} // namespace ktl::python
