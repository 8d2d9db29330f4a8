"""stubs.py INCLUDE_FOLDER OUT_FOLDER: the stubs of ktl, its unit systems and ktl.if97 from pairs.def and properties.def."""

import re
import sys
from pathlib import Path

PRELUDE = '''\
# Made by bindings/python/stubs.py from the lists of pairs and properties.
from collections.abc import Callable, Iterable, Iterator
from enum import IntEnum
from typing import Any, NamedTuple, Protocol, overload

import numpy as np
from numpy.typing import ArrayLike, NDArray
'''

KINDS = '''
class PropertyUfunc(Protocol):
    """A ufunc of two given values. Containers of other packages come back as their own kind."""

    __name__: str
    @overload
    def __call__(self, x1: float, x2: float, /) -> np.float64: ...
    @overload
    def __call__(self, x1: NDArray[Any], x2: NDArray[Any] | float, /, *, out: NDArray[Any] | None = ..., where: ArrayLike = ...) -> NDArray[np.float64]: ...
    @overload
    def __call__(self, x1: float, x2: NDArray[Any], /, *, out: NDArray[Any] | None = ..., where: ArrayLike = ...) -> NDArray[np.float64]: ...
    @overload
    def __call__(self, x1: Any, x2: Any, /, *args: Any, **options: Any) -> Any: ...

class LineUfunc(Protocol):
    """A ufunc of one given value."""

    __name__: str
    @overload
    def __call__(self, x1: float, /) -> np.float64: ...
    @overload
    def __call__(self, x1: NDArray[Any], /, *, out: NDArray[Any] | None = ..., where: ArrayLike = ...) -> NDArray[np.float64]: ...
    @overload
    def __call__(self, x1: Any, /, *args: Any, **options: Any) -> Any: ...

class StatusUfunc(Protocol):
    """A ufunc of two given values with integers as results."""

    __name__: str
    def __call__(self, x1: Any, x2: Any, /, *args: Any, **options: Any) -> Any: ...
'''

FUNCTIONS = '''
def state(*, number: int = ..., {given}) -> State: ...
def derivative(of: str, by: str, at_constant: str, *, number: int = ..., {given}) -> Any: ...
@overload
def saturation(*, t: ArrayLike) -> Saturation: ...
@overload
def saturation(*, p: ArrayLike) -> Saturation: ...
def batch(pair: str, a: ArrayLike, b: ArrayLike, properties: str | Iterable[str], threads: int = ..., progress: bool | Callable[[int, int], bool | None] | None = ...) -> Any: ...
def expand(start: State, to: ArrayLike, efficiency: ArrayLike = ..., *, wetness_factor: float = ..., surroundings_degc: float = ...) -> Step: ...
def compress(start: State, to: ArrayLike, efficiency: ArrayLike = ..., *, wetness_factor: float = ..., surroundings_degc: float = ...) -> Step: ...
def expand_polytropic(start: State, to: ArrayLike, efficiency: ArrayLike = ..., *, wetness_factor: float = ..., surroundings_degc: float = ...) -> Step: ...
def compress_polytropic(start: State, to: ArrayLike, efficiency: ArrayLike = ..., *, wetness_factor: float = ..., surroundings_degc: float = ...) -> Step: ...
def throttle(start: State, to: ArrayLike, *, surroundings_degc: float = ...) -> Step: ...
def heat_to_t(start: State, to: ArrayLike, *, surroundings_degc: float = ...) -> Step: ...
def heat_to_h(start: State, to: ArrayLike, *, surroundings_degc: float = ...) -> Step: ...
def heat_to_x(start: State, to: ArrayLike, *, surroundings_degc: float = ...) -> Step: ...
def mix(streams: Iterable[State], flows: Iterable[ArrayLike], *, surroundings_degc: float = ...) -> Mixture: ...
def exergy(state: State, *, surroundings_bar: float = ..., surroundings_degc: float = ...) -> Exergy: ...
@overload
def saturation_by(phase: str, *, v: ArrayLike) -> SaturationPoints: ...
@overload
def saturation_by(phase: str, *, h: ArrayLike) -> SaturationPoints: ...
@overload
def saturation_by(phase: str, *, s: ArrayLike) -> SaturationPoints: ...
@overload
def saturation_by(phase: str, *, u: ArrayLike) -> SaturationPoints: ...
psat: LineUfunc
tsat: LineUfunc
saturation_slope: LineUfunc
'''

# Of ktl.if97: no counts, no steps, fewer pairs.
FUNCTIONS_OF_IF97 = '''
def state(*, number: int = ..., {given}) -> State: ...
def batch(pair: str, a: ArrayLike, b: ArrayLike, properties: str | Iterable[str], threads: int = ..., progress: bool | Callable[[int, int], bool | None] | None = ...) -> Any: ...
def sentence(status: int) -> str: ...
psat: LineUfunc
tsat: LineUfunc
'''
PAIRS_OF_IF97 = ("pt", "ph", "ps", "px", "tx", "hs")


def rows(path, macro):
    return re.findall(rf"^{macro}\((.*?)\)$", path.read_text(), re.MULTILINE | re.DOTALL)


