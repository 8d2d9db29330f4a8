#!/bin/sh
# whole_file.sh PROGRAM: a table that does not fit on the disk leaves no file behind, and one that is refused no empty one. The
# ending of a file decides its format.
set -eu
program=$1
cd "$(mktemp -d)"
trap 'rm -rf "$PWD"' EXIT
trap '' XFSZ # a write past the limit fails
if (ulimit -f 1; "$program" table saturation --step 1 -o table.txt) 2>messages; then echo 'status 0'; exit 1; fi
grep -q "cannot write the results to 'table.txt'" messages
if "$program" table saturation --from 400 -o table.txt 2>/dev/null; then echo 'status 0'; exit 1; fi
[ ! -e table.txt ]
"$program" table saturation --from 370 --step 1 -o table.HTML
grep -q '^<!DOCTYPE html>' table.HTML
if "$program" table saturation --step 1 -o table.pdf 2>messages; then
    head -c 5 table.pdf | grep -q '^%PDF-'
    if command -v pdftotext >/dev/null; then
        pdftotext -layout table.pdf text
        [ "$(grep -c 'page [1-7] of 7$' text)" -eq 7 ] # each with its headings
        [ "$(grep -c 'kJ/(kg K)' text)" -eq 7 ]
        grep -q '^ *374.15  *221.20  *0.0031700  *0.0031700  *2107.4  *0.00  *2107.4  *4.4429  *4.4429$' text
    fi
else
    grep -q 'built without cairo' messages
    [ ! -e table.pdf ]
fi
