#!/bin/sh
# The page docs/evidence.md, on standard output: tools/evidence.sh PROGRAM. Each published value beside what the program gives,
# with the command. Exit status 1 if one does not round to the printed digits.
set -eu
cd "$(dirname "$0")/.."
program=$1
version=$("$program" --version | head -n 1)
cat <<END
# Evidence

Values that others printed from tables of the 1967 formulation, beside what $version gives: for a contract, or for an
acceptance test whose guarantees are written on that formulation. Each of them rounds to the printed value: none is off by
more than half a unit of the last printed digit. Each row can be repeated with its command, which prints volumes in m3/kg
(1 m3/kg is 1000 cm3/g).

The page is written by \`tools/evidence.sh build/release/apps/ktl/ktl >docs/evidence.md\` from
[the list](../tests/data/published_values.csv); the test \`documents.evidence\` compares it with what the program gives.

| source | at | quantity | unit | printed | ktl | units off | command |
| --- | --- | --- | --- | --- | --- | --- | --- |
END
{
    cat tests/data/published_values.csv
    # The critical point, by which the formulation is defined.
    for value in t,374.15,degC v,0.00317,m3/kg; do
        echo "sat_p,,221.2,$value,The 1967 IFC Formulation for Industrial Use: critical point"
    done
} | LC_ALL=C awk -F, -v program="$program" '
BEGIN {
    name["p"] = "pressure"; name["t"] = "temperature"; name["v"] = "volume"; name["h"] = "enthalpy"; name["s"] = "entropy"
    phase["f"] = " of saturated water"; phase["g"] = " of saturated steam"
}
/^#/ || NF < 7 { next }
{
    kind = $1; t = $2; p = $3; property = $4; printed = $5; unit = $6; source = $7
    quantity = substr(property, 1, 1); letter = substr(property, 2)
    x = letter == "g" ? 1 : 0
    if (kind == "vt") { given = "pt " p " " t; at = p " bar, " t " degC" }
    else if (kind == "sat_t") { given = "tx " t " " x; at = t " degC" }
    else { given = "px " p " " x; at = p " bar" }
    command = given " " toupper(quantity)
    if (quantity == "t" || quantity == "p") name_here = "saturation " name[quantity]
    else name_here = name[quantity] phase[letter]
    line = ""
    run = program " " command
    run | getline line
    close(run)
    split(line, part, " +")
    value = part[2] * (unit == "cm3/g" ? 1000 : 1)
    point = index(printed, ".")
    places = point ? length(printed) - point : 0
    digit = 10 ^ -places
    off = (value - printed) / digit
    if (line == "" || off > 0.5 || off < -0.5) wrong = 1
    printf "| %s | %s | %s | %s | %s | %.*f | %+.2f | `ktl %s` |\n", source, at, name_here, unit, printed, places + 2, value,
        off, command
    ++rows
}
END { exit wrong || rows < 36 }'
