"""Everything that ktl has, in Pa, K, m3/kg, J/kg, J/(kg K).

    import ktl.si
"""

from ._namespace import fill as _fill

__all__ = _fill(globals(), "si")
