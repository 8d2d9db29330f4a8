"""The documents' examples run as they are printed, the stubs name what exists, and the examples pass mypy."""

import ast
import doctest
import os
import subprocess
import sys
from pathlib import Path

import numpy as np
import pytest
from conftest import SOURCE

import ktl


@pytest.mark.parametrize("document, least", [("docs/python.md", 25), ("README.md", 3)])
def test_examples_of_documents(document, least):
    np.set_printoptions(precision=8)
    result = doctest.testfile(str(SOURCE / document), module_relative=False,
                              optionflags=doctest.ELLIPSIS)
    assert result.attempted >= least and result.failed == 0


def names_of_stub(name):
    tree = ast.parse((Path(ktl.__file__).parent / name).read_text())
    functions = {node.name for node in tree.body if isinstance(node, (ast.FunctionDef, ast.ClassDef))}
    return functions | {node.target.id for node in tree.body if isinstance(node, ast.AnnAssign)}


@pytest.mark.parametrize("module, stub", [(ktl, "__init__.pyi"), (ktl.si, "si.pyi"), (ktl.mpa, "mpa.pyi"), (ktl.us, "us.pyi"),
                                          (ktl.if97, "if97.pyi")])
def test_stubs_name_what_exists(module, stub):
    kinds = {"PropertyUfunc", "LineUfunc", "StatusUfunc", "_Values", "__version__"}
    assert names_of_stub(stub) - kinds == set(module.__all__)
    assert all(hasattr(module, name) for name in module.__all__)


CHECKED = """
import ktl
import numpy as np
column: np.ndarray[tuple[int, ...], np.dtype[np.float64]] = ktl.t_ph(np.ones(3), 2800.0)
one: np.float64 = ktl.h(p=100.0, t=500.0)
ktl.h(p=100.0, rho=5.0)  # error: no such pair
ktl.enthalpy_pt(1, 2)  # error: no such function
ktl.state(pressure=1)  # error: no such keyword
"""


def test_mypy(tmp_path):
    (tmp_path / "checked.py").write_text(CHECKED)
    environment = {**os.environ, "MYPYPATH": str(Path(ktl.__file__).parents[1])}

    def mypy(*files):
        return subprocess.run([sys.executable, "-m", "mypy", "--strict", "--ignore-missing-imports", "--untyped-calls-exclude",
                               "distributed", "--cache-dir",
                               str(tmp_path / "cache"), *map(str, files)],
                              capture_output=True, text=True, env=environment, timeout=500)

    found = mypy(tmp_path / "checked.py")
    wrong = [k for k, line in enumerate(CHECKED.splitlines(), 1) if "# error" in line]
    lines = {int(line.split(":")[1]) for line in found.stdout.splitlines() if ": error:" in line}
    assert lines == set(wrong), found.stdout
    examples = mypy(*sorted((SOURCE / "examples/python").glob("*.py")))
    assert examples.returncode == 0, examples.stdout


@pytest.mark.parametrize("call, text", [
    (ktl.t_ph, "temperature (degC)"), (ktl.si.t_ph, "x1: p, pressure (Pa)"), (ktl.us.h_pt, "32.018 to 1472 degF"),
    (ktl.h, "Specific enthalpy, kJ/kg"), (ktl.psat, "Saturation pressure (bar)"), (ktl.state, "number picks one"),
], ids=str)
def test_help(call, text):
    assert text in call.__doc__
