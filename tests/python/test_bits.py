"""The package gives the bits of the library's own calls, whatever way the rows come."""

import numpy as np
import pytest
from conftest import drawn_states, same_bits

import ktl
from ktl._lists import PAIRS, PROPERTIES

STATES = drawn_states()
UNSOLVED = np.array([np.nan, np.inf, -np.inf, -1.0, 0.0, 1e300, 5e-324])


def given_of(pair):
    """Values of states, then rows of which most have no state."""
    a, b = (STATES[letter] for letter in pair)
    known = ~(np.isnan(a) | np.isnan(b))
    odd_a, odd_b = (grid.ravel() for grid in np.meshgrid(UNSOLVED, [*UNSOLVED, 2.0]))
    return np.concatenate([a[known], odd_a]), np.concatenate([b[known], odd_b])


@pytest.mark.parametrize("pair", PAIRS)
def test_every_property_has_the_bits_of_the_c_call(pair, c_library):
    a, b = given_of(pair)
    wanted, status = c_library.batch(pair, a, b)
    assert (status == 0).sum() > 900 and (status != 0).sum() > 40
    names = [name for name in PROPERTIES if name not in pair]
    assert all(hasattr(ktl, f"{name}_{pair}") == (name not in pair) for name in PROPERTIES)
    columns = ktl.batch(pair, a, b, names, threads=2)
    states = ktl.state(**{pair[0]: a, pair[1]: b})
    with np.errstate(invalid="ignore"):
        for name in names:
            ufunc = getattr(ktl, f"{name}_{pair}")
            assert same_bits(ufunc(a, b), wanted[name]), name
            assert same_bits([ufunc(a[k], b[k]) for k in range(0, a.size, 97)], wanted[name][::97]), name
            assert same_bits(getattr(columns, name), wanted[name]), name
            assert same_bits(getattr(states, name).astype(float), wanted[name]), name
    for found in (getattr(ktl, f"status_{pair}")(a, b), columns.status, states.status):
        assert np.array_equal(found, status)
    counts = getattr(ktl, f"states_{pair}")(a, b)
    assert [c_library.count(pair, a[k], b[k]) for k in range(0, a.size, 29)] == counts[::29].tolist()


def test_saturation_line():
    t = np.linspace(0.01, 374.15, 5000)
    p = ktl.psat(t)
    assert same_bits(p, [ktl.psat(x) for x in t])
    assert same_bits(ktl.tsat(p), [ktl.tsat(x) for x in p])
    line = ktl.saturation(t=t)
    assert same_bits(line.p, p) and same_bits(line.slope, ktl.saturation_slope(t))
    assert same_bits(line.vapour.h, ktl.state(t=t, x=1.0).vapour.h)
    assert np.allclose(line.slope[5:-5], np.gradient(p, t)[5:-5], rtol=1e-4)


@pytest.mark.parametrize("system, to_p, to_t, to_h", [
    (ktl.si, lambda p: p * 1e5, lambda t: t + 273.15, lambda h: h * 1000),
    (ktl.mpa, lambda p: p / 10, lambda t: t + 273.15, lambda h: h),
    (ktl.us, lambda p: p * 14.503773773020922, lambda t: t * 1.8 + 32, lambda h: h / 2.326),
])
def test_unit_systems(system, to_p, to_t, to_h):
    p, h = np.array([1.0, 10, 100, 300]), np.array([2800.0, 500, 2000, 3100])
    t = to_t(ktl.t_ph(p, h))
    assert np.allclose(system.t_ph(to_p(p), to_h(h)), t, rtol=1e-12)
    assert np.allclose(system.t(h=to_h(h), p=to_p(p)), t, rtol=1e-12)
    assert same_bits(system.batch("ph", to_p(p), to_h(h), "t").t, system.t_ph(to_p(p), to_h(h)))
    assert same_bits(system.state(p=to_p(p), h=to_h(h)).t, system.t_ph(to_p(p), to_h(h)))
    assert np.allclose(system.tsat(to_p(p[:3])), to_t(ktl.tsat(p[:3])), rtol=1e-14)
    step = 1e-3
    slope = (system.psat(to_t(200 + step)) - system.psat(to_t(200 - step))) / (to_t(200 + step) - to_t(200 - step))
    assert np.isclose(system.saturation_slope(to_t(200.0)), slope, rtol=1e-6)


@pytest.mark.parametrize("name, us_in_library_unit", [
    # A second source: the factors of pint.
    ("v", ("ft**3/lb", "m**3/kg")), ("rho", ("lb/ft**3", "kg/m**3")), ("s", ("Btu_it/lb/delta_degF", "kJ/kg/K")),
    ("speed_of_sound", ("ft/s", "m/s")), ("compressibility", ("1/psi", "1/bar")), ("expansion", ("1/delta_degF", "1/K")),
    ("joule_thomson", ("delta_degF/psi", "K/bar")), ("viscosity", ("lb/ft/s", "Pa*s")),
    ("kinematic_viscosity", ("ft**2/s", "m**2/s")), ("conductivity", ("Btu_it/hour/ft/delta_degF", "W/m/K")),
])
def test_factors(name, us_in_library_unit):
    import pint

    us, own = us_in_library_unit
    factor = pint.UnitRegistry().Quantity(1.0, us).to(own).magnitude
    p, t = 20.0, 300.0
    in_us = getattr(ktl.us, f"{name}_pt")(p * 14.503773773020922, t * 1.8 + 32)
    assert np.isclose(in_us * factor, getattr(ktl, f"{name}_pt")(p, t), rtol=3e-9)
