#!/bin/sh
# run.sh APPROVED PROGRAM ARGUMENT...: runs the program in an empty folder and compares with the approved file what it
# writes, its exit status and every file that it leaves. APPROVE=1 in the environment writes the approved file.
approved=$1
shift
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/run"
(
    cd "$folder/run" || exit
    "$@" >"$folder/output" 2>"$folder/messages"
    echo "exit status $?" >>"$folder/messages"
)
{
    cat "$folder/output"
    echo "-- messages"
    cat "$folder/messages"
    for file in "$folder"/run/*; do
        [ -f "$file" ] || continue
        echo "-- ${file##*/}"
        cat "$file"
    done
} >"$folder/all"
[ -z "$APPROVE" ] || cp "$folder/all" "$approved"
diff -u "$approved" "$folder/all"
