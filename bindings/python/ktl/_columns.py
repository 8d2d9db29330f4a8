"""Given values of any kind as arrays of float64."""

import sys

import numpy as np


def column(value, name):
    """The value as an array of float64, not copied if it is one; TypeError unless it holds plain real numbers.

    Masked elements and missing values of pandas become NaN. The array may be strided and in any order.
    """
    if hasattr(value, "magnitude") and hasattr(value, "units"):
        raise TypeError(f"{name} is a quantity with a unit: use ktl.units")
    pandas = sys.modules.get("pandas")
    if pandas is not None and isinstance(value, (pandas.Series, pandas.Index)):
        _must_be_real(getattr(value.dtype, "kind", "O"), value.dtype, name)
        return value.to_numpy(dtype=np.float64, na_value=np.nan)
    if not isinstance(value, np.ma.MaskedArray):
        value = np.asarray(value)
    _must_be_real(value.dtype.kind, value.dtype, name)
    if value.dtype.kind == "f" and value.dtype.itemsize > 8:
        raise TypeError(f"{name} has the type {value.dtype}, of more digits than float64")
    if isinstance(value, np.ma.MaskedArray):
        return value.astype(np.float64).filled(np.nan)
    return value.astype(np.float64, copy=False)


def _must_be_real(kind, dtype, name):
    if kind not in "biuf":
        raise TypeError(f"{name} has the type {dtype}: real numbers are needed")


def pair_of_columns(a, b, names):
    """Both as contiguous arrays of one shape."""
    a, b = np.broadcast_arrays(column(a, names[0]), column(b, names[1]))
    return np.require(a, np.float64, "CA"), np.require(b, np.float64, "CA")
