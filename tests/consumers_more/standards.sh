#!/bin/sh
# standards.sh CC CXX INCLUDE LIBRARIES: a program of the named routines, and one of steam.h, in every standard of C and C++
# that callers use; and what fast arithmetic and an old standard are told.
set -eu
cc=$1 cxx=$2 include=$3 export LD_LIBRARY_PATH="$4"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cat >"$folder/program.c" <<'EOF'
#include <ktl/ktlftn.h>
#include <ktl/steam.h>
#ifdef __cplusplus
#define AT(x) x
#else
#define AT(x) &x
#endif
int main(void) {
    double p = 8.0, t = 500.0, v = 0.0;
    struct ktl_state s;
    ktlftn(ktlrpt, AT(p), AT(t), "V.", &v);
    return ktl_cu.t == 500.0 && ktl_cu_of_thread() == &ktl_cu && ktl_nt_of_thread() == &ktl_nt && ktlerr.ientry == 0 &&
                   ktl_state_of(KTL_PAIR_PT, p, t, &s) == KTL_STATUS_SOLVED && v > 0.443 && s.v > 0.443
               ? 0
               : 1;
}
EOF
cp "$folder/program.c" "$folder/program.cpp"
strict="-Wall -Wextra -pedantic -Werror -I$include"
run() { # COMPILER STANDARD SOURCE
    # shellcheck disable=SC2086  # lists of words
    $1 -std="$2" $strict "$folder/$3" -L"$LD_LIBRARY_PATH" -lktl -o "$folder/program"
    "$folder/program" || { echo "$2: wrong values"; exit 1; }
}
for standard in c99 c11 c17 c2x gnu99; do run "$cc" $standard program.c; done
for standard in c++98 c++11 c++14 c++17 c++20 c++2b gnu++98; do run "$cxx" $standard program.cpp; done

refused() { # WORDS HEADER FLAGS...: the compiler must stop with these words
    words=$1 header=$2
    shift 2
    if echo "#include <$header>" | $cxx "$@" -fsyntax-only -x c++ - 2>"$folder/errors"; then
        echo "$header compiles with $*"
        exit 1
    fi
    grep -q "$words" "$folder/errors" || { cat "$folder/errors"; exit 1; }
}
refused "needs C++20" ktl/steam.hpp -std=c++17 -I"$include"
source=$(cd "$(dirname "$0")/../../src" && pwd)
for flag in -ffast-math -ffinite-math-only -Ofast; do
    refused "cannot be compiled" regions/number.hpp -std=c++20 $flag -I"$source"
done
