#!/bin/sh
# Installs from Debian what this machine lacks: tools/setup.sh [--for PURPOSE] [PACKAGE ...].
#   --for program    what building the program and the libraries for C and C++ needs
#   --for packages   that and what making the Debian packages needs
#   --for web        what building the page and the npm package needs
#   --for web-tests  that and what testing them needs
#   without --for    everything: building, testing and running all of ktl
# Packages named as arguments are installed besides. Without root or a sudo that needs no password, it prints the one
# command to give to an administrator.
set -eu

program="g++ cmake ninja-build libcli11-dev libhwy-dev libcairo2-dev pkg-config"
packages="$program gfortran file dpkg-dev"
web="cmake ninja-build emscripten xz-utils"
command -v npm >/dev/null 2>&1 || web="$web nodejs npm" # some packages of nodejs have npm with them
web_tests="$web g++ chromium fonts-dejavu-core"
everything="$packages clang libclang-rt-dev make mandoc libgtest-dev libbenchmark-dev libeigen3-dev python3-dev python3-venv"

wanted=$everything
if [ "${1:-}" = --for ]; then
    case ${2:-} in
        program) wanted=$program ;;
        packages) wanted=$packages ;;
        web) wanted=$web ;;
        web-tests) wanted=$web_tests ;;
        *) echo "tools/setup.sh: --for program, packages, web or web-tests, not '${2:-}'" >&2; exit 2 ;;
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
