// What ktl.table needs besides the states: the values of the rows, and conversions.
#pragma once

#include "python_api.hpp"

namespace ktl::python {

/// table_steps(first, last, step): the values of ktl::table::Steps as a list, empty if there are none.
PyObject* table_steps(PyObject* module, PyObject* arguments);
/// table_pressures(first, last): those of ktl::table::Pressures.
PyObject* table_pressures(PyObject* module, PyObject* arguments);
/// convert(system, property, values, to_library): converts an array in place, from the library's unit to that of the system
/// or back.
PyObject* convert(PyObject* module, PyObject* arguments);

} // namespace ktl::python
