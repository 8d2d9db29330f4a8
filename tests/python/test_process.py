"""Steps, mixtures, exergy and what lies beside saturation: the C library as a witness, the laws in every unit system."""

import ctypes
import os
import subprocess
import sys

import numpy as np
import pint
import pytest
from conftest import SOURCE, drawn_states, same_bits

import ktl
from ktl._lists import PAIRS, PROPERTIES

STATES = drawn_states(150, seed=3)
P, H = STATES["p"], STATES["h"]
SYSTEMS = [(ktl, 1.0, 1.0), (ktl.si, 1e5, 1e3), (ktl.mpa, 0.1, 1.0), (ktl.us, 14.503773773020922, 1 / 2.326)]  # of bar, kJ/kg


@pytest.fixture(scope="module")
def library():
    library = ctypes.CDLL(os.environ["KTL_LIBRARY"])
    for name in ("ktl_step_batch", "ktl_mix_batch", "ktl_exergy_batch"):
        getattr(library, name).restype = type("Result", (ctypes.Structure,), {
            "_fields_": [("fault", ctypes.c_int), ("cancelled", ctypes.c_int), ("solved", ctypes.c_size_t)]})
    return library


def pointers(*columns):
    """An array of the addresses of columns; None for those that are None."""
    return (ctypes.c_void_p * len(columns))(*(None if column is None else column.ctypes.data for column in columns))


def address(column):
    return ctypes.c_void_p(column.ctypes.data)


@pytest.mark.parametrize("number, name, ratio, options", [
    (0, "expand", 0.1, {"wetness_factor": 1.0}), (1, "compress", 3.0, {}), (2, "expand_polytropic", 0.1, {"wetness_factor": 0.7}),
    (3, "compress_polytropic", 3.0, {}), (4, "throttle", 0.5, {}), (5, "heat_to_t", None, {}), (6, "heat_to_h", None, {}),
    (7, "heat_to_x", None, {}),
])
def test_steps_have_the_bits_of_the_library(library, number, name, ratio, options):
    to = P * ratio if ratio else np.resize({5: [150.0, 500.0], 6: [900.0, 2900.0], 7: [0.2, 0.9]}[number], P.size)
    efficiency = np.full(P.size, 0.85)
    given = (to,) if number >= 4 else (to, efficiency)
    step = getattr(ktl, name)(ktl.state(p=P, h=H), *given, surroundings_degc=20.0, **options)
    t, status, results = np.empty(P.size), np.empty(P.size, np.uint8), [np.empty(P.size) for _ in range(4)]
    step_options = (ctypes.c_double * 2)(options.get("wetness_factor", 0.0), 20.0)
    found = library.ktl_step_batch(
        number, PAIRS["ph"].number, address(P), address(H), address(to), address(efficiency), ctypes.c_size_t(P.size),
        step_options, bytes([PROPERTIES["t"].number]), pointers(t), ctypes.c_size_t(1), pointers(*results), address(status), None)
    assert found.fault == 0 and 50 < found.solved == (step.status == 0).sum() and (step.status == status).all()
    wanted = (step.end.t, step.work, step.heat, step.entropy_generated, step.lost_work)
    assert all(same_bits(a, b) for a, b in zip((t, *results), wanted))


def test_mixtures_and_exergy_have_the_bits_of_the_library(library):
    flows = np.resize([1.0, 0.0, -1.0, 2.5], P.size), np.resize([3.0, 2.0, 1.0], P.size)
    other = np.roll(H, 7)
    mixture = ktl.mix([ktl.state(p=P, h=H), ktl.state(p=P, h=other)], flows, surroundings_degc=20.0)

    class Stream(ctypes.Structure):
        _fields_ = [("pair", ctypes.c_int), ("a", ctypes.c_void_p), ("b", ctypes.c_void_p), ("flow", ctypes.c_void_p)]

    streams = (Stream * 2)(*(Stream(PAIRS["ph"].number, P.ctypes.data, h.ctypes.data, flow.ctypes.data)
                             for h, flow in zip((H, other), flows)))
    t, status, results = np.empty(P.size), np.empty(P.size, np.uint8), [np.empty(P.size) for _ in range(3)]
    rows = ctypes.c_size_t(P.size)
    found = library.ktl_mix_batch(streams, ctypes.c_size_t(2), rows, ctypes.c_double(20.0), bytes([PROPERTIES["t"].number]),
                                  pointers(t), ctypes.c_size_t(1), pointers(*results), address(status), None)
    assert found.fault == 0 and 50 < found.solved == (mixture.status == 0).sum() and (mixture.status == status).all()
    assert (mixture.status == ktl.Status.flow_outside).any()
    wanted = (mixture.end.t, mixture.flow, mixture.entropy_generated, mixture.lost_work)
    assert all(same_bits(a, b) for a, b in zip((t, *results), wanted))

    exergy = ktl.exergy(ktl.state(p=P, h=H), surroundings_bar=1.0, surroundings_degc=20.0)
    flow, closed = np.empty(P.size), np.empty(P.size)
    library.ktl_exergy_batch(PAIRS["ph"].number, address(P), address(H), rows, ctypes.c_double(1.0), ctypes.c_double(20.0),
                             address(flow), address(closed), address(status), None)
    assert same_bits(exergy.flow, flow) and same_bits(exergy.closed, closed) and (exergy.status == status).all()
    none = ktl.exergy(ktl.state(p=10, t=300), surroundings_degc=-5)
    assert not none and none.status == ktl.Status.surroundings_outside and np.isnan(none.flow)


