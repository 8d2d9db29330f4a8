#!/bin/sh
# finders_table.sh SWEEP TABLE: sweeps the finders and compares with the table in the documents. APPROVE=1 in the
# environment writes the table.
set -eu
found=$(mktemp)
trap 'rm -f "$found"' EXIT
"$1" states 204000 1 >"$found"
[ -z "${APPROVE:-}" ] || cp "$found" "$2"
diff -u "$2" "$found"
