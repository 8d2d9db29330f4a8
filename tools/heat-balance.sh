#!/bin/sh
# The states of a steam cycle, computed by the program: installs what is missing, builds, runs.
set -eu
cd "$(dirname "$0")/.."
tools/setup.sh
tools/build.sh release ktl_program
exec build/release/apps/ktl/ktl batch auto examples/heat_balance.csv P,T,V,H,S,X --format table
