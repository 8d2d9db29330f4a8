"""Several columns of states at once, on several threads."""

import sys
from collections import namedtuple
from functools import lru_cache

import numpy as np

from . import _ktl
from ._columns import pair_of_columns
from ._lists import IFC67, PAIRS, PROPERTIES, SYSTEMS, pairs_of


class Cancelled(KeyboardInterrupt):
    """A batch that was interrupted. Its attribute result has the rows that were done; the others have the status cancelled."""

    def __init__(self, result):
        super().__init__("interrupted; .result has the rows that were done")
        self.result = result


@lru_cache(maxsize=256)
def _result_type(names):
    return namedtuple("Batch", [*names, "status"])


def _properties(properties):
    names = tuple(properties.replace(",", " ").split() if isinstance(properties, str) else properties)
    for name in names:
        if name not in PROPERTIES:
            raise ValueError(f"unknown property {name!r}; the properties are: {', '.join(PROPERTIES)}")
    if len(set(names)) != len(names):
        raise ValueError("a property is listed twice")
    return names


def _bar(total):
    """A progress function that shows a bar on stderr, and what ends it."""
    try:
        from tqdm.auto import tqdm
    except ImportError:

        def show(done, total):
            print(f"\r{100 * done // max(total, 1):3d} %", end="", file=sys.stderr, flush=True)

        return show, lambda: print(file=sys.stderr)
    bar = tqdm(total=total, unit="row", unit_scale=True)
    return lambda done, total: bar.update(done - bar.n) and None, bar.close


def batch_function(system, formulation=IFC67):
    number, pairs = SYSTEMS.index(system), pairs_of(formulation)

    def batch(pair, a, b, properties, threads=0, progress=None):
        """The states of many rows, several properties of each, on several threads.

        pair: two letters, "ph"; a, b: its two values, numbers or arrays that broadcast; properties: names in one string,
        "t v s x", or a sequence of names; threads: 0 for one on each processor. progress: True for a bar on stderr (by
        tqdm where that is installed), or a function of (done, total) that returns False to stop.

        Returns a named tuple: an array for each property, and status, an array of the numbers of ktl.Status. Rows that are
        not solved are NaN; nothing is raised for them. If progress stops the batch, rows not reached have the status
        cancelled. A keyboard interrupt stops it within a tenth of a second and raises ktl.Cancelled, a KeyboardInterrupt
        that has the same in its attribute result.
        """
        if pair not in pairs:
            raise ValueError(f"unknown pair {pair!r}; the pairs are: {', '.join(pairs)}")
        names = _properties(properties)
        if threads < 0:
            raise ValueError("threads must not be negative")
        a, b = pair_of_columns(a, b, pair)
        columns = [np.empty(a.shape) for _ in names]
        status = np.empty(a.shape, np.uint8)
        result = _result_type(names)(*columns, status)
        ended = None
        if progress is True:
            progress, ended = _bar(a.size)
        wanted = bytes(PROPERTIES[name].number for name in names)
        try:
            _ktl.batch(number, formulation, PAIRS[pair].number, a, b, wanted, tuple(columns), status, threads, progress or None)
        except KeyboardInterrupt:
            raise Cancelled(result) from None
        finally:
            if ended is not None:
                ended()
        return result

    return batch
