#!/bin/sh
# pictures.sh PROGRAM PICTURES: charts in files of all kinds; without cairo (PICTURES is OFF) a sentence. A chart that fails leaves
# what was there.
set -eu
program=$1
pictures=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "$1"
    exit 1
}

"$program" diagram hs --process examples/heat_balance.csv -o "$work/a.SVG"
grep -q '<title id="title">Mollier chart' "$work/a.SVG" || fail "no title"
grep -q '>main steam: 166.7 bar, 538 °C</text>' "$work/a.SVG" || fail "the text of a state is no text"
grep -q 'IFC-67' "$work/a.SVG" || fail "no formulation"
"$program" diagram hs --process examples/heat_balance.csv >"$work/b.svg"
cmp "$work/a.SVG" "$work/b.svg"

# What is wrong is found before the file is touched.
printf kept >"$work/kept.svg"
status=0
"$program" diagram hs --lines p=2000 -o "$work/kept.svg" 2>"$work/error" || status=$?
[ "$status" -eq 2 ] || fail "status $status"
[ "$(cat "$work/kept.svg")" = kept ] || fail "the file is not as it was"
"$program" diagram hs --window s=9:5 -o "$work/none.svg" 2>"$work/error" && fail "an empty window was drawn"
[ ! -e "$work/none.svg" ] || fail "a file was left behind"

for kind in pdf png; do
    status=0
    "$program" diagram hs --size A6 -o "$work/c.$kind" 2>"$work/error" || status=$?
    if [ "$pictures" = ON ]; then
        [ "$status" -eq 0 ] || fail "$(cat "$work/error")"
        head -c 8 "$work/c.$kind" | grep -aqi "$kind" || fail "c.$kind is no $kind"
    else
        [ "$status" -eq 2 ] || fail "status $status without cairo"
        grep -q "built without cairo" "$work/error" || fail "no sentence"
        [ ! -e "$work/c.$kind" ] || fail "a file was left behind"
    fi
done
if [ -e /dev/full ]; then
    "$program" diagram hs 2>"$work/error" >/dev/full && fail "a full disk was written to"
    grep -q "cannot write the results" "$work/error" || fail "$(cat "$work/error")"
fi
exit 0
