"""Properties after IAPWS-IF97, the formulation that followed that of 1967, for comparison: bar, degC, m3/kg, kJ/kg, kJ/(kg K).

    ktl.if97.h_pt(p, t) - ktl.h_pt(p, t)    what the change of the formulation does

The functions of ktl by the pairs pt, ph, ps, px, tx and hs: ufuncs, keywords, state, batch, psat and tsat. Statuses are those of
ktl.Status; sentence(status) has the limits of IF97. States are ktl.State; steps of a cycle do not begin at them, and derivatives
of mixtures are NaN.
"""

from ._lists import IF97 as _FORMULATION
from ._lists import sentence as _sentence
from ._namespace import fill as _fill


def sentence(status):
    """The sentence of a ktl.Status or its number, with the limits of IF97."""
    return _sentence(status, _FORMULATION)


__all__ = _fill(globals(), "bar", _FORMULATION) + ["sentence"]
