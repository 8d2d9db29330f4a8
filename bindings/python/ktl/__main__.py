"""python -m ktl PAIR A B: a table of the state with both values."""

import argparse

import ktl

from ._lists import PAIRS, unit_of


def main(arguments=None):
    parser = argparse.ArgumentParser(prog="python -m ktl", description="A state of water or steam after IFC-67.")
    parser.add_argument("--version", action="version", version=f"ktl {ktl.__version__}")
    pairs = "; ".join(f"{pair.name}: {unit_of(pair.a, 'bar')}, {unit_of(pair.b, 'bar')}" for pair in PAIRS.values())
    parser.add_argument("pair", choices=PAIRS, metavar="PAIR", help=f"what is given, with its units: {pairs}")
    parser.add_argument("a", type=float, metavar="A")
    parser.add_argument("b", type=float, metavar="B")
    given = parser.parse_args(arguments)
    pair = PAIRS[given.pair]
    state = ktl.state(**{pair.a.name: given.a, pair.b.name: given.b})
    print(state)
    return 0 if state else 1


if __name__ == "__main__":
    raise SystemExit(main())
