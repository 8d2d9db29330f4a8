#!/bin/sh
# summary.sh CMAKE SOURCE COMPILER PROCESSOR: a part whose package is missing is left out and named in the summary; only if
# it is asked for by name the configuration stops.
set -eu
cmake=$1 source=$2 compiler=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
unset CXXFLAGS

# configure ARGUMENT ...: what CMake says, without the line breaks of its errors.
configure() {
    rm -rf "$folder/build"
    "$cmake" -S "$source" -B "$folder/build" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_DISABLE_FIND_PACKAGE_GTest=ON \
        "$@" >"$folder/said" 2>&1 && status=0 || status=$?
    tr -s ' \n' ' ' <"$folder/said" >"$folder/flat"
}
# said TEXT
said() { grep -qF -- "$1" "$folder/flat" || { echo "not said: $1"; cat "$folder/said"; exit 1; }; }

configure -DCMAKE_DISABLE_FIND_PACKAGE_CLI11=ON -DKTL_HIGHWAY_INCLUDE_DIR= -DKTL_BUILD_FORTRAN=OFF
[ $status -eq 0 ] || { cat "$folder/said"; exit 1; }
said 'program no, needs CLI11 (Debian: libcli11-dev)'
said 'tests no, needs GoogleTest (Debian: libgtest-dev)'
said 'Fortran library no, off by KTL_BUILD_FORTRAN=OFF'
[ "$4" != x86_64 ] || said 'vector lanes no, needs Highway'

for part in KTL_BUILD_PROGRAM:CLI11 KTL_VECTOR_LANES: KTL_BUILD_TESTS:GoogleTest; do
    configure -DCMAKE_DISABLE_FIND_PACKAGE_CLI11=ON -DKTL_HIGHWAY_INCLUDE_DIR= -D"${part%:*}"=ON
    [ $status -ne 0 ] || { echo "no error: $part"; exit 1; }
    said "${part%:*}=ON needs ${part#*:}"
done
