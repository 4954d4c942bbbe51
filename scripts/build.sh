#!/usr/bin/env bash
# Configures and builds into build/ (or the folder in BUILD_DIR).
# Extra arguments go to CMake's configure step, e.g. -DNORVIKA_SANITIZE=ON.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$here/build}
"$here/scripts/deps.sh"
if [ ! -f "$build/CMakeCache.txt" ] || [ $# -gt 0 ]; then
  cmake -S "$here" -B "$build" -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo} "$@"
fi
cmake --build "$build" --parallel "$(nproc)"
