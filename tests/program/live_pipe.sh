#!/bin/sh
# live_pipe.sh PROGRAM: what has come in is answered when the input pauses, line by line, and a disk that is full ends a
# run whose input never ends.
set -eu
export LC_ALL=C
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkfifo "$folder/in"
"$1" batch ph - T <"$folder/in" >"$folder/out" 2>/dev/null &
program=$!
exec 3>"$folder/in"

# wait_for TEXT: at most 10 seconds.
wait_for() {
    for _ in $(seq 100); do
        grep -q "$1" "$folder/out" && return 0
        sleep 0.1
    done
    echo "no answer: $1"
    cat "$folder/out"
    exit 1
}
printf 'p,h\n' >&3
wait_for '^p,h,T_degC,error$'
printf '10,3000\n10,29' >&3
wait_for '^10,3000,275.855757,$'
printf '00\n"10' >&3
wait_for '^10,2900,230.'
printf '",2800\r' >&3
wait_for '^10,2800,189.'
exec 3>&-
wait $program

status=0
{ echo p,h; yes 10,3000; } | timeout 20 "$1" batch ph - T 2>"$folder/message" >/dev/full || status=$?
[ $status -eq 2 ] && grep -q '^ktl: cannot write the results: No space left on device$' "$folder/message" ||
    { echo "full disk: $status"; cat "$folder/message"; exit 1; }
