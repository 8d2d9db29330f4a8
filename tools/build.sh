#!/bin/sh
# Configures and builds one preset: tools/build.sh PRESET [TARGET ...]. Quiet unless something fails.
set -eu
cd "$(dirname "$0")/.."
preset=$1
shift
log=build/$preset.log
mkdir -p build
if ! { cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}; } >"$log" 2>&1; then
    cat "$log"
    exit 1
fi
