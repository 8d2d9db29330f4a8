"""The functions of ktl with quantities of pint: quantities go in, in any unit of the right dimension, and come out.

    import pint
    quantity = pint.get_application_registry().Quantity
    ktl.units.h_pt(quantity(10, "MPa"), quantity(500, "degC"))    # kJ/kg
    ktl.units.h(p=quantity(10, "MPa"), t=quantity(500, "degC"))
    ktl.units.state(p=quantity(10, "MPa"), t=quantity(500, "degC")).cp

Results have the units of ktl. A quantity of another dimension, or a number without a unit for anything but the quality,
is a pint.DimensionalityError.
"""

import functools
import re

import pint

import ktl as _ktl

from ._lists import GIVEN, PAIRS, PROPERTIES, no_pair, unit_of
from ._process import STEPS

_SLOPE_UNIT = "bar/K"


def _pint_unit(unit):
    """As pint writes a unit of the list of properties."""
    return re.sub(r"([a-z])([23])", r"\1**\2", unit).replace(" ", "*")


_UNITS = {name: _pint_unit(unit_of(prop, "bar")) for name, prop in PROPERTIES.items()}
# Of attributes that are no properties; differences of temperatures are in K.
_MORE_UNITS = {
    "slope": _SLOPE_UNIT, "superheat": "K", "subcooling": "K", "wetness": "kg/kg",
    "latent_heat": _UNITS["h"], "work": _UNITS["h"], "heat": _UNITS["h"], "lost_work": _UNITS["h"],
    "entropy_generated": _UNITS["s"],
}


def _magnitude(value, name):
    if not isinstance(value, pint.Quantity):
        value = pint.get_application_registry().Quantity(value, "")
    return value.to(_UNITS[name]).magnitude


def _quantity(magnitude, unit, given):
    """A result, of the registry that the first quantity given belongs to."""
    registry = next((value._REGISTRY for value in given if isinstance(value, pint.Quantity)), None)
    return (registry or pint.get_application_registry()).Quantity(magnitude, unit)


def _function(name, names, unit):
    """A ufunc of ktl with quantities; names: what its arguments are."""
    ufunc = getattr(_ktl, name)

    if len(names) == 2:

        def function(x1, x2, /):
            magnitudes = ufunc(_magnitude(x1, names[0]), _magnitude(x2, names[1]))
            return magnitudes if unit is None else _quantity(magnitudes, unit, (x1, x2))
    else:

        def function(x1, /):
            return _quantity(ufunc(_magnitude(x1, names[0])), unit, (x1,))

    function.__name__ = function.__qualname__ = name
    function.__doc__ = f"ktl.{name} with quantities of pint{f'; the result in {unit}' if unit else ''}."
    return function


def _keyword_function(name):
    def function(**given):
        if tuple(given) not in GIVEN:
            raise no_pair(given)
        magnitudes = {key: _magnitude(value, key) for key, value in given.items()}
        return _quantity(getattr(_ktl, name)(**magnitudes), _UNITS[name], given.values())

    function.__name__ = function.__qualname__ = name
    function.__doc__ = f"ktl.{name} with quantities of pint."
    return function


