#!/bin/sh
# pictures.sh PROGRAM SOURCE: each picture of docs/diagrams.md is what the command beside it draws. APPROVE=1 in the environment
# draws them anew.
set -eu
program=$1
cd "$2"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
sed -n 's/^    ktl \(diagram .*\) -o \(docs\/pictures\/[a-z]*[.]svg\)$/\2 \1/p' docs/diagrams.md >"$work/commands"
count=0
while read -r picture arguments; do
    count=$((count + 1))
    eval "\"\$program\" $arguments" >"$work/picture.svg" </dev/null
    [ -z "${APPROVE:-}" ] || cp "$work/picture.svg" "$picture"
    cmp "$work/picture.svg" "$picture"
    [ "$(wc -c <"$picture")" -lt 200000 ] || { echo "$picture is too large"; exit 1; }
done <"$work/commands"
[ "$count" -ge 7 ] || { echo "only $count commands found"; exit 1; }
for picture in docs/pictures/*.svg; do
    grep -q "^$picture " "$work/commands" || { echo "no command makes $picture"; exit 1; }
done
