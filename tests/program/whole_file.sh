#!/bin/sh
# whole_file.sh PROGRAM: a table that does not fit on the disk leaves no file behind, and one that is refused no empty one.
set -eu
program=$1
cd "$(mktemp -d)"
trap 'rm -rf "$PWD"' EXIT
trap '' XFSZ # a write past the limit fails
if (ulimit -f 1; "$program" table saturation --step 1 -o table.txt) 2>messages; then echo 'status 0'; exit 1; fi
grep -q "cannot write the results to 'table.txt'" messages
if "$program" table saturation --from 400 -o table.txt 2>/dev/null; then echo 'status 0'; exit 1; fi
[ ! -e table.txt ]
"$program" table saturation --from 370 --step 1 -o table.HTML
grep -q '^<!DOCTYPE html>' table.HTML
