"""Steam tables as DataFrames of pandas: the saturation line, and states by pressure and temperature.

    ktl.table.saturation(by="t", start=0.01, stop=374.15, step=1)
    ktl.table.single(p=[1, 5, 10], t=range(0, 801, 20))

The rows are those of the program's command "ktl table", and the values are not rounded. units: "bar" (bar, degC, kJ/kg),
"si" (Pa, K, J/kg), "mpa" (MPa, K, kJ/kg) or "us" (psi, degF, Btu/lb); the units of the columns are in frame.attrs["units"].
pandas is needed: pip install "ktl[frames]".
"""

import numpy as np

from . import _ktl
from ._columns import column
from ._lists import PROPERTIES, SYSTEMS, Status, unit_of
from ._state import saturation_function, state_function

__all__ = ["saturation", "single"]

# Limits of the rows, bar and degC.
_LINE = {"t": (0.01, 374.15), "p": (0.006112444, 221.2)}
_RANGE = {"t": (0.01, 800.0), "p": (0.006112444, 1000.0)}
_ROUNDING = 1e-9  # of a limit that was copied with ten digits
_WATER = (1, 4)  # regions

_state = state_function("bar")
_saturation = saturation_function("bar", lambda t: t)  # the slope is not used


def _pandas():
    try:
        import pandas
    except ImportError:
        raise ImportError('ktl.table needs pandas: pip install "ktl[frames]"') from None
    return pandas


def _converted(name, values, units, to_library=False):
    """A copy of values of a property, from bar, degC and so on to a system of units, or back."""
    copy = np.array(values, dtype=np.float64, ndmin=1)
    _ktl.convert(SYSTEMS.index(units), PROPERTIES[name].number, copy, to_library)
    return copy


def _given(argument, name, values, limits, where, units):
    """Values of t or p in the given units and in bar or degC; ValueError if one is outside the limits.

    A value that differs from a limit by rounding alone counts as that, and a temperature from 0 to 0.01 degC as 0.01 degC.
    """
    shown = np.atleast_1d(np.array(column(values, argument), dtype=np.float64))
    known = _converted(name, shown, units, to_library=True)
    if name == "t":
        cold = (known >= -_ROUNDING) & (known < 0.01 * (1 - _ROUNDING))
        known[cold], shown[cold] = 0.01, _converted("t", 0.01, units)
    for limit in {*_LINE[name], *_RANGE[name]}:
        known[np.abs(known - limit) <= _ROUNDING * limit] = limit
    outside = ~((known >= limits[name][0]) & (known <= limits[name][1]))
    if outside.any():
        unit = unit_of(PROPERTIES[name], units)
        least, most = _converted(name, limits[name], units)
        raise ValueError(f"{argument} = {shown[outside][0]:.10g} {unit} is outside {where}, {least:.10g} to {most:.10g} {unit}")
    return shown, known


def _known_units(units):
    if units not in SYSTEMS:
        raise ValueError(f"units = {units!r} should be one of {', '.join(SYSTEMS)}")


def _row_values(by, start, stop, step, units):
    """The values that the saturation line has rows for."""
    limits = [float(f"{limit:.13g}") for limit in _converted(by, _LINE[by], units)]  # without the rounding of a conversion
    ends = [limit if end is None else end for end, limit in zip((start, stop), limits)]
    first, last = (
        float(_given(name, by, end, _LINE, "the saturation line", units)[0][0]) for name, end in zip(("start", "stop"), ends)
    )
    if last < first:
        raise ValueError(f"stop = {last:.10g} is below start = {first:.10g}")
    if by == "p" and step is None:
        return _ktl.table_pressures(first, last)
    step = float(step) if step is not None else 10.0 if units == "us" else 5.0
    if not (step > 0 and np.isfinite(step)):
        raise ValueError(f"step = {step!r} should be a finite number above 0")
    rows = _ktl.table_steps(first, last, step)
    if not rows:
        raise ValueError(f"step = {step!r} makes more than 10000 rows")
    return rows


def _frame(columns, properties, units):
    """The DataFrame of the columns, and their units by the properties that they are."""
    frame = _pandas().DataFrame(columns)
    frame.attrs["units"] = {name: unit_of(PROPERTIES[prop], units) for name, prop in properties.items()}
    return frame


