#!/bin/sh
# many_errors.sh PROGRAM: a batch that draws more than a million error reports from the library reaches its end. Each
# line here draws 68; the library alone would end the program after 1000000.
set -u
count=15000
result=$({ echo p,h; yes 10,99999 | head -n $count; echo 10,3000; } | "$1" batch ph - T 2>/dev/null; echo "status $?")
[ "$(echo "$result" | grep -c '^10,99999,,"no state: ')" -eq $count ] || exit 1
[ "$(echo "$result" | tail -n 2)" = "10,3000,275.8557622,
status 1" ]
