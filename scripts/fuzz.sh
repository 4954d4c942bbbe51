#!/usr/bin/env bash
# Builds the fuzz harnesses with clang (libFuzzer, AddressSanitizer, UBSan) into build-fuzz/
# and runs them one at a time, SECONDS each (default 600), at low priority. Each corpus
# starts from seeds the program's own writers make (fuzz/seeds/) and grows in
# fuzz/corpus/<harness>/. A crash, a hang (1 s per input) or an allocation over 64 MiB
# stops that harness, leaves its input in fuzz/crashes/<harness>/ and fails the script;
# the other harnesses still run. Executions per harness go to fuzz/summary.txt.
# Usage: scripts/fuzz.sh [SECONDS] [HARNESS...]   (default: every harness)
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-600}
[ $# -gt 0 ] && shift
build=${FUZZ_BUILD_DIR:-$here/build-fuzz}
out=$here/fuzz

if [ ! -f "$build/CMakeCache.txt" ]; then
  CC=clang CXX=clang++ cmake -S "$here" -B "$build" -DNORVIKA_FUZZ=ON \
    -DNORVIKA_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo
fi
if [ $# -gt 0 ]; then
  harnesses=("$@")
else
  IFS=';' read -r -a harnesses \
    < <(sed -n 's/^NORVIKA_FUZZ_HARNESSES:INTERNAL=//p' "$build/CMakeCache.txt")
fi
targets=(norvika-fuzzseeds)
for h in "${harnesses[@]}"; do targets+=("fuzz-$h"); done
cmake --build "$build" --parallel 2 --target "${targets[@]}"
"$build/tests/fuzz/norvika-fuzzseeds" "$out/seeds"

status=0
for h in "${harnesses[@]}"; do
  mkdir -p "$out/corpus/$h" "$out/crashes/$h"
  log="$out/$h.log"
  echo "== $h: $seconds s"
  # A small quarantine keeps AddressSanitizer's own memory small, so the limits measure
  # the readers' allocations rather than the sanitizer's.
  if ASAN_OPTIONS=quarantine_size_mb=16:malloc_context_size=8 \
    UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1:suppressions=$here/scripts/ubsan.supp \
    nice "$build/tests/fuzz/fuzz-$h" -max_total_time="$seconds" -timeout=1 \
      -max_len=1048576 -malloc_limit_mb=64 -rss_limit_mb=512 -print_final_stats=1 \
      -artifact_prefix="$out/crashes/$h/" "$out/corpus/$h" "$out/seeds/$h" >"$log" 2>&1; then
    result=ok
  else
    result="FAILED (see $log and fuzz/crashes/$h/)"
    status=1
  fi
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
  echo "$(date -u +%FT%TZ) $h ${seconds}s ${runs:-?} executions $result" | tee -a "$out/summary.txt"
done
exit $status
