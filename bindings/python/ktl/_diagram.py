"""Charts as axes of matplotlib, from the lines of the library."""

from . import _ktl
from ._lists import PROPERTIES, SYSTEMS

_charts = ("hs", "ts", "ph", "pv", "pt")
_inch = 25.4  # mm
_point = _inch / 72
_letters = 2.2 / 0.72  # mm: size of letters whose digits are 2.2 mm high, as the library gives labels room for

# Colours that differ for the colour-blind, strokes that differ in grey print: colour, width and dashes in mm.
_strokes = {
    "p": ("#1f3a93", 0.3, None),
    "t": ("#b34700", 0.22, (4, 0.8, 0.8, 0.8)),
    "v": ("#117733", 0.22, (2, 1.2)),
    "h": ("#666600", 0.22, (5, 1.2)),
    "s": ("#882277", 0.25, (0.6, 0.9)),
    "u": ("#227788", 0.22, (3, 0.8, 0.8, 0.8, 0.8, 0.8)),
    "x": ("#555555", 0.15, None),
    None: ("#000000", 0.5, None),  # the dome
}
_families = {"p": "isobars", "t": "isotherms", "v": "isochores", "h": "isenthalps", "s": "isentropes",
             "u": "lines of constant u", "x": "quality", None: "saturation"}


def _axes():
    try:
        from matplotlib import pyplot
    except ImportError as fault:
        raise ImportError("ktl.diagram needs matplotlib: pip install 'ktl[diagrams]'") from fault
    # Labels are placed by the size of the axes, so it is fixed.
    return pyplot.figure(figsize=(14, 9)).add_axes((0.07, 0.08, 0.91, 0.89))


def _style(name):
    colour, width, dashes = _strokes[name]
    style = {"color": colour, "linewidth": width / _point, "dash_capstyle": "butt"}
    if dashes:  # matplotlib counts dashes in widths of the line
        style["dashes"] = [length / width for length in dashes]
    return style


def _given(lines):
    """((number of the property, values), ...) from a mapping by name."""
    names = list(PROPERTIES)
    unknown = [name for name in lines if name not in _families or name is None]
    if unknown:
        raise ValueError(f"lines: {unknown[0]!r} should be one of p, t, v, h, s, u and x")
    return tuple((names.index(name), tuple(float(value) for value in values)) for name, values in lines.items())


def diagram(chart="hs", *, window=None, lines=None, units="bar", deviation=0.05, labels=True, ax=None):
    """A chart of water and steam as axes of matplotlib: hs (Mollier), ts, ph, pv or pt.

    window: (left, right, bottom, top), in units of the chart; if not given, the one that is usual.
    lines: values of families by property, as in {"p": [0.1, 1, 10], "v": []}; the others keep their own.
    units: bar (bar, degC, kJ), si (Pa, K, J), mpa (MPa, K, kJ) or us (psia, degF, Btu, lb, ft3).
    deviation: how far a line may leave the true one, mm, in a picture as large as the axes.
    labels: whether lines are labelled. ax: axes to draw into; otherwise a new figure.

    Raises ValueError if there is no such chart, window or line, ImportError without matplotlib.
    """
    if chart not in _charts:
        raise ValueError(f"no chart {chart!r}; the charts are {', '.join(_charts)}")
    if units not in SYSTEMS:
        raise ValueError(f"no units {units!r}; the systems are {', '.join(SYSTEMS)}")
    chosen = _given(lines or {})
    limits = None if window is None else tuple(float(limit) for limit in window)
    if limits is not None and len(limits) != 4:
        raise ValueError("window should be (left, right, bottom, top)")
    new = ax is None
    ax = _axes() if new else ax
    box = ax.get_window_extent()
    width, height = (side / ax.figure.dpi * _inch for side in (box.width, box.height))
    system = SYSTEMS.index(units)
    axes, limits, curves, texts = _ktl.chart(_charts.index(chart), system, limits, chosen, width, height, deviation)
    names = list(PROPERTIES)
    for (number, unit, logarithmic), axis in zip(axes, "xy"):
        getattr(ax, f"set_{axis}scale")("log" if logarithmic else "linear")
        getattr(ax, f"set_{axis}label")(f"{PROPERTIES[names[number]].meaning} in {unit}")
    ax.set(xlim=limits[:2], ylim=limits[2:])
    ax.grid(color="#dddddd", linewidth=0.4)
    shown = set()
    for number, value, strokes in sorted(curves, key=lambda curve: curve[0] != names.index("x")):
        name = None if number < 0 else names[number]
        for x, y in strokes:
            ax.plot(x, y, label=None if name in shown else _families[name], zorder=2.5 if name is None else 2, **_style(name))
            shown.add(name)
    for text, number, x, y, angle in texts if labels else ():
        ax.text(x, y, text, transform=ax.transAxes, rotation=angle, rotation_mode="anchor", ha="center", va="center",
                color=_strokes[names[number]][0], fontsize=_letters / _point, clip_on=True,
                bbox={"boxstyle": "square,pad=0.1", "color": "white"}, zorder=3)
    if new:
        ax.legend(loc="upper left", title=f"ktl {_ktl.version}, IFC-67", framealpha=1)
    return ax
