#!/bin/sh
# exported.sh NM LIBRARY APPROVED: the dynamic symbols of a shared library, kind and name. APPROVE=1 in the environment
# writes the approved file.
set -eu
exported=$(mktemp)
trap 'rm -f "$exported"' EXIT
# The address sanitizer adds a name of its own to each variable.
"$1" -D --defined-only "$2" | awk '$3 !~ /^__odr_asan/ { print $2, $3 }' | LC_ALL=C sort -k 2 >"$exported"
[ -z "${APPROVE:-}" ] || cp "$exported" "$3"
diff -u "$3" "$exported"
