"""Charts: the lines of the axes are states of the library, and what cannot be drawn is refused."""

import subprocess
import sys

import matplotlib
import numpy as np
import pytest

import ktl

matplotlib.use("Agg")


@pytest.fixture(autouse=True)
def close_figures():
    yield
    matplotlib.pyplot.close("all")


def curves(ax, label):
    """The points of the lines that have the colour of the one with the label."""
    lines = ax.get_lines()
    colour = next(line.get_color() for line in lines if line.get_label() == label)
    return [np.array(line.get_data()) for line in lines if line.get_color() == colour]


def test_lines_are_states():
    ax = ktl.diagram("hs", lines={"p": [10]})
    (s, h), = curves(ax, "isobars")
    np.testing.assert_allclose(ktl.p_hs(h, s), 10, rtol=1e-8)
    assert ax.get_xlim() == (5, 9.5) and ax.get_ylim() == (1800, 4200)
    assert ax.get_xlabel() == "specific entropy in kJ/(kg K)"
    figure = ax.figure
    figure.canvas.draw()
    boxes = [text.get_window_extent() for text in ax.texts]
    assert len(boxes) > 25 and all(ax.get_window_extent().contains(box.x0, box.y0) for box in boxes)


def test_units_and_axes_of_the_caller():
    figure, ax = matplotlib.pyplot.subplots(figsize=(6, 4))
    assert ktl.diagram("ph", window=(1000, 1500, 10, 1000), units="us", lines={"t": [600]}, ax=ax) is ax
    assert ax.get_yscale() == "log" and ax.get_xlabel() == "specific enthalpy in Btu/lb"
    for h, p in curves(ax, "isotherms"):
        np.testing.assert_allclose(ktl.us.t_ph(p, h), 600, rtol=1e-7)
    assert len(figure.axes) == 1


@pytest.mark.parametrize("arguments, sentence", [
    ({"chart": "hh"}, "no chart 'hh'"), ({"units": "imperial"}, "no units"), ({"window": (9, 5, 1800, 4200)}, "empty"),
    ({"window": (5, 9)}, "window should be"), ({"window": (5, 9, 5000, 6000)}, "outside the range"),
    ({"lines": {"q": [1]}}, "'q' should be one of"), ({"lines": {"p": [2000]}}, "no state"), ({"deviation": 0}, "deviation"),
])
def test_refused(arguments, sentence):
    with pytest.raises(ValueError, match=sentence):
        ktl.diagram(**arguments)


def test_without_matplotlib():
    code = "import sys; sys.modules['matplotlib'] = None; import ktl; ktl.diagram()"
    run = subprocess.run([sys.executable, "-c", code], capture_output=True, text=True)
    assert run.returncode != 0 and "ktl.diagram needs matplotlib" in run.stderr
