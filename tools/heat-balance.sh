#!/bin/sh
# The states of a steam cycle, computed by the program: installs what the program needs and this machine lacks, builds it,
# runs it.
set -eu
cd "$(dirname "$0")/.."
tools/setup.sh --for program
echo "Building the program in build/program; the first time that takes a few minutes." >&2
tools/build.sh program ktl_program
echo "Running build/program/apps/ktl/ktl batch auto examples/heat_balance.csv P,T,V,H,S,X --format table" >&2
exec build/program/apps/ktl/ktl batch auto examples/heat_balance.csv P,T,V,H,S,X --format table
