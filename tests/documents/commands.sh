#!/bin/sh
# commands.sh PROGRAM SOURCE: what the documents show of the commands compare and table is what the program prints. In
# docs/two-formulations.md and docs/tables.md each block that begins with "$ ktl ..." is compared whole; the tables of README are
# looked for, line by line, in the output for examples/turbine_test.csv. APPROVE=1 in the environment writes the blocks of the
# documents anew.
set -eu
program=$1
cd "$2"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# check DOCUMENT BLOCKS: it has at least that many.
check() {
    awk -v program="$program" -v out="$work/new" -v least="$2" '
/^\$ ktl / && fence { command = program substr($0, 6); print >out; blocks++; skip = 1
                      while ((command | getline line) > 0) print line >out
                      if (close(command) > 1) exit 1
                      next }
/^```/ { fence = !fence; skip = 0 }
!skip { print >out }
END { if (blocks < least) { print "only " blocks + 0 " commands found"; exit 1 } }' "$1"
    [ -z "${APPROVE:-}" ] || cp "$work/new" "$1"
    diff -u "$1" "$work/new"
}
check docs/two-formulations.md 5
check docs/tables.md 2

"$program" compare examples/turbine_test.csv >"$work/output"
sed -n '/^(`ktl compare examples/,/^```$/p; /^section  inlet/,/^```$/p' README.md | grep -E '^[a-zA-Z]+ .*  ' | sort -u >"$work/shown"
[ "$(wc -l <"$work/shown")" -ge 8 ] || { echo "README.md: no tables of the example found"; exit 1; }
while IFS= read -r line; do
    grep -qxF "$line" "$work/output" || { echo "README.md: the program does not print: $line"; exit 1; }
done <"$work/shown"
