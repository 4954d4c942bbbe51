#!/usr/bin/env bash
# Checks that two builds of norvika-cli print the same dump and cells of the same cards: a
# generated card and a card of every field type grown to many records with Unicode text,
# memos, images, reminders and empty values. The reference build makes the cards.
# Usage: bench/compare-output.sh REFERENCE_CLI CLI [RECORDS]
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
[ $# -ge 2 ] || { echo "usage: $0 REFERENCE_CLI CLI [RECORDS]" >&2; exit 2; }
reference=$1
candidate=$2
records=${3:-10000}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export NORVIKA_HOME="$work/home"

"$reference" generate --records "$records" --seed 7 "$work/generated.card"
grep -v '^#' "$here/tests/data/card/everytype.hex" | xxd -r -p > "$work/everytype.card"
awk -v n="$records" 'BEGIN {
  split("Rot Grün 青", colours, " ")
  for (i = 0; i < n; ++i) {
    line = "{\"String\": \"Zeile " i " ☕ ü𝄞\", \"Integer\": " (i * 7919 % 20001 - 10000)
    line = line ", \"Double\": " (i % 1000) / 8 ", \"Text\": \"a\\nb " i "\""
    line = line ", \"List\": \"" colours[i % 3 + 1] "\", \"Bool\": " (i % 2)
    if (i % 5 == 0) line = line ", \"Date\": null, \"Time\": null, \"DateTime\": null"
    else line = line ", \"Date\": \"2001-02-" sprintf("%02d", i % 28 + 1) "\", \"DateTime\": \"1990-06-15T12:" sprintf("%02d", i % 60) ":00.000\""
    if (i % 3 == 0) line = line ", \"memo\": \"Memo " i "\\nzweite Zeile\", \"image\": \"/pictures/" i ".png\""
    if (i % 7 == 0) line = line ", \"reminder\": {\"dateTime\": \"2031-03-04T05:06:07\", \"sound\": true, \"led\": false, \"type\": 4}"
    print line "}"
  }
}' | "$reference" add "$work/everytype.card" >/dev/null

status=0
for card in generated everytype; do
  for command in "dump" "cells" "cells --sort 0 --descending"; do
    # shellcheck disable=SC2086
    "$reference" $command "$work/$card.card" > "$work/expected"
    # shellcheck disable=SC2086
    "$candidate" $command "$work/$card.card" > "$work/actual"
    if cmp -s "$work/expected" "$work/actual"; then
      echo "same: $command on the $card card ($(wc -c < "$work/actual") bytes)"
    else
      echo "DIFFERENT: $command on the $card card"
      diff "$work/expected" "$work/actual" | head -20
      status=1
    fi
  done
done
exit $status
