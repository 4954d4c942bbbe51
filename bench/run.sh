#!/usr/bin/env bash
# Builds in release mode, generates cards of 10k and 100k records, and runs the benchmark
# on each. Usage: bench/run.sh [RUNS]
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
export BUILD_DIR=${BUILD_DIR:-$here/build-release}
export BUILD_TYPE=Release
"$here/scripts/build.sh" -DNORVIKA_BUILD_BENCH=ON >/dev/null
runs=${1:-5}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export NORVIKA_HOME="$work/home"
for n in 10000 100000; do
  "$BUILD_DIR/cli/norvika-cli" generate --records "$n" --seed 1 "$work/bench-$n.card"
  echo "## $n records"
  "$BUILD_DIR/bench/norvika-bench" "$work/bench-$n.card" "$runs"
  echo
done
