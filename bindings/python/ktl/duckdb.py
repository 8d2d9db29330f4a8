"""The ufuncs of ktl as functions of DuckDB's SQL.

    connection = duckdb.connect()
    ktl.duckdb.register(connection)
    connection.sql("select avg(t_ph(p, h)) from 'historian.parquet'")

A row without a state, or with a given value that is NULL, is NULL; so is a property that a state does not have.
"""

import numpy as np
import pyarrow

import ktl as _ktl

from ._lists import PAIRS, PROPERTIES


def _numbers(column):
    """A column of Arrow as an array; NULL is NaN."""
    numbers = column.to_numpy() if isinstance(column, pyarrow.ChunkedArray) else column.to_numpy(zero_copy_only=False)
    return numbers.astype(np.float64, copy=False)


def _sql_function(ufunc):
    def result(*columns):
        with np.errstate(invalid="ignore"):
            return pyarrow.array(ufunc(*map(_numbers, columns)), from_pandas=True)

    # DuckDB counts the parameters.
    return (lambda x1, x2: result(x1, x2)) if ufunc.nin == 2 else (lambda x1: result(x1))


def names():
    """The names of all functions that register() makes."""
    made = ["psat", "tsat", "saturation_slope"]
    for pair in PAIRS.values():
        given = (pair.a.name, pair.b.name)
        made += [f"{name}_{pair.name}" for name in PROPERTIES if name not in given]
        made += [f"status_{pair.name}", f"states_{pair.name}"]
    return made


def register(connection, functions=None):
    """Makes functions of the same names known to a connection: all, or those named in a sequence.

    Their arguments and results are DOUBLE, in bar, degC, kJ/kg and so on; status_ph and the like give a UTINYINT, states_ph
    and the like an INTEGER.
    """
    known = names()
    for name in known if functions is None else functions:
        if name not in known:
            raise ValueError(f"ktl has no ufunc {name!r}")
        ufunc = getattr(_ktl, name)
        result = {"status_": "UTINYINT", "states_": "INTEGER"}.get(name[:7], "DOUBLE")
        connection.create_function(
            name, _sql_function(ufunc), ["DOUBLE"] * ufunc.nin, result, type="arrow", null_handling="special"
        )
