"""Keyword functions, states, the saturation line, batches, the command line."""

import os
import pickle
import re
import signal
import subprocess
import sys
import threading
import time

import numpy as np
import pandas as pd
import pint
import pytest
from conftest import drawn_states, same_bits

import ktl
from ktl._lists import PAIRS, PROPERTIES

STATES = drawn_states(500)


# ---- By keyword --------------------------------------------------------------------------------------------------------

@pytest.mark.filterwarnings("ignore:invalid value encountered:RuntimeWarning")  # p, t on the saturation line
@pytest.mark.parametrize("pair", PAIRS)
def test_keywords_in_any_order(pair):
    a, b = STATES[pair[0]][::50], STATES[pair[1]][::50]
    for name in ("p", "h", "cp", "prandtl"):
        if name in pair:
            continue
        wanted = getattr(ktl, f"{name}_{pair}")(a, b)
        assert same_bits(getattr(ktl, name)(**{pair[0]: a, pair[1]: b}), wanted)
        assert same_bits(getattr(ktl, name)(**{pair[1]: b, pair[0]: a}), wanted)


@pytest.mark.parametrize("given", [{}, {"p": 1}, {"p": 1, "rho": 2}, {"p": 1, "t": 2, "h": 3}, {"h": 1, "u": 2}, {"P": 1, "t": 2}])
def test_no_pair_names_those_that_exist(given):
    for call in (ktl.s, ktl.state, ktl.units.s, ktl.units.state):
        with pytest.raises(TypeError, match="p and t, p and h, .*, v and u"):
            call(**given)
    assert len(PAIRS) == 17


def test_a_given_property_is_not_asked_for():
    with pytest.raises(TypeError, match="p is given already"):
        ktl.p(p=1, t=2)


# ---- States ------------------------------------------------------------------------------------------------------------

def test_one_state():
    steam = ktl.state(t=500, p=100)
    assert steam and steam.status is ktl.Status.solved and steam.region == 2 and steam.shape == ()
    assert isinstance(steam.h, float) and steam.h == ktl.h_pt(100, 500) and steam.viscosity == ktl.viscosity_pt(100, 500)
    assert np.isnan(steam.x) and np.isnan(steam.liquid.h)
    with pytest.raises(TypeError):
        len(steam)
    with pytest.raises(TypeError):
        steam[0]
    with pytest.raises(AttributeError):
        steam.enthalpy
    assert re.search(r"\nh +3374.598 +kJ/kg +specific enthalpy\n", repr(steam)) and "isobaric heat capacity" in repr(steam)
    assert repr(steam).count("\n") + 1 == steam._repr_html_().count("<tr>") + 1 == 23


def test_mixtures_have_both_phases():
    wet = ktl.state(p=[10.0, 100.0], h=2000.0)
    assert same_bits(wet.x * wet.vapour.v + (1 - wet.x) * wet.liquid.v, wet.v) or np.allclose(
        wet.x * wet.vapour.v + (1 - wet.x) * wet.liquid.v, wet.v, rtol=1e-12)
    assert np.isnan(wet.cp).all() and (wet.liquid.cp > 4).all() and wet.liquid.region.tolist() == [1, 1]
    assert "liquid" in repr(wet[0])


def test_no_state_is_not_an_error():
    with np.errstate(all="raise"):
        none = ktl.state(p=100, h=1e5)
    assert not none and none.status == ktl.Status.temperature_high and none.region == 7 and np.isnan(none.t)
    assert none.status.sentence == "the temperature is above 800 degC" and none.status.sentence in repr(none)
    undetermined = ktl.state(p=float(ktl.psat(200.0)), t=200.0)
    assert undetermined.status == ktl.Status.undetermined and undetermined.liquid.h < undetermined.vapour.h


def test_arrays_of_states():
    p, h = np.array([[1.0, 10.0], [100.0, 100.0]]), np.array([2800.0, 1e5])
    states = ktl.state(h=h, p=p)
    assert states.shape == (2, 2) and len(states) == 2
    assert same_bits(states.t, ktl.batch("ph", p, h, "t").t) and states.t is states.t and not states.t.flags.writeable
    assert states[1, 0].t == states.t[1, 0] and states[:, 0].status.tolist() == [0, 0]
    assert [state.shape for state in states] == [(2,), (2,)] and states[states.status == 0].shape == (2,)
    with pytest.raises(ValueError):
        bool(states)
    copy = pickle.loads(pickle.dumps(states[:, 0]))
    assert same_bits(copy.viscosity, states.viscosity[:, 0])
    frame = states.to_frame()
    assert list(frame) == [*PROPERTIES, "status"] and frame.status.tolist() == ["solved", "temperature_high"] * 2
    assert frame.t.tolist()[0] == states.t[0, 0]