@pytest.mark.parametrize("system, bar, kj", SYSTEMS)
def test_results_have_the_units_of_their_system(system, bar, kj):
    steam, water = system.state(p=[[10 * bar], [20 * bar]], x=1.0), system.state(p=20 * bar, h=500 * kj)
    mixture = system.mix([steam, water], [[3.0, 0.0], 1.0])
    assert mixture.end.shape == (2, 2) and np.allclose(mixture.end.p, [[10 * bar, 20 * bar], [20 * bar] * 2])
    assert np.allclose(mixture.end.h, (steam.h * [3.0, 0.0] + water.h) / [4.0, 1.0]) and mixture.flow.tolist() == [[4, 1], [4, 1]]
    one = ktl.mix([ktl.state(p=10, x=1.0), ktl.state(p=20, h=500)], [3, 1])
    assert mixture.lost_work[0, 0] == pytest.approx(one.lost_work * kj) and isinstance(one.flow, float) and one
    exergy = system.exergy(system.state(p=[100 * bar, 10 * bar], h=3000 * kj))
    assert np.allclose(exergy.flow, ktl.exergy(ktl.state(p=[100, 10], h=3000)).flow * kj, rtol=1e-12)

    steam, water = system.state(p=100 * bar, h=3300 * kj), system.state(p=100 * bar, h=500 * kj)
    line = system.saturation(p=100 * bar)
    assert steam.superheat == pytest.approx(steam.t - line.t) and water.subcooling == pytest.approx(line.t - water.t)
    assert np.isnan(steam.subcooling) and np.isnan(water.superheat) and np.isnan(steam.wetness)
    assert steam.latent_heat == pytest.approx(line.vapour.h - line.liquid.h)
    wet = system.state(p=[100 * bar, 300 * bar], h=2000 * kj)
    assert wet.wetness[0] == 1 - wet.x[0] and wet.superheat[0] == wet.subcooling[0] == 0 and np.isnan(wet.latent_heat[1])

    points = system.saturation_by("vapour", h=np.array([[2790.0, 2700.0], [2e4, 2200.0]]) * kj)
    assert points.t.shape == (2, 2, 3) and points.count.tolist() == [[2, 2], [0, 1]]
    assert points.status.tolist() == [[0, 0], [ktl.Status.no_state, 0]] and np.isnan(points.t[1, 0]).all()
    assert np.allclose(system.saturation(t=points.t[0]).vapour.h[:, :2], [[2790 * kj] * 2, [2700 * kj] * 2], rtol=1e-9)
    least = system.saturation_by("liquid", v=system.saturation(t=system.saturation(p=0.01 * bar).t).liquid.v)
    assert least and least.count == 2 and np.allclose(least.t[1], system.tsat(0.01 * bar), rtol=1e-5)


@pytest.mark.parametrize("system, bar, kj", SYSTEMS)
@pytest.mark.parametrize("by, also_by", ["pp", "pt", "tp", "tt"])
def test_second_derivatives_are_slopes_of_first_ones(system, bar, kj, by, also_by):
    state = system.state(p=100 * bar, h=3300 * kj)
    other = {"p": "t", "t": "p"}
    step = 1e-4 * abs(getattr(state, also_by))
    low, high = (system.state(**{also_by: getattr(state, also_by) + sign * step, other[also_by]: getattr(state, other[also_by])})
                 for sign in (-1, 1))
    slope = (high.derivative("v", by, other[by]) - low.derivative("v", by, other[by])) / (2 * step)
    assert state.volume_second_derivative(by, also_by) == pytest.approx(slope, rel=1e-5)
    wet = system.saturation(p=10 * bar)
    assert wet.vapour.volume_second_derivative(by, also_by) != wet.liquid.volume_second_derivative(by, also_by)


