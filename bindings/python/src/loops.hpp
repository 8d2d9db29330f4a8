// The inner loops of the ufuncs.
#pragma once

#include "python_api.hpp"

#include "formulation.hpp"
#include "lists.hpp"

namespace ktl::python {

/// What the loop of a ufunc computes; its last argument.
struct Function {
    const Formulation* of;
    Pair pair;
    Property property; ///< of the property loop alone
    const Conversion *a, *b, *result;
};

/// A property of the states with two given values: two columns of doubles to one.
void property_loop(char** columns, const npy_intp* rows, const npy_intp* steps, void* function);
/// Their statuses, one byte each.
void status_loop(char** columns, const npy_intp* rows, const npy_intp* steps, void* function);
/// How many states have the values, as int32.
void count_loop(char** columns, const npy_intp* rows, const npy_intp* steps, void* function);

/// The saturation line, one column to one: pressure by temperature, temperature by pressure, slope by temperature.
void saturation_pressure_loop(char** columns, const npy_intp* rows, const npy_intp* steps, void* function);
void saturation_temperature_loop(char** columns, const npy_intp* rows, const npy_intp* steps, void* function);
void saturation_slope_loop(char** columns, const npy_intp* rows, const npy_intp* steps, void* function);

} // namespace ktl::python
