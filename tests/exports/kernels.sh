#!/bin/sh
# kernels.sh NM OBJECT...: kernels compiled for wide instructions must not leave a function of their own copy behind that
# files for every machine may be linked to. Theirs have the number of lanes in their names.
set -eu
nm=$1
shift
left=$(for object; do
    case $object in *kernels_avx*) "$nm" --defined-only "$object" | awk '$2 == "W" && $3 !~ /(5|11Double)Lanes/ { print $3 }' ;; esac
done)
[ -z "$left" ] || { echo "left in the kernels: $left"; exit 1; }
