#!/bin/sh
# smoke.sh SOURCE: makes the Debian packages in a bare Debian, installs them in another one and compiles programs of all
# languages against them there, and runs a linked program in a third one that has the run-time packages alone. Needs root
# and the network. KTL_BARE_ROOT names an unpacked minimal system to copy; without it, debootstrap makes one. Exit status
# 77: cannot run here.
set -eu
source=$1
[ "$(id -u)" -eq 0 ] || exit 77
[ -n "${KTL_BARE_ROOT:-}" ] || command -v debootstrap >/dev/null || exit 77

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
bare=${KTL_BARE_ROOT:-$folder/bare}
[ -d "$bare" ] || debootstrap --variant=minbase bookworm "$bare" >/dev/null

# new_system NAME: a bare one, which the calls below work in.
new_system() {
    root=$folder/$1
    cp -a "$bare" "$root"
    cp /etc/resolv.conf "$root/etc/resolv.conf"
    mkdir "$root/work"
}
inside() {
    chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LC_ALL=C \
        ${http_proxy:+http_proxy="$http_proxy"} sh -euc "cd /work; $1"
}
# quietly COMMAND: its output only when it fails.
quietly() {
    output=$(inside "$1" 2>&1) || { echo "failed: $1: $output"; exit 1; }
}
# wanted TEXT COMMAND: the output of the command holds the text.
wanted() {
    quietly "$2"
    case $output in
        *"$1"*) ;;
        *) echo "$2: no '$1' in: $output"; exit 1 ;;
    esac
}
install="apt-get update -qq; apt-get install -y -qq --no-install-recommends"

new_system made
tar -C "$source" --exclude=./build --exclude=./.git -c . | tar -C "$root/work" -x
quietly "tools/packages.sh"
packages=$root/work/build/packages

new_system used
cp "$packages"/*.deb "$root/work"
quietly "$install ./ktl_*.deb"
wanted "H   419.738642 kJ/kg" "ktl pt 10 100 H"
wanted "drum water" "ktl batch auto /usr/share/doc/ktl/examples/heat_balance.csv"
wanted "MIT License" "cat /usr/share/doc/ktl/copyright"
quietly "$install ./lib*.deb g++ gfortran pkg-config"
# shellcheck disable=SC2016  # expands in the bare system
{
    examples='/usr/share/doc/libktl-dev/examples'
    fortran='/usr/share/doc/libktl-fortran-dev/examples/fortran'
    wanted "behind it:        1.50 bar, 111.372 degC" \
        "gcc $examples/c/flash.c "'$(pkg-config --cflags --libs ktl) -o flash; ./flash'
    wanted "" "g++ -std=c++20 $examples/cpp/columns.cpp "'$(pkg-config --cflags --libs ktl) -o columns; ./columns'
    wanted "actual  h  2257.048" \
        "gfortran $fortran/turbine.f90 "'$(pkg-config --cflags --libs ktl_fortran) -o turbine; ./turbine'
    wanted "300.00 BAR: NO SATURATED STATE" "gfortran $fortran/extraction.f -lktl_fortran -lktl -o extraction; ./extraction"
    wanted "300.00 BAR: NO SATURATED STATE" \
        "gfortran -static $fortran/extraction.f -lktl_fortran -lktl -lstdc++ -o extraction_static; ./extraction_static"
}
programs=$root/work
quietly 'dpkg --purge libktl-fortran-dev libktl-dev ktl libktl-fortran0.1 libktl0.1'
left=$(find "$root/usr" -name '*ktl*')
[ -z "$left" ] || { echo "left behind: $left"; exit 1; }

new_system run
cp "$packages"/libktl0.1_*.deb "$packages"/libktl-fortran0.1_*.deb "$programs/turbine" "$programs/extraction" "$root/work"
quietly "$install ./*.deb"
wanted "actual  h  2257.048" ./turbine
wanted "300.00 BAR: NO SATURATED STATE" ./extraction
