#!/bin/sh
# How far a call walks through the code: tools/walk.sh [SOURCE]. For p, h of water (100 bar, 1000 kJ/kg) through ktl::state
# and through ktl::batch with one row, and for values without a state: functions of the library called, the files that they
# are in, and how often one call follows another in a different file. SOURCE is the checkout to measure, by default this one.
# Compiled without optimisation, so that each function of the sources is a call. Functions of the standard library and of the
# number types (arithmetic, exp, log) are left out.
set -eu
here=$(cd "$(dirname "$0")/.." && pwd)
source=$(cd "${1:-$here}" && pwd)
build=$here/build/walk
mkdir -p "$build"
flags="-std=c++20 -O0 -g -DKTL_SMALL_KERNELS -ffp-contract=off -finstrument-functions -no-pie -I$source/src -I$source/include"
find "$source/src" -name '*.cpp' ! -name 'kernels_avx*' ! -name 'kernels_neon*' ! -name silent.cpp | sort >"$build/sources"
xargs -P "$(nproc)" -I{} sh -c 'g++ $1 -c "$2" -o "$3/$(echo "$2" | md5sum | cut -c1-12).o"' _ "$flags" {} "$build" <"$build/sources"
# shellcheck disable=SC2086  # lists of words
g++ $flags "$here/tools/walk/walk.cpp" $(while read -r f; do echo "$build/$(echo "$f" | md5sum | cut -c1-12).o"; done <"$build/sources") \
    -pthread -o "$build/walk"
walk() {
    "$build/walk" "$@" | addr2line -f -C -e "$build/walk" | paste - - | grep -F "	$source/src/" |
        grep -v -E '/(scalar|elementary|number)\.hpp:' |
        sed 's/:[0-9]*\( (discriminator.*\)\{0,1\}$//' | awk -F'\t' -v what="$*" '
            { functions[$1 $2] = 1; files[$2] = 1; if ($2 != last) ++changes; last = $2; ++calls }
            END { for (f in functions) ++nf; for (f in files) ++nd
                  printf "%-20s %5d calls of %3d functions in %2d files, %5d changes of file\n", what, calls, nf, nd, changes }'
}
walk state 100 1000
walk batch 100 1000
walk state 5928 0
rm -r "$build"
