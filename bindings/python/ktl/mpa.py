"""Everything that ktl has, in MPa, K, m3/kg, kJ/kg, kJ/(kg K).

    import ktl.mpa
"""

from ._namespace import fill as _fill

__all__ = _fill(globals(), "mpa")