def read(folder):
    pairs = [[cell.strip() for cell in row.split(",")] for row in rows(folder / "pairs.def", "KTL_DEFINE_PAIR")]
    properties = []
    for row in rows(folder / "properties.def", r"KTL_DEFINE_(?:\w+_)?PROPERTY"):
        name, _, rest = (part.strip() for part in row.split(",", 2))
        unit, _, meaning = re.findall(r'"([^"]*)"', rest)
        properties.append((name, unit, meaning))
    if len(pairs) < 17 or len(properties) < 22:
        sys.exit(f"stubs.py: only {len(pairs)} pairs and {len(properties)} properties found in {folder}")
    return [(name, a, b) for name, _, a, b in pairs], properties


def statuses(folder):
    return [row.split(",")[0].strip() for row in rows(folder / "status.def", "KTL_DEFINE_STATUS")]


def classes(properties, names):
    """The classes that all unit systems share."""
    lines = ["", "class Status(IntEnum):"]
    lines += [f"    {name} = {k}" for k, name in enumerate(names)]
    lines += ["    @property", "    def sentence(self) -> str: ...", "", "class _Values:"]
    lines += ["    # One state has numbers, several have arrays.", "    shape: tuple[int, ...]", "    def __len__(self) -> int: ..."]
    lines += ["    def derivative(self, of: str, by: str, at_constant: str) -> Any: ..."]
    lines += ["    def volume_second_derivative(self, by: str, also_by: str) -> Any: ..."]
    lines += [f"    {name}: Any  # {meaning}, {unit}" for name, unit, meaning in properties]
    lines += ["", "class Phase(_Values):", "    def saturation_derivative(self, of: str, by: str) -> Any: ..."]
    lines += ["", "class State(_Values):", "    status: Any", "    liquid: Phase", "    vapour: Phase"]
    lines += ["    superheat: Any", "    subcooling: Any", "    wetness: Any", "    latent_heat: Any"]
    lines += ["    def __bool__(self) -> bool: ...", "    def __getitem__(self, index: Any) -> State: ..."]
    lines += ["    def __iter__(self) -> Iterator[State]: ...", "    def to_frame(self) -> Any: ..."]
    lines += ["", "class Step:", "    end: State", "    status: Any", "    work: Any", "    heat: Any"]
    lines += ["    entropy_generated: Any", "    lost_work: Any", "    def __bool__(self) -> bool: ..."]
    outcomes = {"Mixture": "end flow entropy_generated lost_work", "Exergy": "flow closed", "SaturationPoints": "t count"}
    for name, values in outcomes.items():
        types = {"end": "State"}
        lines += ["", f"class {name}:", "    status: Any", *(f"    {value}: {types.get(value, 'Any')}" for value in values.split())]
        lines += ["    def __bool__(self) -> bool: ..."]
    lines += ["", "class Saturation:", "    shape: tuple[int, ...]", "    p: Any", "    t: Any", "    slope: Any", "    status: Any"]
    lines += ["    liquid: Phase", "    vapour: Phase", "    def __len__(self) -> int: ...", "    def __bool__(self) -> bool: ..."]
    lines += ["    def __getitem__(self, index: Any) -> Saturation: ...", "", "class Cancelled(KeyboardInterrupt):", "    result: Any"]
    return "\n".join(lines) + "\n"


def functions(pairs, properties, text=FUNCTIONS):
    """The functions of one unit system."""
    letters = sorted({letter for _, a, b in pairs for letter in (a, b)})
    lines = [text.format(given=", ".join(f"{letter}: ArrayLike = ..." for letter in letters))]
    for name, _, _ in properties:
        known = [(a, b) for _, a, b in pairs if name not in (a, b)]
        for a, b in known:
            lines += ["@overload", f"def {name}(*, {a}: float, {b}: float) -> np.float64: ..."]
            lines += ["@overload", f"def {name}(*, {a}: Any, {b}: Any) -> Any: ..."]
    for pair, a, b in pairs:
        lines += [f"{name}_{pair}: PropertyUfunc" for name, _, _ in properties if name not in (a, b)]
        lines += [f"status_{pair}: StatusUfunc", *([f"states_{pair}: StatusUfunc"] if text is FUNCTIONS else [])]
    return "\n".join(lines) + "\n"


def main(include, out):
    pairs, properties = read(include)
    own = functions(pairs, properties)
    out.mkdir(parents=True, exist_ok=True)
    chart = (
        'def diagram(chart: str = "hs", *, window: tuple[float, float, float, float] | None = None, lines: Any = None, '
        'units: str = "bar", deviation: float = 0.05, labels: bool = True, ax: Any = None) -> Any: ...\n'
    )
    modules = "\nfrom . import duckdb as duckdb, if97 as if97, mpa as mpa, si as si, table as table, units as units, us as us\n__version__: str\n"
    shared = classes(properties, statuses(include))
    (out / "__init__.pyi").write_text(PRELUDE + modules + KINDS + shared + chart + own)
    names = (
        "from . import Exergy, LineUfunc, Mixture, Phase, PropertyUfunc, Saturation, SaturationPoints, State, StatusUfunc, Step\n"
    )
    for system in ("si", "mpa", "us"):
        (out / f"{system}.pyi").write_text(PRELUDE + "\n" + names + own)
    of_if97 = functions([pair for pair in pairs if pair[0] in PAIRS_OF_IF97], properties, FUNCTIONS_OF_IF97)
    (out / "if97.pyi").write_text(PRELUDE + "\n" + names + of_if97)


if __name__ == "__main__":
    main(Path(sys.argv[1]), Path(sys.argv[2]))
