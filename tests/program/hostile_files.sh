#!/bin/sh
# hostile_files.sh PROGRAM LIMIT: a line without end costs bounded memory and its own result only; NUL bytes come back as
# they went in; a full disk is told. LIMIT: kilobytes of data the program may have, or unlimited.
set -u
export LC_ALL=C
# shellcheck disable=SC3045  # every shell of Debian has ulimit -d
huge=$({ echo p,h; head -c 300000000 /dev/zero; echo; echo 10,3000; } | (ulimit -d "$2"; "$1" batch ph - T) 2>&1)
[ "$huge" = "p,h,T_degC,error
,,,line longer than 1048576 bytes
10,3000,275.855757,
ktl: 1 line has no full result" ] || { echo "endless line: $huge"; exit 1; }

nul=$(printf 'p,h\n1\0000,3000\n10,3000\n' | "$1" batch ph - T 2>/dev/null | od -An -c | tr -d ' \n')
case $nul in
*'\n1\00,3000,,pressure:'\''1?0'\''isnotanumber\n10,3000,275.855757,\n') ;;
*) echo "NUL: $nul"; exit 1 ;;
esac

message=$("$1" pt 10 100 2>&1 >/dev/full)
status=$?
[ "$status $message" = "2 ktl: cannot write the results" ] || { echo "full disk: $status $message"; exit 1; }
