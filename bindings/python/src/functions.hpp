// The ufuncs of a unit system.
#pragma once

#include "python_api.hpp"

namespace ktl::python {

/// functions(system, formulation) -> dict: every ufunc of the unit system by its name. Made anew at each call: a Python module
/// calls it once and keeps them.
PyObject* functions(PyObject* module, PyObject* arguments);

} // namespace ktl::python
