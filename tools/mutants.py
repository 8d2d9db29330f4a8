#!/usr/bin/env python3
"""Changes one token at a time in a copy of the tree and tells whether the quick tests notice.

    tools/mutants.py COUNT [SEED]      # for example 70 1; --help tells the options

An operator becomes its counterpart, a comparison the one that differs at equality, a real number grows by 1 %, an integer
by one. The file is drawn by its length (guesses_data.hpp, all numbers, counts as 300 lines), the token evenly. The copy, a
lean build of it (kernels of one lane, no shared libraries) and the results lie below build/mutants; the working tree is
only read. Started again with the same seed on the same sources it goes on where it ended. A mutant is killed by the first
test program that fails, takes four times as long as without the change, or is not built; the cheapest one comes first,
and one that the change does not reach is not run.
"""
import argparse
import bisect
import hashlib
import itertools
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ("src", "include", "apps", "bindings")
LONGEST_FILE = 300
COUNTERPARTS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "+": "-", "-": "+", "*": "/",
                "/": "*", "&&": "||", "||": "&&", "+=": "-=", "-=": "+=", "true": "false", "false": "true"}
# Comments, texts and preprocessor lines go by; formatted sources have a blank on both sides of a binary operator, and
# none beside a template's bracket, a pointer or a reference.
TOKEN = re.compile(
    r"""(?P<skip>//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:\\\n|[^\n])*|"(?:\\.|[^"\\])*"|'(?:\\.|[^'\\])*'|static_assert\([^;]*;)
      | (?<=[ ])(?P<operator><=|>=|==|!=|&&|\|\||\+=|-=|[-+*/<>])(?=[ \n])
      | (?<![\w.])(?P<number>0x[0-9a-fA-F]+|(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?)(?P<suffix>[uUlLfF]*)(?![\w.])
      | \b(?P<word>true|false)\b
      | [A-Za-z_]\w*""", re.MULTILINE | re.DOTALL | re.VERBOSE)
# Target built, and what is run of it; the cheapest first. What a target does not depend on does not kill its mutants.
STAGES = (("ktl_tests", "tests/ktl_tests"),
          ("ktl_finders_tests", "tests/finders/ktl_finders_tests"),
          ("ktl_engine_tests", "tests/engine/ktl_engine_tests"),
          ("ktl_guesses_tests", "tests/ktl_guesses_tests"),
          ("ktl_program", "ctest -R ^program[.]"),
          ("ktl_doors_test", "tests/bindings/ktl_doors_test"),
          ("expansion_static flash_static columns_static extraction_static turbine_static common_static units_static",
           "ctest -R ^bindings[.].*_static -E threads"),
          ("ktl_engine_sweep", "ctest -R ^sweep[.]engine -LE full"),
          ("ktl_sweep", "ctest -R ^sweep[.](states|borders|refused) -LE full"))


def replacement(match):
    """What becomes of a token; None if it stays."""
    number = match["number"]
    if number is None:
        return COUNTERPARTS.get(match["operator"] or match["word"])
    if re.fullmatch(r"\d+", number):
        return str(int(number) + 1)
    if number.startswith("0x"):
        return hex(int(number, 16) + 1)
    value = float(number)
    return repr(value * 1.01) if value else "0.001"


def sites(text):
    """(begin, end, new text) of every token that may change."""
    found = []
    for match in TOKEN.finditer(text):
        new = None if match["skip"] else replacement(match)
        if new is not None:
            end = match.end("number") if match["number"] else match.end()
            found.append((match.start(), end, new))
    return found


class Sources:
    """The files of the working tree that git knows, and the tokens that may change."""

    def __init__(self, only):
        names = subprocess.run(["git", "ls-files"], cwd=ROOT, check=True, capture_output=True, text=True).stdout.split("\n")
        self.content = {name: (ROOT / name).read_bytes() for name in names if name and (ROOT / name).is_file()}
        digest = hashlib.sha256()
        for name, data in sorted(self.content.items()):
            digest.update(name.encode() + b"\0" + data)
        self.digest = digest.hexdigest()[:16]
        self.sites = {}
        for name in sorted(self.content):
            if name.startswith(tuple(f + "/" for f in FOLDERS)) and name.endswith((".cpp", ".hpp", ".h", ".def")):
                found = sites(self.content[name].decode())
                if found and re.search(only, name):
                    self.sites[name] = found

    def draw(self, rng):
        """One change: (file, begin, end, new text)."""
        names = list(self.sites)
        lengths = [min(self.content[name].count(b"\n"), LONGEST_FILE) for name in names]
        total = list(itertools.accumulate(lengths))
        name = names[bisect.bisect(total, rng.randrange(total[-1]))]
        return (name, *rng.choice(self.sites[name]))

    def describe(self, change):
        name, begin, end, new = change
        text = self.content[name].decode()
        line = text.count("\n", 0, begin) + 1
        return f"{name}:{line}\t{text[begin:end]}\t{new}\t{text.splitlines()[line - 1].strip()}"


