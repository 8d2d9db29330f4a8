"""Tables of states, as text and as HTML."""

import html

import numpy as np

from ._lists import PROPERTIES, Status, sentence, unit_of

_ROWS_SHOWN = 10


def _number(value):
    return "" if np.isnan(value) else f"{value:.7g}"


def _table_of_one(values):
    """Heading and rows: property, value (with those of both phases if there are two), unit, meaning."""
    columns = [values]
    if not np.isnan(values.x) and hasattr(values, "liquid"):
        columns += [values.liquid, values.vapour]
    heading = ["", "mixture", "liquid", "vapour"] if len(columns) == 3 else ["", "value"]
    rows = [
        [name, *(_number(getattr(part, name)) for part in columns), unit_of(prop, values._system), prop.meaning]
        for name, prop in PROPERTIES.items()
        if not all(np.isnan(getattr(part, name)) for part in columns)
    ]
    return [*heading, "unit", ""], rows


def _table_of_several(values):
    """Heading and rows of the first states; one row for each."""
    names = ["p", "t", "v", "h", "s", "u", "x", "region"]
    flat = {name: np.ravel(getattr(values, name))[:_ROWS_SHOWN] for name in names}
    statuses = np.ravel(values.status)[:_ROWS_SHOWN] if hasattr(values, "status") else None
    count = len(flat["p"])
    rows = [
        [*(_number(flat[name][k]) for name in names), *([] if statuses is None else [Status(statuses[k]).name])]
        for k in range(count)
    ]
    heading = [f"{name} {unit_of(PROPERTIES[name], values._system)}".strip() for name in names]
    return heading + ([] if statuses is None else ["status"]), rows


def _parts(values, kind):
    kind = kind or type(values).__name__
    if values.shape:
        size = int(np.prod(values.shape))
        left = size - min(size, _ROWS_SHOWN)
        return f"{kind}, shape {values.shape}", *_table_of_several(values), f"... {left} more" if left else ""
    if getattr(values, "status", Status.solved) != Status.solved:
        return f"{kind}: {values.status.name}, {sentence(values.status, values._formulation)}", [], [], ""
    return kind, *_table_of_one(values), ""


def text_table(values, kind=None):
    title, heading, rows, end = _parts(values, kind)
    lines = [title]
    if rows:
        widths = [max(map(len, cells)) for cells in zip(heading, *rows)]
        lines += ["  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip() for row in [heading, *rows]]
    return "\n".join([*lines, end] if end else lines)


def html_table(values, kind=None):
    title, heading, rows, end = _parts(values, kind)

    def line(cells, tag):
        return "<tr>" + "".join(f"<{tag}>{html.escape(cell)}</{tag}>" for cell in cells) + "</tr>"

    table = "".join([line(heading, "th"), *(line(row, "td") for row in rows)]) if rows else ""
    return f"<p>{html.escape(title)}</p><table>{table}</table>{html.escape(end)}"
