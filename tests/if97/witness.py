#!/usr/bin/env python3
"""witness.py PROGRAM: IF97 states and surface tension of the program against the package iapws (PyPI; Debian: python3-iapws), which
others have written. Exit status 77 if the package is not installed, 1 if values differ.

Its forward equations are compared, region by region; its backward equations are fits and no measure for solved states."""

import csv
import io
import random
import subprocess
import sys

try:
    from iapws.iapws97 import _P23_T, _PSat_T, _Region1, _Region2, _Region3, _Tension, _TSat_P
except ImportError:
    print("the package iapws is not installed")
    sys.exit(77)

CODES = {"V": "v", "H": "h", "S": "s", "CP": "cp", "CV": "cv", "W": "w"}
RELATIVE = 1e-9  # the program prints ten digits
STATES = 300  # in each region


def p_sat(t):
    return 10.0 * _PSat_T(t + 273.15)


def water(draw):
    t = draw.uniform(0.01, 349.9)
    p = draw.uniform(p_sat(t) * 1.0001, 1000.0)
    return ("pt", p, t), _Region1(t + 273.15, p / 10.0)


def steam(draw):
    t = draw.uniform(0.05, 800.0)
    most = p_sat(t) if t <= 350.0 else 10.0 * _P23_T(t + 273.15) if t <= 590.0 else 1000.0
    p = 0.006113 * (0.9999 * most / 0.006113) ** draw.random()
    return ("pt", p, t), _Region2(t + 273.15, p / 10.0)


def near_critical(draw):
    """By p and t of a random density; next to the critical temperature cp would tell the last digit of the pressure."""
    while True:
        t = draw.uniform(350.1, 589.0)
        there = _Region3(draw.uniform(120.0, 740.0), t + 273.15)
        p = 10.0 * there["P"]
        if abs(t - 373.946) < 1.0 or not 10.0 * _P23_T(t + 273.15) * 1.001 < p < 1000.0 or there["kt"] <= 0.0:
            continue
        is_water = there["v"] < 1 / 322
        if t > 373.946 or (p > 1.001 * p_sat(t) if is_water else p < 0.999 * p_sat(t)):
            return ("pt", p, t), there


def printed(points, codes):
    """Values of the column IF97 by number of the point and code."""
    text = "point,pair,first,second\n" + "".join(f"{i},{pair},{a:.17g},{b:.17g}\n" for i, (pair, a, b) in enumerate(points))
    command = [sys.argv[1], "compare", "-", codes, "--format", "csv"]
    done = subprocess.run(command, input=text, capture_output=True, text=True, check=False)
    rows = csv.DictReader(io.StringIO(done.stdout))
    return {(int(row["point"]), row["property"]): float(row["IF97"]) for row in rows if row["IF97"]}


def main():
    draw = random.Random(1997)
    cases = [kind(draw) for kind in (water, steam, near_critical) for _ in range(STATES)]
    values = printed([point for point, _ in cases], ",".join(CODES))
    faults = []
    worst = {}

    def compare(what, code, got, wanted, least=0.0, relative=RELATIVE):
        error = abs(got - wanted) / max(abs(wanted), least) if got is not None else float("inf")
        worst[code] = max(worst.get(code, 0.0), error)
        if not error <= relative:
            faults.append(f"{what} {code}: {got}, the package has {float(wanted)!r}")

    for i, (point, there) in enumerate(cases):
        for code, key in CODES.items():
            # Near zero h and s are compared with 10 kJ/kg and 1 kJ/(kg K). cp of region 3 tells the rounding of p, and more so
            # towards the critical point.
            least = {"H": 10.0, "S": 1.0}.get(code, 0.0)
            relative = RELATIVE if i < 2 * STATES else 20.0 * RELATIVE
            compare(point, code, values.get((i, code)), there[key], least, relative)

    lines = [("tx", draw.uniform(0.01, 373.9), 0.5) for _ in range(STATES)] + [("px", p_sat(1.2 * k), 0.5) for k in range(1, STATES)]
    values = printed(lines, "P,T,ST")
    for i, (pair, first, _) in enumerate(lines):
        kelvin = first + 273.15 if pair == "tx" else _TSat_P(first / 10.0)
        wanted = 10.0 * _PSat_T(kelvin) if pair == "tx" else kelvin - 273.15
        compare(lines[i], "P" if pair == "tx" else "T", values.get((i, "P" if pair == "tx" else "T")), wanted)
        compare(lines[i], "ST", values.get((i, "ST")), _Tension(kelvin), 1e-3)

    print("largest relative differences:", ", ".join(f"{code} {error:.1e}" for code, error in worst.items()))
    print("\n".join(faults[:20]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
