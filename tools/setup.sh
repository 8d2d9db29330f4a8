#!/bin/sh
# Installs from Debian what this machine lacks: tools/setup.sh [--for PURPOSE] [PACKAGE ...].
#   --for program    what building the program and the libraries for C and C++ needs
#   --for packages   that and what making the Debian packages needs
#   without --for    everything: building, testing and running all of ktl
# Packages named as arguments are installed besides. Without root or a sudo that needs no password, it prints the one
# command to give to an administrator.
set -eu

program="g++ cmake ninja-build libcli11-dev libhwy-dev libcairo2-dev pkg-config"
packages="$program gfortran file dpkg-dev"
everything="$packages clang libclang-rt-dev make mandoc libgtest-dev libbenchmark-dev libeigen3-dev python3-dev python3-venv"

wanted=$everything
if [ "${1:-}" = --for ]; then
    case ${2:-} in
        program) wanted=$program ;;
        packages) wanted=$packages ;;
        *) echo "tools/setup.sh: --for program or --for packages, not '${2:-}'" >&2; exit 2 ;;
    esac
    shift 2
fi

missing=""
for package in $wanted "$@"; do
    status=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

install="apt-get install -y --no-install-recommends$missing"
as_root=""
if [ "$(id -u)" -ne 0 ]; then
    if ! sudo -n true 2>/dev/null; then
        echo "These Debian packages are missing and need an administrator, who installs them with one command:" >&2
        echo "    sudo sh -c 'apt-get update && $install'" >&2
        exit 1
    fi
    as_root="sudo -n"
fi

export DEBIAN_FRONTEND=noninteractive
echo "Installing from Debian:$missing" >&2
$as_root apt-get update -qq
# shellcheck disable=SC2086  # a list of words
$as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null
