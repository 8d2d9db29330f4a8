#!/usr/bin/env python3
"""Runs the cases of the program's tests with a program of another platform: program_cases.py BUILD PROGRAM.

BUILD is the folder of a native build with tests, whose list of tests has the cases; PROGRAM takes the place of its program.
Prints how many cases write the same as the approved files, and the differences of the others; exit status 1 if there are any.
"""
import json
import subprocess
import sys

# Where the system has its own words for a fault.
WORDS_OF_THE_SYSTEM = {"program.directory"}


def main(build, program):
    listed = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"], capture_output=True, check=True)
    same, differing = 0, 0
    for test in json.loads(listed.stdout)["tests"]:
        command = test.get("command", [])
        if len(command) < 3 or not command[1].endswith("program/run_case.sh") or test["name"] in WORDS_OF_THE_SYSTEM:
            continue
        folder = [p["value"] for p in test["properties"] if p["name"] == "WORKING_DIRECTORY"]
        run = subprocess.run(command[:2] + [program] + command[3:], cwd=folder[0], capture_output=True)
        same += run.returncode == 0
        if run.returncode != 0:
            differing += 1
            print(test["name"], run.stdout.decode(errors="replace"), sep="\n", file=sys.stderr)
    print(f"{same} of {same + differing}")
    return 1 if differing or same == 0 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
