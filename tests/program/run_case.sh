#!/bin/sh
# run_case.sh PROGRAM APPROVED INPUT ARGUMENT...: runs the program with INPUT (a printf format) on standard input and
# compares what it writes, and its exit status, with the approved file. APPROVE=1 in the environment writes the file.
program=$1
approved=$2
input=$3
shift 3
export LC_ALL=C
actual=$(mktemp)
trap 'rm -f "$actual" "$actual.messages"' EXIT
# shellcheck disable=SC2059  # the input is a format on purpose
printf "$input" | { "$program" "$@" >"$actual" 2>"$actual.messages"; echo "exit status $?" >>"$actual.messages"; }
{ echo "-- messages"; cat "$actual.messages"; } >>"$actual"
[ -z "$APPROVE" ] || cp "$actual" "$approved"
diff -u "$approved" "$actual"
