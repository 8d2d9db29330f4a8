#!/bin/sh
# many_rows.sh PROGRAM: lines come out in the order in which they went in, whatever threads and pieces they came in, and
# a terminal is told of the progress.
set -eu
export LC_ALL=C
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
awk 'BEGIN { print "line,p,h"
             for (i = 1; i <= 200000; ++i) printf "%d,%s,%d\n", i, i % 7 ? 10 : "x", 500 + i % 2500 }' >"$folder/in.csv"

status=0
"$1" batch ph "$folder/in.csv" T,V --stats >"$folder/out.csv" 2>"$folder/messages" || status=$?
[ $status -eq 1 ] || { echo "exit status $status"; exit 1; }
grep -q '^200,000 rows in .* rows/s$' "$folder/messages" || { cat "$folder/messages"; exit 1; }
grep -q '^ktl: 28571 of 200000 lines have no full result:$' "$folder/messages" &&
    grep -q '^  28571  pressure is not a number (first in line 8)$' "$folder/messages" || { cat "$folder/messages"; exit 1; }
cut -d, -f1-3 "$folder/out.csv" | cmp - "$folder/in.csv"

dd if="$folder/in.csv" bs=777 2>/dev/null | "$1" batch ph - T,V 2>/dev/null | cmp - "$folder/out.csv"

script -qec true /dev/null >/dev/null 2>&1 || exit 0 # no pseudo-terminal to be had
script -qec "'$1' batch ph - T <'$folder/in.csv' >'$folder/few.csv'" "$folder/screen" >/dev/null || true
grep -q '200,000 rows in' "$folder/screen" || { cat "$folder/screen"; exit 1; }
