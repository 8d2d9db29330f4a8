"""States as objects: one, or an array of them, with every property as an attribute."""

import numpy as np

from . import _ktl
from ._columns import column, pair_of_columns
from ._lists import GIVEN, IFC67, PAIRS, PROPERTIES, SYSTEMS, Status, no_pair, pairs_of, unit_of
from ._show import html_table, text_table

_STATE, _LIQUID, _VAPOUR = range(3)
_DIFFERENTIABLE = ("p", "t", "v", "rho", "h", "s", "u", "gibbs", "helmholtz")


def _differentiable(name):
    """The number of a property that has derivatives."""
    if name not in _DIFFERENTIABLE:
        raise ValueError(f"{name!r} has no derivatives; these have: {', '.join(_DIFFERENTIABLE)}")
    return PROPERTIES[name].number


class _Values:
    """Properties of solved states or of one of their phases; each is computed when first asked for, and kept."""

    __slots__ = ("_rows", "_phase", "_system", "_kept")

    def __init__(self, rows, phase, system):
        self._rows = rows
        self._phase = phase
        self._system = system
        self._kept = {}

    @property
    def shape(self):
        """The shape of the arrays; () for one state."""
        return self._rows.shape

    def __len__(self):
        if not self._rows.shape:
            raise TypeError("one state has no length")
        return len(self._rows)

    def _get(self, prop):
        if prop.name not in self._kept:
            values = np.empty(self._rows.shape)
            _ktl.column(SYSTEMS.index(self._system), self._rows, prop.number, self._phase, values)
            values.flags.writeable = False
            self._kept[prop.name] = values if values.shape else values.item()
        return self._kept[prop.name]

    def derivative(self, of, by, at_constant):
        """The first partial derivative (d of / d by) with at_constant held, in the units of the properties.

        The names are three of p, t, v, rho, h, s, u, gibbs and helmholtz. A mixture stays in equilibrium. NaN if the state is
        not solved, or by and at_constant do not fix a neighbouring state, as p and t of a mixture.
        """
        return self._derivative(of, by, _differentiable(at_constant))

    def _derivative(self, of, by, number_of_constant):
        values = np.empty(self._rows.shape)
        numbers = _differentiable(of), _differentiable(by), number_of_constant
        _ktl.derivative(SYSTEMS.index(self._system), self._rows, self._phase, *numbers, values)
        return values if values.shape else values.item()

    def volume_second_derivative(self, by, also_by):
        """The second derivative of v by p or t and p or t, each the other held, in the units of v, p and t.

        NaN of a mixture, and if the state is not solved.
        """
        for name in (by, also_by):
            if name not in ("p", "t"):
                raise ValueError(f"{name!r} should be 'p' or 't'")
        values = np.empty(self._rows.shape)
        numbers = PROPERTIES[by].number, PROPERTIES[also_by].number
        _ktl.second_derivative(SYSTEMS.index(self._system), self._rows, self._phase, *numbers, values)
        return values if values.shape else values.item()

    def _attribute(prop):
        unit = ", ".join(dict.fromkeys(unit for unit in prop.units if unit != "1"))
        return property(lambda self: self._get(prop), doc=f"{prop.meaning}{f' ({unit})' if unit else ''}")

    for _property in PROPERTIES.values():
        locals()[_property.name] = _attribute(_property)
    del _attribute, _property

    @property
    def region(self):
        """1 water, 2 steam, 3 and 4 near-critical, 5 and 6 two phases, 7 no state."""
        region = np.asarray(self._get(PROPERTIES["region"])).astype(np.uint8)
        return region if region.shape else int(region)

    def __repr__(self):
        return text_table(self)

    def _repr_html_(self):
        return html_table(self)


class Phase(_Values):
    """One homogeneous phase, or an array of them. NaN if the phase does not exist."""

    __slots__ = ()

    def saturation_derivative(self, of, by):
        """(d of / d by) of the saturated phase along the saturation line, in the units of the properties."""
        return self._derivative(of, by, -1)


