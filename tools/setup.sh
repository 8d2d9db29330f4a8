#!/bin/sh
# Installs from Debian what building, testing and running ktl needs and this machine lacks, and the packages named as
# arguments.
set -eu

packages="
    g++ clang libclang-rt-dev cmake ninja-build make
    libcli11-dev libhwy-dev
    gfortran pkg-config mandoc
    libgtest-dev libbenchmark-dev
    libeigen3-dev
"

missing=""
for package in $packages "$@"; do
    status=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=""
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "tools/setup.sh: these packages are missing and need root to install:$missing" >&2
        exit 1
    fi
    as_root=sudo
fi

echo "Installing:$missing"
export DEBIAN_FRONTEND=noninteractive
$as_root apt-get update -qq
# shellcheck disable=SC2086  # a list of words
$as_root apt-get install -y -qq --no-install-recommends $missing >/dev/null