def saturation(by="t", start=None, stop=None, step=None, *, units="bar"):
    """The saturation line from start to stop, a row every step: columns t, p, v_liquid, v_vapour, h_liquid, r, h_vapour,
    s_liquid, s_vapour; r is the heat of evaporation, exactly 0 at the critical point.

    by: "t" or "p", what start, stop and step are. Both ends are rows; if no whole number of steps leads from one to the
    other, the rows between are multiples of the step. Without start and stop it is the whole line, 0.01 to 374.15 degC;
    without step there is a row every 5 K or 10 degF, or for each of the usual pressures. Temperatures from 0 to 0.01 degC
    count as 0.01 degC. ValueError if an argument is none of these, or an end is outside the line.
    """
    _pandas()
    _known_units(units)
    if by not in _LINE:
        raise ValueError(f"by = {by!r} should be 't' or 'p'")
    shown, known = _given(by, by, _row_values(by, start, stop, step, units), _LINE, "the saturation line", units)
    line = _saturation(**{by: known})
    liquid, vapour = line.liquid, line.vapour
    values = {
        "t": line.t, "p": line.p, "v_liquid": liquid.v, "v_vapour": vapour.v,
        "h_liquid": liquid.h, "r": vapour.h - liquid.h, "h_vapour": vapour.h,
        "s_liquid": liquid.s, "s_vapour": vapour.s,
    }
    properties = {name: "h" if name == "r" else name[0] for name in values}
    columns = {name: _converted(properties[name], column, units) for name, column in values.items()}
    return _frame({**columns, by: shown}, properties, units)


def _isobar(p, p_known, t, t_known, units):
    """The rows of one pressure, saturated water and steam among them, as columns."""

    def converted(values):
        return {name: _converted(name, getattr(values, name), units) for name in ("v", "h", "s", "cp")}

    states, line = _state(p=p_known, t=t_known), _saturation(p=p_known)
    undetermined = states.status == Status.undetermined
    columns, liquid = converted(states), converted(states.liquid)
    columns = {"t": t, **{name: np.where(undetermined, liquid[name], columns[name]) for name in liquid}}
    phase = ["supercritical"] * len(t)
    if line:
        water = int(np.sum(undetermined | np.isin(states.region, _WATER)))
        phase = ["water"] * water + ["saturated water", "saturated steam"] + ["steam"] * (len(t) - water)
        both = {"t": np.repeat(_converted("t", line.t, units), 2)}
        both |= {name: np.append(x, converted(line.vapour)[name]) for name, x in converted(line.liquid).items()}
        columns = {name: np.insert(x, [water, water], both[name]) for name, x in columns.items()}
    return {"p": np.full(len(phase), p), "t": columns.pop("t"), "phase": phase, **columns}


def single(p, t, *, units="bar"):
    """Water and steam at every pressure p and temperature t: columns p, t, phase, v, h, s, cp.

    p, t: numbers or sequences; t rises. Below the critical pressure each isobar has rows for its saturated water and steam,
    where it crosses the saturation line; phase is "water", "saturated water", "saturated steam", "steam" or, above the
    critical pressure, "supercritical". A row at the saturation temperature itself is water. Temperatures from 0 to 0.01 degC
    count as 0.01 degC. ValueError if a value is outside the range, or t does not rise.
    """
    pandas = _pandas()
    _known_units(units)
    given = [_given(name, name, values, _RANGE, "the range", units) for name, values in (("p", p), ("t", t))]
    for name, (shown, _) in zip("pt", given):
        if shown.ndim != 1 or not shown.size:
            raise ValueError(f"{name} should be a number or a sequence of them, and not empty")
    pressures, temperatures = given
    if np.any(np.diff(temperatures[1]) <= 0):
        raise ValueError("t should rise from value to value")
    isobars = [pandas.DataFrame(_isobar(*pressure, *temperatures, units)) for pressure in zip(*pressures)]
    frame = pandas.concat(isobars, ignore_index=True)
    return _frame(frame, {name: name for name in frame if name != "phase"}, units)