@pytest.mark.parametrize("values, wanted", [
    (pd.Series([1.0, None], dtype="Float64"), [0, 2]),
    (np.ma.array([1.0, 2.0], mask=[0, 1]), [0, 2]),
    ([1, 2], [0, 0]),
    (np.array([1, 2], ">i4"), [0, 0]),
])
def test_missing_values_have_no_state(values, wanted):
    assert ktl.state(p=values, h=2800).status.tolist() == wanted
    assert ktl.batch("ph", values, 2800, "t").status.tolist() == wanted


def test_number_picks_one_of_several():
    s, x = float(ktl.s_tx(350, 0.5)), 0.5
    count = ktl.states_sx(s, x)
    assert count > 1
    found = [ktl.state(s=s, x=x, number=n) for n in range(count + 1)]
    assert [bool(state) for state in found] == [True] * count + [False]
    assert np.all(np.diff([state.t for state in found[:-1]]) > 0) and found[0].t == ktl.t_sx(s, x)
    assert all(abs(state.s - s) < 1e-9 for state in found[:-1])
    with pytest.raises(TypeError):
        ktl.state(s=s, x=x, number=0.5)


@pytest.mark.parametrize("system, p, t", [(ktl, 100.0, 500.0), (ktl.si, 1e7, 773.15), (ktl.mpa, 10.0, 773.15),
                                          (ktl.us, 1450.0, 932.0)])
@pytest.mark.parametrize("of, by, at_constant", ["hps", "tph", "upt", "stv", ("rho", "t", "p"), ("gibbs", "s", "p")])
def test_derivatives_are_those_of_neighbours(system, p, t, of, by, at_constant):
    state = system.state(p=p, t=t)
    given = {at_constant: getattr(state, at_constant)}
    step = 1e-4 * abs(getattr(state, by))
    low, high = (system.state(**given, **{by: getattr(state, by) + sign * step}) for sign in (-1, 1))
    slope = (getattr(high, of) - getattr(low, of)) / (getattr(high, by) - getattr(low, by))
    assert np.isclose(state.derivative(of, by, at_constant), slope, rtol=1e-5)
    assert system.derivative(of, by, at_constant, t=t, p=p) == state.derivative(of, by, at_constant)


def test_steps_follow_their_equations():
    start = ktl.state(p=[100, 40], t=500)
    end = ktl.expand(start, [10, 5], 0.88)
    ideal = ktl.h_ps([10, 5], start.s)
    assert np.allclose(end.work, 0.88 * (start.h - ideal)) and np.allclose(end.end.h, start.h - end.work)
    assert np.allclose(end.lost_work, 288.15 * (end.end.s - start.s)) and (end.status == 0).all()
    assert ktl.throttle(start[0], [50, 20]).end.h == pytest.approx(start.h[0]) and ktl.throttle(start[0], 50).heat == 0
    assert ktl.heat_to_t(start[0], 540).heat == pytest.approx(ktl.h_pt(100, 540) - start.h[0])
    assert ktl.heat_to_x(start, 0.5).end.x == pytest.approx(0.5) and ktl.heat_to_h(start[0], 2000).end.h == pytest.approx(2000)
    pump = ktl.si.compress(ktl.si.state(p=1e5, t=300), 1e7, 0.8)
    assert pump and pump.work == pytest.approx((ktl.si.h_pt(1e5, 300) - ktl.si.h_ps(1e7, ktl.si.s_pt(1e5, 300))) / 0.8)
    assert ktl.expand_polytropic(start[0], 1, 0.9).work > ktl.expand(start[0], 1, 0.9).work
    refused = ktl.compress_polytropic(start[0], 1, 0.9)
    assert not refused and refused.status == ktl.Status.wrong_direction and np.isnan(refused.work)
    assert ktl.expand(start[0], 1, 1.5).status.name == "efficiency_outside"
    with pytest.raises(TypeError, match="begins at a ktl.State"):
        ktl.expand(100.0, 10)
    with pytest.raises(TypeError, match="another unit system"):
        ktl.si.expand(start, 1e5)


def test_derivatives_of_phases_and_mixtures():
    line = ktl.saturation(t=[200.0, 400.0])
    assert line.vapour.saturation_derivative("p", "t")[0] == pytest.approx(line.slope[0], rel=1e-12)
    assert np.isnan(line.liquid.saturation_derivative("h", "t")[1])
    wet = ktl.state(p=[10.0, 10.0], h=[2000.0, 1e5])
    assert wet.derivative("h", "p", "s")[0] == pytest.approx(wet.v[0] * 100, rel=1e-3) and np.isnan(wet.derivative("h", "p", "t")).all()
    q = pint.get_application_registry().Quantity
    steam = ktl.units.state(p=q(10, "MPa"), t=q(500, "degC"))
    assert steam.derivative("h", "t", "p").to("J/kg/K").m == pytest.approx(1000 * ktl.cp_pt(100, 500))
    with pytest.raises(ValueError, match="'cp' has no derivatives"):
        ktl.derivative("cp", "p", "t", p=1, t=200)


