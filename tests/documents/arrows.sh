#!/bin/sh
# arrows.sh SOURCE: every #include between the rooms of src/ is one that the table of docs/structure.md allows.
set -eu
cd "$1"
rooms=$(mktemp)
trap 'rm -f "$rooms"' EXIT
# "room allowed" for each row of the table: the first and the last cell.
sed -n '/^| room in `src\/`/,/^$/p' docs/structure.md | awk -F'|' 'NR > 2 && NF > 3 {
    gsub(/[` ]+/, " ", $2); gsub(/`/, "", $4); split($2, room, " ")
    n = split($4, allowed, " ")
    print room[1], room[1]
    for (i = 1; i <= n; ++i) print room[1], allowed[i] }' >"$rooms"
[ "$(wc -l <"$rooms")" -gt 20 ] || { echo "docs/structure.md: no table of rooms"; exit 1; }
found=$(find src -name '*.cpp' -o -name '*.hpp' | while read -r file; do
    room=$(dirname "${file#src/}")
    sed -n 's/^#include "\(.*\)\/[^/]*"$/\1/p' "$file" | while read -r other; do
        grep -qx "$room $other" "$rooms" || echo "$file includes $other"
    done
done)
[ -z "$found" ] || { echo "$found"; exit 1; }
