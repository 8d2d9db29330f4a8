"""ktl.if97: printed values of the release R7-97(2012), one result from every call, and what it refuses."""

import pickle

import numpy as np
import pytest
from conftest import drawn_states, same_bits

import ktl
from ktl._lists import PAIRS

STATES = drawn_states(100, seed=5)
PRINTED = 5e-9  # half a unit of the last of nine digits
PAIRS_OF_IF97 = ("pt", "ph", "ps", "px", "tx", "hs")


@pytest.mark.parametrize("p, kelvin, v, h, s, w", [
    (3.0, 300.0, 0.100215168e-2, 0.115331273e3, 0.392294792, 0.150773921e4),
    (80.0, 300.0, 0.971180894e-3, 0.184142828e3, 0.368563852, 0.163469054e4),
    (3.0, 500.0, 0.120241800e-2, 0.975542239e3, 0.258041912e1, 0.124071337e4),
    (0.0035, 300.0, 0.394913866e2, 0.254991145e4, 0.852238967e1, 0.427920172e3),
    (30.0, 700.0, 0.542946619e-2, 0.263149474e4, 0.517540298e1, 0.480386523e3),
])
def test_printed_values(p, kelvin, v, h, s, w):
    state = ktl.if97.state(p=10 * p, t=kelvin - 273.15)
    assert (state.v, state.h, state.s, state.speed_of_sound) == pytest.approx((v, h, s, w), rel=PRINTED)


def test_printed_values_of_saturation():
    kelvin = np.array([300.0, 500.0, 600.0])
    assert np.allclose(ktl.if97.psat(kelvin - 273.15) / 10, [0.353658941e-2, 0.263889776e1, 0.123443146e2], rtol=PRINTED)
    assert np.allclose(ktl.if97.tsat([1.0, 10.0, 100.0]) + 273.15, [0.372755919e3, 0.453035632e3, 0.584149488e3], rtol=PRINTED)


@pytest.mark.filterwarnings("ignore:invalid value encountered:RuntimeWarning")
@pytest.mark.parametrize("pair", PAIRS_OF_IF97)
def test_calls_agree_and_differ_from_1967(pair):
    a, b = STATES[pair[0]], STATES[pair[1]]
    name = "t" if "t" not in pair else "h"
    found = getattr(ktl.if97, f"{name}_{pair}")(a, b)
    batch = ktl.if97.batch(pair, a, b, name)
    states = ktl.if97.state(**{pair[1]: b, pair[0]: a})
    assert same_bits(found, getattr(batch, name)) and same_bits(found, getattr(states, name))
    assert same_bits(found, [getattr(ktl.if97, f"{name}_{pair}")(x, y) for x, y in zip(a, b)])
    assert same_bits(found, getattr(ktl.if97, name)(**{pair[0]: a, pair[1]: b}))
    assert (batch.status == states.status).all() and (getattr(ktl.if97, f"status_{pair}")(a, b) == batch.status).all()
    of_1967 = getattr(ktl, f"{name}_{pair}")(a, b)
    near = np.isfinite(found) & np.isfinite(of_1967)
    assert near.sum() > 50 and np.mean(np.abs(found / of_1967 - 1)[near] < 0.01) > 0.9 and (found != of_1967)[near].any()
    copy = pickle.loads(pickle.dumps(states[3:5]))
    assert same_bits(getattr(copy, name), found[3:5])


def test_what_it_does_not_have():
    wet, steam = ktl.if97.state(p=10, x=0.5), ktl.if97.state(p=100, t=500)
    assert wet.wetness == 0.5 and steam.derivative("h", "t", "p") == pytest.approx(steam.cp)
    assert np.isnan(steam.volume_second_derivative("p", "p")) and not ktl.if97.state(p=10, x=0.5, number=1)
    none = ktl.if97.state(p=221, x=0.5)
    assert "220.64 bar" in ktl.if97.sentence(none.status) and "220.64 bar" in repr(none) and ktl.state(p=221, x=0.5)
    for call in (lambda: ktl.if97.state(v=1, u=2), lambda: ktl.if97.h(v=1, t=2)):
        with pytest.raises(TypeError, match="the pairs are: p and t, p and h, p and s, .*, h and s$"):
            call()
    with pytest.raises(ValueError, match="unknown pair 'vu'"):
        ktl.if97.batch("vu", 1, 2, "t")
    for call in (lambda: ktl.expand(steam, 1), lambda: ktl.mix([steam], [1]), lambda: ktl.exergy(steam)):
        with pytest.raises(TypeError, match="another formulation"):
            call()
    with pytest.raises(AttributeError, match="1967"):
        steam.superheat
    assert not any(hasattr(ktl.if97, f"h_{pair}") for pair in PAIRS if pair not in PAIRS_OF_IF97)
