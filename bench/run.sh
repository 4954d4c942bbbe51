#!/usr/bin/env bash
# Builds the benchmark in release mode, generates cards of 10k and 100k records, and runs
# the benchmark on each. Usage: bench/run.sh [RUNS]
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$here/build-release}
"$here/scripts/deps.sh"
cmake -S "$here" -B "$build" -DCMAKE_BUILD_TYPE=Release -DNORVIKA_BUILD_BENCH=ON >/dev/null
cmake --build "$build" --parallel "$(nproc)" --target norvika-cli norvika-bench norvika-openbench norvika-share >/dev/null
runs=${1:-5}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export NORVIKA_HOME="$work/home"
for n in 10000 100000; do
  "$build/cli/norvika-cli" generate --records "$n" --seed 1 "$work/bench-$n.card"
  echo "## $n records"
  "$build/bench/norvika-bench" "$work/bench-$n.card" "$runs"
  echo
  QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$build/bench/norvika-openbench" "$work/bench-$n.card" "$runs" 2>/dev/null
  echo
done
cmake --build "$build" --parallel "$(nproc)" --target norvika-csvbench >/dev/null
"$build/cli/norvika-cli" generate --records 100000 --seed 1 "$work/csv-100000.card"
echo "## CSV, 100000 records"
"$build/bench/norvika-csvbench" "$work/csv-100000.card" "$build/cli/norvika-cli" "$runs"