@pytest.mark.parametrize("call, error, text", [
    (lambda s: ktl.mix([s], [1, 2]), ValueError, "1 streams and 2 flows"),
    (lambda s: ktl.mix([], []), ValueError, "0 streams"),
    (lambda s: ktl.mix([3.0], [1]), TypeError, "a stream is a ktl.State, not float"),
    (lambda s: ktl.si.mix([s], [1]), TypeError, "another unit system"),
    (lambda s: ktl.exergy(3.0), TypeError, "exergy is that of a ktl.State"),
    (lambda s: ktl.saturation_by("steam", h=2700), ValueError, "'liquid' or 'vapour'"),
    (lambda s: ktl.saturation_by("vapour", t=100), TypeError, "one of v, h, s and u"),
    (lambda s: ktl.saturation_by("vapour", h=1, s=2), TypeError, "one of v, h, s and u"),
    (lambda s: s.volume_second_derivative("p", "h"), ValueError, "'h' should be 'p' or 't'"),
    (lambda s: bool(ktl.exergy(ktl.state(p=[1, 2], t=300))), ValueError, "ambiguous"),
    (lambda s: ktl.units.expand(s, 1, 0.9), TypeError, "a state of ktl.units"),
    (lambda s: ktl.units.mix([s], [1]), TypeError, "a state of ktl.units"),
    (lambda s: ktl.units.exergy(s), TypeError, "a state of ktl.units"),
    (lambda s: ktl.units.mix([], []), ValueError, "0 streams"),
])
def test_bad_arguments(call, error, text):
    with pytest.raises(error, match=text):
        call(ktl.state(p=100, t=500))


def test_steps_with_quantities():
    q = pint.get_application_registry().Quantity
    live = ktl.units.state(p=q(10, "MPa"), t=q(500, "degC"))
    step, wanted = ktl.units.expand(live, q(1, "MPa"), 0.88), ktl.expand(ktl.state(p=100, t=500), 10, 0.88)
    assert step and step.work.to("J/kg").m == pytest.approx(1000 * wanted.work) and step.end.t.to("degC").m == wanted.end.t
    assert step.entropy_generated.to("J/kg/K").m == pytest.approx(1000 * wanted.entropy_generated)
    second = ktl.state(p=100, t=500).volume_second_derivative("p", "t")
    assert live.volume_second_derivative("p", "t").to("m**3/kg/bar/K").m == pytest.approx(second)
    assert live.superheat.to("K").m == ktl.state(p=100, t=500).superheat
    mixture = ktl.units.mix([live, step.end], [q([3.6, 7.2], "t/h"), q(1, "kg/s")])
    of_numbers = ktl.mix([ktl.state(p=100, t=500), wanted.end], [[1, 2], 1])
    assert np.allclose(mixture.flow.to("kg/s").m, [2, 3]) and np.allclose(mixture.end.h.to("kJ/kg").m, of_numbers.end.h)
    assert ktl.units.exergy(live).flow.to("kJ/kg").m == ktl.exergy(ktl.state(p=100, t=500)).flow
    points = ktl.units.saturation_by("vapour", h=q(2.79, "MJ/kg"))
    assert points.count == 2 and np.allclose(points.t.to("degC").m[:2], ktl.saturation_by("vapour", h=2790).t[:2])
    for call in (lambda: ktl.units.throttle(live, q(1, "K")), lambda: ktl.units.mix([live, live], [q(1, "kg/s"), 1]),
                 lambda: ktl.units.saturation_by("liquid", h=q(1, "m"))):
        with pytest.raises(pint.DimensionalityError):
            call()


def test_the_example_shows_what_that_in_cpp_shows():
    wanted = (SOURCE / "tests/bindings/approved/expansion_line.txt").read_text().split("-- messages")[0]
    example = [sys.executable, SOURCE / "examples/python/expansion_line.py"]
    shown = subprocess.run(example, capture_output=True, text=True, timeout=60)
    assert shown.returncode == 0, shown.stderr
    assert shown.stdout.startswith(wanted) and len(shown.stdout.splitlines()) == 11
