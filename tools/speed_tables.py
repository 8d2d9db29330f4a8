#!/usr/bin/env python3
"""Writes the tables of docs/speed.md, and those of README.md that repeat them, from results of the benchmarks.

    for i in 1 2 3; do build/release/bench/ktl_bench --benchmark_min_time=0.1 --benchmark_format=json >build/speed_$i.json; done
    tools/speed_tables.py build/speed_?.json

Each cell is the least of all files. A table keeps its rows and columns: those named in it are looked up; a row without a
measurement is an error. A row "goal" has the aim of the row above it and stays as it is.
"""
import json
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
YARDSTICK = "yardstick, one number at a time"
# What the names of the benchmarks of a table are made of, by its title: task or call, column.
NAMES = {
    "Columns, one thread": "{0}, {1}, threads 1/real_time",
    "Columns, two threads": "{0}, {1}, threads 2/real_time",
    "Rounded saturated states": "7 digits, {0}, {1}/real_time",
    "Borders, and no state": "edge, {0}, {1}/real_time",
    "Orders of rows": "edge, {0}, {1}/real_time",
    "Calls of few rows": "calls, {0}, {1}",
    "Instruction sets": "kernels, {0}, {1}",
    "Single calls": "state({0}), {1}",
    "One property": "value({0}), {1}",
    "Saturation line": "{0}",
    "Named routines": "{0}",
    "Charts": "chart/{0}",
    "IF97": "if97 columns, {0}, {1}/min_time:0.200",
}


def least(files):
    """The counters of each benchmark by its name: of the file in which it took least."""
    out = {}
    for file in files:
        for run in json.loads(pathlib.Path(file).read_text())["benchmarks"]:
            if "points" in run:
                run["ns"] = 1.0e6 * run["real_time"]  # of a chart, whose time is in ms
            if "ns" not in run:
                continue  # of docs/process.md
            if run["name"] not in out or run["ns"] < out[run["name"]]["ns"]:
                out[run["name"]] = run
    return out


def shown(ns):
    return f"{ns:.1f}" if ns < 10 else f"{ns:.0f}"


def cell(title, run, yardstick):
    if title == "IF97":
        return f"{shown(run['ns'])} ({shown(run['ns_1967'])})"
    return f"{shown(run['ns'])} ({run['ns'] / yardstick:.1f})"


def rewritten(text, runs, plain):
    """The document with its tables filled in; plain: without the multiples of the yardstick."""
    yardstick = runs[YARDSTICK]["ns"]
    title, columns, lines = "", [], []
    for line in text.split("\n"):
        if heading := re.match(r"#+ (.*)", line):
            title, columns = heading[1], []
        cells = [part.strip() for part in line.strip("|").split("|")] if line.startswith("|") else []
        if title in NAMES and cells and not set(line) <= set("|- "):
            if cells[0] == "goal":
                pass
            elif cells[0] in ("task", "call", "chart"):
                columns = cells[1:]
            elif columns == ["ns", "yardsticks"]:
                run = runs[NAMES[title].format(cells[0])]
                cells[1:] = [shown(run["ns"]), f"{run['ns'] / yardstick:.1f}"]
            elif columns == ["ms", "points"]:
                run = runs[NAMES[title].format(cells[0])]
                cells[1:] = [f"{run['ns'] * 1.0e-6:.1f}", f"{run['points']:.0f}"]
            elif columns:
                for k, column in enumerate(columns, 1):
                    if cells[k] == "-":
                        continue
                    task = cells[0].replace(", ", "") if title == "IF97" else cells[0]
                    cells[k] = cell(title, runs[NAMES[title].format(task, column)], yardstick)
                    if plain:
                        cells[k] = cells[k].split(" ")[0]
            line = "| " + " | ".join(cells) + " |"
        lines.append(line)
    text = "\n".join(lines)
    ns = shown(yardstick)
    return re.sub(r"(Here it takes |additions and multiplications take )[\d.]+ ns", rf"\g<1>{ns} ns", text)


def with_sentence(readme, speed):
    """README with the spans of the pairs that it does not show, from the first table of the other document."""
    part = readme.split("### Columns, one thread")[1].split("###")[0]
    here = {row.split("|")[1].strip() for row in part.split("\n") if row.startswith("| ")}
    rows = speed.split("## Columns, one thread")[1].split("\n## ")[0].split("\n")
    others, sx = [], []
    for row in rows:
        cells = [part.strip() for part in row.strip("|").split("|")]
        if not re.match(r"[a-z],[a-z] to ", cells[0]) or cells[0] in here:
            continue
        numbers = [c.split(" ")[0] for c in cells[1:] if c != "-"]
        (sx if cells[0].startswith("s,x") else others).extend(numbers)
    sentence = (f"All other pairs: {min(others, key=float)} to {max(others, key=float)} ns per state; "
                f"s,x up to {max(sx, key=float)} ns.")
    return re.sub(r"All other pairs:\s+[\d.]+\s+to\s+[\d.]+\s+ns\s+per\s+state;\s+s,x\s+up\s+to\s+[\d.]+\s+ns\.", sentence, readme)


def main(files):
    if not files:
        sys.exit(__doc__)
    runs = least(files)
    speed_file, readme_file = ROOT / "docs/speed.md", ROOT / "README.md"
    speed = rewritten(speed_file.read_text(), runs, plain=False)
    readme = with_sentence(rewritten(readme_file.read_text(), runs, plain=True), speed)
    speed_file.write_text(speed)
    readme_file.write_text(readme)


if __name__ == "__main__":
    main(sys.argv[1:])
