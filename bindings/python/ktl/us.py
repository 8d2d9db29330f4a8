"""Everything that ktl has, in psi (absolute), degF, ft3/lb, Btu/lb, Btu/(lb degF).

    import ktl.us
"""

from ._namespace import fill as _fill

__all__ = _fill(globals(), "us")
