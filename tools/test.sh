#!/bin/sh
# Every test of the quick tier: installs what is missing, builds, tests. Further arguments go to ctest.
set -eu
cd "$(dirname "$0")/.."
tools/setup.sh
tools/python.sh || echo "The Python package is left out." >&2
tools/build.sh release
exec ctest --preset release -LE full "$@"
