#!/usr/bin/env bash
# Builds the benchmark in release mode, generates cards of 10k, 100k and 1M records, and runs
# the benchmark on each, then prints how the times grow from 100k to 1M records.
# Usage: bench/run.sh [RUNS] [SIZES...]   (default: 5 runs; 10000 100000 1000000)
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$here/build-release}
"$here/scripts/deps.sh"
cmake -S "$here" -B "$build" -DCMAKE_BUILD_TYPE=Release -DNORVIKA_BUILD_BENCH=ON >/dev/null
cmake --build "$build" --parallel "$(nproc)" --target norvika-cli norvika-bench norvika-openbench norvika-share >/dev/null
runs=${1:-5}
shift || true
sizes=("$@")
[ ${#sizes[@]} -gt 0 ] || sizes=(10000 100000 1000000)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export NORVIKA_HOME="$work/home"
cli="$build/cli/norvika-cli"

# Peak resident size in KiB of a command run with its output thrown away.
peak_kib() {
  /usr/bin/time -f %M -o "$work/peak" "$@" >/dev/null
  cat "$work/peak"
}

# Column $3 of the table row whose operation begins with $2, in file $1: 3 is ours, 4 the
# sqlite3 peer's, 6 the raw I/O's.
cell() {
  awk -F'|' -v row="$2" -v column="$3" \
    'index($2, " " row) == 1 { gsub(/ /, "", $column); print $column; exit }' "$1"
}

# The growth of column $2 of row $1 from 100k to 1M records.
growth() {
  ratio "$(cell "$work/table-1000000.txt" "$1" "$2")" "$(cell "$work/table-100000.txt" "$1" "$2")"
}

ratio() {
  awk -v a="$1" -v b="$2" 'BEGIN { if (b > 0) printf "%.2f", a / b; else printf "-" }'
}

for n in "${sizes[@]}"; do
  card="$work/bench-$n.card"
  "$cli" generate --records "$n" --seed 1 "$card"
  # Fewer runs on the largest card keep the whole run within minutes.
  r=$runs
  [ "$n" -lt 1000000 ] || r=$(( runs < 2 ? runs : 2 ))
  echo "## $n records"
  "$build/bench/norvika-bench" "$card" "$r" "$work/peer-$n.sqlite" | tee "$work/table-$n.txt"
  ours=$(peak_kib "$cli" cells "$card")
  theirs=$(peak_kib sqlite3 "$work/peer-$n.sqlite" "SELECT * FROM card")
  echo
  echo "| peak resident size | norvika-cli cells KiB | sqlite3 shell SELECT * KiB | ratio |"
  echo "|---|---:|---:|---:|"
  echo "| VmHWM | $ours | $theirs | $(ratio "$ours" "$theirs") |"
  echo
  QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$build/bench/norvika-openbench" "$card" "$r" 2>/dev/null
  echo
  rm -f "$card" "$work/peer-$n.sqlite"
done

if [ -f "$work/table-100000.txt" ] && [ -f "$work/table-1000000.txt" ]; then
  echo "## Growth from 100k to 1M records (goal: at most 11), beside the peer's in the same run"
  echo "| operation | 100k ms | 1M ms | 1M / 100k | sqlite3 1M / 100k | raw I/O 1M / 100k |"
  echo "|---|---:|---:|---:|---:|---:|"
  for op in "full load" "save" "sort by String" "sort by Double" "filter:"; do
    small=$(cell "$work/table-100000.txt" "$op" 3)
    large=$(cell "$work/table-1000000.txt" "$op" 3)
    echo "| $op | $small | $large | $(ratio "$large" "$small") | $(growth "$op" 4) | $(growth "$op" 6) |"
  done
  echo
fi

cmake --build "$build" --parallel "$(nproc)" --target norvika-csvbench >/dev/null
"$cli" generate --records 100000 --seed 1 "$work/csv-100000.card"
echo "## CSV, 100000 records"
"$build/bench/norvika-csvbench" "$work/csv-100000.card" "$cli" "$runs"
