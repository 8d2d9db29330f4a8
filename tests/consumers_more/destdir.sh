#!/bin/sh
# destdir.sh CMAKE BUILD APPROVED: what an installation consists of. APPROVE=1 in the environment writes the list.
set -eu
cmake=$1 build=$2 approved=$3
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
DESTDIR="$stage" "$cmake" --install "$build" --prefix /opt/ktl >/dev/null
(cd "$stage" && find . ! -type d | LC_ALL=C sort) >"$stage/list"
sed -i '/^.\/list$/d; s,^\./opt/ktl/,,' "$stage/list"
[ -z "${APPROVE:-}" ] || cp "$stage/list" "$approved"
diff -u "$approved" "$stage/list"
