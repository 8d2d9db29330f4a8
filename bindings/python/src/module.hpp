// What the functions of the extension share: how their arguments are read.
//
// The Python files of the package are the only callers, so a wrong argument here is a fault of theirs; it still raises an
// exception, because nothing that is reachable from Python may crash.
#pragma once

#include "python_api.hpp"

#include "lists.hpp"

#include <span>

namespace ktl::python {

/// False, with a Python exception set, if the object is not the number of a unit system.
[[nodiscard]] bool system_from(PyObject* object, System* system);
/// The same for a number already read.
[[nodiscard]] bool system_from(long number, System* system);

/// The numbers of a contiguous array of doubles, and of one of bytes; writable if asked. False, with a Python exception
/// set, if the object is anything else.
[[nodiscard]] bool doubles_of(PyObject* object, bool writable, std::span<double>* numbers);
[[nodiscard]] bool bytes_of(PyObject* object, std::span<unsigned char>* bytes);
/// The memory of a contiguous array whose elements have the given size.
[[nodiscard]] bool elements_of(PyObject* object, std::size_t size, bool writable, std::span<char>* memory);

/// Sets a Python exception; false.
bool refuse(const char* sentence);

} // namespace ktl::python
