#include "table.hpp"

#include "module.hpp"

#include <ktl/table.hpp>

namespace ktl::python {

namespace {

template <class Values>
PyObject* list_of(const Values& values) {
    PyObject* list = PyList_New(0);
    for (std::size_t k = 0; list != nullptr && k < values.size(); ++k) {
        PyObject* number = PyFloat_FromDouble(values[k]);
        if (number == nullptr || PyList_Append(list, number) != 0) Py_CLEAR(list);
        Py_XDECREF(number);
    }
    return list;
}

} // namespace

PyObject* table_steps(PyObject* /*module*/, PyObject* arguments) {
    double first, last, step;
    if (!PyArg_ParseTuple(arguments, "ddd", &first, &last, &step)) return nullptr;
    return list_of(table::Steps(first, last, step));
}

PyObject* table_pressures(PyObject* /*module*/, PyObject* arguments) {
    double first, last;
    if (!PyArg_ParseTuple(arguments, "dd", &first, &last)) return nullptr;
    return list_of(table::Pressures(first, last));
}

PyObject* convert(PyObject* /*module*/, PyObject* arguments) {
    long number;
    unsigned char property;
    PyObject* array;
    int to_library;
    System system;
    std::span<double> values;
    if (!PyArg_ParseTuple(arguments, "lbOp", &number, &property, &array, &to_library) ||
        !system_from(number, &system) || !doubles_of(array, true, &values))
        return nullptr;
    if (property >= property_count) return refuse("unknown property"), nullptr;
    const Conversion& unit = conversion(system, static_cast<Property>(property));
    for (double& x : values) x = to_library != 0 ? unit.to_library(x) : unit.from_library(x);
    Py_RETURN_NONE;
}

} // namespace ktl::python