def test_saturation():
    point = ktl.saturation(t=200)
    assert point and point.p == ktl.psat(200) and point.slope == ktl.saturation_slope(200) and repr(point).startswith("Saturation\n")
    assert ktl.saturation(p=point.p).t == pytest.approx(200, abs=1e-9)
    line = ktl.saturation(t=[100, 400])
    assert line.status.tolist() == [0, ktl.Status.above_critical] and len(line) == 2 and line[0].p == ktl.psat(100)
    for given in ({}, {"h": 1}, {"t": 1, "p": 1}):
        with pytest.raises(TypeError):
            ktl.saturation(**given)


# ---- Batches -----------------------------------------------------------------------------------------------------------

def test_batch():
    result = ktl.batch("ph", STATES["p"], STATES["h"], "t v s x", threads=3)
    assert result._fields == ("t", "v", "s", "x", "status") and result[0] is result.t
    assert ktl.batch("ph", 100, 2800, ["cp", "viscosity"])._fields == ("cp", "viscosity", "status")
    assert ktl.batch("ph", 100, 2800, "").status.shape == ()


@pytest.mark.parametrize("arguments, error", [
    (("pp", 1, 2, "t"), ValueError), (("ph", 1, 2, "t enthalpy"), ValueError), (("ph", 1, 2, "t t"), ValueError),
    (("ph", 1, 2, "t", -1), ValueError), (("ph", [1, 2], [1, 2, 3], "t"), ValueError), (("ph", 1, 2, "t", "2"), TypeError),
])
def test_bad_batches(arguments, error):
    with pytest.raises(error):
        ktl.batch(*arguments)


N = 300_000
# The slowest rows: h, s next to the critical point.
SLOW = np.full(N, ktl.h(t=374.12, x=0.5)), np.full(N, ktl.s(t=374.12, x=0.5))


def test_progress_and_cancelling(capsys, monkeypatch):
    p, h = np.resize(STATES["p"], 300000), np.resize(STATES["h"], 300000)
    seen = []
    result = ktl.batch("ph", p, h, "t", progress=lambda done, total: seen.append((done, total)))
    assert seen[-1] == (300000, 300000) and seen == sorted(seen) and not (result.status == ktl.Status.cancelled).any()
    result = ktl.batch("hs", *SLOW, "t", progress=lambda done, total: False)
    cancelled = result.status == ktl.Status.cancelled
    assert 0 < cancelled.sum() < N and np.all(np.diff(cancelled.astype(int)) >= 0) and np.isnan(result.t[cancelled]).all()
    with pytest.raises(ZeroDivisionError):
        ktl.batch("hs", *SLOW, "t", progress=lambda done, total: 1 // 0)
    ktl.batch("ph", p, h, "t", progress=True)
    assert "100%" in capsys.readouterr().err
    monkeypatch.setitem(sys.modules, "tqdm.auto", None)  # as if it were not installed
    ktl.batch("ph", p, h, "t", progress=True)
    assert capsys.readouterr().err.endswith("\r100 %\n")


@pytest.mark.parametrize("threads", [1, 2])
def test_an_interrupt_cancels_soon_and_keeps_what_is_done(threads):
    sent = []

    def interrupt():
        time.sleep(0.3)
        sent.append(time.perf_counter())
        os.kill(os.getpid(), signal.SIGINT)

    thread = threading.Thread(target=interrupt)
    thread.start()
    with pytest.raises(KeyboardInterrupt) as caught:
        ktl.batch("hs", *SLOW, "t", threads=threads)
    took = time.perf_counter() - sent[0]
    thread.join()
    status = caught.value.result.status
    assert isinstance(caught.value, ktl.Cancelled)
    assert 0 < (status != ktl.Status.cancelled).sum() < N
    assert took < 0.1


# ---- The command line and the version ----------------------------------------------------------------------------------

def test_command_line():
    def run(*arguments):
        return subprocess.run([sys.executable, "-m", "ktl", *arguments], capture_output=True, text=True, timeout=60)

    shown = run("pt", "100", "500")
    assert shown.returncode == 0 and re.search(r"\nh +3374.598 +kJ/kg", shown.stdout)
    none = run("ph", "100", "1e5")
    assert none.returncode == 1 and "the temperature is above 800 degC" in none.stdout
    assert run("--version").stdout == f"ktl {ktl.__version__}\n"
    assert run("pp", "1", "2").returncode == 2 and run("pt", "1", "a").returncode == 2
