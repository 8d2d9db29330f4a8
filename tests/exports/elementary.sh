#!/bin/sh
# elementary.sh NM OBJECT...: the ktl:: calls take no function from the C library whose last bit is that library's choice, such as
# exp, log and pow. Only objects of the named routines may, in the folders below; no other object needs a function of theirs.
set -eu
nm=$1
shift
c_library='(exp|exp2|exp10|expm1|log|log2|log10|log1p|pow|cbrt|hypot|sin|cos|sincos|tan|asin|acos|atan|atan2|sinh|cosh|tanh|asinh|acosh|atanh|erf|erfc|lgamma|tgamma|__.*_finite)[fl]?'
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# A line for each symbol: named or call, the object below its target's folder, the kind of the symbol, its name.
"$nm" -A "$@" | sed 's/:/ /' | awk '{ call = $1 !~ /\/(finders|regions|solvers)\//; sub(/.*\.dir\//, "", $1)
    print call ? "call" : "named", $1, $(NF - 1), $NF }' >"$work/symbols"
# What is looked for can be seen: the named routines do take exp, and objects of every room were read.
grep -q '^named .* U exp$' "$work/symbols"
for room in engine/calls engine/rows searches process if97; do
    grep -q "^call .*$room/" "$work/symbols" || { echo "no object of $room"; exit 1; }
done
awk -v c_library="^$c_library\$" '
    NR == FNR { if ($3 ~ /[TW]/) has[$1, $4]; next }
    $1 == "call" && $3 == "U" && ($4 ~ c_library || ("named", $4) in has && !(("call", $4) in has)) { print $4, $2 }
    ' "$work/symbols" "$work/symbols" >"$work/found"
[ ! -s "$work/found" ] || { echo "a ktl:: call takes from the C library or from a named routine:"; cat "$work/found"; exit 1; }
