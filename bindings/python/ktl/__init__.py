"""Properties of water and steam after the 1967 IFC Formulation for Industrial Use (IFC-67).

Every property of every pair of given values is a NumPy ufunc, named property_pair:

    ktl.t_ph(100, 2800)             temperature (degC) at 100 bar and 2800 kJ/kg
    ktl.h_pt(p, t)                  a column; any shapes that broadcast
    ktl.status_ph(p, h)             ktl.Status of each row; ktl.states_ph counts the states

and there are

    ktl.h(p=100, t=500)             the same by the names of what is given
    ktl.state(p=100, h=2800)        a state, or an array of them, with every property
    ktl.saturation(t=200)           a point of the saturation line; ktl.psat(t), ktl.tsat(p)
    ktl.batch("ph", p, h, "t v s")  several columns at once, on all processors
    ktl.diagram("hs")               a chart, as axes of matplotlib
    ktl.table.saturation(by="t")    steam tables as DataFrames of pandas
    ktl.expand(state, 0.05, 0.88)   steps of a turbine cycle, with work and losses: ktl.Step
    ktl.mix, ktl.exergy             mixed streams, exergy of states
    ktl.if97.h_pt(p, t)             the same after IAPWS-IF97, for comparison
    ktl.saturation_by("vapour", h=2790)  all temperatures of saturated water or steam with a value

Units: bar, degC, m3/kg, kJ/kg, kJ/(kg K); ktl.si has Pa, K, J/kg, ktl.mpa MPa, K, kJ/kg, ktl.us psi, degF,
Btu/lb, and ktl.units takes and gives quantities of pint. Valid range: 0.01 to 800 degC, 0.006112444 to 1000 bar, one phase
or two.
"""

import importlib as _importlib

from . import _ktl
from ._batch import Cancelled
from ._diagram import diagram
from ._lists import Status
from ._namespace import fill as _fill
from ._process import Exergy, Mixture, SaturationPoints, Step
from ._state import Phase, Saturation, State

__version__ = _ktl.version

_modules = ("duckdb", "if97", "mpa", "si", "table", "units", "us")

_classes = ["Cancelled", "Exergy", "Mixture", "Phase", "Saturation", "SaturationPoints", "State", "Status", "Step"]
__all__ = _fill(globals(), "bar") + [*_classes, "diagram"]


def __getattr__(name):
    if name in _modules:
        return _importlib.import_module(f"{__name__}.{name}")
    raise AttributeError(f"module {__name__!r} has no attribute {name!r}")


def __dir__():
    return sorted({*globals(), *_modules})
