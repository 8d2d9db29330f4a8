"""What comes back from each kind of container: one row of the table for each behaviour that is promised."""

import duckdb
import numpy as np
import numpy.ma as ma
import pandas as pd
import pint
import pytest
import xarray as xr

import ktl

import dask
import dask.array as da
import dask.dataframe as dd
from dask.distributed import Client, LocalCluster

P = np.array([1.0, 10.0, 100.0, 20.0])
H = np.array([2800.0, 500.0, 1e5, 2900.0])  # the third row has no state
T = ktl.batch("ph", P, H, "t").t
INDEX = pd.Index(["a", "b", "c", "d"], name="point")
quantity = pint.get_application_registry().Quantity

pytestmark = pytest.mark.filterwarnings("ignore:invalid value encountered:RuntimeWarning")


def series(values, dtype="float64"):
    return pd.Series(values, index=INDEX, dtype=dtype)


def cube(values):
    return xr.DataArray(values, dims="time", coords={"time": [3, 1, 4, 1]}, attrs={"units": "bar"})


def chunks(values):
    return da.from_array(values, chunks=2)


def frame():
    return dd.from_pandas(pd.DataFrame({"p": P, "h": H}), npartitions=2)


def sql(query):
    connection = duckdb.connect()
    ktl.duckdb.register(connection, ["t_ph", "cp_ph", "status_ph", "psat"])
    return [row[0] for row in connection.sql(query).fetchall()]


# what, call, kind of the result, its values (NaN: none)
TABLE = [
    ("numpy: scalars give a scalar", lambda: ktl.t_ph(1.0, 2800), np.float64, T[0]),
    ("numpy: lists and integers", lambda: ktl.t_ph([1, 10], [2800, 500]), np.ndarray, T[:2]),
    ("numpy: 0-d", lambda: ktl.t_ph(np.array(1.0), np.array(2800.0)), np.float64, T[0]),
    ("numpy: where= and out=", lambda: ktl.t_ph(P, H, where=[1, 0, 0, 1], out=np.full(4, -1.0)), np.ndarray, [T[0], -1, -1, T[3]]),
    ("numpy: broadcast", lambda: ktl.t_ph(P[:2, None], H[:2])[[0, 1], [0, 1]], np.ndarray, T[:2]),
    ("masked: mask is kept", lambda: ktl.t_ph(ma.array(P, mask=[0, 1, 1, 0]), H), ma.MaskedArray, [T[0], np.nan, np.nan, T[3]]),
    ("masked: two masks", lambda: ktl.t_ph(ma.array(P, mask=[0, 1, 1, 0]), ma.array(H, mask=[0, 0, 1, 1])), ma.MaskedArray,
     [T[0], np.nan, np.nan, np.nan]),
    ("pandas: index is kept", lambda: ktl.t_ph(series(P), series(H)), pd.Series, series(T)),
    ("pandas: rows are matched by index", lambda: ktl.t_ph(series(P), series(H)[::-1]), pd.Series, series(T)),
    ("pandas: missing stays missing", lambda: ktl.t_ph(series([1, None, 10, 20], "Float64"), 2800.0).isna(), pd.Series,
     series([False, True, False, False], bool)),
    ("pandas: frames", lambda: ktl.psat(pd.DataFrame({"x": [100.0]})), pd.DataFrame, [[ktl.psat(100.0)]]),
    ("xarray: dimensions and coordinates", lambda: ktl.t_ph(cube(P), cube(H)).time, xr.DataArray, [3, 1, 4, 1]),
    ("xarray: values", lambda: ktl.t_ph(cube(P), cube(H)), xr.DataArray, T),
    ("xarray: keywords set the units", lambda: cube([ktl.t(p=cube(P), h=cube(H)).attrs["units"] == "degC"] * 4), xr.DataArray, [1] * 4),
    ("dask: stays lazy", lambda: ktl.t_ph(chunks(P), chunks(H)), da.Array, T),
    ("dask: map_blocks", lambda: da.map_blocks(ktl.t_ph, chunks(P), chunks(H), dtype=float), da.Array, T),
    ("dask: frames stay lazy", lambda: ktl.t_ph(frame().p, frame().h), dd.Series, T),
    ("dask: map_partitions",
     lambda: frame().map_partitions(lambda part: ktl.t_ph(part.p, part.h), meta=("t", float)), dd.Series, T),
    ("dask: xarray stays lazy",
     lambda: xr.apply_ufunc(ktl.t_ph, cube(P).chunk(time=2), cube(H).chunk(time=2), dask="parallelized",
                            output_dtypes=[float]).data, da.Array, T),
    ("pint: quantities in and out", lambda: ktl.units.t_ph(quantity(P, "bar"), quantity(H / 1000, "MJ/kg")).to("K").m, np.ndarray,
     T + 273.15),
    ("pint: by keyword", lambda: ktl.units.t(h=quantity(H, "kJ/kg"), p=quantity(P / 10, "MPa")).to("degC").m, np.ndarray, T),
    ("pint: states", lambda: ktl.units.state(h=quantity(H, "kJ/kg"), p=quantity(P, "bar")).t.m, np.ndarray, T),
    ("duckdb: values; NULL for no state", lambda: sql(f"select t_ph(p, h) from (values {', '.join(map(str, zip(P.tolist(), H.tolist())))}) v(p, h)"),
     list, [T[0], T[1], None, T[3]]),
    ("duckdb: NULL in, NULL out", lambda: sql("select t_ph(NULL, 2800)"), list, [None]),
    ("duckdb: a property that a mixture does not have", lambda: sql("select cp_ph(100, 2000)"), list, [None]),
    ("duckdb: status", lambda: sql("select status_ph(100, 1e5)"), list, [int(ktl.Status.temperature_high)]),
    ("duckdb: one argument", lambda: sql("select psat(100)"), list, [ktl.psat(100.0)]),
]


