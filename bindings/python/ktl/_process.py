"""Steps of a turbine cycle from states, mixing, exergy, and saturated states by a value."""

import numpy as np

from . import _ktl
from ._columns import column
from ._lists import IFC67, PAIRS, PROPERTIES, SYSTEMS, Status, unit_of
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


STEPS = [(name, to_name) for name, _, to_name, _, _ in _STEPS]


class _Outcome:
    """One result or several: true if it is solved."""

    __slots__ = ("status",)

    def __init__(self, status):
        self.status = status if status.shape else Status(status.item())

    def __bool__(self):
        if not isinstance(self.status, Status):
            raise ValueError("whether several results are solved is ambiguous: use .status == ktl.Status.solved")
        return self.status == Status.solved


class Step(_Outcome):
    """A step, or an array of them: the state end, status, and what it gave and lost, in the units of h and s.

    work is h1 - h2 of expansions and compressions, heat h2 - h1 of heating, entropy_generated s2 - s1 of steps without
    heat, lost_work the same times the absolute temperature of the surroundings. NaN unless the status is solved.
    """

    __slots__ = ("end", "work", "heat", "entropy_generated", "lost_work")

    def __init__(self, end, status, results):
        super().__init__(status)
        self.end = end
        self.work, self.heat, self.entropy_generated, self.lost_work = map(_plain, results)


class Mixture(_Outcome):
    """Mixed streams, or an array of them: the state end, status, flow, the sum of the flows, and for each unit of mass
    entropy_generated and lost_work, in the units of s and h. NaN unless the status is solved."""

    __slots__ = ("end", "flow", "entropy_generated", "lost_work")

    def __init__(self, end, status, results):
        super().__init__(status)
        self.end = end
        self.flow, self.entropy_generated, self.lost_work = map(_plain, results)


class Exergy(_Outcome):
    """The most work that a state can give while it comes to the surroundings, or an array of it: flow of a stream, closed of a
    closed mass, in the unit of h; and status. NaN unless the status is solved."""

    __slots__ = ("flow", "closed")

    def __init__(self, status, results):
        super().__init__(status)
        self.flow, self.closed = map(_plain, results)


class SaturationPoints(_Outcome):
    """Temperatures of a saturated phase with a value: t has a last axis of three, ascending, NaN from count on; and status."""

    __slots__ = ("t", "count")

    def __init__(self, status, t, count):
        super().__init__(status)
        self.t, self.count = t, _plain(count)


def _plain(array):
    return array if array.shape else array.item()


def _spread(array, shape):
    """An array of that shape, contiguous."""
    return np.require(np.broadcast_to(array, shape), np.float64, "CA")


def _spread_states(start, shape):
    rows = np.empty(shape, start._rows.dtype)
    rows[...] = start._rows
    return rows


def _must_be_state(start, system, what):
    if not isinstance(start, State):
        raise TypeError(f"{what} a ktl.State, not {type(start).__name__}")
    if start._system != system:
        raise TypeError("the state is one of another unit system")
    if start._formulation != IFC67:
        raise TypeError("the state is one of another formulation than that of 1967")


def _step(system, number, prop, start, to, efficiency, wetness_factor, surroundings_t):
    _must_be_state(start, system, "a step begins at")
    to, efficiency = column(to, prop.name), column(efficiency, "efficiency")
    shape = np.broadcast_shapes(start.shape, to.shape, efficiency.shape)
    rows, to, efficiency = _spread_states(start, shape), _spread(to, shape), _spread(efficiency, shape)
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


def process_functions(system):
    """The functions of a unit system by their names."""
    functions = {name: _function(system, name, *rest) for name, *rest in _STEPS}
    return {**functions, "mix": _mix_function(system), "exergy": _exergy_function(system),
            "saturation_by": _saturation_by_function(system)}


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

    start: ktl.State, one or an array of them. to: {prop.meaning}{f" ({unit})" if unit else ""}; numbers or arrays.
    All of them broadcast.{more}
    surroundings_degc: temperature of the surroundings for the lost work, degC in every unit system.
    A step that does not exist is not an error: its status tells why, and its numbers are NaN.
    """
    return function


def _mix_function(system):
    def mix(streams, flows, *, surroundings_degc=15.0):
        streams, flows = tuple(streams), tuple(column(flow, "a flow") for flow in flows)
        if len(streams) != len(flows) or not streams:
            raise ValueError(f"{len(streams)} streams and {len(flows)} flows: each needs one, and one stream is the least")
        for stream in streams:
            _must_be_state(stream, system, "a stream is")
        shape = np.broadcast_shapes(*(each.shape for each in (*streams, *flows)))
        rows = tuple(_spread_states(stream, shape) for stream in streams)
        ends, status = np.empty(shape, rows[0].dtype), np.empty(shape, np.uint8)
        results = [np.empty(shape) for _ in range(3)]
        flows = tuple(_spread(flow, shape) for flow in flows)
        _ktl.mix(SYSTEMS.index(system), rows, flows, surroundings_degc, ends, *results, status)
        return Mixture(_ends(system, ends), status, results)

    mix.__doc__ = """Streams mixed without heat and work, at the lowest of their pressures: ktl.Mixture.

    streams: a sequence of ktl.State; flows: their mass flows, numbers or arrays in one unit, not negative. States and flows
    broadcast. A stream without flow has no part in the mixture, whatever its state.
    surroundings_degc: temperature of the surroundings for the lost work, degC in every unit system.
    A mixture that does not exist is not an error: its status tells why, and its numbers are NaN.
    """
    return mix


def _exergy_function(system):
    def exergy(state, *, surroundings_bar=1.01325, surroundings_degc=15.0):
        _must_be_state(state, system, "exergy is that of")
        results, status = [np.empty(state.shape) for _ in range(2)], np.empty(state.shape, np.uint8)
        _ktl.exergy(SYSTEMS.index(system), state._rows, surroundings_bar, surroundings_degc, *results, status)
        return Exergy(status, results)

    exergy.__doc__ = f"""Exergy of a state or an array of states, {unit_of(PROPERTIES["h"], system)}: ktl.Exergy.

    surroundings_bar, surroundings_degc: in bar and degC in every unit system; water must have one phase there, and is at
    0.01 degC or above. If there is no exergy its status tells why, and its numbers are NaN.
    """
    return exergy


def _saturation_by_function(system):
    def saturation_by(phase, **given):
        if phase not in ("liquid", "vapour"):
            raise ValueError(f"phase = {phase!r} should be 'liquid' or 'vapour'")
        if len(given) != 1 or not set(given) <= set("vhsu"):
            raise TypeError("temperatures are found by one of v, h, s and u")
        ((name, value),) = given.items()
        values = np.require(column(value, name), np.float64, "CA")
        t = np.empty((*values.shape, 3))
        count, status = np.empty(values.shape, np.uint8), np.empty(values.shape, np.uint8)
        _ktl.saturation_by(SYSTEMS.index(system), phase == "vapour", PROPERTIES[name].number, values, t, count, status)
        return SaturationPoints(status, t, count)

    units = ", ".join(f"{name} ({unit_of(PROPERTIES[name], system)})" for name in "vhsu")
    degree = unit_of(PROPERTIES["t"], system)
    saturation_by.__doc__ = f"""All temperatures ({degree}) at which saturated water or steam has a value: ktl.SaturationPoints.

    phase: "liquid" or "vapour". One keyword: {units}; a number or an array.
    Up to three temperatures: v of water has a minimum at 4.7 degC, h and u of steam a maximum at 236 and 238 degC, and the
    equations change at 350 degC. If there is none the status tells why.
    """
    return saturation_by
