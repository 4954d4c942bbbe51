#!/usr/bin/env bash
# Builds the fuzz harnesses with clang (libFuzzer, AddressSanitizer, UBSan) into build-fuzz/
# and runs them one at a time, SECONDS each (default 600), at low priority. Each corpus
# starts from seeds the program's own writers make (fuzz/seeds/) and grows in
# fuzz/corpus/<harness>/. A crash, a hang (1 s per input) or an allocation over 64 MiB
# leaves its input in fuzz/crashes/<harness>/ and fails the script; the other harnesses
# still run. Executions per harness go to fuzz/summary.txt.
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

# A harness runs in libFuzzer's fork mode, so that a slow input does not end the run: on
# a machine shared with other work an input can stall past the limit for reasons of its
# own. Every input that timed out is tried again alone, three times; only one that is slow
# each time counts. The others go to fuzz/crashes/<harness>/stalled/.
confirmed_slow() {
  local fuzzer=$1 input=$2
  for _ in 1 2 3; do
    "$fuzzer" -timeout=1 -runs=1 "$input" >/dev/null 2>&1 && return 1
  done
  return 0
}

status=0
for h in "${harnesses[@]}"; do
  mkdir -p "$out/corpus/$h" "$out/crashes/$h"
  fuzzer=$build/tests/fuzz/fuzz-$h
  log="$out/$h.log"
  echo "== $h: $seconds s"
  # A small quarantine keeps AddressSanitizer's own memory small, so that the limits
  # measure the readers' allocations rather than the sanitizer's.
  export ASAN_OPTIONS=quarantine_size_mb=16:malloc_context_size=8
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1:suppressions=$here/scripts/ubsan.supp
  result=ok
  if ! nice "$fuzzer" -fork=1 -ignore_timeouts=1 -ignore_ooms=0 -ignore_crashes=0 \
      -max_total_time="$seconds" -timeout=1 -max_len=1048576 -malloc_limit_mb=64 \
      -rss_limit_mb=512 -artifact_prefix="$out/crashes/$h/" \
      "$out/corpus/$h" "$out/seeds/$h" >"$log" 2>&1; then
    result="FAILED (see $log and fuzz/crashes/$h/)"
    status=1
  fi
  stalled=0
  for input in "$out/crashes/$h"/timeout-*; do
    [ -e "$input" ] || continue
    if confirmed_slow "$fuzzer" "$input"; then
      result="FAILED: $(basename "$input") is slow alone too"
      status=1
    else
      mkdir -p "$out/crashes/$h/stalled"
      mv "$input" "$out/crashes/$h/stalled/"
      stalled=$((stalled + 1))
    fi
  done
  runs=$(grep -o '^#[0-9]*' "$log" | tail -1 | tr -d '#')
  echo "$(date -u +%FT%TZ) $h ${seconds}s ${runs:-?} executions, $stalled stalls not repeated alone: $result" \
    | tee -a "$out/summary.txt"
done
exit $status
