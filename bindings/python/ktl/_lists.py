"""The lists of pairs, properties and statuses, as the extension has them from the library's headers."""

from enum import IntEnum
from typing import NamedTuple

from . import _ktl

SYSTEMS = tuple(_ktl.systems)
IFC67, IF97 = range(2)  # formulations


class Property(NamedTuple):
    number: int
    name: str
    units: tuple  # one for each system
    meaning: str


class Pair(NamedTuple):
    number: int
    name: str
    a: Property
    b: Property


PROPERTIES = {row[0]: Property(k, *row) for k, row in enumerate(_ktl.properties)}
_by_number = list(PROPERTIES.values())
PAIRS = {name: Pair(k, name, _by_number[a], _by_number[b]) for k, (name, a, b) in enumerate(_ktl.pairs)}

Status = IntEnum("Status", {name: k for k, (name, _) in enumerate(_ktl.statuses)}, module="ktl")
Status.__doc__ = "What became of a request: solved (0), or the reason why not; its text is .sentence."
Status.sentence = property(lambda self: sentence(self, IFC67), doc="The status in plain English.")



def sentence(status, formulation):
    """The status in plain English, with the limits of a formulation."""
    return _ktl.statuses[status][1][formulation]


# The pair that two names make, in either order, and whether its values are in the other order.
GIVEN = {}
for _pair in PAIRS.values():
    GIVEN[_pair.a.name, _pair.b.name] = (_pair, False)
    GIVEN[_pair.b.name, _pair.a.name] = (_pair, True)


def no_pair(names, pairs=PAIRS):
    """The exception for given names that make none of the pairs."""
    given = ", ".join(names) or "nothing"
    known = ", ".join(f"{PAIRS[pair].a.name} and {PAIRS[pair].b.name}" for pair in pairs)
    return TypeError(f"no state is determined by {given}; the pairs are: {known}")


def pairs_of(formulation):
    """The names of the pairs that a formulation has."""
    return tuple(PAIRS) if formulation == IFC67 else ("pt", "ph", "ps", "px", "tx", "hs")


def unit_of(prop, system):
    """The unit of a property in a system of SYSTEMS; empty if it has none."""
    unit = prop.units[SYSTEMS.index(system)]
    return "" if unit == "1" else unit
