#include "chart.hpp"

#include "module.hpp"

#include <algorithm>
#include <cmath>
#include <ktl/diagram.hpp>
#include <new>
#include <string>

namespace ktl::python {

namespace {

using diagram::Chart;
using diagram::Drawing;

double in_unit(double value, Property property, diagram::System system) {
    return units::Reading{diagram::unit(system, property), false, units::Fault::none}.from_ktl(value, 0.0);
}
double from_unit(double value, Property property, diagram::System system) {
    return units::Reading{diagram::unit(system, property), false, units::Fault::none}.to_ktl(value, 0.0);
}

/// Adds an object to a list and gives it up; false, with an exception, if there is none.
bool append(PyObject* list, PyObject* object) {
    const bool done = object != nullptr && PyList_Append(list, object) == 0;
    Py_XDECREF(object);
    return done;
}

PyObject* column(const std::vector<diagram::Point>& points, Property property, diagram::System system) {
    npy_intp size = static_cast<npy_intp>(points.size());
    PyObject* array = PyArray_SimpleNew(1, &size, NPY_DOUBLE);
    if (array == nullptr) return nullptr;
    auto* numbers = static_cast<double*>(PyArray_DATA(reinterpret_cast<PyArrayObject*>(array)));
    std::transform(points.begin(), points.end(), numbers,
                   [&](const diagram::Point& point) { return in_unit(point.get(property), property, system); });
    return array;
}

/// (property, value, ((x, y), ...))
PyObject* line_object(const diagram::Line& line, int property, const Chart& chart) {
    PyObject* strokes = PyList_New(0);
    if (strokes == nullptr) return nullptr;
    for (const auto& points : diagram::strokes(line)) {
        PyObject* x = column(points, chart.axes.x.property, chart.system);
        PyObject* y = x == nullptr ? nullptr : column(points, chart.axes.y.property, chart.system);
        const bool done = y != nullptr && append(strokes, Py_BuildValue("OO", x, y));
        Py_XDECREF(x);
        Py_XDECREF(y);
        if (done) continue;
        Py_DECREF(strokes);
        return nullptr;
    }
    return Py_BuildValue("idN", property, in_unit(line.value, line.held, chart.system), strokes);
}

bool fill_lines(PyObject* list, const Chart& chart, const Drawing& drawing) {
    if (!append(list, line_object(drawing.dome.water, -1, chart)) ||
        !append(list, line_object(drawing.dome.steam, -1, chart)))
        return false;
    return std::all_of(drawing.lines.begin(), drawing.lines.end(), [&](const diagram::Line& line) {
        return append(list, line_object(line, static_cast<int>(line.held), chart));
    });
}

bool fill_labels(PyObject* list, const Chart& chart, const Drawing& drawing) {
    constexpr double degrees = 57.29577951308232;
    return std::all_of(drawing.labels.begin(), drawing.labels.end(), [&](const diagram::Label& label) {
        return append(list, Py_BuildValue("siddd", label.text.c_str(), static_cast<int>(drawing.lines[label.line].held),
                                          label.x / chart.axes.x.length, label.y / chart.axes.y.length,
                                          std::atan2(label.dy, label.dx) * degrees));
    });
}

PyObject* axis_object(const diagram::Axis& axis, diagram::System system) {
    return Py_BuildValue("isi", static_cast<int>(axis.property),
                         std::string(diagram::unit_name(system, axis.property)).c_str(), axis.logarithmic ? 1 : 0);
}

PyObject* chart_object(const Chart& chart, const Drawing& drawing) {
    const auto &x = chart.axes.x, &y = chart.axes.y;
    PyObject* lines = PyList_New(0);
    PyObject* labels = PyList_New(0);
    if (lines != nullptr && labels != nullptr && fill_lines(lines, chart, drawing) &&
        fill_labels(labels, chart, drawing))
        return Py_BuildValue("(NN)(dddd)NN", axis_object(x, chart.system), axis_object(y, chart.system),
                             in_unit(chart.window.left, x.property, chart.system),
                             in_unit(chart.window.right, x.property, chart.system),
                             in_unit(chart.window.bottom, y.property, chart.system),
                             in_unit(chart.window.top, y.property, chart.system), lines, labels);
    Py_XDECREF(lines);
    Py_XDECREF(labels);
    return nullptr;
}

/// Values of families from (property, (value, ...)).
bool read_family(PyObject* given, Chart& chart) {
    int number = 0;
    PyObject* values = nullptr;
    if (PyArg_ParseTuple(given, "iO!", &number, &PyTuple_Type, &values) == 0) return false;
    const auto property = static_cast<Property>(number);
    if (number < 0 || number >= static_cast<int>(property_count) || diagram::unit(chart.system, property) == nullptr)
        return refuse("lines are those of constant p, t, v, h, s, u or x");
    auto at = std::find_if(chart.families.begin(), chart.families.end(),
                           [&](const diagram::Family& family) { return family.held == property; });
    if (at == chart.families.end()) at = chart.families.insert(at, diagram::Family{property, {}, false, 0.5});
    at->values.clear();
    for (Py_ssize_t i = 0; i < PyTuple_Size(values); ++i) {
        const double value = PyFloat_AsDouble(PyTuple_GetItem(values, i));
        if (value == -1.0 && PyErr_Occurred() != nullptr) return false;
        at->values.push_back(from_unit(value, property, chart.system));
    }
    return true;
}

/// False, with an exception, if a value of a given family has no line at all.
bool given_lines_exist(PyObject* given, const Drawing& drawing) {
    for (Py_ssize_t i = 0; i < PyTuple_Size(given); ++i) {
        const long property = PyLong_AsLong(PyTuple_GetItem(PyTuple_GetItem(given, i), 0));
        for (const diagram::Line& line : drawing.lines)
            if (static_cast<long>(line.held) == property && line.fault != diagram::Fault::none &&
                line.fault != diagram::Fault::outside_window)
                return refuse(diagram::sentence(line.fault));
    }
    return true;
}

bool read_window(PyObject* given, const Chart& chart, diagram::Window& window) {
    if (PyArg_ParseTuple(given, "dddd", &window.left, &window.right, &window.bottom, &window.top) == 0) return false;
    for (double* limit : {&window.left, &window.right}) *limit = from_unit(*limit, chart.axes.x.property, chart.system);
    for (double* limit : {&window.bottom, &window.top}) *limit = from_unit(*limit, chart.axes.y.property, chart.system);
    return true;
}

PyObject* made(PyObject* arguments) {
    int preset = 0, system = 0;
    double width = 0.0, height = 0.0, deviation = 0.0;
    PyObject *window = nullptr, *lines = nullptr;
    if (PyArg_ParseTuple(arguments, "iiOO!ddd", &preset, &system, &window, &PyTuple_Type, &lines, &width, &height,
                         &deviation) == 0)
        return nullptr;
    if (preset < 0 || preset > static_cast<int>(diagram::Preset::pt)) return refuse("no such chart"), nullptr;
    if (system < 0 || system > static_cast<int>(diagram::System::us)) return refuse("unknown unit system"), nullptr;
    const auto kind = static_cast<diagram::Preset>(preset);
    const auto in = static_cast<diagram::System>(system);
    Chart chart = diagram::preset(kind, in, width, height);
    if (window != Py_None) {
        diagram::Window limits;
        if (!read_window(window, chart, limits)) return nullptr;
        chart = diagram::preset(kind, limits, in, width, height);
    }
    chart.tolerance = deviation;
    for (Py_ssize_t i = 0; i < PyTuple_Size(lines); ++i)
        if (!read_family(PyTuple_GetItem(lines, i), chart)) return nullptr;
    const Drawing drawing = diagram::compute(chart);
    if (drawing.fault != diagram::Fault::none) return refuse(diagram::sentence(drawing.fault)), nullptr;
    if (!given_lines_exist(lines, drawing)) return nullptr;
    return chart_object(chart, drawing);
}

} // namespace

PyObject* chart(PyObject* /*module*/, PyObject* arguments) {
    try {
        return made(arguments);
    } catch (const std::bad_alloc&) {
        return PyErr_NoMemory();
    }
}

} // namespace ktl::python
