// Python's limited API and NumPy's C API, set up alike in every file of the extension. One file defines
// KTL_PYTHON_IMPORTS_NUMPY before it includes this header: it holds the table of NumPy's functions.
#pragma once

#define PY_SSIZE_T_CLEAN
#include <Python.h>

#define NPY_NO_DEPRECATED_API NPY_2_0_API_VERSION
#define NPY_TARGET_VERSION NPY_1_24_API_VERSION
#define PY_ARRAY_UNIQUE_SYMBOL ktl_python_array_functions
#define PY_UFUNC_UNIQUE_SYMBOL ktl_python_ufunc_functions
#ifndef KTL_PYTHON_IMPORTS_NUMPY
#define NO_IMPORT_ARRAY
#define NO_IMPORT_UFUNC
#endif
#include <numpy/arrayobject.h>
#include <numpy/ufuncobject.h>