@pytest.mark.parametrize("title, call, kind, values", TABLE, ids=[row[0] for row in TABLE])
def test_behaviour(title, call, kind, values):
    result = call()
    assert isinstance(result, kind)
    if kind is list:
        assert result == values
    elif kind is ma.MaskedArray:
        assert np.array_equal(ma.getmaskarray(result), np.isnan(values))
        assert result.compressed().tolist() == [x for x in values if x == x]
    elif isinstance(values, pd.Series):
        pd.testing.assert_series_equal(result, values, check_exact=True, check_dtype=False)
    else:
        computed = np.asarray(result.compute() if hasattr(result, "compute") and kind is not xr.DataArray else result)
        tolerance = 1e-13 if title.startswith("pint") else 0  # pint's conversions round
        np.testing.assert_allclose(computed.astype(float), np.asarray(values, float), rtol=tolerance)


@pytest.mark.parametrize("call, error", [
    (lambda: ktl.t_ph(quantity(P, "bar"), quantity(H, "kJ/kg")), TypeError),
    (lambda: ktl.state(p=quantity(1, "bar"), h=2800), TypeError),
    (lambda: ktl.batch("ph", quantity(P, "bar"), H, "t"), TypeError),
    (lambda: ktl.units.t_ph(quantity(P, "kg"), quantity(H, "kJ/kg")), pint.DimensionalityError),
    (lambda: ktl.units.t_ph(P, quantity(H, "kJ/kg")), pint.DimensionalityError),
    (lambda: ktl.units.t(p=P, h=quantity(H, "kJ/kg")), pint.DimensionalityError),
    (lambda: ktl.duckdb.register(duckdb.connect(), ["t_pp"]), ValueError),
])
def test_units_are_never_stripped(call, error):
    with pytest.raises(error):
        call()


def test_nothing_is_computed_before_it_is_asked_for():
    computed = []

    def seen(block):
        computed.append(block.size)
        return block

    lazy = ktl.t_ph(chunks(P).map_blocks(seen, dtype=float, meta=np.array(())), chunks(H))
    assert not computed
    lazy.compute(scheduler="synchronous")
    assert sum(computed) == 4


def test_two_processes_of_dask_give_the_same_bits():
    p, h = np.resize(P, 20000), np.resize(H, 20000)
    with dask.config.set({"distributed.worker.daemon": False}), LocalCluster(
        n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None
    ) as cluster, Client(cluster):
        found = ktl.t_ph(da.from_array(p, chunks=1000), da.from_array(h, chunks=1000)).compute()
        by_keyword = da.map_blocks(ktl.si.t_ph, da.from_array(p * 1e5, chunks=5000), da.from_array(h * 1e3, chunks=5000)).compute()
    np.testing.assert_array_equal(found, ktl.t_ph(p, h))
    np.testing.assert_array_equal(by_keyword, ktl.si.t_ph(p * 1e5, h * 1e3))
