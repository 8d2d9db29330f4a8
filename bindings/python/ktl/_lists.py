"""The lists of pairs, properties and statuses, as the extension has them from the library's headers."""

from enum import IntEnum
from typing import NamedTuple

from . import _ktl

SYSTEMS = tuple(_ktl.systems)


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
Status.sentence = property(lambda self: _ktl.statuses[self][1], doc="The status in plain English.")

# The pair that two names make, in either order, and whether its values are in the other order.
GIVEN = {}
for _pair in PAIRS.values():
    GIVEN[_pair.a.name, _pair.b.name] = (_pair, False)
    GIVEN[_pair.b.name, _pair.a.name] = (_pair, True)


def no_pair(names):
    """The exception for given names that make no pair."""
    given = ", ".join(names) or "nothing"
    known = ", ".join(f"{pair.a.name} and {pair.b.name}" for pair in PAIRS.values())
    return TypeError(f"no state is determined by {given}; the pairs are: {known}")


def unit_of(prop, system):
    """The unit of a property in a system of SYSTEMS; empty if it has none."""
    unit = prop.units[SYSTEMS.index(system)]
    return "" if unit == "1" else unit