class _Quantities:
    """A state, phase, point of the saturation line or outcome of a process, whose values are quantities of pint."""

    __slots__ = ("_values", "_registry", "_own_units")

    def __init__(self, values, registry, own_units=None):
        self._values, self._registry, self._own_units = values, registry, own_units or {}

    def __getattr__(self, name):
        value = getattr(self._values, name)
        if name in ("liquid", "vapour", "end"):
            return _Quantities(value, self._registry)
        unit = self._own_units.get(name) or _UNITS.get(name) or _MORE_UNITS.get(name)
        return value if unit is None else self._registry.Quantity(value, unit)

    def _derivative(self, value, of, by):
        # Differences of temperatures: 1 degC is 1 K.
        over, under = (_UNITS[name].replace("degC", "K") or "1" for name in (of, by))
        return self._registry.Quantity(value, f"({over})/({under})")

    def derivative(self, of, by, at_constant):
        return self._derivative(self._values.derivative(of, by, at_constant), of, by)

    def saturation_derivative(self, of, by):
        return self._derivative(self._values.saturation_derivative(of, by), of, by)

    def volume_second_derivative(self, by, also_by):
        value = self._values.volume_second_derivative(by, also_by)
        first, second = (_UNITS[name].replace("degC", "K") for name in (by, also_by))
        return self._registry.Quantity(value, f"({_UNITS['v']})/({first})/({second})")

    def __bool__(self):
        return bool(self._values)

    def __len__(self):
        return len(self._values)

    def __getitem__(self, index):
        return _Quantities(self._values[index], self._registry)

    def __repr__(self):
        return repr(self._values)


def _with_quantities(call, given, **options):
    magnitudes = {name: _magnitude(value, name) for name, value in given.items()}
    return _Quantities(call(**magnitudes, **options), _quantity(0, "", given.values())._REGISTRY)


@functools.wraps(_ktl.state)
def state(*, number=0, **given):
    if tuple(given) not in GIVEN:
        raise no_pair(given)
    return _with_quantities(_ktl.state, given, number=number)


@functools.wraps(_ktl.saturation)
def saturation(**given):
    if tuple(given) not in (("t",), ("p",)):
        raise TypeError("a point of the saturation line is given by t or by p")
    return _with_quantities(_ktl.saturation, given)


def _must_be_quantities(state, what):
    if not isinstance(state, _Quantities):
        raise TypeError(f"{what} a state of ktl.units, not {type(state).__name__}")


def _step_function(name, to_name):
    call = getattr(_ktl, name)

    @functools.wraps(call)
    def function(start, to, *arguments, **options):
        _must_be_quantities(start, "a step begins at")
        return _Quantities(call(start._values, _magnitude(to, to_name), *arguments, **options), start._registry)

    return function


@functools.wraps(_ktl.mix)
def mix(streams, flows, **options):
    streams, flows = tuple(streams), tuple(flows)
    for stream in streams:
        _must_be_quantities(stream, "a stream is")
    registry = streams[0]._registry if streams else pint.get_application_registry()
    flows = [flow if isinstance(flow, pint.Quantity) else registry.Quantity(flow, "") for flow in flows]
    unit = flows[0].units if flows else None
    mixture = _ktl.mix([stream._values for stream in streams], [flow.to(unit).magnitude for flow in flows], **options)
    return _Quantities(mixture, registry, {"flow": unit})


@functools.wraps(_ktl.exergy)
def exergy(state, **options):
    _must_be_quantities(state, "exergy is that of")
    return _Quantities(_ktl.exergy(state._values, **options), state._registry, {"flow": _UNITS["h"], "closed": _UNITS["h"]})


@functools.wraps(_ktl.saturation_by)
def saturation_by(phase, **given):
    magnitudes = {name: _magnitude(value, name) if name in _UNITS else value for name, value in given.items()}
    return _Quantities(_ktl.saturation_by(phase, **magnitudes), _quantity(0, "", given.values())._REGISTRY)


def _fill(module):
    for pair in PAIRS.values():
        names = (pair.a.name, pair.b.name)
        units = {f"{name}_{pair.name}": unit for name, unit in _UNITS.items() if name not in names}
        for name, unit in {**units, f"status_{pair.name}": None, f"states_{pair.name}": None}.items():
            module[name] = _function(name, names, unit)
    for name in PROPERTIES:
        module[name] = _keyword_function(name)
    for name, to_name in STEPS:
        module[name] = _step_function(name, to_name)
    for name, given, unit in (("psat", "t", _UNITS["p"]), ("tsat", "p", _UNITS["t"]), ("saturation_slope", "t", _SLOPE_UNIT)):
        module[name] = _function(name, (given,), unit)


_fill(globals())
