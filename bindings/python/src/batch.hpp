// Columns of states on several threads.
#pragma once

#include "python_api.hpp"

namespace ktl::python {

/// batch(system, formulation, pair, a, b, properties, outputs, status, threads, progress) -> (cancelled, solved)
///
/// Fills the arrays outputs and status as ktl::batch does. properties: bytes, a number each; threads: 0 for one to each
/// processor. Every 10 ms the calling thread takes the interpreter's lock, lets signal handlers run, and calls
/// progress(done, total) unless it is None. If progress returns False, rows not yet begun get the status cancelled; if it
/// or a signal handler raises, the same, and then the exception is raised.
PyObject* batch_columns(PyObject* module, PyObject* arguments);

} // namespace ktl::python
