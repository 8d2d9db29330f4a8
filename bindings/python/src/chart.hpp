// Lines and labels of charts.
#pragma once

#include "python_api.hpp"

namespace ktl::python {

/// chart(preset, system, window, lines, width, height, deviation) -> (axes, window, lines, labels)
///
/// preset, system: numbers of ktl::diagram::Preset and System. window: (left, right, bottom, top) in the units of the chart, or None.
/// lines: a tuple of (property, (value, ...)), which take the place of the chart's own values. width, height, deviation: mm.
/// Returned: axes, two of (property, unit, logarithmic); window; lines, each (property, value, ((x, y), ...)) with arrays for each
/// stroke, those of the dome first with the property -1; labels, each (text, property, x, y, angle) with x and y as parts of the
/// axes and the angle in degrees.
PyObject* chart(PyObject* module, PyObject* arguments);

} // namespace ktl::python
