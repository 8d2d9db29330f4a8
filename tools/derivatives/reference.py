#!/usr/bin/env python3
"""reference.py SOURCE <STATES >tests/data/free_energy_derivatives.csv: derivatives of the free energies of the 1967 formulation, in
arithmetic of 60 digits; 25 are printed. Needs mpmath (Debian: python3-mpmath).

STATES are lines region,primary,t as ktl_derivatives states prints them: p in sub-regions 1 and 2, v in 3, in the digits of a
double. Coefficients are read from the headers of the library, as doubles; the functions are written here as published, and
share nothing else with the library. x is theta, y beta or chi; xxy is d3f/dx2dy and so on.
"""
import re
import sys

from mpmath import diff, exp, log, mp, mpf, nstr, sqrt

mp.dps = 60
COLUMNS = ["f", "x", "y", "xx", "xy", "yy", "xxx", "xxy", "xyy", "yyy"]


def coefficients(source, file):
    with open(f"{source}/src/regions/{file}", encoding="utf-8") as text:
        return {name: mpf(float(value)) for name, value in re.findall(r"^ +\.(\w+) = ([-+.\de]+),", text.read(), re.M)}


def polynomial(x, first, step, *a):
    return sum(c * x ** (first + step * n) for n, c in enumerate(a))


def zeta1(c, theta, beta):
    y = 1 - c["a1"] * theta**2 - c["a2"] * theta**-6
    z = y + sqrt(c["a3"] * y * y - 2 * c["a4"] * theta + 2 * c["a5"] * beta)
    linear = polynomial(theta, 0, 1, c["aa12"], c["aa13"], c["aa14"])
    linear += c["aa15"] * (c["a6"] - theta) ** 10 + c["aa16"] / (c["a7"] + theta**19)
    series = polynomial(theta, 0, 1, *(c[f"aa{n}"] for n in range(1, 11)))
    return (c["aa0"] * theta * (1 - log(theta)) + series
            + c["aa11"] * 17 * (z / 29 - y / 12) * z ** (mpf(12) / 17) + linear * beta
            - polynomial(beta, 1, 1, c["aa17"], c["aa18"], c["aa19"]) / (c["a8"] + theta**11)
            - c["aa20"] * theta**18 * (c["a9"] + theta**2) * ((c["a10"] + beta) ** -3 + c["a11"] * beta)
            + c["aa21"] * (c["a12"] - theta) * beta**3 + c["aa22"] * theta**-20 * beta**4)


# Exponents of X with each coefficient of the series groups 1 to 5, the fractions 6 to 8 and their denominators.
SERIES = {1: (13, 3), 2: (18, 2, 1), 3: (18, 10), 4: (25, 14), 5: (32, 28, 24)}
FRACTIONS = {6: ((12, 11), (14,)), 7: ((24, 18), (19,)), 8: ((24, 14), (54, 27))}


def zeta2(c, theta, beta):
    x = exp(c["b00"] * (1 - theta))
    y = c["ai1"] * theta * log(beta) + c["bb00"] * theta * (1 - log(theta))
    y += polynomial(theta, 0, 1, *(c[f"bb0{n}"] for n in range(1, 6)))
    for group, powers in SERIES.items():
        y -= beta**group * sum(c[f"bb{group}{n}"] * x**power for n, power in enumerate(powers, 1))
    for group, (above, below) in FRACTIONS.items():
        numerator = sum(c[f"bb{group}{n}"] * x**power for n, power in enumerate(above, 1))
        denominator = beta ** (2 - group) + sum(c[f"b{group}{n}"] * x**power for n, power in enumerate(below, 1))
        y -= numerator / denominator
    boundary = c["al0"] + c["al1"] * theta + c["al2"] * theta**2
    return y + beta * (beta / boundary) ** 10 * polynomial(x, 0, 1, *(c[f"bb9{n}"] for n in range(7)))


def psi(c, theta, chi):
    def group(i, last):
        inner = sum(c[f"c{i}{k}"] * chi ** (1 - k) for k in range(2, last))
        return c[f"c{i}1"] * chi + inner + c[f"c{i}{last}"] * log(chi)

    low = theta - 1
    y = c["c00"] + group(0, 12) + low * group(1, 7) + low**2 * group(2, 8) + low**3 * group(3, 10)
    y += (c["c40"] + c["c41"] * chi**-5) * low * theta**-23 + c["c50"] * theta * log(theta)
    y += chi**6 * sum(c[f"c6{n}"] * theta ** (-2 - n) for n in range(5))
    y += sum(c[f"c7{n}"] * low ** (n + 1) for n in range(9))
    if theta < 1 and chi < 1:
        below = (1 - theta) / (1 - mpf(float("623.15")) / c["tca"])
        y += below**3 * sum(c[f"d3{n}"] * chi**-n for n in range(5))
        y += below**4 * sum(c[f"d4{n}"] * chi**-n for n in range(5))
        y += below**32 * sum(c[f"d5{n}"] * chi**n for n in range(3))
    return y


def main(source):
    constants = coefficients(source, "constants.hpp")
    functions = {"1": (zeta1, "pca"), "2": (zeta2, "pca"), "3": (psi, "vca")}
    tables = {name: coefficients(source, f"region{name}_data.hpp") | constants for name in functions}
    print(",".join(["region", "primary", "t"] + COLUMNS))
    for line in sys.stdin:
        region, primary, t = line.strip().split(",")
        function, scale = functions[region]
        c = tables[region]
        point = ((mpf(float(t)) + c["tza"]) / c["tca"], mpf(float(primary)) / c[scale])
        orders = [(name.count("x"), name.count("y")) for name in COLUMNS]
        values = [function(c, *point) if n == (0, 0) else diff(lambda x, y: function(c, x, y), point, n) for n in orders]
        print(",".join([region, primary, t] + [nstr(value, 25) for value in values]), flush=True)


if __name__ == "__main__":
    main(sys.argv[1])
