#!/bin/sh
# same_digits.sh PROGRAM FILE: each line of the batch has the digits that a call for this state alone prints.
set -eu
codes=P,T,V,H,S,X
lines=0
"$1" batch auto "$2" $codes | tail -n +2 | {
    while IFS=, read -r point pair first second _ values; do
        single=$("$1" "$pair" "$first" "$second" $codes | awk '{printf "%s,", $2}')
        [ "$single" = "$values" ] || { echo "$point: batch $values, alone $single"; exit 1; }
        lines=$((lines + 1))
    done
    [ "$lines" -ge 25 ]
}
