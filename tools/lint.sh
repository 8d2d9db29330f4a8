#!/bin/sh
# Format of all sources by clang-format, findings of clang-tidy in library, program and bindings: tools/lint.sh [FILE ...].
# Installs both from Debian; needs the release build's list of commands.
set -eu
cd "$(dirname "$0")/.."
tools/setup.sh clang-format-14 clang-tidy-14
tools/python.sh
git ls-files -z '*.cpp' '*.hpp' '*.h' | xargs -0 clang-format-14 --dry-run -Werror
[ -e build/release/compile_commands.json ] || cmake --preset release >/dev/null
[ $# -gt 0 ] || set -- $(git ls-files 'src/*.cpp' 'apps/*.cpp' 'bindings/*.cpp' | grep -vE '/(kernels_avx|kernels_neon|silent)')
# The kernels for lanes are the same templates as the scalar ones; silent.cpp is no part of the release build.
# Clang does not know how GCC is told to order the instructions of the kernels.
mkdir -p build/lint
sed 's/ -fschedule-insns -fsched-pressure//g' build/release/compile_commands.json >build/lint/compile_commands.json
tidy="clang-tidy-14 -p build/lint --quiet --warnings-as-errors=*"
# The analyzer would take minutes for the paths through row.cpp, which has every search for every pair; the same templates are
# analyzed in kernels_scalar.cpp.
long=src/engine/rows/row.cpp
if printf '%s\n' "$@" | grep -qx "$long"; then $tidy --checks='-clang-analyzer-*' "$long"; fi
printf '%s\n' "$@" | grep -vx "$long" | xargs -r -P "$(nproc)" -n 4 $tidy
