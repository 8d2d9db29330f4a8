#!/bin/sh
# Runs each fuzz target for a number of seconds: tools/fuzz.sh SECONDS [SEED]. What it learns stays below build/fuzz; an
# input that breaks a promise is left there as crash-*. With a SEED it starts from nothing learnt and draws the same inputs
# in every run, as many as the seconds allow; without one every run draws others.
set -eu
cd "$(dirname "$0")/.."
seconds=$1
seed=${2:-}
tools/setup.sh
tools/build.sh fuzz
cd build/fuzz
for target in states batch; do
    [ -z "$seed" ] || rm -rf "corpus/$target"
    mkdir -p "corpus/$target"
    log=$target.log
    if ! "tests/fuzz/fuzz_$target" -max_total_time="$seconds" ${seed:+"-seed=$seed"} -max_len=1200 -timeout=20 "corpus/$target" >"$log" 2>&1; then
        tail -n 40 "$log"
        exit 1
    fi
    echo "fuzz $target: $(tail -n 1 "$log")"
done
