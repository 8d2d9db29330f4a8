#!/bin/sh
# Makes build/python, the environment that builds and tests the Python package, with the versions of
# tests/python/requirements.txt; does nothing if it is up to date. PYTHON chooses the interpreter, CPython 3.11 or later.
set -eu
cd "$(dirname "$0")/.."
python=${PYTHON:-/usr/bin/python3}
wanted=tests/python/requirements.txt
made=build/python/requirements.txt
cmp -s "$wanted" "$made" && exit 0
"$python" -c 'import sys, ensurepip, venv; sys.exit(sys.version_info < (3, 11))' || {
    echo "tools/python.sh: $python is not CPython 3.11 or later with venv and pip" >&2
    exit 1
}
echo "Making build/python"
rm -rf build/python
"$python" -m venv build/python
build/python/bin/python -m pip install --quiet --disable-pip-version-check --requirement "$wanted"
cp "$wanted" "$made"
