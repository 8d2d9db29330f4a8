#!/bin/sh
# links.sh FILE ...: every link of a document to a file of this repository leads to one. Exit status 1 and a line for
# each that does not.
set -eu
faults=0
links=0
for document in "$@"; do
    for link in $(sed -n 's/](\([^)#]*\)/\n](\1\n/gp' "$document" | sed -n 's/^](//p'); do
        case $link in *://*) continue ;; esac
        links=$((links + 1))
        [ -e "$(dirname "$document")/$link" ] && continue
        echo "$document: no such file: $link"
        faults=$((faults + 1))
    done
done
[ "$links" -ge 20 ] || { echo "only $links links found"; exit 1; }
[ "$faults" -eq 0 ]
