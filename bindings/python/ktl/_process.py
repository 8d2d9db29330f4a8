"""Steps of a turbine cycle from states: expansion, compression, throttling, heating."""

import numpy as np

from . import _ktl
from ._columns import column
from ._lists import PAIRS, PROPERTIES, SYSTEMS, Status, unit_of
from ._state import State

# Name, number of ktl::Process, what the step goes to, whether it has an efficiency, and a sentence.
_STEPS = (
    ("expand", 0, "p", True, "to a lower pressure: h1 - h2 = efficiency (h1 - h2s)"),
    ("compress", 1, "p", True, "to a higher pressure: h2 - h1 = (h2s - h1) / efficiency"),
    ("expand_polytropic", 2, "p", True, "to a lower pressure: dh = efficiency v dp at each pressure"),
    ("compress_polytropic", 3, "p", True, "to a higher pressure: dh = v dp / efficiency at each pressure"),
    ("throttle", 4, "p", False, "to a lower pressure, h constant"),
    ("heat_to_t", 5, "t", False, "heated or cooled at constant pressure to a temperature"),
    ("heat_to_h", 6, "h", False, "heated or cooled at constant pressure to an enthalpy"),
    ("heat_to_x", 7, "x", False, "heated or cooled at constant pressure to a quality"),
)


class Step:
    """A step, or an array of them: the state end, status, and what it gave and lost, in the units of h and s.

    work is h1 - h2 of expansions and compressions, heat h2 - h1 of heating, entropy_generated s2 - s1 of steps without
    heat, lost_work the same times the absolute temperature of the surroundings. NaN unless the status is solved.
    """

    __slots__ = ("end", "status", "work", "heat", "entropy_generated", "lost_work")

    def __init__(self, end, status, results):
        self.end = end
        self.status = status if status.shape else Status(status.item())
        self.work, self.heat, self.entropy_generated, self.lost_work = (y if y.shape else y.item() for y in results)

    def __bool__(self):
        if self.end.shape:
            raise ValueError("whether several steps are solved is ambiguous: use .status == ktl.Status.solved")
        return self.status == Status.solved


def _step(system, number, prop, start, to, efficiency, wetness_factor, surroundings_t):
    if not isinstance(start, State):
        raise TypeError(f"a step begins at a ktl.State, not at {type(start).__name__}")
    if start._system != system:
        raise TypeError("the state is one of another unit system")
    to, efficiency = column(to, prop.name), column(efficiency, "efficiency")
    shape = np.broadcast_shapes(start.shape, to.shape, efficiency.shape)
    rows = np.empty(shape, start._rows.dtype)
    rows[...] = start._rows
    to, efficiency = (np.require(np.broadcast_to(y, shape), np.float64, "CA") for y in (to, efficiency))
    ends, status = np.empty(shape, rows.dtype), np.empty(shape, np.uint8)
    results = [np.empty(shape) for _ in range(4)]
    _ktl.step(SYSTEMS.index(system), number, prop.number, rows, to, efficiency, wetness_factor, surroundings_t, ends, *results, status)
    return Step(_ends(system, ends), status, results)


def _ends(system, rows):
    """The states of the rows; for pickle they are those of their pressure and enthalpy."""
    values = {}
    for name in "ph":
        values[name] = np.empty(rows.shape)
        _ktl.column(SYSTEMS.index(system), rows, PROPERTIES[name].number, 0, values[name])
    return State(system, PAIRS["ph"].name, values["p"], values["h"], 0, rows)


def step_functions(system):
    """The functions of a unit system by their names."""
    return {name: _function(system, name, *rest) for name, *rest in _STEPS}


def _function(system, name, number, to_name, has_efficiency, sentence):
    prop = PROPERTIES[to_name]
    if has_efficiency:

        def function(start, to, efficiency=1.0, *, wetness_factor=0.0, surroundings_degc=15.0):
            return _step(system, number, prop, start, to, efficiency, wetness_factor, surroundings_degc)

        more = """
    efficiency: above 0, at most 1. wetness_factor: Baumann's, for expansions; empirical, as efficiencies are."""
    else:

        def function(start, to, *, surroundings_degc=15.0):
            return _step(system, number, prop, start, to, 1.0, 0.0, surroundings_degc)

        more = ""
    unit = unit_of(prop, system)
    function.__name__ = name
    function.__doc__ = f"""A state {sentence}: ktl.Step.

    start: ktl.State, one or an array of them. to: {prop.meaning}{f" ({unit})" if unit else ""}; numbers or arrays that broadcast.{more}
    surroundings_degc: temperature of the surroundings for the lost work, degC in every unit system.
    A step that does not exist is not an error: its status tells why, and its numbers are NaN.
    """
    return function
