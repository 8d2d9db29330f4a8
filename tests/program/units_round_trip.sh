#!/bin/sh
# units_round_trip.sh PROGRAM: results in each system of units, given back in it with and without the names of the units,
# are the state that they came from, at the limits of the range too.
set -eu
export LC_ALL=C
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
codes=P,T,V,H,S,U,X
printf 'p_bar,t_degC\n10,200\n165,540\n0.05,250\n300,420\n221.3,100\n' >"$folder/inside.csv"
printf 'p_bar,t_degC\n1000,0.01\n0.05,25\n0.006112444,800\n1000,800\n221.2,374.2\n' >"$folder/limits.csv"
printf 't_degC,x\n0.01,0.5\n100,0.25\n374.15,0\n' >"$folder/line.csv"

# back SYSTEM PAIR FROM FILE: the results of FILE by the pair FROM, given back by PAIR, are the same to 1e-8 of them.
back() {
    "$1" batch "$4" "$folder/$5.csv" $codes --units "$2" | cut -d, -f3-9 >"$folder/first.csv"
    "$1" batch "$3" "$folder/first.csv" $codes --units "$2" >"$folder/named.csv"
    sed '1s/_[^,]*//g' "$folder/first.csv" | "$1" batch "$3" - $codes --units "$2" >"$folder/plain.csv"
    awk -F, -v what="$2 $3 $5" 'NR > 1 { if ($15 != "") { print what ": " $0; exit 1 }
        for (n = 1; n <= 7; ++n) { d = $n - $(n + 7); if (d < 0) d = -d
            if ($(n + 7) == "" || d > 1e-8 * ($n < 0 ? -$n : $n) + 1e-9) { print what ": " $0; exit 1 } } }
        END { if (NR < 4) { print what ": no rows"; exit 1 } }' "$folder/named.csv"
    sed 1d "$folder/named.csv" >"$folder/named.rows"
    sed 1d "$folder/plain.csv" | cmp - "$folder/named.rows"
}
for system in bar si mpa us; do
    for pair in pt ph ps pv pu; do back "$1" $system $pair pt inside; done
    back "$1" $system pt pt limits
    back "$1" $system px tx line
    back "$1" $system tx tx line
    # One state of the file, given as arguments without units.
    "$1" batch pt "$folder/inside.csv" P,T,H --units $system | sed -n 3p | while IFS=, read -r _ _ p t h _; do
        "$1" pt "$p" "$t" H --units $system | grep -qF "$h " || { echo "$system: not $h at $p $t"; exit 1; }
    done
done