def limits():
    os.setsid()
    resource.setrlimit(resource.RLIMIT_AS, (8 << 30, 8 << 30))
    resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 30, 1 << 30))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run(command, folder, seconds):
    """(exit status or None if it took too long, output)."""
    with open(folder / "output.txt", "w+b") as out:
        process = subprocess.Popen(command, cwd=folder, stdin=subprocess.DEVNULL, stdout=out, stderr=out, preexec_fn=limits)
        try:
            status = process.wait(timeout=seconds)
        except subprocess.TimeoutExpired:
            status = None
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            process.wait()
        out.seek(0)
        return status, out.read(1 << 20).decode(errors="replace")


class Workshop:
    """The copy of the tree and its build."""

    def __init__(self, sources, jobs, seconds):
        self.sources, self.jobs, self.seconds = sources, jobs, seconds
        self.home = ROOT / "build" / "mutants"
        self.tree, self.build = self.home / "tree", self.home / "build"
        self.baseline = {}

    def write(self, name, data):
        path = self.tree / name
        if not path.is_file() or path.read_bytes() != data:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(data)
            shutil.copymode(ROOT / name, path)

    def prepare(self):
        for path in [p for p in self.tree.rglob("*") if p.is_file()]:
            if str(path.relative_to(self.tree)) not in self.sources.content:
                path.unlink()
        for name, data in self.sources.content.items():
            self.write(name, data)
        self.build.mkdir(parents=True, exist_ok=True)
        options = ["-DCMAKE_BUILD_TYPE=None", "-DCMAKE_CXX_FLAGS=-O1 -w -D_GLIBCXX_ASSERTIONS", "-DKTL_SMALL_KERNELS=ON",
                   "-DKTL_VECTOR_LANES=OFF", "-DKTL_INSTALL=OFF"]
        if shutil.which("ccache"):
            options.append("-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
        status, output = run(["cmake", "-G", "Ninja", *options, str(self.tree)], self.build, 300)
        if status != 0:
            sys.exit("the copy cannot be configured:\n" + output)
        for stage in STAGES:
            killed, seconds = self.stage(stage, 1800)
            if killed:
                sys.exit(f"{stage[0]} fails without a change ({killed}); see {self.build}/output.txt")
            self.baseline[stage] = seconds

    def stage(self, stage, limit):
        """Builds one stage and runs it if anything was built: (why it fails or None, seconds of the run)."""
        target, test = stage
        status, output = run(["ninja", f"-j{self.jobs}", *target.split()], self.build, self.seconds)
        if (status or 0) < 0 or "Killed signal terminated" in output: # by the machine, for want of memory
            sys.exit("a build was killed; start again, with fewer --jobs, to go on from here")
        if status != 0:
            return "not built" if status is not None else "too long to build", 0.0
        if self.baseline and "no work to do" in output:
            return None, 0.0
        command = test.split()
        if command[0] == "ctest":
            command += ["--stop-on-failure", "--no-tests=error"]
        else:
            command = [str(self.build / test), "--gtest_fail_fast", "--gtest_brief=1"]
        begin = time.monotonic()
        status, _ = run(command, self.build, limit)
        seconds = time.monotonic() - begin
        return (None if status == 0 else "too long" if status is None else f"exit status {status}"), seconds

    def verdict(self, change):
        """Which stage kills the mutant and why; None if none does."""
        name, begin, end, new = change
        text = self.sources.content[name].decode()
        self.write(name, (text[:begin] + new + text[end:]).encode())
        try:
            for stage in STAGES:
                killed, _ = self.stage(stage, 20.0 + 4.0 * self.baseline[stage])
                if killed:
                    return f"{stage[0].split()[0]}: {killed}"
            return None
        finally:
            self.write(name, self.sources.content[name])


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("count", type=int, help="mutants")
    parser.add_argument("seed", type=int, nargs="?", default=1)
    parser.add_argument("--only", default="", metavar="REGEX", help="files to change")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="compilers at a time")
    parser.add_argument("--seconds", type=float, default=600.0, help="longest build of one mutant")
    parser.add_argument("--list", action="store_true", help="tell the changes and stop")
    given = parser.parse_args()

    sources = Sources(given.only)
    rng = random.Random(given.seed)
    changes = []
    while len(changes) < min(given.count, sum(map(len, sources.sites.values()))):
        change = sources.draw(rng)
        if change not in changes:
            changes.append(change)
    if given.list:
        print("\n".join(map(sources.describe, changes)))
        return
    workshop = Workshop(sources, given.jobs, given.seconds)
    workshop.prepare()
    results = workshop.home / f"{sources.digest}.tsv"
    known = dict(line.rsplit("\t", 1) for line in results.read_text().splitlines()) if results.exists() else {}
    survivors = 0
    for number, change in enumerate(changes, 1):
        what = sources.describe(change)
        if what not in known:
            known[what] = workshop.verdict(change) or "survived"
            with open(results, "a", encoding="utf-8") as out:
                out.write(f"{what}\t{known[what]}\n")
        survivors += known[what] == "survived"
        print(f"{number}/{len(changes)}\t{what}\t{known[what]}", flush=True)
    print(f"{len(changes)} mutants, {len(changes) - survivors} killed, {survivors} survived")


if __name__ == "__main__":
    main()
