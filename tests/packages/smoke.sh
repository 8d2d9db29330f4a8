#!/bin/sh
# smoke.sh BUILD SOURCE: builds the Debian packages, installs them in a bare Debian and uses them there as a newcomer
# would. Needs root and the network. KTL_BARE_ROOT names an unpacked minimal system to copy; without it, debootstrap
# makes one. Exit status 77: cannot run here.
set -eu
build=$1 source=$2
[ "$(id -u)" -eq 0 ] || exit 77
[ -n "${KTL_BARE_ROOT:-}" ] || command -v debootstrap >/dev/null || exit 77

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
(cd "$build" && rm -f ./*.deb && cpack -G DEB >"$root.log" 2>&1) || { cat "$root.log"; exit 1; }
rm -f "$root.log"
if [ -n "${KTL_BARE_ROOT:-}" ]; then
    cp -a "$KTL_BARE_ROOT/." "$root"
else
    debootstrap --variant=minbase bookworm "$root" >/dev/null
fi
cp /etc/resolv.conf "$root/etc/resolv.conf"
mkdir "$root/packages"
cp "$build"/*.deb "$source/examples/c/flash.c" "$source/examples/fortran/turbine.f90" \
    "$source/examples/fortran/extraction.f" "$root/packages"

inside() {
    chroot "$root" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive LC_ALL=C \
        ${http_proxy:+http_proxy="$http_proxy"} sh -euc "cd /packages; $1"
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

install="apt-get install -y -qq --no-install-recommends"
quietly "apt-get update -qq; $install ./ktl_*.deb ./libktl0.1_*.deb"
wanted "H   419.738642 kJ/kg" "ktl pt 10 100 H"

quietly "$install ./libktl-dev_*.deb ./libktl-fortran-dev_*.deb gcc gfortran libstdc++-12-dev pkg-config"
# shellcheck disable=SC2016  # expands in the bare system
{
    wanted "behind it:        1.50 bar, 111.372 degC" 'gcc flash.c $(pkg-config --cflags --libs ktl) -o flash; ./flash'
    wanted "actual  h  2257.048" 'gfortran turbine.f90 $(pkg-config --cflags --libs ktl_fortran) -o turbine; ./turbine'
    wanted "300.00 BAR: NO SATURATED STATE" 'gfortran extraction.f -lktl_fortran -lktl -o extraction; ./extraction'
    wanted "300.00 BAR: NO SATURATED STATE" \
        'gfortran -static extraction.f -lktl_fortran -lktl -lstdc++ -o extraction; ./extraction'
}
quietly 'dpkg --purge libktl-fortran-dev libktl-dev ktl libktl0.1'
left=$(find "$root/usr" -name '*ktl*')
[ -z "$left" ] || { echo "left behind: $left"; exit 1; }
