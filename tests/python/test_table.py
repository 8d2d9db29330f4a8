"""Steam tables: the rows are those of the program, and bad arguments are refused."""

import io
import os
import subprocess
import sys

import numpy as np
import pandas as pd
import pytest

import ktl


def of_program(*arguments):
    program = os.environ.get("KTL_PROGRAM")
    if not program:
        pytest.skip("the program is not built")
    text = subprocess.run([program, "table", *arguments, "--format", "csv"], check=True, capture_output=True, text=True).stdout
    return pd.read_csv(io.StringIO(text))


def assert_same(frame, wanted):
    assert len(frame.columns) == len(wanted.columns) and len(frame) == len(wanted)
    for column, other in zip(frame, wanted):
        if column == "phase":
            assert list(frame[column]) == list(wanted[other])
            continue
        values = frame[column].to_numpy().copy()
        values[np.isinf(values)] = np.nan  # an empty field
        # ten digits; s of saturated water is 0 at the triple point
        np.testing.assert_allclose(values, wanted[other], rtol=5.01e-10, atol=1e-12, err_msg=column)


@pytest.mark.parametrize("units", ["bar", "si", "mpa", "us"])
@pytest.mark.parametrize("by", ["t", "p"])
def test_saturation_has_the_rows_of_the_program(by, units):
    frame = ktl.table.saturation(by, units=units)
    assert_same(frame, of_program("saturation", "--by", by, "--units", units))
    assert frame.r.iloc[-1] == 0.0 and (frame.r.iloc[:-1] > 0).all()
    assert list(frame.attrs["units"]) == list(frame)


def test_saturation_of_a_range():
    frame = ktl.table.saturation(start=0, stop=25, step=10)
    assert frame.t.tolist() == [0.01, 10, 20, 25]
    assert_same(frame, of_program("saturation", "--from", "0", "--to", "25", "--step", "10"))
    line = ktl.saturation(t=frame.t)
    assert frame.v_vapour.tolist() == line.vapour.v.tolist()
    assert ktl.table.saturation("p", 5, 5).p.tolist() == [5]


@pytest.mark.parametrize("units, p, t", [
    ("bar", [1, 165.36, 221.2, 300], [0, 99.5, 100, 350, 350.01, 374.15, 800]),
    ("si", [1e5, 22.12e6, 1e8], [273.16, 400, 647.3, 1073.15]),
    ("mpa", [0.1, 22.12, 100], [273.16, 400, 647.3, 1073.15]),
    ("us", [0.08865350498, 14.5, 3208.234759], [32, 211, 212, 705.47, 1472]),
])
def test_single_has_the_rows_of_the_program(units, p, t):
    frame = ktl.table.single(p=p, t=t, units=units)
    given = (",".join(map(str, values)) for values in (p, t))
    assert_same(frame, of_program("single", "--p", next(given), "--t", next(given), "--units", units))


@pytest.mark.parametrize("call, given, message", [
    (ktl.table.saturation, {"by": "h"}, "by = 'h' should be"),
    (ktl.table.saturation, {"units": "mm"}, "units = 'mm' should be"),
    (ktl.table.saturation, {"start": -1}, "start = -1 degC is outside the saturation line, 0.01 to 374.15 degC"),
    (ktl.table.saturation, {"stop": 3300, "by": "p", "units": "us"}, "stop = 3300 psi is outside"),
    (ktl.table.saturation, {"start": float("nan")}, "start = nan"),
    (ktl.table.saturation, {"start": 5, "stop": 4}, "stop = 4 is below start = 5"),
    (ktl.table.saturation, {"step": 0}, "step = 0.0 should be"),
    (ktl.table.saturation, {"step": float("nan")}, "step = nan should be"),
    (ktl.table.saturation, {"step": 1e-9}, "step = 1e-09 makes more than 10000 rows"),
    (ktl.table.single, {"p": [], "t": 1}, "p should be"),
    (ktl.table.single, {"p": 1, "t": [[1]]}, "t should be"),
    (ktl.table.single, {"p": 1, "t": [20, 10]}, "t should rise"),
    (ktl.table.single, {"p": 1001, "t": 20}, "p = 1001 bar is outside the range, 0.006112444 to 1000 bar"),
])
def test_bad_arguments_are_named(call, given, message):
    with pytest.raises(ValueError, match=message):
        call(**given)


def test_without_pandas_the_message_says_what_to_install(monkeypatch):
    monkeypatch.setitem(sys.modules, "pandas", None)
    for call in (ktl.table.saturation, lambda: ktl.table.single(1, 20)):
        with pytest.raises(ImportError, match=r"ktl\[frames\]"):
            call()
