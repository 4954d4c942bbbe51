#!/usr/bin/env bash
# Builds the Palm reader fuzzer with clang (libFuzzer, AddressSanitizer, UBSan) and runs it
# for a fixed number of inputs, seeded with the test files. A crash fails the script; the
# input that caused it stays in the output folder as crash-*.
# Usage: scripts/fuzz-palm.sh [RUNS] (default 200000). FUZZ_DIR sets the output folder.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
runs=${1:-200000}
out=${FUZZ_DIR:-$here/build-fuzz}
mkdir -p "$out/corpus"
cp -n "$here"/tests/data/palm/*.pdb "$out/corpus/" 2>/dev/null || true

flags="-std=c++20 -g -O1 -fPIC -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined"
# shellcheck disable=SC2046,SC2086
clang++ $flags -I"$here" $(pkg-config --cflags Qt6Core) \
  "$here/tests/fuzz/palmfuzz.cpp" "$here/exchange/palmdatabase.cpp" \
  "$here/exchange/mobiledbreader.cpp" "$here/exchange/jfilereader.cpp" \
  $(pkg-config --libs Qt6Core) -o "$out/palmfuzz"

cd "$out"
# A small quarantine keeps AddressSanitizer's own memory inside the 256 MiB limit, so that
# the limit catches the readers' allocations rather than the sanitizer's.
ASAN_OPTIONS=${ASAN_OPTIONS:-quarantine_size_mb=16:malloc_context_size=8} \
UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ./palmfuzz -runs="$runs" -timeout=1 -rss_limit_mb=256 -malloc_limit_mb=256 \
  -artifact_prefix="$out/" corpus
