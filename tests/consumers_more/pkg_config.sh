#!/bin/sh
# pkg_config.sh KIND LIBRARIES PACKAGE APPROVED COMPILER SOURCE: compiles and links with what pkg-config says, and
# compares a run with the approved file.
set -eu
kind=$1 libraries=$2 package=$3 approved=$4 compiler=$5 source=$6
export PKG_CONFIG_PATH="$libraries/pkgconfig" LD_LIBRARY_PATH="$libraries"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" # the compiler leaves module files
program=$folder/program
if [ "$kind" = static ]; then
    # Archives of the package only: the system's libraries stay shared.
    flags=$(pkg-config --static --cflags --libs "$package" | sed 's/-lktl_fortran/-l:libktl_fortran.a/; s/-lktl\b/-l:libktl.a/')
else
    flags=$(pkg-config --cflags --libs "$package")
fi
# shellcheck disable=SC2086  # lists of words
$compiler -o "$program" "$source" $flags
if [ "$kind" = static ]; then unset LD_LIBRARY_PATH; fi
sh "$(dirname "$0")/../bindings/run.sh" "$approved" "$program"
