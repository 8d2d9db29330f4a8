#!/bin/sh
# hostile_files.sh PROGRAM LIMIT: a line without end costs bounded memory and its own result only; NUL bytes come back as
# they went in; a full disk is told. LIMIT: kilobytes of data the program may have, or unlimited.
set -u
export LC_ALL=C
# shellcheck disable=SC3045  # every shell of Debian has ulimit -d
huge=$({ echo p,h,note; printf 10,3000,; head -c 300000000 /dev/zero; echo; echo 10,3000,; } |
    (ulimit -d "$2"; "$1" batch ph - T) 2>&1)
[ "$huge" = "p,h,note,T_degC,error
10,3000,,,line 2: line longer than 1048576 bytes
10,3000,,275.855757,
ktl: 1 of 2 lines has no full result:
  1  line longer than 1048576 bytes (line 2)" ] || { echo "endless line: $huge"; exit 1; }

# A quote that is never closed takes its own line only; many of them are read in one go.
quotes=$({ echo p,h; echo '"10,3000'; yes 10,3000 | head -n 200000; } | (ulimit -d "$2"; "$1" batch ph - T) 2>&1 >/dev/null)
[ "$quotes" = "ktl: 1 of 200001 lines has no full result:
  1  a quote is not closed (line 2)" ] || { echo "open quote: $quotes"; exit 1; }
{ echo p,h; yes 'a","b' | head -n 50000; } | timeout 60 "$1" batch ph - T >/dev/null 2>&1
[ $? -eq 1 ] || { echo "many open quotes"; exit 1; }

nul=$(printf 'p,h\n1\0000,3000\n10,3000\n' | "$1" batch ph - T 2>/dev/null | od -An -c | tr -d ' \n')
case $nul in
*'\n1\00,3000,,line2:pressure:'\''1?0'\''isnotanumber\n10,3000,275.855757,\n') ;;
*) echo "NUL: $nul"; exit 1 ;;
esac

message=$("$1" pt 10 100 2>&1 >/dev/full)
status=$?
[ "$status $message" = "2 ktl: cannot write the results: No space left on device" ] || { echo "full disk: $status $message"; exit 1; }
