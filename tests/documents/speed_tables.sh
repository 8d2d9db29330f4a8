#!/bin/sh
# speed_tables.sh README SPEED: the speed tables of README hold the numbers of the tables of the same titles in SPEED,
# cell by cell, and so do the sentences below the first one. Exit status 1 and a line for each difference.
set -eu
awk -F'|' '
function trimmed(text) { gsub(/^ +| +$/, "", text); return text }
function fault(text) { print text; faults++ }
# The number of a cell such as "19 (0.8)".
function number(cell) { split(trimmed(cell), part, " "); return part[1] }

FNR == 1 { file++; title = "" }
/^#+ / { title = $0; sub(/^#+ /, "", title); next }

# A table of times: its first column is the task.
/^\| task \|/ { for (k = 3; k < NF; k++) column[k] = trimmed($k); next }
/^\|[- |]+\|$/ { next }
/^\| [a-z],[a-z] to / {
    task = trimmed($2)
    for (k = 3; k < NF; k++) {
        key = title "|" task "|" column[k]
        if (file == 1) readme[key] = number($k)
        else speed[key] = number($k)
    }
    if (file == 1) shown[title "|" task] = 1
    else if (title == "Columns, one thread" && !((title "|" task) in shown)) {
        for (k = 3; k < NF; k++) {
            ns = number($k)
            if (ns == "-") continue
            if (task ~ /^s,x /) { if (ns + 0 > slowest_sx + 0) slowest_sx = ns }
            else {
                if (least == "" || ns + 0 < least + 0) least = ns
                if (ns + 0 > most + 0) most = ns
            }
        }
    }
}

# Both texts without line ends, for their sentences.
{ text[file] = text[file] " " $0 }

END {
    for (key in readme) {
        compared++
        if (!(key in speed)) fault("README: " key ": there is no such cell in the other file")
        else if (readme[key] != speed[key]) fault("README: " key ": " readme[key] ", measured " speed[key])
    }
    if (compared < 30) fault("README: only " compared + 0 " cells found")
    sentence = "All other pairs: " least " to " most " ns per state; s,x up to " slowest_sx " ns."
    if (!index(text[1], sentence)) fault("README should say: " sentence)
    match(text[2], /Here it takes [0-9.]+ ns/)
    yardstick = substr(text[2], RSTART + 14, RLENGTH - 14)
    gsub(/ +/, " ", text[1])
    if (RLENGTH < 0 || !index(text[1], "additions and multiplications take " yardstick " on the same core"))
        fault("README: the yardstick takes " yardstick)
    exit (faults > 0)
}' "$1" "$2"
