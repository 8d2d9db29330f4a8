"""What ktl, ktl.si, ktl.mpa and ktl.us offer: made from the lists, once for each unit system."""

import sys

from . import _ktl
from ._batch import batch_function
from ._lists import GIVEN, IFC67, PROPERTIES, SYSTEMS, no_pair, pairs_of, unit_of
from ._process import process_functions
from ._state import derivative_function, saturation_function, state_function


def fill(module, system, formulation=IFC67):
    """Puts the functions of a unit system into a module's dictionary; returns their names."""
    ufuncs = _ktl.functions(SYSTEMS.index(system), formulation)
    functions = {name: keyword_function(prop, ufuncs, system, pairs_of(formulation)) for name, prop in PROPERTIES.items()}
    functions["state"] = state_function(system, formulation)
    functions["batch"] = batch_function(system, formulation)
    if formulation == IFC67:
        functions["derivative"] = derivative_function(functions["state"], system)
        functions["saturation"] = saturation_function(system, ufuncs["saturation_slope"])
        functions.update(process_functions(system))
    for name, function in {**ufuncs, **functions}.items():
        _belongs_to(function, name, module["__name__"])
        module[name] = function
    return [*ufuncs, *functions]


def _belongs_to(function, name, module):
    """Says where a function is found again, for pickle and for help()."""
    try:
        function.__module__, function.__qualname__ = module, name
    except AttributeError:
        pass  # a ufunc of an older NumPy: pickle finds it by searching the modules


def keyword_function(prop, ufuncs, system, pairs):
    """The function of a property by the names of two given values."""
    choice = {
        names: (ufuncs[f"{prop.name}_{pair.name}"], swapped)
        for names, (pair, swapped) in GIVEN.items()
        if prop.name not in names and pair.name in pairs
    }

    def function(**given):
        try:
            ufunc, swapped = choice[tuple(given)]
        except KeyError:
            raise _refused(prop, given, pairs) from None
        a, b = given.values()
        result = ufunc(b, a) if swapped else ufunc(a, b)
        if "xarray" in sys.modules and isinstance(result, (sys.modules["xarray"].DataArray, sys.modules["xarray"].Variable)):
            result.attrs = attributes.copy()  # xarray took those of the given values
        return result

    unit = unit_of(prop, system)
    attributes = {"long_name": prop.meaning, "units": unit or "1"}
    function.__name__ = function.__qualname__ = prop.name
    possible = ", ".join(pair for pair in pairs if prop.name not in pair)
    function.__doc__ = f"""{prop.meaning[0].upper() + prop.meaning[1:]}{f", {unit}" if unit else ""}, by two given values.

    Two keywords, in any order, whose letters make one of the pairs {possible}; numbers or anything
    that NumPy's ufuncs take. The same as the ufunc {prop.name}_pair: NaN, with NumPy's "invalid" signal, if there is no
    such state. Arrays of xarray get long_name and units as attributes.
    """
    return function


def _refused(prop, given, pairs):
    if len(given) == 2 and prop.name in given and tuple(given) in GIVEN:
        return TypeError(f"{prop.name} is given already")
    return no_pair(given, pairs)
