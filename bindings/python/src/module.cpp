// The extension ktl._ktl: the lists, the ufuncs, and what states and batches need.
#define KTL_PYTHON_IMPORTS_NUMPY
#include "module.hpp"

#include "batch.hpp"
#include "chart.hpp"
#include "formulation.hpp"
#include "functions.hpp"
#include "process.hpp"
#include "states.hpp"
#include "table.hpp"

#include <algorithm>
#include <string>
#include <string_view>

namespace ktl::python {

bool refuse(const char* sentence) {
    PyErr_SetString(PyExc_ValueError, sentence);
    return false;
}

bool system_from(long number, System* system) {
    if (number < 0 || number >= static_cast<long>(system_count)) return refuse("unknown unit system");
    *system = static_cast<System>(number);
    return true;
}

bool system_from(PyObject* object, System* system) {
    const long number = PyLong_AsLong(object);
    if (number == -1 && PyErr_Occurred() != nullptr) return false;
    return system_from(number, system);
}

namespace {

/// A contiguous array that may be read, and written if asked, without care for byte order and alignment.
PyArrayObject* plain_array(PyObject* object, bool writable) {
    if (!PyArray_Check(object)) return refuse("an array is needed"), nullptr;
    auto* array = reinterpret_cast<PyArrayObject*>(object);
    const int wanted =
        NPY_ARRAY_C_CONTIGUOUS | NPY_ARRAY_ALIGNED | NPY_ARRAY_NOTSWAPPED | (writable ? NPY_ARRAY_WRITEABLE : 0);
    if (!PyArray_CHKFLAGS(array, wanted & ~NPY_ARRAY_NOTSWAPPED) || PyArray_ISBYTESWAPPED(array))
        return refuse(
                   "the array must be contiguous, aligned and in native byte order, and writable if it is an output"),
               nullptr;
    return array;
}

template <class T>
bool numbers_of(PyObject* object, bool writable, int type, std::span<T>* numbers) {
    PyArrayObject* array = plain_array(object, writable);
    if (array == nullptr) return false;
    if (PyArray_TYPE(array) != type) return refuse("the array has another type");
    *numbers = {static_cast<T*>(PyArray_DATA(array)), static_cast<std::size_t>(PyArray_SIZE(array))};
    return true;
}

} // namespace

bool doubles_of(PyObject* object, bool writable, std::span<double>* numbers) {
    return numbers_of(object, writable, NPY_DOUBLE, numbers);
}

bool bytes_of(PyObject* object, std::span<unsigned char>* bytes) { return numbers_of(object, true, NPY_UBYTE, bytes); }

bool elements_of(PyObject* object, std::size_t size, bool writable, std::span<char>* memory) {
    PyArrayObject* array = plain_array(object, writable);
    if (array == nullptr) return false;
    if (PyArray_TYPE(array) != NPY_VOID || static_cast<std::size_t>(PyArray_ITEMSIZE(array)) != size)
        return refuse("the array has other elements");
    *memory = {PyArray_BYTES(array), static_cast<std::size_t>(PyArray_SIZE(array)) * size};
    return true;
}

namespace {

bool append(PyObject* list, PyObject* row) {
    const bool done = row != nullptr && PyList_Append(list, row) == 0;
    Py_XDECREF(row);
    return done;
}

/// ((name, first property, second property), ...)
bool fill_pairs(PyObject* list) {
    for (const PairRow& row : pairs)
        if (!append(list, Py_BuildValue("sii", row.name, static_cast<int>(row.a), static_cast<int>(row.b))))
            return false;
    return true;
}

/// (name, ...), of the unit systems
bool fill_systems(PyObject* list) {
    return std::all_of(units::system_names.begin(), units::system_names.end(),
                       [&](std::string_view name) { return append(list, PyUnicode_FromString(name.data())); });
}

/// ((name, (unit in each system), meaning), ...)
bool fill_properties(PyObject* list) {
    for (std::size_t k = 0; k < property_count; ++k) {
        PyObject* in_each = PyTuple_New(static_cast<Py_ssize_t>(system_count));
        for (std::size_t i = 0; in_each != nullptr && i < system_count; ++i) {
            const char* unit = conversion(static_cast<System>(i), static_cast<Property>(k)).unit;
            if (PyTuple_SetItem(in_each, static_cast<Py_ssize_t>(i), PyUnicode_FromString(unit)) != 0) return false;
        }
        if (!append(list, Py_BuildValue("sNs", properties[k].name, in_each, properties[k].meaning))) return false;
    }
    return true;
}

/// ((name, (sentence in each formulation)), ...)
bool fill_statuses(PyObject* list) {
    static constexpr const char* names[] = {
#define KTL_DEFINE_STATUS(status, STATUS, sentence) #status,
#include <ktl/status.def>
    };
    for (std::size_t k = 0; k < status_count; ++k)
        if (!append(list, Py_BuildValue("s(ss)", names[k], formulation(0).sentence(static_cast<Status>(k)),
                                        formulation(1).sentence(static_cast<Status>(k)))))
            return false;
    return true;
}

bool add_list(PyObject* module, const char* name, bool (*fill)(PyObject*)) {
    PyObject* list = PyList_New(0);
    const bool done = list != nullptr && fill(list) && PyModule_AddObjectRef(module, name, list) == 0;
    Py_XDECREF(list);
    return done;
}

/// NumPy and the loops keep one table for the process, so other interpreters of it are refused.
bool in_main_interpreter() {
    if (PyInterpreterState_GetID(PyInterpreterState_Get()) == 0) return true;
    PyErr_SetString(PyExc_ImportError, "ktl can be imported by the main interpreter only, not by a subinterpreter");
    return false;
}

int import_numpy() {
    import_array1(-1);
    import_umath1(-1);
    return 0;
}

int execute(PyObject* module) {
    if (!in_main_interpreter() || import_numpy() != 0) return -1;
    const std::string version = std::to_string(KTL_VERSION_MAJOR) + '.' + std::to_string(KTL_VERSION_MINOR) + '.' +
                                std::to_string(KTL_VERSION_PATCH);
    const bool done = PyModule_AddStringConstant(module, "version", version.c_str()) == 0 &&
                      PyModule_AddIntConstant(module, "state_size", static_cast<long>(state_size)) == 0 &&
                      add_list(module, "systems", fill_systems) && add_list(module, "pairs", fill_pairs) &&
                      add_list(module, "properties", fill_properties) && add_list(module, "statuses", fill_statuses);
    return done ? 0 : -1;
}

PyMethodDef methods[] = {
    {"functions", functions, METH_VARARGS,
     "functions(system, formulation): the ufuncs of a unit system by their names"},
    {"batch", batch_columns, METH_VARARGS,
     "batch(system, formulation, pair, a, b, properties, outputs, status, threads, progress)"},
    {"solve", solve_states, METH_VARARGS, "solve(system, formulation, pair, a, b, number, states)"},
    {"column", column_of_states, METH_VARARGS, "column(system, states, property, phase, out)"},
    {"derivative", derivative_of_states, METH_VARARGS, "derivative(system, states, phase, of, by, at_constant, out)"},
    {"chart", chart, METH_VARARGS, "chart(preset, system, window, lines, width, height, deviation)"},
    {"second_derivative", second_derivative_of_states, METH_VARARGS,
     "second_derivative(system, states, phase, by, also_by, out)"},
    {"mix", mixtures_of_states, METH_VARARGS,
     "mix(system, states, flows, surroundings_t, ends, flow, entropy_generated, lost_work, status)"},
    {"exergy", exergies_of_states, METH_VARARGS, "exergy(system, states, p0, t0, flow, closed, status)"},
    {"beside_saturation", beside_saturation, METH_VARARGS, "beside_saturation(system, what, states, out)"},
    {"saturation_by", saturation_points, METH_VARARGS,
     "saturation_by(system, vapour, property, values, t, count, status)"},
    {"step", steps_of_states, METH_VARARGS,
     "step(system, process, property, states, to, efficiency, wetness_factor, surroundings_t, ends, work, heat, "
     "entropy_generated, lost_work, status)"},
    {"status_column", statuses_of_states, METH_VARARGS, "status_column(states, out)"},
    {"table_steps", table_steps, METH_VARARGS, "table_steps(first, last, step)"},
    {"table_pressures", table_pressures, METH_VARARGS, "table_pressures(first, last)"},
    {"convert", convert, METH_VARARGS, "convert(system, property, values, to_library)"},
    {nullptr, nullptr, 0, nullptr},
};

PyModuleDef_Slot slots[] = {
    {Py_mod_exec, reinterpret_cast<void*>(execute)},
    {0, nullptr},
};

PyModuleDef definition = {PyModuleDef_HEAD_INIT,
                          "_ktl",
                          "The compiled part of the package ktl.",
                          0,
                          methods,
                          slots,
                          nullptr,
                          nullptr,
                          nullptr};

} // namespace

} // namespace ktl::python

// NOLINTNEXTLINE(bugprone-reserved-identifier): Python derives the name from that of the module
PyMODINIT_FUNC PyInit__ktl() { return PyModuleDef_Init(&ktl::python::definition); }