class State(_Values):
    """A state, or an array of states, with every property as an attribute; NaN unless the status is solved.

    Returned by state(). In two phases v, rho, h, s, u, gibbs and helmholtz are those of the mixture; cp and all that exists
    for one phase alone is NaN: ask liquid or vapour. An index gives a state or a smaller array of them.
    """

    __slots__ = ("_pair", "_a", "_b", "_number", "_formulation")

    def __init__(self, system, pair, a, b, number, rows=None, formulation=IFC67):
        if rows is None:
            rows = np.empty(a.shape, f"V{_ktl.state_size}")
            _ktl.solve(SYSTEMS.index(system), formulation, PAIRS[pair].number, a, b, number, rows)
        super().__init__(rows, _STATE, system)
        self._pair, self._a, self._b, self._number, self._formulation = pair, a, b, number, formulation

    def _beside_saturation(number, name, meaning):
        def get(self):
            if self._formulation != IFC67 and name != "wetness":
                raise AttributeError(f"{name} is that of states of the 1967 formulation")
            if name not in self._kept:
                values = np.empty(self._rows.shape)
                _ktl.beside_saturation(SYSTEMS.index(self._system), number, self._rows, values)
                values.flags.writeable = False
                self._kept[name] = values if values.shape else values.item()
            return self._kept[name]

        return property(get, doc=meaning)

    superheat = _beside_saturation(
        0, "superheat", "K (degF in ktl.us) above saturation; 0 of a mixture, NaN of water and above the critical pressure")
    subcooling = _beside_saturation(
        1, "subcooling", "K (degF in ktl.us) below saturation; 0 of a mixture, NaN of steam and above the critical pressure")
    wetness = _beside_saturation(2, "wetness", "mass fraction of water in a mixture; NaN of one phase")
    latent_heat = _beside_saturation(
        3, "latent_heat", "h of saturated steam less that of water at the pressure; NaN above the critical pressure")
    del _beside_saturation

    @property
    def status(self):
        """ktl.Status of one state; of several, an array of its numbers."""
        status = np.empty(self._rows.shape, np.uint8)
        _ktl.status_column(self._rows, status)
        return status if status.shape else Status(status.item())

    @property
    def liquid(self):
        """Saturated water of a two-phase state."""
        return Phase(self._rows, _LIQUID, self._system)

    @property
    def vapour(self):
        """Saturated steam of a two-phase state."""
        return Phase(self._rows, _VAPOUR, self._system)

    def __bool__(self):
        if self._rows.shape:
            raise ValueError("whether several states are solved is ambiguous: use .status == ktl.Status.solved")
        return self.status == Status.solved

    def __getitem__(self, index):
        if not self._rows.shape:
            raise TypeError("one state has no elements")
        def part(array):
            return np.ascontiguousarray(array[index]).reshape(np.shape(array[index]))

        rows = np.empty(self._a[index].shape, self._rows.dtype)
        rows[...] = self._rows[index]
        return State(self._system, self._pair, part(self._a), part(self._b), self._number, rows, self._formulation)

    def __iter__(self):
        return (self[k] for k in range(len(self)))

    def __reduce__(self):
        # Solved anew, because another version may keep states otherwise.
        return State, (self._system, self._pair, self._a, self._b, self._number, None, self._formulation)

    def to_frame(self):
        """A DataFrame of pandas: a row for each state, a column for each property and the name of the status."""
        import pandas

        columns = {name: np.ravel(getattr(self, name)) for name in PROPERTIES}
        columns["status"] = pandas.Categorical.from_codes(np.ravel(self.status), [status.name for status in Status])
        return pandas.DataFrame(columns)


class Saturation:
    """A point of the saturation line, or an array of them: p, t, slope (dp/dt), status, and the phases liquid and vapour."""

    __slots__ = ("_state", "slope")

    def __init__(self, state, slope):
        self._state, self.slope = state, slope

    p = property(lambda self: self._state.p, doc="pressure")
    t = property(lambda self: self._state.t, doc="temperature")
    status = property(lambda self: self._state.status, doc="ktl.Status of one point; of several, an array of its numbers")
    liquid = property(lambda self: self._state.liquid, doc="saturated water")
    vapour = property(lambda self: self._state.vapour, doc="saturated steam")
    shape = property(lambda self: self._state.shape, doc="the shape of the arrays; () for one point")

    def __len__(self):
        return len(self._state)

    def __bool__(self):
        return bool(self._state)

    def __getitem__(self, index):
        return Saturation(self._state[index], self.slope[index])

    def __repr__(self):
        return text_table(self._state, "Saturation")

    def _repr_html_(self):
        return html_table(self._state, "Saturation")


def state_function(system, formulation=IFC67):
    pairs = pairs_of(formulation)
    units = ", ".join(f"{name} ({unit_of(prop, system)})" for name, prop in PROPERTIES.items() if name in "ptvhsux")

    def state(*, number=0, **given):
        pair, swapped = GIVEN.get(tuple(given), (None, False))
        if pair is None or pair.name not in pairs:
            raise no_pair(given, pairs)
        values = tuple(given.values())
        a, b = pair_of_columns(*(reversed(values) if swapped else values), (pair.a.name, pair.b.name))
        return State(system, pair.name, a, b, number, None, formulation)

    state.__doc__ = f"""The state with two given values, or an array of states: ktl.State.

    Two keywords, in any order, of {units}, that make one of the pairs
    {", ".join(pairs)}: numbers, or arrays that broadcast.
    number picks one of several states, from 0; ktl.states_ph(p, h) and so on count them. A state that does not exist is
    not an error: its status tells why, bool() is False and every property is NaN.
    """
    return state


def derivative_function(state, system):
    def derivative(of, by, at_constant, **given):
        return state(**given).derivative(of, by, at_constant)

    derivative.__doc__ = f"""The first partial derivative (d of / d by) with at_constant held, of the state with two given values.

    of, by, at_constant: names, three of {", ".join(_DIFFERENTIABLE)}; then two keywords as for
    state(). In the units of the properties: (dh/dp) in {unit_of(PROPERTIES["h"], system)} per {unit_of(PROPERTIES["p"], system)}.
    NaN if there is no such state, or by and at_constant do not fix a neighbouring one, as p and t of a mixture.
    """
    return derivative


def saturation_function(system, slope_of):
    def saturation(**given):
        if tuple(given) not in (("t",), ("p",)):
            raise TypeError("a point of the saturation line is given by t or by p")
        ((name, value),) = given.items()
        a, x = pair_of_columns(column(value, name), 0.0, (name, "x"))
        point = State(system, name + "x", a, x, 0)
        with np.errstate(invalid="ignore"):
            slope = slope_of(point.t)
        return Saturation(point, slope if point.shape else float(slope))

    saturation.__doc__ = f"""A point of the saturation line, or an array of them: ktl.Saturation.

    One keyword: t ({unit_of(PROPERTIES["t"], system)}) or p ({unit_of(PROPERTIES["p"], system)}). Outside the line the
    status tells why, bool() is False and every value is NaN.
    """
    return saturation
