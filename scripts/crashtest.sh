#!/usr/bin/env bash
# Kills a program that saves a 10,000-record card in a loop with SIGKILL at random moments,
# N times (default 100), and checks after every kill that the card is byte for byte one of
# the two versions being saved, never a mix; that it loads; and that no ".new" is left
# that the load did not take or clear. Needs norvika-saveloop and norvika-cli in build/
# (BUILD_DIR sets another build folder).
# Usage: scripts/crashtest.sh [N]
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
rounds=${1:-100}
build=${BUILD_DIR:-$here/build}
cmake --build "$build" --parallel 2 --target norvika-saveloop norvika-cli >/dev/null
saveloop=$build/tests/crash/norvika-saveloop
cli=$build/cli/norvika-cli
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
card=$work/crash.card

first=0 second=0 cut=0 failed=0
for ((round = 1; round <= rounds; ++round)); do
  rm -f "$card" "$card".*
  "$saveloop" "$card" 0 &
  child=$!
  # The two versions are on record once the child has saved each of them once.
  while [ ! -s "$card.second" ] && kill -0 $child 2>/dev/null; do sleep 0.05; done
  sleep "0.$(printf '%03d' $((RANDOM % 1000)))"
  kill -KILL $child
  wait $child 2>/dev/null || true
  [ -e "$card.new" ] && cut=$((cut + 1))
  if cmp -s "$card" "$card.first"; then
    first=$((first + 1))
  elif cmp -s "$card" "$card.second"; then
    second=$((second + 1))
  else
    echo "round $round: the card is neither version" >&2
    failed=$((failed + 1))
    continue
  fi
  if ! "$cli" --home "$work/home" dump "$card" >/dev/null; then
    echo "round $round: the card does not load" >&2
    failed=$((failed + 1))
  elif [ -e "$card.new" ]; then
    echo "round $round: a \".new\" file is left after loading" >&2
    failed=$((failed + 1))
  fi
done
echo "$rounds kills: $first left the first version, $second the second," \
  "$cut cut a save short (a \".new\" was there); $failed failed"
[ $failed -eq 0 ]
